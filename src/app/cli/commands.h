// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/arguments.h"
#include "app/cli/output.h"

#include <span>
#include <string>
#include <vector>

namespace kelmar::cli {

/// One command of the tool.
struct Command {
  const char* name;
  const char* usage; ///< what stands behind the name
  const char* summary;
  std::size_t leastWords, mostWords;
  std::span<const Option> options;
  /// Answers with the exit code.
  int (*run)(const Arguments& arguments, Output& output);
};

/// Runs a whole command line without the program's name; answers with the exit code. Whatever goes
/// wrong is told on standard error. Never raises.
int run(const std::vector<std::string>& words, Output& output);

int runShow(const Arguments& arguments, Output& output);
int runDump(const Arguments& arguments, Output& output);
int runSave(const Arguments& arguments, Output& output);
int runUses(const Arguments& arguments, Output& output);
int runRenameData(const Arguments& arguments, Output& output);
int runRenameRequest(const Arguments& arguments, Output& output);
int runRenameDevice(const Arguments& arguments, Output& output);
int runDeleteData(const Arguments& arguments, Output& output);
int runDeleteRequest(const Arguments& arguments, Output& output);
int runDeleteDevice(const Arguments& arguments, Output& output);
int runCopy(const Arguments& arguments, Output& output);
int runPaste(const Arguments& arguments, Output& output);
int runNormalizeReplies(const Arguments& arguments, Output& output);
int runHexExport(const Arguments& arguments, Output& output);
int runHexImport(const Arguments& arguments, Output& output);
int runRvt(const Arguments& arguments, Output& output);
int runFind(const Arguments& arguments, Output& output);

} // namespace kelmar::cli
