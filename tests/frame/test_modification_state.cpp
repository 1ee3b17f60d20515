// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/modification_state.h"

#include "support/recorder.h"
#include "support/scripted_person.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace kelmar::frame {

namespace {

using Events = std::vector<std::string>;

class NotedSurface : public FrameSurface {
 public:
  support::Recorder recorder;
  support::ScriptedPerson scripted;
  std::map<std::string, std::string> captions;
  std::map<std::string, std::string> texts; ///< of the language file
  std::optional<std::string> name = "Engine";
  bool saves = true;
  bool applies = false;
  std::function<void()> onTest; ///< what the page does while it is asked

  NotedSurface() { scripted.recordInto(recorder); }

  void setTabCaption(const PageRow& row, const std::string& caption) override {
    captions[std::string(row.key)] = caption;
  }
  std::string translated(std::string_view defaultText, std::string_view key) const override {
    const auto found = texts.find(std::string(key));
    return found == texts.end() ? std::string(defaultText) : found->second;
  }
  void setSelectorSaveNeed(bool value) override {
    recorder.note(value ? "saveNeed" : "noSaveNeed");
  }
  bool saveFile() override {
    recorder.note("saveFile");
    return saves;
  }
  void saveBackupFile() override { recorder.note("saveBackupFile"); }
  std::optional<std::string> targetName() const override { return name; }
  bool testAndConfirmChange(const PageRow& row) override {
    recorder.note("test " + std::string(row.key));
    if (onTest) onTest();
    return applies;
  }
  platform::Person& person() override { return scripted; }
};

class Modification : public testing::Test {
 protected:
  const PageRow& row(const char* tab) { return *rowOfTab(tab); }
  Events take() { return surface.recorder.take(); }
  std::string caption(const char* tab) { return surface.captions[tab]; }
  void expectSaveQuestion(platform::Answer answer) {
    surface.scripted.expect("", "Confirm save", "Engine change.\r\nSave Change ? ",
                            platform::Buttons::YesNo, platform::Icon::Question, answer);
  }

  NotedSurface surface;
  ModificationState state{surface};
};

constexpr const char* countedTabs[] = {"datas", "requests", "devices", "screens", "readdtc", "did"};
constexpr const char* askedTabs[] = {"UCEparam", "datas",   "requests", "devices",
                                     "screens",  "readdtc", "did"};

} // namespace

TEST_F(Modification, SetSaveNeed_NamesTheFirstTabAfterTheState) {
  state.SetSaveNeed(true);
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  state.SetSaveNeed(false);
  EXPECT_EQ(caption("database"), "ECU");
  surface.name = "New ECU";
  state.SetSaveNeed(true);
  EXPECT_EQ(caption("database"), "New ECU - Not saved -");
  state.SetSaveNeed(false);
  EXPECT_EQ(caption("database"), "New ECU");
  surface.name.reset();
  state.SetSaveNeed(true);
  EXPECT_EQ(caption("database"), "ECU");
  EXPECT_TRUE(state.saveNeeded());
  EXPECT_EQ(take(), (Events{"saveNeed", "noSaveNeed", "saveNeed", "noSaveNeed", "saveNeed"}));
}

TEST_F(Modification, MarkTabModified_PutsAStarBehindTheTranslatedCaption) {
  surface.texts["MAIN/CONTROLS/TabStripPrincipal/datas/caption"] = "Données";
  state.MarkTabModified(row("datas"), false);
  EXPECT_EQ(caption("datas"), "Données *");
  state.MarkTabModified(row("datas"), true);
  EXPECT_EQ(caption("datas"), "Données");
  state.MarkTabModified(row("did"), false);
  EXPECT_EQ(caption("did"), "DID *");
}

TEST_F(Modification, MarkTabModified_LeavesTheFirstTabAndTheChecksAlone) {
  state.MarkTabModified(row("database"), false);
  state.MarkTabModified(row("check"), false);
  EXPECT_TRUE(surface.captions.empty());
}

