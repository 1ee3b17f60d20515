// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <string>

namespace kelmar::desktop {

/// Programs of the user's desktop: the browser and the calculator. No shell sees an address.
class DesktopPrograms {
 public:
  /// `processes` must outlive it.
  explicit DesktopPrograms(platform::Processes& processes) : processes_(processes) {}

  /// The command that shows web pages: the environment variable BROWSER (its first command), else
  /// the Exec line of the desktop's chosen browser; "%u" marks the place of the address. Empty
  /// when neither is there. Costs a file search; nothing is started.
  std::string browserCommand() const;

  /// Shows the page at an address, a "#" and what follows it included, with the command, or, when
  /// that is empty or does not start, with whatever the desktop has for it. False when nothing
  /// could be started.
  bool openPage(const std::string& address, const std::string& browserCommand) const;

  /// The first calculator that starts. False when the desktop has none.
  bool startCalculator() const;

 private:
  platform::Processes& processes_;
};

} // namespace kelmar::desktop
