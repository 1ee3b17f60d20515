// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/number_scan.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace kelmar {

namespace {

// 15 significant digits; exponent form when the first digit stands below the fourth decimal or the
// number reaches 1E+15. to_chars gives at least two digits of exponent.
std::size_t magnitudeText(double magnitude, char (&buffer)[40]) {
  if (magnitude < 1e15 && magnitude == std::floor(magnitude)) {
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::int64_t>(magnitude));
    return static_cast<std::size_t>(end.ptr - buffer);
  }
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::general, 15);
  for (char* c = buffer; c != end.ptr; ++c) {
    if (*c == 'e') *c = 'E';
  }
  return static_cast<std::size_t>(end.ptr - buffer);
}

// No reader makes a number that is not finite; arithmetic on a page may.
double finite(double value) {
  if (std::isnan(value)) return 0;
  if (std::isinf(value)) return std::copysign(std::numeric_limits<double>::max(), value);
  return value;
}

} // namespace

std::string NumberToText(double value) {
  value = finite(value);
  char buffer[40];
  const std::size_t length = magnitudeText(std::fabs(value), buffer);
  std::string text(1, value < 0 ? '-' : ' ');
  const bool zeroBeforePoint = length > 1 && buffer[0] == '0' && buffer[1] == '.';
  text.append(buffer + (zeroBeforePoint ? 1 : 0), length - (zeroBeforePoint ? 1 : 0));
  return text;
}

std::string NumberToText(const Decimal& value) {
  std::string text = value.toText();
  if (text.front() != '-') text.insert(text.begin(), ' ');
  if (text.size() > 2 && text[1] == '0' && text[2] == '.') text.erase(1, 1);
  return text;
}

double TextToNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  const ScannedNumber number = scanNumber(text.substr(start));
  double value = 0;
  if (!number.text.empty()) scannedValue(number, value);
  return value;
}

std::string doubleToPlainText(double value) {
  value = finite(value);
  char buffer[40];
  const std::size_t length = magnitudeText(std::fabs(value), buffer);
  std::string text(value < 0 ? "-" : "");
  text.append(buffer, length);
  return text;
}

} // namespace kelmar
