// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_requests.h"

#include "base/text.h"
#include "controls/colours.h"
#include "controls/hourglass.h"
#include "desktop/document_text.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/rules/requests/request_rows.h"
#include "editors/uce_requests_parts.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTabBar>

#include <utility>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

// 0xBBGGRR, or that of the system.
constexpr std::uint32_t changedBlue = 0xFF0000, listText = 0x80000008u;

RequestItem& requestOf(RowTag tag) {
  return *static_cast<RequestItem*>(tag);
}

void setNumber(ZEMnumeric& field, double value) {
  // A number of a file may lie outside what can be typed; it is shown as it is.
  field.setRangeChecking(false);
  field.setvalue(value);
  field.setRangeChecking(true);
}

} // namespace

UceRequests::UceRequests(platform::Person& person, platform::Settings* settings, QWidget* parent)
    : ListPage(person,
               {{"REQUESTS/MSG/FindItem/text", "Find next request whose name contains the word: "},
                {"REQUESTS/MSG/FindItem/title", "Find request"}},
               parent),
      parts_(std::make_unique<Parts>(*this, settings)) {
  parts_->makeControls();
  useList(*parts_->LVrequests, *parts_->lblInfo);
  parts_->makeCommands();
  parts_->connectControls();
  bindPageKeys();
  parts_->showSide(true);
  dropActive();
}

UceRequests::~UceRequests() {
  // A name that is being typed is dropped, not taken over by a page that is going.
  parts_->LVrequests->rows().setRows({});
  delete parts_->positions; // it asks its host until it is gone
}

void UceRequests::InitControl() {
  parts_->initialised = true;
  parts_->TSsendReceipt->setCurrentIndex(0);
  parts_->translate();
}

void UceRequests::setLang(const std::string&) {
  if (parts_->initialised) parts_->translate();
}

void UceRequests::displayDatas(OmnikorLibXml& database, const std::string&) {
  parts_->database = &database;
  parts_->dropActiveAndRebuild();
  parts_->LVrequests->setFocus();
}

void UceRequests::SizeControls() {
  const int all = parts_->splitter->width();
  parts_->splitter->setSizes({all * 2 / 5, all - all * 2 / 5});
}

QString UceRequests::EditRequestName() const {
  return active() ? qs(nameOf(active())) : qs(rememberedName());
}

void UceRequests::setEditRequestName(const QString& name) {
  // Out of sight the list is empty: it is filled at the next entry.
  if (!chooseName(u8(name))) rememberName(u8(name));
}

QString UceRequests::EditDataName() const {
  return qs(parts_->positions->dataName());
}

void UceRequests::setEditDataName(const QString& name) {
  parts_->positions->setLastDataName(u8(name));
  const RequestItem* request = parts_->request();
  parts_->sideWanted = !request;
  if (!request || !request->DataPositions) return;
  // The side on which the data lies comes to the front.
  if (const DataPositionItem* position = request->DataPositions->ItemName(u8(name));
      position && position->param != parts_->sentShown())
    parts_->TSsendReceipt->setCurrentIndex(position->param ? 0 : 1);
  else
    parts_->positions->setScreen_DataPos();
}

void UceRequests::changeEvent(QEvent* event) {
  ListPage::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && parts_ && parts_->Rtemplate) parts_->colourFields();
}

std::vector<RowTag> UceRequests::items() const {
  std::vector<RowTag> tags;
  const TargetItem* target = parts_->target();
  if (!target || !target->Requests()) return tags;
  tags.reserve(static_cast<std::size_t>(target->Requests()->Count()));
  for (RequestItem* request : *target->Requests())
    tags.push_back(request);
  return tags;
}

std::string UceRequests::nameOf(RowTag item) const {
  return requestOf(item).requestName;
}

RowTag UceRequests::itemNamed(const std::string& name) const {
  const TargetItem* target = parts_->target();
  return target && target->Requests() ? target->Requests()->ItemName(name) : nullptr;
}

std::string UceRequests::countText(int rows) const {
  return requestCountText(rows);
}

