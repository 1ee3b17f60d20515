// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// An ECU with a request R that has A in the reply and P in the sent frame, and the categories.
struct WithScreens : Ecu {
  explicit WithScreens(const std::string& categories) {
    FileText file;
    file.datas = "<Data Name='A'/><Data Name='P'/><Data Name='U'/>";
    file.requests = "<Request Name='R'><Sent><DataItem Name='P'/></Sent><Received>"
                    "<DataItem Name='A'/></Received></Request><Request Name='Q'/>";
    file.categories = categories;
    load(file);
  }
  CategoryItem& category(int position = 1) { return *target().Categories->Item(position); }
  ScreenItem& screen(int position = 1) { return *category().Screens->Item(position); }
  DisplayItem& display(int position = 1) { return *screen().DisplayItems->Item(position); }
};

std::string inScreen(const std::string& content) {
  return "<Category Name='C'><Screen Name='S' WindowState='0' Width='1' Height='2' Color='3'>" +
         content + "</Screen></Category>";
}

std::string namesOfScreens(const ScreenItems& items) {
  return namesOf(items, [](const ScreenItem& item) { return item.screenName; });
}

const std::string rectangle = "<Rectangle Left=\"1\" Top=\"2\" Height=\"3\" Width=\"4\"/>\n";
const std::string font = R"(<Font Name="Arial" Size="10" Bold="0" Italic="1" Color="5"/>)";

TEST(Category, ObjectAndText) {
  WithScreens ecu("<Category Name='C&amp;'><Screen Name='S'/></Category><Category Name='D'/>");
  EXPECT_EQ(ecu.category().categoryName, "C&");
  EXPECT_EQ(ecu.category().parent, &ecu.target());
  EXPECT_EQ(ecu.screen().parent, &ecu.category());
  EXPECT_EQ(
      ecu.savedBetween("screens\">\n<Category", "</ds:"),
      " Name=\"C&amp;\">\n<Screen Name=\"S\" Color=\"16777215\" WindowState=\"0\" Width=\"600\" "
      "Height=\"400\">\n\n\n\n</Screen>\n</Category><Category Name=\"D\">\n\n</Category>");
}

TEST(Categories, ADuplicateIsNotAddedAndOneWithoutNameIs) {
  WithScreens ecu("<Category Name='C'/><Category Name='c'/><Category/><Category Name='C'/>"
                  "<Category Name='D'/>");
  const CategoryItems& items = *ecu.target().Categories;
  EXPECT_EQ(namesOf(items, [](const CategoryItem& item) { return item.categoryName; }), "C c  D");
  EXPECT_EQ(items.ItemName("c"), items.Item(2));
  EXPECT_EQ(Ecu::failureOf([&] { ecu.target().Categories->Add("D", &ecu.target()); }),
            "1 CategoryItems.AddData: Duplicate category");
  EXPECT_EQ(ecu.report(), "Category|C|ds:Categories/Category[C]|13|Duplicate category\n");
}

TEST(Categories, AreDeletedByName) {
  WithScreens ecu("<Category Name='C'/><Category Name='D'/>");
  CategoryItem stranger;
  stranger.categoryName = "D";
  ecu.target().Categories->deleteItem(&stranger);
  EXPECT_EQ(ecu.target().Categories->Count(), 1);
  ecu.target().Categories->deleteItem("c");
  EXPECT_EQ(ecu.target().Categories->Count(), 1) << "exactly";
}

TEST(Category, WithoutNameSaysSo) {
  Ecu ecu;
  CategoryItem item;
  item.loadXml(ecu.db, Fragment("<Category/>"));
  const Failure error = ecu.db.loading().pending.error();
  EXPECT_EQ(error.source + " " + error.text, "CategoryItem.loadXml Name undefined, bad category");
}

TEST(Screen, HasItsInitialValues) {
  const ScreenItem item;
  EXPECT_EQ(item.WindowState, 0);
  EXPECT_EQ(item.ScreenWidth, 600);
  EXPECT_EQ(item.ScreenHeight, 400);
  EXPECT_EQ(item.ScreenColor, 0xFFFFFF);
  EXPECT_EQ(item.InitId, 0);
  EXPECT_EQ(fragmentOf(item, "Screen"),
            "<Screen Name=\"\" Color=\"16777215\" WindowState=\"0\" Width=\"600\" Height=\"400\">"
            "\n\n\n\n</Screen>");
}

