// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/position_pane.h"

#include "common/position_bits.h"
#include "controls/colours.h"
#include "controls/list_page.h"
#include "controls/named.h"
#include "desktop/qt_text.h"
#include "language/multi_lang.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

// Of the byte view, 0xBBGGRR or system colours.
constexpr quint32 normalFore = 0x80000012u, normalBack = 0x8000000Fu;
constexpr quint32 warningFore = 0xFFFFFF;

void setNumber(ZEMnumeric& field, double value) {
  // A number of a file, and an empty field, may lie outside what can be typed.
  field.setRangeChecking(false);
  field.setvalue(value);
  field.setRangeChecking(true);
}

} // namespace

PositionPane::PositionPane(platform::Person& person, PositionHost& host, QWidget* parent)
    : QWidget(parent), person_(person), host_(host) {
  makeControls();
  layOut();
  makeCommands();
  connect(LVposdata, &ListView::currentMoved, this, [this] {
    if (!filling_) rowChosen();
  });
  connect(LVposdata, &ListView::clicked, this, [this] { rowClicked(); });
  ComboData->installEventFilter(this);
  LVposdata->viewport()->installEventFilter(this);
  connect(LVposdata, &ListView::selectionMoved, this, [this] {
    if (!filling_) refreshCommands();
  });
  connect(ComboData, &QComboBox::textActivated, this, [this] { nameChosen(); });
  for (const ZEMnumeric* field : {ValStartOctet, ValStartBit})
    connect(field, &ZEMnumeric::Change, this, [this] { numberEdited(); });
  connect(CheckLittleEndian, &QCheckBox::clicked, this, [this] { OnDataPosEdited(); });
  connect(CBadd, &QPushButton::clicked, this, [this] { guarded([this] { addOrModify(); }); });
  connect(DisplayRep, &DisplayResponse::MouseDown, this,
          [this](int byte, int cell, int button, int) { bitPressed(byte, cell, button); });
  ClearDataPosScreen();
  setAdd(true);
}

void PositionPane::makeControls() {
  DisplayRep = named<DisplayResponse>("DisplayRep", this);
  TBPosData = named<QToolBar>("TBPosData", this);
  TBPosData->setIconSize(QSize(20, 20));
  ComboData = named<QComboBox>("ComboData", this);
  ComboData->setMaxVisibleItems(20);
  ComboData->setFocusPolicy(Qt::StrongFocus); // not by the wheel, which passes over it
  ComboData->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  ComboData->setMinimumContentsLength(18);
  // Thousands of names are not to be measured one by one.
  if (auto* names = qobject_cast<QListView*>(ComboData->view())) names->setUniformItemSizes(true);
  ValStartOctet = named<ZEMnumeric>("ValStartOctet", this);
  ValStartBit = named<ZEMnumeric>("ValStartBit", this);
  for (ZEMnumeric* field : {ValStartOctet, ValStartBit}) {
    field->setRangeChecking(true);
    field->setDiscrete(true);
    field->setDiscreteBase(0);
    field->setDiscreteInterval(1);
    field->setMaximumWidth(110);
  }
  ValStartOctet->SetMinMax(1, std::numeric_limits<std::int32_t>::max());
  ValStartBit->SetMinMax(0, 7);
  ValStartBit->setBaseButtonVisible(false);
  CheckLittleEndian = button<QCheckBox>("CheckLittleEndian", "Little Endian (f - F)", this);
  CBadd = named<QPushButton>("CBadd", this);
  CBadd->setToolTip(QStringLiteral("Add new data"));
  CBadd->setAutoDefault(false);
  LVposdata = new ListView(
      {{.key = "dataname", .caption = "Data name", .width = 190},
       {.key = "startbyte", .caption = "Start byte", .width = 80},
       {.key = "bitoffset", .caption = "Offset bit", .width = 75},
       {.key = "numberofbits", .caption = "Numbers bits", .sort = SortType::Number, .width = 90},
       {.key = "ref", .caption = "Ref", .width = 130},
       {.key = "device", .caption = "Device", .width = 130}},
      {.text =
           [this](RowTag tag, int column) {
             const PositionRow* row = rowOf(tag);
             return row ? row->cells[static_cast<std::size_t>(column)] : std::string();
           },
       .look =
           [this](RowTag tag) {
             RowLook look;
             const PositionRow* row = rowOf(tag);
             if (!row) return look;
             if (row->unknown || row->outside) look.colour = faultRed;
             look.bold = row->outside;
             look.toolTip = row->toolTip;
             return look;
           },
       .cellLook =
           [this](RowTag tag, int column) {
             CellLook look;
             const PositionRow* row = rowOf(tag);
             if (!row) return look;
             if (column == PositionRefColumn) look.toolTip = row->refToolTip;
             if (column != PositionDeviceColumn) return look;
             look.toolTip = row->deviceToolTip;
             look.colour = row->deviceColour;
             if (row->deviceColour) look.bold = row->deviceBold;
             return look;
           }},
      this);
  LVposdata->setObjectName(QStringLiteral("LVposdata"));
  LVposdata->setHeaderSorts(true);
}

