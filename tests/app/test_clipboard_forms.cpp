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

const std::string dataHeader = "'Name\tMnemo\tNumber bits\tsigne\tunit\tcoef A\tcoef B\tcoef C\t"
                               "Description\tNumeric|List|Ascii|Hexa\tFormat\r\n";
const std::string smallLine = "Small\t\t8\t0\t\t0.00001\t0\t1\t\tNumeric\t\r\n";
const std::string keyLines = "Key\t\t1\t0\t\t1\t0\t1\t\tList\t\r\n'\tvalue\tlabel\r\n"
                             "\t1\tOn\r\n\t0\tOff\r\n";
const std::string updateSpeed = "kelmar-cli: box: Confirm update: Data 'Speed' already exist\\n\\n"
                                "Yes = Update this data only\\nNo = Update all data without "
                                "confirmation\n";
const std::string updateKey =
    "kelmar-cli: box: Confirm update: Data 'Key' already exist\\n\\nYes = "
    "Update this data only\\nNo = Update all data without "
    "confirmation\n";
const std::string updateRead = "kelmar-cli: box: Confirm update: Request 'Read' already exists. Do "
                               "you want to update parameters ?\n";

/// The model sample in the file "a.xml".
class CliClipboard : public testing::Test {
 protected:
  CliClipboard() {
    cli.sample("cli/model.xml", "a.xml");
    cli.run({"save", "a.xml"}); // what a save does not keep is gone before
    fs::remove(cli.file("a.xml.bak"));
  }

  std::string dump(const std::string& file = "a.xml") { return cli.run({"dump", file}).out; }
  Json model(const std::string& file = "a.xml") { return readJson(dump(file)); }
  CliResult paste(const char* kind, const std::string& text, const std::string& answer = {}) {
    cli.folder().write("in.txt", text);
    std::vector<std::string> words = {"paste", "a.xml", kind, "-i", "in.txt"};
    if (!answer.empty()) words.insert(words.end(), {"--answer", answer});
    return cli.run(words);
  }
  /// The member of the list with that name.
  static Json named(const Json& items, const char* key, const std::string& name) {
    for (const Json& item : items.items)
      if (item[key].text == name) return item;
    ADD_FAILURE() << "no " << name;
    return {};
  }
  Json data(const std::string& name) { return named(model()["datas"], "dataName", name); }
  Json request(const std::string& name) { return named(model()["Requests"], "requestName", name); }
  std::string requestNames() {
    std::string names;
    const Json root = model();
    for (const Json& item : root["Requests"].items)
      names += item["requestName"].text + "|";
    return names;
  }

  Cli cli;
};

TEST_F(CliClipboard, CopyText_PrintsTheNamedDataInTheOrderOfTheList) {
  EXPECT_EQ(cli.run({"copy", "a.xml", "data", "small", "KEY", "Small", "--text"}),
            (CliResult{0, dataHeader + keyLines + smallLine, ""}));
}

TEST_F(CliClipboard, CopyText_WithoutNamesPrintsAll) {
  const CliResult all = cli.run({"copy", "a.xml", "data", "--text"});
  EXPECT_EQ(all.code, 0) << all;
  std::size_t at = 0;
  for (const char* name : {"\nKey\t", "\nSerial\t", "\nSmall\t", "\nSpeed\t", "\nWish\t"}) {
    EXPECT_NE(all.out.find(name, at), std::string::npos) << name;
    at = all.out.find(name, at);
  }
}

TEST_F(CliClipboard, CopyText_PrintsRequestsInTheOrderOfTheirList) {
  EXPECT_EQ(
      cli.run({"copy", "a.xml", "requests", "Write", "Read", "--text"}),
      (CliResult{0,
                 "'Name\tDM\tManual\tSend Bytes\tvariable\tLength\tShift\ttemplate\twithout\tplant"
                 "\tafter sales\tengineering\tsupplier\tcomment\r\n"
                 "Read\t1\t0\t2101\t0\t9\t2\t6101000000\t1\t0\t1\t1\t1\tfirst\r\n"
                 "'\tSend or Receive\tData Name\tStart byte\tOffset bit\tLittle Endian\tref\r\n"
                 "\tReceive\tSpeed\t3\t0\t1\t1\r\n"
                 "\tReceive\tKey\t5\t7\t0\t1\r\n"
                 "Write\t0\t1\t3B01FF\t1\t2\t0\t\t1\t1\t1\t1\t1\t\r\n"
                 "'\tSend or Receive\tData Name\tStart byte\tOffset bit\tLittle Endian\tref\r\n"
                 "\tSend\tWish\t3\t0\t0\t1\r\n",
                 ""}));
}

