// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/position_menu.h"

#include "editors/rules/positions/create_data.h"
#include "language/multi_lang.h"

#include <iterator>
#include <string_view>

namespace kelmar {

namespace {

using Entries = std::vector<MenuEntry>;

std::string text(const char* defaultText, const char* key) {
  return language::global().getMultilangMessageDefault(defaultText, key);
}

class Menu {
 public:
  explicit Menu(const PositionPaneState& state) : state_(state) {}

  MenuEntry command(const char* key, const std::string& caption, const char* shortcut = "") const {
    return {.key = key,
            .text = *shortcut ? caption + "\t" + shortcut : caption,
            .enabled = isPositionCommandEnabled(key, state_)};
  }
  MenuEntry below(const char* key, const std::string& caption, Entries entries) const {
    MenuEntry entry = command(key, caption);
    entry.enabled = entry.enabled && !entries.empty();
    entry.entries = std::move(entries);
    return entry;
  }
  static MenuEntry separator(const char* key) {
    return {.key = key, .kind = MenuEntry::Kind::Separator};
  }

 private:
  const PositionPaneState& state_;
};

/// "Goto data {0}" with a colon and the name.
MenuEntry gotoEntry(const char* key, const std::string& caption, const std::string& name,
                    bool enabled) {
  return {.key = key, .text = caption, .enabled = enabled, .literal = true, .names = {name}};
}

Entries gotoEntries(const PositionPaneState& state, const TargetItem& target,
                    const DataPositionItem* position) {
  const CMultiLangEx& texts = language::global();
  const std::string name = position ? position->dataName : std::string();
  const std::string behind = position ? ": " + name : std::string();
  Entries entries{
      gotoEntry("ppDataGoto",
                texts.getMultilangMessageDefault(
                    "Goto data {0}", "REQUESTS/MSG/LVposdata_MouseDown/gotoData/text", behind),
                name, position != nullptr)};
  if (state.hasDevicesPage) {
    const OrganeItem* device =
        position && position->reference ? target.GetDeviceUsingData(name) : nullptr;
    const std::string deviceName = device ? device->organeName : std::string();
    entries.push_back(gotoEntry(
        "ppDataGotoDev",
        texts.getMultilangMessageDefault("Goto device {0}",
                                         "REQUESTS/MSG/LVposdata_MouseDown/gotoDevice/text",
                                         device ? ": " + deviceName : std::string()),
        deviceName, device != nullptr));
  }
  if (state.hasScreensPage) {
    MenuEntry screens{.key = "ppDataGotoScr",
                      .text = text("Goto screens", "REQUESTS/CONTROLS/ppDataGotoScr/caption")};
    if (position) screens.entries = screensOfData(target, name);
    screens.enabled = !screens.entries.empty();
    entries.push_back(std::move(screens));
  }
  entries.push_back(Menu::separator("sepDataGoto"));
  return entries;
}

Entries dataEntries(const TargetItem& target) {
  Entries entries{
      {.key = "ppDataReplaceData",
       .text = text("[New data] ...", "REQUESTS/CONTROLS/ppDataReplaceData/item0/caption")}};
  if (!target.datas()) return entries;
  for (const DataItem* data : *target.datas())
    entries.push_back({.key = "ppDataReplaceData",
                       .text = data->dataName(),
                       .literal = true,
                       .names = {data->dataName()}});
  return entries;
}

Entries deviceEntries(const PositionPaneState& state, const TargetItem& target) {
  Entries entries{
      {.key = "ppDataSetDevFlag",
       .text = text("[Associate as Failure Flag]", "REQUESTS/CONTROLS/ppDataSetDev/item0/caption"),
       .kind = MenuEntry::Kind::Check,
       .checked = state.associateAsFailure},
      {.key = "ppDataSetDevNone",
       .text = text("[None]", "REQUESTS/CONTROLS/ppDataSetDev/item1/caption")},
      {.key = "ppDataSetDevNew",
       .text = text("[New device] ...", "REQUESTS/CONTROLS/ppDataSetDev/item2/caption")}};
  if (!target.Organes()) return entries;
  for (const OrganeItem* device : *target.Organes())
    entries.push_back({.key = "ppDataSetDev",
                       .text = device->organeName,
                       .literal = true,
                       .names = {device->organeName}});
  return entries;
}

} // namespace

bool isPositionCommandEnabled(const std::string& key, const PositionPaneState& state) {
  if (key == "ppDataHelp") return true;
  if (!state.request) return false;
  if (key == "PopupCreateDataC") return state.clipboardHasText;
  if (key == "paste" || key == "ppDataPaste" || key.starts_with("ppCDnumeric") ||
      key.starts_with("ppCDhexa") || key.starts_with("ppCDascii"))
    return true;
  if (key == "cancel") return state.active && state.pending;
  if (key == "save") return state.active;
  return state.active && state.selected > 0;
}

std::vector<MenuEntry> positionMenu(const PositionPaneState& state, const TargetItem& target,
                                    const DataPositionItem* position) {
  const Menu menu(state);
  Entries entries = gotoEntries(state, target, position);
  entries.push_back(
      menu.command("ppDataCut", text("Cut", "REQUESTS/CONTROLS/ppDataCut/caption"), "Ctrl+X"));
  entries.push_back(
      menu.command("ppDataCopy", text("Copy", "REQUESTS/CONTROLS/ppDataCopy/caption"), "Ctrl+C"));
  entries.push_back(
      menu.command("ppDataCopyText", text("Copy as text (for a spreadsheet)",
                                          "REQUESTS/CONTROLS/ppDataCopyText/caption")));
  entries.push_back(menu.command("ppDataPaste",
                                 text("Paste", "REQUESTS/CONTROLS/ppDataPaste/caption"), "Ctrl+V"));
  entries.push_back(Menu::separator("sepDataClipboard"));
  entries.push_back(menu.below("ppDataReplace",
                               text("Replace data with", "REQUESTS/CONTROLS/ppDataReplace/caption"),
                               dataEntries(target)));
  if (state.hasDevicesPage)
    entries.push_back(menu.below("ppDataAssociateDevice",
                                 text("Associate selected data to device",
                                      "REQUESTS/CONTROLS/ppDataAssociateDevice/caption"),
                                 deviceEntries(state, target)));
  entries.push_back(
      menu.command("ppDataToggleEndian", text("Change the order of bits",
                                              "REQUESTS/CONTROLS/ppDataToggleEndian/caption")));
  entries.push_back(menu.command("ppDataSetEndianDefault",
                                 text("Set the order of bits of the ECU",
                                      "REQUESTS/CONTROLS/ppDataSetEndianDefault/caption")));
  if (state.hasScreensPage)
    entries.push_back(
        menu.below("ppCDcopyDataToScreens",
                   text("Copy data in screen", "REQUESTS/CONTROLS/ppCDcopyDataToScreens/caption"),
                   allScreens(target)));
  entries.push_back(Menu::separator("sepDataHelp"));
  entries.push_back(
      menu.command("ppDataHelp", text("Help", "REQUESTS/CONTROLS/ppDataHelp/caption"), "F1"));
  return entries;
}

std::vector<MenuEntry> createDataMenu(const PositionPaneState& state) {
  const Menu menu(state);
  const auto arrayEntries = [](std::string_view array) {
    Entries entries;
    for (const CreateDataEntry& row : createDataEntries()) {
      if (array != row.array) continue;
      const std::string index = std::to_string(row.index);
      entries.push_back(
          {.key = row.array,
           .text = language::global().getMultilangMessageDefault(
               row.text, "REQUESTS/CONTROLS/" + std::string(array) + "/item" + index + "/caption"),
           .names = {index}});
    }
    return entries;
  };
  return {menu.command("PopupCreateDataC", text("Paste data at this position",
                                                "REQUESTS/CONTROLS/PopupCreateDataC/caption")),
          Menu::separator("sepCreateData"),
          menu.below("ppCDnumeric",
                     text("Create numeric data", "REQUESTS/CONTROLS/ppCDnumeric/caption"),
                     arrayEntries("ppCDnumericBit")),
          menu.below("ppCDnumericL",
                     text("Create numeric list data", "REQUESTS/CONTROLS/ppCDnumericL/caption"),
                     arrayEntries("ppCDnumericList")),
          menu.below("ppCDhexa",
                     text("Create hexadecimal data", "REQUESTS/CONTROLS/ppCDhexa/caption"),
                     arrayEntries("ppCDhexaBytes")),
          menu.below("ppCDascii", text("Create ascii data", "REQUESTS/CONTROLS/ppCDascii/caption"),
                     arrayEntries("ppCDasciiBytes"))};
}

std::vector<MenuEntry> screensOfData(const TargetItem& target, const std::string& dataName) {
  Entries entries;
  for (const DisplayItem* display : target.GetScreensUsingData(dataName)) {
    const ScreenItem* screen = display->parent;
    if (!screen) continue;
    entries.push_back({.key = "ppDataGotoScreen",
                       .text = screen->screenName + " (" + dataName + ")",
                       .literal = true,
                       .names = {screen->parent ? screen->parent->categoryName : std::string(),
                                 screen->screenName, dataName}});
  }
  return entries;
}

std::vector<MenuEntry> allScreens(const TargetItem& target) {
  Entries entries;
  if (!target.Categories) return entries;
  for (const CategoryItem* category : *target.Categories) {
    if (!category->Screens) continue;
    for (const ScreenItem* screen : *category->Screens)
      entries.push_back({.key = "ppCDcopyDataToScreen",
                         .text = category->categoryName + " -> " + screen->screenName,
                         .literal = true,
                         .names = {category->categoryName, screen->screenName}});
  }
  return entries;
}

} // namespace kelmar
