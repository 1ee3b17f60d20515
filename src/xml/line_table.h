// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kelmar::xml {

/// Where the lines of a text begin: a parse in place destroys its line ends. About one byte a line.
class LineTable {
 public:
  LineTable() = default;
  explicit LineTable(std::string_view text) { add(text); }

  /// The next piece of the text. LF, CR and CR LF end a line, in whatever pieces they come.
  void add(std::string_view piece);

  /// Line of a position in the text so far, 1-based.
  std::size_t lineAt(std::size_t offset) const;

 private:
  struct Mark {
    std::size_t offset, line, position;
  };
  void endLine();

  // Length of each line with its end; 255 stands for 255 more to come.
  std::vector<std::uint8_t> lengths_;
  std::vector<Mark> marks_; // one for every few thousand lines, so that a search is short
  std::size_t lines_ = 0, end_ = 0;
  std::size_t open_ = 0;     // bytes of the line that has not ended
  bool afterReturn_ = false; // they end with a CR, which a LF may follow
};

} // namespace kelmar::xml