TEST_F(CliClipboard, CopyXml_PrintsADocumentOfTheKind) {
  const CliResult datas = cli.run({"copy", "a.xml", "data", "Key", "--xml"});
  EXPECT_TRUE(datas.out.starts_with("<Datas>\n<Data Name=\"Key\">\n")) << datas;
  EXPECT_TRUE(datas.out.ends_with("</Data>\n</Datas>")) << datas;
  const CliResult requests = cli.run({"copy", "a.xml", "requests", "Read", "--xml"});
  EXPECT_TRUE(requests.out.starts_with("<Requests Endian=\"Big\">")) << requests;
  EXPECT_NE(requests.out.find("<Data Name=\"Speed\">"), std::string::npos) << requests;
  EXPECT_NE(requests.out.find("<Request Name=\"Read\">"), std::string::npos) << requests;
  EXPECT_EQ(requests.out.find("\"Wish\""), std::string::npos) << requests;
}

TEST_F(CliClipboard, Copy_LeavesTheFileAlone) {
  const std::string before = bytesOf(cli.file("a.xml"));
  cli.run({"copy", "a.xml", "requests", "--xml"});
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_FALSE(fs::exists(cli.file("a.xml.bak")));
}

TEST_F(CliClipboard, CopyText_WarnsOfALineBreakInAComment) {
  std::string text = bytesOf(cli.file("a.xml"));
  text.replace(text.find("[first]"), 7, "[first\nsecond]");
  cli.folder().write("a.xml", text);
  EXPECT_EQ(cli.run({"copy", "a.xml", "requests", "Read", "--text"}).err,
            "kelmar-cli: a.xml: warning: A copied cell holds a line break or a tab: pasted back, "
            "it will not be the same.\n");
  EXPECT_EQ(cli.run({"copy", "a.xml", "requests", "Read", "--xml"}).err, "");
}

