// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sort_key.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

TEST(SortKeys, Number_IsPaddedAndNegativesAreComplemented) {
  EXPECT_EQ(sortKey("12.5", SortType::Number), "0000000012.50000000000000000000");
  EXPECT_EQ(sortKey("0", SortType::Number), "0000000000.00000000000000000000");
  EXPECT_EQ(sortKey("-0", SortType::Number), "0000000000.00000000000000000000");
  EXPECT_EQ(sortKey("-12.5", SortType::Number), "&9999999987.49999999999999999999");
  EXPECT_EQ(sortKey("0.1", SortType::Number), "0000000000.10000000000000000000");
  EXPECT_EQ(sortKey("1E-05", SortType::Number), "0000000000.00001000000000000000");
  EXPECT_EQ(sortKey("12345678901", SortType::Number), "12345678901.00000000000000000000");
  EXPECT_EQ(sortKey("1E-30", SortType::Number), "0000000000.00000000000000000000");
  EXPECT_EQ(sortKey("", SortType::Number), "");
  EXPECT_EQ(sortKey("n/a", SortType::Number), "");
}

TEST(SortKeys, Number_OrdersNonNumbersNegativesAndPositives) {
  std::vector<std::string> cells = {"10", "-5", "abc", "9", "-50", "0", "-0.5", "2.25", "100000"};
  std::stable_sort(cells.begin(), cells.end(), [](const auto& a, const auto& b) {
    return sortKey(a, SortType::Number) < sortKey(b, SortType::Number);
  });
  EXPECT_EQ(cells, (std::vector<std::string>{"abc", "-50", "-5", "-0.5", "0", "2.25", "9", "10",
                                             "100000"}));
}

TEST(SortKeys, Date_RunsFromTheYearToTheSecond) {
  EXPECT_EQ(sortKey("21/11/2026 08:30:15", SortType::Date), "20261121083015");
  EXPECT_EQ(sortKey("2026-01-02", SortType::Date), "20260102000000");
  EXPECT_EQ(sortKey("soon", SortType::Date), "");
}

TEST(SortKeys, Text_IsTheCell) {
  EXPECT_EQ(sortKey("-B é", SortType::Text), "-B é");
}

} // namespace
} // namespace kelmar
