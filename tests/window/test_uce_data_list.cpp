// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_data_list.h"

#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/data_description.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

/// The value list alone in a window, on a data of 8 bits with 0 Off, 1 On and 3 Error.
class UceDataListControl : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  DataItem data;
  std::unique_ptr<UceDataList> values;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    data.DataListes = std::make_shared<DataListeItems>();
    // The list sorts what it takes by its own rule; read back, this is the order of the rows.
    for (const auto& [value, label, info] :
         {std::tuple{0, "Off", ""}, {1, "On", "all is well"}, {3, "Error", ""}})
      data.DataListes->Add(value, label, info);
    values = std::make_unique<UceDataList>(person, nullptr);
    values->setObjectName("UceDataList1");
    signalRecorder = std::make_unique<SignalRecorder>(*values, recorder);
    person.recordInto(recorder);
    values->InitControl();
    values->setRange(8, false);
    values->setData(&data);
    values->resize(520, 360);
    showToUser(*values);
  }
  void TearDown() override {
    signalRecorder.reset();
    values.reset();
  }
  ListView& list() { return control<ListView>(*values, "LVmain"); }
  ZEMnumeric& value() { return control<ZEMnumeric>(*values, "ValRange"); }
  QLineEdit& valueText() { return control<QLineEdit>(value(), "TextNum"); }
  QLineEdit& label() { return control<QLineEdit>(*values, "ValText"); }
  QPushButton& addButton() { return control<QPushButton>(*values, "CBaddNew"); }
  void enter(const char* number, const char* text) {
    retype(valueText(), number);
    retype(label(), text);
  }
  void key(const char* name) {
    click(usable<QToolButton>(control<QToolBar>(*values, "TBMain"), QLatin1String(name)));
  }
  bool isUsable(const char* name) {
    return control<QToolButton>(control<QToolBar>(*values, "TBMain"), QLatin1String(name))
        .isEnabled();
  }
  std::string rows() {
    std::string text;
    for (const RowTag tag : list().rows().tags())
      text += list().rows().textOf(tag, 0) + "=" + list().rows().textOf(tag, 1) + ";";
    return text;
  }
  std::string fields() { return u8(valueText().text()) + "=" + u8(label().text()); }
  /// What it told since the last time, but for the coming and going of what is being typed.
  Events told() {
    Events events = recorder.take();
    std::erase(events, "UceDataList1.typingMoved()");
    return events;
  }
  void choose(const char* entry) {
    emit list().customContextMenuRequested(QPoint(5, 5));
    auto* menu = list().findChild<QMenu*>("PopupRange");
    ASSERT_TRUE(menu);
    auto* action = menu->findChild<QAction*>(QLatin1String(entry));
    ASSERT_TRUE(action && action->isEnabled()) << entry;
    const QPointer<QMenu> alive(menu);
    action->trigger();
    if (alive) alive->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void expectInputError(const char* key, const char* text) {
    person.expect(key, "Input error", text, Buttons::Ok, Icon::Exclamation, Answer::Ok);
  }
  void expectConfirmation(Answer answer) {
    person.expect("DATALIST/MSG/TestAndConfirmChange/text", "Confirm",
                  "Item has been modified. Save change ?", Buttons::YesNo, Icon::Question, answer);
  }
  void expectNotWritten() {
    person.expect("GENERIC/error/text", "Error",
                  "Error # 1\r\nItem 'a\x01': the character U+0001 cannot be written in XML",
                  Buttons::Ok, Icon::Critical, Answer::Ok);
  }
  void expectCut(Answer answer) {
    person.expect("DATALIST/MSG/CutRange/text", "Confirm delete",
                  "Do you really want to delete this selected items ?", Buttons::YesNo,
                  Icon::Question, answer);
  }
};

TEST_F(UceDataListControl, ShowsTheValuesInTheirOrderAndEmptiesTheFields) {
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
  EXPECT_EQ(fields(), "0=");
  EXPECT_EQ(list().model()->headerData(0, Qt::Horizontal), "Value");
  EXPECT_EQ(list().model()->headerData(1, Qt::Horizontal), "Text");
  EXPECT_EQ(list().rows().columns().at(0).key, "value");
  EXPECT_EQ(list().rows().columns().at(1).key, "label");
}

