// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

#include <random>

namespace kelmar::testing {
namespace {

constexpr char outOfRange[] = "9 FrameBuffer: Index out of range";

FrameBuffer bufferOf(const std::string& hex) {
  FrameBuffer buffer;
  buffer.setHexText(hex);
  return buffer;
}

TEST(FrameBuffer, StartsEmptyWithLowerBound1) {
  const FrameBuffer buffer;
  EXPECT_EQ(buffer.Length(), 0);
  EXPECT_EQ(buffer.LowerBound(), 1);
  EXPECT_EQ(buffer.HexText(), "");
}

TEST(FrameBuffer, HexTextIsUpperCasePairs) {
  EXPECT_EQ(bufferOf("3e00fF").HexText(), "3E00FF");
  EXPECT_EQ(bufferOf("3E00").ByteAt(1), 0x3E);
  EXPECT_EQ(bufferOf("3E00").Length(), 2);
}

TEST(FrameBuffer, TextThatIsNoPairsOfDigitsFailsAndChangesNothing) {
  FrameBuffer buffer = bufferOf("AB");
  for (const char* text : {"1", "123", "1G", "G1", "12 3", " 12", "0x12", "é", "--"}) {
    EXPECT_EQ(Ecu::failureOf([&] { buffer.setHexText(text); }),
              "13 FrameBuffer.HexText: Type mismatch")
        << text;
    EXPECT_EQ(buffer.HexText(), "AB");
  }
  buffer.setHexText("");
  EXPECT_EQ(buffer.Length(), 0);
}

TEST(FrameBuffer, LengthTruncatesAndExtendsWithZeros) {
  FrameBuffer buffer = bufferOf("010203");
  buffer.setLength(2);
  EXPECT_EQ(buffer.HexText(), "0102");
  buffer.setLength(4);
  EXPECT_EQ(buffer.HexText(), "01020000");
  buffer.setLength(0);
  EXPECT_EQ(buffer.HexText(), "");
  EXPECT_TRUE(Ecu::failureOf([&] { buffer.setLength(-1); }).starts_with("9 "));
}

TEST(FrameBuffer, IndexesStartAtTheLowerBoundAndOutsideRaises) {
  FrameBuffer buffer = bufferOf("0102");
  EXPECT_EQ(Ecu::failureOf([&] { buffer.ByteAt(0); }), outOfRange);
  EXPECT_EQ(Ecu::failureOf([&] { buffer.ByteAt(3); }), outOfRange);
  EXPECT_EQ(Ecu::failureOf([&] { buffer.setByteAt(3, 0); }), outOfRange);
  EXPECT_EQ(Ecu::failureOf([&] { buffer.setByteAt(-2147483647 - 1, 0); }), outOfRange);
  buffer.setLowerBound(0);
  EXPECT_EQ(buffer.ByteAt(0), 1);
  EXPECT_EQ(Ecu::failureOf([&] { buffer.ByteAt(2); }), outOfRange);
  buffer.setLowerBound(-5);
  buffer.setByteAt(-4, 0xAA);
  EXPECT_EQ(buffer.HexText(), "01AA");
}

TEST(FrameBuffer, RangeIsAViewThatWritesIntoTheBuffer) {
  FrameBuffer buffer = bufferOf("0102030405");
  FrameBuffer::View view = buffer.Range(2, 3);
  EXPECT_EQ(view.HexText(), "020304");
  EXPECT_EQ(view.Length(), 3);
  view.setHexText("aabb");
  EXPECT_EQ(buffer.HexText(), "01AABB0405");
  EXPECT_EQ(view.HexText(), "AABB04");
  buffer.setByteAt(4, 0xCC);
  EXPECT_EQ(view.HexText(), "AABBCC") << "a view stays a view";
  view.setByteAt(0, 0x11);
  EXPECT_EQ(buffer.ByteAt(2), 0x11);
  view.setHexText("");
  EXPECT_EQ(buffer.HexText(), "0111BBCC05");
}

TEST(FrameBuffer, ViewRefusesMoreThanItHasAndBadText) {
  FrameBuffer buffer = bufferOf("0102030405");
  FrameBuffer::View view = buffer.Range(2, 2);
  EXPECT_TRUE(Ecu::failureOf([&] { view.setHexText("AABBCC"); }).starts_with("9 "));
  EXPECT_TRUE(Ecu::failureOf([&] { view.setHexText("AAB"); }).starts_with("13 "));
  EXPECT_TRUE(Ecu::failureOf([&] { view.ByteAt(2); }).starts_with("9 "));
  EXPECT_TRUE(Ecu::failureOf([&] { view.setByteAt(-1, 0); }).starts_with("9 "));
  EXPECT_EQ(buffer.HexText(), "0102030405");
}

TEST(FrameBuffer, RangeOutsideTheFrameRaises) {
  FrameBuffer buffer = bufferOf("0102");
  for (const auto& [start, count] : {std::pair(0, 1), {1, 3}, {3, 1}, {1, -1}, {2147483647, 1}})
    EXPECT_TRUE(Ecu::failureOf([&, s = start, c = count] { buffer.Range(s, c); }).starts_with("9 "))
        << start << " " << count;
  EXPECT_EQ(buffer.Range(1, 0).HexText(), "");
  EXPECT_EQ(buffer.Range(3, 0).HexText(), "") << "nothing at the end is inside";
}

TEST(FrameBuffer, ViewOfABufferThatShrankRaises) {
  FrameBuffer buffer = bufferOf("010203");
  FrameBuffer::View view = buffer.Range(2, 2);
  buffer.setLength(2);
  EXPECT_TRUE(Ecu::failureOf([&] { view.HexText(); }).starts_with("9 "));
  EXPECT_TRUE(Ecu::failureOf([&] { view.setHexText("AABB"); }).starts_with("9 "));
  EXPECT_TRUE(Ecu::failureOf([&] { view.ByteAt(1); }).starts_with("9 "));
  EXPECT_EQ(view.ByteAt(0), 2);
  EXPECT_EQ(buffer.HexText(), "0102");
}

TEST(FrameBuffer, RandomWritesMatchAPlainVector) {
  constexpr unsigned seed = 20260121;
  RecordProperty("seed", static_cast<int>(seed));
  std::mt19937 random(seed);
  FrameBuffer buffer;
  std::vector<std::uint8_t> plain;
  for (int step = 0; step < 5000; ++step) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
    const auto pick = [&](int below) {
      return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    const int what = pick(4);
    if (what == 0) {
      const int length = pick(40);
      buffer.setLength(length);
      plain.resize(static_cast<std::size_t>(length));
    } else if (!plain.empty() && what == 1) {
      const int at = pick(static_cast<int>(plain.size()));
      buffer.setByteAt(at + 1, static_cast<std::uint8_t>(step));
      plain[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(step);
    } else if (!plain.empty()) {
      const int start = pick(static_cast<int>(plain.size()));
      const int count = pick(static_cast<int>(plain.size()) - start + 1);
      std::string hex;
      for (int i = 0; i < count; ++i) {
        const int byte = pick(256);
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", static_cast<unsigned>(byte));
        hex += pair;
        plain[static_cast<std::size_t>(start + i)] = static_cast<std::uint8_t>(byte);
      }
      buffer.Range(start + 1, count).setHexText(hex);
    }
    ASSERT_EQ(buffer.bytes(), plain);
  }
}

} // namespace
} // namespace kelmar::testing
