// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <string>
#include <string_view>

namespace kelmar {

class CMultiLangEx;

/// What saves the open ECU, for the window and the command line alike: the checks before, the
/// writing, the reading back, and the box that tells what went wrong.
class EcuSaving {
 public:
  /// All must outlive it.
  EcuSaving(platform::Person& person, const CMultiLangEx& texts) : person_(person), texts_(texts) {}

  /// Where the person wants the file. `file` is the present one; when it is empty a name is proposed.
  /// None on cancel.
  std::optional<std::string> askForFile(const std::string& file, const TargetItem& target) const;

  /// False, and told, for a file of the sibling tool, which is never saved.
  bool mayBeSaved(const OmnikorLibXml& database) const;

  /// Writes the ECU to the file. False, and told, when the file is read-only, when the ECU cannot be
  /// written (the file is untouched then), and when the file does not read back as it was meant to
  /// be (it stays as it is). Nothing is kept of the report of the load, nor the mark of a change,
  /// after a success.
  bool write(OmnikorLibXml& database, const std::string& file) const;

 private:
  platform::Person& person_;
  const CMultiLangEx& texts_;
};

/// The text that refuses to save a file of the sibling tool, in English.
inline constexpr char siblingToolRefusal[] =
    "Save functionalities are desactivated for QVR databases";

/// True when the file holds these bytes and they are a well-formed document.
bool readsBack(const std::string& file, std::string bytes);

/// Copies an existing file over the one of the same name with ".bak" behind it, in the same folder.
/// An error leaves what was there and is not told. False when nothing was copied.
bool copyToBackup(const std::string& file);

} // namespace kelmar