TEST_F(UceDataListControl, TheTipOfARowIsHexadecimalInTheSizeOfTheData) {
  enter("255", "Most");
  click(addButton());
  const auto tip = [this] { return list().rows().lookOf(list().rows().tags().back()).toolTip; };
  EXPECT_EQ(tip(), "$FF");
  data.NumberBits = 9;
  EXPECT_EQ(tip(), "$00FF");
  data.NumberBits = 17;
  EXPECT_EQ(tip(), "$000000FF");
}

TEST_F(UceDataListControl, AddAppendsARowAndEmptiesTheFields) {
  enter("7", "  Seven ");
  click(addButton());
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;7=Seven;");
  EXPECT_EQ(fields(), "0=");
  EXPECT_EQ(told(), Events{"UceDataList1.listChanged()"});
  EXPECT_EQ(data.DataListes->Count(), 3) << "the data gets it only by SaveDataItems";
  values->SaveDataItems();
  EXPECT_EQ(data.DataListes->ItemValue(7)->libelle, "Seven");
  EXPECT_EQ(data.DataListes->ItemValue(7)->parent, &data);
  EXPECT_EQ(data.DataListes->ItemValue(1)->Info, "all is well");
}

TEST_F(UceDataListControl, AddRefusesEmptyLabelsAndWhatIsThere) {
  constexpr char existsKey[] = "DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text";
  enter("7", "  ");
  expectInputError("DATALIST/MSG/CBaddNew_Click/emptyStringError/text",
                   "Empty label not allowed. Enter a string");
  click(addButton());
  enter("3", "Three");
  expectInputError(existsKey, "Value 3 already exists.");
  click(addButton());
  enter("9", "On");
  expectInputError(existsKey, "Label On already exists.");
  click(addButton());
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
  EXPECT_EQ(fields(), "9=On") << "what was typed stays to be mended";
}

TEST_F(UceDataListControl, ARowFillsTheFieldsAndCannotBeAddedUntilTheyChange) {
  EXPECT_TRUE(addButton().isEnabled());
  clickRow(list(), 1);
  EXPECT_EQ(fields(), "1=On");
  EXPECT_FALSE(addButton().isEnabled());
  EXPECT_FALSE(isUsable("save") || isUsable("cancel"));
  EXPECT_TRUE(isUsable("cut") && isUsable("copy") && isUsable("paste"));
  type(label(), "!");
  EXPECT_TRUE(addButton().isEnabled());
  EXPECT_TRUE(isUsable("save") && isUsable("cancel"));
  key("cancel");
  EXPECT_EQ(fields(), "1=On");
  EXPECT_FALSE(isUsable("save"));
  EXPECT_EQ(told(), Events{});
}

TEST_F(UceDataListControl, SaveChangesTheRow) {
  clickRow(list(), 1);
  enter("2", "Running");
  key("save");
  EXPECT_EQ(rows(), "0=Off;2=Running;3=Error;");
  EXPECT_EQ(told(), Events{"UceDataList1.listChanged()"});
  retype(label(), "Running on");
  press(label(), Qt::Key_Return);
  EXPECT_EQ(rows(), "0=Off;2=Running on;3=Error;");
  values->SaveDataItems();
  EXPECT_EQ(data.DataListes->ItemValue(2)->Info, "all is well") << "documentation stays with it";
}

TEST_F(UceDataListControl, AChangeToWhatAnotherRowHasIsRefused) {
  clickRow(list(), 1);
  enter("3", "Running");
  expectInputError("DATALIST/MSG/changeItem/valueAlreadyExistsError/text",
                   "Value 3 already exists.\r\nOld : 3=Error");
  key("save");
  enter("1", "Off");
  expectInputError("DATALIST/MSG/changeItem/labelAlreadyExistsError/text",
                   "Label Off already exists.\r\nOld : 0=Off");
  key("save");
  enter("1", "");
  expectInputError("DATALIST/MSG/changeItem/emptyStringError/text",
                   "Empty label not allowed. Enter a string");
  key("save");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
}

TEST_F(UceDataListControl, ANegativeValueIsShownAsItIsAlsoAfterHexadecimalOnes) {
  data.DataListes->Add(-1, "Invalid", "");
  values->setRange(8, true);
  values->setData(&data);
  clickRow(list(), 1);
  type(valueText(), "h");
  clickRow(list(), 2);
  EXPECT_EQ(fields(), "-1=Invalid");
  retype(label(), "Not valid");
  key("save");
  EXPECT_EQ(rows(), "0=Off;1=On;-1=Not valid;3=Error;");
}

