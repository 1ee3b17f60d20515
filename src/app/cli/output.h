// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::cli {

/// Standard output, written in large pieces. The first failure is kept.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  Output& operator<<(std::string_view text);
  Output& operator<<(long long number) { return *this << std::string_view(std::to_string(number)); }
  /// False when something could not be written; the reason has been told, but for a reader that
  /// went away.
  bool finish();

 private:
  void flush();
  std::string buffer_;
  bool failed_ = false;
};

/// A line on standard error: "kelmar-cli: TEXT".
void complain(const std::string& text);

} // namespace kelmar::cli
