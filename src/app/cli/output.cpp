// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/output.h"

#include "app/cli/one_line.h"
#include "base/failure.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kelmar::cli {

namespace {

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

void Output::flush() {
  // Emptied first: what could not be written is not tried again.
  const std::string text = std::exchange(buffer_, {});
  if (writeAll(STDOUT_FILENO, text)) return;
  if (errno != EPIPE) {
    complain("standard output: error " + std::to_string(FileAccessFailed) + ": " +
             std::generic_category().message(errno));
  }
  throw OutputFailed();
}

void complain(std::string_view text) {
  // A terminal or a log that cannot be written is nothing that could be told anywhere.
  writeAll(STDERR_FILENO, "kelmar-cli: " + oneLine(text) + "\n");
}

} // namespace kelmar::cli
