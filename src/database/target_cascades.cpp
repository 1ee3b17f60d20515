// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"
#include "database/target_walk.h"

#include <unordered_set>

namespace kelmar {

// Each cascade collects its users in one pass and changes them in another, so that a data used
// everywhere costs one walk and not one for each use. The results are those of going use by use.

namespace {

bool showsData(const DisplayItem& display, std::string_view data) {
  return display.DisplayDataItem && display.DisplayDataItem->dataName == data;
}

} // namespace

void TargetItem::DeleteDataByName(std::string_view name) {
  DataItem* item = datas_ ? datas_->ItemName(name) : nullptr;
  if (item) DeleteData(item);
}

void TargetItem::DeleteData(DataItem* item) {
  const std::string name = item->dataName();
  const std::vector<DataPositionItem*> positions = GetRequestsUsingData(name);
  std::unordered_set<std::string> requestNames;
  bool devicesMayHoldIt = organes_ != nullptr;
  for (const DataPositionItem* position : positions) {
    requestNames.insert(position->parent->requestName);
    // Each reference position takes one use out of every device; once none has any, the rest find
    // nothing either.
    if (position->reference && devicesMayHoldIt)
      devicesMayHoldIt = organes_->DeleteDataPosition(*position);
  }
  deleteDisplays(*this, [&](const DisplayItem& display) {
    return showsData(display, name) && requestNames.contains(display.DisplayDataItem->requestName);
  });
  for (DataPositionItem* position : positions)
    position->parent->DataPositions->deleteItem(position);
  datas_->deleteItem(item);
}

void TargetItem::DeleteDevice(OrganeItem* item) {
  organes_->deleteItem(item);
}

void TargetItem::RenameData(DataItem* item, const std::string& newName) {
  const std::string oldName = item->dataName();
  if (oldName == newName) return;
  const std::vector<DisplayItem*> displays = GetScreensUsingData(oldName);
  // The first device only: a second one that uses the data keeps the old name, on purpose.
  OrganeItem* device = GetDeviceUsingData(oldName);
  const std::vector<DataPositionItem*> positions = GetRequestsUsingData(oldName);
  datas_->rename(item, newName);
  if (device) device->RenameData(oldName, newName);
  for (DataPositionItem* position : positions)
    position->dataName = newName;
  for (DisplayItem* display : displays)
    display->DisplayDataItem->dataName = newName;
}

void TargetItem::RenameRequest(RequestItem* item, const std::string& newName) {
  const std::string oldName = item->requestName;
  if (oldName == newName) return;
  const std::vector<DisplayItem*> dataDisplays = GetScreensDataUsingRequest(oldName);
  const std::vector<DisplayItem*> extraDisplays = GetScreensExtraDataUsingRequest(oldName);
  const std::vector<ScenarioItem*> steps = GetScreensScenarioUsingRequest(oldName);
  requests_->rename(item, newName);
  // Freeze-frame names of devices are not followed, on purpose.
  for (DisplayItem* display : dataDisplays)
    display->DisplayDataItem->requestName = newName;
  for (DisplayItem* display : extraDisplays)
    display->DisplayExtraItem->requestName = newName;
  for (ScenarioItem* step : steps)
    step->requestName = newName;
}

void TargetItem::RenameDevice(OrganeItem* item, const std::string& newName) {
  if (item->organeName != newName) organes_->rename(item, newName);
}

void TargetItem::ReplaceDataPosition(DataPositionItem* position, const DataItem* newData) {
  const std::string oldName = position->dataName;
  const std::string newName = newData->dataName();
  if (oldName == newName) return;
  const std::vector<DisplayItem*> displays = GetScreensUsingData(oldName);
  OrganeItem* device = position->reference ? GetDeviceUsingData(oldName) : nullptr;
  position->dataName = newName;
  if (device) {
    if (DeviceDataItem* datum = device->GetDeviceDataUsingData(oldName)) {
      datum->dataName = newName;
    } else if (TestItem* test = device->GetTestUsingData(oldName)) {
      test->RenameFlag(oldName, newName);
    }
  }
  for (DisplayItem* display : displays) {
    if (display->DisplayDataItem->requestName == position->parent->requestName)
      display->DisplayDataItem->dataName = newName;
  }
}

} // namespace kelmar
