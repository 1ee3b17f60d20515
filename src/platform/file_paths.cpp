// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kelmar::platform {

namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// A "%" that no two digits follow stands for itself.
std::string percentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      const int high = hexDigit(text[i + 1]), low = hexDigit(text[i + 2]);
      if (high >= 0 && low >= 0) {
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
        continue;
      }
    }
    decoded += text[i];
  }
  return decoded;
}

// Only for ASCII prefixes such as "file:"; the rest of the text is not looked at.
bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  const bool same =
      std::equal(prefix.begin(), prefix.end(), text.begin(), [](char expected, char c) {
        return expected == (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
      });
  if (same) text.remove_prefix(prefix.size());
  return same;
}

} // namespace

std::string absolutePath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path start =
      path.empty() ? std::filesystem::current_path(error) : std::filesystem::absolute(path, error);
  if (error) return path;
  std::string text = start.lexically_normal().string();
  while (text.size() > 1 && text.back() == '/')
    text.pop_back();
  return text;
}

std::string joinPath(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  while (folder.size() > 1 && folder.back() == '/')
    folder.remove_suffix(1);
  while (!name.empty() && name.front() == '/')
    name.remove_prefix(1);
  std::string path(folder);
  if (path.back() != '/') path += '/';
  path += name;
  return path;
}

std::string fileNameOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string folderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  if (slash == std::string_view::npos) return {};
  return std::string(path.substr(0, slash == 0 ? 1 : slash));
}

std::string localPathOf(const std::string& pathOrUrl) {
  std::string_view rest = pathOrUrl;
  if (!takePrefix(rest, "file:")) return pathOrUrl;
  if (takePrefix(rest, "//")) {
    takePrefix(rest, "localhost");
    // Anything else before the path is another machine's name.
    if (rest.empty() || rest.front() != '/') return pathOrUrl;
  }
  if (rest.empty()) return pathOrUrl;
  std::string path = percentDecoded(rest);
  // "%00" would cut the path short in the system's calls.
  return path.find('\0') == std::string::npos ? path : pathOrUrl;
}

void CreateFolderChain(const std::string& root, const std::string& path) {
  std::string whole = root + path;
  std::replace(whole.begin() + static_cast<std::ptrdiff_t>(root.size()), whole.end(), '\\', '/');
  if (whole.empty() || whole.find('\0') != std::string::npos) return;
  std::error_code ignored;
  std::filesystem::create_directories(whole, ignored);
}

} // namespace kelmar::platform
