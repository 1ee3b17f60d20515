// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The placed data of one side of a request: list, fields, tool bar and menu.
#include "window/uce_requests_fixture.h"

#include <QApplication>
#include <QHeaderView>
#include <QWheelEvent>

namespace kelmar {
namespace {

using namespace support;
using desktop::clipboardText;
using desktop::setClipboardText;
using desktop::u8;

class PositionPaneOfRequests : public UceRequestsWindow {
 protected:
  void SetUp() override {
    UceRequestsWindow::SetUp();
    tab(1); // Wide at 2.4, Speed at 3.0, in a frame of 4 bytes
    recorder.take();
  }
  std::string tag() { return u8(adding().property("tag").toString()); }
};

TEST_F(PositionPaneOfRequests, TheFirstRowByByteAndBitIsChosen) {
  EXPECT_EQ(selectedDatas(), "Wide");
  EXPECT_EQ(u8(names().currentText()), "Wide");
  EXPECT_EQ(number("ValStartOctet").value(), 2);
  EXPECT_EQ(number("ValStartBit").value(), 4);
  EXPECT_FALSE(box("CheckLittleEndian").isChecked());
  EXPECT_EQ(tag(), "MOD");
  EXPECT_EQ(adding().text(), "Mod");
  EXPECT_EQ(adding().toolTip(), "Add new data");
  EXPECT_TRUE(view().datas()->FindItem(16, 2, 4)->Selected);
  EXPECT_FALSE(view().datas()->FindItem(8, 3, 0)->Selected);
}

TEST_F(PositionPaneOfRequests, ColumnsBearTheirCaptions) {
  const char* captions[] = {"Data name",    "Start byte", "Offset bit",
                            "Numbers bits", "Ref",        "Device"};
  for (int column = 0; column < 6; ++column)
    EXPECT_EQ(u8(placed().rows().headerData(column, Qt::Horizontal).toString()), captions[column]);
}

TEST_F(PositionPaneOfRequests, TypingAStartByteMovesTheBitsAndCancelReturnsThem) {
  clickRow(placed(), 1);
  retype(numberText("ValStartOctet"), "4");
  EXPECT_TRUE(view().datas()->FindItem(8, 4, 0));
  EXPECT_EQ(position("Read", "Speed").StartOctet, 3);
  EXPECT_EQ(recorder.take(), changed);
  key("cancel", "TBPosData");
  EXPECT_TRUE(view().datas()->FindItem(8, 3, 0));
  EXPECT_EQ(number("ValStartOctet").value(), 3);
  EXPECT_EQ(position("Read", "Speed").StartOctet, 3);
  EXPECT_EQ(recorder.take(), Events{}) << "the request is still marked, so nothing was cancelled";
  key("cancel");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnCancel()"}));
}

TEST_F(PositionPaneOfRequests, CancelIsThereForWhatIsPendingOnly) {
  EXPECT_FALSE(isUsable("cancel", "TBPosData"));
  chooseName("Level");
  key("cancel", "TBPosData");
  EXPECT_EQ(u8(names().currentText()), "Wide");
  EXPECT_EQ(tag(), "MOD");
  EXPECT_EQ(recorder.take(), Events{}) << "nothing was changed, so nothing was cancelled";
}

TEST_F(PositionPaneOfRequests, AClickOnTheCurrentRowLeadsBackToItsData) {
  chooseName("Level");
  ASSERT_EQ(tag(), "ADD");
  clickRow(placed(), 0);
  EXPECT_EQ(tag(), "MOD");
  EXPECT_EQ(u8(names().currentText()), "Wide");
  EXPECT_TRUE(view().datas()->FindItem(16, 2, 4)->Selected);
  chooseName("Level");
  clickBit(1, 3); // of Wide
  EXPECT_EQ(tag(), "MOD");
  EXPECT_EQ(u8(names().currentText()), "Wide");
  EXPECT_TRUE(view().datas()->FindItem(16, 2, 4)->Selected);
}

TEST_F(PositionPaneOfRequests, AHeaderSortsTheRowsUntilTheyAreSetAnewByByteAndBit) {
  EXPECT_EQ(placed().header()->sortIndicatorSection(), 1);
  placed().header()->setSortIndicator(0, Qt::AscendingOrder);
  EXPECT_EQ(placed().rows().tagAt(0), &position("Read", "Speed"));
  clickRow(placed(), 1);
  retype(numberText("ValStartBit"), "3");
  key("save", "TBPosData");
  EXPECT_EQ(placed().rows().tagAt(0), &position("Read", "Wide"));
  EXPECT_EQ(placed().header()->sortIndicatorSection(), 1);
  EXPECT_EQ(selectedDatas(), "Wide") << "and what was chosen stays";
  EXPECT_EQ(u8(names().currentText()), "Wide");
}

TEST_F(PositionPaneOfRequests, WhatIsTypedForADataToBeAddedLeavesTheRowAlone) {
  chooseName("Level");
  retype(numberText("ValStartOctet"), "4");
  click(box("CheckLittleEndian"));
  EXPECT_TRUE(view().datas()->FindItem(8, 4, 4)) << "where it would lie";
  retype(numberText("ValStartOctet"), "2");
  EXPECT_TRUE(view().datas()->FindItem(8, 2, 4)) << "also on the byte of the row";
  retype(numberText("ValStartOctet"), "4");
  EXPECT_EQ(recorder.take(), Events{});
  key("save");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 2);
  EXPECT_FALSE(position("Read", "Wide").LittleEndian);
  chooseName("Level");
  retype(numberText("ValStartOctet"), "4");
  key("save", "TBPosData");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 2);
}

