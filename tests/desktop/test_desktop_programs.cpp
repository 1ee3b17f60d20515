// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/child_processes.h"
#include "desktop/desktop_entry.h"
#include "desktop/desktop_programs.h"
#include "support/machine_doubles.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace kelmar;
using namespace kelmar::desktop;
using support::NotedProcesses;
using support::TempFolder;
using Words = std::vector<std::string>;

namespace {

/// An environment variable for the length of a test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    ::setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (before_)
      ::setenv(name_, before_->c_str(), 1);
    else
      ::unsetenv(name_);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(CommandWords, KeepTogetherWhatIsQuoted) {
  EXPECT_EQ(commandWords(R"(run "a b" 'c "d"' e\ f)"), (Words{"run", "a b", "c \"d\"", "e f"}));
  EXPECT_EQ(commandWords("  a\t b \n"), (Words{"a", "b"}));
  EXPECT_EQ(commandWords(R"(a "" b)"), (Words{"a", "", "b"}));
  EXPECT_EQ(commandWords("$HOME *; rm `x` > y"), (Words{"$HOME", "*;", "rm", "`x`", ">", "y"}));
  EXPECT_EQ(commandWords("a \"open"), (Words{"a", "open"}));
  EXPECT_TRUE(commandWords("  ").empty());
}

TEST(ExecLine, IsThatOfTheMainGroup) {
  EXPECT_EQ(execLineOf("[Desktop Action New]\nExec=wrong\n[Desktop Entry]\r\nName=B\r\n"
                       "Exec = browse --x %u\r\n[Other]\nExec=wrong"),
            "browse --x %u");
  EXPECT_EQ(execLineOf("[Desktop Entry]\nExecutable=no\nTryExec=no\n"), "");
  EXPECT_EQ(execLineOf("[Desktop Entry]\nExec=a\\sb\\\\\\\\c\n"), "a b\\\\c");
  EXPECT_EQ(execLineOf(""), "");
}

TEST(ExecWords, PutTheAddressInItsPlace) {
  const std::string page = "file:///a%20b/help.htm#part two";
  EXPECT_EQ(execWords("browse --new %u", page), (Words{"browse", "--new", page}));
  EXPECT_EQ(execWords("browse %F --last", page), (Words{"browse", page, "--last"}));
  EXPECT_EQ(execWords("browse", page), (Words{"browse", page}));
  EXPECT_EQ(execWords("browse %i %c --url=%U 100%%", page),
            (Words{"browse", "--url=" + page, "100%"}));
  EXPECT_TRUE(execWords("", page).empty());
}

class DesktopProgramsTest : public testing::Test {
 protected:
  TempFolder folder;
  Variable config{"XDG_CONFIG_HOME", folder.file("config")};
  Variable data{"XDG_DATA_HOME", folder.file("data")};
  Variable systemConfig{"XDG_CONFIG_DIRS", folder.file("etc")};
  Variable systemData{"XDG_DATA_DIRS", folder.file("share")};
  Variable noDesktop{"XDG_CURRENT_DESKTOP", ""};
  NotedProcesses processes;
  DesktopPrograms programs{processes};

  void chooseBrowser(const std::string& list, const std::string& entry) {
    folder.write(list, "[Added Associations]\nx-scheme-handler/http=wrong.desktop\n"
                       "[Default Applications]\ntext/html=wrong.desktop\n"
                       "x-scheme-handler/http=" +
                           entry + ";other.desktop;\n");
  }
};

TEST_F(DesktopProgramsTest, TheVariableNamesTheBrowser) {
  const Variable browser("BROWSER", "my-browser --tab:lynx");
  EXPECT_EQ(programs.browserCommand(), "my-browser --tab");
}

TEST_F(DesktopProgramsTest, TheVariableMayMarkThePlaceOfTheAddress) {
  const Variable browser("BROWSER", "my-browser %s --tab");
  EXPECT_EQ(programs.browserCommand(), "my-browser %u --tab");
}

TEST_F(DesktopProgramsTest, ElseTheChoiceOfTheDesktopHolds) {
  chooseBrowser("config/mimeapps.list", "fox.desktop");
  folder.write("share/applications/fox.desktop", "[Desktop Entry]\nExec=/usr/bin/fox --new %u\n");
  EXPECT_EQ(programs.browserCommand(), "/usr/bin/fox --new %u");
}

TEST_F(DesktopProgramsTest, TheUsersChoiceGoesBeforeTheSystems) {
  chooseBrowser("etc/mimeapps.list", "system.desktop");
  chooseBrowser("config/mimeapps.list", "mine.desktop");
  folder.write("data/applications/mine.desktop", "[Desktop Entry]\nExec=mine\n");
  folder.write("share/applications/system.desktop", "[Desktop Entry]\nExec=system\n");
  EXPECT_EQ(programs.browserCommand(), "mine");
}

TEST_F(DesktopProgramsTest, TheListOfTheDesktopGoesBeforeTheGeneralOne) {
  const Variable desktop("XDG_CURRENT_DESKTOP", "Dream:GNOME");
  chooseBrowser("config/mimeapps.list", "general.desktop");
  chooseBrowser("config/dream-mimeapps.list", "dream.desktop");
  folder.write("data/applications/dream.desktop", "[Desktop Entry]\nExec=dream\n");
  EXPECT_EQ(programs.browserCommand(), "dream");
}

TEST_F(DesktopProgramsTest, NoChoiceGivesAnEmptyCommand) {
  EXPECT_EQ(programs.browserCommand(), "");
  chooseBrowser("config/mimeapps.list", "absent.desktop");
  EXPECT_EQ(programs.browserCommand(), "");
}

TEST_F(DesktopProgramsTest, APageIsOpenedWithItsWholeAddress) {
  EXPECT_TRUE(programs.openPage("file:///site/doc/a.htm#b; touch x", "fox --new %u"));
  EXPECT_EQ(processes.started, Words{"fox --new file:///site/doc/a.htm#b; touch x"});
}

TEST_F(DesktopProgramsTest, TheBrowserIsARealChildAndNoShellSeesTheAddress) {
  const std::string log = folder.file("log");
  const std::string browser = folder.write("browser", "#!/bin/sh\nprintf '%s|' \"$@\" > " + log +
                                                          ".part; mv " + log + ".part " + log);
  std::filesystem::permissions(browser, std::filesystem::perms::owner_all);
  ChildProcesses real;
  EXPECT_TRUE(DesktopPrograms(real).openPage("file:///a%20b.htm#$(id) 'q'", browser + " -n"));
  ASSERT_TRUE(support::waitUntil([&] { return std::filesystem::exists(log); }));
  EXPECT_EQ(support::bytesOf(log), "-n|file:///a%20b.htm#$(id) 'q'|");
}

TEST_F(DesktopProgramsTest, TheFirstCalculatorThatStartsIsTaken) {
  EXPECT_TRUE(programs.startCalculator());
  EXPECT_EQ(processes.started, Words{"gnome-calculator"});
}

TEST_F(DesktopProgramsTest, WithoutACalculatorNothingHappens) {
  processes.succeeds = false;
  EXPECT_FALSE(programs.startCalculator());
  EXPECT_EQ(processes.started,
            (Words{"gnome-calculator", "kcalc", "galculator", "mate-calc", "xcalc"}));
}

} // namespace
