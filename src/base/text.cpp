// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace kelmar {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

// One character at `index`, which moves behind it; a byte that is part of none is U+FFFD.
char32_t nextCodePoint(std::string_view text, std::size_t& index) {
  const std::size_t start = index;
  if (isAscii(text[start])) {
    ++index;
    return static_cast<unsigned char>(text[start]);
  }
  // No character has more than four bytes, which also keeps the macro's counters small.
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data() + start);
  const int length = static_cast<int>(std::min<std::size_t>(4, text.size() - start));
  int position = 0;
  UChar32 character = 0;
  U8_NEXT(bytes, position, length, character);
  if (character < 0) {
    index = start + 1;
    return replacementCharacter;
  }
  index = start + static_cast<std::size_t>(position);
  return static_cast<char32_t>(character);
}

// `ascii` and `unicode` are the same mapping, for one byte and for one character.
template <typename Ascii, typename Unicode>
std::string mapCharacters(std::string_view text, Ascii ascii, Unicode unicode) {
  std::string mapped;
  if (std::all_of(text.begin(), text.end(), isAscii)) {
    mapped = text;
    std::transform(mapped.begin(), mapped.end(), mapped.begin(), ascii);
    return mapped;
  }
  mapped.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    if (isAscii(text[i]))
      mapped += ascii(text[i++]);
    else
      appendCodePoint(mapped, unicode(nextCodePoint(text, i)));
  }
  return mapped;
}

char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

} // namespace

std::string_view trimBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ')
    text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ')
    text.remove_suffix(1);
  return text;
}

std::string widenLineFeeds(std::string_view text) {
  return replaceAll(text, "\n", "\r\n");
}

std::string normaliseLineEnds(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      result += "\r\n";
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  if (from.empty()) {
    result = text;
    return result;
  }
  result.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t found; (found = text.find(from, start)) != std::string_view::npos;
       start = found + from.size()) {
    result.append(text, start, found - start);
    result += to;
  }
  result.append(text, start);
  return result;
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  if (!separator.empty()) {
    for (std::size_t found; (found = text.find(separator, start)) != std::string_view::npos;
         start = found + separator.size())
      parts.emplace_back(text.substr(start, found - start));
  }
  parts.emplace_back(text.substr(start));
  return parts;
}

std::string foldCase(std::string_view text) {
  return mapCharacters(text, lowerAscii, [](char32_t c) {
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
  });
}

std::string upperCase(std::string_view text) {
  return mapCharacters(text, upperAscii, [](char32_t c) {
    return static_cast<char32_t>(u_toupper(static_cast<UChar32>(c)));
  });
}

std::string lowerCase(std::string_view text) {
  return mapCharacters(text, lowerAscii, [](char32_t c) {
    return static_cast<char32_t>(u_tolower(static_cast<UChar32>(c)));
  });
}

std::u32string toCodePoints(std::string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t i = 0; i < text.size();)
    characters += nextCodePoint(text, i);
  return characters;
}

void appendCodePoint(std::string& text, char32_t character) {
  if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
    character = replacementCharacter;
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | (character >> 6));
    add(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    add(0xE0 | (character >> 12));
    add(0x80 | ((character >> 6) & 0x3F));
    add(0x80 | (character & 0x3F));
  } else {
    add(0xF0 | (character >> 18));
    add(0x80 | ((character >> 12) & 0x3F));
    add(0x80 | ((character >> 6) & 0x3F));
    add(0x80 | (character & 0x3F));
  }
}

std::string fromCodePoints(std::u32string_view characters) {
  std::string text;
  text.reserve(characters.size());
  for (const char32_t character : characters)
    appendCodePoint(text, character);
  return text;
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++count)
    nextCodePoint(text, i);
  return count;
}

std::string rightmost(std::string_view text, std::size_t count) {
  std::size_t skip = characterCount(text);
  skip = skip > count ? skip - count : 0;
  std::size_t start = 0;
  while (skip-- > 0)
    nextCodePoint(text, start);
  return std::string(text.substr(start));
}

std::string hexText(std::int32_t value) {
  char buffer[8];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::uint32_t>(value), 16);
  std::string text(buffer, end.ptr);
  std::transform(text.begin(), text.end(), text.begin(), upperAscii);
  return text;
}

bool startsWithFolded(std::string_view text, std::string_view asciiPrefix) {
  return text.size() >= asciiPrefix.size() &&
         std::equal(asciiPrefix.begin(), asciiPrefix.end(), text.begin(),
                    [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

} // namespace kelmar
