// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// An ECU with reference positions of F1 to F4, a plain one of N, and the devices of the text.
struct WithTests : Ecu {
  explicit WithTests(const std::string& devices) {
    FileText file;
    file.datas = "<Data Name='N'/>";
    file.requests = "<Request Name='R'><Sent/><Received><DataItem Name='N'/>";
    for (const char* name : {"F1", "F2", "F3", "F4"}) {
      file.datas += "<Data Name='" + std::string(name) + "'/>";
      file.requests += "<DataItem Name='" + std::string(name) + "' Ref='1'/>";
    }
    file.requests += "</Received></Request>";
    file.devices = devices;
    load(file);
  }
  TestItem& test(int device = 1, int position = 1) {
    return *target().Organes()->Item(device)->Tests->Item(position);
  }
};

std::string flagsOf(const FlagPositions& flags) {
  return namesOf(flags, [](const DataPositionItem& item) { return item.dataName; });
}

TEST(NewTest, HasItsInitialValues) {
  const TestItem item;
  EXPECT_EQ(item.Description, "");
  EXPECT_EQ(item.testType, 0);
  EXPECT_EQ(item.OBD(), 0);
  EXPECT_EQ(item.Severity, 1);
  EXPECT_TRUE(item.Autocheck);
  EXPECT_EQ(item.StoredFlag.Count() + item.PresentFlag.Count(), 0);
}

TEST(TestElement, FullOneObjectAndText) {
  WithTests ecu("<Device Name='V'><Test Type='7' OBD='8' Severity='2' Autocheck='0'>"
                "<Description>a &lt; b</Description><PresentFlag>F3</PresentFlag>"
                "<StoredFlag>F1</StoredFlag><StoredFlag>F2</StoredFlag></Test></Device>");
  const TestItem& test = ecu.test();
  EXPECT_EQ(test.testType, 7);
  EXPECT_EQ(test.OBD(), 8);
  EXPECT_EQ(test.Severity, 2);
  EXPECT_FALSE(test.Autocheck);
  EXPECT_EQ(test.Description, "a < b");
  EXPECT_EQ(flagsOf(test.StoredFlag), "F1 F2");
  EXPECT_EQ(flagsOf(test.PresentFlag), "F3");
  EXPECT_EQ(test.parent, ecu.target().Organes()->Item(1));
  EXPECT_EQ(fragmentOf(test, "Test"),
            "<Test Type=\"7\" OBD=\"8\" Severity=\"2\" Autocheck=\"0\">\r\n"
            "<Description>a &lt; b</Description><StoredFlag>F1</StoredFlag>\r\n"
            "<StoredFlag>F2</StoredFlag>\r\n<PresentFlag>F3</PresentFlag>\r\n</Test>");
}

TEST(TestElement, PlainOneHasTheTypeAlone) {
  EXPECT_EQ(fragmentOf(WithTests("<Device Name='V'><Test Type='0'/></Device>").test(), "Test"),
            "<Test Type=\"0\">\r\n</Test>");
}

TEST(TestRead, AutocheckIsTrueOnlyForOneAndWithoutIt) {
  const auto autocheckOf = [](const std::string& attribute) {
    return WithTests("<Device Name='V'><Test Type='1' " + attribute + "/></Device>")
        .test()
        .Autocheck;
  };
  EXPECT_TRUE(autocheckOf(""));
  EXPECT_TRUE(autocheckOf("Autocheck=' 1 '"));
  EXPECT_FALSE(autocheckOf("Autocheck='0'"));
  EXPECT_FALSE(autocheckOf("Autocheck='true'"));
  EXPECT_FALSE(autocheckOf("Autocheck=''"));
}

TEST(TestRead, WithoutTypeIsKeptWithNothingRead) {
  WithTests ecu("<Device Name='V'><Test OBD='5'><Description>d</Description></Test></Device>");
  EXPECT_EQ(ecu.test().testType, 0);
  EXPECT_EQ(ecu.test().OBD(), 0);
  EXPECT_EQ(ecu.test().Description, "");
  Ecu bare;
  TestItem item;
  item.loadXml(bare.db, Fragment("<Test/>"));
  EXPECT_EQ(bare.db.loading().pending.number(), 1);
  EXPECT_EQ(bare.db.loading().pending.error().text, "TestItem.loadXml error : Type not found");
}

TEST(TestRead, OfATypeThatDoesNotConvertReadsTheRest) {
  WithTests ecu(
      "<Device Name='V'><Test Type='x' OBD='5'><Description>d</Description></Test></Device>");
  EXPECT_EQ(ecu.test().testType, 0);
  EXPECT_EQ(ecu.test().OBD(), 5);
  EXPECT_EQ(ecu.test().Description, "d");
}

TEST(TestRead, WhatDoesNotConvertIsTheDefault) {
  WithTests ecu("<Device Name='V'><Test Type='1' OBD='x' Severity='y'/></Device>");
  EXPECT_EQ(ecu.test().OBD(), 0);
  EXPECT_EQ(ecu.test().Severity, 1);
}

