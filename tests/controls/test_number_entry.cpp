// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/number_entry.h"

#include <gtest/gtest.h>

#include <iostream>
#include <limits>
#include <random>

using namespace kelmar;

namespace {

constexpr NumberBase D = NumberBase::Decimal, H = NumberBase::Hexadecimal;

/// What stands in the field after these keys; the keys that do something else are told in brackets.
std::string typed(std::u32string_view keys, NumberBase base) {
  std::string text;
  for (const char32_t key : keys) {
    const NumberKeyAnswer answer = filterNumberKey(key, base);
    switch (answer.what) {
    case NumberKey::Insert:
      text += static_cast<char>(answer.character);
      break;
    case NumberKey::Pass:
      text += "<pass>";
      break;
    case NumberKey::Eat:
      break;
    case NumberKey::Commit:
      text += "<commit>";
      break;
    case NumberKey::CommitPass:
      text += "<commit, pass>";
      break;
    case NumberKey::ToggleBase:
      text += "<toggle>";
      break;
    }
  }
  return text;
}

TEST(NumberEntryTest, Filter_InTheDecimalBaseLetsNumbersPassAndWritesThemItsWay) {
  EXPECT_EQ(typed(U"1.5", D), "1,5");
  EXPECT_EQ(typed(U"-0,25e+3E-4", D), "-0,25E+3E-4");
  EXPECT_EQ(typed(U"0123456789", D), "0123456789");
  EXPECT_EQ(typed(U"a b c d f g x & / * ' \u00e9 \u0663", D), "");
}

TEST(NumberEntryTest, Filter_InTheHexadecimalBaseLetsHexadecimalDigitsPassInUpperCase) {
  EXPECT_EQ(typed(U"ff", H), "FF");
  EXPECT_EQ(typed(U"0123456789abcdefABCDEF", H), "0123456789ABCDEFABCDEF");
  EXPECT_EQ(typed(U".,+-gG xX&", H), "");
}

TEST(NumberEntryTest, Filter_CommonKeysDoTheSameInBothBases) {
  for (const NumberBase base : {D, H}) {
    EXPECT_EQ(typed(U"h", base), "<toggle>");
    EXPECT_EQ(typed(U"H", base), "<toggle>");
    EXPECT_EQ(typed(U"\r", base), "<commit>");
    EXPECT_EQ(typed(U"\t", base), "<commit, pass>");
    EXPECT_EQ(typed(U"\b", base), "<pass>");
    EXPECT_EQ(typed(U"\u001b\u0001zZ", base), "");
  }
}

TEST(NumberEntryTest, Read_DecimalTextsAreNumbersAsAWhole) {
  const struct {
    const char* text;
    std::optional<double> value;
  } table[] = {
      {"1,5", 1.5},
      {"1.5", 1.5},
      {" 12 ", 12},
      {"-3", -3},
      {"+3", 3},
      {",5", 0.5},
      {"1E3", 1000},
      {"1E-05", 0.00001},
      {"", std::nullopt},
      {" ", std::nullopt},
      {"-", std::nullopt},
      {"1E", std::nullopt},
      {"1,2,3", std::nullopt},
      {"1.2,3", std::nullopt},
      {"12x", std::nullopt},
      {"1E400", std::nullopt},
      {"inf", std::nullopt},
      {"nan", std::nullopt},
  };
  for (const auto& row : table)
    EXPECT_EQ(readNumber(row.text, D), row.value) << '"' << row.text << '"';
}

TEST(NumberEntryTest, Read_HexadecimalTextsHaveAllTheirBits) {
  const struct {
    const char* text;
    std::optional<double> value;
  } table[] = {
      {"FF", 255},
      {"ff", 255},
      {" 1A ", 26},
      {"7FFFFFFF", 2147483647.0},
      {"80000000", 2147483648.0},
      {"FFFFFFFF", 4294967295.0},
      {"FFFF", 65535},
      {"100000000", 4294967296.0},
      {"-1", -1},
      {"00000000000001", 1},
      {"", std::nullopt},
      {"-", std::nullopt},
      {"G", std::nullopt},
      {"1,5", std::nullopt},
      {"&HFF", std::nullopt},
      {"1 2", std::nullopt},
  };
  for (const auto& row : table)
    EXPECT_EQ(readNumber(row.text, H), row.value) << '"' << row.text << '"';
  EXPECT_EQ(readNumber(std::string(1000, 'F'), H), std::nullopt);
}

TEST(NumberEntryTest, Text_DecimalIsTheNumbersOwn) {
  EXPECT_EQ(numberText(0, D, 4), "0");
  EXPECT_EQ(numberText(1.5, D, 0), "1.5");
  EXPECT_EQ(numberText(-0.25, D, 0), "-0.25");
  EXPECT_EQ(numberText(536870911, D, 0), "536870911");
  EXPECT_EQ(numberText(0.00001, D, 0), "1E-05");
}

TEST(NumberEntryTest, Text_HexadecimalOfAnySizeAndCutToItsDigits) {
  const struct {
    double value;
    int digits;
    const char* text;
  } table[] = {
      {0, 0, "0"},
      {255, 0, "FF"},
      {26, 4, "001A"},
      {0x12345, 4, "2345"},
      {26.9, 0, "1A"},
      {0, 2, "00"},
      {4294967295.0, 0, "FFFFFFFF"},
      {2147483648.0, 8, "80000000"},
      {1099511627775.0, 0, "FFFFFFFFFF"},
      {26, 20, "000000001A"}, // never more than eight zeros in front
      {-1, 0, "-1"},
      {-0.5, 0, "0"},
  };
  for (const auto& row : table)
    EXPECT_EQ(numberText(row.value, H, row.digits), row.text) << row.value;
}

TEST(NumberEntryTest, Text_ReadsBackAsTheNumber) {
  constexpr unsigned seed = 36;
  std::cout << "seed " << seed << "\n";
  std::mt19937_64 random(seed);
  for (int round = 0; round < 20'000; ++round) {
    const double whole = static_cast<double>(random() >> (random() % 32 + 32));
    ASSERT_EQ(readNumber(numberText(whole, H, 0), H), whole);
    ASSERT_EQ(readNumber(numberText(whole, D, 0), D), whole);
    ASSERT_EQ(readNumber(numberText(-whole / 8, D, 0), D), -whole / 8);
  }
}

TEST(NumberEntryTest, Correct_WithoutRulesTakesTheValueAsItIs) {
  EXPECT_EQ(correctedNumber(-12.5, {}), -12.5);
  EXPECT_EQ(correctedNumber(1e300, {.Minimum = 0, .Maximum = 7}), 1e300);
}

TEST(NumberEntryTest, Correct_ClampsToTheLimitsWhenTheyAreChecked) {
  const NumberRules rules{.RangeChecking = true, .Minimum = 1, .Maximum = 4095};
  EXPECT_EQ(correctedNumber(0, rules), 1);
  EXPECT_EQ(correctedNumber(1, rules), 1);
  EXPECT_EQ(correctedNumber(4095, rules), 4095);
  EXPECT_EQ(correctedNumber(4096, rules), 4095);
}

TEST(NumberEntryTest, Correct_HexadecimalHas32BitsWithoutSign) {
  const NumberRules rules{.Base = H};
  EXPECT_EQ(correctedNumber(-1, rules), 0);
  EXPECT_EQ(correctedNumber(4294967296.0, rules), 4294967295.0);
  EXPECT_EQ(correctedNumber(2147483648.0, rules), 2147483648.0);
  // The base has the last word over a negative limit.
  EXPECT_EQ(correctedNumber(-8, {.RangeChecking = true, .Minimum = -5, .Maximum = 5, .Base = H}),
            0);
}

TEST(NumberEntryTest, Correct_TheGridComesLastAndMayLeaveTheLimits) {
  const NumberRules eights{.Discrete = true, .DiscreteInterval = 8};
  EXPECT_EQ(correctedNumber(13, eights), 16);
  EXPECT_EQ(correctedNumber(11, eights), 8);
  EXPECT_EQ(correctedNumber(4, eights), 0); // halfway to the even multiple
  EXPECT_EQ(correctedNumber(12, eights), 16);
  EXPECT_EQ(correctedNumber(-13, eights), -16);
  EXPECT_EQ(correctedNumber(7, {.Discrete = true, .DiscreteBase = 1, .DiscreteInterval = 4}), 9);
  EXPECT_EQ(
      correctedNumber(
          99, {.RangeChecking = true, .Maximum = 13, .Discrete = true, .DiscreteInterval = 8}),
      16);
  EXPECT_EQ(correctedNumber(13, {.Discrete = true, .DiscreteInterval = 0}), 13);
  EXPECT_EQ(correctedNumber(1e308, {.Discrete = true, .DiscreteInterval = 1e-300}), 1e308);
}

} // namespace
