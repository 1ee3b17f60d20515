// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/requests/request_xml_clipboard.h"

namespace kelmar {
namespace {

using testing::positionsText;
using testing::RequestEcu;

RequestPaste paste(RequestEcu& ecu, const std::string& text) {
  return pasteRequests(text, ecu.db, ecu.target(), ecu.person);
}

TEST(RequestXmlClipboard, CopyHoldsDatasFirstAndEachDataOnce) {
  RequestEcu ecu;
  RequestItem& first = ecu.addRequest("A", "2101", "61");
  ecu.place(first, "D", false, 2, 3);
  RequestItem& second = ecu.addRequest("B", "3B01");
  ecu.place(second, "D", true, 3);
  ecu.place(second, "E", true, 4);
  ecu.addRequest("not selected");
  EXPECT_EQ(
      copyRequests(ecu.target(), ecu.requests({"A", "B"})),
      "<Requests Endian=\"Big\"><Datas>"
      "<Data Name=\"D\">" +
          testing::Ecu::between(testing::fragmentOf(*ecu.target().datas()->ItemName("D"), "Data"),
                                "<Data Name=\"D\">", "</Data>") +
          "</Data>\n"
          "<Data Name=\"E\">" +
          testing::Ecu::between(testing::fragmentOf(*ecu.target().datas()->ItemName("E"), "Data"),
                                "<Data Name=\"E\">", "</Data>") +
          "</Data>\n</Datas>\n" + testing::fragmentOf(first, "Request") + "\n" +
          testing::fragmentOf(second, "Request") + "\n</Requests>");
}

TEST(RequestXmlClipboard, ARequestWithoutPositionsGetsAnEmptyList) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("A");
  copyRequests(ecu.target(), {&request});
  ASSERT_TRUE(request.DataPositions);
  EXPECT_EQ(request.DataPositions->Count(), 0);
}

TEST(RequestXmlClipboard, PastingOnceGivesTheNameThenCopyThenCopyZeroThenCopyOne) {
  RequestEcu source;
  source.addRequest("name");
  const std::string text = copyRequests(source.target(), source.allRequests());
  RequestEcu ecu;
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(paste(ecu, text).changed);
  EXPECT_EQ(ecu.requestNames(), "name|Copy name|Copy(0)name|Copy(1)name");
  EXPECT_EQ(ecu.request("Copy name").parent, &ecu.target());
}

TEST(RequestXmlClipboard, AnotherEcuGetsTheDataAndTheEndiannessOfTheSource) {
  RequestEcu source;
  source.target().Parametres()->LittleEndian = true;
  RequestItem& request = source.addRequest("A", "2101", "6101");
  source.place(request, "D", false, 2).LittleEndian = true;
  source.place(request, "E", true, 2).LittleEndian = false;
  RequestEcu ecu;
  EXPECT_TRUE(paste(ecu, copyRequests(source.target(), {&request})).changed);
  EXPECT_EQ(positionsText(ecu.request("A")), "E 2.0 B s, D 2.0 L r");
  EXPECT_TRUE(ecu.target().datas()->ItemName("D"));
  EXPECT_EQ(ecu.target().datas()->ItemName("D")->parent, &ecu.target());
  EXPECT_FALSE(ecu.target().Parametres()->LittleEndian);
}

TEST(RequestXmlClipboard, WithoutEndianTheTargetsOwnCounts) {
  RequestEcu ecu;
  ecu.addData("D");
  ecu.target().Parametres()->LittleEndian = true;
  paste(ecu, "<Requests><Request Name='A'><Sent><SentBytes>2101</SentBytes></Sent>"
             "<Received><DataItem Name='D' FirstByte='2'/></Received></Request></Requests>");
  EXPECT_EQ(positionsText(ecu.request("A")), "D 2.0 L r");
}

TEST(RequestXmlClipboard, ASecondReferenceLosesTheFlag) {
  RequestEcu ecu;
  ecu.place(ecu.addRequest("A"), "D", false, 2, 0, true);
  ecu.place(ecu.request("A"), "E", false, 3, 0, true);
  const std::string text = copyRequests(ecu.target(), ecu.allRequests());
  ecu.request("A").DataPositions->ItemName("E")->reference = false;
  paste(ecu, text);
  EXPECT_EQ(positionsText(ecu.request("Copy A")), "D 2.0 B r, E 3.0 B r ref");
}

TEST(RequestXmlClipboard, MissingDataAreToldAndTheRequestStays) {
  RequestEcu ecu;
  ecu.addRequest("A");
  ecu.addData("Known");
  ecu.person.expect("REQUESTS/MSG/pasteData/text", "Error",
                    "Request : Copy A\r\nThe Data : \r\n    D\r\n    E\r\n\r\n doesn't exist. You "
                    "must create data before pasting request.",
                    platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  paste(ecu, "<Requests Endian='Big'><Datas/><Request Name='A'><Sent>"
             "<DataItem Name='D' FirstByte='2'/><DataItem Name='Known' FirstByte='3'/></Sent>"
             "<Received><DataItem Name='E' FirstByte='2'/></Received></Request></Requests>");
  EXPECT_EQ(ecu.requestNames(), "A|Copy A");
  EXPECT_EQ(positionsText(ecu.request("Copy A")), "Known 3.0 B s");
}

TEST(RequestXmlClipboard, AForeignRootChangesNothing) {
  RequestEcu ecu;
  EXPECT_FALSE(paste(ecu, "<Datas><Data Name='D'/></Datas>").changed);
  EXPECT_EQ(ecu.requestNames(), "");
  EXPECT_EQ(ecu.target().datas()->Count(), 0);
}

TEST(RequestXmlClipboard, DataAloneCountAsAChange) {
  RequestEcu ecu;
  EXPECT_TRUE(paste(ecu, "<Requests><Datas><Data Name='D'/></Datas></Requests>").changed);
  EXPECT_TRUE(ecu.target().datas()->ItemName("D"));
  EXPECT_FALSE(paste(ecu, "<Requests><Datas><Data Name='D'/></Datas></Requests>").changed);
}

TEST(RequestXmlClipboard, ANamelessRequestIsLeftOutAndTheOthersStay) {
  RequestEcu ecu;
  paste(ecu, "<Requests><Request/><Request Name='A'/><Request Name='a'/></Requests>");
  EXPECT_EQ(ecu.requestNames(), "A");
}

TEST(RequestXmlClipboard, EmptyTextChangesNothing) {
  RequestEcu ecu;
  EXPECT_FALSE(paste(ecu, "").changed);
  EXPECT_FALSE(paste(ecu, std::string("\0A\t1", 4)).changed);
  EXPECT_EQ(ecu.requestNames(), "");
}

TEST(RequestXmlClipboard, EveryFieldSurvives) {
  RequestEcu source;
  RequestItem& request = source.addRequest("A", "2EF190AA", "6EF190");
  request.Commentaire = "one\r\ntwo <&>";
  request.LengthDatas = 7;
  request.ShiftBytesCount = 2;
  request.LgVariable = request.ManuelSend = request.DossierMaintenabilite = true;
  request.AccesTous = request.AccesEtudes = false;
  RequestEcu ecu;
  paste(ecu, copyRequests(source.target(), {&request}));
  EXPECT_EQ(testing::fragmentOf(ecu.request("A"), "R"), testing::fragmentOf(request, "R"));
}

} // namespace
} // namespace kelmar
