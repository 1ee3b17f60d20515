// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/encoding.h"

#include "xml/characters.h"

#include <algorithm>
#include <array>

namespace kelmar::xml {

namespace {

// Bytes 0x80 to 0x9F of windows-1252. The five that have no character there are read as the control
// characters of their number, so that a file that holds one loads.
constexpr std::array<char16_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void placeOf(std::string_view text, std::size_t offset, std::size_t& line, std::size_t& column) {
  line = column = 1;
  for (std::size_t i = 0; i < offset; ++i) {
    if (text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n')) {
      ++line;
      column = 1;
    } else {
      ++column;
    }
  }
}

// Start and length of the value of encoding="..." in the XML declaration.
std::optional<std::pair<std::size_t, std::size_t>> declaredEncoding(std::string_view head) {
  if (!head.starts_with("<?xml") || head.size() < 6 || !isBlank(head[5])) return std::nullopt;
  const std::size_t end = std::min(head.find("?>"), head.size());
  std::size_t i = 5;
  const auto skipBlanks = [&] {
    while (i < end && isBlank(head[i]))
      ++i;
  };
  while (i < end) {
    skipBlanks();
    const std::size_t nameStart = i;
    while (i < end && !isBlank(head[i]) && head[i] != '=')
      ++i;
    const std::string_view name = head.substr(nameStart, i - nameStart);
    skipBlanks();
    if (i >= end || head[i] != '=') return std::nullopt;
    ++i;
    skipBlanks();
    if (i >= end || (head[i] != '"' && head[i] != '\'')) return std::nullopt;
    const char quote = head[i++];
    const std::size_t close = head.find(quote, i);
    if (close == std::string_view::npos || close >= end) return std::nullopt;
    if (name == "encoding") return std::pair(i, close - i);
    i = close + 1;
  }
  return std::nullopt;
}

template <bool LittleEndian>
std::string utf16ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() / 2 + bytes.size() / 16);
  const auto unitAt = [&](std::size_t i) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<char32_t>(LittleEndian ? first | second << 8 : first << 8 | second);
  };
  std::size_t i = 0;
  for (; i + 1 < bytes.size(); i += 2) {
    char32_t unit = unitAt(i);
    if (unit >= 0xD800 && unit < 0xDC00 && i + 3 < bytes.size()) {
      const char32_t low = unitAt(i + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        i += 2;
      }
    }
    appendUtf8(text, unit); // a lone half gives three bytes that are no UTF-8
  }
  if (i < bytes.size()) text += '\xFF';
  return text;
}

} // namespace

std::optional<Encoding> encodingOfName(std::string_view name) {
  struct Row {
    std::string_view name;
    Encoding encoding;
  };
  static constexpr Row rows[] = {
      {"utf-8", Encoding::Utf8},
      {"utf8", Encoding::Utf8},
      {"utf-16", Encoding::Utf16LittleEndian},
      {"utf-16le", Encoding::Utf16LittleEndian},
      {"utf-16be", Encoding::Utf16BigEndian},
      {"iso-8859-1", Encoding::Latin1},
      {"iso8859-1", Encoding::Latin1},
      {"iso_8859-1", Encoding::Latin1},
      {"latin1", Encoding::Latin1},
      {"windows-1252", Encoding::Windows1252},
      {"cp1252", Encoding::Windows1252},
      {"us-ascii", Encoding::Ascii},
      {"ascii", Encoding::Ascii},
  };
  for (const Row& row : rows)
    if (std::equal(row.name.begin(), row.name.end(), name.begin(), name.end(),
                   [](char a, char b) { return a == lowered(b); }))
      return row.encoding;
  return std::nullopt;
}

DetectedEncoding detectEncoding(std::string_view head) {
  DetectedEncoding found;
  if (head.starts_with("\xEF\xBB\xBF")) return {Encoding::Utf8, 3, {}, 0, 0};
  if (head.starts_with("\xFF\xFE")) return {Encoding::Utf16LittleEndian, 2, {}, 0, 0};
  if (head.starts_with("\xFE\xFF")) return {Encoding::Utf16BigEndian, 2, {}, 0, 0};
  using namespace std::string_view_literals;
  if (head.starts_with("<\0"sv) || head.starts_with("\0<"sv)) {
    found.error = "UTF-16 without a byte order mark";
    found.line = found.column = 1;
    return found;
  }
  const auto declared = declaredEncoding(head);
  if (!declared) return found;
  const std::string name(head.substr(declared->first, declared->second));
  const auto encoding = encodingOfName(name);
  if (encoding && *encoding != Encoding::Utf16LittleEndian &&
      *encoding != Encoding::Utf16BigEndian) {
    found.encoding = *encoding;
    return found;
  }
  placeOf(head, declared->first, found.line, found.column);
  found.error = encoding ? "the encoding " + name + " is declared, but the file is not in it"
                         : "unknown encoding '" + replaceMalformed(name) + "'";
  return found;
}

std::string toUtf8(std::string_view bytes, Encoding encoding) {
  if (encoding == Encoding::Utf16LittleEndian) return utf16ToUtf8<true>(bytes);
  if (encoding == Encoding::Utf16BigEndian) return utf16ToUtf8<false>(bytes);
  if (encoding == Encoding::Utf8) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 16);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80)
      text += c;
    else if (encoding == Encoding::Ascii)
      text += '\xFF'; // no character of the encoding, and no UTF-8 either
    else
      appendUtf8(text, encoding == Encoding::Windows1252 ? windows1252Character(byte) : byte);
  }
  return text;
}

char32_t windows1252Character(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? windows1252High[byte - 0x80u] : byte;
}

std::optional<unsigned char> byteOf(char32_t character, Encoding encoding) {
  if (character < 0x80) return static_cast<unsigned char>(character);
  if (encoding == Encoding::Latin1 && character < 0x100)
    return static_cast<unsigned char>(character);
  if (encoding == Encoding::Windows1252) {
    if (character >= 0xA0 && character < 0x100) return static_cast<unsigned char>(character);
    const auto found = std::find(windows1252High.begin(), windows1252High.end(), character);
    if (found != windows1252High.end())
      return static_cast<unsigned char>(0x80 + (found - windows1252High.begin()));
  }
  return std::nullopt;
}

} // namespace kelmar::xml
