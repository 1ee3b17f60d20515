// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/recent_entries.h"

#include "base/failure.h"

namespace kelmar::platform {

namespace {

constexpr int entriesRead = 8;

std::string pathOf(const std::string& prefix, int number) {
  return kelmarSettings + prefix + std::to_string(number);
}

std::optional<std::string> readQuietly(const Settings& settings, const std::string& path) {
  try {
    return settings.read(path);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

} // namespace

std::string ReadSetting(const Settings& settings, const std::string& name,
                        const std::string& fallback) {
  const auto value = readQuietly(settings, kelmarSettings + name);
  return value && !value->empty() ? *value : fallback;
}

std::string RegistryReadValue(const Settings& settings, const std::string& path) {
  return readQuietly(settings, path).value_or("");
}

void RegistryWriteValue(Settings& settings, const std::string& path, const std::string& value) {
  try {
    settings.write(path, value);
  } catch (const Failure&) {
    // What cannot be kept is forgotten.
  }
}

std::vector<RecentEntry> GetRecentEntries(const Settings& settings, const std::string& prefix) {
  std::vector<RecentEntry> entries;
  for (int number = 1; number <= entriesRead; ++number) {
    if (auto value = readQuietly(settings, pathOf(prefix, number)))
      entries.push_back({std::to_string(number) + prefix, std::move(*value)});
  }
  return entries;
}

void AddRecentEntry(Settings& settings, const std::string& prefix, const std::string& value) {
  std::vector<std::string> others;
  for (int number = 1; number <= entriesRead; ++number) {
    const std::string path = pathOf(prefix, number);
    const auto old = readQuietly(settings, path);
    if (!old) continue;
    if (*old != value) others.push_back(*old);
    try {
      settings.remove(path);
    } catch (const Failure&) {
      // It will be written over, or stay.
    }
  }
  RegistryWriteValue(settings, pathOf(prefix, 1), value);
  int number = 2;
  for (const std::string& other : others)
    RegistryWriteValue(settings, pathOf(prefix, number++), other);
}

} // namespace kelmar::platform
