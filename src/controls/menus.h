// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace kelmar {

using MenuChoice = std::function<void(const MenuEntry& entry)>;

/// Appends the entries to a menu. Actions and sub-menus bear the keys as object names. `chosen` is
/// called with the entry that the user chose; a Check comes with the state it had before.
void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries, const MenuChoice& chosen);

/// Pops up a menu below `owner`, named `name`, at a point of the screen, and returns at once. The
/// menu is gone when it is closed. An empty list shows nothing.
QMenu* popUpMenu(QWidget& owner, const QString& name, const QPoint& where,
                 const std::vector<MenuEntry>& entries, const MenuChoice& chosen);

} // namespace kelmar
