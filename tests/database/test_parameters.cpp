// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

using Param = TargetParamItem;

/// An ECU whose section is read from the text.
struct Loaded : Ecu {
  explicit Loaded(const std::string& head, const std::string& lang = "en") : Ecu(lang) {
    FileText file;
    file.head = head;
    load(file);
  }
  Param& parameters() { return *target().Parametres(); }
};

/// The text behind PowerSupply, which is the section.
std::string sectionOf(Ecu& ecu) {
  return Ecu::between(ecu.saved(), "</PowerSupply>\n", "\n\n<AutoIdents>");
}

/// A new ECU in the mode.
std::string sectionOf(std::int32_t initMode, std::function<void(Param&)> change = {}) {
  Ecu ecu;
  Param& parameters = *ecu.makeNew().Parametres();
  parameters.initMode = initMode;
  if (change) change(parameters);
  return sectionOf(ecu);
}

const std::string delays =
    "<InterByte Delay=\"0\"/>\n<ReplyToRequest Delay=\"5\"/>\n<RequestToReply Timeout=\"300\"/>\n"
    "<TesterPresent Delay=\"3000\"/>\n<OnError Delay=\"300\"/>\n";
const std::string oddDelays =
    "<InterByte Delay=\"1\"/>\n<ReplyToRequest Delay=\"2\"/>\n<RequestToReply Timeout=\"3\"/>\n"
    "<TesterPresent Delay=\"4\"/>\n<OnError Delay=\"6\"/>\n";

void setOddValues(Param& parameters) {
  parameters.multiPoint = true;
  parameters.key1 = 11;
  parameters.key2 = 12;
  parameters.BaudRate = 13;
  parameters.InterByteDelay = 1;
  parameters.ReplyToRequestDelay = 2;
  parameters.RequestToReplyTimeout = 3;
  parameters.TesterPresentDelay = 4;
  parameters.ErrorDelay = 6;
  parameters.KW2Delay = 14;
  parameters.KW2Timeout = 15;
  parameters.FirstRequestDelay = 16;
}

TEST(NewParameters, HaveTheirInitialValues) {
  const Param p;
  EXPECT_EQ(p.initMode, 2);
  EXPECT_FALSE(p.multiPoint);
  EXPECT_EQ(p.key1, 208);
  EXPECT_EQ(p.key2, 143);
  EXPECT_EQ(p.BaudRate, 10400);
  EXPECT_EQ(p.CANFDTxMaxDataLength, 0);
  EXPECT_EQ(p.IPAddress, "??.??.??.??");
  EXPECT_EQ(p.MACAddress, "??:??:??:??");
  EXPECT_EQ(p.InterByteDelay, 0);
  EXPECT_EQ(p.KW2Delay, 25);
  EXPECT_EQ(p.FirstRequestDelay, 20);
  EXPECT_EQ(p.ReplyToRequestDelay, 5);
  EXPECT_EQ(p.TesterPresentDelay, 3000);
  EXPECT_EQ(p.KW2Timeout, 300);
  EXPECT_EQ(p.RequestToReplyTimeout, 300);
  EXPECT_EQ(p.ErrorDelay, 300);
  EXPECT_FALSE(p.LittleEndian);
  EXPECT_EQ(p.Reprogrammable + p.DateOfficialisation + p.Gateway + p.Comment, "");
  EXPECT_EQ(p.storedToolAddress(), 241);
  EXPECT_EQ(p.TypePanneId(), 0);
  EXPECT_EQ(p.TypePanne(), "Ne contient pas de pannes");
  EXPECT_EQ(p.canXid, -1);
  EXPECT_EQ(p.canRid, -1);
}