TEST(Screen, WithoutNameIsDropped) {
  WithScreens ecu("<Category Name='C'><Screen/><Screen Name='S'/></Category>");
  EXPECT_EQ(namesOfScreens(*ecu.category().Screens), "S");
  EXPECT_EQ(ecu.report(),
            "Screen||ds:Categories/Category[C]/Screen|13|Name undefined, bad screen\n");
}

TEST(Screen, NumbersAreCheckedAndOthersLeaveTheDefault) {
  WithScreens ecu("<Category Name='C'><Screen Name='S' Width='x' Height='-5' Color='99999999999' "
                  "WindowState='2'/></Category>");
  EXPECT_EQ(ecu.screen().ScreenWidth, 600);
  EXPECT_EQ(ecu.screen().ScreenHeight, -5);
  EXPECT_EQ(ecu.screen().ScreenColor, 0xFFFFFF);
  EXPECT_EQ(ecu.screen().WindowState, 2);
}

TEST(Screen, AllPartsByteForByte) {
  const std::string label =
      "<Label Text=\"L\" Color=\"6\" Alignment=\"2\">\n" + rectangle +
      "<Font Name=\"F\" Size=\" 8.25\" Bold=\"1\" Italic=\"0\" Color=\"7\"/></Label>";
  const std::string button =
      "<Button Text=\"B\">\n" + rectangle +
      "<Font Name=\"F\" Size=\" 12\" Bold=\"0\" Italic=\"1\"/>\n<Message Text=\"M\"/>\n"
      "<Send Delay=\"9\" RequestName=\"R\"/>\n</Button>";
  const std::string display =
      "<Display Width=\"8\" Color=\"9\" DataName=\"A\" RequestName=\"R\">\n" + rectangle + font +
      "<Threshold Value=\"-1.5\" Color=\"255\">\n<Sound Name=\"beep\"/>"
      "</Threshold><Threshold Value=\" 2\" Color=\"0\"/></Display>";
  const std::string input =
      "<Input Width=\"8\" Color=\"9\" RequestName=\"Q\">\n" + rectangle + font + "</Input>";
  const std::string text =
      "<Screen Name=\"S\" Color=\"3\" WindowState=\"1\" Width=\"2\" Height=\"4\">\n\n" + label +
      "\n" + label + "\n<Send Delay=\"1\" RequestName=\"Q\"/>" +
      "<Send Delay=\"2\" RequestName=\"R\"/>\n" + button + "\n\n" + display + "\n" + input +
      "\n</Screen>";
  WithScreens ecu("<Category Name=\"C\">" + text + "</Category>");
  EXPECT_EQ(ecu.report(), "");
  EXPECT_EQ(fragmentOf(ecu.screen(), "Screen"), text);
  EXPECT_EQ(ecu.screen().LabelItems->Item(2)->parent, &ecu.screen());
  EXPECT_EQ(ecu.screen().ButtonItems->Count(), 2) << "the init button is a member";
  EXPECT_EQ(ecu.display(2).DisplayExtraItem->request(), ecu.target().Requests()->Item(2));
  const auto copy = ecu.screen().clone(&ecu.category());
  EXPECT_EQ(fragmentOf(*copy, "Screen"), text);
  EXPECT_EQ(copy->ButtonInit.get(), copy->ButtonItems->Item(1));
  EXPECT_NE(copy->ButtonInit, ecu.screen().ButtonInit);
}

TEST(Screens, TwoOfOneNameCoexistUnderOtherKeys) {
  WithScreens ecu("<Category Name='C'><Screen Name='S'/><Screen Name='S1'/><Screen Name='s'/>"
                  "<Screen Name='S'/></Category>");
  ScreenItems& screens = *ecu.category().Screens;
  EXPECT_EQ(namesOfScreens(screens), "S S1 s S");
  EXPECT_EQ(screens.Item("kS"), screens.Item(1));
  EXPECT_EQ(screens.Item("kS1"), screens.Item(2));
  EXPECT_EQ(screens.Item("kS2"), screens.Item(3));
  EXPECT_EQ(screens.Item("kS3"), screens.Item(4));
  EXPECT_EQ(screens.ItemName("S"), screens.Item(1));
  EXPECT_EQ(screens.ItemName("s"), screens.Item(3)) << "linear and exact";
  EXPECT_EQ(ecu.report(), "");
}

