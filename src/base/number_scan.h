// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelmar {

/// A number found at the start of a text.
struct ScannedNumber {
  std::string_view text; ///< sign, digits, ".", exponent; empty when there is no number
  bool negative = false;
  bool plainInteger = false; ///< nothing but digits behind the sign
};

/// Sign, digits with at most one ".", and an exponent when it has digits. No blanks are skipped.
ScannedNumber scanNumber(std::string_view text);

/// What became of the value of a scanned number.
enum class Magnitude { Fits, TooLarge };

/// The nearest double; what is too small for one is 0. Leaves the largest finite double of its
/// sign when it answers TooLarge.
Magnitude scannedValue(const ScannedNumber& number, double& value);

} // namespace kelmar