TEST_F(UceDataListControl, WhatIsBeingTypedIsToldWhenItComesAndGoes) {
  const auto moved = [this](bool typing) {
    const Events events = recorder.take();
    EXPECT_TRUE(std::find(events.begin(), events.end(), "UceDataList1.typingMoved()") !=
                events.end());
    EXPECT_EQ(values->hasTyping(), typing);
  };
  retype(valueText(), "9");
  moved(false);
  type(label(), "N");
  moved(true);
  key("cancel");
  moved(false);
}

TEST_F(UceDataListControl, AddIsTheNextStopOfTheTabulatorBehindTheLabel) {
  enter("9", "Nine");
  press(label(), Qt::Key_Tab);
  EXPECT_TRUE(addButton().hasFocus());
  press(addButton(), Qt::Key_Tab);
  EXPECT_TRUE(control<QPushButton>(*values, "Infos").hasFocus());
}

TEST_F(UceDataListControl, ALabelOfAnyLengthComesBackWhole) {
  const std::string longLabel(40000, 'x');
  data.DataListes->Add(9, longLabel, "");
  values->setData(&data);
  clickRow(list(), 3);
  retype(valueText(), "10");
  key("save");
  values->SaveDataItems();
  EXPECT_EQ(data.DataListes->ItemValue(10)->libelle, longLabel);
}

TEST_F(UceDataListControl, WhatCannotBeCopiedIsToldAndCanBeDeleted) {
  desktop::setClipboardText("mine");
  data.DataListes->Add(9, "a\x01", "");
  values->setData(&data);
  clickRow(list(), 3);
  expectNotWritten();
  expectCut(Answer::No);
  key("cut");
  EXPECT_EQ(list().rows().rowCount(), 4);
  expectNotWritten();
  expectCut(Answer::Yes);
  key("cut");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
  EXPECT_EQ(desktop::clipboardText(), "mine");
}

TEST_F(UceDataListControl, AnotherRowAsksAboutAChangedOne) {
  clickRow(list(), 1);
  retype(label(), "Running");
  expectConfirmation(Answer::Yes);
  clickRow(list(), 0);
  EXPECT_EQ(rows(), "0=Off;1=Running;3=Error;");
  EXPECT_EQ(fields(), "0=Off");
  retype(label(), "Still");
  expectConfirmation(Answer::No);
  clickRow(list(), 2);
  EXPECT_EQ(rows(), "0=Off;1=Running;3=Error;");
  EXPECT_EQ(fields(), "3=Error");
  retype(label(), "Fault");
  expectConfirmation(Answer::No);
  press(list(), Qt::Key_Up);
  EXPECT_EQ(fields(), "1=Running");
}

TEST_F(UceDataListControl, AClickOnTheSameRowAsksTooAndShowsItAgain) {
  clickRow(list(), 1);
  retype(label(), "Running");
  expectConfirmation(Answer::No);
  clickRow(list(), 1);
  EXPECT_EQ(fields(), "1=On");
  EXPECT_FALSE(values->TestAndConfirmChange()) << "nothing is left to ask";
}

TEST_F(UceDataListControl, AnAnswerOfYesThatCannotBeKeptIsTold) {
  clickRow(list(), 1);
  retype(label(), "Off");
  expectConfirmation(Answer::Yes);
  expectInputError("DATALIST/MSG/changeItem/labelAlreadyExistsError/text",
                   "Label Off already exists.\r\nOld : 0=Off");
  EXPECT_FALSE(values->TestAndConfirmChange());
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
}

TEST_F(UceDataListControl, AddIsAwakeAfterTheQuestionAndAsleepWithTheNextRow) {
  clickRow(list(), 1);
  retype(label(), "Running");
  expectConfirmation(Answer::No);
  EXPECT_FALSE(values->TestAndConfirmChange());
  EXPECT_EQ(fields(), "1=On") << "what was declined is gone";
  EXPECT_TRUE(addButton().isEnabled());
  EXPECT_FALSE(isUsable("save"));
  clickRow(list(), 0);
  EXPECT_FALSE(addButton().isEnabled());
}

TEST_F(UceDataListControl, AValueTypedForAdditionIsAskedForByTheNextRow) {
  enter("7", "Seven");
  expectConfirmation(Answer::Yes);
  clickRow(list(), 1);
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;7=Seven;");
  EXPECT_EQ(fields(), "1=On");
  values->setData(&data);
  retype(valueText(), "9");
  EXPECT_FALSE(values->TestAndConfirmChange()) << "a number alone is no value";
}

