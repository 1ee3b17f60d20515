// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// An ECU with datas A to D and the requests of the text.
struct WithRequests : Ecu {
  explicit WithRequests(const std::string& requests, const std::string& endian = "Big") {
    FileText file;
    file.datas = "<Data Name='A'/><Data Name='B'/><Data Name='C'/><Data Name='D'/>";
    file.requests = requests;
    file.endian = endian;
    load(file);
  }
  RequestItem& request(int position = 1) { return *target().Requests()->Item(position); }
};

std::string namesOfRequests(const RequestItems& items) {
  return namesOf(items, [](const RequestItem& item) { return item.requestName; });
}

std::string accessOf(const RequestItem& item) {
  return std::string(item.AccesTous ? "T" : "-") + (item.AccesUsine ? "U" : "-") +
         (item.AccesApresVente ? "A" : "-") + (item.AccesEtudes ? "E" : "-") +
         (item.AccesConstructeur ? "C" : "-");
}

TEST(NewRequest, HasItsInitialValues) {
  const RequestItem item;
  EXPECT_EQ(item.requestName + item.Commentaire, "");
  EXPECT_EQ(item.RequestBytes, nullptr);
  EXPECT_EQ(item.ReplyBytes, nullptr);
  EXPECT_EQ(item.DataPositions, nullptr);
  EXPECT_EQ(item.LengthDatas, 1);
  EXPECT_EQ(item.ShiftBytesCount, 0);
  EXPECT_FALSE(item.ManuelSend || item.LgVariable || item.DossierMaintenabilite);
  EXPECT_EQ(accessOf(item), "TUAEC");
}

TEST(RequestElement, EmptyOneHasSentAndReceived) {
  RequestItem item;
  item.requestName = "R";
  EXPECT_EQ(fragmentOf(item, "Request"), "<Request Name=\"R\">\n<Sent>\n<SentBytes/>\n</Sent>\n"
                                         "<Received MinBytes=\"1\">\n</Received>\n</Request>");
}

const std::string fullRequest =
    "<Request Name=\"R&amp;\">\n<DossierMaintenabilite/>\n<ManuelSend/>\n"
    "<DenyAccess><NoSDS/><Plant/><AfterSales/><Engineering/><Supplier/></DenyAccess>\n"
    "<Comment><![CDATA[a\nb]]></Comment>\n"
    "<Sent>\n<VariableLength/>\n<SentBytes>2101</SentBytes>\n"
    "<DataItem Name=\"A\" FirstByte=\"2\"/>\n</Sent>\n"
    "<Received MinBytes=\"3\">\n<ShiftBytesCount>-2</ShiftBytesCount>\n"
    "<ReplyBytes>6101FF</ReplyBytes>\n<DataItem Name=\"B\" "
    "FirstByte=\"3\"/>\n</Received>\n</Request>";

TEST(RequestElement, FullOneObjectAndText) {
  WithRequests ecu(fullRequest);
  const RequestItem& item = ecu.request();
  EXPECT_EQ(item.requestName, "R&");
  EXPECT_TRUE(item.DossierMaintenabilite && item.ManuelSend && item.LgVariable);
  EXPECT_EQ(accessOf(item), "-----");
  EXPECT_EQ(item.Commentaire, "a\r\nb");
  EXPECT_EQ(item.RequestBytes->HexText(), "2101");
  EXPECT_EQ(item.LengthDatas, 3);
  EXPECT_EQ(item.ShiftBytesCount, -2);
  EXPECT_EQ(item.ReplyBytes->HexText(), "6101FF");
  EXPECT_EQ(item.parent, &ecu.target());
  EXPECT_EQ(fragmentOf(item, "Request"), replaceAll(fullRequest, "a\nb", "a\r\nb"));
}

TEST(RequestElement, RequestsStandWithoutLineFeedsBetween) {
  WithRequests ecu("<Request Name='R'/>\n<Request Name='S'/>");
  EXPECT_EQ(ecu.savedBetween("<Requests Endian=\"Big\">", "</Requests>"),
            "\n<Request Name=\"R\">\n<Sent>\n<SentBytes/>\n</Sent>\n<Received MinBytes=\"1\">\n"
            "</Received>\n</Request><Request Name=\"S\">\n<Sent>\n<SentBytes/>\n</Sent>\n"
            "<Received MinBytes=\"1\">\n</Received>\n</Request>");
}

