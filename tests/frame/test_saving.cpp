// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/version.h"
#include "common/ecu_saving.h"
#include "frame/ecu_file_text.h"
#include "frame/rules/addressing_ecu.h"
#include "frame/rules/selector_edits.h"
#include "frame/rules/selector_load_report.h"
#include "language/multi_lang.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using support::bytesOf;
using support::EcuFileText;

class SavingTest : public testing::Test {
 protected:
  void expectBox(const char* key, const char* title, const std::string& text, Icon icon) {
    person.expect(key, title, text, Buttons::Ok, icon, Answer::Ok);
  }

  support::TempFolder folder;
  support::ScriptedPerson person;
  support::FixedClock clock;
  CMultiLangEx texts;
  OmnikorLibXml database{{nullptr, &person, &clock}};
  EcuSaving saving{person, texts};
};

TEST_F(SavingTest, Write_SavesWhatIsReadBackAndForgetsTheReport) {
  EcuFileText text;
  text.rest = "<Datas></Datas>\n<Requests Endian=\"Big\">\n<Request Name=\"R\"><Sent><SentBytes>"
              "2101</SentBytes><DataItem Name=\"Nowhere\" FirstByte=\"1\"/></Sent></Request>"
              "</Requests>\n";
  const std::string file = folder.write("a.xml", text.text());
  database.ImportUceFromXml(file);
  ASSERT_FALSE(database.report().empty());
  EXPECT_TRUE(saving.write(database, file));
  EXPECT_EQ(database.ecuFileBytes(), bytesOf(file));
  EXPECT_TRUE(database.report().empty());
  EXPECT_FALSE(database.ActiveTarget->ValueChanged);
}

TEST_F(SavingTest, Write_OfAReadOnlyFileIsRefusedAndTold) {
  const std::string file = folder.write("a.xml", EcuFileText().text());
  database.ImportUceFromXml(file);
  ::chmod(file.c_str(), 0444);
  expectBox("SELECTOR/MSG/fileIsProtected/text", "Save error",
            "File '" + file + "' is read only. Unprotect it or choose a new name.",
            Icon::Exclamation);
  EXPECT_FALSE(saving.write(database, file));
  EXPECT_EQ(EcuFileText().text(), bytesOf(file));
}

TEST_F(SavingTest, Write_OfWhatCannotBeWrittenTellsWhyAndLeavesTheFile) {
  const std::string file = folder.write("a.xml", EcuFileText().text());
  database.ImportUceFromXml(file);
  database.ActiveTarget->setAddress(999); // the catalogue lacks it
  expectBox("SELECTOR/MSG/saveFileError/text", "Save Ecu file error",
            "File : " + file + "\r\nError : " + platformErrorText(MissingObject) +
                " (no function has the address 999)",
            Icon::Critical);
  EXPECT_FALSE(saving.write(database, file));
  EXPECT_EQ(EcuFileText().text(), bytesOf(file));
}

TEST_F(SavingTest, Write_ThatDidNotReachTheFileIsNeverReportedAsDone) {
  const std::string file = folder.write("a.xml", EcuFileText().text());
  database.ImportUceFromXml(file);
  const std::string elsewhere = folder.file("no such folder/a.xml");
  expectBox("SELECTOR/MSG/fileSaveError/text", "Save error",
            "File '" + elsewhere + "' badly saved. Check disk size, name, ...", Icon::Critical);
  EXPECT_FALSE(saving.write(database, elsewhere));
}

TEST_F(SavingTest, Write_ThatReadsBackOtherwiseIsToldAndLeavesTheFileOnDisk) {
  const std::string file = folder.write("a.xml", EcuFileText().text());
  database.ImportUceFromXml(file);
  database.ActiveTarget->setName("Changed");
  expectBox("SELECTOR/MSG/fileSaveError/text", "Save error",
            "File '" + file + "' badly saved. Check disk size, name, ...", Icon::Critical);
  // As on a full disk: what is written does not arrive.
  rlimit before{};
  ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
  const rlimit tight{16, before.rlim_max};
  const auto handler = ::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &tight));
  const bool written = saving.write(database, file);
  ::setrlimit(RLIMIT_FSIZE, &before);
  ::signal(SIGXFSZ, handler);
  EXPECT_FALSE(written);
  EXPECT_EQ(EcuFileText().text(), bytesOf(file));
}

