// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/uce_edit_param.h"

#include "base/version.h"
#include "controls/zem_numeric.h"
#include "database/omnikor_lib_xml.h"
#include "desktop/qt_text.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace kelmar;
using namespace kelmar::support;
using desktop::u8;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

class UceEditParamPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceEditParam> page;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    database.NewTarget();
    database.functions = std::make_shared<FunctionItems>();
    database.functions->Add(122, "7A", "Engine");
    target().setName("Engine");
    target().setAddress(122);
    target().AutoIdents->Add(4, "OKN", "0A12", "0100", &target());
    parameters().Comment = "first\r\nsecond";
    page = std::make_unique<UceEditParam>(person);
    page->setObjectName("UceEditParam1");
    signalRecorder = std::make_unique<SignalRecorder>(*page, recorder);
    page->InitControl();
    page->resize(1220, 600);
    page->displayDatas(database, "");
    showToUser(*page);
    recorder.take();
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }
  TargetItem& target() { return *database.ActiveTarget; }
  TargetParamItem& parameters() { return *target().Parametres(); }
  QLineEdit& field(const char* name) { return control<QLineEdit>(*page, name); }
  QCheckBox& box(const char* name) { return control<QCheckBox>(*page, name); }
  QDateTimeEdit& date() { return control<QDateTimeEdit>(*page, "DateOfficia"); }
  std::string dateText() { return u8(date().text()); }
  QComboBox& list(const char* name) { return control<QComboBox>(*page, name); }
  ZEMnumeric& number(const char* name) { return control<ZEMnumeric>(*page, name); }
  QLineEdit& textOf(ZEMnumeric& number) { return control<QLineEdit>(number, "TextNum"); }
  std::string text(const char* name) { return u8(field(name).text()); }
  void key(const char* name) {
    click(usable<QToolButton>(control<QToolBar>(*page, "TBparam"), QLatin1String(name)));
  }
  void chooseProtocol(int code) {
    QComboBox& protocols = list("ComboTypeCom");
    protocols.setCurrentIndex(protocols.findData(code));
  }
  void showAgain() {
    page->DisplayParam(database);
    recorder.take();
  }
  std::size_t changes() {
    std::size_t count = 0;
    for (const std::string& event : recorder.take()) {
      EXPECT_EQ(event, "UceEditParam1.OnChange()");
      ++count;
    }
    return count;
  }
  void expectInvalid() {
    person.expect("PARAMS/MSG/invalidData/text", applicationTitle, "Input Error : Invalid data",
                  Buttons::Ok, Icon::Exclamation, Answer::Ok);
  }
  void expectQuestion(Answer answer) {
    person.expect("PARAMS/MSG/modifyParameters/text", "Confirm modification",
                  "Parameters changed, save change ?", Buttons::YesNo, Icon::Question, answer);
  }
};

TEST_F(UceEditParamPage, ShowsTheParametersOfTheEcu) {
  EXPECT_EQ(u8(control<QPlainTextEdit>(*page, "Comment").toPlainText()), "first\nsecond");
  EXPECT_EQ(u8(list("ComboTypeCom").currentText()), "KWP2000 FastInit MonoPoint");
  EXPECT_EQ(list("ComboTypeCom").currentData().toInt(), 4);
  EXPECT_EQ(text("KW1"), "D0");
  EXPECT_EQ(text("KW2"), "8F");
  EXPECT_EQ(text("TextFakra"), "2000");
  EXPECT_EQ(u8(list("ComboTypePanne").currentText()), "No failures");
  EXPECT_FALSE(box("CheckOfficia").isChecked());
  EXPECT_FALSE(control<QDateTimeEdit>(*page, "DateOfficia").isEnabled());
  EXPECT_EQ(control<QDateTimeEdit>(*page, "DateOfficia").displayFormat(), "dd/MM/yyyy HH:mm:ss");
  EXPECT_EQ(recorder.take(), Events{});
  keepPicture(*page, "uce_edit_param");
}

