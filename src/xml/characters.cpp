// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/characters.h"

#include "xml/document.h"

#include <algorithm>
#include <iterator>

namespace kelmar::xml {

namespace {

struct Range {
  char32_t first, last;
};

constexpr Range nameStartRanges[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

constexpr Range furtherNameRanges[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t Count>
bool within(const Range (&ranges)[Count], char32_t character) {
  return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

} // namespace

DecodedCharacter decodeUtf8(std::string_view text) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byteAt(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {};
  char32_t character = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byteAt(i) & 0xC0) != 0x80) return {};
    character = character << 6 | (byteAt(i) & 0x3F);
  }
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < smallest[length] || character > 0x10FFFF) return {};
  if (character >= 0xD800 && character < 0xE000) return {};
  return {character, length};
}

void appendUtf8(std::string& text, char32_t character) {
  const auto tail = [&](int shift) {
    text += static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0 | character >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | character >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool isXmlCharacter(char32_t character) {
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  return character < 0xD800 || (character >= 0xE000 && character < 0xFFFE) ||
         (character >= 0x10000 && character <= 0x10FFFF);
}

std::string characterName(char32_t character) {
  std::string digits;
  for (; character != 0 || digits.size() < 4; character >>= 4)
    digits.insert(digits.begin(), "0123456789ABCDEF"[character & 15]);
  return "U+" + digits;
}

std::string replaceMalformed(std::string_view text) {
  std::string clean;
  while (!text.empty()) {
    const DecodedCharacter next = decodeUtf8(text);
    appendUtf8(clean, next.length == 0 ? U'\uFFFD' : next.character);
    text.remove_prefix(std::max<std::size_t>(next.length, 1));
  }
  return clean;
}

bool isNameStart(char32_t character) {
  return within(nameStartRanges, character);
}

bool isNameCharacter(char32_t character) {
  return isNameStart(character) || within(furtherNameRanges, character);
}

// A colon would split the name for every reader that knows namespaces.
bool isXmlName(std::string_view name) {
  if (name.empty()) return false;
  for (bool first = true; !name.empty(); first = false) {
    const char byte = name.front();
    if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')) { // nearly all of them
      name.remove_prefix(1);
      continue;
    }
    const DecodedCharacter next = decodeUtf8(name);
    if (next.length == 0) return false;
    if (first ? !isNameStart(next.character) : !isNameCharacter(next.character)) return false;
    name.remove_prefix(next.length);
  }
  return true;
}

} // namespace kelmar::xml
