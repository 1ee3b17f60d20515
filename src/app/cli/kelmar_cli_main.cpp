// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// With one of the three closed, the next file that is opened would take its place, and what is
/// meant for the terminal would be written into it.
void keepStandardDescriptors() {
  for (int descriptor = 0; descriptor <= 2; ++descriptor)
    if (::fcntl(descriptor, F_GETFD) == -1) ::open("/dev/null", O_RDONLY);
}

} // namespace

int main(int argc, char** argv) {
  keepStandardDescriptors();
  // A reader that has gone is noticed where the output is written; a save is never cut short.
  std::signal(SIGPIPE, SIG_IGN);
  kelmar::cli::Output out(STDOUT_FILENO);
  return kelmar::cli::runCommandLine(std::vector<std::string>(argv + (argc > 0), argv + argc), out);
}
