// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"

#include <gtest/gtest.h>

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
