// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/xml_mutator.h"

#include <algorithm>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// Two of three times the document is changed as a document, else its bytes.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
  std::mt19937 random(seed);
  if (random() % 3 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  std::string text(reinterpret_cast<const char*>(data), size);
  for (unsigned changes = 1 + random() % 3; changes > 0; --changes) {
    std::string changed = kelmar::fuzz::mutateXml(text, random);
    if (changed.size() > maxSize) break;
    text = std::move(changed);
  }
  std::copy(text.begin(), text.end(), data);
  return text.size();
}
