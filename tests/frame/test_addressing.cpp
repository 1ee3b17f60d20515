// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "frame/rules/addressing_choice.h"
#include "frame/rules/addressing_ecu.h"
#include "frame/rules/addressing_file.h"
#include "frame/rules/addressing_texts.h"
#include "language/multi_lang.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

constexpr char functions[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<Functions>
  <Function Name="Both" Address="122"><XId>2016</XId><RId>2024</RId><ProtocolList><Protocol>
    <LogicalAddress>7A</LogicalAddress>
    <Address Extended="0"><Xid>2016</Xid><Rid>2024</Rid></Address>
    <Address Extended="1"><Xid>417001201</Xid><Rid>417001202</Rid></Address>
  </Protocol></ProtocolList></Function>
  <Function Name="Normal" Address="44"><XId>1</XId><RId>2</RId><ProtocolList><Protocol>
    <Address Extended="0"><Xid>1</Xid></Address>
  </Protocol></ProtocolList></Function>
  <Function Name="Only extended" Address="&#38;H2D"><XId>3</XId><ProtocolList><Protocol>
    <LogicalAddress>2D</LogicalAddress>
    <Address Extended="1"><Xid>30</Xid><Rid>31</Rid></Address>
  </Protocol></ProtocolList></Function>
  <Function Name="Bare" Address="7"/>
  <Function Name="No number" Address="x"><XId>y</XId></Function>
  <Function Address="9"/>
  <Function Name="Bad identifiers" Address="10"><XId>y</XId><RId>z</RId></Function>
</Functions>)";

class AddressingTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(file.load(folder.write("GenericAddressing.xml", functions)));
  }
  AddressingFields fields(const char* name, bool extended = false) {
    return addressingFieldsOf(file.functionNamed(name), extended);
  }

  support::TempFolder folder;
  AddressingFile file;
};

TEST_F(AddressingTest, File_NamesItsFunctionsInOrder) {
  EXPECT_EQ((std::vector<std::string>{"Both", "Normal", "Only extended", "Bare", "No number",
                                      "Bad identifiers"}),
            file.functionNames());
}

TEST_F(AddressingTest, File_OffersAsEntriesWhatHasANumber) {
  std::string entries;
  for (const AddressingFile::Entry& entry : file.functions())
    entries += entry.name + "=" + std::to_string(entry.address) + ";";
  EXPECT_EQ("Both=122;Normal=44;Only extended=45;Bare=7;Bad identifiers=10;", entries);
}

TEST_F(AddressingTest, File_ThatCannotBeReadSaysWhyAndIsEmpty) {
  EXPECT_FALSE(file.load(folder.write("broken.xml", "<Functions>")));
  EXPECT_NE("", file.reason());
  EXPECT_TRUE(file.functionNames().empty());
  EXPECT_FALSE(file.load(folder.file("absent.xml")));
  EXPECT_NE("", file.reason());
}

TEST_F(AddressingTest, LogicalAddress_IsEmptyWhenMissingAndNoneForAnUnknownFunction) {
  EXPECT_EQ("7A", file.logicalAddressOf(122));
  EXPECT_EQ("", file.logicalAddressOf(44));
  EXPECT_FALSE(file.logicalAddressOf(99));
}

TEST_F(AddressingTest, ReadCanId_FindsFunctionsWithBothIdentifiersOnly) {
  ASSERT_TRUE(file.canIdsOf(122));
  EXPECT_EQ(2016, file.canIdsOf(122)->canXid);
  EXPECT_EQ(2024, file.canIdsOf(122)->canRid);
  EXPECT_FALSE(file.canIdsOf(45)) << "lacks RId";
  EXPECT_FALSE(file.canIdsOf(7)) << "lacks both";
  EXPECT_FALSE(file.canIdsOf(-1));
}

TEST_F(AddressingTest, ReadCanId_OfNoNumberRaises) {
  try {
    file.canIdsOf(10);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(TypeMismatch, failure.number);
  }
}

TEST_F(AddressingTest, Choice_OfAFunctionWithBothKindsLeavesTheBoxToThePerson) {
  EXPECT_EQ((AddressingFields{"122", "7A", "2016", "2024", false, true, false}), fields("Both"));
  EXPECT_EQ((AddressingFields{"122", "7A", "417001201", "417001202", true, true, false}),
            fields("Both", true));
}

TEST_F(AddressingTest, Choice_WithoutExtendedIdentifiersClearsTheBox) {
  EXPECT_EQ((AddressingFields{"44", "", "1", "", false, false, false}), fields("Normal", true));
}

TEST_F(AddressingTest, Choice_WithOnlyExtendedIdentifiersLocksTheBoxOn) {
  EXPECT_EQ((AddressingFields{"45", "2D", "30", "31", true, false, false}),
            fields("Only extended"));
}

TEST_F(AddressingTest, Choice_OfNoneEmptiesTheFields) {
  EXPECT_EQ(AddressingFields{}, fields("unknown", true));
  EXPECT_TRUE(fields("unknown").txAddrFree);
}

TEST_F(AddressingTest, Choice_ShowsAnAddressThatIsNoNumberAsItIs) {
  EXPECT_EQ("x", fields("No number").txAddr);
}

