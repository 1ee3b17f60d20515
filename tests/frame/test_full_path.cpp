// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/full_path.h"

#include "platform/files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar::frame {

TEST(BuildFullPath, CreatesTheParentsFirst) {
  const support::TempFolder folder;
  BuildFullPath(folder.file("a/b/c"));
  EXPECT_TRUE(platform::folderExists(folder.file("a/b/c")));
}

TEST(BuildFullPath, TakesASeparatorAtTheEnd) {
  const support::TempFolder folder;
  BuildFullPath(folder.file("a/b/"));
  EXPECT_TRUE(platform::folderExists(folder.file("a/b")));
}

TEST(BuildFullPath, LeavesWhatIsThere) {
  const support::TempFolder folder;
  const std::string kept = folder.write("a/kept.txt", "x");
  BuildFullPath(folder.file("a"));
  EXPECT_TRUE(platform::fileExists(kept));
}

TEST(BuildFullPath, CannotPassAFileAndDoesNotFail) {
  const support::TempFolder folder;
  folder.write("a", "x");
  BuildFullPath(folder.file("a/b/c"));
  EXPECT_FALSE(platform::folderExists(folder.file("a/b")));
  EXPECT_TRUE(platform::fileExists(folder.file("a")));
}

} // namespace kelmar::frame
