// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What goes from the page of requests into files, and comes from them.
#include "support/temp_folder.h"
#include "window/uce_requests_fixture.h"
#include "xml/document.h"

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;
using platform::FileQuestion;

class UceRequestsFiles : public UceRequestsWindow {
 protected:
  TempFolder folder;

  static FileQuestion question(FileQuestion::Kind kind, const char* title) {
    return {kind, title, "Hex files (*.hex)|*.hex|All files (*.*)|*.*", "hex", ""};
  }
  void writes(const std::string& file) {
    person.expectFile(question(FileQuestion::Kind::Save, "Export file name"), file);
    click(usable<QPushButton>(*page, "cbExportSendBufferToHex"));
  }
  /// Reads the file, which ends in this error when it is not empty.
  void reads(const std::optional<std::string>& file, const std::string& error = "") {
    person.expectFile(question(FileQuestion::Kind::Open, "Import file name"), file);
    if (!error.empty())
      person.expect("", "Import Hex error", error, Buttons::Ok, Icon::Critical, Answer::Ok);
    click(usable<QPushButton>(*page, "cbImportSendBufferFromHex"));
  }
};

TEST_F(UceRequestsFiles, SeventeenBytesGoIntoAFileAndComeBack) {
  const QString bytes = "3601AABBCCDDEEFF00112233445566778899";
  retype(field("TextReqBytes"), bytes.left(34));
  const std::string file = folder.file("frame.hex");
  writes(file);
  EXPECT_EQ(bytesOf(file), ":020000040000FA\r\n"
                           ":100000003601AABBCCDDEEFF0011223344556677E2\r\n"
                           ":010010008867\r\n"
                           ":00000001FF");
  key("cancel");
  recorder.take();
  reads(file);
  EXPECT_EQ(u8(field("TextReqBytes").text()), "3601AABBCCDDEEFF001122334455667788");
  EXPECT_EQ(shown("lblReqLength"), "(17 bytes)");
  EXPECT_EQ(recorder.take(), (Events{"file Import file name", "UceRequests1.OnChange()"}));
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2101") << "until it is validated";
  key("valid");
  EXPECT_EQ(the("Read").RequestBytes->Length(), 17);
}

TEST_F(UceRequestsFiles, TheFieldIsWrittenNotTheItemAndABadOneIsNot) {
  retype(field("TextReqBytes"), "3E0");
  writes(folder.file("bad.hex"));
  EXPECT_FALSE(std::filesystem::exists(folder.file("bad.hex")));
  retype(field("TextReqBytes"), "3E00");
  writes(folder.file("good.hex"));
  EXPECT_EQ(bytesOf(folder.file("good.hex")), ":020000040000FA\r\n:020000003E00C0\r\n:00000001FF");
}

TEST_F(UceRequestsFiles, AnImportIsMarkedWhileNoRowIsSelected) {
  usable<QAbstractItemView>(*page, "LVrequests").clearSelection();
  reads(folder.write("frame.hex", ":020000003E00C0\r\n:00000001FF"));
  EXPECT_EQ(u8(field("TextReqBytes").text()), "3E00");
  EXPECT_EQ(shown("lblReqLength"), "(2 bytes)");
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnChange()");
}

TEST_F(UceRequestsFiles, AnImportThatFailsLeavesTheFieldAlone) {
  reads(std::nullopt);
  reads(folder.write("start.hex", ":0400000300003800C1\r\n:00000001FF"),
        "Unsupported record type 3H at line 1");
  reads(folder.write("text.hex", "no records\r\nat all"), ": missing at line 1");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2101");
  EXPECT_EQ(recorder.take().back(), "box Import Hex error: : missing at line 1") << "no mark";
}

TEST_F(UceRequestsFiles, LineFeedsAloneAreReadAfterABox) {
  person.expectFile(question(FileQuestion::Kind::Open, "Import file name"),
                    folder.write("unix.hex", ":020000003e00c0\n:00000001ff\n"));
  person.expect("REQUESTS/MSG/importFromH86File/lineDelimiterWarning/text", "Kelmar",
                "File should use CRLF as line delimiter.", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  click(usable<QPushButton>(*page, "cbImportSendBufferFromHex"));
  EXPECT_EQ(u8(field("TextReqBytes").text()), "3E00");
}

TEST_F(UceRequestsFiles, TwoHundredAndFiftySixBytesNeedInitMode3) {
  the("Read").RequestBytes->setLength(256);
  enterAgain();
  writes(folder.file("long.hex"));
  reads(folder.file("long.hex"), "Empty file");
  target().Parametres()->initMode = 3;
  retype(field("TextReqBytes"), "21");
  reads(folder.file("long.hex"));
  EXPECT_EQ(shown("lblReqLength"), "(256 bytes)");
}

TEST_F(UceRequestsFiles, TheScenarioOfTheSelectionGoesIntoTheChosenFolder) {
  clickRow(list(), 0);
  clickRow(list(), 2, 0, Qt::ControlModifier);
  const std::string file = folder.file("ECU_Base_Test.xml");
  const auto asksForFolder = [&](const std::string& proposal) {
    person.expectFile(
        {FileQuestion::Kind::Folder, "Select folder to save RVT scenario", "", "", proposal},
        folder.path().string());
  };
  asksForFolder("");
  person.expect("", "Kelmar", "RVT scenario file has been saved in:\r\n" + file + "\r\n",
                Buttons::Ok, Icon::Information, Answer::Ok);
  chooseForRequest("mnuGenerateRVTtests");
  xml::Document scenario;
  ASSERT_TRUE(scenario.load(file));
  EXPECT_EQ(scenario.selectNodes("/Scenario/test[1]/request[@name='Read']").size(), 1u);
  EXPECT_EQ(scenario.selectNodes("/Scenario/test[2]/request[@name='Session']").size(), 1u);
  EXPECT_EQ(scenario.selectNodes("//request[@name='Write']").size(), 0u) << "it is not selected";
  EXPECT_EQ(settings.values["ZEM\\Diag\\Kelmar\\RvtExportPath"], folder.path().string());
  asksForFolder(folder.path().string());
  person.expect("", "Overwrite file ?", "File exists. Overwrite (Y/N) ?", Buttons::YesNo,
                Icon::Question, Answer::No);
  chooseForRequest("mnuGenerateRVTtests");
  EXPECT_EQ(recorder.take().back(), "box Overwrite file ?: File exists. Overwrite (Y/N) ?");
}

} // namespace
} // namespace kelmar
