// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/failure.h"

#include <clocale>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

template <typename Call>
int failureOf(Call call) {
  try {
    call();
  } catch (const Failure& failure) {
    return failure.number;
  }
  return 0;
}

TEST(Conversions, ToInt32_ReadsIntegersFractionsExponentsAndHexadecimal) {
  const struct {
    const char* text;
    std::int32_t value;
  } rows[] = {
      {"0", 0},
      {"-0", 0},
      {"7", 7},
      {"007", 7},
      {"-12", -12},
      {"  42  ", 42},
      {"+5", 5},
      {"1.4", 1},
      {"1.6", 2},
      {"-1.6", -2},
      {"1E3", 1000},
      {"1.5e1", 15},
      {"&H1F", 31},
      {"&hff", 255},
      {"&HFFFF", 65535},
      {"&H7FFFFFFF", 2147483647},
      {"&HFFFFFFFF", -1},
      {" &H10 ", 16},
      {"2147483647", 2147483647},
      {"-2147483648", -2147483647 - 1},
      {"2147483647.4", 2147483647},
      {"000000000000000012", 12},
      {"1E-400", 0},
  };
  for (const auto& row : rows)
    EXPECT_EQ(toInt32(std::string_view(row.text)), row.value) << row.text;
}

TEST(Conversions, ToInt32_RoundsTiesToEven) {
  EXPECT_EQ(toInt32("0.5"), 0);
  EXPECT_EQ(toInt32("1.5"), 2);
  EXPECT_EQ(toInt32("2.5"), 2);
  EXPECT_EQ(toInt32("-0.5"), 0);
  EXPECT_EQ(toInt32("-1.5"), -2);
  EXPECT_EQ(toInt32("-2.5"), -2);
  EXPECT_EQ(toInt32(20.0), 20);
  EXPECT_EQ(toInt32(2147483647.49), 2147483647);
}

TEST(Conversions, ToInt32_RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "abc", "1,5", "1 2", "12x", "-", "+", ".", "E5", "1E", "&H",
                           "&HG", "--1", "True", "inf", "nan", "1.2.3", "\t1"})
    EXPECT_EQ(failureOf([&] { toInt32(std::string_view(text)); }), TypeMismatch) << text;
}

TEST(Conversions, ToInt32_RefusesWhatDoesNotFit) {
  for (const char* text : {"2147483648", "-2147483649", "2147483647.5", "1E10", "1E400",
                           "&H100000000", "&HFFFFFFFFFFFFFFFFFFFFFFFF"})
    EXPECT_EQ(failureOf([&] { toInt32(std::string_view(text)); }), NumericOverflow) << text;
  EXPECT_EQ(failureOf([] { toInt32(2147483647.5); }), NumericOverflow);
  EXPECT_EQ(failureOf([] { toInt32(0.0 / 0.0); }), NumericOverflow);
}

TEST(Conversions, ToBoolean_TakesNumbersAndWords) {
  EXPECT_TRUE(toBoolean("1"));
  EXPECT_TRUE(toBoolean("-1"));
  EXPECT_TRUE(toBoolean("0.4"));
  EXPECT_TRUE(toBoolean("tRuE"));
  EXPECT_TRUE(toBoolean(" true "));
  EXPECT_FALSE(toBoolean("0"));
  EXPECT_FALSE(toBoolean(" 0.0 "));
  EXPECT_FALSE(toBoolean("FALSE"));
  EXPECT_EQ(failureOf([] { toBoolean("yes"); }), TypeMismatch);
  EXPECT_EQ(failureOf([] { toBoolean(""); }), TypeMismatch);
}

