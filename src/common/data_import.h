// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "xml/document.h"

#include <string>

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

/// A new numeric data of 8 bits under that name, at its sorted place.
DataItem* addDefaultData(TargetItem& target, const std::string& name);

/// A position that claims to be the reference of its data loses the claim when another one is.
void dropSecondReference(const TargetItem& target, DataPositionItem& position);

/// True when a new received position of that data is to be its reference: a maintainability request
/// that is not sent by hand, reads ($21 or $22), and whose data has no reference yet.
bool isReferenceByDefault(const TargetItem& target, const RequestItem& request, bool param,
                          std::string_view dataName);

} // namespace kelmar
