// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/display_response_byte.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

namespace kelmar {

namespace {

std::size_t checked(int cell, const char* routine) {
  if (cell < 0 || cell >= DisplayByteBinary::cells)
    throw Failure(1, std::string("DisplayByteBinary.") + routine, "Invalid bit number");
  return static_cast<std::size_t>(cell);
}

std::string joined(const std::array<std::string, DisplayByteBinary::cells>& texts) {
  std::string value;
  for (const std::string& text : texts)
    value += text.empty() ? " " : text;
  return value;
}

} // namespace

void DisplayByteBinary::setDirection(int direction) {
  const int wanted = direction == 0 ? 0 : 1;
  if (wanted == direction_) return;
  direction_ = wanted;
  for (std::size_t cell = 0; cell < cells / 2; ++cell)
    std::swap(colours_[cell], colours_[cells - 1 - cell]);
}

void DisplayByteBinary::setvalue(std::string_view bits) {
  std::u32string characters = toCodePoints(trimBlanks(bits));
  characters.resize(std::min<std::size_t>(characters.size(), cells));
  value_ = fromCodePoints(characters);
  for (std::size_t slot = 0; slot < cells; ++slot)
    texts_[slot] = slot < characters.size() && characters[slot] != U' '
                       ? fromCodePoints(std::u32string_view(characters).substr(slot, 1))
                       : std::string();
}

void DisplayByteBinary::setbinaryValue(std::string_view number) {
  binaryValue_ = toInt32(number);
}

std::string DisplayByteBinary::LBbyteCaption() const {
  if (binaryValue_ == -1) return ByteCaption;
  return ByteCaption + " ($" + rightmost("00" + hexText(binaryValue_), 2) + ")";
}

std::string DisplayByteBinary::BitText(int cell) const {
  checked(cell, "BitText");
  return texts_[static_cast<std::size_t>(slotOf(cell))];
}

std::uint32_t DisplayByteBinary::BitColor(int cell) const {
  return colours_[checked(cell, "BitColor")];
}

void DisplayByteBinary::SetBitColor(int cell, std::uint32_t colour) {
  colours_[checked(cell, "SetBitColor")] = colour;
}

void DisplayByteBinary::SetBitValue(int cell, std::string_view text) {
  checked(cell, "SetBitValue");
  const std::u32string characters = toCodePoints(text).substr(0, 1);
  texts_[static_cast<std::size_t>(slotOf(cell))] =
      characters == U" " ? std::string() : fromCodePoints(characters);
  value_ = joined(texts_);
}

void DisplayByteBinary::clear() {
  colours_.fill(DefaultColor);
  texts_.fill({});
}

void DisplayByteBinary::ClearAll() {
  clear();
  binaryValue_ = -1;
  value_.clear();
}

} // namespace kelmar
