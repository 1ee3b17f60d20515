// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/named.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/official_date_field.h"
#include "frame/uce_edit_param_parts.h"
#include "frame/uce_selector_fields.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>

namespace kelmar {

using desktop::qs;

namespace {

QGroupBox* frame(const char* name, const char* text, QWidget* parent) {
  auto* made = named<QGroupBox>(name, parent);
  made->setTitle(QLatin1String(text));
  return made;
}

QComboBox* list(const char* name, const std::vector<std::string>& entries, QWidget* parent) {
  auto* made = named<QComboBox>(name, parent);
  for (const std::string& entry : entries)
    made->addItem(qs(entry));
  return made;
}

/// Fields of one column all begin at the same place, whichever panel is shown.
QGridLayout* gridOf(QWidget* frame) {
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(4);
  return grid;
}

struct NumberCaption {
  const char* box;
  const char* field;
  const char* text;
};
/// In the order of parameterNumbers().
constexpr NumberCaption numberCaptions[] = {
    {"CheckBaudRate", "TextBaudRate", "Baud rate"},
    {"CheckInterByte", "TextInterByte", "Inter byte delay (msec)"},
    {"CheckKW2", "TextKW2", "Delay after key word 2"},
    {"CheckFirstRequest", "TextFirstRequest", "Delay before first request"},
    {"CheckReplyToRequest", "TextReplyToRequest", "Delay from reply to request"},
    {"CheckTesterPresent", "TextTesterPresent", "Tester present delay"},
    {"CheckKW2Timeout", "TextKW2Timeout", "Key word 2 timeout"},
    {"CheckRequestToReplyTimeout", "TextRequestToReplyTimeout", "Request to reply timeout"},
    {"CheckErrorDelay", "TextErrorDelay", "Delay after an error"},
};
static_assert(std::size(numberCaptions) == parameterNumberCount);

} // namespace

void UceEditParam::Parts::makeControls() {
  auto* rows = new QVBoxLayout(&page);
  rows->setContentsMargins(4, 2, 4, 4);
  auto* splitter = named<QSplitter>("splitter", &page);
  splitter->setChildrenCollapsible(false);
  rows->addWidget(splitter);

  // Tool bar and fields stand on a pane of their own: the keys of the identifications beside it
  // are the same.
  parameterPane = new QWidget(splitter);
  auto* left = new QVBoxLayout(parameterPane);
  left->setContentsMargins(0, 0, 0, 0);
  TBparam = named<QToolBar>("TBparam", parameterPane);
  TBparam->setIconSize(QSize(20, 20));
  left->addWidget(TBparam);
  fieldArea = new QScrollArea(parameterPane);
  fieldArea->setFrameShape(QFrame::NoFrame);
  fieldArea->setWidgetResizable(true);
  fieldArea->setFocusPolicy(Qt::NoFocus);
  auto* fields = new QWidget(fieldArea);
  auto* fieldRows = new QVBoxLayout(fields);
  fieldRows->setContentsMargins(0, 0, 4, 0);
  fieldRows->setSpacing(4);
  fieldRows->addWidget(makeGeneral(fields));
  fieldRows->addWidget(makeCommunication(fields));
  fieldRows->addStretch(1);
  fieldArea->setWidget(fields);
  left->addWidget(fieldArea, 1);
  splitter->addWidget(parameterPane);

  UceAutoIdents1 = new UceAutoIdents(person, splitter);
  UceAutoIdents1->setObjectName(QStringLiteral("UceAutoIdents1"));
  splitter->addWidget(UceAutoIdents1);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 2);
  splitter->setSizes({700, 420});
  page.setFocusProxy(txtEmail);
}