void PositionPane::layOut() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(4);
  rows->addWidget(DisplayRep);
  TBPosData->layout()->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(TBPosData);
  auto* placement = new QHBoxLayout;
  placement->addWidget(caption("lblData", "Data :", ComboData, this));
  placement->addWidget(ComboData, 1);
  placement->addWidget(caption("lblStartOctet", "Start byte", ValStartOctet, this));
  placement->addWidget(ValStartOctet);
  placement->addWidget(caption("lblStartBit", "Offset bit", ValStartBit, this));
  placement->addWidget(ValStartBit);
  placement->addWidget(CheckLittleEndian);
  placement->addWidget(CBadd);
  rows->addLayout(placement);
  rows->addWidget(LVposdata, 1);
  LVposdata->setMinimumHeight(90);
}

void PositionPane::retranslate() {
  const CMultiLangEx& texts = language::global();
  DisplayRep->setAccessibleName(
      qs(texts.getMultilangMessageDefault("Bits of the frame", "DISPLAYRESPONSE/MSG/name/text")));
  LVposdata->setAccessibleName(qs(
      texts.getMultilangMessageDefault("Data in the frame", "REQUESTS/MSG/LVposdata/name/text")));
  // Captions are longer in some languages.
  for (int column = 0; column < PositionColumns; ++column)
    LVposdata->setColumnWidth(column, std::max(LVposdata->columnWidth(column),
                                               LVposdata->header()->sectionSizeHint(column)));
  setAdd(isAdding());
  if (renewTexts() && isOutside()) host_.warnOutside(outsideWarning(host_.sentShown()));
}

void PositionPane::refreshDatas() {
  const EditState::Loading loading = edits_.load();
  const QString shown = ComboData->currentText();
  QStringList names;
  const OmnikorLibXml* database = host_.openDatabase();
  if (database && database->ActiveTarget && database->ActiveTarget->datas())
    for (const DataItem* item : *database->ActiveTarget->datas())
      names << qs(item->dataName());
  ComboData->clear();
  ComboData->addItems(names);
  ComboData->setCurrentIndex(shown.isEmpty() ? -1 : ComboData->findText(shown));
}

void PositionPane::setLastDataName(const std::string& name) {
  lastDataName_ = name;
  shownName_.clear();
}

void PositionPane::setRows(std::vector<PositionRow> rows) {
  rows_ = std::move(rows);
  rowOfTag_.clear();
  for (std::size_t row = 0; row < rows_.size(); ++row)
    rowOfTag_[rows_[row].position] = row;
}

bool PositionPane::isOutside() const {
  return std::any_of(rows_.begin(), rows_.end(),
                     [](const PositionRow& row) { return row.outside; });
}

const PositionRow* PositionPane::rowOf(RowTag tag) const {
  const auto found = rowOfTag_.find(tag);
  return found == rowOfTag_.end() ? nullptr : &rows_[found->second];
}

