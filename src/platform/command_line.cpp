// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/command_line.h"

namespace kelmar::platform {

std::vector<std::string> splitCommandLine(std::string_view command) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  char quote = 0;
  for (std::size_t i = 0; i < command.size(); ++i) {
    const char c = command[i];
    const char next = i + 1 < command.size() ? command[i + 1] : '\0';
    if (c == '\\' && next != '\0' && quote != '\'' && (quote == 0 || next == '"' || next == '\\')) {
      word += next;
      inWord = true;
      ++i;
    } else if (quote != 0) {
      if (c == quote)
        quote = 0;
      else
        word += c;
    } else if (c == '\'' || c == '"') {
      quote = c;
      inWord = true; // an empty pair of quotes is a word too
    } else if (c == ' ' || c == '\t') {
      if (inWord) words.push_back(std::move(word));
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(std::move(word));
  return words;
}

} // namespace kelmar::platform
