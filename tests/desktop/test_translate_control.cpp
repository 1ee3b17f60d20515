// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/translate_control.h"
#include "support/temp_folder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

namespace kelmar::desktop {
namespace {

constexpr char french[] = R"(<software><P><CONTROLS>
 <lbName><caption xml:lang="en">&amp;Name</caption><caption xml:lang="fr">&amp;Nom</caption>
   <toolTip xml:lang="fr">Le nom</toolTip></lbName>
 <fra><caption xml:lang="fr">Cadre</caption><toolTip xml:lang="fr">Un cadre</toolTip></fra>
 <cmd><caption xml:lang="fr">Valider</caption><toolTip xml:lang="fr">Valide</toolTip>
   <FontName>DejaVu Serif</FontName><FontSize>11.5</FontSize></cmd>
 <cmdIcon><toolTip xml:lang="fr">Ouvrir</toolTip></cmdIcon>
 <chk><caption xml:lang="fr">Coche</caption></chk>
 <opt><caption xml:lang="fr">Seul</caption></opt>
 <opt0><caption xml:lang="fr">Premier</caption></opt0>
 <opt1><caption xml:lang="fr">Second</caption></opt1>
 <tx><toolTip xml:lang="fr">Texte</toolTip></tx>
 <memo><toolTip xml:lang="fr">M{crlf}emo</toolTip></memo>
 <cb><toolTip xml:lang="fr">Choix</toolTip></cb>
 <pic><toolTip xml:lang="fr">Image</toolTip><caption>no</caption></pic>
 <box><toolTip xml:lang="fr">Boite</toolTip></box>
 <own><caption>no</caption><toolTip>no</toolTip></own>
 <tabs><first><caption xml:lang="fr">Un</caption><toolTip xml:lang="fr">Le un</toolTip></first>
   <third><caption xml:lang="fr">Trois</caption></third></tabs>
 <bar><first><caption xml:lang="fr">Barre</caption></first></bar>
 <lv><name><text xml:lang="fr">Nom</text></name><size><text xml:lang="fr">Taille</text></size></lv>
 <TB><open><toolTip xml:lang="fr">Ouvrir</toolTip>
     <recent><text xml:lang="fr">Recents</text></recent></open>
   <save><toolTip xml:lang="fr">Enregistrer</toolTip></save>
   <more><toolTip xml:lang="fr">Plus</toolTip><one><text xml:lang="fr">Une</text></one></more></TB>
 <mnuFile><caption xml:lang="fr">&amp;Fichier</caption></mnuFile>
 <mnuQuit><caption xml:lang="fr">&amp;Quitter</caption></mnuQuit>
 <mnuRecent><item2><caption xml:lang="fr">Deux</caption></item2></mnuRecent>
 <inner><caption xml:lang="fr">Interieur</caption></inner>
</CONTROLS></P></software>)";

class TranslateControls : public testing::Test {
 protected:
  TranslateControls() {
    EXPECT_TRUE(texts.loadXmlLanguageFile(folder.write("fr.xml", french)));
    texts.language = "fr";
  }
  template <typename Widget, typename... Arguments>
  Widget* add(const char* name, Arguments... arguments) {
    auto* widget = new Widget(arguments..., &page);
    widget->setObjectName(QLatin1String(name));
    return widget;
  }
  void translate() { TranslateControl(page, texts, "P/CONTROLS"); }

