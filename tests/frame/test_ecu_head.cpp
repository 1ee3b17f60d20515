// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_head.h"

#include "frame/ecu_file_text.h"
#include "support/temp_folder.h"
#include "xml/encoding.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>

namespace kelmar {
namespace {

using support::EcuFileText;
using support::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

EcuHead headOf(const std::string& bytes, std::optional<std::int32_t> onlyFunction = {}) {
  const TempFolder folder;
  return readEcuHead(folder.write("ecu.xml", bytes), onlyFunction);
}

EcuProtocol protocolOf(const std::string& section) {
  EcuFileText file;
  file.protocol = section;
  const EcuHead head = headOf(file.text());
  EXPECT_EQ(head.trouble, "") << section;
  return head.protocol;
}

TEST(EcuHead, AllThatStandsBeforeTheData_IsRead) {
  const EcuHead head = headOf(R"(<?xml version='1.0' encoding="UTF-8"?><xml xmlns:zem="u">
<Generator name="Kelmar"/>
<zem:Target Name="Moteur é" xmlns="u" group="Diesel">
<Projects xmlns=""><P1/><P_2/></Projects>
<Function Name="Engine &amp; co" Address="122" LogicalAddress="7A"/>
<Description><![CDATA[first <line>
second]]></Description>
<CAN BaudRate="2000000" Multipoint="1" CANFDTxMaxDataLength="64"><SendId><CANId Value="1"/></SendId></CAN>
<AutoIdents>
<AutoIdent DiagVersion="4" Supplier="SUP" Soft="0100" Version="0001"/>
<AutoIdent DiagVersion="5" Supplier="" Soft="" Version=""/></AutoIdents>
<Datas/></zem:Target></xml>)");
  EXPECT_EQ(head.trouble, "");
  EXPECT_EQ(head.name, "Moteur é");
  EXPECT_EQ(head.group, "Diesel");
  EXPECT_THAT(head.projects, ElementsAre("P1", "P_2"));
  EXPECT_EQ(head.functionName, "Engine & co");
  EXPECT_EQ(head.functionAddress, 122);
  EXPECT_EQ(head.logicalAddress, "7A");
  EXPECT_EQ(head.comment, "first <line>\nsecond");
  EXPECT_EQ(head.protocol, EcuProtocol::CanFd);
  EXPECT_EQ(head.canFdMaxLength, 64);
  ASSERT_EQ(head.autoIdents.size(), 2u);
  EXPECT_EQ(head.autoIdents[0].DiagNumber, 4);
  EXPECT_EQ(head.autoIdents[0].SupplierCode, "SUP");
  EXPECT_EQ(head.autoIdents[0].Soft, "0100");
  EXPECT_EQ(head.autoIdents[0].Version, "0001");
  EXPECT_EQ(head.autoIdents[1].DiagNumber, 5);
}

TEST(EcuHead, EachProtocolSection_IsRecognised) {
  using P = EcuProtocol;
  EXPECT_EQ(protocolOf("<K BaudRate=\"1\"><ISO8/></K>"), P::Iso8);
  EXPECT_EQ(protocolOf("<K><KWP Multipoint=\"0\"><ISO8/></KWP></K>"), P::Kwp5BaudType1);
  EXPECT_EQ(protocolOf("<K><KWP Multipoint=\"1\"><ISO8/></KWP></K>"), P::Kwp5BaudType2);
  EXPECT_EQ(protocolOf("<K><KWP Multipoint=\"0\"><FastInit/></KWP></K>"), P::KwpFastInitMono);
  EXPECT_EQ(protocolOf("<K><KWP Multipoint=\"True\"><FastInit/></KWP></K>"), P::KwpFastInitMulti);
  EXPECT_EQ(protocolOf("<CAN Multipoint=\"1\"><SendId/></CAN>"), P::Can);
  EXPECT_EQ(protocolOf("<CAN Multipoint=\"1\"/>"), P::CanMessaging);
  EXPECT_EQ(protocolOf("<CAN CANFDTxMaxDataLength=\"8\"><SendId/></CAN>"), P::CanFd);
  EXPECT_EQ(protocolOf("<CAN CANFDTxMaxDataLength=\"0\"><SendId/></CAN>"), P::Can);
  EXPECT_EQ(protocolOf("<CAN CANFDTxMaxDataLength=\"much\"><SendId/></CAN>"), P::Can);
  EXPECT_EQ(protocolOf("<IP><IPAddress>1.2.3.4</IPAddress></IP>"), P::Ip);
  EXPECT_EQ(protocolOf("<Protocol InitMode=\"4\" Multipoint=\"1\"/>"), P::Unknown);
  EXPECT_EQ(protocolOf("<Protocol InitMode=\"1\" Multipoint=\"1\"/>"), P::Kwp5BaudType2);
  EXPECT_EQ(protocolOf("<Protocol InitMode=\"255\"/>"), P::CanMessaging);
  EXPECT_EQ(protocolOf("<Protocol InitMode=\"-7\"/>"), P::Ip);
  EXPECT_EQ(protocolOf("<Protocol/>"), P::KwpFastInitMono);
}

TEST(EcuHead, ASectionThatIsMissing_IsThatOfANewEcu) {
  EXPECT_EQ(protocolOf(""), EcuProtocol::KwpFastInitMono);
}

TEST(EcuHead, OfSeveralSections_KWinsThenIpThenCan) {
  const std::string k = "<K><KWP Multipoint=\"1\"><FastInit/></KWP></K>";
  const std::string ip = "<IP/>", can = "<CAN CANFDTxMaxDataLength=\"8\"><SendId/></CAN>";
  const std::string other = "<Protocol InitMode=\"9\"/>";
  EXPECT_EQ(protocolOf(other + can + ip + k), EcuProtocol::KwpFastInitMulti);
  EXPECT_EQ(protocolOf(other + can + ip), EcuProtocol::Ip);
  EXPECT_EQ(protocolOf(other + can), EcuProtocol::CanFd);
}

TEST(EcuHead, IpAddresses_AreRead) {
  EcuFileText file;
  file.protocol = "<IP><IPAddress>10.0.0.1</IPAddress>\n<MACAddress>AA:BB:CC:DD</MACAddress></IP>";
  const EcuHead head = headOf(file.text());
  EXPECT_EQ(head.ipAddress, "10.0.0.1");
  EXPECT_EQ(head.macAddress, "AA:BB:CC:DD");
}

TEST(EcuHead, WhatFollowsTheAutoIdents_IsNotRead) {
  EcuFileText file;
  file.rest = "<Datas>" + std::string(2'000'000, ' ') + "</Datas>";
  const EcuHead head = headOf(file.text());
  EXPECT_TRUE(head.ok());
  EXPECT_EQ(head.bytesRead, 4096u);
}

TEST(EcuHead, WhatFollowsTheAutoIdents_MayBeAnything) {
  EcuFileText file;
  file.rest = "<Datas><<< & no XML at all";
  const EcuHead head = headOf(file.text());
  EXPECT_EQ(head.trouble, "");
  EXPECT_EQ(head.autoIdents.size(), 1u);
}

TEST(EcuHead, WithoutAutoIdents_ReadingStopsAtTheData) {
  for (const std::string stop : {"Datas", "Requests", "Devices", "ds:Categories"}) {
    const EcuHead head =
        headOf("<xml><zem:Target Name=\"a\"><Function Name=\"f\" Address=\"1\"/><" + stop + ">" +
               std::string(100'000, ' ') + "<<<");
    EXPECT_EQ(head.trouble, "") << stop;
    EXPECT_EQ(head.name, "a");
    EXPECT_LT(head.bytesRead, 5'000u);
  }
}

TEST(EcuHead, AutoIdentsBehindTheData_AreNotLookedFor) {
  const EcuHead head =
      headOf("<xml><zem:Target Name=\"a\"><Function Name=\"f\" Address=\"1\"/><Datas/>"
             "<AutoIdents><AutoIdent DiagVersion=\"1\" Supplier=\"\" Soft=\"\" "
             "Version=\"\"/></AutoIdents></zem:Target></xml>");
  EXPECT_TRUE(head.ok());
  EXPECT_TRUE(head.autoIdents.empty());
}

TEST(EcuHead, ALongHead_IsReadToItsEnd) {
  EcuFileText file;
  std::string many;
  for (int i = 0; i < 3000; ++i)
    many += "<AutoIdent DiagVersion=\"" + std::to_string(i % 256) +
            "\" Supplier=\"é\" Soft=\"0100\" Version=\"" + std::to_string(i) + "\"/>";
  file.autoIdents = many;
  file.rest = "<Datas>" + std::string(3'000'000, ' ') + "</Datas>";
  const EcuHead head = headOf(file.text());
  EXPECT_EQ(head.trouble, "");
  ASSERT_EQ(head.autoIdents.size(), 3000u);
  EXPECT_EQ(head.autoIdents[2999].Version, "2999");
  EXPECT_EQ(head.autoIdents[2999].SupplierCode, "é");
  EXPECT_LT(head.bytesRead, 2 * many.size() + 8192);
}

TEST(EcuHead, AFunctionOfAnotherAddress_EndsTheReadingWhenOnlyOneIsWanted) {
  EcuFileText file;
  file.autoIdents = std::string(100'000, ' ');
  const EcuHead other = headOf(file.text(), 7);
  EXPECT_TRUE(other.ok());
  EXPECT_EQ(other.functionAddress, 122);
  EXPECT_EQ(other.bytesRead, 4096u);
  const EcuHead same = headOf(file.text(), 122);
  EXPECT_GT(same.bytesRead, 100'000u);
}

TEST(EcuHead, ProtocolAndFunctionBehindTheAutoIdents_AreStillRead) {
  const EcuHead head = headOf("<xml><zem:Target Name=\"a\"><AutoIdents/><Function Name=\"f\" "
                              "Address=\"9\"/><IP/><AutoIdents><AutoIdent/></AutoIdents>"
                              "<Datas/></zem:Target></xml>");
  EXPECT_EQ(head.trouble, "");
  EXPECT_EQ(head.functionAddress, 9);
  EXPECT_EQ(head.protocol, EcuProtocol::Ip);
}

TEST(EcuHead, AnIncompleteAutoIdent_EndsTheList) {
  const std::string good = "<AutoIdent DiagVersion=\"1\" Supplier=\"S\" Soft=\"1\" Version=\"1\"/>";
  for (const std::string bad :
       {"<AutoIdent DiagVersion=\"1\" Supplier=\"S\" Version=\"1\"/>",
        "<AutoIdent DiagVersion=\"x\" Supplier=\"S\" Soft=\"1\" Version=\"1\"/>",
        "<AutoIdent DiagVersion=\"4294967296\" Supplier=\"S\" Soft=\"1\" "
        "Version=\"1\"/>"}) {
    EcuFileText file;
    file.autoIdents = good + bad + good;
    EXPECT_EQ(headOf(file.text()).autoIdents.size(), 1u) << bad;
  }
}

TEST(EcuHead, AnAddressThatIsNoNumber_IsNone) {
  EcuFileText file;
  file.function = "<Function Name=\"f\" Address=\"one\"/>";
  EXPECT_FALSE(headOf(file.text()).functionAddress.has_value());
  file.function = "<Function Name=\"f\"/>";
  EXPECT_FALSE(headOf(file.text()).functionAddress.has_value());
  file.function = "<Function Name=\"f\" Address=\"&amp;H7A\"/>";
  EXPECT_EQ(headOf(file.text()).functionAddress, 122);
}

TEST(EcuHead, OfRepeatedElements_TheFirstCounts) {
  EcuFileText file;
  file.function += "<Function Name=\"second\" Address=\"5\"/>";
  file.protocol += "<CAN CANFDTxMaxDataLength=\"64\"/>";
  const EcuHead head = headOf(file.text());
  EXPECT_EQ(head.functionAddress, 122);
  EXPECT_EQ(head.protocol, EcuProtocol::Can);
}

std::string utf16(const std::string& ascii, bool littleEndian, const std::u16string& name) {
  std::u16string wide = u"\uFEFF";
  for (const char c : ascii)
    if (c == '#')
      wide += name;
    else
      wide += static_cast<char16_t>(static_cast<unsigned char>(c));
  std::string bytes;
  for (const char16_t unit : wide) {
    const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
    bytes += littleEndian ? low : high;
    bytes += littleEndian ? high : low;
  }
  return bytes;
}

TEST(EcuHead, EveryEncodingOfADocument_IsRead) {
  const std::string body = "<xml><zem:Target Name=\"#\"><Function Name=\"f\" Address=\"1\"/>"
                           "<Datas/></zem:Target></xml>";
  const auto with = [&](const std::string& encoding, const std::string& name) {
    std::string text = "<?xml version='1.0' encoding=\"" + encoding + "\"?>" + body;
    return text.replace(text.find('#'), 1, name);
  };
  EXPECT_EQ(headOf(with("UTF-8", "é€")).name, "é€");
  EXPECT_EQ(headOf("\xEF\xBB\xBF" + with("UTF-8", "é")).name, "é");
  EXPECT_EQ(headOf(with("ISO-8859-1", "\xE9")).name, "é");
  EXPECT_EQ(headOf(with("windows-1252", "\xE9\x80")).name, "é€");
  EXPECT_EQ(headOf(utf16(body, true, u"é€😀")).name, "é€😀");
  EXPECT_EQ(headOf(utf16(body, false, u"é€😀")).name, "é€😀");
}

TEST(EcuHead, ACharacterOnTheEdgeOfAPiece_StaysWhole) {
  // The pair of the face falls on every offset around the end of the first piece.
  for (std::size_t shift = 0; shift < 8; ++shift) {
    const std::string blanks(2048 - 60 + shift, ' ');
    const std::string body = "<xml>" + blanks +
                             "<zem:Target Name=\"#######\"><Function Name=\"f\" "
                             "Address=\"1\"/><Datas/></zem:Target></xml>";
    const EcuHead head = headOf(utf16(body, true, u"😀"));
    EXPECT_EQ(head.trouble, "") << shift;
    EXPECT_EQ(head.name, "😀😀😀😀😀😀😀") << shift;
  }
}

TEST(EcuHead, AFileOfExactlyOnePiece_IsRead) {
  EcuFileText file;
  file.rest = "";
  const std::size_t length = file.text().size();
  file.autoIdents.insert(0, std::string(4096 - length, ' '));
  ASSERT_EQ(file.text().size(), 4096u);
  EXPECT_TRUE(headOf(file.text()).ok());
  EXPECT_NE(headOf(file.text().substr(0, 2048) + std::string(2048, ' ')).trouble, "");
}

TEST(EcuHead, AFileThatIsNoEcuFile_HasNoHeadAndSaysWhy) {
  EXPECT_THAT(headOf("").trouble, HasSubstr("no element found, line 1"));
  EXPECT_THAT(headOf("no XML").trouble, HasSubstr("line 1, column 1"));
  EXPECT_EQ(headOf("<site/>").trouble, "RootNode \"xml\" not found");
  EXPECT_EQ(headOf("<xml/>").trouble, "Target node not found");
  EXPECT_EQ(headOf("<xml><Target Name=\"a\"/></xml>").trouble, "Target node not found");
  EXPECT_EQ(headOf("<xml><zem:Target/></xml>").trouble, "Target Name not found");
  EXPECT_EQ(headOf("<xml><zem:Target Name=\"a\"/></xml>").trouble,
            "Target function name not found");
  EXPECT_EQ(
      headOf("<xml><zem:Target Name=\"a\"><Function Address=\"1\"/></zem:Target></xml>").trouble,
      "Target function name not found");
  EXPECT_EQ(headOf("<xml><zem:Target Name=\"a\"><Datas/></zem:Target></xml>").trouble,
            "Function does not stand before Datas");
  EXPECT_THAT(headOf("<xml>\n<zem:Target Name=\"a\"><Function Name=\"f\"></xml>").trouble,
              HasSubstr("mismatched tag, line 2"));
  EXPECT_THAT(headOf("<?xml version='1.0' encoding='EBCDIC'?><xml/>").trouble,
              HasSubstr("unknown encoding 'EBCDIC', line 1"));
  EXPECT_THAT(headOf(std::string("<xml>\0</xml>", 12)).trouble, HasSubstr("line 1"));
}

TEST(EcuHead, AFileCutAnywhere_HasAHeadOrAReason) {
  const std::string whole = EcuFileText{}.text();
  std::size_t heads = 0;
  const TempFolder folder;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const EcuHead head = readEcuHead(folder.write("ecu.xml", whole.substr(0, length)));
    heads += head.ok();
    EXPECT_EQ(head.ok(), head.name == "Engine") << length;
  }
  EXPECT_EQ(heads, whole.size() - (whole.find("</AutoIdents>") + 13) + 1);
}

TEST(EcuHead, AFileThatCannotBeRead_HasNoHeadAndSaysWhy) {
  const TempFolder folder;
  EXPECT_EQ(readEcuHead(folder.file("none.xml")).trouble,
            folder.file("none.xml") + ": No such file or directory");
  EXPECT_THAT(readEcuHead(folder.path().string()).trouble, HasSubstr("Is a directory"));
}

TEST(EcuHead, EntitiesOfTheFileItself_AreExpanded) {
  const EcuHead head =
      headOf("<!DOCTYPE xml [<!ENTITY n 'Engine'>]><xml><zem:Target Name=\"&n; 2\">"
             "<Function Name=\"f\" Address=\"1\"/><Datas/></zem:Target></xml>");
  EXPECT_EQ(head.name, "Engine 2");
}

TEST(EcuHead, AnEntityBomb_IsRefused) {
  std::string dtd = "<!DOCTYPE xml [<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i < 12; ++i) {
    dtd += "<!ENTITY a" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k)
      dtd += "&a" + std::to_string(i - 1) + ";";
    dtd += "'>";
  }
  const EcuHead head = headOf(dtd + "]><xml><zem:Target Name=\"&a11;\"/></xml>");
  EXPECT_FALSE(head.ok());
  EXPECT_EQ(head.name, "");
}

TEST(EcuHead, AnExternalEntity_IsNotRead) {
  const TempFolder folder;
  folder.write("secret.xml", "secret");
  const std::string path = folder.write(
      "ecu.xml", "<!DOCTYPE xml [<!ENTITY e SYSTEM 'secret.xml'>]><xml><zem:Target Name=\"a\">"
                 "<Function Name=\"f\"/><Description>&e;</Description><Datas/></zem:Target></xml>");
  EXPECT_THAT(readEcuHead(path).trouble, HasSubstr("external entity 'secret.xml' is not read"));
}

TEST(EcuHead, DeepNesting_IsRefused) {
  std::string deep = "<xml>";
  for (int i = 0; i < 100'000; ++i)
    deep += "<a>";
  EXPECT_THAT(headOf(deep).trouble, HasSubstr("nested deeper than 512"));
}

TEST(EcuHead, AHeadWithoutEnd_IsRefusedInBoundedTimeAndMemory) {
  const TempFolder folder;
  const std::string path =
      folder.write("ecu.xml", "<xml><zem:Target Name=\"" + std::string(100'000'000, 'a') + "\"/>");
  rusage before{}, after{};
  ::getrusage(RUSAGE_SELF, &before);
  const EcuHead head = readEcuHead(path);
  ::getrusage(RUSAGE_SELF, &after);
  EXPECT_EQ(head.trouble, "the head of the file is longer than 16 MB");
  EXPECT_LT(after.ru_utime.tv_sec - before.ru_utime.tv_sec, 5);
}

TEST(EcuHead, ALongComment_IsCutAtACharacter) {
  std::string text;
  for (int i = 0; i < 5000; ++i)
    text += "é";
  EcuFileText file;
  file.function += "<Description>" + text + "</Description>";
  EXPECT_EQ(headOf(file.text()).comment, text.substr(0, 4000));
}

TEST(EcuHead, EveryFileOfTheBundledSite_HasOne) {
  std::size_t files = 0;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(std::string(KELMAR_SITE) + "/vehicles")) {
    if (entry.path().extension() != ".xml") continue;
    const EcuHead head = readEcuHead(entry.path().string());
    EXPECT_EQ(head.trouble, "") << entry.path();
    EXPECT_TRUE(head.functionAddress) << entry.path();
    EXPECT_LE(head.bytesRead, std::max<std::uintmax_t>(8192, entry.file_size() / 10));
    ++files;
  }
  EXPECT_GE(files, 1u);
}

} // namespace
} // namespace kelmar
