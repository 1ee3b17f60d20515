// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/auto_ident_menu.h"

#include "language/multi_lang.h"

#include <algorithm>
#include <iterator>

namespace kelmar {

namespace {

constexpr std::string_view onSelection[] = {"cut", "copy", "PopupAiCut", "PopupAiCopy",
                                            "PopupAiCopyText"};
constexpr std::string_view always[] = {"PopupAiHelp", "PopupHelpGoto", "help"};

template <std::size_t n>
bool holds(const std::string_view (&keys)[n], std::string_view key) {
  return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

std::string text(const char* defaultText, const char* key) {
  return language::global().getMultilangMessageDefault(defaultText, key);
}

} // namespace

bool isAutoIdentCommandEnabled(std::string_view key, const AutoIdentPageState& state) {
  if (holds(always, key)) return true;
  if (!state.open) return false;
  if (holds(onSelection, key)) return state.selected > 0;
  return key != "check" || state.active;
}

std::vector<MenuEntry> autoIdentMenu(const AutoIdentPageState& state) {
  const auto entry = [&state](const char* key, const std::string& shown) {
    return MenuEntry{.key = key, .text = shown, .enabled = isAutoIdentCommandEnabled(key, state)};
  };
  return {
      entry("PopupAiCut", text("Cut", "AUTOIDENT/CONTROLS/PopupAiCut/caption") + "\tCtrl+X"),
      entry("PopupAiCopy", text("Copy", "AUTOIDENT/CONTROLS/PopupAiCopy/caption") + "\tCtrl+C"),
      entry("PopupAiCopyText", text("Copy text", "AUTOIDENT/CONTROLS/PopupAiCopyText/caption")),
      entry("PopupAiPaste", text("Paste", "AUTOIDENT/CONTROLS/PopupAiPaste/caption") + "\tCtrl+V"),
      {.key = "PopupAiSeparator", .kind = MenuEntry::Kind::Separator},
      entry("PopupAiHelp", text("Help", "AUTOIDENT/CONTROLS/PopupAiHelp/caption") + "\tF1"),
      entry("PopupHelpGoto", text("Help on the search by identification",
                                  "AUTOIDENT/CONTROLS/PopupHelpGoto/caption"))};
}

} // namespace kelmar