/// "number" or "true", "false", "'text'", "none"; with "=" in front when the field equals it.
std::string defaultOf(const Param& parameters, int index) {
  Param::Value value;
  std::string text = parameters.isDefaultValue(index, value) ? "=" : "";
  EXPECT_EQ(parameters.isDefaultValue(index), !text.empty());
  if (const auto* number = std::get_if<std::int32_t>(&value)) return text + std::to_string(*number);
  if (const auto* flag = std::get_if<bool>(&value)) return text + (*flag ? "true" : "false");
  if (const auto* words = std::get_if<std::string>(&value)) return text + "'" + *words + "'";
  return text + "none";
}

TEST(DefaultValues, OfEveryIndexInANewObject) {
  const Param p;
  const std::vector<std::string> expected = {
      "=2", "=false", "=208", "=143", "=10400", "64",     "none", "none", "=0",   "=25", "=20",
      "=5", "=3000",  "=300", "=300", "=300",   "=false", "=''",  "none", "none", "=241"};
  for (int index = 0; index <= 20; ++index)
    EXPECT_EQ(defaultOf(p, index), expected[static_cast<std::size_t>(index)]) << index;
  EXPECT_EQ(defaultOf(p, 21), "none");
  EXPECT_EQ(defaultOf(p, 1000), "none");
  EXPECT_EQ(defaultOf(p, -1), "none");
}

TEST(DefaultValues, AreToldApartFromOthersAndSetBack) {
  Param p;
  setOddValues(p);
  p.initMode = 3;
  p.CANFDTxMaxDataLength = 7;
  p.IPAddress = p.MACAddress = p.Reprogrammable = p.DateOfficialisation = p.Gateway = "x";
  p.LittleEndian = true;
  p.setToolAddress(5);
  for (int index = 0; index <= 21; ++index)
    EXPECT_FALSE(p.isDefaultValue(index)) << index;
  for (int index = 0; index <= 21; ++index)
    p.SetDefaultValue(index);
  for (const int index : {0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 20})
    EXPECT_TRUE(p.isDefaultValue(index)) << index;
  EXPECT_EQ(p.CANFDTxMaxDataLength, 64);
  EXPECT_EQ(p.IPAddress, "??.??.??.??");
  EXPECT_EQ(p.MACAddress, "??:??:??:??");
  EXPECT_EQ(p.DateOfficialisation + p.Gateway, "");
  EXPECT_EQ(p.storedToolAddress(), 241);
}

TEST(ToolAddress, ItsReaderGivesZeroAndOverwritesCanXid) {
  Param p;
  p.setToolAddress(99);
  EXPECT_EQ(p.canXid, -1);
  EXPECT_EQ(p.ToolAddress(), 0);
  EXPECT_EQ(p.canXid, 99);
  EXPECT_EQ(p.storedToolAddress(), 99);
  EXPECT_FALSE(p.isDefaultValue(Param::Tool));
}

TEST(TypeOfFailures, IdAndTextAreCoupled) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  p.setTypePanneId(3);
  EXPECT_EQ(p.TypePanne(), "DTC Failures");
  p.setTypePanne("Failures Flags");
  EXPECT_EQ(p.TypePanneId(), 1);
  p.setTypePanne("unknown");
  EXPECT_EQ(p.TypePanne(), "unknown");
  EXPECT_EQ(p.TypePanneId(), 1) << "an unknown text leaves the id";
  EXPECT_EQ(Ecu::failureOf([&] { p.setTypePanneId(99); }),
            "91 TargetParamItem.TypePanneId: Object not set");
  EXPECT_EQ(p.TypePanneId(), 99);
  Param alone;
  alone.setTypePanne("x");
  EXPECT_EQ(alone.TypePanne(), "x");
}

TEST(TypeOfFailures, TheSameTextIsNotLookedUpAgain) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  ecu.db.Pannes->Add(50, "Ne contient pas de pannes");
  p.setTypePanne("Ne contient pas de pannes");
  EXPECT_EQ(p.TypePanneId(), 0);
}

