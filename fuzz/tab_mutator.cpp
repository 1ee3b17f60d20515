// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/tab_mutator.h"

#include <iterator>
#include <vector>

namespace kelmar::fuzz {

namespace {

constexpr const char* cells[] = {
    "",       " ",     "'",       "0",          "1",           "-1",    "7",
    "8",      "32",    "33",      "40",         "255",         "256",   "2040",
    "2041",   "4095",  "4096",    "2147483647", "-2147483649", "0,5",   ".5",
    "1E-05",  "1E999", "NaN",     "$1A",        "&hFF",        "3E00",  "180",
    "21ZZ",   "Send",  "Receive", "Numeric",    "List",        "Ascii", "Hexa",
    "Mode",   "Speed", "SPEED",   "Wish",       "Read",        "Write", " Read ",
    "Normal", "City",  "OKN",     "1A00",       "0100",        "New",   "\xC3\x89t\xC3\xA9",
    "a\"b",   "<",     "bin",
};

std::vector<std::string> split(std::string_view text, char at) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == at)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  return parts;
}

std::string joined(const std::vector<std::string>& parts, char with) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += with;
    text += parts[i];
  }
  return text;
}

std::string mutateCells(const std::string& line, std::mt19937& random) {
  std::vector<std::string> row = split(line, '\t');
  const std::size_t at = random() % row.size();
  const auto place = row.begin() + static_cast<std::ptrdiff_t>(at);
  switch (random() % 6) {
  case 0:
    row.insert(place, row[random() % row.size()]);
    break;
  case 1:
    row.erase(place);
    break;
  case 2:
    row[at] = std::string(std::size_t{1} << random() % 10, 'n');
    break;
  default:
    row[at] = cells[random() % std::size(cells)];
    break;
  }
  return joined(row, '\t');
}

} // namespace

std::string mutateLines(std::string_view text, std::mt19937& random) {
  std::vector<std::string> lines = split(text, '\n');
  const std::size_t at = random() % lines.size();
  const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
  switch (random() % 8) {
  case 0:
    lines.insert(place, std::string(lines[random() % lines.size()]));
    break;
  case 1:
    lines.erase(place);
    break;
  case 2:
    std::swap(lines[at], lines[random() % lines.size()]);
    break;
  case 3:
    if (lines[at].ends_with('\r'))
      lines[at].pop_back();
    else
      lines[at] += '\r';
    break;
  default:
    lines[at] = mutateCells(lines[at], random);
    break;
  }
  return joined(lines, '\n');
}

} // namespace kelmar::fuzz
