// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/line_table.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kelmar::xml {
namespace {

// Line by line, character by character.
std::size_t countedLine(const std::string& text, std::size_t offset) {
  std::size_t line = 1;
  for (std::size_t i = 0; i < offset; ++i) {
    const bool crLf = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\n' || (text[i] == '\r' && !crLf)) ++line;
  }
  return line;
}

TEST(LineTable, CountsLfCrAndCrLfInWhateverPiecesTheyCome) {
  std::mt19937 random(7);
  for (int round = 0; round < 400; ++round) {
    std::string text;
    const std::size_t length = random() % 60;
    for (std::size_t i = 0; i < length; ++i)
      text += "ab\n\r"[random() % 4];
    LineTable table;
    for (std::size_t done = 0; done < text.size();) {
      const std::size_t piece = 1 + random() % 7;
      table.add(std::string_view(text).substr(done, piece));
      done += piece;
    }
    for (std::size_t offset = 0; offset < text.size(); ++offset)
      ASSERT_EQ(table.lineAt(offset), countedLine(text, offset))
          << "round " << round << ", at " << offset;
  }
}

TEST(LineTable, KnowsTheLinesOfALongText) {
  std::string text;
  std::vector<std::size_t> starts;
  for (int line = 0; line < 20000; ++line) {
    starts.push_back(text.size());
    text += std::string(static_cast<std::size_t>(line % 700), 'x') + '\n';
  }
  LineTable whole(text), pieces;
  for (std::size_t done = 0; done < text.size(); done += 65536)
    pieces.add(std::string_view(text).substr(done, 65536));
  for (std::size_t line = 0; line < starts.size(); ++line) {
    ASSERT_EQ(whole.lineAt(starts[line]), line + 1);
    ASSERT_EQ(pieces.lineAt(starts[line]), line + 1);
  }
}

} // namespace
} // namespace kelmar::xml
