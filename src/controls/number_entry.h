// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar {

// What the number field does with keys, texts and values, without a window.

enum class NumberBase : std::int16_t { Decimal = 0, Hexadecimal = 1 };

/// What becomes of a key.
enum class NumberKey {
  Insert,     ///< the character goes into the text
  Pass,       ///< the text box does with it what it does
  Eat,        ///< nothing happens
  Commit,     ///< the text is committed, the key goes no further
  CommitPass, ///< the text is committed, the key does its work
  ToggleBase, ///< the text is committed and shown in the other base, the key goes no further
};

struct NumberKeyAnswer {
  NumberKey what = NumberKey::Eat;
  char32_t character = 0; ///< of Insert: the typed one or what replaces it
  friend bool operator==(const NumberKeyAnswer&, const NumberKeyAnswer&) = default;
};

/// The filter of keys. `key` is a character, or U+0008 for backspace, U+0009 for the tabulator,
/// U+000D for Enter.
NumberKeyAnswer filterNumberKey(char32_t key, NumberBase base);

/// The number that a text means; none when it is no finite number. Blanks around it do not count.
/// The decimal separator is "," or ".". Hexadecimal digits have no sign of 32 bits: "FFFFFFFF" is
/// 4294967295. A "-" before them makes the number negative.
std::optional<double> readNumber(std::string_view text, NumberBase base);

/// As the field shows it. Hexadecimal: the value without its fraction, in upper case, of any size;
/// with `digits` above 0 the last `digits` characters of eight zeros followed by the number.
std::string numberText(double value, NumberBase base, int digits);

/// Limits and grid of a field.
struct NumberRules {
  bool RangeChecking = false;
  double Minimum = 0, Maximum = 0;
  NumberBase Base = NumberBase::Decimal;
  bool Discrete = false;
  double DiscreteBase = 0, DiscreteInterval = 1; ///< an interval of 0 means no grid
};

/// The value that the field takes for a requested one: limits first, then the 32 bits of the
/// hexadecimal base, then the grid, whose point may lie beyond a limit. Halfway values go to the
/// even multiple of the interval.
double correctedNumber(double requested, const NumberRules& rules);

} // namespace kelmar
