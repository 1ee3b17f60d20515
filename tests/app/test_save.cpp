// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"
#include "xml/encoding.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

namespace kelmar {
namespace {

using support::bytesOf;
using support::Cli;
using support::CliResult;

namespace fs = std::filesystem;

constexpr char sample[] = "good/all-of-the-target.xml";

std::string sampleBytes() {
  return bytesOf(std::string(KELMAR_TEST_DATA "/") + sample);
}

/// The names in the folder of the program, sorted, but for the site.
std::vector<std::string> namesIn(const Cli& cli) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(cli.folder().path()))
    if (entry.path().filename() != "site") names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// An older file, whose saved form differs.
std::string olderFile(const Cli& cli) {
  return cli.sample("good/indented.xml", "a.xml");
}

using Names = std::vector<std::string>;

TEST(CliSave, Samples_ComeOutAsTheListOfSamplesSays) {
  Cli cli;
  std::ifstream list(KELMAR_TEST_DATA "/good/index.txt");
  std::string line;
  std::size_t same = 0, changed = 0;
  while (std::getline(list, line)) {
    std::istringstream cells(line);
    std::string name, fate, encoding;
    std::getline(cells, name, '\t');
    std::getline(cells, fate, '\t');
    std::getline(cells, encoding, '\t');
    if (fate == "refused") continue;
    const std::string file = cli.sample("good/" + name, "a.xml");
    const CliResult result = cli.run({"save", file, "-o", "b.xml", "--encoding", encoding});
    ASSERT_EQ(result.code, 0) << name << result;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(bytesOf(cli.file("b.xml")) == bytesOf(file), fate == "same") << name;
    ++(fate == "same" ? same : changed);
  }
  EXPECT_GT(same, 10u);
  EXPECT_GT(changed, 5u);
}

TEST(CliSave, ToAnotherFile_LeavesTheFirstAloneAndMakesNoBackup) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}), (CliResult{0, "", ""}));
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_NE(bytesOf(cli.file("b.xml")), before);
  cli.folder().write("b.xml", "anything");
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}).code, 0);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml", "b.xml"}));
}

TEST(CliSave, InPlace_KeepsTheFileAsItWasBesideIt) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  cli.folder().write("a.xml.bak", "an older backup");
  EXPECT_EQ(cli.run({"save", "a.xml"}), (CliResult{0, "", ""}));
  EXPECT_EQ(bytesOf(file + ".bak"), before);
  EXPECT_NE(bytesOf(file), before);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml", "a.xml.bak"})) << "nothing temporary stays";
}

TEST(CliSave, ToTheSameFileByAnotherName_IsInPlace) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "./a.xml"}).code, 0);
  EXPECT_EQ(bytesOf(file + ".bak"), before);
}

TEST(CliSave, SymbolicLinkAndMode_AreKept) {
  const Cli cli;
  const std::string file = olderFile(cli);
  fs::create_symlink("a.xml", cli.file("link.xml"));
  ::chmod(file.c_str(), 0640);
  EXPECT_EQ(cli.run({"save", "link.xml"}).code, 0);
  EXPECT_TRUE(fs::is_symlink(cli.file("link.xml")));
  EXPECT_EQ(modeOf(file), 0640u);
  EXPECT_EQ(bytesOf(cli.file("link.xml")), bytesOf(file));
  EXPECT_TRUE(fs::exists(cli.file("link.xml.bak")));
}

TEST(CliSave, Date_IsThatOfTheClock) {
  Cli cli;
  cli.sample(sample, "a.xml");
  cli.environment["KELMAR_CLOCK"] = "2027-12-31T23:59";
  ASSERT_EQ(cli.run({"save", "a.xml"}).code, 0);
  EXPECT_NE(bytesOf(cli.file("a.xml")).find(" date=\"2027-12-31T23:59\"/>"), std::string::npos);
}

