// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/text.h"

#include <charconv>
#include <vector>

namespace kelmar {

namespace {

int daysOfMonth(int year, int month) {
  constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : days[month - 1];
}

// Digits only, at most four.
std::optional<int> smallNumber(std::string_view text) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || text.size() > 4 || result.ec != std::errc{} ||
      result.ptr != text.data() + text.size() || value < 0)
    return std::nullopt;
  return value;
}

// Two or three small numbers with one separator between.
std::optional<std::vector<int>> numbers(std::string_view text, std::string_view separator) {
  std::vector<int> found;
  for (const std::string& part : split(text, separator)) {
    const auto value = smallNumber(part);
    if (!value) return std::nullopt;
    found.push_back(*value);
  }
  return found;
}

bool readDate(std::string_view text, DateTime& moment) {
  auto fields = numbers(text, text.find('/') != std::string_view::npos ? "/" : "-");
  if (!fields || fields->size() != 3) return false;
  const std::size_t firstSeparator = text.find_first_of("/-");
  const std::size_t lastSeparator = text.find_last_of("/-");
  const bool yearFirst = firstSeparator == 4;
  if (!yearFirst && text.size() - lastSeparator - 1 != 4) return false;
  moment.year = yearFirst ? (*fields)[0] : (*fields)[2];
  moment.month = (*fields)[1];
  moment.day = yearFirst ? (*fields)[2] : (*fields)[0];
  return moment.year >= 1 && moment.month >= 1 && moment.month <= 12 && moment.day >= 1 &&
         moment.day <= daysOfMonth(moment.year, moment.month);
}

bool readTime(std::string_view text, DateTime& moment) {
  const auto fields = numbers(text, ":");
  if (!fields || fields->size() < 2 || fields->size() > 3) return false;
  moment.hour = (*fields)[0];
  moment.minute = (*fields)[1];
  moment.second = fields->size() == 3 ? (*fields)[2] : 0;
  return moment.hour < 24 && moment.minute < 60 && moment.second < 60;
}

} // namespace

std::optional<DateTime> toDateTime(std::string_view text) {
  text = trimBlanks(text);
  const std::size_t gap = text.find_first_of(" T");
  DateTime moment;
  if (!readDate(text.substr(0, gap), moment)) return std::nullopt;
  if (gap != std::string_view::npos && !readTime(trimBlanks(text.substr(gap + 1)), moment))
    return std::nullopt;
  return moment;
}

} // namespace kelmar
