// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/command_table.h"
#include "controls/list_view.h"
#include "controls/zem_numeric.h"
#include "database/omnikor_lib_xml.h"
#include "frame/rules/auto_ident_clipboard.h"
#include "frame/rules/auto_ident_entry.h"
#include "frame/rules/auto_ident_menu.h"
#include "platform/person.h"

#include <QWidget>

#include <memory>
#include <string>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolBar;

namespace kelmar {

class ShownField;

/// The part of the parameter page that edits by which values the ECU is recognised. It works on a
/// copy of the list; the ECU gets it by GetDataFromScreen.
class UceAutoIdents : public QWidget {
  Q_OBJECT

 public:
  UceAutoIdents(platform::Person& person, QWidget* parent);

  void InitControl();
  void setLang(const std::string& lang);
  /// Name of the data set in use.
  QString databaseDescription() const;
  void setDatabaseDescription(const QString& text);
  /// Shows the list of the open ECU; null, or a database without ECU, empties the page. What was
  /// pending is dropped.
  void DisplayParam(OmnikorLibXml* database);
  /// The list becomes that of the open ECU.
  void GetDataFromScreen();
  /// Code of the protocol that is chosen now; it decides which texts are allowed.
  void setProtocol(std::int32_t code) { protocol_ = code; }
  /// The entry fields hold something else than what was shown in them.
  bool entryPending() const;
  /// The entry becomes the selected row, or a new one. False when it is refused; the person was
  /// told why.
  bool ApplyEntry();
  /// What a search has found: words, and the address of the file, empty without a match.
  void showSearchResult(const std::string& text, const std::string& href);
  /// The controls in the order in which they are read.
  std::vector<QWidget*> tabOrder() const;

 signals:
  /// The list is another.
  void OnChange();
  /// The parameters and this list are to be saved.
  void OnSave();
  /// What was pending here was dropped.
  void OnCancel();
  /// Which file of the tree has these values?
  void AutoIdent(std::int32_t diagVersion, const std::string& supplier, const std::string& soft,
                 const std::string& version);
  void help(const std::string& module, const std::string& function);

 private:
  void makeControls();
  QWidget* makeEntry();
  void makeCommands();
  AutoIdentPageState state() const;
  AutoIdentSelection selected() const;
  AutoIdentItem* active() const;
  TargetItem* target() const { return database_ ? database_->ActiveTarget.get() : nullptr; }
  void fillList(RowTag chosen);
  void showRow();
  AutoIdentEntry entryOfScreen() const;
  /// The same, after what is being typed was taken for entered.
  AutoIdentEntry readEntry() const;
  /// True when the entry is good; else the box tells why not and the field has the focus.
  bool checkEntry(const AutoIdentEntry& entry);
  void save();
  void cancel();
  void addNew();
  void cut();
  void copy();
  void copyText();
  void paste();
  void check();
  void chosen(const MenuEntry& entry);
  void refresh();

  platform::Person& person_;
  OmnikorLibXml* database_ = nullptr;
  std::shared_ptr<AutoIdentItems> items_;    ///< the copy
  AutoIdentEntry shown_;                     ///< what was put into the entry fields
  const AutoIdentItem* shownItem_ = nullptr; ///< from which row; null: from none
  std::int32_t protocol_ = 0;
  QToolBar* TBident = nullptr;
  ShownField *txtDatabase = nullptr, *txdHref = nullptr;
  ListView* LVident = nullptr;
  QGroupBox* FRidentVal = nullptr;
  ZEMnumeric* ValIndiceDiag = nullptr;
  QLineEdit *ValCodeFour = nullptr, *ValLogiciel = nullptr, *ValVersion = nullptr;
  QPushButton* buttonAddNewAi = nullptr;
  QLabel* lbResult = nullptr;
  CommandTable *commands_ = nullptr, *listCommands_ = nullptr;
};

} // namespace kelmar
