// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "controls/frame_cells.h"
#include "language/multi_lang.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <random>

using namespace kelmar;

namespace {

constexpr std::uint32_t white = 0xFFFFFF, blue = 0xFF0000, green = 65280;

class FrameCellsTest : public testing::Test {
 protected:
  CMultiLangEx texts;
  std::vector<std::int16_t> values = std::vector<std::int16_t>(4096, noByteValue);
  DisplayRespDatas datas;
  FrameContent content{values, 4, &datas, false, {}};

  /// A drawing: per byte its caption and its bits from the left, "." without data, "d" data, "s"
  /// selected, capitals where several lie.
  std::string drawing(int first = 0, int count = 100) {
    std::string text;
    for (const FrameByte& shown : frameBytes(content, first, count)) {
      text += shown.byte.LBbyteCaption() + ": ";
      for (int slot = 0; slot < 8; ++slot) {
        const int cell = shown.byte.cellAt(slot);
        const FrameCellLook& look = shown.looks[static_cast<std::size_t>(cell)];
        const std::uint32_t colour = look.state == FrameCellState::Empty  ? white
                                     : look.state == FrameCellState::Data ? blue
                                                                          : green;
        EXPECT_EQ(shown.byte.BitColor(cell), colour);
        text += look.state == FrameCellState::Empty  ? "."
                : look.state == FrameCellState::Data ? (look.shared ? "D" : "d")
                                                     : (look.shared ? "S" : "s");
      }
      text += " ";
    }
    return text;
  }
};

TEST(DisplayByteBinaryTest, Value_IsTrimmedCutAndShownFromTheLeft) {
  DisplayByteBinary byte;
  EXPECT_EQ(byte.value(), "");
  EXPECT_EQ(byte.Direction(), 0);
  byte.setvalue("  1010000111 ");
  EXPECT_EQ(byte.value(), "10100001");
  EXPECT_EQ(byte.BitText(0), "1"); // cell 0 stands on the left
  EXPECT_EQ(byte.BitText(1), "0");
  EXPECT_EQ(byte.BitText(7), "1");
  byte.setDirection(1);
  EXPECT_EQ(byte.BitText(7), "1"); // the most significant one still on the left
  EXPECT_EQ(byte.BitText(6), "0");
  EXPECT_EQ(byte.slotOf(7), 0);
  EXPECT_EQ(byte.cellAt(0), 7);
  byte.setvalue("11");
  EXPECT_EQ(byte.BitText(7), "1");
  EXPECT_EQ(byte.BitText(5), "");
}

TEST(DisplayByteBinaryTest, Caption_HasTwoDigitsOnceThereIsAValue) {
  DisplayByteBinary byte;
  byte.ByteCaption = "3";
  EXPECT_EQ(byte.binaryValue(), "-1");
  EXPECT_EQ(byte.LBbyteCaption(), "3");
  byte.setbinaryValue("0");
  EXPECT_EQ(byte.LBbyteCaption(), "3 ($00)");
  byte.setbinaryValue("171");
  EXPECT_EQ(byte.LBbyteCaption(), "3 ($AB)");
  EXPECT_THROW(byte.setbinaryValue("x"), Failure);
  EXPECT_EQ(byte.binaryValue(), "171");
}

TEST(DisplayByteBinaryTest, SetBitValue_PatchesTheValue) {
  DisplayByteBinary byte;
  byte.setDirection(1);
  byte.setvalue("00000000");
  byte.SetBitValue(7, "1");
  byte.SetBitValue(0, "10");
  EXPECT_EQ(byte.value(), "10000001");
  byte.SetBitValue(7, "");
  EXPECT_EQ(byte.value(), " 0000001");
  EXPECT_EQ(byte.BitText(7), "");
}

TEST(DisplayByteBinaryTest, Cells_OutsideTheByteAreRefusedByName) {
  DisplayByteBinary byte;
  for (const int cell : {-1, 8, 1000}) {
    try {
      byte.SetBitColor(cell, 0);
      FAIL() << "cell " << cell << " was taken";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, 1);
      EXPECT_EQ(failure.text, "Invalid bit number");
    }
    EXPECT_THROW(byte.SetBitValue(cell, "1"), Failure);
    EXPECT_THROW(byte.BitText(cell), Failure);
    EXPECT_THROW(byte.BitColor(cell), Failure);
  }
}

