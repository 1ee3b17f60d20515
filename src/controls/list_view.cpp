// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_view.h"

#include <QHeaderView>
#include <QPointer>

#include <algorithm>

namespace kelmar {

namespace {

/// Redrawing is off while it lives.
class Still {
 public:
  explicit Still(QWidget& widget) : widget_(widget), before_(widget.updatesEnabled()) {
    widget_.setUpdatesEnabled(false);
  }
  ~Still() { widget_.setUpdatesEnabled(before_); }
  Still(const Still&) = delete;
  Still& operator=(const Still&) = delete;

 private:
  QWidget& widget_;
  const bool before_;
};

} // namespace

ListView::ListView(std::vector<RowColumn> columns, RowFunctions functions, QWidget* parent)
    : QTreeView(parent), rows_(new RowsModel(std::move(columns), std::move(functions), this)) {
  setModel(rows_);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true); // without it 20,000 rows are measured one by one
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(EditKeyPressed);
  setTabKeyNavigation(false); // the key leads to the next control
  header()->setSectionsMovable(false);
  for (int column = 0; column < rows_->columnCount(); ++column)
    if (const int width = rows_->columns()[static_cast<std::size_t>(column)].width; width > 0)
      setColumnWidth(column, width);
}

std::vector<RowTag> ListView::selectedTags() const {
  std::vector<int> selected;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      selected.push_back(row);
  std::sort(selected.begin(), selected.end());
  selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
  std::vector<RowTag> tags;
  tags.reserve(selected.size());
  for (const int row : selected)
    tags.push_back(rows_->tagAt(row));
  return tags;
}

RowTag ListView::currentTag() const {
  const QModelIndex index = currentIndex();
  return index.isValid() ? rows_->tagAt(index.row()) : nullptr;
}

void ListView::selectOnly(RowTag tag) {
  if (const int row = rows_->rowOf(tag); row >= 0) selectRow(row);
}

void ListView::selectRow(int row) {
  if (rows_->rowCount() == 0) return;
  const QModelIndex index = rows_->index(std::clamp(row, 0, rows_->rowCount() - 1), 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                               QItemSelectionModel::Rows);
  scrollTo(index);
}

void ListView::editName(RowTag tag) {
  const int row = rows_->rowOf(tag);
  if (row < 0) return;
  selectRow(row);
  setFocus(Qt::OtherFocusReason);
  edit(rows_->index(row, 0));
}

void ListView::finishName() {
  if (state() != EditingState) return;
  const QPointer<QWidget> editor = indexWidget(currentIndex());
  if (!editor) return;
  commitData(editor); // a box that refuses the name closes the editor itself
  closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void ListView::setHeaderSorts(bool sorts) {
  // Without a column of its own the header would sort by the first one at once.
  header()->setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(sorts);
}

void ListView::keyboardSearch(const QString& text) {
  if (const QModelIndex index = currentIndex(); index.isValid() && index.column() != 0)
    selectionModel()->setCurrentIndex(index.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
  QTreeView::keyboardSearch(text);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  emit selectionMoved();
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  if (current.row() != previous.row()) emit currentMoved();
}

void SortListViewColumn(ListView& list, int column, int type, int order) {
  RowsModel& rows = list.rows();
  if (column < 1 || column > rows.columnCount() || type < 0 || type > 2) return;
  const Still still(list);
  const Qt::SortOrder direction = order == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
  if (list.isSortingEnabled()) {
    // The header shows the order, but must not sort a second time by another type.
    const QSignalBlocker quiet(list.header());
    list.header()->setSortIndicator(column - 1, direction);
  }
  rows.sortRows(column - 1, static_cast<SortType>(type), direction);
}

void SortByHeader(ListView& list) {
  const QHeaderView& header = *list.header();
  if (list.isSortingEnabled() && header.sortIndicatorSection() >= 0)
    list.rows().sort(header.sortIndicatorSection(), header.sortIndicatorOrder());
}

void ListViewSelectAll(ListView& list) {
  const Still still(list);
  const RowsModel& rows = list.rows();
  if (rows.rowCount() == 0) return;
  list.selectionModel()->select(
      QItemSelection(rows.index(0, 0), rows.index(rows.rowCount() - 1, rows.columnCount() - 1)),
      QItemSelectionModel::ClearAndSelect);
}

void ListViewSelectNone(ListView& list) {
  const Still still(list);
  list.clearSelection();
}

} // namespace kelmar
