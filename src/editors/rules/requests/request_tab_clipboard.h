// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/rules/requests/request_xml_clipboard.h"

#include <string>

namespace kelmar {

/// The requests as tab text: a header, a line for each request, and below it its positions,
/// parameters first. `broken` becomes true when a text held a tab or a line break, with which a
/// paste finds other cells.
std::string copyRequestsText(const RequestSelection& requests, bool& broken);

/// Reads the same form. What is wrong in a line leaves out what it concerns; names that are too
/// long are told at the end. The person is asked about what exists already and about unknown data.
RequestPaste pasteDataFromExcel(const std::string& text, TargetItem& target,
                                platform::Person& person);

} // namespace kelmar
