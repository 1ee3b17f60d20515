// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/hourglass.h"
#include "controls/list_page.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/position_pane.h"
#include "editors/rules/positions/position_clipboard.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QComboBox>
#include <QItemSelection>
#include <QPushButton>
#include <QToolBar>

#include <algorithm>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

constexpr int leftButton = 1, rightButton = 2;

} // namespace

void PositionPane::makeCommands() {
  const auto enabled = [this](const char* key) {
    return [this, key = std::string(key)] { return isPositionCommandEnabled(key, state()); };
  };
  const auto run = [this](void (PositionPane::*action)()) {
    return [this, action] { guarded([this, action] { (this->*action)(); }); };
  };
  // The shortcuts are those of the list: in the fields they are those of any text.
  commands_ = new CommandTable(
      LVposdata, {{.key = "cancel",
                   .toolTip = "Cancel change (Ctrl Z)",
                   .icon = "cancel",
                   .run = run(&PositionPane::cancel),
                   .enabled = enabled("cancel")},
                  {.key = "save",
                   .toolTip = "Save change (Ctrl S)",
                   .icon = "save",
                   .run = run(&PositionPane::save),
                   .enabled = enabled("save")},
                  {.key = "cut",
                   .toolTip = "Cut selected datas (Ctrl X)",
                   .icon = "cut",
                   .run = run(&PositionPane::cut),
                   .enabled = enabled("cut"),
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_X), QKeySequence(Qt::Key_Delete)}},
                  {.key = "copy",
                   .toolTip = "Copy selected datas to clipboard (Ctrl C)",
                   .icon = "copy",
                   .run = run(&PositionPane::copy),
                   .enabled = enabled("copy"),
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_C)}},
                  {.key = "paste",
                   .toolTip = "Paste datas from clipboard (Ctrl V)",
                   .icon = "paste",
                   .run = run(&PositionPane::paste),
                   .enabled = enabled("paste"),
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_V)}},
                  {.key = "ref",
                   .toolTip = "Define data as reference (F9)",
                   .icon = "ref",
                   .run = [this] { guarded([this] { setReference(true); }); },
                   .enabled = enabled("ref"),
                   .shortcuts = {QKeySequence(Qt::Key_F9)}},
                  {.key = "unref",
                   .toolTip = "Undefine data as reference (F10)",
                   .icon = "unref",
                   .run = [this] { guarded([this] { setReference(false); }); },
                   .enabled = enabled("unref"),
                   .shortcuts = {QKeySequence(Qt::Key_F10)}},
                  {.key = "selectAll",
                   .run = [this] { ListViewSelectAll(*LVposdata); },
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_A)}}});
  commands_->fillToolBar(*TBPosData,
                         {"cancel", "save", "", "cut", "copy", "paste", "", "ref", "unref"});
  orderToolBar();

  LVposdata->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(LVposdata, &QWidget::customContextMenuRequested, this, [this](QPoint where) {
    if (!host_.activeRequest()) return;
    // By the menu key the menu belongs to the current row, wherever the pointer is.
    if (const QRect row = LVposdata->visualRect(LVposdata->currentIndex());
        !LVposdata->viewport()->rect().contains(where) && row.isValid())
      where = row.center();
    auto* current = static_cast<DataPositionItem*>(LVposdata->currentTag());
    const QModelIndex under = LVposdata->indexAt(where);
    popUpMenu(*LVposdata, QStringLiteral("PopupmenuData"),
              LVposdata->viewport()->mapToGlobal(where),
              positionMenu(state(), target(), under.isValid() ? current : nullptr),
              [this](const MenuEntry& entry) { guarded([&] { chosen(entry); }); });
  });
}

/// The tabulator comes to the buttons where they stand: between the view and the fields.
void PositionPane::orderToolBar() {
  QWidget* before = DisplayRep;
  for (QAction* action : TBPosData->actions()) {
    if (action->isSeparator()) continue;
    QWidget* button = TBPosData->widgetForAction(action);
    setTabOrder(before, button);
    before = button;
  }
}

void PositionPane::refreshCommands() {
  if (commands_) commands_->refresh();
  CBadd->setEnabled(host_.activeRequest() != nullptr);
}

PositionPaneState PositionPane::state() const {
  return {.request = host_.activeRequest() != nullptr,
          .active = active_ != nullptr,
          .selected = static_cast<int>(LVposdata->selectedTags().size()),
          .pending = edits_.changed() || (active_ && isOtherChosen()),
          .clipboardHasText = false};
}

