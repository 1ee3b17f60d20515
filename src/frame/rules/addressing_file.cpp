// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/addressing_file.h"

#include "base/conversions.h"
#include "base/failure.h"

namespace kelmar {

bool AddressingFile::load(const std::string& file, platform::Fetch* fetch) {
  return document_.load(file, fetch);
}

std::vector<std::string> AddressingFile::functionNames() const {
  std::vector<std::string> names;
  for (const xml::Node function : document_.selectNodes("/Functions/Function[@Name]"))
    names.emplace_back(function.attribute("Name").value());
  return names;
}

std::vector<AddressingFile::Entry> AddressingFile::functions() const {
  std::vector<Entry> entries;
  for (const xml::Node function : document_.selectNodes("/Functions/Function[@Name]")) {
    try {
      entries.push_back(
          {function.attribute("Name").value(), toInt32(function.attribute("Address").value())});
    } catch (const Failure&) {
      // A function that no ECU can be given.
    }
  }
  return entries;
}

xml::Node AddressingFile::functionNamed(const std::string& name) const {
  for (const xml::Node function : document_.selectNodes("/Functions/Function[@Name]"))
    if (function.attribute("Name").value() == name) return function;
  return {};
}

std::optional<std::string> AddressingFile::logicalAddressOf(std::int32_t address) const {
  const xml::Node function =
      document_.selectSingleNode("/Functions/Function[@Address=" + std::to_string(address) + "]")
          .node();
  if (!function) return std::nullopt;
  return xml::textOf(
      xml::selectSingleNode(function, "ProtocolList/Protocol/LogicalAddress").node());
}

std::optional<AddressingFile::CanIds> AddressingFile::canIdsOf(std::int32_t address) const {
  const xml::Node function =
      document_
          .selectSingleNode("/Functions/Function[@Address=" + std::to_string(address) +
                            " and XId and RId]")
          .node();
  if (!function) return std::nullopt;
  return CanIds{toInt32(xml::textOf(function.child("XId"))),
                toInt32(xml::textOf(function.child("RId")))};
}

} // namespace kelmar
