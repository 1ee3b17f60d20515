// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/value_list.h"
#include "support/scripted_person.h"

#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class ValueListTest : public testing::Test {
 protected:
  support::ScriptedPerson person;
  DataItem data;
  ValueList list;

  void SetUp() override {
    data.DataListes = std::make_shared<DataListeItems>();
    data.DataListes->Add(0, "Off", "");
    data.DataListes->Add(1, "On", "all is well");
    data.DataListes->Add(3, "Error", "");
    list.bind(&data);
  }
  std::string shown() const {
    std::string text;
    for (const auto& row : list.rows())
      text += std::to_string(row->value) + "=" + row->label +
              (row->info.empty() ? "" : "(" + row->info + ")") + ";";
    return text;
  }
  static DataListeItems::Pointer item(std::int32_t value, std::string label) {
    auto made = std::make_shared<DataListeItem>();
    made->Valeur = value;
    made->libelle = std::move(label);
    return made;
  }
  static std::string saved(const DataItem& of) {
    std::string text;
    for (const DataListeItem* each : *of.DataListes)
      text += std::to_string(each->Valeur) + "=" + each->libelle + ";";
    return text;
  }
  ValueRow& row(std::size_t index) { return *list.rows().at(index); }
  void expectBox(const char* key, const char* title, const char* text) {
    person.expect(key, title, text, Buttons::Ok, Icon::Exclamation, Answer::Ok);
  }
};

TEST_F(ValueListTest, TheTipIsTheValueInHexadecimalBySizeOfTheData) {
  EXPECT_EQ(hexTip(255, 8), "$FF");
  EXPECT_EQ(hexTip(255, 9), "$00FF");
  EXPECT_EQ(hexTip(255, 17), "$000000FF");
  EXPECT_EQ(hexTip(-1, 32), "$FFFFFFFF");
}

TEST_F(ValueListTest, NothingReachesTheDataBeforeItIsSaved) {
  ASSERT_TRUE(list.add(7, " Seven ", "", person));
  EXPECT_EQ(shown(), "0=Off;1=On(all is well);3=Error;7=Seven;");
  EXPECT_EQ(data.DataListes->Count(), 3);
  list.SaveDataItems(data);
  ASSERT_EQ(data.DataListes->Count(), 4);
  EXPECT_EQ(data.DataListes->Item(4)->libelle, "Seven");
  EXPECT_EQ(data.DataListes->Item(4)->parent, &data);
  EXPECT_EQ(data.DataListes->ItemValue(1)->Info, "all is well");
}

TEST_F(ValueListTest, AddingRefusesEmptyLabelsAndWhatExists) {
  constexpr char title[] = "Input error";
  expectBox("DATALIST/MSG/CBaddNew_Click/emptyStringError/text", title,
            "Empty label not allowed. Enter a string");
  EXPECT_FALSE(list.add(9, "  ", "", person));
  expectBox("DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text", title,
            "Value 3 already exists.");
  EXPECT_FALSE(list.add(3, "New", "", person));
  expectBox("DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text", title,
            "Label On already exists.");
  EXPECT_FALSE(list.add(9, "On", "", person));
  ValueList unbound;
  EXPECT_FALSE(unbound.add(1, "a", "", person));
}

TEST_F(ValueListTest, ChangingComparesWithAllOthers) {
  EXPECT_TRUE(list.changeItem(row(0), 0, "Off now", "info", person));
  EXPECT_TRUE(list.changeItem(row(0), 5, "Off now", "info", person));
  expectBox("DATALIST/MSG/changeItem/valueAlreadyExistsError/text", "Input error",
            "Value 1 already exists.\r\nOld : 1=On");
  EXPECT_FALSE(list.changeItem(row(0), 1, "x", "", person));
  expectBox("DATALIST/MSG/changeItem/labelAlreadyExistsError/text", "Input error",
            "Label Error already exists.\r\nOld : 3=Error");
  EXPECT_FALSE(list.changeItem(row(0), 5, "Error", "", person));
  expectBox("DATALIST/MSG/changeItem/emptyStringError/text", "Input error",
            "Empty label not allowed. Enter a string");
  EXPECT_FALSE(list.changeItem(row(0), 5, "", "", person));
  EXPECT_EQ(shown(), "5=Off now(info);1=On(all is well);3=Error;");
}

