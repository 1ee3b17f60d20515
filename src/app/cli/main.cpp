// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"

#include <csignal>
#include <cstdlib>

int main(int count, char** words) {
  // A reader that went away is a failure like any other, not the end of the process.
  std::signal(SIGPIPE, SIG_IGN);
  kelmar::cli::Output output;
  const int code = kelmar::cli::run({words + 1, words + count}, output);
  return output.finish() ? code : 1;
}
