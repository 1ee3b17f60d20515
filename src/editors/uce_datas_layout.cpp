// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"
#include "controls/named.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/uce_datas_parts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QFrame>
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

void addField(QFormLayout& form, const char* name, const char* text, QWidget* field) {
  form.addRow(caption(name, text, field, field->parentWidget()), field);
}

/// Its limits come with the data that it shows.
ZEMnumeric* number(const char* name, QWidget* parent) {
  auto* field = named<ZEMnumeric>(name, parent);
  field->setRangeChecking(true);
  field->setDiscreteInterval(1);
  field->setBaseButtonVisible(false);
  field->setMaximumWidth(140);
  return field;
}

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
             // The rows are as high as the first one.
             return column == 0   ? item.dataName()
                    : column == 1 ? item.Mnemo
                                  : inOneLine(item.Description);
           },
       .look =
           [](RowTag tag) {
             const auto& item = *static_cast<DataItem*>(tag);
             const DataWarning warning = setScreen_datas(item);
             RowLook look{.icon = dataIcon(item), .bold = warning.found, .toolTip = warning.text};
             if (warning.found) look.colour = faultRed;
             return look;
           },
       .rename =
           [this](RowTag tag, const std::string& text) {
             return rename(*static_cast<DataItem*>(tag), text);
           }},
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
  TextMnemo = textField("TextMnemo", FrameInfos);
  TextDescription = textField("TextDescription", FrameInfos);
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
    // Their captions go by keys of their own.
    types[i]->setProperty(desktop::controlTypeProperty, QString());
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
  form->setContentsMargins(0, 0, 0, 0);
  NumericNumberBits = number("NumericNumberBits", frame);
  addField(*form, "labNumericNumberBits", "Number bits", NumericNumberBits);
  CheckSigne = button<QCheckBox>("CheckSigne", "Signed", frame);
  form->addRow(CheckSigne);
  auto* unit = new QHBoxLayout;
  TextUnite = textField("TextUnite", frame);
  cmdSelectUnit = button<QPushButton>("cmdSelectUnit", "Select normalized unit", frame);
  unit->addWidget(TextUnite, 1);
  unit->addWidget(cmdSelectUnit);
  auto* labUnit = named<QLabel>("labUnite", frame);
  labUnit->setText(QStringLiteral("Unit"));
  labUnit->setBuddy(TextUnite);
  form->addRow(labUnit, unit);
  form->addRow(makeCoefficients(frame));
  labCoefC = named<QLabel>("labCoefC", frame);
  labCoefC->setText(QStringLiteral("C must be different from 0"));
  form->addRow(labCoefC);
  TextFormat = textField("TextFormat", frame);
  addField(*form, "labFormat", "Format", TextFormat);
  auto* hint = named<QLabel>("labFormatHint", frame);
  hint->setText(QStringLiteral("Use format 'bin' to display data in binary"));
  hint->setWordWrap(true);
  form->addRow(hint);
  return frame;
}

/// The formula as it is written by hand, and beside it the figures that stand in it.
QWidget* UceDatas::Parts::makeCoefficients(QWidget* parent) {
  auto* box = new QWidget(parent);
  box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  auto* columns = new QHBoxLayout(box);
  columns->setContentsMargins(0, 0, 0, 0);
  auto* formula = new QVBoxLayout;
  formula->setSpacing(2);
  formula->addStretch();
  const auto part = [&](const char* name, const char* text) {
    auto* label = named<QLabel>(name, box);
    label->setText(QLatin1String(text));
    label->setAlignment(Qt::AlignCenter);
    formula->addWidget(label);
  };
  part("labFormula", "AX + B");
  auto* line = new QFrame(box);
  line->setFrameShape(QFrame::HLine);
  formula->addWidget(line);
  part("labDivisor", "C");
  formula->addStretch();
  columns->addLayout(formula);
  columns->addSpacing(16);
  auto* figures = new QFormLayout;
  columns->addLayout(figures, 1);
  const auto figure = [&](QLineEdit*& field, const char* name, const char* label,
                          const char* caption) {
    field = textField(name, box);
    addField(*figures, label, caption, field);
  };
  figure(TextCoeffA, "TextCoeffA", "labCoeffA", "A");
  figure(TextCoeffB, "TextCoeffB", "labCoeffB", "B");
  figure(TextCoeffC, "TextCoeffC", "labCoeffC", "C");
  return box;
}

QWidget* UceDatas::Parts::makeListForm() {
  auto* frame = new QWidget(forms);
  auto* rows = new QVBoxLayout(frame);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* form = new QFormLayout;
  ListeNumberBits = number("ListeNumberBits", frame);
  CheckSignedList = button<QCheckBox>("CheckSignedList", "Signed", frame);
  rows->addLayout(form);
  auto* label = named<QLabel>("labListeNumberBits", frame);
  label->setText(QStringLiteral("Number bits"));
  label->setBuddy(ListeNumberBits);
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
  form->setContentsMargins(0, 0, 0, 0);
  NotNumericNumberBytes = number("NotNumericNumberBytes", frame);
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
  connect(ListeNumberBits, &ZEMnumeric::Change, &page, [this] { rangeEdited(); });
  connect(CheckSignedList, &QCheckBox::toggled, &page, [this] { rangeEdited(); });
  bits(NumericNumberBits, 1);
  bits(ListeNumberBits, 1);
  bits(NotNumericNumberBytes, 8);
  for (QCheckBox* box : {CheckSigne, CheckSignedList})
    connect(box, &QCheckBox::toggled, &page, [this] { edited(); });
  connect(ascii, &QRadioButton::toggled, &page, [this] { edited(); });
  connect(OPtype, &QButtonGroup::idClicked, &page,
          [this](int type) { typeChosen(static_cast<DataType>(type)); });
  connect(UceDataList1, &UceDataList::listChanged, &page, [this] { edited(); });
  connect(UceDataList1, &UceDataList::typingMoved, &page, [this] { page.stateMoved(); });
  connect(UceDataList1, &UceDataList::textCopied, &page,
          [this](bool broken) { textCopied(broken); });
  connect(UceDataList1, &UceDataList::help, &page, [this] { emit page.help("data", "list"); });
  connect(DataDiagFiche, &QPushButton::clicked, &page, [this] { showFiche(); });
  connect(cmdSelectUnit, &QPushButton::clicked, &page, [this] { showUnits(); });
}

} // namespace kelmar
