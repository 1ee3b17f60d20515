// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "uce_datas_fixture.h"

#include "controls/colours.h"
#include "editors/data_description.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;

TEST_F(UceDatasPage, ShowsTheSortedListAndItsFirstData) {
  EXPECT_EQ(names(), "Level,Speed,State,");
  EXPECT_EQ(caption(), "Level");
  EXPECT_EQ(shown("lblInfo"), "3 data");
  EXPECT_TRUE(control<QPushButton>(*page, "cmdSelectUnit").isEnabled());
}

TEST_F(UceDatasPage, TypingMarksOnceAndValidWritesTheData) {
  type(field("TextMnemo"), "LVL");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
  EXPECT_EQ(the("Level").Mnemo, "");
  key("valid");
  EXPECT_EQ(the("Level").Mnemo, "LVL");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
  type(field("TextMnemo"), "x");
  press(field("TextMnemo"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnChange()", "UceDatas1.OnSave(true)"}));
}

TEST_F(UceDatasPage, CancelShowsTheDataAgain) {
  retype(field("TextCoeffA"), "2,5");
  press(field("TextCoeffA"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(field("TextCoeffA").text(), "1");
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnChange()", "UceDatas1.OnCancel()"}));
}

TEST_F(UceDatasPage, CancelIsThereOnlyWhileSomethingIsPending) {
  EXPECT_FALSE(isUsable("cancel"));
  type(field("TextMnemo"), "M");
  EXPECT_TRUE(isUsable("cancel"));
  key("valid");
  EXPECT_FALSE(isUsable("cancel"));
  recorder.take();
  press(field("TextMnemo"), Qt::Key_Z, Qt::ControlModifier);
  press(list(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(field("TextMnemo").text(), "M") << "what was validated is not undone by the field";
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceDatasPage, CancelDropsAValueThatIsBeingTypedAndTellsNothing) {
  page->setEditDataName("State");
  recorder.take();
  auto& label = control<QLineEdit>(values(), "ValText");
  type(label, "Five");
  EXPECT_TRUE(isUsable("cancel"));
  press(label, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(label.text(), "");
  EXPECT_FALSE(isUsable("cancel"));
  EXPECT_EQ(recorder.take(), Events{}) << "the file was not modified by it";
}

TEST_F(UceDatasPage, TextsOfAnyLengthComeBackWhole) {
  const std::string text(40000, 'x');
  the("Level").Mnemo = the("Level").Unite = the("Level").DataFormat = text;
  the("Level").Description = text;
  showAgain();
  press(usable<QCheckBox>(*page, "CheckSigne"), Qt::Key_Space);
  key("valid");
  for (const std::string& kept :
       {the("Level").Mnemo, the("Level").Unite, the("Level").DataFormat, the("Level").Description})
    EXPECT_EQ(kept.size(), text.size());
}

TEST_F(UceDatasPage, ACoefficientOutOfSightDoesNotStopTheValidation) {
  retype(field("TextCoeffA"), "two");
  click(usable<QRadioButton>(*page, "OPtypeNotNumeric"));
  key("valid");
  EXPECT_FALSE(the("Level").numerique);
  EXPECT_EQ(the("Level").CoeffA.value(), 1);
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, ADivisorOfZeroStopsTheValidationAndStaysMarked) {
  type(field("TextMnemo"), "M");
  retype(field("TextCoeffC"), "0");
  recorder.take();
  expectZeroDivisor();
  key("valid");
  EXPECT_EQ(the("Level").Mnemo, "M");
  const std::string told =
      "box Check value: The value of C Coefficient must be different from Zero";
  EXPECT_EQ(recorder.take(), (Events{told, "UceDatas1.OnSave(false)", "UceDatas1.OnChange()"}))
      << "what came before it is in the data, the rest is still to come";
  expectZeroDivisor();
  key("valid");
  EXPECT_EQ(recorder.take(), Events{told}) << "nothing new reached the data";
  expectConfirmation(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceDatasPage, AnotherRowAsksAndYesWritesTheData) {
  type(field("TextDescription"), "Fuel");
  recorder.take();
  expectConfirmation(Answer::Yes);
  clickRow(list(), 1);
  EXPECT_EQ(the("Level").Description, "Fuel");
  EXPECT_EQ(caption(), "Speed");
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, TheTypeChoosesTheFormAndCarriesTheSize) {
  auto& bits = control<ZEMnumeric>(*page, "NumericNumberBits");
  bits.setvalue(12);
  click(usable<QRadioButton>(*page, "OPtypeNumericList"));
  EXPECT_EQ(control<ZEMnumeric>(*page, "ListeNumberBits").value(), 12);
  key("valid");
  EXPECT_TRUE(the("Level").liste);
  EXPECT_EQ(the("Level").NumberBits, 12);
}

TEST_F(UceDatasPage, TheValueListReachesTheDataOnlyWithIt) {
  page->setEditDataName("State");
  auto& rows = control<ListView>(values(), "LVmain");
  EXPECT_EQ(rowsAsText(rows.rows()), "0 | Off ($00)\n1 | On ($01)\n");
  control<ZEMnumeric>(values(), "ValRange").setvalue(5);
  retype(control<QLineEdit>(values(), "ValText"), "Five");
  click(usable<QPushButton>(values(), "CBaddNew"));
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
  EXPECT_EQ(the("State").DataListes->Count(), 2);
  key("valid");
  EXPECT_EQ(the("State").DataListes->Count(), 3);
}

TEST_F(UceDatasPage, OutOfSightNoRowPointsToAnItemThatMayBeGone) {
  clickRow(list(), 1);
  page->hide();
  EXPECT_EQ(list().rows().rowCount(), 0);
  // The ECU of another file, the first one is gone.
  database.ActiveTarget = newEcu({"Speed", "Flow"});
  page->setEditDataName("Level");
  EXPECT_EQ(page->EditDataName(), "Level");
  page->setEditDataName("Speed");
  page->setLang("en");
  page->show();
  page->displayDatas(database, "");
  EXPECT_EQ(names(), "Flow,Speed,");
  EXPECT_EQ(caption(), "Speed");
}

TEST_F(UceDatasPage, ItComesBackToTheDataThatWasShown) {
  clickRow(list(), 1);
  page->hide();
  showToUser(*page);
  page->displayDatas(database, "");
  EXPECT_EQ(caption(), "Speed");
  EXPECT_EQ(page->focusWidget(), &list());
}

TEST_F(UceDatasPage, EveryFieldReachesItsPropertyWithValid) {
  retype(field("TextMnemo"), "LVL");
  retype(field("TextDescription"), "Level of the tank");
  retype(field("TextUnite"), "mm");
  retype(field("TextFormat"), "bin");
  retype(field("TextCoeffA"), "0,5");
  retype(field("TextCoeffB"), "-40");
  retype(field("TextCoeffC"), "10");
  retype(numberText("NumericNumberBits"), "12");
  press(usable<QCheckBox>(*page, "CheckSigne"), Qt::Key_Space);
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"}) << "marked once";
  key("valid");
  const DataItem& data = the("Level");
  EXPECT_EQ(data.Mnemo, "LVL");
  EXPECT_EQ(data.Description, "Level of the tank");
  EXPECT_EQ(data.Unite, "mm");
  EXPECT_EQ(data.DataFormat, "bin");
  EXPECT_EQ(data.CoeffA.value(), 0.5);
  EXPECT_EQ(data.CoeffB.value(), -40);
  EXPECT_EQ(data.CoeffC.value(), 10);
  EXPECT_EQ(data.NumberBits, 12);
  EXPECT_TRUE(data.Signe);
  EXPECT_TRUE(data.numerique && !data.liste);
  EXPECT_EQ(rowsAsText(list().rows()).substr(0, 45),
            "[numeric] Level | LVL | Level of the tank\n[nu");
}

TEST_F(UceDatasPage, AFieldThatSaysTheSameDoesNotMarkThePage) {
  retype(field("TextCoeffA"), "1,0");
  retype(field("TextCoeffB"), "0.00");
  retype(numberText("NumericNumberBits"), "8");
  EXPECT_EQ(recorder.take(), Events{});
  retype(numberText("NumericNumberBits"), "9");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
}

TEST_F(UceDatasPage, APageThatGoesWhileANumberIsTypedIsSilent) {
  retype(numberText("NumericNumberBits"), "9");
  recorder.take();
  page.reset();
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceDatasPage, NotNumericHoldsWholeBytesAndTheKindOfText) {
  click(usable<QRadioButton>(*page, "OPtypeNotNumeric"));
  retype(numberText("NotNumericNumberBytes"), "17");
  QRadioButton* ascii = nullptr;
  for (auto* button : page->findChildren<QRadioButton*>("RBascii"))
    if (button->property("index") == 0) ascii = button;
  ASSERT_TRUE(ascii);
  EXPECT_EQ(ascii->text(), "ASCII");
  press(*ascii, Qt::Key_Space);
  key("save");
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnChange()", "UceDatas1.OnSave(true)"}));
  EXPECT_EQ(the("Level").NumberBits, 136);
  EXPECT_FALSE(the("Level").numerique || the("Level").liste);
  EXPECT_TRUE(the("Level").Ascii);
  EXPECT_EQ(list().rows().lookOf(&the("Level")).icon, "ascii");
}

TEST_F(UceDatasPage, GoingBackFromTheListTakesItsSizeAndSign) {
  click(usable<QRadioButton>(*page, "OPtypeNumericList"));
  retype(numberText("ListeNumberBits"), "5");
  press(usable<QCheckBox>(*page, "CheckSignedList"), Qt::Key_Space);
  click(usable<QRadioButton>(*page, "OPtypeNumeric"));
  EXPECT_EQ(number("NumericNumberBits").value(), 5);
  EXPECT_TRUE(control<QCheckBox>(*page, "CheckSigne").isChecked());
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
}

TEST_F(UceDatasPage, ATypedNumberOfBitsStaysBetween1And32) {
  retype(numberText("NumericNumberBits"), "40");
  press(numberText("NumericNumberBits"), Qt::Key_Tab);
  EXPECT_EQ(number("NumericNumberBits").value(), 32);
  retype(numberText("NumericNumberBits"), "0");
  key("valid");
  EXPECT_EQ(the("Level").NumberBits, 1);
}

TEST_F(UceDatasPage, ANumberOfAFileThatCouldNotBeTypedIsShownAndKept) {
  the("Level").NumberBits = 40;
  the("Speed").numerique = false;
  the("Speed").NumberBits = 12;
  showAgain();
  EXPECT_EQ(numberText("NumericNumberBits").text(), "40");
  press(numberText("NumericNumberBits"), Qt::Key_Tab);
  EXPECT_EQ(recorder.take(), Events{}) << "walking through a field changes nothing";
  key("valid");
  EXPECT_EQ(the("Level").NumberBits, 40);
  clickRow(list(), 1);
  EXPECT_EQ(number("NotNumericNumberBytes").value(), 1.5);
  key("valid");
  EXPECT_EQ(the("Speed").NumberBits, 12);
}

TEST_F(UceDatasPage, ADivisorOfZeroInTheFileIsTold) {
  EXPECT_FALSE(control<QLabel>(*page, "labCoefC").isVisible());
  the("Level").CoeffC = 0.0;
  showAgain();
  EXPECT_TRUE(control<QLabel>(*page, "labCoefC").isVisible());
  EXPECT_EQ(shown("labCoefC"), "C must be different from 0");
  retype(field("TextCoeffC"), "2");
  key("valid");
  EXPECT_FALSE(control<QLabel>(*page, "labCoefC").isVisible());
}

TEST_F(UceDatasPage, YesWithADivisorOfZeroKeepsWhatCameBeforeIt) {
  type(field("TextMnemo"), "M");
  retype(field("TextCoeffC"), "0");
  retype(field("TextDescription"), "not taken");
  expectConfirmation(Answer::Yes);
  expectZeroDivisor();
  recorder.take();
  EXPECT_TRUE(page->TestAndConfirmChange()) << "what came before is in the data";
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)") << "and the tab loses its mark";
  EXPECT_EQ(the("Level").Mnemo, "M");
  EXPECT_EQ(the("Level").Description, "");
  EXPECT_EQ(field("TextDescription").text(), "") << "the fields show what the data has";
  EXPECT_FALSE(page->TestAndConfirmChange()) << "the mark is cleared, nothing is asked again";
}

TEST_F(UceDatasPage, YesWithACoefficientThatIsNoNumberKeepsAllOthers) {
  retype(field("TextCoeffA"), "two");
  retype(field("TextCoeffC"), "4");
  retype(field("TextDescription"), "Fuel");
  recorder.take();
  expectConfirmation(Answer::Yes);
  person.expect("GENERIC/error/text", "Error", "Error # 13\r\nType mismatch", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  clickRow(list(), 1);
  EXPECT_EQ(the("Level").CoeffA.value(), 1);
  EXPECT_EQ(the("Level").CoeffC.value(), 4);
  EXPECT_EQ(the("Level").Description, "Fuel");
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
  EXPECT_EQ(caption(), "Speed");
}

TEST_F(UceDatasPage, AValueBeingTypedIsAskedForWhenAnotherDataIsChosen) {
  page->setEditDataName("State");
  auto& rows = control<ListView>(values(), "LVmain");
  clickRow(rows, 1);
  retype(control<QLineEdit>(values(), "ValText"), "Running");
  EXPECT_EQ(recorder.take(), Events{}) << "it is not in the list yet";
  expectValueQuestion(Answer::Yes);
  expectConfirmation(Answer::Yes);
  clickRow(list(), 0);
  EXPECT_EQ(the("State").DataListes->ItemValue(1)->libelle, "Running");
  EXPECT_EQ(caption(), "Level");

  page->setEditDataName("State");
  clickRow(rows, 1);
  retype(control<QLineEdit>(values(), "ValText"), "Never");
  expectValueQuestion(Answer::No);
  recorder.take();
  page->setEditDataName("Level");
  EXPECT_EQ(recorder.take().size(), 1u) << "nothing else is left to ask";
  EXPECT_EQ(the("State").DataListes->ItemValue(1)->libelle, "Running");
}

TEST_F(UceDatasPage, AValueTypedForAdditionIsAskedForWhenThePageIsLeft) {
  page->setEditDataName("State");
  retype(control<QLineEdit>(number("ValRange"), "TextNum"), "5");
  retype(control<QLineEdit>(values(), "ValText"), "Five");
  expectValueQuestion(Answer::Yes);
  expectConfirmation(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(the("State").DataListes->ItemValue(5)->libelle, "Five");
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceDatasPage, AValueThatIsRefusedLetsTheValidationWait) {
  page->setEditDataName("State");
  clickRow(control<ListView>(values(), "LVmain"), 1);
  retype(control<QLineEdit>(values(), "ValText"), "Off");
  type(field("TextMnemo"), "S");
  expectValueQuestion(Answer::Yes);
  person.expect("DATALIST/MSG/changeItem/labelAlreadyExistsError/text", "Input error",
                "Label Off already exists.\r\nOld : 0=Off", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  key("valid");
  EXPECT_EQ(control<QLineEdit>(values(), "ValText").text(), "Off") << "it can be mended";
  EXPECT_EQ(the("State").Mnemo, "");
  retype(control<QLineEdit>(values(), "ValText"), "Running");
  expectValueQuestion(Answer::Yes);
  key("valid");
  EXPECT_EQ(the("State").Mnemo, "S");
  EXPECT_EQ(the("State").DataListes->ItemValue(1)->libelle, "Running");
}

TEST_F(UceDatasPage, ADeclinedValueIsNoLongerInTheFields) {
  page->setEditDataName("State");
  clickRow(control<ListView>(values(), "LVmain"), 1);
  retype(control<QLineEdit>(values(), "ValText"), "Running");
  type(field("TextMnemo"), "S");
  expectValueQuestion(Answer::No);
  key("valid");
  EXPECT_EQ(control<QLineEdit>(values(), "ValText").text(), "On");
  EXPECT_EQ(the("State").DataListes->ItemValue(1)->libelle, "On");
  EXPECT_EQ(the("State").Mnemo, "S");
}

TEST_F(UceDatasPage, ACoefficientThatIsNoNumberIsRedAndTakesTheFocus) {
  retype(field("TextCoeffB"), "two");
  EXPECT_EQ(field("TextCoeffB").palette().color(QPalette::Text), QColor(255, 0, 0));
  person.expect("GENERIC/error/text", "Error", "Error # 13\r\nType mismatch", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("valid");
  EXPECT_TRUE(field("TextCoeffB").hasFocus());
  key("cancel");
  EXPECT_EQ(field("TextCoeffB").palette().color(QPalette::Text), QColor(0, 0, 0));
}

TEST_F(UceDatasPage, FaultsStayReadableInADarkPalette) {
  the("Level").CoeffC = 0.0;
  showAgain();
  QPalette dark = page->palette();
  for (const auto role : {QPalette::Base, QPalette::Window})
    dark.setColor(role, QColor(30, 30, 30));
  for (const auto role : {QPalette::Text, QPalette::WindowText})
    dark.setColor(role, Qt::white);
  page->setPalette(dark);
  const QColor red = control<QLabel>(*page, "labCoefC").palette().color(QPalette::WindowText);
  EXPECT_EQ(red, readableOn(dark, QColor(255, 0, 0)));
  EXPECT_NE(red, QColor(255, 0, 0));
  EXPECT_EQ(field("TextCoeffA").palette().color(QPalette::Text), QColor(Qt::white));
}

TEST_F(UceDatasPage, An32BitDataWithoutSignIsListedInRedAndASignedOneIsNot) {
  the("Level").NumberBits = 32;
  the("Speed").NumberBits = 32;
  the("Speed").Signe = true;
  the("State").NumberBits = 0;
  add("Blank ");
  showAgain();
  EXPECT_EQ(rowsAsText(list().rows()),
            "[numeric] Blank  |  |  ! #0000FF (Error: Name with leading or training space)\n"
            "[numeric] Level |  |  ! #0000FF (Error: Unsigned 32 bits data is not supported)\n"
            "[numeric] Speed |  | \n"
            "[list] State |  |  ! #0000FF (Error: Invalid bit count: 0 - authorized value [1 up to "
            "32])\n");
}

TEST_F(UceDatasPage, ADescriptionOfSeveralLinesIsKeptUntilItIsTypedOver) {
  the("Level").Description = "one\r\ntwo";
  showAgain();
  EXPECT_EQ(field("TextDescription").text(), "one two");
  EXPECT_EQ(list().rows().textOf(&the("Level"), 2), "one two") << "a row has one line";
  type(field("TextMnemo"), "M");
  key("valid");
  EXPECT_EQ(the("Level").Description, "one\r\ntwo");
  retype(field("TextDescription"), "three");
  key("valid");
  EXPECT_EQ(the("Level").Description, "three");
}

TEST_F(UceDatasPage, AnItemOfTheValueListThatIsStillInItsFieldsIsAskedForBeforeTheDataIsTaken) {
  page->setEditDataName("State");
  auto& rows = control<ListView>(values(), "LVmain");
  clickRow(rows, 1);
  retype(control<QLineEdit>(values(), "ValText"), "Running");
  type(field("TextMnemo"), "S");
  expectValueQuestion(Answer::Yes);
  key("valid");
  EXPECT_EQ(the("State").DataListes->ItemValue(1)->libelle, "Running");
}

TEST_F(UceDatasPage, CancelBringsBackTheValueListOfTheData) {
  page->setEditDataName("State");
  auto& rows = control<ListView>(values(), "LVmain");
  press(rows, Qt::Key_A, Qt::ControlModifier);
  person.expect("DATALIST/MSG/CutRange/text", "Confirm delete",
                "Do you really want to delete this selected items ?", Buttons::YesNo,
                Icon::Question, Answer::Yes);
  press(rows, Qt::Key_Delete);
  EXPECT_EQ(rows.rows().rowCount(), 0);
  key("cancel");
  EXPECT_EQ(rows.rows().rowCount(), 2);
  EXPECT_EQ(the("State").DataListes->Count(), 2);
}

TEST_F(UceDatasPage, WithoutDataTheFieldsAreEmptyAndTheCommandsAsleep) {
  database.ActiveTarget = newEcu({});
  page->displayDatas(database, "");
  EXPECT_EQ(shown("lblInfo"), "0 data");
  EXPECT_EQ(caption(), "");
  EXPECT_FALSE(control<QGroupBox>(*page, "FrameInfos").isEnabled());
  EXPECT_EQ(field("TextCoeffA").text(), "");
  for (const char* name : {"cancel", "valid", "save", "rename", "find", "cut", "copy"})
    EXPECT_FALSE(isUsable(name)) << name;
  for (const char* name : {"add", "paste", "help"})
    EXPECT_TRUE(isUsable(name)) << name;
  database.ActiveTarget = nullptr;
  page->displayDatas(database, "");
  for (const char* name : {"add", "paste"})
    EXPECT_FALSE(isUsable(name)) << name;
}

TEST_F(UceDatasPage, EveryFieldSaysWhatItIs) {
  for (const char* name :
       {"TextMnemo", "TextDescription", "TextUnite", "TextFormat", "TextCoeffA", "TextCoeffB",
        "TextCoeffC", "NumericNumberBits", "ListeNumberBits", "NotNumericNumberBytes"}) {
    const QWidget& named = controlNamed(*page, QLatin1String(name));
    bool labelled = false;
    for (const QLabel* label : page->findChildren<QLabel*>())
      labelled |= label->buddy() == &named && !label->text().isEmpty();
    EXPECT_TRUE(labelled) << name;
  }
  EXPECT_EQ(list().accessibleName(), "List of data");
  EXPECT_EQ(control<ZEMnumeric>(values(), "ValRange").accessibleName(), "Value");
  EXPECT_EQ(control<QLineEdit>(values(), "ValText").accessibleName(), "Text");
  EXPECT_EQ(control<ListView>(values(), "LVmain").accessibleName(), "Values");
}

TEST_F(UceDatasPage, TheTabulatorWalksThroughTheFieldsAsTheyStand) {
  field("TextMnemo").setFocus();
  std::string walked;
  for (int step = 0; step < 11; ++step) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QWidget* there = QApplication::focusWidget();
    if (there->objectName() == "TextNum") there = there->parentWidget();
    walked += u8(there->objectName()) + " ";
  }
  EXPECT_EQ(walked, "TextDescription DataDiagFiche OPtypeNumeric NumericNumberBits CheckSigne "
                    "TextUnite cmdSelectUnit TextCoeffA TextCoeffB TextCoeffC TextFormat ");
}

TEST_F(UceDatasPage, HelpOpensThePlaceOfTheFocus) {
  press(list(), Qt::Key_F1);
  press(field("TextMnemo"), Qt::Key_F1);
  key("help");
  choose("PopupRefHelp");
  EXPECT_EQ(recorder.take(), Events(4, "UceDatas1.help(data, )"));
  page->setEditDataName("State");
  press(control<ListView>(values(), "LVmain"), Qt::Key_F1);
  press(control<QLineEdit>(values(), "ValText"), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), Events(2, "UceDatas1.help(data, list)"));
}

TEST_F(UceDatasPage, TheUnitsMenuPutsTheSymbolIntoTheField) {
  click(usable<QPushButton>(*page, "cmdSelectUnit"));
  auto* menu = control<QPushButton>(*page, "cmdSelectUnit").findChild<QMenu*>("mnuUnits");
  ASSERT_TRUE(menu);
  ASSERT_EQ(menu->actions().size(), 14);
  EXPECT_EQ(menu->actions().at(0)->objectName(), "mnuUnitAlpha");
  EXPECT_EQ(menu->actions().at(1)->objectName(), "mnuUnitsCat0Unit");
  EXPECT_EQ(menu->actions().at(13)->objectName(), "mnuUnitsCat12Unit");
  QAction* metre = nullptr;
  for (QAction* unit : menu->actions().at(1)->menu<QMenu*>()->actions())
    if (unit->text().startsWith("• metre\t")) metre = unit;
  ASSERT_TRUE(metre);
  EXPECT_EQ(metre->text(), "• metre\tm");
  metre->trigger();
  menu->close();
  EXPECT_EQ(field("TextUnite").text(), "m");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
}

TEST_F(UceDatasPage, WithoutUnitsFileTheButtonIsAsleep) {
  UceDatas bare(person, "/nowhere");
  bare.InitControl();
  EXPECT_FALSE(control<QPushButton>(bare, "cmdSelectUnit").isEnabled());
}

TEST_F(UceDatasPage, ChangedDocumentationMarksThePage) {
  the("Level").Fiche = "plain";
  WhenDialogOpens open([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Data Level");
    retype(usable<QuietBrowser>(dialog, "rtbDescription"), "new");
    click(usable<QPushButton>(dialog, "OKButton"));
  });
  click(usable<QPushButton>(*page, "DataDiagFiche"));
  EXPECT_EQ(the("Level").Fiche, "new");
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnSave(false)", "UceDatas1.OnChange()"}))
      << "it is in the data, whatever becomes of the fields";
}

TEST_F(UceDatasPage, DocumentationThatStaysTheSameChangesNothing) {
  the("Level").Fiche = "plain";
  WhenDialogOpens open([&](QDialog& dialog) { click(usable<QPushButton>(dialog, "OKButton")); });
  click(usable<QPushButton>(*page, "DataDiagFiche"));
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceDatasPage, DocumentationThatHoldsAParagraphOpensInTheBrowserView) {
  the("Level").Fiche = "<P>text</P>";
  WhenDialogOpens open([&](QDialog& dialog) {
    EXPECT_EQ(usable<QuietBrowser>(dialog, "WebBrowser1").toPlainText().trimmed(), "text");
    EXPECT_FALSE(control<QuietBrowser>(dialog, "rtbDescription").isVisible());
    click(usable<QPushButton>(dialog, "CancelButton"));
  });
  click(usable<QPushButton>(*page, "DataDiagFiche"));
}

} // namespace
} // namespace kelmar
