// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/menus.h"

#include "desktop/qt_text.h"

namespace kelmar {

using desktop::qs;

namespace {

/// Each action of a menu costs as much as all those before it: the entries of a longer sub-menu are
/// made when it is opened.
constexpr std::size_t mostEntriesAtOnce = 200;

} // namespace

void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries, const MenuChoice& chosen) {
  for (const MenuEntry& entry : entries) {
    QString text = qs(entry.text);
    if (entry.literal) text.replace(QLatin1Char('&'), QLatin1String("&&"));
    if (entry.kind == MenuEntry::Kind::Separator) {
      menu.addSeparator()->setObjectName(qs(entry.key));
      continue;
    }
    if (!entry.entries.empty()) {
      QMenu* below = menu.addMenu(text);
      below->setObjectName(qs(entry.key));
      below->menuAction()->setObjectName(qs(entry.key));
      below->setEnabled(entry.enabled);
      if (entry.entries.size() <= mostEntriesAtOnce) {
        fillMenu(*below, entry.entries, chosen);
        continue;
      }
      QObject::connect(below, &QMenu::aboutToShow, below, [below, entries = entry.entries, chosen] {
        if (below->isEmpty()) fillMenu(*below, entries, chosen);
      });
      continue;
    }
    QAction* action = menu.addAction(text);
    action->setObjectName(qs(entry.key));
    action->setEnabled(entry.enabled);
    action->setCheckable(entry.kind == MenuEntry::Kind::Check);
    action->setChecked(entry.checked);
    QObject::connect(action, &QAction::triggered, &menu, [entry, chosen] { chosen(entry); });
  }
}

QMenu* popUpMenu(QWidget& owner, const QString& name, const QPoint& where,
                 const std::vector<MenuEntry>& entries, const MenuChoice& chosen) {
  if (entries.empty()) return nullptr;
  auto* menu = new QMenu(&owner);
  menu->setObjectName(name);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fillMenu(*menu, entries, chosen);
  menu->popup(where);
  return menu;
}

} // namespace kelmar
