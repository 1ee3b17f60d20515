// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/user.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

namespace kelmar::support {

namespace {

constexpr int lookEvery = 20;       // ms
constexpr int longestWait = 10'000; // ms

std::string nameOf(const QWidget& widget) {
  return (widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                        : widget.objectName())
      .toStdString();
}

/// The key functions of the test library know ASCII only.
void typeCharacters(QWidget& field, const QString& text) {
  for (const QChar character : text)
    if (character.unicode() < 0x80)
      QTest::keyClick(&field, character.toLatin1());
    else
      QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(character),
                          Qt::NoModifier);
}

QRect cellOf(QAbstractItemView& list, int row, int column) {
  mustBeUsable(list);
  const QModelIndex index = list.model()->index(row, column, list.rootIndex());
  if (!index.isValid())
    throw std::runtime_error(nameOf(list) + " has no row " + std::to_string(row));
  list.scrollTo(index);
  return list.visualRect(index);
}

} // namespace

QWidget& controlNamed(QWidget& root, const QString& name) {
  if (root.objectName() == name) return root;
  const QList<QWidget*> found = root.findChildren<QWidget*>(name);
  if (found.isEmpty()) throw std::runtime_error("there is no control " + name.toStdString());
  if (found.size() > 1)
    throw std::runtime_error("there are several controls " + name.toStdString());
  return *found.front();
}

void mustBeUsable(const QWidget& widget) {
  if (!widget.isVisible()) throw std::runtime_error(nameOf(widget) + " is not visible");
  if (!widget.isEnabled()) throw std::runtime_error(nameOf(widget) + " is not enabled");
}

void showToUser(QWidget& window) {
  window.show();
  if (!QTest::qWaitForWindowExposed(&window))
    throw std::runtime_error(nameOf(window) + " does not come to the screen");
  window.raise();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window))
    throw std::runtime_error(nameOf(window) + " does not get the input");
}

void click(QWidget& widget) {
  mustBeUsable(widget);
  QTest::mouseClick(&widget, Qt::LeftButton);
}

void type(QWidget& field, const QString& text) {
  mustBeUsable(field);
  field.setFocus(Qt::OtherFocusReason);
  typeCharacters(field, text);
}

void retype(QWidget& field, const QString& text) {
  mustBeUsable(field);
  field.setFocus(Qt::OtherFocusReason);
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty())
    QTest::keyClick(&field, Qt::Key_Delete);
  else
    typeCharacters(field, text);
}

void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  mustBeUsable(widget);
  widget.setFocus(Qt::OtherFocusReason);
  QTest::keyClick(&widget, key, modifiers);
}

void clickRow(QAbstractItemView& list, int row, int column, Qt::KeyboardModifiers modifiers,
              Qt::MouseButton button) {
  const QRect cell = cellOf(list, row, column);
  QTest::mouseClick(list.viewport(), button, modifiers, cell.center());
}

void doubleClickRow(QAbstractItemView& list, int row, int column) {
  const QRect cell = cellOf(list, row, column);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
}

bool waitUntil(const std::function<bool()>& holds, int milliseconds) {
  return QTest::qWaitFor(holds, milliseconds);
}

WhenDialogOpens::WhenDialogOpens(std::function<void(QDialog&)> answer)
    : answer_(std::move(answer)) {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
  timer_.start(lookEvery);
}

WhenDialogOpens::~WhenDialogOpens() {
  if (!answered_) ADD_FAILURE() << "no dialog opened";
}

void WhenDialogOpens::look() {
  waited_ += lookEvery;
  if (answered_) {
    if (!dialog_ || !dialog_->isVisible()) {
      timer_.stop();
    } else if (waited_ > longestWait) {
      timer_.stop();
      ADD_FAILURE() << "the dialog " << nameOf(*dialog_) << " was not closed";
      dialog_->reject();
    }
    return;
  }
  dialog_ = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  // A user acts on what he sees; without a window manager a dialog may never become active.
  const bool ready =
      dialog_ && dialog_->isVisible() && (dialog_->isActiveWindow() || waited_ > longestWait / 5);
  if (ready) {
    answered_ = true;
    waited_ = 0;
    try {
      answer_(*dialog_);
    } catch (const std::exception& failure) {
      // No exception may pass through the event loop of the dialog.
      ADD_FAILURE() << failure.what();
      if (dialog_) dialog_->reject();
    }
  } else if (waited_ > longestWait) {
    timer_.stop();
  }
}

void keepPicture(QWidget& widget, const QString& name) {
  const QString folder = qEnvironmentVariable("KELMAR_TEST_PICTURES");
  if (folder.isEmpty()) return;
  QDir().mkpath(folder);
  EXPECT_TRUE(widget.grab().save(folder + QLatin1Char('/') + name + QLatin1String(".png")));
}

} // namespace kelmar::support