TEST_F(UceEditParamPage, EveryFieldChangeIsTold) {
  type(field("txtEmail"), "ab");
  EXPECT_EQ(changes(), 2u);
  type(control<QPlainTextEdit>(*page, "Comment"), "x");
  EXPECT_EQ(changes(), 1u);
  type(field("TextReprog"), "B");
  EXPECT_EQ(changes(), 1u);
  click(usable<QCheckBox>(*page, "CheckOfficia"));
  EXPECT_EQ(changes(), 1u);
  press(control<QDateTimeEdit>(*page, "DateOfficia"), Qt::Key_Up);
  EXPECT_EQ(changes(), 1u);
  press(list("ComboTypePanne"), Qt::Key_Down);
  EXPECT_EQ(changes(), 1u);
  press(list("ComboTypeCom"), Qt::Key_Up);
  EXPECT_EQ(changes(), 1u);
  type(field("KW1"), "1");
  EXPECT_EQ(changes(), 1u);
  for (QRadioButton* option : page->findChildren<QRadioButton*>("TypeCodage"))
    if (!option->isChecked()) {
      click(*option);
      break;
    }
  EXPECT_EQ(changes(), 1u);
  chooseProtocol(9);
  recorder.take();
  type(field("txIPAddress"), "1");
  type(field("txMACAddress"), "1");
  click(usable<QCheckBox>(*page, "CheckCGWIP"));
  EXPECT_EQ(changes(), 3u);
}

TEST_F(UceEditParamPage, EveryFieldChangeOfThePanelsIsTold) {
  type(field("KW2"), "1");
  EXPECT_EQ(changes(), 1u);
  for (const char* name :
       {"BaudRate", "ErrorDelay", "FirstRequest", "InterByte", "KW2", "KW2Timeout",
        "ReplyToRequest", "RequestToReplyTimeout", "TesterPresent"}) {
    click(usable<QCheckBox>(*page, QStringLiteral("Check") + QLatin1String(name)));
    EXPECT_EQ(changes(), 1u) << name;
    type(control<QLineEdit>(*page, QStringLiteral("Text") + QLatin1String(name)), "1");
    EXPECT_EQ(changes(), 1u) << name;
  }
  chooseProtocol(5);
  recorder.take();
  click(usable<QCheckBox>(*page, "CheckCGW"));
  EXPECT_EQ(changes(), 1u);
  press(list("ComboMaxDataLangthCANFD"), Qt::Key_Up);
  EXPECT_EQ(changes(), 1u);
  type(textOf(number("canXid")), "7");
  EXPECT_EQ(changes(), 1u);
  click(usable<QCheckBox>(*page, "canXidExtented"));
  EXPECT_EQ(changes(), 1u);
  chooseProtocol(8);
  recorder.take();
  press(list("ComboBaudRate"), Qt::Key_Up);
  EXPECT_EQ(changes(), 1u);
}

TEST_F(UceEditParamPage, PanelsFollowTheProtocol) {
  const auto shown = [&] {
    std::string names;
    for (const char* name :
         {"FrCan", "FrCanBaud", "FrIP", "Timing", "UceAutoIdents1", "Frame1", "CheckCGW",
          "LabelCGW", "CheckCGWIP", "LabelCGWIP", "LbMaxDataLangthCANFD", "ComboMaxDataLangthCANFD",
          "LbBytesCANFD", "LbBaudRateCANFD"})
      if (controlNamed(*page, name).isVisible()) names += std::string(name) + " ";
    return names;
  };
  chooseProtocol(5);
  EXPECT_EQ(u8(control<QGroupBox>(*page, "FrCan").title()), "DiagOnCanFD");
  EXPECT_EQ(shown(), "FrCan UceAutoIdents1 CheckCGW LabelCGW LbMaxDataLangthCANFD "
                     "ComboMaxDataLangthCANFD LbBytesCANFD LbBaudRateCANFD ");
  keepPicture(*page, "uce_edit_param_canfd");
  chooseProtocol(7);
  EXPECT_EQ(u8(control<QGroupBox>(*page, "FrCan").title()), "DiagOnCan");
  EXPECT_EQ(shown(), "FrCan UceAutoIdents1 CheckCGW LabelCGW ");
  chooseProtocol(8);
  EXPECT_EQ(shown(), "FrCanBaud UceAutoIdents1 ");
  chooseProtocol(9);
  EXPECT_EQ(shown(), "FrIP UceAutoIdents1 CheckCGWIP LabelCGWIP ");
  keepPicture(*page, "uce_edit_param_ip");
  for (const int code : {1, 2, 3, 4, 6}) {
    chooseProtocol(code);
    EXPECT_EQ(shown(), "Timing UceAutoIdents1 Frame1 ") << code;
  }
}

