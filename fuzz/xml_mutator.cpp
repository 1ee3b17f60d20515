// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/xml_mutator.h"

#include <iterator>
#include <vector>

namespace kelmar::fuzz {

namespace {

struct Range {
  std::size_t begin = 0, end = 0;
};

/// Where things stand in a document. What is not well formed gives fewer of them.
struct Outline {
  std::vector<Range> values;   // of attributes, between the quotes
  std::vector<Range> texts;    // between two tags, white space alone not among them
  std::vector<Range> elements; // with their tags
};

constexpr const char* values[] = {
    "",
    "0",
    "1",
    "-1",
    "2",
    "3",
    "7",
    "8",
    "9",
    "12",
    "64",
    "255",
    "256",
    "4095",
    "32768",
    "65536",
    "1000000",
    "536870911",
    "2147483647",
    "-2147483648",
    "2147483648",
    "4294967296",
    "99999999999999999999",
    "0.5",
    " .5",
    "-.25",
    " 1E-05",
    "1E-30",
    "1E+300",
    "1E999",
    "1,5",
    "NaN",
    "True",
    "false",
    "Little",
    "Big",
    " ",
    "a",
    "A",
    "\xC3\xA9",
    "\xC3\x89",
    "\xE2\x82\xAC",
    "a&#13;b",
    "a&#13;&#10;b",
    "&#9;",
    "&lt;&gt;&amp;&quot;",
    "]]&gt;",
    "::pic:a",
    "::btn:a|b",
    "QVR",
    "00",
    "0",
    "222001",
    "62",
    "6220",
    "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF",
};

std::size_t below(std::size_t limit, std::mt19937& random) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

template <class Container>
const auto& oneOf(const Container& all, std::mt19937& random) {
  return all[below(std::size(all), random)];
}

void noteValues(std::string_view text, Range tag, std::vector<Range>& found) {
  for (std::size_t at = text.find("=\"", tag.begin); at < tag.end; at = text.find("=\"", at)) {
    const std::size_t end = text.find('"', at + 2);
    if (end >= tag.end) return;
    found.push_back({at + 2, end});
    at = end;
  }
}

Outline outlineOf(std::string_view text) {
  Outline outline;
  std::vector<std::size_t> open;
  for (std::size_t at = text.find('<'); at < text.size();) {
    const std::string_view rest = text.substr(at);
    const char* mark = rest.starts_with("<![CDATA[") ? "]]>"
                       : rest.starts_with("<!--")    ? "-->"
                                                     : ">";
    std::size_t end = text.find(mark, at);
    if (end == std::string_view::npos) break;
    end += std::string_view(mark).size();
    if (rest.starts_with("</")) {
      if (!open.empty()) {
        outline.elements.push_back({open.back(), end});
        open.pop_back();
      }
    } else if (!rest.starts_with("<!") && !rest.starts_with("<?")) {
      noteValues(text, {at, end}, outline.values);
      if (text[end - 2] == '/') {
        outline.elements.push_back({at, end});
      } else {
        open.push_back(at);
      }
    }
    at = text.find('<', end);
    if (at != std::string_view::npos &&
        text.substr(end, at - end).find_first_not_of(" \t\r\n") != std::string_view::npos)
      outline.texts.push_back({end, at});
  }
  return outline;
}

std::string_view part(std::string_view text, Range range) {
  return text.substr(range.begin, range.end - range.begin);
}

std::string replaced(std::string_view text, Range range, std::string_view with) {
  return std::string(text.substr(0, range.begin)) + std::string(with) +
         std::string(text.substr(range.end));
}

/// A number nearby or far off, one of the values above, or what stands elsewhere in the document:
/// references to other names come about so.
std::string newValue(std::string_view text, const Outline& outline, std::string_view old,
                     std::mt19937& random) {
  switch (below(4, random)) {
  case 0:
    if (!outline.values.empty()) return std::string(part(text, oneOf(outline.values, random)));
    break;
  case 1: {
    const std::size_t bits = 1 + below(32, random);
    return std::to_string(below(std::size_t(1) << bits, random));
  }
  case 2:
    if (!old.empty()) {
      std::string changed(old);
      changed.insert(below(changed.size() + 1, random), 1,
                     oneOf(std::string_view("019aZ .-"), random));
      if (below(2, random) == 0) changed.erase(below(changed.size(), random), 1);
      return changed;
    }
    break;
  default:
    break;
  }
  return oneOf(values, random);
}

} // namespace

std::string mutateXml(std::string_view text, std::mt19937& random) {
  const Outline outline = outlineOf(text);
  const std::size_t kind = below(8, random);
  if (kind < 4 && !outline.values.empty()) {
    const Range& value = oneOf(outline.values, random);
    return replaced(text, value, newValue(text, outline, part(text, value), random));
  }
  if (kind == 4 && !outline.texts.empty()) {
    const Range& value = oneOf(outline.texts, random);
    return replaced(text, value, newValue(text, outline, part(text, value), random));
  }
  if (outline.elements.empty()) return std::string(text);
  const Range& element = oneOf(outline.elements, random);
  const Range& other = oneOf(outline.elements, random);
  switch (kind) {
  case 5:
    return replaced(text, element, "");
  case 6: // once more, before another element
    return replaced(text, {other.begin, other.begin}, part(text, element));
  default: // in the place of another element
    return replaced(text, other, part(text, element));
  }
}

} // namespace kelmar::fuzz
