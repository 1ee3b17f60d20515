// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "platform/recent_entries.h"
#include "platform/site_settings.h"
#include "support/machine_doubles.h"
#include "support/temp_folder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar::platform {
namespace {

using support::TempFolder;

/// A machine without any configuration; the environment is put back at the end.
class SiteSettingsTest : public testing::Test {
 protected:
  SiteSettingsTest() {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "KELMAR_SITE",
                             "KELMAR_LANG", "LC_ALL", "LC_MESSAGES", "LANG"}) {
      const char* value = std::getenv(name);
      before_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
      ::unsetenv(name);
    }
    set("HOME", folder.file("home"));
    start.programFolder = folder.file("tree/build/bin");
    start.systemFile = folder.file("etc/site.conf");
  }
  ~SiteSettingsTest() override {
    for (const auto& [name, value] : before_) {
      if (value)
        ::setenv(name.c_str(), value->c_str(), 1);
      else
        ::unsetenv(name.c_str());
    }
  }
  static void set(const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); }

  TempFolder folder;
  SiteStart start;

 private:
  std::vector<std::pair<std::string, std::optional<std::string>>> before_;
};

TEST_F(SiteSettingsTest, DataRoot_TakesTheFirstPlaceThatNamesOne) {
  EXPECT_EQ(SiteSettings(start).DataRoot(), "");
  folder.write("tree/site/parameters.xml", "<site/>");
  EXPECT_EQ(SiteSettings(start).DataRoot(), folder.file("tree/site"));
  folder.write("tree/build/share/kelmar/site/parameters.xml", "<site/>");
  EXPECT_EQ(SiteSettings(start).DataRoot(), folder.file("tree/build/share/kelmar/site"));
  folder.write("etc/site.conf", "site = /srv/kelmar/\n");
  EXPECT_EQ(SiteSettings(start).DataRoot(), "/srv/kelmar");
  folder.write("home/.config/kelmar/site.conf", "site=/home/data\n");
  EXPECT_EQ(SiteSettings(start).DataRoot(), "/home/data");
  set("KELMAR_SITE", "/environment");
  EXPECT_EQ(SiteSettings(start).DataRoot(), "/environment");
  start.site = "/given/../line/";
  EXPECT_EQ(SiteSettings(start).DataRoot(), "/line");
}

TEST_F(SiteSettingsTest, DataRoot_MayBeAnAddressOrARelativeFolder) {
  start.site = "http://server/site/";
  EXPECT_EQ(SiteSettings(start).DataRoot(), "http://server/site");
  start.site = "file:///srv/site";
  EXPECT_EQ(SiteSettings(start).DataRoot(), "file:///srv/site");
  start.site = "some/site";
  EXPECT_EQ(SiteSettings(start).DataRoot(),
            (std::filesystem::current_path() / "some/site").string());
}

TEST_F(SiteSettingsTest, DataRootFolder_FollowsTheSiteThatWasChosenForThisStart) {
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(),
            folder.file("home/.local/share/kelmar"));
  set("XDG_DATA_HOME", folder.file("data"));
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(), folder.file("data/kelmar"));
  folder.write("home/.config/kelmar/site.conf", "site = /srv/a\ndataFolder = /srv/data\n");
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(), "/srv/data");
  set("KELMAR_SITE", "/srv/b");
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(), "/srv/b");
  start.site = "file:///srv/c%20d";
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(), "/srv/c d");
  start.site = "http://server/site";
  EXPECT_EQ(SiteSettings(start).paths().GetDataRootFolder(), "/srv/data");
}

TEST_F(SiteSettingsTest, Language_TakesTheFirstPlaceThatNamesOne) {
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "en");
  set("LANG", "fr_FR.UTF-8");
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "fr");
  folder.write("home/.config/kelmar/site.conf", "language = de\n");
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "de");
  set("KELMAR_LANG", "es");
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "es");
  start.language = "it";
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "it");
  start.language = "../../etc";
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "es");
}

