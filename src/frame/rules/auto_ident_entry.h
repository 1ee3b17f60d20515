// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/auto_ident_item.h"
#include "platform/person.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelmar {

/// The entry fields of the page of identifications.
struct AutoIdentEntry {
  std::int32_t ValIndiceDiag = 0;
  std::string ValCodeFour = {}, ValLogiciel = {}, ValVersion = {};

  friend bool operator==(const AutoIdentEntry&, const AutoIdentEntry&) = default;
};

/// Greatest diagnostic version that can be entered; the smallest one is 0.
inline constexpr std::int32_t largestDiagNumber = 255;

AutoIdentEntry entryOf(const AutoIdentItem& item);
void applyEntry(const AutoIdentEntry& entry, AutoIdentItem& item);

/// A cell of the list; columns from 0: diagnostic version as "10 ($0A)", supplier, software,
/// version.
std::string autoIdentCell(const AutoIdentItem& item, int column);

/// Which field an input check refuses, and what is told about it.
struct BadEntry {
  enum class Field { ValCodeFour, ValLogiciel, ValVersion };
  Field field;
  platform::Box box;
};

/// The first of the three texts that is refused; none when all are good. `uds`: the ECU identifies
/// itself by UDS, where texts may be longer.
std::optional<BadEntry> CheckUserInput(const AutoIdentEntry& entry, bool uds);

/// True for four hexadecimal digits.
bool isFourHexadecimalDigits(std::string_view text);

} // namespace kelmar
