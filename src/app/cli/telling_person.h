// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/person.h"

#include <optional>
#include <string>

namespace kelmar::cli {

/// Who answers the boxes of a command: tells each on standard error as "kelmar-cli: box: TITLE:
/// TEXT", with line breaks written as "\n", and gives the one answer.
class TellingPerson : public platform::Person {
 public:
  /// Without an answer, that of the first button. One that a box does not have becomes its nearest:
  /// a box with OK and Cancel takes Yes as OK and No as Cancel, one with Yes and No takes Cancel as
  /// No.
  explicit TellingPerson(std::optional<platform::Answer> answer = std::nullopt) : answer_(answer) {}

  platform::Answer message(const platform::Box& box) override;
  /// Cancelled: files are named on the command line.
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }

 private:
  std::optional<platform::Answer> answer_;
};

} // namespace kelmar::cli
