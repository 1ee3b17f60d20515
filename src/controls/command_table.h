// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/menus.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QAction;
class QToolBar;
class QToolButton;

namespace kelmar {

/// A command of a page.
struct Command {
  std::string key = {};     ///< unique in the table; object name of its action
  std::string toolTip = {}; ///< English; tool bars are translated by the keys of their buttons
  std::string icon = {};    ///< key of icons.h
  std::function<void()> run = {};     ///< required
  std::function<bool()> enabled = {}; ///< none: always
  QList<QKeySequence> shortcuts = {}; ///< valid while the focus is in the owner
  std::string caption = {};           ///< text beside the icon; empty: the icon alone
  /// Not empty: the button has a drop-down part, a menu named by the key and "Menu". Keys of
  /// entries are translated like buttons.
  std::vector<MenuEntry> dropDown = {};
  MenuChoice chosen = {}; ///< for the entries of the drop-down
};

/// The commands of a page in one table, from which its tool bar, its shortcuts and its menus are
/// built. Enabled states come from the table alone. A name that is being typed in a list is taken
/// before a command runs.
class CommandTable : public QObject {
  Q_OBJECT

 public:
  /// The shortcuts work while the focus is in `owner` or below it, with or without a tool bar. The
  /// table belongs to the owner. Raises std::invalid_argument for a key that stands twice.
  CommandTable(QWidget* owner, std::vector<Command> commands);

  /// Adds buttons in the order of the table; an empty key is a separator. Every button can be
  /// reached with the tabulator; Down opens its drop-down part.
  void fillToolBar(QToolBar& bar, const std::vector<std::string>& keys);

  /// Raises std::out_of_range for a key that is none.
  QAction& action(std::string_view key) const;
  /// The drop-down part of a button. Raises std::out_of_range for a command without one.
  QMenu& dropDown(std::string_view key) const;
  /// Other entries for it. The drop-down part may become empty, but does not vanish.
  void setDropDown(std::string_view key, const std::vector<MenuEntry>& entries);

  /// Asks every command whether it is enabled now.
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Entry {
    Command command;
    QAction* action = nullptr;
    QMenu* menu = nullptr;
  };
  const Entry& entry(std::string_view key) const;

  std::vector<Entry> entries_;
};

} // namespace kelmar