PositionSelection PositionPane::selected() const {
  PositionSelection positions;
  for (const RowTag tag : LVposdata->selectedTags())
    positions.push_back(static_cast<DataPositionItem*>(tag));
  return positions;
}

void PositionPane::guarded(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
  }
}

void PositionPane::bitPressed(int byte, int cell, int button) {
  if (!host_.activeRequest()) return;
  clicked_ = {byte, cell};
  if (button == leftButton) guarded([this] { selectBit(clicked_); });
  if (button != rightButton) return;
  PositionPaneState now = state();
  now.clipboardHasText = !desktop::clipboardText().empty();
  popUpMenu(*DisplayRep, QStringLiteral("PopupCreateData"),
            DisplayRep->mapToGlobal(DisplayRep->cellRect(byte, cell).center()), createDataMenu(now),
            [this](const MenuEntry& entry) { guarded([&] { bitMenuChosen(entry); }); });
}

void PositionPane::selectBit(const FrameBit& bit) {
  std::vector<DataPositionItem*> all;
  for (const RowTag tag : LVposdata->rows().tags())
    all.push_back(static_cast<DataPositionItem*>(tag));
  const PositionSelection hit = positionsAt(all, bit);
  const RowsModel& model = LVposdata->rows();
  QItemSelection selection;
  for (DataPositionItem* position : hit) {
    const int row = model.rowOf(position);
    selection.append({model.index(row, 0), model.index(row, model.columnCount() - 1)});
  }
  filling_ = true;
  LVposdata->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  if (!hit.empty()) {
    const QModelIndex first = model.index(model.rowOf(hit.front()), 0);
    LVposdata->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    LVposdata->scrollTo(first);
  }
  filling_ = false;
  // Also the data that is shown already: its fields may hold another name.
  if (!hit.empty()) choose(hit.front());
  refreshCommands();
}

void PositionPane::chosen(const MenuEntry& entry) {
  if (entry.key == "ppDataGoto")
    host_.goToData(entry.names.at(0));
  else if (entry.key == "ppDataCut")
    cut();
  else if (entry.key == "ppDataCopy")
    copy();
  else if (entry.key == "ppDataCopyText")
    copyText();
  else if (entry.key == "ppDataPaste")
    paste();
  else if (entry.key == "ppDataReplaceData")
    replaceWith(entry);
  else if (entry.key == "ppDataToggleEndian")
    changeEndian(false);
  else if (entry.key == "ppDataSetEndianDefault")
    changeEndian(true);
  else if (entry.key == "ppDataHelp")
    host_.goToHelp();
}

void PositionPane::bitMenuChosen(const MenuEntry& entry) {
  RequestItem* request = host_.activeRequest();
  if (!request) return;
  settle();
  if (entry.key == "PopupCreateDataC") {
    const Hourglass busy;
    if (DataPositionItem* last = pasteDatasAt(desktop::clipboardText(), target(), *request,
                                              host_.sentShown(), clicked_, person_))
      created(last);
    return;
  }
  for (const CreateDataEntry& row : createDataEntries()) {
    if (entry.key != row.array || entry.names.at(0) != std::to_string(row.index)) continue;
    DataItem* item = nullptr;
    DataPositionItem* position =
        createDataAt(target(), *request, host_.sentShown(), row.kind, clicked_, person_, &item);
    if (item) refreshDatas();
    if (item || position) created(position);
    return;
  }
}

void PositionPane::created(DataPositionItem* position) {
  if (position) setLastDataName(position->dataName);
  rebuild(ListPage::Pasted);
}

void PositionPane::redraw() {
  drop();
  host_.refreshRequest();
  setScreen_DataPos();
}

void PositionPane::rebuild(int kind) {
  redraw();
  host_.positionsChanged(kind);
}

void PositionPane::cancel() {
  if (!active_) return;
  if (edits_.changed() && !host_.requestChanged()) host_.cancelled();
  edits_.clear();
  host_.refreshRequest();
  setScreen_DataPos();
}