TEST(ParametersElement, CommonPartInItsOrder) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  p.Comment = "  two\r\nlines ";
  p.DateOfficialisation = "1 < 2";
  p.setTypePanneId(2);
  p.Reprogrammable = "BOOT";
  EXPECT_EQ(ecu.savedBetween("Reference=\"1\"/>", "<K "),
            "\n<Description><![CDATA[two\r\nlines]]></Description>\n"
            "<DateOfficialisation>1 &lt; 2</DateOfficialisation>\n"
            "<Failures Name=\"10 DTC failures read with After sales Frames\" Id=\"2\"/>\n"
            "<Boot Name=\"BOOT\"/>\n"
            "<PowerSupply>\n<Ground/>\n<Vbat/>\n<AfterContact/>\n</PowerSupply>\n");
  p.Comment = "   ";
  EXPECT_EQ(ecu.saved().find("Description"), std::string::npos);
}

TEST(ParametersSection, DefaultObjectWritesFastInitAndAllDelays) {
  EXPECT_EQ(sectionOf(2),
            "<K BaudRate=\"10400\"><KWP Multipoint=\"0\"><FastInit><KW1 Value=\"208\"/>\n"
            "<KW2 Value=\"143\"/>\n</FastInit>\n</KWP>\n" +
                delays + "</K>");
}

TEST(ParametersSection, FastInitWithOtherValues) {
  EXPECT_EQ(sectionOf(2, setOddValues),
            "<K BaudRate=\"13\"><KWP Multipoint=\"1\"><FastInit><KW1 Value=\"11\"/>\n"
            "<KW2 Value=\"12\"/>\n</FastInit>\n</KWP>\n" +
                oddDelays + "</K>");
}

TEST(ParametersSection, Iso8StandsDirectlyUnderK) {
  EXPECT_EQ(sectionOf(0, setOddValues),
            "<K BaudRate=\"13\"><ISO8>\n<L/>\n<KW1 Value=\"11\"/>\n"
            "<KW2 Value=\"12\" Timeout=\"15\"/>\n<FirstRequest Delay=\"16\"/>\n</ISO8>\n" +
                oddDelays + "</K>");
}

TEST(ParametersSection, SlowInitHasIso8UnderKwpAndKw2BehindIt) {
  EXPECT_EQ(sectionOf(1, setOddValues),
            "<K BaudRate=\"13\"><KWP Multipoint=\"1\"><ISO8>\n<L/>\n<KW1 Value=\"11\"/>\n"
            "<KW2 Value=\"12\" Timeout=\"15\"/>\n<FirstRequest Delay=\"16\"/>\n</ISO8>\n"
            "<KW2_ Delay=\"14\"/>\n</KWP>\n" +
                oddDelays + "</K>");
}

TEST(ParametersSection, CanWithIdentifiersOfTheFunction) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  p.initMode = 3;
  p.canXid = 1;
  p.canRid = 2;
  FunctionItem* function = ecu.db.functions->Item(1);
  function->canXid = 291;
  function->canRid = static_cast<std::int32_t>(0x80000123u);
  EXPECT_EQ(sectionOf(ecu),
            "<CAN BaudRate=\"10400\" Multipoint=\"0\"><SendId>\n<CANId Value=\"291\"/>\n"
            "</SendId><ReceiveId>\n<CANId Value=\"291\" Extended=\"1\"/>\n</ReceiveId></CAN>");
  p.CANFDTxMaxDataLength = 64;
  EXPECT_TRUE(sectionOf(ecu).starts_with(
      "<CAN BaudRate=\"10400\" Multipoint=\"0\" CANFDTxMaxDataLength=\"64\"><SendId>"));
  p.CANFDTxMaxDataLength = 1;
  EXPECT_NE(sectionOf(ecu).find("CANFDTxMaxDataLength=\"1\""), std::string::npos);
  p.CANFDTxMaxDataLength = -1;
  EXPECT_EQ(sectionOf(ecu).find("CANFDTxMaxDataLength"), std::string::npos);
}

