// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_entry.h"

#include "base/text.h"

namespace kelmar::desktop {

namespace {

/// The escapes that every value of such a file may hold.
std::string unescaped(std::string_view value) {
  std::string result;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      result += value[i];
      continue;
    }
    switch (value[++i]) {
    case 's':
      result += ' ';
      break;
    case 'n':
      result += '\n';
      break;
    case 't':
      result += '\t';
      break;
    case 'r':
      result += '\r';
      break;
    case '\\':
      result += '\\';
      break;
    default:
      result += '\\';
      result += value[i];
    }
  }
  return result;
}

} // namespace

std::vector<std::string> commandWords(std::string_view command) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  char quote = 0;
  for (std::size_t i = 0; i < command.size(); ++i) {
    const char c = command[i];
    if (c == '\\' && quote != '\'' && i + 1 < command.size()) {
      word += command[++i];
      inWord = true;
    } else if (quote) {
      if (c == quote)
        quote = 0;
      else
        word += c;
    } else if (c == '"' || c == '\'') {
      quote = c;
      inWord = true;
    } else if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
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

std::string execLineOf(std::string_view desktopEntry) {
  bool inGroup = false;
  for (const std::string& raw : split(replaceAll(desktopEntry, "\r", ""), "\n")) {
    const std::string_view line = trimBlanks(raw);
    if (line.starts_with('['))
      inGroup = line == "[Desktop Entry]";
    else if (inGroup && line.starts_with("Exec")) {
      const std::string_view rest = trimBlanks(line.substr(4));
      if (rest.starts_with('=')) return unescaped(trimBlanks(rest.substr(1)));
    }
  }
  return {};
}

std::vector<std::string> execWords(std::string_view execLine, const std::string& address) {
  std::vector<std::string> result;
  bool given = false;
  for (const std::string& word : commandWords(execLine)) {
    std::string made;
    bool vanishes = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (word[i] != '%' || i + 1 == word.size()) {
        made += word[i];
        continue;
      }
      switch (word[++i]) {
      case '%':
        made += '%';
        break;
      case 'u':
      case 'U':
      case 'f':
      case 'F':
        made += address;
        given = true;
        break;
      default:
        vanishes = true;
      }
    }
    if (!(vanishes && made.empty())) result.push_back(std::move(made));
  }
  if (!given && !result.empty()) result.push_back(address);
  return result;
}

} // namespace kelmar::desktop
