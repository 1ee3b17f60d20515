// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <vector>

namespace kelmar {

// Bringing the data of positions into devices, over the model alone.

/// Makes the data of a position a data of the device. A reference leaves the device that it
/// belonged to; a position that is none becomes one, unless another position is the reference of
/// its data: then nothing changes and the answer is false.
bool associateWithDevice(TargetItem& target, DataPositionItem& position, OrganeItem& device,
                         bool failureFlag);

/// The same without taking a data from another device: false, and nothing changes, also for a
/// reference that a device uses already.
bool AssociateDataToDevice(TargetItem& target, DataPositionItem& position, OrganeItem& device);

/// The data of the position leaves its device. False when it was in none.
bool removeFromDevice(const TargetItem& target, const DataPositionItem& position);

/// For each request that no device is named after: a device with that name, to which the received
/// data are associated, when at least one of them is no reference or one that no device uses. Those
/// made.
std::vector<OrganeItem*> createDevicesFromRequests(TargetItem& target,
                                                   const std::vector<RequestItem*>& requests);

} // namespace kelmar