TEST_F(PositionPaneOfRequests, WhatIsTypedForADataToBeAddedIsOfTheRowOnceItsNameIsBack) {
  chooseName("Level");
  retype(numberText("ValStartOctet"), "4");
  recorder.take();
  chooseName("Wide");
  EXPECT_TRUE(view().datas()->FindItem(16, 4, 4)->Selected);
  EXPECT_EQ(recorder.take(), changed);
  expectPositionConfirmation(Answer::Yes);
  clickRow(placed(), 1);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 4);
}

TEST_F(PositionPaneOfRequests, AnotherNameAsksAboutWhatWasTypedForTheRow) {
  retype(numberText("ValStartOctet"), "3");
  expectPositionConfirmation(Answer::Yes);
  chooseName("Level");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_EQ(u8(names().currentText()), "Level");
  EXPECT_EQ(tag(), "ADD");
  click(adding());
  EXPECT_EQ(position("Read", "Level").StartOctet, 3);
  retype(numberText("ValStartOctet"), "4");
  expectPositionConfirmation(Answer::No);
  chooseName("Speed");
  EXPECT_EQ(position("Read", "Level").StartOctet, 3);
  EXPECT_TRUE(view().datas()->FindItem(8, 3, 4)->Selected) << "where the other one would lie";
}

TEST_F(PositionPaneOfRequests, ThePlaceOfAnUnknownDataIsTypedAndKeptBeforeAnotherIsAdded) {
  position("Read", "Speed").dataName = "Gone";
  DataPositionItem& gone = position("Read", "Gone");
  enterAgain();
  const auto expectUnknown = [this] {
    person.expect("REQUESTS/MSG/SetDataPosToScreen/text", "Internal error",
                  "Unknown Data 'Gone' in combobox", Buttons::Ok, Icon::Critical, Answer::Ok);
  };
  expectUnknown();
  clickRow(placed(), 1);
  retype(numberText("ValStartOctet"), "4");
  expectPositionConfirmation(Answer::Yes);
  expectUnknown();
  chooseName("Level");
  EXPECT_EQ(gone.StartOctet, 4);
  EXPECT_EQ(u8(names().currentText()), "Level");
}

TEST_F(PositionPaneOfRequests, ADataIsFoundByItsNameInAnyCase) {
  DataPositionItem& speed = position("Read", "Speed");
  speed.dataName = "speed";
  enterAgain();
  clickRow(placed(), 1);
  EXPECT_EQ(u8(names().currentText()), "Speed");
  EXPECT_EQ(tag(), "MOD");
  chooseName("Level");
  chooseName("Speed");
  EXPECT_EQ(tag(), "MOD") << "the row has this data already";
  click(adding());
  EXPECT_EQ(placed().rows().rowCount(), 2);
}

