// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_requests.h"

#include "controls/display_response.h"
#include "controls/zem_numeric.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
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

class UceRequestsPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceRequests> page;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    database.ActiveTarget = std::make_shared<TargetItem>();
    TargetItem& target = *database.ActiveTarget;
    target.setParametres(std::make_shared<TargetParamItem>());
    target.setAddress(122);
    target.setDatas(std::make_shared<DataItems>());
    target.setRequests(std::make_shared<RequestItems>());
    target.setOrganes(std::make_shared<OrganeItems>());
    for (const char* name : {"Speed", "Level", "Wide"})
      target.datas()->Add(name)->parent = &target;
    target.datas()->ItemName("Wide")->NumberBits = 16;
    add("Read", "2101", "6101").LengthDatas = 4;
    add("Write", "3B01AABB", "7B01");
    add("Session", "1003", "50");
    place("Read", "Speed", false, 3, 0);
    place("Read", "Wide", false, 2, 4);
    place("Write", "Level", true, 3, 0);
    page = std::make_unique<UceRequests>(person);
    page->setObjectName("UceRequests1");
    signalRecorder = std::make_unique<SignalRecorder>(*page, recorder);
    person.recordInto(recorder);
    page->InitControl();
    page->resize(1300, 680);
    page->displayDatas(database, "");
    showToUser(*page);
    recorder.take();
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }
  RequestItem& add(const std::string& name, const char* sent, const char* reply) {
    RequestItem* item = database.ActiveTarget->Requests()->Add(name);
    item->parent = database.ActiveTarget.get();
    item->RequestBytes = std::make_shared<FrameBuffer>();
    item->RequestBytes->setHexText(sent);
    item->ReplyBytes = std::make_shared<FrameBuffer>();
    item->ReplyBytes->setHexText(reply);
    return *item;
  }
  DataPositionItem& place(const char* name, const char* item, bool param, int byte, int bit) {
    RequestItem& owner = the(name);
    if (!owner.DataPositions) owner.DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = owner.DataPositions->Add(item);
    position->parent = &owner;
    position->param = param;
    position->StartOctet = byte;
    position->StartBit = bit;
    return *position;
  }
  RequestItem& the(const char* name) { return *database.ActiveTarget->Requests()->ItemName(name); }
  ListView& list() { return control<ListView>(*page, "LVrequests"); }
  ListView& placed() { return control<ListView>(*page, "LVposdata"); }
  QLineEdit& field(const char* name) { return control<QLineEdit>(*page, name); }
  ZEMnumeric& number(const char* name) { return control<ZEMnumeric>(*page, name); }
  std::string shown(const char* name) { return u8(control<QLabel>(*page, name).text()); }
  std::string caption() { return u8(control<QGroupBox>(*page, "FrameInfos").title()); }
  void key(const char* name, const char* bar = "tbToolBar") {
    click(usable<QToolButton>(control<QToolBar>(*page, QLatin1String(bar)), QLatin1String(name)));
  }
  void tab(int index) { control<QTabBar>(*page, "TSsendReceipt").setCurrentIndex(index); }
  std::string names() {
    std::string all;
    for (const RowTag tag : list().rows().tags())
      all += (all.empty() ? "" : "|") + static_cast<RequestItem*>(tag)->requestName;
    return all;
  }
  void expectTest(Answer answer) {
    person.expect("REQUESTS/MSG/TestAndConfirmChange/text", "Confirm data validation?",
                  "Requests has been modified. Validate change?", Buttons::YesNo, Icon::Question,
                  answer);
  }
};

