// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/line_table.h"

#include <algorithm>
#include <cstring>

namespace kelmar::xml {

namespace {

constexpr std::size_t linesBetweenMarks = 4096;

const char* find(const char* from, const char* to, char c) {
  return static_cast<const char*>(std::memchr(from, c, static_cast<std::size_t>(to - from)));
}

} // namespace

void LineTable::add(std::string_view piece) {
  const char *position = piece.data(), *const end = position + piece.size();
  if (piece.empty()) return;
  const auto endAt = [&](const char* behind) {
    open_ += static_cast<std::size_t>(behind - position);
    position = behind;
    endLine();
  };
  if (afterReturn_) endAt(*position == '\n' ? position + 1 : position);
  const bool plain = find(position, end, '\r') == nullptr;
  while (const char* lineFeed = find(position, end, '\n')) {
    if (!plain)
      while (const char* returned = find(position, lineFeed, '\r')) {
        if (returned + 1 == lineFeed) break;
        endAt(returned + 1);
      }
    endAt(lineFeed + 1);
  }
  if (!plain)
    while (const char* returned = find(position, end, '\r')) {
      afterReturn_ = returned + 1 == end;
      if (afterReturn_) break;
      endAt(returned + 1);
    }
  open_ += static_cast<std::size_t>(end - position);
}

void LineTable::endLine() {
  if (lines_ % linesBetweenMarks == 0) marks_.push_back({end_, lines_ + 1, lengths_.size()});
  ++lines_;
  end_ += open_;
  if (open_ >= 255) lengths_.insert(lengths_.end(), open_ / 255, 255);
  lengths_.push_back(static_cast<std::uint8_t>(open_ % 255));
  open_ = 0;
  afterReturn_ = false;
}

std::size_t LineTable::lineAt(std::size_t offset) const {
  auto mark = std::upper_bound(marks_.begin(), marks_.end(), offset,
                               [](std::size_t wanted, const Mark& m) { return wanted < m.offset; });
  if (mark == marks_.begin()) return 1;
  --mark;
  std::size_t line = mark->line, start = mark->offset;
  for (std::size_t i = mark->position; i < lengths_.size(); ++i) {
    start += lengths_[i];
    if (start > offset) return line;
    if (lengths_[i] != 255) ++line;
  }
  return line;
}

} // namespace kelmar::xml
