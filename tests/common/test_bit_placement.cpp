// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/bit_placement.h"
#include "language/multi_lang.h"

#include <gtest/gtest.h>

#include <iostream>
#include <limits>
#include <random>
#include <set>

using namespace kelmar;

namespace kelmar {
void PrintTo(const BitPlacement& placement, std::ostream* out) {
  *out << placement.NumberBits << " bits from byte " << placement.StartByte << " bit "
       << placement.OffsetBit << (placement.LittleEndian ? " little" : " big");
}
void PrintTo(const FrameBit& bit, std::ostream* out) {
  *out << bit.byte << "/" << bit.cell;
}
} // namespace kelmar

namespace {

using Cells = std::set<std::pair<std::int64_t, int>>;

/// The slow and obvious way: one step a bit.
std::vector<FrameBit> walked(const BitPlacement& placement, std::int32_t frameBytes) {
  std::vector<FrameBit> bits;
  std::int32_t byte = placement.StartByte - 1;
  int bit = placement.OffsetBit;
  for (int step = 0; step < placement.NumberBits && byte < frameBytes; ++step) {
    if (byte >= 0) bits.push_back({byte, placement.LittleEndian ? bit : 7 - bit});
    if (++bit == 8) {
      bit = 0;
      ++byte;
    }
  }
  return bits;
}

Cells cellsOf(const std::vector<FrameBit>& bits) {
  Cells cells;
  for (const FrameBit& bit : bits)
    cells.insert({bit.byte, bit.cell});
  return cells;
}

class RandomPlacements : public testing::Test {
 protected:
  static constexpr unsigned seed = 20261121;
  std::mt19937 random{seed};

