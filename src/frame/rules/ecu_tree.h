// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

struct SiteParameters;

/// A folder of vehicles or families, or an ECU file.
struct EcuTreeNode {
  std::string name;    ///< as it is shown: of a file without ".xml"
  std::string address; ///< absolute local path, "/" as separator
  std::string search;  ///< searchForm of the name
  bool isFile = false;
  std::vector<EcuTreeNode> children; ///< folders before files, each in natural order
};

/// The folders and ECU files of a data set, without a look into any file.
struct EcuTree {
  EcuTreeNode root; ///< the data set's folder
  std::size_t files = 0;
  /// What is there but not shown, and why, one line each in plain English.
  std::vector<std::string> troubles;
};

/// Reads the folders below `folder`. ECU files are the regular files "*.xml", in any case; names
/// that begin with "." are passed over. Symbolic links are followed as long as they do not leave
/// `dataRoot` nor lead into a folder above themselves. Folders deeper than 64 and more than 250,000
/// entries are left out and told. Never raises: a folder that cannot be read is a trouble.
EcuTree readEcuTree(const std::string& folder, const std::string& dataRoot);

/// Addresses of all ECU files, ordered by path (byte by byte).
std::vector<std::string> ecuFilesOf(const EcuTree& tree);

/// The same over all data sets of a site. A file that stands in several counts once.
std::vector<std::string> ecuFilesOf(const SiteParameters& site);

/// The form in which names are compared and searched: without case and without accents.
std::string searchForm(std::string_view text);

/// Order of two search forms: below 0, 0 or above 0. Numbers count by their value, so "door 9"
/// stands before "door 10" and "door 09" is equal to "door 9".
int compareNaturally(std::string_view a, std::string_view b);

} // namespace kelmar
