// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// An ECU with the datas A, B and C and one request R.
struct WithRequest : Ecu {
  WithRequest() {
    makeNew();
    for (const char* name : {"A", "B", "C"})
      target().datas()->Add(name)->parent = &target();
    request = target().Requests()->Add("R");
    request->parent = &target();
    request->DataPositions = std::make_shared<DataPositionItems>();
  }
  /// Reads a position in the request. Gives "number text" of the pending error.
  std::string read(DataPositionItem& position, const std::string& attributes) {
    position.parent = request;
    position.loadXml(db, Fragment("<DataItem " + attributes + "/>"));
    const PendingError& pending = db.loading().pending;
    return pending.isSet() ? std::to_string(pending.number()) + " " + pending.error().text : "";
  }
  RequestItem* request;
};

std::string namesOfPositions(const DataPositionItems& items) {
  return namesOf(items, [](const DataPositionItem& item) { return item.dataName; });
}

TEST(NewPosition, HasItsInitialValues) {
  const DataPositionItem item;
  EXPECT_EQ(item.dataName, "");
  EXPECT_EQ(item.StartOctet, 1);
  EXPECT_EQ(item.StartBit, 0);
  EXPECT_FALSE(item.LittleEndian || item.param || item.reference);
  EXPECT_EQ(item.data(), nullptr);
}

TEST(PositionData, IsFoundByNameAndWritingCopiesTheName) {
  WithRequest ecu;
  DataPositionItem item;
  item.dataName = "a";
  EXPECT_EQ(item.data(), nullptr) << "without a parent";
  item.parent = ecu.request;
  EXPECT_EQ(item.data(), ecu.target().datas()->Item(1)) << "by key, so without regard to case";
  item.setData(ecu.target().datas()->Item(2));
  EXPECT_EQ(item.dataName, "B");
  item.setData(nullptr);
  EXPECT_EQ(item.dataName, "B") << "none changes nothing";
  item.dataName = "none";
  EXPECT_EQ(item.data(), nullptr);
}

TEST(PositionElement, AttributesInTheirOrder) {
  WithRequest ecu;
  DataPositionItem item;
  item.parent = ecu.request;
  item.dataName = "A";
  EXPECT_EQ(fragmentOf(item, "DataItem"), R"(<DataItem Name="A" FirstByte="1"/>)");
  item.reference = true;
  item.StartOctet = 4;
  item.StartBit = 7;
  item.LittleEndian = true;
  item.param = true;
  EXPECT_EQ(fragmentOf(item, "DataItem"),
            R"(<DataItem Name="A" Ref="1" FirstByte="4" BitOffset="7" Endian="Little"/>)");
  ecu.target().Parametres()->LittleEndian = true;
  EXPECT_EQ(fragmentOf(item, "DataItem"),
            R"(<DataItem Name="A" Ref="1" FirstByte="4" BitOffset="7"/>)");
  item.LittleEndian = false;
  EXPECT_EQ(fragmentOf(item, "DataItem"),
            R"(<DataItem Name="A" Ref="1" FirstByte="4" BitOffset="7" Endian="Big"/>)");
}

TEST(PositionElement, ParamStandsInFragmentsAlone) {
  WithRequest ecu;
  DataPositionItems& items = *ecu.request->DataPositions;
  items.Add("A")->param = true;
  items.Add("B");
  for (DataPositionItem* item : items)
    item->parent = ecu.request;
  EXPECT_EQ(
      fragmentOf(items, "Positions"),
      R"(<Positions><DataItem Name="A" FirstByte="1" Param="1"/><DataItem Name="B" FirstByte="1"/></Positions>)");
  xml::Writer out;
  out.open("Sent");
  items.createXMLnodeType(out, true);
  out.close();
  out.open("Received");
  items.createXMLnodeType(out, false);
  EXPECT_EQ(out.take(), "<Sent><DataItem Name=\"A\" FirstByte=\"1\"/>\n</Sent>"
                        "<Received><DataItem Name=\"B\" FirstByte=\"1\"/>\n</Received>");
}

