// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// An ECU with datas, a request R with reference positions of F1 to F4, and the devices of the
/// text.
struct WithDevices : Ecu {
  explicit WithDevices(const std::string& devices = "", const std::string& lang = "en")
      : Ecu(lang) {
    FileText file;
    for (const char* name : {"A", "B", "F1", "F2", "F3", "F4"})
      file.datas += "<Data Name='" + std::string(name) + "'/>";
    file.requests = "<Request Name='R'><Sent/><Received>";
    for (const char* name : {"F1", "F2", "F3", "F4"})
      file.requests += "<DataItem Name='" + std::string(name) + "' Ref='1'/>";
    file.requests += "<DataItem Name='A'/></Received></Request>";
    file.devices = devices;
    load(file);
  }
  OrganeItems& devices() { return *target().Organes(); }
};

std::string namesOfDevices(const OrganeItems& items) {
  return namesOf(items, [](const OrganeItem& item) { return item.organeName; });
}

TEST(NewDevice, HasItsInitialValues) {
  const OrganeItem item;
  EXPECT_EQ(item.organeName + item.Mnemonique + item.requestName, "");
  EXPECT_EQ(item.OrganeTypeId(), 1);
  EXPECT_EQ(item.OrganeTypeName(), "Entrée");
  EXPECT_EQ(item.OrganeDTC + item.OrganeOBD, 0);
  EXPECT_EQ(item.DeviceDatas->Count() + item.Tests->Count(), 0);
  EXPECT_EQ(item.request(), nullptr);
  EXPECT_EQ(item.parent, nullptr);
}

TEST(DeviceType, IdAndNameAreCoupled) {
  WithDevices ecu("<Device Name='V'/>");
  OrganeItem& device = *ecu.devices().Item(1);
  EXPECT_EQ(device.OrganeTypeName(), "Input");
  device.setOrganeTypeId(3);
  EXPECT_EQ(device.OrganeTypeName(), "Output");
  device.setOrganeTypeName("Other");
  EXPECT_EQ(device.OrganeTypeId(), 4);
  device.setOrganeTypeName("?");
  EXPECT_EQ(device.OrganeTypeId(), 4) << "an unknown name leaves the id";
  device.setOrganeTypeId(77);
  EXPECT_EQ(device.OrganeTypeName(), "?") << "an unknown id leaves the name";
  EXPECT_EQ(device.OrganeTypeId(), 77);
}

TEST(DeviceRequest, WritingCopiesTheNameOrEmptiesIt) {
  WithDevices ecu("<Device Name='V'/>");
  OrganeItem& device = *ecu.devices().Item(1);
  const auto request = ecu.target().Requests()->shared(ecu.target().Requests()->Item(1));
  device.setRequest(request);
  EXPECT_EQ(device.requestName, "R");
  device.requestName = "other";
  EXPECT_EQ(device.request(), request.get()) << "the name alone changes nothing else";
  device.setRequest(nullptr);
  EXPECT_EQ(device.requestName, "");
  EXPECT_EQ(device.request(), nullptr);
}

const std::string fullDevice =
    "<Device Name=\"V&lt;\" DTC=\"5\" OBD=\"-6\" Type=\"2\" FreezeFrame=\"R\">\n"
    "<Mnemonic>M&amp;</Mnemonic>\n<DeviceData Name=\"A\" FailureFlag=\"0\"/>"
    "<DeviceData Name=\"B\" FailureFlag=\"1\"/><Test Type=\"7\">\r\n</Test></Device>";

TEST(DeviceElement, FullOneObjectAndText) {
  WithDevices ecu(fullDevice);
  const OrganeItem& device = *ecu.devices().Item(1);
  EXPECT_EQ(device.organeName, "V<");
  EXPECT_EQ(device.OrganeDTC, 5);
  EXPECT_EQ(device.OrganeOBD, -6);
  EXPECT_EQ(device.OrganeTypeId(), 2);
  EXPECT_EQ(device.OrganeTypeName(), "Internal");
  EXPECT_EQ(device.requestName, "R");
  EXPECT_EQ(device.request(), ecu.target().Requests()->Item(1));
  EXPECT_EQ(device.Mnemonique, "M&");
  EXPECT_FALSE(device.DeviceDatas->Item(1)->FlagPanne);
  EXPECT_TRUE(device.DeviceDatas->Item(2)->FlagPanne);
  EXPECT_EQ(device.DeviceDatas->Item(2)->parent, &device);
  EXPECT_EQ(device.parent, &ecu.target());
  EXPECT_EQ(fragmentOf(device, "Device"), fullDevice);
  EXPECT_EQ(ecu.savedBetween("<Devices>", "</Devices>"), "\n" + fullDevice + "\n");
}

