// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "database/target_item.h"
#include "database/target_walk.h"

#include <unordered_map>
#include <unordered_set>

namespace kelmar {

namespace {

/// True when the names in the device are independent of one another: each flag is found by its own
/// name, which one that RenameFlag left under its old key is not, and no two names differ in case
/// alone. Otherwise one position may take what another one would have found.
bool namesAreIndependent(const OrganeItem& device) {
  std::unordered_map<std::string, std::string_view> spellings;
  const auto isSpeltAlike = [&](const std::string& name) {
    return spellings.try_emplace(foldCase(name), name).first->second == name;
  };
  if (device.DeviceDatas)
    for (const DeviceDataItem* datum : *device.DeviceDatas)
      if (!isSpeltAlike(datum->dataName)) return false;
  if (!device.Tests) return true;
  for (const TestItem* test : *device.Tests)
    for (const FlagPositions* flags : {&test->StoredFlag, &test->PresentFlag})
      for (const DataPositionItem* flag : *flags)
        if (flags->findKey(NameKey(flag->dataName)) != flag || !isSpeltAlike(flag->dataName))
          return false;
  return true;
}

/// The reference positions that go: each takes one use of its data out of every device.
class GoneReferences {
 public:
  void add(const DataPositionItem& position) {
    if (!position.reference) return;
    all_.push_back(&position);
    byName_[position.dataName].push_back(&position);
  }

  void leave(OrganeItem& device) const {
    if (!namesAreIndependent(device)) {
      for (const DataPositionItem* position : all_)
        device.DeleteDataPosition(*position);
      return;
    }
    std::unordered_set<std::string> held;
    if (device.DeviceDatas)
      for (const DeviceDataItem* datum : *device.DeviceDatas)
        held.insert(datum->dataName);
    if (device.Tests)
      for (const TestItem* test : *device.Tests)
        for (const FlagPositions* flags : {&test->StoredFlag, &test->PresentFlag})
          for (const DataPositionItem* flag : *flags)
            held.insert(flag->dataName);
    for (const std::string& name : held) {
      const auto gone = byName_.find(name);
      if (gone == byName_.end()) continue;
      // Once the device holds none any more, the rest finds nothing either.
      for (const DataPositionItem* position : gone->second)
        if (!device.DeleteDataPosition(*position)) break;
    }
  }

 private:
  std::vector<const DataPositionItem*> all_; // in the order in which they go
  std::unordered_map<std::string, std::vector<const DataPositionItem*>> byName_;
};

/// What displays may show of the positions that go: the data by the request.
class GonePositions {
 public:
  void add(const std::string& request, const DataPositionItem& position) {
    datas_[request].insert(position.dataName);
  }
  bool isShownBy(const DisplayItem& display) const {
    if (!display.DisplayDataItem) return false;
    const auto request = datas_.find(display.DisplayDataItem->requestName);
    return request != datas_.end() && request->second.contains(display.DisplayDataItem->dataName);
  }

 private:
  std::unordered_map<std::string, std::unordered_set<std::string>> datas_;
};

} // namespace

void TargetItem::DeleteDataPosition(DataPositionItem* position) {
  DeleteDataPositions({position});
}

void TargetItem::DeleteDataPositions(const std::vector<DataPositionItem*>& positions) {
  GoneReferences references;
  GonePositions gone;
  std::unordered_set<const DataPositionItem*> items;
  std::unordered_set<DataPositionItems*> owners;
  for (const DataPositionItem* position : positions) {
    references.add(*position);
    gone.add(position->parent->requestName, *position);
    items.insert(position);
    owners.insert(position->parent->DataPositions.get());
  }
  if (organes_)
    for (OrganeItem* device : *organes_)
      references.leave(*device);
  deleteDisplays(*this, [&](const DisplayItem& display) { return gone.isShownBy(display); });
  for (DataPositionItems* owner : owners)
    owner->deleteIf([&](const DataPositionItem& position) { return items.contains(&position); });
}

void TargetItem::DeleteRequest(RequestItem* item) {
  DeleteRequests({item});
}

void TargetItem::DeleteRequests(const std::vector<RequestItem*>& items) {
  GoneReferences references;
  GonePositions gone;
  std::unordered_set<const RequestItem*> requests;
  std::unordered_set<std::string> names;
  for (const RequestItem* item : items) {
    requests.insert(item);
    names.insert(item->requestName);
    if (!item->DataPositions) continue;
    for (const DataPositionItem* position : *item->DataPositions) {
      references.add(*position);
      gone.add(item->requestName, *position);
    }
  }
  if (organes_) {
    for (OrganeItem* device : *organes_) {
      references.leave(*device);
      if (names.contains(device->requestName)) device->requestName.clear();
    }
  }
  deleteDisplays(*this, [&](const DisplayItem& display) {
    if (display.DisplayExtraItem && names.contains(display.DisplayExtraItem->requestName))
      return true;
    return gone.isShownBy(display);
  });
  forEachScenario(*this, [&](ScenarioItems& scenario) {
    scenario.deleteSteps(
        [&](const ScenarioItem& step) { return names.contains(step.requestName); });
  });
  requests_->deleteIf([&](const RequestItem& request) { return requests.contains(&request); });
}

} // namespace kelmar