TEST(PositionRead, AllAttributesOrTheirDefaults) {
  WithRequest ecu;
  DataPositionItem item;
  EXPECT_EQ(
      ecu.read(item, "Name='A' FirstByte='3' BitOffset='5' Ref='1' Endian='Little' Param='1'"), "");
  EXPECT_EQ(item.StartOctet, 3);
  EXPECT_EQ(item.StartBit, 5);
  EXPECT_TRUE(item.reference);
  EXPECT_TRUE(item.LittleEndian);
  EXPECT_FALSE(item.param) << "Param is not read";
  DataPositionItem plain;
  EXPECT_EQ(ecu.read(plain, "Name='A'"), "");
  EXPECT_EQ(plain.StartOctet, 1);
  EXPECT_EQ(plain.StartBit, 0);
  EXPECT_FALSE(plain.reference);
}

TEST(PositionRead, EndianIsInheritedOrNamedOrLeft) {
  WithRequest ecu;
  const auto littleOf = [&](const std::string& endian, bool before) {
    DataPositionItem item;
    item.LittleEndian = before;
    EXPECT_EQ(ecu.read(item, "Name='A' " + endian), "");
    return item.LittleEndian;
  };
  for (const bool ecuIsLittle : {false, true}) {
    ecu.target().Parametres()->LittleEndian = ecuIsLittle;
    EXPECT_EQ(littleOf("", !ecuIsLittle), ecuIsLittle);
    EXPECT_EQ(littleOf("Endian=''", !ecuIsLittle), ecuIsLittle);
    EXPECT_TRUE(littleOf("Endian='Little'", false));
    EXPECT_FALSE(littleOf("Endian='Big'", true));
    EXPECT_FALSE(littleOf("Endian='big'", false)) << "any other text leaves the field";
    EXPECT_TRUE(littleOf("Endian='middle'", true));
  }
}

TEST(PositionRead, ErrorsAreNamed) {
  WithRequest ecu;
  DataPositionItem item;
  EXPECT_EQ(ecu.read(item, "FirstByte='2'"), "1 Object not set");
  EXPECT_EQ(item.StartOctet, 1);
  EXPECT_EQ(ecu.read(item, "Name='X' FirstByte='2'"), "1 Data name 'X' not found, request : R");
  EXPECT_EQ(item.dataName, "X");
  EXPECT_EQ(item.StartOctet, 1) << "nothing is read behind it";
  ecu.target().datas()->Add("");
  EXPECT_EQ(ecu.read(item, "Name='' FirstByte='2'"),
            "1 DataPositionItem.loadXml error : Dataname missing");
  EXPECT_EQ(item.StartOctet, 2);
}

TEST(PositionRead, WhatDoesNotConvertLeavesTheField) {
  WithRequest ecu;
  DataPositionItem item;
  EXPECT_EQ(ecu.read(item, "Name='A' FirstByte='x' BitOffset='99999999999' Ref='?'"), "");
  EXPECT_EQ(item.StartOctet, 1);
  EXPECT_EQ(item.StartBit, 0);
  EXPECT_FALSE(item.reference);
}

TEST(Positions, ADataStandsOnlyOnceInARequest) {
  WithRequest ecu;
  DataPositionItems& items = *ecu.request->DataPositions;
  items.Add("A")->param = true;
  EXPECT_EQ(Ecu::failureOf([&] { items.Add("A"); }),
            "1 DataPositionItems.AddData: Duplicate Data, a data can be used only one time in the "
            "same request");
  items.Add("a");
  EXPECT_EQ(items.Count(), 2) << "the names are compared exactly";
  EXPECT_EQ(items.ItemName("a"), items.Item(2));
  EXPECT_EQ(items.ItemName("B"), nullptr);
}

