// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "frame/uce_auto_idents.h"
#include "frame/uce_edit_param.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

/// On the page that holds it, so that saving and leaving are those of a person.
class UceAutoIdentsPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceEditParam> page;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    database.NewTarget();
    target().setAddress(122);
    target().AutoIdents->Add(4, "OKN", "0A12", "0100", &target());
    target().AutoIdents->Add(10, "ABC", "0001", "0002", &target());
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
  UceAutoIdents& idents() { return control<UceAutoIdents>(*page, "UceAutoIdents1"); }
  ListView& list() { return control<ListView>(*page, "LVident"); }
  QLineEdit& field(const char* name) { return control<QLineEdit>(*page, name); }
  QLineEdit& diag() { return control<QLineEdit>(controlNamed(*page, "ValIndiceDiag"), "TextNum"); }
  std::string rows() { return rowsAsText(list().rows()); }
  QToolButton& button(const char* name) {
    return control<QToolButton>(control<QToolBar>(*page, "TBident"), QLatin1String(name));
  }
  void key(const char* name) { click(button(name)); }
  void fill(const char* number, const char* supplier, const char* soft, const char* version) {
    retype(diag(), number);
    retype(field("ValCodeFour"), supplier);
    retype(field("ValLogiciel"), soft);
    retype(field("ValVersion"), version);
  }
  std::string entry() {
    return u8(diag().text() + " " + field("ValCodeFour").text() + " " +
              field("ValLogiciel").text() + " " + field("ValVersion").text());
  }
  std::string result() { return u8(control<QLabel>(*page, "lbResult").text()); }
  std::string stored() {
    std::string all;
    for (const AutoIdentItem* item : *target().AutoIdents)
      all += std::to_string(item->DiagNumber) + " " + item->SupplierCode + " " + item->Soft + " " +
             item->Version + "\n";
    return all;
  }
  void expectDelete(Answer answer) {
    person.expect("AUTOIDENT/MSG/CutIdent/text", "Confirm delete",
                  "Do you really want to delete selected data ?", Buttons::YesNo, Icon::Question,
                  answer);
  }
  void expectLeaving(Answer answer) {
    person.expect("PARAMS/MSG/modifyParameters/text", "Confirm modification",
                  "Parameters changed, save change ?", Buttons::YesNo, Icon::Question, answer);
  }
  void choose(const char* entryName) {
    emit list().customContextMenuRequested(list().visualRect(list().currentIndex()).center());
    auto* action = list().findChild<QAction*>(entryName);
    ASSERT_TRUE(action);
    action->trigger();
  }
};

TEST_F(UceAutoIdentsPage, OpensOnTheFirstRow) {
  EXPECT_EQ(rows(), "4 ($04) | OKN | 0A12 | 0100\n10 ($0A) | ABC | 0001 | 0002\n");
  EXPECT_EQ(list().selectedTags().size(), 1u);
  EXPECT_EQ(entry(), "4 OKN 0A12 0100");
  EXPECT_EQ(u8(button("save").toolTip()), "Save (Ctrl S)");
  EXPECT_EQ(u8(button("cancel").toolTip()), "Cancel (Ctrl Z)");
  EXPECT_EQ(u8(button("cut").toolTip()), "Cut (Ctrl X)");
}

TEST_F(UceAutoIdentsPage, ARowClickFillsTheEntry) {
  clickRow(list(), 1);
  EXPECT_EQ(entry(), "10 ABC 0001 0002");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceAutoIdentsPage, ARightClickFillsTheEntry) {
  clickRow(list(), 1, 0, {}, Qt::RightButton);
  EXPECT_EQ(entry(), "10 ABC 0001 0002");
  key("save");
  EXPECT_EQ(stored(), "4 OKN 0A12 0100\n10 ABC 0001 0002\n");
}

TEST_F(UceAutoIdentsPage, APressThatEndsElsewhereFillsTheEntry) {
  const QPoint row = list().visualRect(list().model()->index(1, 0)).center();
  QWidget* area = list().viewport();
  QTest::mousePress(area, Qt::LeftButton, {}, row);
  QTest::mouseRelease(area, Qt::LeftButton, {}, area->rect().bottomLeft());
  EXPECT_EQ(entry(), "10 ABC 0001 0002");
}

