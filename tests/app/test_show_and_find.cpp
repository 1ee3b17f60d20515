// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using support::Cli;
using support::CliResult;

TEST(CliShow, Summary_NamesWhatTheFileHolds) {
  const Cli cli;
  cli.sample("cli/model.xml", "a.xml");
  EXPECT_EQ(cli.run({"show", "a.xml"}), (CliResult{0,
                                                   "Name              Engine \"<É>\"\n"
                                                   "Generic name      C:\\engines\n"
                                                   "Function          Engine\n"
                                                   "Address           07A (122)\n"
                                                   "Logical address   7A\n"
                                                   "Protocol          DiagOnCAN\n"
                                                   "Tool to ECU       291 (29 bits)\n"
                                                   "ECU to tool       2024\n"
                                                   "Endianness        big\n"
                                                   "Language          English\n"
                                                   "Projects          NV1, Été\n"
                                                   "Failures          DTC Failures\n"
                                                   "Identifications   1\n"
                                                   "Data              5\n"
                                                   "Requests          3 with 3 positions\n"
                                                   "Devices           2 with 1 test\n"
                                                   "Screens           1 in 2 categories\n",
                                                   ""}));
}

TEST(CliShow, Summary_CountsWhatWasNotKept) {
  const Cli cli;
  cli.sample("good/positions-without-data.xml", "a.xml");
  EXPECT_NE(cli.run({"show", "a.xml"}).out.find("\nNot kept          4 items\n"),
            std::string::npos);
}

TEST(CliShow, Protocols_AreNamedAsInTheWindow) {
  const Cli cli;
  struct Row {
    const char *sample, *protocol;
  };
  for (const Row& row :
       {Row{"kwp-fast-init", "KWP2000 FastInit MonoPoint"},
        Row{"kwp-5-baud-type-2", "KWP2000 Init 5 Baud Type I and II"}, Row{"can-fd", "DiagOnCANFD"},
        Row{"ip", "DiagOnIP"}, Row{"can-messaging", "CAN Messaging"}}) {
    cli.sample(std::string("good/") + row.sample + ".xml", "a.xml");
    const std::string out = cli.run({"show", "a.xml"}).out;
    EXPECT_NE(out.find(std::string("\nProtocol          ") + row.protocol + "\n"),
              std::string::npos)
        << out;
  }
}

std::string ecu(const std::string& autoIdents, int address = 122) {
  return "<xml><zem:Target Name=\"E\"><Function Name=\"F" + std::to_string(address) +
         "\" Address=\"" + std::to_string(address) +
         "\"/><CAN BaudRate=\"500000\"><SendId><CANId Value=\"1\"/></SendId></CAN><AutoIdents>" +
         autoIdents + "</AutoIdents></zem:Target></xml>";
}

std::string ident(int diag, const std::string& supplier, const std::string& soft,
                  const std::string& version) {
  return "<AutoIdent DiagVersion=\"" + std::to_string(diag) + "\" Supplier=\"" + supplier +
         "\" Soft=\"" + soft + "\" Version=\"" + version + "\"/>";
}

/// The site of the runs, with three files of function 122 and one of 44.
class CliFind : public testing::Test {
 protected:
  CliFind() {
    const auto write = [this](const char* name, const std::string& text) {
      cli.folder().write(std::string("site/vehicles/") + name, text);
    };
    write("A/one.xml", ecu(ident(1, "OKN", "0100", "01") + ident(1, "OKN", "0100", "02")));
    write("A/two.xml", ecu(ident(2, "OKN", "0100", "01")));
    write("B/three.xml", ecu(ident(1, "ZPH", "0700", "01")));
    write("B/airbag.xml", ecu(ident(9, "X", "1", "1"), 44));
    write("B/broken.xml", "<xml><zem:Target");
  }

  CliResult find(std::vector<std::string> words) {
    words.insert(words.begin(), "find");
    return cli.run(words);
  }
  CliResult match(int code, const std::string& name, const std::string& text) {
    return {0, std::to_string(code) + "\t" + cli.file("site/vehicles/" + name) + "\t" + text + "\n",
            ""};
  }

  Cli cli;
};

TEST_F(CliFind, ExactMatch_GivesCodeAddressAndText) {
  EXPECT_EQ(find({"--function", "122", "--diag", "1", "--supplier", "OKN", "--soft", "0100",
                  "--version", "02"}),
            match(0, "A/one.xml", "Identification exact match"));
}

TEST_F(CliFind, OtherMatches_AreRankedByTheirCode) {
  const auto with = [this](const char* diag, const char* soft, const char* version) {
    return find({"--function=122", std::string("--diag=") + diag, "--supplier=okn",
                 std::string("--soft=") + soft, std::string("--version=") + version});
  };
  EXPECT_EQ(with("1", "0100", "99"),
            match(2, "A/one.xml", "ECU detected with a different software version"));
  EXPECT_EQ(with("1", "0200", "01"),
            match(3, "A/one.xml", "ECU detected with a different software version"));
  EXPECT_EQ(with("3", "0100", "01"),
            match(4, "A/one.xml", "ECU detected with a different diagnostic version"));
  EXPECT_EQ(with("2", "0100", "01"), match(0, "A/two.xml", "Identification exact match"));
  EXPECT_EQ(with("3", "0100", "99"),
            match(5, "A/one.xml", "ECU detected with a different diagnostic and software version"));
}

TEST_F(CliFind, OnlyFileOfAFunction_IsUnique) {
  EXPECT_EQ(find({"--function", "44"}), match(1, "B/airbag.xml", "Only one ECU for this function"));
  EXPECT_EQ(find({"--function", "0x2C"}),
            match(1, "B/airbag.xml", "Only one ECU for this function"));
}

TEST_F(CliFind, OtherProtocol_AddsTen) {
  EXPECT_EQ(find({"--function", "44", "--protocol", "2"}),
            match(11, "B/airbag.xml", "Different protocol. Only one ECU for this function"));
}

TEST_F(CliFind, NoMatch_EndsWithOneAndSaysSoOnlyWhenAskedFor) {
  EXPECT_EQ(find({"--function", "99"}), (CliResult{1, "", ""}));
  EXPECT_EQ(find({"--function", "122", "--supplier", "NONE"}), (CliResult{1, "", ""}));
  EXPECT_EQ(find({"--function", "99", "-v"}),
            (CliResult{1, "", "kelmar-cli: " + cli.file("site") + ": note: No match\n"}));
}

TEST_F(CliFind, Site_IsThatOfTheOption) {
  cli.environment["KELMAR_SITE"] = "/nowhere";
  EXPECT_EQ(find({"--site", "site", "--function", "44"}),
            match(1, "B/airbag.xml", "Only one ECU for this function"));
}

TEST_F(CliFind, SiteThatCannotBeRead_IsTold) {
  const CliResult result = find({"--site", "gone", "--function", "44"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.find("kelmar-cli: " + cli.file("gone") + ": error 1: "), 0u) << result;
}

TEST_F(CliFind, BundledSite_AnswersForItsEngines) {
  const CliResult result =
      find({"--site", KELMAR_SITE, "--function", "122", "--protocol", "1", "--diag", "12",
            "--supplier", "OKN", "--soft", "1A00", "--version", "0101"});
  EXPECT_EQ(result,
            (CliResult{0,
                       "0\t" KELMAR_SITE "/vehicles/Norvale Sillage/Powertrain/Engine_CR4_D12.xml\t"
                       "Identification exact match\n",
                       ""}));
}

} // namespace
} // namespace kelmar