TEST_F(UceEditParamPage, DefaultsAreLockedUntilTheirBoxIsChecked) {
  for (const char* name :
       {"BaudRate", "ErrorDelay", "FirstRequest", "InterByte", "KW2", "KW2Timeout",
        "ReplyToRequest", "RequestToReplyTimeout", "TesterPresent"}) {
    QCheckBox& check = usable<QCheckBox>(*page, QStringLiteral("Check") + QLatin1String(name));
    QLineEdit& number = control<QLineEdit>(*page, QStringLiteral("Text") + QLatin1String(name));
    EXPECT_EQ(u8(check.toolTip()), "Check the box to change the default value");
    EXPECT_FALSE(check.isChecked()) << name;
    EXPECT_FALSE(number.isEnabled()) << name;
    const QString standing = number.text();
    click(check);
    retype(number, "77");
    click(check);
    EXPECT_EQ(number.text(), standing) << name;
    EXPECT_FALSE(number.isEnabled()) << name;
  }
  parameters().TesterPresentDelay = 2000;
  showAgain();
  EXPECT_TRUE(box("CheckTesterPresent").isChecked());
  EXPECT_TRUE(field("TextTesterPresent").isEnabled());
  EXPECT_EQ(text("TextTesterPresent"), "2000");
}

TEST_F(UceEditParamPage, ABadNumberHoldsTheField) {
  click(usable<QCheckBox>(*page, "CheckInterByte"));
  retype(field("TextInterByte"), "12x");
  expectInvalid();
  press(field("TextInterByte"), Qt::Key_Tab);
  EXPECT_TRUE(waitUntil([&] { return person.allAsked() && field("TextInterByte").hasFocus(); }));
  EXPECT_EQ(text("TextInterByte"), "12x");
  retype(field("TextInterByte"), "12");
  press(field("TextInterByte"), Qt::Key_Tab);
  EXPECT_FALSE(field("TextInterByte").hasFocus());
  QTest::qWait(20);
}

TEST_F(UceEditParamPage, TheBoxOfABadNumberBringsTheDefaultBack) {
  QCheckBox& check = usable<QCheckBox>(*page, "CheckInterByte");
  click(check);
  retype(field("TextInterByte"), "12x");
  QTest::mousePress(&check, Qt::LeftButton);
  QCoreApplication::processEvents();
  QTest::mouseRelease(&check, Qt::LeftButton);
  EXPECT_FALSE(check.isChecked());
  EXPECT_EQ(text("TextInterByte"), "0");
}

