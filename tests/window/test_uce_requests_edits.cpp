// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is typed on the page of requests while other things happen to it.
#include "window/uce_requests_fixture.h"

#include <QHeaderView>

namespace kelmar {
namespace {

using namespace support;
using desktop::clipboardText;
using desktop::u8;

class UceRequestsEdits : public UceRequestsWindow {
 protected:
  int shownTab() { return control<QTabBar>(*page, "TSsendReceipt").currentIndex(); }
  void retypeName(const char* name) {
    press(list(), Qt::Key_F2);
    auto* editor = list().viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(QLatin1String(name));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  const Events cancelled = {"UceRequests1.OnCancel()"};
};

TEST_F(UceRequestsEdits, TheTabStaysWhereThePersonPutIt) {
  tab(1);
  clickRow(placed(), 1); // Speed
  tab(0);
  clickRow(list(), 1);
  EXPECT_EQ(shownTab(), 0);
  clickRow(list(), 0);
  EXPECT_EQ(shownTab(), 0) << "a data that was only clicked leads nowhere";
  retype(field("TextReqBytes"), "2102");
  key("cancel");
  EXPECT_EQ(shownTab(), 0);
}

TEST_F(UceRequestsEdits, AWayInTurnsTheTabOnce) {
  page->setEditDataName("Speed");
  EXPECT_EQ(shownTab(), 1);
  tab(0);
  retype(field("TextReqBytes"), "2102");
  key("cancel");
  EXPECT_EQ(shownTab(), 0);
  clickRow(list(), 1);
  clickRow(list(), 0);
  EXPECT_EQ(shownTab(), 0);
  tab(1);
  EXPECT_EQ(selectedDatas(), "Speed") << "the data that was led to is still the one to be chosen";
  page->hide();
  page->setEditRequestName("Write");
  page->setEditDataName("Level");
  page->show();
  enterAgain();
  EXPECT_EQ(shownTab(), 0);
  tab(1);
  clickRow(list(), 0);
  clickRow(list(), 1);
  EXPECT_EQ(shownTab(), 1);
}

TEST_F(UceRequestsEdits, AYesToTheQuestionOfAClickKeepsTheOrderOfTheHeader) {
  list().header()->setSortIndicator(0, Qt::DescendingOrder); // Write, Session, Read
  clickRow(list(), 0);
  retype(field("TextReqBytes"), "3B02");
  expectConfirmation(Answer::Yes);
  clickRow(list(), 2);
  EXPECT_EQ(caption(), "Read");
  EXPECT_EQ(requestNames(), "Write|Session|Read");
  EXPECT_EQ(list().rows().textOf(&the("Write"), 1), "3B02");
  enterAgain();
  EXPECT_EQ(requestNames(), "Write|Session|Read") << "as the arrow of the header says";
}

TEST_F(UceRequestsEdits, NumbersOfAFileThatAreOutOfRangeStayAsTheyAre) {
  RequestItem& read = the("Read");
  read.LengthDatas = -3;
  read.ShiftBytesCount = -1;
  position("Read", "Wide").StartOctet = 0;
  position("Read", "Wide").StartBit = 9;
  enterAgain();
  tab(1);
  recorder.take();
  for (const char* name : {"ValLenData", "ValShiftBytes", "ValStartOctet", "ValStartBit"})
    numberText(name).setFocus(); // walking through touches nothing
  list().setFocus();
  EXPECT_EQ(recorder.take(), Events{});
  click(box("CheckUsine"));
  key("valid");
  EXPECT_EQ(read.LengthDatas, -3);
  EXPECT_EQ(read.ShiftBytesCount, -1);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 0);
  EXPECT_EQ(position("Read", "Wide").StartBit, 9);
  click(box("CheckLittleEndian"));
  key("save", "TBPosData");
  EXPECT_TRUE(position("Read", "Wide").LittleEndian);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 0);
  EXPECT_EQ(position("Read", "Wide").StartBit, 9);
  EXPECT_EQ(read.LengthDatas, -3);
}

TEST_F(UceRequestsEdits, TheFieldInWhichAPersonTypesKeepsTheKeyboardOverASave) {
  auto& comment = control<QPlainTextEdit>(*page, "TextComment");
  chooseForRequest("mnuRequestSelectManualSend");
  click(usable<QCheckBox>(*page, "CheckUsine"));
  type(comment, "hello");
  press(comment, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(comment.hasFocus());
  EXPECT_TRUE(comment.isReadOnly());
}

TEST_F(UceRequestsEdits, AnotherLanguageLeavesTabAndTypedTextAlone) {
  tab(1);
  retype(field("Rtemplate"), "6102");
  retype(numberText("ValStartOctet"), "3");
  recorder.take();
  page->setLang("fr");
  EXPECT_EQ(recorder.take(), Events{}) << "nothing is asked";
  EXPECT_EQ(shownTab(), 1);
  EXPECT_EQ(u8(field("Rtemplate").text()), "6102");
  EXPECT_EQ(u8(numberText("ValStartOctet").text()), "3");
  EXPECT_EQ(adding().text(), "Mod");
  key("valid");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
}

TEST_F(UceRequestsEdits, ABadFrameOnTheOtherTabIsToldBeforeThePlacementIsAskedAbout) {
  retype(field("TextReqBytes"), "210");
  tab(1);
  retype(numberText("ValStartOctet"), "3");
  recorder.take();
  person.expect("REQUESTS/MSG/TBPosData_ButtonClick/userError/text", "User Error",
                "Bad request bytes", Buttons::Ok, Icon::Critical, Answer::Ok);
  expectPositionConfirmation(Answer::Yes);
  key("save", "TBPosData");
  EXPECT_EQ(recorder.take(), (Events{"box User Error: Bad request bytes",
                                     "box Confirm change: Data has been modified. Save change?",
                                     "UceRequests1.OnSave(false)", "UceRequests1.OnChange()"}));
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3) << "the placement is kept";
  EXPECT_FALSE(position("Read", "Wide").param);
  EXPECT_EQ(shownTab(), 0);
  EXPECT_TRUE(field("TextReqBytes").hasFocus());
}

TEST_F(UceRequestsEdits, AFlagCommandSetsItsOwnBoxAlone) {
  click(box("CheckReport"));
  recorder.take();
  chooseForRequest("PopupReqManuelSet");
  EXPECT_TRUE(box("CheckManualSend").isChecked());
  EXPECT_TRUE(box("CheckReport").isChecked()) << "as the person has left it";
  EXPECT_FALSE(the("Read").DossierMaintenabilite);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(false)", "UceRequests1.OnChange()"}));
  key("valid");
  EXPECT_TRUE(the("Read").DossierMaintenabilite);
}

TEST_F(UceRequestsEdits, WhatIsTypedIsAskedAboutAfterACommandOfAnotherKind) {
  tab(1);
  const std::pair<const char*, std::function<void()>> commands[] = {
      {"F9", [&] { press(placed(), Qt::Key_F9); }},
      {"rename", [&] { retypeName("Read it"); }},
      {"name command",
       [&] {
         person.expect("REQUESTS/MSG/PopupRequcase_Click/text", "User confirm",
                       "Convert name to uppercase?", Buttons::YesNo, Icon::Question, Answer::Yes);
         chooseForRequest("PopupReqUcase");
       }},
      {"reference of the list",
       [&] { press(list(), Qt::Key_M, Qt::ControlModifier | Qt::AltModifier); }},
      {"add", [&] {
         chooseName("Level");
         click(adding());
       }}};
  auto* item = static_cast<RequestItem*>(list().rows().tagAt(0));
  for (const auto& [name, run] : commands) {
    retype(field("Rtemplate"), "6102");
    recorder.take();
    run();
    const Events said = recorder.take();
    ASSERT_GE(said.size(), 2u) << name;
    EXPECT_EQ(said[said.size() - 2], "UceRequests1.OnSave(false)") << name;
    EXPECT_EQ(said.back(), "UceRequests1.OnChange()") << name;
    EXPECT_EQ(u8(field("Rtemplate").text()), "6102") << name;
    EXPECT_EQ(item->ReplyBytes->HexText(), "6101") << name;
    key("cancel");
    EXPECT_EQ(u8(field("Rtemplate").text()), "6101") << name;
  }
}

TEST_F(UceRequestsEdits, WhatACommandTookOverIsNotAskedAboutAgain) {
  chooseForRequest("PopupReqManuelSet");
  EXPECT_EQ(recorder.take(), saved);
  clickRow(list(), 1);
  EXPECT_EQ(caption(), "Write");
}

TEST_F(UceRequestsEdits, CancelWithNothingToDropTellsNothing) {
  chooseForRequest("PopupReqManuelSet");
  recorder.take();
  EXPECT_FALSE(isUsable("cancel"));
  press(list(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), Events{}) << "the flag is in the ECU and not in the file";
  retype(field("TextReqBytes"), "2102");
  EXPECT_TRUE(isUsable("cancel"));
  recorder.take();
  press(field("TextReqBytes"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), cancelled);
  EXPECT_FALSE(isUsable("cancel"));
}

TEST_F(UceRequestsEdits, APlacementIsAskedAboutWhenTheListIsClickedOrSearched) {
  tab(1);
  retype(numberText("ValStartOctet"), "3");
  expectPositionConfirmation(Answer::Yes);
  clickRow(list(), 0); // the row that is shown
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  retype(numberText("ValStartOctet"), "2");
  expectPositionConfirmation(Answer::No);
  page->setEditRequestName("Session");
  EXPECT_EQ(caption(), "Session");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
}

TEST_F(UceRequestsEdits, AfterThePlacementIsAskedAboutTheMarkIsThatOfTheRequestAlone) {
  tab(1);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    retype(numberText("ValStartOctet"), "3");
    EXPECT_EQ(recorder.take(), changed);
    expectPositionConfirmation(answer);
    clickRow(placed(), 1);
    recorder.take();
    EXPECT_FALSE(isUsable("cancel")) << "nothing is pending";
    retype(field("Rtemplate"), "6102");
    EXPECT_EQ(recorder.take(), changed) << "the first change since";
    key("cancel");
    clickRow(placed(), 0);
    recorder.take();
  }
}

