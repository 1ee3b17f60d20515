// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_data_list.h"

#include "base/conversions.h"
#include "controls/named.h"
#include "controls/silence_children.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/data_description.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

std::string textOf(const KeyedText& text) {
  return language::global().getMultilangMessageDefault(std::string(text.text), text.key);
}

} // namespace

UceDataList::UceDataList(platform::Person& person, QWidget* parent)
    : QWidget(parent), person_(person) {
  setProperty(desktop::ownTextsProperty, true);
  makeControls();
  makeCommands();
  refresh();
}

UceDataList::~UceDataList() {
  silenceChildren(*this);
  LVmain->rows().setRows({}); // its functions know this control
}

void UceDataList::makeControls() {
  TBMain = new QToolBar(this);
  TBMain->setObjectName(QStringLiteral("TBMain"));
  TBMain->setIconSize(QSize(18, 18));
  LVmain =
      new ListView({{.key = "value", .caption = "Value", .sort = SortType::Number, .width = 90},
                    {.key = "label", .caption = "Text"}},
                   {.text =
                        [](RowTag tag, int column) {
                          const auto& row = *static_cast<ValueRow*>(tag);
                          return column == 0 ? std::to_string(row.value) : row.label;
                        },
                    .look =
                        [this](RowTag tag) {
                          RowLook look;
                          const std::int32_t value = static_cast<ValueRow*>(tag)->value;
                          if (data_) look.toolTip = hexTip(value, data_->NumberBits);
                          return look;
                        }},
                   this);
  LVmain->setObjectName(QStringLiteral("LVmain"));
  ValRange = new ZEMnumeric(this);
  ValRange->setObjectName(QStringLiteral("ValRange"));
  ValRange->setRangeChecking(true);
  ValRange->setDiscrete(true);
  ValRange->setDiscreteInterval(1);
  setRange(0, true);
  ValText = textField("ValText", this);
  CBaddNew = new QPushButton(QStringLiteral("Add"), this);
  CBaddNew->setObjectName(QStringLiteral("CBaddNew"));
  Infos = new QPushButton(QStringLiteral("Value specific documentation ..."), this);
  Infos->setObjectName(QStringLiteral("Infos"));

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(TBMain);
  rows->addWidget(LVmain, 1);
  auto* fields = new QHBoxLayout;
  fields->addWidget(ValRange);
  fields->addWidget(ValText, 1);
  fields->addWidget(CBaddNew);
  rows->addLayout(fields);
  rows->addWidget(Infos, 0, Qt::AlignLeft);

  connect(ValRange, &ZEMnumeric::Change, this, [this] { fieldChanged(); });
  connect(ValText, &QLineEdit::textChanged, this, [this] { fieldChanged(); });
  connect(ValText, &QLineEdit::returnPressed, this, [this] {
    if (shown_ && itemChanged_) changeItem();
  });
  connect(CBaddNew, &QPushButton::clicked, this, [this] { addNew(); });
  connect(Infos, &QPushButton::clicked, this, [this] { editInfo(); });
  connect(LVmain, &ListView::currentMoved, this, [this] { rowChosen(); });
  LVmain->viewport()->installEventFilter(this);
  connect(LVmain, &ListView::selectionMoved, this, [this] {
    rowChosen();
    refresh();
  });
  LVmain->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(LVmain, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
    popUpMenu(*LVmain, QStringLiteral("PopupRange"), LVmain->viewport()->mapToGlobal(where), menu(),
              [this](const MenuEntry& entry) { chosen(entry); });
  });
}

void UceDataList::makeCommands() {
  const auto may = [this] { return valueListControls(state()); };
  std::vector<Command> table{
      {.key = "cancel",
       .toolTip = "Cancel changes",
       .icon = "cancel",
       .run = [this] { showRow(shown_); },
       .enabled = [may] { return may().cancel; }},
      {.key = "save",
       .toolTip = "Valid changes",
       .icon = "valid",
       .run = [this] { changeItem(); },
       .enabled = [may] { return may().save; }},
      {.key = "cut",
       .toolTip = "Cut selected items (Ctrl X)",
       .icon = "cut",
       .run = [this] { cut(); },
       .enabled = [may] { return may().cut; },
       .shortcuts = {QKeySequence(QKeySequence::Cut), QKeySequence(Qt::Key_Delete)}},
      {.key = "copy",
       .toolTip = "Copy selected items to clipboard (Ctrl C)",
       .icon = "copy",
       .run = [this] { copy(false); },
       .enabled = [may] { return may().copy; },
       .shortcuts = {QKeySequence(QKeySequence::Copy)}},
      {.key = "paste",
       .toolTip = "Paste items from clipboard (Ctrl V)",
       .icon = "paste",
       .run = [this] { paste(); },
       .enabled = [may] { return may().paste; },
       .shortcuts = {QKeySequence(QKeySequence::Paste)}},
      {.key = "selectAll",
       .run = [this] { ListViewSelectAll(*LVmain); },
       .shortcuts = {QKeySequence(QKeySequence::SelectAll)}}};
  // The keys belong to the list: in the fields they are those of any text.
  commands_ = new CommandTable(LVmain, std::move(table));
  commands_->fillToolBar(*TBMain, {"cancel", "save", "", "cut", "copy", "paste"});
}

