// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"
#include "desktop/qt_text.h"
#include "editors/rules/datas/data_type.h"
#include "editors/uce_datas_parts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>

namespace kelmar {

using desktop::qs;

namespace {

template <class Widget> Widget* named(const char* name, QWidget* parent) {
  auto* widget = new Widget(parent);
  widget->setObjectName(QLatin1String(name));
  return widget;
}

template <class Button> Button* button(const char* name, const char* caption, QWidget* parent) {
  Button* made = named<Button>(name, parent);
  made->setText(QLatin1String(caption));
  return made;
}

void addField(QFormLayout& form, const char* name, const char* caption, QWidget* field) {
  auto* label = named<QLabel>(name, form.parentWidget());
  label->setText(QLatin1String(caption));
  label->setBuddy(field);
  form.addRow(label, field);
}

ZEMnumeric* number(const char* name, double least, double most, QWidget* parent) {
  auto* field = named<ZEMnumeric>(name, parent);
  field->SetMinMax(least, most);
  field->setRangeChecking(true);
  field->setBaseButtonVisible(false);
  field->setMaximumWidth(140);
  return field;
}

constexpr double mostBytes = 4095; ///< of a frame

} // namespace

void UceDatas::Parts::makeControls() {
  auto* rows = new QVBoxLayout(&page);
  rows->setContentsMargins(4, 2, 4, 4);
  TbData = named<QToolBar>("TbData", &page);
  TbData->setIconSize(QSize(20, 20));
  rows->addWidget(TbData);
  lblWarning = named<QLabel>("lblWarning", &page);
  lblWarning->setWordWrap(true);
  lblWarning->hide();
  rows->addWidget(lblWarning);
  splitter = named<QSplitter>("splitter", &page);
  splitter->setChildrenCollapsible(false);
  rows->addWidget(splitter, 1);

  auto* left = new QWidget(splitter);
  auto* leftRows = new QVBoxLayout(left);
  leftRows->setContentsMargins(0, 0, 0, 0);
  listDatas = new ListView(
      {{.key = "dataname", .caption = "Data name", .width = 280},
       {.key = "mnemonic", .caption = "Mnemo", .width = 110},
       {.key = "description", .caption = "Description"}},
      {.text =
           [](RowTag tag, int column) {
             const auto& item = *static_cast<DataItem*>(tag);
             return column == 0 ? item.dataName() : column == 1 ? item.Mnemo : item.Description;
           },
       .look =
           [](RowTag tag) {
             const auto& item = *static_cast<DataItem*>(tag);
             const DataWarning warning = setScreen_datas(item);
             RowLook look{.icon = dataIcon(item), .bold = warning.found, .toolTip = warning.text};
             if (warning.found) look.colour = faultRed;
             return look;
           },
       .rename = [this](RowTag tag,
                        const std::string& text) { return rename(*static_cast<DataItem*>(tag), text); }},
      left);
  listDatas->setObjectName(QStringLiteral("listDatas"));
  leftRows->addWidget(listDatas, 1);
  lblInfo = named<QLabel>("lblInfo", left);
  leftRows->addWidget(lblInfo);
  splitter->addWidget(left);

  FrameInfos = named<QGroupBox>("FrameInfos", splitter);
  auto* fields = new QVBoxLayout(FrameInfos);
  auto* common = new QFormLayout;
  fields->addLayout(common);
  TextMnemo = named<QLineEdit>("TextMnemo", FrameInfos);
  TextDescription = named<QLineEdit>("TextDescription", FrameInfos);
  addField(*common, "labMnemo", "Mnemo", TextMnemo);
  addField(*common, "labDescription", "Description", TextDescription);
  DataDiagFiche = button<QPushButton>("DataDiagFiche", "Data documentation ...", FrameInfos);
  fields->addWidget(DataDiagFiche, 0, Qt::AlignLeft);

  auto* choice = new QHBoxLayout;
  OPtype = new QButtonGroup(&page);
  const char* captions[] = {"Numeric", "Numeric list", "Not numeric"};
  const char* names[] = {"OPtypeNumeric", "OPtypeNumericList", "OPtypeNotNumeric"};
  for (std::size_t i = 0; i < types.size(); ++i) {
    types[i] = button<QRadioButton>(names[i], captions[i], FrameInfos);
    OPtype->addButton(types[i], static_cast<int>(i));
    choice->addWidget(types[i]);
  }
  choice->addStretch();
  fields->addLayout(choice);
  forms = named<QStackedWidget>("forms", FrameInfos);
  forms->addWidget(makeNumericForm());
  forms->addWidget(makeListForm());
  forms->addWidget(makeNotNumericForm());
  fields->addWidget(forms, 1);
  splitter->addWidget(FrameInfos);
  splitter->setStretchFactor(0, 11);
  splitter->setStretchFactor(1, 9);
}

QWidget* UceDatas::Parts::makeNumericForm() {
  auto* frame = new QWidget(forms);
  auto* form = new QFormLayout(frame);
  NumericNumberBits = number("NumericNumberBits", 1, mostNumericBits, frame);
  addField(*form, "labNumericNumberBits", "Number bits", NumericNumberBits);
  CheckSigne = button<QCheckBox>("CheckSigne", "Signed", frame);
  form->addRow(CheckSigne);
  auto* unit = new QHBoxLayout;
  TextUnite = named<QLineEdit>("TextUnite", frame);
  cmdSelectUnit = button<QPushButton>("cmdSelectUnit", "Select normalized unit", frame);
  unit->addWidget(TextUnite, 1);
  unit->addWidget(cmdSelectUnit);
  auto* labUnit = named<QLabel>("labUnite", frame);
  labUnit->setText(QStringLiteral("Unit"));
  labUnit->setBuddy(TextUnite);
  form->addRow(labUnit, unit);
  auto* formula = named<QLabel>("labFormula", frame);
  formula->setText(QStringLiteral("( AX + B ) / C"));
  form->addRow(formula);
  TextCoeffA = named<QLineEdit>("TextCoeffA", frame);
  TextCoeffB = named<QLineEdit>("TextCoeffB", frame);
  TextCoeffC = named<QLineEdit>("TextCoeffC", frame);
  addField(*form, "labCoeffA", "A", TextCoeffA);
  addField(*form, "labCoeffB", "B", TextCoeffB);
  addField(*form, "labCoeffC", "C", TextCoeffC);
  labCoefC = named<QLabel>("labCoefC", frame);
  labCoefC->setText(QStringLiteral("C must be different from 0"));
  QPalette red = page.palette();
  red.setColor(QPalette::WindowText, readableOn(red, shownColour(faultRed, red)));
  labCoefC->setPalette(red);
  lblWarning->setPalette(red);
  form->addRow(labCoefC);
  TextFormat = named<QLineEdit>("TextFormat", frame);
  addField(*form, "labFormat", "Format", TextFormat);
  auto* hint = named<QLabel>("labFormatHint", frame);
  hint->setText(QStringLiteral("Use format 'bin' to display data in binary"));
  hint->setWordWrap(true);
  form->addRow(hint);
  return frame;
}

QWidget* UceDatas::Parts::makeListForm() {
  auto* frame = new QWidget(forms);
  auto* rows = new QVBoxLayout(frame);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* form = new QFormLayout;
  ListeNumberBits = number("ListeNumberBits", 1, mostNumericBits, frame);
  CheckSignedList = button<QCheckBox>("CheckSignedList", "Signed", frame);
  rows->addLayout(form);
  auto* label = named<QLabel>("labListeNumberBits", frame);
  label->setText(QStringLiteral("Number bits"));
  auto* size = new QHBoxLayout;
  size->addWidget(ListeNumberBits);
  size->addWidget(CheckSignedList);
  size->addStretch();
  form->addRow(label, size);
  UceDataList1 = new UceDataList(page.person(), frame);
  UceDataList1->setObjectName(QStringLiteral("UceDataList1"));
  rows->addWidget(UceDataList1, 1);
  return frame;
}

QWidget* UceDatas::Parts::makeNotNumericForm() {
  auto* frame = new QWidget(forms);
  auto* form = new QFormLayout(frame);
  NotNumericNumberBytes = number("NotNumericNumberBytes", 1, mostBytes, frame);
  addField(*form, "labNotNumericNumberBytes", "Number bytes", NotNumericNumberBytes);
  ascii = button<QRadioButton>("RBascii", "ASCII", frame);
  ascii->setProperty("index", 0);
  hexa = button<QRadioButton>("RBascii", "BCD / HEXA", frame);
  hexa->setProperty("index", 1);
  form->addRow(ascii);
  form->addRow(hexa);
  return frame;
}

void UceDatas::Parts::connectControls() {
  for (QLineEdit* field : {TextMnemo, TextDescription, TextUnite, TextFormat})
    connect(field, &QLineEdit::textChanged, &page, [this] { edited(); });
  for (QLineEdit* field : {TextCoeffA, TextCoeffB, TextCoeffC})
    connect(field, &QLineEdit::textChanged, &page, [this, field] { coefficientEdited(*field); });
  const auto bits = [this](ZEMnumeric* field, int perUnit) {
    const auto look = [this, field, perUnit] {
      if (const DataItem* item = data()) numberEdited(*field, double(item->NumberBits) / perUnit);
    };
    connect(field, &ZEMnumeric::Change, &page, look);
    connect(field, &ZEMnumeric::valueChanged, &page, look);
  };
  bits(NumericNumberBits, 1);
  bits(ListeNumberBits, 1);
  bits(NotNumericNumberBytes, 8);
  for (QCheckBox* box : {CheckSigne, CheckSignedList})
    connect(box, &QCheckBox::toggled, &page, [this] { edited(); });
  connect(ascii, &QRadioButton::toggled, &page, [this] { edited(); });
  connect(OPtype, &QButtonGroup::idClicked, &page,
          [this](int type) { typeChosen(static_cast<DataType>(type)); });
  connect(UceDataList1, &UceDataList::listChanged, &page, [this] { edited(); });
  connect(UceDataList1, &UceDataList::help, &page, [this] { emit page.help("data", "list"); });
  connect(DataDiagFiche, &QPushButton::clicked, &page, [this] { showFiche(); });
  connect(cmdSelectUnit, &QPushButton::clicked, &page, [this] { showUnits(); });
}

} // namespace kelmar
