// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelmar::desktop {

/// A command line in words: blanks part them, quotes ('..' and "..") and "\" keep them together.
/// Nothing else is interpreted: no variables, no wild cards, no redirection.
std::vector<std::string> commandWords(std::string_view command);

/// Value of the key "Exec" in the group "[Desktop Entry]" of a .desktop file's text; empty when
/// there is none.
std::string execLineOf(std::string_view desktopEntry);

/// Program and arguments of an Exec line for one address: %u, %U, %f and %F take it (it is appended
/// when none of them stands there), %% is a percent sign, other field codes vanish.
std::vector<std::string> execWords(std::string_view execLine, const std::string& address);

} // namespace kelmar::desktop