  support::TempFolder folder;
  CMultiLangEx texts;
  QMainWindow page;
};

TEST_F(TranslateControls, PlainControls_TakeCaptionAndToolTip) {
  auto* label = add<QLabel>("lbName", QString("Name"));
  auto* frame = add<QGroupBox>("fra", QString("Frame"));
  auto* check = add<QCheckBox>("chk", QString("Check"));
  auto* field = add<QLineEdit>("tx", QString("typed"));
  auto* memo = add<QPlainTextEdit>("memo", QString("typed"));
  auto* choice = add<QComboBox>("cb");
  auto* untouched = add<QLabel>("unknown", QString("stays"));
  translate();
  EXPECT_EQ(label->text(), "&Nom");
  EXPECT_EQ(label->toolTip(), "Le nom");
  EXPECT_EQ(frame->title(), "Cadre");
  EXPECT_EQ(frame->toolTip(), "Un cadre");
  EXPECT_EQ(check->text(), "Coche");
  EXPECT_EQ(field->toolTip(), "Texte");
  EXPECT_EQ(field->text(), "typed");
  EXPECT_EQ(memo->toolTip(), "M\r\nemo");
  EXPECT_EQ(choice->toolTip(), "Choix");
  EXPECT_EQ(untouched->text(), "stays");
}

TEST_F(TranslateControls, AButton_TakesItsFontToo) {
  auto* button = add<QPushButton>("cmd", QString("OK"));
  translate();
  EXPECT_EQ(button->text(), "Valider");
  EXPECT_EQ(button->font().family(), "DejaVu Serif");
  EXPECT_EQ(button->font().pointSizeF(), 11.5);
  EXPECT_EQ(button->accessibleName(), "");
}

TEST_F(TranslateControls, AButtonWithoutText_HasItsToolTipAsAccessibleName) {
  auto* button = add<QToolButton>("cmdIcon");
  translate();
  EXPECT_EQ(button->toolTip(), "Ouvrir");
  EXPECT_EQ(button->accessibleName(), "Ouvrir");
}

TEST_F(TranslateControls, Options_InAnArrayHaveTheirIndexInTheName) {
  auto* single = add<QRadioButton>("opt", QString("Single"));
  std::vector<QRadioButton*> array;
  for (int i = -1; i < 2; ++i) {
    array.push_back(add<QRadioButton>("opt", QString("Array")));
    array.back()->setProperty(controlIndexProperty, i);
  }
  translate();
  EXPECT_EQ(single->text(), "Seul");
  EXPECT_EQ(array[0]->text(), "Seul");
  EXPECT_EQ(array[1]->text(), "Premier");
  EXPECT_EQ(array[2]->text(), "Second");
}

TEST_F(TranslateControls, Pictures_TakeAToolTipOnly) {
  auto* picture = add<QLabel>("pic");
  picture->setPixmap(QPixmap(4, 4));
  auto* box = add<QFrame>("box");
  auto* named = add<QWidget>("tx");
  named->setProperty(controlTypeProperty, "TextBox");
  translate();
  EXPECT_EQ(picture->toolTip(), "Image");
  EXPECT_FALSE(picture->pixmap(Qt::ReturnByValue).isNull());
  EXPECT_EQ(box->toolTip(), "Boite");
  EXPECT_EQ(named->toolTip(), "Texte");
}

TEST_F(TranslateControls, OwnControls_AreSkipped) {
  auto* field = add<QSpinBox>("own");
  auto* label = add<QLabel>("own", QString("stays"));
  label->setProperty(controlTypeProperty, "UctlOwn");
  translate();
  EXPECT_EQ(field->toolTip(), "");
  EXPECT_EQ(label->text(), "stays");
}

TEST_F(TranslateControls, Tabs_GoByTheirKey) {
  auto* tabs = add<QTabWidget>("tabs");
  for (const char* name : {"First", "Second", "Third"})
    tabs->addTab(new QLabel(QLatin1String(name)), QLatin1String(name));
  tabs->tabBar()->setTabData(0, "first");
  tabs->tabBar()->setTabData(2, "third");
  auto* bar = add<QTabBar>("bar");
  bar->setTabData(bar->addTab("First"), "first");
  translate();
  EXPECT_EQ(tabs->tabText(0), "Un");
  EXPECT_EQ(tabs->tabToolTip(0), "Le un");
  EXPECT_EQ(tabs->tabText(1), "Second");
  EXPECT_EQ(tabs->tabText(2), "Trois");
  EXPECT_EQ(bar->tabText(0), "Barre");
}

TEST_F(TranslateControls, Columns_GoByTheirKey) {
  for (const bool tree : {false, true}) {
    QStandardItemModel model(1, 3);
    model.setHorizontalHeaderLabels({"Size", "Other", "Name"});
    model.setHeaderData(0, Qt::Horizontal, "size", columnKeyRole);
    model.setHeaderData(2, Qt::Horizontal, "name", columnKeyRole);
    QAbstractItemView* list =
        tree ? static_cast<QAbstractItemView*>(add<QTreeView>("lv")) : add<QTableView>("lv");
    list->setModel(&model);
    translate();
    EXPECT_EQ(model.headerData(0, Qt::Horizontal), "Taille");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal), "Other");
    EXPECT_EQ(model.headerData(2, Qt::Horizontal), "Nom");
    delete list;
  }
  add<QTreeView>("lv"); // one without a model has no columns
  translate();
}

