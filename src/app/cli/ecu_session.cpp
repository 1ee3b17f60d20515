// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/ecu_session.h"

#include "common/ecu_saving.h"
#include "common/site_parameters.h"
#include "platform/files.h"
#include "platform/person.h"
#include "platform/site_settings.h"

#include <filesystem>

namespace kelmar::cli {

namespace {

platform::SiteSettings siteOf(const CommandLine& line) {
  platform::SiteStart start;
  start.site = line.site;
  start.language = line.language;
  return platform::SiteSettings(start);
}

/// Nobody sits at a command line: the one question is answered beforehand.
class AnsweredBeforehand : public platform::Person {
 public:
  explicit AnsweredBeforehand(bool yes) : yes_(yes) {}
  platform::Answer message(const platform::Box&) override {
    return yes_ ? platform::Answer::Ok : platform::Answer::Cancel;
  }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }

 private:
  bool yes_;
};

struct Session {
  explicit Session(const CommandLine& line)
      : person(line.yes), database({nullptr, &person}, siteOf(line).CurrentLanguage()) {}

  AnsweredBeforehand person;
  OmnikorLibXml database;
};

/// Raises for a site whose parameters cannot be read: files would not be the window's.
void useSite(OmnikorLibXml& database, const CommandLine& line) {
  const std::string root = siteOf(line).DataRoot();
  if (!root.empty()) {
    const SiteParameters site = readSiteParameters(root);
    if (site.xmlEncoding) database.xmlEncoding = *site.xmlEncoding;
    if (site.xmlStyleSheet) database.xmlStyleSheet = *site.xmlStyleSheet;
  }
  if (!line.encoding.empty()) database.xmlEncoding = line.encoding;
}

bool isSameFile(const std::string& left, const std::string& right) {
  std::error_code ignored;
  return std::filesystem::equivalent(left, right, ignored);
}

} // namespace

OmnikorLibXml& openEcu(const CommandLine& line, const Messages& messages) {
  // Reachable for ever, so that no leak checker takes it for lost.
  static Session* session = nullptr;
  session = new Session(line);
  OmnikorLibXml& database = session->database;
  database.LibMessage = [&messages, &line](const std::string& source, const std::string& message) {
    messages.note(line.file, message, source);
  };
  try {
    database.ImportUceFromXml(line.file);
  } catch (const Failure&) {
    messages.notKept(line.file, database.report());
    throw;
  }
  messages.notKept(line.file, database.report());
  return database;
}

void demandSavable(const OmnikorLibXml& database) {
  constexpr int fileOfSiblingTool = 2;
  if (database.loadedFromQvr()) throw Failure(fileOfSiblingTool, "", siblingToolRefusal);
}

void saveEcu(OmnikorLibXml& database, const CommandLine& line, const Messages& messages) {
  const std::string source = platform::localPathOf(line.file);
  const std::string target = line.output.empty() ? source : platform::localPathOf(line.output);
  useSite(database, line);
  if (platform::fileExists(target) && platform::isReadOnly(target))
    throw Failure(FileAccessFailed, "",
                  "File '" + target + "' is read only. Unprotect it or choose a new name.");
  const std::string bytes = database.ecuFileBytes();
  if (isSameFile(source, target) && !copyToBackup(target))
    throw Failure(FileAccessFailed, "",
                  "The backup file '" + target + ".bak' cannot be written, nothing was saved");
  if (const std::string reason = database.writeEcuFile(target, bytes); !reason.empty())
    messages.note(target, reason);
  if (!platform::holds(target, bytes))
    throw Failure(FileAccessFailed, "",
                  "File '" + target + "' badly saved. Check disk size, name, ...");
}

} // namespace kelmar::cli
