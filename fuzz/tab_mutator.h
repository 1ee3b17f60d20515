// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>
#include <string>
#include <string_view>

namespace kelmar::fuzz {

/// Changes one thing of lines of cells: a cell becomes another one, goes or comes twice; a line
/// goes, comes twice or changes place; a line end becomes one of another kind.
std::string mutateLines(std::string_view text, std::mt19937& random);

} // namespace kelmar::fuzz
