// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "editors/request_ecu.h"
#include "editors/rules/requests/request_tab_clipboard.h"

namespace kelmar {
namespace {

using platform::Answer;
using testing::positionsText;
using testing::RequestEcu;

constexpr char header[] =
    "'Name\tDM\tManual\tSend Bytes\tvariable\tLength\tShift\ttemplate\twithout\t"
    "plant\tafter sales\tengineering\tsupplier\tcomment\r\n";
constexpr char positionHeader[] =
    "'\tSend or Receive\tData Name\tStart byte\tOffset bit\tLittle Endian\tref\r\n";

class RequestTabClipboard : public ::testing::Test {
 protected:
  RequestPaste paste(const std::string& text) {
    return pasteRequests(text, ecu.db, ecu.target(), ecu.person);
  }
  void expectQuestion(const char* which, const std::string& title, const std::string& text,
                      Answer answer) {
    ecu.person.expect("REQUESTS/MSG/pasteDataFromExcel/" + std::string(which) + "/text", title,
                      text, platform::Buttons::YesNo, platform::Icon::Question, answer);
  }
  void expectUpdate(const std::string& name, Answer answer) {
    expectQuestion("requestAlreadyExists", "Confirm update",
                   "Request '" + name + "' already exists. Do you want to update parameters ?",
                   answer);
  }
  void expectCreation(const std::string& name, Answer answer) {
    expectQuestion("dataDoesntExist", "Confirm data creation",
                   "Data '" + name +
                       "' doesn't exist. Do you want to create this data with default parameters "
                       "(numeric, 8 bits)?",
                   answer);
  }
  void expectPositionUpdate(const std::string& name, Answer answer) {
    expectQuestion("dataAlreadyExists", "Confirm data update",
                   "Data '" + name +
                       "' already used in this request. Update data position parameters?",
                   answer);
  }
  void expectWarning(const std::string& text) {
    ecu.person.expect("REQUESTS/MSG/warning/text", "Warning", text, platform::Buttons::Ok,
                      platform::Icon::Exclamation, Answer::Ok);
  }

