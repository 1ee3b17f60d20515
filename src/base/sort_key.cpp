// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sort_key.h"

#include "base/conversions.h"
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace kelmar {

namespace {

constexpr int digitsBefore = 10;
constexpr int digitsBehind = 20;

// 15 significant digits, as all number texts have, then zeros.
std::string paddedNumber(double magnitude) {
  char digits[40];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, magnitude, std::chars_format::scientific, 14);
  std::string significant;
  const char* mark = digits;
  for (; *mark != 'e'; ++mark) {
    if (*mark != '.') significant += *mark;
  }
  int exponent = 0;
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end.ptr, exponent);

  const auto digitAt = [&](int place) { // place 0 is the digit of the ones
    const int index = exponent - place;
    return index >= 0 && index < static_cast<int>(significant.size())
               ? significant[static_cast<std::size_t>(index)]
               : '0';
  };
  std::string text;
  for (int place = std::max(exponent, digitsBefore - 1); place >= 0; --place)
    text += digitAt(place);
  text += '.';
  for (int place = -1; place >= -digitsBehind; --place)
    text += digitAt(place);
  return text;
}

std::string numberKey(std::string_view cell) {
  if (!isNumeric(cell)) return {};
  const double value = toDouble(cell);
  if (value >= 0) return paddedNumber(value);
  return "&" + ComplementDigits(paddedNumber(-value));
}

std::string dateKey(std::string_view cell) {
  const auto moment = toDateTime(cell);
  if (!moment) return {};
  char text[80];
  std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d", moment->year, moment->month,
                moment->day, moment->hour, moment->minute, moment->second);
  return text;
}

} // namespace

std::string sortKey(std::string_view cell, SortType type) {
  switch (type) {
  case SortType::Number:
    return numberKey(cell);
  case SortType::Date:
    return dateKey(cell);
  case SortType::Text:
    break;
  }
  return std::string(cell);
}

} // namespace kelmar
