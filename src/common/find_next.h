// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace kelmar {

/// Row (from 0) whose text contains `wanted` without regard to case: the first one behind `current`
/// (-1: none), else the first one from the top, which may be the current row. -1 without a hit.
int findNextRow(int rows, int current, const std::string& wanted,
                const std::function<std::string(int)>& textOfRow);

} // namespace kelmar