TEST_F(Modification, FirstChangeOfACountedPageMarksAndCountsWithoutBackup) {
  for (const char* tab : countedTabs) {
    ModificationState fresh(surface);
    fresh.OnChange(row(tab));
    EXPECT_EQ(take(), (Events{"saveNeed"})) << tab;
    EXPECT_EQ(fresh.pageChangeCount(), 1) << tab;
    EXPECT_EQ(caption(tab), std::string(row(tab).caption) + " *");
  }
}

TEST_F(Modification, SecondChangeTakesTheBackupBeforeItCounts) {
  state.OnChange(row("datas"));
  take();
  state.OnChange(row("requests"));
  EXPECT_EQ(take(), (Events{"saveBackupFile", "saveNeed"}));
  EXPECT_EQ(state.pageChangeCount(), 2);
}

TEST_F(Modification, ChangeOfTheParametersIsNotCounted) {
  state.OnChange(row("UCEparam"));
  EXPECT_EQ(take(), Events{});
  EXPECT_EQ(caption("UCEparam"), "Parameters *");
  EXPECT_EQ(state.pageChangeCount(), 0);
  EXPECT_FALSE(state.saveNeeded());
}

TEST_F(Modification, ChangeOfTheSelectorIsCountedWithoutAMark) {
  state.OnChange(row("database"));
  EXPECT_EQ(take(), (Events{"saveNeed"}));
  EXPECT_EQ(state.pageChangeCount(), 1);
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
}

TEST_F(Modification, ChangeOfTheLabelsOnlyMarks) {
  state.SetSaveNeed(true);
  take();
  state.OnChange(row("labels"));
  EXPECT_EQ(take(), Events{});
  EXPECT_EQ(caption("labels"), "Labels *");
  EXPECT_EQ(state.pageChangeCount(), 0);
}

TEST_F(Modification, SaveToFileOfACountedPageClearsEverything) {
  for (const char* tab : countedTabs) {
    state.OnChange(row(tab));
    state.OnChange(row(tab));
    take();
    state.OnSave(row(tab), true);
    EXPECT_EQ(take(), (Events{"saveFile", "noSaveNeed"})) << tab;
    EXPECT_EQ(state.pageChangeCount(), 0) << tab;
    EXPECT_EQ(caption(tab), std::string(row(tab).caption)) << tab;
    EXPECT_EQ(caption("database"), "ECU") << tab;
  }
}

TEST_F(Modification, SaveToFileThatFailsKeepsTheUnsavedState) {
  state.OnChange(row("datas"));
  surface.saves = false;
  take();
  state.OnSave(row("datas"), true);
  EXPECT_EQ(take(), (Events{"saveFile"}));
  EXPECT_TRUE(state.saveNeeded());
  EXPECT_EQ(state.pageChangeCount(), 1);
  EXPECT_EQ(caption("datas"), "Data");
}

TEST_F(Modification, SaveIntoTheDatabaseCountsAsAModification) {
  state.OnChange(row("datas"));
  take();
  state.OnSave(row("datas"), false);
  EXPECT_EQ(take(), (Events{"saveNeed"}));
  EXPECT_EQ(caption("datas"), "Data");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  EXPECT_EQ(state.pageChangeCount(), 2);
}

TEST_F(Modification, SaveOfParametersAndSelectorAlwaysGoesToTheFile) {
  for (const char* tab : {"UCEparam", "database"}) {
    state.NotePageChange();
    take();
    state.OnSave(row(tab), false);
    EXPECT_EQ(take(), (Events{"saveFile", "noSaveNeed"})) << tab;
    EXPECT_EQ(state.pageChangeCount(), 0) << tab;
  }
  EXPECT_EQ(caption("UCEparam"), "Parameters");
}

TEST_F(Modification, SaveOfTheParametersThatFailsLeavesTheFileUnsaved) {
  surface.saves = false;
  state.OnChange(row("UCEparam"));
  state.OnSave(row("UCEparam"), true);
  EXPECT_EQ(take(), (Events{"saveFile", "saveNeed"}));
  EXPECT_TRUE(state.saveNeeded());
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
}

TEST_F(Modification, CancelElsewhereLeavesParametersThatCouldNotBeSavedUnsaved) {
  surface.saves = false;
  state.OnChange(row("UCEparam"));
  state.OnSave(row("UCEparam"), true);
  state.OnChange(row("database"));
  state.OnCancel(row("database"));
  EXPECT_TRUE(state.saveNeeded());
}