TEST(TestsRead, TwoOfOneTypeCannotStandInADevice) {
  WithTests ecu("<Device Name='V'><Test Type='1'/><Test Type='2'/><Test Type='1'/></Device>");
  TestItems& tests = *ecu.target().Organes()->Item(1)->Tests;
  EXPECT_EQ(tests.Count(), 2);
  EXPECT_EQ(tests.ItemType(2), tests.Item(2));
  EXPECT_EQ(tests.ItemType(3), nullptr);
  EXPECT_EQ(tests.Item("1"), tests.Item(1)) << "the key is the decimal text of the type";
  auto second = std::make_shared<TestItem>();
  second->testType = 2;
  EXPECT_EQ(Ecu::failureOf([&] { tests.AddData(second); }),
            "1 TestItems.AddData: Duplicate Data, a data can be used only one time in one device");
  EXPECT_EQ(ecu.report(),
            "Test|1|Devices/Device[V]/Test[1]|11|Duplicate Data, a data can be used only "
            "one time in one device\n");
}

TEST(TestObd, EqualToACodeOfAnotherDeviceReadsAsZero) {
  WithTests ecu("<Device Name='V'><Test Type='1' OBD='5'/><Test Type='2' OBD='5'/></Device>"
                "<Device Name='W'><Test Type='1' OBD='5'/><Test Type='2' OBD='6'/></Device>");
  EXPECT_EQ(ecu.test(1, 1).OBD(), 5);
  EXPECT_EQ(ecu.test(1, 2).OBD(), 0) << "of its own device too";
  EXPECT_EQ(ecu.test(2, 1).OBD(), 0);
  EXPECT_EQ(ecu.test(2, 2).OBD(), 6);
  EXPECT_EQ(ecu.report(), "OBD|5|Devices/Device[V]/Test[2]|11|Duplicate OBD code\n"
                          "OBD|5|Devices/Device[W]/Test[1]|11|Duplicate OBD code\n");
}

TEST(TestObd, WriterRefusesACodeOfTheEcu) {
  WithTests ecu("<Device Name='V'><Test Type='1' OBD='5'/><Test Type='2'/></Device>");
  TestItem& test = ecu.test(1, 2);
  test.setOBD(6);
  EXPECT_EQ(Ecu::failureOf([&] { test.setOBD(5); }), "1 TestItem.OBD: Duplicate OBD code");
  EXPECT_EQ(test.OBD(), 6) << "the old value stays";
  test.setOBD(6);
  test.setOBD(0);
  EXPECT_EQ(test.OBD(), 0) << "zero is stored without a check";
  TestItem alone;
  alone.setOBD(5);
  EXPECT_EQ(alone.OBD(), 5) << "without device and target nothing is checked";
}

TEST(TestFlags, NameUsedByAnEarlierDeviceIsDroppedWithoutAMessage) {
  WithTests ecu("<Device Name='U'><DeviceData Name='F3'/></Device>"
                "<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag></Test></Device>"
                "<Device Name='W'><Test Type='1'><StoredFlag>F1</StoredFlag>"
                "<StoredFlag>F2</StoredFlag><PresentFlag>F3</PresentFlag></Test></Device>");
  EXPECT_EQ(flagsOf(ecu.test(3).StoredFlag), "F2");
  EXPECT_EQ(flagsOf(ecu.test(3).PresentFlag), "");
  EXPECT_EQ(ecu.messages.size(), 1u) << "the loading of the address alone";
  EXPECT_EQ(
      ecu.report(),
      "Flag|F1|Devices/Device[W]/Test[1]/StoredFlag|11|the data is used by a device already\n"
      "Flag|F3|Devices/Device[W]/Test[1]/PresentFlag|11|the data is used by a device already\n");
}

TEST(TestFlags, EarlierTestsOfTheDeviceCountAndTheTestItselfDoesNot) {
  WithTests ecu(
      "<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag>"
      "<PresentFlag>F1</PresentFlag></Test>"
      "<Test Type='2'><StoredFlag>F1</StoredFlag><StoredFlag>F2</StoredFlag></Test></Device>");
  EXPECT_EQ(flagsOf(ecu.test(1, 1).StoredFlag), "F1");
  EXPECT_EQ(flagsOf(ecu.test(1, 1).PresentFlag), "F1");
  EXPECT_EQ(flagsOf(ecu.test(1, 2).StoredFlag), "F2");
}

TEST(TestFlags, WithoutAReferencePositionRaiseLibMessageAndAreDropped) {
  WithTests ecu("<Device Name='V'><Test Type='1'><StoredFlag>N</StoredFlag>"
                "<PresentFlag>Q</PresentFlag><StoredFlag>F1</StoredFlag></Test></Device>");
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F1");
  EXPECT_EQ(flagsOf(ecu.test().PresentFlag), "");
  ASSERT_EQ(ecu.messages.size(), 3u);
  EXPECT_EQ(ecu.messages[1],
            "TestItem.LoadXml: Data 'N' doesn't exist, remove from StoredFlag list");
  EXPECT_EQ(ecu.messages[2],
            "TestItem.LoadXml: Data 'Q' doesn't exist, remove from PresentFlag list");
  EXPECT_EQ(ecu.saved().find("<PresentFlag>"), std::string::npos) << "gone with the next save";
}

