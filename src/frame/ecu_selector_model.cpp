// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ecu_selector_model.h"

#include "base/text.h"
#include "controls/icons.h"
#include "desktop/qt_text.h"
#include "frame/rules/ecu_head_text.h"
#include "language/multi_lang.h"

#include <algorithm>

namespace kelmar {

using desktop::qs;

struct EcuTreeModel::Row {
  const EcuTreeNode* node = nullptr;
  const Row* parent = nullptr;
  int number = 0;       // among its siblings
  std::size_t rank = 0; // in order_
  std::vector<std::unique_ptr<Row>> children;
};

EcuTreeModel::EcuTreeModel(QObject* parent) : QAbstractItemModel(parent) {
  build();
}

EcuTreeModel::~EcuTreeModel() = default;

void EcuTreeModel::setTree(EcuTree tree) {
  beginResetModel();
  tree_ = std::move(tree);
  marks_.clear();
  build();
  endResetModel();
}

void EcuTreeModel::setFilter(const std::string& text) {
  std::vector<std::string> words;
  for (std::string& word : split(searchForm(text), " "))
    if (!word.empty()) words.push_back(std::move(word));
  if (words == words_) return;
  beginResetModel();
  words_ = std::move(words);
  build();
  endResetModel();
}

void EcuTreeModel::build() {
  order_.clear();
  byAddress_.clear();
  shownFiles_ = 0;
  top_ = rowOf(tree_.root, {});
  if (!top_) top_ = std::make_unique<Row>();
  top_->node = &tree_.root;
  const auto number = [this](const auto& self, Row& above) -> void {
    for (std::size_t i = 0; i < above.children.size(); ++i) {
      Row& row = *above.children[i];
      row.parent = &above;
      row.number = static_cast<int>(i);
      row.rank = order_.size();
      order_.push_back(&row);
      byAddress_[row.node->address] = &row;
      shownFiles_ += row.node->isFile;
      self(self, row);
    }
  };
  number(number, *top_);
}

// Null when the filter lets nothing of it through.
std::unique_ptr<EcuTreeModel::Row> EcuTreeModel::rowOf(const EcuTreeNode& node,
                                                       const std::string& path) {
  auto row = std::make_unique<Row>();
  row->node = &node;
  for (const EcuTreeNode& child : node.children)
    if (auto below = rowOf(child, words_.empty() ? std::string() : path + "/" + child.search))
      row->children.push_back(std::move(below));
  const bool shown = !row->children.empty() || letsThrough(path);
  return shown ? std::move(row) : nullptr;
}

bool EcuTreeModel::letsThrough(const std::string& path) const {
  return std::all_of(words_.begin(), words_.end(),
                     [&](const std::string& word) { return path.find(word) != std::string::npos; });
}

const EcuTreeModel::Row* EcuTreeModel::at(const QModelIndex& index) const {
  return index.isValid() ? static_cast<const Row*>(index.constInternalPointer()) : top_.get();
}

QModelIndex EcuTreeModel::indexOf(const Row* row) const {
  if (!row || row == top_.get()) return {};
  return createIndex(row->number, 0, const_cast<Row*>(row));
}

const EcuTreeNode* EcuTreeModel::nodeOf(const QModelIndex& index) const {
  return index.isValid() ? at(index)->node : nullptr;
}

QModelIndex EcuTreeModel::indexOf(const std::string& address) const {
  const auto found = byAddress_.find(address);
  return found == byAddress_.end() ? QModelIndex() : indexOf(found->second);
}

QModelIndex EcuTreeModel::firstFile() const {
  const auto found =
      std::find_if(order_.begin(), order_.end(), [](const Row* row) { return row->node->isFile; });
  return found == order_.end() ? QModelIndex() : indexOf(*found);
}

QModelIndex EcuTreeModel::findByPrefix(const std::string& text, const QModelIndex& from,
                                       bool here) const {
  const std::string wanted = searchForm(text);
  if (wanted.empty() || order_.empty()) return {};
  const std::size_t start = from.isValid() ? at(from)->rank + (here ? 0 : 1) : 0;
  for (std::size_t i = 0; i < order_.size(); ++i) {
    const Row* row = order_[(start + i) % order_.size()];
    if (row->node->search.starts_with(wanted)) return indexOf(row);
  }
  return {};
}

bool EcuTreeModel::hasHead(const QModelIndex& index) const {
  const EcuTreeNode* node = nodeOf(index);
  return !node || !node->isFile || marks_.contains(node->address);
}

void EcuTreeModel::setHead(const QModelIndex& index, const EcuHead& head) {
  const EcuTreeNode* node = nodeOf(index);
  if (!node || !node->isFile) return;
  marks_[node->address] = {head.protocol, head.trouble};
  emit dataChanged(index, index,
                   {Qt::DecorationRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
}

QModelIndex EcuTreeModel::index(int row, int column, const QModelIndex& parent) const {
  const auto& rows = at(parent)->children;
  if (row < 0 || column != 0 || static_cast<std::size_t>(row) >= rows.size()) return {};
  return indexOf(rows[static_cast<std::size_t>(row)].get());
}

QModelIndex EcuTreeModel::parent(const QModelIndex& child) const {
  return child.isValid() ? indexOf(at(child)->parent) : QModelIndex();
}

int EcuTreeModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(at(parent)->children.size());
}

int EcuTreeModel::columnCount(const QModelIndex&) const {
  return 1;
}

bool EcuTreeModel::hasChildren(const QModelIndex& parent) const {
  return !at(parent)->children.empty();
}

const char* EcuTreeModel::iconKey(const Row& row) const {
  if (row.node->isFile) {
    const auto mark = marks_.find(row.node->address);
    if (mark == marks_.end()) return "ecu-unknown";
    return mark->second.trouble.empty() ? protocolIcon(mark->second.protocol) : "warning";
  }
  // A vehicle holds families; a folder of ECU files alone is a family, wherever it stands.
  const auto& below = row.node->children;
  const bool vehicle = row.parent == top_.get() && !below.empty() && !below.front().isFile;
  return vehicle ? "vehicle" : "folder";
}

QVariant EcuTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Row& row = *at(index);
  const auto mark = marks_.find(row.node->address);
  const bool broken = mark != marks_.end() && !mark->second.trouble.empty();
  switch (role) {
  case Qt::DisplayRole:
    return qs(row.node->name);
  case Qt::DecorationRole:
    return icon(iconKey(row));
  case Qt::ToolTipRole: {
    std::string tip = row.node->address;
    if (broken)
      tip += "\n" + language::global().getMultilangMessageDefault("This file cannot be read: {0}",
                                                                  "ECUSELECTOR/MSG/brokenFile/text",
                                                                  mark->second.trouble);
    return qs(tip);
  }
  case Qt::AccessibleDescriptionRole:
    if (broken) return qs(mark->second.trouble);
    return mark == marks_.end() ? QString()
                                : qs(protocolText(mark->second.protocol, language::global()));
  default:
    return {};
  }
}

} // namespace kelmar
