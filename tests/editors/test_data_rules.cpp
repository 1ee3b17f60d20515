// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/datas/data_fields.h"
#include "editors/rules/datas/data_menu.h"
#include "editors/rules/datas/data_units.h"
#include "support/scripted_person.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class DataRules : public testing::Test {
 protected:
  support::ScriptedPerson person;
  TargetItem target;

  void SetUp() override {
    target.setDatas(std::make_shared<DataItems>());
    target.setRequests(std::make_shared<RequestItems>());
  }
  DataItem* add(const std::string& name) {
    DataItem* data = target.datas()->Add(name);
    data->parent = &target;
    return data;
  }
  RequestItem* addRequest(const std::string& name) {
    auto request = std::make_shared<RequestItem>();
    request->requestName = name;
    request->parent = &target;
    request->DataPositions = std::make_shared<DataPositionItems>();
    return target.Requests()->AddData(request);
  }
  DataPositionItem* place(const std::string& request, const std::string& data) {
    RequestItem* owner = target.Requests()->ItemName(request);
    DataPositionItem* position = owner->DataPositions->Add(data);
    position->parent = owner;
    return position;
  }
  std::string names() const {
    std::string all;
    for (const DataItem* data : *target.datas())
      all += data->dataName() + ",";
    return all;
  }
  void expectDelete(const std::string& name, Answer answer) {
    person.expect("DATAS/MSG/CutData/confirm/text", "Confirm delete",
                  "Delete data ?\r\n\r\nYes = delete all unused data\r\nNo = delete data '" + name +
                      "'\r\nCancel = cancel delete",
                  Buttons::YesNoCancel, Icon::Question, answer);
  }
  void expectDeleteUsed(const std::string& name, const std::string& requests, Answer answer) {
    person.expect("DATAS/MSG/CutData/deleteUsedData/text", "Confirm delete",
                  "Do you really want to delete the selected data ?\r\n\r\n****** W A R N I N G "
                  "******\r\nThe data '" +
                      name + "' is used by requests: " + requests,
                  Buttons::YesNo, Icon::Question, answer);
  }
};

TEST_F(DataRules, WarningsOfARowFirstOneWins) {
  DataItem* data = add("Speed ");
  data->NumberBits = 99;
  EXPECT_EQ(setScreen_datas(*data).text, "Error: Name with leading or training space");
  data = add("Level");
  data->NumberBits = 32;
  EXPECT_EQ(setScreen_datas(*data).text, "Error: Unsigned 32 bits data is not supported");
  data->Signe = true;
  EXPECT_FALSE(setScreen_datas(*data).found);
  data->NumberBits = 33;
  EXPECT_EQ(setScreen_datas(*data).text,
            "Error: Invalid bit count: 33 - authorized value [1 up to 32]");
  data->NumberBits = 0;
  EXPECT_TRUE(setScreen_datas(*data).found);
  data->numerique = false;
  EXPECT_FALSE(setScreen_datas(*data).found);
}

TEST_F(DataRules, TheIconTellsTheType) {
  DataItem* data = add("Speed");
  EXPECT_EQ(dataIcon(*data), "numeric");
  data->liste = true;
  EXPECT_EQ(dataIcon(*data), "list");
  data->numerique = false;
  EXPECT_EQ(dataIcon(*data), "hexa");
  data->Ascii = true;
  EXPECT_EQ(dataIcon(*data), "ascii");
}

TEST_F(DataRules, FieldsThatWereNotTouchedChangeNothing) {
  DataItem* data = add("Speed");
  data->CoeffA = 0.00001;
  data->CoeffB = -40.125;
  data->CoeffC = 1.0 / 3.0;
  data->NumberBits = 12;
  data->Mnemo = "SPD";
  ASSERT_TRUE(GetDataFromScreen(fieldsOf(*data), *data, person));
  EXPECT_EQ(fieldsOf(*data).TextCoeffA, "0.00001");
  EXPECT_EQ(data->CoeffC.value(), 1.0 / 3.0);
  EXPECT_EQ(data->NumberBits, 12);
  EXPECT_TRUE(data->CoeffA.isDecimal());
}

