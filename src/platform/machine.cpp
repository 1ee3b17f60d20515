// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/machine.h"

#include <cstdlib>
#include <ctime>

namespace kelmar::platform {

namespace {

class MachineClock final : public Clock {
 public:
  // The variable is looked up at each call, so that a test can fix the clock after the first use.
  DateTime localNow() const override {
    if (const char* fixed = std::getenv("KELMAR_CLOCK"))
      if (const auto moment = toDateTime(fixed)) return *moment;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    // A leap second has no place in the fields of the file.
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
  }
};

} // namespace

const Clock& machineClock() {
  static const MachineClock clock;
  return clock;
}

} // namespace kelmar::platform
