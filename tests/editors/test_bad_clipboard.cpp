// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/datas/data_clipboard.h"
#include "editors/rules/datas/value_list.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_clipboard.h"
#include "editors/rules/requests/request_tab_clipboard.h"

#include <ctime>

// What is no proper clipboard text, on every paste: what is told, what is pasted all the same, and
// that nothing else is touched.

namespace kelmar {
namespace {

using platform::Answer, platform::Buttons, platform::Icon;
using testing::positionsText;
using testing::RequestEcu;

const std::string longCell(10000, 'n');
const std::string tooLong(71, 'n');

class BadClipboard : public ::testing::Test {
 protected:
  BadClipboard() : request(ecu.addRequest("R", "2101")) {
    ecu.place(request, "D", false, 2);
    DataItem& list = ecu.addData("L", 4);
    list.liste = true;
    list.DataListes = std::make_shared<DataListeItems>();
    list.DataListes->Add(1, "One", "")->parent = &list;
    list.DataListes->Add(2, "Two", "")->parent = &list;
    ecu.addDevice("Sensor", {"D"});
    ecu.addScreen("Main", "State");
    values.bind(&list);
    before = ecu.saved();
  }

  bool pasteData(const std::string& text) {
    return pasteDatas(text, ecu.db, ecu.target(), ecu.person).changed;
  }
  bool pasteValues(const std::string& text) { return values.paste(text, ecu.person); }
  bool pasteRequest(const std::string& text) {
    return pasteRequests(text, ecu.db, ecu.target(), ecu.person).changed;
  }
  bool pastePositions(const std::string& text) {
    return pasteDataPositions(text, ecu.db, ecu.target(), request, true, ecu.person);
  }
  bool pasteAtBit(const std::string& text) {
    return pasteDatasAt(text, ecu.target(), request, true, FrameBit{2, 3}, ecu.person);
  }

  std::string datas() {
    return testing::namesOf(*ecu.target().datas(),
                            [](const DataItem& data) { return data.dataName(); });
  }
  std::string valueRows() const {
    std::string text;
    for (const auto& row : values.rows())
      text += std::to_string(row->value) + "=" + row->label + " ";
    return text;
  }
  /// Nothing of the ECU and of the list under edit is another than at the start.
  void expectUnchanged() {
    EXPECT_EQ(ecu.saved(), before);
    EXPECT_EQ(valueRows(), "1=One 2=Two ");
  }
  /// The rest of the ECU when data and requests may be others.
  void expectRestUnchanged() {
    EXPECT_EQ(withoutLists(ecu.saved()), withoutLists(before));
    EXPECT_TRUE(ecu.person.allAsked());
  }
  static std::string withoutLists(std::string text) {
    for (const auto& [from, to] : {std::pair("<Datas", "</Datas>"), {"<Requests", "</Requests>"}}) {
      const std::size_t begin = text.find(from);
      text.erase(begin, text.find(to) - begin);
    }
    return text;
  }

  void expectWarning(const char* key, const std::string& text) {
    ecu.person.expect(key, "Warning", text, Buttons::Ok, Icon::Exclamation, Answer::Ok);
  }
  void expectDataUpdate(const std::string& name, Answer answer) {
    ecu.person.expect("DATAS/MSG/pasteData/update/text", "Confirm update",
                      "Data '" + name +
                          "' already exist\r\n\r\nYes = Update this data only\r\nNo = Update all "
                          "data without confirmation",
                      Buttons::YesNoCancel, Icon::Question, answer);
  }
  void expectCreation(const std::string& name, Answer answer) {
    ecu.person.expect("REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text",
                      "Confirm data creation",
                      "Data '" + name +
                          "' doesn't exist. Do you want to create this data with default "
                          "parameters (numeric, 8 bits)?",
                      Buttons::YesNo, Icon::Question, answer);
  }

