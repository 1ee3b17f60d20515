// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/ecu_selector_model.h"

#include <QElapsedTimer>
#include <QTreeView>

#include <set>
#include <string>

namespace kelmar {

/// The tree on the screen: keyboard, double click, and the icons of the rows in sight.
class EcuTreeView : public QTreeView {
  Q_OBJECT

 public:
  explicit EcuTreeView(EcuTreeModel& model, QWidget* parent = nullptr);

  /// Finds a row by the letters that its name begins with, also in folders that are closed.
  void keyboardSearch(const QString& letters) override;

  /// Addresses of the folders that stand open.
  std::set<std::string> openFolders() const;
  void setOpenFolders(const std::set<std::string>& folders);

 signals:
  /// Return, Enter or a double click on an ECU file.
  void opened(const QString& address);
  /// Other rows may have come into sight.
  void sightChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void open(const QModelIndex& index);

  EcuTreeModel& model_;
  QString typed_;
  QElapsedTimer sinceTyped_;
};

} // namespace kelmar