TEST_F(DataRules, ACoefficientCOfZeroStopsBehindCoeffB) {
  for (const char* zero : {"0", "0,0", " 0.00 "}) {
    DataItem data;
    data.Description = "before";
    DataFields fields = fieldsOf(data);
    fields.TextMnemo = "M";
    fields.TextCoeffA = "2,5";
    fields.TextCoeffB = "-3";
    fields.TextCoeffC = zero;
    fields.TextDescription = "after";
    fields.OPtype = DataType::NotNumeric;
    person.expect("DATAS/MSG/CoefficientCcheckZero/text", "Check value",
                  "The value of C Coefficient must be different from Zero", Buttons::Ok,
                  Icon::Exclamation, Answer::Ok);
    EXPECT_FALSE(GetDataFromScreen(fields, data, person));
    EXPECT_EQ(data.Mnemo, "M");
    EXPECT_EQ(data.CoeffA.value(), 2.5);
    EXPECT_EQ(data.CoeffB.value(), -3);
    EXPECT_EQ(data.CoeffC.value(), 1);
    EXPECT_EQ(data.Description, "before");
    EXPECT_TRUE(data.numerique);
  }
}

TEST_F(DataRules, ACoefficientThatIsNoNumberNamesItsField) {
  DataItem data;
  DataFields fields = fieldsOf(data);
  fields.TextUnite = "V";
  fields.TextCoeffB = "two";
  fields.TextCoeffC = "4";
  fields.TextDescription = "kept";
  fields.NumericNumberBits = 12;
  try {
    GetDataFromScreen(fields, data, person);
    FAIL() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.source, "TextCoeffB");
    EXPECT_EQ(failure.number, TypeMismatch);
  }
  EXPECT_EQ(data.Unite, "V");
  EXPECT_EQ(data.CoeffB.value(), 0);
  EXPECT_EQ(data.CoeffC.value(), 4) << "it alone is left out";
  EXPECT_EQ(data.Description, "kept");
  EXPECT_EQ(data.NumberBits, 12);
}

TEST_F(DataRules, EachFormWritesItsOwnSizeAndSign) {
  DataItem data;
  DataFields fields = fieldsOf(data);
  fields.NumericNumberBits = 12;
  fields.ListeNumberBits = 4;
  fields.CheckSignedList = true;
  fields.NotNumericNumberBytes = 3;
  ASSERT_TRUE(GetDataFromScreen(fields, data, person));
  EXPECT_EQ(data.NumberBits, 12);
  fields.OPtype = DataType::NumericList;
  ASSERT_TRUE(GetDataFromScreen(fields, data, person));
  EXPECT_EQ(data.NumberBits, 4);
  EXPECT_TRUE(data.liste && data.Signe);
  fields.OPtype = DataType::NotNumeric;
  ASSERT_TRUE(GetDataFromScreen(fields, data, person));
  EXPECT_EQ(data.NumberBits, 24);
  EXPECT_FALSE(data.numerique || data.liste);
}

TEST_F(DataRules, ChangingTheTypeCarriesSizeAndSignBetweenTheNumericForms) {
  DataFields fields;
  fields.NumericNumberBits = 12;
  fields.CheckSigne = true;
  changeType(fields, DataType::NumericList);
  EXPECT_EQ(fields.ListeNumberBits, 12);
  EXPECT_TRUE(fields.CheckSignedList);
  fields.ListeNumberBits = 5;
  changeType(fields, DataType::Numeric);
  EXPECT_EQ(fields.NumericNumberBits, 5);
  changeType(fields, DataType::NotNumeric);
  fields.ListeNumberBits = 3;
  changeType(fields, DataType::Numeric);
  EXPECT_EQ(fields.NumericNumberBits, 5);
}

TEST_F(DataRules, CoefficientsAreComparedBeforeTheyCountAsChanged) {
  EXPECT_FALSE(coefficientDiffers("0,5", Coefficient(0.5)));
  EXPECT_FALSE(coefficientDiffers("1.0", Coefficient(1)));
  EXPECT_TRUE(coefficientDiffers("1.01", Coefficient(1)));
  EXPECT_TRUE(coefficientDiffers("", Coefficient(1)));
  DataItem data;
  data.CoeffC = 0.0;
  EXPECT_TRUE(divisorIsZero(data));
  data.numerique = false;
  EXPECT_FALSE(divisorIsZero(data));
}

TEST_F(DataRules, NewDataTakeTheFirstFreeName) {
  EXPECT_EQ(newData(target)->dataName(), "New");
  EXPECT_EQ(newData(target)->dataName(), "New1");
  EXPECT_EQ(target.datas()->ItemName("New1")->parent, &target);
}

TEST_F(DataRules, DeletingAsksForEachUnusedDataUntilYes) {
  std::vector<DataItem*> datas{add("a"), add("b"), add("c")};
  expectDelete("a", Answer::No);
  expectDelete("b", Answer::Yes);
  EXPECT_TRUE(CutData(target, datas, person));
  EXPECT_EQ(names(), "");
}

TEST_F(DataRules, CancelEndsTheWholeDeletion) {
  std::vector<DataItem*> datas{add("a"), add("b"), add("c")};
  expectDelete("a", Answer::No);
  expectDelete("b", Answer::Cancel);
  EXPECT_TRUE(CutData(target, datas, person));
  EXPECT_EQ(names(), "b,c,");
  datas.erase(datas.begin());
  expectDelete("b", Answer::Cancel);
  EXPECT_FALSE(CutData(target, datas, person));
}

