// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_programs.h"

#include "base/text.h"
#include "desktop/desktop_entry.h"
#include "desktop/qt_text.h"

#include <QDesktopServices>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

namespace kelmar::desktop {

namespace {

constexpr const char* calculators[] = {"gnome-calculator", "kcalc", "galculator", "mate-calc",
                                       "xcalc"};
constexpr const char* webPage = "x-scheme-handler/http";

std::string textOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// The user's choice among the associations of the desktop: mimeapps.list of the user, then of the
/// system, and of each the desktop's own before the general one.
std::string chosenBrowserEntry() {
  QStringList names;
  for (const QString& desktop :
       qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts))
    names << desktop.toLower() + QLatin1String("-mimeapps.list");
  names << QStringLiteral("mimeapps.list");
  QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
  folders << QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
  for (const QString& folder : folders)
    for (const QString& name : names) {
      bool inGroup = false;
      for (const std::string& raw :
           split(replaceAll(textOf(folder + QLatin1Char('/') + name), "\r", ""), "\n")) {
        const std::string_view line = trimBlanks(raw);
        if (line.starts_with('['))
          inGroup = line == "[Default Applications]";
        else if (const auto equals = line.find('=');
                 inGroup && equals != line.npos && trimBlanks(line.substr(0, equals)) == webPage)
          for (const std::string& entry : split(line.substr(equals + 1), ";"))
            if (!trimBlanks(entry).empty()) return std::string(trimBlanks(entry));
      }
    }
  return {};
}

} // namespace

std::string DesktopPrograms::browserCommand() const {
  // Several commands may stand in the variable, parted by colons; the first is the favourite.
  const std::string wanted = u8(qEnvironmentVariable("BROWSER"));
  const std::string first = split(wanted, ":").front();
  if (!trimBlanks(first).empty()) return std::string(trimBlanks(replaceAll(first, "%s", "%u")));
  const std::string entry = chosenBrowserEntry();
  if (entry.empty()) return {};
  const QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, qs(entry));
  return file.isEmpty() ? std::string() : execLineOf(textOf(file));
}

bool DesktopPrograms::openPage(const std::string& address,
                               const std::string& browserCommand) const {
  const std::vector<std::string> words = execWords(browserCommand, address);
  if (!words.empty() && processes_.start(words.front(), {words.begin() + 1, words.end()}))
    return true;
  return QDesktopServices::openUrl(QUrl(qs(address), QUrl::TolerantMode));
}

bool DesktopPrograms::startCalculator() const {
  for (const char* program : calculators)
    if (processes_.start(program, {})) return true;
  return false;
}

} // namespace kelmar::desktop