void UceDataList::InitControl() {
  desktop::TranslateControl(*this, language::global(), "DATALIST/CONTROLS");
  // The fields stand below the columns that they belong to, without captions of their own.
  ValRange->setAccessibleName(LVmain->model()->headerData(0, Qt::Horizontal).toString());
  ValText->setAccessibleName(LVmain->model()->headerData(1, Qt::Horizontal).toString());
  LVmain->setAccessibleName(qs(textOf({"DATALIST/MSG/LVmain/name", "Values"})));
}

void UceDataList::setLang(const std::string&) {
  InitControl();
}

void UceDataList::setData(DataItem* data) {
  data_ = data;
  shown_ = nullptr;
  values_.bind(data);
  fillRows(nullptr);
}

void UceDataList::setRange(int numberBits, bool isSigned) {
  constexpr int most = 32;
  const bool any = numberBits < 1 || numberBits > most;
  const double half = std::ldexp(1.0, (any ? most : numberBits) - 1);
  least_ = any || isSigned ? -half : 0;
  greatest_ = std::min(any || isSigned ? half - 1 : 2 * half - 1, 2147483647.0);
  applyRange();
}

void UceDataList::applyRange() {
  // The value of the row in the fields is not to change by walking through its field.
  const double shown = shown_ ? shown_->value : 0;
  ValRange->SetMinMax(std::min(least_, shown), std::max(greatest_, shown));
}

bool UceDataList::eventFilter(QObject* watched, QEvent* event) {
  // Asked before the list takes the press, as a box must not stand within it. The fields show the
  // row again, also when the click goes to the same one.
  if (watched == LVmain->viewport() && event->type() == QEvent::MouseButtonPress && hasTyping()) {
    TestAndConfirmChange();
    showRow(shown_);
  }
  return QWidget::eventFilter(watched, event);
}

void UceDataList::fillRows(ValueRow* current) {
  std::vector<RowTag> tags;
  for (const auto& row : values_.rows())
    tags.push_back(row.get());
  loading_ = true;
  LVmain->rows().setRows(std::move(tags));
  if (current) LVmain->selectOnly(current);
  loading_ = false;
  showRow(current);
}

void UceDataList::SaveDataItems() {
  if (data_) values_.SaveDataItems(*data_);
}

bool UceDataList::hasTyping() const {
  if (!data_ || !itemChanged_) return false;
  // A number alone, without a text, is no value that could be added.
  return shown_ || !info_.empty() || !ValText->text().trimmed().isEmpty();
}

UceDataList::Typed UceDataList::askTyping() {
  if (!hasTyping()) return Typed::Nothing;
  constexpr char changedKey[] = "DATALIST/MSG/TestAndConfirmChange/text";
  const CMultiLangEx& texts = language::global();
  const platform::Box question{
      changedKey,
      texts.getMultilangMessageDefault("Confirm", "DATALIST/MSG/TestAndConfirmChange/title"),
      texts.getMultilangMessageDefault("Item has been modified. Save change ?", changedKey),
      platform::Buttons::YesNo, platform::Icon::Question};
  if (person_.message(question) != platform::Answer::Yes) {
    showRow(shown_);
    return Typed::Dropped;
  }
  return (shown_ ? changeItem() : addNew()) ? Typed::Taken : Typed::Refused;
}

bool UceDataList::TestAndConfirmChange() {
  const Typed typed = askTyping();
  if (typed == Typed::Nothing) return false;
  if (typed == Typed::Refused) showRow(shown_);
  CBaddNew->setEnabled(true); // until the next row is shown, on purpose
  return typed == Typed::Taken;
}

bool UceDataList::finishTyping() {
  return askTyping() != Typed::Refused;
}

std::vector<ValueRow*> UceDataList::selectedRows() const {
  std::vector<ValueRow*> rows;
  for (const RowTag tag : LVmain->selectedTags())
    rows.push_back(static_cast<ValueRow*>(tag));
  return rows;
}

ValueListState UceDataList::state() const {
  // One selected row means the same as many, and these need not be counted at every key.
  return {data_ != nullptr, LVmain->selectionModel()->hasSelection() ? 1 : 0, itemChanged_};
}

ValueRow* UceDataList::currentRow() const {
  return static_cast<ValueRow*>(LVmain->currentTag());
}

void UceDataList::rowChosen() {
  // The focus alone makes a row the current one, and does not choose it.
  const QModelIndex current = LVmain->currentIndex();
  if (loading_ || currentRow() == shown_ || !LVmain->selectionModel()->isSelected(current)) return;
  ValueRow* row = currentRow();
  TestAndConfirmChange();
  showRow(row);
}