TEST(TestFlags, TwiceInATestStandOnce) {
  WithTests ecu("<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag>"
                "<StoredFlag>F1</StoredFlag></Test></Device>");
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F1");
  EXPECT_EQ(ecu.report(),
            "Flag|F1|Devices/Device[V]/Test[1]/StoredFlag|11|the flag stands twice in the "
            "test\n");
}

TEST(TestFlags, AreTheFirstReferencePositionsOfTheRequests) {
  WithTests ecu("<Device Name='V'><Test Type='1'><StoredFlag>F2</StoredFlag></Test></Device>");
  EXPECT_EQ(ecu.test().StoredFlag.Item(1),
            ecu.target().Requests()->Item(1)->DataPositions->ItemName("F2"));
}

constexpr char threeFlags[] =
    "<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag><StoredFlag>F2</StoredFlag>"
    "<StoredFlag>F3</StoredFlag><PresentFlag>F4</PresentFlag></Test></Device>";

TEST(DeleteFlag, TakesTheStoredOneElseThePresentOne) {
  WithTests ecu(threeFlags);
  EXPECT_TRUE(ecu.test().DeleteFlag("F2"));
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F1 F3");
  EXPECT_TRUE(ecu.test().DeleteFlag("F4"));
  EXPECT_EQ(ecu.test().PresentFlag.Count(), 0);
  EXPECT_FALSE(ecu.test().DeleteFlag("F4"));
  WithTests both("<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag>"
                 "<PresentFlag>F1</PresentFlag></Test></Device>");
  EXPECT_TRUE(both.test().DeleteFlag("F1"));
  EXPECT_EQ(flagsOf(both.test().PresentFlag), "F1");
  EXPECT_NE(both.test().PresentFlag.Item(1)->parent, nullptr)
      << "the position stays in its request";
}

TEST(RenameFlag, MovesTheEntryToTheEndUnderTheNewKey) {
  WithTests ecu(threeFlags);
  ecu.test().RenameFlag("F1", "X");
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F2 F3 F1") << "the names are the positions' business";
  EXPECT_TRUE(ecu.test().holdsFlag("x"));
  EXPECT_FALSE(ecu.test().holdsFlag("F1"));
}

TEST(RenameFlag, EntryInLastPlaceKeepsItsOldKey) {
  WithTests ecu(threeFlags);
  ecu.test().RenameFlag("F3", "X");
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F1 F2 F3");
  EXPECT_TRUE(ecu.test().holdsFlag("F3"));
  EXPECT_FALSE(ecu.test().holdsFlag("X"));
  ecu.test().RenameFlag("F4", "X");
  EXPECT_TRUE(ecu.test().holdsFlag("F4")) << "the only present flag is the last one";
}

TEST(RenameFlag, FollowsThePresentFlagWhenTheStoredOneIsTheLast) {
  WithTests ecu("<Device Name='V'><Test Type='1'><StoredFlag>F1</StoredFlag>"
                "<PresentFlag>F1</PresentFlag><PresentFlag>F2</PresentFlag></Test></Device>");
  ecu.test().RenameFlag("F1", "X");
  EXPECT_NE(ecu.test().StoredFlag.findKey("kF1"), nullptr);
  EXPECT_NE(ecu.test().PresentFlag.findKey("kX"), nullptr);
  EXPECT_EQ(ecu.test().PresentFlag.findKey("kF1"), nullptr);
}

TEST(RenameFlag, ToAKeyThatIsTakenLosesTheEntry) {
  WithTests ecu(threeFlags);
  ecu.test().RenameFlag("F1", "F2");
  EXPECT_EQ(flagsOf(ecu.test().StoredFlag), "F2 F3");
}

TEST(TestsLookups, ByFlagKeyAndObd) {
  WithTests ecu("<Device Name='V'><Test Type='1' OBD='5'><PresentFlag>F1</PresentFlag></Test>"
                "<Test Type='2'><StoredFlag>F2</StoredFlag></Test></Device>");
  TestItems& tests = *ecu.target().Organes()->Item(1)->Tests;
  EXPECT_EQ(tests.GetTestUsingData("f1"), tests.Item(1));
  EXPECT_EQ(tests.GetTestUsingData("F2"), tests.Item(2));
  EXPECT_EQ(tests.GetTestUsingData("F3"), nullptr);
  EXPECT_EQ(tests.ItemOBD(5), tests.Item(1));
  EXPECT_EQ(tests.ItemOBD(0), nullptr);
  EXPECT_EQ(tests.ItemOBD(6), nullptr);
}

} // namespace
} // namespace kelmar::testing
