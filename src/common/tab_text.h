// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

// The tab text form of lists: cells between tabs, lines that end with CR LF, the first cell of a
// header begins with "'". It passes through spreadsheets, which give line feeds alone.

/// Builds tab text line by line.
class TabText {
 public:
  TabText& cell(std::string_view text);
  TabText& cell(long long number) { return cell(std::to_string(number)); }
  /// 1 or 0.
  TabText& flag(bool value) { return cell(value ? "1" : "0"); }
  void endLine();
  void line(std::initializer_list<std::string_view> cells);
  /// A cell held a line break or a tab, which a spreadsheet or a paste takes for the end of the
  /// cell.
  bool hasBrokenCell() const { return hasBrokenCell_; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  bool lineIsEmpty_ = true;
  bool hasBrokenCell_ = false;
};

/// One line of pasted text, cell by cell.
struct TabLine {
  std::vector<std::string> cells;
  std::string whole; ///< the line as it came

  /// The cell, trimmed of blanks; empty when the line is shorter. `index` from 0.
  std::string_view trimmed(std::size_t index) const;
  bool has(std::size_t index) const { return index < cells.size(); }
  /// The trimmed cell equals "1".
  bool flag(std::size_t index) const { return trimmed(index) == "1"; }
  /// A first cell that begins with "'": a header or a note, never data.
  bool isRemark() const { return trimmed(0).starts_with('\''); }
  /// A first cell that names an item.
  bool startsItem() const { return !trimmed(0).empty() && !isRemark(); }
};

/// Splits pasted text line by line, so that a large one costs no more than its longest line. Lines
/// end with CR LF, CR or LF. An empty text has no line.
class TabReader {
 public:
  /// The text must outlive it.
  explicit TabReader(std::string_view text) : rest_(text) {}
  /// The next line, false when there is none. Of its cells so many are read that every form finds
  /// all of its own; the last one holds the rest.
  bool next(TabLine& line);

  static constexpr std::size_t mostCells = 64;

 private:
  std::string_view rest_;
};

/// Pasted text as far as a zero: that ends a text everywhere else on the desktop.
std::string_view upToZero(std::string_view text);

/// The cell as an integer within the limits; `otherwise` for a bad number or one outside.
int cellNumber(std::string_view cell, int least, int greatest, int otherwise);

/// At most `count` characters from the front.
std::string leftCharacters(std::string_view text, std::size_t count);

/// Pasted names may have so many characters.
inline constexpr std::size_t longestPastedName = 70;
/// Bytes of a frame that pasted numbers may reach to.
inline constexpr int longestPastedFrame = 4095;

} // namespace kelmar
