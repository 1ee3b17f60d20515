// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/data_item.h"

#include <list>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>

namespace kelmar {

namespace {

std::string foldedKeyOf(const std::string& name) {
  return std::string(FoldedKey(name).view());
}

} // namespace

// The rough order asks for the last member that sorts after a name. Only members that sort after
// all that follow them can be that one, and what is put in front of such a member is none.

void DataItems::AddDatasSorted(const std::vector<Pointer>& items) {
  constexpr std::size_t few = 8;
  bool keysAreNames = true;
  for (const DataItem* member : *this)
    keysAreNames = keysAreNames && ItemName(member->dataName_) == member;
  // A list that is built anew has its keys from the names.
  if (items.size() < few || !keysAreNames) {
    for (const Pointer& item : items)
      AddDataSorted(item);
    return;
  }
  std::list<Pointer> order;
  std::unordered_map<std::string, const DataItem*> byKey;
  for (const Pointer& member : members()) {
    order.push_back(member);
    byKey.emplace(foldedKeyOf(member->dataName_), member.get());
  }
  std::map<std::string, std::list<Pointer>::iterator> sortAfterTheRest;
  for (auto place = order.end(); place != order.begin();) {
    --place;
    const std::string& name = (*place)->dataName_;
    if (sortAfterTheRest.empty() || sortAfterTheRest.rbegin()->first < name)
      sortAfterTheRest.emplace_hint(sortAfterTheRest.end(), name, place);
  }
  std::optional<Failure> refused;
  for (const Pointer& item : items) {
    const std::string& name = item->dataName_;
    if (const auto [member, isNew] = byKey.emplace(foldedKeyOf(name), item.get()); !isNew) {
      if (member->second->dataName_ == name)
        refused.emplace(1, "DataItems.AddDataSorted", "Duplicate data name '" + name + "'");
      else
        refused.emplace(platformFailure(KeyExists));
      break;
    }
    if (const auto after = sortAfterTheRest.upper_bound(name); after != sortAfterTheRest.end()) {
      order.insert(after->second, item);
    } else {
      sortAfterTheRest.clear();
      sortAfterTheRest.emplace(name, order.insert(order.end(), item));
    }
  }
  while (Count() > 0)
    take(Count());
  for (const Pointer& member : order)
    append(member, keyOfName(member->dataName_));
  if (refused) throw Failure(*refused);
}

std::vector<bool> DataItems::renameAll(const std::vector<NewName>& names) {
  std::list<Pointer> order;
  std::unordered_map<const DataItem*, std::list<Pointer>::iterator> places;
  std::unordered_map<std::string, const DataItem*> byKey;
  std::multiset<std::string> sorted;
  for (const Pointer& member : members()) {
    places[member.get()] = order.insert(order.end(), member);
    byKey.emplace(foldedKeyOf(member->dataName_), member.get());
    sorted.insert(member->dataName_);
  }

  std::vector<bool> renamed;
  renamed.reserve(names.size());
  for (const auto& [item, newName] : names) {
    const auto holder = byKey.find(foldedKeyOf(newName));
    const auto place = places.find(item);
    const bool isFree = holder == byKey.end() || holder->second == item;
    renamed.push_back(isFree && place != places.end());
    if (!renamed.back() || item->dataName_ == newName) continue;
    const Pointer moved = *place->second;
    order.erase(place->second);
    byKey.erase(foldedKeyOf(item->dataName_));
    sorted.erase(sorted.find(item->dataName_));
    item->dataName_ = newName;
    auto before = order.end();
    if (!sorted.empty() && newName < *sorted.rbegin()) {
      do
        --before;
      while (!(newName < (*before)->dataName_));
    }
    place->second = order.insert(before, moved);
    byKey.emplace(foldedKeyOf(newName), item);
    sorted.insert(newName);
  }

  while (Count() > 0)
    take(Count());
  for (const Pointer& member : order)
    append(member, keyOfName(member->dataName_));
  return renamed;
}

} // namespace kelmar
