// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/positions/position_clipboard.h"

namespace kelmar {
namespace {

using platform::Answer, platform::Buttons, platform::Icon;
using testing::positionsText;
using testing::RequestEcu;

class PositionClipboard : public ::testing::Test {
 protected:
  PositionClipboard() : request(ecu.addRequest("R", "2101")) {}
  bool paste(const std::string& text, bool sent = false) {
    return pasteDataPositions(text, ecu.db, ecu.target(), request, sent, ecu.person);
  }
  void ask(const char* key, const char* title, const std::string& text, Answer answer) {
    ecu.person.expect(key, title, text, Buttons::YesNo, Icon::Question, answer);
  }
  RequestEcu ecu;
  RequestItem& request;
};

TEST_F(PositionClipboard, TextHasNoHeaderAndComesBack) {
  ecu.place(request, "D", false, 3, 2, true).LittleEndian = true;
  bool broken = true;
  const std::string text = copyPositionsText({request.DataPositions->Item(1)}, broken);
  EXPECT_EQ(text, "D\t3\t2\t1\t1\r\n");
  EXPECT_FALSE(broken);
  ecu.target().DeleteDataPosition(request.DataPositions->Item(1));
  EXPECT_TRUE(paste(text));
  EXPECT_EQ(positionsText(request), "D 3.2 L r ref");
}

TEST_F(PositionClipboard, XmlTakesTheSideOfTheTabAndDropsASecondReference) {
  ecu.place(request, "D", false, 3, 2, true);
  const std::string text =
      copyDataPositions(ecu.target(), request, false, {request.DataPositions->Item(1)});
  RequestItem& other = ecu.addRequest("S");
  EXPECT_TRUE(pasteDataPositions(text, ecu.db, ecu.target(), other, true, ecu.person));
  EXPECT_EQ(positionsText(other), "D 3.2 B s");
}

TEST_F(PositionClipboard, AnExistingPositionOfADocumentIsMovedOnYes) {
  ecu.place(request, "D", false, 3, 2);
  const std::string text =
      copyDataPositions(ecu.target(), request, false, {request.DataPositions->Item(1)});
  request.DataPositions->Item(1)->StartOctet = 9;
  ask("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", "Confirm data update",
      "Data 'D' already used in this request. Update data position parameters?", Answer::No);
  EXPECT_FALSE(paste(text));
  ask("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", "Confirm data update",
      "Data 'D' already used in this request. Update data position parameters?", Answer::Yes);
  EXPECT_TRUE(paste(text));
  EXPECT_EQ(positionsText(request), "D 3.2 B r");
}

TEST_F(PositionClipboard, WhatIsMissingIsToldWhenTheRestIsThere) {
  ecu.addData("D");
  std::string order;
  const auto paste = [&](const std::string& text) {
    return pasteDataPositions(text, ecu.db, ecu.target(), request, false, ecu.person,
                              [&] { order += positionsText(request) + ", "; });
  };
  ecu.person.expect({"REQUESTS/MSG/pasteDataPositions/dataDoesntExist/text", "Error",
                     "Data : \r\n    X\r\n\r\ndoesn't exist. You must create data first.",
                     Buttons::Ok, Icon::Critical},
                    Answer::Ok, [&] { order += "told"; });
  EXPECT_TRUE(paste("<Datas><Data Name='X'/><Data Name='D'/></Datas>"));
  EXPECT_EQ(order, "D 1.0 B r, told");
}

TEST_F(PositionClipboard, TheTextFormAsksTwiceBeforeAnUpdate) {
  ecu.place(request, "D", false, 3);
  const auto first = [&](Answer answer) {
    ask("", "Confirm data update",
        "Data 'D' already used in this request, update data position parameters ?", answer);
  };
  const auto second = [&](Answer answer) {
    ask("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", "Confirm data update",
        "Data 'D' already used in this request. Update data position parameters?", answer);
  };
  first(Answer::No);
  EXPECT_FALSE(paste("D\t5\r\n"));
  first(Answer::Yes);
  second(Answer::No);
  EXPECT_FALSE(paste("D\t5\r\n"));
  first(Answer::Yes);
  second(Answer::Yes);
  EXPECT_TRUE(paste("D\t5\r\n"));
  EXPECT_EQ(positionsText(request), "D 5.0 B r");
}

TEST_F(PositionClipboard, LongNamesAndDeclinedDataGoIntoTheWarnings) {
  const std::string longName(71, 'n');
  ask("REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text", "Confirm data creation",
      "Data 'X' doesn't exist. Do you want to create this data with default parameters (numeric, 8 "
      "bits)?",
      Answer::No);
  ecu.person.expect("REQUESTS/MSG/warning/text", "Warning",
                    "Data name '" + longName +
                        "' is too long (up to 70 characters). Data not added.\r\n"
                        "Data 'X' doesn't exist. You must create the data before using it.\r\n",
                    Buttons::Ok, Icon::Exclamation, Answer::Ok);
  ecu.addData("D");
  EXPECT_TRUE(paste(longName + "\r\nX\t2\r\n\t\t\r\nD\t4096\t8\r\n"));
  EXPECT_EQ(positionsText(request), "D 1.0 B r");
}

TEST_F(PositionClipboard, DataOfTheDataPageGoToByteOneAndMissingOnesAreTold) {
  ecu.addData("D");
  ecu.person.expect("REQUESTS/MSG/pasteDataPositions/dataDoesntExist/text", "Error",
                    "Data : \r\n    X\r\n\r\ndoesn't exist. You must create data first.",
                    Buttons::Ok, Icon::Critical, Answer::Ok);
  request.DossierMaintenabilite = true;
  EXPECT_TRUE(paste("<Datas><Data Name='D'/><Data Name='X'/></Datas>"));
  EXPECT_EQ(positionsText(request), "D 1.0 B r ref");
}

TEST_F(PositionClipboard, AForeignRootIsBadClipboardData) {
  ecu.person.expect("REQUESTS/MSG/pasteDataPositions/badClipboardData/text", "Error",
                    "Bad clipboard data format", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(paste("<Screens/>"));
}

TEST_F(PositionClipboard, AFailureToAddCanEndThePaste) {
  ecu.addData("D");
  ecu.place(request, "E");
  ecu.person.expect("REQUESTS/MSG/pasteDataPositions/addDataError/text", "Error",
                    "Adding data to the request 'R'\r\nError: Duplicate Data, a data can be used "
                    "only one time in the same request",
                    Buttons::OkCancel, Icon::Critical, Answer::Cancel);
  EXPECT_FALSE(paste("<Datas><Data Name='E'/><Data Name='D'/></Datas>"));
  EXPECT_EQ(positionsText(request), "E 2.0 B r");
}

} // namespace
} // namespace kelmar