TEST(CliSave, Encoding_IsThatOfTheOptionThenOfTheSite) {
  Cli cli;
  cli.sample("good/latin1.xml", "a.xml");
  const auto encodingOf = [&](const std::string& name) {
    const std::string head = bytesOf(cli.file(name)).substr(0, 60);
    const auto start = head.find("encoding=\"") + 10;
    return head.substr(start, head.find('"', start) - start);
  };
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}).code, 0);
  EXPECT_EQ(encodingOf("b.xml"), "UTF-8") << "the site says nothing";
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml", "--encoding", "WINDOWS-1252"}).code, 0);
  EXPECT_EQ(encodingOf("b.xml"), "windows-1252");
  cli.folder().write("other/parameters.xml",
                     "<site><xmlEncoding>ISO-8859-1</xmlEncoding><xmlStyleSheet>my.xsl"
                     "</xmlStyleSheet><addressingFile>a.xml</addressingFile><dataSets><dataSet "
                     "label=\"A\" folder=\"v\"/></dataSets></site>");
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml", "--site", "other"}).code, 0);
  EXPECT_EQ(encodingOf("b.xml"), "ISO-8859-1");
  EXPECT_NE(bytesOf(cli.file("b.xml")).find("<?xml-stylesheet type=\"text/xsl\" href=\"my.xsl\"?>"),
            std::string::npos);
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml", "--site", "other", "--encoding=UTF-8"}).code,
            0);
  EXPECT_EQ(encodingOf("b.xml"), "UTF-8");
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml", "--encoding=UTF-16"}).code, 0);
  EXPECT_EQ(bytesOf(cli.file("b.xml")).substr(0, 4), std::string("\xFF\xFE<\0", 4));
}

TEST(CliSave, EmptyStyleSheetOfTheSite_LeavesTheInstructionOut) {
  const Cli cli;
  cli.sample(sample, "a.xml");
  cli.folder().write("other/parameters.xml",
                     "<site><xmlStyleSheet/><addressingFile>a.xml</addressingFile><dataSets>"
                     "<dataSet label=\"A\" folder=\"v\"/></dataSets></site>");
  ASSERT_EQ(cli.run({"save", "a.xml", "--site", "other"}).code, 0);
  EXPECT_EQ(bytesOf(cli.file("a.xml")).find("xml-stylesheet"), std::string::npos);
}

TEST(CliSave, Catalogue_IsWrittenInTheLanguageOfTheSite) {
  Cli cli;
  cli.sample(sample, "a.xml");
  cli.environment["KELMAR_LANG"] = "fr";
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}).code, 0);
  EXPECT_NE(bytesOf(cli.file("b.xml")).find("Name=\"10 pannes DTC dans les trames APV\""),
            std::string::npos);
  ASSERT_EQ(cli.run({"save", "a.xml", "-o", "b.xml", "--lang=en"}).code, 0);
  EXPECT_EQ(bytesOf(cli.file("b.xml")), sampleBytes());
}

TEST(CliSave, SiteThatCannotBeRead_IsToldAndNothingIsWritten) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  const CliResult gone = cli.run({"save", "a.xml", "--site", "gone"});
  EXPECT_EQ(gone.code, 1);
  EXPECT_EQ(gone.err.find("kelmar-cli: a.xml: error 1: "), 0u) << gone;
  EXPECT_NE(gone.err.find(cli.file("gone") + ": there is no such folder"), std::string::npos)
      << gone;
  cli.folder().write("broken/parameters.xml", "<site>");
  EXPECT_EQ(cli.run({"save", "a.xml", "--site", "broken", "-o", "b.xml"}).code, 1);
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml", "broken"}));
  EXPECT_EQ(cli.run({"show", "a.xml", "--site", "gone"}).code, 0) << "showing needs no site";
}

TEST(CliSave, WithoutAnySite_TheDefaultsHold) {
  Cli cli;
  cli.sample(sample, "a.xml");
  cli.environment.erase("KELMAR_SITE");
  // Out of its source tree, which has a site.
  const std::string program = cli.file("kelmar-cli");
  fs::copy_file(support::cliProgram(), program);
  const CliResult result = cli.shell("./kelmar-cli save a.xml -o b.xml");
  EXPECT_EQ(result.code, 0) << result;
  EXPECT_EQ(bytesOf(cli.file("b.xml")), sampleBytes());
}

