// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/uce_selector_fields.h"

#include "controls/colours.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QToolTip>

namespace kelmar {

ShownField::ShownField(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setAcceptDrops(false);
  followPalette();
}

void ShownField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) followPalette();
}

void ShownField::followPalette() {
  const QColor window = palette().color(QPalette::Window);
  if (palette().color(QPalette::Base) == window) return; // also ends the change that this makes
  QPalette own = palette();
  own.setColor(QPalette::Base, window);
  setPalette(own);
}

ShortenedLabel::ShortenedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ShortenedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()), fontMetrics().height() + 2};
}

QSize ShortenedLabel::minimumSizeHint() const {
  return {0, fontMetrics().height() + 2};
}

void ShortenedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(
      &painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
      fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()), foregroundRole());
}

bool ShortenedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() &&
      fontMetrics().horizontalAdvance(text()) > contentsRect().width()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(event);
}

MenuLabel::MenuLabel(QWidget* parent) : QLabel(parent) {
  setFocusPolicy(Qt::TabFocus);
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
  showWhetherUsable();
}

void MenuLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
    emit menuAsked(mapToGlobal(QPoint(0, height())));
}

void MenuLabel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Space:
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Down:
  case Qt::Key_Menu:
    emit menuAsked(mapToGlobal(QPoint(0, height())));
    break;
  default:
    QLabel::keyPressEvent(event);
  }
}

void MenuLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void MenuLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange)
    showWhetherUsable();
}

void MenuLabel::showWhetherUsable() {
  setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
  // The palette of a dark desktop may keep a dark blue for links.
  const QColor link = readableOn(palette(), palette().color(QPalette::Active, QPalette::Link));
  if (palette().color(QPalette::Active, QPalette::WindowText) == link) return; // its own change
  QPalette own = palette();
  own.setColor(QPalette::Active, QPalette::WindowText, link);
  own.setColor(QPalette::Inactive, QPalette::WindowText, link);
  setPalette(own);
}

} // namespace kelmar
