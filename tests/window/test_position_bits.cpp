// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The byte view on the page of requests: bits by mouse and by keyboard, and data made on them.
#include "window/uce_requests_fixture.h"

namespace kelmar {
namespace {

using namespace support;
using desktop::setClipboardText;
using desktop::u8;

class PositionBits : public UceRequestsWindow {
 protected:
  void SetUp() override {
    UceRequestsWindow::SetUp();
    tab(1); // Wide at 2.4, Speed at 3.0, in a frame of 4 bytes
    recorder.take();
  }
  QMenu& menuOfBit(int byte, int cell) {
    clickBit(byte, cell, Qt::RightButton);
    return menuOf(view(), "PopupCreateData");
  }
  void names1(const char* key, const char* text, const char* answer) {
    person.expectInput({key, "Enter data name", text, ""}, answer);
  }
};

TEST_F(PositionBits, AClickSelectsAllDataOfTheBit) {
  clickBit(2, 7); // Wide runs from 2.4 to 4.3, Speed fills byte 3
  EXPECT_EQ(selectedDatas(), "Wide|Speed");
  clickBit(1, 3);
  EXPECT_EQ(selectedDatas(), "Wide");
  EXPECT_EQ(u8(names().currentText()), "Wide");
  clickBit(1, 4);
  EXPECT_EQ(selectedDatas(), "") << "a bit outside every data deselects all rows";
  clickBit(3, 4);
  EXPECT_EQ(selectedDatas(), "Wide");
  clickBit(3, 3);
  EXPECT_EQ(selectedDatas(), "");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(PositionBits, AClickFindsLittleEndianDataFromTheRight) {
  position("Read", "Wide").LittleEndian = true; // 2.4 up to bit 7, byte 3, then 4.0 to 4.3
  enterAgain();
  clickBit(1, 3);
  EXPECT_EQ(selectedDatas(), "");
  clickBit(1, 4);
  EXPECT_EQ(selectedDatas(), "Wide");
  clickBit(3, 3);
  EXPECT_EQ(selectedDatas(), "Wide");
  clickBit(3, 4);
  EXPECT_EQ(selectedDatas(), "");
}

TEST_F(PositionBits, TheKeyboardDoesWhatTheMouseDoes) {
  view().setFocus();
  QTest::keyClick(&view(), Qt::Key_Home);
  for (int i = 0; i < 2; ++i)
    QTest::keyClick(&view(), Qt::Key_Down); // byte 3
  QTest::keyClick(&view(), Qt::Key_Space);
  EXPECT_EQ(selectedDatas(), "Wide|Speed");
  QTest::keyClick(&view(), Qt::Key_End);
  QTest::keyClick(&view(), Qt::Key_Return);
  EXPECT_EQ(selectedDatas(), "");
  QTest::keyClick(&view(), Qt::Key_Home);
  QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(1, 1),
                            view().mapToGlobal(QPoint(1, 1)));
  QCoreApplication::sendEvent(&view(), &menuKey);
  names1("REQUESTS/MSG/graphView/createdataNumeric/text", "Enter name for numeric data", "Typed");
  choose(menuOf(view(), "PopupCreateData"), "ppCDnumericBit", 3);
  EXPECT_EQ(position("Read", "Typed").StartOctet, 1);
  EXPECT_EQ(position("Read", "Typed").StartBit, 0);
  EXPECT_EQ(data("Typed")->NumberBits, 4);
}

TEST_F(PositionBits, ADataIsMadeOnTheBitThatWasClicked) {
  names1("REQUESTS/MSG/graphView/createdataNumericList/text", "Enter name for numeric list data",
         "Lamp");
  choose(menuOfBit(0, 0), "ppCDnumericList", 1);
  EXPECT_EQ(position("Read", "Lamp").StartOctet, 1);
  EXPECT_EQ(position("Read", "Lamp").StartBit, 7);
  EXPECT_EQ(data("Lamp")->DataListes->ItemValue(0)->libelle, "Off");
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
  EXPECT_EQ(selectedDatas(), "Lamp");
  EXPECT_GE(names().findText("Lamp"), 0);
  EXPECT_TRUE(view().datas()->FindItem(1, 1, 7)->Selected);
}

TEST_F(PositionBits, EveryEntryMakesItsKindOfData) {
  struct Row {
    const char* entry;
    int nth;
    const char* key;
    const char* text;
    int bits;
    bool numeric, ascii;
  };
  const Row rows[] = {{"ppCDnumericBit", 8, "REQUESTS/MSG/graphView/createdataNumeric/text",
                       "Enter name for numeric data", 12, true, false},
                      {"ppCDnumericBit", 10, "REQUESTS/MSG/graphView/createdataNumeric/text",
                       "Enter name for numeric data", 24, true, false},
                      {"ppCDnumericList", 0, "REQUESTS/MSG/graphView/createdataNumericList/text",
                       "Enter name for numeric list data", 1, true, false},
                      {"ppCDhexaBytes", 2, "REQUESTS/MSG/graphView/createdataHexa/text",
                       "Enter name for hexa data", 24, false, false},
                      {"ppCDasciiBytes", 7, "REQUESTS/MSG/graphView/createdataAscii/text",
                       "Enter name for ascii data", 64, false, true}};
  int made = 0;
  for (const Row& row : rows) {
    const std::string name = "Made " + std::to_string(++made);
    names1(row.key, row.text, name.c_str());
    choose(menuOfBit(0, 7), row.entry, row.nth);
    const DataItem* item = data(name.c_str());
    ASSERT_TRUE(item) << row.entry;
    EXPECT_EQ(item->NumberBits, row.bits) << row.entry;
    EXPECT_EQ(item->numerique, row.numeric) << row.entry;
    EXPECT_EQ(!row.numeric && item->Ascii, row.ascii) << row.entry;
    EXPECT_EQ(position("Read", name.c_str()).StartOctet, 1);
    EXPECT_EQ(position("Read", name.c_str()).StartBit, 0);
  }
  EXPECT_EQ(data("Made 3")->DataListes->ItemValue(1)->libelle, "Yes");
}

TEST_F(PositionBits, InALittleEndianEcuTheBitCountsFromTheRight) {
  target().Parametres()->LittleEndian = true;
  names1("REQUESTS/MSG/graphView/createdataNumeric/text", "Enter name for numeric data", "One");
  choose(menuOfBit(3, 2), "ppCDnumericBit", 0);
  EXPECT_EQ(position("Read", "One").StartOctet, 4);
  EXPECT_EQ(position("Read", "One").StartBit, 2);
  EXPECT_TRUE(position("Read", "One").LittleEndian);
}

TEST_F(PositionBits, NoNameOrATakenOneMakesNothing) {
  names1("REQUESTS/MSG/graphView/createdataHexa/text", "Enter name for hexa data", "");
  choose(menuOfBit(0, 0), "ppCDhexaBytes", 0);
  names1("REQUESTS/MSG/graphView/createdataHexa/text", "Enter name for hexa data", "Speed");
  person.expect("REQUESTS/MSG/graphView/dataExist/text", "Error duplicate name",
                "Data already exists", Buttons::Ok, Icon::Critical, Answer::Ok);
  choose(menuOfBit(0, 0), "ppCDhexaBytes", 0);
  EXPECT_EQ(target().datas()->Count(), 3);
  EXPECT_EQ(recorder.take().back(), "box Error duplicate name: Data already exists");
}

TEST_F(PositionBits, PasteAtABitTakesTheDataOfTheClipboardThatAreKnown) {
  setClipboardText("");
  QMenu& menu = menuOfBit(3, 6);
  EXPECT_FALSE(menu.findChild<QAction*>("PopupCreateDataC")->isEnabled()) << "nothing to paste";
  menu.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  setClipboardText("<Requests/>");
  choose(menuOfBit(3, 6), "PopupCreateDataC");
  EXPECT_EQ(recorder.take(), Events{}) << "only the data of the data page can be pasted there";
  target().datas()->Add("Plain")->parent = &target();
  data("Plain")->numerique = false;
  enterAgain();
  setClipboardText("<Datas><Data Name='Level'/><Data Name='Nobody'/><Data Name='Plain'/></Datas>");
  choose(menuOfBit(3, 6), "PopupCreateDataC");
  EXPECT_EQ(position("Read", "Level").StartOctet, 4);
  EXPECT_EQ(position("Read", "Level").StartBit, 1);
  EXPECT_EQ(position("Read", "Plain").StartBit, 0) << "other data begin with their byte";
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_FALSE(data("Nobody"));
}

TEST_F(PositionBits, PasteAtABitTellsADataThatIsThereAlready) {
  setClipboardText("<Datas><Data Name='Speed'/></Datas>");
  person.expect("REQUESTS/MSG/AddDataPositionToActiveRequest/text", "Error",
                "Ajout d'une donnée à la requête 'Read'\r\n. Erreur : Duplicate Data, a data can "
                "be used only one time in the same request",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  choose(menuOfBit(3, 6), "PopupCreateDataC");
  EXPECT_EQ(position("Read", "Speed").StartOctet, 3);
}

TEST_F(PositionBits, ANewDataOfAReportedReadRequestIsTheReference) {
  the("Read").DossierMaintenabilite = true;
  names1("REQUESTS/MSG/graphView/createdataNumeric/text", "Enter name for numeric data", "Told");
  choose(menuOfBit(0, 7), "ppCDnumericBit", 7);
  EXPECT_TRUE(position("Read", "Told").reference);
}

TEST_F(PositionBits, PointingNamesTheDataWithItsRangeInWords) {
  EXPECT_EQ(u8(view().toolTipAt(2, 7)), "Wide: byte 2 bit 3 to byte 4 bit 4\n"
                                        "Speed: byte 3 bit 7 to byte 3 bit 0");
  EXPECT_EQ(u8(view().toolTipAt(0, 0)), "");
}

TEST_F(PositionBits, AChosenRowIsBroughtIntoSightInALongFrame) {
  RequestItem& item = the("Read");
  item.LengthDatas = 4095;
  item.ReplyBytes->setLength(4095);
  position("Read", "Speed").StartOctet = 4000;
  enterAgain();
  EXPECT_EQ(view().NumberBytes(), 4095);
  clickRow(placed(), 1);
  EXPECT_FALSE(view().cellRect(3999, 0).isEmpty());
  EXPECT_TRUE(view().cellRect(1, 0).isEmpty());
  clickRow(placed(), 0);
  EXPECT_FALSE(view().cellRect(1, 0).isEmpty());
  EXPECT_LT(view().TabByte().size(), 20u) << "as many as fit";
}

TEST_F(PositionBits, TypingInAFrameOf4095BytesShowsTheCellsThatFit) {
  the("Read").RequestBytes->setLength(4095);
  tab(0);
  enterAgain();
  QLineEdit& bytes = field("TextReqBytes");
  bytes.setText(QString(8190, 'A'));
  bytes.setFocus();
  bytes.end(false);
  QTest::keyClick(&bytes, Qt::Key_Backspace);
  QTest::keyClick(&bytes, Qt::Key_B);
  EXPECT_LT(view().TabByte().size(), 20u);
  EXPECT_EQ(shown("lblReqLength"), "(4095 bytes)");
}

} // namespace
} // namespace kelmar
