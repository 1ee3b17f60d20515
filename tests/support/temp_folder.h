// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelmar::support {

/// A new empty folder, gone with all that is in it at the end, even what was made read-only.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// Absolute path of a name inside; it need not exist.
  std::string file(std::string_view name) const { return (path_ / name).string(); }
  /// Writes a file, and the folders above it, and gives its absolute path.
  std::string write(std::string_view name, std::string_view bytes) const;
  /// A fresh, writable copy of a file of tests/data, such as "good/two_screens.xml", under its own
  /// name or `as`. Raises std::filesystem::filesystem_error when there is no such sample.
  std::string copyOfSample(std::string_view sample, std::string_view as = {}) const;

 private:
  std::filesystem::path path_;
};

/// All bytes of a file. Raises std::runtime_error when it cannot be read.
std::string bytesOf(const std::string& path);

} // namespace kelmar::support
