// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/reference_index.h"
#include "database/omnikor_lib_xml.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kelmar {

// What pasting into lists shares: definitions of data that travel along with their users.

/// The definition of a data in a list of `Data` elements, by exact name, or a null node.
xml::Node dataDefinition(xml::Node datas, std::string_view name);

/// Adds the data that the element defines. None when it could not be added.
DataItem* AddDataFromXml(OmnikorLibXml& database, TargetItem& target, xml::Node data);

/// Adds every `Data` of the list whose name the ECU does not know. The number of data added.
int addMissingDatas(OmnikorLibXml& database, TargetItem& target, xml::Node datas);

/// Answers a reader for as long as it lives with the endianness that the source of pasted positions
/// had: the ECU's own is back afterwards.
class SourceEndianness {
 public:
  /// `root` bears the attribute `Endian`; without it the ECU's own endianness stays.
  SourceEndianness(TargetItem& target, xml::Node root);
  SourceEndianness(const SourceEndianness&) = delete;
  SourceEndianness& operator=(const SourceEndianness&) = delete;
  ~SourceEndianness();

 private:
  TargetParamItem& parameters_;
  bool before_;
};

/// "Little" or "Big": the attribute `Endian` of a fragment.
const char* endianText(const TargetItem& target);

/// The data of an ECU during a paste: those that it has and those that are on their way into it.
/// They all find their sorted places at the end, as if they had come one by one.
class ComingDatas {
 public:
  /// An ECU without list of data gets an empty one.
  explicit ComingDatas(TargetItem& target);

  /// By name without regard to case; none when there is none.
  DataItem* find(const std::string& name) const;
  /// The name must be free. The data gets the ECU as its owner.
  DataItem* add(DataItems::Pointer data);
  /// A new numeric data of 8 bits under that name.
  DataItem* addDefault(const std::string& name);
  void finish();

 private:
  static std::string key(const std::string& name);

  TargetItem& target_;
  std::vector<DataItems::Pointer> added_;
  std::unordered_map<std::string, DataItem*> coming_;
};

/// The positions of a request during a paste, likewise.
class ComingPositions {
 public:
  /// A request without list of positions gets an empty one.
  explicit ComingPositions(RequestItem& request);

  DataPositionItem* find(const std::string& dataName) const;
  /// Raises 1 when the data has a position in the request already.
  DataPositionItem* add(DataPositionItems::Pointer position);
  void finish();

 private:
  RequestItem& request_;
  std::vector<DataPositionItems::Pointer> added_;
  std::unordered_map<std::string, DataPositionItem*> all_;
};

/// True when a new received position is to be the reference of its data, if that has none yet: in a
/// maintainability request that is not sent by hand and reads ($21 or $22).
bool isReferenceByDefault(const RequestItem& request, bool param);

/// Writes definitions of data into a form of the clipboard, each data once.
class DataDefinitions {
 public:
  explicit DataDefinitions(xml::Writer& out) : out_(out) {}
  /// Nothing for none.
  void add(const DataItem* data);

 private:
  xml::Writer& out_;
  std::unordered_set<const DataItem*> written_;
};

} // namespace kelmar
