// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/version.h"
#include "database/omnikor_lib_xml.h"
#include "frame/kelmar_form.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/small_site.h"
#include "support/user.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

// The program as it is built, in a real X server with a window manager, used from outside.

namespace kelmar::outside {

inline constexpr int patience = 30'000; // ms

/// The program, ended at the end of the test if it still runs.
class Program {
 public:
  explicit Program(const QStringList& arguments, const QProcessEnvironment& environment =
                                                     QProcessEnvironment::systemEnvironment()) {
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(KELMAR_PROGRAM), arguments);
    if (!process_.waitForStarted(patience)) throw std::runtime_error("kelmar does not start");
  }
  ~Program() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (!process_.waitForFinished(patience)) process_.kill();
    process_.waitForFinished(patience);
  }

  bool ended() { return !running() || process_.waitForFinished(patience); }
  bool running() { return process_.state() != QProcess::NotRunning; }
  int exitCode() {
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
  }
  std::string output() { return process_.readAllStandardOutput().toStdString(); }
  std::string errors() { return process_.readAllStandardError().toStdString(); }

 private:
  QProcess process_;
};

/// What xdotool prints; empty when it fails.
inline QString xdotool(const QStringList& arguments) {
  QProcess tool;
  tool.start(QStringLiteral("xdotool"), arguments);
  // Meanwhile this process answers programs that ask it for its clipboard.
  const bool ended =
      support::waitUntil([&] { return tool.state() == QProcess::NotRunning; }, patience);
  if (!ended || tool.error() == QProcess::FailedToStart || tool.exitCode() != 0) return {};
  return QString::fromLocal8Bit(tool.readAllStandardOutput()).trimmed();
}

inline QStringList windowsWith(const QString& caption) {
  return xdotool({"search", "--onlyvisible", "--name", "^" + caption + "$"})
      .split('\n', Qt::SkipEmptyParts);
}

inline QString windowWith(const QString& caption) {
  if (!support::waitUntil([&] { return !windowsWith(caption).isEmpty(); }, patience))
    throw std::runtime_error("there is no window " + caption.toStdString());
  return windowsWith(caption).front();
}

inline const QString captionOfNothing =
    QStringLiteral("Kelmar Xml - v") + QString::fromLatin1(applicationVersion);
inline QString captionOf(const QString& ecu) {
  return QStringLiteral("Kelmar Xml v") + QString::fromLatin1(applicationVersion) + ": " + ecu;
}

/// Place of the inner window on the screen, in pixels.
inline QPoint placeOf(const QString& window) {
  const QString text = xdotool({"getwindowgeometry", "--shell", window});
  const auto number = [&text](const QString& name) {
    const QRegularExpressionMatch found =
        QRegularExpression("^" + name + "=(-?\\d+)$", QRegularExpression::MultilineOption)
            .match(text);
    return found.captured(1).toInt();
  };
  return {number("X"), number("Y")};
}

/// Keys go to the window that has the input, as a person's would.
inline void focus(const QString& window) {
  xdotool({"windowactivate", "--sync", window});
  ASSERT_TRUE(support::waitUntil([&] { return xdotool({"getwindowfocus"}) == window; }, patience));
}

inline void press(const QString& key) {
  xdotool({"key", "--clearmodifiers", key});
}

/// Points in pixels of the window.
inline void moveTo(const QString& window, QPoint point) {
  xdotool({"mousemove", "--sync", "--window", window, QString::number(point.x()),
           QString::number(point.y())});
}
inline void clickAt(const QString& window, QPoint point) {
  moveTo(window, point);
  xdotool({"click", "1"});
}

inline QProcessEnvironment environmentWithout(const QStringList& names) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const QString& name : names)
    environment.remove(name);
  return environment;
}

inline std::string nameIn(const std::string& file) {
  OmnikorLibXml database;
  database.ImportUceFromXml(file);
  return database.ActiveTarget->name();
}

inline QStringList onSite(const support::SmallSite& site, const QStringList& more = {}) {
  return QStringList{"--site", QString::fromStdString(site.root()), "--lang", "en"} + more;
}

} // namespace kelmar::outside
