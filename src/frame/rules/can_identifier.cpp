// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/can_identifier.h"

namespace kelmar {

namespace {

constexpr std::int32_t unset = -1;
constexpr std::uint32_t extendedMark = 0x80000000u;

} // namespace

CanIdentifier canIdentifierOf(std::int32_t stored) {
  if (stored == unset) return {};
  if (stored >= 0) return {stored, false};
  return {static_cast<std::int32_t>(static_cast<std::uint32_t>(stored) &
                                    static_cast<std::uint32_t>(largestExtendedCanIdentifier)),
          true};
}

std::int32_t storedCanIdentifier(const CanIdentifier& identifier) {
  if (!identifier.value) return unset;
  const auto value = static_cast<std::uint32_t>(*identifier.value);
  return static_cast<std::int32_t>(identifier.extended ? value | extendedMark : value);
}

std::int32_t largestOf(bool extended) {
  return extended ? largestExtendedCanIdentifier : largestCanIdentifier;
}

} // namespace kelmar