TEST_F(CliClipboard, Copy_OfAnUnknownNamePrintsNothing) {
  EXPECT_EQ(cli.run({"copy", "a.xml", "data", "Key", "Nothing", "--text"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Data 'Nothing' not found\n"}));
  EXPECT_EQ(cli.run({"copy", "a.xml", "requests", "Nothing", "--xml"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Request 'Nothing' not found\n"}));
}

TEST_F(CliClipboard, WrongUse_IsToldBeforeAnythingIsLoaded) {
  const auto use = [](const std::string& text) {
    return CliResult{2, "", "kelmar-cli: " + text + "; see kelmar-cli --help\n"};
  };
  const std::string both = "copy needs one of --text and --xml";
  EXPECT_EQ(cli.run({"copy", "gone.xml", "data"}), use(both));
  EXPECT_EQ(cli.run({"copy", "gone.xml", "data", "--text", "--xml"}), use(both));
  const std::string kinds = "what is copied or pasted is 'data' or 'requests', not 'devices'";
  EXPECT_EQ(cli.run({"copy", "gone.xml", "devices", "--text"}), use(kinds));
  EXPECT_EQ(cli.run({"paste", "gone.xml", "devices", "-i", "in.txt"}), use(kinds));
  EXPECT_EQ(cli.run({"paste", "gone.xml", "data"}), use("paste needs -i INPUT"));
  EXPECT_EQ(cli.run({"paste", "gone.xml", "data", "-i", "in.txt", "--answer", "maybe"}),
            use("option --answer is yes, no or cancel"));
}

TEST_F(CliClipboard, TextOfAllRequestsAndData_PastesIntoTheSameModel) {
  const std::string before = dump();
  for (const char* kind : {"data", "requests"}) {
    const std::string text = cli.run({"copy", "a.xml", kind, "--text"}).out;
    const CliResult result = paste(kind, text, "yes");
    EXPECT_EQ(result.code, 0) << result;
    EXPECT_EQ(result.out, kind == std::string("data") ? "'\r\n'\r\n" : "") << result;
  }
  // A sheet and the documentation of a value have no cell.
  std::string after = before;
  for (const char* lost : {"\"sheet\"", "\"more\""})
    after.replace(after.find(lost), std::string(lost).size(), "\"\"");
  EXPECT_EQ(dump(), after);
}

TEST_F(CliClipboard, XmlOfData_PastesUnderCopyNames) {
  const std::string xml = cli.run({"copy", "a.xml", "data", "Key", "--xml"}).out;
  for (const char* name : {"Copy Key", "Copy(0)Key", "Copy(1)Key"}) {
    EXPECT_EQ(paste("data", xml), (CliResult{0, "", ""}));
    EXPECT_EQ(data(name)["DataListes"][0]["libelle"].text, "On");
  }
}

TEST_F(CliClipboard, XmlOfRequests_PastesIntoAnotherFileWithItsData) {
  const std::string xml = cli.run({"copy", "a.xml", "requests", "Read", "--xml"}).out;
  cli.run({"delete-data", "a.xml", "Speed"});
  cli.run({"delete-request", "a.xml", "Write"});
  EXPECT_EQ(paste("requests", xml), (CliResult{0, "", ""}));
  EXPECT_EQ(requestNames(), "Read|Bare|Copy Read|");
  EXPECT_EQ(data("Speed")["Unite"].text, "rpm");
  const Json pasted = request("Copy Read");
  EXPECT_EQ(pasted["DataPositions"][0]["dataName"].text, "Speed");
  EXPECT_EQ(pasted["DataPositions"][0]["reference"].text, "true");
  EXPECT_EQ(pasted["DataPositions"][1]["reference"].text, "false")
      << "the reference of Key is in the request that was there";
}

TEST_F(CliClipboard, BoxesOfData_GetTheOneAnswer) {
  const std::string text = "Speed\tone\t12\r\nKey\ttwo\t4\r\nNew\tthree\t3\r\n";
  const std::string before = dump();
  EXPECT_EQ(paste("data", text, "cancel"), (CliResult{0, "", updateSpeed}));
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(paste("data", text, "no"), (CliResult{0, "", updateSpeed})) << "No is: all, unasked";
  EXPECT_EQ(data("Key")["Mnemo"].text, "two");
  EXPECT_EQ(data("New")["Mnemo"].text, "three");
  for (const char* answer : {"", "yes"})
    EXPECT_EQ(paste("data", text, answer).err.find(updateSpeed + updateKey), 0u)
        << "the first button";
}

TEST_F(CliClipboard, BoxesOfRequests_TakeCancelAsNo) {
  const std::string text = "Read\t0\t0\t2102\r\n";
  const std::string before = dump();
  for (const char* answer : {"no", "cancel"}) {
    EXPECT_EQ(paste("requests", text, answer), (CliResult{0, "", updateRead}));
    EXPECT_EQ(dump(), before);
  }
  EXPECT_EQ(paste("requests", text), (CliResult{0, "", updateRead}));
  EXPECT_EQ(request("Read")["RequestBytes"].text, "2102");
}

TEST_F(CliClipboard, LogOfAPaste_GoesToStandardOutput) {
  const std::string name(71, 'n');
  EXPECT_EQ(
      paste("data", "List\t\t4\t0\t\t\t\t\t\tList\r\n\t1\tA\r\n\t1\tB\r\n" + name + "\tM\t8\r\n"),
      (CliResult{0,
                 "'\r\n'Error\t\t1\tB\tDuplicate value (already exist with label : A)\r\n'" + name +
                     "\tM\t8\tError: Data name too long, up to 70 characters.\r\n",
                 "kelmar-cli: box: Warning: Error when importing data, paste the clipboard "
                 "to Excel\\nData name '" +
                     name + "' too long, up to 70 characters.\\n\n"}));
}

TEST_F(CliClipboard, ForeignDocument_IsRefusedAsOnThePage) {
  const std::string before = dump();
  EXPECT_EQ(paste("data", "<Requests/>"),
            (CliResult{0, "",
                       "kelmar-cli: box: Clipboard error: Bad clipboard content. You can paste "
                       "only Data\n"}));
  EXPECT_EQ(paste("requests", "<Datas/>"), (CliResult{0, "", ""}));
  EXPECT_EQ(dump(), before);
}

TEST_F(CliClipboard, Input_IsTextInAnyOfItsEncodings) {
  EXPECT_EQ(paste("data", "\xEF\xBB\xBF"
                          "Été\tM\t3"),
            (CliResult{0, "", ""}));
  EXPECT_EQ(data("Été")["NumberBits"].text, "3");
  EXPECT_EQ(paste("data", std::string("\xFF\xFEO\0\xF9\0\t\0M\0\t\0"
                                      "4\0",
                                      14)),
            (CliResult{0, "", ""}));
  EXPECT_EQ(data("Où")["NumberBits"].text, "4");
  EXPECT_EQ(paste("data", "<?xml version='1.0' encoding='ISO-8859-1'?>"
                          "<Datas><Data Name='Île'/></Datas>"),
            (CliResult{0, "", ""}))
      << "an encoding named inside the text is ignored";
  EXPECT_EQ(data("Île")["NumberBits"].text, "8");
}

TEST_F(CliClipboard, InputThatIsNoText_ChangesNothing) {
  const std::string before = bytesOf(cli.file("a.xml"));
  EXPECT_EQ(paste("data", "A\xE9\tM\t3"),
            (CliResult{1, "",
                       "kelmar-cli: a.xml: error 1: 'in.txt' is no text in UTF-8, nor in UTF-16 "
                       "with a mark\n"}));
  const CliResult gone = cli.run({"paste", "a.xml", "data", "-i", "gone.txt"});
  EXPECT_EQ(gone.code, 1);
  EXPECT_TRUE(gone.err.starts_with("kelmar-cli: a.xml: error 75: ")) << gone;
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_FALSE(fs::exists(cli.file("a.xml.bak")));
}

TEST_F(CliClipboard, Paste_WritesToTheOtherFileWhenToldSo) {
  const std::string before = bytesOf(cli.file("a.xml"));
  cli.folder().write("in.txt", "New\tM\t3");
  EXPECT_EQ(cli.run({"paste", "a.xml", "data", "-i", "in.txt", "-o", "b.xml"}),
            (CliResult{0, "", ""}));
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_NE(dump("b.xml").find("\"New\""), std::string::npos);
}

} // namespace
} // namespace kelmar
