// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/hex_commands.h"

#include "exports/intel_hex.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

platform::FileQuestion questionOf(platform::FileQuestion::Kind kind, const std::string& title) {
  platform::FileQuestion question;
  question.kind = kind;
  question.title = title;
  question.filter =
      language::global().getMultilangMessageDefault("Hex files (*.hex)|*.hex|All files (*.*)|*.*",
                                                    "REQUESTS/MSG/exportToH86File/FileFilter/text");
  question.defaultExtension = "hex";
  return question;
}

} // namespace

int longestHexImport(const TargetItem& target) {
  constexpr int canMode = 3, longestCanFrame = 4095, longestFrame = 255;
  const auto& parameters = target.Parametres();
  return parameters && parameters->initMode == canMode ? longestCanFrame : longestFrame;
}

void exportSendBufferToHex(const std::string& requestBytes, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  const auto fileName = person.file(
      questionOf(platform::FileQuestion::Kind::Save,
                 texts.getMultilangMessageDefault(
                     "Export file name", "REQUESTS/MSG/exportToH86File/FileSelTitle/text")));
  if (!fileName) return;
  FrameBuffer scratch;
  try {
    scratch.setHexText(requestBytes);
  } catch (const Failure&) {
    return; // the field shows in red that this is no frame
  }
  try {
    exportToH86File(scratch, *fileName);
  } catch (const Failure& failure) {
    ShowErrorBox(person, texts, failure);
  }
}

std::optional<std::string> importSendBufferFromHex(const TargetItem& target,
                                                   platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  const auto fileName = person.file(
      questionOf(platform::FileQuestion::Kind::Open,
                 texts.getMultilangMessageDefault(
                     "Import file name", "REQUESTS/MSG/importFromH86File/FileSelTitle/text")));
  if (!fileName) return std::nullopt;
  try {
    return importFromH86File(*fileName, longestHexImport(target), person);
  } catch (const Failure& failure) {
    platform::Box box;
    box.title = texts.getMultilangMessageDefault("Import Hex error",
                                                 "REQUESTS/MSG/importFromH86File/error/title");
    box.text = failure.text;
    box.icon = platform::Icon::Critical;
    person.message(box);
    return std::nullopt;
  }
}

} // namespace kelmar
