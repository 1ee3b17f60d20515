// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/reference_index.h"

#include "base/text.h"

namespace kelmar {

ReferenceIndex::ReferenceIndex(const TargetItem& target) {
  for (const DataPositionItem* position : target.datasRefAll())
    add(position->dataName);
}

bool ReferenceIndex::isReferenced(const std::string& dataName) const {
  return names_.contains(dataName);
}

bool ReferenceIndex::isInDatasRef(const std::string& dataName) const {
  return keys_.contains(foldCase(dataName));
}

void ReferenceIndex::add(const std::string& dataName) {
  if (names_.insert(dataName).second) keys_.insert(foldCase(dataName));
}

void ReferenceIndex::add(const RequestItem& request) {
  if (!request.DataPositions) return;
  for (const DataPositionItem* position : *request.DataPositions)
    if (position->reference) add(position->dataName);
}

std::unordered_set<std::string> deviceDataNames(const TargetItem& target) {
  std::unordered_set<std::string> names;
  if (!target.Organes()) return names;
  for (const OrganeItem* device : *target.Organes()) {
    if (!device->DeviceDatas) continue;
    for (const DeviceDataItem* datum : *device->DeviceDatas)
      names.insert(datum->dataName);
  }
  return names;
}

} // namespace kelmar
