// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_drag.h"

#include "controls/list_view.h"
#include "desktop/qt_text.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

/// The plain text of a drop. A drop of files brings their names as text, which is none.
std::string textOf(const QMimeData* data) {
  return data && data->hasText() && !data->hasUrls() ? u8(data->text()) : std::string();
}

} // namespace

TextDrag::TextDrag(ListView& list, std::function<std::string()> copied,
                   std::function<bool(std::string_view)> accepts,
                   std::function<void(const std::string&)> dropped)
    : QObject(&list), list_(list), copied_(std::move(copied)), accepts_(std::move(accepts)),
      dropped_(std::move(dropped)) {
  list.viewport()->setAcceptDrops(true);
  list.viewport()->installEventFilter(this);
}

bool TextDrag::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress: {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    // A press beside the rows, or one that gathers rows, selects and does not drag.
    pressed_ = mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::NoModifier &&
               list_.indexAt(mouse->pos()).isValid();
    pressedAt_ = mouse->pos();
    break;
  }
  case QEvent::MouseMove: {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    return mouseMoved(mouse->pos(), mouse->buttons());
  }
  case QEvent::MouseButtonRelease:
    pressed_ = false;
    break;
  case QEvent::DragEnter:
  case QEvent::DragMove: {
    auto* drag = static_cast<QDragMoveEvent*>(event);
    drag->setDropAction(Qt::CopyAction);
    drag->setAccepted(accepts_(textOf(drag->mimeData())));
    return true;
  }
  case QEvent::Drop: {
    auto* drop = static_cast<QDropEvent*>(event);
    const std::string text = textOf(drop->mimeData());
    if (!accepts_(text)) {
      drop->ignore();
      return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    // The program that the text came from waits for the end of the drop: no question before that.
    QTimer::singleShot(0, this, [this, text] { dropped_(text); });
    return true;
  }
  default:
    break;
  }
  return QObject::eventFilter(watched, event);
}

bool TextDrag::mouseMoved(QPoint where, Qt::MouseButtons buttons) {
  if (!pressed_ || !(buttons & Qt::LeftButton)) return false;
  // Also before the distance is reached: the list would select along the way.
  if ((where - pressedAt_).manhattanLength() < QApplication::startDragDistance()) return true;
  pressed_ = false;
  const std::string text = copied_();
  if (text.empty()) return true;
  auto* data = new QMimeData;
  data->setText(qs(text));
  auto* drag = new QDrag(&list_);
  drag->setMimeData(data);
  drag->exec(Qt::CopyAction);
  return true;
}

bool looksLikeFragment(std::string_view text, std::string_view root) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return false;
  text = text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
  return text.starts_with("<" + std::string(root)) && text.ends_with(std::string(root) + ">");
}

} // namespace kelmar