TEST_F(Modification, SaveOfTheLabelsOnlyUnmarks) {
  state.NotePageChange();
  take();
  state.OnSave(row("labels"), true);
  EXPECT_EQ(take(), Events{});
  EXPECT_EQ(caption("labels"), "Labels");
  EXPECT_EQ(state.pageChangeCount(), 1);
}

TEST_F(Modification, CancelOfTheOnlyModificationLeavesTheFileSaved) {
  for (const char* tab : countedTabs) {
    state.OnChange(row(tab));
    take();
    state.OnCancel(row(tab));
    EXPECT_EQ(take(), (Events{"noSaveNeed"})) << tab;
    EXPECT_EQ(state.pageChangeCount(), 0) << tab;
    EXPECT_EQ(caption(tab), std::string(row(tab).caption)) << tab;
  }
  state.OnChange(row("database"));
  take();
  state.OnCancel(row("database"));
  EXPECT_EQ(take(), (Events{"noSaveNeed"}));
}

TEST_F(Modification, SpeaksTheLanguageOfTheWindow) {
  surface.texts = {{"MAIN/MSG/notSaved/text", " - Non enregistré -"},
                   {"MAIN/MSG/confirmSave/title", "Confirmer"},
                   {"MAIN/MSG/confirmSave/change", " : modifications."},
                   {"MAIN/MSG/confirmSave/question", "Enregistrer ?"}};
  state.OnChange(row("datas"));
  EXPECT_EQ(caption("database"), "ECU - Non enregistré -");
  surface.scripted.expect("", "Confirmer", "Engine : modifications.\r\nEnregistrer ?",
                          platform::Buttons::YesNo, platform::Icon::Question, platform::Answer::No);
  EXPECT_TRUE(state.ConfirmLeavePage(0, true));
}

TEST_F(Modification, CancelOfOneOfTwoModificationsLeavesTheFileUnsaved) {
  state.OnChange(row("datas"));
  state.OnChange(row("requests"));
  take();
  state.OnCancel(row("requests"));
  EXPECT_EQ(take(), Events{});
  EXPECT_EQ(state.pageChangeCount(), 2);
  EXPECT_TRUE(state.saveNeeded());
  EXPECT_EQ(caption("requests"), "Requests");
}

TEST_F(Modification, CancelOfParametersAndLabelsOnlyUnmarks) {
  for (const char* tab : {"UCEparam", "labels"}) {
    ModificationState fresh(surface);
    fresh.NotePageChange();
    take();
    fresh.OnCancel(row(tab));
    EXPECT_EQ(take(), Events{}) << tab;
    EXPECT_EQ(fresh.pageChangeCount(), 1) << tab;
    EXPECT_EQ(caption(tab), std::string(row(tab).caption)) << tab;
  }
}

TEST_F(Modification, CancelWithoutAModificationDoesNothing) {
  state.OnCancel(row("datas"));
  EXPECT_EQ(take(), Events{});
}

TEST_F(Modification, BackupIfNeeded_WaitsForTheUnsavedState) {
  state.BackupIfNeeded();
  EXPECT_EQ(take(), Events{});
  state.SetSaveNeed(true);
  take();
  state.BackupIfNeeded();
  EXPECT_EQ(take(), (Events{"saveBackupFile"}));
}

TEST_F(Modification, LeavingAPageAsksItsTestAndSavesWhatItApplied) {
  surface.applies = true;
  for (const char* tab : askedTabs) {
    state.SetSaveNeed(true);
    take();
    state.ConfirmLeavePage(row(tab).index, false);
    EXPECT_EQ(take(), (Events{"test " + std::string(tab), "saveFile", "noSaveNeed"})) << tab;
  }
}

TEST_F(Modification, LeavingAPageWithoutEditsSavesNothing) {
  state.SetSaveNeed(true);
  take();
  state.ConfirmLeavePage(row("datas").index, false);
  EXPECT_EQ(take(), (Events{"test datas"}));
  EXPECT_TRUE(state.saveNeeded());
}

