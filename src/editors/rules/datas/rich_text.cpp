// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "editors/rules/datas/code_page.h"
#include "editors/rules/datas/fiche.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace kelmar {

namespace {

/// How characters look; each group of the text has its own.
struct Look {
  bool bold = false, italic = false, underline = false, strike = false;
  int halfPoints = 0; ///< 0: the size of the reader
  int colour = 0;     ///< in the table; 0: the reader's
  int font = 0;
  friend bool operator==(const Look&, const Look&) = default;
};

/// What a group is about.
enum class Destination { Text, Hidden, Fonts, Colours, Bullet };

struct Group {
  Look look;
  Destination destination = Destination::Text;
  int unicodeSkip = 1; ///< characters that stand for a \u in readers without it
};

std::string escaped(std::string_view text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
    case '&':
      html += "&amp;";
      break;
    case '<':
      html += "&lt;";
      break;
    case '>':
      html += "&gt;";
      break;
    case '"':
      html += "&quot;";
      break;
    default:
      html += c;
    }
  }
  return html;
}

class Reader {
 public:
  explicit Reader(std::string_view rtf) : rtf_(rtf) { groups_.emplace_back(); }

  std::string html() {
    while (at_ < rtf_.size())
      step();
    endParagraph(false);
    return "<html><body>" + html_ + "</body></html>";
  }

 private:
  Group& group() { return groups_.back(); }
  bool shown() { return group().destination == Destination::Text; }

  void step() {
    const char c = rtf_[at_++];
    switch (c) {
    case '{':
      flushBytes();
      groups_.push_back(group());
      break;
    case '}':
      flushBytes();
      skip_ = 0;
      if (groups_.size() > 1) groups_.pop_back();
      break;
    case '\\':
      control();
      break;
    case '\r':
    case '\n':
    case '\0':
      break;
    case ';':
      if (group().destination == Destination::Colours) {
        colours_.push_back(colour_);
        colour_.reset();
        break;
      }
      [[fallthrough]];
    default:
      character(c);
    }
  }