TEST_F(UceRequestsEdits, WhatIsTypedStaysMarkedBesideAPlacementThatWasAskedAbout) {
  tab(1);
  const std::pair<Answer, const char*> answers[] = {{Answer::No, "UceRequests1.OnCancel()"},
                                                    {Answer::Yes, "UceRequests1.OnSave(false)"}};
  for (const auto& [answer, told] : answers) {
    retype(field("Rtemplate"), "6102");
    retype(numberText("ValStartOctet"), "3");
    recorder.take();
    expectPositionConfirmation(answer);
    clickRow(placed(), 1);
    EXPECT_EQ(recorder.take(), (Events{"box Confirm change: Data has been modified. Save change?",
                                       told, "UceRequests1.OnChange()"}));
    key("cancel");
    clickRow(placed(), 0);
  }
}

TEST_F(UceRequestsEdits, WhatIsTypedIsAskedAboutBeforeOtherRequestsAreDeleted) {
  the("Write").ManuelSend = true;
  enterAgain();
  chooseForRequest("mnuRequestSelectManualSend");
  ASSERT_EQ(selectedNames(), "Write");
  retype(field("TextReqBytes"), "2199");
  expectDeletion(Answer::Ok);
  expectConfirmation(Answer::Yes);
  key("cut");
  EXPECT_EQ(target().Requests()->Count(), 2);
  EXPECT_EQ(caption(), "Read");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2199");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2199");
  retype(field("TextReqBytes"), "21");
  expectDeletion(Answer::Ok);
  key("cut");
  EXPECT_EQ(caption(), "Session") << "what was typed goes with its request, without a question";
}

