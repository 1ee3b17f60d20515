// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/bit_placement.h"

#include "language/multi_lang.h"

#include <algorithm>

namespace kelmar {

namespace {

/// Bits in the order of the placement, counted from the start of the frame. Beyond 32 bits, so that
/// no pair of start and size runs over.
struct Run {
  std::int64_t first, end; // [first, end)
};

Run runOf(const BitPlacement& placement) {
  const std::int64_t first =
      (static_cast<std::int64_t>(placement.StartByte) - 1) * 8 + placement.OffsetBit;
  return {first, first + std::max(placement.NumberBits, 0)};
}

FrameBit bitAt(const BitPlacement& placement, std::int64_t position) {
  const std::int64_t byte = position >= 0 ? position / 8 : -((7 - position) / 8);
  const int number = static_cast<int>(position - byte * 8);
  return {byte, placement.LittleEndian ? number : 7 - number};
}

} // namespace

std::uint8_t coveredCells(const BitPlacement& placement, std::int64_t byte) {
  const Run run = runOf(placement);
  const std::int64_t low = std::max(run.first - byte * 8, std::int64_t{0});
  const std::int64_t high = std::min(run.end - byte * 8, std::int64_t{8});
  if (low >= high) return 0;
  const unsigned length = static_cast<unsigned>(high - low);
  const unsigned block = (1u << length) - 1;
  const unsigned shift = static_cast<unsigned>(placement.LittleEndian ? low : 8 - high);
  return static_cast<std::uint8_t>(block << shift);
}

bool coversBit(const BitPlacement& placement, const FrameBit& bit) {
  if (bit.cell < 0 || bit.cell > 7) return false;
  return (coveredCells(placement, bit.byte) >> bit.cell & 1) != 0;
}

std::vector<FrameBit> coveredBits(const BitPlacement& placement, std::int32_t frameBytes) {
  const Run run = runOf(placement);
  const std::int64_t end = std::min(run.end, static_cast<std::int64_t>(frameBytes) * 8);
  std::vector<FrameBit> bits;
  for (std::int64_t at = std::max(run.first, std::int64_t{0}); at < end; ++at)
    bits.push_back(bitAt(placement, at));
  return bits;
}

FrameBit firstBit(const BitPlacement& placement) {
  return bitAt(placement, runOf(placement).first);
}

FrameBit lastBit(const BitPlacement& placement) {
  const Run run = runOf(placement);
  return bitAt(placement, std::max(run.first, run.end - 1));
}

bool overlap(const BitPlacement& one, const BitPlacement& other) {
  const FrameBit from =
      std::max(firstBit(one), firstBit(other),
               [](const FrameBit& a, const FrameBit& b) { return a.byte < b.byte; });
  const std::int64_t to = std::min(lastBit(one).byte, lastBit(other).byte);
  // Ends soon: a byte within both is covered whole by both.
  for (std::int64_t byte = from.byte; byte <= to; ++byte)
    if ((coveredCells(one, byte) & coveredCells(other, byte)) != 0) return true;
  return false;
}

std::string rangeInWords(const BitPlacement& placement, const CMultiLangEx& texts) {
  const FrameBit first = firstBit(placement), last = lastBit(placement);
  const std::string firstByte = std::to_string(first.byte + 1);
  if (first == last)
    return texts.getMultilangMessageDefault("byte {0} bit {1}", "DISPLAYRESPONSE/MSG/range/oneBit",
                                            firstByte, std::to_string(first.cell));
  return texts.getMultilangMessageDefault(
      "byte {0} bit {1} to byte {2} bit {3}", "DISPLAYRESPONSE/MSG/range/text", firstByte,
      std::to_string(first.cell), std::to_string(last.byte + 1), std::to_string(last.cell));
}

} // namespace kelmar
