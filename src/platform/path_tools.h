// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar::platform {

/// The folders of the person at this machine.
class PathTools {
 public:
  /// `dataFolder`: what GetDataRootFolder gives; empty for the desktop's place of data,
  /// $XDG_DATA_HOME/kelmar, usually ~/.local/share/kelmar.
  explicit PathTools(std::string dataFolder = {});

  /// The data folder of the tool family. Empty when the environment names no home.
  std::string GetDataRootFolder() const { return dataFolder_; }
  /// The folder with one separator at its end; an empty text stays empty.
  std::string NormalizeFolder(const std::string& folder) const;
  /// The documents folder as the desktop's user-dirs.dirs names it, else "Documents" in the home.
  std::string GetUserDocumentsFolder() const;

 private:
  std::string dataFolder_;
};

/// A folder of the desktop's conventions: the value of `variable` (such as "XDG_CONFIG_HOME") when
/// it is an absolute path, else `fallback` in the home (such as ".config"). Empty without a home.
std::string desktopFolder(const char* variable, const char* fallback);

} // namespace kelmar::platform
