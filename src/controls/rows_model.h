// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/sort_key.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// What a row stands for: the address of the item that it shows, or any number that fits. The
/// model never looks at it.
using RowTag = void*;

/// A column. `key` is the one by which it is translated; empty for a column that is not.
struct RowColumn {
  std::string key = {};
  std::string caption = {};
  SortType sort = SortType::Text;
  int width = 0; ///< device-independent pixels; 0 leaves it to the view
};

/// How a row shows beside its texts.
struct RowLook {
  std::string icon = {}; ///< key of icons.h; empty for none
  bool bold = false;
  /// Of the text, 0xBBGGRR or a system colour; none is the palette's.
  std::optional<std::uint32_t> colour = {};
  std::string toolTip = {};
};

/// Where a cell differs from its row.
struct CellLook {
  std::optional<bool> bold = {};
  std::optional<std::uint32_t> colour = {};
  std::string toolTip = {};
};

/// Where a list gets what it shows. Called at each painting and each comparison, so nothing of an
/// item is copied into the list; they must not raise.
struct RowFunctions {
  std::function<std::string(RowTag tag, int column)> text = {};  ///< required
  std::function<RowLook(RowTag tag)> look = {};                  ///< none: plain
  std::function<CellLook(RowTag tag, int column)> cellLook = {}; ///< none: as the row
  /// A name was typed over the first cell. False leaves the old one. None: not editable.
  std::function<bool(RowTag tag, const std::string& text)> rename = {};
};

/// The one list model: rows in an order, each with a tag. It holds the tags and no texts.
class RowsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Role of the horizontal header that gives the key of a column; its texts are set by
  /// setHeaderData.
  static constexpr int columnKeyRole = Qt::UserRole + 100;

  RowsModel(std::vector<RowColumn> columns, RowFunctions functions, QObject* parent = nullptr);

  const std::vector<RowColumn>& columns() const { return columns_; }

  /// All rows anew, in this order.
  void setRows(std::vector<RowTag> tags);
  /// At the end, or before a row. Raises std::out_of_range for a position that is none.
  void insertTag(RowTag tag, std::optional<int> before = {});
  /// Without effect for a tag that no row has.
  void removeTag(RowTag tag);
  const std::vector<RowTag>& tags() const { return tags_; }

  /// Raises std::out_of_range.
  RowTag tagAt(int row) const { return tags_.at(static_cast<std::size_t>(row)); }
  template <class Item>
  Item& item(int row) const {
    return *static_cast<Item*>(tagAt(row));
  }
  /// First row of the tag, -1 when there is none.
  int rowOf(RowTag tag) const;

  // What a row shows.
  std::string textOf(RowTag tag, int column) const { return functions_.text(tag, column); }
  RowLook lookOf(RowTag tag) const { return functions_.look ? functions_.look(tag) : RowLook{}; }
  CellLook cellLookOf(RowTag tag, int column) const {
    return functions_.cellLook ? functions_.cellLook(tag, column) : CellLook{};
  }

  /// The item behind the tag has changed; its row shows it.
  void refresh(RowTag tag);
  void refreshAll();

  /// Puts the rows in the order of a column: ordinal by the sort keys, rows of equal key in the
  /// order in which they stood, up or down. Selection and current row stay with their items.
  void sortRows(int column, SortType type, Qt::SortOrder order);

  /// The view asks for each row when it lays out: without asking back for the counts.
  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                     int role = Qt::EditRole) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// By the type that the column declares.
  void sort(int column, Qt::SortOrder order) override;

 private:
  QVariant colourOf(const RowLook& look, const CellLook& cell) const;

  std::vector<RowColumn> columns_;
  RowFunctions functions_;
  std::vector<RowTag> tags_;
};

/// The rows as lines of text, for comparing what a list shows as one block: "[icon] " where the row
/// has one, the cells joined by " | ", then " !" when the row is bold, " #BBGGRR" when it has a
/// colour of its own and " (tool tip)" when it has one. A cell that differs is followed by the same
/// marks, " -!" for one that is not bold.
std::string rowsAsText(const RowsModel& model);

} // namespace kelmar