TEST(Screens, DeletingTheSecondOfANameTakesTheFirst) {
  WithScreens ecu(
      "<Category Name='C'><Screen Name='S' Width='1'/><Screen Name='S' Width='2'/></Category>");
  ScreenItems& screens = *ecu.category().Screens;
  screens.deleteItem(screens.Item(2));
  ASSERT_EQ(screens.Count(), 1);
  EXPECT_EQ(screens.Item(1)->ScreenWidth, 2);
}

TEST(InitButton, IsNotWrittenAsAButtonAndItsStepsStandInTheScreen) {
  WithScreens ecu(inScreen("<Send RequestName='R' Delay='5'/>"));
  ASSERT_NE(ecu.screen().ButtonInit, nullptr);
  EXPECT_TRUE(ecu.screen().ButtonInit->InitButton);
  EXPECT_EQ(ecu.screen().ButtonItems->Item(1), ecu.screen().ButtonInit.get()) << "received first";
  EXPECT_EQ(ecu.screen().ButtonInit->parent, &ecu.screen());
  EXPECT_EQ(fragmentOf(ecu.screen(), "Screen"),
            "<Screen Name=\"S\" Color=\"3\" WindowState=\"0\" Width=\"1\" Height=\"2\">\n\n"
            "<Send Delay=\"5\" RequestName=\"R\"/>\n\n</Screen>");
}

TEST(InitButton, MessageIsWrittenAndLostAtTheNextLoad) {
  WithScreens ecu(inScreen(""));
  ecu.screen().ButtonInit->Message = "hello <you>";
  const std::string text = ecu.saved();
  EXPECT_NE(text.find("\n\n<Message>hello &lt;you&gt;</Message>\n\n</Screen>"), std::string::npos);
  ecu.load(text);
  EXPECT_EQ(ecu.screen().ButtonInit->Message, "");
  EXPECT_EQ(ecu.db.report().size(), 1u);
  EXPECT_EQ(ecu.db.report()[0].kind, "Message");
  EXPECT_EQ(ecu.saved().find("<Message"), std::string::npos);
}

TEST(InitButton, FragmentWithTheMarkReplacesIt) {
  WithScreens ecu(inScreen("<Send RequestName='R'/>"));
  auto button = std::make_shared<ButtonItem>();
  button->parent = &ecu.screen();
  button->loadXml(ecu.db,
                  Fragment("<Button Text='I' InitButton='1'><Send RequestName='Q'/></Button>"));
  EXPECT_EQ(ecu.screen().ButtonInit, button);
  EXPECT_EQ(fragmentOf(ecu.screen(), "Screen"),
            "<Screen Name=\"S\" Color=\"3\" WindowState=\"0\" Width=\"1\" Height=\"2\">\n\n"
            "<Send Delay=\"0\" RequestName=\"Q\"/>\n\n</Screen>");
  EXPECT_TRUE(fragmentOf(*button, "Button")
                  .starts_with("<Button Text=\"I\" InitButton=\"1\">\n<Rectangle "));
}

TEST(InitButton, InAFileTakesThePlaceAndTheLostStepIsReported) {
  WithScreens ecu(inScreen("<Send RequestName='R'/><Button Text='I' InitButton='true'/>"));
  EXPECT_EQ(ecu.screen().ButtonInit->caption, "I");
  EXPECT_EQ(
      ecu.report(),
      "Scenario step|R|ds:Categories/Category[C]/Screen[S]/Button[I]|13|this init button takes the "
      "place of the one that holds the step\n");
}

TEST(Button, InitialValuesAndText) {
  ButtonItem item;
  EXPECT_EQ(item.FontSize, 12.0f);
  EXPECT_FALSE(item.InitButton || item.FontBold || item.FontItalic);
  EXPECT_EQ(
      fragmentOf(item, "Button"),
      "<Button Text=\"\">\n<Rectangle Left=\"0\" Top=\"0\" Height=\"0\" Width=\"0\"/>\n"
      "<Font Name=\"\" Size=\" 12\" Bold=\"0\" Italic=\"0\"/>\n<Message Text=\"\"/>\n\n</Button>");
}

TEST(FontSize, TakesCommaAndPointAndKeepsSevenDigits) {
  const auto sizeOf = [](const std::string& size) {
    WithScreens ecu(inScreen("<Label Text='L'><Font Size='" + size + "'/></Label>"));
    return Ecu::between(fragmentOf(*ecu.screen().LabelItems->Item(1), "Label"), "Size=\"", "\"");
  };
  EXPECT_EQ(sizeOf("8,25"), " 8.25");
  EXPECT_EQ(sizeOf("8.25"), " 8.25");
  EXPECT_EQ(sizeOf("8.1"), " 8.1");
  EXPECT_EQ(sizeOf("big"), " 0");
  EXPECT_EQ(sizeOf(" .5"), " .5");
}

