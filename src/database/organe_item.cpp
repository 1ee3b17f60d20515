// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/organe_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/target_item.h"

#include <unordered_set>

namespace kelmar {

// Device data

namespace {

Failure duplicateDeviceData() {
  return Failure(1, "DeviceDataItems.AddData",
                 "Duplicate Data, a data can be used only one time in one device");
}

} // namespace

DataItem* DeviceDataItem::data() const {
  const TargetItem* target = parent ? parent->parent : nullptr;
  return target && target->datas() ? target->datas()->ItemName(dataName) : nullptr;
}

void DeviceDataItem::setData(const DataItem* item) {
  if (item) dataName = item->dataName();
}

std::shared_ptr<DeviceDataItem> DeviceDataItem::clone(OrganeItem* newParent) const {
  auto copy = std::make_shared<DeviceDataItem>(*this);
  copy->parent = newParent;
  return copy;
}

void DeviceDataItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", dataName);
  out.attribute("FailureFlag", FlagPanne ? "1" : "0");
}

void DeviceDataItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  readText(load, element, "Name", dataName);
  readBoolean(load, element, "FailureFlag", FlagPanne);
}

DeviceDataItem* DeviceDataItems::Add(const std::string& name, bool failureFlag) {
  auto item = std::make_shared<DeviceDataItem>();
  item->dataName = name;
  item->FlagPanne = failureFlag;
  return AddData(std::move(item));
}

DeviceDataItem* DeviceDataItems::AddData(Pointer item) {
  if (ItemName(item->dataName)) throw duplicateDeviceData();
  return append(std::move(item));
}

DeviceDataItem* DeviceDataItems::ItemName(std::string_view name) const {
  for (DeviceDataItem* member : *this)
    if (member->dataName == name) return member;
  return nullptr;
}

std::shared_ptr<DeviceDataItems> DeviceDataItems::clone(OrganeItem* newParent) const {
  auto copy = std::make_shared<DeviceDataItems>();
  for (const DeviceDataItem* member : *this)
    copy->append(member->clone(newParent));
  return copy;
}

void DeviceDataItems::createXMLnode(xml::Writer& out) const {
  for (const DeviceDataItem* member : *this) {
    out.open("DeviceData");
    member->createXMLnode(out);
    out.close();
  }
}

void DeviceDataItems::loadXml(OmnikorLibXml& database, xml::Node parent, OrganeItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  std::unordered_set<std::string> names;
  for (const DeviceDataItem* member : *this)
    names.insert(member->dataName);
  loadMembers(
      load, parent, "DeviceData", "Device data", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<DeviceDataItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) {
        if (!names.insert(item->dataName).second) throw duplicateDeviceData();
        load.noteDeviceData(append(std::move(item))->dataName);
      });
}

// Devices

namespace {

TypeOrganeItems* deviceTypesOf(const OrganeItem& device) {
  if (!device.parent || !device.parent->parent) return nullptr;
  return device.parent->parent->typeOrganes.get();
}

} // namespace

void OrganeItem::setOrganeTypeId(std::int32_t id) {
  typeId_ = id;
  const TypeOrganeItems* types = deviceTypesOf(*this);
  if (const TypeOrganeItem* type = types ? types->ItemId(id) : nullptr) typeName_ = type->libelle;
}

void OrganeItem::setOrganeTypeName(const std::string& name) {
  typeName_ = name;
  const TypeOrganeItems* types = deviceTypesOf(*this);
  if (const TypeOrganeItem* type = types ? types->ItemName(name) : nullptr) typeId_ = type->id;
}

void OrganeItem::setRequest(std::shared_ptr<RequestItem> item) {
  requestName = item ? item->requestName : std::string();
  request_ = std::move(item);
}

DeviceDataItem* OrganeItem::GetDeviceDataUsingData(std::string_view name) const {
  return DeviceDatas ? DeviceDatas->ItemName(name) : nullptr;
}

TestItem* OrganeItem::GetTestUsingData(std::string_view name) const {
  return Tests ? Tests->GetTestUsingData(name) : nullptr;
}

void OrganeItem::RenameData(const std::string& oldName, const std::string& newName) {
  if (DeviceDataItem* datum = GetDeviceDataUsingData(oldName)) datum->dataName = newName;
  if (TestItem* test = GetTestUsingData(oldName)) test->RenameFlag(oldName, newName);
}

bool OrganeItem::DeleteDataPosition(const DataPositionItem& position) {
  if (DeviceDataItem* datum = GetDeviceDataUsingData(position.dataName)) {
    DeviceDatas->deleteItem(datum);
    return true;
  }
  TestItem* test = GetTestUsingData(position.dataName);
  return test && test->DeleteFlag(position.dataName);
}

void OrganeItem::clear() {
  if (DeviceDatas) DeviceDatas->clear();
  if (Tests) Tests->clear();
  DeviceDatas.reset();
  Tests.reset();
  request_.reset();
  parent = nullptr;
}