TEST(DeviceElement, Type1IsNotWrittenAndAFileWithoutTypeReads1) {
  WithDevices ecu("<Device Name='V'/>");
  EXPECT_EQ(ecu.devices().Item(1)->OrganeTypeId(), 1);
  EXPECT_EQ(fragmentOf(*ecu.devices().Item(1), "Device"), "<Device Name=\"V\"/>");
  EXPECT_EQ(WithDevices("<Device Name='V' Type='x'/>").devices().Item(1)->OrganeTypeId(), 1);
  EXPECT_EQ(WithDevices("<Device Name='V' Type='9'/>").devices().Item(1)->OrganeTypeId(), 9);
}

TEST(DeviceElement, FreezeFrameNamingNoRequestKeepsTheName) {
  WithDevices ecu("<Device Name='V' FreezeFrame='none'/>");
  EXPECT_EQ(ecu.devices().Item(1)->request(), nullptr);
  EXPECT_EQ(fragmentOf(*ecu.devices().Item(1), "Device"),
            R"(<Device Name="V" FreezeFrame="none"/>)");
  EXPECT_EQ(ecu.report(), "");
}

TEST(DeviceRead, WithoutNameIsADeviceAllTheSame) {
  WithDevices ecu("<Device><Mnemonic>M</Mnemonic></Device><Device Name='V'/>");
  EXPECT_EQ(namesOfDevices(ecu.devices()), " V");
  EXPECT_EQ(ecu.devices().Item(1)->Mnemonique, "");
}

TEST(DeviceRead, NamelessErrorHasNumber100) {
  WithDevices ecu;
  OrganeItem item;
  item.loadXml(ecu.db, Fragment("<Device/>"));
  EXPECT_EQ(ecu.db.loading().pending.number(), 100);
  EXPECT_EQ(ecu.db.loading().pending.error().text,
            "OrganeItem.loadXml error : Device Name not defined");
}

TEST(DevicesRead, GoByBaseNameAndEndAtADuplicate) {
  WithDevices ecu("<x:Device xmlns:x='u' Name='V'/><Other Name='O'/>\n<Device Name='v'/>\n"
                  "<Device Name='W'/>");
  EXPECT_EQ(namesOfDevices(ecu.devices()), "V");
  EXPECT_EQ(ecu.report(),
            "Device|v|Devices/Device[v]|12|Key exists already\n"
            "Device|W|Devices/Device[W]|13|reading ends at the duplicate device before it\n");
}

TEST(DevicesRename, GoesToTheEnd) {
  WithDevices ecu("<Device Name='V'/><Device Name='W'/>");
  OrganeItem* device = ecu.devices().Item(1);
  ecu.devices().rename(device, "X");
  EXPECT_EQ(namesOfDevices(ecu.devices()), "W X");
  EXPECT_EQ(ecu.devices().ItemName("x"), device);
  EXPECT_EQ(Ecu::failureOf([&] { ecu.devices().rename(device, "w"); }),
            "1 OrganeItems.rename: Duplicate device (w)");
  EXPECT_EQ(device->organeName, "X");
}

TEST(DevicesLookups, ByDtcAndObd) {
  WithDevices ecu("<Device Name='V' DTC='5'><Test Type='1'/></Device>"
                  "<Device Name='W' DTC='5'><Test Type='1' OBD='7'/></Device>");
  EXPECT_EQ(ecu.devices().FindDeviceByValDTC(5), ecu.devices().Item(1));
  EXPECT_EQ(ecu.devices().FindDeviceByValDTC(6), nullptr);
  EXPECT_EQ(ecu.devices().GetDevicesTestWithObd(7), ecu.devices().Item(2)->Tests->Item(1));
  EXPECT_EQ(ecu.devices().GetDevicesTestWithObd(0), nullptr);
  EXPECT_EQ(ecu.devices().GetDevicesTestWithObd(8), nullptr);
}

