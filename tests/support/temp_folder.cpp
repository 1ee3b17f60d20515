// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/temp_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kelmar::support {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  std::string pattern = (fs::temp_directory_path() / "kelmar-test-XXXXXX").string();
  if (!::mkdtemp(pattern.data()))
    throw std::runtime_error("no temporary folder below " + fs::temp_directory_path().string());
  path_ = fs::canonical(pattern);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ignored);
  for (fs::recursive_directory_iterator it(path_, ignored), end; !ignored && it != end;
       it.increment(ignored))
    if (it->is_directory(ignored) && !it->is_symlink(ignored))
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
  fs::remove_all(path_, ignored);
}

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
  const fs::path target = path_ / name;
  fs::create_directories(target.parent_path());
  std::ofstream stream(target, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) throw std::runtime_error("cannot write " + target.string());
  return target.string();
}

std::string TempFolder::copyOfSample(std::string_view sample, std::string_view as) const {
  const fs::path source = fs::path(KELMAR_TEST_DATA) / sample;
  const fs::path target = path_ / (as.empty() ? source.filename() : fs::path(as));
  fs::create_directories(target.parent_path());
  fs::copy_file(source, target, fs::copy_options::overwrite_existing);
  fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
  return target.string();
}

std::string bytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace kelmar::support