TEST(Conversions, ToDouble_TakesTheWholeText) {
  EXPECT_EQ(toDouble("0.25"), 0.25);
  EXPECT_EQ(toDouble(" -.5 "), -0.5);
  EXPECT_EQ(toDouble("5."), 5);
  EXPECT_EQ(toDouble("1E-05"), 1e-5);
  EXPECT_EQ(toDouble("1e+2"), 100);
  EXPECT_EQ(toDouble("&H10"), 16);
  EXPECT_EQ(toDouble("0.00001E5"), 1);
  EXPECT_EQ(toDouble("1E-99999999999999"), 0);
  EXPECT_EQ(toDouble("0E99999999999999"), 0);
  EXPECT_EQ(failureOf([] { toDouble("1 V"); }), TypeMismatch);
  EXPECT_EQ(failureOf([] { toDouble("1,5"); }), TypeMismatch);
  EXPECT_EQ(failureOf([] { toDouble("1E400"); }), NumericOverflow);
  EXPECT_EQ(failureOf([] { toDouble("-" + std::string(400, '9')); }), NumericOverflow);
}

TEST(Conversions, IsNumeric_AgreesWithToDouble) {
  for (const char* text : {"1", " 1 ", "-.5", "1E5", "&HFF"})
    EXPECT_TRUE(isNumeric(text)) << text;
  for (const char* text : {"", " ", "abc", "1,5", "1E400", "1E", "&HXY"})
    EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(Conversions, NoConversionLooksAtTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"fr_FR.UTF-8", "de_DE.UTF-8", "C.UTF-8"})
    std::setlocale(LC_ALL, locale);
  EXPECT_EQ(toDouble("1.5"), 1.5);
  EXPECT_EQ(NumberToText(1.5), " 1.5");
  EXPECT_EQ(TextToNumber("1,5"), 1);
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Failures, PlatformErrors_HaveOneTextEach) {
  EXPECT_STREQ(platformErrorText(NumericOverflow), "Overflow");
  EXPECT_STREQ(platformErrorText(SubscriptOutOfRange), "Index out of range");
  EXPECT_STREQ(platformErrorText(TypeMismatch), "Type mismatch");
  EXPECT_STREQ(platformErrorText(FileAccessFailed), "File access failed");
  EXPECT_STREQ(platformErrorText(MissingObject), "Object not set");
  EXPECT_STREQ(platformErrorText(KeyExists), "Key exists already");
  const Failure failure = platformFailure(MissingObject, "Here");
  EXPECT_EQ(failure.number, 91);
  EXPECT_EQ(failure.source, "Here");
  EXPECT_STREQ(failure.what(), "Object not set");
}

TEST(Dates, ToDateTime_ReadsTheFormsThatPeopleWrite) {
  EXPECT_EQ(toDateTime("2026-11-21"), (DateTime{2026, 11, 21, 0, 0, 0}));
  EXPECT_EQ(toDateTime("2026/11/21 08:30"), (DateTime{2026, 11, 21, 8, 30, 0}));
  EXPECT_EQ(toDateTime("21/11/2026 08:30:15"), (DateTime{2026, 11, 21, 8, 30, 15}));
  EXPECT_EQ(toDateTime(" 2026-11-21T08:30 "), (DateTime{2026, 11, 21, 8, 30, 0}));
  EXPECT_EQ(toDateTime("1/2/2026"), (DateTime{2026, 2, 1, 0, 0, 0}));
  EXPECT_EQ(toDateTime("29/02/2024"), (DateTime{2024, 2, 29, 0, 0, 0}));
}

TEST(Dates, ToDateTime_HasNoneForOtherTexts) {
  for (const char* text :
       {"", "today", "12", "2026-13-01", "2026-00-10", "29/02/2026", "31/04/2026", "2026-11",
        "2026-11-21 24:00", "2026-11-21 8", "2026-11-21 08:30:61", "2026-11-21 a:b", "21/11/26",
        "2026-11-21-05", "2026-11-21 ", "-1/2/2026", "2026/11-21"})
    EXPECT_EQ(toDateTime(text).has_value(), std::string_view(text) == "2026-11-21 ") << text;
}

} // namespace
} // namespace kelmar
