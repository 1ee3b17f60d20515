// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace kelmar::platform {

/// Bytes of a large page. Memory taken in such pieces saves tens of thousands of visits to the
/// kernel while a file of some size is loaded.
constexpr std::size_t largePage = std::size_t(2) << 20;

struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<char, FreeMemory>;

/// Memory for `size` bytes, in large pages where the machine has them. Raises std::bad_alloc.
Memory largeMemory(std::size_t size);

/// Says that small pieces, `size` bytes together, are about to be allocated: they come from large
/// pages where the machine has them. Takes address space only, and memory as it is used. More than
/// 256 MB are not helped: so many large pages may have to be found first, which takes longer.
void expectAllocations(std::size_t size);
/// Gives back what is free, and what expectAllocations took and nobody used.
void giveBackMemory();

} // namespace kelmar::platform
