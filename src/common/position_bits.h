// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/bit_placement.h"

#include <optional>

namespace kelmar {

class DataPositionItem;

// Placing data in frames with the fields and with the mouse, as all pages do it.

/// The byte, from 1, that holds the last bit. It does not depend on endianness.
std::int64_t EndByte(std::int32_t StartOctet, std::int32_t StartBit, std::int32_t NumberBits);

/// Where a position of a data of this size lies.
BitPlacement placementOf(const DataPositionItem& position, std::int32_t NumberBits);

/// True when the data ends behind a frame of so many bytes, or starts at a negative byte. A start
/// at byte 0 does not count.
bool isOutside(const BitPlacement& placement, std::int32_t frameBytes);

/// True when a click on this cell means the data. The cell need not lie within the frame.
bool isClicked(const BitPlacement& placement, const FrameBit& click);

/// The start bit of a data that is put down on a cell, 0..7.
int startBitAt(int cell, bool LittleEndian);

/// The same cells in the other order of bits. None for a data of no or more than 8 bits or one that
/// goes over the end of its byte: such a one stays as it is.
std::optional<BitPlacement> toggledEndian(const BitPlacement& placement);

} // namespace kelmar
