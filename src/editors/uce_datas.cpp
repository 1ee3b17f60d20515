// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_datas.h"

#include "base/conversions.h"
#include "base/text.h"
#include "controls/colours.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/datas/data_units.h"
#include "editors/uce_datas_parts.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStackedWidget>

#include <algorithm>
#include <cmath>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

DataItem& dataOf(RowTag tag) {
  return *static_cast<DataItem*>(tag);
}

/// Whole numbers from 1 on can be typed. A number of a file that lies outside is shown as it is and
/// does not change by walking through its field.
void setNumber(ZEMnumeric& field, double value, int greatest) {
  field.SetMinMax(std::min(1.0, value), std::max<double>(greatest, value));
  field.setDiscrete(value == std::floor(value));
  field.setvalue(value);
}

} // namespace

UceDatas::UceDatas(platform::Person& person, std::string site, QWidget* parent)
    : ListPage(person,
               {{"DATAS/MSG/FindItem/text", "Find data name which contains:"},
                {"DATAS/MSG/FindItem/title", "Find data"}},
               parent),
      parts_(std::make_unique<Parts>(*this, std::move(site))) {
  parts_->makeControls();
  useList(*parts_->listDatas, *parts_->lblInfo);
  parts_->makeCommands();
  parts_->connectControls();
  parts_->colourFields();
  bindPageKeys();
  showItem(nullptr);
  stateMoved();
}

UceDatas::~UceDatas() = default;

void UceDatas::InitControl() {
  parts_->initialised = true;
  const CMultiLangEx& texts = language::global();
  desktop::TranslateControl(*this, texts, "DATAS/CONTROLS");
  parts_->types[0]->setText(
      qs(texts.getMultilangMessageDefault("Numeric", "DATAS/CONTROLS/OPtype/Numeric/caption")));
  parts_->types[1]->setText(qs(texts.getMultilangMessageDefault(
      "Numeric list", "DATAS/CONTROLS/OPtype/NumericList/caption")));
  parts_->types[2]->setText(qs(
      texts.getMultilangMessageDefault("Not numeric", "DATAS/CONTROLS/OPtype/NotNumeric/caption")));
  parts_->listDatas->setAccessibleName(
      qs(texts.getMultilangMessageDefault("List of data", "DATAS/MSG/listDatas/name")));
  parts_->UceDataList1->InitControl();
  xml::Document units;
  parts_->units.clear();
  if (loadUnits(units, parts_->site)) parts_->units = unitsMenu(units, parts_->lang);
  parts_->cmdSelectUnit->setEnabled(!parts_->units.empty());
  if (parts_->database) refreshCount();
}

void UceDatas::setLang(const std::string& lang) {
  parts_->lang = lang;
  if (!parts_->initialised) return;
  InitControl();
  if (parts_->data()) parts_->FrameInfos->setTitle(qs(replaceAll(nameOf(active()), "&", "&&")));
}

void UceDatas::displayDatas(OmnikorLibXml& database, const std::string&) {
  parts_->database = &database;
  dropActive();
  fillList();
  parts_->listDatas->setFocus();
}

void UceDatas::changeEvent(QEvent* event) {
  ListPage::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && parts_ && parts_->TextCoeffC)
    parts_->colourFields();
}

void UceDatas::SizeControls() {
  const int all = parts_->splitter->width();
  parts_->splitter->setSizes({all * 11 / 20, all - all * 11 / 20});
}

QString UceDatas::EditDataName() const {
  return active() ? qs(nameOf(active())) : qs(rememberedName());
}

void UceDatas::setEditDataName(const QString& name) {
  // Out of sight the list is empty: it is filled at the next entry.
  if (!chooseName(u8(name))) rememberName(u8(name));
}

std::vector<RowTag> UceDatas::items() const {
  const TargetItem* target = parts_->target();
  if (!target) return {};
  const std::vector<DataItem*> listed = listedDatas(*target, parts_->sortOrder == 1);
  return {listed.begin(), listed.end()};
}

std::string UceDatas::nameOf(RowTag item) const {
  return dataOf(item).dataName();
}

RowTag UceDatas::itemNamed(const std::string& name) const {
  const TargetItem* target = parts_->target();
  return target && target->datas() ? target->datas()->ItemName(name) : nullptr;
}

std::string UceDatas::countText(int rows) const {
  return language::global().getMultilangMessageDefault(
      "{0} data", "DATAS/MSG/RefreshListCount/data/text", std::to_string(rows));
}