TEST_F(SavingTest, Write_AfterAFailedLoadIsRefused) {
  const std::string file = folder.write("a.xml", EcuFileText{.autoIdents = "<AutoIdent/>"}.text());
  EXPECT_THROW(database.ImportUceFromXml(file), Failure);
  const std::string before = bytesOf(file);
  try {
    database.ecuFileBytes();
    FAIL();
  } catch (const Failure& failure) {
    expectBox("SELECTOR/MSG/saveFileError/text", "Save Ecu file error",
              "File : " + file + "\r\nError : " + failure.text, Icon::Critical);
  }
  EXPECT_FALSE(saving.write(database, file));
  EXPECT_EQ(before, bytesOf(file));
}

TEST_F(SavingTest, NewEcu_AfterAFailedLoadCanBeSaved) {
  const std::string file = folder.write("a.xml", EcuFileText{.autoIdents = "<AutoIdent/>"}.text());
  EXPECT_THROW(database.ImportUceFromXml(file), Failure);
  createEcu(database, {300, "", "Own", -1, -1}, "New ECU");
  EXPECT_TRUE(saving.write(database, folder.file("new.xml")));
}

TEST_F(SavingTest, MayBeSaved_RefusesFilesOfTheSiblingTool) {
  std::string text = EcuFileText().text();
  text.replace(text.find("Kelmar"), 6, "QVR");
  const std::string file = folder.write("a.xml", text);
  person.expect(
      {"", applicationTitle,
       "This file was generated by QVR.\r\nTo avoid losing data, you must use QVR to edit "
       "it !\r\n\r\nDo you really want to open this QVR database file ?",
       Buttons::OkCancel, Icon::Critical},
      Answer::Ok);
  database.ImportUceFromXml(file);
  expectBox("SELECTOR/MSG/saveQvr/text", "Save error",
            "Save functionalities are desactivated for QVR databases", Icon::Exclamation);
  EXPECT_FALSE(saving.mayBeSaved(database));
}

TEST_F(SavingTest, MayBeSaved_AsksNothingAboutOtherFiles) {
  database.ImportUceFromXml(folder.write("a.xml", EcuFileText().text()));
  EXPECT_TRUE(saving.mayBeSaved(database));
}

TEST_F(SavingTest, AskForFile_ProposesTheNameMadeSafe) {
  database.NewTarget()->setName("Engine D12 / é");
  person.expectFile({platform::FileQuestion::Kind::Save, "Save ECU",
                     "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*", ".xml", "Engine_D12___e"},
                    "/x/y.xml");
  EXPECT_EQ("/x/y.xml", saving.askForFile("", *database.ActiveTarget));
}

TEST_F(SavingTest, AskForFile_ProposesThePresentFileAndMayBeCancelled) {
  database.NewTarget()->setName("Engine");
  person.expectFile({platform::FileQuestion::Kind::Save, "Save ECU",
                     "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*", ".xml", "/a/b.xml"},
                    std::nullopt);
  EXPECT_FALSE(saving.askForFile("/a/b.xml", *database.ActiveTarget));
}

TEST_F(SavingTest, Backup_StandsBesideTheFileAndReplacesAnOlderOne) {
  const std::string file = folder.write("a.xml", "new");
  folder.write("a.xml.bak", "old and longer");
  EXPECT_TRUE(copyToBackup(file));
  EXPECT_EQ("new", bytesOf(file + ".bak"));
}

TEST_F(SavingTest, Backup_OfNoFileIsNone) {
  EXPECT_FALSE(copyToBackup(folder.file("absent.xml")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("absent.xml.bak")));
}

TEST_F(SavingTest, Backup_ThatCannotBeMadeIsNotTold) {
  const std::string file = folder.write("a.xml", "new");
  std::filesystem::create_directory(file + ".bak");
  EXPECT_FALSE(copyToBackup(file));
}

