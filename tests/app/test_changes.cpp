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

/// The model sample in the file "a.xml", and what commands make of it.
class CliChanges : public testing::Test {
 protected:
  CliChanges() { cli.sample("cli/model.xml", "a.xml"); }

  Json model(const std::string& file = "a.xml") { return readJson(cli.run({"dump", file}).out); }
  std::string usesOf(const std::string& name) { return cli.run({"uses", "a.xml", name}).out; }
  void change(const std::vector<std::string>& words) {
    EXPECT_EQ(cli.run(words), (CliResult{0, "", ""})) << words[0];
  }
  /// Names of the members, in their order.
  static std::vector<std::string> names(const Json& items, const char* key) {
    std::vector<std::string> found;
    for (const Json& item : items.items)
      found.push_back(item[key].text);
    return found;
  }

  using Names = std::vector<std::string>;
  Cli cli;
};

TEST_F(CliChanges, RenameData_FollowsPositionsDevicesAndDisplays) {
  change({"rename-data", "a.xml", "Speed", "Velocity"});
  const Json root = model();
  EXPECT_EQ(root["Requests"][0]["DataPositions"][0]["dataName"].text, "Velocity");
  EXPECT_EQ(root["Organes"][0]["DeviceDatas"][0]["dataName"].text, "Velocity");
  EXPECT_EQ(
      root["Categories"][0]["Screens"][0]["DisplayItems"][0]["DisplayDataItem"]["dataName"].text,
      "Velocity");
  EXPECT_EQ(cli.run({"uses", "a.xml", "Speed"}).code, 1);
}

TEST_F(CliChanges, RenameData_OfAFlagKeepsIt) {
  change({"rename-data", "a.xml", "Wish", "Want"});
  const Json root = model();
  EXPECT_EQ(root["Organes"][0]["Tests"][0]["PresentFlag"][0].text, "Want");
  EXPECT_EQ(root["Requests"][1]["DataPositions"][0]["dataName"].text, "Want");
}

TEST_F(CliChanges, RenameRequest_FollowsDisplaysAndStepsButNotFreezeFrames) {
  change({"rename-request", "a.xml", "Read", "DataRead.Speed"});
  const Json root = model();
  EXPECT_EQ(names(root["Requests"], "requestName"), (Names{"Write", "Bare", "DataRead.Speed"}))
      << "the renamed request goes to the end";
  const Json& screen = root["Categories"][0]["Screens"][0];
  EXPECT_EQ(screen["DisplayItems"][0]["DisplayDataItem"]["requestName"].text, "DataRead.Speed");
  EXPECT_EQ(screen["ButtonInit"]["ScenarioItems"][0]["requestName"].text, "DataRead.Speed");
  EXPECT_EQ(screen["ButtonItems"][1]["ScenarioItems"][1]["requestName"].text, "DataRead.Speed");
  EXPECT_EQ(root["Organes"][0]["requestName"].text, "Read");
}

TEST_F(CliChanges, RenameDevice_MovesItToTheEnd) {
  change({"rename-device", "a.xml", "Sensor", "Probe"});
  EXPECT_EQ(names(model()["Organes"], "organeName"), (Names{"Relay", "Probe"}));
}

TEST_F(CliChanges, DeleteData_TakesPositionsDisplaysAndDeviceDataAlong) {
  change({"delete-data", "a.xml", "Speed"});
  const Json root = model();
  EXPECT_EQ(names(root["datas"], "dataName"), (Names{"Key", "Small", "Serial", "Wish"}));
  EXPECT_EQ(names(root["Requests"][0]["DataPositions"], "dataName"), (Names{"Key"}));
  EXPECT_TRUE(root["Organes"][0]["DeviceDatas"].items.empty());
  EXPECT_EQ(root["Categories"][0]["Screens"][0]["DisplayItems"].items.size(), 1u);
}

TEST_F(CliChanges, DeleteRequest_TakesWhatUsesItAlong) {
  change({"delete-request", "a.xml", "Read"});
  const Json root = model();
  EXPECT_EQ(names(root["Requests"], "requestName"), (Names{"Write", "Bare"}));
  EXPECT_EQ(root["Organes"][0]["requestName"].text, "");
  const Json& screen = root["Categories"][0]["Screens"][0];
  EXPECT_EQ(screen["DisplayItems"].items.size(), 1u);
  EXPECT_TRUE(screen["ButtonInit"]["ScenarioItems"].items.empty());
  EXPECT_EQ(names(screen["ButtonItems"][1]["ScenarioItems"], "requestName"), (Names{"Write"}));
}

TEST_F(CliChanges, DeleteDevice_LeavesItsData) {
  change({"delete-device", "a.xml", "Sensor"});
  const Json root = model();
  EXPECT_EQ(names(root["Organes"], "organeName"), (Names{"Relay"}));
  EXPECT_EQ(root["datas"].items.size(), 5u);
}

TEST_F(CliChanges, Items_AreFoundInAnyCase) {
  change({"rename-data", "a.xml", "SPEED", "Vitesse réelle"});
  change({"delete-data", "a.xml", "vitesse RÉELLE"});
  change({"rename-request", "a.xml", "write", "WRITE"});
  change({"delete-request", "a.xml", "Write"});
  change({"delete-device", "a.xml", "sensor"});
  const Json root = model();
  EXPECT_EQ(root["datas"].items.size(), 4u);
  EXPECT_EQ(names(root["Requests"], "requestName"), (Names{"Read", "Bare"}));
  EXPECT_EQ(names(root["Organes"], "organeName"), (Names{"Relay"}));
}

