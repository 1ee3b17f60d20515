// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

using support::bytesOf;
using support::Cli;
using support::CliResult;

namespace fs = std::filesystem;

const std::vector<std::string> writing[] = {
    {"save", "a.xml"},
    {"rename-data", "a.xml", "Speed", "Velocity"},
    {"rename-request", "a.xml", "DataRead.State", "Read"},
    {"rename-device", "a.xml", "Speed sensor", "Sensor"},
    {"delete-data", "a.xml", "Speed"},
    {"delete-request", "a.xml", "DataRead.State"},
    {"delete-device", "a.xml", "Speed sensor"},
};

/// With every element between "<zem:Target" and its end in place but one attribute of the last
/// list.
std::string loadThatFailsAtTheEnd(const Cli& cli) {
  std::string text = bytesOf(KELMAR_TEST_DATA "/good/all-of-the-target.xml");
  const std::string attribute = " Soft=\"0001\"";
  text.erase(text.find(attribute), attribute.size());
  return cli.folder().write("a.xml", text);
}

TEST(CliMessages, LoadFailure_HasNumberTextAndSource) {
  const Cli cli;
  EXPECT_EQ(cli.run({"show", "gone.xml"}),
            (CliResult{1, "",
                       "kelmar-cli: gone.xml: error 1: Bad xml file, Reason=gone.xml: No such file "
                       "or directory [OmnikorDatabase.ImportUceFromXml]\n"}));
  cli.folder().write("a.xml", "<root/>");
  EXPECT_EQ(cli.run({"dump", "a.xml"}),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 1: Bad xml file, RootNode \"xml\" not found "
                       "[OmnikorDatabase.ImportUceFromXml]\n"}));
  cli.folder().write("a.xml", "<xml>\n<a></b></xml>");
  const CliResult result = cli.run({"dump", "a.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_NE(result.err.find("line 2, column"), std::string::npos) << result;
}

TEST(CliMessages, FailureWithoutSource_HasNoBrackets) {
  const Cli cli;
  cli.sample("good/all-of-the-target.xml", "a.xml");
  EXPECT_EQ(cli.run({"delete-data", "a.xml", "Nothing"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Data 'Nothing' not found\n"}));
  EXPECT_EQ(cli.run({"rename-request", "a.xml", "Nothing", "New"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Request 'Nothing' not found\n"}));
  EXPECT_EQ(cli.run({"delete-device", "a.xml", "Nothing"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Device 'Nothing' not found\n"}));
}

TEST(CliMessages, LoadReport_GoesToStandardErrorAndChangesNoExitCode) {
  const Cli cli;
  cli.sample("good/positions-without-data.xml", "a.xml");
  const std::string report =
      "kelmar-cli: a.xml: not kept: Request at Requests/Request, line 41: "
      "RequestItem.loadXml error : Name not defined\n"
      "kelmar-cli: a.xml: not kept: Position Nowhere at "
      "Requests/Request[DataRead.State]/Received/DataItem[Nowhere], line 50: Data name 'Nowhere' "
      "not found, request : DataRead.State\n"
      "kelmar-cli: a.xml: not kept: Position Speed at "
      "Requests/Request[DataRead.State]/Received/DataItem[Speed], line 51: Duplicate Data, a data "
      "can be used only one time in the same request\n"
      "kelmar-cli: a.xml: not kept: Flag Nowhere at Devices/Device[Speed "
      "sensor]/Test[1]/StoredFlag, line 56: Data 'Nowhere' doesn't exist, remove from StoredFlag "
      "list\n";
  const CliResult result = cli.run({"dump", "a.xml"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, report);
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}), (CliResult{0, "", report}));
  EXPECT_EQ(cli.run({"save", "b.xml"}), (CliResult{0, "", ""})) << "the report is about a load";
}

TEST(CliMessages, LoadReport_IsToldForAFailedLoadToo) {
  const Cli cli;
  std::string text = bytesOf(KELMAR_TEST_DATA "/good/positions-without-data.xml");
  const std::string attribute = " Supplier=\"OKN\"";
  ASSERT_NE(text.find(attribute), std::string::npos);
  text.erase(text.find(attribute), attribute.size());
  cli.folder().write("a.xml", text);
  const CliResult result = cli.run({"show", "a.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("kelmar-cli: a.xml: error 91: Object not set"), std::string::npos)
      << result;
  EXPECT_NE(result.err.find("kelmar-cli: a.xml: not kept: Position Nowhere at "), std::string::npos)
      << result;
}

TEST(CliMessages, Notes_AreOnlyThereWhenAskedFor) {
  const Cli cli;
  cli.sample("good/positions-without-data.xml", "a.xml");
  EXPECT_EQ(cli.run({"show", "a.xml"}).err.find(": note: "), std::string::npos);
  const CliResult result = cli.run({"show", "-v", "a.xml"});
  EXPECT_NE(result.err.find("kelmar-cli: a.xml: note: Loading url : a.xml [OmnikorDatabase]\n"),
            std::string::npos)
      << result;
  EXPECT_NE(result.err.find("kelmar-cli: a.xml: note: Data 'Nowhere' doesn't exist, remove from "
                            "StoredFlag list [TestItem.LoadXml]\n"),
            std::string::npos)
      << result;
}

TEST(CliMessages, ControlCharacters_NeverReachTheTerminal) {
  const Cli cli;
  const std::string name = "a\033[31m\n\tb\xC2\x9B"
                           "c.xml";
  const CliResult result = cli.run({"show", name});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.err.find("kelmar-cli: a [31m  b c.xml: error 1: "), 0u) << result;
  EXPECT_EQ(result.err.find_first_of("\033\t"), std::string::npos);
  EXPECT_EQ(result.err.find('\n'), result.err.size() - 1);
}

TEST(CliSiblingTool, File_IsNotOpenedUnlessToldSo) {
  const Cli cli;
  cli.sample("good/sibling-tool.xml", "a.xml");
  for (const char* command : {"show", "dump"}) {
    EXPECT_EQ(cli.run({command, "a.xml"}),
              (CliResult{1, "",
                         "kelmar-cli: a.xml: error 2: Bad xml file, Reason=\"This Omnikor database "
                         "was exported from QVR Tool, please used QVR to change it\" "
                         "[OmnikorDatabase.ImportUceFromXml]\n"}));
    const CliResult opened = cli.run({command, "a.xml", "--yes"});
    EXPECT_EQ(opened.code, 0) << opened;
    EXPECT_NE(opened.out, "");
    EXPECT_EQ(opened.err, "");
  }
}

TEST(CliSiblingTool, EveryWritingCommand_IsRefusedBeforeAnythingElse) {
  const Cli cli;
  const std::string file = cli.sample("good/sibling-tool.xml", "a.xml");
  const std::string before = bytesOf(file);
  for (std::vector<std::string> words : writing) {
    words.push_back("--yes");
    const CliResult refusal{
        1, "",
        "kelmar-cli: a.xml: error 2: Save functionalities are desactivated for QVR databases\n"};
    EXPECT_EQ(cli.run(words), refusal) << words[0];
    words.insert(words.end(), {"-o", "b.xml"});
    EXPECT_EQ(cli.run(words), refusal) << words[0];
  }
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_FALSE(fs::exists(cli.file("b.xml")));
  EXPECT_FALSE(fs::exists(file + ".bak"));
}

TEST(CliFailedLoad, EveryWritingCommand_WritesNothing) {
  const Cli cli;
  const std::string file = loadThatFailsAtTheEnd(cli);
  const std::string before = bytesOf(file);
  for (std::vector<std::string> words : writing) {
    EXPECT_EQ(cli.run(words).code, 1) << words[0];
    words.insert(words.end(), {"-o", "b.xml"});
    const CliResult result = cli.run(words);
    EXPECT_EQ(result.code, 1) << words[0];
    EXPECT_EQ(result.err.find("kelmar-cli: a.xml: error 91: "), 0u) << result;
  }
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_FALSE(fs::exists(cli.file("b.xml")));
  EXPECT_FALSE(fs::exists(file + ".bak"));
}

TEST(CliFailedLoad, DumpAndShow_PrintNothingOfIt) {
  const Cli cli;
  loadThatFailsAtTheEnd(cli);
  EXPECT_EQ(cli.run({"dump", "a.xml"}).out, "");
  EXPECT_EQ(cli.run({"show", "a.xml"}).out, "");
  EXPECT_EQ(cli.run({"uses", "a.xml", "Speed"}).out, "");
}

TEST(CliFailedLoad, FilesThatAreNoXml_AreRefusedByOneLine) {
  const Cli cli;
  std::size_t count = 0;
  for (const auto& entry : fs::directory_iterator(KELMAR_TEST_DATA "/broken")) {
    // The others are well formed and load as far as they can.
    if (!entry.path().filename().string().starts_with("xml-")) continue;
    const CliResult result = cli.run({"show", entry.path().string()});
    EXPECT_EQ(result.code, 1) << entry << result;
    EXPECT_EQ(result.err.find("kelmar-cli: " + entry.path().string() + ": error "), 0u) << result;
    ++count;
  }
  EXPECT_GT(count, 20u);
}

TEST(CliOutput, FullDisk_IsToldAndFails) {
  Cli cli;
  cli.sample("good/all-of-the-target.xml", "a.xml");
  cli.redirections = ">/dev/full";
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"dump", "a.xml"}, {"show", "a.xml"}, {"uses", "a.xml", "Speed"}, {"--help"}}) {
    EXPECT_EQ(
        cli.run(words),
        (CliResult{1, "", "kelmar-cli: standard output: error 75: No space left on device\n"}));
  }
}

TEST(CliOutput, ClosedOutput_IsToldAndFails) {
  Cli cli;
  cli.sample("good/all-of-the-target.xml", "a.xml");
  cli.redirections = ">&-";
  EXPECT_EQ(cli.run({"dump", "a.xml"}),
            (CliResult{1, "", "kelmar-cli: standard output: error 75: Bad file descriptor\n"}));
  EXPECT_EQ(cli.run({"save", "a.xml"}), (CliResult{0, "", ""})) << "it prints nothing";
}

TEST(CliOutput, ClosedErrors_AreNeverWrittenIntoAFile) {
  Cli cli;
  cli.sample("good/positions-without-data.xml", "a.xml");
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}).code, 0);
  cli.redirections = "<&- >&- 2>&-";
  EXPECT_EQ(cli.run({"save", "-v", "a.xml", "-o", "c.xml"}).code, 0);
  EXPECT_EQ(bytesOf(cli.file("c.xml")), bytesOf(cli.file("b.xml")));
}

TEST(CliOutput, ReaderThatHasGone_EndsTheProgramQuietly) {
  const Cli cli;
  const std::string file =
      std::string(KELMAR_SITE) + "/vehicles/Tervane Kobalt 4/Network/Central_gateway.xml";
  const CliResult result =
      cli.shell("{ kelmar-cli dump '" + file + "'; echo \"code $?\" >&2; } | head -n 1");
  EXPECT_EQ(result.out, "{\ncode 1\n");
}

} // namespace
} // namespace kelmar
