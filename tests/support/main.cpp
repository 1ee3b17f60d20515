// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/temp_folder.h"
#include "support/virtual_screen.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

extern char** environ;

/// Read by the leak checker where the tests are built with it: the message bus keeps one buffer
/// until the process ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libdbus-1\n";
}

namespace {

/// Nothing of the user who runs the tests may show in them, nor may they leave anything with him.
void furnish(const kelmar::support::TempFolder& home) {
  std::vector<std::string> ours;
  for (char** entry = environ; *entry; ++entry)
    if (std::strncmp(*entry, "KELMAR_", 7) == 0 && std::strncmp(*entry, "KELMAR_TEST_", 12) != 0)
      ours.emplace_back(*entry, std::strcspn(*entry, "="));
  for (const std::string& name : ours)
    ::unsetenv(name.c_str());
  for (const char* name : {"WAYLAND_DISPLAY", "LANGUAGE", "LC_MESSAGES", "QT_QPA_PLATFORMTHEME",
                           "QT_SCALE_FACTOR", "QT_AUTO_SCREEN_SCALE_FACTOR", "BROWSER"})
    ::unsetenv(name);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  ::setenv("QT_QPA_PLATFORM", "xcb", 1); // a real X server, never a drawing surface in memory
  ::setenv("QT_STYLE_OVERRIDE", "Fusion", 1);
  ::setenv("HOME", home.path().c_str(), 1);
  for (const char* name : {"CONFIG", "DATA", "CACHE", "STATE"}) {
    const std::filesystem::path folder = home.path() / name;
    std::filesystem::create_directories(folder);
    ::setenv((std::string("XDG_") + name + "_HOME").c_str(), folder.c_str(), 1);
  }
  const std::filesystem::path runtime = home.path() / "RUNTIME";
  std::filesystem::create_directories(runtime);
  std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
  ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
  // The same for the programs that tests start; without the leak checker nobody reads it.
  const std::filesystem::path leaks = home.path() / "leaks";
  std::ofstream(leaks) << __lsan_default_suppressions();
  ::setenv("LSAN_OPTIONS", ("print_suppressions=0:suppressions=" + leaks.string()).c_str(), 0);
}

} // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const kelmar::support::TempFolder home;
  furnish(home);
  const kelmar::support::VirtualScreen screen(home.path().string());
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setCursorFlashTime(0);
  return RUN_ALL_TESTS();
}