  void character(char c) {
    if (skip_ > 0) {
      // A character of several bytes counts once.
      if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) --skip_;
      while (at_ < rtf_.size() && (static_cast<unsigned char>(rtf_[at_]) & 0xC0) == 0x80)
        ++at_;
      return;
    }
    if (!shown()) return;
    flushBytes();
    put(std::string_view(&c, 1));
  }

  void control() {
    if (at_ >= rtf_.size()) return;
    const char first = rtf_[at_];
    if (first == '\'') return hexCharacter();
    if (first < 'A' || (first > 'Z' && first < 'a') || first > 'z') return symbol(first);
    const std::size_t start = at_;
    while (at_ < rtf_.size() && std::isalpha(static_cast<unsigned char>(rtf_[at_])))
      ++at_;
    const std::string_view word = rtf_.substr(start, at_ - start);
    std::optional<int> number;
    int value = 0;
    const char* end = rtf_.data() + rtf_.size();
    if (const auto read = std::from_chars(rtf_.data() + at_, end, value);
        read.ptr != rtf_.data() + at_) {
      number = read.ec == std::errc() ? value : 0;
      at_ = static_cast<std::size_t>(read.ptr - rtf_.data());
    }
    if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
    if (word == "bin") {
      at_ = std::min(rtf_.size(), at_ + static_cast<std::size_t>(std::max(0, value)));
    } else {
      takeWord(word, number);
    }
  }

  void hexCharacter() {
    int value = 0;
    const std::string_view digits = rtf_.substr(at_ + 1, 2);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    at_ += 1 + static_cast<std::size_t>(read.ptr - digits.data());
    if (skip_ > 0) {
      --skip_;
    } else if (shown() && read.ec == std::errc() && value > 0) {
      const bool symbols = symbolFonts_.contains(group().look.font);
      if (symbols && value == 0xB7) return flushBytes(), put("•");
      bytes_ += static_cast<char>(value);
    }
  }

  void symbol(char c) {
    ++at_;
    if (c == '*') {
      group().destination = Destination::Hidden; // unless the word behind it is known
    } else if (c == '\n' || c == '\r') {
      takeWord("par", {});
    } else if (c == '~') {
      literal("\u00A0");
    } else if (c == '_') {
      literal("\u2011");
    } else if (c == '\\' || c == '{' || c == '}') {
      character(c);
    }
  }

  void literal(std::string_view text) {
    if (skip_ > 0) {
      --skip_;
    } else if (shown()) {
      flushBytes();
      put(text);
    }
  }

  void takeWord(std::string_view word, std::optional<int> number) {
    if (word == "u") return unicode(number.value_or(0));
    flushBytes();
    static const std::map<std::string_view, std::string_view> characters{
        {"tab", "\t"},         {"bullet", "•"},       {"emdash", "—"},    {"endash", "–"},
        {"lquote", "‘"},       {"rquote", "’"},       {"ldblquote", "“"}, {"rdblquote", "”"},
        {"emspace", "\u2003"}, {"enspace", "\u2002"}, {"cell", "\t"}};
    if (const auto found = characters.find(word); found != characters.end())
      return literal(found->second);
    const bool on = number.value_or(1) != 0;
    Look& look = group().look;
    if (word == "par" || word == "row" || word == "sect" || word == "page") {
      if (shown()) endParagraph(true);
    } else if (word == "line") {
      if (shown()) breakLine();
    } else if (word == "b") {
      look.bold = on;
    } else if (word == "i") {
      look.italic = on;
    } else if (word == "ulnone") {
      look.underline = false;
    } else if (word == "ul" || word == "ulw" || word == "uld" || word == "uldb") {
      look.underline = on;
    } else if (word == "strike") {
      look.strike = on;
    } else if (word == "fs") {
      look.halfPoints = std::clamp(number.value_or(24), 2, 400);
    } else if (word == "cf") {
      look.colour = number.value_or(0);
    } else if (word == "f") {
      look.font = number.value_or(0);
    } else if (word == "plain") {
      look = {};
    } else if (word == "pard") {
      align_ = {};
      bullet_ = false;
    } else if (word == "qc") {
      align_ = "center";
    } else if (word == "qr") {
      align_ = "right";
    } else if (word == "qj") {
      align_ = "justify";
    } else if (word == "ql") {
      align_ = {};
    } else {
      takeDocumentWord(word, number.value_or(0));
    }
  }

  void takeDocumentWord(std::string_view word, int number) {
    static const std::set<std::string_view> hidden{"stylesheet", "info",
                                                   "pict",       "header",
                                                   "footer",     "headerl",
                                                   "headerr",    "footerl",
                                                   "footerr",    "object",
                                                   "fldinst",    "footnote",
                                                   "listtable",  "listoverridetable",
                                                   "generator",  "themedata",
                                                   "nonshppict", "xmlnstbl",
                                                   "rsidtbl",    "latentstyles"};
    Destination& destination = group().destination;
    if (word == "ansicpg") {
      page_ = number;
    } else if (word == "uc") {
      group().unicodeSkip = std::clamp(number, 0, 16);
    } else if (word == "fonttbl") {
      destination = Destination::Fonts;
    } else if (word == "colortbl") {
      destination = Destination::Colours;
    } else if (word == "fcharset" && destination == Destination::Fonts) {
      if (number == 2) symbolFonts_.insert(group().look.font);
      pages_[group().look.font] = codePageOfCharset(number, 0);
    } else if (destination == Destination::Colours &&
               (word == "red" || word == "green" || word == "blue")) {
      const int shift = word == "red" ? 16 : word == "green" ? 8 : 0;
      colour_ = colour_.value_or(0) | std::clamp(number, 0, 255) << shift;
    } else if (word == "pntext" || word == "listtext") {
      destination = Destination::Bullet;
      bullet_ = true;
    } else if (word == "pnlvlblt") {
      bullet_ = true;
    } else if (hidden.contains(word)) {
      destination = Destination::Hidden;
    }
  }

  void unicode(int number) {
    flushBytes();
    const auto unit = static_cast<char32_t>(number & 0xFFFF);
    skip_ = group().unicodeSkip;
    if (!shown()) return;
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_ = unit;
      return;
    }
    char32_t whole = unit;
    if (unit >= 0xDC00 && unit < 0xE000)
      whole = high_ ? 0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00) : 0xFFFD;
    high_ = 0;
    if (whole < 0x20) return;
    std::string text;
    appendCodePoint(text, whole);
    put(text);
  }

  void flushBytes() {
    if (bytes_.empty()) return;
    const auto own = pages_.find(group().look.font);
    const int page = own != pages_.end() && own->second ? own->second : page_;
    const std::string text = fromCodePage(page, bytes_);
    bytes_.clear();
    put(text);
  }

  void put(std::string_view text) {
    const Look& look = group().look;
    if (!inRun_ || !(look == runLook_)) {
      endRun();
      runLook_ = look;
      inRun_ = true;
      paragraph_ += startOf(look);
    }
    paragraph_ += escaped(text);
  }

  std::string startOf(const Look& look) const {
    std::string style;
    if (look.bold) style += "font-weight:bold;";
    if (look.italic) style += "font-style:italic;";
    if (look.underline || look.strike)
      style += std::string("text-decoration:") + (look.underline ? " underline" : "") +
               (look.strike ? " line-through" : "") + ";";
    if (look.halfPoints) {
      style += "font-size:" + std::to_string(look.halfPoints / 2);
      style += look.halfPoints % 2 ? ".5pt;" : "pt;";
    }
    const auto index = static_cast<std::size_t>(look.colour);
    if (look.colour > 0 && index < colours_.size() && colours_[index]) {
      char colour[16];
      std::snprintf(colour, sizeof colour, "#%06x", static_cast<unsigned>(*colours_[index]));
      style += std::string("color:") + colour + ";";
    }
    return "<span style=\"white-space:pre-wrap;" + style + "\">";
  }

  void endRun() {
    if (inRun_) paragraph_ += "</span>";
    inRun_ = false;
  }

  void breakLine() {
    endRun();
    paragraph_ += "<br/>";
  }

  /// `keepEmpty`: an empty paragraph is an empty line.
  void endParagraph(bool keepEmpty) {
    flushBytes();
    endRun();
    if (paragraph_.empty() && !keepEmpty) return;
    const std::string align = align_.empty() ? "" : " align=\"" + std::string(align_) + "\"";
    if (bullet_ && !paragraph_.empty()) {
      html_ += "<ul><li" + align + ">" + paragraph_ + "</li></ul>";
    } else {
      html_ += "<p" + align + " style=\"margin-top:0;margin-bottom:0;\">" +
               (paragraph_.empty() ? "&nbsp;" : paragraph_) + "</p>";
    }
    paragraph_.clear();
  }

  std::string_view rtf_;
  std::size_t at_ = 0;
  std::vector<Group> groups_;
  std::string html_, paragraph_;
  std::string bytes_; // in the code page of the font, not yet converted
  bool inRun_ = false, bullet_ = false;
  Look runLook_;
  std::string_view align_;
  int page_ = 1252;
  std::map<int, int> pages_; // of the fonts, 0: that of the document
  std::set<int> symbolFonts_;
  std::vector<std::optional<int>> colours_; // 0xRRGGBB; none: the reader's
  std::optional<int> colour_;
  char32_t high_ = 0; // first half of a character
  int skip_ = 0;
};

} // namespace

std::string richTextToHtml(std::string_view rtf) {
  const std::size_t start = rtf.find("{\\rtf1");
  return Reader(start == rtf.npos ? rtf : rtf.substr(start)).html();
}

} // namespace kelmar
