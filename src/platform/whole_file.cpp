// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "platform/file_handle.h"
#include "platform/files.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

// Replacing a file at once. The bytes go into a temporary file beside the target, and one rename
// puts it in place, so that whoever looks, at whatever moment, finds the old or the new file whole.
//
// Each temporary file is locked by the saver that writes it, and the lock ends with the process. So
// a later save can tell a leftover of a crash, which it removes, from the work of another program
// that saves the same file right now.

namespace kelmar::platform {

namespace {

constexpr std::size_t chunkSize = 1u << 20;
constexpr std::string_view temporarySuffix = ".kelmar-save";

// The file behind a chain of symbolic links, which need not exist.
std::string resolveLinks(std::string path, const std::string& shown) {
  for (int hops = 0; hops < 40; ++hops) {
    std::vector<char> target(4096);
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    if (length < 0) return path; // no link, or nothing there
    if (static_cast<std::size_t>(length) == target.size()) failFileAccess(shown, ENAMETOOLONG);
    const std::string next(target.data(), static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : joinPath(folderOf(path), next);
  }
  failFileAccess(shown, ELOOP);
}

// Hidden, and short enough for a suffix whatever the length of the target's name.
std::string temporaryPrefix(const std::string& name) {
  constexpr std::size_t longestKept = 180;
  if (name.size() <= longestKept) return "." + name + ".";
  std::uint64_t hash = 14695981039346656037u;
  for (const unsigned char c : name)
    hash = (hash ^ c) * 1099511628211u;
  return "." + name.substr(0, longestKept) + "-" + std::to_string(hash) + ".";
}

// True for PREFIX DIGITS "-" DIGITS SUFFIX only: a target "a" must not take for its own what
// belongs to a target "a.b".
bool isTemporaryName(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix) || !name.ends_with(temporarySuffix)) return false;
  if (name.size() < prefix.size() + temporarySuffix.size()) return false;
  name = name.substr(prefix.size(), name.size() - prefix.size() - temporarySuffix.size());
  const auto dash = name.find('-');
  if (dash == std::string_view::npos || dash == 0 || dash + 1 == name.size()) return false;
  return std::all_of(name.begin(), name.end(),
                     [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
}

void clearLeftovers(const std::string& folder, const std::string& prefix) {
  const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
  if (!listing) return; // a folder that may be written but not listed
  while (const dirent* entry = ::readdir(listing.get())) {
    if (!isTemporaryName(entry->d_name, prefix)) continue;
    const std::string path = joinPath(folder, entry->d_name);
    const FileHandle file(
        ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat status {};
    if (!file || ::fstat(file.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    if (::flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0) ::unlink(path.c_str());
  }
}

// A locked temporary file, removed at the end of its scope unless it was moved to its place.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& folder, const std::string& prefix, mode_t mode,
                const std::string& shown) {
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < 1000; ++attempt) {
      path_ = joinPath(folder, prefix + std::to_string(::getpid()) + "-" +
                                   std::to_string(counter++) + std::string(temporarySuffix));
      file_ = FileHandle(
          ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
      if (!file_) {
        if (errno == EEXIST) continue;
        const int error = errno;
        path_.clear();
        failFileAccess(shown, error);
      }
      // Another saver may have taken the file for a leftover before it was locked. Where the file
      // system knows no locks, nobody can take it for one.
      const bool taken =
          ::flock(file_.descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
      struct stat status {};
      if (!taken && ::fstat(file_.descriptor(), &status) == 0 && status.st_nlink > 0) return;
    }
    path_.clear();
    failFileAccess(shown, EEXIST);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }

  const FileHandle& file() const { return file_; }

  void write(std::string_view bytes, const std::string& shown) const {
    while (!bytes.empty()) {
      const ssize_t written =
          ::write(file_.descriptor(), bytes.data(), std::min(bytes.size(), chunkSize));
      if (written < 0) {
        if (errno == EINTR) continue;
        failFileAccess(shown, errno);
      }
      bytes.remove_prefix(static_cast<std::size_t>(written));
      startFlush();
    }
  }

  void moveTo(const std::string& target, const std::string& shown) {
    if (::rename(path_.c_str(), target.c_str()) != 0) failFileAccess(shown, errno);
    path_.clear();
  }

 private:
  // The disk begins with what is there while the rest is being written. Where that cannot be asked
  // for, the flush at the end takes longer.
  void startFlush() const { ::sync_file_range(file_.descriptor(), 0, 0, SYNC_FILE_RANGE_WRITE); }

  std::string path_;
  FileHandle file_;
};

// A rename replaces a file that could not be written to, so what a write would meet is asked first.
void demandWritable(const std::string& target, const struct stat& status,
                    const std::string& shown) {
  if (S_ISDIR(status.st_mode)) failFileAccess(shown, EISDIR);
  if (!S_ISREG(status.st_mode)) failFileAccess(shown, "not a regular file");
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
    failFileAccess(shown, "the file is read only");
  if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) failFileAccess(shown, errno);
}

void flushFolder(const std::string& folder) {
  // The new file is in place already: a folder that cannot be flushed is no failed save.
  const FileHandle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle) ::fsync(handle.descriptor());
}

// `fill` writes the bytes, `check` raises when the file does not hold them. `copiedMode`: that of
// the copied file; none: what the umask leaves.
void replaceFile(const std::string& path, const mode_t* copiedMode,
                 const std::function<void(TemporaryFile&)>& fill,
                 const std::function<void(const FileHandle&)>& check) {
  if (path.empty() || path.find('\0') != std::string::npos) failFileAccess(path, ENOENT);
  const std::string target = resolveLinks(path, path);
  const std::string name = fileNameOf(target);
  if (name.empty()) failFileAccess(path, EISDIR);
  const std::string folder = folderOf(target).empty() ? "." : folderOf(target);

  struct stat old {};
  const bool exists = ::lstat(target.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) failFileAccess(path, errno);
  if (exists) demandWritable(target, old, path);

  const std::string prefix = temporaryPrefix(name);
  clearLeftovers(folder, prefix);

  const bool ownMode = !exists && !copiedMode;
  TemporaryFile temporary(folder, prefix, ownMode ? 0666 : 0600, path);
  fill(temporary);
  const int descriptor = temporary.file().descriptor();
  if (!ownMode) {
    mode_t mode = exists ? old.st_mode & 07777 : (*copiedMode & 0777) | S_IWUSR;
    // Only root may give a file away; for others it becomes the saver's own, in the old group where
    // they belong to it. What that group was allowed must not pass to another one. The mode is set
    // last, since a change of owner takes bits from it.
    if (exists && ::fchown(descriptor, old.st_uid, old.st_gid) != 0 &&
        ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0)
      mode = (mode & ~static_cast<mode_t>(070)) | ((mode & 07) << 3);
    if (::fchmod(descriptor, mode) != 0) failFileAccess(path, errno);
  }
  check(temporary.file()); // while the disk is busy with it
  if (::fsync(descriptor) != 0) failFileAccess(path, errno);
  temporary.moveTo(target, path);
  flushFolder(folder);
}

[[noreturn]] void failReadBack(const std::string& path) {
  failFileAccess(path, "the file does not read back as it was written");
}

} // namespace

void writeWhole(const std::string& path, std::string_view bytes) {
  replaceFile(
      path, nullptr, [&](TemporaryFile& temporary) { temporary.write(bytes, path); },
      [&](const FileHandle& file) {
        std::vector<char> chunk(chunkSize);
        std::size_t offset = 0;
        for (;;) {
          const std::size_t got = readSomeAt(file, chunk.data(), chunk.size(), offset, path);
          if (got > bytes.size() - offset ||
              std::memcmp(chunk.data(), bytes.data() + offset, got) != 0)
            failReadBack(path);
          offset += got;
          if (got < chunk.size()) break;
        }
        if (offset != bytes.size()) failReadBack(path);
      });
}

void copyWhole(const std::string& from, const std::string& to) {
  const FileHandle source = openForReading(from);
  struct stat status {};
  if (::fstat(source.descriptor(), &status) != 0) failFileAccess(from, errno);
  if (!S_ISREG(status.st_mode)) failFileAccess(from, "not a regular file");
  // In pieces: a copy must not cost the memory of a large file.
  replaceFile(
      to, &status.st_mode,
      [&](TemporaryFile& temporary) {
        std::vector<char> chunk(chunkSize);
        for (std::size_t offset = 0;;) {
          const std::size_t got = readSomeAt(source, chunk.data(), chunk.size(), offset, from);
          temporary.write({chunk.data(), got}, to);
          offset += got;
          if (got < chunk.size()) break;
        }
      },
      [&](const FileHandle& file) {
        std::vector<char> expected(chunkSize), found(chunkSize);
        for (std::size_t offset = 0;;) {
          const std::size_t size =
              readSomeAt(source, expected.data(), expected.size(), offset, from);
          const std::size_t got = readSomeAt(file, found.data(), found.size(), offset, to);
          if (got != size || std::memcmp(expected.data(), found.data(), got) != 0) failReadBack(to);
          offset += got;
          if (got < found.size()) break;
        }
      });
}

} // namespace kelmar::platform
