// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/data_position_item.h"
#include "database/request_item.h"

#include <string_view>
#include <unordered_map>

namespace kelmar {

/// Finds positions by request and data, the answers being those of a walk. It keeps an index of the
/// long requests that it was asked about, and serves for as long as nothing in them changes: for
/// one save.
class PositionFinder {
 public:
  /// The first position of exactly that data, none when there is none.
  DataPositionItem* find(const RequestItem& request, std::string_view dataName);

 private:
  using Index = std::unordered_map<std::string_view, DataPositionItem*>;
  std::unordered_map<const RequestItem*, Index> indexes_;
};

} // namespace kelmar
