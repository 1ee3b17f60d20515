// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/child_processes.h"
#include "support/temp_folder.h"

#include <QTest>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar::desktop {
namespace {

using support::TempFolder;

TEST(ChildProcesses, ShellAndWait_ReturnsWhenTheProcessHasEnded) {
  const TempFolder folder;
  ChildProcesses processes;
  processes.ShellAndWait("sh -c 'sleep 0.3; echo done > \"" + folder.file("out file") + "\"'", 1,
                         false);
  EXPECT_EQ(support::bytesOf(folder.file("out file")), "done\n");
}

TEST(ChildProcesses, ShellAndWait_QuotesAsAShellDoesAndUsesNone) {
  const TempFolder folder;
  const std::string script = folder.write("words", "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$OUT\"\n");
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  ::setenv("OUT", folder.file("out").c_str(), 1);
  ChildProcesses().ShellAndWait(script + " 'a  b' \"c d\" e\\ f '' $HOME *; | >x \"é\"", 1, false);
  ::unsetenv("OUT");
  EXPECT_EQ(support::bytesOf(folder.file("out")), "a  b\nc d\ne f\n\n$HOME\n*;\n|\n>x\né\n");
}

TEST(ChildProcesses, ShellAndWait_RunsPendingEventsOnceBeforeTheWaitWhenAsked) {
  const TempFolder folder;
  for (const bool withEvents : {true, false}) {
    std::filesystem::remove(folder.file("ended"));
    // With events, the process waits for what the first of them does.
    const std::string event = withEvents ? "until [ -e ran ]; do sleep 0.01; done; " : "";
    const std::string command =
        "sh -c 'cd " + folder.path().string() + "; " + event + "sleep 0.3; touch ended'";
    int ran = 0;
    QTimer::singleShot(0, qApp, [&] {
      ++ran;
      folder.write("ran", "");
      QTimer::singleShot(50, qApp, [&] { ++ran; }); // comes due during the wait
    });
    ChildProcesses().ShellAndWait(command, 1, withEvents);
    EXPECT_EQ(ran, withEvents ? 1 : 0);
    EXPECT_TRUE(std::filesystem::exists(folder.file("ended")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran == 2; }, 10000));
  }
}

TEST(ChildProcesses, ShellAndWait_ReturnsAtOnceWhenNothingCanBeStarted) {
  int ran = 0;
  QTimer::singleShot(0, qApp, [&] { ++ran; });
  for (const char* command : {"", "   ", "/no/such/program x", "'unclosed", "/"})
    ChildProcesses().ShellAndWait(command, 1, true);
  EXPECT_EQ(ran, 0);
  QTest::qWait(1);
  EXPECT_EQ(ran, 1);
}

TEST(ChildProcesses, ShellAndWait_IgnoresHowTheProcessEnded) {
  EXPECT_NO_THROW(ChildProcesses().ShellAndWait("sh -c 'exit 7'", 1, false));
  EXPECT_NO_THROW(ChildProcesses().ShellAndWait("sh -c 'kill -9 $$'", 0, true));
}

TEST(ChildProcesses, ShellAndWait_GivesTheProcessNoInputToWaitFor) {
  const TempFolder folder;
  ChildProcesses().ShellAndWait("sh -c 'cat; touch " + folder.file("ended") + "'", 1, false);
  EXPECT_TRUE(std::filesystem::exists(folder.file("ended")));
}

TEST(ChildProcesses, Start_DoesNotWait) {
  const TempFolder folder;
  ChildProcesses processes;
  EXPECT_TRUE(processes.start("sh", {"-c", "until [ -e \"$1\" ]; do sleep 0.01; done; touch \"$0\"",
                                     folder.file("a b"), folder.file("go")}));
  folder.write("go", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.file("a b")); }, 10000));
  EXPECT_FALSE(processes.start("/no/such/program", {}));
}

} // namespace
} // namespace kelmar::desktop
