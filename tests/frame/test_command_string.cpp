// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/command_string.h"

#include "base/version.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kelmar::frame {

namespace {

constexpr Extent screen{1366 * 15, 768 * 15}; // 20490 x 11520

RequestedPosition position(const std::string& text) {
  return requestedPosition(text, screen);
}

} // namespace

TEST(RequestedPosition, TwoNumbersAreLeftAndTop) {
  EXPECT_EQ(position("100,200"), (RequestedPosition{100, 200}));
  EXPECT_EQ(position(" 100 , 200 "), (RequestedPosition{100, 200}));
  EXPECT_EQ(position("0,0"), (RequestedPosition{0, 0}));
}

TEST(RequestedPosition, OneItemOrThreeAreIgnored) {
  for (const char* text : {"", "100", "1,2,3", "100,200,"})
    EXPECT_EQ(position(text), RequestedPosition{}) << text;
}

TEST(RequestedPosition, ItemThatIsNoNumberIsNoWish) {
  EXPECT_EQ(position("abc,200"), (RequestedPosition{-1, 200}));
  EXPECT_EQ(position("100,"), (RequestedPosition{100, -1}));
}

TEST(RequestedPosition, ItemBelowZeroIsNoWish) {
  EXPECT_EQ(position("-5,200"), (RequestedPosition{-1, 200}));
  EXPECT_EQ(position("200,-5"), (RequestedPosition{200, -1}));
}

TEST(RequestedPosition, ItemWithinEightPixelsOfTheEndIsNoWish) {
  EXPECT_EQ(position("20370,11400"), (RequestedPosition{20370, 11400}));
  EXPECT_EQ(position("20371,200"), (RequestedPosition{-1, 200}));
  EXPECT_EQ(position("200,11401"), (RequestedPosition{200, -1}));
}

TEST(RequestedPosition, NumberIsRoundedToAnInteger) {
  EXPECT_EQ(position("240.5,241.5"), (RequestedPosition{240, 242}));
}

TEST(RequestedPosition, NumberBeyond32BitsIsNoWish) {
  EXPECT_EQ(position("99999999999,200"), (RequestedPosition{-1, 200}));
}

TEST(PositionOfNextWindow, LiesSixteenPixelsDownAndRight) {
  EXPECT_EQ(positionOfNextWindow(1005, 570), "1245,810");
  EXPECT_EQ(positionOfNextWindow(0.5, -240), "240.5,0");
  EXPECT_EQ(position(positionOfNextWindow(1005, 570)), (RequestedPosition{1245, 810}));
}

TEST(CommandLine, OptionsTakeTheirValuesInBothForms) {
  CommandLine line = readCommandLine({"--site", "/a/site", "--lang=fr"});
  EXPECT_EQ(line.mistake, "");
  EXPECT_EQ(line.site, "/a/site");
  EXPECT_EQ(line.language, "fr");
  line = readCommandLine({"--site=/b", "--lang", "en"});
  EXPECT_EQ(line.site, "/b");
  EXPECT_EQ(line.language, "en");
}

TEST(CommandLine, HelpAndVersionAreTold) {
  EXPECT_TRUE(readCommandLine({"--help"}).help);
  EXPECT_TRUE(readCommandLine({"100,200", "--version"}).version);
  EXPECT_NE(commandLineHelp().find("--site DIR"), std::string::npos);
}

TEST(CommandLine, WrongOptionIsAMistake) {
  EXPECT_EQ(readCommandLine({"--sites", "x"}).mistake, "unknown option --sites");
  EXPECT_EQ(readCommandLine({"-x"}).mistake, "unknown option -x");
  EXPECT_EQ(readCommandLine({"--help=yes"}).mistake, "unknown option --help=yes");
  EXPECT_EQ(readCommandLine({"--site"}).mistake, "option --site needs a value");
  EXPECT_EQ(readCommandLine({"--lang="}).mistake, "option --lang needs a value");
}

TEST(CommandLine, NegativePairIsNoOption) {
  const CommandLine line = readCommandLine({"-5,200"});
  EXPECT_EQ(line.mistake, "");
  EXPECT_EQ(line.commandString, "-5,200");
  EXPECT_EQ(readCommandLine({"-.5,200"}).commandString, "-.5,200");
}

TEST(CommandLine, WordsOfThePositionMayStandApart) {
  EXPECT_EQ(position(readCommandLine({"100,", "200"}).commandString),
            (RequestedPosition{100, 200}));
}

TEST(CommandLine, ExistingFileIsOpenedWhateverItsName) {
  const support::TempFolder folder;
  folder.write("100,200", "<x/>");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  const CommandLine line = readCommandLine({"100,200"});
  std::filesystem::current_path(before);
  EXPECT_EQ(line.commandString, "");
  EXPECT_EQ(std::filesystem::path(line.file).filename(), "100,200");
  EXPECT_TRUE(std::filesystem::path(line.file).is_absolute());
}

TEST(CommandLine, MissingFileThatCanOnlyBeOneIsOpenedForItsMessage) {
  EXPECT_EQ(readCommandLine({"/nowhere/ecu"}).file, "/nowhere/ecu");
  EXPECT_TRUE(readCommandLine({"ecu.XML"}).file.ends_with("/ecu.XML"));
  EXPECT_EQ(readCommandLine({"ecu"}).commandString, "ecu");
}

TEST(CommandLine, AddressesAreOpenedAsTheyStandAndFileAddressesByTheirPath) {
  EXPECT_EQ(readCommandLine({"http://host/a b.xml"}).file, "http://host/a b.xml");
  EXPECT_EQ(readCommandLine({"HTTPS://host/../a"}).file, "HTTPS://host/../a");
  EXPECT_EQ(readCommandLine({"file:///nowhere/a%20b.xml"}).file, "/nowhere/a b.xml");
}

TEST(CommandLine, FileAndPositionStandTogether) {
  const CommandLine line = readCommandLine({"100,200", "/nowhere/ecu.xml"});
  EXPECT_EQ(line.commandString, "100,200");
  EXPECT_EQ(line.file, "/nowhere/ecu.xml");
}

TEST(CommandLine, SecondFileIsAMistake) {
  EXPECT_EQ(readCommandLine({"a.xml", "b.xml"}).mistake,
            "only one file can be opened, b.xml is the second");
}

TEST(CommandLine, TwoDashesEndTheOptions) {
  EXPECT_TRUE(readCommandLine({"--", "--site.xml"}).file.ends_with("/--site.xml"));
}

} // namespace kelmar::frame
