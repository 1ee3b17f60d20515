// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/ecu_head.h"
#include "frame/rules/ecu_tree.h"

#include <QAbstractItemModel>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelmar {

/// The tree of ECU files as a view shows it, with what the filter lets through. What a row needs
/// from a file's head it shows once it has been told.
class EcuTreeModel : public QAbstractItemModel {
 public:
  explicit EcuTreeModel(QObject* parent = nullptr);
  ~EcuTreeModel() override;

  void setTree(EcuTree tree);
  const EcuTree& tree() const { return tree_; }
  /// Rows whose path, from the data set's folder on, holds each word of the text, without regard to
  /// case and accents, with the folders above them. An empty text lets all through.
  void setFilter(const std::string& text);
  bool isFiltered() const { return !words_.empty(); }
  std::size_t shownFiles() const { return shownFiles_; }

  /// Null for an index that is none.
  const EcuTreeNode* nodeOf(const QModelIndex& index) const;
  /// The row of this address; invalid when it is not shown.
  QModelIndex indexOf(const std::string& address) const;
  /// The first ECU file that is shown.
  QModelIndex firstFile() const;
  /// The next row, in the order of the whole tree with all folders open, whose name begins with the
  /// text; round the end to the start. `here`: the row `from` itself may be it.
  QModelIndex findByPrefix(const std::string& text, const QModelIndex& from, bool here) const;

  bool hasHead(const QModelIndex& index) const;
  void setHead(const QModelIndex& index, const EcuHead& head);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;

 private:
  struct Row;
  struct Mark {
    EcuProtocol protocol;
    std::string trouble;
  };

  void build();
  std::unique_ptr<Row> rowOf(const EcuTreeNode& node, const std::string& path);
  bool letsThrough(const std::string& path) const;
  const Row* at(const QModelIndex& index) const;
  QModelIndex indexOf(const Row* row) const;
  const char* iconKey(const Row& row) const;

  EcuTree tree_;
  std::vector<std::string> words_;
  std::unique_ptr<Row> top_;
  std::vector<const Row*> order_; // all rows as they stand with all folders open
  std::unordered_map<std::string, const Row*> byAddress_;
  std::unordered_map<std::string, Mark> marks_;
  std::size_t shownFiles_ = 0;
};

} // namespace kelmar
