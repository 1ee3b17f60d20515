// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include "base/failure.h"
#include "platform/file_handle.h"

#include <algorithm>
#include <sys/stat.h>
#include <vector>

namespace kelmar::platform {

namespace {

constexpr std::size_t chunkSize = 1u << 16;

bool statusOf(const std::string& path, struct stat& status) {
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0;
}

} // namespace

std::string readFile(const std::string& path) {
  const FileHandle file = openForReading(path);
  struct stat status {};
  std::string bytes;
  if (::fstat(file.descriptor(), &status) == 0 && S_ISREG(status.st_mode))
    bytes.resize(static_cast<std::size_t>(status.st_size));
  bytes.resize(readSome(file, bytes.data(), bytes.size(), path));
  // A pipe has no size, and a file may have grown meanwhile.
  for (;;) {
    char more[4096];
    const std::size_t got = readSome(file, more, sizeof more, path);
    bytes.append(more, got);
    if (got < sizeof more) return bytes;
  }
}

std::string readHead(const std::string& path, std::size_t limit) {
  const FileHandle file = openForReading(path);
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t before = bytes.size(), wanted = std::min(limit - before, chunkSize);
    bytes.resize(before + wanted);
    const std::size_t got = readSome(file, bytes.data() + before, wanted, path);
    bytes.resize(before + got);
    if (got < wanted) break;
  }
  return bytes;
}

bool fileExists(const std::string& path) {
  struct stat status {};
  return statusOf(path, status) && S_ISREG(status.st_mode);
}

bool folderExists(const std::string& path) {
  struct stat status {};
  return statusOf(path, status) && S_ISDIR(status.st_mode);
}

bool isReadOnly(const std::string& path) {
  struct stat status {};
  return statusOf(path, status) && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

} // namespace kelmar::platform
