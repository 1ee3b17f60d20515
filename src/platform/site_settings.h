// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/path_tools.h"

#include <map>
#include <optional>
#include <string>

namespace kelmar::platform {

/// What the start of the program says about the site, before any configuration is read.
struct SiteStart {
  std::string site;     ///< "--site": folder, "file:" or "http:" address; empty when not given
  std::string language; ///< "--lang"; empty when not given
  /// Folder of the running program, where the search for an installed or in-tree site begins.
  std::string programFolder = runningProgramFolder();
  std::string systemFile = "/etc/kelmar/site.conf";

  static std::string runningProgramFolder();
};

/// Which site the program works on, and in which language.
///
/// Each value comes from the first place that has it: the command line, the environment
/// (KELMAR_SITE, KELMAR_LANG), the user's file $XDG_CONFIG_HOME/kelmar/site.conf, the system's
/// file, and at last what is found: the installed site beside the program, the site of a source
/// tree above it, the locale's language. docs/site.md describes files and keys.
class SiteSettings {
 public:
  /// A file that is missing or cannot be read counts as empty.
  explicit SiteSettings(const SiteStart& start = {});

  /// A code such as "fr"; "en" when nothing says otherwise.
  const std::string& CurrentLanguage() const { return language_; }
  /// Absolute path or address, without separator at its end. Empty when there is no site.
  const std::string& DataRoot() const { return dataRoot_; }
  std::string SiteKey() const { return value("siteKey"); }
  bool UseRemoteFlag() const;
  std::string RemoteOverride() const { return value("remoteOverride"); }
  std::string RemoteServerName() const { return value("remoteServer"); }
  /// The server root to which the path "/Omnikor" is added; empty when the site has none.
  std::string IntranetServerRoot() const { return value("intranetServer"); }
  /// The information object of permanent links: none when the site names no data server.
  std::optional<std::string> ZEM_RemoteDataServer() const;

  /// Follows DataRoot where the command line or the environment chose it and it is local.
  const PathTools& paths() const { return paths_; }

  /// Keeps the language in the user's file, whose other lines stay as they are. Raises
  /// FileAccessFailed; then nothing has changed.
  void storeLanguage(const std::string& code);

 private:
  std::string value(const std::string& key) const;

  std::map<std::string, std::string> values_; // the system's file under the user's
  std::string language_, dataRoot_;
  PathTools paths_;
};

/// Path of the user's file; empty without a home.
std::string userSiteFile();

/// The language of the locale: the first of LC_ALL, LC_MESSAGES and LANG that is set decides,
/// "fr_FR.UTF-8" gives "fr". Empty for "C" and "POSIX", and when none is set.
std::string localeLanguage();

} // namespace kelmar::platform
