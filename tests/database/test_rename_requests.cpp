// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "database/ecu.h"

#include <random>

namespace kelmar {
namespace {

using testing::Ecu;

/// An ECU with requests of short names, so that renames meet one another, and screens that use
/// them.
void fill(Ecu& ecu, std::mt19937& random) {
  TargetItem& target = ecu.makeNew();
  const auto name = [&] {
    static constexpr const char* letters[] = {"a", "A", "b", "B", "c", "C", "d", "E"};
    return std::string(letters[random() % 8]) + letters[random() % 8];
  };
  for (int i = 0; i < 12; ++i) {
    const std::string candidate = name();
    if (!target.Requests()->ItemName(candidate)) target.Requests()->Add(candidate);
  }
  target.Categories = std::make_shared<CategoryItems>();
  auto screen = std::make_shared<ScreenItem>();
  screen->DisplayItems = std::make_shared<DisplayItems>();
  screen->ButtonItems = std::make_shared<ButtonItems>();
  auto button = std::make_shared<ButtonItem>();
  button->ScenarioItems = std::make_shared<ScenarioItems>();
  for (int i = 0; i < 20; ++i) {
    auto display = std::make_shared<DisplayItem>();
    display->DisplayDataItem = std::make_shared<DisplayDataItem>();
    display->DisplayDataItem->requestName = name();
    display->DisplayExtraItem = std::make_shared<DisplayExtraItem>();
    display->DisplayExtraItem->requestName = name();
    screen->DisplayItems->AddData(display);
    button->ScenarioItems->Add(name(), 0);
  }
  screen->ButtonItems->AddData(button);
  target.Categories->Add("C", &target)->Screens->AddData(screen);
}

std::string stateOf(const TargetItem& target) {
  std::string text;
  for (const RequestItem* request : *target.Requests()) {
    text += request->requestName + " ";
    EXPECT_EQ(target.Requests()->ItemName(request->requestName), request);
  }
  const ScreenItem& screen = *target.Categories->Item(1)->Screens->Item(1);
  for (const DisplayItem* display : *screen.DisplayItems)
    text +=
        "|" + display->DisplayDataItem->requestName + "," + display->DisplayExtraItem->requestName;
  for (const ScenarioItem* step : *screen.ButtonItems->Item(1)->ScenarioItems)
    text += "/" + step->requestName;
  return text;
}

TEST(RenameRequests, GivesWhatOneAfterTheOtherGives) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 randomOne(seed), randomMany(seed);
    Ecu one, many;
    fill(one, randomOne);
    fill(many, randomMany);
    ASSERT_EQ(stateOf(one.target()), stateOf(many.target()));
    std::mt19937 random(seed * 7919);
    std::vector<TargetItem::RequestRename> renames;
    std::vector<bool> done;
    const int count = one.target().Requests()->Count();
    std::vector<RequestItem*> members;
    for (RequestItem* member : *one.target().Requests())
      members.push_back(member);
    for (int i = 0; i < 15; ++i) {
      const int which = static_cast<int>(random() % static_cast<unsigned>(count));
      const std::string newName =
          std::string(1, "aAbBcCdE"[random() % 8]) + "aAbBcCdE"[random() % 8];
      renames.push_back({many.target().Requests()->Item(which + 1), newName});
      try {
        one.target().RenameRequest(members[static_cast<std::size_t>(which)], newName);
        done.push_back(true);
      } catch (const Failure&) {
        done.push_back(false);
      }
    }
    EXPECT_EQ(many.target().RenameRequests(renames), done) << "seed " << seed;
    EXPECT_EQ(stateOf(many.target()), stateOf(one.target())) << "seed " << seed;
  }
}

TEST(RenameRequests, ThousandsAreRenamedAtOnce) {
  Ecu ecu;
  TargetItem& target = ecu.makeNew();
  std::vector<TargetItem::RequestRename> renames;
  for (int i = 0; i < 20000; ++i) {
    const std::string name = "read " + std::to_string(i);
    renames.push_back({target.Requests()->Add(name), CapitalizeWords(name, false)});
  }
  target.RenameRequests(renames);
  EXPECT_EQ(target.Requests()->Item(20000)->requestName, "Read 19999");
  EXPECT_EQ(target.Requests()->Count(), 20000);
}

} // namespace
} // namespace kelmar
