// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/temp_folder.h"
#include "support/user.h"
#include "support/virtual_screen.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using namespace kelmar::support;

namespace {

/// The display that a child process brings up, which it then leaves in one way or another.
std::string displayOfChild(const std::function<void()>& leave) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::unsetenv("DISPLAY");
    std::signal(SIGABRT, SIG_DFL);
    const TempFolder folder;
    const VirtualScreen screen(folder.path().string());
    const std::string display = std::getenv("DISPLAY");
    const ssize_t written = ::write(ends[1], display.data(), display.size());
    if (written > 0) leave();
    ::_exit(0);
  }
  ::close(ends[1]);
  std::string display(16, 0);
  const ssize_t size = ::read(ends[0], display.data(), display.size());
  display.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return display;
}

bool isUp(const std::string& display) {
  return ::access(("/tmp/.X11-unix/X" + display.substr(1)).c_str(), F_OK) == 0;
}

TEST(VirtualScreen, IsLeftAloneWhereThereIsADisplay) {
  const std::string before = std::getenv("DISPLAY");
  const TempFolder folder;
  const VirtualScreen screen(folder.path().string());
  EXPECT_EQ(std::getenv("DISPLAY"), before);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(VirtualScreen, EndsWithAProcessThatIsKilled) {
  const std::string display = displayOfChild([] { ::kill(::getpid(), SIGKILL); });
  ASSERT_EQ(display.substr(0, 1), ":");
  EXPECT_TRUE(waitUntil([&] { return !isUp(display); }, 10'000));
}

TEST(VirtualScreen, EndsWithAProcessThatLeavesWithoutCleaningUp) {
  const std::string display = displayOfChild([] { ::_exit(3); });
  ASSERT_EQ(display.substr(0, 1), ":");
  EXPECT_TRUE(waitUntil([&] { return !isUp(display); }, 10'000));
}

} // namespace
