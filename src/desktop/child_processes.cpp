// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/child_processes.h"

#include "desktop/desktop_entry.h"
#include "desktop/qt_text.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

namespace kelmar::desktop {

void ChildProcesses::ShellAndWait(const std::string& command, int, bool withEvents) {
  const std::vector<std::string> words = commandWords(command);
  if (words.empty()) return;
  QStringList arguments;
  for (std::size_t i = 1; i < words.size(); ++i)
    arguments << qs(words[i]);

  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(qs(words.front()), arguments);
  if (!process.waitForStarted(-1)) return;
  if (withEvents) QCoreApplication::processEvents();
  // The events may already have told of its end.
  if (process.state() != QProcess::NotRunning) process.waitForFinished(-1);
}

bool ChildProcesses::start(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList list;
  for (const std::string& argument : arguments)
    list << qs(argument);
  return QProcess::startDetached(qs(program), list);
}

} // namespace kelmar::desktop