TEST_F(SiteSettingsTest, Locale_IsDecidedByTheFirstVariableThatIsSet) {
  EXPECT_EQ(localeLanguage(), "");
  const struct {
    const char* locale;
    const char* language;
  } rows[] = {{"fr_FR.UTF-8", "fr"}, {"de@euro", "de"}, {"C", ""}, {"POSIX", ""},
              {"C.UTF-8", ""},       {"EN", "en"},      {"", ""},  {"nb_NO", "nb"}};
  for (const auto& row : rows) {
    set("LANG", row.locale);
    EXPECT_EQ(localeLanguage(), row.language) << row.locale;
  }
  set("LANG", "fr_FR");
  set("LC_MESSAGES", "es_ES");
  EXPECT_EQ(localeLanguage(), "es");
  set("LC_ALL", "C");
  EXPECT_EQ(localeLanguage(), "");
}

TEST_F(SiteSettingsTest, Values_ComeFromTheUsersFileOverTheSystems) {
  folder.write("etc/site.conf", "siteKey = SYSTEM\nremoteServer = http://a\nuseRemote = yes\n"
                                "remoteDataServer = http://links\nintranetServer = http://i\n");
  folder.write("home/.config/kelmar/site.conf",
               "# remoteServer = no\n\n  siteKey =  MINE = 1 \r\nnonsense\n = x\nuseRemote=0\n");
  const SiteSettings site(start);
  EXPECT_EQ(site.SiteKey(), "MINE = 1");
  EXPECT_EQ(site.RemoteServerName(), "http://a");
  EXPECT_EQ(site.RemoteOverride(), "");
  EXPECT_FALSE(site.UseRemoteFlag());
  EXPECT_EQ(site.ZEM_RemoteDataServer(), "http://links");
  EXPECT_EQ(site.IntranetServerRoot(), "http://i");
}

TEST_F(SiteSettingsTest, ValuesWithoutFiles_AreEmpty) {
  const SiteSettings site(start);
  EXPECT_EQ(site.SiteKey(), "");
  EXPECT_FALSE(site.UseRemoteFlag());
  EXPECT_EQ(site.RemoteServerName(), "");
  EXPECT_FALSE(site.ZEM_RemoteDataServer().has_value());
}

TEST_F(SiteSettingsTest, UseRemoteFlag_TakesTheUsualWords) {
  for (const char* word : {"1", "true", "Yes"}) {
    folder.write("etc/site.conf", std::string("useRemote = ") + word);
    EXPECT_TRUE(SiteSettings(start).UseRemoteFlag()) << word;
  }
  folder.write("etc/site.conf", "useRemote = off");
  EXPECT_FALSE(SiteSettings(start).UseRemoteFlag());
}

TEST_F(SiteSettingsTest, StoreLanguage_IsReadAtTheNextStart) {
  SiteSettings site(start);
  site.storeLanguage("fr");
  EXPECT_EQ(site.CurrentLanguage(), "fr");
  EXPECT_EQ(SiteSettings(start).CurrentLanguage(), "fr");
  EXPECT_EQ(support::bytesOf(userSiteFile()), "language = fr\n");
}

TEST_F(SiteSettingsTest, StoreLanguage_LeavesTheOtherLinesAlone) {
  folder.write("home/.config/kelmar/site.conf",
               "# mine\nsite = /srv\nlanguage=de\n#language = xx\nlanguage = es\nsiteKey = K");
  SiteSettings(start).storeLanguage("fr");
  EXPECT_EQ(support::bytesOf(userSiteFile()),
            "# mine\nsite = /srv\nlanguage = fr\n#language = xx\nsiteKey = K\n");
}

TEST_F(SiteSettingsTest, StoreLanguage_RefusesWhatIsNoCodeAndKeepsTheOldOne) {
  set("LANG", "de_DE");
  SiteSettings site(start);
  for (const char* code : {"", "a/b", "fr\nsite = /evil"})
    EXPECT_THROW(site.storeLanguage(code), Failure) << code;
  EXPECT_EQ(site.CurrentLanguage(), "de");
  EXPECT_FALSE(std::filesystem::exists(userSiteFile()));
}

