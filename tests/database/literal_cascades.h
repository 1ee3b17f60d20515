// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <vector>

namespace kelmar::testing {

// The cascades step by step, each use on its own, as slow and as obvious as they can be.

inline void deleteFromItsScreen(TargetItem& target, const DisplayItem* display) {
  for (CategoryItem* category : *target.Categories)
    for (ScreenItem* screen : *category->Screens)
      screen->DisplayItems->deleteItem(display);
}

inline void literalDeleteDataPosition(TargetItem& target, DataPositionItem* position) {
  if (position->reference) {
    for (OrganeItem* device : *target.Organes()) {
      DeviceDataItem* datum = nullptr;
      for (DeviceDataItem* each : *device->DeviceDatas)
        if (!datum && each->dataName == position->dataName) datum = each;
      if (datum) {
        device->DeviceDatas->deleteItem(datum);
        continue;
      }
      TestItem* holder = nullptr;
      for (TestItem* test : *device->Tests)
        if (!holder && test->holdsFlag(position->dataName)) holder = test;
      if (holder) holder->DeleteFlag(position->dataName);
    }
  }
  for (DisplayItem* display : target.GetScreensUsingData(position->dataName)) {
    if (display->DisplayDataItem->requestName == position->parent->requestName)
      deleteFromItsScreen(target, display);
  }
  position->parent->DataPositions->deleteItem(position);
}

inline void literalDeleteData(TargetItem& target, DataItem* item) {
  const std::string name = item->dataName();
  for (DataPositionItem* position : target.GetRequestsUsingData(name))
    literalDeleteDataPosition(target, position);
  target.datas()->deleteItem(item);
}

inline void literalDeleteRequest(TargetItem& target, RequestItem* item) {
  const std::string name = item->requestName;
  if (item->DataPositions) {
    for (const auto& position : item->DataPositions->members())
      literalDeleteDataPosition(target, position.get());
  }
  for (OrganeItem* device : target.GetDeviceUsingRequest(name))
    device->requestName = "";
  for (DisplayItem* display : target.GetScreensExtraDataUsingRequest(name))
    deleteFromItsScreen(target, display);
  for (ScenarioItem* step : target.GetScreensScenarioUsingRequest(name))
    step->parent->ScenarioItems->deleteItem(step);
  target.Requests()->deleteItem(item);
}

inline void literalRenameData(TargetItem& target, DataItem* item, const std::string& newName) {
  const std::string oldName = item->dataName();
  if (oldName == newName) return;
  const auto displays = target.GetScreensUsingData(oldName);
  OrganeItem* device = target.GetDeviceUsingData(oldName);
  const auto positions = target.GetRequestsUsingData(oldName);
  target.datas()->rename(item, newName);
  if (device) device->RenameData(oldName, newName);
  for (DataPositionItem* position : positions)
    position->dataName = newName;
  for (DisplayItem* display : displays)
    display->DisplayDataItem->dataName = newName;
}

inline void literalRenameRequest(TargetItem& target, RequestItem* item,
                                 const std::string& newName) {
  const std::string oldName = item->requestName;
  if (oldName == newName) return;
  const auto datas = target.GetScreensDataUsingRequest(oldName);
  const auto extras = target.GetScreensExtraDataUsingRequest(oldName);
  const auto steps = target.GetScreensScenarioUsingRequest(oldName);
  target.Requests()->rename(item, newName);
  for (DisplayItem* display : datas)
    display->DisplayDataItem->requestName = newName;
  for (DisplayItem* display : extras)
    display->DisplayExtraItem->requestName = newName;
  for (ScenarioItem* step : steps)
    step->requestName = newName;
}

inline void literalReplaceDataPosition(TargetItem& target, DataPositionItem* position,
                                       const DataItem* newData) {
  if (position->dataName == newData->dataName()) return;
  const std::string oldName = position->dataName;
  const auto displays = target.GetScreensUsingData(oldName);
  OrganeItem* device = position->reference ? target.GetDeviceUsingData(oldName) : nullptr;
  position->dataName = newData->dataName();
  if (device) {
    if (DeviceDataItem* datum = device->GetDeviceDataUsingData(oldName))
      datum->dataName = newData->dataName();
    else if (TestItem* test = device->GetTestUsingData(oldName))
      test->RenameFlag(oldName, newData->dataName());
  }
  for (DisplayItem* display : displays)
    if (display->DisplayDataItem->requestName == position->parent->requestName)
      display->DisplayDataItem->dataName = newData->dataName();
}

} // namespace kelmar::testing
