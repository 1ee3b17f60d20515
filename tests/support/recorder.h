// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kelmar::support {

/// One list for all that happens in a test, signals and boxes alike, so that their order can be
/// compared.
class Recorder {
 public:
  void note(std::string event) { events_.push_back(std::move(event)); }

  const std::vector<std::string>& events() const { return events_; }
  /// The events so far; the list is empty afterwards.
  std::vector<std::string> take() { return std::exchange(events_, {}); }

 private:
  std::vector<std::string> events_;
};

} // namespace kelmar::support