TEST_F(AddressingTest, Create_TakesTheFunctionsIdentifiers) {
  const NewEcu ecu = newEcuOf(file.functionNamed("Both"), "Both", "ignored");
  EXPECT_EQ(122, ecu.address);
  EXPECT_EQ("7A", ecu.logicalAddress);
  EXPECT_EQ("Both", ecu.functionName);
  EXPECT_EQ(2016, ecu.canXid);
  EXPECT_EQ(2024, ecu.canRid);
}

TEST_F(AddressingTest, Create_WithoutIdentifiersGivesMinusOne) {
  const NewEcu ecu = newEcuOf(file.functionNamed("Only extended"), "Only extended", "");
  EXPECT_EQ(3, ecu.canXid);
  EXPECT_EQ(-1, ecu.canRid);
  EXPECT_EQ(-1, newEcuOf(file.functionNamed("Bare"), "Bare", "").canXid);
}

TEST_F(AddressingTest, Create_WithoutFunctionTakesTheTypedAddress) {
  const NewEcu ecu = newEcuOf({}, "Own", " 300 ");
  EXPECT_EQ(300, ecu.address);
  EXPECT_EQ("", ecu.logicalAddress);
  EXPECT_EQ("Own", ecu.functionName);
  EXPECT_EQ(-1, ecu.canXid);
  EXPECT_EQ(-1, ecu.canRid);
}

TEST_F(AddressingTest, Create_WithoutFunctionAndAddressRaisesTheConversionError) {
  for (const char* text : {"", "7A", "12 34"}) {
    try {
      newEcuOf({}, "", text);
      ADD_FAILURE() << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(TypeMismatch, failure.number) << text;
    }
  }
  EXPECT_THROW(newEcuOf(file.functionNamed("No number"), "No number", "1"), Failure);
  EXPECT_THROW(newEcuOf({}, "", "99999999999"), Failure);
}

TEST(CreateEcu, GivesACatalogueToADatabaseWithoutOne) {
  OmnikorLibXml database;
  createEcu(database, {122, "7A", "Engine", 2016, 2024}, "New ECU");
  ASSERT_TRUE(database.functions);
  const FunctionItem* function = database.functions->ItemAddress(122);
  ASSERT_TRUE(function);
  EXPECT_EQ("Engine", function->functionName);
  EXPECT_EQ("7A", function->LogicalAddress);
  EXPECT_EQ(2016, function->canXid);
  EXPECT_EQ(2024, function->canRid);
  const TargetItem& target = *database.ActiveTarget;
  EXPECT_EQ("New ECU", target.name());
  EXPECT_EQ("", target.Group());
  EXPECT_EQ(122, target.Address());
  EXPECT_EQ("7A", target.LogicalAddress());
  EXPECT_EQ(2016, target.Parametres()->canXid);
  EXPECT_EQ(2024, target.Parametres()->canRid);
}

TEST(CreateEcu, KeepsTheFunctionThatTheCatalogueHas) {
  OmnikorLibXml database;
  database.functions = std::make_shared<FunctionItems>();
  FunctionItem* known = database.functions->Add(122, "70", "Motor");
  known->canXid = 11;
  known->canRid = 12;
  createEcu(database, {122, "7A", "Engine", 2016, 2024}, "");
  EXPECT_EQ(1, database.functions->Count());
  EXPECT_EQ("Motor", known->functionName);
  EXPECT_EQ("New", database.ActiveTarget->name());
  EXPECT_EQ("7A", database.ActiveTarget->LogicalAddress());
  EXPECT_EQ(11, database.ActiveTarget->Parametres()->canXid) << "the catalogue's identifiers";
}

TEST(CreateEcu, CanBeSavedAtOnce) {
  OmnikorLibXml database;
  createEcu(database, {300, "", "Own", -1, -1}, "New ECU");
  EXPECT_NE(std::string::npos, database.ecuFileBytes().find("Address=\"300\""));
}

TEST(ChangeFunction, WritesTheEcuAndAddsTheFunctionOnce) {
  OmnikorLibXml database;
  createEcu(database, {1, "1", "First", 1, 2}, "Ecu");
  changeFunction(database, {122, "7A", "Engine", 2016, 2024});
  changeFunction(database, {122, "7A", "Engine", 2016, 2024});
  EXPECT_EQ(2, database.functions->Count());
  EXPECT_EQ(122, database.ActiveTarget->Address());
  EXPECT_EQ("7A", database.ActiveTarget->LogicalAddress());
  EXPECT_EQ(2016, database.ActiveTarget->Parametres()->canXid);
  EXPECT_EQ(2024, database.ActiveTarget->Parametres()->canRid);
}

TEST(ChangeFunction, WithoutAnEcuDoesNothing) {
  OmnikorLibXml database;
  changeFunction(database, {122, "7A", "Engine", 2016, 2024});
  EXPECT_FALSE(database.ActiveTarget);
  EXPECT_FALSE(database.functions);
}

TEST(AddressingTexts, TellFileAndReason) {
  const CMultiLangEx texts;
  const platform::Box file = unreadableFileBox(texts, "/a.xml", "no such file");
  EXPECT_EQ("Contact hotline", file.title);
  EXPECT_EQ("Internal error : impossible to read file : /a.xml\r\nreason : no such file",
            file.text);
  const platform::Box canId = unreadableCanIdBox(texts, "/a.xml", "no such file");
  EXPECT_EQ("Contact hotline", canId.title);
  EXPECT_EQ("Internal error : impossible to read canId : /a.xml\r\nreason : no such file",
            canId.text);
}

} // namespace
} // namespace kelmar
