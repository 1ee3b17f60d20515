// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::platform {

/// The whole file. Raises FileAccessFailed with the path and the system's reason.
std::string readFile(const std::string& path);

/// At most `limit` bytes from the start of the file.
std::string readHead(const std::string& path, std::size_t limit);

bool fileExists(const std::string& path); ///< a regular file, symbolic links followed
bool folderExists(const std::string& path);

/// True when no write bit is set in the file's mode, whoever asks.
bool isReadOnly(const std::string& path);

/// Replaces the file at once or not at all: a temporary file in the same folder, read back and
/// compared, flushed to the disk, renamed over the old one; mode and symbolic link are kept. A
/// temporary file that a crash left for this name is cleared away first. Raises FileAccessFailed
/// with path and reason; the old file is then whole.
void writeWhole(const std::string& path, std::string_view bytes);

/// Copies with the same care as writeWhole, over an existing `to`.
void copyWhole(const std::string& from, const std::string& to);

/// Absolute path, "." and ".." removed, symbolic links kept.
std::string absolutePath(const std::string& path);
/// `folder` + separator + `name`, with one separator between.
std::string joinPath(std::string_view folder, std::string_view name);
std::string fileNameOf(std::string_view path);
std::string folderOf(std::string_view path);
/// "file:///a%20b" or "file:/a" to "/a b"; any other text unchanged.
std::string localPathOf(const std::string& pathOrUrl);

/// Creates the parents first, then `root` + `path` when missing. Errors are ignored.
void CreateFolderChain(const std::string& root, const std::string& path);

} // namespace kelmar::platform
