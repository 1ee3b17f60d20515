// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <QSettings>

namespace kelmar::desktop {

/// The user's settings, in the desktop's own format and place. The names of a path are nested
/// groups: `ZEM\Diag\Kelmar\RecentFile1` is the value RecentFile1 of the group ZEM/Diag/Kelmar.
class SettingsStore : public platform::Settings {
 public:
  /// $XDG_CONFIG_HOME/kelmar/kelmar.conf, usually in ~/.config.
  SettingsStore();
  explicit SettingsStore(const std::string& file);

  /// As it stands in the file now.
  std::optional<std::string> read(const std::string& path) const override;
  /// Kept at once, for other instances to see. Raises FileAccessFailed when the file cannot be
  /// written.
  void write(const std::string& path, const std::string& value) override;
  void remove(const std::string& path) override;

  std::string file() const;

 private:
  void keep();

  mutable QSettings settings_; // reading brings it up to date
};

} // namespace kelmar::desktop
