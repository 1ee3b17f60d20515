// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "database/target_item.h"

#include <string>
#include <vector>

namespace kelmar {

/// What the commands of the request page depend on.
struct RequestPageState {
  bool open = false;    ///< an ECU is shown
  bool active = false;  ///< a request is in the fields
  int selected = 0;     ///< rows
  bool pending = false; ///< something is typed that its item does not have
  bool canRvt = false;  ///< test scenarios can be generated
  bool hasScreensPage = false, hasDevicesPage = false, hasDidPage = false;

  friend bool operator==(const RequestPageState&, const RequestPageState&) = default;
};

/// True when the command can be chosen: keys of the tool bar and of the menu entries.
bool isRequestCommandEnabled(const std::string& key, const RequestPageState& state);

/// The menu of the list. Ways to pages that are not there are left out. `request` is the row under
/// the pointer, none without one.
std::vector<MenuEntry> requestMenu(const RequestPageState& state, const TargetItem* target,
                                   const RequestItem* request);

} // namespace kelmar
