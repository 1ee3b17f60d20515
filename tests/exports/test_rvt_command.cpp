// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "exports/rvt_command.h"
#include "exports/rvt_scenario.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::FileQuestion;
using platform::Icon;

const std::string setting = "ZEM\\Diag\\Kelmar\\RvtExportPath";

FileQuestion folderQuestion(const std::string& proposal = "") {
  return {FileQuestion::Kind::Folder, "Select folder to save RVT scenario", "", "", proposal};
}

struct RvtCommand : testing::Test {
  support::TempFolder folder;
  support::ScriptedPerson person;
  support::MemorySettings settings;
  TargetItem target;
  std::vector<const RequestItem*> selected;

  RvtCommand() {
    target.setRequests(std::make_shared<RequestItems>());
    RequestItem* request = target.Requests()->Add("Read");
    request->RequestBytes = std::make_shared<FrameBuffer>();
    request->RequestBytes->setHexText("21A0");
    selected.push_back(request);
  }

  std::string root() const { return folder.path().string(); }
  std::string file() const { return folder.file("ECU_Base_Test.xml"); }
  void expectSaved() {
    person.expect("", "Kelmar", "RVT scenario file has been saved in:\r\n" + file() + "\r\n",
                  Buttons::Ok, Icon::Information, Answer::Ok);
  }
  void expectOverwrite(Answer answer) {
    person.expect("", "Overwrite file ?", "File exists. Overwrite (Y/N) ?", Buttons::YesNo,
                  Icon::Question, answer);
  }
  void generate() { generateRvtTests(&target, selected, person, settings); }
};

TEST_F(RvtCommand, WithoutADocument_DoesNothing) {
  generateRvtTests(nullptr, selected, person, settings);
  EXPECT_TRUE(settings.values.empty());
}

TEST_F(RvtCommand, Scenario_GoesIntoTheChosenFolderWhichIsKept) {
  person.expectFile(folderQuestion(), root());
  expectSaved();
  generate();
  EXPECT_EQ(support::bytesOf(file()), rvtScenario(target, selected));
  EXPECT_EQ(settings.values, (std::map<std::string, std::string>{{setting, root()}}));
}

TEST_F(RvtCommand, Browser_OpensOnTheKeptFolder) {
  settings.write(setting, "/somewhere/else");
  person.expectFile(folderQuestion("/somewhere/else"), root());
  expectSaved();
  generate();
  EXPECT_EQ(settings.read(setting), root());
}

TEST_F(RvtCommand, CancelledBrowser_EndsTheCommandAndKeepsTheSetting) {
  settings.write(setting, root());
  person.expectFile(folderQuestion(root()), std::nullopt);
  generate();
  EXPECT_EQ(settings.read(setting), root());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(RvtCommand, FileThatIsThere_IsOverwrittenAfterYes) {
  folder.write("ECU_Base_Test.xml", "old");
  person.expectFile(folderQuestion(), root());
  expectOverwrite(Answer::Yes);
  expectSaved();
  generate();
  EXPECT_EQ(support::bytesOf(file()), rvtScenario(target, selected));
}

TEST_F(RvtCommand, FileThatIsThere_StaysAfterNo) {
  folder.write("ECU_Base_Test.xml", "old");
  person.expectFile(folderQuestion(), root());
  expectOverwrite(Answer::No);
  generate();
  EXPECT_EQ(support::bytesOf(file()), "old");
  EXPECT_EQ(settings.read(setting), root());
}

TEST_F(RvtCommand, FailureToSave_GoesToTheErrorBox) {
  const std::string missing = folder.file("none");
  person.expectFile(folderQuestion(), missing);
  person.expect("GENERIC/error/text", "Error",
                "Error # 75\r\n" + missing + "/ECU_Base_Test.xml: No such file or directory",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  generate();
}

TEST_F(RvtCommand, NameThatXmlCannotHold_GoesToTheErrorBoxBeforeAnyQuestion) {
  target.setName("\x01");
  person.expect("GENERIC/error/text", "Error",
                "Error # 1\r\nECU '\x01': the character U+0001 cannot be written in XML",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  generate();
}

TEST_F(RvtCommand, SettingsThatCannotBeKept_DoNotStopTheCommand) {
  class : public platform::Settings {
   public:
    std::optional<std::string> read(const std::string&) const override { fail(); }
    void write(const std::string&, const std::string&) override { fail(); }
    void remove(const std::string&) override { fail(); }

   private:
    [[noreturn]] static void fail() { throw Failure(FileAccessFailed, "", "no store"); }
  } broken;
  person.expectFile(folderQuestion(), root());
  expectSaved();
  generateRvtTests(&target, selected, person, broken);
  EXPECT_EQ(support::bytesOf(file()), rvtScenario(target, selected));
}

} // namespace
} // namespace kelmar
