// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/frame_time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace kelmar::frame {

namespace {

/// The time zone of this process while it lives.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* old = std::getenv("TZ")) old_ = old;
    ::setenv("TZ", name, 1);
    ::tzset();
  }
  ~Zone() {
    if (old_)
      ::setenv("TZ", old_->c_str(), 1);
    else
      ::unsetenv("TZ");
    ::tzset();
  }

 private:
  std::optional<std::string> old_;
};

} // namespace

TEST(Z, FillsWithZerosOnTheLeft) {
  EXPECT_EQ(Z(7, 2), "07");
  EXPECT_EQ(Z(2026, 4), "2026");
  EXPECT_EQ(Z(0, 4), "0000");
  EXPECT_EQ(Z(12345, 4), "12345");
  EXPECT_EQ(Z(5, 0), "5");
}

TEST(GMT, AddsTheBiasAndWritesMinutes) {
  EXPECT_EQ(GMT({2026, 1, 2, 3, 4, 59}, 0), "2026-01-02T03:04");
  EXPECT_EQ(GMT({2026, 1, 1, 0, 30, 0}, -120), "2025-12-31T22:30");
  EXPECT_EQ(GMT({2024, 2, 28, 23, 0, 0}, 300), "2024-02-29T04:00");
}

TEST(UnGMT, IsTheWayBack) {
  EXPECT_EQ(unGMT("2026-01-02T03:04", 0), (DateTime{2026, 1, 2, 3, 4, 0}));
  EXPECT_EQ(unGMT("2025-12-31T22:30", -120), (DateTime{2026, 1, 1, 0, 30, 0}));
  const DateTime moment{2026, 7, 14, 12, 45, 0};
  EXPECT_EQ(unGMT(GMT(moment, -330), -330), moment);
}

TEST(UnGMT, IsNoneForWhatIsNoDate) {
  EXPECT_FALSE(unGMT("", 0));
  EXPECT_FALSE(unGMT("yesterday", 0));
}

TEST(TimeZoneBias, IsStandardAndDaylightBiasTogether) {
  const Zone utc("UTC0");
  EXPECT_EQ(timeZoneBias(2026), 0);
}

TEST(TimeZoneBias, HoldsInSummerAndWinterAlike) {
  {
    const Zone north("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(timeZoneBias(2026), -120);
  }
  const Zone south("<-03>3<-02>,M10.3.0/0,M2.3.0/0");
  EXPECT_EQ(timeZoneBias(2026), 120);
}

} // namespace kelmar::frame
