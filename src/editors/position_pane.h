// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/edit_state.h"
#include "controls/command_table.h"
#include "controls/display_response.h"
#include "controls/list_view.h"
#include "controls/zem_numeric.h"
#include "database/omnikor_lib_xml.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_menu.h"
#include "editors/rules/positions/position_rows.h"

#include <QWidget>

#include <optional>
#include <string>
#include <unordered_map>

class QCheckBox;
class QComboBox;
class QPushButton;
class QToolBar;

namespace kelmar {

/// What the placed data need of the page of their request.
class PositionHost {
 public:
  virtual ~PositionHost() = default;
  virtual OmnikorLibXml* openDatabase() const = 0;
  virtual RequestItem* activeRequest() const = 0;
  virtual bool sentShown() const = 0;
  virtual bool requestChanged() const = 0;
  /// Takes over the fields of the request; what failed, if something did.
  virtual std::optional<Failure> GetRequestFromScreen() = 0;
  /// Brings the frame that could not be taken over to the front.
  virtual void goToBadFrame() = 0;
  /// As ListPage::SetChanged.
  virtual void positionsChanged(int kind) = 0;
  virtual void saved() = 0;
  /// The same when the request, too, has taken over all that is on the page.
  virtual void validated() = 0;
  virtual void cancelled() = 0;
  /// The row of the request and the warning line anew.
  virtual void refreshRequest() = 0;
  virtual void warnOutside(const std::string& text) = 0;
  virtual void warnBroken() = 0;
  virtual void goToData(const std::string& name) = 0;
  virtual void goToHelp() = 0;
};

/// The placed data of one frame of a request: the byte view, the list, and the fields of one
/// placement.
class PositionPane : public QWidget {
  Q_OBJECT

 public:
  PositionPane(platform::Person& person, PositionHost& host, QWidget* parent);

  /// Fills the list of names; after every change of the data of the ECU.
  void refreshDatas();
  void setScreen_DataPos();
  void ClearDataPosScreen();
  bool TestAndConfirmChangeDataPos();
  void GetDataPosFromScreen();
  /// What is typed is dropped; the next filling shows the placement that was shown.
  void drop();
  /// The placement of another side, or of another request, is to be shown.
  void leave();

  bool dataPosChanged() const { return edits_.changed(); }
  void clearChanged() { edits_.clear(); }
  bool isActive() const { return active_ != nullptr; }
  /// The data that is chosen where a frame that holds it is shown: one that was led to, or placed,
  /// last.
  const std::string& lastDataName() const { return lastDataName_; }
  void setLastDataName(const std::string& name);
  /// The data in the fields; without one, the one that is to be chosen.
  const std::string& dataName() const { return active_ ? active_->dataName : lastDataName_; }
  void refreshCommands();
  /// What the page's own translation leaves: names for readers, the texts of rows and of CBadd, the
  /// warning line, and columns as wide as their captions.
  void retranslate();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // position_pane.cpp
  void makeControls();
  void layOut();
  void setRows(std::vector<PositionRow> rows);
  void fillView(const RequestItem& request);
  void drawView();
  void showRows();
  bool renewTexts();
  void renewRows();
  const PositionRow* rowOf(RowTag tag) const;
  bool isOutside() const;
  void rowChosen();
  void rowClicked();
  void choose(DataPositionItem* position);
  void settle();
  void selectPreview();
  void SetDataPosToScreen();
  PositionFields fields() const;
  void setAdd(bool add);
  bool isTyped() const;
  void numberEdited();
  void OnDataPosEdited();
  void PreviewDataPos();
  void nameChosen();
  void addPreview();
  const DataItem* chosenData() const;
  bool isAdding() const;
  bool isOtherChosen() const;
  // position_pane_commands.cpp
  void makeCommands();
  void orderToolBar();
  void bitPressed(int byte, int cell, int button);
  void selectBit(const FrameBit& bit);
  void chosen(const MenuEntry& entry);
  void bitMenuChosen(const MenuEntry& entry);
  void cancel();
  void save();
  void addOrModify();
  void cut();
  void copy();
  void copyText();
  void paste();
  void setReference(bool reference);
  void changeEndian(bool toDefault);
  void replaceWith(const MenuEntry& entry);
  void created(DataPositionItem* position);
  void redraw();
  void rebuild(int kind);
  PositionSelection selected() const;
  PositionPaneState state() const;
  TargetItem& target() const { return *host_.openDatabase()->ActiveTarget; }
  void guarded(const std::function<void()>& action);

  platform::Person& person_;
  PositionHost& host_;
  EditState edits_; // guards are dataPosLoading, the mark is dataPosChanged
  DataPositionItem* active_ = nullptr;
  DisplayRespData* preview_ = nullptr;
  std::unordered_map<const DataPositionItem*, DisplayRespData*> drawn_; // their bits on the view
  std::string lastDataName_;
  std::string shownName_; // of the row that stays chosen while the same frame is shown
  FrameBit clicked_;
  bool chosenByPress_ = false; // the click that follows is not to choose a second time
  std::vector<PositionRow> rows_;
  std::unordered_map<RowTag, std::size_t> rowOfTag_;
  bool filling_ = false;

  DisplayResponse* DisplayRep;
  QToolBar* TBPosData;
  QComboBox* ComboData;
  ZEMnumeric *ValStartOctet, *ValStartBit;
  QCheckBox* CheckLittleEndian;
  QPushButton* CBadd;
  ListView* LVposdata;
  CommandTable* commands_ = nullptr;
};

} // namespace kelmar
