// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelmar::support {

/// A JSON value as it stands in a text, numbers unconverted. Small and strict: for tests.
struct Json {
  enum Kind { Null, Flag, Number, Text, Array, Object };
  Kind kind = Null;
  std::string text; ///< of a number, flag or text
  std::vector<Json> items;
  std::vector<std::pair<std::string, Json>> members; ///< in the order of the text

  /// Raises std::runtime_error when there is no such member or item.
  const Json& operator[](std::string_view member) const;
  const Json& operator[](std::size_t index) const;
  friend bool operator==(const Json&, const Json&) = default;
};

/// Reads one value and nothing behind it but white space. Raises std::runtime_error, with the
/// place, for what is no JSON, for text that is no UTF-8 and for an object with two members of one
/// name.
Json readJson(std::string_view text);

} // namespace kelmar::support
