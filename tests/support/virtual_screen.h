// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <sys/types.h>

namespace kelmar::support {

/// A real X server with a window manager, in memory, for a machine without a display. Both end
/// with this process, however it ends.
class VirtualScreen {
 public:
  /// Starts it when the environment names no display, and sets DISPLAY. `folder` takes the mark
  /// by which the window manager says that it is ready. Raises std::runtime_error when the server
  /// does not come up within 20 seconds.
  explicit VirtualScreen(const std::string& folder);
  ~VirtualScreen();
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;

 private:
  pid_t server_ = 0, manager_ = 0;
};

} // namespace kelmar::support