std::shared_ptr<OrganeItem> OrganeItem::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<OrganeItem>();
  copy->organeName = organeName;
  copy->Mnemonique = Mnemonique;
  copy->typeId_ = typeId_;
  copy->typeName_ = typeName_;
  copy->OrganeDTC = OrganeDTC;
  copy->OrganeOBD = OrganeOBD;
  copy->requestName = requestName;
  copy->request_ = request_;
  if (DeviceDatas) copy->DeviceDatas = DeviceDatas->clone(copy.get());
  if (Tests) copy->Tests = Tests->clone(copy.get());
  copy->parent = newParent;
  return copy;
}

void OrganeItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", organeName);
  if (OrganeDTC != 0) out.attribute("DTC", OrganeDTC);
  if (OrganeOBD != 0) out.attribute("OBD", OrganeOBD);
  if (typeId_ != 1) out.attribute("Type", typeId_);
  if (!requestName.empty()) out.attribute("FreezeFrame", requestName);
  if (!Mnemonique.empty()) {
    out.lineFeed();
    out.textElement("Mnemonic", Mnemonique);
    out.lineFeed();
  }
  if (DeviceDatas) DeviceDatas->createXMLnode(out);
  if (Tests) Tests->createXMLnode(out);
}

void OrganeItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Name", organeName)) {
    load.pending.set(100, "OrganeItem.loadXml",
                     "OrganeItem.loadXml error : Device Name not defined");
    return;
  }
  Mnemonique = xml::textOf(element.child("Mnemonic"));
  std::int32_t type = 1;
  if (element.attribute("Type")) readNumber(load, element, "Type", type);
  setOrganeTypeId(type);
  OrganeDTC = 0;
  OrganeOBD = 0;
  if (element.attribute("DTC")) readNumber(load, element, "DTC", OrganeDTC);
  if (element.attribute("OBD")) readNumber(load, element, "OBD", OrganeOBD);
  requestName = element.attribute("FreezeFrame").value();
  DeviceDatas = std::make_shared<DeviceDataItems>();
  DeviceDatas->loadXml(database, element, this);
  Tests = std::make_shared<TestItems>();
  Tests->loadXml(database, element, this);
  if (requestName.empty()) return;
  RequestItem* found =
      parent && parent->Requests() ? parent->Requests()->ItemName(requestName) : nullptr;
  request_ = found ? found->shared_from_this() : nullptr;
}

OrganeItem* OrganeItems::Add(const std::string& name) {
  auto item = std::make_shared<OrganeItem>();
  item->organeName = name;
  return AddData(std::move(item));
}

OrganeItem* OrganeItems::AddData(Pointer item) {
  const NameKey key(item->organeName);
  return append(std::move(item), key);
}

OrganeItem* OrganeItems::ItemName(std::string_view name) const {
  return findKey(keyOfName(name));
}

void OrganeItems::rename(OrganeItem* item, const std::string& newName) {
  if (OrganeItem* found = ItemName(newName)) {
    if (found != item) throw Failure(1, "OrganeItems.rename", "Duplicate device (" + newName + ")");
    if (item->organeName == newName) return;
  }
  int index = 0;
  for (const OrganeItem* member : *this) {
    ++index;
    if (member->organeName != item->organeName) continue;
    Pointer moved = take(index);
    moved->organeName = newName;
    AddData(std::move(moved));
    return;
  }
}

TestItem* OrganeItems::GetDevicesTestWithObd(std::int32_t obd) const {
  for (const OrganeItem* device : *this) {
    if (!device->Tests) continue;
    if (TestItem* test = device->Tests->ItemOBD(obd)) return test;
  }
  return nullptr;
}

OrganeItem* OrganeItems::FindDeviceByValDTC(std::int32_t dtc) const {
  for (OrganeItem* device : *this)
    if (device->OrganeDTC == dtc) return device;
  return nullptr;
}

bool OrganeItems::DeleteDataPosition(const DataPositionItem& position) {
  bool found = false;
  for (OrganeItem* device : *this)
    found |= device->DeleteDataPosition(position);
  return found;
}

void OrganeItems::createXMLnode(xml::Writer& out) const {
  for (const OrganeItem* device : *this) {
    out.item("Device", device->organeName);
    out.open("Device");
    device->createXMLnode(out);
    out.close();
    out.lineFeed();
  }
}

void OrganeItems::loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  for (xml::Node node = parent.first_child(); node;) {
    const xml::Node next = node.next_sibling();
    if (baseName(node) == "Device") {
      auto item = std::make_shared<OrganeItem>();
      item->parent = owner;
      item->loadXml(database, node);
      // No test of the pending error here: a device without a name is a device all the same.
      try {
        AddData(std::move(item));
      } catch (const Failure& failure) {
        load.notKept("Device", reportName(node), node, failure.text);
        for (xml::Node rest = next; rest; rest = rest.next_sibling()) {
          if (baseName(rest) == "Device")
            load.notKept("Device", reportName(rest), rest,
                         "reading ends at the duplicate device before it");
        }
        throw;
      }
      load.release(node);
    }
    node = next;
  }
}

} // namespace kelmar
