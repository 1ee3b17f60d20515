// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/edit_param_fields.h"

#include "frame/rules/can_identifier.h"
#include "frame/rules/communication_protocol.h"
#include "frame/rules/key_bytes.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kelmar {
namespace {

class EditParam : public testing::Test {
 protected:
  void SetUp() override {
    database.NewTarget();
    database.functions = std::make_shared<FunctionItems>();
    function = database.functions->Add(122, "7A", "Engine");
    target().setAddress(122);
  }
  TargetItem& target() { return *database.ActiveTarget; }
  TargetParamItem& parameters() { return *target().Parametres(); }
  EditParamFields shown() { return *fieldsOf(database); }
  /// Position of the protocol of a code.
  int positionOf(std::int32_t code) {
    for (int position = 1; position <= database.protocols->Count(); ++position)
      if (database.protocols->Item(position)->code == code) return position;
    return 0;
  }
  /// The fields as they are, with another protocol, taken over.
  void takeOverWith(std::int32_t code) {
    EditParamFields fields = shown();
    fields.ComboTypeCom = positionOf(code);
    applyFields(fields, database);
  }
  std::int32_t shownCode() { return protocolCode(*database.protocols, shown().ComboTypeCom); }

  OmnikorLibXml database;
  FunctionItem* function = nullptr;
};

TEST_F(EditParam, Fields_WithoutAnEcuAreNone) {
  database.ClearTarget();
  EXPECT_FALSE(fieldsOf(database));
  applyFields({}, database);
}

TEST_F(EditParam, Fields_OfANewEcuStandAtTheirDefaults) {
  const EditParamFields fields = shown();
  EXPECT_EQ("D0", fields.KW1);
  EXPECT_EQ("8F", fields.KW2);
  EXPECT_EQ(4, shownCode());
  EXPECT_EQ("500000", fields.ComboBaudRate);
  EXPECT_EQ("64", fields.ComboMaxDataLangthCANFD);
  for (std::size_t i = 0; i < parameterNumberCount; ++i) {
    EXPECT_FALSE(fields.numbers[i].changed) << parameterNumbers()[i].name;
    EXPECT_EQ(defaultNumberText(parameterNumbers()[i]), fields.numbers[i].text);
  }
  EXPECT_EQ(-1, fields.canXid);
}

TEST_F(EditParam, DefaultTexts_AreThoseOfTheModel) {
  std::string all;
  for (const ParameterNumber& number : parameterNumbers())
    all += std::string(number.name) + "=" + defaultNumberText(number) + " ";
  EXPECT_EQ("BaudRate=10400 InterByte=0 KW2=25 FirstRequest=20 ReplyToRequest=5 "
            "TesterPresent=3000 KW2Timeout=300 RequestToReplyTimeout=300 ErrorDelay=300 ",
            all);
}

TEST_F(EditParam, Fields_TakeEachValueAndGoBackUnchanged) {
  target().setEmail("a@b.example");
  parameters().Comment = "one\r\ntwo";
  parameters().key1 = 0x0A;
  parameters().key2 = 0xFF;
  int value = 1000;
  for (const ParameterNumber& number : parameterNumbers())
    parameters().*number.value = ++value;
  parameters().LittleEndian = true;
  parameters().Reprogrammable = "BOOT";
  parameters().DateOfficialisation = "21/11/2026 08:30:00";
  parameters().setTypePanneId(2);
  const EditParamFields before = shown();
  EXPECT_EQ("a@b.example", before.txtEmail);
  EXPECT_EQ("A", before.KW1);
  EXPECT_EQ("1002", before.numbers[1].text);
  EXPECT_TRUE(before.numbers[1].changed);

  applyFields(before, database);
  EXPECT_EQ(before, shown());
  EXPECT_EQ(0x0A, parameters().key1);
  EXPECT_EQ(1001, parameters().BaudRate);
  EXPECT_EQ(1009, parameters().ErrorDelay);
  EXPECT_EQ(2, parameters().TypePanneId());
  EXPECT_EQ("one\r\ntwo", parameters().Comment);
}

TEST_F(EditParam, Apply_WritesEveryFieldToItsPlace) {
  EditParamFields fields = shown();
  fields.txtEmail = "x@y.example";
  fields.Comment = "typed";
  fields.KW1 = "8f";
  fields.KW2 = " E9 ";
  for (std::size_t i = 0; i < parameterNumberCount; ++i)
    fields.numbers[i] = {std::to_string(70 + i), true};
  fields.littleEndian = true;
  fields.TextReprog = "BTP";
  fields.DateOfficia = "01/02/2026 00:00:00";
  fields.ComboTypePanne = "DTC Failures";
  fields.canXid = 2016;
  fields.canRid = storedCanIdentifier({291, true});
  applyFields(fields, database);
  EXPECT_EQ("x@y.example", target().Email());
  EXPECT_EQ("typed", parameters().Comment);
  EXPECT_EQ(0x8F, parameters().key1);
  EXPECT_EQ(0xE9, parameters().key2);
  EXPECT_EQ(70, parameters().BaudRate);
  EXPECT_EQ(71, parameters().InterByteDelay);
  EXPECT_EQ(72, parameters().KW2Delay);
  EXPECT_EQ(73, parameters().FirstRequestDelay);
  EXPECT_EQ(74, parameters().ReplyToRequestDelay);
  EXPECT_EQ(75, parameters().TesterPresentDelay);
  EXPECT_EQ(76, parameters().KW2Timeout);
  EXPECT_EQ(77, parameters().RequestToReplyTimeout);
  EXPECT_EQ(78, parameters().ErrorDelay);
  EXPECT_TRUE(parameters().LittleEndian);
  EXPECT_EQ("BTP", parameters().Reprogrammable);
  EXPECT_EQ("01/02/2026 00:00:00", parameters().DateOfficialisation);
  EXPECT_EQ(3, parameters().TypePanneId());
  EXPECT_EQ(2016, parameters().canXid);
  EXPECT_EQ(std::int32_t(0x80000123u), parameters().canRid);
  EXPECT_EQ(2016, function->canXid);
  EXPECT_EQ(std::int32_t(0x80000123u), function->canRid);
}

TEST_F(EditParam, Apply_WithoutAFunctionKeepsTheIdentifiersInTheParameters) {
  database.functions.reset();
  EditParamFields fields = shown();
  fields.canXid = 5;
  applyFields(fields, database);
  EXPECT_EQ(5, parameters().canXid);
  EXPECT_EQ(5, shown().canXid);
}

TEST_F(EditParam, Apply_LeavesWhatDoesNotConvert) {
  EditParamFields fields = shown();
  fields.KW1 = "xyz";
  fields.KW2 = "";
  fields.numbers[1].text = "many";
  fields.numbers[2].text = "";
  fields.numbers[3].text = "99999999999";
  applyFields(fields, database);
  EXPECT_EQ(208, parameters().key1);
  EXPECT_EQ(143, parameters().key2);
  EXPECT_EQ(0, parameters().InterByteDelay);
  EXPECT_EQ(25, parameters().KW2Delay);
  EXPECT_EQ(20, parameters().FirstRequestDelay);
}

TEST_F(EditParam, Fields_ShowTheIdentifiersOfTheFile) {
  parameters().canXid = 241; // what reading the tool address leaves there
  function->canXid = 2016;
  function->canRid = -1;
  parameters().canRid = 2024;
  EXPECT_EQ(2016, shown().canXid);
  EXPECT_EQ(2024, shown().canRid);
}

TEST_F(EditParam, Fields_TakeNoToolAddressForAnIdentifier) {
  function->canXid = -1;
  parameters().canXid = 2016;
  EXPECT_EQ(2016, shown().canXid);
  parameters().setToolAddress(242);
  EXPECT_EQ(2016, shown().canXid);
  parameters().ToolAddress(); // as a save of the file reads it
  EditParamFields fields = shown();
  EXPECT_EQ(-1, fields.canXid);
  applyFields(fields, database);
  EXPECT_EQ(-1, function->canXid);
}

TEST_F(EditParam, BaudRate_FollowsTheProtocol) {
  EditParamFields fields = shown();
  fields.numbers[0] = {"9600", true};
  fields.ComboBaudRate = "250000";
  const auto rateOf = [&](std::int32_t code) {
    fields.ComboTypeCom = positionOf(code);
    parameters().BaudRate = 1;
    applyFields(fields, database);
    return parameters().BaudRate;
  };
  EXPECT_EQ(10400, rateOf(7)); // whatever the fields say
  EXPECT_EQ(2000000, rateOf(5));
  EXPECT_EQ(250000, rateOf(8));
  for (const std::int32_t code : {1, 2, 3, 4, 6, 9, 0})
    EXPECT_EQ(9600, rateOf(code)) << code;
}

TEST_F(EditParam, CanFdLength_IsForItsProtocolAlone) {
  EditParamFields fields = shown();
  fields.ComboMaxDataLangthCANFD = "32";
  fields.ComboTypeCom = positionOf(5);
  applyFields(fields, database);
  EXPECT_EQ(32, parameters().CANFDTxMaxDataLength);
  EXPECT_EQ(5, shownCode());
  EXPECT_EQ("32", shown().ComboMaxDataLangthCANFD);
  takeOverWith(7);
  EXPECT_EQ(0, parameters().CANFDTxMaxDataLength);
  EXPECT_EQ(7, shownCode());
}

TEST_F(EditParam, CanFdLength_OfAFileStaysAlsoWhenItIsNoneOfTheList) {
  parameters().CANFDTxMaxDataLength = 7;
  EXPECT_EQ("7", shown().ComboMaxDataLangthCANFD);
  applyFields(shown(), database);
  EXPECT_EQ(7, parameters().CANFDTxMaxDataLength);
}

TEST_F(EditParam, ListsOfFixedEntries_FallBackToTheirDefaults) {
  EXPECT_EQ((std::vector<std::string>{"125000", "250000", "500000", "1000000"}), canBaudRates());
  EXPECT_EQ((std::vector<std::string>{"8", "12", "16", "20", "24", "32", "48", "64"}),
            canFdDataLengths());
  parameters().BaudRate = 125000;
  parameters().CANFDTxMaxDataLength = 0;
  EXPECT_EQ("125000", shown().ComboBaudRate);
  EXPECT_EQ("64", shown().ComboMaxDataLangthCANFD);
  parameters().BaudRate = 33333;
  EXPECT_EQ("500000", shown().ComboBaudRate);
}

TEST_F(EditParam, Gateway_IsThatOfTheShownBox) {
  EditParamFields fields = shown();
  fields.CheckCGW = true;
  const auto gatewayOf = [&](std::int32_t code) {
    fields.ComboTypeCom = positionOf(code);
    applyFields(fields, database);
    return parameters().Gateway;
  };
  EXPECT_EQ("CGW", gatewayOf(5));
  EXPECT_TRUE(shown().CheckCGW);
  EXPECT_TRUE(shown().CheckCGWIP);
  EXPECT_EQ("CGW", gatewayOf(7));
  for (const std::int32_t code : {1, 2, 3, 4, 6, 8, 9, 0})
    EXPECT_EQ("", gatewayOf(code)) << code;
  fields.CheckCGW = false;
  fields.CheckCGWIP = true;
  EXPECT_EQ("CGW", gatewayOf(9));
  EXPECT_EQ("", gatewayOf(7));
}

TEST_F(EditParam, IpPlaceholders_AreStoredAsAddresses) {
  EditParamFields fields = shown();
  fields.ComboTypeCom = positionOf(9);
  applyFields(fields, database);
  EXPECT_EQ("00.11.22.33", parameters().IPAddress);
  EXPECT_EQ("AA:BB:CC:DD", parameters().MACAddress);
  EXPECT_EQ(-1, parameters().initMode);
  EXPECT_TRUE(parameters().multiPoint);
  EXPECT_EQ(9, shownCode());
}

TEST_F(EditParam, IpAddresses_AreStoredAsTheyAreWhenOneIsNoPlaceholder) {
  EditParamFields fields = shown();
  fields.ComboTypeCom = positionOf(9);
  fields.txIPAddress = "10.0.0.1";
  applyFields(fields, database);
  EXPECT_EQ("10.0.0.1", parameters().IPAddress);
  EXPECT_EQ("??:??:??:??", parameters().MACAddress);
}

TEST_F(EditParam, IpAddresses_AreNotWrittenWhileTheirPanelIsHidden) {
  EditParamFields fields = shown();
  fields.txIPAddress = "10.0.0.1";
  applyFields(fields, database);
  EXPECT_EQ("??.??.??.??", parameters().IPAddress);
}

TEST_F(EditParam, AnEcuThatLeavesIp_IsNoLongerTakenForOne) {
  parameters().initMode = -1;
  parameters().IPAddress = "10.0.0.1";
  ASSERT_EQ(9, shownCode());
  takeOverWith(7);
  EXPECT_EQ(7, shownCode());
  EXPECT_EQ("??.??.??.??", parameters().IPAddress);
}

TEST_F(EditParam, Protocol_IsFoundByItsOwnParametersFirst) {
  parameters().initMode = 3;
  parameters().multiPoint = true;
  EXPECT_EQ(7, shownCode());
  parameters().CANFDTxMaxDataLength = 8;
  EXPECT_EQ(5, shownCode());
  parameters().MACAddress = "AA:BB:CC:DD";
  EXPECT_EQ(9, shownCode());
}

TEST_F(EditParam, Protocol_OfAnUnknownPairIsNoneAndStays) {
  parameters().initMode = 3;
  parameters().multiPoint = false;
  EditParamFields fields = shown();
  EXPECT_EQ(0, fields.ComboTypeCom);
  applyFields(fields, database);
  EXPECT_EQ(3, parameters().initMode);
  EXPECT_FALSE(parameters().multiPoint);
}

TEST_F(EditParam, EachProtocol_GivesItsModeAndComesBack) {
  for (const ProtocolItem* protocol : *database.protocols) {
    takeOverWith(protocol->code);
    EXPECT_EQ(protocol->initMode, parameters().initMode) << protocol->protocolName;
    EXPECT_EQ(protocol->multiPoint, parameters().multiPoint) << protocol->protocolName;
    EXPECT_EQ(protocol->code, shownCode()) << protocol->protocolName;
  }
}

TEST(EditParamFiles, TakingOverWhatIsShownChangesTheBaudRateOfCanAlone) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KELMAR_TEST_DATA "/good")) {
    if (entry.path().extension() != ".xml" || entry.path().stem() == "sibling-tool") continue;
    OmnikorLibXml database;
    database.ImportUceFromXml(entry.path().string());
    const std::string before = database.ecuFileBytes();
    TargetParamItem& parameters = *database.ActiveTarget->Parametres();
    const std::int32_t baudRate = parameters.BaudRate;
    EditParamFields fields = *fieldsOf(database);
    applyFields(fields, database);
    if (protocolCode(*database.protocols, fields.ComboTypeCom) == canCode)
      parameters.BaudRate = baudRate;
    EXPECT_EQ(before, database.ecuFileBytes()) << entry.path();
    ++files;
  }
  EXPECT_GT(files, 30);
}

