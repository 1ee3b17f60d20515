// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace kelmar::platform {

/// An open file of the system, closed at the end of its scope.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int descriptor) : descriptor_(descriptor) {}
  FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~FileHandle();

  explicit operator bool() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

/// Opens for reading. Raises FileAccessFailed; a folder is refused.
FileHandle openForReading(const std::string& path);

/// Reads up to `size` bytes at the position of the file; fewer only at its end. Raises
/// FileAccessFailed, naming `path`.
std::size_t readSome(const FileHandle& file, char* to, std::size_t size, const std::string& path);

/// The same at a position of its own, which leaves the file's position alone.
std::size_t readSomeAt(const FileHandle& file, char* to, std::size_t size, std::size_t offset,
                       const std::string& path);

/// Raises FileAccessFailed: "PATH: REASON", with the plain English text of the system error.
[[noreturn]] void failFileAccess(const std::string& path, int systemError);
[[noreturn]] void failFileAccess(const std::string& path, const std::string& reason);

} // namespace kelmar::platform
