// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"

#include <string_view>
#include <vector>

namespace kelmar {

/// What decides which commands of the page of identifications are enabled.
struct AutoIdentPageState {
  bool open = false;   ///< there is an ECU
  bool active = false; ///< a row is in the entry fields
  int selected = 0;    ///< rows
};

/// `key` of the tool bar, of the menu, or of a button.
bool isAutoIdentCommandEnabled(std::string_view key, const AutoIdentPageState& state);

/// The menu `PopupAi` of the list.
std::vector<MenuEntry> autoIdentMenu(const AutoIdentPageState& state);

} // namespace kelmar
