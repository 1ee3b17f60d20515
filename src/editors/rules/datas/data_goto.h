// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "database/target_item.h"

namespace kelmar {

// Where the right-click menu leads from a data: one entry for each place that uses it, or a single
// one that is off and says so. The names of an entry are those of the event that it raises.

/// `menuRequests`, of `menuReq`: request and data. The request that is the data's reference stands
/// in brackets.
MenuEntry requestsMenu(const TargetItem& target, const DataItem& data);
/// `menuDevices`, of `menuDev`: device and data.
MenuEntry devicesMenu(const TargetItem& target, const DataItem& data);
/// `menuDisplay`, of `menuDis`: category, screen and data. A screen that shows the data several
/// times has one entry.
MenuEntry displaysMenu(const TargetItem& target, const DataItem& data);
/// `menuDIDs`, of `menuDID`: request and data, for the requests that identifiers are read from.
MenuEntry identifiersMenu(const TargetItem& target, const DataItem& data);

} // namespace kelmar
