// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kelmar {

/// What one byte of the byte view shows: eight cells and a caption. The view paints it.
///
/// The most significant bit always stands on the left. `Direction` only numbers the cells: with 1
/// the leftmost one is cell 7, with 0 it is cell 0.
class DisplayByteBinary {
 public:
  static constexpr int cells = 8;

  std::uint32_t DefaultColor = 0xFFFFFF; ///< 0xBBGGRR, of a cell without data
  std::string ByteCaption;               ///< the number of the byte

  /// 0 or 1; any other number counts as 1. The bits stay where they are.
  int Direction() const { return direction_; }
  void setDirection(int direction);

  /// The bits as text, most significant first.
  const std::string& value() const { return value_; }
  /// Trimmed and cut to 8 characters.
  void setvalue(std::string_view bits);

  /// The number as decimal text, "-1" for none.
  std::string binaryValue() const { return std::to_string(binaryValue_); }
  /// Raises TypeMismatch or NumericOverflow for a text that is no 32-bit number.
  void setbinaryValue(std::string_view number);

  /// ByteCaption, followed by the value as " ($1F)" when there is one.
  std::string LBbyteCaption() const;

  /// What stands in a cell, empty for none. Raises 1 "Invalid bit number" outside 0..7, as the
  /// others do.
  std::string BitText(int cell) const;
  std::uint32_t BitColor(int cell) const;
  void SetBitsColor(std::uint32_t colour) { colours_.fill(colour); }
  void SetBitColor(int cell, std::uint32_t colour);
  /// The first character of the text; an empty one clears the cell.
  void SetBitValue(int cell, std::string_view text);

  /// Where a cell stands, 0 being the leftmost place, and which cell stands at a place.
  int slotOf(int cell) const { return direction_ == 1 ? cells - 1 - cell : cell; }
  int cellAt(int slot) const { return slotOf(slot); } // the same renumbering both ways

  /// Empty cells in the default colour; the value stays.
  void clear();
  /// That, and no value.
  void ClearAll();

 private:
  std::array<std::string, cells> texts_;                        // by place, from the left
  std::array<std::uint32_t, cells> colours_ = filled(0xFFFFFF); // by cell
  std::string value_;
  std::int32_t binaryValue_ = -1;
  int direction_ = 0;

  static constexpr std::array<std::uint32_t, cells> filled(std::uint32_t colour) {
    return {colour, colour, colour, colour, colour, colour, colour, colour};
  }
};

} // namespace kelmar
