// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/rvt_command.h"

#include "base/failure.h"
#include "base/version.h"
#include "exports/rvt_scenario.h"
#include "language/error_box.h"
#include "language/multi_lang.h"
#include "platform/files.h"
#include "platform/recent_entries.h"

namespace kelmar {

namespace {

constexpr char folderSetting[] = "RvtExportPath";
constexpr char fileOfScenario[] = "ECU_Base_Test.xml";

std::optional<std::string> chosenFolder(platform::Person& person, platform::Settings& settings) {
  platform::FileQuestion question;
  question.kind = platform::FileQuestion::Kind::Folder;
  question.title = "Select folder to save RVT scenario";
  question.proposal = platform::ReadSetting(settings, folderSetting, "");
  const auto folder = person.file(question);
  if (folder)
    platform::RegistryWriteValue(settings, std::string(platform::kelmarSettings) + folderSetting,
                                 *folder);
  return folder;
}

bool mayOverwrite(platform::Person& person) {
  platform::Box box;
  box.title = "Overwrite file ?";
  box.text = "File exists. Overwrite (Y/N) ?";
  box.buttons = platform::Buttons::YesNo;
  box.icon = platform::Icon::Question;
  return person.message(box) == platform::Answer::Yes;
}

} // namespace

void generateRvtTests(const TargetItem* target, const std::vector<const RequestItem*>& selected,
                      platform::Person& person, platform::Settings& settings) {
  if (!target) return;
  try {
    const std::string document = rvtScenario(*target, selected);
    const auto folder = chosenFolder(person, settings);
    if (!folder) return;
    const std::string file = platform::joinPath(*folder, fileOfScenario);
    if (platform::fileExists(file) && !mayOverwrite(person)) return;
    platform::writeWhole(file, document);
    platform::Box box;
    box.title = applicationTitle;
    box.text = "RVT scenario file has been saved in:\r\n" + file + "\r\n";
    box.icon = platform::Icon::Information;
    person.message(box);
  } catch (const Failure& failure) {
    ShowErrorBox(person, language::global(), failure);
  }
}

} // namespace kelmar