TEST(ParametersSection, ReceiveIdentifierFollowsTheSendingOne) {
  Ecu ecu;
  ecu.makeNew().Parametres()->initMode = 3;
  FunctionItem* function = ecu.db.functions->Item(1);
  function->canRid = 5;
  EXPECT_EQ(sectionOf(ecu), "<CAN BaudRate=\"10400\" Multipoint=\"0\"/>") << "it is lost";
  function->canXid = 6;
  function->canRid = -1;
  EXPECT_EQ(Ecu::between(sectionOf(ecu), "<ReceiveId>\n", "\n"),
            "<CANId Value=\"536870911\" Extended=\"1\"/>");
}

TEST(ParametersSection, CanMessagingHasNoIdentifiersAndNoLength) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  p.initMode = 255;
  p.multiPoint = true;
  p.CANFDTxMaxDataLength = 64;
  ecu.db.functions->Item(1)->canXid = 6;
  EXPECT_EQ(sectionOf(ecu), "<CAN BaudRate=\"10400\" Multipoint=\"1\"/>");
  ecu.load(ecu.saved());
  EXPECT_EQ(ecu.target().Parametres()->initMode, 255) << "without SendId it reads as 255";
}

TEST(ParametersSection, ProtocolForModesAbove3) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  setOddValues(p);
  p.initMode = 7;
  ecu.db.protocols->Add(99, 7, true, "Seven");
  EXPECT_EQ(sectionOf(ecu),
            "<Protocol Name=\"Seven\" InitMode=\"7\" Multipoint=\"1\" BaudRate=\"13\">\n" +
                oddDelays +
                "<KW1 Value=\"11\"/>\n<KW2 Value=\"12\" Timeout=\"15\"/>\n<KW2_ Delay=\"14\"/>\n"
                "<FirstRequest Delay=\"16\"/>\n</Protocol>");
  p.multiPoint = false;
  EXPECT_EQ(Ecu::failureOf([&] { ecu.saved(); }),
            "91 TargetParamItem.createXMLnode: Object not set (no protocol with InitMode 7 and "
            "Multipoint 0)");
}

TEST(ParametersSection, IpForNegativeModesAndNothingElse) {
  EXPECT_EQ(sectionOf(-1), "<IP>\n<IPAddress>??.??.??.??"
                           "</IPAddress>\n"
                           "<MACAddress>??:??:??:??"
                           "</MACAddress></IP>");
  EXPECT_EQ(sectionOf(-7,
                      [](Param& p) {
                        p.IPAddress = "1&2";
                        p.MACAddress.clear();
                      }),
            "<IP>\n<IPAddress>1&amp;2</IPAddress>\n<MACAddress/></IP>");
}

// Reading

TEST(ParametersRead, GatewayBootDateAndEndian) {
  Loaded ecu("<DateOfficialisation>2026</DateOfficialisation><Boot Name='B'/>");
  EXPECT_EQ(ecu.parameters().DateOfficialisation, "2026");
  EXPECT_EQ(ecu.parameters().Reprogrammable, "B");
  EXPECT_EQ(ecu.parameters().Gateway, "");
  EXPECT_FALSE(ecu.parameters().LittleEndian);
  FileText file;
  file.function = "<Function Name='Engine' Address='122' Type='CGW'/>";
  for (const char* endian : {"Little", "little", "Big", ""}) {
    file.endian = endian;
    ecu.load(file);
    EXPECT_EQ(ecu.target().Parametres()->LittleEndian, std::string(endian) == "Little") << endian;
  }
  EXPECT_EQ(ecu.target().Parametres()->Gateway, "CGW");
  EXPECT_EQ(ecu.target().Parametres()->Reprogrammable, "");
}

TEST(ParametersRead, DescriptionIsWidenedAndTrimmedAndWinsOverXmlComments) {
  EXPECT_EQ(
      Loaded("<!--c--><Description>  a\nb<![CDATA[ <c> ]]></Description>").parameters().Comment,
      "a\r\nb <c>");
  EXPECT_EQ(Loaded("<!-- first\nline --><!--second-->").parameters().Comment, " first\r\nline ");
  EXPECT_EQ(Loaded("<Description/><!--c-->").parameters().Comment, "");
  EXPECT_EQ(Loaded("<K><!--not a child--></K>").parameters().Comment, "");
}

