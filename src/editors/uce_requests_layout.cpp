// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"
#include "controls/named.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/rules/requests/request_rows.h"
#include "editors/uce_requests_parts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <limits>

namespace kelmar {

namespace {

ZEMnumeric* number(const char* name, QWidget* parent) {
  auto* field = named<ZEMnumeric>(name, parent);
  field->SetMinMax(0, std::numeric_limits<std::int32_t>::max());
  field->setRangeChecking(true);
  field->setDiscrete(true);
  field->setDiscreteBase(0);
  field->setDiscreteInterval(1);
  field->setMaximumWidth(150);
  return field;
}

/// Its text is computed: the language file has none for it.
template <class Widget>
Widget* untranslated(Widget* widget) {
  widget->setProperty(desktop::controlTypeProperty, QString());
  return widget;
}

} // namespace

void CaptionFrame::setFault(bool fault) {
  if (fault_ == fault) return;
  fault_ = fault;
  update();
}

void CaptionFrame::initStyleOption(QStyleOptionGroupBox* option) const {
  QGroupBox::initStyleOption(option);
  if (fault_) option->textColor = readableOn(palette(), shownColour(faultRed, palette()));
}

void UceRequests::Parts::makeControls() {
  auto* rows = new QVBoxLayout(&page);
  rows->setContentsMargins(4, 2, 4, 4);
  tbToolBar = named<QToolBar>("tbToolBar", &page);
  tbToolBar->setIconSize(QSize(20, 20));
  rows->addWidget(tbToolBar);
  splitter = named<QSplitter>("splitter", &page);
  splitter->setChildrenCollapsible(false);
  rows->addWidget(splitter, 1);

  auto* left = new QWidget(splitter);
  auto* leftRows = new QVBoxLayout(left);
  leftRows->setContentsMargins(0, 0, 0, 0);
  LVrequests = new ListView(
      {{.key = "requestname", .caption = "Request name", .width = 250},
       {.key = "sendbytes", .caption = "Send bytes", .width = 110},
       {.key = "comment", .caption = "Comment"}},
      {.text = [](RowTag tag,
                  int column) { return requestCell(*static_cast<RequestItem*>(tag), column); },
       .look = [this](RowTag tag) { return lookOf(tag); },
       .cellLook = [this](RowTag tag, int column) { return cellLookOf(tag, column); },
       .rename =
           [this](RowTag tag, const std::string& text) {
             return rename(*static_cast<RequestItem*>(tag), text);
           }},
      left);
  LVrequests->setObjectName(QStringLiteral("LVrequests"));
  LVrequests->setHeaderSorts(true);
  leftRows->addWidget(LVrequests, 1);
  lblInfo = untranslated(named<QLabel>("lblInfo", left));
  leftRows->addWidget(lblInfo);
  splitter->addWidget(left);

  // Beside the list: a line that comes and goes must not move the row that is being clicked.
  auto* right = new QWidget(splitter);
  auto* rightRows = new QVBoxLayout(right);
  rightRows->setContentsMargins(0, 0, 0, 0);
  errorMsg = untranslated(named<QLabel>("errorMsg", right));
  errorMsg->setWordWrap(true);
  errorMsg->setAutoFillBackground(true);
  errorMsg->setContentsMargins(6, 3, 6, 3);
  errorMsg->setTextFormat(Qt::PlainText);
  errorMsg->setTextInteractionFlags(Qt::TextSelectableByMouse);
  errorMsg->hide();
  rightRows->addWidget(errorMsg);
  FrameInfos = untranslated(new CaptionFrame(right));
  FrameInfos->setObjectName(QStringLiteral("FrameInfos"));
  auto* fields = new QVBoxLayout(FrameInfos);
  fields->setContentsMargins(6, 4, 6, 4);
  fields->setSpacing(4);
  fields->addWidget(makeCommonFields());
  TSsendReceipt = named<QTabBar>("TSsendReceipt", FrameInfos);
  TSsendReceipt->setDrawBase(true);
  TSsendReceipt->setExpanding(false);
  TSsendReceipt->addTab(QStringLiteral("Sent"));
  TSsendReceipt->setTabData(0, QStringLiteral("sent"));
  TSsendReceipt->setTabToolTip(0, QStringLiteral("Request parameters"));
  TSsendReceipt->addTab(QStringLiteral("Received"));
  TSsendReceipt->setTabData(1, QStringLiteral("received"));
  TSsendReceipt->setTabToolTip(1, QStringLiteral("Request data"));
  fields->addWidget(TSsendReceipt);
  fields->addWidget(makeSent());
  fields->addWidget(makeReceived());
  positions = new PositionPane(page.person(), *this, FrameInfos);
  positions->setObjectName(QStringLiteral("PositionPane"));
  fields->addWidget(positions, 1);
  rightRows->addWidget(FrameInfos, 1);
  splitter->addWidget(right);
  splitter->setStretchFactor(0, 2);
  splitter->setStretchFactor(1, 3);
  splitter->setSizes({400, 600});
}

QWidget* UceRequests::Parts::makeCommonFields() {
  auto* form = new QWidget(FrameInfos);
  auto* grid = new QGridLayout(form);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(3);
  TextComment = named<QPlainTextEdit>("TextComment", form);
  TextComment->setTabChangesFocus(true);
  TextComment->setFixedHeight(TextComment->fontMetrics().lineSpacing() * 2 + 14);
  grid->addWidget(caption("lblComment", "Comment", TextComment, form), 0, 0, Qt::AlignTop);
  grid->addWidget(TextComment, 0, 1);
  CheckAccesAll = button<QCheckBox>("CheckAccesAll", "Without", form);
  CheckUsine = button<QCheckBox>("CheckUsine", "Plant", form);
  CheckApresVente = button<QCheckBox>("CheckApresVente", "After sales", form);
  CheckEtude = button<QCheckBox>("CheckEtude", "Engineering", form);
  CheckConstructeur = button<QCheckBox>("CheckConstructeur", "Supplier", form);
  auto* access = new QHBoxLayout;
  for (QCheckBox* check :
       {CheckAccesAll, CheckUsine, CheckApresVente, CheckEtude, CheckConstructeur})
    access->addWidget(check);
  access->addStretch();
  auto* lblAccess = named<QLabel>("lblAccess", form);
  lblAccess->setText(QStringLiteral("Access"));
  grid->addWidget(lblAccess, 1, 0);
  grid->addLayout(access, 1, 1);
  auto* kinds = new QHBoxLayout;
  CheckReport = button<QCheckBox>("CheckReport", "Maintainability report", form);
  CheckManualSend = button<QCheckBox>("CheckManualSend", "Manuel Send", form);
  kinds->addWidget(CheckReport);
  kinds->addWidget(CheckManualSend);
  kinds->addStretch();
  grid->addLayout(kinds, 2, 1);
  grid->setColumnStretch(1, 1);
  return form;
}

QWidget* UceRequests::Parts::makeSent() {
  FrameSend = untranslated(named<QWidget>("FrameSend", FrameInfos));
  auto* row = new QHBoxLayout(FrameSend);
  row->setContentsMargins(0, 0, 0, 0);
  TextReqBytes = textField("TextReqBytes", FrameSend);
  lblReqLength = untranslated(named<QLabel>("lblReqLength", FrameSend));
  lblReqLength->setText(QStringLiteral("(bytes)"));
  CheckLgVariable = button<QCheckBox>("CheckLgVariable", "Variable length", FrameSend);
  cbExportSendBufferToHex = button<QPushButton>("cbExportSendBufferToHex", "->Hex", FrameSend);
  cbExportSendBufferToHex->setToolTip(
      QStringLiteral("Write the request bytes into an Intel-hex file"));
  cbImportSendBufferFromHex = button<QPushButton>("cbImportSendBufferFromHex", "<-Hex", FrameSend);
  cbImportSendBufferFromHex->setToolTip(
      QStringLiteral("Read the request bytes from an Intel-hex file"));
  row->addWidget(caption("lblReqBytes", "Request bytes (Hexadecimal)", TextReqBytes, FrameSend));
  row->addWidget(TextReqBytes, 1);
  row->addWidget(lblReqLength);
  row->addWidget(CheckLgVariable);
  for (QPushButton* button : {cbExportSendBufferToHex, cbImportSendBufferFromHex}) {
    button->setAutoDefault(false);
    button->setMaximumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 24);
    row->addWidget(button);
  }
  return FrameSend;
}

