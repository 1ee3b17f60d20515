// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/failure.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace kelmar {
namespace {

TEST(NumberText, NumberToText_WritesABlankAndNoZeroBeforeThePoint) {
  const struct {
    double value;
    const char* text;
  } rows[] = {
      {0, " 0"},
      {-0.0, " 0"},
      {0.5, " .5"},
      {-0.25, "-.25"},
      {2, " 2"},
      {-2, "-2"},
      {1.5, " 1.5"},
      {0.1, " .1"},
      {100, " 100"},
      {0.001, " .001"},
      {0.0001, " .0001"},
      {0.00012345, " .00012345"},
      {0.00001, " 1E-05"},
      {-0.00001, "-1E-05"},
      {0.000012345, " 1.2345E-05"},
      {1e-100, " 1E-100"},
      {999999999999999, " 999999999999999"},
      {1e15, " 1E+15"},
      {-1.5e20, "-1.5E+20"},
      {1.0 / 3, " .333333333333333"},
      {2.0 / 3, " .666666666666667"},
      {0.1 + 0.2, " .3"},
      {123456.789, " 123456.789"},
      {100000000000000.5, " 100000000000000"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(NumberToText(row.value), row.text);
}

TEST(NumberText, HalfIsWrittenAndReadBack) {
  EXPECT_EQ(NumberToText(0.5), " .5");
  EXPECT_EQ(TextToNumber(NumberToText(0.5)), 0.5);
}

TEST(NumberText, NumberToText_WritesNumbersThatAreNotFiniteAsTheNearestThatIs) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NumberToText(infinity), " 1.79769313486232E+308");
  EXPECT_EQ(NumberToText(-infinity), "-1.79769313486232E+308");
  EXPECT_EQ(NumberToText(std::numeric_limits<double>::quiet_NaN()), " 0");
}

TEST(NumberText, TextToNumber_ReadsTheLongestNumber) {
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"", 0},       {"   ", 0},     {"abc", 0},    {" .5", .5},   {"-.25", -.25},   {"   12", 12},
      {"12abc", 12}, {"1.2.3", 1.2}, {"1,5", 1},    {"1E3", 1000}, {" 1E-05", 1e-5}, {"1e2x", 100},
      {"1E", 1},     {"1E+", 1},     {"1Ex", 1},    {".", 0},      {"-", 0},         {"-x", 0},
      {"+3", 3},     {"- 3", 0},     {"5.", 5},     {"1 2", 1},    {"&H10", 0},      {"inf", 0},
      {"nan", 0},    {"0x10", 0},    {"1E-400", 0}, {"-0", 0},     {"5 V", 5},
  };
  for (const auto& row : rows)
    EXPECT_EQ(TextToNumber(row.text), row.value) << row.text;
}

TEST(NumberText, TextToNumber_StaysFinite) {
  const double most = std::numeric_limits<double>::max();
  EXPECT_EQ(TextToNumber("1E400"), most);
  EXPECT_EQ(TextToNumber("-1E400"), -most);
  EXPECT_EQ(TextToNumber(std::string(400, '9')), most);
  EXPECT_EQ(TextToNumber("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(TextToNumber("0." + std::string(400, '0') + "1E402"), 10);
  EXPECT_EQ(NumberToText(TextToNumber(NumberToText(most))), NumberToText(most));
}

TEST(NumberText, ASecondWritingGivesTheSameText) {
  constexpr unsigned seed = 20261121;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200000; ++i) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!(value > -std::numeric_limits<double>::max() &&
          value < std::numeric_limits<double>::max()))
      continue;
    const std::string text = NumberToText(value);
    const double back = TextToNumber(text);
    ASSERT_EQ(NumberToText(back), text);
    ASSERT_LE(std::abs(back - value), std::abs(value) * 1e-14) << text;
  }
  for (int i = 0; i < 200000; ++i) {
    const double value = (static_cast<double>(random() % 2000001) - 1000000.0) / 1000000.0;
    ASSERT_EQ(TextToNumber(NumberToText(value)), value) << value;
  }
}

TEST(NumberText, DoubleToPlainText_HasAZeroAndNoBlank) {
  EXPECT_EQ(doubleToPlainText(0.5), "0.5");
  EXPECT_EQ(doubleToPlainText(-0.25), "-0.25");
  EXPECT_EQ(doubleToPlainText(2), "2");
  EXPECT_EQ(doubleToPlainText(-0.0), "0");
  EXPECT_EQ(doubleToPlainText(0.00001), "1E-05");
  EXPECT_EQ(doubleToPlainText(1e15), "1E+15");
}

TEST(Decimals, NeverPrintAnExponent) {
  EXPECT_EQ(Decimal(0.00001).toText(), "0.00001");
  EXPECT_EQ(NumberToText(Decimal(0.00001)), " .00001");
  EXPECT_EQ(NumberToText(Decimal(-0.00001)), "-.00001");
  EXPECT_EQ(NumberToText(Decimal(2)), " 2");
  EXPECT_EQ(NumberToText(Decimal(0)), " 0");
  EXPECT_EQ(NumberToText(Decimal()), " 0");
  EXPECT_EQ(NumberToText(Decimal(10.5)), " 10.5");
  EXPECT_EQ(Decimal(1e15).toText(), "1000000000000000");
  EXPECT_EQ(Decimal(1.5e27).toText(), "15" + std::string(26, '0'));
  EXPECT_EQ(Decimal(-123.456).toText(), "-123.456");
  EXPECT_EQ(Decimal(-0.0), Decimal());
}

TEST(Decimals, KeepTheDouble) {
  for (const double value : {0.00001, 1.2345e-5, 1.0 / 30000, 3.0517578125e-05, 123456.789, 1e20})
    EXPECT_EQ(Decimal(value).toDouble(), value);
}

TEST(Decimals, KeepAllDigitsOfSmallNumbers) {
  EXPECT_EQ(Decimal(1e-30).toText(), "0." + std::string(29, '0') + "1");
  EXPECT_EQ(Decimal(-9.87654321e-22).toText(), "-0." + std::string(21, '0') + "987654321");
  for (const double value : {1.23456789e-25, -1e-29, 1e-300, 5e-324})
    EXPECT_EQ(Decimal(value).toDouble(), value);
}

TEST(Decimals, RefuseAnIntegerPartOfMoreThan28Digits) {
  for (const double value : {1e28, -1e28, 1e300, std::numeric_limits<double>::infinity()}) {
    try {
      const Decimal decimal(value);
      ADD_FAILURE() << decimal.toText();
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, NumericOverflow);
    }
  }
}

} // namespace
} // namespace kelmar