TEST_F(TranslateControls, ToolBars_GoByTheKeysOfButtonsAndMenuEntries) {
  auto* bar = add<QToolBar>("TB");
  QAction* open = bar->addAction("Open");
  open->setObjectName("open");
  auto* menu = new QMenu(&page);
  menu->addSeparator();
  QAction* recent = menu->addAction("Recent");
  recent->setProperty(keyProperty, "recent");
  open->setMenu(menu);
  bar->addSeparator();
  QAction* save = bar->addAction("");
  save->setProperty(keyProperty, "save");
  auto* more = new QToolButton;
  auto* moreMenu = new QMenu(more);
  moreMenu->addAction("One")->setObjectName("one");
  more->setMenu(moreMenu);
  QAction* moreAction = bar->addWidget(more);
  moreAction->setObjectName("more");
  QAction* keyless = bar->addAction("Keyless");
  translate();
  EXPECT_EQ(open->toolTip(), "Ouvrir");
  EXPECT_EQ(bar->widgetForAction(open)->toolTip(), "Ouvrir");
  EXPECT_EQ(recent->text(), "Recents");
  EXPECT_EQ(save->toolTip(), "Enregistrer");
  EXPECT_EQ(bar->widgetForAction(save)->accessibleName(), "Enregistrer");
  EXPECT_EQ(more->toolTip(), "Plus");
  EXPECT_EQ(moreMenu->actions().front()->text(), "Une");
  EXPECT_EQ(keyless->toolTip(), "Keyless");
}

TEST_F(TranslateControls, Menus_TakeCaptions) {
  QMenu* file = page.menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  QAction* quit = file->addAction("&Quit");
  quit->setObjectName("mnuQuit");
  QAction* recent = file->addAction("2");
  recent->setObjectName("mnuRecent");
  recent->setProperty(controlIndexProperty, 2);
  translate();
  EXPECT_EQ(file->title(), "&Fichier");
  EXPECT_EQ(quit->text(), "&Quitter");
  EXPECT_EQ(recent->text(), "Deux");
}

TEST_F(TranslateControls, ControlsInside_AreFoundUnlessTheirParentHasTextsOfItsOwn) {
  auto* tabs = add<QTabWidget>("pages");
  auto* open = new QWidget;
  auto* closed = new QWidget;
  auto* inOpen = new QLabel("Inner", open);
  auto* inClosed = new QLabel("Inner", closed);
  inOpen->setObjectName("inner");
  inClosed->setObjectName("inner");
  closed->setProperty(ownTextsProperty, true);
  tabs->addTab(open, "a");
  tabs->addTab(closed, "b");
  translate();
  EXPECT_EQ(inOpen->text(), "Interieur");
  EXPECT_EQ(inClosed->text(), "Inner");
  TranslateControl(*closed, texts, "P/CONTROLS");
  EXPECT_EQ(inClosed->text(), "Interieur");
}

TEST_F(TranslateControls, AnotherLanguage_ReplacesTheTexts) {
  auto* label = add<QLabel>("lbName", QString("x"));
  translate();
  texts.language = "en";
  translate();
  EXPECT_EQ(label->text(), "&Name");
  EXPECT_EQ(label->toolTip(), "Le nom"); // the only one there is
}

TEST_F(TranslateControls, AMissingKey_ChangesNothing) {
  auto* label = add<QLabel>("lbName", QString("x"));
  TranslateControl(page, texts, "Q/CONTROLS");
  TranslateControl(page, CMultiLangEx(), "P/CONTROLS");
  EXPECT_EQ(label->text(), "x");
}

TEST_F(TranslateControls, Ex_UsesAnotherFileForThisOnce) {
  auto* label = add<QLabel>("lbName", QString("x"));
  TranslateControlEx(page, texts, folder.file("none.xml"), "P/CONTROLS");
  EXPECT_EQ(label->text(), "x");
  TranslateControlEx(
      page, texts,
      folder.write("o.xml", "<software><Z><lbName><caption>o</caption></lbName></Z></software>"),
      "Z");
  EXPECT_EQ(label->text(), "o");
  translate();
  EXPECT_EQ(label->text(), "&Nom");
}

} // namespace
} // namespace kelmar::desktop