TEST_F(PositionPaneOfRequests, ANegativeNumberStaysInAHexadecimalFieldThatNobodyTouches) {
  position("Read", "Speed").StartOctet = -2;
  enterAgain();
  number("ValStartOctet").setBase(1);
  clickRow(placed(), 1);
  EXPECT_EQ(number("ValStartOctet").value(), -2);
  EXPECT_EQ(u8(numberText("ValStartOctet").text()), "-2");
  key("save");
  EXPECT_EQ(position("Read", "Speed").StartOctet, -2);
}

TEST_F(PositionPaneOfRequests, AStartByteMayLieBehindTheBytesThatAreShown) {
  the("Read").LengthDatas = 6000;
  enterAgain();
  retype(numberText("ValStartOctet"), "5000");
  key("save");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 5000);
  retype(numberText("ValStartOctet"), "3000000000");
  key("save");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 2147483647);
}

TEST_F(PositionPaneOfRequests, OfTwoDataOnOneBitTheBitsOfTheChosenOneAreMarkedAndMoved) {
  data("Speed")->NumberBits = data("Level")->NumberBits = 3;
  position("Read", "Speed").StartBit = 2;
  place("Read", "Level", false, 3, 2).LittleEndian = true;
  enterAgain();
  clickRow(placed(), 2);
  ASSERT_EQ(selectedDatas(), "Level");
  const auto isChosen = [this](const DisplayRespData& shown) {
    return shown.Name == "Level" ? shown.Selected && shown.LittleEndian : !shown.Selected;
  };
  for (const DisplayRespData* shown : *view().datas())
    EXPECT_TRUE(isChosen(*shown)) << shown->Name;
  retype(numberText("ValStartBit"), "4");
  for (const DisplayRespData* shown : *view().datas())
    EXPECT_EQ(shown->OffsetBit, shown->Name == "Speed" ? 2 : 4) << shown->Name;
}

TEST_F(PositionPaneOfRequests, TheTabulatorComesToTheButtonsBetweenTheViewAndTheFields) {
  view().setFocus();
  std::string way;
  while (way.find("ComboData") == std::string::npos && way.size() < 200) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    way += u8(QApplication::focusWidget()->objectName()) + " ";
  }
  EXPECT_EQ(way, "save cut copy paste ref unref ComboData ") << "nothing is there to cancel";
}

TEST_F(PositionPaneOfRequests, TheWheelPassesOverTheName) {
  const auto turn = [this] {
    QWheelEvent wheel({5, 5}, names().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&names(), &wheel);
  };
  names().setCurrentText("Speed");
  list().setFocus();
  turn();
  EXPECT_EQ(u8(names().currentText()), "Speed");
  names().setFocus();
  turn();
  EXPECT_EQ(u8(names().currentText()), "Level");
}

TEST_F(PositionPaneOfRequests, SaveTakesPlacementAndRequestOver) {
  retype(numberText("ValStartBit"), "0");
  click(box("CheckLittleEndian"));
  retype(field("Rtemplate"), "61");
  recorder.take();
  key("save", "TBPosData");
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_EQ(position("Read", "Wide").StartBit, 0);
  EXPECT_TRUE(position("Read", "Wide").LittleEndian);
  EXPECT_EQ(the("Read").ReplyBytes->HexText(), "61");
  EXPECT_EQ(rowsAsText(placed().rows()), "Wide |         2 | 0 | 16 |  | \n"
                                         "Speed |         3 | 0 | 8 |  | \n");
  clickRow(list(), 1);
  EXPECT_EQ(caption(), "Write") << "nothing is left to be asked about";
}

TEST_F(PositionPaneOfRequests, SaveWithABadFrameIsAUserError) {
  retype(field("Rtemplate"), "6");
  retype(numberText("ValStartBit"), "0");
  person.expect("REQUESTS/MSG/TBPosData_ButtonClick/userError/text", "User Error",
                "Bad reply bytes", Buttons::Ok, Icon::Critical, Answer::Ok);
  expectPositionConfirmation(Answer::No);
  key("save", "TBPosData");
  EXPECT_EQ(position("Read", "Wide").StartBit, 4);
}

