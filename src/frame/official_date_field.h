// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTimeEdit>

#include <string>

namespace kelmar {

/// The picker of the date of officialisation. A stored text that is no date is shown as it is, and
/// stays until a date is typed or chosen.
class OfficialDateField : public QDateTimeEdit {
  Q_OBJECT

 public:
  explicit OfficialDateField(QWidget* parent = nullptr);

  /// The moment of now stands for an empty text.
  void showStored(const std::string& stored);
  /// In the form in which it is stored.
  std::string stored() const;

  void stepBy(int steps) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  QValidator::State validate(QString& text, int& position) const override;

 private:
  bool showsNoDate() const;
  void showNow();

  bool digitLeftSection_ = false; ///< the last key
};

} // namespace kelmar
