// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/reference_index.h"
#include "common/tab_text.h"
#include "database/ecu.h"

namespace kelmar {
namespace {

TEST(ReferenceIndex, AnswersAsTheModelDoes) {
  testing::Ecu ecu;
  testing::FileText file;
  file.datas = "<Data Name=\"Speed\"/><Data Name=\"Level\"/>";
  file.requests = "<Request Name=\"R\"><Sent/><Received><DataItem Name=\"Speed\" Ref=\"1\"/>"
                  "<DataItem Name=\"Level\"/></Received></Request>";
  ecu.load(file);
  ReferenceIndex index(ecu.target());
  EXPECT_TRUE(index.isReferenced("Speed"));
  EXPECT_FALSE(index.isReferenced("speed"));
  EXPECT_TRUE(index.isInDatasRef("speed"));
  EXPECT_FALSE(index.isReferenced("Level"));
  index.add("Level");
  EXPECT_TRUE(index.isReferenced("Level"));
  index.add(*ecu.target().Requests()->Item(1));
  EXPECT_TRUE(index.isInDatasRef("SPEED"));
}

TEST(TabReader, EndsOfLinesMayBeMixedAndTheLastOneMayBeMissing) {
  TabReader reader("a\tb\r\nc\rd\n\ne");
  std::vector<std::string> lines;
  for (TabLine line; reader.next(line);)
    lines.push_back(line.whole);
  EXPECT_EQ(lines, (std::vector<std::string>{"a\tb", "c", "d", "", "e"}));
  TabLine line;
  EXPECT_FALSE(TabReader("").next(line));
}

TEST(TabReader, ALineOfCountlessTabsHasAsManyCellsAsAnyFormNeeds) {
  const std::string text(1000000, '\t');
  TabReader reader(text);
  TabLine line;
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(line.cells.size(), TabReader::mostCells);
  EXPECT_EQ(line.cells.back().size(), text.size() + 1 - TabReader::mostCells);
  EXPECT_FALSE(reader.next(line));
}

} // namespace
} // namespace kelmar
