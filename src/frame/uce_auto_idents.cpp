// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/uce_auto_idents.h"

#include "controls/named.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/rules/uds_identification.h"
#include "frame/uce_selector_fields.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QToolBar>

#include <unordered_set>

namespace kelmar {

using desktop::qs;
using desktop::u8;

UceAutoIdents::UceAutoIdents(platform::Person& person, QWidget* parent)
    : QWidget(parent), person_(person), items_(std::make_shared<AutoIdentItems>()) {
  setProperty(desktop::ownTextsProperty, true);
  makeControls();
  makeCommands();
  DisplayParam(nullptr);
}

void UceAutoIdents::makeControls() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  TBident = named<QToolBar>("TBident", this);
  TBident->setIconSize(QSize(20, 20));
  rows->addWidget(TBident);
  auto* database = new QHBoxLayout;
  txtDatabase = named<ShownField>("txtDatabase", this);
  database->addWidget(caption("LabelDatabase", "Database", txtDatabase, this));
  database->addWidget(txtDatabase, 1);
  rows->addLayout(database);
  LVident = new ListView(
      {{.key = "diagVersion", .caption = "Diag version", .width = 110},
       {.key = "supplier", .caption = "Supplier", .width = 100},
       {.key = "soft", .caption = "Soft", .width = 100},
       {.key = "version", .caption = "Version"}},
      {.text = [](RowTag tag,
                  int column) { return autoIdentCell(*static_cast<AutoIdentItem*>(tag), column); }},
      this);
  LVident->setObjectName(QStringLiteral("LVident"));
  LVident->setAccessibleName(QStringLiteral("Identifications"));
  rows->addWidget(LVident, 1);
  rows->addWidget(makeEntry());
  lbResult = named<QLabel>("lbResult", this);
  lbResult->setProperty(desktop::controlTypeProperty, QString()); // its text is computed
  lbResult->setTextFormat(Qt::PlainText);
  lbResult->setWordWrap(true);
  lbResult->setTextInteractionFlags(Qt::TextSelectableByMouse);
  rows->addWidget(lbResult);
  txdHref = named<ShownField>("txdHref", this);
  rows->addWidget(txdHref);

  connect(LVident, &ListView::currentMoved, this, [this] {
    showSearchResult({}, {});
    showRow();
  });
  connect(LVident, &QAbstractItemView::clicked, this, [this] {
    if (active()) showRow(); // the row that is shown already, too
  });
  connect(LVident, &ListView::selectionMoved, this, [this] {
    // A press and the keys move to a row before they select it.
    if (active() && active() != shownItem_) showRow();
    refresh();
  });
  LVident->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(LVident, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
    popUpMenu(*LVident, QStringLiteral("PopupAi"), LVident->viewport()->mapToGlobal(where),
              autoIdentMenu(state()), [this](const MenuEntry& entry) { chosen(entry); });
  });
}

QWidget* UceAutoIdents::makeEntry() {
  FRidentVal = named<QGroupBox>("FRidentVal", this);
  FRidentVal->setTitle(QStringLiteral("Identification"));
  ValIndiceDiag = named<ZEMnumeric>("ValIndiceDiag", FRidentVal);
  ValIndiceDiag->SetMinMax(0, largestDiagNumber);
  ValIndiceDiag->setRangeChecking(true);
  ValIndiceDiag->setDiscrete(true);
  ValIndiceDiag->setDiscreteInterval(1);
  ValCodeFour = named<QLineEdit>("ValCodeFour", FRidentVal);
  ValLogiciel = named<QLineEdit>("ValLogiciel", FRidentVal);
  ValVersion = named<QLineEdit>("ValVersion", FRidentVal);
  buttonAddNewAi = button<QPushButton>("buttonAddNewAi", "Add", FRidentVal);
  buttonAddNewAi->setToolTip(QStringLiteral("Add these values as a new row"));
  buttonAddNewAi->setAutoDefault(false);
  auto* grid = new QGridLayout(FRidentVal);
  grid->addWidget(caption("LabelIndiceDiag", "Diag version", ValIndiceDiag, FRidentVal), 0, 0);
  grid->addWidget(ValIndiceDiag, 0, 1);
  grid->addWidget(caption("LabelCodeFour", "Supplier", ValCodeFour, FRidentVal), 0, 2);
  grid->addWidget(ValCodeFour, 0, 3);
  grid->addWidget(caption("LabelLogiciel", "Soft", ValLogiciel, FRidentVal), 1, 0);
  grid->addWidget(ValLogiciel, 1, 1);
  grid->addWidget(caption("LabelVersion", "Version", ValVersion, FRidentVal), 1, 2);
  grid->addWidget(ValVersion, 1, 3);
  grid->addWidget(buttonAddNewAi, 2, 3, Qt::AlignRight);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  connect(buttonAddNewAi, &QPushButton::clicked, this, [this] { addNew(); });
  return FRidentVal;
}

