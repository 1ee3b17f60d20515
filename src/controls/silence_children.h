// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace kelmar {

/// For the destructor of a widget whose controls outlive what it held: a field that loses the focus
/// as it goes would still tell what was typed.
inline void silenceChildren(QObject& owner) {
  for (QObject* child : owner.findChildren<QObject*>())
    child->disconnect(&owner);
}

} // namespace kelmar
