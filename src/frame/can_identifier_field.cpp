// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/can_identifier_field.h"

#include "controls/number_entry.h"
#include "controls/zem_numeric.h"
#include "desktop/qt_text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace kelmar {

CanIdentifierField::CanIdentifierField(const QString& name, QWidget* parent)
    : QWidget(parent), number_(new ZEMnumeric(this)), extended_(new QCheckBox(this)),
      textBox_(number_->findChild<QLineEdit*>()) {
  number_->setObjectName(name);
  number_->setRangeChecking(true);
  number_->setDiscrete(true);
  number_->setDiscreteInterval(1);
  number_->setMaxLength(9); // decimal digits of 29 bits
  number_->setBase(1);
  extended_->setObjectName(name + QStringLiteral("Extented"));
  extended_->setText(QStringLiteral("29 bits"));
  extended_->setToolTip(QStringLiteral("Extended identifier of 29 bits"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(number_, 1);
  row->addWidget(extended_);
  setFocusProxy(number_);
  showIdentifier({});

  connect(number_, &ZEMnumeric::Change, this, &CanIdentifierField::numberChanged);
  connect(extended_, &QCheckBox::toggled, this, &CanIdentifierField::extendedChanged);
}

void CanIdentifierField::showIdentifier(const CanIdentifier& identifier) {
  const QScopedValueRollback showing(showing_, true);
  extended_->setChecked(identifier.extended);
  number_->SetMinMax(0, largestOf(identifier.extended));
  // A number of a file may lie outside what can be typed; it is shown as it is.
  number_->setRangeChecking(false);
  number_->setvalue(identifier.value.value_or(0));
  number_->setRangeChecking(true);
  unset_ = !identifier.value;
  if (unset_) number_->settext({});
  known_ = identifierOfScreen();
}

CanIdentifier CanIdentifierField::identifier() {
  number_->commitText();
  return identifierOfScreen();
}

CanIdentifier CanIdentifierField::identifierOfScreen() const {
  CanIdentifier entered{{}, extended_->isChecked()};
  if (!unset_) entered.value = static_cast<std::int32_t>(number_->valueOfText());
  return entered;
}

void CanIdentifierField::numberChanged() {
  if (showing_) return;
  const QString text = number_->text().trimmed();
  if (text.isEmpty()) {
    unset_ = true;
    showEmpty();
  } else if (unset_) {
    // A number field shows its value when it is left: here that is no identifier, not 0.
    const bool typed = textBox_->isModified();
    if (!typed && text == QLatin1String("0")) return showEmpty();
    if (!readNumber(desktop::u8(text), static_cast<NumberBase>(number_->Base()))) return;
    unset_ = false;
  }
  tellEdit();
}

void CanIdentifierField::extendedChanged(bool extended) {
  if (showing_) return;
  number_->setMaximum(largestOf(extended));
  if (!unset_) {
    number_->commitText();
    number_->setvalue(number_->value()); // cuts a number that is too large now
  }
  tellEdit();
}

// The same identifier in the other base is another text, and no edit.
void CanIdentifierField::tellEdit() {
  const CanIdentifier now = identifierOfScreen();
  if (now == known_) return;
  known_ = now;
  emit edited();
}

// The value is 0 then, from which the spin button begins.
void CanIdentifierField::showEmpty() {
  const QScopedValueRollback showing(showing_, true);
  number_->setvalue(0);
  number_->settext({});
}

} // namespace kelmar
