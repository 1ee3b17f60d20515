// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/arguments.h"
#include "app/cli/output.h"
#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <string>

namespace kelmar::cli {

inline constexpr int done = 0;
inline constexpr int failed = 1; ///< a failure, or no match
inline constexpr int wrongUse = 2;

/// Who answers on a command line: OK to the question about files of the sibling tool when told so
/// beforehand, the careful answer to everything else.
class AbsentPerson : public platform::Person {
 public:
  explicit AbsentPerson(bool opensSiblingFiles) : opensSiblingFiles_(opensSiblingFiles) {}
  platform::Answer message(const platform::Box& box) override;
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }

 private:
  bool opensSiblingFiles_;
};

/// One open ECU file and what the commands do with it. Everything that goes wrong is told on
/// standard error.
class Session {
 public:
  Session(const std::string& file, const Arguments& arguments);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Loads the file and tells what was not kept. False after a failure.
  bool load();
  /// Encoding and style sheet as the site has them, and what the command line says instead. False
  /// when there is a site that cannot be read.
  bool prepareSaving();
  /// Saves to the file of the option "-o", or in place with a backup. Tells failures.
  int save();

  OmnikorLibXml& database() { return *database_; }
  TargetItem& target() { return *database_->ActiveTarget; }
  const Arguments& arguments() const { return arguments_; }
  const std::string& file() const { return file_; }

  /// "kelmar-cli: FILE: error NUMBER: TEXT [SOURCE]"
  int tell(const Failure& failure) const;

 private:
  std::string file_;
  const Arguments& arguments_;
  AbsentPerson person_;
  OmnikorLibXml* database_; // never taken apart: the process ends with it
};

/// "FILE: error NUMBER: TEXT [SOURCE]", without brackets where there is no source.
std::string failureLine(const std::string& file, const Failure& failure);

/// The options that every command with a file knows, and those of commands that save.
inline const Option fileOptions[] = {{"--yes", false}, {"-v", false}, {"--site"}};
inline const Option savingOptions[] = {
    {"--yes", false}, {"-v", false}, {"--site"}, {"-o"}, {"--encoding"}};

} // namespace kelmar::cli
