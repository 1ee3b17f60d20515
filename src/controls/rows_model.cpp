// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/rows_model.h"

#include "base/text.h"
#include "controls/colours.h"
#include "controls/icons.h"
#include "desktop/qt_text.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <numeric>

namespace kelmar {

using desktop::qs;
using desktop::u8;

RowsModel::RowsModel(std::vector<RowColumn> columns, RowFunctions functions, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)), functions_(std::move(functions)) {}

void RowsModel::setRows(std::vector<RowTag> tags) {
  beginResetModel();
  tags_ = std::move(tags);
  endResetModel();
}

void RowsModel::insertTag(RowTag tag, std::optional<int> before) {
  const int row = before.value_or(rowCount());
  if (row < 0 || row > rowCount()) throw std::out_of_range("no row to insert before");
  beginInsertRows({}, row, row);
  tags_.insert(tags_.begin() + row, tag);
  endInsertRows();
}

void RowsModel::removeTag(RowTag tag) {
  const int row = rowOf(tag);
  if (row < 0) return;
  beginRemoveRows({}, row, row);
  tags_.erase(tags_.begin() + row);
  endRemoveRows();
}

int RowsModel::rowOf(RowTag tag) const {
  const auto found = std::find(tags_.begin(), tags_.end(), tag);
  return found == tags_.end() ? -1 : static_cast<int>(found - tags_.begin());
}

void RowsModel::refresh(RowTag tag) {
  if (const int row = rowOf(tag); row >= 0)
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void RowsModel::refreshAll() {
  if (!tags_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void RowsModel::sortRows(int column, SortType type, Qt::SortOrder order) {
  if (column < 0 || column >= columnCount()) return;
  std::vector<std::string> keys;
  keys.reserve(tags_.size());
  for (const RowTag tag : tags_)
    keys.push_back(sortKey(textOf(tag, column), type));
  std::vector<std::size_t> from(tags_.size());
  std::iota(from.begin(), from.end(), std::size_t{0});
  std::stable_sort(from.begin(), from.end(), [&](std::size_t a, std::size_t b) {
    return order == Qt::AscendingOrder ? keys[a] < keys[b] : keys[b] < keys[a];
  });

  emit layoutAboutToBeChanged({}, VerticalSortHint);
  std::vector<RowTag> sorted(tags_.size());
  std::vector<int> rowNow(tags_.size());
  for (std::size_t row = 0; row < from.size(); ++row) {
    sorted[row] = tags_[from[row]];
    rowNow[from[row]] = static_cast<int>(row);
  }
  tags_ = std::move(sorted);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  after.reserve(before.size());
  for (const QModelIndex& old : before)
    after << index(rowNow[static_cast<std::size_t>(old.row())], old.column());
  changePersistentIndexList(before, after);
  emit layoutChanged({}, VerticalSortHint);
}

QModelIndex RowsModel::index(int row, int column, const QModelIndex& parent) const {
  const bool exists = row >= 0 && static_cast<std::size_t>(row) < tags_.size() && column >= 0 &&
                      static_cast<std::size_t>(column) < columns_.size() && !parent.isValid();
  return exists ? createIndex(row, column) : QModelIndex();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(tags_.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowsModel::colourOf(const RowLook& look, const CellLook& cell) const {
  const std::optional<std::uint32_t> colour = cell.colour ? cell.colour : look.colour;
  if (!colour) return {};
  const QPalette palette = QGuiApplication::palette();
  return readableOn(palette, shownColour(*colour, palette));
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const RowTag tag = tagAt(index.row());
  const auto look = [&] { return lookOf(tag); };
  const auto cell = [&] { return cellLookOf(tag, index.column()); };
  switch (role) {
  case Qt::DisplayRole:
  case Qt::EditRole:
    return qs(textOf(tag, index.column()));
  case Qt::DecorationRole:
    if (index.column() == 0 && functions_.look)
      if (const RowLook found = look(); !found.icon.empty()) return icon(found.icon);
    return {};
  case Qt::FontRole:
    if (functions_.look || functions_.cellLook) {
      const std::optional<bool> own = cell().bold;
      if (own ? *own : look().bold) {
        QFont font = QGuiApplication::font();
        font.setBold(true);
        return font;
      }
    }
    return {};
  case Qt::ForegroundRole:
    return functions_.look || functions_.cellLook ? colourOf(look(), cell()) : QVariant();
  case Qt::ToolTipRole: {
    std::string tip = cell().toolTip;
    if (tip.empty()) tip = look().toolTip;
    return tip.empty() ? QVariant() : qs(tip);
  }
  default:
    return {};
  }
}

bool RowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !functions_.rename || index.column() != 0 ||
      !checkIndex(index, CheckIndexOption::IndexIsValid))
    return false;
  const RowTag tag = tagAt(index.row());
  if (!functions_.rename(tag, u8(value.toString()))) return false;
  refresh(tag); // the rows may have been built anew meanwhile
  return true;
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const RowColumn& column = columns_[static_cast<std::size_t>(section)];
  switch (role) {
  case Qt::DisplayRole:
  case Qt::EditRole:
    return qs(column.caption);
  case columnKeyRole:
    return qs(column.key);
  case Qt::TextAlignmentRole:
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  default:
    return {};
  }
}

bool RowsModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                              int role) {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount() ||
      (role != Qt::EditRole && role != Qt::DisplayRole))
    return false;
  columns_[static_cast<std::size_t>(section)].caption = u8(value.toString());
  emit headerDataChanged(orientation, section, section);
  return true;
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (index.column() == 0 && functions_.rename) flags |= Qt::ItemIsEditable;
  return flags;
}

void RowsModel::sort(int column, Qt::SortOrder order) {
  if (column >= 0 && column < columnCount())
    sortRows(column, columns_[static_cast<std::size_t>(column)].sort, order);
}

std::string rowsAsText(const RowsModel& model) {
  const auto hex = [](std::uint32_t colour) {
    const std::string digits = hexText(static_cast<std::int32_t>(colour));
    return std::string(digits.size() < 6 ? 6 - digits.size() : 0, '0') + digits;
  };
  std::string result;
  for (const RowTag tag : model.tags()) {
    const RowLook look = model.lookOf(tag);
    if (!look.icon.empty()) result += "[" + look.icon + "] ";
    for (int column = 0; column < model.columnCount(); ++column) {
      result += (column ? " | " : "") + model.textOf(tag, column);
      const CellLook cell = model.cellLookOf(tag, column);
      if (cell.bold) result += *cell.bold ? " !" : " -!";
      if (cell.colour) result += " #" + hex(*cell.colour);
      if (!cell.toolTip.empty()) result += " (" + cell.toolTip + ")";
    }
    if (look.bold) result += " !";
    if (look.colour) result += " #" + hex(*look.colour);
    if (!look.toolTip.empty()) result += " (" + look.toolTip + ")";
    result += "\n";
  }
  return result;
}

} // namespace kelmar
