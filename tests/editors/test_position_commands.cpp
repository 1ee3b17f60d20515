// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_commands.h"
#include "editors/rules/positions/position_rows.h"

namespace kelmar {
namespace {

using platform::Answer, platform::Buttons, platform::Icon;
using testing::positionsText;
using testing::RequestEcu;

class PositionCommands : public ::testing::Test {
 protected:
  PositionSelection positionsOf(RequestItem& request) {
    PositionSelection all;
    for (DataPositionItem* position : *request.DataPositions)
      all.push_back(position);
    return all;
  }
  /// One line a row, "!" for outside, "?" for unknown.
  std::string rows(RequestItem& request, bool sent) {
    std::string text;
    for (const PositionRow& row : positionRows(ecu.target(), request, sent)) {
      for (const std::string& cell : row.cells)
        text += cell + "|";
      text += std::string(row.outside ? "!" : "") + (row.unknown ? "?" : "") + "\n";
    }
    return text;
  }
  RequestEcu ecu;
};

TEST_F(PositionCommands, RowsStandByByteAndWithinAByteByBit) {
  RequestItem& request = ecu.addRequest("R", "2101", "");
  request.LengthDatas = 12;
  ecu.place(request, "Tenth", false, 10, 0);
  ecu.place(request, "Second", false, 2, 4);
  ecu.place(request, "First", false, 2, 1, true);
  ecu.place(request, "Sent", true, 2, 0);
  ecu.place(ecu.addRequest("Holder"), "Tenth", false, 2, 0, true);
  EXPECT_EQ(rows(request, false), "First|        2|1|8|[Ref]||\n"
                                  "Second|        2|4|8|||\n"
                                  "Tenth|       10|0|8|Holder||\n");
  EXPECT_EQ(rows(request, true), "Sent|        2|0|8|||\n");
}

TEST_F(PositionCommands, DataBehindTheFrameAreOutsideOfItsSide) {
  RequestItem& request = ecu.addRequest("R", "21010203", "");
  ecu.addData("Wide", 16);
  ecu.place(request, "Wide", true, 4);
  ecu.place(request, "Narrow", true, 4);
  EXPECT_EQ(rows(request, true), "Wide|        4|0|16|||!\nNarrow|        4|0|8|||\n");
  EXPECT_EQ(positionRows(ecu.target(), request, true)[0].toolTip, "Data is outside of the request");
  EXPECT_EQ(outsideWarning(false),
            "Warning!\r\nSome data are outside of the answer (notified in red in the data list). "
            "This may be necessary for some request (such as ReadDTC, etc...).");
  request.LengthDatas = 3;
  request.ShiftBytesCount = 2;
  EXPECT_EQ(frameLength(request, false), 5);
}

TEST_F(PositionCommands, APositionWithoutDataIsUnknown) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D").dataName = "Gone";
  EXPECT_EQ(rows(request, false), "ERROR DATA UNKNOWN : Gone|        2|0|UNKNOWN|||?\n");
}

TEST_F(PositionCommands, DevicesShowByColourAndToolTip) {
  RequestItem& request = ecu.addRequest("R");
  request.LengthDatas = 9;
  ecu.place(request, "Info", false, 2, 0, true);
  ecu.place(request, "Flag", false, 3, 0, true);
  OrganeItem& device = ecu.addDevice("Pump", {"Info", "Flag"});
  device.DeviceDatas->ItemName("Flag")->FlagPanne = true;
  const auto shown = positionRows(ecu.target(), request, false);
  EXPECT_EQ(shown[0].cells[PositionDeviceColumn], "Pump");
  EXPECT_EQ(shown[0].deviceColour, 1744390u);
  EXPECT_FALSE(shown[0].deviceBold);
  EXPECT_EQ(shown[0].deviceToolTip, "Info data in device 'Pump'");
  EXPECT_EQ(shown[1].deviceColour, 50897u);
  EXPECT_TRUE(shown[1].deviceBold);
  EXPECT_EQ(shown[1].deviceToolTip, "Failure flag in device 'Pump'");
}

TEST_F(PositionCommands, TogglingThreeBitsAtBit2GivesBit3AndBack) {
  RequestItem& request = ecu.addRequest("R");
  ecu.addData("Three", 3);
  ecu.addData("Nine", 9);
  ecu.place(request, "Three", false, 2, 2);
  ecu.place(request, "Nine", false, 3, 0);
  EXPECT_TRUE(toggleEndian(positionsOf(request)));
  EXPECT_EQ(positionsText(request), "Three 2.3 L r, Nine 3.0 B r");
  EXPECT_TRUE(setEndianDefault(ecu.target(), positionsOf(request)));
  EXPECT_EQ(positionsText(request), "Three 2.2 B r, Nine 3.0 B r");
  EXPECT_FALSE(setEndianDefault(ecu.target(), positionsOf(request)));
}

TEST_F(PositionCommands, AReferenceElsewhereIsRefusedWithTheNameOfItsRequest) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D");
  ecu.place(request, "E");
  ecu.place(ecu.addRequest("Holder"), "D", false, 2, 0, true);
  ecu.person.expect("REQUESTS/MSG/RefDataPos/text", "Unable to change",
                    "Data 'D' is already defined as reference in request 'Holder'", Buttons::Ok,
                    Icon::Critical, Answer::Ok);
  EXPECT_TRUE(RefDataPos(ecu.target(), positionsOf(request), ecu.person));
  EXPECT_EQ(positionsText(request), "D 2.0 B r, E 2.0 B r ref");
  ecu.addDevice("Pump", {"E"});
  ecu.person.expect("REQUESTS/MSG/UnRefDataPos/text", "Unable to change",
                    "Data 'E' is used by device 'Pump'", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(UnRefDataPos(ecu.target(), positionsOf(request), ecu.person));
}

TEST_F(PositionCommands, AClickOutsideEveryDataHitsNone) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D", false, 2, 0);
  EXPECT_EQ(positionsAt(positionsOf(request), {1, 0}).size(), 1u);
  EXPECT_TRUE(positionsAt(positionsOf(request), {0, 0}).empty());
}

