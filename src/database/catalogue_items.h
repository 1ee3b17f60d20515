// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>

namespace kelmar {

class LoadContext;
class OmnikorLibXml;

// The small lists that an ECU file refers to. Lookups are linear and give none when absent; nothing
// checks for duplicates. Every `Add` takes an optional key and raises KeyExists on a clash.

struct ProtocolItem {
  std::int32_t code = 0;
  std::int32_t initMode = 0;
  bool multiPoint = false;
  std::string protocolName;

  void clear() {}
  std::shared_ptr<ProtocolItem> clone() const { return std::make_shared<ProtocolItem>(*this); }
  void createXMLnode(xml::Writer& out) const;
  /// Sets the pending error of the database when the name is missing. Does not read `Code`.
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class ProtocolItems : public Items<ProtocolItem> {
 public:
  ProtocolItem* Add(std::int32_t code, std::int32_t initMode, bool multiPoint,
                    const std::string& name, std::string_view key = {});
  ProtocolItem* AddData(Pointer item, std::string_view key = {});
  ProtocolItem* ItemName(std::string_view name) const;
  /// First match of both.
  ProtocolItem* ItemId(std::int32_t initMode, bool multiPoint) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent);
};

/// A type of failure.
struct PanneItem {
  std::int32_t id = 0;
  std::string libelle;

  void clear() {}
  std::shared_ptr<PanneItem> clone() const { return std::make_shared<PanneItem>(*this); }
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class PanneItems : public Items<PanneItem> {
 public:
  PanneItem* Add(std::int32_t id, const std::string& label, std::string_view key = {});
  PanneItem* AddData(Pointer item, std::string_view key = {});
  PanneItem* ItemName(std::string_view name) const;
  PanneItem* ItemId(std::int32_t id) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent);
};

/// A type of device.
struct TypeOrganeItem {
  std::int32_t id = 0;
  std::string libelle;

  void clear() {}
  std::shared_ptr<TypeOrganeItem> clone() const { return std::make_shared<TypeOrganeItem>(*this); }
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class TypeOrganeItems : public Items<TypeOrganeItem> {
 public:
  TypeOrganeItem* Add(std::int32_t id, const std::string& label, std::string_view key = {});
  TypeOrganeItem* AddData(Pointer item, std::string_view key = {});
  TypeOrganeItem* ItemName(std::string_view name) const;
  TypeOrganeItem* ItemId(std::int32_t id) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent);
};

/// What an ECU does in the vehicle, with its diagnostic address.
struct FunctionItem {
  std::int32_t Address = 0;
  std::string LogicalAddress;
  std::string functionName;
  std::int32_t canXid = -1; ///< -1 when unset; bit 31 marks a 29-bit identifier
  std::int32_t canRid = -1;

  void clear() {}
  std::shared_ptr<FunctionItem> clone() const { return std::make_shared<FunctionItem>(*this); }
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class FunctionItems : public Items<FunctionItem> {
 public:
  FunctionItem* Add(std::int32_t address, const std::string& logicalAddress,
                    const std::string& name, std::string_view key = {});
  FunctionItem* AddData(Pointer item, std::string_view key = {});
  FunctionItem* ItemAddress(std::int32_t address) const;
  FunctionItem* ItemLogicalAddress(std::string_view logicalAddress) const;
  FunctionItem* ItemName(std::string_view name) const;
  std::shared_ptr<FunctionItems> clone() const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent);
};

/// Writes `SendId` or `ReceiveId` with its `CANId`: the low 29 bits and `Extended` for a 29-bit
/// identifier.
void writeCanIdentifier(xml::Writer& out, xml::Name element, std::int32_t identifier);
/// Reads the value under `element` ("SendId"), -1 when there is none; tolerant.
std::int32_t readCanIdentifier(LoadContext& load, xml::Node parent, const char* element);

} // namespace kelmar
