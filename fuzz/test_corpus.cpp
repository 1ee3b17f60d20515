// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/load_save_load.h"
#include "platform/files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmar::fuzz {
namespace {

std::vector<std::string> corpus() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(KELMAR_SOURCE "/fuzz/corpus"))
    files.push_back(entry.path().string());
  return files;
}

TEST(Corpus, EveryFileLoadsSavesAndLoadsToTheSameTextOrIsRefused) {
  int refused = 0, roundTrips = 0;
  for (const std::string& file : corpus()) {
    const Outcome outcome = loadSaveLoad(platform::readFile(file));
    EXPECT_EQ(outcome.brokenPromise, "") << file;
    refused += outcome.kind == Outcome::Kind::LoadRefused;
    roundTrips += outcome.kind == Outcome::Kind::RoundTrip;
  }
  EXPECT_GT(refused, 50);
  EXPECT_GT(roundTrips, 50);
}

TEST(Corpus, EveryFileReadsTheSameInTheWayOfLargeFiles) {
  const std::vector<std::string> files = corpus();
  ASSERT_FALSE(files.empty());
  // Each costs a megabyte to read twice; some hundred of them will do here.
  const std::size_t step = 1 + files.size() / 300;
  for (std::size_t i = 0; i < files.size(); i += step)
    EXPECT_EQ(largeLoadDiffers(platform::readFile(files[i])), "") << files[i];
}

TEST(LoadSaveLoad, TellsARefusedFileFromOneThatComesBack) {
  EXPECT_EQ(loadSaveLoad("<xml>").kind, Outcome::Kind::LoadRefused);
  const Outcome outcome = loadSaveLoad(
      R"(<xml><zem:Target Name="a"><Function Name="f" Address="1"/></zem:Target></xml>)");
  EXPECT_EQ(outcome.kind, Outcome::Kind::RoundTrip);
  EXPECT_NE(outcome.firstSave.find("<Function Name=\"f\" Address=\"1\"/>"), std::string::npos);
}

} // namespace
} // namespace kelmar::fuzz
