// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/items.h"

namespace kelmar {

FoldedKey::FoldedKey(std::string_view key) {
  if (key.size() <= sizeof buffer_) {
    std::size_t at = 0;
    for (; at < key.size(); ++at) {
      const char byte = key[at];
      if (static_cast<unsigned char>(byte) >= 0x80) break;
      buffer_[at] = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    }
    if (at == key.size()) {
      view_ = {buffer_, at};
      return;
    }
  }
  long_ = foldCase(key);
  view_ = long_;
}

} // namespace kelmar
