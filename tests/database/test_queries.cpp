// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// Data A is used everywhere, B by a device alone, C by the sent frame.
struct WithUses : Ecu {
  WithUses() {
    FileText file;
    for (const char* name : {"A", "B", "C", "F"})
      file.datas += "<Data Name='" + std::string(name) + "'/>";
    file.requests = "<Request Name='R1'><Sent><DataItem Name='C' Ref='1'/></Sent><Received>"
                    "<DataItem Name='F' Ref='1'/><DataItem Name='A'/></Received></Request>"
                    "<Request Name='R2'><Sent><DataItem Name='A' Ref='1'/></Sent></Request>"
                    "<Request Name='R3'><Sent/><Received><DataItem Name='A' Ref='1'/>"
                    "<DataItem Name='C' Ref='1'/></Received></Request><Request Name='R4'/>";
    file.devices = "<Device Name='V' FreezeFrame='R1'><DeviceData Name='B'/></Device>"
                   "<Device Name='W' FreezeFrame='R1'><DeviceData Name='B'/><DeviceData Name='A'/>"
                   "<Test Type='1'><PresentFlag>F</PresentFlag></Test></Device>";
    file.categories =
        "<Category Name='K'><Screen Name='S' Width='1' Height='1' Color='1' WindowState='0'>"
        "<Send RequestName='R1'/><Button Text='B'><Send RequestName='R2'/><Send "
        "RequestName='R1'/></Button>"
        "<Display DataName='A' RequestName='R1'/><Display RequestName='R1'/></Screen></Category>"
        "<Category Name='L'><Screen Name='S' Width='1' Height='1' Color='1' WindowState='0'>"
        "<Display DataName='A' RequestName='R2'/><Display DataName='F' "
        "RequestName='R1'/></Screen></Category>";
    load(file);
    EXPECT_EQ(report(), "");
  }
};

std::string requestsOf(const std::vector<DataPositionItem*>& positions) {
  return namesOf(positions, [](const DataPositionItem& item) {
    return item.dataName + "@" + item.parent->requestName;
  });
}

std::string displaysOf(const std::vector<DisplayItem*>& displays) {
  return namesOf(displays, [](const DisplayItem& item) {
    return item.DisplayDataItem
               ? item.DisplayDataItem->dataName + "@" + item.DisplayDataItem->requestName
               : "@" + item.DisplayExtraItem->requestName;
  });
}

TEST(Queries, RequestsUsingDataInEitherFrame) {
  WithUses ecu;
  EXPECT_EQ(requestsOf(ecu.target().GetRequestsUsingData("A")), "A@R1 A@R2 A@R3");
  EXPECT_EQ(requestsOf(ecu.target().GetRequestsUsingData("C")), "C@R1 C@R3");
  EXPECT_TRUE(ecu.target().GetRequestsUsingData("a").empty()) << "names are compared exactly";
}

TEST(Queries, IsDataUsedIsFalseForADataUsedOnlyByADevice) {
  WithUses ecu;
  EXPECT_TRUE(ecu.target().IsDataUsed("A"));
  EXPECT_FALSE(ecu.target().IsDataUsed("B"));
  EXPECT_FALSE(ecu.target().IsDataUsed("none"));
}

TEST(Queries, DeviceDataAndDevicesUsingData) {
  WithUses ecu;
  const TargetItem& target = ecu.target();
  OrganeItem* v = target.Organes()->Item(1);
  OrganeItem* w = target.Organes()->Item(2);
  EXPECT_EQ(target.GetDeviceDataUsingData("B"), v->DeviceDatas->Item(1))
      << "the first over the devices";
  EXPECT_EQ(target.GetDeviceDataUsingData("F"), nullptr) << "flags are no device data";
  EXPECT_EQ(target.GetDeviceUsingData("B"), v);
  EXPECT_EQ(target.GetDeviceUsingData("A"), w);
  EXPECT_EQ(target.GetDeviceUsingData("F"), w) << "as a flag";
  EXPECT_EQ(target.GetDeviceUsingData("C"), nullptr);
}

TEST(Queries, DevicesUsingARequest) {
  WithUses ecu;
  EXPECT_EQ(ecu.target().GetDeviceUsingRequest("R1").size(), 2u);
  EXPECT_TRUE(ecu.target().GetDeviceUsingRequest("R2").empty());
}

TEST(Queries, DisplaysAndSteps) {
  WithUses ecu;
  const TargetItem& target = ecu.target();
  EXPECT_EQ(displaysOf(target.GetScreensUsingData("A")), "A@R1 A@R2");
  EXPECT_EQ(displaysOf(target.GetScreensDataUsingRequest("R1")), "A@R1 F@R1");
  EXPECT_EQ(displaysOf(target.GetScreensExtraDataUsingRequest("R1")), "@R1");
  EXPECT_TRUE(target.GetScreensExtraDataUsingRequest("R2").empty());
  const auto steps = target.GetScreensScenarioUsingRequest("R1");
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_TRUE(steps[0]->parent->InitButton) << "the init button is included";
  EXPECT_FALSE(steps[1]->parent->InitButton);
}

TEST(Queries, ReferencePositionIsTheFirstWalkingRequestsThenPositions) {
  WithUses ecu;
  EXPECT_EQ(requestsOf({ecu.target().GetDataPositionFromRefData("A")}), "A@R2");
  EXPECT_EQ(requestsOf({ecu.target().GetDataPositionFromRefData("C")}), "C@R1");
  EXPECT_EQ(ecu.target().GetDataPositionFromRefData("B"), nullptr);
  EXPECT_EQ(ecu.target().GetDataPositionFromRefData("a"), nullptr);
}

TEST(Queries, ReferencedDatasKeepTheFirstOfEachData) {
  WithUses ecu;
  EXPECT_EQ(requestsOf(ecu.target().datasRef()), "C@R1 F@R1 A@R2");
  EXPECT_EQ(requestsOf(ecu.target().datasRefRead()), "F@R1 A@R3 C@R3");
}

TEST(Queries, DatasRefWriteContainsNoReceivedPositions) {
  WithUses ecu;
  EXPECT_EQ(requestsOf(ecu.target().datasRefWrite()), "C@R1 A@R2");
}

TEST(Queries, WorkOnATargetWithoutCollections) {
  TargetItem target;
  target.clear();
  EXPECT_TRUE(target.GetRequestsUsingData("A").empty());
  EXPECT_FALSE(target.IsDataUsed("A"));
  EXPECT_EQ(target.GetDeviceDataUsingData("A"), nullptr);
  EXPECT_EQ(target.GetDeviceUsingData("A"), nullptr);
  EXPECT_TRUE(target.GetDeviceUsingRequest("A").empty());
  EXPECT_TRUE(target.GetScreensUsingData("A").empty());
  EXPECT_TRUE(target.GetScreensScenarioUsingRequest("A").empty());
  EXPECT_EQ(target.GetDataPositionFromRefData("A"), nullptr);
  EXPECT_TRUE(target.datasRef().empty());
}

TEST(Queries, ChangeNothing) {
  WithUses ecu;
  const std::string before = ecu.saved();
  ecu.target().ValueChanged = false;
  for (const char* name : {"A", "B", "R1", "none"}) {
    ecu.target().GetRequestsUsingData(name);
    ecu.target().GetDeviceUsingData(name);
    ecu.target().GetScreensUsingData(name);
    ecu.target().GetScreensScenarioUsingRequest(name);
    ecu.target().datasRef();
  }
  EXPECT_EQ(ecu.saved(), before);
  EXPECT_FALSE(ecu.target().ValueChanged);
}

} // namespace
} // namespace kelmar::testing
