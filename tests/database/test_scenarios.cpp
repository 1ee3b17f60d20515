// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// A screen with a button whose scenario is read from the text; requests R and Q exist.
struct WithScenario : Ecu {
  explicit WithScenario(const std::string& steps) {
    FileText file;
    file.requests = "<Request Name='R'/><Request Name='Q'/>";
    file.categories =
        "<Category Name='C'><Screen Name='S' Width='1' Height='1' Color='1' WindowState='0'>"
        "<Button Text='B'>" +
        steps + "</Button></Screen></Category>";
    load(file);
  }
  ScenarioItems& steps() {
    return *target().Categories->Item(1)->Screens->Item(1)->ButtonItems->Item(2)->ScenarioItems;
  }
};

std::string stepsOf(const ScenarioItems& items) {
  return namesOf(items, [](const ScenarioItem& item) {
    return std::to_string(item.Index) + item.requestName;
  });
}

std::unique_ptr<ScenarioItems> fourSteps() {
  auto items = std::make_unique<ScenarioItems>();
  for (const char* name : {"a", "b", "c", "d"})
    items->Add(name, 0);
  return items;
}

TEST(Scenario, StepsAreNumberedFromTheGreatest) {
  ScenarioItems items;
  EXPECT_EQ(items.Add("a", 5)->Index, 1);
  items.Item(1)->Index = 7;
  EXPECT_EQ(items.Add("b", 6)->Index, 8);
  EXPECT_EQ(items.Item(2)->delay, 6);
}

TEST(Scenario, DeleteGoesByIdentityAndRenumbers) {
  const auto items = fourSteps();
  const ScenarioItem stranger;
  items->deleteItem(items->Item(2));
  EXPECT_EQ(stepsOf(*items), "1a 2c 3d");
  items->Item(1)->Index = 9;
  items->deleteItem(items->Item(3));
  EXPECT_EQ(stepsOf(*items), "1a 2c");
}

TEST(Scenario, SortRebuildsTheListInAscendingIndex) {
  const auto items = fourSteps();
  items->Item(1)->Index = 9;
  items->Item(3)->Index = -1;
  items->sort();
  EXPECT_EQ(stepsOf(*items), "-1c 2b 4d 9a");
}

TEST(Scenario, UpAndDownMoveOnePlaceAndRenumber) {
  const auto items = fourSteps();
  items->up(items->Item(3));
  EXPECT_EQ(stepsOf(*items), "1a 2c 3b 4d");
  items->down(items->Item(1));
  EXPECT_EQ(stepsOf(*items), "1c 2a 3b 4d");
  items->up(items->Item(1));
  items->down(items->Item(4));
  EXPECT_EQ(stepsOf(*items), "1c 2a 3b 4d") << "the first and the last stay";
  ScenarioItems one;
  ScenarioItem* only = one.Add("x", 0);
  only->Index = 5;
  one.up(only);
  one.down(only);
  EXPECT_EQ(stepsOf(one), "5x") << "fewer than two: nothing, not even numbers";
}

TEST(ScenarioStep, ObjectAndText) {
  WithScenario ecu("<Send RequestName='R' Delay='100'/><Send RequestName='q'/>");
  EXPECT_EQ(stepsOf(ecu.steps()), "1R 2q");
  EXPECT_EQ(ecu.steps().Item(1)->delay, 100);
  EXPECT_EQ(ecu.steps().Item(2)->request(), ecu.target().Requests()->Item(2));
  EXPECT_EQ(fragmentOf(ecu.steps(), "x"),
            R"(<x><Send Delay="100" RequestName="R"/><Send Delay="0" RequestName="q"/></x>)");
}

TEST(ScenarioStep, OfAnUnknownRequestIsWrittenEmptyAndFailsOnReading) {
  WithScenario ecu("<Send RequestName='R' Delay='100'/>");
  ecu.steps().Add("none", 7)->parent = ecu.steps().Item(1)->parent;
  EXPECT_EQ(fragmentOf(ecu.steps(), "x"), R"(<x><Send Delay="100" RequestName="R"/><Send/></x>)");
  ecu.load(ecu.saved());
  EXPECT_EQ(stepsOf(ecu.steps()), "1R");
  ASSERT_EQ(ecu.db.report().size(), 1u);
  EXPECT_EQ(ecu.db.report()[0].reason, "ScenarioItem.loadXml : requestName missing ");
}

TEST(ScenarioRead, MissingRequestsAreDroppedAndLogged) {
  WithScenario ecu("<Send RequestName='X' Delay='y'/><Send/><Send RequestName='R'/>");
  EXPECT_EQ(stepsOf(ecu.steps()), "1R");
  const std::string path = "ds:Categories/Category[C]/Screen[S]/Button[B]/Send";
  EXPECT_EQ(ecu.report(), "Value|Delay|" + path +
                              "[X]|13|'y': Type mismatch\n"
                              "Scenario step|X|" +
                              path +
                              "[X]|13|ScenarioItem.loadXml : request (X) missing \n"
                              "Scenario step||" +
                              path + "|13|ScenarioItem.loadXml : requestName missing \n");
}

TEST(ScenarioRead, RaisedTextsAreTheShortOnes) {
  WithScenario ecu("");
  ScenarioItem item;
  item.requestName = "before";
  item.loadXml(ecu.db, Fragment("<Send Delay='3'/>"));
  Failure error = ecu.db.loading().pending.error();
  EXPECT_EQ(error.source + " " + error.text, "ScenarioItem.loadXml requestName missing");
  EXPECT_EQ(item.requestName, "");
  EXPECT_EQ(item.delay, 3);
  item.loadXml(ecu.db, Fragment("<Send RequestName='X'/>"));
  error = ecu.db.loading().pending.error();
  EXPECT_EQ(error.source + " " + error.text, "ScenarioItem.loadXml request missing");
  EXPECT_EQ(item.requestName, "X");
}

TEST(ScenarioStep, RequestIsFoundAlongTheParentsAndWritingCopiesTheName) {
  WithScenario ecu("<Send RequestName='R'/>");
  ScenarioItem* step = ecu.steps().Item(1);
  EXPECT_EQ(step->request(), ecu.target().Requests()->Item(1));
  step->setRequest(ecu.target().Requests()->Item(2));
  EXPECT_EQ(step->requestName, "Q");
  step->setRequest(nullptr);
  EXPECT_EQ(step->requestName, "Q");
  step->parent = nullptr;
  EXPECT_EQ(step->request(), nullptr);
}

} // namespace
} // namespace kelmar::testing
