// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/data_position_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/request_item.h"
#include "database/target_item.h"

#include <unordered_set>

namespace kelmar {

namespace {

const DataItems* datasOf(const RequestItem* request) {
  if (!request || !request->parent) return nullptr;
  return request->parent->datas().get();
}

constexpr char duplicateData[] =
    "Duplicate Data, a data can be used only one time in the same request";

} // namespace

DataItem* DataPositionItem::data() const {
  const DataItems* datas = datasOf(parent);
  return datas ? datas->ItemName(dataName) : nullptr;
}

void DataPositionItem::setData(const DataItem* item) {
  if (item) dataName = item->dataName();
}

std::shared_ptr<DataPositionItem> DataPositionItem::clone(RequestItem* newParent) const {
  auto copy = std::make_shared<DataPositionItem>(*this);
  copy->parent = newParent;
  return copy;
}

void DataPositionItem::update(const DataPositionItem& source) {
  StartOctet = source.StartOctet;
  StartBit = source.StartBit;
  LittleEndian = source.LittleEndian;
  param = source.param;
  reference = source.reference;
}

void DataPositionItem::createXMLnode(xml::Writer& out, bool withParam) const {
  const TargetItem* target = parent ? parent->parent : nullptr;
  const bool ecuLittleEndian = target && target->Parametres() && target->Parametres()->LittleEndian;
  out.attribute("Name", dataName);
  if (reference) out.attribute("Ref", "1");
  out.attribute("FirstByte", StartOctet);
  if (StartBit != 0) out.attribute("BitOffset", StartBit);
  if (LittleEndian != ecuLittleEndian) out.attribute("Endian", LittleEndian ? "Little" : "Big");
  if (withParam && param) out.attribute("Param", "1");
}

namespace {

/// The attributes of a position, found in one pass: a file holds more positions than anything else.
struct PositionAttributes {
  xml::Attribute name, firstByte, bitOffset, ref, endian;

  explicit PositionAttributes(xml::Node element) {
    for (xml::Attribute attribute : element.attributes()) {
      const std::string_view label = attribute.name();
      if (label == "Name")
        name = attribute;
      else if (label == "FirstByte")
        firstByte = attribute;
      else if (label == "BitOffset")
        bitOffset = attribute;
      else if (label == "Ref")
        ref = attribute;
      else if (label == "Endian")
        endian = attribute;
    }
  }
};

} // namespace

void DataPositionItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  const PositionAttributes attributes(element);
  if (!attributes.name) {
    load.pending.set(1, "DataPositionItem.loadXml", platformErrorText(MissingObject));
    return;
  }
  dataName = attributes.name.value();
  const DataItems* datas = datasOf(parent);
  if (!datas || !datas->ItemName(dataName)) {
    load.pending.set(1, "DataPositionItem.loadXml",
                     "Data name '" + dataName + "' not found, request : " +
                         (parent ? parent->requestName : std::string()));
    return;
  }
  if (attributes.firstByte) readNumber(load, element, "FirstByte", StartOctet);
  if (attributes.bitOffset) readNumber(load, element, "BitOffset", StartBit);
  if (attributes.ref) readBoolean(load, element, "Ref", reference);
  const std::string_view endian = attributes.endian.value();
  if (endian.empty()) {
    const auto& parameters = parent->parent->Parametres();
    LittleEndian = parameters && parameters->LittleEndian;
  } else if (endian == "Little") {
    LittleEndian = true;
  } else if (endian == "Big") {
    LittleEndian = false;
  } else {
    load.notKept("Value", "Endian", element, "'" + std::string(endian) + "': no endianness");
  }
  load.pending.clear();
  if (dataName.empty()) {
    load.pending.set(1, "DataPositionItem.loadXml",
                     "DataPositionItem.loadXml error : Dataname missing");
  }
}

DataPositionItem* DataPositionItems::Add(const std::string& name) {
  auto item = std::make_shared<DataPositionItem>();
  item->dataName = name;
  return AddData(std::move(item));
}

DataPositionItem* DataPositionItems::AddData(Pointer item) {
  if (ItemName(item->dataName)) throw Failure(1, "DataPositionItems.AddData", duplicateData);
  return append(std::move(item));
}

void DataPositionItems::AddAll(std::vector<Pointer> items) {
  for (Pointer& item : items)
    append(std::move(item));
}

DataPositionItem* DataPositionItems::ItemName(std::string_view name) const {
  for (DataPositionItem* member : *this)
    if (member->dataName == name) return member;
  return nullptr;
}

std::shared_ptr<DataPositionItems> DataPositionItems::clone(RequestItem* newParent) const {
  auto copy = std::make_shared<DataPositionItems>();
  // The members of this collection differ in their names already.
  for (const DataPositionItem* member : *this)
    copy->append(member->clone(newParent));
  return copy;
}

void DataPositionItems::createXMLnode(xml::Writer& out) const {
  for (const DataPositionItem* member : *this) {
    out.open("DataItem");
    member->createXMLnode(out, true);
    out.close();
  }
}

void DataPositionItems::createXMLnodeType(xml::Writer& out, bool param) const {
  for (const DataPositionItem* member : *this) {
    if (member->param != param) continue;
    out.open("DataItem");
    member->createXMLnode(out);
    out.close();
    out.lineFeed();
  }
}

void DataPositionItems::loadAll(OmnikorLibXml& database, xml::Node parent, RequestItem* owner,
                                bool param, bool strict) {
  LoadContext& load = database.loading();
  load.pending.clear();
  // A long frame holds thousands of positions: the names are looked up in a set that lives here.
  std::unordered_set<std::string_view> names;
  for (const DataPositionItem* member : *this)
    names.insert(member->dataName);
  loadMembers(
      load, parent, "DataItem", "Position", strict ? MemberTest::Strict : MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<DataPositionItem>();
        item->parent = owner;
        item->param = param;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) {
        if (names.contains(item->dataName))
          throw Failure(1, "DataPositionItems.AddData", duplicateData);
        names.insert(append(std::move(item))->dataName);
      });
}

void DataPositionItems::loadXml(OmnikorLibXml& database, xml::Node parent, RequestItem* owner) {
  loadAll(database, parent, owner, false, false);
}

void DataPositionItems::loadXmlType(OmnikorLibXml& database, xml::Node parent, RequestItem* owner,
                                    bool param) {
  loadAll(database, parent, owner, param, true);
  database.loading().pending.clear();
}

void updateDataPositions(RequestItem& owner, const DataPositionItems* source) {
  TargetItem* target = owner.parent;
  const auto remove = [&](DataPositionItem* position) {
    if (target) {
      target->DeleteDataPosition(position);
    } else {
      owner.DataPositions->deleteItem(position);
    }
  };
  if (!source) {
    while (owner.DataPositions && owner.DataPositions->Count() > 0)
      remove(owner.DataPositions->Item(1));
    return;
  }
  if (!owner.DataPositions) owner.DataPositions = std::make_shared<DataPositionItems>();
  for (const DataPositionItem* member : *source) {
    if (DataPositionItem* mine = owner.DataPositions->ItemName(member->dataName)) {
      mine->update(*member);
    } else {
      owner.DataPositions->AddData(member->clone(&owner));
    }
  }
  for (int position = owner.DataPositions->Count(); position >= 1; --position) {
    DataPositionItem* mine = owner.DataPositions->Item(position);
    if (!source->ItemName(mine->dataName)) remove(mine);
  }
}

} // namespace kelmar