TEST(ParametersRead, FailuresByIdInTheUsersLanguage) {
  Loaded ecu("<Failures Name='never read' Id='2'/>", "fr");
  EXPECT_EQ(ecu.parameters().TypePanneId(), 2);
  EXPECT_EQ(ecu.parameters().TypePanne(), "10 pannes DTC dans les trames APV");
  Loaded none("");
  EXPECT_EQ(none.parameters().TypePanneId(), 0);
  EXPECT_EQ(none.parameters().TypePanne(), "No failures");
}

TEST(ParametersRead, FailuresOfAnUnknownIdAreNone) {
  Loaded ecu("<Failures Name='x' Id='99'/>");
  EXPECT_EQ(ecu.parameters().TypePanneId(), 0);
  EXPECT_EQ(ecu.parameters().TypePanne(), "Ne contient pas de pannes");
  EXPECT_EQ(ecu.report(), "Value|Id|Failures[x]|4|'99': no such type of failure\n");
}

TEST(ParametersRead, FastInitReadsItsKeysAndDelays) {
  Loaded ecu("<K BaudRate='9600'><KWP Multipoint='1'><FastInit><KW1 Value='1'/><KW2 Value='2' "
             "Timeout='9'/></FastInit><KW2_ Delay='8'/></KWP><InterByte Delay='3'/>"
             "<ReplyToRequest Delay='4'/><RequestToReply Timeout='5'/><TesterPresent Delay='6'/>"
             "<OnError Delay='7'/></K>");
  const Param& p = ecu.parameters();
  EXPECT_EQ(p.initMode, 2);
  EXPECT_TRUE(p.multiPoint);
  EXPECT_EQ(p.BaudRate, 9600);
  EXPECT_EQ(p.key1, 1);
  EXPECT_EQ(p.key2, 2);
  EXPECT_EQ(p.KW2Timeout, 300) << "not read here";
  EXPECT_EQ(p.KW2Delay, 25) << "not read here";
  EXPECT_EQ(p.InterByteDelay, 3);
  EXPECT_EQ(p.ReplyToRequestDelay, 4);
  EXPECT_EQ(p.RequestToReplyTimeout, 5);
  EXPECT_EQ(p.TesterPresentDelay, 6);
  EXPECT_EQ(p.ErrorDelay, 7);
}

TEST(ParametersRead, SlowInitReadsAllKeys) {
  Loaded ecu("<K><KWP><ISO8><FirstRequest Delay='1'/><KW1 Value='2'/><KW2 Value='3' Timeout='4'/>"
             "</ISO8><KW2_ Delay='5'/></KWP></K>");
  const Param& p = ecu.parameters();
  EXPECT_EQ(p.initMode, 1);
  EXPECT_FALSE(p.multiPoint);
  EXPECT_EQ(p.FirstRequestDelay, 1);
  EXPECT_EQ(p.key1, 2);
  EXPECT_EQ(p.key2, 3);
  EXPECT_EQ(p.KW2Timeout, 4);
  EXPECT_EQ(p.KW2Delay, 5);
}

TEST(ParametersRead, Iso8LeavesInitModeOfANewObjectAndIsWrittenAsFastInit) {
  Ecu ecu;
  ecu.makeNew().Parametres()->initMode = 0;
  ecu.target().Parametres()->FirstRequestDelay = 77;
  ecu.load(ecu.saved());
  EXPECT_EQ(ecu.target().Parametres()->initMode, 2);
  EXPECT_EQ(ecu.target().Parametres()->FirstRequestDelay, 77);
  EXPECT_NE(sectionOf(ecu).find("<FastInit>"), std::string::npos);
}