void UceAutoIdents::makeCommands() {
  const auto enabled = [this](const char* key) {
    return [this, key = std::string(key)] { return isAutoIdentCommandEnabled(key, state()); };
  };
  commands_ = new CommandTable(this, {{.key = "save",
                                       .toolTip = "Save (Ctrl S)",
                                       .icon = "save",
                                       .run = [this] { save(); },
                                       .enabled = enabled("save"),
                                       .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_S)}},
                                      {.key = "cancel",
                                       .toolTip = "Cancel (Ctrl Z)",
                                       .icon = "cancel",
                                       .run = [this] { cancel(); },
                                       .enabled = enabled("cancel"),
                                       .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Z)}},
                                      {.key = "check",
                                       .toolTip = "Search the ECU file of this identification",
                                       .icon = "search",
                                       .run = [this] { check(); },
                                       .enabled = enabled("check")}});
  // In the fields these keys are those of any text.
  listCommands_ = new CommandTable(
      LVident, {{.key = "cut",
                 .toolTip = "Cut (Ctrl X)",
                 .icon = "cut",
                 .run = [this] { cut(); },
                 .enabled = enabled("cut"),
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_X), QKeySequence(Qt::Key_Delete)}},
                {.key = "copy",
                 .toolTip = "Copy (Ctrl C)",
                 .icon = "copy",
                 .run = [this] { copy(); },
                 .enabled = enabled("copy"),
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_C)}},
                {.key = "paste",
                 .toolTip = "Paste (Ctrl V)",
                 .icon = "paste",
                 .run = [this] { paste(); },
                 .enabled = enabled("paste"),
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_V)}},
                {.key = "selectAll",
                 .run = [this] { ListViewSelectAll(*LVident); },
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_A)}}});
  commands_->fillToolBar(*TBident, {"save", "cancel", ""});
  listCommands_->fillToolBar(*TBident, {"cut", "copy", "paste", ""});
  commands_->fillToolBar(*TBident, {"check"});
}

void UceAutoIdents::InitControl() {
  desktop::TranslateControl(*this, language::global(), "AUTOIDENT/CONTROLS");
  LVident->setAccessibleName(FRidentVal->title());
}

void UceAutoIdents::setLang(const std::string&) {
  InitControl();
}

QString UceAutoIdents::databaseDescription() const {
  return txtDatabase->text();
}

void UceAutoIdents::setDatabaseDescription(const QString& text) {
  txtDatabase->setText(text);
  txtDatabase->setCursorPosition(0);
}

void UceAutoIdents::DisplayParam(OmnikorLibXml* database) {
  database_ = database;
  const auto previous = items_; // the list shows it until it is filled anew
  items_ = target() && target()->AutoIdents ? target()->AutoIdents->clone(target())
                                            : std::make_shared<AutoIdentItems>();
  fillList(items_->Count() > 0 ? items_->Item(1) : nullptr);
  FRidentVal->setEnabled(target() != nullptr);
}

