// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_bare_window   shows an empty main window of the editor's size and ends after its first
// paint.

#include <QApplication>
#include <QMainWindow>
#include <QScreen>
#include <QTimer>

namespace {

class BareWindow final : public QMainWindow {
 protected:
  void paintEvent(QPaintEvent* event) override {
    QMainWindow::paintEvent(event);
    // What is painted is shown when this event is over.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  }
};

} // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  BareWindow window;
  window.resize(QApplication::primaryScreen()->availableSize() * 0.9);
  window.show();
  return application.exec();
}
