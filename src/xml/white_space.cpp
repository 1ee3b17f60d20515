// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/white_space.h"

#include <algorithm>
#include <cstring>

namespace kelmar::xml {

namespace {

// What stands between two tags. White space can be left out where there is nothing else. Text and
// CDATA are safe where a start tag stands before them and an end tag behind, with no comment and no
// piece of white space apart: then their element holds nothing that could be left out.
struct Run {
  bool afterStartTag = false;
  bool blank = false;   // a piece of white space alone
  bool content = false; // text or CDATA
  bool comment = false; // or a processing instruction

  bool matters(bool beforeEndTag) const {
    const bool whole = afterStartTag && beforeEndTag;
    if (content) return !whole || blank || comment;
    return whole && blank && comment;
  }
};

bool isBlank(char c) {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

const char* find(const char* from, const char* end, char c) {
  const auto* found =
      static_cast<const char*>(std::memchr(from, c, static_cast<std::size_t>(end - from)));
  return found ? found : end;
}

// Behind the next `mark`, or the end.
const char* behind(const char* from, const char* end, std::string_view mark) {
  const auto found = std::string_view(from, static_cast<std::size_t>(end - from)).find(mark);
  return found == std::string_view::npos ? end : from + found + mark.size();
}

// At the ">" of a start tag; one inside an attribute's value does not count.
const char* tagEnd(const char* p, const char* end) {
  for (;;) {
    const char* const close = find(p, end, '>');
    const auto quoteIn = [&](const char* from) {
      while (from < close && *from != '"' && *from != '\'')
        ++from;
      return from;
    };
    const char* quote = quoteIn(p);
    while (quote < close) {
      const char* const other = find(quote + 1, end, *quote);
      if (other >= close) {
        p = other < end ? other + 1 : end;
        break;
      }
      quote = quoteIn(other + 1);
    }
    if (quote >= close) return close;
    if (p >= end) return end;
  }
}

} // namespace

MarkupScan scanMarkup(std::string_view text) {
  constexpr MarkupScan matters{.whiteSpaceMatters = true, .depth = {}};
  std::size_t depth = 0, deepest = 0;
  const char *p = text.data(), *const end = p + text.size();
  Run run;
  bool inRoot = false; // white space around the root is no text at all
  while (p < end) {
    const char* const pieceStart = p;
    while (p < end && isBlank(*p))
      ++p;
    if (p < end && *p != '<') {
      if (inRoot) run.content = true;
      p = find(p, end, '<');
    } else if (p > pieceStart && inRoot) {
      run.blank = true;
    }
    if (end - p < 3) break;
    const std::string_view rest(p, static_cast<std::size_t>(end - p));
    if (p[1] == '/') {
      if (run.matters(true)) return matters;
      if (depth > 0) --depth;
      run = {};
      p = find(p, end, '>') + 1;
    } else if (p[1] == '?') {
      run.comment = true;
      p = behind(p + 2, end, "?>");
    } else if (rest.starts_with("<!--")) {
      run.comment = true;
      p = behind(p + 4, end, "-->");
    } else if (rest.starts_with("<![CDATA[")) {
      run.content = true;
      p = behind(p + 9, end, "]]>");
    } else if (p[1] == '!') {
      return matters; // a DTD: not worth a closer look
    } else {
      if (run.matters(false)) return matters;
      inRoot = true;
      run = {};
      p = tagEnd(p + 1, end);
      if (p >= end) break;
      run.afterStartTag = p[-1] != '/';
      if (run.afterStartTag) deepest = std::max(deepest, ++depth);
      ++p;
    }
  }
  return {.whiteSpaceMatters = false, .depth = deepest};
}

} // namespace kelmar::xml
