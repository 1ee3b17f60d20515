// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/version.h"
#include "database/omnikor_lib_xml.h"
#include "frame/kelmar_form.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/small_site.h"
#include "support/user.h"

#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <gtest/gtest.h>

// The program as it is built, in a real X server with a window manager, used from outside.

namespace kelmar {

namespace {

constexpr int patience = 30'000; // ms

/// The program, ended at the end of the test if it still runs.
class Program {
 public:
  explicit Program(const QStringList& arguments, const QProcessEnvironment& environment =
                                                     QProcessEnvironment::systemEnvironment()) {
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(KELMAR_PROGRAM), arguments);
    if (!process_.waitForStarted(patience))
      throw std::runtime_error("kelmar does not start");
  }
  ~Program() {
    if (process_.state() == QProcess::NotRunning)
      return;
    process_.terminate();
    if (!process_.waitForFinished(patience))
      process_.kill();
    process_.waitForFinished(patience);
  }

  bool ended() { return process_.waitForFinished(patience); }
  bool running() { return process_.state() == QProcess::Running; }
  int exitCode() { return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1; }
  std::string output() { return process_.readAllStandardOutput().toStdString(); }
  std::string errors() { return process_.readAllStandardError().toStdString(); }

 private:
  QProcess process_;
};

/// What xdotool prints; empty when it fails.
QString xdotool(const QStringList& arguments) {
  QProcess tool;
  tool.start(QStringLiteral("xdotool"), arguments);
  if (!tool.waitForFinished(patience) || tool.exitCode() != 0)
    return {};
  return QString::fromLocal8Bit(tool.readAllStandardOutput()).trimmed();
}

QStringList windowsWith(const QString& caption) {
  return xdotool({"search", "--onlyvisible", "--name", "^" + caption + "$"})
      .split('\n', Qt::SkipEmptyParts);
}

QString windowWith(const QString& caption) {
  if (!support::waitUntil([&] { return !windowsWith(caption).isEmpty(); }, patience))
    throw std::runtime_error("there is no window " + caption.toStdString());
  return windowsWith(caption).front();
}

const QString captionOfNothing =
    QStringLiteral("Kelmar Xml - v") + QString::fromLatin1(applicationVersion);
QString captionOf(const QString& ecu) {
  return QStringLiteral("Kelmar Xml v") + QString::fromLatin1(applicationVersion) + ": " + ecu;
}

/// Place of the inner window on the screen, in pixels.
QPoint placeOf(const QString& window) {
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
void focus(const QString& window) {
  xdotool({"windowactivate", "--sync", window});
  ASSERT_TRUE(support::waitUntil([&] { return xdotool({"getwindowfocus"}) == window; }, patience));
}

void press(const QString& key) { xdotool({"key", "--clearmodifiers", key}); }

QProcessEnvironment environmentWithout(const QStringList& names) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const QString& name : names)
    environment.remove(name);
  return environment;
}

std::string nameIn(const std::string& file) {
  OmnikorLibXml database;
  database.ImportUceFromXml(file);
  return database.ActiveTarget->name();
}

/// Where a control of the window stands in it, found in a window of this process that is made
/// from the same code at the same size.
QPoint placeInWindow(const support::SmallSite& site, const QString& control) {
  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::NotedProcesses processes;
  platform::SiteStart start;
  start.site = site.root();
  start.language = "en";
  platform::SiteSettings siteSettings(start);
  KelmarForm form({person, settings, processes, siteSettings}, {});
  form.start("");
  support::showToUser(form);
  form.openFile(site.engine());
  QCoreApplication::processEvents();
  const QWidget& found = support::controlNamed(form, control);
  return found.mapTo(&form, found.rect().center());
}

QStringList onSite(const support::SmallSite& site, const QStringList& more = {}) {
  return QStringList{"--site", QString::fromStdString(site.root()), "--lang", "en"} + more;
}

} // namespace

TEST(Program, HelpAndVersionNeedNoDisplay) {
  const QProcessEnvironment bare = environmentWithout({"DISPLAY", "QT_QPA_PLATFORM"});
  Program help({"--help"}, bare);
  ASSERT_TRUE(help.ended());
  EXPECT_EQ(help.exitCode(), 0);
  EXPECT_NE(help.output().find("Usage: kelmar"), std::string::npos);
  EXPECT_EQ(help.errors(), "");
  Program version({"--version"}, bare);
  ASSERT_TRUE(version.ended());
  EXPECT_EQ(version.exitCode(), 0);
  EXPECT_EQ(version.output(), std::string("kelmar ") + applicationVersion + "\n" +
                                  applicationCopyright + "\n");
}