void UceAutoIdents::GetDataFromScreen() {
  if (!target() || (!target()->AutoIdents && items_->Count() == 0)) return;
  target()->AutoIdents = items_->clone(target());
}

void UceAutoIdents::showSearchResult(const std::string& text, const std::string& href) {
  lbResult->setText(qs(text));
  txdHref->setText(qs(href));
  txdHref->setVisible(!href.empty());
  txdHref->setAccessibleName(qs(text));
}

std::vector<QWidget*> UceAutoIdents::tabOrder() const {
  std::vector<QWidget*> order;
  for (QAction* action : TBident->actions())
    order.push_back(TBident->widgetForAction(action));
  order.insert(order.end(), {txtDatabase, LVident, ValIndiceDiag, ValCodeFour, ValLogiciel,
                             ValVersion, buttonAddNewAi, txdHref});
  return order;
}

AutoIdentPageState UceAutoIdents::state() const {
  return {target() != nullptr, active() != nullptr,
          static_cast<int>(LVident->selectedTags().size())};
}

AutoIdentSelection UceAutoIdents::selected() const {
  AutoIdentSelection items;
  for (const RowTag tag : LVident->selectedTags())
    items.push_back(static_cast<AutoIdentItem*>(tag));
  return items;
}

AutoIdentItem* UceAutoIdents::active() const {
  const QModelIndex row = LVident->currentIndex();
  if (!row.isValid() || !LVident->selectionModel()->isSelected(row)) return nullptr;
  return static_cast<AutoIdentItem*>(LVident->currentTag());
}

void UceAutoIdents::fillList(RowTag chosen) {
  std::vector<RowTag> tags;
  for (AutoIdentItem* item : *items_)
    tags.push_back(item);
  LVident->rows().setRows(std::move(tags));
  if (chosen) LVident->selectOnly(chosen);
  showSearchResult({}, {});
  showRow();
}

void UceAutoIdents::showRow() {
  shownItem_ = active();
  const AutoIdentEntry entry = shownItem_ ? entryOf(*shownItem_) : AutoIdentEntry{};
  // A number of a file may lie outside what can be typed; it is shown as it is.
  ValIndiceDiag->setRangeChecking(false);
  ValIndiceDiag->setvalue(entry.ValIndiceDiag);
  ValIndiceDiag->setRangeChecking(true);
  ValCodeFour->setText(qs(entry.ValCodeFour));
  ValLogiciel->setText(qs(entry.ValLogiciel));
  ValVersion->setText(qs(entry.ValVersion));
  for (QLineEdit* field : {ValCodeFour, ValLogiciel, ValVersion})
    field->setCursorPosition(0);
  shown_ = entryOfScreen();
  refresh();
}

AutoIdentEntry UceAutoIdents::entryOfScreen() const {
  return {static_cast<std::int32_t>(ValIndiceDiag->valueOfText()), u8(ValCodeFour->text()),
          u8(ValLogiciel->text()), u8(ValVersion->text())};
}

bool UceAutoIdents::entryPending() const {
  return target() && entryOfScreen() != shown_;
}

void UceAutoIdents::refresh() {
  buttonAddNewAi->setEnabled(isAutoIdentCommandEnabled("buttonAddNewAi", state()));
  if (commands_) commands_->refresh();
  if (listCommands_) listCommands_->refresh();
}

AutoIdentEntry UceAutoIdents::readEntry() const {
  ValIndiceDiag->commitText();
  return entryOfScreen();
}

bool UceAutoIdents::checkEntry(const AutoIdentEntry& entry) {
  const auto bad = CheckUserInput(entry, usesUdsIdentification(protocol_, *target()));
  if (!bad) return true;
  person_.message(bad->box);
  QLineEdit* fields[] = {ValCodeFour, ValLogiciel, ValVersion};
  QLineEdit* field = fields[static_cast<std::size_t>(bad->field)];
  field->setFocus();
  field->selectAll();
  return false;
}

