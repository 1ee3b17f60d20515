// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace kelmar {

/// One entry of a menu, as a value: rules say what a menu holds, the window shows it and tells
/// which entry was chosen.
struct MenuEntry {
  enum class Kind { Command, Check, Separator };

  std::string key = {};  ///< name of the entry; texts are translated by it
  std::string text = {}; ///< as shown; "&" marks a letter unless `literal`
  Kind kind = Kind::Command;
  bool enabled = true;
  bool checked = false; ///< of a Check
  bool literal = false; ///< the text holds names of items, "&" is a letter like any other
  std::vector<std::string> names = {}; ///< what is to be gone to: request and data, say
  std::vector<MenuEntry> entries = {}; ///< not empty: a sub-menu

  friend bool operator==(const MenuEntry&, const MenuEntry&) = default;
};

} // namespace kelmar
