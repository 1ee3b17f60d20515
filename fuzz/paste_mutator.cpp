// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/tab_mutator.h"
#include "fuzz/xml_mutator.h"

#include <algorithm>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// Behind the byte that says who answers, a document is mostly changed as a document and lines as
/// lines.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
  std::mt19937 random(seed);
  if (size < 2 || random() % 4 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  if (random() % 8 == 0) data[0] = static_cast<std::uint8_t>(random());
  std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
    std::string changed = text.starts_with('<') ? kelmar::fuzz::mutateXml(text, random)
                                                : kelmar::fuzz::mutateLines(text, random);
    if (changed.size() + 1 > maxSize) break;
    text = std::move(changed);
  }
  std::copy(text.begin(), text.end(), data + 1);
  return text.size() + 1;
}
