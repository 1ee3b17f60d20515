// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace kelmar {

/// A CAN identifier as its two controls hold it: the number, and the box for 29 bits.
struct CanIdentifier {
  std::optional<std::int32_t> value = {}; ///< without mark; none: no identifier is set
  bool extended = false;

  friend bool operator==(const CanIdentifier&, const CanIdentifier&) = default;
};

inline constexpr std::int32_t largestCanIdentifier = 2047;              // 11 bits
inline constexpr std::int32_t largestExtendedCanIdentifier = 536870911; // 29 bits

/// The model has -1 for none and marks 29 bits by bit 31.
CanIdentifier canIdentifierOf(std::int32_t stored);
std::int32_t storedCanIdentifier(const CanIdentifier& identifier);

/// What the number may be.
std::int32_t largestOf(bool extended);

} // namespace kelmar
