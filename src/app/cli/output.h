// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::cli {

/// Standard output cannot be written, or its reader has gone. It has been told, but for a reader
/// that has gone: that one knows that it did not get all.
struct OutputFailed {};

/// Standard output, written in large pieces.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// Raises OutputFailed.
  Output& operator<<(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= pieceSize) flush();
    return *this;
  }
  /// What has not been written yet. Raises OutputFailed.
  void flush();

 private:
  static constexpr std::size_t pieceSize = 1u << 16;
  std::string buffer_;
};

/// A line on standard error: "kelmar-cli: TEXT".
void complain(std::string_view text);

} // namespace kelmar::cli
