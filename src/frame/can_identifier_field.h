// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/can_identifier.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;

namespace kelmar {

class ZEMnumeric;

/// A CAN identifier: the number field of the given name and the box for 29 bits, named by it and
/// "Extented". The number field stays empty as long as no identifier is set.
class CanIdentifierField : public QWidget {
  Q_OBJECT

 public:
  CanIdentifierField(const QString& name, QWidget* parent);

  void showIdentifier(const CanIdentifier& identifier);
  /// Takes what is being typed for entered.
  CanIdentifier identifier();
  ZEMnumeric& number() { return *number_; }
  QCheckBox& extended() { return *extended_; }

 signals:
  /// A person changed it.
  void edited();

 private:
  void numberChanged();
  void extendedChanged(bool extended);
  /// With the text as it stands, entered or not.
  CanIdentifier identifierOfScreen() const;
  void tellEdit();
  void showEmpty();

  ZEMnumeric* number_;
  QCheckBox* extended_;
  const QLineEdit* textBox_; // of the number field
  bool showing_ = false;     // code changes the controls
  bool unset_ = true;
  CanIdentifier known_; ///< as shown, or as told by edited() last
};

} // namespace kelmar
