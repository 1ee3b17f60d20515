// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/full_path.h"

#include "platform/files.h"

#include <filesystem>

namespace kelmar::frame {

void BuildFullPath(const std::string& path) {
  if (path.empty() || platform::folderExists(path)) return;
  const std::string parent = platform::folderOf(path);
  if (parent != path) BuildFullPath(parent);
  std::error_code ignored;
  std::filesystem::create_directory(path, ignored);
}

} // namespace kelmar::frame
