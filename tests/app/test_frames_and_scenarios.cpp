// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"
#include "app/json_reader.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

using support::bytesOf;
using support::Cli;
using support::CliResult;
using support::Json;
using support::readJson;

namespace fs = std::filesystem;

const std::string longText = "The file reaches over 65537 bytes, but a request holds 4095 at most.";

class CliFrames : public testing::Test {
 protected:
  CliFrames() { cli.sample("cli/model.xml", "a.xml"); }

  Json request(const std::string& name, const std::string& file = "a.xml") {
    const Json root = readJson(cli.run({"dump", file}).out);
    for (const Json& each : root["Requests"].items)
      if (each["requestName"].text == name) return each;
    ADD_FAILURE() << "no request " << name;
    return {};
  }

  Cli cli;
};

TEST_F(CliFrames, HexExport_WritesTheSentBytes) {
  const std::string bytes = request("Read")["RequestBytes"].text;
  EXPECT_EQ(cli.run({"hex-export", "a.xml", "READ", "out.hex"}), (CliResult{0, "", ""}));
  const std::string text = bytesOf(cli.file("out.hex"));
  EXPECT_TRUE(text.starts_with(":020000040000FA\r\n:")) << text;
  EXPECT_NE(text.find("000000" + bytes), std::string::npos) << text;
  EXPECT_TRUE(text.ends_with("\r\n:00000001FF")) << text;
}

TEST_F(CliFrames, HexExport_NeverWritesOverTheEcuFile) {
  const std::string before = bytesOf(cli.file("a.xml"));
  fs::create_symlink("a.xml", cli.file("link.hex"));
  for (const std::string out : {"a.xml", "./a.xml", "link.hex"})
    EXPECT_EQ(cli.run({"hex-export", "a.xml", "Read", out}),
              (CliResult{2, "", "kelmar-cli: OUT is the ECU file; see kelmar-cli --help\n"}))
        << out;
  EXPECT_EQ(cli.run({"rvt", "a.xml", "-o", "link.hex"}).code, 2);
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
}

TEST_F(CliFrames, HexExport_TellsWhatIsMissing) {
  EXPECT_EQ(cli.run({"hex-export", "a.xml", "Nothing", "out.hex"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Request 'Nothing' not found\n"}));
  EXPECT_EQ(
      cli.run({"hex-export", "a.xml", "Read", "none/out.hex"}),
      (CliResult{1, "", "kelmar-cli: a.xml: error 75: none/out.hex: No such file or directory\n"}));
  EXPECT_EQ(cli.run({"hex-export", "gone.xml", "Read", "out.hex"}).code, 1);
  EXPECT_FALSE(fs::exists(cli.file("out.hex")));
  EXPECT_EQ(cli.run({"hex-export", "a.xml", "Read"}).code, 2);
}

TEST_F(CliFrames, HexImport_ReplacesTheSentBytesAndKeepsABackup) {
  const std::string before = bytesOf(cli.file("a.xml"));
  cli.folder().write("in.hex", ":020000003E00C0\r\n:00000001FF");
  EXPECT_EQ(cli.run({"hex-import", "a.xml", "Read", "in.hex"}), (CliResult{0, "", ""}));
  EXPECT_EQ(request("Read")["RequestBytes"].text, "3E00");
  EXPECT_EQ(bytesOf(cli.file("a.xml.bak")), before);
}

TEST_F(CliFrames, HexImport_OfAnExportChangesNothing) {
  cli.run({"save", "a.xml", "-o", "same.xml"});
  for (const char* name : {"Read", "Write", "Bare"}) {
    ASSERT_EQ(cli.run({"hex-export", "a.xml", name, "x.hex"}).code, 0);
    const CliResult result = cli.run({"hex-import", "a.xml", name, "x.hex", "-o", "b.xml"});
    if (request(name)["RequestBytes"].text.empty()) {
      EXPECT_EQ(result.err, "kelmar-cli: a.xml: error 1000: Empty file [importFromH86File]\n");
      continue;
    }
    EXPECT_EQ(result, (CliResult{0, "", ""})) << name;
    EXPECT_EQ(bytesOf(cli.file("b.xml")), bytesOf(cli.file("same.xml"))) << name;
  }
}

TEST_F(CliFrames, HexImport_TellsTheBoxOfLineEnds) {
  cli.folder().write("in.hex", ":020000003e00c0\n:00000001ff\n");
  EXPECT_EQ(
      cli.run({"hex-import", "a.xml", "Read", "in.hex"}),
      (CliResult{0, "", "kelmar-cli: box: Kelmar: File should use CRLF as line delimiter.\n"}));
  EXPECT_EQ(request("Read")["RequestBytes"].text, "3E00");
}

TEST_F(CliFrames, HexImport_ThatFailsChangesNothing) {
  const std::string before = bytesOf(cli.file("a.xml"));
  cli.folder().write("in.hex", ":0400000300000000F9\r\n");
  EXPECT_EQ(cli.run({"hex-import", "a.xml", "Read", "in.hex"}),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 1000: Unsupported record type 3H at line 1 "
                       "[importFromH86File]\n"}));
  EXPECT_EQ(cli.run({"hex-import", "a.xml", "Read", "gone.hex"}),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 1000: gone.hex: No such file or directory "
                       "[importFromH86File]\n"}));
  EXPECT_EQ(cli.run({"hex-import", "a.xml", "Nothing", "in.hex"}).code, 1);
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_FALSE(fs::exists(cli.file("a.xml.bak")));
}