TEST_F(UceEditParamPage, ABadNumberHoldsItsBoxToo) {
  click(usable<QCheckBox>(*page, "CheckInterByte"));
  retype(field("TextInterByte"), "12x");
  press(field("TextInterByte"), Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(box("CheckInterByte").hasFocus());
  expectInvalid();
  press(box("CheckInterByte"), Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(waitUntil([&] { return person.allAsked() && field("TextInterByte").hasFocus(); }));
}

TEST_F(UceEditParamPage, ABadNumberIsNotSaved) {
  click(usable<QCheckBox>(*page, "CheckKW2"));
  retype(field("TextKW2"), "");
  type(field("TextKW2"), "many");
  recorder.take();
  expectInvalid();
  key("save");
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_EQ(parameters().KW2Delay, 25);
  EXPECT_TRUE(field("TextKW2").hasFocus());
  retype(field("TextKW2"), "30");
  recorder.take();
  press(field("TextKW2"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(parameters().KW2Delay, 30);
}

TEST_F(UceEditParamPage, NothingReachesTheEcuBeforeSave) {
  retype(field("txtEmail"), "a@b.example");
  retype(field("KW1"), "E9");
  EXPECT_EQ(text("TextFakra"), "2025");
  EXPECT_EQ(target().Email(), "");
  EXPECT_EQ(parameters().key1, 208);
  recorder.take();
  key("save");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(target().Email(), "a@b.example");
  EXPECT_EQ(parameters().key1, 0xE9);
  EXPECT_EQ(parameters().Comment, "first\r\nsecond");
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceEditParamPage, ACommentKeepsItsNoBreakSpaces) {
  parameters().Comment = "a\u00A0:\r\n b";
  showAgain();
  key("save");
  EXPECT_EQ(parameters().Comment, "a\u00A0:\r\n b");
  auto& comment = control<QPlainTextEdit>(*page, "Comment");
  comment.moveCursor(QTextCursor::End);
  QTest::keyClicks(&comment, "c");
  key("save");
  EXPECT_EQ(parameters().Comment, "a\u00A0:\r\n bc");
}

TEST_F(UceEditParamPage, CancelShowsTheEcuAgain) {
  retype(field("txtEmail"), "a@b.example");
  chooseProtocol(9);
  recorder.take();
  press(field("txtEmail"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnCancel()"}));
  EXPECT_EQ(text("txtEmail"), "");
  EXPECT_EQ(list("ComboTypeCom").currentData().toInt(), 4);
  EXPECT_TRUE(controlNamed(*page, "Timing").isVisible());
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceEditParamPage, LeavingAsksOnlyAfterAChange) {
  EXPECT_FALSE(page->TestAndConfirmChange());
  retype(field("txtEmail"), "x");
  recorder.take();
  expectQuestion(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnCancel()"}));
  EXPECT_EQ(target().Email(), "");
  retype(field("txtEmail"), "y");
  recorder.take();
  expectQuestion(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(target().Email(), "y");
}

TEST_F(UceEditParamPage, DroppedChangesAreGoneFromTheScreen) {
  chooseProtocol(7);
  retype(textOf(number("canXid")), "FFF");
  recorder.take();
  expectQuestion(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
  page->hide();
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnCancel()"}));
  EXPECT_EQ(list("ComboTypeCom").currentData().toInt(), 4);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceEditParamPage, LeavingWithABadNumberKeepsAllButThatOne) {
  click(usable<QCheckBox>(*page, "CheckErrorDelay"));
  retype(field("txtEmail"), "x");
  retype(field("TextErrorDelay"), "?");
  expectQuestion(Answer::Yes);
  expectInvalid();
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(target().Email(), "x");
  EXPECT_EQ(parameters().ErrorDelay, 300);
}

TEST_F(UceEditParamPage, ASaveShowsWhatIsStored) {
  retype(field("KW1"), "");
  retype(field("KW2"), "e9");
  click(usable<QCheckBox>(*page, "CheckInterByte"));
  retype(field("TextInterByte"), "1.5");
  click(usable<QCheckBox>(*page, "CheckKW2"));
  chooseProtocol(9);
  retype(field("txIPAddress"), "10.0.0.1");
  chooseProtocol(4);
  recorder.take();
  key("save");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(parameters().key1, 208);
  EXPECT_EQ(text("KW1"), "D0");
  EXPECT_EQ(text("KW2"), "E9");
  EXPECT_EQ(text("TextFakra"), "13520");
  EXPECT_EQ(parameters().InterByteDelay, 2);
  EXPECT_EQ(text("TextInterByte"), "2");
  EXPECT_EQ(parameters().IPAddress, "??.??.??.??");
  EXPECT_EQ(text("txIPAddress"), "??.??.??.??");
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceEditParamPage, ASaveLeavesTheKeyboardInAFieldWithTheDefault) {
  click(usable<QCheckBox>(*page, "CheckInterByte"));
  press(field("TextInterByte"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(field("TextInterByte").hasFocus());
  showAgain();
  EXPECT_FALSE(box("CheckInterByte").isChecked());
}

TEST_F(UceEditParamPage, ASaveLeavesTheCursorInItsField) {
  click(usable<QCheckBox>(*page, "CheckInterByte"));
  retype(field("TextInterByte"), "12");
  press(field("TextInterByte"), Qt::Key_S, Qt::ControlModifier);
  type(field("TextInterByte"), "3");
  EXPECT_EQ(text("TextInterByte"), "123");
}

TEST_F(UceEditParamPage, LongTextsOfAFileAreNotCut) {
  const std::string longText(40'000, 'x');
  target().setEmail(longText);
  parameters().Reprogrammable = longText;
  parameters().IPAddress = parameters().MACAddress = longText;
  showAgain();
  key("save");
  EXPECT_EQ(target().Email(), longText);
  EXPECT_EQ(parameters().Reprogrammable, longText);
  EXPECT_EQ(parameters().IPAddress, longText);
  EXPECT_EQ(parameters().MACAddress, longText);
}

TEST_F(UceEditParamPage, ALengthOfTheFileStandsInTheListOfItsEcu) {
  QComboBox& lengths = list("ComboMaxDataLangthCANFD");
  parameters().CANFDTxMaxDataLength = 7;
  showAgain();
  EXPECT_EQ(u8(lengths.currentText()), "7");
  key("save");
  EXPECT_EQ(parameters().CANFDTxMaxDataLength, 7);
  parameters().CANFDTxMaxDataLength = 32;
  showAgain();
  EXPECT_EQ(u8(lengths.currentText()), "32");
  EXPECT_EQ(lengths.count(), 8);
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceEditParamPage, CanStoresItsFixedBaudRate) {
  parameters().BaudRate = 9600;
  showAgain();
  chooseProtocol(7);
  key("save");
  EXPECT_EQ(parameters().BaudRate, 10400);
  EXPECT_EQ(parameters().initMode, 3);
  EXPECT_TRUE(parameters().multiPoint);
}

TEST_F(UceEditParamPage, CanIdentifiersGoToParametersAndFunction) {
  chooseProtocol(7);
  EXPECT_EQ(u8(number("canXid").text()), "");
  retype(textOf(number("canXid")), "7E0");
  click(usable<QCheckBox>(*page, "canRidExtented"));
  retype(textOf(number("canRid")), "18DAF110");
  EXPECT_GT(changes(), 0u);
  key("save");
  EXPECT_EQ(parameters().canXid, 0x7E0);
  EXPECT_EQ(parameters().canRid, std::int32_t(0x98DAF110u));
  const FunctionItem& function = *database.functions->ItemAddress(122);
  EXPECT_EQ(function.canXid, 0x7E0);
  EXPECT_EQ(function.canRid, std::int32_t(0x98DAF110u));
  showAgain();
  EXPECT_TRUE(box("canRidExtented").isChecked());
  EXPECT_FALSE(box("canXidExtented").isChecked());
  EXPECT_EQ(u8(number("canRid").text()), "18DAF110");
}

TEST_F(UceEditParamPage, ClearingTheBoxCutsTheIdentifier) {
  chooseProtocol(7);
  click(usable<QCheckBox>(*page, "canXidExtented"));
  retype(textOf(number("canXid")), "FFFFFFFF");
  press(number("canXid"), Qt::Key_Return);
  EXPECT_EQ(number("canXid").value(), 536870911);
  click(usable<QCheckBox>(*page, "canXidExtented"));
  EXPECT_EQ(number("canXid").value(), 2047);
  EXPECT_EQ(u8(number("canXid").text()), "7FF");
  key("save");
  EXPECT_EQ(parameters().canXid, 2047);
}

TEST_F(UceEditParamPage, AnUnsetIdentifierStaysUnsetUntilOneIsTyped) {
  chooseProtocol(7);
  recorder.take();
  number("canXid").setFocus();
  press(number("canXid"), Qt::Key_Tab);
  EXPECT_EQ(u8(number("canXid").text()), "");
  EXPECT_EQ(changes(), 0u);
  key("save");
  EXPECT_EQ(parameters().canXid, -1);
  type(textOf(number("canXid")), "0");
  press(number("canXid"), Qt::Key_Tab);
  EXPECT_EQ(u8(number("canXid").text()), "0");
  key("save");
  EXPECT_EQ(parameters().canXid, 0);
  EXPECT_EQ(parameters().canRid, -1);
}

TEST_F(UceEditParamPage, AnEmptiedIdentifierIsUnset) {
  chooseProtocol(7);
  type(textOf(number("canXid")), "7");
  retype(textOf(number("canXid")), "");
  press(number("canXid"), Qt::Key_Tab);
  EXPECT_EQ(u8(number("canXid").text()), "");
  retype(textOf(number("canRid")), "7E8");
  key("save");
  EXPECT_EQ(parameters().canXid, -1);
  EXPECT_EQ(parameters().canRid, 0x7E8);
  showAgain();
  retype(textOf(number("canRid")), "");
  EXPECT_EQ(changes(), 1u);
  key("save");
  EXPECT_EQ(u8(number("canRid").text()), "");
  EXPECT_EQ(parameters().canRid, -1);
  EXPECT_EQ(database.functions->ItemAddress(122)->canRid, -1);
  press(textOf(number("canRid")), Qt::Key_Up); // from nothing
  EXPECT_EQ(u8(number("canRid").text()), "1");
}

TEST_F(UceEditParamPage, LookingAtAnIdentifierInTheOtherBaseIsNoChange) {
  parameters().canXid = 0x7E0;
  chooseProtocol(7);
  showAgain();
  chooseProtocol(7);
  recorder.take();
  press(number("canXid"), Qt::Key_H);
  EXPECT_EQ(u8(number("canXid").text()), "2016");
  press(number("canRid"), Qt::Key_H);
  EXPECT_EQ(u8(number("canRid").text()), "");
  EXPECT_EQ(recorder.take(), Events{});
  retype(textOf(number("canXid")), "2017");
  EXPECT_GT(changes(), 0u);
}

TEST_F(UceEditParamPage, PlaceholdersOfIpBecomeAddressesOnScreenToo) {
  chooseProtocol(9);
  EXPECT_EQ(text("txIPAddress"), "??.??.??.??");
  key("save");
  EXPECT_EQ(parameters().IPAddress, "00.11.22.33");
  EXPECT_EQ(parameters().MACAddress, "AA:BB:CC:DD");
  EXPECT_EQ(text("txIPAddress"), "00.11.22.33");
  EXPECT_EQ(text("txMACAddress"), "AA:BB:CC:DD");
  showAgain();
  EXPECT_EQ(list("ComboTypeCom").currentData().toInt(), 9);
}

TEST_F(UceEditParamPage, TheDateIsStoredAsItIsShown) {
  parameters().DateOfficialisation = "15.01.2026 07:08:09";
  showAgain();
  EXPECT_TRUE(box("CheckOfficia").isChecked());
  EXPECT_EQ(control<QDateTimeEdit>(*page, "DateOfficia").text(), "15/01/2026 07:08:09");
  key("save");
  EXPECT_EQ(parameters().DateOfficialisation, "15/01/2026 07:08:09");
  click(usable<QCheckBox>(*page, "CheckOfficia"));
  key("save");
  EXPECT_EQ(parameters().DateOfficialisation, "");
}

TEST_F(UceEditParamPage, ATextThatIsNoDateIsShownAndKept) {
  parameters().DateOfficialisation = "next spring";
  showAgain();
  EXPECT_EQ(dateText(), "next spring");
  press(date(), Qt::Key_Delete);
  type(date(), "x");
  press(date(), Qt::Key_Tab);
  EXPECT_EQ(dateText(), "next spring");
  EXPECT_EQ(recorder.take(), Events{});
  key("save");
  EXPECT_EQ(parameters().DateOfficialisation, "next spring");
}

TEST_F(UceEditParamPage, ADateIsTypedOverATextThatIsNone) {
  for (const char* stored : {"12/25/2026", "1/2/26", "15/01/2026 07:08:09 AM"}) {
    parameters().DateOfficialisation = stored;
    showAgain();
    ASSERT_EQ(dateText(), stored);
    type(date(), "25/12/2027 09:30:00");
    EXPECT_GT(changes(), 0u);
    EXPECT_EQ(dateText(), "25/12/2027 09:30:00");
    key("save");
    EXPECT_EQ(parameters().DateOfficialisation, "25/12/2027 09:30:00");
  }
}

TEST_F(UceEditParamPage, ADateIsTypedWithItsSeparatorsOrWithout) {
  parameters().DateOfficialisation = "15/01/2026 07:08:09";
  showAgain();
  retype(date(), "5/3/2027 9:30");
  press(date(), Qt::Key_Tab);
  EXPECT_EQ(dateText(), "05/03/2027 09:30:09");
  retype(date(), "25122028101112");
  EXPECT_EQ(dateText(), "25/12/2028 10:11:12");
}

TEST_F(UceEditParamPage, SeparatorsLeadThroughTheDate) {
  parameters().DateOfficialisation = "15/01/2026 07:08:09";
  showAgain();
  date().setFocus();
  press(date(), Qt::Key_Home);
  type(date(), "//30");
  EXPECT_EQ(dateText(), "15/01/30 07:08:09");
}

TEST_F(UceEditParamPage, TheArrowKeysGoOnFromNowWhereThereIsNoDate) {
  parameters().DateOfficialisation = "next spring";
  showAgain();
  press(date(), Qt::Key_Up);
  EXPECT_GT(changes(), 0u);
  EXPECT_GE(date().date(), QDate::currentDate().addDays(-31));
}

TEST_F(UceEditParamPage, TheCalendarOpensNowWhereThereIsNoDate) {
  parameters().DateOfficialisation = "next spring";
  showAgain();
  QStyleOptionComboBox option;
  option.initFrom(&date());
  QTest::mouseClick(
      &date(), Qt::LeftButton, {},
      date()
          .style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &date())
          .center());
  QCalendarWidget& calendar = *date().calendarWidget();
  ASSERT_TRUE(waitUntil([&] { return calendar.isVisible(); }));
  EXPECT_GE(calendar.yearShown(), QDate::currentDate().year() - 1);
  press(calendar, Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([&] { return !calendar.isVisible(); }));
  EXPECT_EQ(dateText(), "next spring");
}

TEST_F(UceEditParamPage, TheOptionsOfCodingAreOneOrTheOther) {
  const QList<QRadioButton*> options = page->findChildren<QRadioButton*>("TypeCodage");
  ASSERT_EQ(options.size(), 2);
  EXPECT_EQ(u8(options[0]->text()), "Big Endian     (F - f)");
  EXPECT_EQ(u8(options[1]->text()), "Little Endian   (f - F)");
  EXPECT_TRUE(options[0]->isChecked());
  click(*options[1]);
  key("save");
  EXPECT_TRUE(parameters().LittleEndian);
}

TEST_F(UceEditParamPage, WithoutAnEcuThePageIsEmptyAndLocked) {
  retype(field("txtEmail"), "x");
  database.ClearTarget();
  showAgain();
  EXPECT_EQ(text("txtEmail"), "");
  EXPECT_FALSE(field("txtEmail").isEnabled());
  EXPECT_FALSE(controlNamed(control<QToolBar>(*page, "TBparam"), "save").isEnabled());
  page->GetDataFromScreen();
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceEditParamPage, SearchesWithTheProtocolOfTheScreen) {
  std::vector<IdentificationRequest> asked;
  QObject::connect(page.get(), &UceEditParam::OnIdentification, page.get(),
                   [&](IdentificationRequest& request) {
                     asked.push_back(request);
                     if (!request.search) return;
                     request.href = "/vehicles/engine.xml";
                     request.text = "Identification exact match";
                   });
  chooseProtocol(9);
  click(usable<QToolButton>(control<QToolBar>(*page, "TBident"), "check"));
  ASSERT_EQ(asked.size(), 2u);
  EXPECT_FALSE(asked[0].search);
  EXPECT_TRUE(asked[1].search);
  for (const IdentificationRequest& request : asked) {
    EXPECT_EQ(request.function, 122);
    EXPECT_EQ(request.protocol, 8);
    EXPECT_EQ(request.diagVersion, 4);
    EXPECT_EQ(request.supplier + request.soft + request.version, "OKN0A120100");
  }
  EXPECT_EQ(u8(control<QLabel>(*page, "lbResult").text()), "Identification exact match");
  EXPECT_EQ(u8(usable<QLineEdit>(*page, "txdHref").text()), "/vehicles/engine.xml");
}

TEST_F(UceEditParamPage, TheDataSetIsShownWithTheIdentifications) {
  EXPECT_TRUE(page->writeProperty("databaseDescription", "Demonstration"));
  EXPECT_EQ(text("txtDatabase"), "Demonstration");
}

TEST_F(UceEditParamPage, HelpOpensThePlaceOfTheFocus) {
  press(field("txtEmail"), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.help(parameters, )"}));
  press(controlNamed(*page, "LVident"), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.help(parameters, autoident)"}));
}

TEST_F(UceEditParamPage, FieldsAreNamedForReadersOfTheScreen) {
  EXPECT_EQ(u8(field("txtEmail").accessibleName()), "E-mail");
  EXPECT_EQ(u8(field("TextBaudRate").accessibleName()), "Baud rate");
  EXPECT_EQ(u8(list("ComboTypeCom").accessibleName()), "Protocol");
  EXPECT_EQ(u8(control<QDateTimeEdit>(*page, "DateOfficia").accessibleName()), "Official since");
  chooseProtocol(7);
  number("canXid").setFocus();
  EXPECT_EQ(u8(textOf(number("canXid")).accessibleName()), "Tool -> ECU id");
}

TEST_F(UceEditParamPage, TheTabulatorGoesThroughTheFieldsInTheirOrder) {
  std::string order;
  field("txtEmail").setFocus();
  for (int i = 0; i < 40 && !QApplication::focusWidget()->objectName().contains("LVident"); ++i) {
    QWidget* focus = QApplication::focusWidget();
    order += u8(focus->objectName()) + " ";
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  EXPECT_EQ(order.substr(0, order.find("TBident")),
            "txtEmail CheckOfficia Comment TextReprog ComboTypePanne TypeCodage ComboTypeCom "
            "CheckBaudRate CheckInterByte CheckKW2 CheckFirstRequest CheckReplyToRequest "
            "CheckTesterPresent CheckKW2Timeout CheckRequestToReplyTimeout CheckErrorDelay KW1 KW2 "
            "TextFakra save cancel cut copy paste check txtDatabase ");
}

} // namespace