bool UceAutoIdents::ApplyEntry() {
  const AutoIdentEntry entry = readEntry();
  if (!checkEntry(entry)) return false;
  AutoIdentItem* item = active();
  if (!item) {
    item = items_->Add(entry.ValIndiceDiag, entry.ValCodeFour, entry.ValLogiciel, entry.ValVersion,
                       target());
    fillList(item);
  } else {
    applyEntry(entry, *item);
    LVident->rows().refresh(item);
    showSearchResult({}, {});
    showRow();
  }
  emit OnChange();
  return true;
}

void UceAutoIdents::save() {
  if (target() && ApplyEntry()) emit OnSave();
}

void UceAutoIdents::cancel() {
  DisplayParam(database_);
  emit OnCancel();
}

void UceAutoIdents::addNew() {
  if (!target()) return;
  const AutoIdentEntry entry = readEntry();
  if (!checkEntry(entry)) return;
  fillList(items_->Add(entry.ValIndiceDiag, entry.ValCodeFour, entry.ValLogiciel, entry.ValVersion,
                       target()));
  emit OnChange();
}

void UceAutoIdents::cut() {
  const AutoIdentSelection items = selected();
  if (items.empty()) return;
  copy(); // rows that no clipboard can hold can go all the same: the person was told, and is asked
  constexpr char key[] = "AUTOIDENT/MSG/CutIdent/text";
  const CMultiLangEx& texts = language::global();
  const platform::Answer answer = person_.message(
      {key, texts.getMultilangMessageDefault("Confirm delete", "AUTOIDENT/MSG/CutIdent/title"),
       texts.getMultilangMessageDefault("Do you really want to delete selected data ?", key),
       platform::Buttons::YesNo, platform::Icon::Question});
  if (answer != platform::Answer::Yes) return;
  const int row = LVident->rows().rowOf(items.front());
  LVident->rows().setRows({}); // nothing is to show an item that is gone
  const std::unordered_set<const AutoIdentItem*> gone(items.begin(), items.end());
  items_->deleteIf([&gone](const AutoIdentItem& item) { return gone.contains(&item); });
  const int count = items_->Count();
  fillList(count > 0 ? items_->Item(std::min(row + 1, count)) : nullptr);
  emit OnChange();
}

void UceAutoIdents::copy() {
  if (selected().empty()) return;
  try {
    desktop::setClipboardText(copyAutoIdents(selected()));
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
  }
}

void UceAutoIdents::copyText() {
  if (selected().empty()) return;
  bool broken = false;
  desktop::setClipboardText(copyAutoIdentsText(selected(), broken));
  showSearchResult(
      broken
          ? language::global().getMultilangMessageDefault(
                "A copied cell holds a line break or a tab: pasted back, it will not be the same.",
                "AUTOIDENT/MSG/copyText/brokenCell/text")
          : std::string(),
      {});
}

void UceAutoIdents::paste() {
  if (!target()) return;
  const AutoIdentSelection added =
      pasteAutoIdents(desktop::clipboardText(), *database_, *items_, target());
  if (added.empty()) return;
  fillList(added.back());
  emit OnChange();
}

void UceAutoIdents::check() {
  if (!target() || !active()) return;
  const AutoIdentEntry entry = entryOf(*active());
  emit AutoIdent(entry.ValIndiceDiag, entry.ValCodeFour, entry.ValLogiciel, entry.ValVersion);
}

void UceAutoIdents::chosen(const MenuEntry& entry) {
  if (entry.key == "PopupAiCut")
    cut();
  else if (entry.key == "PopupAiCopy")
    copy();
  else if (entry.key == "PopupAiCopyText")
    copyText();
  else if (entry.key == "PopupAiPaste")
    paste();
  else if (entry.key == "PopupAiHelp")
    emit help("parameters", "autoident");
  else if (entry.key == "PopupHelpGoto")
    emit help("identification", "");
}

} // namespace kelmar
