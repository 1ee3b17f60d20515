// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pages.h"
#include "base/failure.h"
#include "base/version.h"
#include "desktop/child_processes.h"
#include "desktop/desktop_person.h"
#include "desktop/http_fetch.h"
#include "desktop/platform_texts.h"
#include "desktop/qt_text.h"
#include "desktop/readable_style.h"
#include "desktop/settings_store.h"
#include "frame/rules/command_string.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using kelmar::Failure;

constexpr int cannotStart = 1;
constexpr int wrongUse = 2;

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

void complain(const std::string& text) {
  std::fprintf(stderr, "kelmar: %s\n", text.c_str());
}

/// What the window system has to say ends in one line and an exit code, not in a core dump.
void onMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  const std::string text = kelmar::desktop::u8(message);
  if (type == QtFatalMsg) {
    complain("the display cannot be used: " + text.substr(0, text.find('\n')));
    std::_Exit(cannotStart);
  }
  // That a display cannot be reached is told by the fatal message that follows.
  std::fprintf(stderr, "%s\n", text.c_str());
}

/// Ends the program once the window has been painted: for those who measure the start.
class EndAfterPaint : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && !painted_) {
      painted_ = true;
      // Behind what brings this paint to the screen.
      QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  bool painted_ = false;
};

/// The options that another window of this program needs, too.
std::vector<std::string> inherited(const kelmar::frame::CommandLine& line) {
  std::vector<std::string> arguments;
  if (!line.site.empty()) arguments.push_back("--site=" + line.site);
  if (!line.language.empty()) arguments.push_back("--lang=" + line.language);
  return arguments;
}

int runWindow(QApplication& application, const kelmar::frame::CommandLine& line) {
  kelmar::platform::SiteStart start;
  start.site = line.site;
  start.language = line.language;
  kelmar::platform::SiteSettings site(start);
  kelmar::desktop::translatePlatformTexts(site.CurrentLanguage());
  kelmar::desktop::DesktopPerson person;
  kelmar::desktop::SettingsStore settings;
  kelmar::desktop::ChildProcesses processes;
  kelmar::desktop::HttpFetch fetch;
  try {
    const kelmar::KelmarForm::Machine machine{person, settings, processes,
                                              site,   &fetch,   &kelmar::platform::machineClock()};
    kelmar::KelmarForm window(
        machine, {kelmar::desktop::u8(QApplication::applicationFilePath()), inherited(line)},
        kelmar::pageMakers(machine));
    EndAfterPaint end;
    if (isSet("KELMAR_EXIT_AFTER_PAINT")) window.installEventFilter(&end);
    window.start(line.commandString);
    if (!line.file.empty())
      QTimer::singleShot(0, &window, [&window, &line] { window.openFile(line.file); });
    return application.exec();
  } catch (const Failure& failure) {
    complain(failure.text);
    person.message({"", kelmar::applicationTitle, failure.text, kelmar::platform::Buttons::Ok,
                    kelmar::platform::Icon::Critical});
    return cannotStart;
  }
}

} // namespace

int main(int argc, char** argv) {
  const kelmar::frame::CommandLine line =
      kelmar::frame::readCommandLine(std::vector<std::string>(argv + 1, argv + argc));
  if (!line.mistake.empty()) {
    complain(line.mistake + "\nTry 'kelmar --help'.");
    return wrongUse;
  }
  if (line.help) {
    std::fputs(kelmar::frame::commandLineHelp().c_str(), stdout);
    return 0;
  }
  if (line.version) {
    std::printf("kelmar %s\n%s\n", kelmar::applicationVersion, kelmar::applicationCopyright);
    return 0;
  }
  if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
    complain("there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
    return cannotStart;
  }

  qInstallMessageHandler(onMessage);
  // The words were read above; the toolkit gets none, so that it knows no option of its own.
  int noArguments = 1;
  QApplication application(noArguments, argv);
  QApplication::setStyle(new kelmar::desktop::ReadableStyle);
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("kelmar"));
  QApplication::setApplicationDisplayName(QString());
  QApplication::setApplicationVersion(QString::fromLatin1(kelmar::applicationVersion));
  QApplication::setDesktopFileName(QStringLiteral("kelmar"));
  return runWindow(application, line);
}