  RequestEcu ecu;
};

TEST_F(RequestTabClipboard, CopyGivesHeaderLinesAndPositionsParametersFirst) {
  RequestItem& request = ecu.addRequest("A", "2EF190AA", "6EF190");
  request.DossierMaintenabilite = request.LgVariable = true;
  request.LengthDatas = 4;
  request.ShiftBytesCount = 1;
  request.AccesUsine = request.AccesEtudes = false;
  request.Commentaire = "why";
  ecu.place(request, "D", false, 3, 2, true);
  ecu.place(request, "P", true, 4).LittleEndian = true;
  ecu.addRequest("B", "3E00").DataPositions = std::make_shared<DataPositionItems>();
  bool broken = true;
  EXPECT_EQ(copyRequestsText(ecu.allRequests(), broken),
            header + std::string("A\t1\t0\t2EF190AA\t1\t4\t1\t6EF190\t1\t0\t1\t0\t1\twhy\r\n") +
                positionHeader + "\tSend\tP\t4\t0\t1\t0\r\n\tReceive\tD\t3\t2\t0\t1\r\n" +
                "B\t0\t0\t3E00\t0\t1\t0\t\t1\t1\t1\t1\t1\t\r\n");
  EXPECT_FALSE(broken);
  request.Commentaire = "two\r\nlines";
  copyRequestsText(ecu.allRequests(), broken);
  EXPECT_TRUE(broken);
}

TEST_F(RequestTabClipboard, WhatWasCopiedComesBackTheSame) {
  RequestItem& request = ecu.addRequest("A", "2EF190AA", "6EF190");
  request.ManuelSend = request.LgVariable = true;
  request.LengthDatas = 4;
  request.ShiftBytesCount = 1;
  request.AccesTous = request.AccesApresVente = request.AccesConstructeur = false;
  request.Commentaire = "why";
  ecu.place(request, "P", true, 4).LittleEndian = true;
  ecu.place(request, "D", false, 3, 2, true);
  bool broken = false;
  const std::string text = copyRequestsText(ecu.allRequests(), broken);
  const std::string before = testing::fragmentOf(request, "R");
  for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
    ecu.target().DeleteRequest(&ecu.request("A"));
    const RequestPaste result = paste(replaceAll(text, "\r\n", lineEnd));
    EXPECT_TRUE(result.changed);
    EXPECT_EQ(result.lastRequestName, "A");
    EXPECT_EQ(testing::fragmentOf(ecu.request("A"), "R"), before);
  }
}

TEST_F(RequestTabClipboard, LinesBeforeTheFirstRequestAreSkipped) {
  paste(std::string("\r\n\tSend\tD\t1\r\n'note\r\n   \tx\r\n") + header + "A\r\n");
  EXPECT_EQ(ecu.requestNames(), "A");
  EXPECT_EQ(ecu.request("A").RequestBytes->Length(), 0);
  EXPECT_TRUE(ecu.request("A").AccesTous);
}

TEST_F(RequestTabClipboard, SeventyCharactersAreANameSeventyOneAreRefusedAndTheRestGoesOn) {
  std::string seventy;
  for (int i = 0; i < 70; ++i)
    seventy += "é";
  expectWarning("Request name '" + seventy + "x' is too long. Up to 70 characters.\r\n");
  const RequestPaste result =
      paste(seventy + "\t1\r\n" + seventy + "x\t1\r\n\tSend\tD\t2\r\nB\t1\r\n");
  EXPECT_EQ(ecu.requestNames(), seventy + "|B");
  EXPECT_EQ(result.lastRequestName, "B");
  EXPECT_EQ(ecu.target().datas()->Count(), 0) << "the positions of a refused request are skipped";
}

TEST_F(RequestTabClipboard, OddHexGetsAZeroBadHexIs2180AndABadTemplateIsEmpty) {
  paste("A\t0\t0\t180\t0\t1\t0\t61F\r\nB\t0\t0\t21G0\t0\t1\t0\txx\r\n");
  EXPECT_EQ(ecu.request("A").RequestBytes->HexText(), "0180");
  EXPECT_EQ(ecu.request("A").ReplyBytes->HexText(), "061F");
  EXPECT_EQ(ecu.request("B").RequestBytes->HexText(), "2180");
  EXPECT_EQ(ecu.request("B").ReplyBytes->Length(), 0);
}

TEST_F(RequestTabClipboard, NumbersOutsideTheirLimitsFallBack) {
  paste("A\t0\t0\t21\t0\t4096\t4096\r\nB\t0\t0\t21\t0\t-1\t-1\r\nC\t0\t0\t21\t0\t4095\t4095\r\n"
        "D\t0\t0\t21\t0\t0\t0\r\nE\t0\t0\t21\t0\tmany\t\r\n");
  const auto numbers = [&](const char* name) {
    return std::pair(ecu.request(name).LengthDatas, ecu.request(name).ShiftBytesCount);
  };
  EXPECT_EQ(numbers("A"), std::pair(1, 0));
  EXPECT_EQ(numbers("B"), std::pair(1, 0));
  EXPECT_EQ(numbers("C"), std::pair(4095, 4095));
  EXPECT_EQ(numbers("D"), std::pair(0, 0));
  EXPECT_EQ(numbers("E"), std::pair(1, 0));
}

TEST_F(RequestTabClipboard, YesUpdatesTheRequestInPlaceByTheCellsThatAreThere) {
  ecu.addRequest("A", "2101", "61");
  ecu.request("A").Commentaire = "kept";
  ecu.addRequest("B");
  expectUpdate("a", Answer::Yes);
  EXPECT_TRUE(paste("a\t1\t1\t2102\r\n").changed);
  EXPECT_EQ(ecu.requestNames(), "A|B");
  EXPECT_EQ(ecu.request("A").RequestBytes->HexText(), "2102");
  EXPECT_EQ(ecu.request("A").ReplyBytes->HexText(), "61");
  EXPECT_TRUE(ecu.request("A").ManuelSend);
  EXPECT_EQ(ecu.request("A").Commentaire, "kept");
}

TEST_F(RequestTabClipboard, NoLeavesTheRequestUnchangedButItsNewDataAreCreated) {
  RequestItem& request = ecu.addRequest("A", "2101", "61");
  ecu.place(request, "D", false, 2);
  const std::string before = testing::fragmentOf(request, "R");
  expectUpdate("A", Answer::No);
  expectCreation("New one", Answer::Yes);
  const RequestPaste result =
      paste("A\t1\t1\t2102\r\n\tSend\tD\t5\r\n\tSend\tNew one\t6\t0\t0\t1\r\nB\t0\r\n");
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(testing::fragmentOf(ecu.request("A"), "R"), before);
  EXPECT_TRUE(ecu.target().datas()->ItemName("New one"));
  EXPECT_EQ(ecu.requestNames(), "A|B");
  EXPECT_FALSE(ecu.target().GetDataPositionFromRefData("New one"));
}

TEST_F(RequestTabClipboard, ADeclinedUpdateAloneChangesNothing) {
  ecu.addRequest("A");
  expectUpdate("A", Answer::No);
  EXPECT_FALSE(paste("A\t1\t1\t2102\r\n").changed);
}

TEST_F(RequestTabClipboard, UnknownDataAreCreatedOrTheirLineIsLeftOut) {
  expectCreation("D", Answer::Yes);
  expectCreation("E", Answer::No);
  paste("A\t0\r\n\tReceive\tD\t2\t3\r\n\tReceive\tE\t3\r\n");
  EXPECT_EQ(positionsText(ecu.request("A")), "D 2.3 B r");
  const DataItem* data = ecu.target().datas()->ItemName("D");
  ASSERT_TRUE(data);
  EXPECT_EQ(data->NumberBits, 8);
  EXPECT_TRUE(data->numerique);
  EXPECT_FALSE(ecu.target().datas()->ItemName("E"));
}

TEST_F(RequestTabClipboard, PositionsTakeTheirDefaultsAndLimits) {
  for (const char* name : {"A", "B", "C", "D", "E"})
    ecu.addData(name);
  ecu.target().Parametres()->LittleEndian = true;
  paste("R\t0\r\n\tSend\tA\t0\t8\t0\r\n\tsend\tB\t4096\t7\t1\t1\r\n\tReceive\tC\t4095\r\n\tSend\tD"
        "\r\n"
        "'\tSend\tE\t5\r\n\t\t\t\t\t\t\t\t\r\n");
  EXPECT_EQ(positionsText(ecu.request("R")), "A 1.0 B s, B 1.7 L r ref, C 4095.0 L r");
}

TEST_F(RequestTabClipboard, ADataThatIsAReferenceAlreadyLosesTheFlag) {
  ecu.place(ecu.addRequest("Holder"), "D", false, 2, 0, true);
  ecu.addData("E");
  paste("R\t0\r\n\tReceive\tD\t2\t0\t0\t1\r\n\tReceive\tE\t3\t0\t0\t1\r\n"
        "S\t0\r\n\tReceive\tE\t3\t0\t0\t1\r\n");
  EXPECT_EQ(positionsText(ecu.request("R")), "D 2.0 B r, E 3.0 B r ref");
  EXPECT_EQ(positionsText(ecu.request("S")), "E 3.0 B r");
}

TEST_F(RequestTabClipboard, APositionThatIsThereIsMovedWithItsSideAndReferenceLeft) {
  RequestItem& request = ecu.addRequest("A");
  ecu.place(request, "D", false, 2, 0, true);
  ecu.place(request, "E", false, 3);
  expectUpdate("A", Answer::Yes);
  expectPositionUpdate("D", Answer::Yes);
  expectPositionUpdate("E", Answer::No);
  paste("A\r\n\tSend\tD\t7\t5\t1\t0\r\n\tSend\tE\t8\t1\r\n");
  EXPECT_EQ(positionsText(request), "D 7.5 L r ref, E 3.0 B r");
}

TEST_F(RequestTabClipboard, CutXmlIsReadAsLines) {
  paste("<Requests Endian=\"Big\">\r\n");
  EXPECT_EQ(ecu.requestNames(), "<Requests Endian=\"Big\">");
}

TEST_F(RequestTabClipboard, FiftyMegabytesOfTabsChangeNothing) {
  EXPECT_FALSE(paste(std::string(50u << 20, '\t')).changed);
  EXPECT_EQ(ecu.requestNames(), "");
}

TEST_F(RequestTabClipboard, ACellOfTenThousandCharactersIsRefusedAsAName) {
  const std::string name(10000, 'n');
  expectWarning("Request name '" + name + "' is too long. Up to 70 characters.\r\n");
  EXPECT_FALSE(paste(name + "\t1\r\n").changed);
}

TEST_F(RequestTabClipboard, ThousandsOfRequestsArePastedInAboutTheTimeThatTheyTakeUp) {
  std::string text;
  for (int i = 0; i < 4000; ++i) {
    const std::string number = std::to_string(i);
    ecu.addData("D" + number);
    text += "R" + number + "\t0\t0\t2101\r\n\tReceive\tD" + number + "\t2\t0\t0\t1\r\n";
  }
  EXPECT_TRUE(paste(text).changed);
  EXPECT_EQ(ecu.target().Requests()->Count(), 4000);
  EXPECT_EQ(positionsText(ecu.request("R3999")), "D3999 2.0 B r ref");
}

} // namespace
} // namespace kelmar