TEST(DisplayByteBinaryTest, Clear_KeepsTheValueAndClearAllDropsIt) {
  DisplayByteBinary byte;
  byte.DefaultColor = 0x123456;
  byte.setvalue("11111111");
  byte.setbinaryValue("255");
  byte.SetBitsColor(1);
  byte.SetBitColor(3, 2);
  EXPECT_EQ(byte.BitColor(3), 2u);
  EXPECT_EQ(byte.BitColor(4), 1u);
  byte.clear();
  EXPECT_EQ(byte.BitColor(3), 0x123456u);
  EXPECT_EQ(byte.BitText(3), "");
  EXPECT_EQ(byte.value(), "11111111");
  byte.ClearAll();
  EXPECT_EQ(byte.value(), "");
  EXPECT_EQ(byte.binaryValue(), "-1");
}

TEST(DisplayRespDatasTest, FindsTheFirstOfEqualValuesAndKeepsKeys) {
  DisplayRespDatas datas;
  DisplayRespData* first = datas.Add(8, 1, 0, false, false, "m");
  DisplayRespData* twin = datas.Add(8, 1, 0, true, true);
  DisplayRespData* keyed = datas.Add(3, 2, 4, false, false, "", "Speed");
  EXPECT_EQ(first->Mark, "m");
  EXPECT_EQ(datas.FindItem(8, 1, 0), first);
  EXPECT_EQ(datas.FindItem(8, 1, 1), nullptr);
  EXPECT_EQ(datas.Item("speed"), keyed);
  EXPECT_EQ(datas.Item(2), twin);
  EXPECT_THROW(datas.Add(1, 1, 1, false, false, "", "SPEED"), Failure);
  EXPECT_EQ(datas.Count(), 3);
  datas.UnselectAll();
  EXPECT_FALSE(twin->Selected);
  datas.RemoveItem(8, 1, 0);
  EXPECT_EQ(datas.FindItem(8, 1, 0), twin);
  datas.RemoveItem(9, 9, 9);
  EXPECT_EQ(datas.Count(), 2);
  datas.Remove(1);
  EXPECT_EQ(datas.Item(1), keyed);
}

TEST_F(FrameCellsTest, AByteNeverSetIsEmptyAndZeroIsNot) {
  values[2] = 0;
  values[3] = 0xAB;
  const auto bytes = frameBytes(content, 0, 10);
  ASSERT_EQ(bytes.size(), 4u);
  EXPECT_EQ(bytes[0].byte.LBbyteCaption(), "1");
  EXPECT_EQ(bytes[0].byte.BitText(0), "");
  EXPECT_EQ(bytes[2].byte.value(), "00000000");
  EXPECT_EQ(bytes[2].byte.LBbyteCaption(), "3 ($00)");
  EXPECT_EQ(bytes[3].byte.value(), "10101011");
  EXPECT_EQ(bytes[3].byte.LBbyteCaption(), "4 ($AB)");
}

TEST_F(FrameCellsTest, DataAreDrawnFromTheirEndOfTheByte) {
  datas.Add(12, 1, 0, false, false);
  datas.Add(3, 3, 2, true, false);
  EXPECT_EQ(drawing(), "1: dddddddd 2: dddd.... 3: ...ddd.. 4: ........ ");
}

TEST_F(FrameCellsTest, TwoUnselectedDataShareCellsInOneColour) {
  datas.Add(8, 1, 0, false, false);
  datas.Add(8, 1, 4, false, false);
  EXPECT_EQ(drawing(), "1: ddddDDDD 2: dddd.... 3: ........ 4: ........ ");
}

TEST_F(FrameCellsTest, ASelectedDataKeepsItsColourOnEverySharedBit) {
  datas.Add(8, 1, 4, false, true);
  datas.Add(16, 1, 0, false, false); // later in the list, and below all the same
  EXPECT_EQ(drawing(), "1: ddddSSSS 2: SSSSdddd 3: ........ 4: ........ ");
}

TEST_F(FrameCellsTest, ADataOverTheEndIsCutAndOneThatStartsOutsideIsNotShown) {
  datas.Add(20, 4, 4, false, false);
  datas.Add(8, 5, 0, false, false);
  datas.Add(40, 0, 0, false, false);
  datas.Add(40, -1, 0, false, false);
  datas.Add(0, 1, 0, false, false);
  EXPECT_EQ(drawing(), "1: ........ 2: ........ 3: ........ 4: ....dddd ");
}

TEST_F(FrameCellsTest, OnlyTheBytesThatAreSeenAreComputed) {
  content.NumberBytes = 4095;
  datas.Add(4095 * 8, 1, 0, false, false);
  EXPECT_EQ(drawing(4000, 2), "4001: dddddddd 4002: dddddddd ");
  EXPECT_EQ(drawing(4094, 5), "4095: dddddddd ");
  EXPECT_EQ(drawing(-1, 2), "1: dddddddd ");
  EXPECT_EQ(drawing(4095, 5), "");
  EXPECT_EQ(drawing(0, 0), "");
  EXPECT_EQ(drawing(0, -3), "");
}

