// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/tab_text.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

namespace kelmar {

TabText& TabText::cell(std::string_view text) {
  if (!lineIsEmpty_) text_ += '\t';
  lineIsEmpty_ = false;
  if (text.find_first_of("\t\r\n") != std::string_view::npos) hasBrokenCell_ = true;
  text_ += text;
  return *this;
}

void TabText::endLine() {
  text_ += "\r\n";
  lineIsEmpty_ = true;
}

void TabText::line(std::initializer_list<std::string_view> cells) {
  for (std::string_view text : cells) cell(text);
  endLine();
}

std::string_view TabLine::trimmed(std::size_t index) const {
  return has(index) ? trimBlanks(cells[index]) : std::string_view();
}

std::vector<TabLine> tabLines(std::string_view text) {
  std::vector<TabLine> lines;
  const std::string normal = normaliseLineEnds(text);
  for (std::size_t start = 0; start < normal.size();) {
    std::size_t end = normal.find("\r\n", start);
    if (end == std::string::npos) end = normal.size();
    TabLine& line = lines.emplace_back();
    line.whole = normal.substr(start, end - start);
    line.cells = split(line.whole, "\t");
    start = end + 2;
  }
  return lines;
}

int cellNumber(std::string_view cell, int least, int greatest, int otherwise) {
  try {
    const std::int32_t number = toInt32(cell);
    return number < least || number > greatest ? otherwise : number;
  } catch (const Failure&) {
    return otherwise;
  }
}

std::string leftCharacters(std::string_view text, std::size_t count) {
  std::u32string characters = toCodePoints(text);
  if (characters.size() <= count) return std::string(text);
  characters.resize(count);
  return fromCodePoints(characters);
}

} // namespace kelmar
