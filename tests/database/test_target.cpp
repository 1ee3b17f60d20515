// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

std::string targetText(const std::string& attributes, const std::string& children) {
  return "<xml><zem:Target " + attributes + ">" + children + "</zem:Target></xml>";
}

const std::string engine = R"(<Function Name="Engine" Address="122" LogicalAddress="7A"/>)";

TEST(NewTargetItem, HasItsInitialValues) {
  TargetItem target;
  EXPECT_EQ(target.name(), "");
  EXPECT_EQ(target.Address(), 0);
  EXPECT_EQ(target.LogicalAddress(), "");
  EXPECT_EQ(target.Langue(), "Français");
  EXPECT_TRUE(target.reference());
  EXPECT_EQ(target.Email() + target.Href() + target.Upload() + target.Group(), "");
  EXPECT_EQ(target.Projects.Count(), 0);
  EXPECT_EQ(target.Parametres()->parent, &target);
  EXPECT_EQ(target.datas()->Count() + target.Requests()->Count() + target.Organes()->Count(), 0);
  EXPECT_EQ(target.Categories->Count() + target.AutoIdents->Count(), 0);
  EXPECT_EQ(target.parent, nullptr);
  EXPECT_TRUE(target.ValueChanged);
}

TEST(ValueChanged, IsSetByTheWritersOfTheRecord) {
  TargetItem target;
  const std::vector<std::function<void()>> writers = {
      [&] { target.setName("a"); },
      [&] { target.setAddress(1); },
      [&] { target.setLogicalAddress("a"); },
      [&] { target.setLangue("a"); },
      [&] { target.setReference(false); },
      [&] { target.setEmail("a"); },
      [&] { target.setHref("a"); },
      [&] { target.setUpload("a"); },
      [&] { target.setGroup("a"); },
      [&] { target.setDatas(std::make_shared<DataItems>()); },
      [&] { target.setRequests(std::make_shared<RequestItems>()); },
      [&] { target.setOrganes(std::make_shared<OrganeItems>()); },
      [&] { target.setParametres(std::make_shared<TargetParamItem>()); },
  };
  for (std::size_t i = 0; i < writers.size(); ++i) {
    target.ValueChanged = false;
    writers[i]();
    EXPECT_TRUE(target.ValueChanged) << "writer " << i;
  }
}

TEST(ValueChanged, IsLeftAloneByCategoriesAutoIdentsAndChangesInside) {
  TargetItem target;
  target.ValueChanged = false;
  target.Categories = std::make_shared<CategoryItems>();
  target.AutoIdents = std::make_shared<AutoIdentItems>();
  target.datas()->Add("D");
  target.Requests()->Add("R");
  target.Parametres()->initMode = 3;
  target.Projects.Add("P");
  EXPECT_FALSE(target.ValueChanged);
}

TEST(ValueChanged, IsTrueAfterALoad) {
  Ecu ecu;
  ecu.load(FileText{});
  EXPECT_TRUE(ecu.target().ValueChanged);
  ecu.target().ValueChanged = false;
  const Fragment again(FileText{}.text());
  ecu.target().loadXml(ecu.db, again);
  EXPECT_TRUE(ecu.target().ValueChanged);
}

TEST(TargetClear, DropsChildrenAndParentAndLeavesTheFields) {
  Ecu ecu;
  ecu.makeNew();
  ecu.target().datas()->Add("D")->parent = &ecu.target();
  const auto datas = ecu.target().datas();
  const auto data = datas->shared(datas->Item(1));
  ecu.target().clear();
  EXPECT_EQ(datas->Count(), 0);
  EXPECT_EQ(data->parent, nullptr);
  EXPECT_EQ(ecu.target().parent, nullptr);
  EXPECT_EQ(ecu.target().name(), "E");
  EXPECT_EQ(ecu.target().Address(), 122);
}

TEST(TargetElement, AllAttributesInTheirOrder) {
  Ecu ecu;
  TargetItem& target = ecu.makeNew();
  target.setName("E\"1\"");
  target.setGroup("g");
  target.setUpload("u");
  target.setHref("h&");
  target.setEmail("e");
  EXPECT_EQ(ecu.savedBetween("<zem:Target", ">"),
            " Name=\"E&quot;1&quot;\" xmlns=\"http://www.omnikor.example/2002/ECU\""
            " xmlns:ds=\"http://www.omnikor.example/2002/screens\" email=\"e\" href=\"h&amp;\""
            " upload=\"u\" group=\"g\"");
  ecu.load(ecu.saved());
  EXPECT_EQ(ecu.target().name(), "E\"1\"");
  EXPECT_EQ(ecu.target().Email(), "e");
  EXPECT_EQ(ecu.target().Href(), "h&");
  EXPECT_EQ(ecu.target().Upload(), "u");
  EXPECT_EQ(ecu.target().Group(), "g");
}

