// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>

class QAbstractItemView;
class QDialog;

namespace kelmar::support {

// A user at the window: finds controls by their name, and types and clicks only on what is there,
// visible and enabled. What is not fails the test by a std::runtime_error that says why.

/// The control of this name and type below `root`, or `root` itself; it may be disabled or hidden.
QWidget& controlNamed(QWidget& root, const QString& name);

template <class T>
T& control(QWidget& root, const QString& name) {
  if (T* found = qobject_cast<T*>(&controlNamed(root, name))) return *found;
  throw std::runtime_error(name.toStdString() + " is no " + T::staticMetaObject.className());
}

/// The same, for a control that a user could use now.
void mustBeUsable(const QWidget& widget);
template <class T>
T& usable(QWidget& root, const QString& name) {
  T& found = control<T>(root, name);
  mustBeUsable(found);
  return found;
}

/// Shows the window and waits until it stands on the screen and has the input.
void showToUser(QWidget& window);

void click(QWidget& widget);
/// Types at the cursor of the control, after giving it the focus.
void type(QWidget& field, const QString& text);
/// Selects all that is in the field and types over it.
void retype(QWidget& field, const QString& text);
void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Click on a cell of a list; the row is scrolled into sight first. Rows and columns from 0.
void clickRow(QAbstractItemView& list, int row, int column = 0,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier,
              Qt::MouseButton button = Qt::LeftButton);
void doubleClickRow(QAbstractItemView& list, int row, int column = 0);

/// Lets events pass until it is true; false after the time.
[[nodiscard]] bool waitUntil(const std::function<bool()>& holds, int milliseconds = 5000);

/// Waits for the next modal dialog and does something with it, as a user would. Made before the
/// call that opens the dialog; fails the test when none has come by its end or in 10 seconds. A
/// dialog that still stands after `answer` and 10 seconds is rejected, so that no test hangs.
class WhenDialogOpens {
 public:
  explicit WhenDialogOpens(std::function<void(QDialog&)> answer);
  ~WhenDialogOpens();
  WhenDialogOpens(const WhenDialogOpens&) = delete;
  WhenDialogOpens& operator=(const WhenDialogOpens&) = delete;

 private:
  void look();

  std::function<void(QDialog&)> answer_;
  QPointer<QDialog> dialog_;
  QTimer timer_;
  int waited_ = 0; // ms
  bool answered_ = false;
};

/// Keeps a picture of the widget as `name`.png in the folder that KELMAR_TEST_PICTURES names;
/// without it nothing is kept.
void keepPicture(QWidget& widget, const QString& name);

} // namespace kelmar::support