TEST(ProtocolPanelsTest, EachCodeHasItsOwn) {
  std::string all;
  for (std::int32_t code = 0; code <= 10; ++code) {
    const ProtocolPanels panels = panelsOf(code);
    all += std::to_string(code) + ": " + panels.FrCan;
    const std::pair<bool, const char*> parts[] = {
        {panels.canFd, " fd"},     {panels.CheckCGW, " CGW"},     {panels.FrCanBaud, " FrCanBaud"},
        {panels.FrIP, " FrIP"},    {panels.CheckCGWIP, " CGWIP"}, {panels.Timing, " Timing"},
        {panels.Frame1, " Frame1"}};
    for (const auto& [shown, name] : parts)
      if (shown) all += name;
    all += "\n";
  }
  EXPECT_EQ("0:  Timing Frame1\n1:  Timing Frame1\n2:  Timing Frame1\n3:  Timing Frame1\n"
            "4:  Timing Frame1\n5: DiagOnCanFD fd CGW\n6:  Timing Frame1\n7: DiagOnCan CGW\n"
            "8:  FrCanBaud\n9:  FrIP CGWIP\n10:  Timing Frame1\n",
            all);
}

TEST(SearchProtocol, EachCodeHasItsNumber) {
  std::string all;
  for (std::int32_t code = -1; code <= 10; ++code)
    all += std::to_string(searchProtocolNumber(code)) + " ";
  EXPECT_EQ("0 0 6 4 5 2 1 3 1 7 8 0 ", all);
}

