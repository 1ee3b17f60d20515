// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/large_pages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace kelmar::platform {
namespace {

TEST(LargePages, LargeMemoryBeginsAtALargePageAndHoldsWhatWasAskedFor) {
  for (const std::size_t size : {std::size_t(0), std::size_t(1), largePage - 1, largePage + 1}) {
    const Memory memory = largeMemory(size);
    ASSERT_TRUE(memory);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.get()) % largePage, 0u);
    std::memset(memory.get(), 'x', size);
  }
}

TEST(LargePages, MemoryThatNoMachineHasIsRefused) {
  EXPECT_THROW((void)largeMemory(std::numeric_limits<std::size_t>::max() / 2), std::bad_alloc);
}

TEST(LargePages, AllocationsThatWereExpectedWorkAsOthersDo) {
  for (int round = 0; round < 3; ++round) {
    expectAllocations(std::size_t(20) << 20);
    std::vector<std::unique_ptr<std::string>> pieces;
    for (int i = 0; i < 20000; ++i)
      pieces.push_back(std::make_unique<std::string>(static_cast<std::size_t>(i % 2000), 'a'));
    for (std::size_t i = 0; i < pieces.size(); i += 2)
      pieces[i].reset();
    giveBackMemory();
    for (std::size_t i = 1; i < pieces.size(); i += 2)
      ASSERT_EQ(*pieces[i], std::string(i % 2000, 'a'));
  }
}

} // namespace
} // namespace kelmar::platform
