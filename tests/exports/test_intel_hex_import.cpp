// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "base/text.h"
#include "exports/hex_lines.h"
#include "exports/intel_hex.h"
#include "language/multi_lang.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace kelmar {
namespace {

using support::endRecord;
using support::fileOf;
using support::record;

constexpr int longest = 4095;

/// What the file gives; its failure as "NUMBER TEXT".
std::string imported(const std::string& text, int maxLength = longest) {
  support::ScriptedPerson person;
  try {
    return bytesOfIntelHex(text, maxLength, person);
  } catch (const Failure& failure) {
    return std::to_string(failure.number) + " " + failure.text;
  }
}

/// The same for a file that makes the box about its line ends.
std::string importedWithBox(const std::string& text, int maxLength = longest) {
  support::ScriptedPerson person;
  person.expect("REQUESTS/MSG/importFromH86File/lineDelimiterWarning/text", "Kelmar",
                "File should use CRLF as line delimiter.", platform::Buttons::Ok,
                platform::Icon::Exclamation, platform::Answer::Ok);
  try {
    return bytesOfIntelHex(text, maxLength, person);
  } catch (const Failure& failure) {
    return std::to_string(failure.number) + " " + failure.text;
  }
}

std::string hexOf(const std::vector<unsigned>& bytes) {
  FrameBuffer frame;
  frame.setLength(static_cast<int>(bytes.size()));
  for (std::size_t i = 0; i < bytes.size(); ++i)
    frame.setByteAt(static_cast<int>(i) + 1, static_cast<std::uint8_t>(bytes[i]));
  return frame.HexText();
}

TEST(IntelHexImport, WhatWasExported_ComesBack) {
  for (const int length : {1, 2, 15, 16, 17, 255, 256, 4095, 0x10000, 0x10001, 200000}) {
    FrameBuffer frame;
    frame.setLength(length);
    for (int i = 1; i <= length; ++i)
      frame.setByteAt(i, static_cast<std::uint8_t>(i * 7 + i / 256));
    EXPECT_TRUE(imported(intelHexOf(frame), length) == frame.HexText()) << length;
  }
}

TEST(IntelHexImport, RecordLengths_MayBeAny) {
  const std::vector<unsigned> many(255, 0xA5);
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), record(1, 0, {2, 3, 4}), record(4, 0, {}),
                             record(4, 0, many), endRecord})),
            "01020304" + hexOf(many));
}

TEST(IntelHexImport, Order_MakesNoDifference) {
  EXPECT_EQ(imported(fileOf({record(2, 0, {3, 4}), record(0, 0, {1, 2}), endRecord})), "01020304");
}

TEST(IntelHexImport, Gaps_HoldZeros) {
  EXPECT_EQ(imported(fileOf({record(1, 0, {1}), record(4, 0, {2}), endRecord})), "0001000002");
}

TEST(IntelHexImport, OverlappingRecords_LeaveTheLaterBytes) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1, 2, 3}), record(1, 0, {9}), endRecord})), "010903");
}

TEST(IntelHexImport, LowerCase_IsRead) {
  EXPECT_EQ(imported(lowerCase(fileOf({record(0, 0, {0xAB, 0xCD, 0xEF}), endRecord}))), "ABCDEF");
}

TEST(IntelHexImport, RecordsBehindTheEndRecord_StillCount) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), endRecord, record(1, 0, {2})})), "0102");
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), endRecord, "rest"})), "1000 : missing at line 3");
}

TEST(IntelHexImport, MissingEndRecord_IsNoError) {
  EXPECT_EQ(imported(record(0, 0, {1}) + "\r\n"), "01");
}

TEST(IntelHexImport, SegmentAddress_CountsSixteenfold) {
  EXPECT_EQ(imported(fileOf({record(0, 2, {0x00, 0x01}), record(1, 0, {7}), endRecord})),
            std::string(34, '0') + "07");
}

TEST(IntelHexImport, LinearAddress_CountsSixtyFourKibibytes) {
  const std::string hex =
      imported(fileOf({record(0, 4, {0x00, 0x01}), record(2, 0, {7}), endRecord}), 0x10003);
  EXPECT_EQ(hex.size(), 2u * 0x10003);
  EXPECT_EQ(hex.find_first_not_of('0'), 2u * 0x10002 + 1);
}

TEST(IntelHexImport, AddressRecord_ReplacesTheOneBefore) {
  EXPECT_EQ(imported(fileOf({record(0, 4, {0xFF, 0xFF}), record(0, 2, {0, 0}), record(0, 0, {1}),
                             record(0, 2, {0xFF, 0xFF}), record(0, 4, {0, 0}), record(1, 0, {2}),
                             endRecord})),
            "0102");
}

TEST(IntelHexImport, AddressRecord_ReadsItsFirstTwoBytes) {
  EXPECT_EQ(imported(fileOf({record(0, 2, {0, 0, 0x55}), record(0, 0, {1})})), "01");
}

TEST(IntelHexImport, AddressRecordWithoutAnAddress_IsABadLength) {
  EXPECT_EQ(imported(fileOf({record(0, 4, {})})), "1000 Bad length at line 1");
  EXPECT_EQ(imported(fileOf({record(0, 2, {1})})), "1000 Bad length at line 1");
}

