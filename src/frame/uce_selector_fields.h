// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>

namespace kelmar {

/// A field that shows and does not take input: its text can be selected and copied, and its
/// background is that of the window, so that nobody tries to type.
class ShownField : public QLineEdit {
  Q_OBJECT

 public:
  explicit ShownField(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void followPalette();
};

/// A label of one line that shortens its text in the middle where the place is too small and has
/// all of it in its tool tip.
class ShortenedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ShortenedLabel(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};

/// A label that offers a menu: at a click, and with the keyboard.
class MenuLabel : public QLabel {
  Q_OBJECT

 public:
  explicit MenuLabel(QWidget* parent = nullptr);

 signals:
  /// Where the menu belongs, a point of the screen.
  void menuAsked(const QPoint& where);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void showWhetherUsable();
};

} // namespace kelmar