void UceDatas::showItem(RowTag item) {
  Parts& parts = *parts_;
  parts.warn({});
  parts.showControls(item ? fieldsOf(dataOf(item)) : DataFields{});
  parts.FrameInfos->setTitle(item ? qs(replaceAll(nameOf(item), "&", "&&")) : QString());
  parts.FrameInfos->setEnabled(item != nullptr);
  parts.labCoefC->setVisible(item && divisorIsZero(dataOf(item)));
  parts.UceDataList1->setData(item ? &dataOf(item) : nullptr);
}

void UceDatas::stateMoved() {
  if (parts_->commands) parts_->commands->refresh();
  if (parts_->listCommands) parts_->listCommands->refresh();
}

bool UceDatas::hasPendingEdits() const {
  return edits().changed() || parts_->typesValue();
}

bool UceDatas::TestAndConfirmChange() {
  list().finishName();
  // A value that is taken over marks the page.
  if (parts_->typesValue()) parts_->UceDataList1->TestAndConfirmChange();
  if (!edits().changed()) return false;
  constexpr char changedKey[] = "DATAS/MSG/TestAndConfirmChange/text";
  const CMultiLangEx& texts = language::global();
  const platform::Box question{
      changedKey,
      texts.getMultilangMessageDefault("Confirm data validation",
                                       "DATAS/MSG/TestAndConfirmChange/title"),
      texts.getMultilangMessageDefault("Data changed. Do you want to valid change ?", changedKey),
      platform::Buttons::YesNo, platform::Icon::Question};
  const bool applied = person().message(question) == platform::Answer::Yes;
  if (applied) {
    // What was refused is told and dropped; the fields before it are in the data and to be saved.
    parts_->takeOver();
    refreshActiveRow();
    emit OnSave(false);
  } else {
    emit OnCancel();
  }
  // The page may stay, as a command that asked first may be given up: it shows what the data has.
  parts_->showAgain();
  edits().clear();
  stateMoved();
  return applied;
}

DataFields UceDatas::Parts::readControls() const {
  for (ZEMnumeric* field : {NumericNumberBits, ListeNumberBits, NotNumericNumberBytes})
    field->commitText();
  DataFields fields;
  fields.OPtype = activeType;
  fields.TextMnemo = u8(TextMnemo->text());
  fields.TextDescription = u8(TextDescription->text());
  // The field has one line; breaks that it does not show are not to be lost by it.
  if (const DataItem* item = data(); item && inOneLine(item->Description) == fields.TextDescription)
    fields.TextDescription = item->Description;
  fields.TextUnite = u8(TextUnite->text());
  fields.TextFormat = u8(TextFormat->text());
  fields.TextCoeffA = u8(TextCoeffA->text());
  fields.TextCoeffB = u8(TextCoeffB->text());
  fields.TextCoeffC = u8(TextCoeffC->text());
  fields.NumericNumberBits = NumericNumberBits->value();
  fields.CheckSigne = CheckSigne->isChecked();
  fields.ListeNumberBits = ListeNumberBits->value();
  fields.CheckSignedList = CheckSignedList->isChecked();
  fields.NotNumericNumberBytes = NotNumericNumberBytes->value();
  fields.RBascii = ascii->isChecked();
  return fields;
}

void UceDatas::Parts::showControls(const DataFields& fields) {
  TextMnemo->setText(qs(fields.TextMnemo));
  TextDescription->setText(qs(inOneLine(fields.TextDescription)));
  TextUnite->setText(qs(fields.TextUnite));
  TextFormat->setText(qs(fields.TextFormat));
  TextCoeffA->setText(qs(fields.TextCoeffA));
  TextCoeffB->setText(qs(fields.TextCoeffB));
  TextCoeffC->setText(qs(fields.TextCoeffC));
  setNumber(*NumericNumberBits, fields.NumericNumberBits, mostNumericBits);
  CheckSigne->setChecked(fields.CheckSigne);
  setNumber(*ListeNumberBits, fields.ListeNumberBits, mostNumericBits);
  CheckSignedList->setChecked(fields.CheckSignedList);
  setNumber(*NotNumericNumberBytes, fields.NotNumericNumberBytes, mostBytes);
  (fields.RBascii ? ascii : hexa)->setChecked(true);
  rangeEdited();
  showForm(fields.OPtype);
}

void UceDatas::Parts::showForm(DataType type) {
  activeType = type;
  types[static_cast<std::size_t>(type)]->setChecked(true);
  forms->setCurrentIndex(static_cast<int>(type));
}

