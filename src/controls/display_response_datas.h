// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/bit_placement.h"
#include "database/items.h"

#include <string>

namespace kelmar {

/// One placement on the byte view.
struct DisplayRespData {
  std::int32_t NumberBits = 0; ///< bits covered
  std::int32_t StartByte = 1;  ///< from 1
  std::int32_t OffsetBit = 0;  ///< 0..7
  bool LittleEndian = false;
  std::string Mark = {}; ///< one character, or empty
  bool Selected = false;
  std::string Name = {}; ///< of the data, told to whoever points at it

  BitPlacement placement() const { return {NumberBits, StartByte, OffsetBit, LittleEndian}; }
  void clear() {}
};

/// The placements of a byte view, in the order in which they are painted. Keys are those that the
/// caller gives; most members have none.
class DisplayRespDatas : public Items<DisplayRespData> {
 public:
  /// Raises KeyExists, and adds nothing, when the key is taken. An empty key is none.
  DisplayRespData* Add(std::int32_t NumberBits, std::int32_t StartByte, std::int32_t OffsetBit,
                       bool LittleEndian, bool selected, const std::string& mark = {},
                       const std::string& key = {});
  /// The first member with these three values, none when there is no such.
  DisplayRespData* FindItem(std::int32_t NumberBits, std::int32_t StartByte,
                            std::int32_t OffsetBit) const;
  /// Removes the first member with these three values; nothing when there is no such.
  void RemoveItem(std::int32_t NumberBits, std::int32_t StartByte, std::int32_t OffsetBit);
  void UnselectAll();
};

} // namespace kelmar
