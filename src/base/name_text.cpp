// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <algorithm>
#include <unicode/uchar.h>

namespace kelmar {

namespace {

// The two rows belong together, position by position.
constexpr std::u32string_view unsafeCharacters = U" ,/\\&+-%#=|*!:;?§$£€²éèêëàâäçùûüîï";
constexpr std::u32string_view safeCharacters = U"____________________2eeeeaaacuuuii";
static_assert(unsafeCharacters.size() == 34 && safeCharacters.size() == 34);

bool raisesTheNext(char32_t character) {
  return character == U' ' || character == U'.' || character == U'_' || character == U'-';
}

bool mayStandInPath(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' ||
         c == '\\' || c == '_' || c == '-';
}

std::string replaceUntilNone(std::string text, std::string_view from, std::string_view to) {
  while (text.find(from) != std::string::npos)
    text = replaceAll(text, from, to);
  return text;
}

std::string sanitizedOnce(std::string_view path) {
  std::string text = replaceUntilNone(std::string(path), "..", ".");
  text = replaceAll(text, ".\\", "\\");
  text = replaceAll(text, "\\.", "\\");
  text = replaceUntilNone(std::move(text), "\\\\", "\\");
  std::erase_if(text, [](char c) { return !mayStandInPath(c); });
  if (!text.empty() && text.front() == '\\') text.erase(0, 1);
  return text;
}

} // namespace

std::string CleanSpaces(std::string_view text) {
  return replaceUntilNone(std::string(trimBlanks(text)), "  ", " ");
}

std::string SemicolonsToUnderscores(std::string_view text) {
  return replaceAll(text, ";", "_");
}

std::string MakeFileSafeName(std::string_view text) {
  std::u32string characters = toCodePoints(text);
  for (char32_t& character : characters) {
    const std::size_t position = unsafeCharacters.find(character);
    if (position != std::u32string_view::npos) character = safeCharacters[position];
  }
  return fromCodePoints(characters);
}

std::string CapitalizeWords(std::string_view text, bool toLowerFirst) {
  const std::u32string source = toCodePoints(toLowerFirst ? lowerCase(text) : std::string(text));
  std::u32string raised = source;
  for (std::size_t i = 0; i < source.size(); ++i) {
    if (i == 0 || raisesTheNext(source[i - 1]))
      raised[i] = static_cast<char32_t>(u_toupper(static_cast<UChar32>(source[i])));
  }
  return fromCodePoints(raised);
}

std::string ComplementDigits(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= '0' && c <= '9')
      c = static_cast<char>('0' + '9' - c);
    else if (c == '-')
      c = ' ';
  }
  return result;
}

std::string SanitizeRelativePath(std::string_view text) {
  std::string path = sanitizedOnce(text);
  // A character that was taken out last may have stood between two points or separators.
  while (path.find("..") != std::string::npos || path.starts_with('\\'))
    path = sanitizedOnce(path);
  return path;
}

} // namespace kelmar
