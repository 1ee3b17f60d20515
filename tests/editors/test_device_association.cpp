// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/positions/device_association.h"
#include "editors/rules/positions/position_commands.h"

namespace kelmar {
namespace {

using testing::positionsText;
using testing::RequestEcu;

/// Data of the device, "!" behind a failure flag, joined by ", ".
std::string datasOf(const OrganeItem& device) {
  std::string text;
  if (!device.DeviceDatas) return "none";
  for (const DeviceDataItem* datum : *device.DeviceDatas)
    text += (text.empty() ? "" : ", ") + datum->dataName + (datum->FlagPanne ? "!" : "");
  return text;
}

class DeviceAssociation : public ::testing::Test {
 protected:
  PositionSelection positionsOf(RequestItem& request) {
    PositionSelection all;
    for (DataPositionItem* position : *request.DataPositions)
      all.push_back(position);
    return all;
  }
  void asksForName(const std::string& proposal, const std::string& answer,
                   const std::string& text = "Enter new device name:") {
    ecu.person.expectInput({"REQUESTS/MSG/ppDataSetDev_Click/inputName/text",
                            "Associate a data to a device", text, proposal},
                           answer);
  }
  RequestEcu ecu;
};

TEST_F(DeviceAssociation, AReferenceLeavesTheDeviceThatItBelongedTo) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D", false, 2, 0, true);
  OrganeItem& before = ecu.addDevice("Before", {"D", "Other"});
  OrganeItem& after = ecu.addDevice("After");
  EXPECT_TRUE(associateWithDevice(ecu.target(), positionsOf(request), after, true));
  EXPECT_EQ(datasOf(before), "Other");
  EXPECT_EQ(datasOf(after), "D!");
  EXPECT_EQ(after.DeviceDatas->Item(1)->parent, &after);
  EXPECT_TRUE(associateWithDevice(ecu.target(), positionsOf(request), after, false));
  EXPECT_EQ(datasOf(after), "D") << "the flag is that of the last choice";
}

TEST_F(DeviceAssociation, APositionBecomesTheReferenceUnlessAnotherOneIs) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "Free", false, 2);
  ecu.place(request, "Held", false, 3);
  ecu.place(ecu.addRequest("Holder"), "Held", false, 2, 0, true);
  OrganeItem& device = ecu.addDevice("Pump");
  EXPECT_TRUE(associateWithDevice(ecu.target(), positionsOf(request), device, false));
  EXPECT_EQ(datasOf(device), "Free");
  EXPECT_EQ(positionsText(request), "Free 2.0 B r ref, Held 3.0 B r");
  EXPECT_FALSE(
      associateWithDevice(ecu.target(), {request.DataPositions->ItemName("Held")}, device, false));
}

TEST_F(DeviceAssociation, ADeviceWithoutListOfDataGetsOne) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D", false, 2, 0, true);
  OrganeItem& device = ecu.addDevice("Pump");
  device.DeviceDatas = nullptr;
  EXPECT_TRUE(associateWithDevice(ecu.target(), positionsOf(request), device, false));
  EXPECT_EQ(datasOf(device), "D");
}

TEST_F(DeviceAssociation, NoneTakesTheDataOutOfTheirDevices) {
  RequestItem& request = ecu.addRequest("R");
  ecu.place(request, "D", false, 2, 0, true);
  ecu.place(request, "E", false, 3, 0, true);
  ecu.place(request, "Nowhere", false, 4, 0, true);
  OrganeItem& first = ecu.addDevice("First", {"D", "Stays"});
  OrganeItem& second = ecu.addDevice("Second", {"E"});
  EXPECT_TRUE(removeFromDevices(ecu.target(), positionsOf(request)));
  EXPECT_EQ(datasOf(first), "Stays");
  EXPECT_EQ(datasOf(second), "");
  EXPECT_TRUE(request.DataPositions->ItemName("D")->reference) << "it stays the reference";
  EXPECT_FALSE(removeFromDevices(ecu.target(), positionsOf(request)));
}

TEST_F(DeviceAssociation, ANewDeviceAsksUntilTheNameIsFree) {
  ecu.addDevice("Pump");
  asksForName("D", "Pump");
  asksForName("Pump", "Pump", "Error: device 'Pump' already exists!\r\nEnter new device name:");
  asksForName("Pump", "Valve", "Error: device 'Pump' already exists!\r\nEnter new device name:");
  OrganeItem* device = newDevice(ecu.target(), "D", ecu.person);
  ASSERT_TRUE(device);
  EXPECT_EQ(device->organeName, "Valve");
  EXPECT_EQ(device->parent, &ecu.target());
  EXPECT_EQ(datasOf(*device), "");
  asksForName("D", "");
  EXPECT_FALSE(newDevice(ecu.target(), "D", ecu.person));
  EXPECT_EQ(ecu.target().Organes()->Count(), 2);
}

TEST_F(DeviceAssociation, AnEcuWithoutListOfDevicesGetsOne) {
  ecu.target().setOrganes(nullptr);
  asksForName("D", "First");
  EXPECT_TRUE(newDevice(ecu.target(), "D", ecu.person));
  EXPECT_EQ(ecu.target().Organes()->Count(), 1);
}

TEST_F(DeviceAssociation, WithoutAPersonNothingIsTakenFromAnotherDevice) {
  RequestItem& request = ecu.addRequest("R");
  DataPositionItem& used = ecu.place(request, "Used", false, 2, 0, true);
  DataPositionItem& held = ecu.place(request, "Held", false, 3);
  DataPositionItem& free = ecu.place(request, "Free", false, 4);
  DataPositionItem& reference = ecu.place(request, "Reference", false, 5, 0, true);
  ecu.place(ecu.addRequest("Holder"), "Held", false, 2, 0, true);
  OrganeItem& owner = ecu.addDevice("Owner", {"Used"});
  OrganeItem& device = ecu.addDevice("Pump");
  EXPECT_FALSE(AssociateDataToDevice(ecu.target(), used, device));
  EXPECT_FALSE(AssociateDataToDevice(ecu.target(), held, device));
  EXPECT_TRUE(AssociateDataToDevice(ecu.target(), free, device));
  EXPECT_TRUE(AssociateDataToDevice(ecu.target(), reference, device));
  EXPECT_EQ(datasOf(owner), "Used");
  EXPECT_EQ(datasOf(device), "Free, Reference");
  EXPECT_TRUE(free.reference);
  EXPECT_FALSE(held.reference);
}

} // namespace
} // namespace kelmar
