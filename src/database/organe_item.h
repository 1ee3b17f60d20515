// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "database/test_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class DataItem;
class OmnikorLibXml;
class OrganeItem;
class RequestItem;
class TargetItem;

/// One data that describes a device.
class DeviceDataItem {
 public:
  std::string dataName;
  bool FlagPanne = false;
  OrganeItem* parent = nullptr;

  DataItem* data() const;
  void setData(const DataItem* item);
  void clear() { parent = nullptr; }
  std::shared_ptr<DeviceDataItem> clone(OrganeItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class DeviceDataItems : public Items<DeviceDataItem> {
 public:
  DeviceDataItem* Add(const std::string& name, bool failureFlag);
  /// Raises 1 when the device has the data already.
  DeviceDataItem* AddData(Pointer item);
  DeviceDataItem* ItemName(std::string_view name) const;
  std::shared_ptr<DeviceDataItems> clone(OrganeItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, OrganeItem* owner);
};

/// A component that the ECU knows: a sensor, an actuator, an internal function.
class OrganeItem {
 public:
  std::string organeName; ///< renamed through OrganeItems::rename
  std::string Mnemonique;
  std::int32_t OrganeDTC = 0;
  std::int32_t OrganeOBD = 0;
  std::shared_ptr<DeviceDataItems> DeviceDatas =
      std::make_shared<DeviceDataItems>();                          ///< may be none
  std::shared_ptr<TestItems> Tests = std::make_shared<TestItems>(); ///< may be none
  std::string requestName;                                          ///< freeze-frame request
  TargetItem* parent = nullptr;

  std::int32_t OrganeTypeId() const { return typeId_; }
  /// Sets the name of the type too, when the catalogue knows the id.
  void setOrganeTypeId(std::int32_t id);
  const std::string& OrganeTypeName() const { return typeName_; }
  /// Sets the id of the type too, when the catalogue knows the name.
  void setOrganeTypeName(const std::string& name);

  RequestItem* request() const { return request_.get(); }
  /// Stores the object and copies its name, or the empty text for none.
  void setRequest(std::shared_ptr<RequestItem> item);

  DeviceDataItem* GetDeviceDataUsingData(std::string_view name) const;
  TestItem* GetTestUsingData(std::string_view name) const;
  /// The device datum and the test that use the old name follow.
  void RenameData(const std::string& oldName, const std::string& newName);
  /// Deletes the device datum of the position's data; only if there is none, its flag. False when
  /// there was neither.
  bool DeleteDataPosition(const DataPositionItem& position);

  void clear();
  std::shared_ptr<OrganeItem> clone(TargetItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);

 private:
  std::int32_t typeId_ = 1;
  std::string typeName_ = "Entrée";
  std::shared_ptr<RequestItem> request_;
};

/// The devices of an ECU, keyed "k" + name.
class OrganeItems : public Items<OrganeItem> {
 public:
  OrganeItem* Add(const std::string& name);
  OrganeItem* AddData(Pointer item);
  OrganeItem* ItemName(std::string_view name) const;
  /// The renamed device goes to the end. Raises 1 "Duplicate device (...)".
  void rename(OrganeItem* item, const std::string& newName);
  /// The first test with that code in any device.
  TestItem* GetDevicesTestWithObd(std::int32_t obd) const;
  OrganeItem* FindDeviceByValDTC(std::int32_t dtc) const;
  /// Runs the routine of all devices. False when none held the data.
  bool DeleteDataPosition(const DataPositionItem& position);
  void createXMLnode(xml::Writer& out) const;
  /// Not tolerant: a duplicate name raises KeyExists and ends the reading of devices.
  void loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner);
};

} // namespace kelmar
