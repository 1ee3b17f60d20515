// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// A folder of vehicles that can be chosen as a whole.
struct DataSet {
  std::string label;
  std::string folder; ///< absolute; need not exist
};

/// Something that the site offers for download.
struct SiteDownload {
  std::string application; ///< the application's reference
  std::string code;        ///< code of the application's part
  std::string name;        ///< code of the download
  std::string url, filesList;
};

/// What the parameter file of a site says. Paths are absolute and lie below the data root.
struct SiteParameters {
  std::string root; ///< the data root, without separator at its end
  std::string file; ///< the parameter file itself
  std::string name, key;
  std::map<std::string, std::string> descriptions; ///< by language code; "" for any language
  /// Empty: the site says nothing.
  std::optional<std::string> xmlEncoding;
  /// Empty: the site says nothing. An empty text means that files get no such instruction.
  std::optional<std::string> xmlStyleSheet;
  std::string addressingFile;    ///< need not exist
  std::string projectsFile;      ///< empty when the site has none
  std::vector<DataSet> dataSets; ///< one or more
  std::vector<SiteDownload> downloads;

  /// In this language, else in any; empty when there is none.
  std::string description(const std::string& lang) const;
};

/// Reads `parametersFile` below `dataRoot`, a folder of this machine ("file:" addresses are taken
/// too). Raises Failure 1, which names the file and, where there is one, the line: the file cannot
/// be read, is no parameter file, names no data set or an unknown encoding, or holds a path that
/// leaves the data root.
SiteParameters readSiteParameters(const std::string& dataRoot,
                                  const std::string& parametersFile = "parameters.xml");

} // namespace kelmar