TEST(Label, IsKeptInWhateverStateItReached) {
  WithScreens ecu(inScreen("<Label Color='x'/><Label Text='L' Alignment='2'/>"));
  ASSERT_EQ(ecu.screen().LabelItems->Count(), 2);
  EXPECT_EQ(ecu.screen().LabelItems->Item(1)->LabelColor, 0);
  EXPECT_EQ(fragmentOf(*ecu.screen().LabelItems->Item(2), "Label"),
            "<Label Text=\"L\" Color=\"0\" Alignment=\"2\">\n"
            "<Rectangle Left=\"0\" Top=\"0\" Height=\"0\" Width=\"0\"/>\n"
            "<Font Name=\"\" Size=\" 0\" Bold=\"0\" Italic=\"0\" Color=\"0\"/></Label>");
}

// Displays

TEST(Display, HasItsInitialValues) {
  const DisplayItem item;
  EXPECT_EQ(item.FontName, "Arial");
  EXPECT_EQ(item.FontSize, 10);
  EXPECT_EQ(item.DisplayColor, 0xFFFFFF);
  EXPECT_EQ(item.CaptionWidth, 2000);
  EXPECT_EQ(item.DisplayWidth, 4000);
  EXPECT_EQ(item.DisplayHeight, 300);
  EXPECT_EQ(item.DisplayTop + item.DisplayLeft, 0);
  EXPECT_EQ(item.TypeDisplay, 3);
}

TEST(Display, OfDataIsAnInputWhenThePositionIsSent) {
  WithScreens ecu(
      inScreen("<Display DataName='P' RequestName='R'/><Input DataName='A' RequestName='R'/>"));
  xml::Writer out;
  out.open("S");
  ecu.screen().DisplayItems->createXMLnode(out);
  const std::string text = out.take();
  EXPECT_TRUE(text.starts_with("<S>\n<Input Width=\"2000\" Color=\"16777215\" DataName=\"P\" "));
  EXPECT_NE(text.find("\n<Display Width=\"2000\" Color=\"16777215\" DataName=\"A\" "),
            std::string::npos);
  EXPECT_EQ(ecu.display().TypeDisplay, 3);
  EXPECT_EQ(ecu.display().DisplayDataItem->DataPosition(),
            ecu.target().Requests()->Item(1)->DataPositions->Item(1));
}

TEST(Display, OfARequestRemembersInput) {
  WithScreens ecu(inScreen("<Input RequestName='Q'/><Display RequestName='q'/>"));
  EXPECT_EQ(ecu.display(1).TypeDisplay, 1);
  EXPECT_TRUE(ecu.display(1).DisplayExtraItem->param);
  EXPECT_FALSE(ecu.display(2).DisplayExtraItem->param);
  EXPECT_EQ(ecu.display(2).DisplayExtraItem->requestName, "Q")
      << "writing the request copies its name";
}

TEST(Display, NamesAreTakenFromThePositionFound) {
  WithScreens ecu(inScreen("<Display DataName='a' RequestName='r'/>"));
  EXPECT_EQ(ecu.display().DisplayDataItem->dataName, "A");
  EXPECT_EQ(ecu.display().DisplayDataItem->requestName, "R");
}

TEST(Display, OfAPositionThatDiffersFromItsDataInCaseCanBeSaved) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='Speed'/>";
  file.requests = "<Request Name='R'><Sent><DataItem Name='speed'/></Sent></Request>";
  file.categories = inScreen("<Display DataName='Speed' RequestName='R'/>");
  ecu.load(file);
  EXPECT_NE(ecu.saved().find("DataName=\"speed\" RequestName=\"R\""), std::string::npos);
}

TEST(Display, WithoutItsPartIsNotWritten) {
  DisplayItem item;
  const auto written = [&] {
    xml::Writer out;
    out.open("S");
    item.createXMLnode(out);
    out.close();
    return out.take();
  };
  item.TypeDisplay = 1;
  EXPECT_EQ(written(), "<S/>");
  item.TypeDisplay = 3;
  EXPECT_EQ(written(), "<S/>");
  item.TypeDisplay = 2;
  EXPECT_TRUE(Ecu::failureOf(written).starts_with("91 "));
}

