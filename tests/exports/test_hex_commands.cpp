// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/hex_commands.h"
#include "exports/hex_lines.h"
#include "language/multi_lang.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::FileQuestion;
using platform::Icon;
using support::endRecord;
using support::fileOf;
using support::record;

const FileQuestion exportQuestion{FileQuestion::Kind::Save, "Export file name",
                                  "Hex files (*.hex)|*.hex|All files (*.*)|*.*", "hex", ""};
const FileQuestion importQuestion{FileQuestion::Kind::Open, "Import file name",
                                  "Hex files (*.hex)|*.hex|All files (*.*)|*.*", "hex", ""};

struct HexCommands : testing::Test {
  support::TempFolder folder;
  support::ScriptedPerson person;
  TargetItem target;

  HexCommands() { target.setParametres(std::make_shared<TargetParamItem>()); }

  std::optional<std::string> importing(const std::string& text) {
    person.expectFile(importQuestion, folder.write("in.hex", text));
    return importSendBufferFromHex(target, person);
  }
};

TEST_F(HexCommands, Export_WritesTheFieldIntoTheChosenFile) {
  person.expectFile(exportQuestion, folder.file("out.hex"));
  exportSendBufferToHex("3e00", person);
  EXPECT_EQ(support::bytesOf(folder.file("out.hex")),
            ":020000040000FA\r\n:020000003E00C0\r\n:00000001FF");
}

TEST_F(HexCommands, Export_EndsWithTheCancelledDialog) {
  person.expectFile(exportQuestion, std::nullopt);
  exportSendBufferToHex("3E00", person);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(HexCommands, Export_EndsWithoutAMessageForATextThatIsNoFrame) {
  for (const char* text : {"3E0", "3E 00", "xy"}) {
    person.expectFile(exportQuestion, folder.file("out.hex"));
    exportSendBufferToHex(text, person);
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(HexCommands, Export_ShowsWhyTheFileCannotBeWritten) {
  const std::string file = folder.file("none/out.hex");
  person.expectFile(exportQuestion, file);
  person.expect("GENERIC/error/text", "Error",
                "Error # 75\r\n" + file + ": No such file or directory", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  exportSendBufferToHex("3E00", person);
}

TEST_F(HexCommands, Import_GivesTheTextOfTheField) {
  EXPECT_EQ(importing(fileOf({record(0, 0, {0x3E, 0}), endRecord})), "3E00");
}

TEST_F(HexCommands, Import_EndsWithTheCancelledDialog) {
  person.expectFile(importQuestion, std::nullopt);
  EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
}

TEST_F(HexCommands, Import_ShowsWhatIsWrongAndGivesNothing) {
  person.expectFile(importQuestion, folder.write("in.hex", record(0, 3, {0, 0, 0, 0})));
  person.expect("", "Import Hex error", "Unsupported record type 3H at line 1", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
}

TEST_F(HexCommands, Import_ShowsTheBoxOfLineEndsBeforeTheError) {
  person.expectFile(importQuestion, folder.write("in.hex", endRecord + "\n"));
  person.expect("REQUESTS/MSG/importFromH86File/lineDelimiterWarning/text", "Kelmar",
                "File should use CRLF as line delimiter.", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  person.expect("", "Import Hex error", "Empty file", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
}

TEST_F(HexCommands, Import_Of256BytesIsRefusedUnlessTheInitModeIs3) {
  const std::string text =
      fileOf({record(0, 0, std::vector<unsigned>(255, 1)), record(255, 0, {2}), endRecord});
  for (const int mode : {0, 1, 2, 4}) {
    target.Parametres()->initMode = mode;
    EXPECT_EQ(longestHexImport(target), 255);
    person.expectFile(importQuestion, folder.write("in.hex", text));
    person.expect("", "Import Hex error", "Empty file", Buttons::Ok, Icon::Critical, Answer::Ok);
    EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
  }
  target.Parametres()->initMode = 3;
  EXPECT_EQ(importing(text).value_or("").size(), 512u);
}

TEST_F(HexCommands, Import_TakesUpTo4095BytesWithInitMode3) {
  target.Parametres()->initMode = 3;
  EXPECT_EQ(importing(fileOf({record(4094, 0, {1})})).value_or("").size(), 2u * 4095);
  person.expectFile(importQuestion, folder.write("in.hex", fileOf({record(4095, 0, {1})})));
  person.expect("", "Import Hex error", "Empty file", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
}

TEST_F(HexCommands, Import_TakesTheShortLimitWithoutParameters) {
  target.setParametres(nullptr);
  EXPECT_EQ(longestHexImport(target), 255);
}

TEST_F(HexCommands, Texts_AreThoseOfTheLanguageFile) {
  CMultiLangEx texts;
  ASSERT_TRUE(texts.loadXmlLanguageFile(folder.write(
      "texts.xml", "<software><REQUESTS><MSG>"
                   "<exportToH86File><FileSelTitle><text>Exporter</text></FileSelTitle>"
                   "<FileFilter><text>Fichiers|*.hex</text></FileFilter></exportToH86File>"
                   "<importFromH86File><FileSelTitle><text>Importer</text></FileSelTitle>"
                   "<Empty><text>Vide</text></Empty></importFromH86File>"
                   "</MSG></REQUESTS></software>")));
  language::setGlobal(&texts);
  person.expectFile({FileQuestion::Kind::Save, "Exporter", "Fichiers|*.hex", "hex", ""},
                    std::nullopt);
  exportSendBufferToHex("3E00", person);
  person.expectFile({FileQuestion::Kind::Open, "Importer", "Fichiers|*.hex", "hex", ""},
                    folder.write("in.hex", ""));
  person.expect("", "Import Hex error", "Vide", Buttons::Ok, Icon::Critical, Answer::Ok);
  EXPECT_EQ(importSendBufferFromHex(target, person), std::nullopt);
  language::setGlobal(nullptr);
}

} // namespace
} // namespace kelmar
