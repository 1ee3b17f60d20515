// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fields of a request, from keystroke to item.
#include "window/uce_requests_fixture.h"

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;

class UceRequestsPage : public UceRequestsWindow {};

TEST_F(UceRequestsPage, OpensOnTheFirstRequestWithItsFieldsAndCount) {
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(caption(), "Read");
  EXPECT_EQ(shown("lblInfo"), "3 request(s)");
  EXPECT_EQ(shown("lblReqLength"), "(2 bytes)");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
  EXPECT_EQ(number("ValLenData").value(), 4);
  EXPECT_EQ(placed().rows().rowCount(), 0);
  EXPECT_TRUE(list().hasFocus());
  tab(1);
  EXPECT_EQ(rowsAsText(placed().rows()), "Wide |         2 | 4 | 16 |  | \n"
                                         "Speed |         3 | 0 | 8 |  | \n");
  EXPECT_EQ(view().NumberBytes(), 4);
  keepPicture(*page, "uce_requests_received");
}

TEST_F(UceRequestsPage, TabsHaveTheirKeysAndShowTheirFrame) {
  auto& tabs = control<QTabBar>(*page, "TSsendReceipt");
  EXPECT_EQ(tabs.tabData(0), "sent");
  EXPECT_EQ(tabs.tabToolTip(0), "Request parameters");
  EXPECT_EQ(tabs.tabData(1), "received");
  EXPECT_EQ(tabs.tabToolTip(1), "Request data");
  EXPECT_TRUE(control<QWidget>(*page, "FrameSend").isVisible());
  EXPECT_FALSE(control<QWidget>(*page, "FrameReceipt").isVisible());
  EXPECT_EQ(view().NumberBytes(), 2);
  tab(1);
  EXPECT_FALSE(control<QWidget>(*page, "FrameSend").isVisible());
  EXPECT_TRUE(control<QWidget>(*page, "FrameReceipt").isVisible());
  EXPECT_EQ(view().NumberBytes(), 4);
}

