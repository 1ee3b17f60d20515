// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/addressing_choice.h"
#include "frame/rules/addressing_file.h"
#include "platform/person.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelmar {

/// The panel in which a new ECU gets its function and addresses.
class UctlNewEcuAddr : public QWidget {
  Q_OBJECT

 public:
  /// Both must outlive it; without `fetch` an addressing file is a local one.
  explicit UctlNewEcuAddr(platform::Person& person, platform::Fetch* fetch = nullptr,
                          QWidget* parent = nullptr);

  /// Gives the controls their texts in the current language.
  void InitControl();
  /// Offers the functions of the file; tells by a box why it cannot be read.
  void ReadAddressingFile(const std::string& file);

 signals:
  void cancel();
  /// Identifiers are -1 when unset.
  void create(qint32 address, const QString& logicalAddress, const QString& functionName,
              qint32 canXid, qint32 canRid);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void layOut();
  void chooseFunction();
  void functionTyped();
  void show(const AddressingFields& fields);
  void createClicked();

  platform::Person& person_;
  platform::Fetch* fetch_;
  AddressingFile file_;
  xml::Node function_; // the chosen one, null without

  QGroupBox* frame_;
  QComboBox* cbFct_;
  QLineEdit *txAddr_, *txtLogicalAddress_, *lbCanXid_, *lbCanRid_;
  QCheckBox* CbExtended_;
  QPushButton *cbCreate_, *cbCancel_;
};

} // namespace kelmar
