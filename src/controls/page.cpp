// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/page.h"

#include "desktop/qt_text.h"

#include <QMetaProperty>

namespace kelmar {

bool Page::writeProperty(const char* name, std::string_view value) {
  // setProperty would make a new property of a name that is not there.
  const int index = metaObject()->indexOfProperty(name);
  return index >= 0 && metaObject()->property(index).write(this, desktop::qs(value));
}

} // namespace kelmar