TEST(Display, OfAnotherTypeWritesTheDataAlone) {
  WithScreens ecu(inScreen("<Display DataName='P' RequestName='R'/>"));
  ecu.display().TypeDisplay = 2;
  xml::Writer out;
  ecu.display().createXMLnode(out);
  EXPECT_TRUE(
      out.take().starts_with("<Display Width=\"2000\" Color=\"16777215\" DataName=\"P\">\n"));
}

TEST(Display, WhosePositionIsGoneFailsTheSaveAndIsNamed) {
  WithScreens ecu(inScreen("<Display DataName='A' RequestName='R'/>"));
  ecu.target().Requests()->Item(1)->DataPositions->clear();
  const std::string path = ecu.folder.write("out.xml", "old");
  EXPECT_EQ(Ecu::failureOf([&] { ecu.db.ExportUceToXml(path); }),
            "91 DisplayItem.createXMLnode: Object not set (display of data 'A' in request 'R', "
            "screen 'S')");
  EXPECT_EQ(support::bytesOf(path), "old");
}

TEST(DisplayRead, OfAnUnknownRequestIsDroppedAndLogged) {
  const std::string good = "<Display DataName='A' RequestName='R'/>";
  WithScreens ecu(inScreen("<Display DataName='A' RequestName='X'/>" + good));
  EXPECT_EQ(ecu.screen().DisplayItems->Count(), 1) << "dropped itself only";
  EXPECT_EQ(ecu.report(), "Display|X/A|ds:Categories/Category[C]/Screen[S]/Display[A]|13|"
                          "DisplayItem.loadXml : request/data missing (X/A)\n");
}

TEST(DisplayRead, AsTheLastOneItDropsTheScreenToo) {
  WithScreens ecu("<Category Name='C'>"
                  "<Screen Name='S'><Display DataName='A' RequestName='R'/>"
                  "<Display DataName='A' RequestName='X'/></Screen><Screen Name='T'/></Category>");
  EXPECT_EQ(namesOfScreens(*ecu.category().Screens), "T");
  EXPECT_EQ(ecu.report(), "Display|X/A|ds:Categories/Category[C]/Screen[S]/Display[A]|13|"
                          "DisplayItem.loadXml : request/data missing (X/A)\n"
                          "Screen|S|ds:Categories/Category[C]/Screen[S]|13|request/data missing\n");
}

TEST(DisplayRead, EveryReasonHasItsText) {
  const auto reasonOf = [](const std::string& attributes) {
    WithScreens ecu(inScreen("<Display " + attributes + "/><Display RequestName='Q'/>"));
    return ecu.db.report().size() == 1 ? ecu.db.report()[0].reason : "not one";
  };
  EXPECT_EQ(reasonOf("RequestName='X'"), "DisplayItem.loadXml : request missing (X)");
  EXPECT_EQ(reasonOf("RequestName=''"), "DisplayItem.loadXml : requestName missing");
  EXPECT_EQ(reasonOf(""), "DisplayItem.loadXml : requestName missing");
  EXPECT_EQ(reasonOf("RequestName='R' DataName='U'"),
            "DisplayItem.loadXml : request/data missing (R/U)");
  EXPECT_EQ(reasonOf("RequestName='R' DataName=''"),
            "DisplayItem.loadXml : dataName or requestName missing");
  EXPECT_EQ(reasonOf("DataName='A'"), "DisplayItem.loadXml : dataName or requestName missing");
}

TEST(DisplayRead, RaisedTextsAreTheShortOnes) {
  WithScreens ecu(inScreen(""));
  const auto raised = [&](const std::string& attributes) {
    DisplayItem item;
    item.parent = &ecu.screen();
    item.loadXml(ecu.db, Fragment("<Display " + attributes + "><Threshold Value='1'/></Display>"));
    EXPECT_EQ(item.RangeItems, nullptr) << "the ranges are skipped";
    const Failure error = ecu.db.loading().pending.error();
    return std::to_string(error.number) + " " + error.source + " " + error.text;
  };
  EXPECT_EQ(raised("RequestName='X'"), "1 DisplayItem.loadXml request missing");
  EXPECT_EQ(raised(""), "1 DisplayItem.loadXml requestName missing");
  EXPECT_EQ(raised("DataName='A' RequestName='X'"), "1 DisplayItem.loadXml request/data missing");
  EXPECT_EQ(raised("DataName='A'"), "1 DisplayItem.loadXml requestName/dataName missing");
}

