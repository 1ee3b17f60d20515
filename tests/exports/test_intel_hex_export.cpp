// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "base/text.h"
#include "exports/intel_hex.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

FrameBuffer frameOf(const std::string& hex) {
  FrameBuffer frame;
  frame.setHexText(hex);
  return frame;
}

/// Bytes 0, 1, 2, ... 255, 0, ...
FrameBuffer countingFrame(int length) {
  FrameBuffer frame;
  frame.setLength(length);
  for (int i = 0; i < length; ++i)
    frame.setByteAt(i + 1, static_cast<std::uint8_t>(i));
  return frame;
}

TEST(IntelHexExport, EmptyFrame_GivesTheFirstAndTheEndRecordOnly) {
  EXPECT_EQ(intelHexOf(FrameBuffer()), ":020000040000FA\r\n:00000001FF");
}

TEST(IntelHexExport, SeventeenBytes_GiveARecordOfSixteenAndOneAtAddress0010) {
  EXPECT_EQ(intelHexOf(countingFrame(17)), ":020000040000FA\r\n"
                                           ":10000000000102030405060708090A0B0C0D0E0F78\r\n"
                                           ":0100100010DF\r\n"
                                           ":00000001FF");
}

TEST(IntelHexExport, SixteenBytes_GiveOneRecordWithoutAnEmptyOneBehind) {
  EXPECT_EQ(intelHexOf(frameOf(std::string(32, 'F'))),
            ":020000040000FA\r\n"
            ":10000000FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF00\r\n"
            ":00000001FF");
}

TEST(IntelHexExport, EachSixtyFourKibibytes_GiveARecordOfType04AtTheirBoundary) {
  const auto lines = split(intelHexOf(countingFrame(3 * 0x10000 + 1)), "\r\n");
  const std::size_t perBlock = 0x10000 / 16;
  ASSERT_EQ(lines.size(), 1 + 3 * (perBlock + 1) + 1 + 1);
  EXPECT_EQ(lines[0], ":020000040000FA");
  EXPECT_EQ(lines[perBlock], ":10FFF000F0F1F2F3F4F5F6F7F8F9FAFBFCFDFEFF89");
  EXPECT_EQ(lines[1 + perBlock], ":020000040001F9");
  EXPECT_EQ(lines[2 + perBlock].substr(0, 9), ":10000000");
  EXPECT_EQ(lines[2 + 2 * perBlock], ":020000040002F8");
  EXPECT_EQ(lines[3 + 3 * perBlock], ":020000040003F7");
  EXPECT_EQ(lines[4 + 3 * perBlock], ":0100000000FF");
  EXPECT_EQ(lines.back(), ":00000001FF");
}

TEST(IntelHexExport, SixtyFourKibibytesToTheByte_GiveNoSecondRecordOfType04) {
  const auto lines = split(intelHexOf(countingFrame(0x10000)), "\r\n");
  ASSERT_EQ(lines.size(), 1 + 0x1000 + 1u);
  EXPECT_EQ(lines[0x1000].substr(0, 9), ":10FFF000");
}

TEST(IntelHexExport, LowerBound_MakesNoDifference) {
  FrameBuffer frame = frameOf("3E00");
  frame.setLowerBound(7);
  EXPECT_EQ(intelHexOf(frame), intelHexOf(frameOf("3E00")));
}

TEST(IntelHexExport, EveryRecord_SumsToAMultipleOf256AndHoldsItsCount) {
  for (const std::string& line : split(intelHexOf(countingFrame(70000)), "\r\n")) {
    ASSERT_EQ(line.at(0), ':');
    const FrameBuffer record = frameOf(line.substr(1));
    unsigned sum = 0;
    for (const std::uint8_t byte : record.bytes())
      sum += byte;
    ASSERT_EQ(sum % 256, 0u) << line;
    ASSERT_EQ(record.Length(), record.ByteAt(1) + 5) << line;
  }
}

TEST(IntelHexExport, File_ReplacesALongerOne) {
  const support::TempFolder folder;
  const std::string file = folder.write("out.hex", std::string(100000, 'x'));
  exportToH86File(frameOf("3E00"), file);
  EXPECT_EQ(support::bytesOf(file), ":020000040000FA\r\n:020000003E00C0\r\n:00000001FF");
}

TEST(IntelHexExport, FileThatCannotBeMade_RaisesWithItsPath) {
  const support::TempFolder folder;
  const std::string file = folder.file("none/out.hex");
  try {
    exportToH86File(frameOf("3E00"), file);
    FAIL() << "it was written";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, FileAccessFailed);
    EXPECT_NE(failure.text.find(file), std::string::npos) << failure.text;
  }
}

TEST(IntelHexExport, FolderOfThatName_RaisesAndStays) {
  const support::TempFolder folder;
  EXPECT_THROW(exportToH86File(frameOf("3E00"), folder.path().string()), Failure);
  EXPECT_TRUE(std::filesystem::is_directory(folder.path()));
}

} // namespace
} // namespace kelmar
