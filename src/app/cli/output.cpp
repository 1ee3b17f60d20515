// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/output.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace kelmar::cli {

namespace {

constexpr std::size_t pieceSize = 1u << 16;

/// Everything, or false.
bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

} // namespace

Output& Output::operator<<(std::string_view text) {
  buffer_ += text;
  if (buffer_.size() >= pieceSize) flush();
  return *this;
}

void Output::flush() {
  if (!failed_ && !writeAll(STDOUT_FILENO, buffer_)) {
    failed_ = true;
    if (errno != EPIPE) complain(std::string("standard output: ") + std::strerror(errno));
  }
  buffer_.clear();
}

bool Output::finish() {
  flush();
  return !failed_;
}

void complain(const std::string& text) {
  writeAll(STDERR_FILENO, "kelmar-cli: " + text + "\n");
}

} // namespace kelmar::cli