TEST(KeyBytes, GiveTheNumberOfTheProtocol) {
  EXPECT_EQ(2000, fakraCode(208, 143));
  EXPECT_EQ(2025, fakraCode(0xE9, 0x8F));
  EXPECT_EQ(16383, fakraCode(0xFF, 0xFF));
  EXPECT_EQ(0, fakraCode(0x80, 0x80)); // parity alone
  EXPECT_EQ(fakraCode(0x50, 0x0F), fakraCode(0xD0, 0x8F));
  EXPECT_EQ("2000", fakraText("D0", "8f"));
  EXPECT_EQ("", fakraText("D0", ""));
  EXPECT_EQ("", fakraText("G0", "8F"));
}

TEST(KeyBytes, AreReadAsHexadecimal) {
  EXPECT_EQ("D0", keyByteText(208));
  EXPECT_EQ("0", keyByteText(0));
  EXPECT_EQ(143, readKeyByte("8f"));
  EXPECT_EQ(-1, readKeyByte("FFFFFFFF"));
  EXPECT_FALSE(readKeyByte("100000000"));
  EXPECT_FALSE(readKeyByte("-1"));
  EXPECT_FALSE(readKeyByte("1.5"));
  EXPECT_FALSE(readKeyByte(" "));
}

TEST(ParameterNumbers, ConvertOrAreRefused) {
  EXPECT_EQ(12, readParameterNumber(" 12 "));
  EXPECT_EQ(-3, readParameterNumber("-3"));
  EXPECT_FALSE(readParameterNumber(""));
  EXPECT_FALSE(readParameterNumber("12 ms"));
  EXPECT_FALSE(readParameterNumber("2147483648"));
}

