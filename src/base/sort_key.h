// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar {

/// How the cells of a column are put in order.
enum class SortType { Text = 0, Number = 1, Date = 2 };

/// The text to compare byte by byte in place of the cell.
///
/// Text: the cell. Number: ten digits, ".", twenty digits; "&" and the complement of each digit for
/// a negative number, so that these stand first, the smallest at the front; empty for a cell that
/// is no number. A number of more than ten digits before the point keeps them all and so may stand
/// before a smaller one. Date: "YYYYMMDDHHMMSS"; empty for a cell that is no date.
std::string sortKey(std::string_view cell, SortType type);

} // namespace kelmar
