// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/device_association.h"

namespace kelmar {

namespace {

constexpr std::int32_t typeOfMadeDevices = 4;

void addData(const DataPositionItem& position, OrganeItem& device, bool failureFlag) {
  if (!device.DeviceDatas) device.DeviceDatas = std::make_shared<DeviceDataItems>();
  auto datum = std::make_shared<DeviceDataItem>();
  datum->parent = &device;
  datum->dataName = position.dataName;
  datum->FlagPanne = failureFlag;
  device.DeviceDatas->AddData(std::move(datum));
}

} // namespace

bool associateWithDevice(TargetItem& target, DataPositionItem& position, OrganeItem& device,
                         bool failureFlag) {
  if (position.reference) {
    removeFromDevice(target, position);
  } else {
    if (target.GetDataPositionFromRefData(position.dataName)) return false;
    position.reference = true;
  }
  try {
    addData(position, device, failureFlag);
  } catch (const Failure&) {
    // A device may hold data of positions that are no references; it has this one already.
  }
  return true;
}

bool AssociateDataToDevice(TargetItem& target, DataPositionItem& position, OrganeItem& device) {
  if (position.reference && target.GetDeviceUsingData(position.dataName)) return false;
  return associateWithDevice(target, position, device, false);
}

bool removeFromDevice(const TargetItem& target, const DataPositionItem& position) {
  const DeviceDataItem* datum = target.GetDeviceDataUsingData(position.dataName);
  if (!datum || !datum->parent) return false;
  datum->parent->DeviceDatas->deleteItem(datum);
  return true;
}

std::vector<OrganeItem*> createDevicesFromRequests(TargetItem& target,
                                                   const std::vector<RequestItem*>& requests) {
  std::vector<OrganeItem*> made;
  if (!target.Organes()) target.setOrganes(std::make_shared<OrganeItems>());
  for (RequestItem* request : requests) {
    if (!request->DataPositions || target.Organes()->ItemName(request->requestName)) continue;
    bool worthIt = false;
    for (const DataPositionItem* position : *request->DataPositions)
      if (!position->param &&
          (!position->reference || !target.GetDeviceUsingData(position->dataName)))
        worthIt = true;
    if (!worthIt) continue;
    auto device = std::make_shared<OrganeItem>();
    device->parent = &target;
    device->organeName = request->requestName;
    device->setOrganeTypeId(typeOfMadeDevices);
    device->Mnemonique =
        "Request " + (request->RequestBytes ? request->RequestBytes->HexText() : std::string());
    OrganeItem* added = target.Organes()->AddData(std::move(device));
    for (DataPositionItem* position : *request->DataPositions)
      if (!position->param) AssociateDataToDevice(target, *position, *added);
    made.push_back(added);
  }
  return made;
}

} // namespace kelmar
