// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "frame/rules/ecu_summary.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

class EcuSummaryTest : public testing::Test {
 protected:
  void SetUp() override {
    database.NewTarget();
    database.functions = std::make_shared<FunctionItems>();
    parameters().initMode = 3;
    parameters().multiPoint = true;
  }
  TargetItem& target() { return *database.ActiveTarget; }
  TargetParamItem& parameters() { return *target().Parametres(); }
  std::string protocol() { return protocolText(database, parameters()); }

  OmnikorLibXml database;
};

TEST_F(EcuSummaryTest, Summary_WithoutAnEcuIsNone) {
  database.ClearTarget();
  EXPECT_FALSE(summaryOf(database));
}

TEST_F(EcuSummaryTest, Summary_TakesEachFieldFromTheEcu) {
  database.functions->Add(122, "7A", "Engine");
  target().setName("Engine D12");
  target().setGroup("Family");
  target().setAddress(122);
  target().setLogicalAddress("7A");
  EXPECT_EQ((EcuSummary{"Engine D12", "Family", "07A", "7A", "Engine", "DiagOnCAN"}),
            summaryOf(database));
}

TEST_F(EcuSummaryTest, Summary_OfAnUnknownAddressHasNoFunction) {
  target().setAddress(5);
  EXPECT_EQ("", summaryOf(database)->TextFunction);
  database.functions.reset();
  EXPECT_EQ("", summaryOf(database)->TextFunction);
}

TEST(AddressText, IsZeroAndHexadecimalOfWhichTheLastFour) {
  EXPECT_EQ("07A", addressText(122));
  EXPECT_EQ("00", addressText(0));
  EXPECT_EQ("0FFF", addressText(0xFFF));
  EXPECT_EQ("1234", addressText(0x1234));
  EXPECT_EQ("2345", addressText(0x12345));
  EXPECT_EQ("FFFF", addressText(-1));
}

TEST(AddressText, ReadsBackAsHexadecimal) {
  EXPECT_EQ(122, addressOfText("07A"));
  EXPECT_THROW(addressOfText(""), Failure);
  EXPECT_THROW(addressOfText("xyz"), Failure);
}

TEST_F(EcuSummaryTest, Protocol_WithCanFdLengthIsCanFdWhateverElse) {
  parameters().CANFDTxMaxDataLength = 1;
  parameters().IPAddress = "10.0.0.1";
  EXPECT_EQ("DiagOnCANFD", protocol());
}

TEST_F(EcuSummaryTest, Protocol_IsIpUnlessBothAddressesAreThePatterns) {
  parameters().IPAddress = "10.0.0.1";
  EXPECT_EQ("DiagOnIP", protocol());
  parameters().IPAddress = "??.??.??.??";
  EXPECT_EQ("DiagOnCAN", protocol());
  parameters().MACAddress = "00:11:22:33";
  EXPECT_EQ("DiagOnIP", protocol());
}

TEST_F(EcuSummaryTest, Protocol_IsThatOfModeAndMultiPoint) {
  parameters().initMode = 1;
  EXPECT_EQ("KWP2000 Init 5 Baud Type I and II", protocol());
  parameters().multiPoint = false;
  EXPECT_EQ("KWP2000 Init 5 Baud Type I", protocol());
  parameters().initMode = 77;
  EXPECT_EQ("", protocol());
  database.protocols.reset();
  EXPECT_EQ("", protocol());
}

} // namespace
} // namespace kelmar
