// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/path_tools.h"

#include "base/failure.h"
#include "base/text.h"
#include "platform/files.h"

#include <cstdlib>
#include <optional>

namespace kelmar::platform {

namespace {

std::string homeFolder() {
  const char* home = std::getenv("HOME");
  return home ? home : "";
}

// One line of user-dirs.dirs: XDG_DOCUMENTS_DIR="$HOME/Documents". Only "$HOME" is a variable
// there.
std::optional<std::string> documentsFolderOf(const std::string& line, const std::string& home) {
  constexpr std::string_view name = "XDG_DOCUMENTS_DIR=\"";
  const std::string_view text = trimBlanks(line);
  if (!text.starts_with(name) || !text.ends_with('"') || text.size() <= name.size())
    return std::nullopt;
  std::string folder(text.substr(name.size(), text.size() - name.size() - 1));
  constexpr std::string_view variable = "$HOME";
  if (folder.starts_with(variable)) folder.replace(0, variable.size(), home);
  if (!folder.starts_with('/')) return std::nullopt;
  return folder;
}

} // namespace

std::string desktopFolder(const char* variable, const char* fallback) {
  const char* value = std::getenv(variable);
  if (value && value[0] == '/') // the conventions say: a relative path is to be ignored
    return value;
  const std::string home = homeFolder();
  return home.empty() ? home : joinPath(home, fallback);
}

PathTools::PathTools(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {
  if (!dataFolder_.empty()) return;
  const std::string data = desktopFolder("XDG_DATA_HOME", ".local/share");
  if (!data.empty()) dataFolder_ = joinPath(data, "kelmar");
}

std::string PathTools::NormalizeFolder(const std::string& folder) const {
  if (folder.empty()) return folder;
  const std::size_t last = folder.find_last_not_of('/');
  return last == std::string::npos ? "/" : folder.substr(0, last + 1) + "/";
}

std::string PathTools::GetUserDocumentsFolder() const {
  const std::string home = homeFolder();
  const std::string configuration = desktopFolder("XDG_CONFIG_HOME", ".config");
  const std::string file = joinPath(configuration, "user-dirs.dirs");
  if (!configuration.empty() && fileExists(file)) {
    try {
      for (const std::string& line : split(readFile(file), "\n")) {
        if (auto folder = documentsFolderOf(line, home)) return *folder;
      }
    } catch (const Failure&) {
      // An unreadable file is as good as none.
    }
  }
  return home.empty() ? home : joinPath(home, "Documents");
}

} // namespace kelmar::platform
