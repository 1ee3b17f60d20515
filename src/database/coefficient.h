// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/conversions.h"

#include <string>

namespace kelmar {

/// A scaling coefficient: a double, or a decimal when the double would print with a negative
/// exponent, so that a small coefficient is written in plain digits.
class Coefficient {
 public:
  /// Raises NumericOverflow when a value that needs the decimal form does not fit it.
  Coefficient(double value = 0.0); // a number is a coefficient

  /// The decimal form whatever the size of the number. Raises NumericOverflow.
  static Coefficient asDecimal(double value);
  /// True when the double form of the number prints with a negative exponent.
  static bool needsDecimal(double value);

  double value() const { return value_; }
  bool isDecimal() const { return isDecimal_; }
  /// The number text of the file, with its leading blank.
  std::string toNumberText() const;

  friend bool operator==(const Coefficient& left, double right) { return left.value_ == right; }

 private:
  double value_ = 0.0;
  bool isDecimal_ = false; // the decimal of the value; no second copy of it is kept
};

} // namespace kelmar
