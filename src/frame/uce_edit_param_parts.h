// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/edit_state.h"
#include "controls/command_table.h"
#include "database/omnikor_lib_xml.h"
#include "frame/can_identifier_field.h"
#include "frame/rules/edit_param_fields.h"
#include "frame/uce_auto_idents.h"
#include "frame/uce_edit_param.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;
class QScrollArea;
class QToolBar;

namespace kelmar {

class OfficialDateField;
class ShownField;

/// The controls of the parameter page and what they do.
struct UceEditParam::Parts {
  struct Number {
    QCheckBox* box = nullptr;
    QLineEdit* field = nullptr;
  };

  Parts(UceEditParam& owner, platform::Person& answering) : page(owner), person(answering) {}

  // uce_edit_param_layout.cpp
  void makeControls();
  QWidget* makeGeneral(QWidget* parent);
  QWidget* makeCommunication(QWidget* parent);
  void makeCan(QWidget* parent);
  void makeCanBaud(QWidget* parent);
  void makeIp(QWidget* parent);
  void makeTiming(QWidget* parent);
  void makeKeyWords(QWidget* parent);
  void orderFields();
  void nameFields();
  // uce_edit_param.cpp
  void connectControls();
  void makeCommands();
  TargetItem* target() const { return database ? database->ActiveTarget.get() : nullptr; }
  std::int32_t code() const;
  void fillLists();
  void showControls(const EditParamFields& fields);
  void showConverted(const EditParamFields& fields);
  EditParamFields readControls();
  void refreshLayout();
  void refreshFakra();
  void numberBoxToggled(std::size_t number, bool checked);
  void edited();
  bool numberIsBad(const QLineEdit& field) const;
  void tellInvalid(QLineEdit& field);
  const Number* numberOf(const QObject* control) const;
  void checkLeftNumber(const Number& number);
  QLineEdit* firstBadNumber() const;
  void save();
  void cancel();
  void identsCancelled();
  void searchFor(std::int32_t diagVersion, const std::string& supplier, const std::string& soft,
                 const std::string& version);

  UceEditParam& page;
  platform::Person& person;
  bool initialised = false; ///< from InitControl on
  EditState edits;
  OmnikorLibXml* database = nullptr;
  EditParamFields shown; ///< as they were filled
  std::string invalidData;
  CommandTable* commands = nullptr;

  QToolBar* TBparam = nullptr;
  QWidget* parameterPane = nullptr;
  QScrollArea* fieldArea = nullptr;
  QLineEdit *txtEmail = nullptr, *TextReprog = nullptr, *KW1 = nullptr, *KW2 = nullptr,
            *txIPAddress = nullptr, *txMACAddress = nullptr;
  QPlainTextEdit* Comment = nullptr;
  QComboBox *ComboTypeCom = nullptr, *ComboTypePanne = nullptr, *ComboBaudRate = nullptr,
            *ComboMaxDataLangthCANFD = nullptr;
  QCheckBox *CheckOfficia = nullptr, *CheckCGW = nullptr, *CheckCGWIP = nullptr;
  OfficialDateField* DateOfficia = nullptr;
  QButtonGroup* TypeCodage = nullptr;
  QRadioButton *bigEndian = nullptr, *littleEndian = nullptr;
  QGroupBox *FrCan = nullptr, *FrCanBaud = nullptr, *FrIP = nullptr, *Timing = nullptr,
            *Frame1 = nullptr;
  QLabel *LabelCGW = nullptr, *LbMaxDataLangthCANFD = nullptr, *LbBytesCANFD = nullptr,
         *LbBaudRateCANFD = nullptr, *LabelCGWIP = nullptr;
  CanIdentifierField *canXid = nullptr, *canRid = nullptr;
  ShownField* TextFakra = nullptr;
  std::array<Number, parameterNumberCount> numbers = {};
  UceAutoIdents* UceAutoIdents1 = nullptr;
};

} // namespace kelmar
