// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/frame_time.h"

#include "base/text.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace kelmar::frame {

namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using Moment = std::chrono::sys_seconds; // a moment on a clock of no zone

Moment momentOf(const DateTime& date) {
  using namespace std::chrono;
  const sys_days day = year(date.year) / month(static_cast<unsigned>(date.month)) /
                       std::chrono::day(static_cast<unsigned>(date.day));
  return day + hours(date.hour) + minutes(date.minute) + seconds(date.second);
}

DateTime dateOf(Moment moment) {
  using namespace std::chrono;
  const sys_days day = floor<days>(moment);
  const year_month_day date(day);
  const hh_mm_ss time(moment - day);
  return {int(date.year()),          int(unsigned(date.month())), int(unsigned(date.day())),
          int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count())};
}

// Minutes east of Greenwich at noon of the first day of a month.
long minutesEast(int year, int month) {
  std::tm noon{};
  noon.tm_year = year - 1900;
  noon.tm_mon = month - 1;
  noon.tm_mday = 1;
  noon.tm_hour = 12;
  noon.tm_isdst = -1;
  std::mktime(&noon);
  return noon.tm_gmtoff / 60;
}

} // namespace

std::string Z(int value, std::size_t length) {
  const std::string text = std::to_string(value);
  return text.size() < length ? std::string(length - text.size(), '0') + text : text;
}

int timeZoneBias(int year) {
  long east = minutesEast(year, 1);
  for (int month = 2; month <= 12; ++month)
    east = std::max(east, minutesEast(year, month));
  return static_cast<int>(-east);
}

std::string GMT(const DateTime& local, int bias) {
  const DateTime date = dateOf(momentOf(local) + minutes(bias));
  return Z(date.year, 4) + "-" + Z(date.month, 2) + "-" + Z(date.day, 2) + "T" + Z(date.hour, 2) +
         ":" + Z(date.minute, 2);
}

std::optional<DateTime> unGMT(const std::string& text, int bias) {
  const std::string plain = replaceAll(replaceAll(text, "-", "/"), "T", " ") + ":00";
  const std::optional<DateTime> date = toDateTime(plain);
  if (!date) return std::nullopt;
  return dateOf(momentOf(*date) - minutes(bias));
}

} // namespace kelmar::frame
