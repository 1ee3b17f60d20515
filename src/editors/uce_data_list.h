// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/name_commands.h"
#include "controls/command_table.h"
#include "controls/list_view.h"
#include "controls/zem_numeric.h"
#include "editors/rules/datas/value_list.h"

#include <QWidget>

class QLineEdit;
class QPushButton;
class QToolBar;

namespace kelmar {

/// Edits the value list of one data. It works on a copy; the data gets it by SaveDataItems.
class UceDataList : public QWidget {
  Q_OBJECT

 public:
  UceDataList(platform::Person& person, QWidget* parent);
  ~UceDataList() override;

  /// Shows the values of the data, in their order; none empties the control.
  void setData(DataItem* data);
  DataItem* data() const { return data_; }
  /// What can be typed as a value follows the size of the data: what fits into `numberBits` bits of
  /// a signed or an unsigned number, any 32-bit number for a size that is none. Values that the
  /// list has already stay.
  void setRange(int numberBits, bool isSigned);
  /// The rows as they are now become the value list of the data.
  void SaveDataItems();
  /// What was typed is neither in a row yet nor dropped.
  bool hasTyping() const;
  /// Asks about what was typed and is not in a row yet; Yes changes the row in the fields, or adds
  /// one when there is none. What cannot be taken is told, and dropped then. True when it was
  /// taken.
  bool TestAndConfirmChange();
  /// The same for a command that can wait: what cannot be taken stays in the fields to be mended,
  /// and the answer is false.
  bool finishTyping();
  void InitControl();
  void setLang(const std::string& lang);

 signals:
  void listChanged();
  /// What hasTyping gives may be another.
  void typingMoved();
  /// Text was copied; `broken` when it does not read back as it is.
  void textCopied(bool broken);
  /// The help of the value list is asked for.
  void help();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeControls();
  void makeCommands();
  std::vector<MenuEntry> menu() const;
  void chosen(const MenuEntry& entry);
  std::vector<ValueRow*> selectedRows() const;
  ValueListState state() const;
  ValueRow* currentRow() const;
  void fillRows(ValueRow* current);
  void rowChosen();
  void showRow(ValueRow* row);
  void applyRange();
  void fieldChanged();
  void refresh();
  enum class Typed { Nothing, Taken, Dropped, Refused };
  Typed askTyping();
  bool changeItem();
  bool addNew();
  void editInfo();
  void cut();
  void copy(bool asText);
  void paste();
  void tellChange();

  platform::Person& person_;
  DataItem* data_ = nullptr;
  ValueList values_;
  ValueRow* shown_ = nullptr; // the row in the fields
  std::string info_;
  bool itemChanged_ = false, loading_ = false;
  double least_ = 0, greatest_ = 0; // that can be typed as a value
  QToolBar* TBMain = nullptr;
  ListView* LVmain = nullptr;
  ZEMnumeric* ValRange = nullptr;
  QLineEdit* ValText = nullptr;
  QPushButton *Infos = nullptr, *CBaddNew = nullptr;
  CommandTable* commands_ = nullptr;
};

} // namespace kelmar