TEST(IntelHexImport, OtherRecordTypes_StopWithTheirTypeInHexadecimal) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), record(0, 3, {0, 0, 0, 0}), endRecord})),
            "1000 Unsupported record type 3H at line 2");
  EXPECT_EQ(imported(fileOf({record(0, 5, {0, 0, 0, 0})})),
            "1000 Unsupported record type 5H at line 1");
  EXPECT_EQ(imported(fileOf({record(0, 0x1F, {})})), "1000 Unsupported record type 1FH at line 1");
}

TEST(IntelHexImport, LineWithoutColon_IsNamed) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), "020000003E00C0"})), "1000 : missing at line 2");
  EXPECT_EQ(imported(" " + endRecord), "1000 : missing at line 1");
  EXPECT_EQ(imported("\xEF\xBB\xBF" + endRecord), "1000 : missing at line 1");
}

TEST(IntelHexImport, WrongChecksum_IsNamedBeforeTheLength) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), ":0100010003FA"})),
            "1000 Checksum error at line 2");
  EXPECT_EQ(imported(":05000000FF\r\n"), "1000 Checksum error at line 1");
}

TEST(IntelHexImport, WrongCount_IsNamedBeforeTheType) {
  EXPECT_EQ(imported(":0200000003FB\r\n"), "1000 Bad length at line 1");
  EXPECT_EQ(imported(":0200000303F8\r\n"), "1000 Bad length at line 1");
}

TEST(IntelHexImport, RecordTooShortForItsParts_IsABadLength) {
  for (const char* line : {":", ":00", ":0000", ":000000", ":00000000", ":FF01"})
    EXPECT_EQ(imported(std::string(line) + "\r\n"), "1000 Bad length at line 1") << line;
}

TEST(IntelHexImport, TextThatIsNotHexadecimal_FailsWithTheTextOfTheBuffer) {
  for (const char* line : {":0", ":0x", ":00 000001FF", ":00000001FF\t", "::00000001FF"})
    EXPECT_EQ(imported(std::string(line) + "\r\n"), "1000 Type mismatch") << line;
  EXPECT_EQ(imported(std::string(":00\0", 4) + "\r\n"), "1000 Type mismatch");
}

TEST(IntelHexImport, EmptyLinesAndBlanksAtTheEnd_AreSkippedAndCounted) {
  EXPECT_EQ(imported("\r\n   \r\n" + record(0, 0, {1}) + "  \r\n\r\n" + endRecord), "01");
  EXPECT_EQ(imported("\r\n  \r\nx"), "1000 : missing at line 3");
}

TEST(IntelHexImport, FileWithoutData_IsAnEmptyFile) {
  for (const std::string& text :
       {std::string(), std::string("\r\n"), std::string("    "), endRecord,
        fileOf({record(0, 4, {0, 0}), endRecord}), fileOf({record(0x100, 0, {}), endRecord})})
    EXPECT_EQ(imported(text), "1000 Empty file") << text;
}

TEST(IntelHexImport, LineFeeds_AreReadAfterTheBox) {
  EXPECT_EQ(importedWithBox(fileOf({record(0, 0, {1}), endRecord}, "\n")), "01");
  EXPECT_EQ(importedWithBox("\n"), "1000 Empty file");
  EXPECT_EQ(importedWithBox(record(0, 0, {1}) + "\n"), "01");
  EXPECT_EQ(importedWithBox(fileOf({record(0, 0, {1}), ":01"}, "\n")),
            "1000 Checksum error at line 2");
}

TEST(IntelHexImport, OneLineWithoutEnd_IsReadWithoutABox) {
  EXPECT_EQ(imported(record(0, 0, {1})), "01");
}

TEST(IntelHexImport, MixedLineEnds_AreSplitAtCrLfAndFailWhereLinesHangTogether) {
  EXPECT_EQ(imported(record(0, 0, {1}) + "\r\n" + record(1, 0, {2}) + "\n" + endRecord),
            "1000 Type mismatch");
  EXPECT_EQ(imported(record(0, 0, {1}) + "\r\n" + endRecord + "\n"), "1000 Type mismatch");
  EXPECT_EQ(imported(record(0, 0, {1}) + "\r\n\n" + endRecord), "1000 : missing at line 2");
}

TEST(IntelHexImport, CarriageReturnsAlone_AreNoLineEnds) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), endRecord}, "\r")), "1000 Type mismatch");
}

TEST(IntelHexImport, LengthLimit_IsOfTheWholeImage) {
  const std::vector<unsigned> half(128, 1);
  const auto text = [&](unsigned address) {
    return fileOf({record(0, 0, half), record(address, 0, half), endRecord});
  };
  EXPECT_EQ(imported(text(127), 255).size(), 510u);
  EXPECT_EQ(imported(text(128), 255), "1000 Empty file");
  EXPECT_EQ(imported(text(128), 256).size(), 512u);
  EXPECT_EQ(imported(fileOf({record(254, 0, {1})}), 255).size(), 510u);
  EXPECT_EQ(imported(fileOf({record(255, 0, {1})}), 255), "1000 Empty file");
  EXPECT_EQ(imported(fileOf({record(0, 0, {1})}), 0), "1000 Empty file");
  EXPECT_EQ(imported(fileOf({record(0, 0, {1})}), -1), "1000 Empty file");
}

