// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/tab_text.h"
#include "database/data_item.h"

#include <memory>
#include <string>

namespace kelmar {

/// The data that a line of pasted text describes, without name and parent. Cells that are not there
/// leave the defaults, and so do numbers that are none.
std::shared_ptr<DataItem> readDataLine(const TabLine& line);

/// The line says that values follow it.
bool hasValueLines(const TabLine& line);

/// Reads the values that follow a list data, from `line` on; afterwards it is the first line that
/// does not belong to them, or there was none and the answer is false. A value or label that stands
/// twice keeps its first place; `log` gets one line for each value, which tells what was wrong with
/// it.
bool readValueLines(TabReader& reader, TabLine& line, DataItem& data, std::string& log);

} // namespace kelmar