TEST(Program, WrongOptionEndsWithTwo) {
  Program program({"--nothing"});
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 2);
  EXPECT_EQ(program.errors(), "kelmar: unknown option --nothing\nTry 'kelmar --help'.\n");
}

TEST(Program, SaysThatThereIsNoDisplay) {
  Program program({}, environmentWithout({"DISPLAY", "QT_QPA_PLATFORM"}));
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_EQ(program.errors(),
            "kelmar: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set\n");
}

TEST(Program, SaysThatTheDisplayCannotBeReached) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", ":9999");
  Program program({}, environment);
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_NE(program.errors().find("kelmar: the display cannot be used"), std::string::npos);
}

TEST(Program, MissingLanguageFileIsToldAndEndsWithOne) {
  const support::TempFolder empty;
  Program program({"--site", QString::fromStdString(empty.path().string())});
  const QString box = windowWith("Kelmar");
  focus(box);
  press("Return");
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_EQ(program.errors(), "kelmar: Unable to read language file : " + empty.path().string() +
                                  "/lang/KelmarX.xml\n");
}

TEST(Program, EndsAfterItsFirstPaintWhenItIsMeasured) {
  const support::SmallSite site;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("KELMAR_EXIT_AFTER_PAINT", "1");
  Program program(onSite(site), environment);
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.errors(), "");
}

TEST(Program, OpensEditsSavesAndTheFileReadsBack) {
  const support::SmallSite site;
  const QPoint nameField = placeInWindow(site, "TxEcuName");
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("KELMAR_CLOCK", "2026-01-02T03:04");
  Program program(onSite(site, {QString::fromStdString(site.engine())}), environment);
  const QString window = windowWith(captionOf("Engine"));
  focus(window);
  xdotool({"mousemove", "--sync", "--window", window, QString::number(nameField.x()),
           QString::number(nameField.y()), "click", "1"});
  press("ctrl+a");
  xdotool({"type", "--delay", "20", "Engine two"});
  press("ctrl+s");
  EXPECT_TRUE(support::waitUntil([&] { return nameIn(site.engine()) == "Engine two"; }, patience));
  EXPECT_NE(support::bytesOf(site.engine()).find("date=\"2026-01-02T03:04\""), std::string::npos);
  press("ctrl+q");
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.errors(), "");
}

TEST(Program, OpensAFileThatIsMissingWithABox) {
  const support::SmallSite site;
  Program program(onSite(site, {QString::fromStdString(site.file("missing.xml"))}));
  windowWith(captionOfNothing);
  const QString box = windowWith("Open Ecu file error");
  focus(box);
  press("Return");
  EXPECT_TRUE(support::waitUntil([&] { return windowsWith("Open Ecu file error").isEmpty(); }));
  EXPECT_TRUE(program.running());
}

TEST(Program, FurtherInstanceStandsSixteenPixelsAway) {
  const support::SmallSite site;
  Program program(onSite(site, {"600,450"}));
  const QString first = windowWith(captionOfNothing);
  focus(first);
  press("alt+f"); // opens the menu on its first entry
  press("Return");
  ASSERT_TRUE(support::waitUntil([&] { return windowsWith(captionOfNothing).size() == 2; },
                                 patience));
  QStringList both = windowsWith(captionOfNothing);
  both.removeAll(first);
  ASSERT_EQ(both.size(), 1);
  const QString second = both.front();
  EXPECT_TRUE(support::waitUntil([&] { return placeOf(second) - placeOf(first) == QPoint(16, 16); }))
      << placeOf(first).x() << "," << placeOf(first).y() << " and " << placeOf(second).x() << ","
      << placeOf(second).y();
  focus(second);
  press("ctrl+q");
  EXPECT_TRUE(support::waitUntil([&] { return windowsWith(captionOfNothing).size() == 1; },
                                 patience));
  EXPECT_TRUE(program.running());
}

} // namespace kelmar
