// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_goto.h"

namespace kelmar {

namespace {

std::string categoryOf(const ScreenItem& screen) {
  return screen.parent ? screen.parent->categoryName : std::string();
}

MenuEntry screenEntry(const ScreenItem& screen, const std::string& behind,
                      const std::string& item) {
  return {.key = "PopupReqGotoScreensName",
          .text = screen.screenName + behind,
          .literal = true,
          .names = {categoryOf(screen), screen.screenName, item}};
}

} // namespace

std::vector<MenuEntry> screensOfRequest(const TargetItem& target, const RequestItem& request) {
  std::vector<MenuEntry> entries;
  for (const DisplayItem* display : target.GetScreensDataUsingRequest(request.requestName)) {
    if (!display->parent) continue;
    const std::string& data = display->DisplayDataItem->dataName;
    entries.push_back(screenEntry(*display->parent, " (" + data + ")", data));
  }
  const ButtonItem* last = nullptr; // steps of one button follow one another
  for (const ScenarioItem* step : target.GetScreensScenarioUsingRequest(request.requestName)) {
    const ButtonItem* button = step->parent;
    if (!button || button == last || !button->parent) continue;
    last = button;
    const bool init = button == button->parent->ButtonInit.get();
    entries.push_back(screenEntry(*button->parent,
                                  init ? " [init scenario]" : " [button : " + button->caption + "]",
                                  button->caption));
  }
  return entries;
}

std::vector<MenuEntry> devicesOfRequest(const TargetItem& target, const RequestItem& request) {
  std::vector<MenuEntry> entries;
  for (const OrganeItem* device : target.GetDeviceUsingRequest(request.requestName))
    entries.push_back({.key = "PopupReqGotoDeviceName",
                       .text = device->organeName,
                       .literal = true,
                       .names = {device->organeName}});
  return entries;
}

} // namespace kelmar
