// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/clipboard.h"

#include "desktop/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace kelmar::desktop {

std::string clipboardText() {
  // The subtype keeps a spreadsheet's web page or rich text from being taken for text.
  QString subtype = QStringLiteral("plain");
  return u8(QGuiApplication::clipboard()->text(subtype));
}

void setClipboardText(const std::string& text) {
  QGuiApplication::clipboard()->setText(qs(text));
}

} // namespace kelmar::desktop
