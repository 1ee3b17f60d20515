// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <string>
#include <vector>

namespace kelmar::platform {

/// Where the settings of this program stand.
inline constexpr char kelmarSettings[] = "ZEM\\Diag\\Kelmar\\";

// None of these raises: a store that fails reads as empty and keeps nothing.

/// The value `name` of kelmarSettings; `fallback` when it is missing or empty.
std::string ReadSetting(const Settings& settings, const std::string& name,
                        const std::string& fallback);

/// The value of a full path, empty when it is missing.
std::string RegistryReadValue(const Settings& settings, const std::string& path);
void RegistryWriteValue(Settings& settings, const std::string& path, const std::string& value);

struct RecentEntry {
  std::string key; ///< number and prefix, such as "1RecentFile"
  std::string value;
  friend bool operator==(const RecentEntry&, const RecentEntry&) = default;
};

/// The values `prefix`1 to `prefix`8 that exist, in this order.
std::vector<RecentEntry> GetRecentEntries(const Settings& settings, const std::string& prefix);

/// Puts `value` at 1 and moves the others on, without the ones equal to it. At most eight others
/// are read, so the last number written is 9, which is not read back.
void AddRecentEntry(Settings& settings, const std::string& prefix, const std::string& value);

} // namespace kelmar::platform
