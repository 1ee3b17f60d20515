// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/temp_folder.h"

#include <string>

namespace kelmar::support {

/// A data root of a few files in a folder of its own: parameters, addressing, texts in English and
/// French, a help page and two ECUs.
class SmallSite {
 public:
  SmallSite();

  std::string root() const { return folder_.path().string(); }
  /// Absolute path of a name below the root.
  std::string file(std::string_view name) const { return folder_.file(name); }
  const TempFolder& folder() const { return folder_; }

  /// Path of the ECU named "Engine".
  std::string engine() const { return file("vehicles/Tern/Engine.xml"); }

 private:
  TempFolder folder_;
};

/// The text of an ECU file of one data and one request.
std::string smallEcu(const std::string& name);

} // namespace kelmar::support
