// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/rows_model.h"

#include <QTreeView>

#include <vector>

namespace kelmar {

/// A list of rows with columns, over one RowsModel that it owns. Several rows may be selected;
/// typing letters searches in the first column; F2 edits the name where the model allows it.
class ListView : public QTreeView {
  Q_OBJECT

 public:
  ListView(std::vector<RowColumn> columns, RowFunctions functions, QWidget* parent = nullptr);

  RowsModel& rows() const { return *rows_; }

  /// Tags of the selected rows, from top to bottom.
  std::vector<RowTag> selectedTags() const;
  /// Tag of the row that has the focus, null when there is none.
  RowTag currentTag() const;
  /// Deselects all others, selects this row and scrolls it into sight. Without effect for a tag
  /// that no row has.
  void selectOnly(RowTag tag);
  /// The same for a row by its position, which is brought within the list; nothing in an empty one.
  void selectRow(int row);
  /// Starts typing over the name in the first column.
  void editName(RowTag tag);
  /// Takes the name that is being typed, as Enter does.
  void finishName();

  /// A click on a column's head sorts by it, by the type that the column declares.
  void setHeaderSorts(bool sorts);

  void keyboardSearch(const QString& text) override;

 signals:
  // Neither is raised when the rows are set anew, which leaves nothing selected.
  /// The set of selected rows is another.
  void selectionMoved();
  /// Another row has the focus.
  void currentMoved();

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  RowsModel* rows_;
};

/// Sorts by a column, 1 being the first. `type` 0 is text, 1 number, 2 date; `order` 0 is
/// ascending, 1 descending. Without effect for a column or type that is none.
void SortListViewColumn(ListView& list, int column, int type, int order);

/// Sorts by what the header shows, after the rows were set anew. Without effect when it shows none.
void SortByHeader(ListView& list);

void ListViewSelectAll(ListView& list);
void ListViewSelectNone(ListView& list);

} // namespace kelmar
