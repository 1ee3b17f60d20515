// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <vector>

namespace kelmar {

/// The bytes with which a positive answer to this request begins; empty where the protocol says
/// nothing: no request bytes, a request that is too short for its service, service 7F or from BF
/// on.
std::vector<std::uint8_t> expectedReplyHead(const std::vector<std::uint8_t>& request,
                                            std::int32_t initMode);

/// Makes the first bytes of the reply template agree with the positive answer of the protocol; the
/// rest stays. True when something changed. A request without reply buffer gets one.
bool NormalizeReplyTemplate(RequestItem& request, const TargetItem& target);

} // namespace kelmar
