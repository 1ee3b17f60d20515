// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_menu.h"

#include "common/name_commands.h"
#include "editors/rules/datas/data_goto.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

std::string textOf(const KeyedText& text) {
  return language::global().getMultilangMessageDefault(std::string(text.text), text.key);
}

MenuEntry entry(const char* name, const KeyedText& caption, bool enabled) {
  return {.key = name, .text = textOf(caption), .enabled = enabled};
}

MenuEntry separator() {
  return {.kind = MenuEntry::Kind::Separator};
}

} // namespace

std::vector<MenuEntry> dataMenu(const DataMenuState& state) {
  const bool open = state.target != nullptr;
  const bool some = state.selected > 0;
  std::vector<MenuEntry> menu;
  if (open && state.active) {
    menu.push_back(requestsMenu(*state.target, *state.active));
    menu.push_back(separator());
  }
  const bool any = open && state.target->datas() && state.target->datas()->Count() > 0;
  const std::vector<MenuEntry> rest{
      entry("popupRefCut", {"DATAS/CONTROLS/popupRefCut/caption", "Cut"}, some),
      entry("popupRefCopy", {"DATAS/CONTROLS/popupRefCopy/caption", "Copy"}, some),
      entry("popupRefCopyText", {"DATAS/CONTROLS/popupRefCopyText/caption", "Copy text"}, some),
      entry("popupRefPaste", {"DATAS/CONTROLS/popupRefPaste/caption", "Paste"}, open),
      entry("popupRefCopyTradConfig",
            {"DATAS/CONTROLS/popupRefCopyTradConfig/caption", "Copy data for configuration table"},
            some),
      separator(),
      entry("popupSelectDataNumeric",
            {"DATAS/CONTROLS/popupSelectDataNumeric/caption", "Select numeric data"}, any),
      entry("popupSelectDataNumericList",
            {"DATAS/CONTROLS/popupSelectDataNumericList/caption", "Select numeric list data"}, any),
      entry("popupSelectDataASCII",
            {"DATAS/CONTROLS/popupSelectDataASCII/caption", "Select ASCII data"}, any),
      entry("popupSelectDataHEXA",
            {"DATAS/CONTROLS/popupSelectDataHEXA/caption", "Select BCD / HEXA data"}, any),
      entry("popupRefSelectUnused",
            {"DATAS/CONTROLS/popupRefSelectUnused/caption", "Select unused data"}, any),
      separator(),
      entry("popupSortDataAscending",
            {"DATAS/CONTROLS/popupSortDataAscending/caption", "Sort ascending"}, any),
      entry("popupSortDataDescending",
            {"DATAS/CONTROLS/popupSortDataDescending/caption", "Sort descending"}, any),
      separator(),
      entry("popupRefNormalize", {"DATAS/CONTROLS/popupRefNormalize/caption", "Normalize names"},
            some),
      entry("popupRefUcase", {"DATAS/CONTROLS/popupRefUcase/caption", "Uppercase names"}, some),
      entry("popupReflcase", {"DATAS/CONTROLS/popupReflcase/caption", "Lowercase names"}, some),
      entry("popupRefCapword", {"DATAS/CONTROLS/popupRefCapword/caption", "Capitalize words"},
            some),
      entry("popupRefCapword1",
            {"DATAS/CONTROLS/popupRefCapword1/caption", "Capitalize words of names"}, some),
      entry("popupRefReplace", {"DATAS/CONTROLS/popupRefReplace/caption", "Replace in names..."},
            some),
      separator(),
      entry("PopupRefHelp", {"DATAS/CONTROLS/PopupRefHelp/caption", "Help"}, true)};
  menu.insert(menu.end(), rest.begin(), rest.end());
  return menu;
}

} // namespace kelmar