TEST_F(UceAutoIdentsPage, ARowThatTheKeysSelectFillsTheEntry) {
  press(list(), Qt::Key_Down, Qt::ControlModifier);
  press(list(), Qt::Key_Space, Qt::ControlModifier);
  ASSERT_EQ(list().selectedTags().size(), 2u);
  EXPECT_EQ(entry(), "10 ABC 0001 0002");
}

TEST_F(UceAutoIdentsPage, ARightClickOnTheShownRowLeavesWhatIsTyped) {
  retype(field("ValCodeFour"), "typed");
  clickRow(list(), 0, 0, {}, Qt::RightButton);
  EXPECT_EQ(entry(), "4 typed 0A12 0100");
}

TEST_F(UceAutoIdentsPage, AClickOnTheSameRowFillsTheEntryAgain) {
  retype(field("ValCodeFour"), "typed");
  clickRow(list(), 0);
  EXPECT_EQ(entry(), "4 OKN 0A12 0100");
}

TEST_F(UceAutoIdentsPage, SaveWithoutASelectedRowMakesOne) {
  clickRow(list(), 0, 0, Qt::ControlModifier);
  ASSERT_TRUE(list().selectedTags().empty());
  fill("5", "NEW", "0001", "0001");
  key("save");
  EXPECT_EQ(stored(), "4 OKN 0A12 0100\n10 ABC 0001 0002\n5 NEW 0001 0001\n");
}

TEST_F(UceAutoIdentsPage, AnEcuWithoutListGetsNoneBySaving) {
  target().AutoIdents.reset();
  page->DisplayParam(database);
  EXPECT_EQ(rows(), "");
  page->GetDataFromScreen();
  EXPECT_FALSE(target().AutoIdents);
}

