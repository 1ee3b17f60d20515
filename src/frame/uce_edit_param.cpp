// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "base/version.h"
#include "controls/page_keys.h"
#include "controls/silence_children.h"
#include "desktop/document_text.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/official_date_field.h"
#include "frame/rules/communication_protocol.h"
#include "frame/rules/key_bytes.h"
#include "frame/uce_edit_param_parts.h"
#include "frame/uce_selector_fields.h"
#include "language/multi_lang.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTimer>
#include <QToolBar>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

// Kinds of change.
constexpr EditState::Kinds fieldsChanged = 1, identsChanged = 2;

void select(QComboBox& list, const std::string& text) {
  list.setCurrentIndex(list.findText(qs(text)));
}

/// A text that only a file can bring is an entry for as long as that ECU is shown.
void select(QComboBox& list, const std::vector<std::string>& entries, const std::string& text) {
  while (list.count() > static_cast<int>(entries.size()))
    list.removeItem(list.count() - 1);
  if (list.findText(qs(text)) < 0) list.addItem(qs(text));
  select(list, text);
}

void setText(QLineEdit& field, const std::string& text) {
  if (field.text() == qs(text)) return; // the cursor stays where a person has put it
  field.setText(qs(text));
  field.setCursorPosition(0);
}

} // namespace

UceEditParam::UceEditParam(platform::Person& person, QWidget* parent)
    : Page(parent), parts_(std::make_unique<Parts>(*this, person)) {
  parts_->makeControls();
  parts_->makeCommands();
  parts_->orderFields();
  parts_->connectControls();
  new PageKeys(*this);
  parts_->fieldArea->setEnabled(false);
  parts_->refreshLayout();
}

UceEditParam::~UceEditParam() {
  silenceChildren(*this);
}

void UceEditParam::InitControl() {
  parts_->initialised = true;
  desktop::TranslateControl(*this, language::global(), "PARAMS/CONTROLS");
  parts_->UceAutoIdents1->InitControl();
  parts_->invalidData = language::global().getMultilangMessageDefault(
      "Input Error : Invalid data", "PARAMS/MSG/invalidData/text");
  parts_->DateOfficia->setDisplayFormat(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
  parts_->nameFields();
}

void UceEditParam::setLang(const std::string&) {
  if (parts_->initialised) InitControl();
}

void UceEditParam::displayDatas(OmnikorLibXml& database, const std::string&) {
  DisplayParam(database);
}

void UceEditParam::DisplayParam(OmnikorLibXml& database) {
  Parts& parts = *parts_;
  {
    const EditState::Loading loading = parts.edits.load();
    parts.database = &database;
    parts.fillLists();
    const auto fields = fieldsOf(database);
    parts.showControls(fields.value_or(EditParamFields{}));
    parts.fieldArea->setEnabled(fields.has_value());
    parts.UceAutoIdents1->DisplayParam(&database);
    parts.refreshLayout();
  }
  parts.edits.clear();
  parts.commands->refresh();
}

void UceEditParam::GetDataFromScreen() {
  Parts& parts = *parts_;
  if (!parts.target()) return;
  const EditState::Loading loading = parts.edits.load();
  applyFields(parts.readControls(), *parts.database);
  parts.UceAutoIdents1->GetDataFromScreen();
  if (const auto stored = fieldsOf(*parts.database)) parts.showConverted(*stored);
}

bool UceEditParam::TestAndConfirmChange() {
  Parts& parts = *parts_;
  if (!parts.edits.changed() && !parts.UceAutoIdents1->entryPending()) return false;
  constexpr char key[] = "PARAMS/MSG/modifyParameters/text";
  const CMultiLangEx& texts = language::global();
  const platform::Answer answer = parts.person.message(
      {key,
       texts.getMultilangMessageDefault("Confirm modification",
                                        "PARAMS/MSG/modifyParameters/title"),
       texts.getMultilangMessageDefault("Parameters changed, save change ?", key),
       platform::Buttons::YesNo, platform::Icon::Question});
  if (answer != platform::Answer::Yes) {
    // What is typed goes too: a field that is left by leaving the page would take it for entered.
    DisplayParam(*parts.database);
    emit OnCancel();
    return false;
  }
  // The page is being left: all but the bad number and the bad entry is kept.
  if (QLineEdit* bad = parts.firstBadNumber()) parts.tellInvalid(*bad);
  if (parts.UceAutoIdents1->entryPending()) parts.UceAutoIdents1->ApplyEntry();
  GetDataFromScreen();
  parts.edits.clear();
  emit OnSave(true);
  return true;
}

QString UceEditParam::databaseDescription() const {
  return parts_->UceAutoIdents1->databaseDescription();
}

void UceEditParam::setDatabaseDescription(const QString& text) {
  parts_->UceAutoIdents1->setDatabaseDescription(text);
}

bool UceEditParam::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
    event->ignore(); // it scrolls the page and does not choose what happens to pass by
    return true;
  }
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const Parts::Number* number = parts_->numberOf(watched);
    if (number && reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
      // A box cannot stand within a change of focus.
      QTimer::singleShot(0, this, [this, number] { parts_->checkLeftNumber(*number); });
  }
  return Page::eventFilter(watched, event);
}

