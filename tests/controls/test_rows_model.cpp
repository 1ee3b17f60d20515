// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"
#include "controls/rows_model.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QPalette>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <deque>

using namespace kelmar;

namespace {

struct Item {
  std::string name = {}, value = {}, date = {};
  bool faulty = false;
};

class RowsModelTest : public testing::Test {
 protected:
  std::deque<Item> items;
  bool mayRename = true;
  RowsModel model{{{"dataname", "Data name", SortType::Text, 120},
                   {"", "Value", SortType::Number},
                   {"date", "Date", SortType::Date}},
                  {.text =
                       [](RowTag tag, int column) {
                         const Item& item = *static_cast<Item*>(tag);
                         return column == 0 ? item.name : column == 1 ? item.value : item.date;
                       },
                   .look =
                       [](RowTag tag) {
                         const Item& item = *static_cast<Item*>(tag);
                         RowLook look;
                         if (item.faulty) look = {"warning", true, faultRed, "Error: bad name"};
                         return look;
                       },
                   .cellLook =
                       [](RowTag tag, int column) {
                         CellLook look;
                         if (column == 1 && static_cast<Item*>(tag)->value == "-1")
                           look = {true, 0xFF0000u, "negative"};
                         return look;
                       },
                   .rename =
                       [this](RowTag tag, const std::string& text) {
                         if (mayRename) static_cast<Item*>(tag)->name = text;
                         return mayRename;
                       }}};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

