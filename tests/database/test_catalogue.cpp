// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

std::string protocolsIn(const std::string& lang) {
  const OmnikorLibXml db({}, lang);
  std::string rows;
  for (const ProtocolItem* item : *db.protocols)
    rows += std::to_string(item->code) + "|" + (item->multiPoint ? "1" : "0") + "|" +
            std::to_string(item->initMode) + "|" + item->protocolName + "\n";
  return rows;
}

template <class Collection>
std::string labelled(const Collection& items) {
  std::string rows;
  for (const auto* item : items)
    rows += std::to_string(item->id) + "|" + item->libelle + "\n";
  return rows;
}

TEST(BuiltInCatalogue, ProtocolsInEnglish) {
  EXPECT_EQ(protocolsIn("en"), "1|0|0|ISO8\n"
                               "2|0|1|KWP2000 Init 5 Baud Type I\n"
                               "3|1|1|KWP2000 Init 5 Baud Type I and II\n"
                               "4|0|2|KWP2000 FastInit MonoPoint\n"
                               "6|1|2|KWP2000 FastInit MultiPoint\n"
                               "7|1|3|DiagOnCAN\n"
                               "8|1|255|CAN Messaging\n"
                               "5|1|3|DiagOnCANFD\n"
                               "9|1|-1|DiagOnIP\n");
}

TEST(BuiltInCatalogue, ProtocolsInFrench) {
  EXPECT_EQ(protocolsIn("fr"), "1|0|0|ISO8\n"
                               "2|0|1|KWP 2000 Type I - init lente\n"
                               "3|1|1|KWP 2000 Type II - init lente\n"
                               "4|0|2|KWP 2000 init rapide monopoint\n"
                               "6|1|2|KWP 2000 init rapide multipoint\n"
                               "7|1|3|DiagOnCAN\n"
                               "8|1|255|Messagerie CAN\n"
                               "5|1|3|DiagOnCANFD\n"
                               "9|1|-1|DiagOnIP\n");
}

TEST(BuiltInCatalogue, FailuresAndDeviceTypesInBothLanguages) {
  const OmnikorLibXml en({}, "en"), fr({}, "fr");
  EXPECT_EQ(labelled(*en.Pannes), "0|No failures\n1|Failures Flags\n"
                                  "2|10 DTC failures read with After sales Frames\n"
                                  "3|DTC Failures\n");
  EXPECT_EQ(labelled(*fr.Pannes), "0|Ne contient pas de pannes\n1|Flags de pannes\n"
                                  "2|10 pannes DTC dans les trames APV\n3|Pannes DTC\n");
  EXPECT_EQ(labelled(*en.typeOrganes), "1|Input\n2|Internal\n3|Output\n4|Other\n");
  EXPECT_EQ(labelled(*fr.typeOrganes), "1|Entrée\n2|Interne\n3|Sortie\n4|Autres\n");
}

TEST(BuiltInCatalogue, LanguageWithoutRowsGetsTheFirstName) {
  EXPECT_EQ(protocolsIn("de"), protocolsIn("en"));
  const OmnikorLibXml de({}, "de");
  EXPECT_EQ(de.Pannes->Item(1)->libelle, "No failures");
}

TEST(BuiltInCatalogue, ItemIdGivesTheFirstMatchOfBoth) {
  const OmnikorLibXml db;
  EXPECT_EQ(db.protocols->ItemId(3, true)->protocolName, "DiagOnCAN");
  EXPECT_EQ(db.protocols->ItemId(-1, true)->protocolName, "DiagOnIP");
  EXPECT_EQ(db.protocols->ItemId(3, false), nullptr);
  EXPECT_EQ(db.protocols->ItemId(7, true), nullptr);
}

