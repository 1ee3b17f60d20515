// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::cli {

/// The text with a blank for each control character, so that a name with a tab or a line end in it
/// neither breaks a line of output nor reaches the terminal as a command.
std::string oneLine(std::string_view text);

} // namespace kelmar::cli