  void fill(std::vector<Item> rows) {
    items.assign(rows.begin(), rows.end());
    std::vector<RowTag> tags;
    for (Item& item : items)
      tags.push_back(&item);
    model.setRows(tags);
  }
  std::string column(int number) const {
    std::string result;
    for (const RowTag tag : model.tags())
      result += model.textOf(tag, number) + "|";
    return result;
  }
};

TEST_F(RowsModelTest, ShowsWhatTheItemsHoldNow) {
  fill({{"Speed", "10", ""}, {"Régime", "-1", "2026-01-02", true}});
  EXPECT_EQ(rowsAsText(model), "Speed | 10 | \n"
                               "[warning] Régime | -1 ! #FF0000 (negative) | 2026-01-02"
                               " ! #0000FF (Error: bad name)\n");
  items[0].name = "Torque";
  EXPECT_EQ(model.data(model.index(0, 0)).toString(), "Torque");
}

TEST_F(RowsModelTest, RowsAndCellsHaveTheirLooks) {
  fill({{"a", "-1", "", true}, {"b", "1", ""}});
  const auto of = [&](int row, int column, int role) {
    return model.data(model.index(row, column), role);
  };
  EXPECT_TRUE(of(0, 0, Qt::FontRole).value<QFont>().bold());
  EXPECT_FALSE(of(1, 0, Qt::FontRole).isValid());
  EXPECT_EQ(of(0, 0, Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
  EXPECT_EQ(of(0, 1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
  EXPECT_FALSE(of(1, 0, Qt::ForegroundRole).isValid());
  EXPECT_EQ(of(0, 0, Qt::ToolTipRole).toString(), "Error: bad name");
  EXPECT_EQ(of(0, 1, Qt::ToolTipRole).toString(), "negative");
  EXPECT_FALSE(of(1, 1, Qt::ToolTipRole).isValid());
  EXPECT_FALSE(of(0, 0, Qt::DecorationRole).value<QIcon>().isNull());
  EXPECT_FALSE(of(0, 1, Qt::DecorationRole).isValid());
  EXPECT_FALSE(of(1, 0, Qt::DecorationRole).isValid());
}

TEST_F(RowsModelTest, OnlyTheNameIsEdited) {
  fill({{"a", "1", ""}});
  EXPECT_TRUE(model.flags(model.index(0, 0)) & Qt::ItemIsEditable);
  EXPECT_FALSE(model.flags(model.index(0, 1)) & Qt::ItemIsEditable);
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  EXPECT_TRUE(model.setData(model.index(0, 0), "é"));
  EXPECT_EQ(items[0].name, "é");
  EXPECT_EQ(changed.size(), 1);
  EXPECT_FALSE(model.setData(model.index(0, 1), "2"));
  mayRename = false;
  EXPECT_FALSE(model.setData(model.index(0, 0), "c"));
  EXPECT_EQ(items[0].name, "é");
  EXPECT_EQ(changed.size(), 1);
}

TEST_F(RowsModelTest, ARenameMayBuildTheRowsAnew) {
  fill({{"a"}, {"b"}});
  RowsModel other({{"", "Name"}},
                  {.text = [](RowTag tag, int) { return static_cast<Item*>(tag)->name; },
                   .rename =
                       [&](RowTag, const std::string&) {
                         other.setRows({&items[1]});
                         return true;
                       }});
  other.setRows({&items[0], &items[1]});
  EXPECT_TRUE(other.setData(other.index(0, 0), "x"));
  EXPECT_EQ(rowsAsText(other), "b\n");
}

TEST_F(RowsModelTest, RowsComeAndGo) {
  fill({{"a"}, {"b"}});
  Item first{"first"}, last{"last"}, absent;
  model.insertTag(&first, 0);
  model.insertTag(&last);
  EXPECT_EQ(column(0), "first|a|b|last|");
  EXPECT_THROW(model.insertTag(&absent, 9), std::out_of_range);
  EXPECT_THROW(model.insertTag(&absent, -1), std::out_of_range);
  model.removeTag(&items[0]);
  model.removeTag(&absent);
  EXPECT_EQ(column(0), "first|b|last|");
  EXPECT_EQ(model.rowOf(&last), 2);
  EXPECT_EQ(model.rowOf(&absent), -1);
  EXPECT_EQ(model.item<Item>(1).name, "b");
  EXPECT_THROW(model.tagAt(3), std::out_of_range);
}

TEST_F(RowsModelTest, RefreshNamesTheRowThatChanged) {
  fill({{"a"}, {"b"}});
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  model.refresh(&items[1]);
  ASSERT_EQ(changed.size(), 1);
  EXPECT_EQ(changed[0][0].toModelIndex(), model.index(1, 0));
  EXPECT_EQ(changed[0][1].toModelIndex(), model.index(1, 2));
  Item absent;
  model.refresh(&absent);
  EXPECT_EQ(changed.size(), 1);
}

TEST_F(RowsModelTest, ColumnsAreTranslatedByTheirKeys) {
  EXPECT_EQ(model.headerData(0, Qt::Horizontal, RowsModel::columnKeyRole).toString(), "dataname");
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, RowsModel::columnKeyRole).toString(), "");
  EXPECT_TRUE(model.setHeaderData(0, Qt::Horizontal, "Nom"));
  EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "Nom");
  EXPECT_FALSE(model.setHeaderData(5, Qt::Horizontal, "x"));
  EXPECT_FALSE(model.setHeaderData(0, Qt::Vertical, "x"));
}

TEST_F(RowsModelTest, NumbersAreSortedByValue) {
  fill({{"a", "10"}, {"b", "9"}, {"c", "-2"}, {"d", "-10"}, {"e", ""}, {"f", "0.5"}, {"g", "x"}});
  model.sortRows(1, SortType::Number, Qt::AscendingOrder);
  EXPECT_EQ(column(0), "e|g|d|c|f|b|a|");
  model.sortRows(1, SortType::Number, Qt::DescendingOrder);
  EXPECT_EQ(column(0), "a|b|f|c|d|e|g|");
}

TEST_F(RowsModelTest, DatesAreSortedByTheDay) {
  fill({{"a", "", "02/01/2027"}, {"b", "", "2026-12-31"}, {"c", "", "none"}});
  model.sort(2, Qt::AscendingOrder);
  EXPECT_EQ(column(0), "c|b|a|");
}

TEST_F(RowsModelTest, TextIsSortedOrdinallyAndStably) {
  fill({{"b", "1"}, {"B", "2"}, {"a", "3"}, {"é", "4"}, {"b", "5"}, {"Z", "6"}});
  model.sort(0, Qt::AscendingOrder);
  EXPECT_EQ(column(1), "2|6|3|1|5|4|");
  model.sort(0, Qt::DescendingOrder);
  EXPECT_EQ(column(1), "4|1|5|3|6|2|");
  model.sortRows(7, SortType::Text, Qt::AscendingOrder);
  model.sort(-1, Qt::AscendingOrder);
  EXPECT_EQ(column(1), "4|1|5|3|6|2|");
}

TEST_F(RowsModelTest, SortingLeavesTheItemsAndTheSelectionAsTheyAre) {
  fill({{"b", "2"}, {"a", "10"}, {"c", "-1"}});
  QItemSelectionModel selection(&model);
  selection.setCurrentIndex(model.index(0, 1), QItemSelectionModel::SelectCurrent);
  model.sort(1, Qt::AscendingOrder);
  EXPECT_EQ(column(1), "-1|2|10|");
  EXPECT_EQ(selection.currentIndex(), model.index(1, 1));
  EXPECT_TRUE(selection.isSelected(model.index(1, 1)));
  EXPECT_EQ(items[1].value, "10");
}

TEST_F(RowsModelTest, TwentyThousandRowsAreSetAndSortedInOneStepEach) {
  std::vector<Item> many;
  for (int i = 0; i < 20'000; ++i)
    many.push_back({"name " + std::to_string(i * 7919 % 20'000), std::to_string(i), ""});
  QSignalSpy sets(&model, &QAbstractItemModel::modelReset);
  QSignalSpy sorts(&model, &QAbstractItemModel::layoutChanged);
  QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  QSignalSpy inserts(&model, &QAbstractItemModel::rowsInserted);
  fill(many);
  model.sort(0, Qt::AscendingOrder);
  model.sort(1, Qt::DescendingOrder);
  EXPECT_EQ(sets.count(), 1);
  EXPECT_EQ(sorts.count(), 2);
  EXPECT_EQ(changes.count() + inserts.count(), 0);
  EXPECT_EQ(model.textOf(model.tagAt(0), 1), "19999");
}

TEST(Colours, AreRedGreenBlueFromTheLowestByte) {
  const QPalette palette;
  EXPECT_EQ(shownColour(0x0000FF, palette), QColor(255, 0, 0));
  EXPECT_EQ(shownColour(0x123456, palette), QColor(0x56, 0x34, 0x12));
  EXPECT_EQ(storedColour(QColor(0x56, 0x34, 0x12)), 0x123456u);
}

TEST(Colours, OfTheSystemFollowThePalette) {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(1, 2, 3));
  palette.setColor(QPalette::WindowText, QColor(4, 5, 6));
  palette.setColor(QPalette::Button, QColor(7, 8, 9));
  EXPECT_EQ(shownColour(0x80000005u, palette), QColor(1, 2, 3));
  EXPECT_EQ(shownColour(0x80000008u, palette), QColor(4, 5, 6));
  EXPECT_EQ(shownColour(0x8000000Fu, palette), QColor(7, 8, 9));
  EXPECT_EQ(shownColour(0x80000063u, palette), QColor(4, 5, 6));
}

TEST(Colours, CanBeReadOnLightAndDark) {
  QPalette light, dark;
  light.setColor(QPalette::Base, Qt::white);
  dark.setColor(QPalette::Base, QColor(35, 35, 38));
  dark.setColor(QPalette::Text, Qt::white);
  EXPECT_EQ(readableOn(light, Qt::red), QColor(Qt::red));
  EXPECT_GT(readableOn(dark, Qt::red).lightness(), QColor(Qt::red).lightness());
  EXPECT_EQ(readableOn(dark, Qt::red).hslHue(), 0);
  EXPECT_GT(readableOn(dark, Qt::black).lightness(), 100);
  EXPECT_LT(readableOn(light, Qt::white).lightness(), 160);
}

} // namespace
