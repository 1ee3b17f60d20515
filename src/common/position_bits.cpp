// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/position_bits.h"

#include "database/data_position_item.h"

namespace kelmar {

std::int64_t EndByte(std::int32_t StartOctet, std::int32_t StartBit, std::int32_t NumberBits) {
  const std::int64_t bits = static_cast<std::int64_t>(StartBit) + NumberBits;
  // Rounded up for sums below 0 too, where division cuts off towards 0 and is right by itself.
  const std::int64_t bytes = bits > 0 ? (bits + 7) / 8 : bits / 8;
  return StartOctet + bytes - 1;
}

BitPlacement placementOf(const DataPositionItem& position, std::int32_t NumberBits) {
  return {NumberBits, position.StartOctet, position.StartBit, position.LittleEndian};
}

bool isOutside(const BitPlacement& placement, std::int32_t frameBytes) {
  return placement.StartByte < 0 ||
         EndByte(placement.StartByte, placement.OffsetBit, placement.NumberBits) > frameBytes;
}

bool isClicked(const BitPlacement& placement, const FrameBit& click) {
  return coversBit(placement, click);
}

int startBitAt(int cell, bool LittleEndian) {
  return LittleEndian ? cell : 7 - cell;
}

std::optional<BitPlacement> toggledEndian(const BitPlacement& placement) {
  if (placement.NumberBits < 1 || placement.NumberBits > 8 ||
      placement.OffsetBit + placement.NumberBits - 1 >= 8)
    return std::nullopt;
  BitPlacement toggled = placement;
  toggled.LittleEndian = !placement.LittleEndian;
  toggled.OffsetBit = 8 - placement.NumberBits - placement.OffsetBit;
  return toggled;
}

} // namespace kelmar