TEST(TargetElement, MissingCollectionsAreNotWrittenButRequestsIs) {
  Ecu ecu;
  TargetItem& target = ecu.makeNew();
  target.AutoIdents.reset();
  target.setDatas(nullptr);
  target.setRequests(nullptr);
  target.setOrganes(nullptr);
  target.Categories.reset();
  EXPECT_EQ(ecu.savedBetween("</K>", "</xml>"),
            "\n\n<Requests Endian=\"Big\">\n</Requests></zem:Target>");
}

TEST(TargetElement, EndianOfTheRequestsFollowsTheParameters) {
  Ecu ecu;
  ecu.makeNew().Parametres()->LittleEndian = true;
  EXPECT_EQ(ecu.savedBetween("<Requests ", ">"), "Endian=\"Little\"");
}

TEST(Projects, AreEmptyElementsInAnElementWithoutNamespace) {
  Ecu ecu;
  TargetItem& target = ecu.makeNew();
  EXPECT_EQ(ecu.saved().find("Projects"), std::string::npos);
  target.Projects.Add("B2");
  target.Projects.Add("Été");
  EXPECT_EQ(ecu.savedBetween("screens\">\n", "\n<Function"),
            "<Projects xmlns=\"\"><B2/><Été/></Projects>");
}

TEST(Projects, AreReadByBaseNameAndADuplicateKeepsOneEntry) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", "<Projects>text<!--c--><?pi x?><A/> <p:B/><A/><a>x</a><C><D/></C>"
                                  "</Projects>" +
                                      engine));
  EXPECT_EQ(std::vector<std::string>(ecu.target().Projects.begin(), ecu.target().Projects.end()),
            (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(ecu.report(), "Project|A|Projects/A|1|the project stands there already\n"
                          "Project|a|Projects/a|1|the project stands there already\n");
}

TEST(Projects, OfASecondListAreReadToo) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", "<Projects><A/></Projects><Projects><B/></Projects>" + engine));
  EXPECT_TRUE(ecu.target().Projects.contains("A"));
  EXPECT_TRUE(ecu.target().Projects.contains("B"));
}

TEST(Projects, AKeyIsThereOnlyOnceWhateverItsCase) {
  ProjectNames names;
  names.Add("Été");
  EXPECT_EQ(Ecu::failureOf([&] { names.Add("ÉTÉ"); }),
            "457 TargetItem.Projects: Key exists already");
  EXPECT_TRUE(names.contains("Été"));
  EXPECT_FALSE(names.contains("ÉTÉ"));
  names.clear();
  names.Add("ÉTÉ");
  EXPECT_EQ(names.Count(), 1);
}

TEST(Projects, ANameThatIsNoXmlNameFailsTheSaveAndIsNamed) {
  for (const char* name : {"two words", "1st", "a:b", "", "<x>"}) {
    Ecu ecu;
    const std::string path = ecu.folder.write("out.xml", "old");
    ecu.makeNew().Projects.Add(name);
    EXPECT_EQ(Ecu::failureOf([&] { ecu.db.ExportUceToXml(path); }),
              "1 ExportUceToXml: Project '" + std::string(name) +
                  "': the name is no XML name and cannot be written");
    EXPECT_EQ(support::bytesOf(path), "old");
  }
}

TEST(FunctionOfTheTarget, IsWrittenWithTheNameOfTheCatalogue) {
  Ecu ecu;
  TargetItem& target = ecu.makeNew();
  ecu.db.functions->Add(9, "", "Nine & more");
  target.setAddress(9);
  target.setLogicalAddress("");
  EXPECT_EQ(ecu.savedBetween("<Function ", ">"), "Name=\"Nine &amp; more\" Address=\"9\"/");
  target.setLogicalAddress("L");
  target.Parametres()->setToolAddress(15);
  target.Parametres()->Gateway = "CGW";
  EXPECT_EQ(ecu.savedBetween("<Function ", ">"),
            "Name=\"Nine &amp; more\" Address=\"9\" LogicalAddress=\"L\" ToolAddress=\"0\" "
            "Type=\"CGW\"/");
}

TEST(FunctionOfTheTarget, UnknownAddressAbandonsTheSave) {
  Ecu ecu;
  const std::string path = ecu.folder.write("out.xml", "old");
  ecu.makeNew().setAddress(7);
  EXPECT_EQ(Ecu::failureOf([&] { ecu.db.ExportUceToXml(path); }),
            "91 TargetItem.createXMLnode: Object not set (no function has the address 7)");
  EXPECT_EQ(support::bytesOf(path), "old");
  ecu.db.functions.reset();
  EXPECT_TRUE(Ecu::failureOf([&] { ecu.saved(); }).starts_with("91 "));
}

