// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dropped_file.h"

#include "desktop/qt_text.h"

#include <QMimeData>
#include <QUrl>

namespace kelmar::desktop {

std::optional<std::string> firstDroppedFile(const QMimeData* drop) {
  if (!drop) return std::nullopt;
  for (const QUrl& url : drop->urls())
    if (url.isLocalFile() && !url.toLocalFile().isEmpty()) return u8(url.toLocalFile());
  return std::nullopt;
}

} // namespace kelmar::desktop
