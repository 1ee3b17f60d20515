// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/command_table.h"
#include "controls/list_view.h"
#include "support/user.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <deque>

using namespace kelmar;
using namespace kelmar::support;

namespace {

struct Item {
  std::string name = {}, value = {};
};

class ListViewTest : public testing::Test {
 protected:
  std::deque<Item> items;
  ListView list{{{"name", "Name", SortType::Text, 150}, {"value", "Value", SortType::Number}},
                {.text =
                     [](RowTag tag, int column) {
                       const Item& item = *static_cast<Item*>(tag);
                       return column == 0 ? item.name : item.value;
                     },
                 .look =
                     [](RowTag tag) {
                       const bool bad = static_cast<Item*>(tag)->value == "-1";
                       RowLook look{.icon = bad ? "warning" : "ecu-can"};
                       if (bad) {
                         look.bold = true;
                         look.colour = 255u;
                       }
                       return look;
                     },
                 .rename =
                     [](RowTag tag, const std::string& text) {
                       if (text.empty()) return false;
                       static_cast<Item*>(tag)->name = text;
                       return true;
                     }}};

  void fill(std::initializer_list<Item> rows) {
    items.assign(rows.begin(), rows.end());
    std::vector<RowTag> tags;
    for (Item& item : items)
      tags.push_back(&item);
    list.rows().setRows(tags);
    list.resize(400, 300);
    showToUser(list);
  }
  std::string selected() const {
    std::string names;
    for (const RowTag tag : list.selectedTags())
      names += static_cast<Item*>(tag)->name + "|";
    return names;
  }
  std::string names() const {
    std::string all;
    for (const RowTag tag : list.rows().tags())
      all += static_cast<Item*>(tag)->name + "|";
    return all;
  }
};

TEST_F(ListViewTest, ClicksSelectOneOrSeveralRows) {
  fill({{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}});
  QSignalSpy moved(&list, &ListView::selectionMoved);
  QSignalSpy current(&list, &ListView::currentMoved);
  clickRow(list, 1);
  EXPECT_EQ(selected(), "b|");
  EXPECT_EQ(list.currentTag(), &items[1]);
  EXPECT_EQ(moved.size(), 1);
  EXPECT_EQ(current.size(), 1);
  clickRow(list, 3, 1, Qt::ShiftModifier);
  EXPECT_EQ(selected(), "b|c|d|");
  clickRow(list, 0, 0, Qt::ControlModifier);
  clickRow(list, 2, 0, Qt::ControlModifier);
  EXPECT_EQ(selected(), "a|b|d|");
}

TEST_F(ListViewTest, AllAndNoneAreSelected) {
  fill({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  ListViewSelectAll(list);
  EXPECT_EQ(selected(), "a|b|c|");
  EXPECT_TRUE(list.updatesEnabled());
  ListViewSelectNone(list);
  EXPECT_EQ(selected(), "");
  list.rows().setRows({});
  ListViewSelectAll(list);
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(list.currentTag(), nullptr);
}

TEST_F(ListViewTest, RowsAreSelectedFromCode) {
  fill({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  ListViewSelectAll(list);
  list.selectOnly(&items[2]);
  EXPECT_EQ(selected(), "c|");
  Item absent;
  list.selectOnly(&absent);
  EXPECT_EQ(selected(), "c|");
  list.selectRow(-4);
  EXPECT_EQ(selected(), "a|");
  list.selectRow(99);
  EXPECT_EQ(selected(), "c|");
}

TEST_F(ListViewTest, AColumnIsSortedAsTextNumberOrDate) {
  fill({{"b", "10"}, {"a", "9"}, {"c", "-1"}});
  SortListViewColumn(list, 2, 1, 0);
  EXPECT_EQ(names(), "c|a|b|");
  SortListViewColumn(list, 2, 0, 0);
  EXPECT_EQ(names(), "c|b|a|");
  SortListViewColumn(list, 1, 0, 1);
  EXPECT_EQ(names(), "c|b|a|");
  EXPECT_EQ(items[0].value, "10");
}

TEST_F(ListViewTest, WhatIsNoColumnOrTypeIsNotSorted) {
  fill({{"b", "10"}, {"a", "9"}});
  for (const auto& [column, type] : {std::pair(0, 0), std::pair(3, 0), std::pair(1, 3)})
    SortListViewColumn(list, column, type, 0);
  EXPECT_EQ(names(), "b|a|");
}

TEST_F(ListViewTest, TheHeadOfAColumnSorts) {
  fill({{"b", "10"}, {"a", "9"}, {"c", "-1"}});
  list.setHeaderSorts(true);
  EXPECT_EQ(names(), "b|a|c|");
  clickRow(list, 0);
  QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {},
                    QPoint(list.header()->sectionPosition(1) + 10, 5));
  EXPECT_EQ(names(), "c|a|b|");
  EXPECT_EQ(selected(), "b|");
  SortListViewColumn(list, 1, 0, 1);
  EXPECT_EQ(names(), "c|b|a|");
  EXPECT_EQ(list.header()->sortIndicatorSection(), 0);
}

TEST_F(ListViewTest, LettersSearchTheNames) {
  fill({{"alpha", "x"}, {"beta", "g"}, {"gamma", "b"}, {"galaxy", "z"}});
  clickRow(list, 0, 1);
  QTest::keyClicks(&list, "gal");
  EXPECT_EQ(selected(), "galaxy|");
}

TEST_F(ListViewTest, ANameIsEditedInPlace) {
  fill({{"a", "1"}, {"b", "2"}});
  list.editName(&items[1]);
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_TRUE(editor);
  retype(*editor, "New é");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return names() == "a|New é|"; })) << names();
  clickRow(list, 0);
  QTest::keyClick(&list, Qt::Key_F2);
  editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_TRUE(editor);
  retype(*editor, "dropped");
  QTest::keyClick(editor, Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([&] { return QApplication::focusWidget() == &list; }));
  EXPECT_EQ(names(), "a|New é|");
}

TEST_F(ListViewTest, ANameThatIsBeingTypedIsTakenBeforeACommandRuns) {
  fill({{"a", "1"}, {"b", "2"}});
  QWidget window;
  std::string seen;
  auto* table = new CommandTable(&window, {{.key = "save",
                                            .run = [&] { seen = names(); },
                                            .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_S)}}});
  auto* bar = new QToolBar(&window);
  table->fillToolBar(*bar, {"save"});
  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(bar);
  layout->addWidget(&list);
  showToUser(window);
  const auto typeName = [&](RowTag tag, const char* name) {
    list.editName(tag);
    retype(*QApplication::focusWidget(), name);
  };
  typeName(&items[1], "typed");
  press(*QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(seen, "a|typed|");
  EXPECT_EQ(QApplication::focusWidget(), &list);
  typeName(&items[0], "again");
  click(usable<QToolButton>(window, "save"));
  EXPECT_EQ(seen, "again|typed|");
  EXPECT_EQ(QApplication::focusWidget(), &list);
  list.setParent(nullptr);
}