TEST_F(PositionPaneOfRequests, ModIsTheSameAsSave) {
  retype(numberText("ValStartOctet"), "1");
  person.expect("REQUESTS/MSG/GetDataPosFromScreen/text", "Please contact Hotline",
                "Request=Read\r\nData=Wide\r\nStart Byte change from 2 to 1\r\nSelected text=Read",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  recorder.take();
  click(adding());
  EXPECT_EQ(position("Read", "Wide").StartOctet, 1);
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
  EXPECT_NE(warning(), "") << "a data lies on the service byte now";
}

TEST_F(PositionPaneOfRequests, AnotherRowAsksAndYesShowsWhatWasTaken) {
  retype(numberText("ValStartOctet"), "1");
  retype(numberText("ValStartOctet"), "3");
  expectPositionConfirmation(Answer::Yes);
  clickRow(placed(), 1);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_EQ(placed().rows().textOf(&position("Read", "Wide"), 1), "        3");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnChange()",
                                     "box Confirm change: Data has been modified. Save change?",
                                     "UceRequests1.OnSave(false)"}));
  EXPECT_EQ(u8(names().currentText()), "Speed");
}

TEST_F(PositionPaneOfRequests, AnotherRowAsksAndNoReturnsTheBits) {
  retype(numberText("ValStartOctet"), "4");
  expectPositionConfirmation(Answer::No);
  clickRow(placed(), 1);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 2);
  EXPECT_TRUE(view().datas()->FindItem(16, 2, 4));
  EXPECT_FALSE(view().datas()->FindItem(16, 4, 4));
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnCancel()");
  retype(numberText("ValStartOctet"), "4");
  expectPositionConfirmation(Answer::No);
  press(placed(), Qt::Key_Up);
  EXPECT_TRUE(view().datas()->FindItem(8, 3, 0)) << "with the keyboard, too";
}

TEST_F(PositionPaneOfRequests, AnotherTabAsksBeforeTheSideChanges) {
  retype(numberText("ValStartOctet"), "3");
  expectPositionConfirmation(Answer::Yes);
  tab(0);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_FALSE(position("Read", "Wide").param) << "it stays on the side where it was";
  EXPECT_EQ(placed().rows().rowCount(), 0);
  EXPECT_EQ(tag(), "ADD");
  EXPECT_EQ(adding().text(), "Add");
}

TEST_F(PositionPaneOfRequests, ValidTakesBothHalvesAndDrawsAnew) {
  retype(numberText("ValStartOctet"), "3");
  retype(numberText("ValStartBit"), "0");
  recorder.take();
  key("valid");
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_EQ(rowsAsText(placed().rows()), "Speed |         3 | 0 | 8 |  | \n"
                                         "Wide |         3 | 0 | 16 |  | \n");
  EXPECT_EQ(selectedDatas(), "Wide");
}

TEST_F(PositionPaneOfRequests, ADataIsAddedByNameAndTheSecondTimeRefused) {
  chooseName("Level");
  EXPECT_EQ(tag(), "ADD");
  EXPECT_TRUE(view().datas()->FindItem(8, 2, 4)->Selected) << "where it would lie";
  retype(numberText("ValStartOctet"), "4");
  retype(numberText("ValStartBit"), "0");
  EXPECT_TRUE(view().datas()->FindItem(8, 4, 0));
  recorder.take();
  click(usable<QPushButton>(*page, "CBadd"));
  EXPECT_EQ(position("Read", "Level").StartOctet, 4);
  EXPECT_FALSE(position("Read", "Level").param);
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_EQ(tag(), "MOD");
  EXPECT_EQ(selectedDatas(), "Level");
  chooseName("Speed");
  person.expect("REQUESTS/MSG/CBadd_Click/alreadyUsed/text", "Error",
                "Data 'Speed' already used in this request.", Buttons::Ok, Icon::Critical,
                Answer::Ok);
  click(adding());
  EXPECT_EQ(placed().rows().rowCount(), 3);
}

TEST_F(PositionPaneOfRequests, TheNameOfTheChosenRowLeadsBackToIt) {
  chooseName("Level");
  EXPECT_FALSE(view().datas()->FindItem(16, 2, 4)) << "the preview is of the chosen data alone";
  chooseName("Wide");
  EXPECT_EQ(tag(), "MOD");
  EXPECT_TRUE(view().datas()->FindItem(16, 2, 4)->Selected);
  EXPECT_FALSE(view().datas()->FindItem(8, 2, 4));
}