QWidget* UceRequests::Parts::makeReceived() {
  FrameReceipt = untranslated(named<QWidget>("FrameReceipt", FrameInfos));
  auto* row = new QHBoxLayout(FrameReceipt);
  row->setContentsMargins(0, 0, 0, 0);
  Rtemplate = textField("Rtemplate", FrameReceipt);
  ValLenData = number("ValLenData", FrameReceipt);
  ValShiftBytes = number("ValShiftBytes", FrameReceipt);
  row->addWidget(caption("lblTemplate", "Template", Rtemplate, FrameReceipt));
  row->addWidget(Rtemplate, 1);
  row->addWidget(caption("lblLenData", "Data length", ValLenData, FrameReceipt));
  row->addWidget(ValLenData);
  row->addWidget(caption("lblShiftBytes", "Shift bytes Count", ValShiftBytes, FrameReceipt));
  row->addWidget(ValShiftBytes);
  return FrameReceipt;
}

void UceRequests::Parts::connectControls() {
  connect(TextComment, &QPlainTextEdit::textChanged, &page, [this] { edited(); });
  for (QCheckBox* check : {CheckApresVente, CheckConstructeur, CheckEtude, CheckAccesAll,
                           CheckUsine, CheckReport, CheckLgVariable, CheckManualSend})
    connect(check, &QCheckBox::toggled, &page, [this] { edited(); });
  connect(TextReqBytes, &QLineEdit::textChanged, &page, [this] { frameEdited(*TextReqBytes); });
  connect(Rtemplate, &QLineEdit::textChanged, &page, [this] { frameEdited(*Rtemplate); });
  connect(ValLenData, &ZEMnumeric::Change, &page, [this] {
    if (request()) numberEdited(*ValLenData, request()->LengthDatas);
  });
  connect(ValShiftBytes, &ZEMnumeric::Change, &page, [this] {
    if (request()) numberEdited(*ValShiftBytes, request()->ShiftBytesCount);
  });
  connect(TSsendReceipt, &QTabBar::currentChanged, &page, [this](int tab) {
    positions->TestAndConfirmChangeDataPos();
    showSide(tab == 0);
    ShowErrorMsg();
    positions->leave();
    positions->setScreen_DataPos();
  });
}

/// Comment and bytes are typed for a selected row, and as long as something is to be validated.
void UceRequests::Parts::enableFields() {
  const bool taken = LVrequests->selectionModel()->hasSelection() || page.edits().changed();
  // The field in which a person types keeps the keyboard, and takes nothing more.
  const auto open = [](auto* field, bool isOpen) {
    field->setEnabled(isOpen || field->hasFocus());
    field->setReadOnly(!isOpen);
  };
  open(TextComment, taken);
  open(TextReqBytes, taken);
}

void UceRequests::Parts::colourFields() {
  for (QLineEdit* field : {TextReqBytes, Rtemplate}) {
    QPalette palette = page.palette();
    if (!isFrameText(field->text().toStdString()))
      palette.setColor(QPalette::Text, readableOn(palette, shownColour(faultRed, palette)));
    if (field->palette().color(QPalette::Text) != palette.color(QPalette::Text))
      field->setPalette(palette);
  }
}

} // namespace kelmar