TEST(CanIdentifiers, KeepTheirMark) {
  EXPECT_EQ((CanIdentifier{}), canIdentifierOf(-1));
  EXPECT_EQ(-1, storedCanIdentifier({{}, true}));
  EXPECT_EQ((CanIdentifier{2016, false}), canIdentifierOf(2016));
  EXPECT_EQ((CanIdentifier{0x123, true}), canIdentifierOf(std::int32_t(0x80000123u)));
  for (const std::int32_t stored :
       {0, 2047, 5000, std::int32_t(0x80000000u), std::int32_t(0x9FFFFFFFu)})
    EXPECT_EQ(stored, storedCanIdentifier(canIdentifierOf(stored)));
}

TEST(CanIdentifiers, HaveElevenBitsOrTwentyNine) {
  EXPECT_EQ(536870911, largestOf(true));
  EXPECT_EQ(2047, largestOf(false));
}

TEST(OfficialDate, IsReadWithPointsAndWrittenInOneForm) {
  EXPECT_EQ("21/11/2026 08:30:15", officialDateText(*readOfficialDate("21.11.2026 08:30:15")));
  EXPECT_EQ("15/01/2026 00:00:00", officialDateText(*readOfficialDate("2026-01-15")));
  EXPECT_FALSE(readOfficialDate("soon"));
  EXPECT_FALSE(readOfficialDate(""));
}

} // namespace
} // namespace kelmar
