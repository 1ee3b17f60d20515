// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/position_finder.h"

namespace kelmar {

namespace {
constexpr int positionsWorthAnIndex = 16;
} // namespace

DataPositionItem* PositionFinder::find(const RequestItem& request, std::string_view dataName) {
  if (!request.DataPositions) return nullptr;
  if (request.DataPositions->Count() < positionsWorthAnIndex)
    return request.DataPositions->ItemName(dataName);
  auto [index, isNew] = indexes_.try_emplace(&request);
  if (isNew) {
    for (DataPositionItem* position : *request.DataPositions)
      index->second.try_emplace(position->dataName, position);
  }
  const auto found = index->second.find(dataName);
  return found == index->second.end() ? nullptr : found->second;
}

} // namespace kelmar