TEST_F(Modification, LeavingAPageSavesNothingWhenNothingIsToBeSaved) {
  surface.applies = true;
  state.ConfirmLeavePage(row("datas").index, false);
  EXPECT_EQ(take(), (Events{"test datas"}));
}

TEST_F(Modification, LeavingTheLabelsNeverAsksTheirTest) {
  state.ConfirmLeavePage(row("labels").index, false);
  EXPECT_EQ(take(), Events{});
  state.SetSaveNeed(true);
  take();
  state.ConfirmLeavePage(row("labels").index, false);
  EXPECT_EQ(take(), (Events{"saveFile", "noSaveNeed"}));
}

TEST_F(Modification, LeavingTheFirstPageDoesNothingOnATabClick) {
  surface.applies = true;
  state.SetSaveNeed(true);
  take();
  state.ConfirmLeavePage(0, false);
  EXPECT_EQ(take(), Events{});
}

TEST_F(Modification, LeavingKeepsTheCountOfModifications) {
  surface.applies = true;
  state.NotePageChange();
  state.ConfirmLeavePage(row("datas").index, false);
  EXPECT_FALSE(state.saveNeeded());
  EXPECT_EQ(state.pageChangeCount(), 1);
}

TEST_F(Modification, SaveThatFailsOnLeavingKeepsTheUnsavedState) {
  surface.applies = true;
  surface.saves = false;
  state.SetSaveNeed(true);
  take();
  EXPECT_FALSE(state.ConfirmLeavePage(row("datas").index, true)); // and asks no second time
  EXPECT_EQ(take(), (Events{"test datas", "saveFile"}));
  EXPECT_TRUE(state.saveNeeded());
}

TEST_F(Modification, LeavingAPageThatFailedToSaveByItselfSavesNoSecondTime) {
  surface.applies = true;
  surface.saves = false;
  surface.onTest = [this] { state.OnSave(row("UCEparam"), true); };
  EXPECT_FALSE(state.ConfirmLeavePage(row("UCEparam").index, false));
  EXPECT_EQ(take(), (Events{"test UCEparam", "saveFile", "saveNeed"}));
  surface.onTest = {};
  EXPECT_FALSE(state.ConfirmLeavePage(row("datas").index, false));
  EXPECT_EQ(take(), (Events{"test datas", "saveFile"}));
}

TEST_F(Modification, AskingSavesOnYes) {
  state.SetSaveNeed(true);
  take();
  expectSaveQuestion(platform::Answer::Yes);
  EXPECT_TRUE(state.ConfirmLeavePage(0, true));
  EXPECT_EQ(take(), (Events{"box Confirm save: Engine change.\r\nSave Change ? ", "saveFile",
                            "noSaveNeed"}));
}

TEST_F(Modification, AskingTellsThatWhatWasToBeSavedIsNot) {
  state.SetSaveNeed(true);
  surface.saves = false;
  expectSaveQuestion(platform::Answer::Yes);
  EXPECT_FALSE(state.ConfirmLeavePage(0, true));
  EXPECT_TRUE(state.saveNeeded());
}

TEST_F(Modification, AskingSavesNothingOnNo) {
  state.SetSaveNeed(true);
  take();
  expectSaveQuestion(platform::Answer::No);
  EXPECT_TRUE(state.ConfirmLeavePage(0, true));
  EXPECT_EQ(take(), (Events{"box Confirm save: Engine change.\r\nSave Change ? "}));
  EXPECT_TRUE(state.saveNeeded());
}

TEST_F(Modification, AskingAlsoComesAfterAPageThatAppliedNothing) {
  state.SetSaveNeed(true);
  take();
  expectSaveQuestion(platform::Answer::No);
  state.ConfirmLeavePage(row("datas").index, true);
  EXPECT_EQ(take(), (Events{"test datas", "box Confirm save: Engine change.\r\nSave Change ? "}));
}

TEST_F(Modification, NobodyIsAskedWithoutAnEcuOrWithNothingToSave) {
  EXPECT_TRUE(state.ConfirmLeavePage(0, true));
  surface.name.reset();
  state.SetSaveNeed(true);
  take();
  EXPECT_TRUE(state.ConfirmLeavePage(0, true));
  EXPECT_EQ(take(), Events{});
}

} // namespace kelmar::frame
