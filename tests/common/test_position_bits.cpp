// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/position_bits.h"
#include "database/data_position_item.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <random>

using namespace kelmar;

namespace {

constexpr unsigned seed = 4095;

TEST(PositionBitsTest, EndByte_ADataOf16BitsEndsAtByte4OrAtByte5) {
  EXPECT_EQ(EndByte(3, 0, 16), 4);
  EXPECT_EQ(EndByte(3, 1, 16), 5);
  EXPECT_EQ(EndByte(1, 0, 1), 1);
  EXPECT_EQ(EndByte(1, 7, 1), 1);
  EXPECT_EQ(EndByte(1, 7, 2), 2);
  EXPECT_EQ(EndByte(1, 0, 0), 0);
  EXPECT_EQ(EndByte(std::numeric_limits<int>::max(), 7, std::numeric_limits<int>::max()),
            std::numeric_limits<int>::max() + (std::numeric_limits<int>::max() + 14ll) / 8 - 1);
}

TEST(PositionBitsTest, EndByte_IsRoundedUpForAnyNumbers) {
  std::cout << "seed " << seed << "\n";
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> bytes(-10, 5000), bits(-40, 4000);
  for (int round = 0; round < 20'000; ++round) {
    const int start = bytes(random), bit = bits(random), count = bits(random);
    ASSERT_EQ(EndByte(start, bit, count), start + std::ceil((bit + count) / 8.0) - 1)
        << start << " " << bit << " " << count;
  }
}

TEST(PositionBitsTest, EndByte_IsThatOfTheLastCoveredBit) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> bytes(1, 50), offsets(0, 7), bits(1, 70), orders(0, 1);
  for (int round = 0; round < 5000; ++round) {
    const BitPlacement placement{bits(random), bytes(random), offsets(random), orders(random) == 1};
    ASSERT_EQ(EndByte(placement.StartByte, placement.OffsetBit, placement.NumberBits),
              lastBit(placement).byte + 1);
  }
}

TEST(PositionBitsTest, IsOutside_BehindTheFrameOrAtANegativeByte) {
  EXPECT_FALSE(isOutside({16, 3, 0, false}, 4));
  EXPECT_TRUE(isOutside({16, 3, 1, false}, 4));
  EXPECT_TRUE(isOutside({8, 5, 0, true}, 4));
  EXPECT_TRUE(isOutside({8, -1, 0, false}, 4));
  EXPECT_FALSE(isOutside({8, 0, 0, false}, 4)); // byte 0 is no fault of the list
  EXPECT_TRUE(isOutside({8, 1, 0, false}, 0));
}

TEST(PositionBitsTest, PlacementOf_TakesThePositionAndTheSizeOfItsData) {
  DataPositionItem position;
  position.StartOctet = 3;
  position.StartBit = 5;
  position.LittleEndian = true;
  EXPECT_EQ(placementOf(position, 9), (BitPlacement{9, 3, 5, true}));
}

TEST(PositionBitsTest, IsClicked_AgreesWithTheLinearPositionsOfTheFrame) {
  std::cout << "seed " << seed << "\n";
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> starts(1, 8), offsets(0, 7), bits(1, 40), orders(0, 1),
      lengths(1, 8);
  int hits = 0;
  for (int round = 0; round < 3000; ++round) {
    const BitPlacement placement{bits(random), starts(random), offsets(random),
                                 orders(random) == 1};
    const int L = lengths(random), n = placement.NumberBits;
    for (int B = 0; B < L; ++B)
      for (int K = 0; K < 8; ++K) {
        bool expected = false;
        if (placement.LittleEndian) {
          const int at = (L - 1 - B) * 8 + 7 - K;
          const int high = (L - placement.StartByte) * 8 + 7 - placement.OffsetBit;
          expected = high - n + 1 <= at && at <= high;
        } else {
          const int at = B * 8 + 7 - K;
          const int low = (placement.StartByte - 1) * 8 + placement.OffsetBit;
          expected = low <= at && at <= low + n - 1;
        }
        hits += expected;
        ASSERT_EQ(isClicked(placement, {B, K}), expected) << "byte " << B << " cell " << K;
      }
  }
  EXPECT_GT(hits, 1000);
}

TEST(PositionBitsTest, StartBitAt_CountsFromTheEndThatTheOrderStartsAt) {
  EXPECT_EQ(startBitAt(0, false), 7); // byte 0, cell 0 of a big-endian ECU
  EXPECT_EQ(startBitAt(7, false), 0);
  EXPECT_EQ(startBitAt(0, true), 0);
  EXPECT_EQ(startBitAt(5, true), 5);
  for (const bool little : {false, true})
    for (int cell = 0; cell < 8; ++cell)
      EXPECT_EQ(firstBit({1, 4, startBitAt(cell, little), little}), (FrameBit{3, cell}));
}

TEST(PositionBitsTest, ToggledEndian_StaysOnTheSameCellsAndTwiceIsNone) {
  const auto toggled = toggledEndian({3, 1, 2, false});
  ASSERT_TRUE(toggled);
  EXPECT_EQ(*toggled, (BitPlacement{3, 1, 3, true}));
  EXPECT_EQ(*toggledEndian(*toggled), (BitPlacement{3, 1, 2, false}));
  for (const bool little : {false, true})
    for (int bits = 1; bits <= 8; ++bits)
      for (int offset = 0; offset + bits <= 8; ++offset) {
        const BitPlacement before{bits, 2, offset, little};
        const auto after = toggledEndian(before);
        ASSERT_TRUE(after);
        EXPECT_EQ(coveredCells(*after, 1), coveredCells(before, 1));
        EXPECT_NE(after->LittleEndian, little);
        EXPECT_EQ(*toggledEndian(*after), before);
      }
}

TEST(PositionBitsTest, ToggledEndian_LeavesWiderDataAndThoseOverTheEndOfTheByte) {
  EXPECT_FALSE(toggledEndian({9, 1, 0, false}));
  EXPECT_FALSE(toggledEndian({16, 1, 0, true}));
  EXPECT_FALSE(toggledEndian({3, 1, 6, false}));
  EXPECT_FALSE(toggledEndian({0, 1, 0, false}));
  EXPECT_TRUE(toggledEndian({2, 1, 6, false}));
}

} // namespace
