// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <random>

namespace kelmar {
namespace {

constexpr int dataCount = 40;

void fill(TargetItem& target, unsigned seed) {
  std::mt19937 random(seed);
  target.setDatas(std::make_shared<DataItems>());
  target.setRequests(std::make_shared<RequestItems>());
  for (int i = 0; i < dataCount; ++i)
    target.datas()->Add((random() % 2 ? "d" : "D") + std::to_string(i))->parent = &target;
  for (int r = 0; r < 6; ++r) {
    auto request = std::make_shared<RequestItem>();
    request->requestName = "R" + std::to_string(r);
    request->parent = &target;
    request->DataPositions = std::make_shared<DataPositionItems>();
    for (int p = 0; p < 12; ++p) {
      const int number = static_cast<int>(random() % (dataCount + 10)); // some lead nowhere
      const DataItem* data = number < dataCount ? target.datas()->Item(number + 1) : nullptr;
      const std::string name = data ? data->dataName() : "x" + std::to_string(number);
      if (!request->DataPositions->ItemName(name))
        request->DataPositions->Add(name)->parent = request.get();
    }
    target.Requests()->AddData(request);
  }
}

std::string dump(const TargetItem& target) {
  std::string text;
  for (const DataItem* data : *target.datas())
    text += data->dataName() + ",";
  for (const RequestItem* request : *target.Requests()) {
    text += "\n";
    for (const DataPositionItem* position : *request->DataPositions)
      text += position->dataName + ",";
  }
  return text;
}

TEST(RenameDatas, GivesWhatRenamingOneByOneGives) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    TargetItem slow, fast;
    fill(slow, seed);
    fill(fast, seed);
    std::mt19937 random(seed * 31);
    std::vector<DataItems::NewName> names;
    std::vector<std::pair<DataItem*, std::string>> same;
    for (int i = 1; i <= dataCount; ++i) {
      if (random() % 3 == 0) continue;
      const std::string name = (random() % 2 ? "D" : "x") + std::to_string(random() % 60);
      names.emplace_back(fast.datas()->Item(i), name);
      same.emplace_back(slow.datas()->Item(i), name);
    }
    std::vector<bool> expected;
    for (const auto& [item, name] : same) {
      try {
        slow.RenameData(item, name);
        expected.push_back(true);
      } catch (const Failure&) {
        expected.push_back(false);
      }
    }
    ASSERT_EQ(fast.RenameDatas(names), expected);
    ASSERT_EQ(dump(fast), dump(slow));
  }
}

TEST(AddDatasSorted, GivesWhatAddingOneByOneGives) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto randomName = [&random] {
      return (random() % 2 ? "D" : "d") + std::to_string(random() % 100);
    };
    DataItems slow, fast;
    for (int i = 0; i < 20; ++i) {
      const std::string name = randomName();
      if (slow.ItemName(name)) continue;
      slow.Add(name); // in no order, so that the greatest name may be an early one
      fast.Add(name);
    }
    std::vector<DataItems::Pointer> items;
    for (unsigned i = 0; i < 4 + seed % 20; ++i) {
      items.push_back(std::make_shared<DataItem>());
      items.back()->setDataName(randomName());
    }
    const auto failureOf = [](const std::function<void()>& action) {
      try {
        action();
        return std::string();
      } catch (const Failure& failure) {
        return std::to_string(failure.number) + failure.source + failure.text;
      }
    };
    const std::string expected = failureOf([&] {
      for (const DataItems::Pointer& item : items)
        slow.AddDataSorted(item);
    });
    EXPECT_EQ(failureOf([&] { fast.AddDatasSorted(items); }), expected);
    const auto namesOf = [](const DataItems& datas) {
      std::string all;
      for (const DataItem* data : datas)
        all += data->dataName() + ",";
      return all;
    };
    ASSERT_EQ(namesOf(fast), namesOf(slow));
    for (const DataItem* data : fast)
      EXPECT_EQ(fast.ItemName(data->dataName()), data);
  }
}

TEST(AddDatasSorted, TakesTimeByTheNumberAlsoBehindAnEarlyGreatestName) {
  const auto secondsFor = [](int count) {
    double least = 1e9;
    for (int run = 0; run < 3; ++run) {
      DataItems datas;
      datas.Add("z");
      std::vector<DataItems::Pointer> items;
      for (int i = 0; i < count; ++i) {
        datas.Add("a" + std::to_string(i));
        items.push_back(std::make_shared<DataItem>());
        items.back()->setDataName("b" + std::to_string(i));
      }
      const std::clock_t start = std::clock();
      datas.AddDatasSorted(items);
      least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
      EXPECT_EQ(datas.Item(1)->dataName(), "b0");
      EXPECT_EQ(datas.Item(count + 1)->dataName(), "z");
    }
    return least;
  };
  const double few = std::max(secondsFor(2500), 0.001);
  EXPECT_LT(secondsFor(20000), 24 * few + 0.05) << "a square would take 64 times as long";
}

TEST(AddDatasSorted, RefusesADuplicateAndKeepsThoseBefore) {
  DataItems datas;
  datas.Add("b");
  const auto item = [](const char* name) {
    auto data = std::make_shared<DataItem>();
    data->setDataName(name);
    return data;
  };
  EXPECT_THROW(datas.AddDatasSorted({item("a"), item("b"), item("c")}), Failure);
  EXPECT_EQ(datas.Count(), 2);
  EXPECT_EQ(datas.Item(1)->dataName(), "a");
}

} // namespace
} // namespace kelmar
