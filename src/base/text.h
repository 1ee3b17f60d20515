// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

// All text is UTF-8. Where a routine speaks of characters it means code points, not bytes.

/// Removes blanks (U+0020 only) at both ends.
std::string_view trimBlanks(std::string_view text);

/// Every line feed becomes carriage return plus line feed.
std::string widenLineFeeds(std::string_view text);

/// Any of CR LF, CR, LF becomes CR LF: the form that pasted text is brought into before it is
/// split.
std::string normaliseLineEnds(std::string_view text);

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
std::vector<std::string> split(std::string_view text, std::string_view separator);

/// Case folding, upper and lower case of Unicode, character by character.
std::string foldCase(std::string_view text);
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

/// Code points of well-formed UTF-8; a malformed byte yields U+FFFD.
std::u32string toCodePoints(std::string_view text);
void appendCodePoint(std::string& text, char32_t character);
std::string fromCodePoints(std::u32string_view characters);
/// Number of characters.
std::size_t characterCount(std::string_view text);
/// The last `count` characters ("Right").
std::string rightmost(std::string_view text, std::size_t count);

/// Upper-case hexadecimal without leading zeros; a negative number as its 32-bit pattern.
std::string hexText(std::int32_t value);

bool startsWithFolded(std::string_view text, std::string_view asciiPrefix);

// Cleaning of names and paths, shared by all pages.

/// Trims blanks at both ends and leaves single blanks inside.
std::string CleanSpaces(std::string_view text);
/// Each ";" becomes "_".
std::string SemicolonsToUnderscores(std::string_view text);
/// The 34-character translation table for names of files.
std::string MakeFileSafeName(std::string_view text);
/// Raises the first character, and each one behind a blank, ".", "_" or "-".
std::string CapitalizeWords(std::string_view text, bool toLowerFirst);
/// Each digit d becomes 9 - d, each "-" a blank.
std::string ComplementDigits(std::string_view text);
/// A relative path with "\" as separator that cannot climb out of its folder.
std::string SanitizeRelativePath(std::string_view text);

} // namespace kelmar