void PositionPane::save() {
  if (!active_) return;
  if (const auto failure = host_.GetRequestFromScreen()) {
    person_.message({"REQUESTS/MSG/TBPosData_ButtonClick/userError/text",
                     language::global().getMultilangMessageDefault(
                         "User Error", "REQUESTS/MSG/TBPosData_ButtonClick/userError/title"),
                     failure->text, platform::Buttons::Ok, platform::Icon::Critical});
    host_.goToBadFrame(); // asks about the placement when it lies on the other side
  } else {
    GetDataPosFromScreen();
    edits_.clear();
    host_.validated();
  }
  host_.refreshRequest();
  setScreen_DataPos();
}

void PositionPane::addOrModify() {
  RequestItem* request = host_.activeRequest();
  if (!request) return;
  const CMultiLangEx& texts = language::global();
  if (ComboData->currentText().isEmpty()) {
    person_.message(
        {"REQUESTS/MSG/CBadd_Click/userError/text",
         texts.getMultilangMessageDefault("User error", "REQUESTS/MSG/CBadd_Click/userError/title"),
         texts.getMultilangMessageDefault("Choose the new data name",
                                          "REQUESTS/MSG/CBadd_Click/userError/text"),
         platform::Buttons::Ok, platform::Icon::Critical});
    return;
  }
  if (!isAdding()) {
    if (active_) save();
    return;
  }
  {
    const EditState::Loading loading = edits_.load();
    ValStartOctet->commitText();
    ValStartBit->commitText();
  }
  PositionFields wanted = fields();
  wanted.StartOctet = std::max(wanted.StartOctet, 1); // an empty field shows 0
  const DataPositionItem* added = addByFields(*request, wanted, host_.sentShown(), person_);
  if (!added) return;
  setLastDataName(added->dataName);
  host_.refreshRequest();
  setScreen_DataPos();
  host_.positionsChanged(ListPage::Pasted);
}

void PositionPane::cut() {
  if (!active_) return;
  settle();
  // What cannot be copied is told, and can be deleted all the same.
  guarded([this] {
    desktop::setClipboardText(
        copyDataPositions(target(), *host_.activeRequest(), host_.sentShown(), selected()));
  });
  const bool gone = CutData(target(), selected(), person_, [this] {
    ClearDataPosScreen();
    filling_ = true;
    LVposdata->rows().setRows({}); // nothing is to show an item that is gone
    filling_ = false;
    setRows({});
  });
  if (gone) rebuild(ListPage::Deleted);
}

void PositionPane::copy() {
  if (!host_.activeRequest() || selected().empty()) return;
  desktop::setClipboardText(
      copyDataPositions(target(), *host_.activeRequest(), host_.sentShown(), selected()));
}

void PositionPane::copyText() {
  bool broken = false;
  const std::string text = copyPositionsText(selected(), broken);
  if (text.empty()) return;
  desktop::setClipboardText(text);
  if (broken) host_.warnBroken();
}

void PositionPane::paste() {
  RequestItem* request = host_.activeRequest();
  if (!request) return;
  settle();
  const bool changed = pasteDataPositions(desktop::clipboardText(), *host_.openDatabase(), target(),
                                          *request, host_.sentShown(), person_, [this] {
                                            refreshDatas();
                                            redraw();
                                          });
  if (changed) host_.positionsChanged(ListPage::Pasted);
}

void PositionPane::setReference(bool reference) {
  if (!active_) return;
  settle();
  const bool changed = reference ? RefDataPos(target(), selected(), person_)
                                 : UnRefDataPos(target(), selected(), person_);
  setScreen_DataPos();
  if (changed) host_.positionsChanged(ListPage::Flagged);
}

void PositionPane::changeEndian(bool toDefault) {
  settle();
  const bool changed =
      toDefault ? setEndianDefault(target(), selected()) : toggleEndian(selected());
  if (changed) rebuild(ListPage::Flagged);
}

void PositionPane::replaceWith(const MenuEntry& entry) {
  if (!active_) return;
  settle();
  const DataItem* item = nullptr;
  if (entry.names.empty()) {
    if (const DataItem* model = active_->data()) item = newDataLike(target(), *model, person_);
    refreshDatas();
  } else {
    item = target().datas()->ItemName(entry.names.front());
  }
  if (!item) return;
  const bool replaced = replaceData(target(), *active_, *item, person_);
  if (replaced) shownName_ = item->dataName();
  edits_.clear();
  setScreen_DataPos();
  if (replaced || entry.names.empty()) host_.positionsChanged(ListPage::Flagged);
}

} // namespace kelmar