TEST_F(UceRequestsPage, OpensOnTheFirstRequestWithItsFieldsAndCount) {
  EXPECT_EQ(names(), "Read|Write|Session");
  EXPECT_EQ(caption(), "Read");
  EXPECT_EQ(shown("lblInfo"), "3 request(s)");
  EXPECT_EQ(shown("lblReqLength"), "(2 bytes)");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
  EXPECT_EQ(number("ValLenData").value(), 4);
  EXPECT_EQ(placed().rows().rowCount(), 0);
  tab(1);
  EXPECT_EQ(rowsAsText(placed().rows()), "Wide |         2 | 4 | 16 |  | \n"
                                         "Speed |         3 | 0 | 8 |  | \n");
  EXPECT_EQ(control<DisplayResponse>(*page, "DisplayRep").NumberBytes(), 4);
  keepPicture(*page, "uce_requests_received");
}

TEST_F(UceRequestsPage, TypingMarksOnceAndCancelBringsTheItemBack) {
  retype(field("TextReqBytes"), "21014");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnChange()"}));
  EXPECT_EQ(shown("lblReqLength"), "(2 bytes)");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101");
  key("cancel");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnCancel()"}));
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
}

TEST_F(UceRequestsPage, ABadFrameIsRefusedAtValidationAndTheCommentHasGoneThrough) {
  control<QPlainTextEdit>(*page, "TextComment").setPlainText("typed\nhere");
  retype(field("TextReqBytes"), "218");
  recorder.take();
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nBad request bytes", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("valid");
  EXPECT_EQ(the("Read").Commentaire, "typed\r\nhere");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101");
  retype(field("TextReqBytes"), "2180");
  recorder.take();
  press(field("TextReqBytes"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(true)"}));
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2180");
}

TEST_F(UceRequestsPage, AnotherRowAsksFirst) {
  retype(field("TextReqBytes"), "2102");
  expectTest(Answer::Yes);
  clickRow(list(), 1);
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2102");
  EXPECT_EQ(caption(), "Write");
  retype(field("TextReqBytes"), "3B");
  expectTest(Answer::No);
  clickRow(list(), 2);
  EXPECT_EQ(the("Write").RequestBytes->HexText(), "3B01AABB");
  EXPECT_EQ(caption(), "Session");
}

TEST_F(UceRequestsPage, NewRenameAndDelete) {
  key("new");
  EXPECT_EQ(names(), "Read|Write|Session|New");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(false)"}));
  auto* editor = list().viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  editor->setText("  Read ; it ");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return caption() != "New"; }));
  EXPECT_EQ(caption(), "Read _ it");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(false)"}));
  person.expect("REQUESTS/MSG/CutRequest/text", "Confirmer delete",
                "Do you really want to delete the selected request ?\r\n\r\n****** D A N G E R "
                "******\r\nDeleting request also delete reference in devices and/or "
                "screens\r\nwithout means to recover them.",
                Buttons::OkCancel, Icon::Critical, Answer::Ok);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "Read|Write|Session");
  EXPECT_EQ(caption(), "Read");
}

