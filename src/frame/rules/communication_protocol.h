// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"

#include <cstdint>
#include <string>

namespace kelmar {

// Codes of the protocols in the catalogue, as the parameter page uses them.

inline constexpr std::int32_t noProtocolCode = 0; ///< no protocol is chosen
inline constexpr std::int32_t canFdCode = 5;
inline constexpr std::int32_t canCode = 7;
inline constexpr std::int32_t canMessagingCode = 8;
inline constexpr std::int32_t ipCode = 9;

/// Position of the ECU's protocol in the catalogue, from 1; 0 when none fits. IP and CAN-FD are
/// told by their own parameters, since others have the same pair of mode and multi-point.
int protocolPosition(const ProtocolItems& protocols, const TargetParamItem& parameters);

/// Code of the protocol at a position, noProtocolCode for a position that is none.
std::int32_t protocolCode(const ProtocolItems& protocols, int position);

/// What the page shows for a protocol.
struct ProtocolPanels {
  std::string FrCan = {}; ///< caption; empty: hidden
  bool canFd = false;     ///< the fields of CAN-FD in `FrCan`, with their captions
  bool CheckCGW = false;
  bool FrCanBaud = false;
  bool FrIP = false;
  bool CheckCGWIP = false;
  bool Timing = false;
  bool Frame1 = false; ///< key words

  friend bool operator==(const ProtocolPanels&, const ProtocolPanels&) = default;
};
ProtocolPanels panelsOf(std::int32_t code);

/// The number by which the search knows the protocol; 0, which is any, for an unknown code.
std::int32_t searchProtocolNumber(std::int32_t code);

} // namespace kelmar
