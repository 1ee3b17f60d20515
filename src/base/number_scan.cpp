// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number_scan.h"

#include <charconv>
#include <limits>

namespace kelmar {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// from_chars says "out of range" for too large and too small alike: the place of the first digit
// that counts, moved by the exponent, tells them apart.
bool isBelowOne(std::string_view digits) {
  constexpr long limit = 1'000'000;
  long place = 0; // digits before the point, less the zeros behind it
  bool point = false, counted = false;
  std::size_t i = 0;
  for (; i < digits.size() && digits[i] != 'E' && digits[i] != 'e'; ++i) {
    if (digits[i] == '.') {
      point = true;
    } else if (digits[i] != '0' || counted) {
      counted = true;
      if (!point && place < limit) ++place;
    } else if (point && place > -limit) {
      --place;
    }
  }
  if (i < digits.size()) {
    bool negative = false;
    long exponent = 0;
    for (++i; i < digits.size(); ++i) {
      if (digits[i] == '-')
        negative = true;
      else if (isDigit(digits[i]) && exponent < 10 * limit)
        exponent = exponent * 10 + (digits[i] - '0');
    }
    place += negative ? -exponent : exponent;
  }
  return place <= 0;
}

} // namespace

ScannedNumber scanNumber(std::string_view text) {
  ScannedNumber found;
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
    found.negative = text[i] == '-';
    ++i;
  }
  bool point = false, digits = false;
  for (; i < text.size(); ++i) {
    if (isDigit(text[i]))
      digits = true;
    else if (text[i] == '.' && !point)
      point = true;
    else
      break;
  }
  if (!digits) return {};
  found.plainInteger = !point;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '-' || text[j] == '+')) ++j;
    if (j < text.size() && isDigit(text[j])) {
      while (j < text.size() && isDigit(text[j]))
        ++j;
      i = j;
      found.plainInteger = false;
    }
  }
  found.text = text.substr(0, i);
  return found;
}

Magnitude scannedValue(const ScannedNumber& number, double& value) {
  std::string_view digits = number.text;
  if (!digits.empty() && (digits.front() == '-' || digits.front() == '+')) digits.remove_prefix(1);
  value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (isBelowOne(digits)) {
      value = 0;
      return Magnitude::Fits;
    }
    value = std::numeric_limits<double>::max();
    if (number.negative) value = -value;
    return Magnitude::TooLarge;
  }
  if (number.negative && value != 0) value = -value;
  return Magnitude::Fits;
}

} // namespace kelmar