TEST_F(ValueListTest, ChangingTakesTheLabelAsItIsTyped) {
  EXPECT_TRUE(list.changeItem(row(1), 1, " On", "all is well", person));
  EXPECT_TRUE(list.changeItem(row(1), 7, " On", "all is well", person));
  EXPECT_EQ(shown(), "0=Off;7= On(all is well);3=Error;");
}

TEST_F(ValueListTest, CutAsksOnceForAllRows) {
  const platform::Box question{"DATALIST/MSG/CutRange/text", "Confirm delete",
                               "Do you really want to delete this selected items ?", Buttons::YesNo,
                               Icon::Question};
  person.expect(question, Answer::No);
  EXPECT_FALSE(list.cut({&row(0), &row(2)}, person));
  person.expect(question, Answer::Yes);
  EXPECT_TRUE(list.cut({&row(0), &row(2)}, person));
  EXPECT_EQ(shown(), "1=On(all is well);");
  EXPECT_FALSE(list.cut({}, person));
}

TEST_F(ValueListTest, XmlComesBackWithItsInfo) {
  const std::string text = copyValues({&row(1), &row(2)});
  data.DataListes->clear();
  list.bind(&data);
  EXPECT_TRUE(list.paste(text, person));
  EXPECT_EQ(shown(), "1=On(all is well);3=Error;");
  EXPECT_FALSE(list.paste(text, person));
}

TEST_F(ValueListTest, TextHasValueAndLabel) {
  bool broken = true;
  EXPECT_EQ(copyValuesText({&row(0), &row(1)}, broken), "0\tOff\r\n1\tOn\r\n");
  EXPECT_FALSE(broken);
  row(1).label = "On\nagain";
  copyValuesText({&row(0), &row(1)}, broken);
  EXPECT_TRUE(broken);
}

TEST_F(ValueListTest, PastedTextMayBeHexadecimalAndBadLinesAreSkipped) {
  EXPECT_TRUE(list.paste("$1A\tLabel\nx\tBad\n5\n6\t \n7\t Seven \t more\r\n", person));
  EXPECT_EQ(shown(), "0=Off;1=On(all is well);3=Error;26=Label;7=Seven;");
  EXPECT_FALSE(list.paste("", person));
}

TEST_F(ValueListTest, PastedValuesChangeLabelsAndPastedLabelsChangeValues) {
  EXPECT_TRUE(list.paste("1\tRunning\n4\tError", person));
  EXPECT_EQ(shown(), "0=Off;1=Running(all is well);4=Error;");
}

TEST_F(ValueListTest, ValueAndLabelInTwoRowsLeaveBoth) {
  expectBox("DATALIST/MSG/UpdateOrAddItem/text", "Paste warning",
            "Unable to insert or modify item: 3=On\r\nThe value and label already exist in two "
            "different items");
  EXPECT_FALSE(list.paste("3\tOn", person));
  EXPECT_EQ(shown(), "0=Off;1=On(all is well);3=Error;");
}

TEST_F(ValueListTest, DevicesGiveTheirCodeAndName) {
  EXPECT_TRUE(list.paste("<Devices><Device DTC=\"4660\" Name=\"Pump\"/><Device Name=\"none\"/>"
                         "</Devices>",
                         person));
  EXPECT_EQ(shown(), "0=Off;1=On(all is well);3=Error;4660=Pump;");
  EXPECT_FALSE(list.paste("<Requests/>", person));
}

TEST_F(ValueListTest, NormalizingLeavesALabelThatWouldStandTwice) {
  ASSERT_TRUE(list.add(8, "On  line", "", person));
  ASSERT_TRUE(list.add(9, "On line", "", person));
  ASSERT_TRUE(list.add(10, "A   b", "", person));
  person.expect("DATALIST/MSG/PopupRNormalize/confirm/text", "User confirm",
                "Normalize space suppress white spaces at the start and end of the data name and "
                "replace multi-space by a single one.\r\nDo you want to normalize selected data "
                "name ?",
                Buttons::YesNo, Icon::Question, Answer::Yes);
  expectBox("DATALIST/MSG/PopupRNormalize/warning/text", "Warning",
            "Label 'On  line'=8 already exists with normalized name 'On line'=9.\r\nCheck label to "
            "avoid error trap for user");
  EXPECT_TRUE(list.normalize({&row(3), &row(5)}, person));
  EXPECT_EQ(row(5).label, "A b");
  EXPECT_EQ(row(3).label, "On  line");
}

