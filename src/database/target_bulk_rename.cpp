// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/name_index.h"
#include "database/target_item.h"
#include "database/target_walk.h"

#include <algorithm>
#include <deque>
#include <iterator>

namespace kelmar {

namespace {

/// Numbers for names, from 0 on. Tables by number are short and lie together, which counts when
/// there are tens of thousands of names.
class Numbers {
 public:
  std::size_t of(std::string_view name) {
    if (const std::uint32_t* found = index_.find(name)) return *found;
    const auto number = static_cast<std::uint32_t>(names_.size());
    index_.insert(names_.emplace_back(name), number);
    return number;
  }

 private:
  std::deque<std::string> names_; // they stay where they are
  NameIndex<std::uint32_t> index_;
};

/// The row of a table that grows as it is asked.
template <class Row>
Row& at(std::vector<Row>& table, std::size_t number) {
  if (number >= table.size()) table.resize(std::max(number + 1, table.size() * 2));
  return table[number];
}

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
        at(positions_, names_.of(position->dataName))
            .push_back({requestNumber, ++number, position});
    });
    forEachDisplay(target, [&](DisplayItem& display) {
      if (DisplayDataItem* item = display.DisplayDataItem.get())
        at(displays_, names_.of(item->dataName)).push_back(item);
    });
    if (!target.Organes()) return;
    for (OrganeItem* device : *target.Organes()) {
      devices_.push_back(device);
      const std::size_t number = devices_.size() - 1;
      if (device->DeviceDatas)
        for (const DeviceDataItem* datum : *device->DeviceDatas)
          mayHold(datum->dataName, number);
      if (!device->Tests) continue;
      for (const TestItem* test : *device->Tests)
        for (const FlagPositions* flags : {&test->StoredFlag, &test->PresentFlag})
          flags->forEachKey([&](std::string_view key) { keyMayBeHeld(key, number); });
    }
  }

  void rename(const std::string& oldName, const std::string& newName) {
    renameInFirstDevice(oldName, newName);
    const std::size_t from = names_.of(oldName), to = names_.of(newName);
    at(positions_, std::max(from, to));
    at(displays_, std::max(from, to));
    renamePositions(positions_[from], positions_[to], newName);
    for (DisplayDataItem* display : displays_[from]) {
      display->dataName = newName;
      displays_[to].push_back(display);
    }
    displays_[from].clear();
  }

 private:
  struct Place {
    int request, number; ///< in the ECU, and in the request
    DataPositionItem* position;
    friend bool operator<(const Place& left, const Place& right) {
      return std::pair(left.request, left.number) < std::pair(right.request, right.number);
    }
  };
  using Places = std::vector<Place>; // in their order

  void mayHold(std::string_view name, std::size_t device) {
    keyMayBeHeld(FoldedKey(keyOfName(name)).view(), device);
  }
  void keyMayBeHeld(std::string_view key, std::size_t device) {
    std::vector<std::size_t>& holders = at(holders_, keys_.of(key));
    const auto place = std::lower_bound(holders.begin(), holders.end(), device);
    if (place == holders.end() || *place != device) holders.insert(place, device);
  }

  void renameInFirstDevice(const std::string& oldName, const std::string& newName) {
    // The index knows who may hold it; whether he does is the device's to say.
    for (const std::size_t number : at(holders_, keys_.of(FoldedKey(keyOfName(oldName)).view()))) {
      OrganeItem& device = *devices_[number];
      if (!device.GetDeviceDataUsingData(oldName) && !device.GetTestUsingData(oldName)) continue;
      device.RenameData(oldName, newName);
      mayHold(newName, number);
      return;
    }
  }

  /// In each request the first position of the name.
  static void renamePositions(Places& from, Places& to, const std::string& newName) {
    Places left, moved;
    int last = 0;
    for (const Place& place : from) {
      const bool first = place.request != last;
      last = place.request;
      (first ? moved : left).push_back(place);
    }
    from = std::move(left);
    for (const Place& place : moved)
      place.position->dataName = newName;
    if (to.empty()) {
      to = std::move(moved);
      return;
    }
    Places merged;
    std::merge(to.begin(), to.end(), moved.begin(), moved.end(), std::back_inserter(merged));
    to = std::move(merged);
  }

  Numbers names_, keys_;
  std::vector<Places> positions_;                       // by the number of the name
  std::vector<std::vector<DisplayDataItem*>> displays_; // likewise
  std::vector<std::vector<std::size_t>> holders_;       // by the number of the key
  std::vector<OrganeItem*> devices_;
};

} // namespace

std::vector<bool> TargetItem::RenameDatas(const std::vector<DataItems::NewName>& names) {
  std::vector<std::string> oldNames;
  oldNames.reserve(names.size());
  for (const auto& [item, newName] : names)
    oldNames.push_back(item->dataName());
  const std::vector<bool> renamed = datas_->renameAll(names);
  DataUsers users(*this);
  for (std::size_t i = 0; i < names.size(); ++i)
    if (renamed[i] && oldNames[i] != names[i].second) users.rename(oldNames[i], names[i].second);
  return renamed;
}

} // namespace kelmar
