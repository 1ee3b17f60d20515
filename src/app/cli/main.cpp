// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"

#include <csignal>
#include <fcntl.h>

namespace {

/// With one of the three closed, the next file that is opened would take its place, and what is
/// meant for the terminal would be written into it.
void keepStandardDescriptors() {
  for (int descriptor = 0; descriptor <= 2; ++descriptor)
    if (::fcntl(descriptor, F_GETFD) == -1) ::open("/dev/null", O_RDONLY);
}

} // namespace

int main(int count, char** words) {
  keepStandardDescriptors();
  // A reader that went away is noticed where it is written for; a save is never cut short by it.
  std::signal(SIGPIPE, SIG_IGN);
  kelmar::cli::Output output;
  return kelmar::cli::run({words + (count > 0), words + count}, output);
}
