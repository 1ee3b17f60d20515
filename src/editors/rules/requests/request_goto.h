// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "database/target_item.h"

#include <vector>

namespace kelmar {

// Where the right-click menu leads from a request. The names of each entry are those of the event
// that it raises.

/// One entry for each display that reads the request and each button that sends it; names are
/// category, screen, and data or caption.
std::vector<MenuEntry> screensOfRequest(const TargetItem& target, const RequestItem& request);
/// One entry for each device whose freeze frame is the request.
std::vector<MenuEntry> devicesOfRequest(const TargetItem& target, const RequestItem& request);

} // namespace kelmar
