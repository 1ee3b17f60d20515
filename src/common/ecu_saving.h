// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <functional>
#include <string>
#include <string_view>

namespace kelmar {

class CMultiLangEx;

/// How a save of the open ECU ended.
enum class EcuSaveResult { Saved, FileIsProtected, BadlySaved };

/// Writes the ECU to the file and reads it back. A read-only file is not touched. Nothing is kept
/// of the report of the load, nor the mark of a change, after a success. Raises Failure for an ECU
/// that cannot be written; the file is untouched then. `beforeWriting` runs when nothing stands
/// against the save any more but the disk; what it raises leaves the file untouched, too.
EcuSaveResult saveEcu(OmnikorLibXml& database, const std::string& file,
                      const std::function<void()>& beforeWriting = {});

/// What the person is told of a save that ended otherwise than Saved.
std::string saveResultText(EcuSaveResult result, const CMultiLangEx& texts,
                           const std::string& file);

/// What saves the open ECU, for the window and the command line alike: the checks before, the
/// writing, the reading back, and the box that tells what went wrong.
class EcuSaving {
 public:
  /// All must outlive it.
  EcuSaving(platform::Person& person, const CMultiLangEx& texts) : person_(person), texts_(texts) {}

  /// Where the person wants the file. `file` is the present one; when it is empty a name is
  /// proposed. None on cancel.
  std::optional<std::string> askForFile(const std::string& file, const TargetItem& target) const;

  /// False, and told, for a file of the sibling tool, which is never saved.
  bool mayBeSaved(const OmnikorLibXml& database) const;

  /// Writes the ECU to the file. False, and told, when the file is read-only, when the ECU cannot
  /// be written (the file is untouched then), and when the file does not read back as it was meant
  /// to be (it stays as it is).
  bool write(OmnikorLibXml& database, const std::string& file) const;

 private:
  platform::Person& person_;
  const CMultiLangEx& texts_;
};

/// The text that refuses to save a file of the sibling tool, in English.
inline constexpr char siblingToolRefusal[] =
    "Save functionalities are desactivated for QVR databases";

/// Copies an existing file over the one of the same name with ".bak" behind it, in the same folder.
/// An error leaves what was there and is not told. False when nothing was copied.
bool copyToBackup(const std::string& file);

} // namespace kelmar