void PositionPane::fillView(const RequestItem& request) {
  const bool sent = host_.sentShown();
  DisplayRep->setNumberBytes(frameLength(request, sent));
  const FrameBuffer* frame = sent ? request.RequestBytes.get() : request.ReplyBytes.get();
  if (!frame) return;
  const int count = std::min(frame->Length(), DisplayRep->NumberBytes());
  for (int i = 0; i < count; ++i)
    DisplayRep->SetByteBinaryValue(i + 1, frame->bytes()[static_cast<std::size_t>(i)]);
}

void PositionPane::setScreen_DataPos() {
  const EditState::Loading loading = edits_.load();
  const RequestItem* request = host_.activeRequest();
  setRows(request ? positionRows(target(), *request, host_.sentShown())
                  : std::vector<PositionRow>());
  drawView();
  showRows();
}

/// The frame and the bits of the placed data, as the items are.
void PositionPane::drawView() {
  preview_ = nullptr;
  drawn_.clear();
  const RequestItem* request = host_.activeRequest();
  DisplayRep->setForeColor(normalFore);
  DisplayRep->setBackColor(normalBack);
  if (request) {
    fillView(*request);
  } else {
    DisplayRep->setNumberBytes(0);
  }
  for (const PositionRow& row : rows_) {
    const DataPositionItem& position = *row.position;
    const DataItem* item = position.data();
    if (!item || row.outside) continue;
    try {
      drawn_[&position] =
          DisplayRep->AddData(item->NumberBits, position.StartOctet, position.StartBit,
                              position.LittleEndian, {}, false, item->dataName());
    } catch (const Failure&) {
      // A data that starts where no bit is has no place on the view.
    }
  }
  if (isOutside()) {
    DisplayRep->setForeColor(warningFore);
    DisplayRep->setBackColor(warningOrange);
    host_.warnOutside(outsideWarning(host_.sentShown()));
  }
  DisplayRep->Refresh();
}

void PositionPane::showRows() {
  std::vector<RowTag> tags;
  DataPositionItem *wanted = nullptr, *last = nullptr;
  for (const PositionRow& row : rows_) {
    tags.push_back(row.position);
    if (row.position->dataName == shownName_) wanted = row.position;
    if (row.position->dataName == lastDataName_) last = row.position;
  }
  if (!wanted) wanted = last;
  {
    filling_ = true;
    LVposdata->rows().setRows(std::move(tags));
    // The order in which they come, whatever header was clicked before; the header tells it.
    SortListViewColumn(*LVposdata, PositionByteColumn + 1, 0, 0);
    if (!wanted && !rows_.empty()) wanted = rows_.front().position;
    if (wanted) LVposdata->selectOnly(wanted);
    filling_ = false;
  }
  if (wanted) {
    choose(wanted);
  } else {
    ClearDataPosScreen();
    setAdd(true);
  }
  refreshCommands();
}

void PositionPane::rowChosen() {
  if (auto* position = static_cast<DataPositionItem*>(LVposdata->currentTag())) {
    if (position != active_) choose(position);
    chosenByPress_ = true;
  }
  refreshCommands();
}

/// A click chooses the current row too: its bits may be scrolled away, or another name chosen.
void PositionPane::rowClicked() {
  auto* position = static_cast<DataPositionItem*>(LVposdata->currentTag());
  if (position && !chosenByPress_) choose(position);
  chosenByPress_ = false;
}

void PositionPane::choose(DataPositionItem* position) {
  const bool pending = edits_.changed();
  TestAndConfirmChangeDataPos();
  if (pending)
    renewRows();
  else if (isAdding())
    drawView(); // with the data in whose place another one was shown
  active_ = position;
  shownName_ = position->dataName;
  selectPreview();
  if (preview_) DisplayRep->SetVisibleByte(position->StartOctet);
  DisplayRep->Refresh();
  SetDataPosToScreen();
  setAdd(position->data() == nullptr);
  refreshCommands();
}

/// The rows as their items are, each at its place. False without a request.
bool PositionPane::renewTexts() {
  const RequestItem* request = host_.activeRequest();
  if (!request) return false;
  setRows(positionRows(target(), *request, host_.sentShown()));
  LVposdata->rows().refreshAll();
  return true;
}

