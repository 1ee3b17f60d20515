// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/data_position_item.h"
#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class OrganeItem;

/// The reference positions of the flags of a test, keyed "k" + data name at the time of adding. The
/// positions belong to their requests.
class FlagPositions : public Items<DataPositionItem> {
 public:
  /// Raises KeyExists.
  void Add(Pointer position);
  /// Removes without clearing: the position stays in its request.
  using Items::Remove;
  /// Keeps the position under the key of a new name: it goes to the end.
  void rekey(int position, std::string_view newName);
  /// Forgets all positions without touching them.
  void clear();
};

/// A fault test of a device, pointing at its stored and present fault flags.
class TestItem {
 public:
  std::string Description;
  std::int32_t testType = 0;
  std::int32_t Severity = 1;
  bool Autocheck = true;
  FlagPositions StoredFlag;
  FlagPositions PresentFlag;
  OrganeItem* parent = nullptr;

  std::int32_t OBD() const { return obd_; }
  /// Raises 1 "Duplicate OBD code" and keeps the old value when another test of the ECU has the
  /// code; zero is stored without a check, and so is any code while device or target are not set.
  void setOBD(std::int32_t code);

  void clear();
  std::shared_ptr<TestItem> clone(OrganeItem* newParent) const;
  bool holdsFlag(std::string_view dataName) const;
  /// Removes the stored flag of that name, or else the present one. False when there is none.
  bool DeleteFlag(std::string_view dataName);
  /// Moves the flag of the old name to the key of the new one.
  void RenameFlag(std::string_view oldName, std::string_view newName);
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);

 private:
  void loadFlags(OmnikorLibXml& database, xml::Node element, const char* child,
                 FlagPositions& flags);
  std::int32_t obd_ = 0;
};

/// The tests of a device, keyed by the decimal text of their type.
class TestItems : public Items<TestItem> {
 public:
  /// Raises KeyExists.
  TestItem* Add(std::int32_t type);
  /// Raises 1 when the device has a test of this type.
  TestItem* AddData(Pointer item);
  TestItem* ItemType(std::int32_t type) const;
  /// None for code 0.
  TestItem* ItemOBD(std::int32_t code) const;
  /// The first test that holds the flag, stored or present, by key.
  TestItem* GetTestUsingData(std::string_view dataName) const;
  std::shared_ptr<TestItems> clone(OrganeItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, OrganeItem* owner);
};

} // namespace kelmar
