// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace kelmar {

/// Leaves Ctrl+Z and Ctrl+S, which a text field would take for itself, to the page that it stands
/// on, also while the page has nothing to undo. The object belongs to the page.
class PageKeys : public QObject {
  Q_OBJECT

 public:
  /// For all fields that stand below the page now.
  explicit PageKeys(QWidget& page);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kelmar
