// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/trad_config.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

std::string lineOf(const DataItem& data) {
  TabText text;
  addTradConfig(text, data);
  return text.text();
}

TEST(TradConfigLine, TellsTheSizeInBitsOrInBytesWithTheirPart) {
  DataItem data;
  data.setDataName("Level");
  data.NumberBits = 12;
  data.numerique = true;
  EXPECT_EQ(lineOf(data), "Level\t12 bits\t\t\t\t\t\t\t\r\n");
  data.numerique = false;
  EXPECT_EQ(lineOf(data), "Level\t1.5 bytes\t\t\t\t\t\t\t\r\n");
  data.NumberBits = 16;
  EXPECT_EQ(lineOf(data), "Level\t2 bytes\t\t\t\t\t\t\t\r\n");
}

} // namespace
} // namespace kelmar
