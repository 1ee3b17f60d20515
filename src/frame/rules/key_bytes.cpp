// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/key_bytes.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

namespace kelmar {

namespace {

constexpr std::int32_t sevenBits = 0x7F;

} // namespace

std::string keyByteText(std::int32_t key) {
  return hexText(key);
}

std::optional<std::int32_t> readKeyByte(const std::string& text) {
  const std::string_view digits = trimBlanks(text);
  if (digits.empty() || digits.find_first_not_of("0123456789ABCDEFabcdef") != digits.npos)
    return std::nullopt;
  try {
    return toInt32("&H" + std::string(digits));
  } catch (const Failure&) {
    return std::nullopt;
  }
}

std::int32_t fakraCode(std::int32_t key1, std::int32_t key2) {
  return (key1 & sevenBits) + (key2 & sevenBits) * (sevenBits + 1);
}

std::string fakraText(const std::string& key1, const std::string& key2) {
  const auto first = readKeyByte(key1), second = readKeyByte(key2);
  return first && second ? std::to_string(fakraCode(*first, *second)) : std::string();
}

} // namespace kelmar