TEST_F(ValueListTest, AValueAndALabelThatAFileBroughtTwiceStay) {
  data.DataListes->AddAll({item(1, "Again"), item(2, "Off")});
  list.bind(&data);
  list.SaveDataItems(data);
  EXPECT_EQ(saved(data), "0=Off;1=On;1=Again;2=Off;3=Error;");
}

TEST_F(ValueListTest, SavingPutsTheRowsInTheOrderOfAddingOneAfterTheOther) {
  std::minstd_rand random(7);
  for (int round = 0; round < 200; ++round) {
    DataItem source, rebuilt;
    source.DataListes = std::make_shared<DataListeItems>();
    std::vector<DataListeItems::Pointer> items;
    for (int i = 0; i < 20; ++i)
      items.push_back(item(static_cast<std::int32_t>(random() % 60) - 20,
                           "label " + std::to_string(random() % 60)));
    source.DataListes->AddAll(std::move(items));
    list.bind(&source);
    list.SaveDataItems(rebuilt);
    // A copy of a list is made by adding, and keeps what stands twice.
    DataItem expected;
    expected.DataListes = source.DataListes->clone(&expected);
    ASSERT_EQ(saved(rebuilt), saved(expected));
    EXPECT_EQ(rebuilt.DataListes->Item(1)->parent, &rebuilt);
  }
}

/// Processor time of an action on a list of so many values, the least of three.
double secondsFor(int count, const std::function<void(ValueList&, DataItem&)>& action) {
  double least = 1e9;
  for (int run = 0; run < 3; ++run) {
    DataItem data;
    data.DataListes = std::make_shared<DataListeItems>();
    std::vector<DataListeItems::Pointer> items;
    for (int i = 0; i < count; ++i) {
      auto item = std::make_shared<DataListeItem>();
      item->Valeur = i * 7919 % count;
      item->libelle = " label  " + std::to_string(i);
      items.push_back(std::move(item));
    }
    data.DataListes->AddAll(std::move(items));
    ValueList list;
    list.bind(&data);
    const std::clock_t start = std::clock();
    action(list, data);
    least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return least;
}

/// From 2,500 values to eight times as many: a square would take 64 times as long.
void expectLinear(const std::function<void(ValueList&, DataItem&)>& action) {
  const double few = std::max(secondsFor(2500, action), 0.001);
  EXPECT_LT(secondsFor(20000, action), 24 * few + 0.05);
}

TEST(ValueListGrowth, SavingTakesTimeByTheNumberOfValues) {
  expectLinear([](ValueList& list, DataItem& data) {
    list.SaveDataItems(data);
    EXPECT_EQ(static_cast<std::size_t>(data.DataListes->Count()), list.rows().size());
  });
}

TEST(ValueListGrowth, NormalizingTakesTimeByTheNumberOfValues) {
  class Willing final : public platform::Person {
    Answer message(const platform::Box&) override { return Answer::Yes; }
    std::optional<std::string> file(const platform::FileQuestion&) override { return {}; }
  };
  expectLinear([](ValueList& list, DataItem&) {
    std::vector<ValueRow*> rows;
    for (const auto& row : list.rows())
      rows.push_back(row.get());
    Willing person;
    EXPECT_TRUE(list.normalize(rows, person));
    EXPECT_EQ(rows.back()->label, "label " + std::to_string(rows.size() - 1));
  });
}

TEST_F(ValueListTest, ControlsFollowTheState) {
  EXPECT_EQ(valueListControls({}), ValueListControls{});
  EXPECT_EQ(valueListControls({.bound = true}),
            (ValueListControls{.CBaddNew = true, .paste = true}));
  EXPECT_EQ(valueListControls({.bound = true, .selected = 1}),
            (ValueListControls{.cut = true, .copy = true, .paste = true}));
  EXPECT_EQ(valueListControls({.bound = true, .selected = 1, .itemChanged = true}),
            (ValueListControls{true, true, true, true, true, true}));
}

} // namespace
} // namespace kelmar
