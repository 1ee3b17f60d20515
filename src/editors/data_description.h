// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTextBrowser>

#include <string>

class QPushButton;

namespace kelmar {

/// Shows a page of HTML and nothing but its text: no script runs, no link leads anywhere, and
/// nothing is fetched, be it from the net or from the disk.
class QuietBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit QuietBrowser(QWidget* parent = nullptr);
  /// A blank in the place of every picture, nothing for all else.
  QVariant loadResource(int type, const QUrl& name) override;
  /// Black on white in every palette.
  void showOnPaper();
};

/// The documentation of a data or of one of its values: as rich text, as a page, or as text that
/// can be edited, by what stands in it.
class frmDataDescription : public QDialog {
  Q_OBJECT

 public:
  frmDataDescription(const QString& title, const std::string& fiche, QWidget* parent);

  /// What stands in the dialog; the text it was given, where that cannot be edited.
  std::string text() const;

 private:
  std::string fiche_;
  bool editable_ = false;
  QuietBrowser *WebBrowser1, *rtbDescription;
};

} // namespace kelmar