  RequestEcu ecu;
  RequestItem& request;
  ValueList values;
  std::string before;
};

TEST_F(BadClipboard, CutXml_PastesNoData) {
  EXPECT_FALSE(pasteData("<Datas>\n<Data Name=\"A\">\n<Bits count=\"3\">"));
  EXPECT_FALSE(pasteValues("<List>\n<Item Value=\"7\" Text=\"Seven\"/>"));
  EXPECT_FALSE(pasteAtBit("<Datas>\n<Data Name=\"D\">"));
  expectUnchanged();
}

TEST_F(BadClipboard, CutXml_IsLinesToThePositions) {
  expectCreation("<Positions>", Answer::No);
  expectWarning("REQUESTS/MSG/warning/text",
                "Data '<Positions>' doesn't exist. You must create the data before using it.\r\n"
                "Data name '" +
                    tooLong + "' is too long (up to 70 characters). Data not added.\r\n");
  EXPECT_FALSE(pastePositions("<Positions>\n\n" + tooLong));
  expectUnchanged();
}

TEST_F(BadClipboard, CutXml_IsLinesToTheRequestsWhichTakeTheirNames) {
  EXPECT_TRUE(pasteRequest("<Requests>\n<Datas>\n" + tooLong.substr(1)));
  EXPECT_EQ(ecu.requestNames(), "R|<Requests>|<Datas>|" + tooLong.substr(1));
  expectRestUnchanged();
}

TEST_F(BadClipboard, ForeignRoot_IsToldOrIgnored) {
  const std::string foreign = "<Devices><Device Name=\"X\"/></Devices>";
  ecu.person.expect("DATAS/MSG/pasteData/badClipboardData/text", "Clipboard error",
                    "Bad clipboard content. You can paste only Data", Buttons::Ok,
                    Icon::Exclamation, Answer::Ok);
  EXPECT_FALSE(pasteData(foreign));
  EXPECT_FALSE(pasteRequest(foreign));
  EXPECT_FALSE(pasteRequest("<Datas><Data Name=\"A\"/></Datas>")) << "not even its data";
  EXPECT_FALSE(pasteValues("<Requests/>"));
  ecu.person.expect("REQUESTS/MSG/pasteDataPositions/badClipboardData/text", "Error",
                    "Bad clipboard data format", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(pastePositions(foreign));
  EXPECT_FALSE(pasteAtBit("<Positions/>"));
  expectUnchanged();
}

TEST_F(BadClipboard, FiftyMegabytesOfTabs_ChangeNothing) {
  const std::string tabs(50u << 20, '\t');
  const std::clock_t start = std::clock();
  EXPECT_FALSE(pasteData(tabs));
  EXPECT_FALSE(pasteValues(tabs));
  EXPECT_FALSE(pasteRequest(tabs));
  EXPECT_FALSE(pastePositions(tabs));
  EXPECT_FALSE(pasteAtBit(tabs));
  EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 60);
  expectUnchanged();
}

TEST_F(BadClipboard, MillionsOfLinesWithoutCells_ChangeNothing) {
  std::string lines;
  for (int i = 0; i < 1'000'000; ++i)
    lines += "\t\t\t\t\n";
  EXPECT_FALSE(pasteData(lines));
  EXPECT_FALSE(pasteValues(lines));
  EXPECT_FALSE(pasteRequest(lines));
  EXPECT_FALSE(pastePositions(lines));
  expectUnchanged();
}

TEST_F(BadClipboard, Zero_EndsTheText) {
  using namespace std::string_literals;
  EXPECT_TRUE(pasteData("A\tm\t8\0\tx\r\nB\tm\t8\r\n"s));
  EXPECT_EQ(datas(), "D A L");
  EXPECT_TRUE(pasteValues("7\tSeven\r\n\0008\tEight\r\n"s));
  EXPECT_EQ(valueRows(), "1=One 2=Two 7=Seven ");
  EXPECT_TRUE(pasteRequest("S\t1\0\r\nT\t1\r\n"s));
  EXPECT_EQ(ecu.requestNames(), "R|S");
  EXPECT_TRUE(pastePositions("A\t3\0\r\nL\t3\r\n"s));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, A 3.0 B s");
  EXPECT_TRUE(pasteAtBit("<Datas><Data Name=\"L\"/></Datas>\0<"s));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, A 3.0 B s, L 3.4 B s");
  expectRestUnchanged();
}

TEST_F(BadClipboard, CellsOfTenThousandCharacters_AreCutRefusedOrTaken) {
  expectWarning("DATAS/MSG/pasteData/importError/text",
                "Error when importing data, paste the clipboard to Excel\r\nData name '" +
                    longCell + "' too long, up to 70 characters.\r\n");
  const DataPaste pasted = pasteDatas(longCell + "\tm\t8\nA\t" + longCell + "\t8\t" + longCell +
                                          "\t" + longCell + "\t\t\t\t" + longCell,
                                      ecu.db, ecu.target(), ecu.person);
  EXPECT_EQ(pasted.clipboard,
            "'" + longCell + "\tm\t8\tError: Data name too long, up to 70 characters.\r\n");
  EXPECT_EQ(datas(), "D A L");
  const DataItem& data = *ecu.target().datas()->ItemName("A");
  EXPECT_EQ(data.Mnemo.size(), 50u);
  EXPECT_EQ(data.Unite.size(), 16u);
  EXPECT_EQ(data.Description.size(), 100u);

  EXPECT_TRUE(pasteValues("7\t" + longCell + "\n" + longCell + "\tSeven"));
  EXPECT_EQ(valueRows(), "1=One 2=Two 7=" + longCell + " ");

  expectWarning("REQUESTS/MSG/warning/text",
                "Request name '" + longCell + "' is too long. Up to 70 characters.\r\n");
  std::string line = "S";
  for (int cell = 1; cell < 13; ++cell)
    line += "\t" + longCell;
  EXPECT_TRUE(pasteRequest(longCell + "\t1\n" + line + "\t" + longCell));
  EXPECT_EQ(ecu.requestNames(), "R|S");
  EXPECT_EQ(ecu.request("S").RequestBytes->HexText(), "2180");
  EXPECT_EQ(ecu.request("S").LengthDatas, 1);
  EXPECT_EQ(ecu.request("S").Commentaire, longCell);

  expectWarning("REQUESTS/MSG/warning/text",
                "Data name '" + longCell +
                    "' is too long (up to 70 characters). Data not added.\r\n");
  EXPECT_TRUE(pastePositions(longCell + "\t3\nL\t" + longCell + "\t" + longCell));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, L 1.0 B s");
  expectRestUnchanged();
}

TEST_F(BadClipboard, DuplicateNames_AreAskedRefusedOrLeftAlone) {
  expectDataUpdate("a", Answer::Yes);
  expectDataUpdate("A", Answer::Cancel);
  EXPECT_TRUE(pasteData("A\tm\t8\na\tn\t9\n A \to\t10\nB\tm\t8"));
  EXPECT_EQ(datas(), "D A L") << "Cancel ends it";
  EXPECT_EQ(ecu.target().datas()->ItemName("A")->Mnemo, "n");

  EXPECT_TRUE(pasteData("<Datas><Data Name=\"A\"/><Data Name=\"a\"/><Data Name=\"A\"/></Datas>"));
  EXPECT_EQ(datas(), "D A Copy A L") << "of one name in a document the first is read";

  ecu.person.expect("DATALIST/MSG/UpdateOrAddItem/text", "Paste warning",
                    "Unable to insert or modify item: 1=Two\r\nThe value and label already exist "
                    "in two different items",
                    Buttons::Ok, Icon::Exclamation, Answer::Ok);
  EXPECT_TRUE(pasteValues("1\tOne\n1\tTwo\n7\tSeven\n7\tSeven"));
  EXPECT_EQ(valueRows(), "1=One 2=Two 7=Seven ");

  EXPECT_TRUE(pasteRequest("S\t0\t0\t2101\n"));
  ecu.person.expect("REQUESTS/MSG/pasteDataFromExcel/requestAlreadyExists/text", "Confirm update",
                    "Request 's' already exists. Do you want to update parameters ?",
                    Buttons::YesNo, Icon::Question, Answer::No);
  EXPECT_TRUE(pasteRequest("s\t0\t0\t2102\nT\n"));
  EXPECT_EQ(ecu.requestNames(), "R|S|T");
  EXPECT_EQ(ecu.request("S").RequestBytes->HexText(), "2101");
  expectRestUnchanged();
}

TEST_F(BadClipboard, BadNumbers_FallBack) {
  EXPECT_TRUE(pasteData("A\tm\tx\t2\t\t1,5,3\tNaN\t1E999\nB\tm\t-5\nC\tm\t99999999999\nE\tm\t1E1"));
  const DataItem& bad = *ecu.target().datas()->ItemName("A");
  EXPECT_EQ(bad.NumberBits, 8);
  EXPECT_FALSE(bad.Signe);
  EXPECT_EQ(ecu.target().datas()->ItemName("B")->NumberBits, 1);
  EXPECT_EQ(ecu.target().datas()->ItemName("C")->NumberBits, 2040);
  EXPECT_EQ(ecu.target().datas()->ItemName("E")->NumberBits, 10);

  EXPECT_TRUE(
      pasteValues("x\tX\n$\tDollar\n$GG\tG\n99999999999\tBig\n1.5.2\tDots\n\tNone\n3\tThree"));
  EXPECT_EQ(valueRows(), "1=One 2=Two 3=Three ");

  EXPECT_TRUE(pasteRequest("S\tx\t2\t2z\tyes\t4096\t-1\t6\n\tSend\tA\tx\t8\t2\t2\n"));
  const RequestItem& request2 = ecu.request("S");
  EXPECT_FALSE(request2.DossierMaintenabilite || request2.ManuelSend || request2.LgVariable);
  EXPECT_EQ(request2.RequestBytes->HexText(), "2180");
  EXPECT_EQ(request2.ReplyBytes->HexText(), "06");
  EXPECT_EQ(request2.LengthDatas, 1);
  EXPECT_EQ(request2.ShiftBytesCount, 0);
  EXPECT_EQ(positionsText(request2), "A 1.0 B s");

  EXPECT_TRUE(pastePositions("A\t0\t-1\tx\tx\nB\t4096\t8\nC\t4095\t7\n"));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, A 1.0 B s, B 1.0 B s, C 4095.7 B s");
  expectRestUnchanged();
}

TEST_F(BadClipboard, MixedLineEnds_AreAllLineEnds) {
  EXPECT_TRUE(pasteData("A\tm\t8\nB\tm\t8\rC\tm\t8\r\n\n\rE\tm\t8"));
  EXPECT_EQ(datas(), "D A B C E L");
  EXPECT_TRUE(pasteValues("3\tThree\n4\tFour\r5\tFive\r\n\r6\tSix"));
  EXPECT_EQ(valueRows(), "1=One 2=Two 3=Three 4=Four 5=Five 6=Six ");
  EXPECT_TRUE(pasteRequest("S\n\tSend\tA\t3\rT\r\n\r\tSend\tB\t4\n"));
  EXPECT_EQ(ecu.requestNames(), "R|S|T");
  EXPECT_EQ(positionsText(ecu.request("T")), "B 4.0 B s");
  EXPECT_TRUE(pastePositions("A\t3\nB\t4\rC\t5\r\n\rE\t6"));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, A 3.0 B s, B 4.0 B s, C 5.0 B s, E 6.0 B s");
  expectRestUnchanged();
}

/// Says Yes to everything.
class WillingPerson final : public platform::Person {
 public:
  Answer message(const platform::Box& box) override {
    return box.buttons == Buttons::Ok || box.buttons == Buttons::OkCancel ? Answer::Ok
                                                                          : Answer::Yes;
  }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }
};

/// Processor time of a paste of `count` lines, the least of three.
template <class PasteLines>
double secondsOf(PasteLines pasteLines, int count) {
  double least = 1e9;
  for (int run = 0; run < 3; ++run) {
    RequestEcu ecu;
    RequestItem& request = ecu.addRequest("R", "2101");
    request.DossierMaintenabilite = true;
    least = std::min(least, pasteLines(ecu, request, count));
  }
  return least;
}

class PasteGrowth : public ::testing::Test {
 protected:
  /// From `few` lines to eight times as many: a square would take 64 times as long.
  template <class PasteLines>
  static void expectLinear(PasteLines pasteLines) {
    constexpr int few = 2500;
    const double small = std::max(secondsOf(pasteLines, few), 0.001);
    EXPECT_LT(secondsOf(pasteLines, 8 * few), 24 * small + 0.05);
  }
  template <class Action>
  static double timed(Action action) {
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }
  static std::string lines(int count, const std::string& before, const std::string& after) {
    std::string text;
    for (int i = 0; i < count; ++i)
      text += before + std::to_string(i * 7919 % count) + after;
    return text;
  }
};

TEST_F(PasteGrowth, Datas_TakeTimeByTheirNumber) {
  expectLinear([](RequestEcu& ecu, RequestItem&, int count) {
    const std::string text = lines(count, "D", "\tm\t8\t0\tV\t1\t0\t1\tc\tList\n\t1\tA\n\t1\tB\n");
    WillingPerson person;
    const double seconds = timed([&] { pasteDatas(text, ecu.db, ecu.target(), person); });
    EXPECT_EQ(ecu.target().datas()->Count(), count);
    return seconds;
  });
}

TEST_F(PasteGrowth, ValuesOfOneList_TakeTimeByTheirNumber) {
  expectLinear([](RequestEcu& ecu, RequestItem&, int count) {
    ValueList values;
    values.bind(&ecu.addData("L"));
    std::string text;
    for (int i = 0; i < count; ++i)
      text += std::to_string(i) + "\tlabel " + std::to_string(i) + "\n";
    WillingPerson person;
    const double seconds = timed([&] { values.paste(text, person); });
    EXPECT_EQ(values.rows().size(), static_cast<std::size_t>(count));
    return seconds;
  });
}

TEST_F(PasteGrowth, RequestsWithUnknownData_TakeTimeByTheirNumber) {
  expectLinear([](RequestEcu& ecu, RequestItem&, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i * 7919 % count);
      text += "S" + number + "\t0\t0\t2101\n\tReceive\tD" + number + "\t3\t0\t0\t1\n";
    }
    WillingPerson person;
    const double seconds = timed([&] { pasteRequests(text, ecu.db, ecu.target(), person); });
    EXPECT_EQ(ecu.target().Requests()->Count(), count + 1);
    EXPECT_EQ(ecu.target().datas()->Count(), count);
    return seconds;
  });
}

