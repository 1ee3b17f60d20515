// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/number_entry.h"

#include "base/conversions.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace kelmar {

namespace {

constexpr double largestHexadecimal = 4294967295.0;

bool isDigit(char32_t key) {
  return key >= U'0' && key <= U'9';
}

std::optional<char32_t> decimalCharacter(char32_t key) {
  switch (key) {
  case U'.':
    return U',';
  case U'e':
    return U'E';
  case U',':
  case U'+':
  case U'-':
  case U'E':
    return key;
  default:
    return isDigit(key) ? std::optional(key) : std::nullopt;
  }
}

std::optional<char32_t> hexadecimalCharacter(char32_t key) {
  if (key >= U'a' && key <= U'f') return key - U'a' + U'A';
  if (isDigit(key) || (key >= U'A' && key <= U'F')) return key;
  return std::nullopt;
}

NumberKeyAnswer commonKey(char32_t key) {
  switch (key) {
  case U'H':
  case U'h':
    return {NumberKey::ToggleBase};
  case U'\r':
    return {NumberKey::Commit};
  case U'\t':
    return {NumberKey::CommitPass};
  case U'\b':
    return {NumberKey::Pass};
  default:
    return {NumberKey::Eat};
  }
}

std::optional<double> readHexadecimal(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  double value = 0;
  for (const char character : text) {
    const auto digit = hexadecimalCharacter(static_cast<unsigned char>(character));
    if (!digit) return std::nullopt;
    value = value * 16 + (isDigit(*digit) ? *digit - U'0' : *digit - U'A' + 10);
  }
  if (!std::isfinite(value)) return std::nullopt;
  return negative ? -value : value;
}

std::optional<double> readDecimal(std::string_view text) {
  const std::string plain = replaceAll(text, ",", ".");
  if (!isNumeric(plain)) return std::nullopt;
  return toDouble(plain);
}

std::string hexadecimalDigits(double value) {
  std::string digits;
  for (double rest = std::trunc(std::fabs(value)); rest >= 1 || digits.empty();
       rest = std::trunc(rest / 16))
    digits += "0123456789ABCDEF"[static_cast<int>(std::fmod(rest, 16))];
  return {digits.rbegin(), digits.rend()};
}

} // namespace

NumberKeyAnswer filterNumberKey(char32_t key, NumberBase base) {
  const auto character =
      base == NumberBase::Hexadecimal ? hexadecimalCharacter(key) : decimalCharacter(key);
  if (character) return {NumberKey::Insert, *character};
  return commonKey(key);
}

std::optional<double> readNumber(std::string_view text, NumberBase base) {
  text = trimBlanks(text);
  return base == NumberBase::Hexadecimal ? readHexadecimal(text) : readDecimal(text);
}

std::string numberText(double value, NumberBase base, int digits) {
  if (base == NumberBase::Decimal) return doubleToPlainText(value);
  std::string text = hexadecimalDigits(value);
  if (digits > 0) text = rightmost("00000000" + text, static_cast<std::size_t>(digits));
  // A value that was negative in the decimal base shows so, until it is committed here.
  return std::trunc(value) < 0 ? "-" + text : text;
}

double correctedNumber(double requested, const NumberRules& rules) {
  double value = requested;
  if (rules.RangeChecking) {
    if (value < rules.Minimum)
      value = rules.Minimum;
    else if (value > rules.Maximum)
      value = rules.Maximum;
  }
  if (rules.Base == NumberBase::Hexadecimal) value = std::clamp(value, 0.0, largestHexadecimal);
  if (rules.Discrete && rules.DiscreteInterval != 0) {
    const double steps = std::nearbyint((value - rules.DiscreteBase) / rules.DiscreteInterval);
    const double onGrid = rules.DiscreteBase + steps * rules.DiscreteInterval;
    if (std::isfinite(onGrid)) value = onGrid;
  }
  return value;
}

} // namespace kelmar
