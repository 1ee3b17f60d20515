// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/arguments.h"
#include "app/cli/output.h"
#include "base/failure.h"
#include "database/omnikor_lib_xml.h"

#include <optional>
#include <string>

namespace kelmar::platform {
class SiteSettings;
}

namespace kelmar::cli {

inline constexpr int done = 0;
inline constexpr int failed = 1; ///< a failure, or no match
inline constexpr int wrongUse = 2;

/// One open ECU file and what the commands do with it. Everything that goes wrong is told on
/// standard error.
class Session {
 public:
  /// Both must outlive it.
  Session(const std::string& file, const Arguments& arguments);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Loads the file and tells what was not kept. False after a failure.
  bool load();
  /// Encoding and style sheet as the site has them, so that the window would write the same bytes,
  /// and what the command line says instead. False for a file of the sibling tool, and when there
  /// is a site that cannot be read.
  bool prepareSaving();
  /// Saves to the file of the option "-o"; or in place, and then the file as it was stays as
  /// "FILE.bak". Nothing is written without the backup. Tells failures.
  int save();

  OmnikorLibXml& database() { return *database_; }
  TargetItem& target() { return *database_->ActiveTarget; }

  /// "kelmar-cli: FILE: error NUMBER: TEXT [SOURCE]"
  int tell(const Failure& failure) const;

 private:
  const std::string& file_;
  const Arguments& arguments_;
  OmnikorLibXml* database_; // never taken apart: the process ends with it
};

/// "FILE: error NUMBER: TEXT [SOURCE]", without brackets where there is no source.
std::string failureLine(const std::string& file, const Failure& failure);

/// True for two names, or "file:" addresses, of one file.
bool isSameFile(const std::string& left, const std::string& right);

/// The site that the window would work on, with "--site" and "--lang" of the command line.
platform::SiteSettings siteOf(const Arguments& arguments);

/// "--encoding" in the usual spelling of its name; none when it is not there. Raises WrongUse for
/// one that is not among those that are written.
std::optional<std::string> chosenEncoding(const Arguments& arguments);

/// The options that every command with a file knows, and those of commands that save.
inline const Option fileOptions[] = {
    {"--yes", false}, {"-v", false}, {"--site"}, {"--lang"}, {"--help", false}};
inline const Option savingOptions[] = {{"--yes", false},  {"-v", false}, {"--site"},    {"--lang"},
                                       {"--help", false}, {"-o"},        {"--encoding"}};

} // namespace kelmar::cli