TEST_F(PasteGrowth, PositionsOfOneRequest_TakeTimeByTheirNumber) {
  expectLinear([](RequestEcu& ecu, RequestItem& request, int count) {
    const std::string text = lines(count, "D", "\t3\t0\t0\t1\n");
    WillingPerson person;
    const double seconds =
        timed([&] { pasteDataPositions(text, ecu.db, ecu.target(), request, false, person); });
    EXPECT_EQ(request.DataPositions->Count(), count);
    EXPECT_TRUE(request.DataPositions->Item(count)->reference);
    return seconds;
  });
}

TEST_F(PasteGrowth, DocumentsOfPositionsAndOfData_TakeTimeByTheirNumber) {
  expectLinear([](RequestEcu& ecu, RequestItem& request, int count) {
    std::string datas, positions;
    for (int i = 0; i < count; ++i) {
      datas += "<Data Name=\"D" + std::to_string(i) + "\"/>";
      positions += "<DataItem Name=\"D" + std::to_string(i) + "\" Ref=\"1\"/>";
    }
    WillingPerson person;
    RequestItem& other = ecu.addRequest("S", "2102");
    RequestItem& third = ecu.addRequest("T", "2103");
    third.DossierMaintenabilite = other.DossierMaintenabilite = true;
    const double seconds = timed([&] {
      pasteDataPositions("<Positions><Datas>" + datas + "</Datas><Request>" + positions +
                             "</Request></Positions>",
                         ecu.db, ecu.target(), request, false, person);
      pasteDataPositions("<Datas>" + datas + "</Datas>", ecu.db, ecu.target(), other, false,
                         person);
      pasteDatasAt("<Datas>" + datas + "</Datas>", ecu.target(), third, false, FrameBit{1, 2},
                   person);
    });
    EXPECT_EQ(request.DataPositions->Count(), count);
    EXPECT_EQ(other.DataPositions->Count(), count);
    EXPECT_EQ(third.DataPositions->Count(), count);
    return seconds;
  });
}

} // namespace
} // namespace kelmar
