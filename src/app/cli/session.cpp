// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/session.h"

#include "base/text.h"
#include "common/ecu_saving.h"
#include "common/site_parameters.h"
#include "language/multi_lang.h"
#include "platform/site_settings.h"

namespace kelmar::cli {

platform::Answer AbsentPerson::message(const platform::Box& box) {
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

std::string failureLine(const std::string& file, const Failure& failure) {
  // One line for one failure, whatever the text holds.
  std::string line = file + ": error " + std::to_string(failure.number) + ": " + failure.text;
  if (!failure.source.empty()) line += " [" + failure.source + "]";
  return replaceAll(replaceAll(line, "\r\n", "\n"), "\n", "\\n");
}

Session::Session(const std::string& file, const Arguments& arguments)
    : file_(file), arguments_(arguments), person_(arguments.has("--yes")),
      database_(new OmnikorLibXml({nullptr, &person_, nullptr})) {
  static OmnikorLibXml* kept = nullptr; // still reachable when the process ends
  kept = database_;
  if (!arguments.has("-v")) return;
  kept->LibMessage = [this](const std::string& source, const std::string& message) {
    complain(file_ + ": note: " + message + " [" + source + "]");
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
  for (const NotKept& item : database_->report()) {
    std::string line = file_ + ": not kept: " + item.kind + " " + item.name + " at " + item.path +
                       ", line " + std::to_string(item.line) + ": " + item.reason;
    complain(replaceAll(replaceAll(line, "\r\n", "\n"), "\n", "\\n"));
  }
  return loaded;
}

bool Session::prepareSaving() {
  platform::SiteStart start;
  start.site = arguments_.value("--site").value_or("");
  const std::string root = platform::SiteSettings(start).DataRoot();
  try {
    if (!root.empty()) {
      const SiteParameters site = readSiteParameters(root);
      if (site.xmlEncoding) database_->xmlEncoding = *site.xmlEncoding;
      if (site.xmlStyleSheet) database_->xmlStyleSheet = *site.xmlStyleSheet;
    }
    if (const auto encoding = arguments_.value("--encoding")) database_->xmlEncoding = *encoding;
  } catch (const Failure& failure) {
    tell(failure);
    return false;
  }
  return true;
}

int Session::save() {
  const std::string output = arguments_.value("-o").value_or(file_);
  if (database_->loadedFromQvr()) return tell(Failure(1, "", siblingToolRefusal));
  try {
    if (output == file_) copyToBackup(file_);
    const EcuSaveResult result = saveEcu(*database_, output);
    if (result == EcuSaveResult::Saved) return done;
    complain(
        failureLine(output, Failure(1, "", saveResultText(result, language::global(), output))));
    return failed;
  } catch (const Failure& failure) {
    return tell(failure);
  }
}

} // namespace kelmar::cli
