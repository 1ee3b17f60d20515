// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_fields.h"

#include "base/conversions.h"
#include "base/text.h"
#include "language/multi_lang.h"

#include <optional>

namespace kelmar {

namespace {

/// Writes a coefficient. The first one that is no number is told in `refused`, with its field as
/// the source, and leaves the data as it is.
void takeCoefficient(Coefficient& coefficient, const std::string& text, const char* field,
                     std::optional<Failure>& refused) {
  if (!coefficientDiffers(text, coefficient)) return;
  try {
    coefficient = coefficientOf(text);
  } catch (const Failure& failure) {
    if (!refused) refused.emplace(failure.number, field, failure.text);
  }
}

} // namespace

DataFields fieldsOf(const DataItem& data) {
  DataFields fields;
  fields.OPtype = typeOf(data);
  fields.TextMnemo = data.Mnemo;
  fields.TextDescription = data.Description;
  fields.TextUnite = data.Unite;
  fields.TextFormat = data.DataFormat;
  fields.TextCoeffA = coefficientText(data.CoeffA);
  fields.TextCoeffB = coefficientText(data.CoeffB);
  fields.TextCoeffC = coefficientText(data.CoeffC);
  fields.NumericNumberBits = fields.ListeNumberBits = data.NumberBits;
  fields.CheckSigne = fields.CheckSignedList = data.Signe;
  fields.NotNumericNumberBytes = data.NumberBits / 8.0;
  fields.RBascii = data.Ascii;
  return fields;
}

std::string inOneLine(std::string_view text) {
  return replaceAll(replaceAll(replaceAll(text, "\r\n", " "), "\n", " "), "\r", " ");
}

void changeType(DataFields& fields, DataType type) {
  if (fields.OPtype == DataType::NumericList && type == DataType::Numeric) {
    fields.CheckSigne = fields.CheckSignedList;
    fields.NumericNumberBits = fields.ListeNumberBits;
  } else if (fields.OPtype == DataType::Numeric && type == DataType::NumericList) {
    fields.CheckSignedList = fields.CheckSigne;
    fields.ListeNumberBits = fields.NumericNumberBits;
  }
  fields.OPtype = type;
}

std::string coefficientText(const Coefficient& coefficient) {
  if (coefficient.isDecimal()) return Decimal(coefficient.value()).toText();
  return doubleToPlainText(coefficient.value());
}

double coefficientOf(std::string_view text) {
  return toDouble(replaceAll(text, ",", "."));
}

bool isCoefficient(std::string_view text) {
  return isNumeric(replaceAll(text, ",", "."));
}

bool coefficientDiffers(std::string_view text, const Coefficient& coefficient) {
  // The shown text may be shorter than the number behind it.
  if (text == coefficientText(coefficient)) return false;
  return !isCoefficient(text) || !(coefficient == coefficientOf(text));
}

bool divisorIsZero(const DataItem& data) {
  return typeOf(data) == DataType::Numeric && data.CoeffC == 0.0;
}

bool GetDataFromScreen(const DataFields& fields, DataItem& data, platform::Person& person) {
  data.Mnemo = fields.TextMnemo;
  data.Unite = fields.TextUnite;
  data.DataFormat = fields.TextFormat;
  std::optional<Failure> refused;
  takeCoefficient(data.CoeffA, fields.TextCoeffA, "TextCoeffA", refused);
  takeCoefficient(data.CoeffB, fields.TextCoeffB, "TextCoeffB", refused);
  if (isCoefficient(fields.TextCoeffC) && coefficientOf(fields.TextCoeffC) == 0.0) {
    const CMultiLangEx& texts = language::global();
    constexpr char zeroKey[] = "DATAS/MSG/CoefficientCcheckZero/text";
    person.message(
        {zeroKey,
         texts.getMultilangMessageDefault("Check value", "DATAS/MSG/CoefficientCcheckZero/title"),
         texts.getMultilangMessageDefault("The value of C Coefficient must be different from Zero",
                                          zeroKey),
         platform::Buttons::Ok, platform::Icon::Exclamation});
    return false;
  }
  takeCoefficient(data.CoeffC, fields.TextCoeffC, "TextCoeffC", refused);
  data.Description = fields.TextDescription;
  data.Ascii = fields.RBascii;
  data.numerique = fields.OPtype != DataType::NotNumeric;
  data.liste = fields.OPtype == DataType::NumericList;
  switch (fields.OPtype) {
  case DataType::Numeric:
    data.NumberBits = toInt32(fields.NumericNumberBits);
    data.Signe = fields.CheckSigne;
    break;
  case DataType::NumericList:
    data.NumberBits = toInt32(fields.ListeNumberBits);
    data.Signe = fields.CheckSignedList;
    break;
  case DataType::NotNumeric:
    data.NumberBits = toInt32(fields.NotNumericNumberBytes * 8);
    break;
  }
  // Out of sight it could not be mended.
  if (refused && fields.OPtype == DataType::Numeric) throw Failure(*refused);
  return true;
}

} // namespace kelmar
