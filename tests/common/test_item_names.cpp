// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/find_next.h"
#include "common/item_names.h"
#include "common/tab_text.h"

#include <gtest/gtest.h>

#include <set>

namespace kelmar {
namespace {

TEST(FreeNewName, CountsFromOneBehindNew) {
  std::set<std::string> names;
  const auto exists = [&](const std::string& name) { return names.contains(name); };
  EXPECT_EQ(freeNewName(exists), "New");
  names.insert("New");
  EXPECT_EQ(freeNewName(exists), "New1");
  names.insert("New1");
  EXPECT_EQ(freeNewName(exists), "New2");
}

TEST(CopyNames, TheSecondPasteOfOneClipboardIsCopyTheThirdCopyZeroTheFourthCopyOne) {
  std::set<std::string> names;
  const auto exists = [&](const std::string& name) { return names.contains(name); };
  std::vector<std::string> given;
  for (int paste = 0; paste < 4; ++paste) {
    CopyNames copies;
    given.push_back(copies.freeName("name", exists));
    names.insert(given.back());
  }
  EXPECT_EQ(given, (std::vector<std::string>{"name", "Copy name", "Copy(0)name", "Copy(1)name"}));
}

TEST(CopyNames, TheCounterIsNotResetWithinOnePaste) {
  std::set<std::string> names{"a", "b"};
  const auto exists = [&](const std::string& name) { return names.contains(name); };
  CopyNames copies;
  EXPECT_EQ(copies.freeName("a", exists), "Copy a");
  EXPECT_EQ(copies.freeName("b", exists), "Copy(0)b");
}

TEST(TypedName, LosesStrayBlanksAndSemicolons) {
  EXPECT_EQ(typedName("  Read ;  all "), "Read _ all");
  EXPECT_TRUE(hasStraySpaces("Read  all"));
  EXPECT_TRUE(hasStraySpaces(" Read"));
  EXPECT_FALSE(hasStraySpaces("Read all"));
}

std::vector<TabLine> tabLines(std::string_view text) {
  std::vector<TabLine> lines;
  TabReader reader(text);
  for (TabLine line; reader.next(line);)
    lines.push_back(line);
  return lines;
}

TEST(TabText, LinesOfEveryEndAreSplitAlike) {
  for (const char* text : {"a\tb\r\nc\td\r\n", "a\tb\nc\td\n", "a\tb\rc\td\r", "a\tb\r\nc\td"}) {
    const std::vector<TabLine> lines = tabLines(text);
    ASSERT_EQ(lines.size(), 2u) << text;
    EXPECT_EQ(lines[0].cells, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(lines[1].trimmed(1), "d");
    EXPECT_EQ(lines[1].trimmed(7), "");
  }
}

TEST(TabText, ARemarkNamesNoItem) {
  const std::vector<TabLine> lines = tabLines("'Name\tx\n\t1\n name \t1");
  EXPECT_TRUE(lines[0].isRemark());
  EXPECT_FALSE(lines[0].startsItem());
  EXPECT_FALSE(lines[1].startsItem());
  EXPECT_TRUE(lines[2].startsItem());
  EXPECT_TRUE(lines[2].flag(1));
}

TEST(TabText, ACellWithALineBreakIsNoticed) {
  TabText text;
  text.cell("a").cell(12).flag(true).endLine();
  EXPECT_FALSE(text.hasBrokenCell());
  EXPECT_EQ(text.text(), "a\t12\t1\r\n");
  text.cell("two\r\nlines").endLine();
  EXPECT_TRUE(text.hasBrokenCell());
}

TEST(TabText, AnEmptyFirstCellStaysACell) {
  TabText text;
  text.line({"", "7", "label"});
  EXPECT_EQ(text.text(), "\t7\tlabel\r\n");
}

TEST(CellNumber, GivesTheDefaultOutsideTheLimitsAndForWhatIsNoNumber) {
  EXPECT_EQ(cellNumber("7", 0, 7, 0), 7);
  EXPECT_EQ(cellNumber("8", 0, 7, 3), 3);
  EXPECT_EQ(cellNumber("", 0, 7, 3), 3);
  EXPECT_EQ(cellNumber("1e99", 0, 7, 3), 3);
}

TEST(LeftCharacters, CountsCharactersAndNotBytes) {
  EXPECT_EQ(leftCharacters("éèà", 2), "éè");
  EXPECT_EQ(leftCharacters("ab", 5), "ab");
}

TEST(FindNextRow, StartsBehindTheCurrentRowAndWraps) {
  const std::vector<std::string> rows{"Speed", "Rate", "speed limit", "Étape"};
  const auto textOfRow = [&](int row) { return rows[static_cast<std::size_t>(row)]; };
  const int count = static_cast<int>(rows.size());
  EXPECT_EQ(findNextRow(count, 0, "SPEED", textOfRow), 2);
  EXPECT_EQ(findNextRow(count, 2, "speed", textOfRow), 0);
  EXPECT_EQ(findNextRow(count, -1, "étape", textOfRow), 3);
  EXPECT_EQ(findNextRow(count, 1, "rate", textOfRow), 1);
  EXPECT_EQ(findNextRow(count, 1, "none", textOfRow), -1);
  EXPECT_EQ(findNextRow(0, -1, "x", textOfRow), -1);
}

} // namespace
} // namespace kelmar
