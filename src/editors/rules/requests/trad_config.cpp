// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/trad_config.h"
#include "editors/rules/requests/request_commands.h"

#include <unordered_set>

namespace kelmar {

std::string tradConfigText(const RequestSelection& requests, bool& broken) {
  TabText text;
  std::unordered_set<const DataItem*> told;
  for (const RequestItem* request : requests) {
    if (!request->DataPositions) continue;
    for (const DataPositionItem* position : *request->DataPositions) {
      if (!position->param) continue;
      const DataItem* data = position->data();
      if (data && told.insert(data).second) addTradConfig(text, *data);
    }
  }
  broken = text.hasBrokenCell();
  return text.text();
}

} // namespace kelmar