TEST(RequestElement, DenyAccessWithPlantOnly) {
  WithRequests ecu("<Request Name='R'><DenyAccess><Plant/></DenyAccess></Request>");
  EXPECT_EQ(accessOf(ecu.request()), "T-AEC");
  EXPECT_EQ(ecu.savedBetween("<Request Name=\"R\">\n", "\n<Sent>"),
            "<DenyAccess><Plant/></DenyAccess>");
}

TEST(RequestElement, EachAccessFlagHasItsElement) {
  const std::pair<const char*, const char*> cases[] = {{"NoSDS", "-UAEC"},
                                                       {"Plant", "T-AEC"},
                                                       {"AfterSales", "TU-EC"},
                                                       {"Engineering", "TUA-C"},
                                                       {"Supplier", "TUAE-"}};
  for (const auto& [element, flags] : cases) {
    const std::string deny = "<DenyAccess><" + std::string(element) + "/></DenyAccess>";
    WithRequests ecu("<Request Name='R'>" + deny + "</Request>");
    EXPECT_EQ(accessOf(ecu.request()), flags);
    EXPECT_EQ(ecu.savedBetween("<Request Name=\"R\">\n", "\n<Sent>"), deny);
  }
  EXPECT_EQ(accessOf(WithRequests("<Request Name='R'><DenyAccess/></Request>").request()), "TUAEC");
}

TEST(RequestRead, PositionInSentHasParamAndIsWrittenBackThere) {
  WithRequests ecu("<Request Name='R'><Sent><DataItem Name='A'/></Sent>"
                   "<Received><DataItem Name='B'/></Received></Request>");
  EXPECT_TRUE(ecu.request().DataPositions->ItemName("A")->param);
  EXPECT_FALSE(ecu.request().DataPositions->ItemName("B")->param);
  EXPECT_EQ(ecu.savedBetween("<Sent>", "</Sent>"),
            "\n<SentBytes/>\n<DataItem Name=\"A\" FirstByte=\"1\"/>\n");
  EXPECT_EQ(ecu.savedBetween("<Received ", "</Received>"),
            "MinBytes=\"1\">\n<DataItem Name=\"B\" FirstByte=\"1\"/>\n");
}

TEST(RequestRead, TheSameDataInSentAndReceivedDropsTheSecond) {
  WithRequests ecu(
      "<Request Name='R'><Sent><DataItem Name='A' FirstByte='2'/></Sent>"
      "<Received><DataItem Name='A' FirstByte='3'/><DataItem Name='B'/></Received></Request>");
  ASSERT_EQ(ecu.request().DataPositions->Count(), 2);
  EXPECT_EQ(ecu.request().DataPositions->ItemName("A")->StartOctet, 2);
  EXPECT_EQ(ecu.report(), "Position|A|Requests/Request[R]/Received/DataItem[A]|9|Duplicate Data, a "
                          "data can be used only one time in the same request\n");
}

TEST(RequestRead, EndianIsInheritedAtLoadTimeAndALaterChangeMovesNothing) {
  WithRequests ecu("<Request Name='R'><Sent><DataItem Name='A'/><DataItem Name='B' Endian='Big'/>"
                   "</Sent></Request>",
                   "Little");
  EXPECT_TRUE(ecu.request().DataPositions->Item(1)->LittleEndian);
  EXPECT_EQ(ecu.savedBetween("<SentBytes/>\n", "</Sent>"),
            "<DataItem Name=\"A\" FirstByte=\"1\"/>\n"
            "<DataItem Name=\"B\" FirstByte=\"1\" Endian=\"Big\"/>\n");
  ecu.target().Parametres()->LittleEndian = false;
  EXPECT_EQ(ecu.savedBetween("<SentBytes/>\n", "</Sent>"),
            "<DataItem Name=\"A\" FirstByte=\"1\" Endian=\"Little\"/>\n"
            "<DataItem Name=\"B\" FirstByte=\"1\"/>\n");
}

TEST(RequestRead, EmptyReplyIsABufferAndNoElement) {
  WithRequests ecu("<Request Name='R'><Sent/><Received><ReplyBytes/></Received></Request>");
  ASSERT_NE(ecu.request().ReplyBytes, nullptr);
  EXPECT_EQ(ecu.request().ReplyBytes->Length(), 0);
  EXPECT_EQ(ecu.saved().find("ReplyBytes"), std::string::npos);
}

