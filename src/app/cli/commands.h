// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/command_line.h"
#include "app/cli/messages.h"
#include "app/cli/output.h"

#include <string>
#include <vector>

namespace kelmar::cli {

inline constexpr int done = 0;
inline constexpr int failed = 1; ///< or nothing was found
inline constexpr int wrongUse = 2;

/// Does what the words after the program's name say, and gives the exit code. Whatever goes wrong
/// is told on standard error. Never raises.
int runCommandLine(const std::vector<std::string>& words, Output& out);

/// Runs one command. Raises Failure, which the caller tells, and what `out` raises.
int runCommand(const CommandLine& line, const Messages& messages, Output& out);

/// Looks a file up by its identification; `failed` when there is none.
int findEcu(const CommandLine& line, const Messages& messages, Output& out);

} // namespace kelmar::cli