TEST(IntelHexImport, FileThatIsTooBig_IsToldInTheWordsOfTheLanguageFile) {
  const support::TempFolder folder;
  CMultiLangEx texts;
  ASSERT_TRUE(texts.loadXmlLanguageFile(folder.write(
      "texts.xml", "<software><REQUESTS><MSG><importFromH86File><TooBig><text>{1} of {0}</text>"
                   "</TooBig></importFromH86File></MSG></REQUESTS></software>")));
  language::setGlobal(&texts);
  EXPECT_EQ(imported(fileOf({record(0, 0, {1, 2, 3, 4}), endRecord}), 3), "1000 4 of 3");
  // The last byte that an address can name.
  EXPECT_EQ(imported(fileOf({record(0, 4, {0xFF, 0xFF}), record(0xFFFF, 0, {1})})),
            "1000 4294967296 of 4095");
  EXPECT_EQ(imported(fileOf({record(0, 4, {0xFF, 0xFF}), record(0xFFFF, 0, {1, 2})})),
            "1000 4294967297 of 4095");
  language::setGlobal(nullptr);
}

TEST(IntelHexImport, GapOfFourGigabytes_IsRefusedWithoutTakingItsMemory) {
  EXPECT_EQ(imported(fileOf({record(0, 0, {1}), record(0, 4, {0xFF, 0xFF}), record(0xFFF0, 0, {2}),
                             endRecord})),
            "1000 Empty file");
}

TEST(IntelHexImport, ErrorInALaterLine_ComesBeforeTheLength) {
  EXPECT_EQ(imported(fileOf({record(0, 4, {1, 0}), record(0, 0, {1}), record(0, 3, {0, 0})})),
            "1000 Unsupported record type 3H at line 3");
}

TEST(IntelHexImport, File_IsReadAsItIs) {
  const support::TempFolder folder;
  support::ScriptedPerson person;
  EXPECT_EQ(importFromH86File(folder.write("in.hex", fileOf({record(0, 0, {1}), endRecord})),
                              longest, person),
            "01");
}

TEST(IntelHexImport, FileThatCannotBeRead_FailsLikeAllOthers) {
  const support::TempFolder folder;
  support::ScriptedPerson person;
  for (const std::string& file : {folder.file("none.hex"), folder.path().string()}) {
    try {
      importFromH86File(file, longest, person);
      FAIL() << "it was read";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, 1000);
      EXPECT_NE(failure.text.find(file), std::string::npos) << failure.text;
    }
  }
}

TEST(IntelHexImport, MegabyteFromAnotherTool_IsReadWhole) {
  std::vector<std::string> lines;
  std::string expected;
  std::mt19937 random(20260102);
  for (unsigned address = 0; address < 1u << 20;) {
    if (address % 0x10000 == 0) lines.push_back(record(0, 4, {0, address >> 16}));
    const unsigned count =
        std::min({1 + static_cast<unsigned>(random()) % 64, 0x10000 - address % 0x10000});
    std::vector<unsigned> data(count);
    for (unsigned& byte : data)
      byte = random() % 256;
    lines.push_back(record(address % 0x10000, 0, data));
    expected += hexOf(data);
    address += count;
  }
  lines.push_back(endRecord);
  EXPECT_TRUE(imported(lowerCase(fileOf(lines)), 1 << 20) == expected);
  EXPECT_EQ(imported(fileOf(lines), (1 << 20) - 1), "1000 Empty file");
}

TEST(IntelHexImport, DamagedFiles_GiveAFrameOrAnErrorOfTheList) {
  const std::string whole =
      fileOf({record(0, 4, {0, 0}), record(0, 0, {1, 2, 3}), record(3, 0, {4}), endRecord});
  std::mt19937 random(7);
  const std::string characters = std::string(":0123456789ABCDEFabcdef \r\n\tzé\0", 31);
  class : public platform::Person {
   public:
    platform::Answer message(const platform::Box&) override { return platform::Answer::Ok; }
    std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }
  } quiet;
  for (int round = 0; round < 20000; ++round) {
    std::string text = whole;
    for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
      const std::size_t at = random() % text.size();
      if (random() % 3 == 0)
        text.erase(at, 1);
      else
        text[at] = characters[random() % characters.size()];
    }
    try {
      const std::string hex = bytesOfIntelHex(text, longest, quiet);
      FrameBuffer frame;
      ASSERT_NO_THROW(frame.setHexText(hex)) << text;
      ASSERT_TRUE(frame.Length() > 0 && frame.Length() <= longest) << text;
    } catch (const Failure& failure) {
      ASSERT_EQ(failure.number, 1000) << text;
      ASSERT_FALSE(failure.text.empty()) << text;
    }
  }
}

} // namespace
} // namespace kelmar