TEST_F(FrameCellsTest, WithoutPlacementsCellsHaveTheDefaultColourAndAmongDataTheyAreWhite) {
  content.colours.DefaultColor = 0x112233;
  EXPECT_EQ(frameBytes(content, 0, 1)[0].byte.BitColor(5), 0x112233u);
  content.datas = nullptr;
  EXPECT_EQ(frameBytes(content, 0, 1)[0].byte.BitColor(5), 0x112233u);
  content.datas = &datas;
  datas.Add(1, 1, 0, false, false);
  EXPECT_EQ(frameBytes(content, 0, 1)[0].byte.BitColor(5), white);
}

TEST_F(FrameCellsTest, TheMarkStandsOnTheFirstBitOfTheDataOnTop) {
  datas.Add(4, 1, 0, false, false, "x");
  EXPECT_EQ(frameBytes(content, 0, 1)[0].looks[7].mark, "x");
  EXPECT_EQ(frameBytes(content, 0, 1)[0].looks[6].mark, "");
  datas.Add(8, 1, 0, true, true, "y");
  EXPECT_EQ(frameBytes(content, 0, 1)[0].looks[7].mark, "");
  EXPECT_EQ(frameBytes(content, 0, 1)[0].looks[0].mark, "y");
}

TEST_F(FrameCellsTest, LittleEndianNumbersTheCellsFromTheLeft) {
  content.LittleEndian = true;
  values[0] = 0b1000'0000;
  datas.Add(1, 1, 0, true, false);
  const auto bytes = frameBytes(content, 0, 1);
  EXPECT_EQ(bytes[0].byte.cellAt(0), 0);
  EXPECT_EQ(bytes[0].byte.BitText(0), "1");
  EXPECT_EQ(bytes[0].looks[0].state, FrameCellState::Data);
}

TEST_F(FrameCellsTest, RandomPlacementsArePaintedAsStepByStep) {
  constexpr unsigned seed = 35;
  std::cout << "seed " << seed << "\n";
  std::mt19937 random(seed);
  const auto number = [&](int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
  };
  for (int round = 0; round < 3000; ++round) {
    content.NumberBytes = number(0, 12);
    datas.clear();
    for (int i = number(0, 5); i > 0; --i)
      datas.Add(number(0, 30), number(-1, 14), number(0, 7), number(0, 1) == 1, number(0, 2) == 0);
    const int first = number(0, 6), count = number(0, 8);
    std::vector<std::array<std::uint32_t, 8>> painted(
        static_cast<std::size_t>(content.NumberBytes),
        {white, white, white, white, white, white, white, white});
    for (const bool selected : {false, true})
      for (const DisplayRespData* data : datas) {
        if (data->Selected != selected) continue;
        int b = data->StartByte - 1, k = data->OffsetBit;
        if (b < 0 || b >= content.NumberBytes) continue;
        for (int step = 0; step < data->NumberBits && b < content.NumberBytes; ++step) {
          painted[static_cast<std::size_t>(b)]
                 [static_cast<std::size_t>(data->LittleEndian ? k : 7 - k)] =
                     selected ? green : blue;
          if (++k == 8) {
            k = 0;
            ++b;
          }
        }
      }
    int expected = first;
    for (const FrameByte& shown : frameBytes(content, first, count)) {
      ASSERT_EQ(shown.index, expected++);
      for (int cell = 0; cell < 8; ++cell)
        ASSERT_EQ(shown.byte.BitColor(cell),
                  painted[static_cast<std::size_t>(shown.index)][static_cast<std::size_t>(cell)]);
    }
    ASSERT_EQ(expected, std::max(first, std::min(first + count, content.NumberBytes)));
  }
}

TEST_F(FrameCellsTest, ToolTip_NamesTheDataOnTopFirstWithTheirRanges) {
  content.NumberBytes = 8;
  datas.Add(12, 4, 0, false, false)->Name = "Speed";
  datas.Add(1, 4, 0, false, false)->Name = "Flag";
  datas.Add(8, 4, 0, false, true);
  EXPECT_EQ(toolTipOfBit(content, {4, 5}, texts), "Speed: byte 4 bit 7 to byte 5 bit 4");
  EXPECT_EQ(toolTipOfBit(content, {3, 7}, texts),
            "byte 4 bit 7 to byte 4 bit 0\nFlag: byte 4 bit 7\n"
            "Speed: byte 4 bit 7 to byte 5 bit 4");
  EXPECT_EQ(toolTipOfBit(content, {4, 3}, texts), "");
  EXPECT_EQ(toolTipOfBit(content, {99, 3}, texts), "");
  EXPECT_EQ(toolTipOfBit(content, {-1, 3}, texts), "");
}

