// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/communication_protocol.h"

namespace kelmar {

int protocolPosition(const ProtocolItems& protocols, const TargetParamItem& parameters) {
  const ProtocolItem* protocol = nullptr;
  if (parameters.IPAddress != "??.??.??.??" || parameters.MACAddress != "??:??:??:??")
    protocol = protocols.ItemName("DiagOnIP");
  else if (parameters.CANFDTxMaxDataLength > 0)
    protocol = protocols.ItemName("DiagOnCANFD");
  else
    protocol = protocols.ItemId(parameters.initMode, parameters.multiPoint);
  return protocol ? protocols.indexOf(protocol) : 0;
}

std::int32_t protocolCode(const ProtocolItems& protocols, int position) {
  return position >= 1 && position <= protocols.Count() ? protocols.Item(position)->code
                                                        : noProtocolCode;
}

ProtocolPanels panelsOf(std::int32_t code) {
  switch (code) {
  case canFdCode:
    return {.FrCan = "DiagOnCanFD", .canFd = true, .CheckCGW = true};
  case canCode:
    return {.FrCan = "DiagOnCan", .CheckCGW = true};
  case canMessagingCode:
    return {.FrCanBaud = true};
  case ipCode:
    return {.FrIP = true, .CheckCGWIP = true};
  default:
    return {.Timing = true, .Frame1 = true};
  }
}

std::int32_t searchProtocolNumber(std::int32_t code) {
  constexpr std::int32_t numbers[] = {0, 6, 4, 5, 2, 1, 3, 1, 7, 8}; // by code
  constexpr auto count = static_cast<std::int32_t>(std::size(numbers));
  return code >= 0 && code < count ? numbers[code] : 0;
}

} // namespace kelmar
