// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/page_keys.h"

#include <QKeyEvent>
#include <QWidget>

namespace kelmar {

PageKeys::PageKeys(QWidget& page) : QObject(&page) {
  for (QWidget* field : page.findChildren<QWidget*>())
    field->installEventFilter(this);
}

bool PageKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Save)) {
      key->ignore();
      return true;
    }
  } else if (event->type() == QEvent::KeyPress) {
    // The page has nothing to undo: what the field would bring back was validated or dropped.
    if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) return true;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace kelmar
