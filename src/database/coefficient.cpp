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
  if (needsDecimal(value)) *this = asDecimal(value);
}

Coefficient Coefficient::asDecimal(double value) {
  Coefficient coefficient;
  coefficient.value_ = Decimal(value).toDouble();
  coefficient.isDecimal_ = true;
  return coefficient;
}

std::string Coefficient::toNumberText() const {
  return isDecimal_ ? NumberToText(Decimal(value_)) : NumberToText(value_);
}

} // namespace kelmar