TEST(DisplayRead, FontSizeIsRoundedToAnInteger) {
  WithScreens ecu(inScreen("<Display RequestName='Q'><Font Size='8,5'/></Display>"
                           "<Display RequestName='Q'><Font Size='9.5'/></Display>"));
  EXPECT_EQ(ecu.display(1).FontSize, 8) << "ties to even";
  EXPECT_EQ(ecu.display(2).FontSize, 10);
}

TEST(DisplayData, DataPositionGivesNoneOnAnyFailure) {
  WithScreens ecu(inScreen("<Display DataName='A' RequestName='R'/>"));
  DisplayDataItem& data = *ecu.display().DisplayDataItem;
  data.requestName = "X";
  EXPECT_EQ(data.DataPosition(), nullptr);
  data.requestName = "Q";
  EXPECT_EQ(data.DataPosition(), nullptr);
  data.requestName = "R";
  data.dataName = "X";
  EXPECT_EQ(data.DataPosition(), nullptr);
  data.setDataPosition(ecu.target().Requests()->Item(1)->DataPositions->ItemName("P"));
  EXPECT_EQ(data.dataName + data.requestName, "PR");
  data.setDataPosition(nullptr);
  EXPECT_EQ(data.dataName + data.requestName, "PR");
  data.parent = nullptr;
  EXPECT_EQ(data.DataPosition(), nullptr);
}

// Ranges

TEST(Range, WithoutColourHas255) {
  WithScreens ecu(inScreen("<Display RequestName='Q'><Threshold Value=' .5'/><Threshold Color='x'/>"
                           "<Threshold Color='7' Value='2,5'/></Display>"));
  const RangeItems& ranges = *ecu.display().RangeItems;
  EXPECT_EQ(ranges.Item(1)->Couleur, 255);
  EXPECT_EQ(ranges.Item(1)->Seuil, 0.5);
  EXPECT_EQ(ranges.Item(2)->Couleur, 255);
  EXPECT_EQ(ranges.Item(3)->Couleur, 7);
  EXPECT_EQ(ranges.Item(3)->Seuil, 2.0);
  EXPECT_FALSE(ranges.Item(1)->SonFlag);
}

TEST(Range, SoundByNumberAndByName) {
  WithScreens ecu(
      inScreen("<Display RequestName='Q'><Threshold><Sound Name='440'/></Threshold>"
               "<Threshold><Sound Name='beep'/></Threshold><Threshold><Sound/></Threshold>"
               "<Threshold><Sound Name='99999999999'/></Threshold>"
               "</Display>"));
  const RangeItems& ranges = *ecu.display().RangeItems;
  EXPECT_EQ(ranges.Item(1)->Son(), 440);
  EXPECT_TRUE(ranges.Item(1)->SonFlag);
  EXPECT_EQ(ranges.Item(2)->Son(), 0);
  EXPECT_EQ(ranges.Item(2)->SoundName(), "beep");
  EXPECT_TRUE(ranges.Item(2)->SonFlag);
  EXPECT_FALSE(ranges.Item(3)->SonFlag);
  EXPECT_EQ(ranges.Item(4)->Son(), 440);
  EXPECT_EQ(ranges.Item(4)->SoundName(), "99999999999");
  EXPECT_EQ(fragmentOf(*ranges.Item(1), "Threshold"),
            "<Threshold Value=\" 0\" Color=\"255\">\n<Sound Name=\"440\"/></Threshold>");
}

TEST(Range, SoundAndItsNameAreCoupled) {
  RangeItem item;
  item.setSon(-5);
  EXPECT_EQ(item.SoundName(), "-5");
  item.setSoundName("12");
  EXPECT_EQ(item.Son(), 12);
  item.setSoundName("x");
  EXPECT_EQ(item.Son(), 0);
  EXPECT_EQ(item.SoundName(), "x");
}

TEST(ScreenClear, GoesDownToTheSteps) {
  WithScreens ecu(inScreen("<Button Text='B'><Send RequestName='R'/></Button>"
                           "<Display RequestName='Q'><Threshold/></Display>"));
  const auto scenario = ecu.screen().ButtonItems->Item(2)->ScenarioItems;
  const auto ranges = ecu.display().RangeItems;
  const auto screen = ecu.category().Screens->shared(&ecu.screen());
  ecu.category().Screens->deleteItem("S");
  EXPECT_EQ(scenario->Count(), 0);
  EXPECT_EQ(ranges->Count(), 0);
  EXPECT_EQ(screen->parent, nullptr);
  EXPECT_EQ(screen->screenName, "S");
}

} // namespace
} // namespace kelmar::testing
