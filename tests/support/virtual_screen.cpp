// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/virtual_screen.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace kelmar::support {

namespace {

constexpr int patience = 20'000; // ms

/// Starts a program that the kernel ends with us; its output goes nowhere.
pid_t startTied(std::vector<std::string> words, int keptOpen = -1) {
  std::vector<char*> arguments;
  for (std::string& word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t parent = ::getpid();
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::prctl(PR_SET_PDEATHSIG, SIGTERM); // the server removes its lock file on this one
  if (::getppid() != parent) ::_exit(1);
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (int standard = 0; standard < 3; ++standard)
    ::dup2(nowhere, standard);
  if (keptOpen >= 0) ::fcntl(keptOpen, F_SETFD, 0);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

void end(pid_t& process) {
  if (process <= 0) return;
  ::kill(process, SIGTERM);
  ::waitpid(process, nullptr, 0);
  process = 0;
}

/// The number that the server writes when it is ready.
std::string displayNumber(int readEnd) {
  std::string number;
  pollfd waiting{readEnd, POLLIN, 0};
  while (number.empty() || number.back() != '\n') {
    if (::poll(&waiting, 1, patience) <= 0)
      throw std::runtime_error("the virtual X server did not come up");
    char byte = 0;
    if (::read(readEnd, &byte, 1) != 1)
      throw std::runtime_error("there is no display, and Xvfb does not start");
    number += byte;
  }
  number.pop_back();
  return number;
}

} // namespace

VirtualScreen::VirtualScreen(const std::string& folder) {
  if (const char* display = std::getenv("DISPLAY"); display && *display) return;
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe to the virtual X server");
  // Without repeating: on a loaded machine a key that is pressed from outside may be held for long.
  server_ = startTied({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "1366x768x24",
                       "-nolisten", "tcp", "-noreset", "-r"},
                      ends[1]);
  ::close(ends[1]);
  try {
    ::setenv("DISPLAY", (":" + displayNumber(ends[0])).c_str(), 1);
  } catch (...) {
    ::close(ends[0]);
    end(server_);
    throw;
  }
  ::close(ends[0]);

  const std::string ready = folder + "/window-manager-ready";
  manager_ = startTied({"openbox", "--sm-disable", "--startup", "/bin/touch " + ready});
  for (int waited = 0; !std::filesystem::exists(ready) && waited < patience; waited += 20)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  if (!std::filesystem::exists(ready)) {
    end(manager_);
    end(server_);
    throw std::runtime_error("the window manager openbox does not start");
  }
}

VirtualScreen::~VirtualScreen() {
  end(manager_);
  end(server_);
}

} // namespace kelmar::support