void UceRequests::showItem(RowTag item) {
  Parts& parts = *parts_;
  parts.errorShown = false;
  parts.showControls(item ? fieldsOf(requestOf(item)) : RequestFields{});
  parts.showCaption();
  parts.FrameInfos->setEnabled(item != nullptr);
  if (item == parts.shownItem)
    parts.positions->drop();
  else
    parts.positions->leave();
  parts.shownItem = item;
  if (item && std::exchange(parts.sideWanted, false) && requestOf(item).DataPositions) {
    const auto* position = requestOf(item).DataPositions->ItemName(parts.positions->lastDataName());
    if (position && position->param != parts.sentShown()) {
      const QSignalBlocker quiet(parts.TSsendReceipt);
      parts.TSsendReceipt->setCurrentIndex(position->param ? 0 : 1);
      parts.showSide(position->param);
    }
  }
  parts.positions->setScreen_DataPos();
  if (!parts.errorShown) parts.ShowErrorMsg();
  // Keys that come now are not meant for the frame that stands in the place of the bad one.
  if (std::exchange(parts.badFrameLeft, false)) parts.LVrequests->setFocus();
}

void UceRequests::confirmedByClick(bool applied) {
  if (!applied) return;
  // All rows anew, each at its place: the one that is being clicked stays under the pointer,
  // whatever the list is sorted by.
  parts_->forgetMarks();
  list().rows().refreshAll();
}

bool UceRequests::hasPendingEdits() const {
  return edits().changed() || parts_->positions->dataPosChanged();
}

void UceRequests::stateMoved() {
  parts_->enableFields();
  if (parts_->commands) parts_->commands->refresh();
  if (parts_->listCommands) parts_->listCommands->refresh();
}

bool UceRequests::TestAndConfirmChangeDataPos() {
  return parts_->positions->TestAndConfirmChangeDataPos();
}

bool UceRequests::TestAndConfirmChange() {
  list().finishName();
  const bool placed = TestAndConfirmChangeDataPos();
  if (!edits().changed()) return placed;
  constexpr char key[] = "REQUESTS/MSG/TestAndConfirmChange/text";
  const CMultiLangEx& texts = language::global();
  const platform::Box question{
      key,
      texts.getMultilangMessageDefault("Confirm data validation?",
                                       "REQUESTS/MSG/TestAndConfirmChange/title"),
      texts.getMultilangMessageDefault("Requests has been modified. Validate change?", key),
      platform::Buttons::YesNo, platform::Icon::Question};
  if (person().message(question) != platform::Answer::Yes) {
    emit OnCancel();
    edits().clear();
    stateMoved();
    return false;
  }
  if (const auto failure = parts_->GetRequestFromScreen()) {
    parts_->goToBadFrame();
    parts_->badFrameLeft = true;
    ShowErrorBox(person(), language::global(), *failure);
  }
  refreshActiveRow();
  emit OnSave(false);
  edits().clear();
  stateMoved();
  return true;
}

void UceRequests::Parts::translate() {
  desktop::TranslateControl(page, language::global(), "REQUESTS/CONTROLS");
  page.refreshCount();
  lblReqLength->setText(qs(requestLengthText(u8(TextReqBytes->text()))));
  ShowErrorMsg();
  nameForReaders();
}

/// What has no caption of its own says what it is to those who listen.
void UceRequests::Parts::nameForReaders() {
  const CMultiLangEx& texts = language::global();
  LVrequests->setAccessibleName(qs(
      texts.getMultilangMessageDefault("List of requests", "REQUESTS/MSG/LVrequests/name/text")));
  TSsendReceipt->setAccessibleName(qs(texts.getMultilangMessageDefault(
      "Frame of the request", "REQUESTS/MSG/TSsendReceipt/name/text")));
  positions->retranslate();
}

RequestFields UceRequests::Parts::readControls() const {
  ValLenData->commitText();
  ValShiftBytes->commitText();
  return typedFields();
}

