// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/document.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// The shared file that gives each function of a vehicle its addresses.
class AddressingFile {
 public:
  /// False when it cannot be read; `reason` says why, and there are no functions then.
  bool load(const std::string& file, platform::Fetch* fetch = nullptr);
  const std::string& reason() const { return document_.parseError().reason; }

  /// The names of the functions, in the order of the file; what has no name is no entry.
  std::vector<std::string> functionNames() const;

  struct Entry {
    std::string name;
    std::int32_t address;
  };
  /// The functions that have both a name and an address that is a number.
  std::vector<Entry> functions() const;

  /// First function of this name, null when there is none.
  xml::Node functionNamed(const std::string& name) const;

  /// Logical address of the function of this address, empty when it has none. None when there is no
  /// such function.
  std::optional<std::string> logicalAddressOf(std::int32_t address) const;

  struct CanIds {
    std::int32_t canXid; ///< tool to ECU
    std::int32_t canRid; ///< ECU to tool
  };
  /// None when no function of this address has both. Raises TypeMismatch or NumericOverflow for one
  /// that is no number.
  std::optional<CanIds> canIdsOf(std::int32_t address) const;

 private:
  xml::Document document_;
};

} // namespace kelmar
