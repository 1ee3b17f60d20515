// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/catalogue_items.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"

namespace kelmar {

namespace {

constexpr std::int32_t extendedIdentifierMark = std::int32_t(0x80000000u);
constexpr std::int32_t identifierBits = 0x1FFFFFFF;

template <class Collection, class Matches>
auto firstMatch(const Collection& items, Matches matches) -> decltype(*items.begin()) {
  for (auto* item : items)
    if (matches(*item)) return item;
  return nullptr;
}

template <class T>
void loadStrictly(OmnikorLibXml& database, xml::Node parent, const char* element,
                  std::function<void(std::shared_ptr<T>)> add) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, element, element, MemberTest::Strict,
      [&](xml::Node node) {
        auto item = std::make_shared<T>();
        item->loadXml(database, node);
        return item;
      },
      add);
}

/// Reads the attribute, or raises 1 with the text into the slot.
bool requireText(LoadContext& load, xml::Node element, const char* attribute, std::string& field,
                 const char* complaint) {
  if (readText(load, element, attribute, field)) return true;
  load.pending.set(1, "loadXml", complaint);
  return false;
}

bool requireNumber(LoadContext& load, xml::Node element, const char* attribute, std::int32_t& field,
                   const char* complaint) {
  if (readNumber(load, element, attribute, field)) return true;
  load.pending.set(1, "loadXml", complaint);
  return false;
}

} // namespace

void writeCanIdentifier(xml::Writer& out, xml::Name element, std::int32_t identifier) {
  out.open(element);
  out.lineFeed();
  out.open("CANId");
  if (identifier >= 0) {
    out.attribute("Value", identifier);
  } else {
    out.attribute("Value", identifier & identifierBits);
    out.attribute("Extended", "1");
  }
  out.close();
  out.lineFeed();
  out.close();
}

std::int32_t readCanIdentifier(LoadContext& load, xml::Node parent, const char* element) {
  const xml::Node identifier = parent.child(element).child("CANId");
  std::int32_t value = -1;
  bool extended = false;
  if (readNumber(load, identifier, "Value", value) &&
      readBoolean(load, identifier, "Extended", extended) && extended) {
    if (value < 0) {
      load.pending.set(NumericOverflow);
      load.notKept("Value", "Extended", identifier, "'1': Overflow");
    } else {
      value += extendedIdentifierMark;
    }
  }
  return value;
}

// Protocols

void ProtocolItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", protocolName);
  out.attribute("multiPoint", multiPoint ? "1" : "0");
  out.attribute("initMode", initMode);
}

void ProtocolItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  multiPoint = true;
  initMode = 0;
  if (!requireText(load, element, "Name", protocolName,
                   "ProtocolItem.loadXml : Protocol Name not found"))
    return;
  readBoolean(load, element, "multiPoint", multiPoint);
  readNumber(load, element, "initMode", initMode);
  load.pending.clear();
}

ProtocolItem* ProtocolItems::Add(std::int32_t code, std::int32_t initMode, bool multiPoint,
                                 const std::string& name, std::string_view key) {
  auto item = std::make_shared<ProtocolItem>();
  item->code = code;
  item->initMode = initMode;
  item->multiPoint = multiPoint;
  item->protocolName = name;
  return AddData(std::move(item), key);
}

ProtocolItem* ProtocolItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

ProtocolItem* ProtocolItems::ItemName(std::string_view name) const {
  return firstMatch(*this, [&](const ProtocolItem& item) { return item.protocolName == name; });
}

ProtocolItem* ProtocolItems::ItemId(std::int32_t initMode, bool multiPoint) const {
  return firstMatch(*this, [&](const ProtocolItem& item) {
    return item.initMode == initMode && item.multiPoint == multiPoint;
  });
}

void ProtocolItems::createXMLnode(xml::Writer& out) const {
  for (const ProtocolItem* item : *this) {
    out.open("Protocol");
    item->createXMLnode(out);
    out.close();
  }
}

void ProtocolItems::loadXml(OmnikorLibXml& database, xml::Node parent) {
  loadStrictly<ProtocolItem>(database, parent, "Protocol",
                             [this](Pointer item) { AddData(std::move(item)); });
}

// Types of failure

void PanneItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", libelle);
  out.attribute("Id", id);
}

void PanneItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (requireText(load, element, "Name", libelle, "PanneItem.loadXml : Failure Name not found"))
    requireNumber(load, element, "Id", id, "PanneItem.loadXml : Id not found");
}

PanneItem* PanneItems::Add(std::int32_t id, const std::string& label, std::string_view key) {
  auto item = std::make_shared<PanneItem>();
  item->id = id;
  item->libelle = label;
  return AddData(std::move(item), key);
}

PanneItem* PanneItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

PanneItem* PanneItems::ItemName(std::string_view name) const {
  return firstMatch(*this, [&](const PanneItem& item) { return item.libelle == name; });
}

