// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/tab_text.h"
#include "editors/rules/requests/request_commands.h"

#include <unordered_set>

namespace kelmar {

namespace {

void addData(TabText& text, const DataItem& data) {
  const bool valueList = data.numerique && data.DataListes && data.DataListes->Count() > 0;
  const std::string size = data.numerique ? std::to_string(data.NumberBits) + " bits"
                                          : std::to_string(data.NumberBits / 8) + " bytes";
  if (!valueList) {
    text.line({data.dataName(), size, data.Description, "", "", "", "", "", ""});
    return;
  }
  bool first = true;
  for (const DataListeItem* value : *data.DataListes) {
    const std::string number = std::to_string(value->Valeur);
    if (first) {
      text.line({data.dataName(), size, data.Description, "", number, value->libelle, "", "", ""});
    } else {
      text.line({"", "", "", "", number, value->libelle, "", "", ""});
    }
    first = false;
  }
}

} // namespace

std::string tradConfigText(const RequestSelection& requests) {
  TabText text;
  std::unordered_set<const DataItem*> told;
  for (const RequestItem* request : requests) {
    if (!request->DataPositions) continue;
    for (const DataPositionItem* position : *request->DataPositions) {
      if (!position->param) continue;
      const DataItem* data = position->data();
      if (data && told.insert(data).second) addData(text, *data);
    }
  }
  return text.text();
}

} // namespace kelmar