RequestFields UceRequests::Parts::typedFields() const {
  return {.Commentaire = widenLineFeeds(u8(desktop::documentText(*TextComment->document()))),
          .AccesApresVente = CheckApresVente->isChecked(),
          .AccesConstructeur = CheckConstructeur->isChecked(),
          .AccesEtudes = CheckEtude->isChecked(),
          .AccesTous = CheckAccesAll->isChecked(),
          .AccesUsine = CheckUsine->isChecked(),
          .DossierMaintenabilite = CheckReport->isChecked(),
          .LgVariable = CheckLgVariable->isChecked(),
          .ManuelSend = CheckManualSend->isChecked(),
          .LengthDatas = static_cast<std::int32_t>(ValLenData->valueOfText()),
          .ShiftBytesCount = static_cast<std::int32_t>(ValShiftBytes->valueOfText()),
          .RequestBytes = u8(TextReqBytes->text()),
          .ReplyBytes = u8(Rtemplate->text())};
}

void UceRequests::Parts::showControls(const RequestFields& fields) {
  TextComment->setPlainText(qs(fields.Commentaire));
  CheckApresVente->setChecked(fields.AccesApresVente);
  CheckConstructeur->setChecked(fields.AccesConstructeur);
  CheckEtude->setChecked(fields.AccesEtudes);
  CheckAccesAll->setChecked(fields.AccesTous);
  CheckUsine->setChecked(fields.AccesUsine);
  CheckReport->setChecked(fields.DossierMaintenabilite);
  CheckLgVariable->setChecked(fields.LgVariable);
  CheckManualSend->setChecked(fields.ManuelSend);
  setNumber(*ValLenData, fields.LengthDatas);
  setNumber(*ValShiftBytes, fields.ShiftBytesCount);
  TextReqBytes->setText(qs(fields.RequestBytes));
  TextReqBytes->setCursorPosition(0);
  Rtemplate->setText(qs(fields.ReplyBytes));
  Rtemplate->setCursorPosition(0);
  lblReqLength->setText(qs(requestLengthText(fields.RequestBytes)));
  colourFields();
}

void UceRequests::Parts::edited() {
  page.SetChanged(Edited);
}

void UceRequests::Parts::applied(int kind) {
  applied(kind, page.edits().changed());
}

void UceRequests::Parts::applied(int kind, bool pending) {
  page.SetChanged(kind);
  if (pending) markTyped();
}

/// What stands beside a change that has reached the items, or was dropped, is as unsaved as before:
/// marked again, it is asked about before it goes.
void UceRequests::Parts::markTyped() {
  if (!request()) return;
  if (positions->dataPosChanged() || typedFields() != fieldsOf(*request())) edited();
}

void UceRequests::Parts::saved() {
  page.announceApplied();
  markTyped();
}

void UceRequests::Parts::cancelled() {
  emit page.OnCancel();
  page.edits().clear();
  page.stateMoved();
  markTyped();
}

void UceRequests::Parts::frameEdited(QLineEdit& field) {
  if (page.edits().loading()) return;
  colourFields();
  if (&field == TextReqBytes) lblReqLength->setText(qs(requestLengthText(u8(field.text()))));
  edited();
}

void UceRequests::Parts::numberEdited(const ZEMnumeric& field, std::int32_t inItem) {
  if (field.valueOfText() != inItem || page.edits().changed()) edited();
}

std::optional<Failure> UceRequests::Parts::GetRequestFromScreen() {
  if (!request()) return std::nullopt;
  const auto bad = applyFields(readControls(), *request());
  if (!bad) return std::nullopt;
  badFrame = bad->field;
  return bad->failure;
}

void UceRequests::Parts::goToBadFrame() {
  const bool sent = badFrame == BadFrame::Field::RequestBytes;
  TSsendReceipt->setCurrentIndex(sent ? 0 : 1);
  (sent ? TextReqBytes : Rtemplate)->setFocus();
}

void UceRequests::Parts::ValidChange(bool toFile) {
  if (!request()) return;
  if (positions->isActive()) {
    positions->GetDataPosFromScreen();
    positions->clearChanged();
  }
  if (const auto failure = GetRequestFromScreen()) {
    goToBadFrame();
    ShowErrorBox(page.person(), language::global(), *failure);
    return;
  }
  const Hourglass busy;
  setRequestListView(*request());
  ShowErrorMsg();
  emit page.OnSave(toFile);
  page.edits().clear();
  positions->clearChanged();
  positions->setScreen_DataPos();
  page.stateMoved();
}