TEST(PositionsRead, OfOneSideSkipTheFailedOnesAndClear) {
  WithRequest ecu;
  DataPositionItems& items = *ecu.request->DataPositions;
  items.loadXmlType(ecu.db,
                    Fragment("<Sent><DataItem Name='B'/><DataItem Name='X'/><DataItem/><Other/>"
                             "<DataItem Name='A'/><DataItem Name='B'/></Sent>"),
                    ecu.request, true);
  EXPECT_EQ(namesOfPositions(items), "B A");
  EXPECT_TRUE(items.Item(1)->param);
  EXPECT_EQ(items.Item(1)->parent, ecu.request);
  EXPECT_FALSE(ecu.db.loading().pending.isSet());
}

TEST(PositionsRead, OfAFragmentKeepTheFailedOnes) {
  WithRequest ecu;
  DataPositionItems items;
  items.loadXml(ecu.db,
                Fragment("<Positions><DataItem Name='X' FirstByte='9' Param='1'/>"
                         "<DataItem Name='A'/><DataItem Name='A'/></Positions>"),
                ecu.request);
  EXPECT_EQ(namesOfPositions(items), "X A");
  EXPECT_FALSE(items.Item(1)->param);
  EXPECT_EQ(items.Item(1)->StartOctet, 1);
}

TEST(PositionCopies, CloneTakesAllAndUpdateAllButNameAndParent) {
  WithRequest ecu;
  DataPositionItem item;
  item.dataName = "A";
  item.StartOctet = 2;
  item.StartBit = 3;
  item.LittleEndian = item.param = item.reference = true;
  const auto copy = item.clone(ecu.request);
  EXPECT_EQ(copy->parent, ecu.request);
  EXPECT_EQ(fragmentOf(*copy, "DataItem"),
            R"(<DataItem Name="A" Ref="1" FirstByte="2" BitOffset="3" Endian="Little"/>)");
  EXPECT_TRUE(copy->param);
  DataPositionItem other;
  other.dataName = "B";
  other.update(item);
  EXPECT_EQ(other.dataName, "B");
  EXPECT_EQ(other.parent, nullptr);
  EXPECT_TRUE(other.LittleEndian && other.param && other.reference);
  EXPECT_EQ(other.StartOctet * 10 + other.StartBit, 23);
  const auto all = ecu.request->DataPositions->clone(ecu.request);
  EXPECT_EQ(all->Count(), 0);
}

TEST(PositionsUpdate, AddsChangesAndDeletesWithReferences) {
  WithRequest ecu;
  DataPositionItems& items = *ecu.request->DataPositions;
  for (const char* name : {"A", "B"})
    items.Add(name)->parent = ecu.request;
  DataPositionItem* kept = items.Item(1);
  items.Item(2)->reference = true;
  OrganeItem* device = ecu.target().Organes()->Add("V");
  device->DeviceDatas->Add("A", false);
  device->DeviceDatas->Add("B", false);
  DataPositionItems source;
  source.Add("C")->StartOctet = 5;
  source.Add("A")->StartOctet = 7;
  updateDataPositions(*ecu.request, &source);
  EXPECT_EQ(namesOfPositions(items), "A C");
  EXPECT_EQ(items.Item(1), kept) << "identity stays";
  EXPECT_EQ(kept->StartOctet, 7);
  EXPECT_NE(items.Item(2), source.Item(1));
  EXPECT_EQ(items.Item(2)->parent, ecu.request);
  EXPECT_EQ(device->DeviceDatas->Count(), 1) << "the reference of B took the device datum along";
}

TEST(PositionsUpdate, FromNoneDeletesAllWithReferences) {
  WithRequest ecu;
  for (const char* name : {"A", "B"}) {
    DataPositionItem* item = ecu.request->DataPositions->Add(name);
    item->parent = ecu.request;
    item->reference = true;
  }
  ecu.target().Organes()->Add("V")->DeviceDatas->Add("B", false);
  updateDataPositions(*ecu.request, nullptr);
  EXPECT_EQ(ecu.request->DataPositions->Count(), 0);
  EXPECT_EQ(ecu.target().Organes()->Item(1)->DeviceDatas->Count(), 0);
}

} // namespace
} // namespace kelmar::testing
