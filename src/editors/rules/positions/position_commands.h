// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/bit_placement.h"
#include "database/target_item.h"
#include "platform/person.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kelmar {

// The commands on placed data, over model and person.

using PositionSelection = std::vector<DataPositionItem*>;

/// What the fields of a placement hold.
struct PositionFields {
  std::string dataName = {};
  std::int32_t StartOctet = 0;
  std::int32_t StartBit = 0;
  bool LittleEndian = false;
  friend bool operator==(const PositionFields&, const PositionFields&) = default;
};

PositionFields fieldsOf(const DataPositionItem& position);

/// Copies all but the name into the item, and the side. Tells when the start byte falls back to 1
/// or below, and goes on.
void applyFields(const PositionFields& fields, bool sent, DataPositionItem& position,
                 const std::string& selectedRequest, platform::Person& person);

/// Adds a placement by the fields. Tells, and gives none, when the request has the data already.
DataPositionItem* addByFields(RequestItem& request, const PositionFields& fields, bool sent,
                              platform::Person& person);

/// Adds a placement of a data, which becomes the reference where that is the rule. A failure is
/// told and gives none.
DataPositionItem* AddDataPositionToActiveRequest(TargetItem& target, RequestItem& request,
                                                 const DataItem& data, bool sent,
                                                 std::int32_t startByte, std::int32_t startBit,
                                                 bool littleEndian, platform::Person& person);

/// The same for many data on one byte, numeric ones on the bit, others on its first, with the
/// endianness of the ECU, in a time that grows with their number. The last one that was added.
DataPositionItem* addDataPositions(TargetItem& target, RequestItem& request,
                                   std::span<const DataItem* const> datas, bool sent,
                                   std::int32_t startByte, std::int32_t numericStartBit,
                                   platform::Person& person);

/// Asks, then deletes; `confirmed` is called in between, where the person agrees. Whether it did.
bool CutData(TargetItem& target, const PositionSelection& positions, platform::Person& person,
             const std::function<void()>& confirmed);

/// Make, or unmake, references; what stands against it is told. True when something changed.
bool RefDataPos(TargetItem& target, const PositionSelection& positions, platform::Person& person);
bool UnRefDataPos(TargetItem& target, const PositionSelection& positions, platform::Person& person);

/// Other order of bits, on the same bits, for data within one byte; wider ones stay, without a
/// word.
bool toggleEndian(const PositionSelection& positions);
/// The same for those whose order is not that of the ECU.
bool setEndianDefault(const TargetItem& target, const PositionSelection& positions);

/// The positions among these that cover a cell of the frame.
PositionSelection positionsAt(const std::vector<DataPositionItem*>& positions,
                              const FrameBit& click);

/// Points the position at another data of the ECU. False, and told, when the request has that data
/// already or when devices stand against it.
bool replaceData(TargetItem& target, DataPositionItem& position, const DataItem& newData,
                 platform::Person& person);
/// Asks for a name that is free and makes a data of it, like the one that it is to replace. None
/// when the person gives none.
DataItem* newDataLike(TargetItem& target, const DataItem& model, platform::Person& person);

/// Makes the data of these positions data of the device. True when something changed.
bool associateWithDevice(TargetItem& target, const PositionSelection& positions, OrganeItem& device,
                         bool failureFlag);
bool removeFromDevices(const TargetItem& target, const PositionSelection& positions);
/// Asks for a name that is free; the default is that of the data. None when the person gives none.
OrganeItem* newDevice(TargetItem& target, const std::string& proposal, platform::Person& person);

} // namespace kelmar