TEST(FunctionOfTheTarget, ToolAddressIsWrittenAsZeroAndReadBackSo) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", "<Function Name='F' Address='1' ToolAddress='245'/>"));
  EXPECT_EQ(ecu.target().Parametres()->storedToolAddress(), 245);
  EXPECT_EQ(ecu.savedBetween("<Function ", "/>"), "Name=\"F\" Address=\"1\" ToolAddress=\"0\"");
  EXPECT_EQ(ecu.target().Parametres()->canXid, 245) << "the reader's side effect";
  ecu.load(ecu.saved());
  EXPECT_EQ(ecu.target().Parametres()->storedToolAddress(), 0);
  ecu.load(targetText("Name='E'", "<Function Name='F' Address='1' ToolAddress='241'/>"));
  EXPECT_EQ(ecu.savedBetween("<Function ", "/>"), "Name=\"F\" Address=\"1\"");
  ecu.load(targetText("Name='E'", "<Function Name='F' Address='1' ToolAddress='F1'/>"));
  EXPECT_EQ(ecu.target().Parametres()->storedToolAddress(), 241)
      << "what is no number is passed over";
}

TEST(FunctionOfTheTarget, IsAddedWhenNameAndAddressAreUnknown) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", engine + "<CAN><SendId><CANId Value='5'/></SendId></CAN>"));
  ASSERT_EQ(ecu.db.functions->Count(), 1);
  const FunctionItem* function = ecu.db.functions->Item(1);
  EXPECT_EQ(function->functionName, "Engine");
  EXPECT_EQ(function->Address, 122);
  EXPECT_EQ(function->LogicalAddress, "7A");
  EXPECT_EQ(function->canXid, 5);
  EXPECT_EQ(function->canRid, -1);
}

TEST(FunctionOfTheTarget, UnknownNameWithAKnownAddressBecomesTheCataloguesName) {
  Ecu ecu;
  ecu.makeNew();
  ecu.db.functions->Item(1)->canXid = 7;
  ecu.load(targetText("Name='E'", "<Function Name='Motor' Address='122' LogicalAddress='X'/>"
                                  "<CAN><SendId><CANId Value='5'/></SendId></CAN>"));
  EXPECT_EQ(ecu.db.functions->Count(), 1);
  EXPECT_EQ(ecu.target().LogicalAddress(), "7A");
  EXPECT_EQ(ecu.db.functions->Item(1)->canXid, 7) << "only a function found by name is updated";
  EXPECT_EQ(ecu.savedBetween("<Function ", "/>"),
            "Name=\"Engine\" Address=\"122\" LogicalAddress=\"7A\"");
}

TEST(FunctionOfTheTarget, UnknownNameWithoutAddressDoesNotExist) {
  Ecu ecu;
  EXPECT_EQ(
      ecu.failureOfLoad(
          targetText("Name='E'", "<Function Name='Motor'/><Datas><Data Name='D'/></Datas>")),
      "1 loadXml: Bad xml file, The function 'Motor' doesn't exist in the database structure, "
      "Contact Omnikor HotLine");
  EXPECT_EQ(ecu.target().name(), "E") << "partly filled";
  EXPECT_EQ(ecu.target().datas()->Count(), 0) << "the steps that follow are skipped";
}

TEST(FunctionOfTheTarget, KnownNameWinsOverTheAddressOfTheFile) {
  Ecu ecu;
  ecu.makeNew();
  ecu.load(targetText("Name='E'", "<Function Name='Engine' Address='5' LogicalAddress='5'/>"));
  EXPECT_EQ(ecu.target().Address(), 122);
  EXPECT_EQ(ecu.target().LogicalAddress(), "7A");
  ecu.load(targetText("Name='E'", "<Function Name='Engine'/>"));
  EXPECT_EQ(ecu.target().Address(), 122);
}

TEST(FunctionOfTheTarget, KnownNameTakesTheIdentifiersOfTheFileThatAreSet) {
  Ecu ecu;
  ecu.makeNew();
  FunctionItem* function = ecu.db.functions->Item(1);
  function->canXid = 1;
  function->canRid = 2;
  ecu.load(targetText("Name='E'", engine + "<CAN><ReceiveId><CANId Value='9'/></ReceiveId></CAN>"));
  function = ecu.db.functions->Item(1);
  EXPECT_EQ(function->canXid, 1);
  EXPECT_EQ(function->canRid, 9);
}