/// What was typed has been taken over or dropped: rows and bits show which. The rows stay where
/// they are, as one of them is being clicked.
void PositionPane::renewRows() {
  if (!renewTexts()) return;
  host_.refreshRequest();
  drawView();
}

/// Asks about what was typed before something else happens to the placed data.
void PositionPane::settle() {
  if (edits_.changed()) choose(active_);
}

void PositionPane::selectPreview() {
  DisplayRep->UnselectAllData();
  const auto drawn = drawn_.find(active_);
  preview_ = drawn == drawn_.end() ? nullptr : drawn->second;
  if (preview_) preview_->Selected = true;
}

bool PositionPane::eventFilter(QObject* watched, QEvent* event) {
  // Asked before the list takes the press, as a box must not stand within it.
  if (event->type() == QEvent::MouseButtonPress && watched == LVposdata->viewport()) {
    settle();
    chosenByPress_ = false;
  }
  // Scrolling past the name must not choose another.
  if (event->type() == QEvent::Wheel && watched == ComboData && !ComboData->hasFocus()) {
    event->ignore();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void PositionPane::SetDataPosToScreen() {
  const EditState::Loading loading = edits_.load();
  const DataItem* item = active_->data(); // whose name may be written in another case
  const int place = ComboData->findText(qs(item ? item->dataName() : active_->dataName),
                                        Qt::MatchExactly | Qt::MatchCaseSensitive);
  ComboData->setCurrentIndex(place);
  setNumber(*ValStartOctet, active_->StartOctet);
  setNumber(*ValStartBit, active_->StartBit);
  CheckLittleEndian->setChecked(active_->LittleEndian);
  if (place >= 0) return;
  const CMultiLangEx& texts = language::global();
  person_.message(
      {"REQUESTS/MSG/SetDataPosToScreen/text",
       texts.getMultilangMessageDefault("Internal error", "REQUESTS/MSG/SetDataPosToScreen/title"),
       texts.getMultilangMessageDefault("Unknown Data '{0}' in combobox",
                                        "REQUESTS/MSG/SetDataPosToScreen/text", active_->dataName),
       platform::Buttons::Ok, platform::Icon::Critical});
}

void PositionPane::ClearDataPosScreen() {
  const EditState::Loading loading = edits_.load();
  preview_ = nullptr;
  setNumber(*ValStartOctet, 0);
  setNumber(*ValStartBit, 0);
  CheckLittleEndian->setChecked(false);
  active_ = nullptr;
}

void PositionPane::drop() {
  edits_.clear();
  ClearDataPosScreen();
}

void PositionPane::leave() {
  drop();
  shownName_.clear();
}

PositionFields PositionPane::fields() const {
  return {u8(ComboData->currentText()), static_cast<std::int32_t>(ValStartOctet->valueOfText()),
          std::clamp(static_cast<std::int32_t>(ValStartBit->valueOfText()), 0, 7),
          CheckLittleEndian->isChecked()};
}

void PositionPane::setAdd(bool add) {
  const CMultiLangEx& texts = language::global();
  CBadd->setProperty("tag", add ? "ADD" : "MOD");
  CBadd->setText(
      qs(add ? texts.getMultilangMessageDefault("Add", "REQUESTS/CONTROLS/CBadd/caption")
             : texts.getMultilangMessageDefault("Mod", "REQUESTS/MSG/CBadd/Mod/caption")));
  refreshCommands();
}

/// The fields hold another placement than the item.
bool PositionPane::isTyped() const {
  return ValStartOctet->valueOfText() != active_->StartOctet ||
         ValStartBit->valueOfText() != active_->StartBit ||
         CheckLittleEndian->isChecked() != active_->LittleEndian;
}

void PositionPane::numberEdited() {
  if (edits_.loading()) return;
  if (active_ && !isOtherChosen() && !edits_.changed() && !isTyped()) return;
  OnDataPosEdited();
}

void PositionPane::OnDataPosEdited() {
  if (edits_.loading()) return;
  if (active_ && !isOtherChosen() && !edits_.changed()) {
    edits_.change();
    host_.positionsChanged(ListPage::Edited);
    refreshCommands();
  }
  PreviewDataPos();
}

void PositionPane::PreviewDataPos() {
  if (!preview_ && isAdding()) addPreview();
  if (!preview_) return;
  const PositionFields now = fields();
  preview_->StartByte = std::max(now.StartOctet, 1); // an empty field shows 0
  preview_->OffsetBit = now.StartBit;
  preview_->LittleEndian = now.LittleEndian;
  DisplayRep->SetVisibleByte(now.StartOctet);
  DisplayRep->Refresh();
}

void PositionPane::nameChosen() {
  if (active_ && active_->data() && active_->data() == chosenData()) {
    // Back from the name of a data that was to be added; what is typed is of this one now.
    if (isAdding()) {
      drawView();
      selectPreview();
      setAdd(false);
      if (isTyped())
        OnDataPosEdited();
      else
        PreviewDataPos();
    }
    return;
  }
  // What was typed before is of the row, and asked about without the other name.
  const int chosen = ComboData->currentIndex();
  ComboData->setCurrentIndex(-1);
  settle();
  ComboData->setCurrentIndex(chosen);
  setAdd(true);
  drawn_.erase(active_);
  if (preview_) DisplayRep->datas()->deleteItem(preview_);
  preview_ = nullptr;
  DisplayRep->UnselectAllData();
  PreviewDataPos();
  DisplayRep->Refresh();
}

bool PositionPane::isAdding() const {
  return CBadd->property("tag").toString() == QLatin1String("ADD");
}

/// The fields are those of a data that is to be added, not those of the chosen row.
bool PositionPane::isOtherChosen() const {
  return isAdding() && ComboData->currentIndex() >= 0;
}

/// The data whose name stands in the fields.
const DataItem* PositionPane::chosenData() const {
  return host_.activeRequest() ? target().datas()->ItemName(u8(ComboData->currentText())) : nullptr;
}

/// Shows where the chosen data would lie.
void PositionPane::addPreview() {
  const PositionFields now = fields();
  const DataItem* item = chosenData();
  if (!item) return;
  try {
    preview_ = DisplayRep->AddData(item->NumberBits, std::max(now.StartOctet, 1), now.StartBit,
                                   now.LittleEndian, {}, true, item->dataName());
  } catch (const Failure&) {
    // Behind the end of the frame it shows nothing.
  }
}

void PositionPane::GetDataPosFromScreen() {
  if (!active_ || isOtherChosen()) return;
  {
    const EditState::Loading loading = edits_.load();
    ValStartOctet->commitText();
    ValStartBit->commitText();
  }
  // A number that nobody touched stays that of the item, even outside of what can be typed.
  PositionFields taken = fields();
  taken.StartOctet = static_cast<std::int32_t>(ValStartOctet->value());
  taken.StartBit = static_cast<std::int32_t>(ValStartBit->value());
  const RequestItem* request = host_.activeRequest();
  applyFields(taken, host_.sentShown(), *active_, request ? request->requestName : std::string(),
              person_);
}

bool PositionPane::TestAndConfirmChangeDataPos() {
  if (!edits_.changed()) return false;
  const CMultiLangEx& texts = language::global();
  const platform::Answer answer = person_.message(
      {"REQUESTS/MSG/TestAndConfirmChangeDataPos/text",
       texts.getMultilangMessageDefault("Confirm change",
                                        "REQUESTS/MSG/TestAndConfirmChangeDataPos/title"),
       texts.getMultilangMessageDefault("Data has been modified. Save change?",
                                        "REQUESTS/MSG/TestAndConfirmChangeDataPos/text"),
       platform::Buttons::YesNo, platform::Icon::None});
  edits_.clear();
  if (answer != platform::Answer::Yes) {
    host_.cancelled();
    return false;
  }
  GetDataPosFromScreen();
  host_.saved();
  return true;
}

} // namespace kelmar
