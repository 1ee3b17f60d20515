// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_clipboard.h"
#include "editors/rules/positions/position_rows.h"
#include "language/multi_lang.h"

namespace kelmar {
namespace {

using platform::Answer, platform::Buttons, platform::Icon;
using testing::positionsText;
using testing::RequestEcu;

TEST(PositionRows, SixteenBitsAtByte3FitAFrameOf4BytesAtBit0ButNotAtBit1) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R", "21010203");
  ecu.addData("Wide", 16);
  DataPositionItem& position = ecu.place(request, "Wide", true, 3, 0);
  EXPECT_FALSE(positionRows(ecu.target(), request, true)[0].outside);
  position.StartBit = 1;
  EXPECT_TRUE(positionRows(ecu.target(), request, true)[0].outside);
  position.LittleEndian = true;
  EXPECT_TRUE(positionRows(ecu.target(), request, true)[0].outside) << "whatever the order of bits";
}

TEST(PositionRows, ANegativeStartByteIsOutsideAndByteZeroIsNot) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R", "21010203");
  DataPositionItem& position = ecu.place(request, "D", true, 0, 0);
  EXPECT_FALSE(positionRows(ecu.target(), request, true)[0].outside);
  position.StartOctet = -1;
  EXPECT_TRUE(positionRows(ecu.target(), request, true)[0].outside);
}

TEST(PositionRows, FaultFlagsOfTestsShowLikeFailureFlags) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  request.LengthDatas = 9;
  ecu.place(request, "Stored", false, 2, 0, true);
  ecu.place(request, "Present", false, 3, 0, true);
  OrganeItem& device = ecu.addDevice("Pump");
  auto test = std::make_shared<TestItem>();
  test->StoredFlag.Add(request.DataPositions->members()[0]);
  test->PresentFlag.Add(request.DataPositions->members()[1]);
  if (!device.Tests) device.Tests = std::make_shared<TestItems>();
  device.Tests->AddData(test)->parent = &device;
  const auto rows = positionRows(ecu.target(), request, false);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].cells[PositionDeviceColumn], "Pump");
  EXPECT_EQ(rows[0].deviceToolTip, "Stored failure flag in device 'Pump'");
  EXPECT_EQ(rows[0].deviceColour, 50897u);
  EXPECT_TRUE(rows[0].deviceBold);
  EXPECT_EQ(rows[1].deviceToolTip, "Present failure flag in device 'Pump'");
}

TEST(PositionRows, ADeviceIsShownForReferencesAlone) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D");
  ecu.addDevice("Pump", {"D"});
  EXPECT_EQ(positionRows(ecu.target(), request, false)[0].cells[PositionDeviceColumn], "");
}

TEST(PositionText, InFrenchTheBuiltInQuestionIsFrench) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D", false, 3);
  CMultiLangEx french;
  french.language = "fr";
  language::setGlobal(&french);
  ecu.person.expect("", "Confirmer la mise à jour des données",
                    "La donnée 'D' Existe déjà dans cette requête, Voulez vous mettre à jour la "
                    "donnée ?",
                    Buttons::YesNo, Icon::Question, Answer::No);
  EXPECT_FALSE(pasteDataPositions("D\t5\r\n", ecu.db, ecu.target(), request, false, ecu.person));
  language::setGlobal(nullptr);
  EXPECT_EQ(positionsText(request), "D 3.0 B r");
}

TEST(PositionText, UnknownDataOfAFragmentWithoutDefinitionsAreTold) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  ecu.addData("D");
  ecu.person.expect("REQUESTS/MSG/pasteDataPositions/dataDoesntExist/text", "Error",
                    "Data : \r\n    X\r\n\r\ndoesn't exist. You must create data first.",
                    Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_TRUE(pasteDataPositions("<Positions><Datas/><Request Name='A' Sent='1'>"
                                 "<DataItem Name='X' FirstByte='2'/>"
                                 "<DataItem Name='D' FirstByte='3' BitOffset='2'/></Request>"
                                 "</Positions>",
                                 ecu.db, ecu.target(), request, false, ecu.person));
  EXPECT_EQ(positionsText(request), "D 3.2 B r");
}

TEST(PositionText, DefinitionsAndEndiannessTravelAlong) {
  RequestEcu source;
  source.target().Parametres()->LittleEndian = true;
  RequestItem& from = source.addRequest("From", "2101");
  source.addData("Own", 12);
  source.place(from, "Own", false, 3, 1).LittleEndian = true;
  const std::string text =
      copyDataPositions(source.target(), from, false, {from.DataPositions->Item(1)});
  EXPECT_EQ(text.substr(0, 36), "<Positions Endian=\"Little\"><Datas><D");
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("To");
  EXPECT_TRUE(pasteDataPositions(text, ecu.db, ecu.target(), request, true, ecu.person));
  EXPECT_EQ(positionsText(request), "Own 3.1 L s");
  EXPECT_EQ(ecu.target().datas()->ItemName("Own")->NumberBits, 12);
  EXPECT_FALSE(ecu.target().Parametres()->LittleEndian);
}

TEST(PositionText, AnEncodingNamedInsideTheTextIsIgnored) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  EXPECT_TRUE(
      pasteDataPositions("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Positions><Datas><Data "
                         "Name='Débit'/></Datas>"
                         "<Request><DataItem Name='Débit' FirstByte='2'/></Request></Positions>",
                         ecu.db, ecu.target(), request, false, ecu.person));
  EXPECT_EQ(positionsText(request), "Débit 2.0 B r");
}

TEST(PositionText, CellsThatAreMissingTakeTheirDefaults) {
  RequestEcu ecu;
  ecu.target().Parametres()->LittleEndian = true;
  RequestItem& request = ecu.addRequest("R");
  for (const char* name : {"A", "B", "C"})
    ecu.addData(name);
  EXPECT_TRUE(pasteDataPositions("A\nB\t4095\t7\t0\t1\rC\t0\t8\r\n", ecu.db, ecu.target(), request,
                                 false, ecu.person));
  EXPECT_EQ(positionsText(request), "A 1.0 L r, B 4095.7 B r ref, C 1.0 L r");
}

TEST(NewData, HexadecimalAndAsciiAreNotNumeric) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  const auto makes = [&](NewDataKind::Shape shape, int bits, const char* key, const char* text) {
    ecu.person.expectInput({key, "Enter data name", text, ""}, key);
    DataItem* made = nullptr;
    createDataAt(ecu.target(), request, true, {shape, bits}, {1, 0}, ecu.person, &made);
    return made;
  };
  const DataItem* hexa =
      makes(NewDataKind::Shape::Hexa, 24, "REQUESTS/MSG/graphView/createdataHexa/text",
            "Enter name for hexa data");
  ASSERT_TRUE(hexa);
  EXPECT_FALSE(hexa->numerique || hexa->Ascii);
  EXPECT_EQ(hexa->NumberBits, 24);
  const DataItem* ascii =
      makes(NewDataKind::Shape::Ascii, 16, "REQUESTS/MSG/graphView/createdataAscii/text",
            "Enter name for ascii data");
  ASSERT_TRUE(ascii);
  EXPECT_TRUE(ascii->Ascii && !ascii->numerique);
  EXPECT_TRUE(request.DataPositions->Item(1)->param);
  EXPECT_EQ(request.DataPositions->Item(1)->StartOctet, 2);
}

} // namespace
} // namespace kelmar
