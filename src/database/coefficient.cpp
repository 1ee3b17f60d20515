// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/coefficient.h"

namespace kelmar {

bool Coefficient::needsDecimal(double value) {
  // Only a number below 0.1 can print with a negative exponent; most are 1, 0 or larger.
  if (value == 0.0 || value >= 0.1 || value <= -0.1) return false;
  return doubleToPlainText(value).find("E-") != std::string::npos;
}

Coefficient::Coefficient(double value) : value_(value) {
  if (needsDecimal(value)) decimal_ = std::make_shared<const Decimal>(value);
}

Coefficient Coefficient::asDecimal(double value) {
  Coefficient coefficient;
  coefficient.decimal_ = std::make_shared<const Decimal>(value);
  coefficient.value_ = coefficient.decimal_->toDouble();
  return coefficient;
}

std::string Coefficient::toNumberText() const {
  return decimal_ ? NumberToText(*decimal_) : NumberToText(value_);
}

} // namespace kelmar