TEST(CliSave, WhatTheEncodingLacks_FailsByNameAndWritesNothing) {
  const Cli cli;
  std::string text = sampleBytes();
  text.replace(text.find("  indented"), 10, "5 €");
  const std::string file = cli.folder().write("a.xml", text);
  cli.folder().write("a.xml.bak", "an older backup");
  const CliResult result = cli.run({"save", "a.xml", "--encoding", "ISO-8859-1"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("U+20AC cannot be written in ISO-8859-1 [ExportUceToXml]\n"),
            std::string::npos)
      << result;
  EXPECT_EQ(bytesOf(file), text);
  EXPECT_EQ(bytesOf(file + ".bak"), "an older backup") << "nothing stood against it but the ECU";
}

TEST(CliSave, ReadOnlyFile_IsRefusedByItsModeWhoeverAsks) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  ::chmod(file.c_str(), 0444);
  const CliResult refusal{1, "",
                          "kelmar-cli: a.xml: error 75: File 'a.xml' is read only. Unprotect it or "
                          "choose a new name.\n"};
  EXPECT_EQ(cli.run({"save", "a.xml"}), refusal);
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml"}));
  cli.folder().write("b.xml", "anything");
  ::chmod(cli.file("b.xml").c_str(), 0555);
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}).err,
            "kelmar-cli: b.xml: error 75: File 'b.xml' is read only. Unprotect it or choose a new "
            "name.\n");
  EXPECT_EQ(bytesOf(cli.file("b.xml")), "anything");
}

TEST(CliSave, ReadOnlyFolder_FailsForAPlainUserAndLeavesTheFileWhole) {
  Cli cli;
  cli.asPlainUser = true;
  const std::string file = olderFile(cli), before = bytesOf(file);
  ::chmod(file.c_str(), 0666);
  ::chmod(cli.folder().path().c_str(), 0555);
  EXPECT_EQ(cli.run({"save", "a.xml"}),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 75: The backup 'a.xml.bak' cannot be written, so "
                       "nothing is saved\n"}));
  EXPECT_EQ(cli.run({"save", "a.xml", "-o", "b.xml"}),
            (CliResult{1, "",
                       "kelmar-cli: b.xml: error 75: File 'b.xml' badly saved. Check disk size, "
                       "name, ...\n"}));
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml"}));
}

TEST(CliSave, DiskError_FailsAndLeavesWhatWasThere) {
  Cli cli;
  const std::string file = cli.sample(sample, "a.xml"), before = bytesOf(file);
  cli.folder().write("b.xml", "before");
  cli.largestFile = before.size() / 2;
  const CliResult result = cli.run({"save", "-v", "a.xml", "-o", "b.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.err,
            "kelmar-cli: a.xml: note: Loading url : a.xml [OmnikorDatabase]\n"
            "kelmar-cli: a.xml: note: Save error (number : 75) [ExportParametersToXml]\n"
            "kelmar-cli: b.xml: error 75: File 'b.xml' badly saved. Check disk size, name, ...\n");
  EXPECT_EQ(bytesOf(cli.file("b.xml")), "before");
  EXPECT_EQ(cli.run({"delete-data", "a.xml", "Speed"}).code, 1);
  EXPECT_EQ(bytesOf(file), before);
  EXPECT_EQ(namesIn(cli), (Names{"a.xml", "b.xml"}));
}

TEST(CliSave, TargetThatCannotBeAFile_IsTold) {
  const Cli cli;
  cli.sample(sample, "a.xml");
  fs::create_directory(cli.file("folder"));
  for (const char* target : {"folder", "gone/b.xml", "a.xml/b.xml"}) {
    EXPECT_EQ(cli.run({"save", "a.xml", "-o", target}),
              (CliResult{1, "",
                         "kelmar-cli: " + std::string(target) + ": error 75: File '" + target +
                             "' badly saved. Check disk size, name, ...\n"}));
  }
}

TEST(CliSave, WithoutItsBackup_NothingIsSaved) {
  const Cli cli;
  const std::string file = olderFile(cli), before = bytesOf(file);
  fs::create_directory(file + ".bak");
  EXPECT_EQ(cli.run({"save", "a.xml"}),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 75: The backup 'a.xml.bak' cannot be written, so "
                       "nothing is saved\n"}));
  EXPECT_EQ(bytesOf(file), before);
}

} // namespace
} // namespace kelmar
