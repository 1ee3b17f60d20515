// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"
#include "base/version.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using support::Cli;
using support::CliResult;

using Words = std::vector<std::string>;

std::string version() {
  return std::string("kelmar-cli ") + applicationVersion + "\n";
}

TEST(CliCommandLine, Version_GoesToStandardOutput) {
  EXPECT_EQ(Cli().run({"--version"}), (CliResult{0, version(), ""}));
}

TEST(CliCommandLine, Help_NamesEveryCommandAndOptionAndTheExitCodes) {
  const CliResult result = Cli().run({"--help"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  for (const char* word : {"show FILE",
                           "dump FILE",
                           "save FILE",
                           "uses FILE NAME",
                           "rename-data FILE OLD NEW",
                           "rename-request FILE OLD NEW",
                           "rename-device FILE OLD NEW",
                           "delete-data FILE NAME",
                           "delete-request FILE NAME",
                           "delete-device FILE NAME",
                           "find --site DIR --function N",
                           "--protocol",
                           "--diag",
                           "--supplier",
                           "--soft",
                           "--version",
                           "-o OUT",
                           "--encoding NAME",
                           "--lang",
                           "--yes",
                           "-v",
                           "Exit codes: 0"})
    EXPECT_NE(result.out.find(word), std::string::npos) << word;
}

TEST(CliCommandLine, Help_IsGivenBehindACommandToo) {
  const Cli cli;
  EXPECT_EQ(cli.run({"dump", "--help"}), cli.run({"--help"}));
  EXPECT_EQ(cli.run({"find", "--help"}), cli.run({"--help"}));
}

TEST(CliCommandLine, WrongUse_EndsWithTwoAndOneLine) {
  struct Row {
    Words words;
    const char* complaint;
  };
  const Row table[] = {
      {{}, "no command"},
      {{"frobnicate"}, "unknown command frobnicate"},
      {{"SHOW", "a.xml"}, "unknown command SHOW"},
      {{"show"}, "usage: kelmar-cli show FILE"},
      {{"show", "a.xml", "b.xml"}, "usage: kelmar-cli show FILE"},
      {{"uses", "a.xml"}, "usage: kelmar-cli uses FILE NAME"},
      {{"rename-data", "a.xml", "Old"}, "usage: kelmar-cli rename-data FILE OLD NEW [-o OUT]"},
      {{"rename-data", "a.xml", "Old", ""}, "the new name is empty"},
      {{"rename-request", "a.xml", "Old", ""}, "the new name is empty"},
      {{"rename-device", "a.xml", "Old", ""}, "the new name is empty"},
      {{"show", "a.xml", "--frobnicate"}, "unknown option --frobnicate"},
      {{"show", "a.xml", "-x"}, "unknown option -x"},
      {{"show", "a.xml", "-o", "b.xml"}, "unknown option -o"},
      {{"dump", "a.xml", "--encoding", "UTF-8"}, "unknown option --encoding"},
      {{"show", "a.xml", "--yes=1"}, "option --yes takes no value"},
      {{"save", "a.xml", "-o"}, "option -o needs a value"},
      {{"save", "a.xml", "-o", ""}, "option -o needs a value"},
      {{"save", "a.xml", "--encoding"}, "option --encoding needs a value"},
      {{"save", "a.xml", "--encoding", "UTF-7"},
       "option --encoding: 'UTF-7' is not among UTF-8, UTF-16, ISO-8859-1 and windows-1252"},
      {{"save", "a.xml", "--encoding="},
       "option --encoding: '' is not among UTF-8, UTF-16, ISO-8859-1 and windows-1252"},
      {{"find"}, "option --function is missing"},
      {{"find", "a.xml", "--function", "1"},
       "usage: kelmar-cli find --site DIR --function N [--protocol N --diag N --supplier S "
       "--soft S --version S]"},
      {{"find", "--function", "abc"}, "option --function: 'abc' is no number of 32 bits"},
      {{"find", "--function", ""}, "option --function: '' is no number of 32 bits"},
      {{"find", "--function", "1", "--protocol", "1x"},
       "option --protocol: '1x' is no number of 32 bits"},
      {{"find", "--function", "1", "--diag", "99999999999"},
       "option --diag: '99999999999' is no number of 32 bits"},
      {{"find", "--function", "1", "--version"}, "option --version needs a value"},
  };
  const Cli cli;
  for (const Row& row : table) {
    EXPECT_EQ(cli.run(row.words), (CliResult{2, "",
                                             std::string("kelmar-cli: ") + row.complaint +
                                                 "; see kelmar-cli --help\n"}));
  }
}

TEST(CliCommandLine, WrongUse_IsToldBeforeTheFileIsLooked) {
  const Cli cli;
  EXPECT_EQ(cli.run({"rename-data", "not-there.xml", "a", ""}).code, 2);
  EXPECT_EQ(cli.run({"save", "not-there.xml", "--encoding", "EBCDIC"}).code, 2);
}

TEST(CliCommandLine, Options_StandAnywhereBehindTheCommandInEitherForm) {
  const Cli cli;
  const std::string file = cli.sample("good/empty.xml");
  const CliResult expected = cli.run({"show", file});
  ASSERT_EQ(expected.code, 0);
  EXPECT_EQ(cli.run({"show", "--yes", file}), expected);
  EXPECT_EQ(cli.run({"show", "--lang", "en", file}), expected);
  EXPECT_EQ(cli.run({"show", file, "--lang=en"}), expected);
}

TEST(CliCommandLine, TwoDashes_EndTheOptions) {
  const Cli cli;
  cli.sample("good/empty.xml", "-v");
  const CliResult result = cli.run({"show", "--", "-v"});
  EXPECT_EQ(result.code, 0) << result;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(cli.run({"save", "-o", "-w", "--", "-v"}).code, 0);
  EXPECT_TRUE(std::filesystem::exists(cli.file("-w")));
}

TEST(CliCommandLine, OneDash_IsAFileNameLikeAnyOther) {
  const Cli cli;
  cli.sample("good/empty.xml", "-");
  EXPECT_EQ(cli.run({"show", "-"}).code, 0);
}

TEST(CliCommandLine, FileAddress_IsTakenForAFile) {
  const Cli cli;
  const std::string file = cli.sample("good/empty.xml", "with blank.xml");
  const std::string address = "file://" + cli.folder().path().string() + "/with%20blank.xml";
  EXPECT_EQ(cli.run({"show", address}).out, cli.run({"show", file}).out);
  EXPECT_EQ(cli.run({"save", address}).code, 0);
  EXPECT_TRUE(std::filesystem::exists(file + ".bak"));
}

TEST(CliCommandLine, HttpAddress_IsRefusedWithoutAnyNetwork) {
  const CliResult result = Cli().run({"show", "http://127.0.0.1:9/a.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.find("kelmar-cli: http://127.0.0.1:9/a.xml: error 1: Bad xml file, Reason="),
            0u)
      << result;
}

TEST(CliProgram, LinksNothingOfAWindowSystem) {
  Cli cli;
  const CliResult result = cli.shell("ldd '" + support::cliProgram() + "'");
  ASSERT_EQ(result.code, 0) << result;
  EXPECT_NE(result.out.find("libexpat"), std::string::npos);
  for (const char* library : {"Qt", "X11", "xcb", "wayland", "GL"})
    EXPECT_EQ(result.out.find(library), std::string::npos) << library;
}

TEST(CliProgram, RunsWithoutAnyEnvironment) {
  Cli cli;
  const std::string file = cli.sample("good/empty.xml");
  for (auto variable = cli.environment.begin(); variable != cli.environment.end();)
    variable = variable->first.ends_with("_OPTIONS") ? std::next(variable)
                                                     : cli.environment.erase(variable);
  EXPECT_EQ(cli.run({"show", file}).code, 0);
}

} // namespace
} // namespace kelmar
