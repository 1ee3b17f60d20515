// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/uctl_new_ecu_addr.h"

#include "base/failure.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/rules/addressing_texts.h"
#include "frame/uce_selector_fields.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace kelmar {

using desktop::qs;
using desktop::u8;

UctlNewEcuAddr::UctlNewEcuAddr(platform::Person& person, platform::Fetch* fetch, QWidget* parent)
    : QWidget(parent), person_(person), fetch_(fetch), frame_(new QGroupBox(this)),
      cbFct_(new QComboBox(frame_)), txAddr_(new QLineEdit(frame_)),
      txtLogicalAddress_(new ShownField(frame_)), lbCanXid_(new ShownField(frame_)),
      lbCanRid_(new ShownField(frame_)), CbExtended_(new QCheckBox(frame_)),
      cbCreate_(new QPushButton(frame_)), cbCancel_(new QPushButton(frame_)) {
  setProperty(desktop::ownTextsProperty, true);
  layOut();
  setFocusProxy(cbFct_);
  // A name that the file lacks may be typed; the address is typed then as well.
  cbFct_->setEditable(true);
  cbFct_->setInsertPolicy(QComboBox::NoInsert);
  cbFct_->setMaxVisibleItems(20);
  show(addressingFieldsOf({}, false));

  connect(cbFct_, &QComboBox::currentIndexChanged, this, &UctlNewEcuAddr::chooseFunction);
  connect(cbFct_, &QComboBox::editTextChanged, this, &UctlNewEcuAddr::functionTyped);
  connect(CbExtended_, &QCheckBox::clicked, this,
          [this] { show(addressingFieldsOf(function_, CbExtended_->isChecked())); });
  connect(cbCreate_, &QPushButton::clicked, this, &UctlNewEcuAddr::createClicked);
  connect(txAddr_, &QLineEdit::returnPressed, this, &UctlNewEcuAddr::createClicked);
  connect(cbCancel_, &QPushButton::clicked, this, &UctlNewEcuAddr::cancel);
}

void UctlNewEcuAddr::InitControl() {
  desktop::TranslateControl(*this, language::global(), "NEWECU/CONTROLS");
  cbFct_->setAccessibleName(findChild<QLabel*>("LabelFct")->text());
}

void UctlNewEcuAddr::ReadAddressingFile(const std::string& file) {
  function_ = {};
  {
    const QSignalBlocker quiet(cbFct_);
    cbFct_->clear();
    cbFct_->clearEditText();
  }
  show(addressingFieldsOf({}, false));
  if (!file_.load(file, fetch_)) {
    person_.message(unreadableFileBox(language::global(), file, file_.reason()));
    return;
  }
  const QSignalBlocker quiet(cbFct_);
  for (const std::string& name : file_.functionNames())
    cbFct_->addItem(qs(name));
  cbFct_->setCurrentIndex(-1);
}

void UctlNewEcuAddr::chooseFunction() {
  function_ = file_.functionNamed(u8(cbFct_->currentText()));
  show(addressingFieldsOf(function_, CbExtended_->isChecked()));
}

void UctlNewEcuAddr::functionTyped() {
  const xml::Node typed = file_.functionNamed(u8(cbFct_->currentText()));
  // While a name of one's own is typed, the address that was typed for it stays.
  if (typed != function_) chooseFunction();
}

void UctlNewEcuAddr::show(const AddressingFields& fields) {
  txAddr_->setText(qs(fields.txAddr));
  txAddr_->setReadOnly(!fields.txAddrFree);
  txtLogicalAddress_->setText(qs(fields.txtLogicalAddress));
  lbCanXid_->setText(qs(fields.lbCanXid));
  lbCanRid_->setText(qs(fields.lbCanRid));
  CbExtended_->setChecked(fields.CbExtended);
  CbExtended_->setEnabled(fields.CbExtendedEnabled);
}

void UctlNewEcuAddr::createClicked() {
  NewEcu ecu;
  try {
    ecu = newEcuOf(function_, u8(cbFct_->currentText()), u8(txAddr_->text()));
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
    txAddr_->setFocus();
    return;
  }
  emit create(ecu.address, qs(ecu.logicalAddress), qs(ecu.functionName), ecu.canXid, ecu.canRid);
}

// No shortcut: that would come before the open list of functions, which closes by the same key.
void UctlNewEcuAddr::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel))
    emit cancel();
  else
    QWidget::keyPressEvent(event);
}

void UctlNewEcuAddr::layOut() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->addWidget(frame_);
  outer->addStretch(1);
  auto* grid = new QGridLayout(frame_);
  const auto name = [](QWidget* widget, const char* objectName) {
    widget->setObjectName(QLatin1String(objectName));
    return widget;
  };
  const auto label = [&](const char* objectName, const QString& text, QWidget* buddy) {
    auto* made = new QLabel(text, frame_);
    made->setObjectName(QLatin1String(objectName));
    made->setBuddy(buddy);
    return made;
  };

  name(frame_, "Frame1");
  frame_->setTitle(QStringLiteral("Address of the new ECU"));
  name(cbFct_, "cbFct");
  name(txAddr_, "txAddr");
  name(txtLogicalAddress_, "txtLogicalAddress");
  name(lbCanXid_, "lbCanXid");
  name(lbCanRid_, "lbCanRid");
  name(CbExtended_, "CbExtended");
  CbExtended_->setText(QStringLiteral("Extended"));
  name(cbCreate_, "cbCreate");
  cbCreate_->setText(QStringLiteral("Create"));
  name(cbCancel_, "cbCancel");
  cbCancel_->setText(QStringLiteral("Cancel"));
  cbFct_->setMinimumContentsLength(18);
  cbFct_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

  grid->addWidget(label("LabelFct", QStringLiteral("Function"), cbFct_), 0, 0);
  grid->addWidget(cbFct_, 0, 1, 1, 3);
  grid->addWidget(label("LabelAddr", QStringLiteral("Address (decimal)"), txAddr_), 1, 0);
  grid->addWidget(txAddr_, 1, 1);
  grid->addWidget(
      label("LabelLogicalAddress", QStringLiteral("Logical address"), txtLogicalAddress_), 1, 2);
  grid->addWidget(txtLogicalAddress_, 1, 3);
  grid->addWidget(CbExtended_, 2, 1, 1, 3, Qt::AlignLeft);
  // The identifier that the tool sends stands between the two captions.
  grid->addWidget(label("Label2", QStringLiteral("Tool -> ECU id"), lbCanXid_), 3, 0);
  grid->addWidget(lbCanXid_, 3, 1);
  grid->addWidget(label("Label3", QStringLiteral("ECU -> Tool id"), lbCanRid_), 3, 2);
  grid->addWidget(lbCanRid_, 3, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cbCreate_);
  buttons->addWidget(cbCancel_);
  grid->addLayout(buttons, 4, 0, 1, 4);
  grid->setRowMinimumHeight(4, 40);

  QWidget* const order[] = {cbFct_,    txAddr_,   txtLogicalAddress_, CbExtended_,
                            lbCanXid_, lbCanRid_, cbCreate_,          cbCancel_};
  for (std::size_t i = 1; i < std::size(order); ++i)
    setTabOrder(order[i - 1], order[i]);
}

} // namespace kelmar