TEST_F(PositionCommands, ADataCreatedOnCell0OfByte0HasByte1Bit7WhenBigEndian) {
  RequestItem& request = ecu.addRequest("R");
  ecu.person.expectInput({"REQUESTS/MSG/graphView/createdataNumericList/text", "Enter data name",
                          "Enter name for numeric list data", ""},
                         "Lamp");
  DataItem* made = nullptr;
  createDataAt(ecu.target(), request, false, {NewDataKind::Shape::OnOff, 1}, {0, 0}, ecu.person,
               &made);
  EXPECT_EQ(positionsText(request), "Lamp 1.7 B r");
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->liste);
  EXPECT_EQ(made->DataListes->ItemValue(1)->libelle, "On");
  ecu.person.expectInput({"REQUESTS/MSG/graphView/createdataHexa/text", "Enter data name",
                          "Enter name for hexa data", ""},
                         "lamp");
  ecu.person.expect("REQUESTS/MSG/graphView/dataExist/text", "Error duplicate name",
                    "Data already exists", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(createDataAt(ecu.target(), request, false, {NewDataKind::Shape::Hexa, 8}, {0, 0},
                            ecu.person));
}

TEST_F(PositionCommands, AReceivedDataOfAReadRequestBecomesTheReferenceByDefault) {
  RequestItem& request = ecu.addRequest("R", "2101");
  request.DossierMaintenabilite = true;
  const DataItem& item = ecu.addData("D");
  AddDataPositionToActiveRequest(ecu.target(), request, item, false, 2, 0, false, ecu.person);
  EXPECT_EQ(positionsText(request), "D 2.0 B r ref");
  ecu.person.expect("REQUESTS/MSG/AddDataPositionToActiveRequest/text", "Error",
                    "Ajout d'une donnée à la requête 'R'\r\n. Erreur : Duplicate Data, a data can "
                    "be used only one time in the same request",
                    Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(
      AddDataPositionToActiveRequest(ecu.target(), request, item, false, 3, 0, false, ecu.person));
}

TEST_F(PositionCommands, AStartByteThatFallsBackToOneIsToldAndTaken) {
  RequestItem& request = ecu.addRequest("R");
  DataPositionItem& position = ecu.place(request, "D", false, 3);
  ecu.person.expect("REQUESTS/MSG/GetDataPosFromScreen/text", "Please contact Hotline",
                    "Request=R\r\nData=D\r\nStart Byte change from 3 to 1\r\nSelected text=R",
                    Buttons::Ok, Icon::Critical, Answer::Ok);
  applyFields({"D", 1, 2, true}, true, position, "R", ecu.person);
  EXPECT_EQ(positionsText(request), "D 1.2 L s");
}

TEST_F(PositionCommands, ReplacingIsRefusedForADataOfTheSameRequestAndForTwoDevices) {
  RequestItem& request = ecu.addRequest("R");
  DataPositionItem& position = ecu.place(request, "D", false, 2, 0, true);
  ecu.place(request, "E");
  ecu.person.expect("REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyExists/text", "Error",
                    "Data 'E' already exists in this request", Buttons::Ok, Icon::Critical,
                    Answer::Ok);
  EXPECT_FALSE(
      replaceData(ecu.target(), position, *ecu.target().datas()->ItemName("E"), ecu.person));
  const DataItem& other = ecu.addData("F");
  ecu.addDevice("One", {"D"});
  OrganeItem& two = ecu.addDevice("Two", {"F"});
  ecu.person.expect("REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyAssociated/text", "Error",
                    "Data 'D' is associated to device 'One'\r\nData 'F' is associated to device "
                    "'Two'\r\nImpossible to replace data 'D' with data 'F'",
                    Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_FALSE(replaceData(ecu.target(), position, other, ecu.person));
  two.DeviceDatas->deleteItem(two.DeviceDatas->Item(1));
  EXPECT_TRUE(replaceData(ecu.target(), position, other, ecu.person));
  EXPECT_EQ(positionsText(request), "F 2.0 B r ref, E 2.0 B r");
  EXPECT_TRUE(ecu.target().Organes()->ItemName("One")->GetDeviceDataUsingData("F"));
}

} // namespace
} // namespace kelmar