TEST_F(SiteSettingsTest, StoreLanguage_FailsWithoutAPlaceToKeepIt) {
  folder.write("home", "a file where the home should be");
  SiteSettings site(start);
  EXPECT_THROW(site.storeLanguage("fr"), Failure);
  EXPECT_EQ(site.CurrentLanguage(), "en");
}

TEST_F(SiteSettingsTest, TheUsersFile_FollowsTheDesktopsConventions) {
  EXPECT_EQ(userSiteFile(), folder.file("home/.config/kelmar/site.conf"));
  set("XDG_CONFIG_HOME", "relative/is/ignored");
  EXPECT_EQ(userSiteFile(), folder.file("home/.config/kelmar/site.conf"));
  set("XDG_CONFIG_HOME", folder.file("cfg"));
  EXPECT_EQ(userSiteFile(), folder.file("cfg/kelmar/site.conf"));
}

TEST_F(SiteSettingsTest, TheProgramKnowsItsFolder) {
  EXPECT_TRUE(std::filesystem::is_directory(SiteStart::runningProgramFolder()));
}

TEST_F(SiteSettingsTest, NormalizeFolder_AddsOneSeparator) {
  const PathTools paths("/data");
  EXPECT_EQ(paths.NormalizeFolder("/a"), "/a/");
  EXPECT_EQ(paths.NormalizeFolder("/a//"), "/a/");
  EXPECT_EQ(paths.NormalizeFolder("/"), "/");
  EXPECT_EQ(paths.NormalizeFolder(""), "");
}