  void SetUp() override { std::cout << "seed " << seed << "\n"; }
  int number(int low, int high) { return std::uniform_int_distribution(low, high)(random); }
  BitPlacement placement(int highestByte) {
    return {number(0, 40), number(-2, highestByte), number(0, 7), number(0, 1) == 1};
  }
};

TEST(BitPlacementTest, BigEndianRunsFromTheLeftAndGoesOnInTheNextByte) {
  const BitPlacement twelve{12, 4, 0, false};
  EXPECT_EQ(coveredCells(twelve, 2), 0);
  EXPECT_EQ(coveredCells(twelve, 3), 0xFF);
  EXPECT_EQ(coveredCells(twelve, 4), 0xF0);
  EXPECT_EQ(coveredCells(twelve, 5), 0);
  EXPECT_EQ(firstBit(twelve), (FrameBit{3, 7}));
  EXPECT_EQ(lastBit(twelve), (FrameBit{4, 4}));
}

TEST(BitPlacementTest, LittleEndianRunsFromTheRightAndGoesOnInTheNextByte) {
  const BitPlacement twelve{12, 4, 0, true};
  EXPECT_EQ(coveredCells(twelve, 3), 0xFF);
  EXPECT_EQ(coveredCells(twelve, 4), 0x0F);
  EXPECT_EQ(firstBit(twelve), (FrameBit{3, 0}));
  EXPECT_EQ(lastBit(twelve), (FrameBit{4, 3}));
  EXPECT_EQ(coveredCells({3, 1, 2, true}, 0), 0b0001'1100);
  EXPECT_EQ(coveredCells({3, 1, 2, false}, 0), 0b0011'1000);
}

TEST(BitPlacementTest, ADataWithoutBitsCoversNothing) {
  for (const int bits : {0, -5, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(coveredCells({bits, 1, 0, false}, 0), 0);
    EXPECT_TRUE(coveredBits({bits, 1, 0, true}, 4).empty());
    EXPECT_FALSE(overlap({bits, 1, 0, true}, {8, 1, 0, true}));
  }
}

TEST(BitPlacementTest, TheFrameCutsWhatRunsOverItsEndAndWhatLiesBeforeIt) {
  EXPECT_EQ(coveredBits({12, 2, 0, false}, 2).size(), 8u);
  EXPECT_EQ(coveredBits({12, 0, 0, true}, 2),
            (std::vector<FrameBit>{{0, 0}, {0, 1}, {0, 2}, {0, 3}}));
  EXPECT_TRUE(coveredBits({12, 3, 0, false}, 2).empty());
  EXPECT_TRUE(coveredBits({12, 1, 0, false}, 0).empty());
}

TEST(BitPlacementTest, TheGreatestNumbersDoNotRunOver) {
  constexpr int most = std::numeric_limits<int>::max();
  const BitPlacement endless{most, most, 7, false};
  EXPECT_EQ(lastBit(endless).byte, most - 1ll + (7ll + most - 1) / 8);
  EXPECT_TRUE(coversBit(endless, {most - 1ll, 0}));
  EXPECT_TRUE(overlap(endless, endless));
  EXPECT_TRUE(overlap({most, 1, 0, false}, {1, 4095, 3, true}));
  EXPECT_EQ(coveredBits({most, 1, 0, true}, 4).size(), 32u);
}

TEST(BitPlacementTest, ACellOutsideTheByteIsNotCovered) {
  EXPECT_FALSE(coversBit({8, 1, 0, false}, {0, 8}));
  EXPECT_FALSE(coversBit({8, 1, 0, false}, {0, -1}));
  EXPECT_FALSE(coversBit({8, 1, 0, false}, {-1, 0}));
}

TEST(BitPlacementTest, DataOfDifferentOrdersOverlapWhereTheirCellsDo) {
  EXPECT_FALSE(overlap({4, 1, 0, false}, {4, 1, 0, true})); // cells 7..4 and 0..3
  EXPECT_TRUE(overlap({4, 1, 0, false}, {5, 1, 0, true}));
  EXPECT_FALSE(overlap({8, 1, 0, false}, {8, 2, 0, true}));
}

TEST_F(RandomPlacements, AgreeWithAWalkFromBitToBit) {
  for (int round = 0; round < 20'000; ++round) {
    const BitPlacement one = placement(7);
    const int frame = number(0, 6);
    const std::vector<FrameBit> bits = walked(one, frame);
    ASSERT_EQ(coveredBits(one, frame), bits) << testing::PrintToString(one);
    const Cells cells = cellsOf(walked(one, 100));
    for (int byte = 0; byte < 14; ++byte)
      for (int cell = 0; cell < 8; ++cell)
        ASSERT_EQ(coversBit(one, {byte, cell}), cells.contains({byte, cell}))
            << testing::PrintToString(one) << " at " << byte << "/" << cell;
  }
}

TEST_F(RandomPlacements, OverlapWhenTheWalksShareACell) {
  int shared = 0;
  for (int round = 0; round < 20'000; ++round) {
    BitPlacement one = placement(5), other = placement(5);
    one.StartByte += 3; // the walk knows no bytes before the frame
    other.StartByte += 3;
    const Cells cells = cellsOf(walked(one, 100));
    bool common = false;
    for (const FrameBit& bit : walked(other, 100))
      common = common || cells.contains({bit.byte, bit.cell});
    shared += common;
    ASSERT_EQ(overlap(one, other), common)
        << testing::PrintToString(one) << " and " << testing::PrintToString(other);
    ASSERT_EQ(overlap(other, one), common);
  }
  EXPECT_GT(shared, 1000);
  EXPECT_LT(shared, 19'000);
}

TEST(BitPlacementTest, TheRangeIsToldInWords) {
  const CMultiLangEx texts;
  EXPECT_EQ(rangeInWords({12, 4, 0, false}, texts), "byte 4 bit 7 to byte 5 bit 4");
  EXPECT_EQ(rangeInWords({12, 4, 0, true}, texts), "byte 4 bit 0 to byte 5 bit 3");
  EXPECT_EQ(rangeInWords({1, 4, 2, false}, texts), "byte 4 bit 5");
  EXPECT_EQ(rangeInWords({8, 1, 0, false}, texts), "byte 1 bit 7 to byte 1 bit 0");
}

} // namespace