TEST_F(CliChanges, NewNames_AreTakenAsTheyAre) {
  const std::string name = " -<a&b>\"c\"  é\t";
  change({"rename-data", "a.xml", "--", "Speed", name});
  EXPECT_EQ(model()["Requests"][0]["DataPositions"][0]["dataName"].text, name);
  change({"rename-data", "a.xml", "--", name, "Speed"});
}

TEST_F(CliChanges, NameThatIsTaken_ChangesNothing) {
  const std::string before = bytesOf(cli.file("a.xml"));
  EXPECT_EQ(cli.run({"rename-data", "a.xml", "Speed", "KEY"})
                .err.find("kelmar-cli: a.xml: error 1: Duplicate data (KEY)"),
            0u);
  EXPECT_EQ(cli.run({"rename-request", "a.xml", "Read", "Write", "-o", "b.xml"})
                .err.find("kelmar-cli: a.xml: error 1: Duplicate request (Write)"),
            0u);
  EXPECT_EQ(cli.run({"rename-device", "a.xml", "Sensor", "Relay"}).code, 1);
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_FALSE(std::filesystem::exists(cli.file("b.xml")));
  EXPECT_FALSE(std::filesystem::exists(cli.file("a.xml.bak")));
}

TEST_F(CliChanges, NameThatNoFileCanHold_IsRefused) {
  const std::string before = bytesOf(cli.file("a.xml"));
  for (const char* name : {"a\001b", "\xFF"}) {
    const CliResult result = cli.run({"rename-data", "a.xml", "Speed", name});
    EXPECT_EQ(result.code, 1) << result;
    EXPECT_NE(result.err.find("[ExportUceToXml]"), std::string::npos) << result;
  }
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_FALSE(std::filesystem::exists(cli.file("a.xml.bak")));
}

TEST_F(CliChanges, OutputFile_GetsTheChangeAndTheInputStays) {
  const std::string before = bytesOf(cli.file("a.xml"));
  change({"delete-data", "a.xml", "Speed", "-o", "b.xml"});
  EXPECT_EQ(bytesOf(cli.file("a.xml")), before);
  EXPECT_EQ(model("b.xml")["datas"].items.size(), 4u);
}

TEST_F(CliChanges, DataWithoutName_CanBeGivenOne) {
  std::string text = bytesOf(cli.file("a.xml"));
  text.replace(text.find("<Data Name=\"Small\">"), 19, "<Data>");
  cli.folder().write("a.xml", text);
  EXPECT_EQ(cli.run({"rename-data", "a.xml", "", "Small"}).code, 0);
  EXPECT_EQ(names(model()["datas"], "dataName").size(), 5u);
  EXPECT_EQ(cli.run({"delete-data", "a.xml", ""}).code, 1) << "it has a name now";
}

TEST_F(CliChanges, Uses_OfADataAreListedInTheOrderOfTheFile) {
  EXPECT_EQ(usesOf("Speed"), "position\tRead\treceived byte 3 bit 0 reference\n"
                             "device data\tSensor\tfailure flag\n"
                             "display\tMain/State\trequest Read\n");
  EXPECT_EQ(usesOf("Key"), "position\tRead\treceived byte 5 bit 7 reference\n"
                           "stored flag\tSensor\ttest 4\n");
  EXPECT_EQ(usesOf("wISH"), "position\tWrite\tsent byte 3 bit 0 reference\n"
                            "present flag\tSensor\ttest 4\n");
}

TEST_F(CliChanges, Uses_OfARequestAreListedToo) {
  EXPECT_EQ(usesOf("Read"), "freeze frame\tSensor\tDTC 821\n"
                            "display\tMain/State\tdata Speed\n"
                            "scenario step\tMain/State\tinit scenario, step 1\n"
                            "scenario step\tMain/State\tbutton Go, step 2\n");
  EXPECT_EQ(usesOf("Write"), "display\tMain/State\tinput\n"
                             "scenario step\tMain/State\tbutton Go, step 1\n");
}

TEST_F(CliChanges, Uses_OfWhatIsNotThereButNamedAreFound) {
  EXPECT_EQ(usesOf("Not there"), "freeze frame\tRelay\tDTC 0\n");
}

TEST_F(CliChanges, Uses_WithoutAnyEndWithOne) {
  EXPECT_EQ(cli.run({"uses", "a.xml", "Small"}), (CliResult{1, "", ""}));
  EXPECT_EQ(cli.run({"uses", "a.xml", "Nobody"}),
            (CliResult{1, "", "kelmar-cli: a.xml: error 1: Data or request 'Nobody' not found\n"}));
}

TEST_F(CliChanges, Uses_StayOneLineOfThreeCellsWhateverTheNames) {
  change({"rename-request", "a.xml", "Write", "a\tb\nc"});
  EXPECT_EQ(usesOf("Wish").find("position\ta b c\tsent byte 3 bit 0 reference\n"), 0u);
}

} // namespace
} // namespace kelmar