TEST_F(UceRequestsPage, TypingMarksOnceAndCancelBringsTheItemBack) {
  retype(field("TextReqBytes"), "21014");
  EXPECT_EQ(recorder.take(), changed);
  EXPECT_EQ(shown("lblReqLength"), "(2 bytes)");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101");
  key("cancel");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnCancel()"}));
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
  retype(field("TextReqBytes"), "");
  EXPECT_EQ(shown("lblReqLength"), "(0 byte)");
  EXPECT_EQ(recorder.take(), changed) << "the mark went with the cancel";
  press(field("TextReqBytes"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnCancel()"}));
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
}

TEST_F(UceRequestsPage, EveryFieldMarksThePageAndReachesTheItem) {
  RequestItem& item = the("Read");
  const std::pair<const char*, bool RequestItem::*> boxes[] = {
      {"CheckApresVente", &RequestItem::AccesApresVente},
      {"CheckConstructeur", &RequestItem::AccesConstructeur},
      {"CheckEtude", &RequestItem::AccesEtudes},
      {"CheckAccesAll", &RequestItem::AccesTous},
      {"CheckUsine", &RequestItem::AccesUsine},
      {"CheckReport", &RequestItem::DossierMaintenabilite},
      {"CheckManualSend", &RequestItem::ManuelSend},
      {"CheckLgVariable", &RequestItem::LgVariable}};
  for (const auto& [name, flag] : boxes) {
    const bool before = item.*flag;
    click(box(name));
    EXPECT_EQ(recorder.take(), changed) << name;
    EXPECT_EQ(item.*flag, before) << name;
    key("valid");
    EXPECT_EQ(recorder.take(), saved) << name;
    EXPECT_EQ(item.*flag, !before) << name;
  }
  retype(field("TextReqBytes"), "2102");
  EXPECT_EQ(recorder.take(), changed);
  tab(1);
  retype(numberText("ValLenData"), "6");
  retype(numberText("ValShiftBytes"), "2");
  retype(field("Rtemplate"), "6102");
  key("save");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(true)"}));
  EXPECT_EQ(item.RequestBytes->HexText(), "2102");
  EXPECT_EQ(item.LengthDatas, 6);
  EXPECT_EQ(item.ShiftBytesCount, 2);
  EXPECT_EQ(item.ReplyBytes->HexText(), "6102");
  EXPECT_EQ(view().NumberBytes(), 8);
}

TEST_F(UceRequestsPage, ANumberThatIsThatOfTheItemDoesNotMark) {
  tab(1);
  retype(numberText("ValLenData"), "4");
  EXPECT_EQ(recorder.take(), Events{});
  retype(numberText("ValLenData"), "5");
  EXPECT_EQ(recorder.take(), changed);
}

TEST_F(UceRequestsPage, ACommentKeepsItsNoBreakSpaces) {
  control<QPlainTextEdit>(*page, "TextComment").setPlainText("a\u00A0:\nb");
  tab(1);
  key("valid");
  EXPECT_EQ(the("Read").Commentaire, "a\u00A0:\r\nb");
}

TEST_F(UceRequestsPage, ABadFrameIsRefusedAtValidationAndTheCommentHasGoneThrough) {
  control<QPlainTextEdit>(*page, "TextComment").setPlainText("typed\nhere");
  retype(field("TextReqBytes"), "218");
  EXPECT_EQ(field("TextReqBytes").palette().color(QPalette::Text), QColor(255, 0, 0));
  tab(1);
  recorder.take();
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nBad request bytes", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("valid");
  EXPECT_EQ(the("Read").Commentaire, "typed\r\nhere");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101");
  EXPECT_TRUE(field("TextReqBytes").hasFocus());
  EXPECT_EQ(u8(field("TextReqBytes").text()), "218") << "the fields stay as typed";
  EXPECT_EQ(recorder.take(), (Events{"box Error: Error # 1\r\nBad request bytes"}));
  retype(field("TextReqBytes"), "2180");
  EXPECT_EQ(field("TextReqBytes").palette().color(QPalette::Text), QColor(0, 0, 0));
  EXPECT_EQ(recorder.take(), Events{}) << "the page was marked all the time";
  press(field("TextReqBytes"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(true)"}));
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2180");
}

TEST_F(UceRequestsPage, ABadReplyTurnsRedAndTakesTheFocus) {
  tab(1);
  retype(field("Rtemplate"), "6G");
  EXPECT_EQ(field("Rtemplate").palette().color(QPalette::Text), QColor(255, 0, 0));
  tab(0);
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nBad reply bytes", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("save");
  EXPECT_TRUE(field("Rtemplate").hasFocus());
  EXPECT_EQ(the("Read").ReplyBytes->HexText(), "6101");
  key("cancel");
  EXPECT_EQ(u8(field("Rtemplate").text()), "6101");
}

TEST_F(UceRequestsPage, AnotherRowAsksFirst) {
  retype(field("TextReqBytes"), "2102");
  recorder.take();
  expectConfirmation(Answer::Yes);
  clickRow(list(), 1);
  EXPECT_EQ(recorder.take(),
            (Events{"box Confirm data validation?: Requests has been modified. Validate change?",
                    "UceRequests1.OnSave(false)"}));
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2102");
  EXPECT_EQ(caption(), "Write");
  EXPECT_EQ(list().rows().textOf(&the("Read"), 1), "2102");
  retype(field("TextReqBytes"), "3B");
  recorder.take();
  expectConfirmation(Answer::No);
  clickRow(list(), 2);
  EXPECT_EQ(recorder.take(),
            (Events{"box Confirm data validation?: Requests has been modified. Validate change?",
                    "UceRequests1.OnCancel()"}));
  EXPECT_EQ(the("Write").RequestBytes->HexText(), "3B01AABB");
  EXPECT_EQ(caption(), "Session");
}

TEST_F(UceRequestsPage, AYesToTheQuestionOfAClickBuildsTheListAnewAtItsPlace) {
  for (int i = 0; i < 200; ++i)
    add("Filler " + std::to_string(i), "3E00", "");
  enterAgain();
  clickRow(list(), 150);
  retype(field("TextReqBytes"), "3E01");
  expectConfirmation(Answer::Yes);
  clickRow(list(), 148);
  EXPECT_EQ(caption(), "Filler 145");
  EXPECT_EQ(selectedNames(), "Filler 145");
  EXPECT_EQ(list().rows().textOf(&the("Filler 147"), 1), "3E01");
}

TEST_F(UceRequestsPage, AYesWithABadFrameTellsItAndTheOtherRowIsChosen) {
  retype(field("TextReqBytes"), "218");
  expectConfirmation(Answer::Yes);
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nBad request bytes", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  clickRow(list(), 1);
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101");
  EXPECT_EQ(caption(), "Write");
}

TEST_F(UceRequestsPage, KeysAfterABadFrameGoToTheListAndNotIntoTheNextRequest) {
  const auto typesBadFrame = [this] {
    retype(field("TextReqBytes"), "218");
    expectConfirmation(Answer::Yes);
    person.expect("GENERIC/error/text", "Error", "Error # 1\r\nBad request bytes", Buttons::Ok,
                  Icon::Critical, Answer::Ok);
  };
  typesBadFrame();
  press(list(), Qt::Key_Down);
  EXPECT_EQ(caption(), "Write");
  EXPECT_TRUE(list().hasFocus());
  QTest::keyClicks(page->focusWidget(), "2");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "3B01AABB");
  typesBadFrame();
  clickRow(list(), 2);
  EXPECT_EQ(caption(), "Session");
  EXPECT_TRUE(list().hasFocus());
}

TEST_F(UceRequestsPage, LongFramesAreShownAndTakenOverWhole) {
  const std::string frame(40'000, 'A');
  the("Read").RequestBytes->setHexText(frame);
  the("Read").ReplyBytes->setHexText(frame);
  enterAgain();
  EXPECT_EQ(shown("lblReqLength"), "(20000 bytes)");
  click(box("CheckManualSend"));
  key("valid");
  EXPECT_TRUE(the("Read").ManuelSend);
  EXPECT_EQ(the("Read").RequestBytes->HexText(), frame);
  EXPECT_EQ(the("Read").ReplyBytes->HexText(), frame);
}

TEST_F(UceRequestsPage, LeavingThePageAsksAndSaysWhatCameOfIt) {
  EXPECT_FALSE(page->TestAndConfirmChange());
  retype(field("TextReqBytes"), "2102");
  expectConfirmation(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange());
  retype(field("TextReqBytes"), "2103");
  expectConfirmation(Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2103") << "the fields are not loaded again";
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2102");
}

TEST_F(UceRequestsPage, ADataAtTheServiceByteIsToldByRowCaptionAndLine) {
  place("Session", "Speed", false, 1, 0);
  clickRow(list(), 2);
  const std::string text =
      "Request with data on 1st byte. It's useless to inform this byte which is automatically "
      "controlled by Omnikor to verify the conformity with the protocol.";
  EXPECT_EQ(warning(), text);
  const RowLook look = list().rows().lookOf(&the("Session"));
  EXPECT_TRUE(look.bold);
  EXPECT_EQ(look.colour, 255u);
  EXPECT_EQ(look.toolTip, "Warning : There is data on service code.");
  position("Session", "Speed").param = true;
  key("valid");
  EXPECT_EQ(warning(), "Request with parameter on service byte. It's dangerous to put parameter on "
                       "service code. Use parameter on field that can be changed by users.");
  the("Session").requestName = "Session  two";
  key("valid");
  EXPECT_EQ(warning(), "Request name has leading or trailing space, or has multiple spaces");
  clickRow(list(), 0);
  EXPECT_EQ(warning(), "");
}

TEST_F(UceRequestsPage, AWarningThatComesAndGoesLeavesTheRowsUnderThePointer) {
  place("Session", "Speed", false, 1, 0);
  const QPoint before = list().mapTo(page.get(), QPoint());
  clickRow(list(), 2);
  ASSERT_NE(warning(), "");
  QCoreApplication::processEvents();
  EXPECT_EQ(list().mapTo(page.get(), QPoint()), before);
}

TEST_F(UceRequestsPage, Addresses0And255SilenceTheServiceByte) {
  place("Session", "Speed", false, 1, 0);
  for (const int address : {0, 255}) {
    target().setAddress(address);
    enterAgain();
    clickRow(list(), 2);
    EXPECT_EQ(warning(), "");
    EXPECT_FALSE(list().rows().lookOf(&the("Session")).bold);
    clickRow(list(), 0);
  }
}

TEST_F(UceRequestsPage, HelpOpensThePlaceOfTheFocus) {
  press(list(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, )"}));
  press(field("TextReqBytes"), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, )"}));
  press(placed(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, data)"}));
  press(view(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, data)"}));
  list().setFocus();
  key("help");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, )"}));
  chooseForRequest("PopupReqHelp");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, )"}));
}

TEST_F(UceRequestsPage, AWayInChoosesRequestDataAndSide) {
  page->hide();
  page->setEditRequestName("Write");
  page->setEditDataName("Level");
  page->show();
  enterAgain();
  EXPECT_EQ(caption(), "Write");
  EXPECT_EQ(page->EditRequestName(), "Write");
  EXPECT_EQ(page->EditDataName(), "Level");
  EXPECT_EQ(control<QTabBar>(*page, "TSsendReceipt").currentIndex(), 0);
  page->setEditRequestName("Read");
  page->setEditDataName("Speed");
  EXPECT_EQ(control<QTabBar>(*page, "TSsendReceipt").currentIndex(), 1);
  EXPECT_EQ(selectedDatas(), "Speed");
}

TEST_F(UceRequestsPage, ItComesBackToTheRequestThatWasShown) {
  clickRow(list(), 1);
  page->hide();
  EXPECT_EQ(list().rows().rowCount(), 0) << "no row points to an item that may be gone";
  page->show();
  enterAgain();
  EXPECT_EQ(caption(), "Write");
}

TEST_F(UceRequestsPage, WithoutRequestsTheFieldsAreEmptyAndTheCommandsAsleep) {
  target().setRequests(nullptr);
  enterAgain();
  EXPECT_EQ(shown("lblInfo"), "0 request(s)");
  EXPECT_EQ(caption(), "");
  EXPECT_FALSE(frame().isEnabled());
  EXPECT_EQ(number("ValLenData").value(), 1);
  EXPECT_EQ(number("ValShiftBytes").value(), 0);
  EXPECT_EQ(view().NumberBytes(), 0);
  for (const char* name : {"cancel", "valid", "save", "rename", "cut", "copy"})
    EXPECT_FALSE(isUsable(name)) << name;
  for (const char* name : {"new", "paste", "help"})
    EXPECT_TRUE(isUsable(name)) << name;
  for (const char* name : {"cancel", "save", "cut", "copy", "paste", "ref", "unref"})
    EXPECT_FALSE(isUsable(name, "TBPosData")) << name;
  keepPicture(*page, "uce_requests_empty");
}

TEST_F(UceRequestsPage, ToolTipsOfBothToolBarsAreThoseOfTheirKeys) {
  const auto tips = [this](const char* bar) {
    std::string text;
    for (const QAction* action : control<QToolBar>(*page, QLatin1String(bar)).actions())
      if (!action->isSeparator())
        text += u8(action->objectName()) + ": " + u8(action->toolTip()) + "\n";
    return text;
  };
  EXPECT_EQ(tips("tbToolBar"), "cancel: Cancel change (Ctrl Z)\nvalid: Valid change\n"
                               "save: Save change (Ctrl S)\nnew: Add new request\n"
                               "rename: Rename request (F2)\nfind: Find device\n"
                               "cut: Cut selected requests (Ctrl X)\n"
                               "copy: Copy selected requests to clipboard (Ctrl C)\n"
                               "paste: Paste requests from clipboard (Ctrl V)\nhelp: Help (F1)\n");
  EXPECT_EQ(tips("TBPosData"), "cancel: Cancel change (Ctrl Z)\nsave: Save change (Ctrl S)\n"
                               "cut: Cut selected datas (Ctrl X)\n"
                               "copy: Copy selected datas to clipboard (Ctrl C)\n"
                               "paste: Paste datas from clipboard (Ctrl V)\n"
                               "ref: Define data as reference (F9)\n"
                               "unref: Undefine data as reference (F10)\n");
}

TEST_F(UceRequestsPage, EveryFieldHasANameForReaders) {
  for (const QWidget* widget : page->findChildren<QWidget*>()) {
    if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()) continue;
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    bool isNamed = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
    for (const QLabel* label : page->findChildren<QLabel*>())
      for (const QWidget* part = widget; part && part != page.get(); part = part->parentWidget())
        isNamed |= label->buddy() == part;
    EXPECT_TRUE(isNamed) << u8(widget->objectName()) << " is a "
                         << widget->metaObject()->className();
  }
}

TEST_F(UceRequestsPage, TheTabulatorGoesFromTheListThroughTheFieldsToThePlacedData) {
  tab(1);
  std::string way;
  list().setFocus();
  for (int steps = 0; steps < 60; ++steps) {
    QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
    const QWidget* at = page->focusWidget();
    while (at && at->objectName().isEmpty())
      at = at->parentWidget();
    if (at && at->objectName() == "TextNum")
      while (at && !qobject_cast<const ZEMnumeric*>(at))
        at = at->parentWidget();
    const std::string name = at ? u8(at->objectName()) : "?";
    if (qobject_cast<const QToolButton*>(at)) continue;
    if (name == "LVrequests") break;
    way += name + " ";
  }
  EXPECT_EQ(way, "TextComment CheckAccesAll CheckUsine CheckApresVente CheckEtude "
                 "CheckConstructeur CheckReport CheckManualSend TSsendReceipt Rtemplate ValLenData "
                 "ValShiftBytes DisplayRep ComboData ValStartOctet ValStartBit CheckLittleEndian "
                 "CBadd LVposdata ");
}

TEST_F(UceRequestsPage, BothHalvesHaveTheirShareOfTheWidth) {
  page->SizeControls();
  const int left = list().width(), right = frame().width();
  EXPECT_GT(left, right / 2);
  EXPECT_LT(left, right);
  for (const QSize size : {QSize(1180, 600), QSize(1900, 950)}) {
    page->resize(size);
    QCoreApplication::processEvents();
    tab(1);
    for (const char* name : {"ComboData", "ValStartOctet", "ValStartBit", "CheckLittleEndian",
                             "CBadd", "Rtemplate", "ValLenData", "LVposdata", "DisplayRep"}) {
      const QWidget& part = control<QWidget>(*page, name);
      const QRect place(part.mapTo(page.get(), QPoint()), part.size());
      EXPECT_TRUE(page->rect().contains(place)) << name;
      EXPECT_GE(part.width(), part.minimumSizeHint().width()) << name;
    }
  }
}

} // namespace
} // namespace kelmar
