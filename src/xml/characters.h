// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelmar::xml {

/// One character read from UTF-8. `length` 0: the bytes are not UTF-8 (overlong forms, surrogates
/// and values above U+10FFFF count as malformed too).
struct DecodedCharacter {
  char32_t character = 0;
  std::size_t length = 0;
};

/// The character at the start of a text that is not empty.
DecodedCharacter decodeUtf8(std::string_view text);

void appendUtf8(std::string& text, char32_t character);

/// True for a character that XML 1.0 can hold, be it by reference.
bool isXmlCharacter(char32_t character);

/// "U+20AC": at least four digits.
std::string characterName(char32_t character);

/// Each malformed byte becomes U+FFFD, so that the text can be shown.
std::string replaceMalformed(std::string_view text);

/// Name characters of XML 1.0, fifth edition, without the colon.
bool isNameStart(char32_t character);
bool isNameCharacter(char32_t character);

} // namespace kelmar::xml