TEST(CatalogueLookups, CompareExactlyAndGiveNoneWhenAbsent) {
  const OmnikorLibXml db;
  EXPECT_EQ(db.protocols->ItemName("ISO8")->code, 1);
  EXPECT_EQ(db.protocols->ItemName("iso8"), nullptr);
  EXPECT_EQ(db.Pannes->ItemName("DTC Failures")->id, 3);
  EXPECT_EQ(db.Pannes->ItemName("DTC failures"), nullptr);
  EXPECT_EQ(db.Pannes->ItemId(4), nullptr);
  EXPECT_EQ(db.typeOrganes->ItemName("Other")->id, 4);
  EXPECT_EQ(db.typeOrganes->ItemName("other"), nullptr);
  EXPECT_EQ(db.typeOrganes->ItemId(2)->libelle, "Internal");
  EXPECT_EQ(db.typeOrganes->ItemId(0), nullptr);
}

TEST(CatalogueLookups, NothingChecksForDuplicatesButAKeyIsOne) {
  FunctionItems functions;
  functions.Add(1, "A", "First");
  functions.Add(1, "A", "First");
  EXPECT_EQ(functions.Count(), 2);
  EXPECT_EQ(functions.ItemAddress(1), functions.Item(1));
  EXPECT_EQ(functions.ItemLogicalAddress("A"), functions.Item(1));
  EXPECT_EQ(functions.ItemLogicalAddress("a"), nullptr);
  EXPECT_EQ(functions.ItemName("first"), nullptr);
  EXPECT_EQ(functions.ItemAddress(2), nullptr);
  functions.Add(3, "", "Third", "x");
  EXPECT_EQ(Ecu::failureOf([&] { functions.Add(4, "", "Fourth", "X"); }),
            "457 : Key exists already");
  EXPECT_EQ(functions.Item("x")->Address, 3);
}

