// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frame_cells.h"

#include "language/multi_lang.h"

#include <algorithm>
#include <cmath>

namespace kelmar {

namespace {

constexpr int bitsOfByte = DisplayByteBinary::cells;
constexpr std::uint32_t white = 0xFFFFFF;

/// A data whose first byte lies outside the frame is not painted at all.
bool startsInside(const FrameContent& content, const DisplayRespData& data) {
  return data.StartByte >= 1 && data.StartByte <= content.NumberBytes;
}

void paintData(const DisplayRespData& data, std::vector<FrameByte>& bytes, std::uint32_t colour) {
  const BitPlacement placement = data.placement();
  const FrameBit first = firstBit(placement), last = lastBit(placement);
  const std::int64_t from = std::max<std::int64_t>(first.byte, bytes.front().index);
  const std::int64_t to = std::min<std::int64_t>(last.byte, bytes.back().index);
  for (std::int64_t index = from; index <= to; ++index) {
    FrameByte& byte = bytes[static_cast<std::size_t>(index - bytes.front().index)];
    const std::uint8_t covered = coveredCells(placement, index);
    for (int cell = 0; cell < bitsOfByte; ++cell) {
      if ((covered >> cell & 1) == 0) continue;
      FrameCellLook& look = byte.looks[static_cast<std::size_t>(cell)];
      look.shared = look.state != FrameCellState::Empty;
      look.state = data.Selected ? FrameCellState::Selected : FrameCellState::Data;
      look.mark = index == first.byte && cell == first.cell ? data.Mark : std::string();
      byte.byte.SetBitColor(cell, colour);
    }
  }
}

double linear(std::uint32_t part) {
  const double share = part / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

std::string dataInWords(const DisplayRespData& data, const CMultiLangEx& texts) {
  const std::string range = rangeInWords(data.placement(), texts);
  if (data.Name.empty()) return range;
  return texts.getMultilangMessageDefault("{0}: {1}", "DISPLAYRESPONSE/MSG/data/text", data.Name,
                                          range);
}

} // namespace

std::string bitsText(std::int16_t value) {
  if (value == noByteValue) return {};
  std::string bits;
  for (int bit = bitsOfByte - 1; bit >= 0; --bit)
    bits += (value >> bit & 1) != 0 ? '1' : '0';
  return bits;
}

std::vector<FrameByte> frameBytes(const FrameContent& content, int first, int count) {
  std::vector<FrameByte> bytes;
  const int begin = std::max(first, 0);
  const int end = static_cast<int>(std::min<std::int64_t>(
      content.NumberBytes, static_cast<std::int64_t>(first) + std::max(count, 0)));
  for (int index = begin; index < end; ++index) {
    FrameByte& shown = bytes.emplace_back();
    shown.index = index;
    shown.byte.setDirection(content.LittleEndian ? 0 : 1);
    shown.byte.DefaultColor = content.colours.DefaultColor;
    shown.byte.clear();
    shown.byte.ByteCaption = std::to_string(index + 1);
    const auto at = static_cast<std::size_t>(index);
    const std::int16_t value = at < content.values.size() ? content.values[at] : noByteValue;
    if (value == noByteValue) continue;
    shown.byte.setvalue(bitsText(value));
    shown.byte.setbinaryValue(std::to_string(value));
  }
  if (bytes.empty() || !content.datas || content.datas->Count() == 0) return bytes;

  // Bits without data are white among data, whatever their colour in a frame without any.
  for (FrameByte& shown : bytes)
    shown.byte.SetBitsColor(white);
  for (const bool selected : {false, true})
    for (const DisplayRespData* data : *content.datas)
      if (data->Selected == selected && startsInside(content, *data))
        paintData(*data, bytes,
                  selected ? content.colours.DataSelectedColor : content.colours.DataColor);
  return bytes;
}

std::vector<DisplayRespData*> datasOnBit(const FrameContent& content, const FrameBit& bit) {
  std::vector<DisplayRespData*> found;
  if (!content.datas || bit.byte < 0 || bit.byte >= content.NumberBytes) return found;
  for (DisplayRespData* data : *content.datas)
    if (startsInside(content, *data) && coversBit(data->placement(), bit)) found.push_back(data);
  std::reverse(found.begin(), found.end());
  std::stable_partition(found.begin(), found.end(),
                        [](const DisplayRespData* data) { return data->Selected; });
  return found;
}

std::string toolTipOfBit(const FrameContent& content, const FrameBit& bit,
                         const CMultiLangEx& texts) {
  std::string tip;
  for (const DisplayRespData* data : datasOnBit(content, bit)) {
    if (!tip.empty()) tip += '\n';
    tip += dataInWords(*data, texts);
  }
  return tip;
}

std::string nameOfBit(const FrameContent& content, const FrameBit& bit, const CMultiLangEx& texts) {
  std::string name =
      texts.getMultilangMessageDefault("byte {0} bit {1}", "DISPLAYRESPONSE/MSG/range/oneBit",
                                       std::to_string(bit.byte + 1), std::to_string(bit.cell));
  const auto at = static_cast<std::size_t>(bit.byte);
  if (bit.byte >= 0 && at < content.values.size() && content.values[at] != noByteValue) {
    DisplayByteBinary byte;
    byte.setDirection(content.LittleEndian ? 0 : 1);
    byte.setvalue(bitsText(content.values[at]));
    name += " = " + byte.BitText(bit.cell);
  }
  for (const DisplayRespData* data : datasOnBit(content, bit)) {
    name += ", " + dataInWords(*data, texts);
    if (data->Selected)
      name += texts.getMultilangMessageDefault(" (selected)", "DISPLAYRESPONSE/MSG/selected/text");
  }
  return name;
}

std::uint32_t textColourOn(std::uint32_t cellColour) {
  const double luminance = 0.2126 * linear(cellColour & 0xFF) +
                           0.7152 * linear(cellColour >> 8 & 0xFF) +
                           0.0722 * linear(cellColour >> 16 & 0xFF);
  // Where black and white have the same contrast.
  return luminance > 0.179 ? 0x000000 : white;
}

int FrameLayout::bytesThatFit(int width) const {
  return std::max(width / byteWidth(), 1);
}

FramePlace placeAt(const FrameLayout& layout, int x, int y, int shownBytes) {
  if (y < layout.cellTop() || y >= layout.height()) return {};
  const int inRow = x - layout.byteGap / 2;
  if (inRow < 0) return {};
  const int place = inRow / layout.byteWidth();
  const int slot = inRow % layout.byteWidth() / layout.cellWidth;
  if (place >= shownBytes || slot >= bitsOfByte) return {};
  return {place, slot};
}

int firstVisibleFor(int index, int firstVisible, int shownBytes, int NumberBytes) {
  if (shownBytes >= NumberBytes) return 0;
  if (index >= firstVisible && index < firstVisible + shownBytes) return firstVisible;
  return std::clamp(index, 0, NumberBytes - shownBytes);
}

int movedPlace(int place, BitMove move, int shownBytes, int NumberBytes) {
  const int last = NumberBytes * bitsOfByte - 1;
  if (last < 0) return 0;
  const int page = std::max(shownBytes, 1) * bitsOfByte;
  switch (move) {
  case BitMove::Left:
    place -= 1;
    break;
  case BitMove::Right:
    place += 1;
    break;
  case BitMove::ByteBack:
    place -= bitsOfByte;
    break;
  case BitMove::ByteOn:
    place += bitsOfByte;
    break;
  case BitMove::PageBack:
    place -= page;
    break;
  case BitMove::PageOn:
    place += page;
    break;
  case BitMove::First:
    place = 0;
    break;
  case BitMove::Last:
    place = last;
    break;
  }
  return std::clamp(place, 0, last);
}

} // namespace kelmar