TEST_F(SiteSettingsTest, UserDocumentsFolder_IsTheDesktops) {
  const PathTools paths("/data");
  EXPECT_EQ(paths.GetUserDocumentsFolder(), folder.file("home/Documents"));
  folder.write("home/.config/user-dirs.dirs",
               "# places\nXDG_MUSIC_DIR=\"$HOME/Musik\"\nXDG_DOCUMENTS_DIR=\"$HOME/Papiers\"\n");
  EXPECT_EQ(paths.GetUserDocumentsFolder(), folder.file("home/Papiers"));
  folder.write("home/.config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
  EXPECT_EQ(paths.GetUserDocumentsFolder(), "/srv/papers");
  folder.write("home/.config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"papers\"\n");
  EXPECT_EQ(paths.GetUserDocumentsFolder(), folder.file("home/Documents"));
  ::unsetenv("HOME");
  EXPECT_EQ(paths.GetUserDocumentsFolder(), "");
}

TEST(RecentEntries, Adding_PutsTheNewestFirst) {
  support::MemorySettings settings;
  AddRecentEntry(settings, "RecentFile", "a");
  AddRecentEntry(settings, "RecentFile", "b");
  EXPECT_EQ(settings.values,
            (std::map<std::string, std::string>{{"ZEM\\Diag\\Kelmar\\RecentFile1", "b"},
                                                {"ZEM\\Diag\\Kelmar\\RecentFile2", "a"}}));
  EXPECT_EQ(GetRecentEntries(settings, "RecentFile"),
            (std::vector<RecentEntry>{{"1RecentFile", "b"}, {"2RecentFile", "a"}}));
}

TEST(RecentEntries, AddingAKnownValue_MovesItToTheFrontAndClosesTheGap) {
  support::MemorySettings settings;
  for (const char* value : {"d", "c", "b", "a"})
    AddRecentEntry(settings, "RecentFile", value);
  AddRecentEntry(settings, "RecentFile", "c"); // stood at 3
  EXPECT_EQ(
      GetRecentEntries(settings, "RecentFile"),
      (std::vector<RecentEntry>{
          {"1RecentFile", "c"}, {"2RecentFile", "a"}, {"3RecentFile", "b"}, {"4RecentFile", "d"}}));
}

TEST(RecentEntries, Comparison_IsExact) {
  support::MemorySettings settings;
  AddRecentEntry(settings, "RecentFile", "A");
  AddRecentEntry(settings, "RecentFile", "a");
  EXPECT_EQ(GetRecentEntries(settings, "RecentFile").size(), 2u);
}

TEST(RecentEntries, TheNinthIsWrittenAndNotReadBack) {
  support::MemorySettings settings;
  for (int i = 1; i <= 10; ++i)
    AddRecentEntry(settings, "RecentFile", "file" + std::to_string(i));
  EXPECT_EQ(settings.values.size(), 9u);
  EXPECT_EQ(settings.values["ZEM\\Diag\\Kelmar\\RecentFile9"], "file2");
  const auto entries = GetRecentEntries(settings, "RecentFile");
  ASSERT_EQ(entries.size(), 8u);
  EXPECT_EQ(entries.front().value, "file10");
  EXPECT_EQ(entries.back(), (RecentEntry{"8RecentFile", "file3"}));
}

TEST(RecentEntries, MissingNumbers_AreSkippedAndThenClosed) {
  support::MemorySettings settings;
  settings.values["ZEM\\Diag\\Kelmar\\RecentFile2"] = "b";
  settings.values["ZEM\\Diag\\Kelmar\\RecentFile7"] = "g";
  EXPECT_EQ(GetRecentEntries(settings, "RecentFile"),
            (std::vector<RecentEntry>{{"2RecentFile", "b"}, {"7RecentFile", "g"}}));
  AddRecentEntry(settings, "RecentFile", "x");
  EXPECT_EQ(
      GetRecentEntries(settings, "RecentFile"),
      (std::vector<RecentEntry>{{"1RecentFile", "x"}, {"2RecentFile", "b"}, {"3RecentFile", "g"}}));
}

/// A store on a disk that fails.
class BrokenSettings : public Settings {
 public:
  std::optional<std::string> read(const std::string&) const override {
    throw platformFailure(FileAccessFailed);
  }
  void write(const std::string&, const std::string&) override {
    throw platformFailure(FileAccessFailed);
  }
  void remove(const std::string&) override { throw platformFailure(FileAccessFailed); }
};

TEST(RecentEntries, AStoreThatFails_ReadsAsEmpty) {
  BrokenSettings settings;
  EXPECT_NO_THROW(AddRecentEntry(settings, "RecentFile", "x"));
  EXPECT_NO_THROW(RegistryWriteValue(settings, "ZEM\\x", "y"));
  EXPECT_TRUE(GetRecentEntries(settings, "RecentFile").empty());
  EXPECT_EQ(ReadSetting(settings, "checkBaseUrl", "fallback"), "fallback");
  EXPECT_EQ(RegistryReadValue(settings, "ZEM\\x"), "");
}

TEST(Settings, ReadSetting_TakesTheDefaultForMissingAndEmpty) {
  support::MemorySettings settings;
  EXPECT_EQ(ReadSetting(settings, "checkBaseUrl", "d"), "d");
  settings.values["ZEM\\Diag\\Kelmar\\checkBaseUrl"] = "";
  EXPECT_EQ(ReadSetting(settings, "checkBaseUrl", "d"), "d");
  settings.values["ZEM\\Diag\\Kelmar\\checkBaseUrl"] = "u";
  EXPECT_EQ(ReadSetting(settings, "checkBaseUrl", "d"), "u");
}

TEST(Settings, RegistryValues_HaveFullPaths) {
  support::MemorySettings settings;
  EXPECT_EQ(RegistryReadValue(settings, "ZEM\\Diag\\Screen\\HideDIDPrefix"), "");
  RegistryWriteValue(settings, "ZEM\\Diag\\Screen\\HideDIDPrefix", "1");
  EXPECT_EQ(RegistryReadValue(settings, "ZEM\\Diag\\Screen\\HideDIDPrefix"), "1");
}

} // namespace
} // namespace kelmar::platform