TEST(RequestRead, WithoutSentItKeepsAnEmptyFrameAndNoPositions) {
  WithRequests ecu(
      "<Request Name='R'><Received MinBytes='4'><DataItem Name='A'/></Received></Request>");
  EXPECT_EQ(ecu.request().RequestBytes->Length(), 0);
  EXPECT_EQ(ecu.request().DataPositions, nullptr);
  EXPECT_EQ(ecu.request().LengthDatas, 4);
  EXPECT_EQ(ecu.report(),
            "Position|A|Requests/Request[R]/Received/DataItem[A]|9|the request has no "
            "element Sent\n");
}

TEST(RequestRead, CommentsOfBothKinds) {
  const auto commentOf = [](const std::string& content) {
    WithRequests ecu("<Request Name='R'>" + content + "</Request>");
    return ecu.request().Commentaire;
  };
  EXPECT_EQ(commentOf("<Comment> a\nb </Comment><!--c-->"), "a\r\nb");
  EXPECT_EQ(commentOf("<!-- a\nb -->"), "a\r\nb");
  EXPECT_EQ(commentOf(""), "");
}

TEST(RequestRead, WithoutNameIsDropped) {
  WithRequests ecu("<Request Name='R'/><Request><Sent/></Request><Request Name='S'/>");
  EXPECT_EQ(namesOfRequests(*ecu.target().Requests()), "R S");
  EXPECT_EQ(ecu.report(),
            "Request||Requests/Request|9|RequestItem.loadXml error : Name not defined\n");
}

TEST(RequestRead, ASecondOfTheNameIsLost) {
  WithRequests ecu("<Request Name='R'><Sent><SentBytes>01</SentBytes></Sent></Request>"
                   "<Request Name='r'/><Request Name='S'/>");
  EXPECT_EQ(namesOfRequests(*ecu.target().Requests()), "R S");
  EXPECT_EQ(ecu.request().RequestBytes->HexText(), "01");
  EXPECT_EQ(ecu.report(), "Request|r|Requests/Request[r]|9|Key exists already\n");
}

TEST(RequestRead, OddHexTextIsNotTaken) {
  WithRequests ecu("<Request Name='R'><Sent><SentBytes>211</SentBytes></Sent>"
                   "<Received MinBytes='x'><ShiftBytesCount>y</ShiftBytesCount>"
                   "<ReplyBytes>61 01</ReplyBytes></Received></Request>");
  EXPECT_EQ(ecu.request().RequestBytes->HexText(), "");
  EXPECT_EQ(ecu.request().ReplyBytes->HexText(), "");
  EXPECT_EQ(ecu.request().LengthDatas, 1);
  EXPECT_EQ(ecu.request().ShiftBytesCount, 0);
  EXPECT_EQ(
      ecu.report(),
      "SentBytes|211|Requests/Request[R]/Sent/SentBytes|9|not pairs of hexadecimal digits\n"
      "Value|MinBytes|Requests/Request[R]/Received|9|'x': Type mismatch\n"
      "Value|ShiftBytesCount|Requests/Request[R]/Received/ShiftBytesCount|9|'y': Type mismatch\n"
      "ReplyBytes|61 01|Requests/Request[R]/Received/ReplyBytes|9|not pairs of hexadecimal "
      "digits\n");
}

TEST(RequestClone, CopiesAllWithBuffersOfItsOwn) {
  WithRequests ecu(fullRequest);
  const auto copy = ecu.request().clone(&ecu.target());
  EXPECT_EQ(fragmentOf(*copy, "Request"), fragmentOf(ecu.request(), "Request"));
  EXPECT_NE(copy->RequestBytes, ecu.request().RequestBytes);
  EXPECT_EQ(copy->DataPositions->Item(1)->parent, copy.get());
  RequestItem bare;
  bare.RequestBytes = std::make_shared<FrameBuffer>();
  const auto bareCopy = bare.clone(nullptr);
  EXPECT_NE(bareCopy->RequestBytes, nullptr);
  EXPECT_EQ(bareCopy->ReplyBytes, nullptr);
  EXPECT_EQ(bareCopy->DataPositions, nullptr);
}

