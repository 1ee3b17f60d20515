// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_type.h"

#include "base/text.h"
#include "language/multi_lang.h"

namespace kelmar {

DataType typeOf(const DataItem& data) {
  if (!data.numerique) return DataType::NotNumeric;
  return data.liste ? DataType::NumericList : DataType::Numeric;
}

std::string dataIcon(const DataItem& data) {
  switch (typeOf(data)) {
  case DataType::Numeric:
    return "numeric";
  case DataType::NumericList:
    return "list";
  default:
    return data.Ascii ? "ascii" : "hexa";
  }
}

DataWarning setScreen_datas(const DataItem& data) {
  const CMultiLangEx& texts = language::global();
  if (trimBlanks(data.dataName()) != data.dataName())
    return {true, texts.getMultilangMessageDefault("Error: Name with leading or training space",
                                                   "DATAS/MSG/setScreen_datas/text")};
  if (!data.numerique) return {};
  if (!data.Signe && data.NumberBits == mostNumericBits)
    return {true, texts.getMultilangMessageDefault(
                      "Error: Unsigned 32 bits data is not supported",
                      "DATAS/MSG/setScreen_datas/unsigned32bitNotSupported/text")};
  if (data.NumberBits < 1 || data.NumberBits > mostNumericBits)
    return {true,
            texts.getMultilangMessageDefault(
                "Error: Invalid bit count: {0} - authorized value [1 up to 32]",
                "DATAS/MSG/setScreen_datas/invalidBitCount/text", std::to_string(data.NumberBits))};
  return {};
}

} // namespace kelmar
