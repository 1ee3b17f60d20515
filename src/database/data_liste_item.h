// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelmar {

class DataItem;
class OmnikorLibXml;

/// One raw value and the text that stands for it.
class DataListeItem {
 public:
  std::int32_t Valeur = 0;
  std::string libelle;
  std::string Info;
  DataItem* parent = nullptr;

  void clear() { parent = nullptr; }
  std::shared_ptr<DataListeItem> clone(DataItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class DataListeItems : public Items<DataListeItem> {
 public:
  /// Builds and calls AddData.
  DataListeItem* Add(std::int32_t value, const std::string& label, const std::string& info);
  /// Puts the item at its roughly ordered place by `Valeur`. Raises 1 for a value or a label that a
  /// member has.
  DataListeItem* AddData(Pointer item);
  /// Appends. Raises 1 as AddData does.
  DataListeItem* AddDataUnSorted(Pointer item);
  /// Appends the items as they are, also where a value or a label stands twice.
  void AddAll(std::vector<Pointer> items);
  DataListeItem* ItemValue(std::int32_t value) const;
  /// Without regard to case.
  DataListeItem* ItemLabel(std::string_view label) const;
  /// The greatest `Valeur`, 0 for an empty list.
  std::int32_t ValueMax() const;
  /// The copy is in the order of the insertion rule of AddData.
  std::shared_ptr<DataListeItems> clone(DataItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  /// Keeps the order of the file, and duplicates too.
  void loadXml(OmnikorLibXml& database, xml::Node parent, DataItem* owner);

 private:
  void refuseDuplicate(const DataListeItem& item) const;
};

} // namespace kelmar
