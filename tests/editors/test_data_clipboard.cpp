// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_clipboard.h"
#include "support/scripted_person.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class DataClipboard : public testing::Test {
 protected:
  support::ScriptedPerson person;
  OmnikorLibXml database;
  TargetItem target;

  void SetUp() override { target.setDatas(std::make_shared<DataItems>()); }
  DataItem* add(const std::string& name) {
    DataItem* data = target.datas()->Add(name);
    data->parent = &target;
    return data;
  }
  DataItem* the(const std::string& name) { return target.datas()->ItemName(name); }
  std::string names() const {
    std::string all;
    for (const DataItem* data : *target.datas())
      all += data->dataName() + ",";
    return all;
  }
  std::vector<DataItem*> all() const {
    std::vector<DataItem*> datas;
    for (DataItem* data : *target.datas())
      datas.push_back(data);
    return datas;
  }
  DataPaste paste(const std::string& text) { return pasteDatas(text, database, target, person); }
  void expectUpdate(const std::string& name, Answer answer) {
    person.expect("DATAS/MSG/pasteData/update/text", "Confirm update",
                  "Data '" + name +
                      "' already exist\r\n\r\nYes = Update this data only\r\nNo = Update all data "
                      "without confirmation",
                  Buttons::YesNoCancel, Icon::Question, answer);
  }
  void addList(DataItem& data, std::initializer_list<std::pair<int, const char*>> values) {
    data.liste = true;
    data.DataListes = std::make_shared<DataListeItems>();
    for (const auto& [value, label] : values)
      data.DataListes->Add(value, label, "");
  }
  /// All kinds of data.
  void fill() {
    DataItem* speed = add("Speed");
    speed->Mnemo = "SPD";
    speed->NumberBits = 12;
    speed->Signe = true;
    speed->Unite = "km/h";
    speed->CoeffA = 0.5;
    speed->CoeffB = -40;
    speed->CoeffC = 10;
    speed->Description = "Road speed";
    speed->DataFormat = "000";
    addList(*add("State"), {{0, "Off"}, {1, "On"}, {-2, "Error"}});
    DataItem* name = add("Name");
    name->numerique = false;
    name->Ascii = true;
    name->NumberBits = 80;
    add("Bytes")->numerique = false;
  }
};

TEST_F(DataClipboard, XmlHoldsTheSelectedDataAndComesBackAsCopies) {
  fill();
  const std::string text = copyDatas(all());
  EXPECT_TRUE(text.starts_with("<Datas>")) << text;
  const DataPaste first = paste(text);
  EXPECT_TRUE(first.changed);
  EXPECT_EQ(target.datas()->Count(), 8);
  ASSERT_TRUE(the("Copy Speed"));
  EXPECT_EQ(the("Copy Speed")->parent, &target);
  // The counter goes on within one paste.
  EXPECT_TRUE(the("Copy(0)State"));
  EXPECT_EQ(the("Copy(0)State")->DataListes->Count(), 3);
  EXPECT_TRUE(the("Copy(1)Name"));
}

