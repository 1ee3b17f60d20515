// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/zem_numeric.h"
#include "editors/rules/datas/data_clipboard.h"
#include "editors/uce_data_list.h"
#include "editors/uce_datas.h"

#include <array>

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSplitter;
class QStackedWidget;
class QToolBar;

namespace kelmar {

/// The controls of the page of data and what they do.
struct UceDatas::Parts {
  Parts(UceDatas& owner, std::string siteFolder) : page(owner), site(std::move(siteFolder)) {}

  // uce_datas_layout.cpp
  void makeControls();
  QWidget* makeNumericForm();
  QWidget* makeCoefficients(QWidget* parent);
  QWidget* makeListForm();
  QWidget* makeNotNumericForm();
  void connectControls();
  // uce_datas_commands.cpp
  void makeCommands();
  void chosen(const MenuEntry& entry);
  bool chooseRows(const std::string& key);
  void newOne();
  void cut();
  void copy();
  void copyText();
  void copyTradConfig();
  void paste(const std::string& text);
  void changeNames(const std::string& key);
  void showUnits();
  void showFiche();
  void sort(int order);
  std::vector<DataItem*> selected() const;
  // uce_datas.cpp
  TargetItem* target() const { return database ? database->ActiveTarget.get() : nullptr; }
  DataItem* data() const { return page.activeItem<DataItem>(); }
  DataFields readControls() const;
  void showControls(const DataFields& fields);
  void showForm(DataType type);
  void typeChosen(DataType type);
  void edited();
  /// Something reached the data while what stands in the fields is still to be taken over.
  void stillEdited();
  void coefficientEdited(QLineEdit& field);
  void numberEdited(const ZEMnumeric& field, double inItem);
  /// The values of the list follow the size that stands in the fields.
  void rangeEdited();
  void colourFields();
  void showHelp();
  /// A value is being typed that the value list has not taken yet.
  bool typesValue() const;
  /// False when the fields could not all be taken over.
  bool takeOver();
  /// The fields show the data as it is.
  void showAgain();
  void validate(bool toFile);
  void cancel();
  bool rename(DataItem& data, const std::string& text);
  /// Says so when the copied text does not read back; takes the word of an earlier copy away.
  void textCopied(bool broken);
  void warn(const std::string& text);

  UceDatas& page;
  bool initialised = false; ///< from InitControl on
  std::string site, lang = "en";
  OmnikorLibXml* database = nullptr;
  DataType activeType = DataType::Numeric;
  int sortOrder = 0; ///< 0 ascending, 1 descending
  CommandTable* commands = nullptr;
  CommandTable* listCommands = nullptr;
  std::vector<MenuEntry> units;

  ListView* listDatas = nullptr;
  QSplitter* splitter = nullptr;
  QToolBar* TbData = nullptr;
  QLabel *lblInfo = nullptr, *lblWarning = nullptr, *labCoefC = nullptr;
  QGroupBox* FrameInfos = nullptr;
  QLineEdit *TextMnemo = nullptr, *TextDescription = nullptr, *TextUnite = nullptr,
            *TextFormat = nullptr, *TextCoeffA = nullptr, *TextCoeffB = nullptr,
            *TextCoeffC = nullptr;
  QPushButton *DataDiagFiche = nullptr, *cmdSelectUnit = nullptr;
  QButtonGroup* OPtype = nullptr;
  std::array<QRadioButton*, 3> types{};
  QStackedWidget* forms = nullptr;
  ZEMnumeric *NumericNumberBits = nullptr, *ListeNumberBits = nullptr,
             *NotNumericNumberBytes = nullptr;
  QCheckBox *CheckSigne = nullptr, *CheckSignedList = nullptr;
  UceDataList* UceDataList1 = nullptr;
  QRadioButton *ascii = nullptr, *hexa = nullptr;
};

} // namespace kelmar
