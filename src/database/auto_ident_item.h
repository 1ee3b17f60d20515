// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class TargetItem;

/// One software version that identifies the ECU.
class AutoIdentItem {
 public:
  std::int32_t DiagNumber = 0; ///< `DiagVersion` in the file
  std::string SupplierCode;    ///< `Supplier` in the file
  std::string Soft;
  std::string Version;
  TargetItem* parent = nullptr;

  void clear() { parent = nullptr; }
  std::shared_ptr<AutoIdentItem> clone(TargetItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  /// Not tolerant: raises MissingObject when one of the four attributes is missing, TypeMismatch or
  /// NumericOverflow for a version that is no number.
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class AutoIdentItems : public Items<AutoIdentItem> {
 public:
  AutoIdentItem* Add(std::int32_t diag, const std::string& supplier, const std::string& soft,
                     const std::string& version, TargetItem* parent, std::string_view key = {});
  AutoIdentItem* AddData(Pointer item, std::string_view key = {});
  /// Position of the first record that matches all four exactly, or 0.
  int FindItem(std::int32_t diag, std::string_view supplier, std::string_view soft,
               std::string_view version) const;
  AutoIdentItem* FindItemObject(std::int32_t diag, std::string_view supplier, std::string_view soft,
                                std::string_view version) const;
  using Items::deleteItem;
  /// Removes the first record that matches all four.
  void deleteItem(std::int32_t diag, std::string_view supplier, std::string_view soft,
                  std::string_view version);
  std::shared_ptr<AutoIdentItems> clone(TargetItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  /// Not tolerant, see AutoIdentItem::loadXml.
  void loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner);
};

} // namespace kelmar