TEST_F(SavingTest, Edits_AreTakenBackByACancel) {
  const std::string file = folder.write("a.xml", EcuFileText().text());
  database.ImportUceFromXml(file);
  const std::string before = database.ecuFileBytes();
  SelectorEdits edits;
  EXPECT_FALSE(edits.any());
  edits.setName(database, "  Other   name ");
  edits.setName(database, "Third");
  edits.setGroup(database, " Group ");
  edits.setFunction(database, {300, "12C", "Own", 1, 2});
  edits.setLogicalAddress(database, "F");
  ProjectList projects("All projects", {"A1"});
  projects.mark(0, true);
  edits.setProjects(database, projects);
  EXPECT_EQ("Third", database.ActiveTarget->name());
  EXPECT_EQ("Group", database.ActiveTarget->Group());
  EXPECT_NE(before, database.ecuFileBytes());
  EXPECT_TRUE(edits.any());
  edits.takeBack(database);
  EXPECT_EQ(before, database.ecuFileBytes());
  EXPECT_FALSE(edits.any());
}

TEST_F(SavingTest, Edits_OfAnyKindAreThereToBeTakenBack) {
  database.NewTarget()->setName("First");
  const std::function<void(SelectorEdits&)> kinds[] = {
      [this](SelectorEdits& edits) { edits.setName(database, "Second"); },
      [this](SelectorEdits& edits) { edits.setGroup(database, "Group"); },
      [this](SelectorEdits& edits) {
        edits.setFunction(database, {300, "12C", "Own", 1, 2});
      },
      [this](SelectorEdits& edits) { edits.setLogicalAddress(database, "F"); },
      [this](SelectorEdits& edits) { edits.setProjects(database, {}); },
  };
  for (const auto& edit : kinds) {
    SelectorEdits edits;
    edit(edits);
    EXPECT_TRUE(edits.any()) << &edit - kinds;
  }
}

TEST_F(SavingTest, Edits_KeepWhatOtherPagesChanged) {
  database.NewTarget()->setName("First");
  SelectorEdits edits;
  edits.setGroup(database, "Group");
  database.ActiveTarget->setName("By another page");
  edits.takeBack(database);
  EXPECT_EQ("By another page", database.ActiveTarget->name());
  EXPECT_EQ("", database.ActiveTarget->Group());
}

TEST_F(SavingTest, Edits_OfASavedEcuStay) {
  database.NewTarget()->setName("First");
  SelectorEdits edits;
  edits.setName(database, "Second");
  edits.forget();
  edits.takeBack(database);
  EXPECT_EQ("Second", database.ActiveTarget->name());
}

TEST_F(SavingTest, Edits_NeverEmptyTheNameAndNeedAnEcu) {
  SelectorEdits edits;
  edits.setName(database, "x");
  edits.setGroup(database, "x");
  edits.setFunction(database, {});
  edits.setLogicalAddress(database, "x");
  edits.setProjects(database, {});
  edits.takeBack(database);
  EXPECT_FALSE(database.ActiveTarget);
  database.NewTarget()->setName("First");
  edits.setName(database, "   ");
  EXPECT_EQ("First", database.ActiveTarget->name());
}

TEST_F(SavingTest, LoadReport_CountsItsItems) {
  EXPECT_EQ("", loadReportHeadline(texts, 0));
  EXPECT_EQ("1 item could not be kept", loadReportHeadline(texts, 1));
  EXPECT_EQ("3 items could not be kept", loadReportHeadline(texts, 3));
}

TEST_F(SavingTest, LoadReport_LineLeavesOutWhatIsUnknown) {
  EXPECT_EQ("Position Speed at Requests/Request[R], line 12: gone",
            loadReportLine(texts, {"Position", "Speed", "Requests/Request[R]", 12, "gone"}));
  EXPECT_EQ("Flag: gone", loadReportLine(texts, {"Flag", "", "", 0, "gone"}));
}

TEST_F(SavingTest, LoadReport_TextEndsWithTheNumberOfTheRest) {
  const LoadReport report(12, {"Flag", "F", "", 0, "gone"});
  EXPECT_EQ("", loadReportText(texts, {}));
  EXPECT_EQ("12 items could not be kept\r\nFlag F: gone\r\nFlag F: gone\r\n... and 10 more",
            loadReportText(texts, report, 2));
  EXPECT_EQ(std::string::npos, loadReportText(texts, report, 12).find("more"));
}

} // namespace
} // namespace kelmar