void UceDataList::showRow(ValueRow* row) {
  shown_ = row;
  loading_ = true;
  applyRange();
  ValRange->setvalue(row ? row->value : 0);
  ValText->setText(row ? qs(row->label) : QString());
  info_ = row ? row->info : std::string();
  loading_ = false;
  itemChanged_ = false;
  refresh();
}

void UceDataList::fieldChanged() {
  if (loading_) return;
  itemChanged_ = true;
  refresh();
}

void UceDataList::refresh() {
  if (!commands_) return;
  commands_->refresh();
  CBaddNew->setEnabled(valueListControls(state()).CBaddNew);
  Infos->setEnabled(data_ != nullptr);
  emit typingMoved();
}

bool UceDataList::changeItem() {
  if (!shown_) return false;
  ValRange->commitText();
  if (!values_.changeItem(*shown_, toInt32(ValRange->value()), u8(ValText->text()), info_, person_))
    return false;
  LVmain->rows().refresh(shown_);
  showRow(shown_);
  tellChange();
  return true;
}

bool UceDataList::addNew() {
  ValRange->commitText();
  ValueRow* added = values_.add(toInt32(ValRange->value()), u8(ValText->text()), info_, person_);
  if (!added) return false;
  loading_ = true;
  // Without a current row either: a click on the one that was current is to show it again.
  LVmain->selectionModel()->clear();
  LVmain->rows().insertTag(added);
  LVmain->scrollTo(LVmain->rows().index(LVmain->rows().rowCount() - 1, 0));
  loading_ = false;
  showRow(nullptr);
  ValRange->setFocus();
  tellChange();
  return true;
}

void UceDataList::editInfo() {
  const QString title =
      qs(textOf({"DATALIST/MSG/Infos/title", "Value"})) + QLatin1Char(' ') + ValRange->text();
  frmDataDescription dialog(title, info_, this);
  if (dialog.exec() != QDialog::Accepted || dialog.text() == info_) return;
  info_ = dialog.text();
  fieldChanged();
}

void UceDataList::cut() {
  const std::vector<ValueRow*> rows = selectedRows();
  if (rows.empty()) return;
  // What stands in the fields of a row that goes is asked about with the row.
  const bool typingGoes = shown_ && std::find(rows.begin(), rows.end(), shown_) != rows.end();
  if (!typingGoes && !finishTyping()) return;
  // What cannot be copied is told, and can be deleted all the same.
  std::string text;
  try {
    text = copyValues(rows);
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
  }
  if (!values_.cut(rows, person_)) return;
  if (!text.empty()) desktop::setClipboardText(text);
  fillRows(nullptr);
  tellChange();
}

void UceDataList::copy(bool asText) {
  const std::vector<ValueRow*> rows = selectedRows();
  if (rows.empty()) return;
  try {
    bool broken = false;
    desktop::setClipboardText(asText ? copyValuesText(rows, broken) : copyValues(rows));
    emit textCopied(broken);
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
  }
}

void UceDataList::paste() {
  if (!data_ || !finishTyping() || !values_.paste(desktop::clipboardText(), person_)) return;
  fillRows(nullptr);
  tellChange();
}

void UceDataList::tellChange() {
  emit listChanged();
}

std::vector<MenuEntry> UceDataList::menu() const {
  const bool some = LVmain->selectionModel()->hasSelection();
  return {{"PopupRcut", textOf({"DATALIST/CONTROLS/PopupRcut/caption", "Cut"}),
           MenuEntry::Kind::Command, some},
          {"PopupRcopy", textOf({"DATALIST/CONTROLS/PopupRcopy/caption", "Copy"}),
           MenuEntry::Kind::Command, some},
          {"PopupRCopyText", textOf({"DATALIST/CONTROLS/PopupRCopyText/caption", "Copy text"}),
           MenuEntry::Kind::Command, some},
          {"PopupRpaste", textOf({"DATALIST/CONTROLS/PopupRpaste/caption", "Paste"}),
           MenuEntry::Kind::Command, data_ != nullptr},
          {"PopupRNormalize",
           textOf({"DATALIST/CONTROLS/PopupRNormalize/caption", "Normalize labels"}),
           MenuEntry::Kind::Command, some},
          {"PopupRhelp", textOf({"DATALIST/CONTROLS/PopupRhelp/caption", "Help"})}};
}

void UceDataList::chosen(const MenuEntry& entry) {
  if (entry.key == "PopupRcut") {
    cut();
  } else if (entry.key == "PopupRNormalize") {
    if (!values_.normalize(selectedRows(), person_)) return;
    LVmain->rows().refreshAll();
    if (!itemChanged_) showRow(shown_);
    tellChange();
  } else if (entry.key == "PopupRcopy" || entry.key == "PopupRCopyText") {
    copy(entry.key == "PopupRCopyText");
  } else if (entry.key == "PopupRpaste") {
    paste();
  } else if (entry.key == "PopupRhelp") {
    emit help();
  }
}

} // namespace kelmar
