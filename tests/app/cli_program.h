// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/temp_folder.h"

#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kelmar::support {

/// What a run of the program left behind.
struct CliResult {
  int code = -1; ///< exit code; -1 when it was killed
  std::string out, err;
  friend bool operator==(const CliResult&, const CliResult&) = default;
};
std::ostream& operator<<(std::ostream& stream, const CliResult& result);

/// Runs kelmar-cli as a child process in a folder of its own, in English, without the site and the
/// settings of whoever runs the tests, and with a clock that stands still.
class Cli {
 public:
  Cli();

  /// Folder in which the program runs.
  const TempFolder& folder() const { return folder_; }
  std::string file(std::string_view name) const { return folder_.file(name); }
  /// A file of tests/data in that folder, under its own name or `as`.
  std::string sample(std::string_view path, std::string_view as = {}) const {
    return folder_.copyOfSample(path, as);
  }

  std::map<std::string, std::string> environment;
  /// Runs without root's rights. The program is copied into the folder, for the build folder need
  /// not be open to everyone.
  bool asPlainUser = false;
  /// No file grows beyond so many bytes, as on a disk that is full.
  std::optional<std::size_t> largestFile;
  /// What the shell does with the streams, such as ">/dev/full" or "2>&-".
  std::string redirections;

  CliResult run(const std::vector<std::string>& arguments) const;
  /// A line of a shell in that folder, where kelmar-cli is on the path. Standard output and
  /// standard error come together in `out`.
  CliResult shell(const std::string& line) const;

 private:
  CliResult start(const std::vector<std::string>& words) const;
  void prepareChild() const;

  TempFolder folder_;
  TempFolder streams_; // what it prints, and the home of nobody
};

/// Path of the program.
std::string cliProgram();

} // namespace kelmar::support
