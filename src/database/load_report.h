// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kelmar {

/// One item of a file that was read but is not in the model.
struct NotKept {
  std::string kind;     ///< what it is: "Position", "Flag", "Display", "Screen", "Value", ...
  std::string name;     ///< its name in the file, may be empty
  std::string path;     ///< where it stands: "Requests/Request[Read]/Sent/DataItem[Speed]"
  std::size_t line = 0; ///< 1-based; 0 when unknown (clipboard text)
  std::string reason;   ///< plain English
};

/// What a load did not keep, in the order of reading. It stands beside the model and changes
/// nothing in it.
using LoadReport = std::vector<NotKept>;

} // namespace kelmar
