// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/omnikor_editor.h"

#include "base/failure.h"
#include "base/version.h"
#include "frame/ecu_selector.h"
#include "platform/files.h"
#include "platform/site_settings.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/small_site.h"
#include "support/test_page.h"
#include "support/user.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <algorithm>

namespace kelmar {

namespace {

using Events = std::vector<std::string>;
using support::TestPage;

const char* const sixCountedTabs[] = {"datas", "requests", "devices", "screens", "readdtc", "did"};
const std::vector<std::string> everyTab{"UCEparam", "datas",   "requests", "devices",
                                        "screens",  "readdtc", "did",      "labels"};

class Editor : public testing::Test {
 protected:
  platform::SiteStart siteStart() {
    platform::SiteStart start;
    start.site = site.root();
    return start;
  }
  void make(const std::vector<std::string>& tabs, bool initialise = true) {
    omnikorEditor::PageMakers makers;
    for (const std::string& tab : tabs)
      makers[tab] = [this, tab](QWidget* parent) {
        return pages[tab] = new TestPage(recorder, parent);
      };
    editor = std::make_unique<omnikorEditor>(
        omnikorEditor::Machine{person, settings, &siteSettings, nullptr, &clock}, makers);
    events = std::make_unique<support::SignalRecorder>(*editor, recorder);
    tabBar = &support::control<QTabBar>(*editor, "TabStripPrincipal");
    if (initialise) {
      editor->InitParameters(site.root(), "parameters.xml");
      editor->resize(1100, 700);
      support::showToUser(*editor);
    }
    recorder.take();
  }
  void makeOpen(const std::vector<std::string>& tabs) {
    make(tabs);
    editor->selector().OpenEcuFile(site.engine());
    recorder.take();
  }
  int indexOf(const std::string& tab) {
    for (int i = 0; i < tabBar->count(); ++i)
      if (tabBar->tabData(i).toString().toStdString() == tab) return i;
    return -1;
  }
  void click(const std::string& tab) {
    support::mustBeUsable(*tabBar);
    QTest::mouseClick(tabBar, Qt::LeftButton, Qt::NoModifier,
                      tabBar->tabRect(indexOf(tab)).center());
  }
  std::string caption(const std::string& tab) {
    return tabBar->tabText(indexOf(tab)).toStdString();
  }
  std::string visiblePages() {
    std::string names;
    for (QWidget* page : editor->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
      if (page != tabBar && page->isVisible()) names += page->objectName().toStdString() + " ";
    return names;
  }
  std::string nameOfEcu() { return editor->selector().database()->ActiveTarget->name(); }

  support::SmallSite site;
  support::Recorder recorder;
  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::FixedClock clock;
  platform::SiteSettings siteSettings{siteStart()};
  std::map<std::string, TestPage*> pages;
  std::unique_ptr<omnikorEditor> editor;
  std::unique_ptr<support::SignalRecorder> events;
  QTabBar* tabBar = nullptr;
};

} // namespace

TEST_F(Editor, ShowsOnlyTabsWhosePageIsThere) {
  make({});
  ASSERT_EQ(tabBar->count(), 1);
  EXPECT_EQ(caption("database"), "ECU");
  EXPECT_EQ(tabBar->tabToolTip(0).toStdString(), "Select Database & ECU");
  EXPECT_EQ(editor->page("datas"), nullptr);
}

TEST_F(Editor, TabsStandInTheOrderOfTheTableWhateverTheOrderOfTheMakers) {
  make({"labels", "datas", "UCEparam"});
  Events keys;
  for (int i = 0; i < tabBar->count(); ++i)
    keys.push_back(tabBar->tabData(i).toString().toStdString());
  EXPECT_EQ(keys, (Events{"database", "UCEparam", "datas", "labels"}));
}

TEST_F(Editor, RefusesAPageForATabThatIsNone) {
  EXPECT_THROW(make({"nothing"}), std::invalid_argument);
  EXPECT_THROW(make({"check"}), std::invalid_argument);
  EXPECT_THROW(make({"database"}), std::invalid_argument);
}

TEST_F(Editor, HasItsDefaultsFromTheStart) {
  make({}, false);
  EXPECT_EQ(editor->lang(), "en");
  EXPECT_EQ(editor->xmlStyleSheet(), "ZEMECUPreview.xsl");
  EXPECT_EQ(editor->XmlSchemaTarget(), ecuSchemaUri);
  EXPECT_EQ(editor->XmlSchemaScreen(), screenSchemaUri);
  EXPECT_EQ(editor->BaseUrl(), std::string(defaultIntranetServer) + "/Omnikor");
  EXPECT_FALSE(editor->saveNeeded());
  EXPECT_EQ(editor->currentPage(), 0);
  EXPECT_EQ(omnikorEditor::GetVersion(), applicationVersion);
}

TEST_F(Editor, PropertiesGoOnToTheSelectorAtOnce) {
  make({}, false);
  editor->setBaseUrl("http://a/Omnikor");
  editor->setXmlStyleSheet("x.xsl");
  editor->setXmlSchemaTarget("t");
  editor->setXmlSchemaScreen("s");
  editor->setSiteKey("k");
  editor->setRemoteDataServer("r");
  const UceSelector& selector = editor->selector();
  EXPECT_EQ(selector.BaseUrl, "http://a/Omnikor");
  EXPECT_EQ(selector.xmlStyleSheet, "x.xsl");
  EXPECT_EQ(selector.XmlSchemaTarget, "t");
  EXPECT_EQ(selector.XmlSchemaScreen, "s");
  EXPECT_EQ(selector.SiteKey, "k");
  EXPECT_EQ(selector.RemoteDataServer, "r");
}

TEST_F(Editor, WorkingDirIgnoresWhatIsWritten) {
  make({}, false);
  editor->setWorkingDir("/somewhere");
  EXPECT_EQ(editor->WorkingDir(), "");
}

TEST_F(Editor, InitParametersInitialisesThePagesInTheirOrder) {
  make(everyTab, false);
  editor->InitParameters(site.root(), "parameters.xml");
  EXPECT_EQ(recorder.take(), (Events{"UceEditParam1.InitControl", "UceDatas1.InitControl",
                                     "UceRequests1.InitControl", "UceDevices1.InitControl",
                                     "UceReadDtc1.InitControl", "UceDID1.InitControl",
                                     "UceScreens1.InitControl", "UceLabels1.InitControl"}));
}

TEST_F(Editor, LanguageServiceStandsBeforeThePagesAreInitialised) {
  make({"datas"}, false);
  editor->setLang("fr");
  std::string text;
  pages["datas"]->onInit = [&text] {
    text = language::global().getMultilangMessageDefault(
        "Data", "MAIN/CONTROLS/TabStripPrincipal/datas/caption");
  };
  editor->InitParameters(site.root(), "parameters.xml");
  EXPECT_EQ(text, "Données");
}

TEST_F(Editor, InitParametersFailsWithoutLanguageFile) {
  make({}, false);
  try {
    editor->InitParameters("/nowhere/at/all", "parameters.xml");
    FAIL() << "nothing was raised";
  } catch (const Failure& failure) {
    // The data root of the site has the file, but not where the shared folder keeps it.
    EXPECT_EQ(failure.number, 1);
    EXPECT_EQ(failure.text,
              "Unable to read language file : /nowhere/at/all/lang/OmnikorKelmarControl.xml");
  }
}

TEST_F(Editor, FailureOfAPageLeavesTheStart) {
  make({"datas", "requests"}, false);
  pages["datas"]->failsWith = "units.xml is missing";
  EXPECT_THROW(editor->InitParameters(site.root(), "parameters.xml"), Failure);
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.InitControl"}));
}

TEST_F(Editor, StartsOnTheFirstPageWithTheStripDisabled) {
  make(everyTab);
  EXPECT_EQ(visiblePages(), "UceSelector1 ");
  EXPECT_FALSE(tabBar->isEnabled());
  EXPECT_EQ(tabBar->currentIndex(), 0);
  EXPECT_FALSE(editor->databaseLoaded());
}

TEST_F(Editor, LanguageIsTrimmedAndToldToThePagesInTheirOrder) {
  make(everyTab);
  editor->setLang(" fr ");
  EXPECT_EQ(editor->lang(), "fr");
  EXPECT_EQ(editor->selector().lang(), "fr");
  EXPECT_EQ(recorder.take(),
            (Events{"UceEditParam1.lang = fr", "UceDatas1.lang = fr", "UceRequests1.lang = fr",
                    "UceDevices1.lang = fr", "UceScreens1.lang = fr", "UceReadDtc1.lang = fr"}));
  EXPECT_EQ(caption("datas"), "Données");
  EXPECT_EQ(tabBar->tabToolTip(indexOf("datas")).toStdString(), "Éditer les données");
  EXPECT_EQ(caption("did"), "DID");
}

TEST_F(Editor, LanguageKeepsTheMarksOfWhatIsNotSaved) {
  makeOpen({"datas", "requests"});
  emit pages["requests"]->OnChange();
  emit pages["requests"]->OnCancel();
  emit pages["datas"]->OnChange();
  editor->setLang("fr");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  EXPECT_EQ(caption("datas"), "Données *");
  EXPECT_EQ(caption("requests").find('*'), std::string::npos);
  EXPECT_EQ(editor->pageChangeCount(), 1);
}

TEST_F(Editor, LanguageGoesToTheOpenDatabase) {
  makeOpen({"datas"});
  click("datas");
  editor->setLang("fr");
  EXPECT_EQ(editor->selector().database()->lang, "fr");
}

TEST_F(Editor, OpeningAFileEnablesTheTabsAndTellsTheHost) {
  make({"datas", "labels"});
  editor->selector().OpenEcuFile(site.engine());
  EXPECT_EQ(recorder.take(),
            (Events{"ctlOmnikor.DatabaseChanged(Engine)", "UceLabels1.displayDatas(Engine)"}));
  EXPECT_TRUE(editor->databaseLoaded());
  EXPECT_TRUE(tabBar->isEnabled());
  EXPECT_EQ(caption("database"), "ECU");
}

TEST_F(Editor, FailedOpeningDisablesTheTabs) {
  makeOpen({"datas"});
  const std::string broken = site.folder().write("broken.xml", "<xml>");
  EXPECT_THROW(editor->selector().OpenEcuFile(broken), Failure);
  EXPECT_FALSE(editor->databaseLoaded());
  EXPECT_FALSE(tabBar->isEnabled());
  EXPECT_EQ(caption("database"), "ECU");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(Editor, TabWithoutOpenEcuSpringsBackToTheFirst) {
  make(everyTab);
  for (const std::string& tab : everyTab) {
    tabBar->setCurrentIndex(indexOf(tab));
    EXPECT_EQ(tabBar->currentIndex(), 0) << tab;
    EXPECT_EQ(editor->currentPage(), 0) << tab;
    EXPECT_EQ(visiblePages(), "UceSelector1 ") << tab;
  }
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(Editor, ClickOnATabLeavesTheOldPageAndEntersTheNew) {
  makeOpen({"datas", "requests"});
  click("datas");
  EXPECT_EQ(visiblePages(), "UceDatas1 ");
  EXPECT_EQ(editor->currentPage(), 2);
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.displayDatas(Engine)"}));
  EXPECT_TRUE(pages["datas"]->hasFocus());
  click("requests");
  EXPECT_EQ(visiblePages(), "UceRequests1 ");
  EXPECT_EQ(recorder.take(),
            (Events{"UceDatas1.TestAndConfirmChange", "UceRequests1.displayDatas(Engine)"}));
  click("database");
  EXPECT_EQ(visiblePages(), "UceSelector1 ");
  EXPECT_EQ(editor->currentPage(), 0);
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.TestAndConfirmChange"}));
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Editor, KeysTurnToTheTabsBeside) {
  makeOpen({"datas", "requests"});
  const auto press = [&](Qt::Key key) { QTest::keyClick(editor.get(), key, Qt::ControlModifier); };
  press(Qt::Key_PageDown);
  EXPECT_EQ(visiblePages(), "UceDatas1 ");
  press(Qt::Key_PageDown);
  EXPECT_EQ(visiblePages(), "UceRequests1 ");
  press(Qt::Key_PageDown);
  EXPECT_EQ(visiblePages(), "UceRequests1 ");
  press(Qt::Key_PageUp);
  press(Qt::Key_PageUp);
  EXPECT_EQ(visiblePages(), "UceSelector1 ");
  press(Qt::Key_PageUp);
  EXPECT_EQ(visiblePages(), "UceSelector1 ");
}

TEST_F(Editor, EveryPageIsEnteredWithTheOpenDatabase) {
  makeOpen(everyTab);
  for (const std::string& tab : everyTab) {
    click(tab);
    const Events seen = recorder.take();
    ASSERT_FALSE(seen.empty()) << tab;
    const std::string file = tab == "screens" ? ", " + site.engine() : "";
    EXPECT_EQ(seen.back(),
              pages[tab]->objectName().toStdString() + ".displayDatas(Engine" + file + ")");
  }
}

TEST_F(Editor, RequestsAndIdentifiersWantACollectionOfData) {
  makeOpen({"datas", "requests", "did"});
  editor->selector().database()->ActiveTarget->setDatas(nullptr);
  click("requests");
  click("did");
  EXPECT_EQ(visiblePages(), "UceDID1 ");
  EXPECT_EQ(recorder.take(), (Events{"UceRequests1.TestAndConfirmChange"}));
  click("datas");
  EXPECT_EQ(recorder.take(),
            (Events{"UceDID1.TestAndConfirmChange", "UceDatas1.displayDatas(Engine)"}));
}

TEST_F(Editor, LabelsNeverAskTheirTestOnATabChange) {
  makeOpen({"labels"});
  click("labels");
  recorder.take();
  click("database");
  EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(Editor, LeavingAPageThatAppliedItsEditsSavesTheFile) {
  makeOpen({"datas", "requests"});
  click("datas");
  emit pages["datas"]->OnChange();
  editor->selector().database()->ActiveTarget->setGroup("changed");
  pages["datas"]->applies = true;
  click("requests");
  EXPECT_FALSE(editor->saveNeeded());
  EXPECT_EQ(caption("database"), "ECU");
  EXPECT_NE(support::bytesOf(site.engine()).find("changed"), std::string::npos);
}

TEST_F(Editor, FirstChangeMarksBothTabs) {
  makeOpen({"datas"});
  emit pages["datas"]->OnChange();
  EXPECT_EQ(caption("datas"), "Data *");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  EXPECT_TRUE(editor->selector().saveNeed);
  EXPECT_FALSE(platform::fileExists(site.engine() + ".bak"));
}

TEST_F(Editor, SecondChangeTakesTheBackup) {
  makeOpen({"datas", "requests"});
  const std::string before = support::bytesOf(site.engine());
  emit pages["datas"]->OnChange();
  emit pages["requests"]->OnChange();
  EXPECT_EQ(support::bytesOf(site.engine() + ".bak"), before);
  EXPECT_EQ(editor->pageChangeCount(), 2);
}

TEST_F(Editor, SaveIntoTheDatabaseLosesTheMarkOfThePageAlone) {
  makeOpen({"datas"});
  emit pages["datas"]->OnChange();
  emit pages["datas"]->OnSave(false);
  EXPECT_EQ(caption("datas"), "Data");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
}

TEST_F(Editor, EveryCountedPageIsHeard) {
  makeOpen(everyTab);
  for (const char* tab : sixCountedTabs) {
    TestPage& page = *pages[tab];
    emit page.OnChange();
    EXPECT_TRUE(caption(tab).ends_with(" *")) << tab;
    EXPECT_EQ(editor->pageChangeCount(), 1) << tab;
    emit page.OnSave(true);
    EXPECT_FALSE(caption(tab).ends_with(" *")) << tab;
    EXPECT_EQ(editor->pageChangeCount(), 0) << tab;
    emit page.OnChange();
    emit page.OnCancel();
    EXPECT_FALSE(editor->saveNeeded()) << tab;
  }
}

TEST_F(Editor, CancelOfOneOfTwoModificationsLeavesTheFileUnsaved) {
  makeOpen({"datas", "requests"});
  emit pages["datas"]->OnChange();
  emit pages["requests"]->OnChange();
  emit pages["datas"]->OnCancel();
  EXPECT_TRUE(editor->saveNeeded());
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
}

TEST_F(Editor, GoToWritesThePropertiesBeforeThePageIsLeft) {
  makeOpen({"datas", "requests"});
  click("requests");
  recorder.take();
  emit pages["requests"]->OnDataSelect("Speed");
  EXPECT_EQ(recorder.take(),
            (Events{"UceDatas1.EditDataName = Speed", "UceRequests1.TestAndConfirmChange",
                    "UceDatas1.displayDatas(Engine)"}));
  EXPECT_EQ(visiblePages(), "UceDatas1 ");
  EXPECT_EQ(tabBar->currentIndex(), indexOf("datas"));
}

TEST_F(Editor, EveryGoToOfTheDataPageArrives) {
  makeOpen(everyTab);
  TestPage& datas = *pages["datas"];
  emit datas.OnRequestSelect("Read", "Speed");
  EXPECT_EQ(visiblePages(), "UceRequests1 ");
  EXPECT_EQ(pages["requests"]->EditRequestName, "Read");
  EXPECT_EQ(pages["requests"]->EditDataName, "Speed");
  emit datas.OnDeviceSelect("Pump", "Speed");
  EXPECT_EQ(visiblePages(), "UceDevices1 ");
  EXPECT_EQ(pages["devices"]->EditDeviceName, "Pump");
  EXPECT_EQ(pages["devices"]->EditDeviceDataName, "Speed");
  emit datas.OnDisplaySelect("All", "Main", "Speed");
  EXPECT_EQ(visiblePages(), "UceScreens1 ");
  EXPECT_EQ(pages["screens"]->EditCategoryName, "All");
  EXPECT_EQ(pages["screens"]->EditScreenName, "Main");
  EXPECT_EQ(pages["screens"]->EditDataName, "Speed");
  emit datas.OnDIDSelect("F190", "Vin");
  EXPECT_EQ(visiblePages(), "UceDID1 ");
  EXPECT_EQ(pages["did"]->DIDToBeSelected, "F190");
  EXPECT_EQ(pages["did"]->DataPosToBeSelected, "Vin");
}

TEST_F(Editor, CopyToTheScreenKeepsTheTab) {
  makeOpen({"requests", "screens"});
  click("requests");
  recorder.take();
  emit pages["requests"]->OnCopyDataToScreen("a", "b", "c");
  EXPECT_EQ(recorder.take(), (Events{"UceScreens1.CopyDataToScreen(a, b, c)"}));
  EXPECT_EQ(visiblePages(), "UceRequests1 ");
}

TEST_F(Editor, GoToAPageThatIsNotBuiltLeadsNowhere) {
  makeOpen({"datas"});
  click("datas");
  recorder.take();
  emit pages["datas"]->OnRequestSelect("Read", "Speed");
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_EQ(visiblePages(), "UceDatas1 ");
}

TEST_F(Editor, HelpOfAPageIsRaisedUnchanged) {
  make({"datas"});
  emit pages["datas"]->help("datas", "list");
  emit editor->selector().help("selector", "open");
  EXPECT_EQ(recorder.take(),
            (Events{"ctlOmnikor.help(datas, list)", "ctlOmnikor.help(selector, open)"}));
}

TEST_F(Editor, NewEcuDisablesTheTabs) {
  makeOpen({"datas"});
  emit editor->selector().OnNewECU();
  EXPECT_FALSE(tabBar->isEnabled());
}

TEST_F(Editor, NewEcuLeavesNothingUnsavedBehindItsSave) {
  makeOpen({});
  support::retype(support::usable<QLineEdit>(*editor, "TxEcuName"), "Engine two");
  support::press(support::usable<QLineEdit>(*editor, "TxEcuName"), Qt::Key_N, Qt::ControlModifier);
  EXPECT_NE(support::bytesOf(site.engine()).find("Engine two"), std::string::npos);
  support::click(support::usable<QPushButton>(*editor, "cbCancel"));
  EXPECT_FALSE(editor->saveNeeded());
  EXPECT_EQ(caption("database"), "ECU");
}

TEST_F(Editor, NewEcuIsUnsavedWhateverIsCancelled) {
  makeOpen({});
  support::press(support::usable<QLineEdit>(*editor, "TxEcuName"), Qt::Key_N, Qt::ControlModifier);
  support::usable<QComboBox>(*editor, "cbFct").setCurrentIndex(0);
  support::click(support::usable<QPushButton>(*editor, "cbCreate"));
  EXPECT_THROW(support::usable<QToolButton>(*editor, "cancel"), std::runtime_error);
  support::retype(support::usable<QLineEdit>(*editor, "TxEcuName"), "Other");
  support::click(support::usable<QToolButton>(*editor, "cancel"));
  EXPECT_TRUE(editor->saveNeeded());
  EXPECT_EQ(caption("database"), "New ECU - Not saved -");
}

TEST_F(Editor, NothingOfTheFirstPageTakesAnotherPagesWorkForUndone) {
  makeOpen({"datas"});
  emit pages["datas"]->OnChange();
  EXPECT_THROW(support::usable<QToolButton>(*editor, "cancel"), std::runtime_error);
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
}

TEST_F(Editor, EditsOfTheNameAroundATabChangeAreOneModification) {
  makeOpen({"datas"});
  for (const char* name : {"Engine two", "Engine three"}) {
    support::retype(support::usable<QLineEdit>(*editor, "TxEcuName"), name);
    click("datas");
    click("database");
  }
  EXPECT_EQ(nameOfEcu(), "Engine three");
  support::click(support::usable<QToolButton>(*editor, "cancel"));
  EXPECT_EQ(nameOfEcu(), "Engine");
  EXPECT_EQ(caption("database"), "ECU");
}

TEST_F(Editor, WorkThatWasToBeSavedAndIsNotStaysOpen) {
  const std::string other = site.folder().write("other.xml", support::smallEcu("Other"));
  makeOpen({});
  support::retype(support::usable<QLineEdit>(*editor, "TxEcuName"), "Engine two");
  const std::string vehicles = site.file("vehicles/Tern"), away = site.file("vehicles/Away");
  std::filesystem::rename(vehicles, away);
  person.expect("", "Confirm save", "Engine change.\r\nSave Change ? ", platform::Buttons::YesNo,
                platform::Icon::Question, platform::Answer::Yes);
  person.expect("SELECTOR/MSG/fileSaveError/text", "Save error",
                "File '" + site.engine() + "' badly saved. Check disk size, name, ...",
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  emit support::control<ecuSelector>(*editor, "ecuSelector1")
      .fileChosen(QString::fromStdString(other));
  EXPECT_EQ(nameOfEcu(), "Engine two");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  std::filesystem::rename(away, vehicles);
}

TEST_F(Editor, UnsavedWorkIsAskedAboutBeforeAnotherFile) {
  makeOpen({});
  emit editor->selector().OnChange();
  person.expect("", "Confirm save", "Engine change.\r\nSave Change ? ", platform::Buttons::YesNo,
                platform::Icon::Question, platform::Answer::No);
  bool mayGoOn = false;
  emit editor->selector().CheckIfSaveNeeded(mayGoOn);
  EXPECT_TRUE(mayGoOn);
  EXPECT_TRUE(person.allAsked());
  EXPECT_TRUE(editor->saveNeeded());
}

TEST_F(Editor, DataSetOfTheTreeGoesToTheParameters) {
  make({"UCEparam"});
  emit editor->selector().DatabaseChanged("old", "Demonstration");
  EXPECT_EQ(pages["UCEparam"]->databaseDescription, "Demonstration");
}

TEST_F(Editor, RenamingOnTheFirstPageIsSavedByItsKey) {
  makeOpen({});
  support::retype(support::usable<QLineEdit>(*editor, "TxEcuName"), "Engine two");
  EXPECT_EQ(caption("database"), "ECU - Not saved -");
  support::press(support::usable<QLineEdit>(*editor, "TxEcuName"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(nameOfEcu(), "Engine two");
  EXPECT_FALSE(editor->saveNeeded());
  EXPECT_EQ(caption("database"), "ECU");
  EXPECT_NE(support::bytesOf(site.engine()).find("Name=\"Engine two\""), std::string::npos);
}

TEST_F(Editor, EndsWithoutQuestionOnUnsavedWork) {
  makeOpen({"datas"});
  emit pages["datas"]->OnChange();
  events.reset();
  editor.reset();
  EXPECT_TRUE(person.allAsked());
  EXPECT_EQ(language::global().xmlDoc(), nullptr);
}

} // namespace kelmar