TEST_F(UceRequestsEdits, BytesAndCommentOfNoSelectedRowCannotBeTyped) {
  auto& comment = control<QPlainTextEdit>(*page, "TextComment");
  chooseForRequest("mnuRequestSelectManualSend");
  ASSERT_EQ(selectedNames(), "");
  EXPECT_EQ(caption(), "Read");
  EXPECT_FALSE(field("TextReqBytes").isEnabled());
  EXPECT_FALSE(comment.isEnabled());
  clickRow(list(), 0);
  EXPECT_TRUE(field("TextReqBytes").isEnabled());
  EXPECT_TRUE(comment.isEnabled());
  retype(field("TextReqBytes"), "210");
  recorder.take();
  chooseForRequest("mnuRequestSelectManualSend");
  retype(field("TextReqBytes"), "2102"); // what is begun can be finished
  EXPECT_EQ(recorder.take(), Events{}) << "the page was marked all the time";
  EXPECT_NE(field("TextReqBytes").palette().color(QPalette::Text), QColor(255, 0, 0));
  key("valid");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2102");
  EXPECT_TRUE(field("TextReqBytes").isReadOnly());
}

TEST_F(UceRequestsEdits, NegativeNumbersOfAFileAreShownAlsoBesideHexadecimalOnes) {
  RequestItem& write = the("Write");
  write.LengthDatas = -3;
  write.ShiftBytesCount = -1;
  tab(1);
  number("ValLenData").setBase(1);
  number("ValShiftBytes").setBase(1);
  clickRow(list(), 1);
  EXPECT_EQ(u8(number("ValLenData").text()), "-3");
  EXPECT_EQ(u8(number("ValShiftBytes").text()), "-1");
  click(box("CheckUsine"));
  key("valid");
  EXPECT_EQ(write.LengthDatas, -3);
  EXPECT_EQ(write.ShiftBytesCount, -1);
}

TEST_F(UceRequestsEdits, ALineBreakInWhatIsSentIsTold) {
  data("Level")->Description = "two\r\nlines";
  clickRow(list(), 1);
  chooseForRequest("mnuTradConfigCopy");
  EXPECT_NE(clipboardText().find("two"), std::string::npos);
  EXPECT_EQ(warning(),
            "A copied cell holds a line break or a tab: pasted back, it will not be the same.");
}

TEST_F(UceRequestsEdits, WhatCannotBeCopiedIsToldAndCanBeDeleted) {
  desktop::setClipboardText("mine");
  the("Read").Commentaire = "a\x01";
  clickRow(list(), 0);
  person.expect("GENERIC/error/text", "Error",
                "Error # 1\r\nRequest 'Read': the character U+0001 cannot be written in XML",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  expectDeletion(Answer::Ok);
  key("cut");
  EXPECT_FALSE(target().Requests()->ItemName("Read"));
  EXPECT_EQ(desktop::clipboardText(), "mine");
}

} // namespace
} // namespace kelmar
