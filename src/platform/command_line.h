// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelmar::platform {

/// The words of a command line: blanks part them, '...' and "..." hold them together, a backslash
/// takes the next character as it is (inside "..." only a quote or a backslash, inside '...' none).
/// Nothing is expanded. A quote that is not closed reaches to the end.
std::vector<std::string> splitCommandLine(std::string_view command);

} // namespace kelmar::platform
