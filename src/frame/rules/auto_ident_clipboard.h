// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"

#include <string>
#include <vector>

namespace kelmar {

/// Identifications that were chosen in the list, in its order.
using AutoIdentSelection = std::vector<AutoIdentItem*>;

/// A fragment with the root `AutoIdents`. Raises Failure 1 for a text that no document can hold.
std::string copyAutoIdents(const AutoIdentSelection& items);

/// Tab text: a header, then a line for each. `broken` becomes true when a text held a tab or a line
/// break, with which a paste finds other cells.
std::string copyAutoIdentsText(const AutoIdentSelection& items, bool& broken);

/// Adds what the clipboard holds, either form, to `items`; what is there already and what cannot be
/// read is left out in silence. The answer is what was added, in its order.
AutoIdentSelection pasteAutoIdents(const std::string& clipboard, OmnikorLibXml& database,
                                   AutoIdentItems& items, TargetItem* owner);

} // namespace kelmar