TEST(ParametersRead, MissingNodesMeanTheDefaultAndNotThePreviousValue) {
  Ecu ecu;
  Param& p = *ecu.makeNew().Parametres();
  for (const char* section : {"<K><KWP><ISO8/></KWP></K>", "<Protocol/>"}) {
    setOddValues(p);
    p.loadXml(ecu.db, Fragment("<t>" + std::string(section) + "</t>"));
    EXPECT_FALSE(p.multiPoint);
    EXPECT_EQ(p.BaudRate, 10400);
    EXPECT_EQ(p.key1, 208);
    EXPECT_EQ(p.key2, 143);
    EXPECT_EQ(p.KW2Timeout, 300);
    EXPECT_EQ(p.KW2Delay, 25);
    EXPECT_EQ(p.FirstRequestDelay, 20);
    EXPECT_EQ(p.InterByteDelay, 0);
    EXPECT_EQ(p.ReplyToRequestDelay, 5);
    EXPECT_EQ(p.RequestToReplyTimeout, 300);
    EXPECT_EQ(p.TesterPresentDelay, 3000);
    EXPECT_EQ(p.ErrorDelay, 300);
  }
  EXPECT_EQ(p.initMode, 2) << "of a Protocol without InitMode";
}

TEST(ParametersRead, KIsLookedAtFirstThenIpThenCanThenProtocol) {
  const std::string k = "<K><KWP><ISO8/></KWP></K>", ip = "<IP/>", can = "<CAN/>",
                    protocol = "<Protocol InitMode='7'/>";
  EXPECT_EQ(Loaded(protocol + can + ip + k).parameters().initMode, 1);
  EXPECT_EQ(Loaded(protocol + can + ip).parameters().initMode, -1);
  EXPECT_EQ(Loaded(protocol + can).parameters().initMode, 255);
  EXPECT_EQ(Loaded(protocol).parameters().initMode, 7);
  EXPECT_EQ(Loaded("").parameters().initMode, 2);
}

TEST(ParametersRead, AFileWithCanAndKReadsAsK) {
  Loaded ecu(
      "<CAN BaudRate='500000'><SendId><CANId Value='1'/></SendId></CAN><K BaudRate='9600'/>");
  EXPECT_EQ(ecu.parameters().initMode, 2);
  EXPECT_EQ(ecu.parameters().BaudRate, 9600);
  EXPECT_EQ(ecu.parameters().canXid, -1);
  EXPECT_EQ(ecu.db.functions->Item(1)->canXid, 1) << "the catalogue takes it all the same";
}

TEST(ParametersRead, IpAddressesOrTheirPatterns) {
  Loaded ecu("<IP><MACAddress>a</MACAddress></IP>");
  EXPECT_EQ(ecu.parameters().IPAddress, "??.??.??.??");
  EXPECT_EQ(ecu.parameters().MACAddress, "a");
}

TEST(ParametersRead, CanWithoutLengthHasTheSmallDefaultBaudRate) {
  Loaded classic("<CAN><SendId/></CAN>");
  EXPECT_EQ(classic.parameters().CANFDTxMaxDataLength, 0);
  EXPECT_EQ(classic.parameters().BaudRate, 10400);
  EXPECT_EQ(classic.parameters().initMode, 3);
  EXPECT_EQ(sectionOf(classic).find("CANFDTxMaxDataLength"), std::string::npos);
  Loaded fd("<CAN CANFDTxMaxDataLength='64'/>");
  EXPECT_EQ(fd.parameters().CANFDTxMaxDataLength, 64);
  EXPECT_EQ(fd.parameters().BaudRate, 2000000);
  Loaded given("<CAN CANFDTxMaxDataLength='64' BaudRate='5'/>");
  EXPECT_EQ(given.parameters().BaudRate, 5);
}

