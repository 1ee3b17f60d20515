// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <cstdint>

namespace kelmar {

/// True when the ECU identifies itself by the identifiers of UDS (ISO 14229-1) and not by the
/// identification options of KWP2000, which are of fixed length. `protocol` is the code in the
/// catalogue:
/// - diagnosis on CAN-FD and on IP knows UDS alone;
/// - on classic CAN either may run: UDS when a request reads an identification data identifier,
///   0xF180 to 0xF1FF, by service 22;
/// - on a K line there is no UDS.
bool usesUdsIdentification(std::int32_t protocol, const TargetItem& target);

} // namespace kelmar