TEST_F(PositionPaneOfRequests, WithoutANameNothingIsAdded) {
  clickRow(list(), 2); // no data is placed there
  names().setCurrentIndex(-1);
  person.expect("REQUESTS/MSG/CBadd_Click/userError/text", "User error", "Choose the new data name",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  click(adding());
  EXPECT_FALSE(the("Session").DataPositions && the("Session").DataPositions->Count() > 0);
}

TEST_F(PositionPaneOfRequests, AParameterIsAddedToTheSentFrame) {
  clickRow(list(), 2);
  tab(0);
  chooseName("Level");
  retype(numberText("ValStartOctet"), "2");
  retype(numberText("ValStartBit"), "0");
  click(adding());
  EXPECT_TRUE(position("Session", "Level").param);
  tab(1);
  EXPECT_EQ(placed().rows().rowCount(), 0);
}

TEST_F(PositionPaneOfRequests, APreviewBehindTheFrameAppearsOnceItIsInside) {
  chooseName("Level");
  retype(numberText("ValStartOctet"), "9");
  chooseName("Speed"); // starts behind the end
  EXPECT_FALSE(view().datas()->FindItem(8, 9, 4));
  retype(numberText("ValStartOctet"), "4");
  EXPECT_TRUE(view().datas()->FindItem(8, 4, 4));
}

TEST_F(PositionPaneOfRequests, DataBehindTheAnswerIsRedAndTheViewOrange) {
  data("Level")->NumberBits = 16;
  place("Read", "Level", false, 4, 0);
  enterAgain();
  EXPECT_EQ(view().BackColor(), 0x0080FFu);
  EXPECT_EQ(view().ForeColor(), 0xFFFFFFu);
  EXPECT_EQ(warning(), "Warning!\r\nSome data are outside of the answer (notified in red in the "
                       "data list). This may be necessary for some request (such as ReadDTC, "
                       "etc...).");
  const RowLook look = placed().rows().lookOf(&position("Read", "Level"));
  EXPECT_TRUE(look.bold);
  EXPECT_EQ(look.colour, 255u);
  EXPECT_EQ(look.toolTip, "Data is outside of the answer");
  EXPECT_FALSE(view().datas()->FindItem(16, 4, 0)) << "it is not drawn";
  keepPicture(*page, "uce_requests_outside");
  retype(numberText("ValLenData"), "5");
  key("valid");
  EXPECT_EQ(view().BackColor(), 0x8000000Fu);
  EXPECT_EQ(warning(), "");
}

TEST_F(PositionPaneOfRequests, DataBehindTheRequestIsOnlyAWarningForAReadOfFaults) {
  add("ReadDTC", "17FF0000", "57");
  place("ReadDTC", "Speed", true, 5, 0);
  enterAgain();
  clickRow(list(), 3);
  tab(0);
  EXPECT_EQ(placed().rows().lookOf(&position("ReadDTC", "Speed")).toolTip,
            "Data is outside of the request");
  EXPECT_EQ(warning().substr(0, 53), "Warning!\r\nSome data are outside of the request (notif");
  recorder.take();
  key("valid");
  EXPECT_EQ(recorder.take(), saved) << "nothing is refused";
}

TEST_F(PositionPaneOfRequests, InARequestOfFourBytesADataThatEndsAtByteFiveIsRedAndNotDrawn) {
  add("ReadDTC", "17FF0000", "57");
  place("ReadDTC", "Wide", true, 3, 0);
  enterAgain();
  clickRow(list(), 3);
  tab(0);
  EXPECT_TRUE(view().datas()->FindItem(16, 3, 0)) << "it ends at byte 4";
  EXPECT_EQ(view().BackColor(), 0x8000000Fu);
  retype(numberText("ValStartBit"), "1");
  recorder.take();
  key("save", "TBPosData");
  EXPECT_EQ(recorder.take(), saved) << "of a request such as this one nothing is refused";
  EXPECT_EQ(position("ReadDTC", "Wide").StartBit, 1);
  const RowLook look = placed().rows().lookOf(&position("ReadDTC", "Wide"));
  EXPECT_TRUE(look.bold);
  EXPECT_EQ(look.colour, 255u);
  EXPECT_EQ(look.toolTip, "Data is outside of the request");
  EXPECT_FALSE(view().datas() && view().datas()->FindItem(16, 3, 1)) << "it is not drawn";
  EXPECT_EQ(view().BackColor(), 0x0080FFu);
  EXPECT_EQ(warning().substr(0, 53), "Warning!\r\nSome data are outside of the request (notif");
}

TEST_F(PositionPaneOfRequests, ALongMenuOfNamesIsMadeWhenItIsOpened) {
  for (int i = 0; i < 300; ++i) {
    const std::string name = "Data " + std::to_string(i);
    target().datas()->Add(name)->parent = &target();
  }
  QMenu& menu = openDataMenu();
  auto* below = menu.findChild<QMenu*>("ppDataReplace");
  ASSERT_TRUE(below);
  EXPECT_TRUE(below->isEnabled());
  EXPECT_TRUE(below->isEmpty());
  below->popup(menu.pos());
  EXPECT_EQ(below->actions().size(), 304) << "the new one, the three and these";
  below->close();
  choose(menu, "ppDataReplaceData", 2);
  EXPECT_EQ(selectedDatas(), "Level");
}

TEST_F(PositionPaneOfRequests, APositionWithoutDataIsToldAndCannotBeChosenForNothing) {
  position("Read", "Speed").dataName = "Gone";
  page->setEditDataName("");
  clickRow(list(), 1);
  person.expect("REQUESTS/MSG/SetDataPosToScreen/text", "Internal error",
                "Unknown Data 'Gone' in combobox", Buttons::Ok, Icon::Critical, Answer::Ok);
  page->setEditDataName("Gone");
  clickRow(list(), 0);
  tab(1);
  EXPECT_EQ(rowsAsText(placed().rows()),
            "Wide |         2 | 4 | 16 |  | \n"
            "ERROR DATA UNKNOWN : Gone |         3 | 0 | UNKNOWN |  |  #0000FF\n");
  EXPECT_EQ(tag(), "ADD");
}

TEST_F(PositionPaneOfRequests, DevicesAndHoldersShowInTheirColumns) {
  position("Read", "Speed").reference = true;
  place("Write", "Speed", true, 2, 0);
  OrganeItem* pump = target().Organes()->Add("Pump");
  pump->parent = &target();
  pump->DeviceDatas->Add("Speed", true)->parent = pump;
  pump->DeviceDatas->ItemName("Speed")->FlagPanne = true;
  enterAgain();
  EXPECT_EQ(rowsAsText(placed().rows()),
            "Wide |         2 | 4 | 16 |  | \n"
            "Speed |         3 | 0 | 8 | [Ref] | Pump ! #00C6D1 (Failure flag in device 'Pump')\n");
  clickRow(list(), 1);
  tab(0);
  EXPECT_EQ(rowsAsText(placed().rows()),
            "Speed |         2 | 0 | 8 | Read (Referenced in request 'Read') | \n"
            "Level |         3 | 0 | 8 |  | \n");
}

TEST_F(PositionPaneOfRequests, ReferencesByF9AndF10) {
  press(placed(), Qt::Key_F9);
  EXPECT_TRUE(position("Read", "Wide").reference);
  EXPECT_EQ(placed().rows().textOf(&position("Read", "Wide"), 4), "[Ref]");
  EXPECT_EQ(recorder.take(), saved);
  press(placed(), Qt::Key_F9);
  EXPECT_EQ(recorder.take(), Events{});
  press(placed(), Qt::Key_F10);
  EXPECT_FALSE(position("Read", "Wide").reference);
  EXPECT_EQ(recorder.take(), saved);
  place("Write", "Wide", true, 2, 0).reference = true;
  person.expect("REQUESTS/MSG/RefDataPos/text", "Unable to change",
                "Data 'Wide' is already defined as reference in request 'Write'", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("ref", "TBPosData");
  EXPECT_FALSE(position("Read", "Wide").reference);
}

TEST_F(PositionPaneOfRequests, AReferenceThatADeviceUsesStays) {
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  key("ref", "TBPosData");
  EXPECT_TRUE(position("Read", "Wide").reference && position("Read", "Speed").reference);
  OrganeItem* pump = target().Organes()->Add("Pump");
  pump->parent = &target();
  pump->DeviceDatas->Add("Speed", false)->parent = pump;
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  person.expect("REQUESTS/MSG/UnRefDataPos/text", "Unable to change",
                "Data 'Speed' is used by device 'Pump'", Buttons::Ok, Icon::Critical, Answer::Ok);
  key("unref", "TBPosData");
  EXPECT_FALSE(position("Read", "Wide").reference);
  EXPECT_TRUE(position("Read", "Speed").reference);
}

TEST_F(PositionPaneOfRequests, CutAsksAndPasteBringsBack) {
  clickRow(placed(), 1);
  expectPositionDeletion(Answer::Cancel);
  key("cut", "TBPosData");
  EXPECT_EQ(placed().rows().rowCount(), 2);
  expectPositionDeletion(Answer::Ok);
  press(placed(), Qt::Key_Delete);
  EXPECT_EQ(placed().rows().rowCount(), 1);
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
  EXPECT_FALSE(view().datas()->FindItem(8, 3, 0));
  press(placed(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(rowsAsText(placed().rows()), "Wide |         2 | 4 | 16 |  | \n"
                                         "Speed |         3 | 0 | 8 |  | \n");
  EXPECT_EQ(recorder.take(), saved);
}

TEST_F(PositionPaneOfRequests, ACopyGoesToTheSideThatIsShown) {
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  press(placed(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_NE(clipboardText().find("<Request Name=\"Read\" Sent=\"0\">"), std::string::npos);
  clickRow(list(), 1);
  tab(0);
  key("paste", "TBPosData");
  EXPECT_TRUE(position("Write", "Speed").param && position("Write", "Wide").param);
  EXPECT_EQ(recorder.take(), saved);
}

TEST_F(PositionPaneOfRequests, TextOfTheMenuHasNoHeaderAndAsksTwiceBeforeAnUpdate) {
  chooseForData("ppDataCopyText");
  EXPECT_EQ(clipboardText(), "Wide\t2\t4\t0\t0\r\n");
  setClipboardText("Wide\t3\t0\n");
  expectYesNo("", "Confirm data update",
              "Data 'Wide' already used in this request, update data position parameters ?",
              Answer::Yes);
  expectYesNo("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", "Confirm data update",
              "Data 'Wide' already used in this request. Update data position parameters?",
              Answer::Yes);
  chooseForData("ppDataPaste");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_EQ(position("Read", "Wide").StartBit, 0);
}

TEST_F(PositionPaneOfRequests, PasteOfUnknownDataFillsTheNamesToo) {
  setClipboardText("Fresh\t4\r\n");
  expectYesNo("REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text", "Confirm data creation",
              "Data 'Fresh' doesn't exist. Do you want to create this data with default parameters "
              "(numeric, 8 bits)?",
              Answer::Yes);
  key("paste", "TBPosData");
  EXPECT_EQ(position("Read", "Fresh").StartOctet, 4);
  EXPECT_GE(names().findText("Fresh"), 0);
}

TEST_F(PositionPaneOfRequests, WhatAPasteCouldNotAddIsToldBesideTheRowsThatItAdded) {
  const std::string tooLong(71, 'x');
  setClipboardText("Level\t4\r\n" + tooLong + "\r\n");
  person.expect(
      {"REQUESTS/MSG/warning/text", "Warning",
       "Data name '" + tooLong + "' is too long (up to 70 characters). Data not added.\r\n",
       Buttons::Ok, Icon::Exclamation},
      Answer::Ok, [this] {
        EXPECT_EQ(placed().rows().rowCount(), 3);
        EXPECT_EQ(recorder.take().size(), 1u) << "the box alone, nothing is saved yet";
      });
  key("paste", "TBPosData");
  EXPECT_EQ(recorder.take(), saved);
}

TEST_F(PositionPaneOfRequests, PasteOfSomethingElseIsToldAndChangesNothing) {
  setClipboardText("<Screens/>");
  person.expect("REQUESTS/MSG/pasteDataPositions/badClipboardData/text", "Error",
                "Bad clipboard data format", Buttons::Ok, Icon::Critical, Answer::Ok);
  key("paste", "TBPosData");
  EXPECT_EQ(placed().rows().rowCount(), 2);
  EXPECT_EQ(recorder.take().size(), 1u);
}

TEST_F(PositionPaneOfRequests, WhatIsPendingIsAskedAboutBeforeAPaste) {
  retype(numberText("ValStartOctet"), "3");
  setClipboardText("Level\t4\r\n");
  expectPositionConfirmation(Answer::Yes);
  key("paste", "TBPosData");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 3);
  EXPECT_EQ(position("Read", "Level").StartOctet, 4);
}

TEST_F(PositionPaneOfRequests, TheOrderOfBitsIsTurnedOnTheSameBits) {
  data("Speed")->NumberBits = 3;
  position("Read", "Speed").StartBit = 2;
  enterAgain();
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  recorder.take();
  chooseForData("ppDataToggleEndian");
  EXPECT_EQ(position("Read", "Speed").StartBit, 3);
  EXPECT_TRUE(position("Read", "Speed").LittleEndian);
  EXPECT_FALSE(position("Read", "Wide").LittleEndian) << "wider data stay, without a word";
  EXPECT_EQ(recorder.take(), saved);
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  chooseForData("ppDataSetEndianDefault");
  EXPECT_EQ(position("Read", "Speed").StartBit, 2);
  EXPECT_FALSE(position("Read", "Speed").LittleEndian);
  recorder.take();
  press(placed(), Qt::Key_A, Qt::ControlModifier);
  chooseForData("ppDataSetEndianDefault");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(PositionPaneOfRequests, ReplaceTakesADataOfTheMenuOrANewOne) {
  chooseForData("ppDataReplaceData", 2); // new one, Speed, Level, Wide in this order
  EXPECT_EQ(position("Read", "Level").StartOctet, 2);
  EXPECT_EQ(selectedDatas(), "Level");
  EXPECT_EQ(recorder.take(), saved);
  person.expectInput({"REQUESTS/MSG/ppDataReplaceData_Click/inputName/text", "Replace data",
                      "Enter new data name", "New"},
                     "Wide");
  person.expectInput({"REQUESTS/MSG/ppDataReplaceData_Click/inputError/text", "Replace data",
                      "Error: data 'Wide' already exists!\r\nEnter new data name:", "Wide"},
                     "Other");
  data("Level")->NumberBits = 5;
  chooseForData("ppDataReplaceData", 0);
  EXPECT_EQ(position("Read", "Other").StartOctet, 2);
  EXPECT_EQ(data("Other")->NumberBits, 5);
  EXPECT_GE(names().findText("Other"), 0);
  person.expect("REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyExists/text", "Error",
                "Data 'Speed' already exists in this request", Buttons::Ok, Icon::Critical,
                Answer::Ok);
  QMenu& menu = openDataMenu();
  for (QAction* entry : menu.findChildren<QAction*>("ppDataReplaceData"))
    if (entry->text() == "Speed") entry->trigger();
  menu.close();
}

TEST_F(PositionPaneOfRequests, GotoLeadsToTheDataOfTheRow) {
  QMenu& menu = openDataMenu();
  EXPECT_EQ(u8(menu.findChild<QAction*>("ppDataGoto")->text()), "Goto data : Wide");
  for (const char* entry :
       {"ppDataGotoDev", "ppDataGotoScr", "ppDataAssociateDevice", "ppCDcopyDataToScreens"})
    EXPECT_FALSE(menu.findChild<QAction*>(entry)) << entry << " comes with its page";
  choose(menu, "ppDataGoto");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.OnDataSelect(Wide)"}));
  emit placed().customContextMenuRequested({20, placed().viewport()->height() - 3});
  QMenu& besideRows = menuOf(placed(), "PopupmenuData");
  EXPECT_FALSE(besideRows.findChild<QAction*>("ppDataGoto")->isEnabled());
  besideRows.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  emit placed().customContextMenuRequested({20, -500}); // by the menu key
  choose(menuOf(placed(), "PopupmenuData"), "ppDataHelp");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.help(request, data)"}));
}

TEST_F(PositionPaneOfRequests, TheMenuCutsAndCopies) {
  chooseForData("ppDataCopy");
  EXPECT_EQ(clipboardText().substr(0, 10), "<Positions");
  expectPositionDeletion(Answer::Ok);
  chooseForData("ppDataCut");
  EXPECT_EQ(placed().rows().rowCount(), 1);
}

TEST_F(PositionPaneOfRequests, ADataPagesFragmentIsPlacedOnByteOne) {
  setClipboardText("<Datas><Data Name='Level'/></Datas>");
  key("paste", "TBPosData");
  EXPECT_EQ(position("Read", "Level").StartOctet, 1);
  EXPECT_EQ(warning().substr(0, 30), "Request with data on 1st byte.");
}

} // namespace
} // namespace kelmar