QWidget* UceEditParam::Parts::makeGeneral(QWidget* parent) {
  auto* general = frame("FrGeneral", "General", parent);
  QGridLayout* grid = gridOf(general);
  txtEmail = textField("txtEmail", general);
  Comment = named<QPlainTextEdit>("Comment", general);
  Comment->setTabChangesFocus(true);
  Comment->setFixedHeight(Comment->fontMetrics().lineSpacing() * 3 + 14);
  TextReprog = textField("TextReprog", general);
  ComboTypePanne = named<QComboBox>("ComboTypePanne", general);
  ComboTypePanne->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  ComboTypePanne->setMinimumContentsLength(12);
  CheckOfficia = button<QCheckBox>("CheckOfficia", "Official since", general);
  DateOfficia = named<OfficialDateField>("DateOfficia", general);
  TypeCodage = new QButtonGroup(&page);
  bigEndian = button<QRadioButton>("TypeCodage", "Big Endian     (F - f)", general);
  littleEndian = button<QRadioButton>("TypeCodage", "Little Endian   (f - F)", general);
  bigEndian->setProperty(desktop::controlIndexProperty, 0);
  littleEndian->setProperty(desktop::controlIndexProperty, 1);
  TypeCodage->addButton(bigEndian, 0);
  TypeCodage->addButton(littleEndian, 1);

  grid->addWidget(caption("LabelEmail", "E-mail", txtEmail, general), 0, 0);
  grid->addWidget(txtEmail, 0, 1);
  grid->addWidget(CheckOfficia, 0, 2);
  grid->addWidget(DateOfficia, 0, 3);
  grid->addWidget(caption("LabelComment", "Comment", Comment, general), 1, 0, Qt::AlignTop);
  grid->addWidget(Comment, 1, 1, 1, 3);
  grid->addWidget(caption("LabelReprog", "BTP reprogrammation file", TextReprog, general), 2, 0);
  grid->addWidget(TextReprog, 2, 1);
  grid->addWidget(caption("LabelTypePanne", "Failures", ComboTypePanne, general), 2, 2);
  grid->addWidget(ComboTypePanne, 2, 3);
  auto* coding = new QHBoxLayout;
  coding->setSpacing(24);
  coding->addWidget(bigEndian);
  coding->addWidget(littleEndian);
  coding->addStretch();
  grid->addWidget(caption("LabelCodage", "Bytes of the data", bigEndian, general), 3, 0);
  grid->addLayout(coding, 3, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  return general;
}

QWidget* UceEditParam::Parts::makeCommunication(QWidget* parent) {
  auto* communication = frame("FrCommunication", "Communication", parent);
  auto* rows = new QVBoxLayout(communication);
  rows->setSpacing(4);
  ComboTypeCom = named<QComboBox>("ComboTypeCom", communication);
  auto* protocol = new QHBoxLayout;
  protocol->addWidget(caption("LabelTypeCom", "Protocol", ComboTypeCom, communication));
  protocol->addWidget(ComboTypeCom, 1);
  rows->addLayout(protocol);
  makeCan(communication);
  makeCanBaud(communication);
  makeIp(communication);
  makeTiming(communication);
  makeKeyWords(communication);
  for (QGroupBox* panel : {FrCan, FrCanBaud, FrIP, Timing, Frame1})
    rows->addWidget(panel);
  return communication;
}

void UceEditParam::Parts::makeCan(QWidget* parent) {
  FrCan = frame("FrCan", "DiagOnCan", parent);
  FrCan->setProperty(desktop::controlTypeProperty, QString()); // named after the protocol
  canXid = new CanIdentifierField(QStringLiteral("canXid"), FrCan);
  canRid = new CanIdentifierField(QStringLiteral("canRid"), FrCan);
  CheckCGW = button<QCheckBox>("CheckCGW", "behind the central gateway (CGW)", FrCan);
  LabelCGW = caption("LabelCGW", "Gateway", CheckCGW, FrCan);
  ComboMaxDataLangthCANFD = list("ComboMaxDataLangthCANFD", canFdDataLengths(), FrCan);
  LbMaxDataLangthCANFD =
      caption("LbMaxDataLangthCANFD", "Maximum data length", ComboMaxDataLangthCANFD, FrCan);
  LbBytesCANFD = named<QLabel>("LbBytesCANFD", FrCan);
  LbBytesCANFD->setText(QStringLiteral("bytes"));
  LbBaudRateCANFD = named<QLabel>("LbBaudRateCANFD", FrCan);
  LbBaudRateCANFD->setText(QStringLiteral("Baud rate: 2000000 bit/s"));
  QGridLayout* grid = gridOf(FrCan);
  grid->addWidget(caption("LabelXid", "Tool -> ECU id", &canXid->number(), FrCan), 0, 0);
  grid->addWidget(canXid, 0, 1);
  grid->addWidget(caption("LabelRid", "ECU -> Tool id", &canRid->number(), FrCan), 1, 0);
  grid->addWidget(canRid, 1, 1);
  grid->addWidget(LabelCGW, 2, 0);
  grid->addWidget(CheckCGW, 2, 1, 1, 2, Qt::AlignLeft);
  auto* length = new QHBoxLayout;
  length->setSpacing(6);
  length->addWidget(ComboMaxDataLangthCANFD);
  length->addWidget(LbBytesCANFD);
  length->addStretch();
  grid->addWidget(LbMaxDataLangthCANFD, 3, 0);
  grid->addLayout(length, 3, 1, 1, 2);
  grid->addWidget(LbBaudRateCANFD, 4, 0, 1, 3);
  grid->setColumnMinimumWidth(1, 260);
  grid->setColumnStretch(2, 1);
}

void UceEditParam::Parts::makeCanBaud(QWidget* parent) {
  FrCanBaud = frame("FrCanBaud", "CAN Messaging", parent);
  ComboBaudRate = list("ComboBaudRate", canBaudRates(), FrCanBaud);
  auto* row = new QHBoxLayout(FrCanBaud);
  row->addWidget(caption("LabelCanBaudRate", "Baud rate", ComboBaudRate, FrCanBaud));
  row->addWidget(ComboBaudRate);
  auto* unit = named<QLabel>("LabelCanBaudUnit", FrCanBaud);
  unit->setText(QStringLiteral("bit/s"));
  row->addWidget(unit);
  row->addStretch();
}

void UceEditParam::Parts::makeIp(QWidget* parent) {
  FrIP = frame("FrIP", "DiagOnIP", parent);
  txIPAddress = textField("txIPAddress", FrIP);
  txMACAddress = textField("txMACAddress", FrIP);
  CheckCGWIP = button<QCheckBox>("CheckCGWIP", "behind the central gateway (CGW)", FrIP);
  LabelCGWIP = caption("LabelCGWIP", "Gateway", CheckCGWIP, FrIP);
  QGridLayout* grid = gridOf(FrIP);
  grid->addWidget(caption("LabelIPAddress", "IP address", txIPAddress, FrIP), 0, 0);
  grid->addWidget(txIPAddress, 0, 1);
  grid->addWidget(caption("LabelMACAddress", "MAC address", txMACAddress, FrIP), 1, 0);
  grid->addWidget(txMACAddress, 1, 1);
  grid->addWidget(LabelCGWIP, 2, 0);
  grid->addWidget(CheckCGWIP, 2, 1, 1, 2, Qt::AlignLeft);
  grid->setColumnMinimumWidth(1, 260);
  grid->setColumnStretch(2, 1);
}

void UceEditParam::Parts::makeTiming(QWidget* parent) {
  Timing = frame("Timing", "Timing", parent);
  QGridLayout* grid = gridOf(Timing);
  auto* hint = named<QLabel>("LabelTiming", Timing);
  hint->setText(QStringLiteral("Check the box to change the default value"));
  grid->addWidget(hint, 0, 0, 1, 4);
  constexpr int firstColumn = 5; // rows
  for (std::size_t i = 0; i < parameterNumberCount; ++i) {
    const NumberCaption& texts = numberCaptions[i];
    numbers[i].box = button<QCheckBox>(texts.box, texts.text, Timing);
    numbers[i].box->setToolTip(QStringLiteral("Check the box to change the default value"));
    numbers[i].field = named<QLineEdit>(texts.field, Timing);
    numbers[i].field->setAlignment(Qt::AlignRight);
    numbers[i].field->setMaximumWidth(110);
    const int place = static_cast<int>(i);
    const int row = 1 + place % firstColumn, column = place < firstColumn ? 0 : 3;
    grid->addWidget(numbers[i].box, row, column, Qt::AlignLeft);
    grid->addWidget(numbers[i].field, row, column + 1);
  }
  grid->setColumnMinimumWidth(2, 16);
  grid->setColumnStretch(5, 1);
}

void UceEditParam::Parts::makeKeyWords(QWidget* parent) {
  Frame1 = frame("Frame1", "Key words", parent);
  auto* row = new QHBoxLayout(Frame1);
  const auto keyField = [this, row](const char* name, const char* labelName, const char* text) {
    auto* field = named<QLineEdit>(name, Frame1);
    field->setMaximumWidth(90);
    field->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[0-9A-Fa-f]{0,8}")), field));
    row->addWidget(caption(labelName, text, field, Frame1));
    row->addWidget(field);
    return field;
  };
  KW1 = keyField("KW1", "LabelKW1", "Key word 1 (hex)");
  KW2 = keyField("KW2", "LabelKW2", "Key word 2 (hex)");
  TextFakra = named<ShownField>("TextFakra", Frame1);
  TextFakra->setMaximumWidth(90);
  row->addWidget(caption("LabelFakra", "Code", TextFakra, Frame1));
  row->addWidget(TextFakra);
  row->addStretch();
}

/// The tabulator goes through the controls as they are read, in the two columns too.
void UceEditParam::Parts::orderFields() {
  std::vector<QWidget*> order;
  for (QAction* action : TBparam->actions())
    order.push_back(TBparam->widgetForAction(action));
  order.insert(order.end(),
               {txtEmail, CheckOfficia, DateOfficia, Comment, TextReprog, ComboTypePanne, bigEndian,
                littleEndian, ComboTypeCom, &canXid->number(), &canXid->extended(),
                &canRid->number(), &canRid->extended(), CheckCGW, ComboMaxDataLangthCANFD,
                ComboBaudRate, txIPAddress, txMACAddress, CheckCGWIP});
  for (const Number& number : numbers)
    order.insert(order.end(), {number.box, number.field});
  order.insert(order.end(), {KW1, KW2, TextFakra});
  const std::vector<QWidget*> idents = UceAutoIdents1->tabOrder();
  order.insert(order.end(), idents.begin(), idents.end());
  for (std::size_t i = 1; i < order.size(); ++i)
    QWidget::setTabOrder(order[i - 1], order[i]);
}

/// What stands beside a field is its name for readers of the screen, in the language of the moment.
void UceEditParam::Parts::nameFields() {
  for (const QLabel* label : parameterPane->findChildren<QLabel*>())
    if (label->buddy() && label->buddy() != bigEndian && !qobject_cast<QCheckBox*>(label->buddy()))
      label->buddy()->setAccessibleName(label->text());
  for (const Number& number : numbers)
    number.field->setAccessibleName(number.box->text());
  DateOfficia->setAccessibleName(CheckOfficia->text());
}

} // namespace kelmar
