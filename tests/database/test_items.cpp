// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/items.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace kelmar {
namespace {

struct Named {
  explicit Named(int is) : number(is) {}
  int number;
  bool cleared = false;
  void clear() { cleared = true; }
};

class NamedItems : public Items<Named> {
 public:
  Named* add(int number, std::string_view key) {
    return append(std::make_shared<Named>(number), key);
  }
  Named* addWithoutKey(int number) { return append(std::make_shared<Named>(number)); }
  Named* addBefore(int position, int number, std::string_view key) {
    return insertBefore(position, std::make_shared<Named>(number), key);
  }
};

std::string keyOf(int number) {
  return "Clé " + std::to_string(number);
}

TEST(Items, KeysAreFoundInSmallAndInLargeCollections) {
  NamedItems items;
  for (int i = 1; i <= 40; ++i) {
    items.add(i, keyOf(i));
    for (int j = 1; j <= 40; ++j) {
      const Named* found = items.findKey("CLÉ " + std::to_string(j));
      ASSERT_EQ(found != nullptr, j <= i) << i << ", " << j;
      if (found) {
        EXPECT_EQ(found->number, j);
      }
    }
  }
}

TEST(Items, AKeyThatIsTakenRaisesInSmallAndInLargeCollections) {
  NamedItems items;
  for (int i = 1; i <= 20; ++i) {
    items.add(i, keyOf(i));
    EXPECT_THROW(items.add(99, "cLÉ 1"), Failure);
    EXPECT_EQ(items.Count(), i);
  }
}

TEST(Items, AKeyIsFoundAmongManyMembersWithoutOne) {
  NamedItems items;
  items.add(1, "first");
  for (int i = 2; i <= 30; ++i)
    items.addWithoutKey(i);
  items.add(31, "last");
  EXPECT_EQ(items.Item("FIRST")->number, 1);
  EXPECT_EQ(items.Item("Last")->number, 31);
  EXPECT_EQ(items.findKey("none"), nullptr);
}

TEST(Items, AClearedCollectionKnowsNoKeys) {
  NamedItems items;
  for (int i = 1; i <= 20; ++i)
    items.add(i, keyOf(i));
  items.clear();
  EXPECT_EQ(items.findKey(keyOf(1)), nullptr);
  EXPECT_EQ(items.add(7, keyOf(1))->number, 7);
  EXPECT_EQ(items.Item(keyOf(1))->number, 7);
}

TEST(Items, AnyOrderOfChangesKeepsKeysAndMembersTogether) {
  constexpr unsigned seed = 20260115;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  NamedItems items;
  std::map<int, bool> present;
  for (int step = 0; step < 4000; ++step) {
    const int number = static_cast<int>(random() % 24);
    switch (random() % 4) {
    case 0:
      if (!present[number]) items.add(number, keyOf(number));
      present[number] = true;
      break;
    case 1:
      if (!present[number] && items.Count() > 0) {
        items.addBefore(1 + static_cast<int>(random() % static_cast<unsigned>(items.Count())),
                        number, keyOf(number));
        present[number] = true;
      }
      break;
    case 2:
      items.deleteItem(items.findKey(keyOf(number)));
      present[number] = false;
      break;
    default:
      if (random() % 50 == 0) {
        items.deleteIf([](const Named& item) { return item.number % 2 == 0; });
        for (auto& [even, is] : present)
          if (even % 2 == 0) is = false;
      }
    }
    for (int i = 0; i < 24; ++i) {
      const Named* found = items.findKey(keyOf(i));
      ASSERT_EQ(found != nullptr, present[i]) << "step " << step << ", key " << i;
      if (found) {
        ASSERT_EQ(found->number, i);
      }
    }
  }
}

} // namespace
} // namespace kelmar
