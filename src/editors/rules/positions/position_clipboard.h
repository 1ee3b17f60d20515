// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "editors/rules/positions/position_commands.h"

#include <functional>
#include <string>

namespace kelmar {

/// The positions with the definitions of their data, as a document with the root `Positions`.
/// Raises Failure 1 for a text that no document can hold.
std::string copyDataPositions(const TargetItem& target, const RequestItem& request, bool sent,
                              const PositionSelection& positions);
/// One line for each: data, start byte, start bit, little endian, reference. No header. `broken` as
/// with requests.
std::string copyPositionsText(const PositionSelection& positions, bool& broken);

/// Adds what is on the clipboard to one side of the request: a document of positions or of data,
/// else tab text. The person is asked about what is there already and about unknown data. `pasted`
/// is called when all is in the model; after it the person is told what could not be added. True
/// when something of the model changed.
bool pasteDataPositions(const std::string& clipboard, OmnikorLibXml& database, TargetItem& target,
                        RequestItem& request, bool sent, platform::Person& person,
                        const std::function<void()>& pasted = {});

} // namespace kelmar