TEST_F(UceAutoIdentsPage, SaveWritesTheEntryAndThePage) {
  clickRow(list(), 1);
  fill("11", "ABCDEF", "00ff", "1234");
  retype(field("txtEmail"), "x");
  recorder.take();
  press(field("ValVersion"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()", "UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(stored(), "4 OKN 0A12 0100\n11 ABCDEF 00ff 1234\n");
  EXPECT_EQ(target().Email(), "x");
  EXPECT_EQ(rows(), "4 ($04) | OKN | 0A12 | 0100\n11 ($0B) | ABCDEF | 00ff | 1234\n");
}

TEST_F(UceAutoIdentsPage, SaveWithoutARowMakesOne) {
  target().AutoIdents->clear();
  page->DisplayParam(database);
  EXPECT_EQ(entry(), "0   ");
  fill("300", "OKN", "0001", "0001");
  recorder.take();
  key("save");
  EXPECT_EQ(stored(), "255 OKN 0001 0001\n");
  EXPECT_EQ(list().selectedTags().size(), 1u);
}

TEST_F(UceAutoIdentsPage, BadInputIsToldAndChangesNothing) {
  fill("4", "ABCDEFG", "0A12", "0100");
  person.expect("AUTOIDENT/MSG/CheckUserInput/badSupplierCode/text", "User error",
                "Bad Supplier code : 6 characters required", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  key("save");
  EXPECT_TRUE(field("ValCodeFour").hasFocus());
  retype(field("ValCodeFour"), "OKN");
  retype(field("ValLogiciel"), "xyz");
  person.expect("AUTOIDENT/MSG/CheckUserInput/badSoftware/text", "User error",
                "Bad software name: 4 hexadecimal characters required", Buttons::Ok,
                Icon::Exclamation, Answer::Ok);
  click(usable<QPushButton>(*page, "buttonAddNewAi"));
  EXPECT_TRUE(field("ValLogiciel").hasFocus());
  EXPECT_EQ(rows(), "4 ($04) | OKN | 0A12 | 0100\n10 ($0A) | ABC | 0001 | 0002\n");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(UceAutoIdentsPage, TheProtocolOfTheScreenDecidesWhatIsAllowed) {
  fill("4", "Supplier name", "SW-1", "");
  auto& protocols = control<QComboBox>(*page, "ComboTypeCom");
  protocols.setCurrentIndex(protocols.findData(9));
  key("save");
  EXPECT_EQ(stored(), "4 Supplier name SW-1 \n10 ABC 0001 0002\n");
}

TEST_F(UceAutoIdentsPage, SavingThePageTakesATypedEntryAlong) {
  fill("11", "NEW", "0003", "0004");
  EXPECT_EQ(recorder.take(), Events{});
  press(field("txtEmail"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()", "UceEditParam1.OnSave(true)"}));
  EXPECT_EQ(stored(), "11 NEW 0003 0004\n10 ABC 0001 0002\n");
  press(field("txtEmail"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnSave(true)"}));
}

TEST_F(UceAutoIdentsPage, ABadEntryStopsTheSaveOfThePage) {
  retype(field("ValLogiciel"), "xyz");
  person.expect("AUTOIDENT/MSG/CheckUserInput/badSoftware/text", "User error",
                "Bad software name: 4 hexadecimal characters required", Buttons::Ok,
                Icon::Exclamation, Answer::Ok);
  press(field("txtEmail"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_TRUE(field("ValLogiciel").hasFocus());
}

TEST_F(UceAutoIdentsPage, LeavingAsksAboutATypedEntry) {
  retype(diag(), "12");
  expectLeaving(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnCancel()"}));
  EXPECT_EQ(entry(), "4 OKN 0A12 0100");
  retype(field("ValCodeFour"), "NEW");
  expectLeaving(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(stored(), "4 NEW 0A12 0100\n10 ABC 0001 0002\n");
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceAutoIdentsPage, LeavingWithABadEntryKeepsAllButThatOne) {
  retype(field("txtEmail"), "x");
  retype(field("ValVersion"), "1");
  expectLeaving(Answer::Yes);
  person.expect("AUTOIDENT/MSG/CheckUserInput/badSoftwareVersion/text", "User error",
                "Bad software version: 4 hexadecimal characters required", Buttons::Ok,
                Icon::Exclamation, Answer::Ok);
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(target().Email(), "x");
  EXPECT_EQ(stored(), "4 OKN 0A12 0100\n10 ABC 0001 0002\n");
}

TEST_F(UceAutoIdentsPage, ANumberOutsideTheRangeIsNoTypedEntry) {
  target().AutoIdents->Item(1)->DiagNumber = 300;
  page->DisplayParam(database);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceAutoIdentsPage, AddMakesARowThatWaitsForSave) {
  fill("12", "NEW", "0003", "0004");
  recorder.take();
  click(usable<QPushButton>(*page, "buttonAddNewAi"));
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()"}));
  EXPECT_EQ(list().rows().rowCount(), 3);
  EXPECT_EQ(entry(), "12 NEW 0003 0004");
  EXPECT_EQ(target().AutoIdents->Count(), 2);
  expectLeaving(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange());
  EXPECT_EQ(target().AutoIdents->Count(), 3);
}

TEST_F(UceAutoIdentsPage, CancelBringsTheListBack) {
  expectDelete(Answer::Yes);
  key("cut");
  EXPECT_EQ(list().rows().rowCount(), 1);
  recorder.take();
  press(list(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnCancel()"}));
  EXPECT_EQ(list().rows().rowCount(), 2);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceAutoIdentsPage, CancelLeavesWhatIsPendingInTheFields) {
  retype(field("txtEmail"), "x");
  fill("5", "OKN", "0001", "0001");
  click(usable<QPushButton>(*page, "buttonAddNewAi"));
  recorder.take();
  key("cancel");
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_EQ(u8(field("txtEmail").text()), "x");
  EXPECT_EQ(list().rows().rowCount(), 2);
  expectLeaving(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceAutoIdentsPage, CutCopiesAsksAndDeletes) {
  expectDelete(Answer::No);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(desktop::clipboardText(),
            "<AutoIdents><AutoIdent DiagVersion=\"4\" Supplier=\"OKN\" Soft=\"0A12\" "
            "Version=\"0100\"/></AutoIdents>");
  EXPECT_EQ(list().rows().rowCount(), 2);
  EXPECT_EQ(recorder.take(), Events{});
  press(list(), Qt::Key_A, Qt::ControlModifier);
  expectDelete(Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(list().rows().rowCount(), 0);
  EXPECT_EQ(entry(), "0   ");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()"}));
  EXPECT_FALSE(button("cut").isEnabled());
  press(list(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(list().rows().rowCount(), 2);
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()"}));
}

TEST_F(UceAutoIdentsPage, PasteAddsOnlyWhatIsNew) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  press(list(), Qt::Key_C, Qt::ControlModifier);
  press(list(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), Events{});
  desktop::setClipboardText("256\tAAA\t0001\t0001\n7\tAAA\t0001\t0001\n");
  key("paste");
  EXPECT_EQ(rows(), "4 ($04) | OKN | 0A12 | 0100\n10 ($0A) | ABC | 0001 | 0002\n"
                    "7 ($07) | AAA | 0001 | 0001\n");
  EXPECT_EQ(entry(), "7 AAA 0001 0001");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.OnChange()"}));
}

TEST_F(UceAutoIdentsPage, TheMenuCopiesTextAndOpensHelp) {
  choose("PopupAiCopyText");
  EXPECT_EQ(desktop::clipboardText(),
            "'Diag version\tSupplier\tSoft\tVersion\r\n4\tOKN\t0A12\t0100\r\n");
  choose("PopupAiHelp");
  choose("PopupHelpGoto");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.help(parameters, autoident)",
                                     "UceEditParam1.help(identification, )"}));
}

TEST_F(UceAutoIdentsPage, ACutIsAskedAboutAlsoWhenTheRowsCannotBeCopied) {
  target().AutoIdents->Item(1)->SupplierCode = "A\x01";
  page->DisplayParam(database);
  std::string why;
  try {
    copyAutoIdents({target().AutoIdents->Item(1)});
  } catch (const Failure& failure) {
    why = "Error # " + std::to_string(failure.number) + "\r\n" + failure.text;
  }
  const auto expectNoCopy = [&] {
    person.expect("GENERIC/error/text", "Error", why, Buttons::Ok, Icon::Critical, Answer::Ok);
  };
  expectNoCopy();
  expectDelete(Answer::No);
  key("cut");
  EXPECT_EQ(list().rows().rowCount(), 2);
  expectNoCopy();
  expectDelete(Answer::Yes);
  key("cut");
  EXPECT_EQ(list().rows().rowCount(), 1);
}

TEST_F(UceAutoIdentsPage, ACopiedCellWithALineBreakIsTold) {
  target().AutoIdents->Item(1)->Soft = "two\nlines";
  page->DisplayParam(database);
  choose("PopupAiCopyText");
  EXPECT_EQ(result(), "A copied cell holds a line break or a tab: pasted back, it will not be the "
                      "same.");
  clickRow(list(), 1);
  choose("PopupAiCopyText");
  EXPECT_EQ(result(), "");
}

TEST_F(UceAutoIdentsPage, AResultGoesWithTheRowThatItTellsOf) {
  const auto search = [&] {
    idents().showSearchResult("No match", "");
    EXPECT_EQ(result(), "No match");
  };
  search();
  clickRow(list(), 1);
  EXPECT_EQ(result(), "");
  search();
  retype(field("ValCodeFour"), "NEW");
  key("save");
  EXPECT_EQ(result(), "");
  search();
  expectDelete(Answer::Yes);
  key("cut");
  EXPECT_EQ(result(), "");
}

TEST_F(UceAutoIdentsPage, WithoutAnEcuEverythingIsEmptyAndOff) {
  database.ClearTarget();
  page->DisplayParam(database);
  EXPECT_EQ(rows(), "");
  for (const char* name : {"save", "cancel", "cut", "copy", "paste", "check"})
    EXPECT_FALSE(button(name).isEnabled()) << name;
  EXPECT_FALSE(control<QGroupBox>(*page, "FRidentVal").isEnabled());
  EXPECT_EQ(entry(), "0   ");
  EXPECT_FALSE(page->TestAndConfirmChange());
}

} // namespace
