// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/display_response_byte.h"
#include "controls/display_response_datas.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace kelmar {

// What the byte view paints, computed without a window: as many bytes as are seen, whatever the
// length of the frame.

/// 0xBBGGRR.
struct FrameColours {
  std::uint32_t DefaultColor = 0xFFFFFF;   ///< a bit without data
  std::uint32_t DataColor = 0xFF0000;      ///< a bit of an unselected data
  std::uint32_t DataSelectedColor = 65280; ///< a bit of a selected data
  friend bool operator==(const FrameColours&, const FrameColours&) = default;
};

/// The state of a cell, which is shown by a pattern too, not by colour alone.
enum class FrameCellState { Empty, Data, Selected };

struct FrameCellLook {
  FrameCellState state = FrameCellState::Empty;
  bool shared = false;   ///< several data lie here
  std::string mark = {}; ///< of the data on top, on its first bit
  friend bool operator==(const FrameCellLook&, const FrameCellLook&) = default;
};

struct FrameByte {
  int index = 0; ///< from 0
  DisplayByteBinary byte = {};
  std::array<FrameCellLook, DisplayByteBinary::cells> looks = {}; ///< by cell
};

/// A value that means "none".
inline constexpr std::int16_t noByteValue = -1;

/// What lies in the frame.
struct FrameContent {
  const std::vector<std::int16_t>& values; ///< by byte from 0; noByteValue for none
  std::int32_t NumberBytes = 0;
  const DisplayRespDatas* datas = nullptr; ///< may be none
  bool LittleEndian = false;               ///< numbers the cells from the left
  FrameColours colours = {};
};

/// The bytes from `first` on, `count` of them, those outside the frame left out. Selected data lie
/// over the others, later ones over earlier ones. A data that starts outside the frame is not
/// shown, one that runs over its end is cut there.
std::vector<FrameByte> frameBytes(const FrameContent& content, int first, int count);

/// The bits of a value, most significant first; empty for noByteValue.
std::string bitsText(std::int16_t value);

/// The data that lie on a bit, the one on top first.
std::vector<DisplayRespData*> datasOnBit(const FrameContent& content, const FrameBit& bit);

/// One line for each data on the bit: name and range in words, "Speed: byte 4 bit 7 to byte 5 bit
/// 4". Empty where none lies.
std::string toolTipOfBit(const FrameContent& content, const FrameBit& bit,
                         const CMultiLangEx& texts);

/// The bit itself in words, with what it holds and whose it is: "byte 4 bit 7 = 1, Speed
/// (selected)".
std::string nameOfBit(const FrameContent& content, const FrameBit& bit, const CMultiLangEx& texts);

/// Black or white, whichever can be read on a cell of this colour. 0xBBGGRR.
std::uint32_t textColourOn(std::uint32_t cellColour);

/// Places of the view in pixels.
struct FrameLayout {
  int cellWidth = 16;
  int byteGap = 10;       ///< between two bytes, also before the first one
  int captionHeight = 16; ///< the line with number and value of the byte
  int numberHeight = 12;  ///< the line with the numbers of the cells
  int cellHeight = 24;

  int byteWidth() const { return cellWidth * DisplayByteBinary::cells + byteGap; }
  int height() const { return captionHeight + numberHeight + cellHeight; }
  /// Bytes that fit in this width, at least 1.
  int bytesThatFit(int width) const;
  int cellLeft(int place, int slot) const {
    return byteGap / 2 + place * byteWidth() + slot * cellWidth;
  }
  int cellTop() const { return captionHeight + numberHeight; }
};

/// A place on the view: byte counted from the first one shown, cell by its place from the left.
struct FramePlace {
  int place = -1, slot = -1;
  bool found() const { return place >= 0; }
  friend bool operator==(const FramePlace&, const FramePlace&) = default;
};

/// The cell at a point; none between the bytes, above and below the cells, and behind the last byte
/// shown.
FramePlace placeAt(const FrameLayout& layout, int x, int y, int shownBytes);

/// First byte shown, from 0, so that the byte `index` is seen: the present one when it is, else
/// that byte, as far as the end of the frame allows.
int firstVisibleFor(int index, int firstVisible, int shownBytes, int NumberBytes);

/// Moves of the keyboard over the bits of a frame, which are walked as they stand, from the left.
enum class BitMove { Left, Right, ByteBack, ByteOn, PageBack, PageOn, First, Last };

/// The place after a move, counted over the whole frame: 8 places a byte. `shownBytes` is a page.
int movedPlace(int place, BitMove move, int shownBytes, int NumberBytes);

} // namespace kelmar
