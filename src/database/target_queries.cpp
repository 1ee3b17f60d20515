// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"
#include "database/target_walk.h"

#include <unordered_set>

namespace kelmar {

std::vector<DataPositionItem*> TargetItem::GetRequestsUsingData(std::string_view name) const {
  std::vector<DataPositionItem*> found;
  forEachRequest(*this, [&](RequestItem& request) {
    if (DataPositionItem* position = positionOf(request, name)) found.push_back(position);
  });
  return found;
}

bool TargetItem::IsDataUsed(std::string_view name) const {
  if (!requests_) return false;
  for (RequestItem* request : *requests_)
    if (positionOf(*request, name)) return true;
  return false;
}

DeviceDataItem* TargetItem::GetDeviceDataUsingData(std::string_view name) const {
  if (!organes_) return nullptr;
  for (const OrganeItem* device : *organes_)
    if (DeviceDataItem* datum = device->GetDeviceDataUsingData(name)) return datum;
  return nullptr;
}

OrganeItem* TargetItem::GetDeviceUsingData(std::string_view name) const {
  if (!organes_) return nullptr;
  for (OrganeItem* device : *organes_)
    if (device->GetDeviceDataUsingData(name) || device->GetTestUsingData(name)) return device;
  return nullptr;
}

std::vector<OrganeItem*> TargetItem::GetDeviceUsingRequest(std::string_view name) const {
  std::vector<OrganeItem*> found;
  if (!organes_) return found;
  for (OrganeItem* device : *organes_)
    if (device->requestName == name) found.push_back(device);
  return found;
}

namespace {

template <class Uses>
std::vector<DisplayItem*> displaysThat(const TargetItem& target, Uses uses) {
  std::vector<DisplayItem*> found;
  forEachDisplay(target, [&](DisplayItem& display) {
    if (uses(display)) found.push_back(&display);
  });
  return found;
}

} // namespace

std::vector<DisplayItem*> TargetItem::GetScreensUsingData(std::string_view name) const {
  return displaysThat(*this, [&](const DisplayItem& display) {
    return display.DisplayDataItem && display.DisplayDataItem->dataName == name;
  });
}

std::vector<DisplayItem*> TargetItem::GetScreensDataUsingRequest(std::string_view name) const {
  return displaysThat(*this, [&](const DisplayItem& display) {
    return display.DisplayDataItem && display.DisplayDataItem->requestName == name;
  });
}

std::vector<DisplayItem*> TargetItem::GetScreensExtraDataUsingRequest(std::string_view name) const {
  return displaysThat(*this, [&](const DisplayItem& display) {
    return display.DisplayExtraItem && display.DisplayExtraItem->requestName == name;
  });
}

std::vector<ScenarioItem*> TargetItem::GetScreensScenarioUsingRequest(std::string_view name) const {
  std::vector<ScenarioItem*> found;
  forEachScenario(*this, [&](ScenarioItems& scenario) {
    for (ScenarioItem* step : scenario)
      if (step->requestName == name) found.push_back(step);
  });
  return found;
}

DataPositionItem* TargetItem::GetDataPositionFromRefData(std::string_view name) const {
  if (!requests_) return nullptr;
  for (const RequestItem* request : *requests_) {
    if (!request->DataPositions) continue;
    for (DataPositionItem* position : *request->DataPositions)
      if (position->reference && position->dataName == name) return position;
  }
  return nullptr;
}

std::vector<DataPositionItem*> TargetItem::datasRefAll() const {
  std::vector<DataPositionItem*> found;
  forEachRequest(*this, [&](RequestItem& request) {
    if (!request.DataPositions) return;
    for (DataPositionItem* position : *request.DataPositions)
      if (position->reference) found.push_back(position);
  });
  return found;
}

namespace {

/// Keyed by the data's name without regard to case: the first reference of a data stays.
template <class Wanted>
std::vector<DataPositionItem*> firstOfEachData(const TargetItem& target, Wanted wanted) {
  std::vector<DataPositionItem*> found;
  std::unordered_set<std::string> keys;
  for (DataPositionItem* position : target.datasRefAll()) {
    if (!wanted(*position)) continue;
    if (keys.emplace(FoldedKey(position->dataName).view()).second) found.push_back(position);
  }
  return found;
}

} // namespace

std::vector<DataPositionItem*> TargetItem::datasRef() const {
  return firstOfEachData(*this, [](const DataPositionItem&) { return true; });
}

std::vector<DataPositionItem*> TargetItem::datasRefRead() const {
  return firstOfEachData(*this, [](const DataPositionItem& position) { return !position.param; });
}

std::vector<DataPositionItem*> TargetItem::datasRefWrite() const {
  return firstOfEachData(*this, [](const DataPositionItem& position) { return position.param; });
}

} // namespace kelmar
