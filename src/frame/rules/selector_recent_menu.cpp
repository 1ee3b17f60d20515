// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_recent_menu.h"

#include "platform/recent_entries.h"

#include <filesystem>
#include <system_error>

namespace kelmar {

namespace {

bool isThereOrUnknown(const std::string& file) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::none) return true;
  return std::filesystem::is_regular_file(status);
}

} // namespace

std::vector<RecentFileEntry> recentFileEntries(const platform::Settings& settings) {
  std::vector<RecentFileEntry> entries;
  int number = 0;
  for (const platform::RecentEntry& recent : platform::GetRecentEntries(settings, "RecentFile")) {
    ++number;
    if (isThereOrUnknown(recent.value))
      entries.push_back({"k" + std::to_string(number), recent.value});
  }
  return entries;
}

} // namespace kelmar
