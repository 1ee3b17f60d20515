// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <functional>
#include <string>
#include <vector>

namespace kelmar {

// The commands on the selected requests, over the model alone. What asks a person stands with the
// page or with the table of name commands.

using RequestSelection = std::vector<RequestItem*>;

/// The requests of the ECU; an ECU without list gets an empty one.
RequestItems& requestsOf(TargetItem& target);

/// A new request at the end: a free name, request bytes 2180, an empty reply.
RequestItem* newRequest(TargetItem& target);

/// Renames by what was typed: blanks are normalised, ";" becomes "_". Raises as RenameRequest does.
void renameTyped(TargetItem& target, RequestItem& request, const std::string& typed);

/// Gives each request the name that `newName` makes of its own. A name that is taken leaves its
/// request alone. Those that bear another name now.
RequestSelection renameRequests(TargetItem& target, const RequestSelection& requests,
                                const std::function<std::string(const std::string&)>& newName);

/// Those whose flag changed.
RequestSelection setManuelSend(const RequestSelection& requests, bool value);
RequestSelection setDossierMaintenabilite(const RequestSelection& requests, bool value);

/// Sets or clears the reference flag of all parameters, or of all other positions. A data becomes a
/// reference only where it is none yet, and stays one while a device uses it. Those with a change.
RequestSelection SetReferenceAll(const TargetItem& target, const RequestSelection& requests,
                                 bool parameters, bool setFlag);

// What the selection commands look for.

/// At least one position in the sent frame.
bool hasParameter(const RequestItem& request);
/// Writes data: service 2E or 3B.
bool isWriteRequest(const RequestItem& request);
/// May be shown as an identifier: 22 with three bytes, or 2E with at least three.
bool isDidRequest(const RequestItem& request);

/// The data that the selected requests send, as tab text without header: one line for each entry of
/// a value list, else one for each data. Empty when they send none.
/// `broken` as for copyRequestsText.
std::string tradConfigText(const RequestSelection& requests, bool& broken);

} // namespace kelmar