TEST(RequestUpdate, KeepsNameVariableLengthAndShift) {
  WithRequests ecu(fullRequest +
                   "<Request Name='S'><Sent><SentBytes>99</SentBytes></Sent></Request>");
  RequestItem& mine = ecu.request(2);
  const std::shared_ptr<FrameBuffer> buffer = mine.RequestBytes;
  mine.ShiftBytesCount = 9;
  mine.update(ecu.request(1));
  EXPECT_EQ(mine.requestName, "S");
  EXPECT_EQ(mine.ShiftBytesCount, 9) << "update does not change it";
  EXPECT_FALSE(mine.LgVariable);
  EXPECT_EQ(mine.RequestBytes, buffer) << "the buffer stays, its bytes change";
  EXPECT_EQ(mine.RequestBytes->HexText(), "2101");
  EXPECT_EQ(mine.ReplyBytes->HexText(), "6101FF");
  EXPECT_EQ(mine.Commentaire, "a\r\nb");
  EXPECT_EQ(mine.LengthDatas, 3);
  EXPECT_TRUE(mine.ManuelSend && mine.DossierMaintenabilite);
  EXPECT_EQ(mine.DataPositions->Count(), 2);
  EXPECT_EQ(mine.DataPositions->Item(1)->parent, &mine);
}

TEST(RequestUpdate, TakesEngineeringFromTheSupplier) {
  RequestItem source, mine;
  source.AccesEtudes = false;
  mine.update(source);
  EXPECT_EQ(accessOf(mine), "TUAEC");
  source.AccesConstructeur = false;
  source.AccesEtudes = true;
  source.AccesTous = false;
  source.AccesUsine = false;
  source.AccesApresVente = false;
  mine.update(source);
  EXPECT_EQ(accessOf(mine), "-----");
}

TEST(RequestUpdate, FromNoBuffersAndNoPositions) {
  WithRequests ecu("<Request Name='R'><Sent><DataItem Name='A'/></Sent></Request>");
  RequestItem source;
  RequestItem& mine = ecu.request();
  mine.update(source);
  EXPECT_EQ(mine.RequestBytes, nullptr);
  EXPECT_EQ(mine.ReplyBytes, nullptr);
  EXPECT_EQ(mine.DataPositions->Count(), 0);
  RequestItem empty;
  empty.update(source);
  EXPECT_EQ(empty.DataPositions, nullptr) << "neither has any: nothing happens";
  source.DataPositions = std::make_shared<DataPositionItems>();
  source.RequestBytes = std::make_shared<FrameBuffer>();
  empty.update(source);
  EXPECT_NE(empty.DataPositions, nullptr);
  EXPECT_NE(empty.RequestBytes, nullptr);
  EXPECT_NE(empty.RequestBytes, source.RequestBytes);
}

TEST(RequestsRename, GoesToTheEndUnderItsNewKey) {
  WithRequests ecu("<Request Name='R'/><Request Name='S'/><Request Name='T'/>");
  RequestItems& items = *ecu.target().Requests();
  RequestItem* item = items.Item(1);
  items.rename(item, "A");
  EXPECT_EQ(namesOfRequests(items), "S T A");
  EXPECT_EQ(items.ItemName("a"), item);
  EXPECT_EQ(items.ItemName("R"), nullptr);
  EXPECT_EQ(Ecu::failureOf([&] { items.rename(item, "s"); }),
            "1 RequestItems.rename: Duplicate request (s)");
  items.rename(items.Item(1), "S");
  EXPECT_EQ(namesOfRequests(items), "S T A") << "its own name: nothing";
  items.rename(items.Item(1), "s");
  EXPECT_EQ(namesOfRequests(items), "T A s") << "a change of case goes on";
}

TEST(RequestsLookup, ItemDataPositionNameIgnoresTheCaseOfBothNames) {
  WithRequests ecu(
      "<Request Name='R'><Sent><DataItem Name='A'/></Sent></Request><Request Name='S'/>");
  const RequestItems& items = *ecu.target().Requests();
  EXPECT_EQ(items.ItemDataPositionName("r", "a"), ecu.request().DataPositions->Item(1));
  EXPECT_EQ(items.ItemDataPositionName("R", "B"), nullptr);
  EXPECT_EQ(items.ItemDataPositionName("X", "A"), nullptr);
  EXPECT_EQ(items.ItemDataPositionName("S", "A"), nullptr);
}

TEST(RequestClear, DropsChildrenAndParentAndLeavesTheName) {
  WithRequests ecu(fullRequest);
  const auto positions = ecu.request().DataPositions;
  ecu.request().clear();
  EXPECT_EQ(positions->Count(), 0);
  EXPECT_EQ(ecu.request().parent, nullptr);
  EXPECT_EQ(ecu.request().RequestBytes, nullptr);
  EXPECT_EQ(ecu.request().requestName, "R&");
}

} // namespace
} // namespace kelmar::testing