void UceDatas::Parts::typeChosen(DataType type) {
  if (page.edits().loading() || type == activeType) return;
  DataFields fields = readControls();
  changeType(fields, type);
  {
    const EditState::Loading loading = page.edits().load();
    showControls(fields);
  }
  edited();
}

void UceDatas::Parts::edited() {
  page.SetChanged(Edited);
}

void UceDatas::Parts::stillEdited() {
  page.announceApplied();
  edited();
}

void UceDatas::Parts::colourFields() {
  const QPalette shown = page.palette();
  const QColor red = readableOn(shown, shownColour(faultRed, shown));
  QPalette fault;
  fault.setColor(QPalette::WindowText, red);
  for (QLabel* label : {labCoefC, lblWarning})
    label->setPalette(fault);
  fault = QPalette();
  fault.setColor(QPalette::Text, red);
  for (QLineEdit* field : {TextCoeffA, TextCoeffB, TextCoeffC})
    field->setPalette(data() && !isCoefficient(u8(field->text())) ? fault : QPalette());
}

void UceDatas::Parts::coefficientEdited(QLineEdit& field) {
  const std::string text = u8(field.text());
  colourFields();
  const DataItem* item = data();
  if (!item || page.edits().loading()) return;
  const Coefficient& old = &field == TextCoeffA   ? item->CoeffA
                           : &field == TextCoeffB ? item->CoeffB
                                                  : item->CoeffC;
  if (coefficientDiffers(text, old)) edited();
}

void UceDatas::Parts::rangeEdited() {
  UceDataList1->setRange(toInt32(ListeNumberBits->valueOfText()), CheckSignedList->isChecked());
}

void UceDatas::Parts::numberEdited(const ZEMnumeric& field, double inItem) {
  if (data() && field.valueOfText() != inItem) edited();
}

bool UceDatas::Parts::typesValue() const {
  return data() && activeType == DataType::NumericList && UceDataList1->hasTyping();
}

bool UceDatas::Parts::takeOver() {
  DataItem* item = data();
  if (!item) return false;
  bool applied = true;
  try {
    if (!GetDataFromScreen(readControls(), *item, page.person())) return false;
  } catch (const Failure& failure) {
    // A coefficient that is no number; all the others are in the data.
    for (QLineEdit* field : {TextCoeffA, TextCoeffB, TextCoeffC})
      if (u8(field->objectName()) == failure.source) field->setFocus();
    ShowErrorBox(page.person(), language::global(), failure);
    applied = false;
  }
  if (activeType == DataType::NumericList) UceDataList1->SaveDataItems();
  return applied;
}

void UceDatas::Parts::validate(bool toFile) {
  if (!data() || (typesValue() && !UceDataList1->finishTyping())) return;
  const DataFields before = fieldsOf(*data());
  const bool applied = takeOver();
  page.refreshActiveRow();
  if (!applied) {
    // The fields before the refused one are in the data, those behind it are still to come.
    if (fieldsOf(*data()) != before) stillEdited();
    return;
  }
  emit page.OnSave(toFile);
  page.edits().clear();
  labCoefC->setVisible(divisorIsZero(*data()));
  page.stateMoved();
}

void UceDatas::Parts::showAgain() {
  const EditState::Loading loading = page.edits().load();
  page.showItem(data());
}

void UceDatas::Parts::cancel() {
  showAgain();
  // A value that was typed and not taken is no modification of the file yet.
  if (page.edits().changed()) emit page.OnCancel();
  page.edits().clear();
  page.stateMoved();
}

bool UceDatas::Parts::rename(DataItem& item, const std::string& text) {
  if (text == item.dataName()) return true;
  try {
    target()->RenameData(&item, text);
  } catch (const Failure& failure) {
    ShowErrorBox(page.person(), language::global(), failure);
    return false;
  }
  page.rememberName(text);
  FrameInfos->setTitle(qs(replaceAll(text, "&", "&&")));
  if (page.edits().changed())
    stillEdited();
  else
    page.announceApplied();
  return true;
}

void UceDatas::Parts::textCopied(bool broken) {
  warn(broken ? language::global().getMultilangMessageDefault(
                    "A copied cell holds a line break or a tab: pasted back, it will not be the "
                    "same.",
                    "DATAS/MSG/copyText/brokenCell/text")
              : std::string());
}

void UceDatas::Parts::warn(const std::string& text) {
  lblWarning->setText(qs(text));
  lblWarning->setVisible(!text.empty());
}

} // namespace kelmar
