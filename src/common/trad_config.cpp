// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/trad_config.h"

#include "base/conversions.h"

namespace kelmar {

void addTradConfig(TabText& text, const DataItem& data) {
  const bool hasValues = data.numerique && data.DataListes && data.DataListes->Count() > 0;
  const std::string size = data.numerique ? std::to_string(data.NumberBits) + " bits"
                                          : doubleToPlainText(data.NumberBits / 8.0) + " bytes";
  if (!hasValues) {
    text.line({data.dataName(), size, data.Description, "", "", "", "", "", ""});
    return;
  }
  bool first = true;
  for (const DataListeItem* value : *data.DataListes) {
    text.cell(first ? data.dataName() : "").cell(first ? size : "");
    text.cell(first ? data.Description : "").cell("").cell(value->Valeur).cell(value->libelle);
    text.cell("").cell("").cell("").endLine();
    first = false;
  }
}

} // namespace kelmar
