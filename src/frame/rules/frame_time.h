// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/conversions.h"

#include <optional>
#include <string>

namespace kelmar::frame {

/// The value with "0" on its left up to `length` characters; a longer one as it is.
std::string Z(int value, std::size_t length);

/// Minutes to add to a local moment of that year: the standard bias of the machine's time zone plus
/// its daylight bias, in summer and in winter alike.
int timeZoneBias(int year);

/// The moment moved by the bias (minutes), as "YYYY-MM-DDTHH:MM".
std::string GMT(const DateTime& local, int bias);

/// The way back. None when the text is no date.
std::optional<DateTime> unGMT(const std::string& text, int bias);

} // namespace kelmar::frame
