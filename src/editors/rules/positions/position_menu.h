// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "database/target_item.h"

#include <string>
#include <vector>

namespace kelmar {

/// What the commands on placed data depend on.
struct PositionPaneState {
  bool request = false; ///< a request is active
  bool active = false;  ///< a position is in the fields
  int selected = 0;     ///< rows
  bool pending = false; ///< the fields hold another placement than that of the position
  bool clipboardHasText = false;
  bool associateAsFailure = false; ///< new device data are failure flags
  bool hasScreensPage = false, hasDevicesPage = false;

  friend bool operator==(const PositionPaneState&, const PositionPaneState&) = default;
};

/// Keys of the tool bar and of the menu entries.
bool isPositionCommandEnabled(const std::string& key, const PositionPaneState& state);

/// The menu of the list. Ways to pages that are not there are left out, and so is what needs them.
/// `position` is the row under the pointer, none without one. Entries made for data, devices and
/// screens have their names.
std::vector<MenuEntry> positionMenu(const PositionPaneState& state, const TargetItem& target,
                                    const DataPositionItem* position);

/// The menu of a bit of the byte view. Entries that make a data have the menu's name as key and
/// their index as the only name.
std::vector<MenuEntry> createDataMenu(const PositionPaneState& state);

/// One entry for each display of the data; names are category, screen and data.
std::vector<MenuEntry> screensOfData(const TargetItem& target, const std::string& dataName);
/// "category -> screen" for every screen; names are both.
std::vector<MenuEntry> allScreens(const TargetItem& target);

} // namespace kelmar
