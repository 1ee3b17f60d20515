// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_goto.h"

#include "common/name_commands.h"
#include "editors/rules/requests/request_commands.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

std::string textOf(const KeyedText& text) {
  return language::global().getMultilangMessageDefault(std::string(text.text), text.key);
}

MenuEntry menu(const char* key, const KeyedText& caption) {
  return {.key = key, .text = textOf(caption)};
}

void add(MenuEntry& menu, const char* key, const std::string& text,
         std::vector<std::string> names) {
  menu.entries.push_back({.key = key, .text = text, .literal = true, .names = std::move(names)});
}

/// The menu, or one entry that says that there is none.
MenuEntry orNone(MenuEntry menu, const char* key, const KeyedText& none) {
  if (menu.entries.empty())
    menu.entries.push_back({.key = key, .text = textOf(none), .enabled = false});
  return menu;
}

} // namespace

MenuEntry requestsMenu(const TargetItem& target, const DataItem& data) {
  MenuEntry requests = menu("menuRequests", {"DATAS/CONTROLS/menuRequests/caption", "Requests"});
  for (const DataPositionItem* position : target.GetRequestsUsingData(data.dataName())) {
    if (!position->parent) continue;
    const std::string& name = position->parent->requestName;
    add(requests, "menuReq", position->reference ? "[ " + name + " ]" : name,
        {name, data.dataName()});
  }
  return orNone(std::move(requests), "menuReq", {"DATAS/CONTROLS/menuReq/caption", "No request"});
}

MenuEntry devicesMenu(const TargetItem& target, const DataItem& data) {
  MenuEntry devices = menu("menuDevices", {"DATAS/CONTROLS/menuDevices/caption", "Devices"});
  const std::string& name = data.dataName();
  if (target.Organes())
    for (const OrganeItem* device : *target.Organes())
      if (device->GetDeviceDataUsingData(name) || device->GetTestUsingData(name))
        add(devices, "menuDev", device->organeName, {device->organeName, name});
  return orNone(std::move(devices), "menuDev", {"DATAS/CONTROLS/menuDev/caption", "No device"});
}

MenuEntry displaysMenu(const TargetItem& target, const DataItem& data) {
  MenuEntry displays = menu("menuDisplay", {"DATAS/CONTROLS/menuDisplay/caption", "Display"});
  const ScreenItem* last = nullptr; // displays of one screen follow one another
  for (const DisplayItem* display : target.GetScreensUsingData(data.dataName())) {
    const ScreenItem* screen = display->parent;
    if (!screen || screen == last) continue;
    last = screen;
    add(displays, "menuDis", screen->screenName,
        {screen->parent ? screen->parent->categoryName : std::string(), screen->screenName,
         data.dataName()});
  }
  return orNone(std::move(displays), "menuDis", {"DATAS/CONTROLS/menuDis/caption", "No display"});
}

MenuEntry identifiersMenu(const TargetItem& target, const DataItem& data) {
  MenuEntry identifiers = menu("menuDIDs", {"DATAS/CONTROLS/menuDIDs/caption", "DID"});
  for (const DataPositionItem* position : target.GetRequestsUsingData(data.dataName())) {
    const RequestItem* request = position->parent;
    if (request && isDidRequest(*request))
      add(identifiers, "menuDID",
          "[" + request->RequestBytes->HexText() + "] " + request->requestName,
          {request->requestName, data.dataName()});
  }
  return orNone(std::move(identifiers), "menuDID", {"DATAS/CONTROLS/menuDID/caption", "No DID"});
}

} // namespace kelmar
