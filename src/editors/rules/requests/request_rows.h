// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <string>

namespace kelmar {

/// What is wrong with a request; at most one thing is told.
enum class RequestFinding { None, StraySpaces, ParameterOnServiceByte, DataOnServiceByte };

/// A name with stray blanks comes first. Then the first position at byte 1 counts, unless the ECU
/// has address 0 or 255.
RequestFinding findingOf(const RequestItem& request, const TargetItem& target);

/// In the tool tip of the row; empty for None.
std::string findingToolTip(RequestFinding finding);
/// In the warning line of the page; empty for None.
std::string findingText(RequestFinding finding);

/// Columns of the list of requests.
enum RequestColumn { RequestNameColumn = 0, SendBytesColumn = 1, RequestCommentColumn = 2 };

std::string requestCell(const RequestItem& request, int column);
/// "dmmanual", "dm", "manual" or "none".
std::string requestIcon(const RequestItem& request);
/// "{0} request(s)"
std::string requestCountText(int count);

} // namespace kelmar