TEST_F(UceRequestsPage, DeletingAllLeavesAnEmptyPage) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  person.expect("REQUESTS/MSG/CutRequest/text", "Confirmer delete",
                "Do you really want to delete the selected request ?\r\n\r\n****** D A N G E R "
                "******\r\nDeleting request also delete reference in devices and/or "
                "screens\r\nwithout means to recover them.",
                Buttons::OkCancel, Icon::Critical, Answer::Ok);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(names(), "");
  EXPECT_EQ(shown("lblInfo"), "0 request(s)");
  EXPECT_FALSE(control<QGroupBox>(*page, "FrameInfos").isEnabled());
  press(list(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(names(), "Read|Write|Session");
}

TEST_F(UceRequestsPage, NormalisingSaysTheTextsCrosswiseAndMarksTheRowBlue) {
  the("Session").parent->Parametres()->initMode = 3;
  clickRow(list(), 2);
  recorder.take();
  person.expect("REQUESTS/MSG/PopupReplyTemplateNormalize_Click/noChange/text", "Information",
                "The reply template is OK. No change applied to the database.", Buttons::Ok,
                Icon::Information, Answer::Ok);
  QTest::mouseClick(list().viewport(), Qt::RightButton, {},
                    list().visualRect(list().currentIndex()).center());
  emit list().customContextMenuRequested(list().visualRect(list().currentIndex()).center());
  auto* entry = list().findChild<QAction*>("PopupReplyTemplateNormalize");
  ASSERT_TRUE(entry);
  entry->trigger();
  EXPECT_EQ(the("Session").ReplyBytes->HexText(), "5003");
  EXPECT_EQ(u8(field("Rtemplate").text()), "5003");
  const CellLook look = list().rows().cellLookOf(&the("Session"), 1);
  EXPECT_EQ(look.colour, 0xFF0000u);
  EXPECT_EQ(look.bold, true);
}

TEST_F(UceRequestsPage, TypingAStartByteMovesTheBitsAndCancelReturnsThem) {
  tab(1);
  clickRow(placed(), 1);
  auto& view = control<DisplayResponse>(*page, "DisplayRep");
  recorder.take();
  retype(control<QLineEdit>(number("ValStartOctet"), "TextNum"), "4");
  EXPECT_TRUE(view.datas()->FindItem(8, 4, 0));
  EXPECT_EQ(the("Read").DataPositions->ItemName("Speed")->StartOctet, 3);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnChange()"}));
  key("cancel", "TBPosData");
  EXPECT_TRUE(view.datas()->FindItem(8, 3, 0));
  retype(control<QLineEdit>(number("ValStartOctet"), "TextNum"), "4");
  key("save", "TBPosData");
  EXPECT_EQ(the("Read").DataPositions->ItemName("Speed")->StartOctet, 4);
}

TEST_F(UceRequestsPage, DataBehindTheAnswerTurnTheViewOrange) {
  place("Read", "Level", false, 5, 0);
  tab(1);
  EXPECT_EQ(control<DisplayResponse>(*page, "DisplayRep").BackColor(), 0x0080FFu);
  EXPECT_TRUE(control<QLabel>(*page, "errorMsg").isVisible());
  EXPECT_EQ(shown("errorMsg").substr(0, 8), "Warning!");
  keepPicture(*page, "uce_requests_outside");
}

TEST_F(UceRequestsPage, AClickOnABitSelectsTheDataThere) {
  tab(1);
  auto& view = control<DisplayResponse>(*page, "DisplayRep");
  QTest::mouseClick(&view, Qt::LeftButton, {}, view.cellRect(2, 3).center());
  EXPECT_EQ(placed().selectedTags().size(), 2u);
  QTest::mouseClick(&view, Qt::LeftButton, {}, view.cellRect(0, 3).center());
  EXPECT_TRUE(placed().selectedTags().empty());
}

TEST_F(UceRequestsPage, ADataIsAddedByNameAndTheSecondTimeRefused) {
  tab(1);
  auto& names = control<QComboBox>(*page, "ComboData");
  names.setCurrentText("Level");
  emit names.textActivated("Level");
  EXPECT_EQ(control<QPushButton>(*page, "CBadd").text(), "Add");
  recorder.take();
  click(usable<QPushButton>(*page, "CBadd"));
  EXPECT_TRUE(the("Read").DataPositions->ItemName("Level"));
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnSave(false)"}));
  EXPECT_EQ(control<QPushButton>(*page, "CBadd").text(), "Mod");
}

TEST_F(UceRequestsPage, HelpOpensThePlaceOfTheFocus) {
  press(list(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, )"}));
  press(placed(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, data)"}));
}

TEST_F(UceRequestsPage, AWayInChoosesRequestDataAndSide) {
  page->hide();
  page->setEditRequestName("Write");
  page->setEditDataName("Level");
  page->show();
  page->displayDatas(database, "");
  EXPECT_EQ(caption(), "Write");
  EXPECT_EQ(page->EditDataName(), "Level");
  EXPECT_EQ(control<QTabBar>(*page, "TSsendReceipt").currentIndex(), 0);
}

} // namespace