void UceRequests::Parts::cancel() {
  if (!request() || !page.hasPendingEdits()) return;
  {
    const EditState::Loading loading = page.edits().load();
    page.showItem(page.active());
  }
  emit page.OnCancel();
  page.edits().clear();
  positions->clearChanged();
  page.stateMoved();
}

bool UceRequests::Parts::rename(RequestItem& item, const std::string& text) {
  try {
    renameTyped(*target(), item, text);
  } catch (const Failure& failure) {
    ShowErrorBox(page.person(), language::global(), failure);
    return false;
  }
  page.rememberName(item.requestName);
  renamed[&item] = std::nullopt;
  showCaption();
  ShowErrorMsg();
  applied(Renamed);
  return true;
}

void UceRequests::Parts::showCaption() {
  const RequestItem* item = request();
  FrameInfos->setTitle(item ? qs(replaceAll(item->requestName, "&", "&&")) : QString());
  FrameInfos->setFault(item && lookOf(page.active()).colour == faultRed);
}

void UceRequests::Parts::ShowErrorMsg() {
  const RequestItem* item = request();
  const RequestFinding finding =
      item && target() ? findingOf(*item, *target()) : RequestFinding::None;
  errorShown = finding != RequestFinding::None;
  warn(findingText(finding), faultRed);
}

void UceRequests::Parts::warn(const std::string& text, std::uint32_t colour) {
  QPalette palette = page.palette();
  palette.setColor(QPalette::Window, Qt::white);
  palette.setColor(QPalette::WindowText, shownColour(colour, palette));
  errorMsg->setPalette(palette);
  errorMsg->setText(qs(text));
  errorMsg->setVisible(!text.empty());
}

void UceRequests::Parts::warnOutside(const std::string& text) {
  errorShown = true;
  warn(text, warningOrange);
}

void UceRequests::Parts::warnBroken() {
  warn(language::global().getMultilangMessageDefault(
           "A copied cell holds a line break or a tab: pasted back, it will not be the same.",
           "REQUESTS/MSG/copyText/brokenCell/text"),
       faultRed);
}

void UceRequests::Parts::showSide(bool sent) {
  activeTab = sent ? 1 : 2;
  FrameSend->setVisible(sent);
  FrameReceipt->setVisible(!sent);
}

RowLook UceRequests::Parts::lookOf(RowTag tag) const {
  const RequestItem& item = requestOf(tag);
  RowLook look{.icon = requestIcon(item)};
  if (const auto kept = renamed.find(tag); kept != renamed.end()) {
    look.colour = kept->second;
    return look;
  }
  const RequestFinding finding = target() ? findingOf(item, *target()) : RequestFinding::None;
  if (finding != RequestFinding::None || withoutBytes.contains(tag)) {
    look.bold = true;
    look.colour = faultRed;
    look.toolTip = findingToolTip(finding);
  }
  return look;
}

CellLook UceRequests::Parts::cellLookOf(RowTag tag, int column) const {
  const auto changed = normalised.find(tag);
  if (column != SendBytesColumn || changed == normalised.end()) return {};
  return {.bold = changed->second, .colour = changed->second ? changedBlue : listText};
}

void UceRequests::Parts::setRequestListView(RequestItem& item) {
  withoutBytes.erase(&item);
  renamed.erase(&item);
  LVrequests->rows().refresh(&item);
  if (&item == request()) showCaption();
}

void UceRequests::Parts::refreshRequest() {
  if (RequestItem* item = request()) setRequestListView(*item);
  ShowErrorMsg();
}

void UceRequests::Parts::positionsChanged(int kind) {
  if (kind == Edited)
    edited();
  else
    applied(kind);
}

void UceRequests::Parts::help() {
  const QWidget* focus = QApplication::focusWidget();
  emit page.help("request", focus && positions->isAncestorOf(focus) ? "data" : "");
}

} // namespace kelmar
