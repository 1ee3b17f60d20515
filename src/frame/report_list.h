// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_report.h"

#include <QDialog>

namespace kelmar {

class ListView;

/// The items of a file that could not be kept, in a window of its own.
class ReportList : public QDialog {
  Q_OBJECT

 public:
  explicit ReportList(LoadReport report, QWidget* parent = nullptr);

 private:
  void copy() const;

  LoadReport report_;
  ListView* list_;
};

} // namespace kelmar
