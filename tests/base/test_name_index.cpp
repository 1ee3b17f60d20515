// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/name_index.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace kelmar {
namespace {

TEST(NameIndex, AnEmptyIndexFindsNothing) {
  NameIndex<int> index;
  EXPECT_EQ(index.find("a"), nullptr);
  index.erase("a");
  EXPECT_EQ(index.size(), 0u);
}

TEST(NameIndex, AName_IsTakenOnceAndTheEmptyNameIsAName) {
  NameIndex<int> index;
  EXPECT_TRUE(index.insert("", 1));
  EXPECT_FALSE(index.insert("", 2));
  ASSERT_NE(index.find(""), nullptr);
  EXPECT_EQ(*index.find(""), 1);
}

TEST(NameIndex, RandomUseAgreesWithAMap) {
  constexpr unsigned seed = 20261121;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::vector<std::string> names;
  for (int i = 0; i < 3000; ++i)
    names.push_back("name " + std::to_string(i));
  NameIndex<int> index;
  std::map<std::string, int> expected;
  for (int step = 0; step < 60000; ++step) {
    const std::string& name = names[random() % names.size()];
    if (random() % 3 == 0) {
      index.erase(name);
      expected.erase(name);
    } else {
      EXPECT_EQ(index.insert(name, step), expected.try_emplace(name, step).second);
    }
  }
  EXPECT_EQ(index.size(), expected.size());
  for (const std::string& name : names) {
    const int* found = index.find(name);
    const auto wanted = expected.find(name);
    ASSERT_EQ(found != nullptr, wanted != expected.end()) << name;
    if (found) {
      EXPECT_EQ(*found, wanted->second) << name;
    }
  }
}

} // namespace
} // namespace kelmar
