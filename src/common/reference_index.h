// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <string>
#include <unordered_set>

namespace kelmar {

/// Which data are a reference somewhere in the ECU, for a command that asks for thousands of them:
/// each answer of the model walks all positions. The index holds as long as whoever made it tells
/// it of every reference that comes or goes.
class ReferenceIndex {
 public:
  explicit ReferenceIndex(const TargetItem& target);

  /// True when TargetItem::GetDataPositionFromRefData would find a position.
  bool isReferenced(const std::string& dataName) const;
  /// True when TargetItem::datasRef holds the data, whose keys are compared without regard to case.
  bool isInDatasRef(const std::string& dataName) const;

  void add(const std::string& dataName);
  /// All references of a request that has become a member of the ECU.
  void add(const RequestItem& request);

 private:
  std::unordered_set<std::string> names_, keys_;
};

/// The data that are device data somewhere in the ECU: those for which
/// TargetItem::GetDeviceDataUsingData finds one.
std::unordered_set<std::string> deviceDataNames(const TargetItem& target);

} // namespace kelmar
