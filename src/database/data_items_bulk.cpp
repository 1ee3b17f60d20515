// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/data_item.h"

#include <list>
#include <set>
#include <unordered_map>

namespace kelmar {

// The rough order asks for the last member that sorts after a name. It is near the end of a list
// that is more or less in order, and the greatest name tells at once when there is none.

void DataItems::AddDatasSorted(const std::vector<Pointer>& items) {
  std::string greatest;
  for (const DataItem* member : *this)
    if (greatest < member->dataName_) greatest = member->dataName_;
  for (const Pointer& item : items) {
    const std::string& name = item->dataName_;
    if (const DataItem* member = ItemName(name); member && member->dataName_ == name)
      throw Failure(1, "DataItems.AddDataSorted", "Duplicate data name '" + name + "'");
    if (name < greatest) {
      int position = Count();
      while (!(name < Item(position)->dataName_)) --position;
      insertBefore(position, item, keyOfName(name));
    } else {
      append(item, keyOfName(name));
      greatest = name;
    }
  }
}

std::vector<bool> DataItems::renameAll(const std::vector<NewName>& names) {
  std::list<Pointer> order;
  std::unordered_map<const DataItem*, std::list<Pointer>::iterator> places;
  std::unordered_map<std::string, const DataItem*> byKey;
  std::multiset<std::string> sorted;
  const auto keyOf = [](const std::string& name) { return std::string(FoldedKey(name).view()); };
  for (const Pointer& member : members()) {
    places[member.get()] = order.insert(order.end(), member);
    byKey.emplace(keyOf(member->dataName_), member.get());
    sorted.insert(member->dataName_);
  }

  std::vector<bool> renamed;
  renamed.reserve(names.size());
  for (const auto& [item, newName] : names) {
    const auto holder = byKey.find(keyOf(newName));
    const auto place = places.find(item);
    const bool isFree = holder == byKey.end() || holder->second == item;
    renamed.push_back(isFree && place != places.end());
    if (!renamed.back() || item->dataName_ == newName) continue;
    const Pointer moved = *place->second;
    order.erase(place->second);
    byKey.erase(keyOf(item->dataName_));
    sorted.erase(sorted.find(item->dataName_));
    item->dataName_ = newName;
    auto before = order.end();
    if (!sorted.empty() && newName < *sorted.rbegin()) {
      do --before;
      while (!(newName < (*before)->dataName_));
    }
    place->second = order.insert(before, moved);
    byKey.emplace(keyOf(newName), item);
    sorted.insert(newName);
  }

  while (Count() > 0) take(Count());
  for (const Pointer& member : order) append(member, keyOfName(member->dataName_));
  return renamed;
}

} // namespace kelmar
