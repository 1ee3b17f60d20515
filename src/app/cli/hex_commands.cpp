// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/hex_commands.h"

#include "app/cli/commands.h"
#include "app/cli/edit_file.h"
#include "app/cli/telling_person.h"
#include "exports/intel_hex.h"
#include "language/multi_lang.h"
#include "platform/files.h"
#include "platform/site_settings.h"

namespace kelmar::cli {

namespace {

/// The site's language file for the time of a command, in English like all that this tool says. One
/// text of the import is worded there alone.
class SiteTexts {
 public:
  explicit SiteTexts(const Arguments& arguments) : site_(siteOf(arguments)), texts_(&site_) {
    if (site_.DataRoot().empty()) return;
    try {
      texts_.initLanguage(site_.DataRoot(), "en", "", "OmnikorKelmarControl.xml");
      language::setGlobal(&texts_);
    } catch (const Failure&) {
      // Without it, the defaults.
    }
  }
  SiteTexts(const SiteTexts&) = delete;
  SiteTexts& operator=(const SiteTexts&) = delete;
  ~SiteTexts() { language::setGlobal(nullptr); }

 private:
  platform::SiteSettings site_;
  CMultiLangEx texts_;
};

} // namespace

int runHexExport(const Arguments& arguments, Output&) {
  const Words& words = arguments.words();
  if (isSameFile(words[0], words[2])) throw WrongUse("OUT is the ECU file");
  Session session(words[0], arguments);
  if (!session.load()) return failed;
  try {
    const RequestItem* request = itemNamed(session.target().Requests(), "Request", words[1]);
    exportToH86File(request->RequestBytes ? *request->RequestBytes : FrameBuffer(),
                    platform::localPathOf(words[2]));
    return done;
  } catch (const Failure& failure) {
    return session.tell(failure);
  }
}

int runHexImport(const Arguments& arguments, Output&) {
  const SiteTexts texts(arguments);
  return editFile(arguments, [](TargetItem& target, const Words& words) {
    RequestItem* request = itemNamed(target.Requests(), "Request", words[1]);
    TellingPerson person;
    const std::string hex =
        importFromH86File(platform::localPathOf(words[2]), longestHexImport(target), person);
    if (!request->RequestBytes) request->RequestBytes = std::make_shared<FrameBuffer>();
    request->RequestBytes->setHexText(hex);
  });
}

} // namespace kelmar::cli
