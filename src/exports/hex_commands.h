// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"
#include "platform/person.h"

#include <optional>
#include <string>

namespace kelmar {

/// The longest sent frame that may come from a file, in bytes.
int longestHexImport(const TargetItem& target);

/// "->Hex": asks for a file and writes the text of the field of the sent bytes into it. Without
/// effect when the person cancels, and for a text that is no frame. A failure to write is shown.
void exportSendBufferToHex(const std::string& requestBytes, platform::Person& person);

/// "<-Hex": asks for a file; the text that the field of the sent bytes takes. None when the person
/// cancels, and after a failure, which is shown.
std::optional<std::string> importSendBufferFromHex(const TargetItem& target,
                                                   platform::Person& person);

} // namespace kelmar
