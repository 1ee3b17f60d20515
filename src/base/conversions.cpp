// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"

#include "base/failure.h"
#include "base/number_scan.h"
#include "base/text.h"

#include <cmath>

namespace kelmar {

namespace {

enum class Reading { Number, NoNumber, TooLarge };

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

bool isHexadecimal(std::string_view trimmed) {
  return trimmed.size() >= 2 && trimmed[0] == '&' && (trimmed[1] == 'H' || trimmed[1] == 'h');
}

// The digits are a 32-bit pattern, so "&HFFFFFFFF" is -1.
Reading readHexadecimal(std::string_view digits, std::int32_t& value) {
  if (digits.empty()) return Reading::NoNumber;
  std::uint64_t pattern = 0;
  bool tooLarge = false;
  for (const char c : digits) {
    const int digit = hexDigit(c);
    if (digit < 0) return Reading::NoNumber;
    pattern = pattern * 16 + static_cast<unsigned>(digit);
    if (pattern > 0xFFFFFFFFu) {
      tooLarge = true;
      pattern = 0;
    }
  }
  if (tooLarge) return Reading::TooLarge;
  value = static_cast<std::int32_t>(static_cast<std::uint32_t>(pattern));
  return Reading::Number;
}

Reading readDouble(std::string_view text, double& value) {
  text = trimBlanks(text);
  if (isHexadecimal(text)) {
    std::int32_t integer = 0;
    const Reading reading = readHexadecimal(text.substr(2), integer);
    value = integer;
    return reading;
  }
  const ScannedNumber number = scanNumber(text);
  if (number.text.empty() || number.text.size() != text.size()) return Reading::NoNumber;
  return scannedValue(number, value) == Magnitude::Fits ? Reading::Number : Reading::TooLarge;
}

[[noreturn]] void refuse(Reading reading) {
  throw platformFailure(reading == Reading::TooLarge ? NumericOverflow : TypeMismatch);
}

} // namespace

std::int32_t toInt32(std::string_view text) {
  // Nearly every number of a file is a few plain digits.
  if (!text.empty() && text.size() <= 9) {
    std::int32_t value = 0;
    std::size_t i = text[0] == '-' ? 1 : 0;
    const bool hasDigits = i < text.size();
    for (; i < text.size(); ++i) {
      const unsigned digit = static_cast<unsigned char>(text[i]) - unsigned{'0'};
      if (digit > 9) break;
      value = value * 10 + static_cast<std::int32_t>(digit);
    }
    if (hasDigits && i == text.size()) return text[0] == '-' ? -value : value;
  }
  double value = 0;
  const Reading reading = readDouble(text, value);
  if (reading != Reading::Number) refuse(reading);
  return toInt32(value);
}

std::int32_t toInt32(double value) {
  if (std::isnan(value)) throw platformFailure(NumericOverflow);
  const double lower = std::floor(value);
  const double rest = value - lower;
  double rounded = lower;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(lower, 2.0) != 0)) rounded = lower + 1;
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
    throw platformFailure(NumericOverflow);
  return static_cast<std::int32_t>(rounded);
}

bool toBoolean(std::string_view text) {
  if (text == "1") return true;
  if (text == "0") return false;
  const std::string_view trimmed = trimBlanks(text);
  if (trimmed.size() == 4 && startsWithFolded(trimmed, "true")) return true;
  if (trimmed.size() == 5 && startsWithFolded(trimmed, "false")) return false;
  return toDouble(trimmed) != 0;
}

double toDouble(std::string_view text) {
  double value = 0;
  const Reading reading = readDouble(text, value);
  if (reading != Reading::Number) refuse(reading);
  return value;
}

bool isNumeric(std::string_view text) {
  double value = 0;
  return readDouble(text, value) == Reading::Number;
}

} // namespace kelmar
