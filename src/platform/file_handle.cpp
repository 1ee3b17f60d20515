// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_handle.h"

#include "base/failure.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelmar::platform {

FileHandle::~FileHandle() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

void failFileAccess(const std::string& path, const std::string& reason) {
  throw Failure(FileAccessFailed, {}, path + ": " + reason);
}

void failFileAccess(const std::string& path, int systemError) {
  // Not strerror: that follows the locale, and our messages are English.
  const char* text = ::strerrordesc_np(systemError);
  failFileAccess(path, text ? std::string(text) : "system error " + std::to_string(systemError));
}

FileHandle openForReading(const std::string& path) {
  // A path with a NUL byte would silently name another file.
  if (path.find('\0') != std::string::npos) failFileAccess(path, ENOENT);
  FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  if (!file) failFileAccess(path, errno);
  struct stat status {};
  if (::fstat(file.descriptor(), &status) != 0) failFileAccess(path, errno);
  if (S_ISDIR(status.st_mode)) failFileAccess(path, EISDIR);
  return file;
}

namespace {

template <class Read>
std::size_t readFully(Read read, std::size_t size, const std::string& path) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = read(done);
    if (got == 0) break;
    if (got < 0) {
      if (errno == EINTR) continue;
      failFileAccess(path, errno);
    }
    done += static_cast<std::size_t>(got);
  }
  return done;
}

} // namespace

std::size_t readSome(const FileHandle& file, char* to, std::size_t size, const std::string& path) {
  return readFully(
      [&](std::size_t done) { return ::read(file.descriptor(), to + done, size - done); }, size,
      path);
}

std::size_t readSomeAt(const FileHandle& file, char* to, std::size_t size, std::size_t offset,
                       const std::string& path) {
  return readFully(
      [&](std::size_t done) {
        return ::pread(file.descriptor(), to + done, size - done,
                       static_cast<off_t>(offset + done));
      },
      size, path);
}

} // namespace kelmar::platform
