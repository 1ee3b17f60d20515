// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_head_text.h"

#include "base/text.h"
#include "language/multi_lang.h"

#include <algorithm>

namespace kelmar {

namespace {

// More would push the rest of the description out of sight.
constexpr std::size_t shownIdentifications = 12;

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts)
    text += (text.empty() ? "" : ", ") + part;
  return text;
}

std::string functionText(const EcuHead& head, const CMultiLangEx& texts) {
  if (!head.functionAddress)
    return texts.getMultilangMessageDefault(
        "Function: {0}, without an address",
        "ECUSELECTOR/MSG/description/functionWithoutAddress/text", head.functionName);
  return texts.getMultilangMessageDefault(
      "Function: {0}, address {1} (${2})", "ECUSELECTOR/MSG/description/function/text",
      head.functionName, std::to_string(*head.functionAddress), hexText(*head.functionAddress));
}

} // namespace

std::string protocolText(EcuProtocol protocol, const CMultiLangEx& texts) {
  switch (protocol) {
  case EcuProtocol::Iso8:
    return texts.getMultilangMessageDefault("ISO8", "ECUSELECTOR/MSG/protocol/iso8/text");
  case EcuProtocol::Kwp5BaudType1:
    return texts.getMultilangMessageDefault("KWP2000 5 bauds Type 1",
                                            "ECUSELECTOR/MSG/protocol/slow1/text");
  case EcuProtocol::Kwp5BaudType2:
    return texts.getMultilangMessageDefault("KWP2000 5 bauds Type 2",
                                            "ECUSELECTOR/MSG/protocol/slow2/text");
  case EcuProtocol::KwpFastInitMono:
    return texts.getMultilangMessageDefault("KWP2000 FastInit Monopoint",
                                            "ECUSELECTOR/MSG/protocol/fastMono/text");
  case EcuProtocol::KwpFastInitMulti:
    return texts.getMultilangMessageDefault("KWP2000 FastInit Multipoint",
                                            "ECUSELECTOR/MSG/protocol/fastMulti/text");
  case EcuProtocol::Can:
    return texts.getMultilangMessageDefault("Diag On CAN", "ECUSELECTOR/MSG/protocol/can/text");
  case EcuProtocol::CanFd:
    return texts.getMultilangMessageDefault("Diag On CAN-FD",
                                            "ECUSELECTOR/MSG/protocol/canFd/text");
  case EcuProtocol::CanMessaging:
    return texts.getMultilangMessageDefault("CAN Messaging",
                                            "ECUSELECTOR/MSG/protocol/messaging/text");
  case EcuProtocol::Ip:
    return texts.getMultilangMessageDefault("Diag On IP", "ECUSELECTOR/MSG/protocol/ip/text");
  case EcuProtocol::Unknown:
    break;
  }
  return texts.getMultilangMessageDefault("Unknown", "ECUSELECTOR/MSG/protocol/unknown/text");
}

const char* protocolIcon(EcuProtocol protocol) {
  switch (protocol) {
  case EcuProtocol::Iso8:
    return "ecu-iso";
  case EcuProtocol::Kwp5BaudType1:
  case EcuProtocol::Kwp5BaudType2:
  case EcuProtocol::KwpFastInitMono:
  case EcuProtocol::KwpFastInitMulti:
    return "ecu-kwp";
  case EcuProtocol::Can:
  case EcuProtocol::CanMessaging:
    return "ecu-can";
  case EcuProtocol::CanFd:
    return "ecu-canfd";
  case EcuProtocol::Ip:
    return "ecu-ip";
  case EcuProtocol::Unknown:
    break;
  }
  return "ecu-unknown";
}

std::string describeHead(const EcuHead& head, const CMultiLangEx& texts) {
  if (!head.ok())
    return texts.getMultilangMessageDefault("This file cannot be read: {0}",
                                            "ECUSELECTOR/MSG/brokenFile/text", head.trouble);
  std::vector<std::string> lines;
  lines.push_back(texts.getMultilangMessageDefault(
      "Name: {0}", "ECUSELECTOR/MSG/description/name/text", head.name));
  if (!head.group.empty())
    lines.push_back(texts.getMultilangMessageDefault(
        "Group: {0}", "ECUSELECTOR/MSG/description/group/text", head.group));
  lines.push_back(functionText(head, texts));
  if (!head.logicalAddress.empty())
    lines.push_back(texts.getMultilangMessageDefault(
        "Logical address: {0}", "ECUSELECTOR/MSG/description/logicalAddress/text",
        head.logicalAddress));
  lines.push_back(texts.getMultilangMessageDefault("Protocol: {0}",
                                                   "ECUSELECTOR/MSG/description/protocol/text",
                                                   protocolText(head.protocol, texts)));
  if (head.protocol == EcuProtocol::Ip && !head.ipAddress.empty())
    lines.push_back(texts.getMultilangMessageDefault(
        "IP address: {0}", "ECUSELECTOR/MSG/description/ipAddress/text", head.ipAddress));
  if (!head.projects.empty())
    lines.push_back(texts.getMultilangMessageDefault(
        "Projects: {0}", "ECUSELECTOR/MSG/description/projects/text", joined(head.projects)));
  if (!head.autoIdents.empty())
    lines.push_back(
        texts.getMultilangMessageDefault("Identifications (diag, supplier, soft, version): {0}",
                                         "ECUSELECTOR/MSG/description/identifications/text",
                                         std::to_string(head.autoIdents.size())));
  for (std::size_t i = 0; i < std::min(head.autoIdents.size(), shownIdentifications); ++i) {
    const EcuIdentification& has = head.autoIdents[i];
    lines.push_back("  " + std::to_string(has.DiagNumber) + ", " + has.SupplierCode + ", " +
                    has.Soft + ", " + has.Version);
  }
  if (head.autoIdents.size() > shownIdentifications) lines.push_back("  ...");
  std::string text;
  for (const std::string& line : lines)
    text += (text.empty() ? "" : "\n") + line;
  if (const std::string_view comment = trimBlanks(head.comment); !comment.empty())
    text += "\n\n" + std::string(comment);
  return text;
}

} // namespace kelmar