TEST_F(ListViewTest, ARefusedNameLeavesTheOldOne) {
  fill({{"a", "1"}});
  list.editName(&items[0]);
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_TRUE(editor);
  retype(*editor, "");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return QApplication::focusWidget() == &list; }));
  EXPECT_EQ(names(), "a|");
}

TEST_F(ListViewTest, TwentyThousandRowsAreSelectedInOneStep) {
  std::vector<RowTag> tags;
  for (int i = 0; i < 20'000; ++i)
    tags.push_back(&items.emplace_back(Item{"name " + std::to_string(i), std::to_string(i)}));
  showToUser(list);
  list.rows().setRows(tags);
  QSignalSpy changes(list.selectionModel(), &QItemSelectionModel::selectionChanged);
  ListViewSelectAll(list);
  EXPECT_EQ(list.selectedTags().size(), 20'000u);
  EXPECT_EQ(changes.count(), 1);
  list.selectRow(19'999);
  EXPECT_EQ(selected(), "name 19999|");
}

TEST_F(ListViewTest, CanBeReadOnALightAndOnADarkPalette) {
  const QPalette before = QApplication::palette();
  fill({{"Engine", "10"}, {" bad name", "-1"}, {"Gearbox", "3"}});
  clickRow(list, 2);
  keepPicture(list, "list_light");
  const QColor light =
      list.rows().data(list.rows().index(1, 0), Qt::ForegroundRole).value<QColor>();
  QPalette dark(QColor(53, 53, 56), QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(32, 32, 35));
  QApplication::setPalette(dark);
  EXPECT_TRUE(waitUntil([&] { return list.palette().color(QPalette::Base) == dark.base(); }));
  keepPicture(list, "list_dark");
  EXPECT_NE(list.rows().data(list.rows().index(1, 0), Qt::ForegroundRole).value<QColor>(), light);
  QApplication::setPalette(before);
}

} // namespace
