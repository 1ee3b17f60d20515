// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar {

// The one set of conversions between text and values. None of them looks at the locale: the
// decimal point is ".", there is no thousands separator.

/// Checked conversion to a 32-bit integer. Blanks around the number are allowed, fractions and
/// exponents are rounded to the nearest integer with ties to even, "&H1F" is hexadecimal (a 32-bit
/// pattern: "&HFFFFFFFF" is -1).
/// Raises TypeMismatch for a text that is no number, NumericOverflow outside 32 bits.
std::int32_t toInt32(std::string_view text);

/// The same for a number: rounds ties to even, raises NumericOverflow.
std::int32_t toInt32(double value);

/// A number counts as true when it is not zero; "True" and "False" are taken in any case.
/// Raises TypeMismatch for anything else.
bool toBoolean(std::string_view text);

/// The whole text as a number. Raises TypeMismatch, or NumericOverflow beyond a double.
double toDouble(std::string_view text);

/// True when toDouble would succeed.
bool isNumeric(std::string_view text);

/// A number that never prints in exponent form, taken from the shortest text that reads back as the
/// double; none of its digits is lost, however small it is. value = digits * 10^-scale.
class Decimal {
 public:
  Decimal() = default;
  /// Raises NumericOverflow when 28 digits do not hold the part before the point.
  explicit Decimal(double value);

  double toDouble() const;
  /// Plain digits, "-" in front when negative, a leading "0" before the point: "0.00001".
  std::string toText() const;

  friend bool operator==(const Decimal&, const Decimal&) = default;

 private:
  bool negative_ = false;
  std::string digits_ = "0"; // without leading zeros
  int scale_ = 0;            // digits behind the point
};

/// The number text of the ECU file: a blank before a non-negative number, no zero before the
/// point, at most 15 significant digits. Plain digits from 0.0001 to below 1E+15; smaller and
/// larger numbers in exponent form, mantissa, "E", sign and at least two digits. 0.5 gives " .5",
/// -0.25 gives "-.25", 2 gives " 2", 0.0001 gives " .0001", 0.00001 gives " 1E-05". The text reads
/// back to 15 digits, and what was read back gives the same text again.
std::string NumberToText(double value);
/// The same form for a decimal; never an exponent: " .00001".
std::string NumberToText(const Decimal& value);

/// The longest number at the start of the text: leading blanks are skipped, digits with at most
/// one ".", an optional sign in front, an optional exponent "E". A text without a number yields 0;
/// a number beyond a double yields the largest one of its sign. Never fails.
double TextToNumber(std::string_view text);

/// A double as people write it, without the leading blank and with a zero before the point:
/// "0.5", "1E-05".
std::string doubleToPlainText(double value);

/// A colour is 0xBBGGRR; values with bit 31 set name a system colour.
inline constexpr std::uint32_t systemColourMark = 0x80000000u;

/// A local moment. Fields as people count them: month 1..12, day 1..31.
struct DateTime {
  int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

/// Reads "2026-11-21", "2026/11/21 08:30", "21/11/2026 08:30:15", "2026-11-21T08:30". Day first
/// when the year stands last. None when it is no date.
std::optional<DateTime> toDateTime(std::string_view text);

} // namespace kelmar
