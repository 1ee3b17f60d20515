// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/tab_text.h"
#include "database/data_item.h"

namespace kelmar {

/// The lines of a data in the text for configuration tables: nine cells each, one line for every
/// value of a numeric data that has a list, else one line.
void addTradConfig(TabText& text, const DataItem& data);

} // namespace kelmar
