// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/large_pages.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <malloc.h>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace kelmar::platform {

namespace {

constexpr std::size_t mostInLargePages = std::size_t(256) << 20;
constexpr int usualPadding =
    128 * 1024; // by which the heap grows, and what it keeps when it shrinks

std::uintptr_t rounded(std::uintptr_t address) {
  return (address + largePage - 1) / largePage * largePage;
}

std::uintptr_t endOfHeap() {
  return reinterpret_cast<std::uintptr_t>(::sbrk(0));
}

} // namespace

Memory largeMemory(std::size_t size) {
  const std::size_t whole = rounded(std::max<std::size_t>(size, 1));
  if (whole > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()))
    throw std::bad_alloc();
  Memory memory(static_cast<char*>(std::aligned_alloc(largePage, whole)));
  if (!memory) throw std::bad_alloc();
  if (whole <= mostInLargePages) ::madvise(memory.get(), whole, MADV_HUGEPAGE);
  return memory;
}

void expectAllocations(std::size_t size) {
  if (size > mostInLargePages) return;
  constexpr int aPiece = usualPadding - 4096; // larger ones do not come from the heap
  // What is free at the end of the heap goes first, so that one small piece makes the heap grow;
  // what it then has more than it needs is not given back at the next chance.
  ::malloc_trim(0);
  ::mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  ::mallopt(M_TOP_PAD, static_cast<int>(rounded(size)));
  const std::uintptr_t before = rounded(endOfHeap());
  void* volatile piece = std::malloc(aPiece); // volatile: the pair is not to be optimised away
  ::mallopt(M_TOP_PAD, usualPadding);
  if (const std::uintptr_t after = endOfHeap(); before < after)
    ::madvise(reinterpret_cast<void*>(before), after - before, MADV_HUGEPAGE);
  std::free(piece);
}

void giveBackMemory() {
  ::mallopt(M_TRIM_THRESHOLD, usualPadding);
  ::malloc_trim(0);
}

} // namespace kelmar::platform
