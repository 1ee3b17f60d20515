// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "desktop/settings_store.h"
#include "platform/recent_entries.h"
#include "support/temp_folder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar::desktop {
namespace {

using support::TempFolder;

TEST(SettingsStore, APath_IsAValueInNestedGroups) {
  const TempFolder folder;
  const std::string file = folder.file("a/kelmar.conf");
  {
    SettingsStore store(file);
    store.write("ZEM\\Diag\\Kelmar\\RecentFile1", "/data/é, b;c = \"d\"\\e");
    store.write("ZEM\\Diag\\Screen\\HideDIDPrefix", "1");
  }
  const SettingsStore store(file);
  EXPECT_EQ(store.read("ZEM\\Diag\\Kelmar\\RecentFile1"), "/data/é, b;c = \"d\"\\e");
  EXPECT_EQ(store.read("ZEM\\Diag\\Screen\\HideDIDPrefix"), "1");
  QSettings plain(QString::fromStdString(file), QSettings::IniFormat);
  plain.beginGroup("ZEM");
  plain.beginGroup("Diag");
  EXPECT_EQ(plain.childGroups(), (QStringList{"Kelmar", "Screen"}));
}

TEST(SettingsStore, AMissingValue_IsNoneAndAnEmptyOneIsThere) {
  const TempFolder folder;
  SettingsStore store(folder.file("kelmar.conf"));
  EXPECT_EQ(store.read("ZEM\\x"), std::nullopt);
  store.write("ZEM\\x", "");
  EXPECT_EQ(store.read("ZEM\\x"), "");
}

TEST(SettingsStore, OddTexts_ComeBack) {
  const TempFolder folder;
  const std::string file = folder.file("kelmar.conf");
  for (const std::string& text :
       {std::string("@Invalid()"), std::string("a\r\nb\tc"), std::string(" a "), std::string("a,b"),
        std::string("%20 # ;"), std::string("日本")}) {
    SettingsStore(file).write("ZEM\\x", text);
    EXPECT_EQ(SettingsStore(file).read("ZEM\\x"), text);
  }
}

TEST(SettingsStore, AListWrittenByHand_IsOneText) {
  const TempFolder folder;
  const std::string file = folder.write("kelmar.conf", "[ZEM]\nx=a, b\n");
  EXPECT_EQ(SettingsStore(file).read("ZEM\\x"), "a, b");
}

TEST(SettingsStore, Remove_TakesOneValueAndNoGroup) {
  const TempFolder folder;
  SettingsStore store(folder.file("kelmar.conf"));
  store.write("ZEM\\Diag\\a", "1");
  store.write("ZEM\\Diag\\b", "2");
  store.remove("ZEM\\Diag\\a");
  store.remove("ZEM\\Diag");
  store.remove("ZEM\\none");
  EXPECT_EQ(store.read("ZEM\\Diag\\a"), std::nullopt);
  EXPECT_EQ(store.read("ZEM\\Diag\\b"), "2");
}

TEST(SettingsStore, AWrite_IsSeenByOtherInstancesAtOnce) {
  const TempFolder folder;
  const std::string file = folder.file("kelmar.conf");
  SettingsStore first(file);
  first.write("ZEM\\x", "1");
  EXPECT_EQ(SettingsStore(file).read("ZEM\\x"), "1");
  first.remove("ZEM\\x");
  EXPECT_EQ(SettingsStore(file).read("ZEM\\x"), std::nullopt);
}

TEST(SettingsStore, WhatAnotherProcessHasWritten_IsRead) {
  const TempFolder folder;
  const std::string file = folder.write("a.conf", "[A]\nb=1\n");
  const SettingsStore store(file);
  EXPECT_EQ(store.read("A\\b"), "1");
  folder.write("a.conf", "[A]\nb=another\n");
  EXPECT_EQ(store.read("A\\b"), "another");
}

TEST(SettingsStore, TheFile_FollowsTheConfigurationFolder) {
  const TempFolder folder;
  const std::string before = std::getenv("XDG_CONFIG_HOME");
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  SettingsStore store;
  store.write("ZEM\\x", "1");
  ::setenv("XDG_CONFIG_HOME", before.c_str(), 1);
  EXPECT_EQ(store.file(), folder.file("kelmar/kelmar.conf"));
  EXPECT_TRUE(std::filesystem::exists(folder.file("kelmar/kelmar.conf")));
}

TEST(SettingsStore, AFileThatCannotBeWritten_IsAFailureWithItsName) {
  const TempFolder folder;
  folder.write("blocked", "a file where a folder should be");
  SettingsStore store(folder.file("blocked/kelmar.conf"));
  try {
    store.write("ZEM\\x", "1");
    FAIL() << "should have raised";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, FileAccessFailed);
    EXPECT_NE(failure.text.find("blocked/kelmar.conf"), std::string::npos);
  }
  EXPECT_NO_THROW(platform::AddRecentEntry(store, "RecentFile", "x"));
}

TEST(SettingsStore, RecentFiles_LiveThroughARestart) {
  const TempFolder folder;
  const std::string file = folder.file("kelmar.conf");
  for (const char* name : {"/a.xml", "/b c.xml", "/a.xml"}) {
    SettingsStore store(file);
    platform::AddRecentEntry(store, "RecentFile", name);
  }
  EXPECT_EQ(
      platform::GetRecentEntries(SettingsStore(file), "RecentFile"),
      (std::vector<platform::RecentEntry>{{"1RecentFile", "/a.xml"}, {"2RecentFile", "/b c.xml"}}));
}

} // namespace
} // namespace kelmar::desktop