TEST_F(UceDataListControl, PasteAsksForWhatIsTypedFirst) {
  clickRow(list(), 1);
  retype(label(), "Running");
  desktop::setClipboardText("7\tSeven\n");
  expectConfirmation(Answer::Yes);
  key("paste");
  EXPECT_EQ(rows(), "0=Off;1=Running;3=Error;7=Seven;");
  enter("9", "Off");
  desktop::setClipboardText("8\tEight\n");
  expectConfirmation(Answer::Yes);
  expectInputError("DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text",
                   "Label Off already exists.");
  key("paste");
  EXPECT_EQ(rows(), "0=Off;1=Running;3=Error;7=Seven;") << "the paste waits";
  EXPECT_EQ(fields(), "9=Off");
}

TEST_F(UceDataListControl, CutAsksForWhatIsTypedForARowThatStays) {
  clickRow(list(), 0);
  clickRow(list(), 1, 0, Qt::ControlModifier);
  clickRow(list(), 1, 0, Qt::ControlModifier); // the current row, and no longer selected
  retype(label(), "Running");
  expectConfirmation(Answer::Yes);
  expectCut(Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(rows(), "1=Running;3=Error;");
  clickRow(list(), 0);
  retype(label(), "Gone");
  expectCut(Answer::No);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(fields(), "1=Gone");
  expectCut(Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(rows(), "3=Error;");
}

TEST_F(UceDataListControl, AfterAnAdditionTheRowThatWasShownCanBeClickedAgain) {
  clickRow(list(), 1);
  enter("9", "Nine");
  click(addButton());
  EXPECT_EQ(fields(), "0=");
  clickRow(list(), 1);
  EXPECT_EQ(fields(), "1=On");
}

TEST_F(UceDataListControl, CutAsksAndPutsTheRowsOnTheClipboard) {
  desktop::setClipboardText("mine");
  clickRow(list(), 0);
  clickRow(list(), 2, 0, Qt::ControlModifier);
  expectCut(Answer::No);
  key("cut");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
  EXPECT_EQ(desktop::clipboardText(), "mine");
  expectCut(Answer::Yes);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(rows(), "1=On;");
  EXPECT_TRUE(desktop::clipboardText().starts_with("<List>"));
  key("paste");
  EXPECT_EQ(rows(), "1=On;0=Off;3=Error;");
  expectCut(Answer::Yes);
  press(list(), Qt::Key_A, Qt::ControlModifier);
  choose("PopupRcut");
  EXPECT_EQ(rows(), "");
}

TEST_F(UceDataListControl, CopyAndPasteCarryTheDocumentationThroughTheRealClipboard) {
  clickRow(list(), 1);
  press(list(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(desktop::clipboardText().starts_with("<List><Item Value=\"1\" Text=\"On\"><Info>"))
      << desktop::clipboardText();
  DataItem other;
  other.DataListes = std::make_shared<DataListeItems>();
  values->setData(&other);
  press(list(), Qt::Key_V, Qt::ControlModifier);
  values->SaveDataItems();
  ASSERT_EQ(other.DataListes->Count(), 1);
  EXPECT_EQ(other.DataListes->Item(1)->Info, "all is well");
  values->setData(&data);
}

TEST_F(UceDataListControl, CopiedTextHasAValueAndALabelInEachLine) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  choose("PopupRCopyText");
  EXPECT_EQ(desktop::clipboardText(), "0\tOff\r\n1\tOn\r\n3\tError\r\n");
  EXPECT_EQ(told(), Events{"UceDataList1.textCopied(false)"});
}

TEST_F(UceDataListControl, PastedTextMayBeHexadecimal) {
  desktop::setClipboardText("$1A\tLabel\nnone\tBad\n");
  choose("PopupRpaste");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;26=Label;");
  EXPECT_EQ(told(), Events{"UceDataList1.listChanged()"});
}

TEST_F(UceDataListControl, APasteThatMeetsValueAndLabelInTwoRowsLeavesBoth) {
  desktop::setClipboardText("3\tOn\n");
  person.expect("DATALIST/MSG/UpdateOrAddItem/text", "Paste warning",
                "Unable to insert or modify item: 3=On\r\nThe value and label already exist in two "
                "different items",
                Buttons::Ok, Icon::Exclamation, Answer::Ok);
  key("paste");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;");
}

TEST_F(UceDataListControl, PastedDevicesGiveTheirCodeAndName) {
  desktop::setClipboardText("<Devices><Device DTC=\"64\" Name=\"Pump\"/></Devices>");
  key("paste");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;64=Pump;");
}

TEST_F(UceDataListControl, TwoRowsOfOneValueCannotArise) {
  enter("3", "Third");
  expectInputError("DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text",
                   "Value 3 already exists.");
  click(addButton());
  expectConfirmation(Answer::No); // what was typed still stands in the fields
  clickRow(list(), 0);
  enter("3", "Off");
  expectInputError("DATALIST/MSG/changeItem/valueAlreadyExistsError/text",
                   "Value 3 already exists.\r\nOld : 3=Error");
  key("save");
  desktop::setClipboardText("3\tThird\n3\tFourth\n");
  values->setData(&data);
  key("paste");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Fourth;");
}

TEST_F(UceDataListControl, NormalizingCleansTheLabelsOfTheSelectedRows) {
  desktop::setClipboardText("<List><Item Value=\"8\" Text=\"A  b\"/></List>");
  key("paste");
  press(list(), Qt::Key_A, Qt::ControlModifier);
  person.expect("DATALIST/MSG/PopupRNormalize/confirm/text", "User confirm",
                "Normalize space suppress white spaces at the start and end of the data name and "
                "replace multi-space by a single one.\r\nDo you want to normalize selected data "
                "name ?",
                Buttons::YesNo, Icon::Question, Answer::Yes);
  told();
  choose("PopupRNormalize");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;8=A b;");
  EXPECT_EQ(told().back(), "UceDataList1.listChanged()");
}

TEST_F(UceDataListControl, ValuesThatCanBeTypedFollowTheSizeOfTheData) {
  const auto typed = [this](const char* text) {
    retype(valueText(), text);
    press(valueText(), Qt::Key_Tab);
    return value().value();
  };
  EXPECT_EQ(typed("300"), 255);
  EXPECT_EQ(typed("-1"), 0);
  values->setRange(4, true);
  EXPECT_EQ(typed("300"), 7);
  EXPECT_EQ(typed("-300"), -8);
  values->setRange(32, false);
  EXPECT_EQ(typed("4294967295"), 2147483647) << "a value has 32 bits and a sign";
  values->setRange(40, false);
  EXPECT_EQ(typed("-2147483648"), -2147483648.0);
  EXPECT_EQ(typed("2,6"), 3);
}

TEST_F(UceDataListControl, AValueOutsideTheSizeOfTheDataIsShownAndKept) {
  desktop::setClipboardText("300\tOutside\n");
  key("paste");
  clickRow(list(), 3);
  EXPECT_EQ(fields(), "300=Outside");
  press(valueText(), Qt::Key_Tab);
  retype(label(), "Out");
  key("save");
  EXPECT_EQ(rows(), "0=Off;1=On;3=Error;300=Out;");
}

TEST_F(UceDataListControl, TheLetterHTypesValuesInHexadecimal) {
  clickRow(list(), 2);
  QTest::keyClicks(&valueText(), "h");
  EXPECT_EQ(valueText().text(), "3");
  retype(valueText(), "1a");
  EXPECT_EQ(valueText().text(), "1A");
  key("save");
  EXPECT_EQ(rows(), "0=Off;1=On;26=Error;");
}

TEST_F(UceDataListControl, TheDocumentationOfAValueIsEditedInItsDialog) {
  clickRow(list(), 1);
  {
    WhenDialogOpens open([&](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Value 1");
      auto& text = usable<QuietBrowser>(dialog, "rtbDescription");
      EXPECT_EQ(text.toPlainText(), "all is well");
      retype(text, "running");
      click(usable<QPushButton>(dialog, "OKButton"));
    });
    click(usable<QPushButton>(*values, "Infos"));
  }
  EXPECT_TRUE(isUsable("save"));
  key("save");
  values->SaveDataItems();
  EXPECT_EQ(data.DataListes->ItemValue(1)->Info, "running");
}

TEST_F(UceDataListControl, WithoutDataNothingCanBeDone) {
  values->setData(nullptr);
  EXPECT_EQ(rows(), "");
  EXPECT_FALSE(addButton().isEnabled());
  EXPECT_FALSE(control<QPushButton>(*values, "Infos").isEnabled());
  for (const char* name : {"cancel", "save", "cut", "copy", "paste"})
    EXPECT_FALSE(isUsable(name)) << name;
  values->SaveDataItems();
}

TEST_F(UceDataListControl, HelpOfTheMenuAsksForTheListsOwn) {
  choose("PopupRhelp");
  EXPECT_EQ(told(), Events{"UceDataList1.help()"});
}

} // namespace
} // namespace kelmar
