// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings_store.h"

#include "base/failure.h"
#include "desktop/qt_text.h"
#include "platform/files.h"
#include "platform/path_tools.h"

namespace kelmar::desktop {

namespace {

// Looked up by ourselves: the toolkit asks the environment only once in the life of a process.
std::string defaultFile() {
  return platform::joinPath(platform::desktopFolder("XDG_CONFIG_HOME", ".config"),
                            "kelmar/kelmar.conf");
}

QString keyOf(const std::string& path) {
  QString key = qs(path);
  return key.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

} // namespace

SettingsStore::SettingsStore() : SettingsStore(defaultFile()) {}

SettingsStore::SettingsStore(const std::string& file) : settings_(qs(file), QSettings::IniFormat) {}

std::optional<std::string> SettingsStore::read(const std::string& path) const {
  settings_.sync(); // another instance may have written since
  const QVariant value = settings_.value(keyOf(path));
  // A list is what a person made of an unquoted comma in the file.
  if (value.metaType().id() == QMetaType::QStringList)
    return u8(value.toStringList().join(QLatin1String(", ")));
  return value.isValid() ? std::optional(u8(value.toString())) : std::nullopt;
}

void SettingsStore::write(const std::string& path, const std::string& value) {
  settings_.setValue(keyOf(path), qs(value));
  keep();
}

void SettingsStore::remove(const std::string& path) {
  // Without the test a path that is a group would take all of its values along.
  if (!settings_.contains(keyOf(path))) return;
  settings_.remove(keyOf(path));
  keep();
}

std::string SettingsStore::file() const {
  return u8(settings_.fileName());
}

void SettingsStore::keep() {
  settings_.sync();
  if (settings_.status() != QSettings::NoError)
    throw Failure(FileAccessFailed, "SettingsStore", "Cannot write the settings file " + file());
}

} // namespace kelmar::desktop
