// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelmar::xml {

/// True when the text of some element might change if text nodes of white space alone were left
/// out (an element that holds nothing else keeps its own). Errs towards true; a text that is not
/// well formed may give either.
bool whiteSpaceMatters(std::string_view text);

} // namespace kelmar::xml
