// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelmar {

class CMultiLangEx;

// Where a data lies in a frame. Bytes of a placement count from 1, bytes of a frame on the screen
// from 0. The cells of a byte are its bits 7 to 0, cell 0 being the least significant one, which
// stands on the right.

/// A run of bits. From the first one it goes on by rising bit number, and behind bit 7 of a byte at
/// bit 0 of the next one. Bit k is cell k in little-endian order and cell 7 - k in big-endian
/// order.
struct BitPlacement {
  std::int32_t NumberBits = 0; ///< bits covered; none below 1
  std::int32_t StartByte = 1;  ///< from 1
  std::int32_t OffsetBit = 0;  ///< 0..7
  bool LittleEndian = false;

  friend bool operator==(const BitPlacement&, const BitPlacement&) = default;
};

/// One cell of a frame.
struct FrameBit {
  std::int64_t byte = 0; ///< from 0
  int cell = 0;          ///< 0..7
  friend bool operator==(const FrameBit&, const FrameBit&) = default;
};

/// The cells of one byte that the placement covers, bit k of the result being cell k. `byte` from
/// 0.
std::uint8_t coveredCells(const BitPlacement& placement, std::int64_t byte);

bool coversBit(const BitPlacement& placement, const FrameBit& bit);

/// All covered cells inside a frame, from the first bit on. Those before and behind the frame are
/// left out.
std::vector<FrameBit> coveredBits(const BitPlacement& placement, std::int32_t frameBytes);

/// The cells on which the data begins and ends; the first one twice when it covers none.
FrameBit firstBit(const BitPlacement& placement);
FrameBit lastBit(const BitPlacement& placement);

/// True when both cover a common cell, whatever the order of their bits.
bool overlap(const BitPlacement& one, const BitPlacement& other);

/// "byte 4 bit 7 to byte 5 bit 4", or "byte 4 bit 7" for a single bit. Bytes count from 1; bits are
/// the numbers of the cells.
std::string rangeInWords(const BitPlacement& placement, const CMultiLangEx& texts);

} // namespace kelmar
