// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kelmar {

// The two key bytes that an ECU sends after its initialisation by 5 baud or by fast init.

/// A key byte as its field shows it: upper-case hexadecimal without leading zeros.
std::string keyByteText(std::int32_t key);
/// None for a text that is no hexadecimal number of 32 bits.
std::optional<std::int32_t> readKeyByte(const std::string& text);

/// The number that the two bytes stand for, by which the protocols name their dialects (2000 and
/// up for KWP2000): seven bits of each byte, the eighth one being parity; the second byte holds the
/// high ones.
std::int32_t fakraCode(std::int32_t key1, std::int32_t key2);
/// Of the texts of the two fields; empty when one of them is no number.
std::string fakraText(const std::string& key1, const std::string& key2);

} // namespace kelmar
