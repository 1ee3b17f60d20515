// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/uses.h"

#include "database/target_walk.h"

namespace kelmar::cli {

namespace {

std::string placeOf(const DataPositionItem& position) {
  return std::string(position.param ? "sent" : "received") + " byte " +
         std::to_string(position.StartOctet) + " bit " + std::to_string(position.StartBit) +
         (position.reference ? ", reference" : "");
}

std::string testText(const TestItem& test) {
  return "test " + std::to_string(test.testType);
}

template <class Visit>
void forEachNamedScreen(const TargetItem& target, Visit visit) {
  forEachScreen(target, [&](ScreenItem& screen) {
    const CategoryItem* category = screen.parent;
    visit(screen, (category ? category->categoryName : std::string()) + " / " + screen.screenName);
  });
}

template <class Visit>
void forEachDevice(const TargetItem& target, Visit visit) {
  if (!target.Organes()) return;
  for (OrganeItem* device : *target.Organes())
    visit(*device);
}

void flagUses(const OrganeItem& device, const TestItem& test, std::string_view name,
              const std::function<void(const Use&)>& visit) {
  for (const DataPositionItem* flag : test.StoredFlag)
    if (flag->dataName == name) visit({"stored-flag", device.organeName, testText(test)});
  for (const DataPositionItem* flag : test.PresentFlag)
    if (flag->dataName == name) visit({"present-flag", device.organeName, testText(test)});
}

void stepUses(const ScreenItem& screen, const std::string& where, std::string_view name,
              const std::function<void(const Use&)>& visit) {
  if (!screen.ButtonItems) return;
  for (const ButtonItem* button : *screen.ButtonItems) {
    if (!button->ScenarioItems) continue;
    for (const ScenarioItem* step : *button->ScenarioItems) {
      if (step->requestName != name) continue;
      const std::string owner =
          button->InitButton ? std::string("opening of the screen") : "button " + button->caption;
      visit({"scenario-step", where, owner + ", step " + std::to_string(step->Index)});
    }
  }
}

} // namespace

void forEachUseOfData(const TargetItem& target, std::string_view name,
                      const std::function<void(const Use&)>& visit) {
  forEachRequest(target, [&](const RequestItem& request) {
    if (const DataPositionItem* position = positionOf(request, name))
      visit({"position", request.requestName, placeOf(*position)});
  });
  forEachDevice(target, [&](const OrganeItem& device) {
    if (device.DeviceDatas) {
      if (const DeviceDataItem* datum = device.DeviceDatas->ItemName(name))
        visit({"device-data", device.organeName, datum->FlagPanne ? "failure flag" : "value"});
    }
    if (!device.Tests) return;
    for (const TestItem* test : *device.Tests)
      flagUses(device, *test, name, visit);
  });
  forEachNamedScreen(target, [&](const ScreenItem& screen, const std::string& where) {
    if (!screen.DisplayItems) return;
    for (const DisplayItem* display : *screen.DisplayItems) {
      const DisplayDataItem* shown = display->DisplayDataItem.get();
      if (shown && shown->dataName == name)
        visit({"display", where, "request " + shown->requestName});
    }
  });
}

void forEachUseOfRequest(const TargetItem& target, std::string_view name,
                         const std::function<void(const Use&)>& visit) {
  forEachDevice(target, [&](const OrganeItem& device) {
    if (device.requestName == name)
      visit({"freeze-frame", device.organeName, "DTC " + std::to_string(device.OrganeDTC)});
  });
  forEachNamedScreen(target, [&](const ScreenItem& screen, const std::string& where) {
    stepUses(screen, where, name, visit);
    if (!screen.DisplayItems) return;
    for (const DisplayItem* display : *screen.DisplayItems) {
      const DisplayDataItem* shown = display->DisplayDataItem.get();
      if (shown && shown->requestName == name) visit({"display", where, "data " + shown->dataName});
      const DisplayExtraItem* extra = display->DisplayExtraItem.get();
      if (extra && extra->requestName == name)
        visit({"request-display", where, extra->param ? "input" : "display"});
    }
  });
}

} // namespace kelmar::cli
