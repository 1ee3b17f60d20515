// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/data_item.h"

#include <string>

namespace kelmar {

/// The three forms in which a data is edited.
enum class DataType { Numeric, NumericList, NotNumeric };

DataType typeOf(const DataItem& data);

/// Key of the small icon of a row: "numeric", "list", "ascii" or "hexa".
std::string dataIcon(const DataItem& data);

/// What a row of the list says about a data.
struct DataWarning {
  bool found = false; ///< the row is bold and red
  std::string text;   ///< its tool tip
};

/// The first thing that is wrong with a data, if any.
DataWarning setScreen_datas(const DataItem& data);

// What can be typed for a data, and numbers of a pasted one: 1 to 32 bits, or whole bytes.
inline constexpr int mostNumericBits = 32;
inline constexpr int mostBytes = 4095; ///< of a frame

} // namespace kelmar
