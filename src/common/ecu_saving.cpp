// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/ecu_saving.h"

#include "base/failure.h"
#include "base/text.h"
#include "language/multi_lang.h"
#include "platform/files.h"

#include <utility>

namespace kelmar {

std::optional<std::string> EcuSaving::askForFile(const std::string& file,
                                                 const TargetItem& target) const {
  return person_.file(
      {platform::FileQuestion::Kind::Save,
       texts_.getMultilangMessageDefault("Save ECU", "SELECTOR/MSG/saveFile/dialog"),
       texts_.getMultilangMessageDefault("Ecu Files (*.xml)|*.xml|All files (*.*)|*.*",
                                         "SELECTOR/MSG/saveFile/filter"),
       ".xml", file.empty() ? MakeFileSafeName(target.name()) : file});
}

bool EcuSaving::mayBeSaved(const OmnikorLibXml& database) const {
  if (!database.loadedFromQvr()) return true;
  person_.message(
      {"SELECTOR/MSG/saveQvr/text",
       texts_.getMultilangMessageDefault("Save error", "SELECTOR/MSG/saveQvr/title"),
       texts_.getMultilangMessageDefault(siblingToolRefusal, "SELECTOR/MSG/saveQvr/text"),
       platform::Buttons::Ok, platform::Icon::Exclamation});
  return false;
}

EcuSaveResult saveEcu(OmnikorLibXml& database, const std::string& file,
                      const std::function<void()>& beforeWriting) {
  if (platform::fileExists(file) && platform::isReadOnly(file))
    return EcuSaveResult::FileIsProtected;
  const std::string bytes = database.ecuFileBytes();
  if (beforeWriting) beforeWriting();
  // What was meant to be written is well formed by the way it is made, so that the file can be read
  // exactly when it holds these bytes, and that is compared before it takes the place of the old
  // one.
  if (!database.writeEcuFile(file, bytes)) return EcuSaveResult::BadlySaved;
  database.forgetReport();
  if (database.ActiveTarget) database.ActiveTarget->ValueChanged = false;
  return EcuSaveResult::Saved;
}

std::string saveResultText(EcuSaveResult result, const CMultiLangEx& texts,
                           const std::string& file) {
  if (result == EcuSaveResult::FileIsProtected) {
    return texts.getMultilangMessageDefault(
        "File '{0}' is read only. Unprotect it or choose a new name.",
        "SELECTOR/MSG/fileIsProtected/text", file);
  }
  return texts.getMultilangMessageDefault("File '{0}' badly saved. Check disk size, name, ...",
                                          "SELECTOR/MSG/fileSaveError/text", file);
}

bool EcuSaving::write(OmnikorLibXml& database, const std::string& file) const {
  EcuSaveResult result = EcuSaveResult::Saved;
  try {
    result = saveEcu(database, file);
  } catch (const Failure& failure) {
    person_.message(
        {"SELECTOR/MSG/saveFileError/text",
         texts_.getMultilangMessageDefault("Save Ecu file error",
                                           "SELECTOR/MSG/saveFileError/title"),
         texts_.getMultilangMessageDefault("File : {0}{crlf}Error : {1}",
                                           "SELECTOR/MSG/saveFileError/text", file, failure.text),
         platform::Buttons::Ok, platform::Icon::Critical});
    return false;
  }
  if (result == EcuSaveResult::Saved) return true;
  const std::string text = saveResultText(result, texts_, file);
  if (result == EcuSaveResult::FileIsProtected) {
    person_.message(
        {"SELECTOR/MSG/fileIsProtected/text",
         texts_.getMultilangMessageDefault("Save error", "SELECTOR/MSG/fileIsProtected/title"),
         text, platform::Buttons::Ok, platform::Icon::Exclamation});
  } else {
    person_.message(
        {"SELECTOR/MSG/fileSaveError/text",
         texts_.getMultilangMessageDefault("Save error", "SELECTOR/MSG/fileSaveError/title"), text,
         platform::Buttons::Ok, platform::Icon::Critical});
  }
  return false;
}

bool copyToBackup(const std::string& file) {
  try {
    if (!platform::fileExists(file)) return false;
    const std::string path = platform::absolutePath(file);
    platform::copyWhole(path, path + ".bak");
    return true;
  } catch (const Failure&) {
    // A backup that cannot be made must not keep the person from working.
    return false;
  }
}

} // namespace kelmar
