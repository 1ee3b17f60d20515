// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/command_table.h"
#include "support/user.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace kelmar;
using namespace kelmar::support;

namespace {

class CommandTableTest : public testing::Test {
 protected:
  std::vector<std::string> done;
  bool loaded = true;
  QWidget page;
  QToolBar* bar = new QToolBar("TBtoolbar");
  QLineEdit* field = new QLineEdit;
  CommandTable* table = nullptr;

  void SetUp() override {
    table = new CommandTable(
        &page,
        {{.key = "Open",
          .toolTip = "Open a database",
          .icon = "open",
          .run = [this] { done.push_back("Open"); },
          .dropDown = {{.key = "Open", .text = "&Open ..."},
                       {.key = "k1", .text = "a & b.xml", .literal = true}},
          .chosen = [this](const MenuEntry& entry) { done.push_back("chosen " + entry.key); }},
         {.key = "Save",
          .toolTip = "Save (Ctrl S)",
          .icon = "save",
          .run = [this] { done.push_back("Save"); },
          .enabled = [this] { return loaded; },
          .shortcuts = {QKeySequence("Ctrl+S")}},
         {.key = "new",
          .toolTip = "New ECU",
          .icon = "new",
          .run = [this] { done.push_back("new"); },
          .shortcuts = {QKeySequence("Ctrl+N"), QKeySequence("F5")},
          .caption = "New"}});
    auto* layout = new QVBoxLayout(&page);
    layout->addWidget(bar);
    layout->addWidget(field);
    table->fillToolBar(*bar, {"Open", "Save", "", "new"});
    showToUser(page);
    field->setFocus();
  }
};

TEST_F(CommandTableTest, MakesTheButtonsOfTheToolBarInTheirOrder) {
  std::string keys;
  for (QAction* action : bar->actions())
    keys += action->isSeparator() ? "-" : action->objectName().toStdString() + "|";
  EXPECT_EQ(keys, "Open|Save|-new|");
  click(usable<QToolButton>(page, "Open"));
  click(usable<QToolButton>(page, "Save"));
  click(usable<QToolButton>(page, "new"));
  EXPECT_EQ(done, (std::vector<std::string>{"Open", "Save", "new"}));
  EXPECT_EQ(control<QToolButton>(page, "new").text(), "New");
  EXPECT_FALSE(control<QToolButton>(page, "Save").icon().isNull());
}

TEST_F(CommandTableTest, ShortcutsWorkWithinThePage) {
  QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_N, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_F5);
  EXPECT_EQ(done, (std::vector<std::string>{"Save", "new", "new"}));
}

TEST_F(CommandTableTest, EnabledStatesComeFromTheTable) {
  loaded = false;
  table->refresh();
  EXPECT_FALSE(control<QToolButton>(page, "Save").isEnabled());
  EXPECT_TRUE(control<QToolButton>(page, "new").isEnabled());
  QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
  loaded = true;
  table->refresh();
  EXPECT_TRUE(control<QToolButton>(page, "Save").isEnabled());
  EXPECT_TRUE(done.empty());
}

TEST_F(CommandTableTest, ACommandThatIsNoLongerEnabledDoesNotRun) {
  loaded = false;
  QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(done.empty());
}

TEST_F(CommandTableTest, ButtonsAreReachedByKeyboardAndReadAloud) {
  auto& open = usable<QToolButton>(page, "Open");
  for (const char* key : {"Open", "Save", "new"})
    EXPECT_TRUE(control<QToolButton>(page, key).focusPolicy() & Qt::TabFocus) << key;
  EXPECT_EQ(open.accessibleName(), "Open a database");
  table->action("Open").setToolTip("Ouvrir une base");
  EXPECT_EQ(open.accessibleName(), "Ouvrir une base");
  press(open, Qt::Key_Space);
  EXPECT_EQ(done, std::vector<std::string>{"Open"});
}

