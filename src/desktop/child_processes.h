// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

namespace kelmar::desktop {

/// Runs programs directly, never through a shell.
class ChildProcesses : public platform::Processes {
 public:
  /// The line is taken apart as commandWords says. A program that cannot be started ends the
  /// call at once; otherwise, with `withEvents`, pending events run once, and then it waits without
  /// limit. The window style has no meaning to window managers here and is ignored.
  void ShellAndWait(const std::string& command, int windowStyle, bool withEvents) override;
  bool start(const std::string& program, const std::vector<std::string>& arguments) override;
};

} // namespace kelmar::desktop
