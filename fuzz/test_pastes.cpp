// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/paste_checks.h"
#include "fuzz/tab_mutator.h"
#include "platform/files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace kelmar::fuzz {
namespace {

/// Pastes every input of a corpus as its fuzzer does; the number of inputs.
int replay(const char* corpus, Paste where) {
  int inputs = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(KELMAR_SOURCE "/fuzz/pastes/") + corpus)) {
    EXPECT_EQ(brokenByPaste(where, platform::readFile(entry.path().string())), "") << entry.path();
    ++inputs;
  }
  return inputs;
}

TEST(PasteCorpus, DataKeepTheirPromises) {
  EXPECT_GT(replay("data_text", Paste::Datas), 30);
  EXPECT_GT(replay("data_xml", Paste::Datas), 30);
}
TEST(PasteCorpus, ValuesKeepTheirPromises) {
  EXPECT_GT(replay("values", Paste::Values), 30);
}
TEST(PasteCorpus, RequestsKeepTheirPromises) {
  EXPECT_GT(replay("request_text", Paste::Requests), 30);
  EXPECT_GT(replay("request_xml", Paste::Requests), 30);
}
TEST(PasteCorpus, PositionsKeepTheirPromises) {
  EXPECT_GT(replay("positions", Paste::Positions), 30);
  EXPECT_GT(replay("datas_at_bit", Paste::DatasAtBit), 30);
}
TEST(PasteCorpus, IdentificationsKeepTheirPromises) {
  EXPECT_GT(replay("identifications", Paste::Identifications), 30);
}

// What fuzzers found, and what follows from the format on purpose.
TEST(PasteFindings, CoefficientsAndNotesThatAFileCannotGiveBackAreNoFault) {
  EXPECT_EQ(brokenByPaste(Paste::Datas, "@A\tm\t8\t0\tV\t1\t0\t1E-05"), "");
  EXPECT_EQ(brokenByPaste(Paste::Datas, "@A\tm\t8\t0\tV\t1\t1E-30"), "");
  EXPECT_EQ(brokenByPaste(Paste::Datas, "@A\tm\t8\t0\tV\t1\t7\t1E999\nB\tm\t8\t0\tV\t7\t0\t1E99"),
            "");
  EXPECT_EQ(brokenByPaste(Paste::Values,
                          "@<List><Item Value='9' Text='N'><Info> note </Info></Item></List>"),
            "");
  EXPECT_EQ(brokenByPaste(Paste::Values,
                          "@<List><Item Value='9' Text='N'><Info>]]&gt;</Info></Item></List>"),
            "");
}

TEST(TabMutator, ChangesLinesInManyWaysAndLeavesMostCells) {
  constexpr unsigned seed = 20260115;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::string lines;
  for (int i = 0; i < 20; ++i)
    lines += "name " + std::to_string(i) + "\tM\t8\t0\r\n";
  std::set<std::string> changed;
  for (int i = 0; i < 500; ++i) {
    const std::string text = mutateLines(lines, random);
    changed.insert(text);
    std::istringstream stream(text);
    int whole = 0;
    for (std::string line; std::getline(stream, line);)
      whole += line.ends_with("\tM\t8\t0\r");
    EXPECT_GE(whole, 18) << text;
  }
  EXPECT_GT(changed.size(), 250u);
}

TEST(TabMutator, TakesAnyText) {
  std::mt19937 random(1);
  for (const char* text : {"", "\t", "\n", "\r\n", "a"})
    for (int i = 0; i < 50; ++i)
      EXPECT_LT(mutateLines(text, random).size(), 600u);
}

} // namespace
} // namespace kelmar::fuzz
