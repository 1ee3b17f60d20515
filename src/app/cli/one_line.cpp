// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/one_line.h"

namespace kelmar::cli {

std::string oneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    // U+0080 to U+009F are control characters too.
    const bool isSecondSet =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    if (isSecondSet) ++i;
    line += byte < 0x20 || byte == 0x7F || isSecondSet ? ' ' : text[i];
  }
  return line;
}

} // namespace kelmar::cli