void UceEditParam::Parts::makeCommands() {
  const auto open = [this] { return target() != nullptr; };
  commands = new CommandTable(parameterPane, {{.key = "save",
                                               .toolTip = "Save change (Ctrl S)",
                                               .icon = "save",
                                               .run = [this] { save(); },
                                               .enabled = open,
                                               .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_S)}},
                                              {.key = "cancel",
                                               .toolTip = "Cancel change (Ctrl Z)",
                                               .icon = "cancel",
                                               .run = [this] { cancel(); },
                                               .enabled = open,
                                               .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Z)}}});
  commands->fillToolBar(*TBparam, {"save", "cancel", ""});
  auto* pageCommands =
      new CommandTable(&page, {{.key = "help",
                                .toolTip = "Help (F1)",
                                .icon = "help",
                                .run =
                                    [this] {
                                      const QWidget* focus = QApplication::focusWidget();
                                      const bool idents =
                                          focus && UceAutoIdents1->isAncestorOf(focus);
                                      emit page.help("parameters", idents ? "autoident" : "");
                                    },
                                .shortcuts = {QKeySequence(Qt::Key_F1)}}});
  pageCommands->fillToolBar(*TBparam, {"help"});
}

void UceEditParam::Parts::connectControls() {
  const auto change = [this] { edited(); };
  for (QLineEdit* field : {txtEmail, TextReprog, txIPAddress, txMACAddress})
    connect(field, &QLineEdit::textChanged, &page, change);
  connect(Comment, &QPlainTextEdit::textChanged, &page, change);
  for (QLineEdit* key : {KW1, KW2})
    connect(key, &QLineEdit::textChanged, &page, [this] {
      refreshFakra();
      edited();
    });
  for (QComboBox* list : {ComboTypePanne, ComboBaudRate, ComboMaxDataLangthCANFD})
    connect(list, &QComboBox::currentIndexChanged, &page, change);
  connect(ComboTypeCom, &QComboBox::currentIndexChanged, &page, [this] {
    if (edits.loading()) return;
    refreshLayout();
    edited();
  });
  for (QCheckBox* check : {CheckCGW, CheckCGWIP})
    connect(check, &QCheckBox::toggled, &page, change);
  connect(CheckOfficia, &QCheckBox::toggled, &page, [this](bool checked) {
    DateOfficia->setEnabled(checked);
    edited();
  });
  connect(DateOfficia, &QDateTimeEdit::dateTimeChanged, &page, change);
  connect(littleEndian, &QRadioButton::toggled, &page, change);
  for (CanIdentifierField* field : {canXid, canRid})
    connect(field, &CanIdentifierField::edited, &page, change);
  for (std::size_t i = 0; i < parameterNumberCount; ++i) {
    connect(numbers[i].box, &QCheckBox::toggled, &page,
            [this, i](bool checked) { numberBoxToggled(i, checked); });
    connect(numbers[i].field, &QLineEdit::textChanged, &page, change);
    numbers[i].box->installEventFilter(&page);
    numbers[i].field->installEventFilter(&page);
  }
  for (QWidget* field : std::initializer_list<QWidget*>{ComboTypeCom, ComboTypePanne, ComboBaudRate,
                                                        ComboMaxDataLangthCANFD, DateOfficia}) {
    field->setFocusPolicy(Qt::StrongFocus);
    field->installEventFilter(&page);
  }

  connect(UceAutoIdents1, &UceAutoIdents::OnChange, &page, [this] {
    edits.change(identsChanged);
    emit page.OnChange();
  });
  connect(UceAutoIdents1, &UceAutoIdents::OnSave, &page, [this] { save(); });
  connect(UceAutoIdents1, &UceAutoIdents::OnCancel, &page, [this] { identsCancelled(); });
  connect(UceAutoIdents1, &UceAutoIdents::help, &page, &Page::help);
  connect(UceAutoIdents1, &UceAutoIdents::AutoIdent, &page,
          [this](std::int32_t diagVersion, const std::string& supplier, const std::string& soft,
                 const std::string& version) { searchFor(diagVersion, supplier, soft, version); });
}