TEST(ParametersRead, CanMultipointIsABooleanAndFalseWithoutIt) {
  EXPECT_TRUE(Loaded("<CAN Multipoint='true'/>").parameters().multiPoint);
  EXPECT_TRUE(Loaded("<CAN Multipoint='2'/>").parameters().multiPoint);
  EXPECT_FALSE(Loaded("<CAN Multipoint='0'/>").parameters().multiPoint);
  EXPECT_FALSE(Loaded("<CAN/>").parameters().multiPoint);
}

std::uint32_t identifierOf(const std::string& attributes) {
  Loaded ecu("<CAN><SendId><CANId " + attributes + "/></SendId></CAN>");
  return static_cast<std::uint32_t>(ecu.parameters().canXid);
}

TEST(CanIdentifier, ExtendedMarksBit31AndComesBackAsWritten) {
  EXPECT_EQ(identifierOf("Value='291' Extended='1'"), 0x80000123u);
  EXPECT_EQ(identifierOf("Value='291' Extended='true'"), 0x80000123u);
  EXPECT_EQ(identifierOf("Value='291' Extended='0'"), 291u) << "Extended 0 leaves the bit clear";
  EXPECT_EQ(identifierOf("Value='291'"), 291u);
  EXPECT_EQ(identifierOf("Value='291' Extended='?'"), 291u);
  EXPECT_EQ(identifierOf("Extended='1'"), 0xFFFFFFFFu);
  EXPECT_EQ(identifierOf("Value='x' Extended='1'"), 0xFFFFFFFFu);
  EXPECT_EQ(identifierOf("Value='-5' Extended='1'"), 0xFFFFFFFBu) << "the addition overflows";
}

TEST(CanIdentifier, StoredWithBit31IsWrittenExtendedAndReadBack) {
  Ecu ecu;
  ecu.makeNew().Parametres()->initMode = 3;
  ecu.db.functions->Item(1)->canXid = static_cast<std::int32_t>(0x80000123u);
  ecu.db.functions->Item(1)->canRid = 0;
  const std::string text = ecu.saved();
  EXPECT_EQ(Ecu::between(text, "<SendId>\n", "\n"), "<CANId Value=\"291\" Extended=\"1\"/>");
  Ecu other;
  other.load(text);
  EXPECT_EQ(static_cast<std::uint32_t>(other.db.functions->Item(1)->canXid), 0x80000123u);
  EXPECT_EQ(other.db.functions->Item(1)->canRid, 0);
  EXPECT_EQ(static_cast<std::uint32_t>(other.target().Parametres()->canXid), 0x80000123u);
}

TEST(ParametersRead, WhatDoesNotConvertLeavesTheDefaultAndIsReportedOnce) {
  Loaded ecu("<CAN BaudRate='fast' Multipoint='x' CANFDTxMaxDataLength='99999999999'/>");
  EXPECT_EQ(ecu.parameters().BaudRate, 10400);
  EXPECT_EQ(ecu.report(), "Value|CANFDTxMaxDataLength|CAN|4|'99999999999': Overflow\n"
                          "Value|BaudRate|CAN|4|'fast': Type mismatch\n"
                          "Value|Multipoint|CAN|4|'x': Type mismatch\n");
}

TEST(ParametersRoundTrip, EverySectionIsReadAsItWasWritten) {
  for (const std::int32_t mode : {1, 2, 3, 7, 255, -1}) {
    Ecu ecu;
    ecu.db.protocols->Add(99, 7, true, "Seven");
    Param& p = *ecu.makeNew().Parametres();
    setOddValues(p);
    p.initMode = mode;
    p.CANFDTxMaxDataLength = 8;
    ecu.db.functions->Item(1)->canXid = 1;
    ecu.db.functions->Item(1)->canRid = 2;
    ecu.load(ecu.saved());
    const std::string text = ecu.saved();
    ecu.load(text);
    EXPECT_EQ(ecu.saved(), text) << "mode " << mode;
    EXPECT_EQ(ecu.target().Parametres()->initMode, mode);
  }
}

} // namespace
} // namespace kelmar::testing
