// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <string>
#include <vector>

namespace kelmar {

/// An entry of the menu of the button `Open`.
struct RecentFileEntry {
  std::string key; ///< "k" and the number of the file among the recent ones, from 1
  std::string text;
  friend bool operator==(const RecentFileEntry&, const RecentFileEntry&) = default;
};

/// The recent files that exist. One whose existence cannot be found out stays in the list: it may
/// lie on a drive that is away for the moment.
std::vector<RecentFileEntry> recentFileEntries(const platform::Settings& settings);

} // namespace kelmar