TEST(ReadGlobalParameters, ReplacesTheThreeListsInTheLanguage) {
  OmnikorLibXml db({}, "fr");
  const support::TempFolder folder;
  db.ReadGlobalParameters(folder.write("p.xml", R"(<xml>
<Protocols><Protocol Code="12" multiPoint="1" initMode="7"><Name>plain</Name>
<Name xml:lang="fr">français</Name></Protocol>
<Protocol Code="13" multiPoint="true" initMode="8"><Name>only</Name><Name>second</Name></Protocol>
<Protocol Code="14" multiPoint="0" initMode="9"/></Protocols>
<Failures><Failure Id="70"><Name xml:lang="en">seventy</Name></Failure></Failures>
<Failures><Failure Id="71"><Name>next</Name></Failure></Failures></xml>)"));
  ASSERT_EQ(db.protocols->Count(), 3);
  EXPECT_EQ(db.protocols->Item(1)->protocolName, "français");
  EXPECT_TRUE(db.protocols->Item(1)->multiPoint);
  EXPECT_EQ(db.protocols->Item(1)->code, 12);
  EXPECT_EQ(db.protocols->Item(1)->initMode, 7);
  EXPECT_EQ(db.protocols->Item(2)->protocolName, "only");
  EXPECT_FALSE(db.protocols->Item(2)->multiPoint) << "only \"1\" counts here";
  EXPECT_EQ(db.protocols->Item(3)->protocolName, "");
  EXPECT_EQ(labelled(*db.Pannes), "70|seventy\n71|next\n");
  EXPECT_EQ(db.typeOrganes->Count(), 0);
}

TEST(ReadGlobalParameters, OfABadFileNamesItAndTheReasonAndKeepsTheLists) {
  OmnikorLibXml db;
  const support::TempFolder folder;
  const std::string path = folder.write("p.xml", "<xml><a>");
  EXPECT_EQ(Ecu::failureOf([&] { db.ReadGlobalParameters(path); }),
            "1 OmnikorDatabase: Error when reading parameters " + path +
                "  msg = no element found, line 1, column 9");
  EXPECT_EQ(db.protocols->Count(), 9);
}

TEST(ReadGlobalParameters, WithANumberThatDoesNotConvertRaisesAndKeepsTheLists) {
  OmnikorLibXml db;
  const support::TempFolder folder;
  const std::string path = folder.write("p.xml", R"(<xml><Protocols>
<Protocol Code="1" initMode="1"/><Protocol Code="2"/></Protocols></xml>)");
  EXPECT_TRUE(Ecu::failureOf([&] { db.ReadGlobalParameters(path); }).starts_with("13 "));
  EXPECT_EQ(db.protocols->Count(), 9);
}

TEST(LocalisedLookup, LanguageElseFirstElseEmpty) {
  const Fragment row(
      R"(<r><n xml:lang="en">E</n><n xml:lang="fr">F<!--x--> <![CDATA[2]]></n></r>)");
  EXPECT_EQ(GetLocalizedName(row, "n", "fr"), "F 2");
  EXPECT_EQ(GetLocalizedName(row, "n", "FR"), "E");
  EXPECT_EQ(GetLocalizedName(row, "m", "fr"), "");
}

TEST(ProtocolElement, ObjectAndText) {
  Ecu ecu;
  ProtocolItem item;
  item.loadXml(ecu.db, Fragment(R"(<Protocol Name="P" multiPoint="0" initMode="-1" Code="9"/>)"));
  EXPECT_FALSE(ecu.db.loading().pending.isSet());
  EXPECT_EQ(item.protocolName, "P");
  EXPECT_FALSE(item.multiPoint);
  EXPECT_EQ(item.initMode, -1);
  EXPECT_EQ(item.code, 0) << "the code is not read";
  EXPECT_EQ(fragmentOf(item, "Protocol"), R"(<Protocol Name="P" multiPoint="0" initMode="-1"/>)");
  item.loadXml(ecu.db, Fragment(R"(<Protocol Name="Q"/>)"));
  EXPECT_TRUE(item.multiPoint);
  EXPECT_EQ(item.initMode, 0);
}

TEST(FailureElement, ObjectAndText) {
  Ecu ecu;
  PanneItem item;
  item.loadXml(ecu.db, Fragment(R"(<Failure Name="x" Id="12"/>)"));
  EXPECT_EQ(item.id, 12);
  EXPECT_EQ(fragmentOf(item, "Failure"), R"(<Failure Name="x" Id="12"/>)");
}

TEST(DeviceTypeElement, ObjectAndText) {
  Ecu ecu;
  TypeOrganeItem item;
  item.loadXml(ecu.db, Fragment(R"(<DeviceType Name="x" Id="12"/>)"));
  EXPECT_EQ(item.id, 12);
  EXPECT_EQ(fragmentOf(item, "DeviceType"), R"(<DeviceType Name="x" Id="12"/>)");
}

TEST(FunctionElement, WritesAttributesAndReadsTheLogicalAddressElsewhere) {
  Ecu ecu;
  FunctionItem item;
  item.loadXml(ecu.db, Fragment(R"(<Function Name="Engine" Address="122" LogicalAddress="ignored">
<ProtocolList><Protocol/><Protocol><LogicalAddress>7A</LogicalAddress></Protocol></ProtocolList>
<SendId><CANId Value="291" Extended="1"/></SendId><ReceiveId><CANId Value="2024"/></ReceiveId>
</Function>)"));
  EXPECT_FALSE(ecu.db.loading().pending.isSet());
  EXPECT_EQ(item.functionName, "Engine");
  EXPECT_EQ(item.Address, 122);
  EXPECT_EQ(item.LogicalAddress, "7A");
  EXPECT_EQ(static_cast<std::uint32_t>(item.canXid), 0x80000123u);
  EXPECT_EQ(item.canRid, 2024);
  EXPECT_EQ(fragmentOf(item, "Function"),
            "<Function Name=\"Engine\" Address=\"122\" LogicalAddress=\"7A\"><SendId>\n"
            "<CANId Value=\"291\" Extended=\"1\"/>\n</SendId><ReceiveId>\n"
            "<CANId Value=\"2024\"/>\n</ReceiveId></Function>");
  item.canXid = item.canRid = -1;
  item.LogicalAddress.clear();
  EXPECT_EQ(fragmentOf(item, "Function"),
            R"(<Function Name="Engine" Address="122" LogicalAddress=""/>)");
}

TEST(FunctionElement, IdentifiersDefaultToUnset) {
  Ecu ecu;
  FunctionItem item;
  item.canXid = item.canRid = 5;
  item.loadXml(ecu.db, Fragment("<Function Name='a' Address='1'><ProtocolList><Protocol>"
                                "<LogicalAddress/></Protocol></ProtocolList></Function>"));
  EXPECT_EQ(item.canXid, -1);
  EXPECT_EQ(item.canRid, -1);
  EXPECT_FALSE(ecu.db.loading().pending.isSet());
}

TEST(CatalogueElements, MissingPartsAreNamed) {
  struct Case {
    const char *text, *complaint;
  };
  const auto complaintOf = [](auto item, const char* text) {
    Ecu ecu;
    item.loadXml(ecu.db, Fragment(text));
    const Failure error = ecu.db.loading().pending.error();
    return std::to_string(error.number) + " " + error.text;
  };
  EXPECT_EQ(complaintOf(ProtocolItem(), "<Protocol/>"),
            "1 ProtocolItem.loadXml : Protocol Name not found");
  EXPECT_EQ(complaintOf(PanneItem(), "<Failure Id='1'/>"),
            "1 PanneItem.loadXml : Failure Name not found");
  EXPECT_EQ(complaintOf(PanneItem(), "<Failure Name='a'/>"), "1 PanneItem.loadXml : Id not found");
  EXPECT_EQ(complaintOf(TypeOrganeItem(), "<DeviceType Id='1'/>"),
            "1 TypeOrganeItem.loadXml : Device type Name not found");
  EXPECT_EQ(complaintOf(TypeOrganeItem(), "<DeviceType Name='a'/>"),
            "1 TypeOrganeItem.loadXml : Id not found");
  EXPECT_EQ(complaintOf(FunctionItem(), "<Function Address='1'/>"),
            "1 FunctionItem.loadXml : Function Name not found");
  EXPECT_EQ(complaintOf(FunctionItem(), "<Function Name='a'/>"),
            "1 FunctionItem.loadXml : Address not found");
  EXPECT_EQ(complaintOf(FunctionItem(), "<Function Name='a' Address='1'/>"),
            "1 FunctionItem.loadXml : Logical Address not found");
}

TEST(CatalogueCollections, ReadStrictlyAndWriteInOrder) {
  Ecu ecu;
  PanneItems failures;
  failures.loadXml(ecu.db, Fragment("<Failures><Failure Name='b' Id='2'/><Failure Id='3'/>"
                                    "<Failure Name='a' Id='1'/></Failures>"));
  EXPECT_EQ(fragmentOf(failures, "Failures"),
            R"(<Failures><Failure Name="b" Id="2"/><Failure Name="a" Id="1"/></Failures>)");
  TypeOrganeItems types;
  types.loadXml(ecu.db, Fragment("<T><DeviceType Name='b'/><DeviceType Name='a' Id='1'/></T>"));
  EXPECT_EQ(fragmentOf(types, "T"), R"(<T><DeviceType Name="a" Id="1"/></T>)");
  ProtocolItems protocols;
  protocols.loadXml(ecu.db, Fragment("<P><Protocol initMode='1'/><Protocol Name='a'/></P>"));
  EXPECT_EQ(fragmentOf(protocols, "P"),
            R"(<P><Protocol Name="a" multiPoint="1" initMode="0"/></P>)");
  FunctionItems functions;
  functions.loadXml(ecu.db, Fragment("<F><Function Name='x' Address='1'/></F>"));
  EXPECT_EQ(functions.Count(), 0);
}

// AutoIdents

std::shared_ptr<AutoIdentItems> threeRecords() {
  auto items = std::make_shared<AutoIdentItems>();
  items->Add(1, "OKN", "0100", "0001", nullptr);
  items->Add(1, "OKN", "0100", "0002", nullptr);
  items->Add(1, "OKN", "0100", "0001", nullptr);
  return items;
}

TEST(AutoIdents, AllFourFieldsMustMatchExactly) {
  const auto items = threeRecords();
  EXPECT_EQ(items->FindItem(1, "OKN", "0100", "0002"), 2);
  EXPECT_EQ(items->FindItemObject(1, "OKN", "0100", "0001"), items->Item(1));
  EXPECT_EQ(items->FindItem(2, "OKN", "0100", "0002"), 0);
  EXPECT_EQ(items->FindItem(1, "okn", "0100", "0002"), 0);
  EXPECT_EQ(items->FindItem(1, "OKN", "100", "0002"), 0);
  EXPECT_EQ(items->FindItem(1, "OKN", "0100", "2"), 0);
  EXPECT_EQ(items->FindItemObject(1, "OKN", "0100", "2"), nullptr);
}

TEST(AutoIdents, DeleteRemovesTheFirstRecordThatMatches) {
  const auto items = threeRecords();
  const AutoIdentItem* last = items->Item(3);
  items->deleteItem(1, "OKN", "0100", "0001");
  ASSERT_EQ(items->Count(), 2);
  EXPECT_EQ(items->Item(1)->Version, "0002");
  EXPECT_EQ(items->Item(2), last);
  items->deleteItem(9, "OKN", "0100", "0001");
  EXPECT_EQ(items->Count(), 2);
}

TEST(AutoIdents, AllFourAttributesAreAlwaysWritten) {
  AutoIdentItem item;
  EXPECT_EQ(fragmentOf(item, "AutoIdent"),
            R"(<AutoIdent DiagVersion="0" Supplier="" Soft="" Version=""/>)");
  Ecu ecu;
  FileText file;
  file.autoIdents = R"(<AutoIdents>
<AutoIdent DiagVersion="4" Supplier="S&amp;" Soft="01" Version="1A"/> <AutoIdent Version="" Soft="" Supplier="" DiagVersion="&amp;H10"/></AutoIdents>)";
  ecu.load(file);
  EXPECT_EQ(ecu.savedBetween("<AutoIdents>", "</AutoIdents>"),
            "\n<AutoIdent DiagVersion=\"4\" Supplier=\"S&amp;\" Soft=\"01\" Version=\"1A\"/>"
            "<AutoIdent DiagVersion=\"16\" Supplier=\"\" Soft=\"\" Version=\"\"/>");
  EXPECT_EQ(ecu.target().AutoIdents->Item(1)->parent, &ecu.target());
}

TEST(AutoIdents, OneWithoutSoftFailsTheLoadAfterAllElseWasRead) {
  for (const char* missing : {"DiagVersion", "Supplier", "Soft", "Version"}) {
    Ecu ecu;
    FileText file;
    std::string bad = "<AutoIdent";
    for (const char* name : {"DiagVersion", "Supplier", "Soft", "Version"})
      if (std::string(name) != missing) bad += std::string(" ") + name + "='7'";
    file.autoIdents = "<AutoIdents><AutoIdent DiagVersion='1' Supplier='a' Soft='b' Version='c'/>" +
                      bad + "/><AutoIdent DiagVersion='2' Supplier='a' Soft='b' Version='c'/>" +
                      "</AutoIdents>";
    file.datas = "<Data Name='D'/>";
    file.categories = "<Category Name='C'/>";
    EXPECT_EQ(ecu.failureOfLoad(file.text()),
              std::string("91 AutoIdentItem.loadXml: Object not set (AutoIdent/@") + missing + ")");
    EXPECT_EQ(ecu.target().AutoIdents->Count(), 1) << "reading of the list ends there";
    EXPECT_EQ(ecu.target().datas()->Count(), 1);
    EXPECT_EQ(ecu.target().Categories->Count(), 1);
    EXPECT_EQ(ecu.db.report().size(), 2u) << ecu.report();
  }
}

TEST(AutoIdents, AVersionThatIsNoNumberFailsTheLoad) {
  Ecu ecu;
  FileText file;
  file.autoIdents =
      "<AutoIdents><AutoIdent DiagVersion='x' Supplier='' Soft='' Version=''/></AutoIdents>";
  EXPECT_TRUE(ecu.failureOfLoad(file.text()).starts_with("13 "));
}

TEST(AutoIdents, CloneIsAFieldByFieldCopyWithANewParent) {
  const auto items = threeRecords();
  TargetItem owner;
  const auto copy = items->clone(&owner);
  ASSERT_EQ(copy->Count(), 3);
  EXPECT_NE(copy->Item(2), items->Item(2));
  EXPECT_EQ(copy->Item(2)->Version, "0002");
  EXPECT_EQ(copy->Item(2)->parent, &owner);
}

} // namespace
} // namespace kelmar::testing