std::int32_t UceEditParam::Parts::code() const {
  return database && database->protocols
             ? protocolCode(*database->protocols, ComboTypeCom->currentIndex() + 1)
             : noProtocolCode;
}

void UceEditParam::Parts::fillLists() {
  ComboTypeCom->clear();
  if (database->protocols)
    for (const ProtocolItem* protocol : *database->protocols)
      ComboTypeCom->addItem(qs(protocol->protocolName), protocol->code);
  ComboTypePanne->clear();
  if (database->Pannes)
    for (const PanneItem* type : *database->Pannes)
      ComboTypePanne->addItem(qs(type->libelle), type->id);
}

void UceEditParam::Parts::showControls(const EditParamFields& fields) {
  shown = fields;
  setText(*txtEmail, fields.txtEmail);
  Comment->setPlainText(qs(fields.Comment));
  ComboTypeCom->setCurrentIndex(fields.ComboTypeCom - 1);
  select(*ComboBaudRate, fields.ComboBaudRate);
  select(*ComboMaxDataLangthCANFD, canFdDataLengths(), fields.ComboMaxDataLangthCANFD);
  for (std::size_t i = 0; i < parameterNumberCount; ++i) {
    numbers[i].box->setChecked(fields.numbers[i].changed);
    numbers[i].field->setEnabled(fields.numbers[i].changed);
  }
  showConverted(fields);
  (fields.littleEndian ? littleEndian : bigEndian)->setChecked(true);
  setText(*TextReprog, fields.TextReprog);
  CheckCGW->setChecked(fields.CheckCGW);
  CheckCGWIP->setChecked(fields.CheckCGWIP);
  DateOfficia->showStored(fields.DateOfficia);
  CheckOfficia->setChecked(!fields.DateOfficia.empty());
  DateOfficia->setEnabled(!fields.DateOfficia.empty());
  select(*ComboTypePanne, fields.ComboTypePanne);
  // The text of a new ECU is French in any language; its number finds the entry.
  if (ComboTypePanne->currentIndex() < 0 && target())
    ComboTypePanne->setCurrentIndex(
        ComboTypePanne->findData(target()->Parametres()->TypePanneId()));
  canXid->showIdentifier(canIdentifierOf(fields.canXid));
  canRid->showIdentifier(canIdentifierOf(fields.canRid));
}

/// The fields whose text may not be what is stored: a number in another form or one that does not
/// convert, an address that is not taken.
void UceEditParam::Parts::showConverted(const EditParamFields& fields) {
  setText(*KW1, fields.KW1);
  setText(*KW2, fields.KW2);
  refreshFakra();
  for (std::size_t i = 0; i < parameterNumberCount; ++i)
    setText(*numbers[i].field, fields.numbers[i].text);
  setText(*txIPAddress, fields.txIPAddress);
  setText(*txMACAddress, fields.txMACAddress);
}

EditParamFields UceEditParam::Parts::readControls() {
  EditParamFields fields = shown;
  fields.txtEmail = u8(txtEmail->text());
  if (Comment->document()->isModified())
    fields.Comment = widenLineFeeds(u8(desktop::documentText(*Comment->document())));
  fields.KW1 = u8(KW1->text());
  fields.KW2 = u8(KW2->text());
  fields.ComboTypeCom = ComboTypeCom->currentIndex() + 1;
  fields.ComboBaudRate = u8(ComboBaudRate->currentText());
  fields.ComboMaxDataLangthCANFD = u8(ComboMaxDataLangthCANFD->currentText());
  for (std::size_t i = 0; i < parameterNumberCount; ++i)
    fields.numbers[i] = {u8(numbers[i].field->text()), numbers[i].box->isChecked()};
  fields.littleEndian = littleEndian->isChecked();
  fields.TextReprog = u8(TextReprog->text());
  fields.CheckCGW = CheckCGW->isChecked();
  fields.CheckCGWIP = CheckCGWIP->isChecked();
  fields.DateOfficia = CheckOfficia->isChecked() ? DateOfficia->stored() : std::string();
  fields.txIPAddress = u8(txIPAddress->text());
  fields.txMACAddress = u8(txMACAddress->text());
  if (ComboTypePanne->currentIndex() >= 0)
    fields.ComboTypePanne = u8(ComboTypePanne->currentText());
  fields.canXid = storedCanIdentifier(canXid->identifier());
  fields.canRid = storedCanIdentifier(canRid->identifier());
  return fields;
}