TEST_F(CliFrames, HexImport_OfAFarAddressIsRefusedInTheWordsOfTheSite) {
  cli.folder().write("in.hex", ":020000040001F9\r\n:0100000001FE\r\n");
  EXPECT_EQ(cli.run({"hex-import", "a.xml", "Read", "in.hex", "--site", KELMAR_SITE}).err,
            "kelmar-cli: a.xml: error 1000: " + longText + " [importFromH86File]\n");
}

TEST_F(CliFrames, Rvt_TakesTheNamedRequestsInTheOrderOfTheList) {
  EXPECT_EQ(cli.run({"rvt", "a.xml", "Write", "read", "Write", "-o", "out.xml"}),
            (CliResult{0, "", ""}));
  const std::string text = bytesOf(cli.file("out.xml"));
  const std::size_t read = text.find("<request name=\"Read\""),
                    write = text.find("<request name=\"Write\"");
  EXPECT_LT(read, write);
  EXPECT_NE(write, std::string::npos);
  EXPECT_EQ(text.find("<request name=\"Bare\""), std::string::npos);
  const std::size_t extended = text.find("<test name=\"All services in session $C0\"");
  EXPECT_GT(text.find("<request name=\"Write\"", write + 1), extended)
      << "once a session, however often it is named";
}

TEST_F(CliFrames, Rvt_TakesAllRequestsWithoutNames) {
  cli.folder().write("out.xml", "old");
  EXPECT_EQ(cli.run({"rvt", "a.xml", "-o", "out.xml"}), (CliResult{0, "", ""}));
  const std::string text = bytesOf(cli.file("out.xml"));
  const Json root = readJson(cli.run({"dump", "a.xml"}).out);
  for (const Json& each : root["Requests"].items)
    EXPECT_NE(text.find("<request name=\"" + each["requestName"].text + "\""), std::string::npos);
}

TEST_F(CliFrames, Rvt_NeedsItsOutputAndKnownNames) {
  EXPECT_EQ(cli.run({"rvt", "a.xml"}),
            (CliResult{2, "", "kelmar-cli: rvt needs the option -o OUT; see kelmar-cli --help\n"}));
  EXPECT_EQ(cli.run({"rvt", "a.xml", "-o", ""}).code, 2);
  EXPECT_EQ(cli.run({"rvt", "a.xml", "Read", "Nothing", "-o", "out.xml"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Request 'Nothing' not found\n"}));
  EXPECT_FALSE(fs::exists(cli.file("out.xml")));
}

TEST_F(CliFrames, NormalizeReplies_CountsWhatItChanges) {
  ASSERT_EQ(cli.run({"normalize-replies", "a.xml", "-o", "once.xml"}).code, 0);
  EXPECT_EQ(cli.run({"normalize-replies", "once.xml", "-o", "twice.xml"}),
            (CliResult{0, "0 reply templates changed\n", ""}));
  EXPECT_EQ(cli.run({"dump", "once.xml"}), cli.run({"dump", "twice.xml"}));
  cli.folder().write("in.hex", ":0200000021815C\r\n");
  ASSERT_EQ(cli.run({"hex-import", "once.xml", "Read", "in.hex"}).code, 0);
  EXPECT_EQ(cli.run({"normalize-replies", "once.xml"}),
            (CliResult{0, "1 reply templates changed\n", ""}));
  EXPECT_TRUE(request("Read", "once.xml")["ReplyBytes"].text.starts_with("6181"));
}

TEST_F(CliFrames, NormalizeReplies_PrintsNothingWhenItCannotSave) {
  const CliResult result = cli.run({"normalize-replies", "a.xml", "-o", "none/b.xml"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "");
}

} // namespace
} // namespace kelmar
