// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/conversions.h"

#include <optional>
#include <string>
#include <vector>

namespace kelmar::platform {

// Small interfaces to the machine. All text is UTF-8; paths are local paths.

/// Fetches a document over HTTP. Raises Failure with a plain text (connection, time limit, status,
/// cut-off body). 10 seconds to connect, 30 in all.
class Fetch {
 public:
  virtual ~Fetch() = default;
  virtual std::string get(const std::string& url) = 0;
};

/// Per-user settings. A path such as `ZEM\Diag\Kelmar\RecentFile1` names one value.
class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::optional<std::string> read(const std::string& path) const = 0;
  virtual void write(const std::string& path, const std::string& value) = 0;
  virtual void remove(const std::string& path) = 0;
};

/// The clock; tests and benchmarks fix it.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime localNow() const = 0;
};

/// The machine's clock, or, when the environment variable KELMAR_CLOCK holds a date such as
/// "2026-01-02T03:04", that moment for ever.
const Clock& machineClock();

/// Starts programs.
class Processes {
 public:
  virtual ~Processes() = default;
  /// Runs the command line and waits without limit. Errors are ignored.
  virtual void ShellAndWait(const std::string& command, int windowStyle, bool withEvents) = 0;
  /// Starts `program` with arguments and does not wait. False when it could not start.
  virtual bool start(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

} // namespace kelmar::platform
