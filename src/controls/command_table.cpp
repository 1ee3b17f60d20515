// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/command_table.h"

#include "controls/icons.h"
#include "controls/list_view.h"
#include "desktop/qt_text.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QToolBar>
#include <QToolButton>

#include <stdexcept>

namespace kelmar {

using desktop::qs;

namespace {

/// A name that is being typed in a list keeps the focus when a button is clicked: it is taken
/// before a command shows or writes what the list has.
void finishTypedName() {
  for (QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
    if (auto* list = qobject_cast<ListView*>(widget)) list->finishName();
}

} // namespace

CommandTable::CommandTable(QWidget* owner, std::vector<Command> commands) : QObject(owner) {
  entries_.reserve(commands.size());
  for (Command& command : commands) {
    for (const Entry& before : entries_)
      if (before.command.key == command.key)
        throw std::invalid_argument("two commands " + command.key);
    auto* action = new QAction(icon(command.icon), qs(command.caption), owner);
    action->setObjectName(qs(command.key));
    action->setToolTip(qs(command.toolTip));
    action->setShortcuts(command.shortcuts);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    // Enabled states may be older than a key press that follows another event.
    connect(action, &QAction::triggered, this, [run = command.run, enabled = command.enabled] {
      finishTypedName();
      if (!enabled || enabled()) run();
    });
    owner->addAction(action);
    QMenu* menu = nullptr;
    if (!command.dropDown.empty()) {
      menu = new QMenu(owner);
      menu->setObjectName(qs(command.key + "Menu"));
      fillMenu(*menu, command.dropDown, command.chosen);
    }
    entries_.push_back(Entry{std::move(command), action, menu});
  }
  refresh();
}

void CommandTable::fillToolBar(QToolBar& bar, const std::vector<std::string>& keys) {
  for (const std::string& key : keys) {
    if (key.empty()) {
      bar.addSeparator();
      continue;
    }
    const Entry& found = entry(key);
    bar.addAction(found.action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(found.action));
    button->setFocusPolicy(Qt::TabFocus);
    button->setObjectName(qs(key));
    if (!found.command.caption.empty()) button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    if (found.menu) {
      button->setMenu(found.menu);
      button->setPopupMode(QToolButton::MenuButtonPopup);
      button->installEventFilter(this);
    }
    // The button reads aloud what its tool tip says, in the language of the moment.
    const auto name = [button, action = found.action] {
      button->setAccessibleName(action->toolTip());
    };
    name();
    connect(found.action, &QAction::changed, button, name);
  }
}

const CommandTable::Entry& CommandTable::entry(std::string_view key) const {
  for (const Entry& candidate : entries_)
    if (candidate.command.key == key) return candidate;
  throw std::out_of_range("no command " + std::string(key));
}

QAction& CommandTable::action(std::string_view key) const {
  return *entry(key).action;
}

QMenu& CommandTable::dropDown(std::string_view key) const {
  const Entry& found = entry(key);
  if (!found.menu) throw std::out_of_range("no drop-down at the command " + std::string(key));
  return *found.menu;
}

void CommandTable::setDropDown(std::string_view key, const std::vector<MenuEntry>& entries) {
  QMenu& menu = dropDown(key);
  menu.clear();
  fillMenu(menu, entries, entry(key).command.chosen);
}

void CommandTable::refresh() {
  for (const Entry& each : entries_)
    each.action->setEnabled(!each.command.enabled || each.command.enabled());
}

bool CommandTable::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    auto* button = static_cast<QToolButton*>(watched);
    if (button->isEnabled() && button->menu()) {
      button->menu()->popup(button->mapToGlobal(QPoint(0, button->height())));
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

} // namespace kelmar
