// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_summary.h"

#include "base/conversions.h"
#include "base/text.h"

namespace kelmar {

std::optional<EcuSummary> summaryOf(const OmnikorLibXml& database) {
  const TargetItem* target = database.ActiveTarget.get();
  if (!target) return std::nullopt;
  EcuSummary summary;
  summary.TxEcuName = target->name();
  summary.txGenericName = target->Group();
  summary.TextAdresse = addressText(target->Address());
  summary.TextLogicalAdresse = target->LogicalAddress();
  summary.TextFunction = functionText(database, target->Address());
  if (target->Parametres()) summary.TextProtocole = protocolText(database, *target->Parametres());
  return summary;
}

std::string addressText(std::int32_t address) {
  return rightmost("0" + hexText(address), 4);
}

std::int32_t addressOfText(const std::string& text) {
  return toInt32("&H" + text);
}

std::string protocolText(const OmnikorLibXml& database, const TargetParamItem& parameters) {
  if (!database.protocols) return {};
  // CAN-FD and IP come first: the pair of mode and multi-point is the same for CAN and CAN-FD, and
  // a file may hold addresses of IP whatever its mode.
  const ProtocolItem* protocol = nullptr;
  if (parameters.CANFDTxMaxDataLength > 0)
    protocol = database.protocols->ItemName("DiagOnCANFD");
  else if (parameters.IPAddress != "??.??.??.??" || parameters.MACAddress != "??:??:??:??")
    protocol = database.protocols->ItemName("DiagOnIP");
  else
    protocol = database.protocols->ItemId(parameters.initMode, parameters.multiPoint);
  return protocol ? protocol->protocolName : std::string();
}

std::string functionText(const OmnikorLibXml& database, std::int32_t address) {
  const FunctionItem* function =
      database.functions ? database.functions->ItemAddress(address) : nullptr;
  return function ? function->functionName : std::string();
}

} // namespace kelmar
