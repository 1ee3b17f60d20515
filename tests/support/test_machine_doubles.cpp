// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/machine_doubles.h"
#include "support/temp_folder.h"

#include <QDir>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace kelmar::support;
namespace fs = std::filesystem;

namespace {

TEST(TempFolder, IsGoneWithReadOnlyContents) {
  fs::path path;
  {
    const TempFolder folder;
    path = folder.path();
    EXPECT_EQ(bytesOf(folder.write("a/b/c.xml", "<a/>")), "<a/>");
    fs::permissions(path / "a/b", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(fs::exists(folder.file("a/b/c.xml")));
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(TempFolder, MissesASampleThatIsNotThere) {
  const TempFolder folder;
  EXPECT_THROW(folder.copyOfSample("good/there is no such sample.xml"), fs::filesystem_error);
  EXPECT_THROW(bytesOf(folder.file("absent")), std::runtime_error);
}

TEST(TestHome, HoldsAllThatAProgramKeepsForItsUser) {
  const QString home = QDir::homePath();
  EXPECT_TRUE(home.contains("kelmar-test-")) << home.toStdString();
  for (const auto kind :
       {QStandardPaths::GenericConfigLocation, QStandardPaths::GenericDataLocation,
        QStandardPaths::GenericCacheLocation})
    EXPECT_TRUE(QStandardPaths::writableLocation(kind).startsWith(home));
}

TEST(MemorySettings, KeepWhatIsWrittenUntilItIsRemoved) {
  MemorySettings settings;
  EXPECT_EQ(settings.read("A\\b"), std::nullopt);
  settings.write("A\\b", "1");
  EXPECT_EQ(settings.read("A\\b"), "1");
  settings.remove("A\\b");
  EXPECT_EQ(settings.read("A\\b"), std::nullopt);
}

TEST(FixedClock, StandsStill) {
  FixedClock clock;
  EXPECT_EQ(clock.localNow(), (kelmar::DateTime{2026, 1, 2, 3, 4, 0}));
  clock.now.year = 2027;
  EXPECT_EQ(clock.localNow().year, 2027);
}

TEST(NotedProcesses, NoteTheCommandInsteadOfRunningIt) {
  NotedProcesses processes;
  processes.ShellAndWait("a b", 1, false);
  EXPECT_TRUE(processes.start("p", {"x", "y z"}));
  EXPECT_EQ(processes.started, (std::vector<std::string>{"a b", "p x y z"}));
}

} // namespace
