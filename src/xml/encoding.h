// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelmar::xml {

enum class Encoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Latin1, Windows1252, Ascii };

/// The encoding of a name in any case, also under its common short names. "UTF-16" is
/// Utf16LittleEndian here: which end comes first is told by the byte order mark.
std::optional<Encoding> encodingOfName(std::string_view name);

/// How the bytes of a document are encoded, or why that cannot be told.
struct DetectedEncoding {
  Encoding encoding = Encoding::Utf8;
  std::size_t markLength = 0;       ///< bytes of the byte order mark
  std::string error;                ///< empty: none
  std::size_t line = 0, column = 0; ///< of the error, 1-based
};

/// Looks at the byte order mark, which wins over what is declared, and at the declaration. The
/// first 1,024 bytes suffice.
DetectedEncoding detectEncoding(std::string_view head);

/// Bytes of a text, without their mark, as UTF-8. Half a character at the end or half of a pair
/// becomes bytes that are no UTF-8, for the judge to refuse at their place.
std::string toUtf8(std::string_view bytes, Encoding encoding);

/// Windows-1252 between 0x80 and 0x9F; bytes without a character there stand for themselves.
char32_t windows1252Character(unsigned char byte);
/// The byte for a character; none when the encoding has no such character. For one-byte encodings.
std::optional<unsigned char> byteOf(char32_t character, Encoding encoding);

} // namespace kelmar::xml
