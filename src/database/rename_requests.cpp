// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "database/target_item.h"
#include "database/target_walk.h"

#include <unordered_map>

namespace kelmar {

namespace {

struct Renamed {
  std::string from, to;
};

/// Where each name ends after all the renames, one after the other.
std::unordered_map<std::string, std::string> lastNames(const std::vector<Renamed>& renames) {
  std::unordered_map<std::string, std::string> last;
  for (auto rename = renames.rbegin(); rename != renames.rend(); ++rename) {
    const auto later = last.find(rename->to);
    last[rename->from] = later == last.end() ? rename->to : std::string(later->second);
  }
  return last;
}

} // namespace

std::vector<bool> TargetItem::RenameRequests(const std::vector<RequestRename>& renames) {
  std::vector<bool> done(renames.size(), false);
  if (!requests_) return done;
  const auto keyOf = [](std::string_view name) {
    return std::string(FoldedKey(keyOfName(name)).view());
  };
  std::unordered_map<std::string, const RequestItem*> holders;
  for (const RequestItem* request : *requests_)
    holders.emplace(keyOf(request->requestName), request);

  std::vector<Renamed> steps;
  std::unordered_map<const RequestItem*, std::size_t> lastMove;
  for (std::size_t i = 0; i < renames.size(); ++i) {
    const auto& [item, newName] = renames[i];
    if (item->requestName == newName) {
      done[i] = true;
      continue;
    }
    const std::string newKey = keyOf(newName);
    const auto holder = holders.find(newKey);
    if (holder != holders.end() && holder->second != item) continue;
    holders.erase(keyOf(item->requestName));
    holders.emplace(newKey, item);
    steps.push_back({item->requestName, newName});
    item->requestName = newName;
    lastMove[item] = i;
    done[i] = true;
  }
  if (steps.empty()) return done;

  // Renamed requests stand at the end, in the order of their last rename.
  std::vector<RequestItems::Pointer> members, moved(renames.size());
  for (auto& member : requests_->members()) {
    const auto move = lastMove.find(member.get());
    if (move == lastMove.end()) {
      members.push_back(std::move(member));
    } else {
      moved[move->second] = std::move(member);
    }
  }
  while (requests_->Count() > 0)
    requests_->take(requests_->Count());
  for (auto& member : members)
    requests_->AddData(std::move(member));
  for (auto& member : moved)
    if (member) requests_->AddData(std::move(member));

  const std::unordered_map<std::string, std::string> last = lastNames(steps);
  const auto follow = [&](std::string& name) {
    if (const auto found = last.find(name); found != last.end()) name = found->second;
  };
  forEachDisplay(*this, [&](DisplayItem& display) {
    if (display.DisplayDataItem) follow(display.DisplayDataItem->requestName);
    if (display.DisplayExtraItem) follow(display.DisplayExtraItem->requestName);
  });
  forEachScenario(*this, [&](ScenarioItems& scenario) {
    for (ScenarioItem* step : scenario)
      follow(step->requestName);
  });
  return done;
}

} // namespace kelmar
