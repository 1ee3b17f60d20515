// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <string>
#include <vector>

namespace kelmar {

/// The XML document of a bench test that plays each of these requests, in this order, in both
/// diagnostic sessions of the ECU. Requests without sent bytes are left out. UTF-8, one element a
/// line, lines end with CR LF. Raises Failure 1 for a text that XML cannot hold.
std::string rvtScenario(const TargetItem& target, const std::vector<const RequestItem*>& requests);

} // namespace kelmar
