// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"
#include "database/target_walk.h"

#include <map>
#include <set>
#include <tuple>
#include <unordered_map>

namespace kelmar {

namespace {

/// Who refers to which data, kept up to date from one renaming to the next.
class DataUsers {
 public:
  explicit DataUsers(const TargetItem& target) {
    int requestNumber = 0;
    forEachRequest(target, [&](RequestItem& request) {
      ++requestNumber;
      if (!request.DataPositions) return;
      int number = 0;
      for (DataPositionItem* position : *request.DataPositions)
        positions_[position->dataName].emplace(requestNumber, ++number, position);
    });
    forEachDisplay(target, [&](DisplayItem& display) {
      if (display.DisplayDataItem)
        displays_[display.DisplayDataItem->dataName].push_back(display.DisplayDataItem.get());
    });
    if (!target.Organes()) return;
    for (OrganeItem* device : *target.Organes()) {
      devices_.push_back(device);
      const std::size_t number = devices_.size() - 1;
      if (device->DeviceDatas)
        for (const DeviceDataItem* datum : *device->DeviceDatas) mayHold(datum->dataName, number);
      if (!device->Tests) continue;
      for (const TestItem* test : *device->Tests)
        for (const FlagPositions* flags : {&test->StoredFlag, &test->PresentFlag})
          flags->forEachKey([&](std::string_view key) { holders_[std::string(key)].insert(number); });
    }
  }

  void rename(const std::string& oldName, const std::string& newName) {
    renameInFirstDevice(oldName, newName);
    renamePositions(oldName, newName);
    if (const auto found = displays_.find(oldName); found != displays_.end()) {
      const auto users = std::move(found->second);
      displays_.erase(found);
      for (auto* display : users) {
        display->dataName = newName;
        displays_[newName].push_back(display);
      }
    }
  }

 private:
  void mayHold(std::string_view name, std::size_t device) {
    holders_[std::string(FoldedKey(keyOfName(name)).view())].insert(device);
  }

  void renameInFirstDevice(const std::string& oldName, const std::string& newName) {
    const auto found = holders_.find(std::string(FoldedKey(keyOfName(oldName)).view()));
    if (found == holders_.end()) return;
    // The index knows who may hold it; whether he does is the device's to say.
    for (const std::size_t number : found->second) {
      OrganeItem& device = *devices_[number];
      if (!device.GetDeviceDataUsingData(oldName) && !device.GetTestUsingData(oldName)) continue;
      device.RenameData(oldName, newName);
      mayHold(newName, number);
      return;
    }
  }

  /// In each request the first position of the name.
  void renamePositions(const std::string& oldName, const std::string& newName) {
    const auto found = positions_.find(oldName);
    if (found == positions_.end()) return;
    std::set<Place> left, moved;
    int last = 0;
    for (const Place& place : found->second) {
      const bool first = std::get<0>(place) != last;
      last = std::get<0>(place);
      (first ? moved : left).insert(place);
    }
    if (left.empty())
      positions_.erase(found);
    else
      found->second = std::move(left);
    for (const Place& place : moved) std::get<2>(place)->dataName = newName;
    positions_[newName].merge(moved);
  }

  using Place = std::tuple<int, int, DataPositionItem*>; // request, number in it
  std::unordered_map<std::string, std::set<Place>> positions_;
  std::unordered_map<std::string, std::vector<DisplayDataItem*>> displays_;
  std::vector<OrganeItem*> devices_;
  std::unordered_map<std::string, std::set<std::size_t>> holders_; // by key
};

} // namespace

std::vector<bool> TargetItem::RenameDatas(const std::vector<DataItems::NewName>& names) {
  std::vector<std::string> oldNames;
  oldNames.reserve(names.size());
  for (const auto& [item, newName] : names) oldNames.push_back(item->dataName());
  const std::vector<bool> renamed = datas_->renameAll(names);
  DataUsers users(*this);
  for (std::size_t i = 0; i < names.size(); ++i)
    if (renamed[i] && oldNames[i] != names[i].second) users.rename(oldNames[i], names[i].second);
  return renamed;
}

} // namespace kelmar
