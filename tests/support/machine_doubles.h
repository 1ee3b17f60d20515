// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <map>

namespace kelmar::support {

/// A clock that stands still at 2026-01-02 03:04:00 until it is set.
class FixedClock : public platform::Clock {
 public:
  DateTime now{2026, 1, 2, 3, 4, 0};
  DateTime localNow() const override { return now; }
};

/// Settings that last as long as the test.
class MemorySettings : public platform::Settings {
 public:
  std::map<std::string, std::string> values;

  std::optional<std::string> read(const std::string& path) const override {
    const auto found = values.find(path);
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  void write(const std::string& path, const std::string& value) override { values[path] = value; }
  void remove(const std::string& path) override { values.erase(path); }
};

/// Notes what would be started, one line each: the program and its arguments joined by blanks.
class NotedProcesses : public platform::Processes {
 public:
  std::vector<std::string> started;
  bool succeeds = true;

  void ShellAndWait(const std::string& command, int, bool) override { started.push_back(command); }
  bool start(const std::string& program, const std::vector<std::string>& arguments) override {
    std::string line = program;
    for (const std::string& argument : arguments)
      line += " " + argument;
    started.push_back(line);
    return succeeds;
  }
};

} // namespace kelmar::support
