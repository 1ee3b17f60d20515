// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmar::platform::testing {

/// A test with a folder of its own that all users may look into.
class SaveFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "kelmar-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    std::filesystem::permissions(folder_, std::filesystem::perms(0755));
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::permissions(folder_, std::filesystem::perms(0755), ignored);
    std::filesystem::remove_all(folder_, ignored);
  }

  const std::filesystem::path& folder() const { return folder_; }
  std::string file(const std::string& name) const { return (folder_ / name).string(); }

  /// What is in the folder, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
      found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
  }

 private:
  std::filesystem::path folder_;
};

} // namespace kelmar::platform::testing
