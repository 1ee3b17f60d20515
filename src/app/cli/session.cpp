// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/session.h"

#include "base/text.h"
#include "common/ecu_saving.h"
#include "common/site_parameters.h"
#include "frame/rules/selector_load_report.h"
#include "language/multi_lang.h"
#include "platform/files.h"
#include "platform/person.h"
#include "platform/site_settings.h"

#include <filesystem>

namespace kelmar::cli {

namespace {

/// Who answers on a command line: OK to the question about files of the sibling tool when told so
/// beforehand, the careful answer to everything else.
class AbsentPerson : public platform::Person {
 public:
  explicit AbsentPerson(bool opensSiblingFiles) : opensSiblingFiles_(opensSiblingFiles) {}

  platform::Answer message(const platform::Box& box) override {
    switch (box.buttons) {
    case platform::Buttons::Ok:
      return platform::Answer::Ok;
    case platform::Buttons::OkCancel:
      return opensSiblingFiles_ ? platform::Answer::Ok : platform::Answer::Cancel;
    case platform::Buttons::YesNo:
      return platform::Answer::No;
    case platform::Buttons::YesNoCancel:
      break;
    }
    return platform::Answer::Cancel;
  }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }

 private:
  bool opensSiblingFiles_;
};

/// The model and who answers it. Giving back the memory of a large ECU item by item would take
/// longer than anything else that is left to do at the end, so it stays, reachable for leak
/// checkers.
struct Model {
  explicit Model(const Arguments& arguments)
      : person(arguments.has("--yes")),
        database({nullptr, &person, nullptr}, siteOf(arguments).CurrentLanguage()) {}

  AbsentPerson person;
  OmnikorLibXml database;
};

OmnikorLibXml& makeModel(const Arguments& arguments) {
  // Nobody reads it, so an ordinary one would be optimised away.
  static Model* volatile kept = nullptr;
  kept = new Model(arguments);
  return kept->database;
}

} // namespace

platform::SiteSettings siteOf(const Arguments& arguments) {
  platform::SiteStart start;
  start.site = arguments.value("--site").value_or("");
  start.language = arguments.value("--lang").value_or("");
  return platform::SiteSettings(start);
}

std::optional<std::string> chosenEncoding(const Arguments& arguments) {
  const auto wanted = arguments.value("--encoding");
  if (!wanted) return std::nullopt;
  for (const char* known : {"UTF-8", "UTF-16", "ISO-8859-1", "windows-1252"})
    if (lowerCase(*wanted) == lowerCase(known)) return known;
  throw WrongUse("option --encoding: '" + *wanted +
                 "' is not among UTF-8, UTF-16, ISO-8859-1 and windows-1252");
}

std::string failureLine(const std::string& file, const Failure& failure) {
  std::string line = file + ": error " + std::to_string(failure.number) + ": " + failure.text;
  if (!failure.source.empty()) line += " [" + failure.source + "]";
  return line;
}

bool isSameFile(const std::string& leftFile, const std::string& rightFile) {
  const std::string left = platform::localPathOf(leftFile);
  const std::string right = platform::localPathOf(rightFile);
  std::error_code ignored;
  return left == right || std::filesystem::equivalent(left, right, ignored);
}

Session::Session(const std::string& file, const Arguments& arguments)
    : file_(file), arguments_(arguments), database_(&makeModel(arguments)) {
  if (!arguments.has("-v")) return;
  database_->LibMessage = [file](const std::string& source, const std::string& message) {
    complain(file + ": note: " + message + " [" + source + "]");
  };
}

int Session::tell(const Failure& failure) const {
  complain(failureLine(file_, failure));
  return failed;
}

bool Session::load() {
  bool loaded = false;
  try {
    database_->ImportUceFromXml(file_);
    loaded = true;
  } catch (const Failure& failure) {
    tell(failure);
  }
  const CMultiLangEx english;
  for (const NotKept& item : database_->report())
    complain(file_ + ": not kept: " + loadReportLine(english, item));
  return loaded;
}

bool Session::prepareSaving() {
  constexpr int fileOfSiblingTool = 2;
  try {
    if (database_->loadedFromQvr()) throw Failure(fileOfSiblingTool, "", siblingToolRefusal);
    const std::string root = siteOf(arguments_).DataRoot();
    if (!root.empty()) {
      const SiteParameters site = readSiteParameters(root);
      if (site.xmlEncoding) database_->xmlEncoding = *site.xmlEncoding;
      if (site.xmlStyleSheet) database_->xmlStyleSheet = *site.xmlStyleSheet;
    }
    if (const auto encoding = chosenEncoding(arguments_)) database_->xmlEncoding = *encoding;
    return true;
  } catch (const Failure& failure) {
    tell(failure);
    return false;
  }
}

int Session::save() {
  const std::string input = platform::localPathOf(file_);
  const std::string output = platform::localPathOf(arguments_.value("-o").value_or(input));
  const auto makeBackup = [&] {
    if (isSameFile(input, output) && !copyToBackup(output))
      throw Failure(FileAccessFailed, "",
                    "The backup '" + output + ".bak' cannot be written, so nothing is saved");
  };
  try {
    const EcuSaveResult result = saveEcu(*database_, output, makeBackup);
    if (result == EcuSaveResult::Saved) return done;
    complain(failureLine(
        output, Failure(FileAccessFailed, "", saveResultText(result, CMultiLangEx(), output))));
    return failed;
  } catch (const Failure& failure) {
    return tell(failure);
  }
}

} // namespace kelmar::cli
