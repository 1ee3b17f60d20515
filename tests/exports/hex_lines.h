// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace kelmar::support {

/// A record as a line, with a checksum that fits: record(0x0010, 0, {0x3E, 0x00}).
inline std::string record(unsigned address, unsigned type, const std::vector<unsigned>& data) {
  std::vector<unsigned> bytes{static_cast<unsigned>(data.size()), address / 256 % 256,
                              address % 256, type};
  bytes.insert(bytes.end(), data.begin(), data.end());
  unsigned sum = 0;
  for (const unsigned byte : bytes)
    sum += byte;
  bytes.push_back((256 - sum % 256) % 256);
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string line = ":";
  for (const unsigned byte : bytes) {
    line += digits[byte / 16];
    line += digits[byte % 16];
  }
  return line;
}

/// The lines joined by `lineEnd`, with one at the end.
inline std::string fileOf(const std::vector<std::string>& lines,
                          const std::string& lineEnd = "\r\n") {
  std::string text;
  for (const std::string& line : lines)
    text += line + lineEnd;
  return text;
}

inline const std::string endRecord = ":00000001FF";

} // namespace kelmar::support