TEST_F(DataRules, InTheModeAllUnusedAUsedDataStillAsks) {
  std::vector<DataItem*> datas{add("a"), add("b"), add("c")};
  addRequest("Read one");
  addRequest("Read two");
  place("Read one", "b");
  place("Read two", "b");
  place("Read two", "c");
  expectDelete("a", Answer::Yes);
  expectDeleteUsed("b", "\r\n  - Read one\r\n  - Read two", Answer::Yes);
  expectDeleteUsed("c", "\r\n  - Read two", Answer::No);
  EXPECT_TRUE(CutData(target, datas, person));
  EXPECT_EQ(names(), "c,");
  EXPECT_EQ(target.Requests()->ItemName("Read one")->DataPositions->Count(), 0);
}

TEST_F(DataRules, ADataThatCannotBeDeletedIsToldAndTheNextOneFollows) {
  std::vector<DataItem*> datas{add("a"), add("b")};
  addRequest("R");
  place("R", "a");
  place("R", "b");
  expectDeleteUsed("a", "\r\n  - R", Answer::Yes);
  person.expect("DATAS/MSG/CutData/error/text", "Error", "Error : a is held", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  expectDeleteUsed("b", "\r\n  - R", Answer::Yes);
  EXPECT_TRUE(CutData(target, datas, person, [this](DataItem* data) {
    if (data->dataName() == "a") throw Failure(1, "", "a is held");
    target.DeleteData(data);
  }));
  EXPECT_EQ(names(), "a,");
}

TEST_F(DataRules, UnusedDataAreThoseWithoutPosition) {
  DataItem* used = add("a");
  DataItem* unused = add("b");
  addRequest("R");
  place("R", "a");
  const auto isUnused = unusedDatas(target);
  EXPECT_FALSE(isUnused(*used));
  EXPECT_TRUE(isUnused(*unused));
}

TEST_F(DataRules, NormalizingAsksWithTheKeyOfTheValueList) {
  std::vector<DataItem*> datas{add(" a  b "), add("c")};
  addRequest("R");
  place("R", " a  b ");
  person.expect("DATALIST/MSG/PopupRNormalize/confirm/text", "User confirm",
                "Normalize space suppress white spaces at the start and end of the data name and "
                "replace multi-space by a single one.\r\nDo you want to normalize selected data "
                "name ?",
                Buttons::YesNo, Icon::Question, Answer::Yes);
  EXPECT_TRUE(changeDataNames(dataNameCommands()[0], target, datas, person));
  EXPECT_EQ(datas[0]->dataName(), "a b");
  EXPECT_TRUE(target.IsDataUsed("a b"));
}

TEST_F(DataRules, EveryNameCommandAsksItsQuestion) {
  const std::vector<std::pair<const char*, const char*>> questions{
      {"DATAS/MSG/popupRefUcase_Click/confirm/text", "Convert name to uppercase ?"},
      {"DATAS/MSG/popupReflcase_Click/confirm/text", "Convert name to lowercase ?"},
      {"DATAS/MSG/popupRefCapword_Click/confirm/text", "Do word capitalization ?"},
      {"DATAS/MSG/popupRefCapword1_Click/confirm/text", "Do word capitalization ?"}};
  const std::vector<std::string> results{"READ ALL", "read all", "Read All", "Read All"};
  DataItem* data = add("reAd all");
  const std::vector<DataItem*> datas{data};
  for (std::size_t i = 0; i < questions.size(); ++i) {
    target.RenameData(data, i < 2 ? "reAd all" : "read all");
    person.expect(questions[i].first, "User confirm", questions[i].second, Buttons::YesNo,
                  Icon::Question, Answer::Yes);
    EXPECT_TRUE(changeDataNames(dataNameCommands()[i + 1], target, datas, person));
    EXPECT_EQ(data->dataName(), results[i]);
  }
}

TEST_F(DataRules, ReplacingLeavesANameThatIsTakenAlone) {
  std::vector<DataItem*> datas{add("a1"), add("a2")};
  add("b1");
  person.expectInput(
      {"DATAS/MSG/popupRefReplace_Click/inputSearch/text", "Rename data:", "Find what:", ""}, "a");
  person.expectInput(
      {"DATAS/MSG/popupRefReplace_Click/inputReplace/text", "Rename data:", "Replace with:", ""},
      "b");
  person.expect("DATAS/MSG/popupRefReplace_Click/confirm/text", "User confirm",
                "Replace 'a' with 'b'\r\nin selected data ?", Buttons::YesNo, Icon::Question,
                Answer::Yes);
  EXPECT_TRUE(changeDataNames(dataNameCommands()[5], target, datas, person));
  EXPECT_EQ(datas[0]->dataName(), "a1");
  EXPECT_EQ(datas[1]->dataName(), "b2");
}

TEST_F(DataRules, EntriesOfTheMenuFollowTheSelection) {
  const auto enabled = [](const std::vector<MenuEntry>& menu) {
    std::string keys;
    for (const MenuEntry& entry : menu)
      if (entry.enabled && entry.kind == MenuEntry::Kind::Command) keys += entry.key + ",";
    return keys;
  };
  EXPECT_EQ(enabled(dataMenu({})), "PopupRefHelp,");
  EXPECT_EQ(enabled(dataMenu({.target = &target})), "popupRefPaste,PopupRefHelp,");
  DataItem* data = add("a");
  EXPECT_EQ(enabled(dataMenu({.target = &target, .active = data, .selected = 1})),
            "menuRequests,popupRefCut,popupRefCopy,popupRefCopyText,popupRefPaste,"
            "popupRefCopyTradConfig,popupSelectDataNumeric,popupSelectDataNumericList,"
            "popupSelectDataASCII,popupSelectDataHEXA,popupRefSelectUnused,"
            "popupSortDataAscending,popupSortDataDescending,popupRefNormalize,popupRefUcase,"
            "popupReflcase,popupRefCapword,popupRefCapword1,popupRefReplace,PopupRefHelp,");
}

TEST_F(DataRules, UnitsComeByNameAndByCategory) {
  xml::Document units;
  ASSERT_TRUE(units.loadXML(R"(<units>
    <unit SI="1" categoryId="e"><name xml:lang="en">volt</name><name xml:lang="fr">Volt</name>
      <symbol>V</symbol></unit>
    <unit categoryId="l"><name xml:lang="en">inch</name><name xml:lang="fr">pouce</name>
      <symbol>in</symbol></unit>
    <categories><category id="l"><name xml:lang="en">Length</name></category>
      <category id="e"><name xml:lang="en">Electricity</name></category>
      <category id="x"><name xml:lang="en">Empty</name></category></categories></units>)"));
  const std::vector<MenuEntry> menu = unitsMenu(units, "en");
  ASSERT_EQ(menu.size(), 3u);
  EXPECT_EQ(menu[0].key, "mnuUnitAlpha");
  EXPECT_EQ(menu[0].entries.at(0).text, "  inch\tin");
  EXPECT_EQ(menu[0].entries.at(1).text, "• volt\tV");
  EXPECT_EQ(menu[1].key, "mnuUnitsCat0Unit");
  EXPECT_EQ(menu[1].text, "Length");
  EXPECT_EQ(menu[2].text, "Electricity");
  EXPECT_EQ(unitOf(menu[0].entries.at(1).text), "V");
  EXPECT_EQ(unitsMenu(units, "fr")[0].entries.at(0).text, "  pouce\tin");
  EXPECT_TRUE(unitsMenu(xml::Document(), "en").empty());
}

TEST_F(DataRules, UnitsStandWhereAPersonLooksForThem) {
  xml::Document units;
  ASSERT_TRUE(units.loadXML(R"(<units>
    <unit><name xml:lang="fr">degré</name><symbol>d</symbol></unit>
    <unit><name xml:lang="fr">mole</name><symbol>mol</symbol></unit>
    <unit><name xml:lang="fr">Mètre</name><symbol>m</symbol></unit>
    <unit><name xml:lang="fr">décibel</name><symbol>dB</symbol></unit></units>)"));
  std::string symbols;
  const auto menu = unitsMenu(units, "fr");
  for (const MenuEntry& unit : menu.at(0).entries)
    symbols += unitOf(unit.text) + " ";
  EXPECT_EQ(symbols, "dB d m mol ");
}

TEST_F(DataRules, TheSiteHasUnitsInThirteenCategories) {
  xml::Document units;
  ASSERT_TRUE(loadUnits(units, KELMAR_SITE));
  for (const char* language : {"en", "fr"}) {
    const std::vector<MenuEntry> menu = unitsMenu(units, language);
    ASSERT_EQ(menu.size(), 14u) << language;
    std::size_t inCategories = 0;
    for (std::size_t i = 1; i < menu.size(); ++i)
      inCategories += menu[i].entries.size();
    EXPECT_EQ(inCategories, menu[0].entries.size());
    for (const MenuEntry& unit : menu[0].entries)
      EXPECT_FALSE(unitOf(unit.text).empty()) << unit.text;
  }
}

} // namespace
} // namespace kelmar