TEST(FunctionOfTheTarget, IsAddedWithAddress0WhenTheAddressIsNoNumber) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", "<Function Name='F' Address='x'/>"));
  EXPECT_EQ(ecu.target().Address(), 0);
  EXPECT_EQ(ecu.report(), "Value|Address|Function[F]|1|'x': Type mismatch\n");
}

TEST(FunctionsOfTheDatabase, OutliveTargetsAndGrow) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", engine));
  ecu.load(targetText("Name='E'", "<Function Name='Brakes' Address='1'/>"));
  EXPECT_EQ(ecu.db.functions->Count(), 2);
  ecu.db.ClearTarget();
  EXPECT_EQ(ecu.db.functions->Count(), 2);
}

TEST(TargetElement, WithoutNameOrFunctionNameSaysSo) {
  Ecu ecu;
  EXPECT_EQ(ecu.failureOfLoad(targetText("", engine)),
            "1 loadXml: Bad xml file, Target Name not found");
  EXPECT_EQ(ecu.failureOfLoad(targetText("Name='E'", "<Function Address='1'/>")),
            "1 loadXml: Bad xml file, Target function name not found");
  EXPECT_EQ(ecu.failureOfLoad(targetText("Name='E'", "")),
            "1 loadXml: Bad xml file, Target function name not found");
  ecu.load(targetText("Name=''", engine));
  EXPECT_EQ(ecu.target().name(), "") << "an empty name is a name";
}

TEST(Language, WithoutTheElementIsFrenchAndAReference) {
  Ecu ecu;
  ecu.load(targetText("Name='E'", engine));
  EXPECT_EQ(ecu.target().Langue(), "Français");
  EXPECT_TRUE(ecu.target().reference());
  EXPECT_EQ(ecu.savedBetween("<Language ", "/>"), "Name=\"Français\" Reference=\"1\"");
}

TEST(Language, ReferenceIsABooleanAndWrittenOnlyWhenTrue) {
  const auto referenceOf = [](const std::string& attribute) {
    Ecu ecu;
    ecu.load(targetText("Name='E'", engine + "<Language Name='English' " + attribute + "/>"));
    EXPECT_EQ(ecu.target().Langue(), "English");
    return ecu.target().reference();
  };
  EXPECT_TRUE(referenceOf(""));
  EXPECT_TRUE(referenceOf("Reference='-1'"));
  EXPECT_TRUE(referenceOf("Reference='True'"));
  EXPECT_FALSE(referenceOf("Reference='0'"));
  EXPECT_FALSE(referenceOf("Reference='false'"));
  EXPECT_TRUE(referenceOf("Reference='maybe'")) << "what does not convert leaves the default";
  Ecu ecu;
  ecu.makeNew().setReference(false);
  EXPECT_EQ(ecu.savedBetween("<Language ", "/>"), "Name=\"Français\"");
}

TEST(TargetElement, PendingErrorAtTheEndFailsTheLoadWithAllThatWasRead) {
  Ecu ecu;
  // Without AutoIdents behind them nothing clears what the last category left.
  EXPECT_EQ(
      ecu.failureOfLoad(targetText(
          "Name='E'", engine + "<Datas><Data Name='D'/></Datas><ds:Categories><Category Name='C'/>"
                               "<Category Name='C'/></ds:Categories>")),
      "1 CategoryItems.AddData: Duplicate category");
  EXPECT_EQ(ecu.target().datas()->Count(), 1);
  EXPECT_EQ(ecu.target().Categories->Count(), 1);
  EXPECT_TRUE(ecu.db.loadFailed());
}

TEST(TargetElement, IsReadInTheFixedOrderWhateverTheOrderOfTheFile) {
  Ecu ecu;
  ecu.load(targetText(
      "Name='E'",
      "<ds:Categories><Category Name='C'><Screen Name='S'><Display RequestName='R'/></Screen>"
      "</Category></ds:Categories>"
      "<Devices><Device Name='V' FreezeFrame='R'><Test Type='1'><StoredFlag>D</StoredFlag></Test>"
      "</Device></Devices>"
      "<Requests><Request Name='R'><Sent><DataItem Name='D' Ref='1' FirstByte='2'/></Sent>"
      "</Request></Requests>"
      "<Datas><Data Name='D'/></Datas>" +
          engine));
  EXPECT_EQ(ecu.report(), "");
  EXPECT_EQ(ecu.target().Organes()->Item(1)->Tests->Item(1)->StoredFlag.Count(), 1);
  EXPECT_EQ(ecu.target().Categories->Item(1)->Screens->Item(1)->DisplayItems->Count(), 1);
}

} // namespace
} // namespace kelmar::testing
