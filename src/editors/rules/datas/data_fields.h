// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/rules/datas/data_type.h"
#include "platform/person.h"

#include <string>
#include <string_view>

namespace kelmar {

/// What stands in the fields of the data page, one member per control.
struct DataFields {
  DataType OPtype = DataType::Numeric;
  std::string TextMnemo, TextDescription, TextUnite, TextFormat;
  std::string TextCoeffA, TextCoeffB, TextCoeffC;
  double NumericNumberBits = 8; ///< bits
  bool CheckSigne = false;
  double ListeNumberBits = 8; ///< bits
  bool CheckSignedList = false;
  double NotNumericNumberBytes = 1; ///< bytes; may be fractional for a data of an odd file
  bool RBascii = false;             ///< ASCII, else BCD / HEXA

  friend bool operator==(const DataFields&, const DataFields&) = default;
};

DataFields fieldsOf(const DataItem& data);

/// A text of a file in fields and rows that have one line: breaks become blanks.
std::string inOneLine(std::string_view text);

/// Going from one form to another carries sign and bit count over between the two numeric ones.
void changeType(DataFields& fields, DataType type);

/// A coefficient as the field shows it: plain digits, "." before the fraction.
std::string coefficientText(const Coefficient& coefficient);
/// The number that a coefficient field holds; "," and "." are both taken for the decimal point.
/// Raises TypeMismatch for a text that is no number, NumericOverflow.
double coefficientOf(std::string_view text);
bool isCoefficient(std::string_view text);
/// The text says another value than the item has, or none.
bool coefficientDiffers(std::string_view text, const Coefficient& coefficient);

/// C is 0 in a numeric data: a label warns of it.
bool divisorIsZero(const DataItem& data);

/// Copies the fields into the data, in their fixed order; the value list is not among them. False
/// when C is 0: a box has said so, and what stands behind CoeffB in the order is not copied. A
/// coefficient that is no number is not copied; for the first one of a numeric data Failure is
/// raised, whose source is the name of the field.
bool GetDataFromScreen(const DataFields& fields, DataItem& data, platform::Person& person);

} // namespace kelmar
