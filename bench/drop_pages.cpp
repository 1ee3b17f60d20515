// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_drop_pages   drops the pages of the files named on standard input, one a line, from the
// page cache, and prints how many of their pages were and are in memory: "48828 of 50000 before, 0
// after".

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

struct Pages {
  std::size_t all = 0, before = 0, after = 0;
};

std::size_t pagesInMemory(int file, std::size_t size, std::size_t pages) {
  void* const view = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
  if (view == MAP_FAILED) return pages;
  std::vector<unsigned char> present(pages);
  const bool isKnown = ::mincore(view, size, present.data()) == 0;
  ::munmap(view, size);
  if (!isKnown) return pages;
  return static_cast<std::size_t>(
      std::count_if(present.begin(), present.end(), [](unsigned char page) { return page & 1; }));
}

bool drop(const std::string& path, Pages& sum) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (file < 0 || ::fstat(file, &status) != 0) {
    std::perror(path.c_str());
    return false;
  }
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > 0) {
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t pages = (size + pageSize - 1) / pageSize;
    sum.all += pages;
    sum.before += pagesInMemory(file, size, pages);
    // Pages that are not on the disk yet would stay.
    ::fdatasync(file);
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    sum.after += pagesInMemory(file, size, pages);
  }
  ::close(file);
  return true;
}

} // namespace

int main() {
  Pages sum;
  bool isWell = true;
  for (std::string name; std::getline(std::cin, name);)
    isWell = drop(name, sum) && isWell;
  std::printf("%zu of %zu before, %zu after\n", sum.before, sum.all, sum.after);
  return isWell ? 0 : 1;
}
