// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_match_text.h"

#include "language/multi_lang.h"

namespace kelmar {

std::string matchText(const CMultiLangEx& texts, int code, const std::string& address) {
  if (address.empty())
    return texts.getMultilangMessageDefault("No match", "SELECTOR/MSG/NO_MATCH/text");
  switch (code) {
  case 0:
    return texts.getMultilangMessageDefault("Identification exact match",
                                            "SELECTOR/MSG/ESDM_EXACT/text");
  case 1:
    return texts.getMultilangMessageDefault("Only one ECU for this function",
                                            "SELECTOR/MSG/ESDM_UNIQUE/text");
  case 2:
  case 3:
    return texts.getMultilangMessageDefault("ECU detected with a different software version",
                                            "SELECTOR/MSG/ESDM_SOFTINF/text");
  case 4:
    return texts.getMultilangMessageDefault("ECU detected with a different diagnostic version",
                                            "SELECTOR/MSG/ESDM_DIAG/text");
  case 5:
  case 6:
    return texts.getMultilangMessageDefault(
        "ECU detected with a different diagnostic and software version",
        "SELECTOR/MSG/ESDM_DIAGSOFTINF/text");
  // With 10 added the protocol differs as well.
  case 10:
    return texts.getMultilangMessageDefault("Different protocol. Identification exact match",
                                            "SELECTOR/MSG/ESDM_PROTOEXACT/text");
  case 11:
    return texts.getMultilangMessageDefault("Different protocol. Only one ECU for this function",
                                            "SELECTOR/MSG/ESDM_PROTOUNIQUE/text");
  case 12:
  case 13:
    return texts.getMultilangMessageDefault(
        "Different protocol. ECU detected with a different software version",
        "SELECTOR/MSG/ESDM_PROTOSOFTINF/text");
  case 14:
    return texts.getMultilangMessageDefault(
        "Different protocol. ECU detected with a different diagnostic version",
        "SELECTOR/MSG/ESDM_PROTODIAG/text");
  case 15:
  case 16:
    return texts.getMultilangMessageDefault(
        "Different protocol. ECU detected with a different diagnostic and software version",
        "SELECTOR/MSG/ESDM_PROTODIAGSOFTINF/text");
  default:
    return {};
  }
}

} // namespace kelmar
