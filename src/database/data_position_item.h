// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kelmar {

class DataItem;
class OmnikorLibXml;
class RequestItem;

/// Places one data item in the sent or the received frame of a request.
class DataPositionItem : public std::enable_shared_from_this<DataPositionItem> {
 public:
  std::string dataName;
  std::int32_t StartOctet = 1; ///< 1-based byte of the frame
  std::int32_t StartBit = 0;   ///< bit in that byte
  bool LittleEndian = false;
  bool param = false;     ///< in the sent frame, otherwise in the received one
  bool reference = false; ///< the data's reference position
  RequestItem* parent = nullptr;

  /// The data of that name, none if missing.
  DataItem* data() const;
  /// Copies the name; none changes nothing.
  void setData(const DataItem* item);

  void clear() { parent = nullptr; }
  std::shared_ptr<DataPositionItem> clone(RequestItem* newParent) const;
  /// Everything but the name and the parent.
  void update(const DataPositionItem& source);
  /// `withParam` adds the attribute of the clipboard form.
  void createXMLnode(xml::Writer& out, bool withParam = false) const;
  /// `parent` must be set. Sets the pending error when the data does not exist.
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class DataPositionItems : public Items<DataPositionItem> {
 public:
  DataPositionItem* Add(const std::string& name);
  /// Raises 1 when the data has a position in the request already, on either side.
  DataPositionItem* AddData(Pointer item);
  /// Appends positions of which the caller knows that no data stands twice.
  void AddAll(std::vector<Pointer> items);
  DataPositionItem* ItemName(std::string_view name) const;
  std::shared_ptr<DataPositionItems> clone(RequestItem* newParent) const;
  /// The clipboard form: all members, with `Param`.
  void createXMLnode(xml::Writer& out) const;
  /// The file form: the members of one side, a line feed behind each.
  void createXMLnodeType(xml::Writer& out, bool param) const;
  /// The members of a fragment; those whose data is missing are added all the same.
  void loadXml(OmnikorLibXml& database, xml::Node parent, RequestItem* owner);
  /// The members of one side; those whose data is missing are skipped.
  void loadXmlType(OmnikorLibXml& database, xml::Node parent, RequestItem* owner, bool param);

 private:
  /// `strict`: without those whose data is missing.
  void loadAll(OmnikorLibXml& database, xml::Node parent, RequestItem* owner, bool param,
               bool strict);
};

/// Makes the positions of `owner` those of `source` (none: no positions). What goes takes its
/// references with it.
void updateDataPositions(RequestItem& owner, const DataPositionItems* source);

} // namespace kelmar
