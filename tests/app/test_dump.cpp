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

std::vector<std::string> namesOf(const Json& object) {
  std::vector<std::string> names;
  for (const auto& [name, value] : object.members)
    names.push_back(name);
  return names;
}

TEST(CliDump, WholeModel_IsTheTextOfTheSample) {
  const Cli cli;
  cli.sample("cli/model.xml");
  EXPECT_EQ(cli.run({"dump", "model.xml"}),
            (CliResult{0, bytesOf(KELMAR_TEST_DATA "/cli/model.json"), ""}));
}

TEST(CliDump, Keys_AreThePropertiesInTheirOrder) {
  const Cli cli;
  cli.sample("cli/model.xml");
  const Json root = readJson(cli.run({"dump", "model.xml"}).out);
  using Names = std::vector<std::string>;
  EXPECT_EQ(namesOf(root),
            (Names{"name", "Address", "LogicalAddress", "Langue", "reference", "Email", "Href",
                   "Upload", "Group", "Projects", "Parametres", "datas", "Requests", "Organes",
                   "Categories", "AutoIdents", "ValueChanged"}));
  EXPECT_EQ(
      namesOf(root["datas"][0]),
      (Names{"dataName", "NumberBits", "numerique", "liste", "Unite", "Signe", "CoeffA", "CoeffB",
             "CoeffC", "DataFormat", "Ascii", "Mnemo", "Description", "Fiche", "DataListes"}));
  EXPECT_EQ(namesOf(root["Requests"][0]["DataPositions"][0]),
            (Names{"dataName", "StartOctet", "StartBit", "LittleEndian", "param", "reference"}));
  EXPECT_EQ(root["Parametres"].members.size(), 26u);
  EXPECT_EQ(root["Requests"][0].members.size(), 15u);
  EXPECT_EQ(root["Organes"][0].members.size(), 10u);
  EXPECT_EQ(root["Organes"][0]["Tests"][0].members.size(), 7u);
}

TEST(CliDump, Text_ReadsBackAsItIs) {
  const Cli cli;
  cli.sample("cli/model.xml");
  const Json root = readJson(cli.run({"dump", "model.xml"}).out);
  EXPECT_EQ(root["name"].text, "Engine \"<É>\"");
  EXPECT_EQ(root["Group"].text, "C:\\engines");
  EXPECT_EQ(root["Parametres"]["Comment"].text, "two\r\nlines\tand a tab");
}

TEST(CliDump, AbsentObjectsAreNullAndEmptyListsAreLists) {
  const Cli cli;
  cli.sample("cli/model.xml");
  const Json root = readJson(cli.run({"dump", "model.xml"}).out);
  EXPECT_EQ(root["datas"][0]["DataListes"].kind, Json::Null);
  EXPECT_EQ(root["Requests"][2]["DataPositions"].kind, Json::Null);
  EXPECT_EQ(root["Organes"][1]["Tests"].kind, Json::Array);
  EXPECT_EQ(root["Organes"][1]["request"].kind, Json::Null);
  EXPECT_EQ(root["Organes"][1]["requestName"].text, "Not there");
}

TEST(CliDump, Numbers_AreAsShortAsTheyCanBe) {
  const Cli cli;
  std::string text = bytesOf(KELMAR_TEST_DATA "/cli/model.xml");
  text.replace(text.find("\" .01\""), 6, "\" .1\"");
  text.replace(text.find("\"1E-05\""), 7, "\"123456789012345678\"");
  cli.folder().write("a.xml", text);
  const Json root = readJson(cli.run({"dump", "a.xml"}).out);
  EXPECT_EQ(root["datas"][0]["CoeffA"].text, "0.1");
  EXPECT_EQ(root["datas"][2]["CoeffA"].text, "123456789012345680");
  EXPECT_EQ(root["Categories"][0]["Screens"][0]["LabelItems"][0]["FontSize"].text, "8.25");
}

TEST(CliDump, ToolAddress_IsTheStoredOneAndReadingItChangesNothing) {
  const Cli cli;
  cli.sample("cli/model.xml");
  const Json root = readJson(cli.run({"dump", "model.xml"}).out);
  EXPECT_EQ(root["Parametres"]["ToolAddress"].text, "17");
  EXPECT_EQ(root["Parametres"]["canXid"].text, "-2147483357");
}

TEST(CliDump, Catalogue_SpeaksTheLanguageAskedFor) {
  const Cli cli;
  cli.sample("cli/model.xml");
  const Json root = readJson(cli.run({"dump", "--lang", "fr", "model.xml"}).out);
  EXPECT_EQ(root["Parametres"]["TypePanne"].text, "Pannes DTC");
  EXPECT_EQ(root["Organes"][1]["OrganeTypeName"].text, "Entrée");
}

TEST(CliDump, EverySample_IsValidJsonAndTheSameEachTime) {
  const Cli cli;
  std::size_t count = 0;
  for (const char* folder : {"/good", "/encodings"}) {
    for (const auto& entry : fs::directory_iterator(std::string(KELMAR_TEST_DATA) + folder)) {
      if (entry.path().extension() != ".xml") continue;
      const std::string path = entry.path().string();
      const CliResult result = cli.run({"dump", "--yes", path});
      if (result.code != 0) {
        EXPECT_EQ(std::string(folder), "/encodings") << result; // not all of these are ECU files
        continue;
      }
      EXPECT_NO_THROW(readJson(result.out)) << path;
      EXPECT_EQ(cli.run({"dump", "--yes", path}).out, result.out);
      ++count;
    }
  }
  EXPECT_GT(count, 30u);
}

// What the parameters lose by a save, an ISO8 section say, is tested with the parameters.
TEST(CliDump, Saving_KeepsTheWholeModelButForTheParameters) {
  const Cli cli;
  std::size_t count = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(std::string(KELMAR_SITE) + "/vehicles")) {
    if (!entry.is_regular_file()) continue;
    const std::string path = entry.path().string();
    ASSERT_EQ(cli.run({"save", path, "-o", "a.xml"}).code, 0) << path;
    const Json before = readJson(cli.run({"dump", path}).out);
    const Json after = readJson(cli.run({"dump", "a.xml"}).out);
    ASSERT_EQ(namesOf(after), namesOf(before));
    for (const auto& [name, value] : before.members)
      EXPECT_TRUE(name == "Parametres" || after[name] == value) << path << ": " << name;
    ++count;
  }
  EXPECT_GE(count, 15u);
}

} // namespace
} // namespace kelmar
