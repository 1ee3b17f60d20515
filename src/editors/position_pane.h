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
  /// The placement of another side, or of another request, is to be shown.
  void leave();

  bool dataPosChanged() const { return edits_.changed(); }
  void clearChanged() { edits_.clear(); }
  bool isActive() const { return active_ != nullptr; }
  const std::string& lastDataName() const { return lastDataName_; }
  void setLastDataName(const std::string& name) { lastDataName_ = name; }
  void refreshCommands();
  /// What the page's own translation leaves: names for readers, and columns as wide as their
  /// captions.
  void retranslate();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // position_pane.cpp
  void makeControls();
  void layOut();
  void fillView(const RequestItem& request);
  void drawView();
  void showRows();
  void renewRows();
  PositionRow* rowOf(RowTag tag) const;
  void rowChosen();
  void choose(DataPositionItem* position);
  void settle();
  void selectPreview();
  void SetDataPosToScreen();
  PositionFields fields() const;
  void setAdd(bool add);
  void numberEdited(const ZEMnumeric& field, std::int32_t inItem);
  void OnDataPosEdited();
  void PreviewDataPos();
  void nameChosen();
  void addPreview();
  bool isAdding() const;
  // position_pane_commands.cpp
  void makeCommands();
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
  std::string lastDataName_;
  FrameBit clicked_;
  mutable std::vector<PositionRow> rows_;
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
