// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The parameter page in the tabbed editor: search, saving, the question before leaving.
#include "controls/zem_numeric.h"
#include "desktop/qt_text.h"
#include "frame/omnikor_editor.h"
#include "frame/uce_edit_param.h"
#include "platform/site_settings.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/small_site.h"
#include "support/user.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

#include <filesystem>

using namespace kelmar;
using namespace kelmar::support;
using desktop::u8;

namespace {

class ParametersInEditor : public testing::Test {
 protected:
  platform::SiteStart siteStart() {
    platform::SiteStart start;
    start.site = site.root();
    return start;
  }
  void SetUp() override {
    omnikorEditor::PageMakers makers;
    makers["UCEparam"] = [this](QWidget* parent) { return new UceEditParam(person, parent); };
    editor = std::make_unique<omnikorEditor>(
        omnikorEditor::Machine{person, settings, &siteSettings, nullptr, &clock}, makers);
    editor->InitParameters(site.root(), "parameters.xml");
    editor->resize(1200, 700);
    showToUser(*editor);
    editor->selector().OpenEcuFile(site.engine());
    goTo(1);
  }
  void expectQuestion(platform::Answer answer) {
    person.expect("PARAMS/MSG/modifyParameters/text", "Confirm modification",
                  "Parameters changed, save change ?", platform::Buttons::YesNo,
                  platform::Icon::Question, answer);
  }
  void goTo(int tab) {
    auto& tabs = control<QTabBar>(*editor, "TabStripPrincipal");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
  }
  std::string caption(int tab) {
    return u8(control<QTabBar>(*editor, "TabStripPrincipal").tabText(tab));
  }
  UceEditParam& page() { return control<UceEditParam>(*editor, "UceEditParam1"); }
  QLineEdit& field(const char* name) { return control<QLineEdit>(page(), name); }
  void fillEntry(const char* supplier) {
    retype(control<QLineEdit>(controlNamed(page(), "ValIndiceDiag"), "TextNum"), "4");
    retype(field("ValCodeFour"), supplier);
    retype(field("ValLogiciel"), "0A12");
    retype(field("ValVersion"), "0100");
  }

