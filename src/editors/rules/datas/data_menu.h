// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "database/target_item.h"

#include <string>
#include <vector>

namespace kelmar {

/// What the menu of the data list depends on.
struct DataMenuState {
  const TargetItem* target = nullptr;
  const DataItem* active = nullptr; ///< the row of the menu; none in an empty list
  int selected = 0;                 ///< rows
};

/// The pop-up of the data list, in the language of the moment. The generated entries below
/// `menuRequests` bear the key `menuReq` and the names of request and data.
std::vector<MenuEntry> dataMenu(const DataMenuState& state);

} // namespace kelmar
