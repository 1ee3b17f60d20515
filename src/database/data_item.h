// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/coefficient.h"
#include "database/data_liste_item.h"
#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelmar {

class OmnikorLibXml;
class TargetItem;

/// What a value is: its size, how raw values scale, or which texts they stand for.
class DataItem {
 public:
  const std::string& dataName() const { return dataName_; }
  /// Raises 1 "Duplicate name (...)" when `parent` is set and its `datas` know the name, the item's
  /// own included; the name then does not change. Without a parent the name is stored untested.
  void setDataName(const std::string& name);

  std::int32_t NumberBits = 8; ///< bits; 8 times the byte count for byte data
  bool numerique = true;       ///< bit data (`Bits`), otherwise byte data (`Bytes`)
  bool liste = false;          ///< shown through DataListes
  bool Signe = false;
  bool Ascii = false; ///< byte data shown as text
  std::string Unite;
  Coefficient CoeffA{1.0}; ///< multiplier, `Step` in the file
  Coefficient CoeffB{0.0}; ///< `Offset` in the file
  Coefficient CoeffC{1.0}; ///< divisor, `DivideBy` in the file
  std::string DataFormat;
  std::string Mnemo;
  std::string Description; ///< free comment, `Comment` in the file; lines end with CR LF
  std::string Fiche;       ///< sheet text, `Description` in the file
  std::shared_ptr<DataListeItems> DataListes; ///< may be none
  TargetItem* parent = nullptr;

  void clear();
  std::shared_ptr<DataItem> clone(TargetItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);

 private:
  friend class DataItems;
  void loadBits(OmnikorLibXml& database, xml::Node bits);
  std::string dataName_;
};

/// The data of an ECU, keyed "k" + name.
class DataItems : public Items<DataItem> {
 public:
  /// Creates, appends. Raises KeyExists.
  DataItem* Add(const std::string& name);
  /// Raises KeyExists.
  DataItem* AddData(Pointer item);
  /// Puts the item at its roughly ordered place. Raises 1 "Duplicate data name '...'" when a member
  /// bears exactly this name.
  DataItem* AddDataSorted(Pointer item);
  /// The result of AddDataSorted one by one, in a time that grows with their number. Raises as it
  /// does; those before the duplicate stay added.
  void AddDatasSorted(const std::vector<Pointer>& items);
  /// None when absent.
  DataItem* ItemName(std::string_view name) const;
  /// Raises 1 "Duplicate data (...)". References to the old name are TargetItem::RenameData's.
  void rename(DataItem* item, const std::string& newName);
  /// A member and its new name.
  using NewName = std::pair<DataItem*, std::string>;
  /// The result of `rename` one by one, in a time that grows with their number; one answer each,
  /// false for a name that another member has. Each item may be there once.
  std::vector<bool> renameAll(const std::vector<NewName>& names);
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner);
};

} // namespace kelmar
