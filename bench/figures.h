// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"
#include "platform/person.h"

#include <algorithm>
#include <ctime>
#include <vector>

// What the measuring programs share. Each prints its figures in seconds.

namespace kelmar::bench {

class StandingClock final : public platform::Clock {
 public:
  DateTime localNow() const override { return {2026, 1, 15, 8, 30, 0}; }
};

/// Says Yes to everything.
class WillingPerson final : public platform::Person {
 public:
  platform::Answer message(const platform::Box& box) override {
    const bool hasOk =
        box.buttons == platform::Buttons::Ok || box.buttons == platform::Buttons::OkCancel;
    return hasOk ? platform::Answer::Ok : platform::Answer::Yes;
  }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }
};

/// Of the processor, in this thread: all that is measured here is done in one thread, and a busy
/// machine then counts less.
template <class Action>
double secondsOf(Action action) {
  const auto now = [] {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double begin = now();
  action();
  return now() - begin;
}

inline double leastOf(const std::vector<double>& values) {
  return *std::min_element(values.begin(), values.end());
}

inline double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

} // namespace kelmar::bench
