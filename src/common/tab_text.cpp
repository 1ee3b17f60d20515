// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/tab_text.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

#include <algorithm>

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
  for (std::string_view text : cells)
    cell(text);
  endLine();
}

std::string_view TabLine::trimmed(std::size_t index) const {
  return has(index) ? trimBlanks(cells[index]) : std::string_view();
}

namespace {

/// Control characters have no place in the file: an item named with one could not be saved.
std::string withoutControls(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; });
  return kept;
}

} // namespace

bool TabReader::next(TabLine& line) {
  line.cells.clear();
  line.whole.clear();
  if (rest_.empty()) return false;
  const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
  line.whole = withoutControls(rest_.substr(0, end));
  rest_.remove_prefix(end);
  if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
  std::string_view whole = line.whole;
  while (line.cells.size() + 1 < mostCells) {
    const std::size_t tab = whole.find('\t');
    if (tab == std::string_view::npos) break;
    line.cells.emplace_back(whole.substr(0, tab));
    whole.remove_prefix(tab + 1);
  }
  line.cells.emplace_back(whole);
  return true;
}

std::string_view upToZero(std::string_view text) {
  return text.substr(0, text.find('\0'));
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