void UceEditParam::Parts::refreshLayout() {
  const ProtocolPanels panels = panelsOf(code());
  if (!panels.FrCan.empty()) FrCan->setTitle(qs(panels.FrCan));
  FrCan->setVisible(!panels.FrCan.empty());
  for (QWidget* field : std::initializer_list<QWidget*>{
           LbMaxDataLangthCANFD, ComboMaxDataLangthCANFD, LbBytesCANFD, LbBaudRateCANFD})
    field->setVisible(panels.canFd);
  LabelCGW->setVisible(panels.CheckCGW);
  CheckCGW->setVisible(panels.CheckCGW);
  FrCanBaud->setVisible(panels.FrCanBaud);
  FrIP->setVisible(panels.FrIP);
  LabelCGWIP->setVisible(panels.CheckCGWIP);
  CheckCGWIP->setVisible(panels.CheckCGWIP);
  Timing->setVisible(panels.Timing);
  Frame1->setVisible(panels.Frame1);
  UceAutoIdents1->setProtocol(code());
}

void UceEditParam::Parts::refreshFakra() {
  TextFakra->setText(qs(fakraText(u8(KW1->text()), u8(KW2->text()))));
}

void UceEditParam::Parts::numberBoxToggled(std::size_t number, bool checked) {
  numbers[number].field->setEnabled(checked);
  if (!checked) setText(*numbers[number].field, defaultNumberText(parameterNumbers()[number]));
  edited();
}

void UceEditParam::Parts::edited() {
  if (edits.loading() || !target()) return;
  edits.change(fieldsChanged);
  emit page.OnChange();
}

bool UceEditParam::Parts::numberIsBad(const QLineEdit& field) const {
  return field.isEnabled() && !readParameterNumber(u8(field.text()));
}

const UceEditParam::Parts::Number* UceEditParam::Parts::numberOf(const QObject* control) const {
  for (const Number& number : numbers)
    if (control == number.box || control == number.field) return &number;
  return nullptr;
}

/// Its box belongs to the number: unchecked, it takes back what was typed.
void UceEditParam::Parts::checkLeftNumber(const Number& number) {
  if (number.field->isVisible() && !number.field->hasFocus() && !number.box->hasFocus() &&
      numberIsBad(*number.field))
    tellInvalid(*number.field);
}

QLineEdit* UceEditParam::Parts::firstBadNumber() const {
  if (Timing->isHidden()) return nullptr;
  for (const Number& number : numbers)
    if (numberIsBad(*number.field)) return number.field;
  return nullptr;
}

void UceEditParam::Parts::tellInvalid(QLineEdit& field) {
  person.message({"PARAMS/MSG/invalidData/text", applicationTitle, invalidData,
                  platform::Buttons::Ok, platform::Icon::Exclamation});
  field.setFocus();
  field.selectAll();
}

void UceEditParam::Parts::save() {
  if (!target()) return;
  if (QLineEdit* bad = firstBadNumber()) return tellInvalid(*bad);
  // What stands in the entry fields is on the page too.
  if (UceAutoIdents1->entryPending() && !UceAutoIdents1->ApplyEntry()) return;
  page.GetDataFromScreen();
  edits.clear();
  emit page.OnSave(true);
}

void UceEditParam::Parts::cancel() {
  if (!database) return;
  page.DisplayParam(*database);
  emit page.OnCancel();
}

/// The list of identifications stands as it was; what was typed in the fields is still pending.
void UceEditParam::Parts::identsCancelled() {
  const bool pending = edits.changed(fieldsChanged);
  edits.clear();
  if (pending)
    edits.change(fieldsChanged);
  else
    emit page.OnCancel();
}

void UceEditParam::Parts::searchFor(std::int32_t diagVersion, const std::string& supplier,
                                    const std::string& soft, const std::string& version) {
  if (!target()) return;
  IdentificationRequest request{.function = target()->Address(),
                                .protocol = searchProtocolNumber(code()),
                                .diagVersion = diagVersion,
                                .supplier = supplier,
                                .soft = soft,
                                .version = version};
  emit page.OnIdentification(request);
  request.search = true;
  emit page.OnIdentification(request);
  UceAutoIdents1->showSearchResult(request.text, request.href);
}

} // namespace kelmar
