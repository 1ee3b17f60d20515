// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelmar::cli {

/// The command line is used wrongly: exit code 2.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An option that a command knows.
struct Option {
  std::string name; ///< "--encoding"; "-o" for a short one
  bool hasValue = true;
};

/// The words of a command line behind the command, sorted out.
class Arguments {
 public:
  /// "--name VALUE" and "--name=VALUE" alike; "--" ends the options. Raises WrongUse for an option
  /// that is not among `known`, and for one without its value.
  Arguments(const std::vector<std::string>& words, std::span<const Option> known);

  const std::vector<std::string>& words() const { return words_; }
  bool has(const std::string& option) const { return values_.contains(option); }
  std::optional<std::string> value(const std::string& option) const;
  /// The value as a 32-bit integer, decimal or behind "0x" hexadecimal; `otherwise` when the option
  /// is not there. Raises WrongUse.
  std::int32_t number(const std::string& option, std::int32_t otherwise) const;

 private:
  std::vector<std::string> words_;
  std::map<std::string, std::string> values_;
};

} // namespace kelmar::cli