TEST_F(FrameCellsTest, NameOfBit_SaysPlaceValueAndData) {
  EXPECT_EQ(nameOfBit(content, {0, 7}, texts), "byte 1 bit 7");
  values[0] = 0x80;
  EXPECT_EQ(nameOfBit(content, {0, 7}, texts), "byte 1 bit 7 = 1");
  EXPECT_EQ(nameOfBit(content, {0, 6}, texts), "byte 1 bit 6 = 0");
  datas.Add(2, 1, 0, false, true)->Name = "Flag";
  EXPECT_EQ(nameOfBit(content, {0, 7}, texts),
            "byte 1 bit 7 = 1, Flag: byte 1 bit 7 to byte 1 bit 6 (selected)");
}

TEST(FrameLayoutTest, BytesThatFit_AtLeastOne) {
  const FrameLayout layout{.cellWidth = 10, .byteGap = 20};
  EXPECT_EQ(layout.byteWidth(), 100);
  EXPECT_EQ(layout.bytesThatFit(0), 1);
  EXPECT_EQ(layout.bytesThatFit(199), 1);
  EXPECT_EQ(layout.bytesThatFit(200), 2);
  EXPECT_EQ(layout.bytesThatFit(-5), 1);
}

TEST(FrameLayoutTest, PlaceAt_FindsCellsToThePixel) {
  const FrameLayout layout{
      .cellWidth = 10, .byteGap = 20, .captionHeight = 16, .numberHeight = 4, .cellHeight = 30};
  for (int place = 0; place < 3; ++place)
    for (int slot = 0; slot < 8; ++slot)
      for (const int pixel : {0, 9}) {
        const int x = layout.cellLeft(place, slot) + pixel;
        EXPECT_EQ(placeAt(layout, x, 20, 3), (FramePlace{place, slot}));
        EXPECT_EQ(placeAt(layout, x, 49, 3), (FramePlace{place, slot}));
        EXPECT_FALSE(placeAt(layout, x, 19, 3).found());
        EXPECT_FALSE(placeAt(layout, x, 50, 3).found());
      }
  EXPECT_FALSE(placeAt(layout, 9, 25, 3).found());
  EXPECT_FALSE(placeAt(layout, 90, 25, 3).found()); // between two bytes
  EXPECT_TRUE(placeAt(layout, 110, 25, 3).found());
  EXPECT_FALSE(placeAt(layout, 110, 25, 1).found());
  EXPECT_FALSE(placeAt(layout, -3, 25, 1).found());
}

TEST(FrameLayoutTest, FirstVisible_MovesOnlyForBytesThatAreNotSeen) {
  EXPECT_EQ(firstVisibleFor(5, 3, 4, 20), 3);
  EXPECT_EQ(firstVisibleFor(6, 3, 4, 20), 3);
  EXPECT_EQ(firstVisibleFor(7, 3, 4, 20), 7);
  EXPECT_EQ(firstVisibleFor(2, 3, 4, 20), 2);
  EXPECT_EQ(firstVisibleFor(19, 3, 4, 20), 16);
  EXPECT_EQ(firstVisibleFor(500, 3, 4, 20), 16);
  EXPECT_EQ(firstVisibleFor(-1, 3, 4, 20), 0);
  EXPECT_EQ(firstVisibleFor(3, 2, 8, 8), 0);
  EXPECT_EQ(firstVisibleFor(3, 2, 0, 0), 0);
}

TEST(FrameLayoutTest, MovedPlace_StaysInTheFrame) {
  const struct {
    int from;
    BitMove move;
    int to;
  } table[] = {
      {0, BitMove::Left, 0},     {0, BitMove::Right, 1},    {7, BitMove::Right, 8},
      {9, BitMove::ByteBack, 1}, {3, BitMove::ByteBack, 0}, {1, BitMove::ByteOn, 9},
      {1, BitMove::PageOn, 33},  {79, BitMove::PageOn, 79}, {40, BitMove::PageBack, 8},
      {40, BitMove::First, 0},   {40, BitMove::Last, 79},   {79, BitMove::Right, 79},
  };
  for (const auto& row : table)
    EXPECT_EQ(movedPlace(row.from, row.move, 4, 10), row.to) << row.from;
  EXPECT_EQ(movedPlace(0, BitMove::Right, 0, 0), 0);
}

TEST(FrameLayoutTest, TextColour_CanBeReadOnEveryCell) {
  EXPECT_EQ(textColourOn(white), 0u);
  EXPECT_EQ(textColourOn(blue), white);
  EXPECT_EQ(textColourOn(green), 0u);
  EXPECT_EQ(textColourOn(0), white);
  EXPECT_EQ(textColourOn(0x808080), 0u);
}

} // namespace