TEST_F(CommandTableTest, DownOpensTheDropDownPart) {
  press(usable<QToolButton>(page, "Open"), Qt::Key_Down);
  QWidget* menu = QApplication::activePopupWidget();
  ASSERT_EQ(menu, &table->dropDown("Open"));
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_EQ(done, std::vector<std::string>{"chosen k1"});
}

TEST_F(CommandTableTest, TheDropDownPartMayGetOtherEntries) {
  table->setDropDown("Open", {{.key = "k2", .text = "c.xml"}});
  ASSERT_EQ(table->dropDown("Open").actions().size(), 1);
  table->dropDown("Open").actions().front()->trigger();
  EXPECT_EQ(done, std::vector<std::string>{"chosen k2"});
  table->setDropDown("Open", {});
  EXPECT_TRUE(table->dropDown("Open").isEmpty());
}

TEST_F(CommandTableTest, UnknownAndDoubleKeysAreRefused) {
  EXPECT_THROW(table->action("absent"), std::out_of_range);
  EXPECT_THROW(table->dropDown("Save"), std::out_of_range);
  EXPECT_THROW(table->fillToolBar(*bar, {"absent"}), std::out_of_range);
  EXPECT_THROW(CommandTable(&page, {{.key = "a"}, {.key = "a"}}), std::invalid_argument);
}

class MenuTest : public testing::Test {
 protected:
  std::vector<MenuEntry> chosen;
  MenuChoice choice = [this](const MenuEntry& entry) { chosen.push_back(entry); };
  std::vector<MenuEntry> entries = {
      {.key = "menuRequests",
       .text = "Requests",
       .entries =
           {{.key = "menuReq", .text = "[ R&D ]", .literal = true, .names = {"R&D", "Speed"}}}},
      {.key = "sep", .kind = MenuEntry::Kind::Separator},
      {.key = "popupRefCut", .text = "C&ut", .enabled = false},
      {.key = "mark", .text = "&Mark", .kind = MenuEntry::Kind::Check, .checked = true}};
};

TEST_F(MenuTest, ValuesBecomeAMenu) {
  QMenu menu;
  fillMenu(menu, entries, choice);
  const QList<QAction*> actions = menu.actions();
  ASSERT_EQ(actions.size(), 4);
  EXPECT_EQ(actions[0]->objectName(), "menuRequests");
  EXPECT_EQ(actions[0]->menu()->actions().front()->text(), "[ R&&D ]");
  EXPECT_TRUE(actions[1]->isSeparator());
  EXPECT_EQ(actions[2]->text(), "C&ut");
  EXPECT_FALSE(actions[2]->isEnabled());
  EXPECT_TRUE(actions[3]->isChecked());
  EXPECT_FALSE(actions[2]->isCheckable());
}

TEST_F(MenuTest, AChosenActionLeadsBackToItsValue) {
  QMenu menu;
  fillMenu(menu, entries, choice);
  menu.actions()[0]->menu()->actions().front()->trigger();
  menu.actions()[3]->trigger();
  menu.actions()[2]->trigger(); // disabled
  ASSERT_EQ(chosen.size(), 2u);
  EXPECT_EQ(chosen[0].names, (std::vector<std::string>{"R&D", "Speed"}));
  EXPECT_EQ(chosen[1], entries[3]);
}

TEST_F(MenuTest, PopsUpAndGoesWhenItIsClosed) {
  QWidget window;
  window.resize(200, 200);
  showToUser(window);
  const QPointer<QMenu> menu =
      popUpMenu(window, "PopupReq", window.mapToGlobal(QPoint(20, 20)), entries, choice);
  ASSERT_TRUE(menu);
  EXPECT_EQ(menu->objectName(), "PopupReq");
  ASSERT_TRUE(waitUntil([&] { return menu->isVisible(); }));
  QTest::keyClick(menu, Qt::Key_M);
  EXPECT_TRUE(waitUntil([&] { return !menu; }));
  ASSERT_EQ(chosen.size(), 1u);
  EXPECT_EQ(chosen[0].key, "mark");
  EXPECT_EQ(popUpMenu(window, "PopupReq", QPoint(), {}, choice), nullptr);
}

} // namespace
