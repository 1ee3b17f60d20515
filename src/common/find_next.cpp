// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/find_next.h"

#include "base/text.h"

namespace kelmar {

int findNextRow(int rows, int current, const std::string& wanted,
                const std::function<std::string(int)>& textOfRow) {
  const std::string folded = foldCase(wanted);
  for (int step = 1; step <= rows; ++step) {
    const int row = (current + step) % rows;
    if (foldCase(textOfRow(row)).find(folded) != std::string::npos) return row;
  }
  return -1;
}

} // namespace kelmar