TEST(DeviceData, StandsOnlyOnceInADevice) {
  WithDevices ecu("<Device Name='V'><DeviceData Name='A' FailureFlag='1'/><DeviceData Name='B'/>"
                  "<DeviceData Name='A'/><DeviceData/></Device>");
  DeviceDataItems& datas = *ecu.devices().Item(1)->DeviceDatas;
  EXPECT_EQ(namesOf(datas, [](const DeviceDataItem& item) { return item.dataName; }), "A B ");
  EXPECT_EQ(
      Ecu::failureOf([&] { datas.Add("A", true); }),
      "1 DeviceDataItems.AddData: Duplicate Data, a data can be used only one time in one device");
  EXPECT_EQ(ecu.report(),
            "Device data|A|Devices/Device[V]/DeviceData[A]|11|Duplicate Data, a data can "
            "be used only one time in one device\n");
  EXPECT_EQ(datas.Item(1)->data(), ecu.target().datas()->ItemName("A"));
  datas.Item(1)->setData(ecu.target().datas()->ItemName("F1"));
  EXPECT_EQ(datas.Item(1)->dataName, "F1");
  EXPECT_EQ(datas.Item(3)->data(), nullptr);
}

TEST(DeviceRoutines, RenameDataFollowsDatumAndTest) {
  WithDevices ecu(
      "<Device Name='V'><DeviceData Name='A'/><Test Type='1'><StoredFlag>F1</StoredFlag>"
      "<StoredFlag>F2</StoredFlag></Test></Device>");
  OrganeItem& device = *ecu.devices().Item(1);
  device.RenameData("A", "A2");
  EXPECT_EQ(device.DeviceDatas->Item(1)->dataName, "A2");
  device.RenameData("F1", "N");
  EXPECT_EQ(device.GetTestUsingData("N"), device.Tests->Item(1));
  EXPECT_EQ(device.GetTestUsingData("F1"), nullptr);
  device.RenameData("none", "x");
}

TEST(DeviceRoutines, DeleteDataPositionTakesTheDatumElseTheFlag) {
  WithDevices ecu("<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag></Test>"
                  "<DeviceData Name='A'/></Device>");
  OrganeItem& device = *ecu.devices().Item(1);
  device.DeviceDatas->Add("F1", false);
  DataPositionItem position;
  position.dataName = "F1";
  EXPECT_TRUE(device.DeleteDataPosition(position));
  EXPECT_EQ(device.DeviceDatas->Count(), 1);
  EXPECT_EQ(device.Tests->Item(1)->StoredFlag.Count(), 1) << "only the datum goes";
  EXPECT_TRUE(ecu.devices().DeleteDataPosition(position));
  EXPECT_EQ(device.Tests->Item(1)->StoredFlag.Count(), 0);
  EXPECT_FALSE(device.DeleteDataPosition(position));
}

TEST(DeviceRoutines, GiveNoneWithoutCollections) {
  OrganeItem device;
  device.DeviceDatas.reset();
  device.Tests.reset();
  EXPECT_EQ(device.GetDeviceDataUsingData("A"), nullptr);
  EXPECT_EQ(device.GetTestUsingData("A"), nullptr);
  EXPECT_EQ(fragmentOf(device, "Device"), "<Device Name=\"\"/>");
}

TEST(DeviceClone, CopiesAllAndSharesThePositionsOfTheFlags) {
  WithDevices ecu("<Device Name='V' DTC='5' Type='3' FreezeFrame='R'><Mnemonic>M</Mnemonic>"
                  "<DeviceData Name='A' FailureFlag='1'/><Test Type='1' OBD='4' Severity='2' "
                  "Autocheck='0'><Description>d</Description><StoredFlag>F1</StoredFlag>"
                  "<PresentFlag>F2</PresentFlag></Test></Device>");
  const OrganeItem& device = *ecu.devices().Item(1);
  const auto copy = device.clone(&ecu.target());
  EXPECT_EQ(fragmentOf(*copy, "Device"), fragmentOf(device, "Device"));
  EXPECT_EQ(copy->Tests->Item(1)->parent, copy.get());
  EXPECT_EQ(copy->Tests->Item(1)->StoredFlag.Item(1), device.Tests->Item(1)->StoredFlag.Item(1));
  EXPECT_EQ(copy->parent, &ecu.target());
}

} // namespace
} // namespace kelmar::testing