TEST_F(DataClipboard, AForeignRootIsRefused) {
  person.expect("DATAS/MSG/pasteData/badClipboardData/text", "Clipboard error",
                "Bad clipboard content. You can paste only Data", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  EXPECT_FALSE(paste("<Requests/>").changed);
  EXPECT_EQ(target.datas()->Count(), 0);
}

TEST_F(DataClipboard, TheTextHasAHeaderAndALineForEachData) {
  fill();
  EXPECT_EQ(copyDatasText(all()).text,
            "'Name\tMnemo\tNumber bits\tsigne\tunit\tcoef A\tcoef B\tcoef C\tDescription\t"
            "Numeric|List|Ascii|Hexa\tFormat\r\n"
            "Speed\tSPD\t12\t1\tkm/h\t0.5\t-40\t10\tRoad speed\tNumeric\t000\r\n"
            "State\t\t8\t0\t\t1\t0\t1\t\tList\t\r\n"
            "'\tvalue\tlabel\r\n"
            "\t0\tOff\r\n\t-2\tError\r\n\t1\tOn\r\n"
            "Name\t\t80\t0\t\t1\t0\t1\t\tAscii\t\r\n"
            "Bytes\t\t8\t0\t\t1\t0\t1\t\tHexa\t\r\n");
}

TEST_F(DataClipboard, TextComesBackAsTheSameData) {
  fill();
  const std::string text = copyDatasText(all()).text;
  const std::string before = copyDatas(all());
  const std::vector<std::string> order{"Speed", "State", "Name", "Bytes"};
  target.datas()->clear();
  std::string lineFeeds = text;
  std::erase(lineFeeds, '\r'); // as a spreadsheet gives it
  EXPECT_TRUE(paste(lineFeeds).changed);
  std::vector<DataItem*> same;
  for (const std::string& name : order)
    same.push_back(the(name));
  EXPECT_EQ(copyDatas(same), before);
}

TEST_F(DataClipboard, ALineBreakInACellIsTold) {
  add("Speed")->Description = "two\r\nlines";
  EXPECT_TRUE(copyDatasText(all()).hasBrokenCell);
}

TEST_F(DataClipboard, PastedBackALineBreakInACellMakesTwoDataOfOne) {
  DataItem* speed = add("Speed");
  speed->numerique = false;
  speed->Description = "two\r\nlines";
  const DataText copied = copyDatasText(all());
  ASSERT_TRUE(copied.hasBrokenCell) << "which is why it is told";
  target.datas()->clear();
  EXPECT_TRUE(paste(copied.text).changed);
  EXPECT_EQ(names(), "Speed,lines,");
  EXPECT_EQ(the("Speed")->Description, "two");
  EXPECT_TRUE(the("Speed")->numerique) << "the type stood behind the line break";
}

TEST_F(DataClipboard, AnEncodingNamedInTheXmlIsIgnored) {
  EXPECT_TRUE(paste("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                    "<Datas><Data Name=\"Débit\"/></Datas>")
                  .changed);
  EXPECT_EQ(names(), "Débit,") << "the clipboard holds characters";
}

TEST_F(DataClipboard, TheLogIsTakenBeforeTheWarningLeadsToIt) {
  std::string log;
  const std::string tooLong(71, 'a');
  person.expect({"DATAS/MSG/pasteData/importError/text", "Warning",
                 "Error when importing data, paste the clipboard to Excel\r\nData name '" +
                     tooLong + "' too long, up to 70 characters.\r\n",
                 Buttons::Ok, Icon::Exclamation},
                Answer::Ok, [&] { EXPECT_TRUE(log.starts_with("'aaa")); });
  pasteDatas(tooLong + "\t\t8\n", database, target, person,
             [&](const std::string& text) { log = text; });
  log.clear();
  pasteDatas("a\t\t8\n", database, target, person,
             [&](const std::string&) { ADD_FAILURE() << "there is no log"; });
}

TEST_F(DataClipboard, LinesThatAreNoneAreSkipped) {
  EXPECT_FALSE(paste("'Name\ta\tb\n\t1\t2\n   \tx\ty\nname\tonly two\n").changed);
  EXPECT_FALSE(paste("").changed);
  EXPECT_FALSE(paste("<Datas><Data").changed);
}

TEST_F(DataClipboard, ANameOf70CharactersIsTakenAndOneOf71IsNot) {
  const std::string most(70, 'a'), tooLong = "é" + std::string(70, 'a');
  person.expect("DATAS/MSG/pasteData/importError/text", "Warning",
                "Error when importing data, paste the clipboard to Excel\r\nData name '" + tooLong +
                    "' too long, up to 70 characters.\r\n",
                Buttons::Ok, Icon::Exclamation, Answer::Ok);
  const DataPaste pasted = paste(most + "\t\t8\n" + tooLong + "\tM\t8\nlast\t\t8\n");
  EXPECT_EQ(names(), most + ",last,");
  EXPECT_EQ(pasted.clipboard,
            "'" + tooLong + "\tM\t8\tError: Data name too long, up to 70 characters.\r\n");
}

TEST_F(DataClipboard, CellsAreLimited) {
  paste("a\t" + std::string(60, 'm') + "\t7\tx\t" + std::string(20, 'u') + "\t0,5\t-1,25\t0\t" +
        std::string(120, 'd') + "\tNumeric\tbin\n");
  const DataItem& data = *the("a");
  EXPECT_EQ(data.Mnemo.size(), 50u);
  EXPECT_EQ(data.NumberBits, 7);
  EXPECT_FALSE(data.Signe);
  EXPECT_EQ(data.Unite.size(), 16u);
  EXPECT_EQ(data.CoeffA.value(), 0.5);
  EXPECT_EQ(data.CoeffB.value(), -1.25);
  EXPECT_EQ(data.CoeffC.value(), 1);
  EXPECT_EQ(data.Description.size(), 100u);
  EXPECT_EQ(data.DataFormat, "bin");
}

TEST_F(DataClipboard, BitCountsBecomeWhatADataMayHave) {
  paste("forty\t\t40\t0\t\t0\t0\t1\t\tNumeric\nzero\t\t0\nmany\t\t1e9\nodd\t\t41\n"
        "bad\t\tx\nfull\t\t32\nnone\t\t\n");
  EXPECT_EQ(the("forty")->NumberBits, 40);
  EXPECT_FALSE(the("forty")->numerique);
  EXPECT_FALSE(the("forty")->Ascii);
  EXPECT_EQ(the("forty")->CoeffA.value(), 1);
  EXPECT_EQ(the("zero")->NumberBits, 1);
  EXPECT_EQ(the("many")->NumberBits, 2040);
  EXPECT_EQ(the("odd")->NumberBits, 40);
  EXPECT_EQ(the("bad")->NumberBits, 8);
  EXPECT_EQ(the("full")->NumberBits, 32);
  EXPECT_TRUE(the("full")->numerique);
  EXPECT_EQ(the("none")->NumberBits, 8);
}

TEST_F(DataClipboard, DuplicateValuesKeepTheFirstAndAreTold) {
  const DataPaste pasted = paste(
      "State\t\t8\t0\t\t1\t0\t1\t\tlist\n'\tvalue\tlabel\n\t1\tOn\n\t1\tAgain\n\t2\tOn\n\tx\tBad\n"
      "\t2.6\tThree\nNext\t\t8\n");
  ASSERT_EQ(the("State")->DataListes->Count(), 2);
  EXPECT_EQ(the("State")->DataListes->ItemValue(1)->libelle, "On");
  EXPECT_EQ(the("State")->DataListes->ItemValue(3)->libelle, "Three");
  EXPECT_EQ(the("State")->DataListes->Item(1)->parent, the("State"));
  EXPECT_EQ(pasted.clipboard,
            "'\r\n"
            "'Error\t\t1\tAgain\tDuplicate value (already exist with label : On)\r\n"
            "'Error\t\t2\tOn\tDuplicate label (already exist with value : 1)\r\n"
            "'\r\n");
  EXPECT_TRUE(the("Next"));
}

TEST_F(DataClipboard, ALineOfFewerThanThreeCellsEndsAList) {
  paste("State\t\t8\t0\t\t1\t0\t1\t\tList\n\t1\tOn\nend\n\t2\tOff\n");
  EXPECT_EQ(the("State")->DataListes->Count(), 1);
}

TEST_F(DataClipboard, YesUpdatesOneNoUpdatesAllCancelStops) {
  for (const char* name : {"a", "b", "c"})
    add(name);
  const std::string text = "a\tM\t4\nb\tM\t4\nc\tM\t4\nd\tM\t4\n";
  expectUpdate("a", Answer::Yes);
  expectUpdate("b", Answer::Cancel);
  EXPECT_TRUE(paste(text).changed);
  EXPECT_EQ(the("a")->NumberBits, 4);
  EXPECT_EQ(the("b")->NumberBits, 8);
  EXPECT_FALSE(the("d"));
  expectUpdate("a", Answer::No);
  EXPECT_EQ(paste(text).lastName, "d");
  EXPECT_EQ(the("c")->Mnemo, "M");
}

TEST_F(DataClipboard, AnUpdateTakesTheSheetAlongAndKeepsTheName) {
  DataItem* data = add("Speed");
  data->Fiche = "sheet";
  expectUpdate("speed", Answer::Yes);
  paste("speed\tM\t8\t0\t\t1\t0\t1\t\tList\n\t1\tOn\n");
  EXPECT_EQ(data->dataName(), "Speed");
  EXPECT_EQ(data->Fiche, "");
  ASSERT_TRUE(data->DataListes);
  EXPECT_EQ(data->DataListes->Item(1)->parent, data);
}

TEST_F(DataClipboard, ANameTwiceInOneTextAsksForTheSecond) {
  expectUpdate("a", Answer::Yes);
  paste("a\tfirst\t8\na\tsecond\t8\n");
  EXPECT_EQ(names(), "a,");
  EXPECT_EQ(the("a")->Mnemo, "second");
}

TEST_F(DataClipboard, BadTextOfEveryKindPastesWhatItCan) {
  std::string nul = "a\t\t8\nz\t\t8\n";
  nul[6] = '\0';
  EXPECT_TRUE(paste(nul).changed);
  EXPECT_EQ(names(), "a,") << "a zero ends the text";
  EXPECT_TRUE(paste("b\t" + std::string(10000, 'x') + "\t8\rc\t\t8\r\nd\t\t8").changed);
  EXPECT_EQ(names(), "a,b,c,d,");
  EXPECT_FALSE(paste(std::string(1000000, '\t')).changed);
}

TEST_F(DataClipboard, ManyDataArePastedAsOneByOne) {
  std::string text;
  for (int i = 0; i < 300; ++i)
    text += "name" + std::to_string(i * 7919 % 1000) + "\tM\t8\t0\t\t1\t0\t1\t\tNumeric\t\n";
  TargetItem slow;
  slow.setDatas(std::make_shared<DataItems>());
  for (const char* before : {"name5", "name3", "zoo", "alpha"}) {
    add(before);
    slow.datas()->Add(before);
  }
  std::string names2;
  for (int i = 0; i < 300; ++i) {
    auto data = std::make_shared<DataItem>();
    data->setDataName("name" + std::to_string(i * 7919 % 1000));
    if (!slow.datas()->ItemName(data->dataName())) slow.datas()->AddDataSorted(data);
  }
  for (const DataItem* data : *slow.datas())
    names2 += data->dataName() + ",";
  for (int i = 0; i < 300; ++i)
    if (const int number = i * 7919 % 1000; number == 5 || number == 3) {
      expectUpdate("name" + std::to_string(number), Answer::No);
      break;
    }
  paste(text);
  EXPECT_EQ(names(), names2);
}

} // namespace
} // namespace kelmar