  SmallSite site;
  ScriptedPerson person;
  MemorySettings settings;
  FixedClock clock;
  platform::SiteSettings siteSettings{siteStart()};
  std::unique_ptr<omnikorEditor> editor;
};

TEST_F(ParametersInEditor, ShowTheDataSetThatTheTreeShows) {
  EXPECT_EQ(u8(field("txtDatabase").text()), "All");
  emit editor->selector().DatabaseChanged("All", "Another");
  EXPECT_EQ(u8(field("txtDatabase").text()), "Another");
}

TEST_F(ParametersInEditor, AreSavedAtOnceAndTheMarkGoes) {
  retype(field("txtEmail"), "a@b.example");
  EXPECT_EQ(caption(1), "Parameters *");
  EXPECT_EQ(editor->pageChangeCount(), 0);
  press(field("txtEmail"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(caption(1), "Parameters");
  EXPECT_NE(bytesOf(site.engine()).find("email=\"a@b.example\""), std::string::npos);
}

TEST_F(ParametersInEditor, AreAskedAboutWhenTheTabIsLeft) {
  retype(field("txtEmail"), "a@b.example");
  expectQuestion(platform::Answer::No);
  goTo(0);
  EXPECT_EQ(caption(1), "Parameters");
  goTo(1);
  EXPECT_EQ(u8(field("txtEmail").text()), "");
  retype(field("txtEmail"), "c@d.example");
  expectQuestion(platform::Answer::Yes);
  goTo(0);
  EXPECT_NE(bytesOf(site.engine()).find("email=\"c@d.example\""), std::string::npos);
}

TEST_F(ParametersInEditor, ThatCouldNotBeSavedAreAskedAboutBeforeAnotherEcuOpens) {
  retype(field("txtEmail"), "a@b.example");
  const std::string vehicles = site.file("vehicles/Tern"), away = site.file("vehicles/Away");
  std::filesystem::rename(vehicles, away);
  person.expect("SELECTOR/MSG/fileSaveError/text", "Save error",
                "File '" + site.engine() + "' badly saved. Check disk size, name, ...",
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  press(field("txtEmail"), Qt::Key_S, Qt::ControlModifier);
  std::filesystem::rename(away, vehicles);
  EXPECT_TRUE(editor->saveNeeded());
  EXPECT_EQ(caption(0), "ECU - Not saved -");
  goTo(0);
  person.expect("", "Confirm save", "Engine change.\r\nSave Change ? ", platform::Buttons::YesNo,
                platform::Icon::Question, platform::Answer::Yes);
  bool mayGoOn = false;
  emit editor->selector().CheckIfSaveNeeded(mayGoOn);
  EXPECT_TRUE(mayGoOn);
  EXPECT_NE(bytesOf(site.engine()).find("email=\"a@b.example\""), std::string::npos);
  EXPECT_EQ(caption(0), "ECU");
}

TEST_F(ParametersInEditor, ThatCannotBeSavedAreTriedOnceWhenTheTabIsLeft) {
  retype(field("txtEmail"), "a@b.example");
  std::filesystem::rename(site.file("vehicles/Tern"), site.file("vehicles/Away"));
  expectQuestion(platform::Answer::Yes);
  person.expect("SELECTOR/MSG/fileSaveError/text", "Save error",
                "File '" + site.engine() + "' badly saved. Check disk size, name, ...",
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  goTo(0);
  EXPECT_EQ(caption(0), "ECU - Not saved -");
  EXPECT_EQ(caption(1), "Parameters");
}

TEST_F(ParametersInEditor, LeaveNoMarkBehindWhenTheirChangesAreDropped) {
  QLineEdit& identifier = control<QLineEdit>(controlNamed(page(), "canXid"), "TextNum");
  const std::string before = bytesOf(site.engine());
  retype(identifier, "FFF");
  EXPECT_EQ(caption(1), "Parameters *");
  expectQuestion(platform::Answer::No);
  goTo(0);
  EXPECT_EQ(caption(1), "Parameters");
  goTo(1);
  EXPECT_EQ(u8(identifier.text()), "7E0");
  EXPECT_EQ(caption(1), "Parameters");
  goTo(0);
  EXPECT_EQ(bytesOf(site.engine()), before);
}

TEST_F(ParametersInEditor, ASearchShowsItsResultAndFillsTheSearchPanel) {
  fillEntry("OKN");
  click(usable<QPushButton>(page(), "buttonAddNewAi"));
  click(usable<QToolButton>(page(), "check"));
  // Two files of the site have this function, and neither has an identification.
  EXPECT_EQ(u8(control<QLabel>(page(), "lbResult").text()), "No match");
  EXPECT_FALSE(control<QLineEdit>(page(), "txdHref").isVisible());
  press(field("ValVersion"), Qt::Key_S, Qt::ControlModifier);
  click(usable<QToolButton>(page(), "check"));
  EXPECT_EQ(u8(control<QLabel>(page(), "lbResult").text()), "Identification exact match");
  EXPECT_EQ(u8(usable<QLineEdit>(page(), "txdHref").text()), site.engine());
  QWidget& panel = controlNamed(*editor, "FrDetect");
  EXPECT_EQ(u8(control<QLineEdit>(panel, "txdFunc").text()), "122");
  EXPECT_EQ(u8(control<QLineEdit>(panel, "txdDiag").text()), "4");
  EXPECT_EQ(u8(control<QLineEdit>(panel, "txdSup").text()), "OKN");
  EXPECT_EQ(u8(control<QLineEdit>(panel, "txdSoft").text()), "0A12");
  EXPECT_EQ(u8(control<QLineEdit>(panel, "txdVers").text()), "0100");
}

TEST_F(ParametersInEditor, IdentifiersAndProtocolSurviveTheFile) {
  auto& number = control<ZEMnumeric>(page(), "canXid");
  EXPECT_EQ(number.value(), 2016);
  click(usable<QCheckBox>(page(), "canXidExtented"));
  retype(control<QLineEdit>(number, "TextNum"), "18DA10F1");
  press(number, Qt::Key_S, Qt::ControlModifier);
  editor->selector().OpenEcuFile(site.engine());
  goTo(0);
  goTo(1);
  EXPECT_EQ(number.value(), 0x18DA10F1);
  EXPECT_TRUE(control<QCheckBox>(page(), "canXidExtented").isChecked());
  EXPECT_EQ(control<QComboBox>(page(), "ComboTypeCom").currentData().toInt(), 7);
}

} // namespace
