// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/edit_state.h"
#include "common/name_commands.h"
#include "controls/command_table.h"
#include "controls/list_view.h"
#include "controls/page.h"
#include "platform/person.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QLabel;

namespace kelmar {

/// A page with a list of items on one side and the fields of one item on the other: what the pages
/// of data, requests, devices and labels share.
///
/// The page derives from it and
/// - makes its list, its count label and its fields, then calls useList(); and bindPageKeys() when
///   all fields stand;
/// - answers what the list is asked (items, nameOf, countText) and shows an item in its fields
///   (showItem), which runs with edits().loading() set;
/// - calls SetChanged(Edited) from the change handler of each field;
/// - gives a CommandTable with the page as owner what works anywhere on the page (findCommands()
///   among it), and one with the list as owner what works in the list alone;
/// - keeps TestAndConfirmChange to itself, as the questions differ; it applies to active().
///
/// The active item is the row that the person went to last. Going to another row asks
/// TestAndConfirmChange first.
///
/// Out of sight the list is empty and no item is active, as items may go while another page works
/// on the ECU; displayDatas fills the list at the next entry, and the item that was shown last is
/// chosen by its name.
class ListPage : public Page {
  Q_OBJECT

 public:
  /// Kinds of change. All but the first one are already in the items.
  enum Change { Edited = 0, Deleted = 1, Pasted = 2, Renamed = 3, Flagged = 4 };

 protected:
  /// The input line of the search.
  struct FindTexts {
    KeyedText text, title;
  };
  ListPage(platform::Person& person, FindTexts find, QWidget* parent);
  ~ListPage() override;

  // What the page is asked.

  /// All items, in the order in which the list is to show them.
  virtual std::vector<RowTag> items() const = 0;
  virtual std::string nameOf(RowTag item) const = 0;
  /// The item of the list with that name, which may differ in case, or null. Asked at each filling:
  /// a page whose items have an index answers from it instead of walking the rows.
  virtual RowTag itemNamed(const std::string& name) const;
  virtual std::string countText(int rows) const = 0;
  /// Shows the item in the fields; null empties them.
  virtual void showItem(RowTag item) = 0;
  /// TestAndConfirmChange would ask. A page that has more than its own fields to ask about adds it.
  virtual bool hasPendingEdits() const { return edits_.changed(); }
  /// A pending edit was asked about because of a click into the list; `applied` is what
  /// TestAndConfirmChange gave. The row that was clicked is chosen after it.
  virtual void confirmedByClick(bool applied) { static_cast<void>(applied); }
  /// Selection, active item or edit state are others: enabled states may be, too.
  virtual void stateMoved() {}

  // What the page calls.

  void useList(ListView& list, QLabel& count);
  /// Leaves Ctrl+Z and Ctrl+S to the page in every field below it.
  void bindPageKeys();

  platform::Person& person() const { return person_; }
  EditState& edits() { return edits_; }
  const EditState& edits() const { return edits_; }
  ListView& list() const { return *list_; }

  /// The item in the fields, null when there is none.
  RowTag active() const { return active_; }
  template <class Item>
  Item* activeItem() const {
    return static_cast<Item*>(active_);
  }
  /// For an item that is about to vanish: no item is active any more, the fields are emptied.
  void dropActive();

  /// Edited marks the page; the first mark raises OnChange. The other kinds raise OnSave(false)
  /// and clear the mark, with the pointer an hourglass. Nothing without active item or while the
  /// fields are being filled.
  void SetChanged(int kind);
  /// The same for a command that reached the items, whether or not an item is left to be active.
  void announceApplied();

  /// The list anew; the item that was shown last is chosen by its name, else the first one. What
  /// was being edited is dropped.
  void fillList();
  /// The list anew; the row at this place, brought within the list, is chosen.
  void fillList(int row);
  void refreshCount();
  /// Row of the active item in the list.
  void refreshActiveRow();

  /// Selects this item alone, as if it had been clicked.
  void choose(RowTag item);
  /// The same by name, compared exactly; false when there is none.
  bool chooseName(const std::string& name);
  /// The item that fillList chooses next.
  void rememberName(const std::string& name) { lastName_ = name; }
  const std::string& rememberedName() const { return lastName_; }
  /// A new item: a row for it before another one or at the end, chosen, and its name is being
  /// typed over. Does not ask about pending edits.
  void addRow(RowTag item, std::optional<int> before = {});
  /// Starts typing over the name of the active item.
  void editActiveName();

  /// Selects the rows whose items answer true, and no others.
  void selectWhere(const std::function<bool(RowTag)>& wanted);

  /// Asks for a word when it is empty, then chooses the next row whose name contains it.
  void FindItem(const std::string& text);
  const std::string& findText() const { return findText_; }
  /// F3 repeats the search, Shift+F3 asks anew. Keys `findNext` and `findAnew`, without buttons.
  std::vector<Command> findCommands();

  /// Pops up a menu for the list at every request of a person. `entries` is made anew each time for
  /// the active item; the row under the pointer has become active before.
  void useMenu(const QString& name, std::function<std::vector<MenuEntry>()> entries,
               MenuChoice chosen);

  /// Runs it; a Failure is shown by the generic box.
  void guarded(const std::function<void()>& action);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void rowChosen();
  void makeActive(RowTag item);
  void fill(const std::function<void()>& select);

  platform::Person& person_;
  const FindTexts findTexts_;
  EditState edits_;
  ListView* list_ = nullptr;
  QLabel* count_ = nullptr;
  RowTag active_ = nullptr;
  std::string lastName_, findText_;
  bool filling_ = false; // the list moves by code
};

} // namespace kelmar
