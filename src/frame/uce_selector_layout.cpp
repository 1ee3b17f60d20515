// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/command_table.h"
#include "controls/icons.h"
#include "controls/named.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/ecu_selector.h"
#include "frame/rules/ecu_head_text.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "frame/uctl_new_ecu_addr.h"
#include "language/multi_lang.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include <array>

namespace kelmar {

using desktop::qs;

namespace {

/// The label in front of a field is its accessible name, in the language of the moment.
void nameByLabels(QWidget& page) {
  for (const QLabel* label : page.findChildren<QLabel*>())
    if (label->buddy()) label->buddy()->setAccessibleName(label->text());
}

/// The entries of the list of protocols, in their order, with the numbers that the search knows.
struct ProtocolChoice {
  EcuProtocol protocol;
  int data;
};
constexpr std::array<ProtocolChoice, 8> protocolChoices{{{EcuProtocol::Unknown, 0},
                                                         {EcuProtocol::Can, 1},
                                                         {EcuProtocol::CanFd, 8},
                                                         {EcuProtocol::Ip, 9},
                                                         {EcuProtocol::KwpFastInitMono, 2},
                                                         {EcuProtocol::KwpFastInitMulti, 3},
                                                         {EcuProtocol::Kwp5BaudType1, 4},
                                                         {EcuProtocol::Kwp5BaudType2, 5}}};

} // namespace

void UceSelector::Parts::makeControls() {
  page.setObjectName(QStringLiteral("UceSelector1"));
  page.setProperty(desktop::ownTextsProperty, true);
  TBtoolbar = named<QToolBar>("TBtoolbar", &page);
  TBtoolbar->setIconSize(QSize(20, 20));
  lbAppVersion = named<QLabel>("lbAppVersion", &page);
  tbUpdateCheckBase = named<QLabel>("tbUpdateCheckBase", &page);
  tbUpdateCheckBase->setText(QStringLiteral("Update of the check scripts"));
  pbUpdateCheckBase = named<QProgressBar>("pbUpdateCheckBase", &page);
  pbUpdateCheckBase->setRange(0, 100);
  pbUpdateCheckBase->setMaximumWidth(180);
  tbUpdateCheckBase->hide();
  pbUpdateCheckBase->hide();

  splitter = named<QSplitter>("splitter", &page);
  ecuSelector1 = named<ecuSelector>("ecuSelector1", splitter);
  ecuSelector1->setProperty(desktop::ownTextsProperty, true);

  framSummary = named<QGroupBox>("framSummary", splitter);
  framSummary->setTitle(QStringLiteral("ECU"));
  TxEcuName = named<QLineEdit>("TxEcuName", framSummary);
  txGenericName = named<QLineEdit>("txGenericName", framSummary);
  TextFunction = named<ShownField>("TextFunction", framSummary);
  TextAdresse = named<ShownField>("TextAdresse", framSummary);
  TextLogicalAdresse = named<ShownField>("TextLogicalAdresse", framSummary);
  TextProtocole = named<ShownField>("TextProtocole", framSummary);
  LabelFunction = named<MenuLabel>("LabelFunction", framSummary);
  LabelFunction->setText(QStringLiteral("Function"));
  LabelFunction->setToolTip(QStringLiteral("Change the function"));
  changeFunctionRow = new QWidget(framSummary);
  cbFunctionsName = named<QComboBox>("cbFunctionsName", changeFunctionRow);
  cbFunctionsName->setMaxVisibleItems(20);
  cmdChangeFunctionOK = button<QPushButton>("cmdChangeFunctionOK", "OK", changeFunctionRow);
  cmdChangeFunctionCancel =
      button<QPushButton>("cmdChangeFunctionCancel", "Cancel", changeFunctionRow);
  lbFileName = named<ShortenedLabel>("lbFileName", framSummary);
  cmdLinkNewPDM = named<QToolButton>("cmdLinkNewPDM", framSummary);
  cmdLinkNewPDM->setText(QStringLiteral("Permanent link"));
  cmdLinkNewPDM->setToolTip(QStringLiteral("Copy the permanent link of this ECU"));
  cmdLoadReport = named<QToolButton>("cmdLoadReport", framSummary);
  cmdLoadReport->setIcon(icon("warning"));
  cmdLoadReport->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  cmdLoadReport->setAutoRaise(true);
  cmdLoadReport->setCursor(Qt::PointingHandCursor);

  TxEcuDesc = named<QPlainTextEdit>("TxEcuDesc", splitter);
  TxEcuDesc->setReadOnly(true);
  TxEcuDesc->setTabChangesFocus(true);
  TxEcuDesc->setAccessibleName(QStringLiteral("Description of the selection"));
  framProjects = named<QGroupBox>("framProjects", splitter);
  framProjects->setTitle(QStringLiteral("Projects"));
  lstProjects = named<QListWidget>("lstProjects", framProjects);
  lstProjects->setAccessibleName(framProjects->title());
  lstProjects->setSpacing(1);

  FrDetect = named<QGroupBox>("FrDetect", splitter);
  FrDetect->setTitle(QStringLiteral("Manual Detect of ECU in database"));
  comboProto = named<QComboBox>("comboProto", FrDetect);
  txdFunc = named<QLineEdit>("txdFunc", FrDetect);
  txdDiag = named<QLineEdit>("txdDiag", FrDetect);
  txdSup = named<QLineEdit>("txdSup", FrDetect);
  txdSoft = named<QLineEdit>("txdSoft", FrDetect);
  txdVers = named<QLineEdit>("txdVers", FrDetect);
  cbDetect = button<QPushButton>("cbDetect", "Detect", FrDetect);
  cbDetect->setIcon(icon("search"));
  lbResult = named<QLabel>("lbResult", FrDetect);
  lbResult->setTextFormat(Qt::PlainText);
  lbResult->setWordWrap(true);
  lbResult->setTextInteractionFlags(Qt::TextSelectableByMouse);
  txdHref = named<ShownField>("txdHref", FrDetect);

  UctlNewEcuAddr1 = new UctlNewEcuAddr(machine.person, machine.fetch, splitter);
  UctlNewEcuAddr1->setObjectName(QStringLiteral("UctlNewEcuAddr1"));

  // A file that is dropped on a field is meant for the page.
  for (QWidget* field : page.findChildren<QWidget*>())
    if (qobject_cast<QLineEdit*>(field) || qobject_cast<QPlainTextEdit*>(field))
      field->setAcceptDrops(false);
  TxEcuDesc->viewport()->setAcceptDrops(false);
}

void UceSelector::Parts::layOut() {
  auto* top = new QHBoxLayout;
  TBtoolbar->layout()->setContentsMargins(0, 0, 0, 0);
  top->addWidget(TBtoolbar, 1);
  top->addWidget(tbUpdateCheckBase);
  top->addWidget(pbUpdateCheckBase);
  top->addWidget(lbAppVersion);
  lbAppVersion->setForegroundRole(QPalette::PlaceholderText);

  // Summary: two columns of fields, the function in a row of its own as its name may be long.
  auto* grid = new QGridLayout(framSummary);
  grid->addWidget(caption("LabelName", "Name", TxEcuName, framSummary), 0, 0);
  grid->addWidget(TxEcuName, 0, 1);
  grid->addWidget(caption("LabelGenericName", "Generic name", txGenericName, framSummary), 0, 2);
  grid->addWidget(txGenericName, 0, 3);
  grid->addWidget(LabelFunction, 1, 0);
  LabelFunction->setBuddy(TextFunction);
  grid->addWidget(TextFunction, 1, 1);
  grid->addWidget(caption("LabelProtocole", "Protocol", TextProtocole, framSummary), 1, 2);
  grid->addWidget(TextProtocole, 1, 3);
  auto* change = new QHBoxLayout(changeFunctionRow);
  change->setContentsMargins(0, 0, 0, 0);
  change->addWidget(cbFunctionsName, 1);
  change->addWidget(cmdChangeFunctionOK);
  change->addWidget(cmdChangeFunctionCancel);
  grid->addWidget(changeFunctionRow, 2, 1, 1, 3);
  grid->addWidget(caption("LabelAdresse", "Address (hex)", TextAdresse, framSummary), 3, 0);
  grid->addWidget(TextAdresse, 3, 1);
  grid->addWidget(
      caption("LabelLogicalAdresse", "Logical address", TextLogicalAdresse, framSummary), 3, 2);
  grid->addWidget(TextLogicalAdresse, 3, 3);
  auto* fileRow = new QHBoxLayout;
  fileRow->addWidget(lbFileName, 1);
  fileRow->addWidget(cmdLinkNewPDM);
  grid->addLayout(fileRow, 4, 0, 1, 4);
  grid->addWidget(cmdLoadReport, 5, 0, 1, 4, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);

  auto* projectsLayout = new QVBoxLayout(framProjects);
  projectsLayout->addWidget(lstProjects);

  auto* detectGrid = new QGridLayout(FrDetect);
  int row = 0;
  const auto detectRow = [&](const char* left, const char* leftText, QWidget* leftField,
                             const char* right, const char* rightText, QWidget* rightField) {
    detectGrid->addWidget(caption(left, leftText, leftField, FrDetect), row, 0);
    detectGrid->addWidget(leftField, row, 1);
    detectGrid->addWidget(caption(right, rightText, rightField, FrDetect), row, 2);
    detectGrid->addWidget(rightField, row, 3);
    ++row;
  };
  detectRow("LabelProto", "Protocol", comboProto, "LabelFunc", "Function address", txdFunc);
  detectRow("LabelDiag", "Diag version", txdDiag, "LabelSup", "Supplier", txdSup);
  detectRow("LabelSoft", "Software", txdSoft, "LabelVers", "Version", txdVers);
  detectGrid->addWidget(caption("LabelHref", "Found", txdHref, FrDetect), row, 0);
  detectGrid->addWidget(txdHref, row, 1, 1, 2);
  detectGrid->addWidget(cbDetect, row, 3, Qt::AlignRight);
  detectGrid->addWidget(lbResult, row + 1, 0, 1, 4, Qt::AlignTop);
  detectGrid->setRowStretch(row + 1, 1);
  detectGrid->setColumnStretch(1, 1);
  detectGrid->setColumnStretch(3, 1);
  comboProto->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  comboProto->setMinimumContentsLength(12);
  lbResult->setMinimumHeight(lbResult->fontMetrics().lineSpacing() * 3);

  auto* left = new QSplitter(Qt::Vertical, splitter);
  left->addWidget(ecuSelector1);
  left->addWidget(TxEcuDesc);
  left->setStretchFactor(0, 3);
  left->setStretchFactor(1, 1);
  left->setChildrenCollapsible(false);

  auto* right = new QWidget(splitter);
  auto* rightLayout = new QVBoxLayout(right);
  rightLayout->setContentsMargins(0, 0, 0, 0);
  rightLayout->addWidget(framSummary);
  lowerRow = new QWidget(right);
  auto* lower = new QHBoxLayout(lowerRow);
  lower->setContentsMargins(0, 0, 0, 0);
  lower->addWidget(framProjects, 2);
  lower->addWidget(FrDetect, 5);
  rightLayout->addWidget(lowerRow, 1);
  rightLayout->addWidget(UctlNewEcuAddr1, 1);
  splitter->addWidget(left);
  splitter->addWidget(right);
  splitter->setStretchFactor(0, 2);
  splitter->setStretchFactor(1, 3);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(8);
  splitter->setSizes({400, 600}); // shares of whatever width there is

  auto* layout = new QVBoxLayout(&page);
  layout->setContentsMargins(9, 4, 9, 9);
  layout->setSpacing(4);
  layout->addLayout(top);
  layout->addWidget(splitter, 1);

  // As the eye goes: the tree, the summary, what stands below it.
  QWidget* const order[] = {ecuSelector1,
                            TxEcuDesc,
                            TxEcuName,
                            txGenericName,
                            LabelFunction,
                            TextFunction,
                            TextProtocole,
                            cbFunctionsName,
                            cmdChangeFunctionOK,
                            cmdChangeFunctionCancel,
                            TextAdresse,
                            TextLogicalAdresse,
                            cmdLinkNewPDM,
                            cmdLoadReport,
                            lstProjects,
                            comboProto,
                            txdFunc,
                            txdDiag,
                            txdSup,
                            txdSoft,
                            txdVers,
                            cbDetect,
                            txdHref};
  for (std::size_t i = 1; i < std::size(order); ++i)
    QWidget::setTabOrder(order[i - 1], order[i]);
  page.setFocusProxy(ecuSelector1);
  nameByLabels(page);
  cbFunctionsName->setAccessibleName(LabelFunction->text());
}

void UceSelector::Parts::fillProtocols() {
  for (const ProtocolChoice& choice : protocolChoices)
    comboProto->addItem(qs(protocolText(choice.protocol, texts())), choice.data);
  comboProto->setCurrentIndex(1);
}

void UceSelector::Parts::translate() {
  const auto text = [this](const char* english, const char* key) {
    return qs(texts().getMultilangMessageDefault(english, key));
  };
  commands->action("Open").setText(text("Open", "SELECTOR/MSG/TBtoolbar/open"));
  commands->action("Save").setText(text("Save", "SELECTOR/MSG/TBtoolbar/save"));
  commands->action("cancel").setText(text("Cancel", "SELECTOR/MSG/TBtoolbar/cancel"));
  commands->action("new").setText(text("New", "SELECTOR/MSG/TBtoolbar/new"));
  TxEcuDesc->setAccessibleName(text("Description of the selection", "SELECTOR/MSG/TxEcuDesc/name"));
  TxEcuDesc->setPlaceholderText(text("Select an ECU in the tree to read about it here.",
                                     "SELECTOR/MSG/TxEcuDesc/placeholder"));
  for (int index = 0; index < comboProto->count(); ++index)
    comboProto->setItemText(
        index,
        qs(protocolText(protocolChoices[static_cast<std::size_t>(index)].protocol, texts())));

  desktop::TranslateControl(page, texts(), "SELECTOR/CONTROLS");
  allProjects = texts().getMultilangMessageDefault("All projects", "SELECTOR/MSG/allProjects/text");
  lbAppVersion->setText(qs(texts().getMultilangMessageDefault(
      "Version : {0}", "SELECTOR/MSG/lbAppVersion/text", OmnikorLibXml::Version())));
  lstProjects->setAccessibleName(framProjects->title());
  nameByLabels(page);
  cbFunctionsName->setAccessibleName(LabelFunction->text());
  if (initialised) {
    readProjects();
    showProjects();
  }
}

} // namespace kelmar