PanneItem* PanneItems::ItemId(std::int32_t id) const {
  return firstMatch(*this, [&](const PanneItem& item) { return item.id == id; });
}

void PanneItems::createXMLnode(xml::Writer& out) const {
  for (const PanneItem* item : *this) {
    out.open("Failure");
    item->createXMLnode(out);
    out.close();
  }
}

void PanneItems::loadXml(OmnikorLibXml& database, xml::Node parent) {
  loadStrictly<PanneItem>(database, parent, "Failure",
                          [this](Pointer item) { AddData(std::move(item)); });
}

// Types of device

void TypeOrganeItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", libelle);
  out.attribute("Id", id);
}

void TypeOrganeItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (requireText(load, element, "Name", libelle,
                  "TypeOrganeItem.loadXml : Device type Name not found"))
    requireNumber(load, element, "Id", id, "TypeOrganeItem.loadXml : Id not found");
}

TypeOrganeItem* TypeOrganeItems::Add(std::int32_t id, const std::string& label,
                                     std::string_view key) {
  auto item = std::make_shared<TypeOrganeItem>();
  item->id = id;
  item->libelle = label;
  return AddData(std::move(item), key);
}

TypeOrganeItem* TypeOrganeItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

TypeOrganeItem* TypeOrganeItems::ItemName(std::string_view name) const {
  return firstMatch(*this, [&](const TypeOrganeItem& item) { return item.libelle == name; });
}

TypeOrganeItem* TypeOrganeItems::ItemId(std::int32_t id) const {
  return firstMatch(*this, [&](const TypeOrganeItem& item) { return item.id == id; });
}

void TypeOrganeItems::createXMLnode(xml::Writer& out) const {
  for (const TypeOrganeItem* item : *this) {
    out.open("DeviceType");
    item->createXMLnode(out);
    out.close();
  }
}

void TypeOrganeItems::loadXml(OmnikorLibXml& database, xml::Node parent) {
  loadStrictly<TypeOrganeItem>(database, parent, "DeviceType",
                               [this](Pointer item) { AddData(std::move(item)); });
}

// Functions

void FunctionItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", functionName);
  out.attribute("Address", Address);
  out.attribute("LogicalAddress", LogicalAddress);
  if (canXid != -1) writeCanIdentifier(out, "SendId", canXid);
  if (canRid != -1) writeCanIdentifier(out, "ReceiveId", canRid);
}

void FunctionItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!requireText(load, element, "Name", functionName,
                   "FunctionItem.loadXml : Function Name not found") ||
      !requireNumber(load, element, "Address", Address, "FunctionItem.loadXml : Address not found"))
    return;
  // Unlike the writer, on purpose: a site's list keeps the logical address with the protocols.
  const xml::Node logicalAddress =
      xml::selectSingleNode(element, "ProtocolList/Protocol/LogicalAddress").node();
  if (!logicalAddress) {
    load.pending.set(1, "loadXml", "FunctionItem.loadXml : Logical Address not found");
    return;
  }
  LogicalAddress = xml::textOf(logicalAddress);
  canXid = readCanIdentifier(load, element, "SendId");
  canRid = readCanIdentifier(load, element, "ReceiveId");
  load.pending.clear();
}

FunctionItem* FunctionItems::Add(std::int32_t address, const std::string& logicalAddress,
                                 const std::string& name, std::string_view key) {
  auto item = std::make_shared<FunctionItem>();
  item->Address = address;
  item->LogicalAddress = logicalAddress;
  item->functionName = name;
  return AddData(std::move(item), key);
}

FunctionItem* FunctionItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

FunctionItem* FunctionItems::ItemAddress(std::int32_t address) const {
  return firstMatch(*this, [&](const FunctionItem& item) { return item.Address == address; });
}

FunctionItem* FunctionItems::ItemLogicalAddress(std::string_view logicalAddress) const {
  return firstMatch(
      *this, [&](const FunctionItem& item) { return item.LogicalAddress == logicalAddress; });
}

FunctionItem* FunctionItems::ItemName(std::string_view name) const {
  return firstMatch(*this, [&](const FunctionItem& item) { return item.functionName == name; });
}

std::shared_ptr<FunctionItems> FunctionItems::clone() const {
  auto copy = std::make_shared<FunctionItems>();
  for (const FunctionItem* item : *this)
    copy->AddData(item->clone());
  return copy;
}

void FunctionItems::createXMLnode(xml::Writer& out) const {
  for (const FunctionItem* item : *this) {
    out.open("Function");
    item->createXMLnode(out);
    out.close();
  }
}

void FunctionItems::loadXml(OmnikorLibXml& database, xml::Node parent) {
  loadStrictly<FunctionItem>(database, parent, "Function",
                             [this](Pointer item) { AddData(std::move(item)); });
}

} // namespace kelmar
