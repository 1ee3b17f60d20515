// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_page.h"

#include "common/find_next.h"
#include "controls/hourglass.h"
#include "controls/page_keys.h"
#include "controls/silence_children.h"
#include "desktop/qt_text.h"
#include "language/error_box.h"
#include "language/multi_lang.h"

#include <QEvent>
#include <QHideEvent>
#include <QItemSelection>
#include <QLabel>

namespace kelmar {

using desktop::qs;

namespace {

std::string textOf(const KeyedText& text) {
  return language::global().getMultilangMessageDefault(std::string(text.text), text.key);
}

/// True as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

} // namespace

ListPage::ListPage(platform::Person& person, FindTexts find, QWidget* parent)
    : Page(parent), person_(person), findTexts_(find), edits_([this] { emit OnChange(); }) {}

ListPage::~ListPage() {
  silenceChildren(*this);
  if (list_) list_->rows().setRows({}); // it would ask for the texts of its rows
}

void ListPage::useList(ListView& list, QLabel& count) {
  list_ = &list;
  count_ = &count;
  setFocusProxy(&list);
  list.viewport()->installEventFilter(this);
  connect(&list, &ListView::currentMoved, this, [this] {
    if (!filling_) rowChosen();
  });
  connect(&list, &ListView::selectionMoved, this, [this] {
    if (!filling_) stateMoved();
  });
}

void ListPage::bindPageKeys() {
  new PageKeys(*this);
}

bool ListPage::eventFilter(QObject* watched, QEvent* event) {
  if (list_ && watched == list_->viewport() && event->type() == QEvent::MouseButtonPress &&
      hasPendingEdits()) {
    // Asked before the list takes the press, as a box must not stand within it. The fields show the
    // item again, also when the click goes to the same row.
    const bool applied = TestAndConfirmChange();
    confirmedByClick(applied);
    makeActive(active_);
  }
  return Page::eventFilter(watched, event);
}

void ListPage::hideEvent(QHideEvent* event) {
  Page::hideEvent(event);
  // A window that is put away or that hides all its pages at once keeps what they show.
  if (!list_ || event->spontaneous() || !isHidden()) return;
  list_->rows().setRows({});
  dropActive();
}

void ListPage::rowChosen() {
  const RowTag item = list_->currentTag();
  if (!item || item == active_) return;
  TestAndConfirmChange();
  makeActive(item);
}

void ListPage::makeActive(RowTag item) {
  active_ = item;
  if (item) lastName_ = nameOf(item);
  {
    const EditState::Loading loading = edits_.load();
    showItem(item);
  }
  edits_.clear();
  stateMoved();
}

void ListPage::dropActive() {
  makeActive(nullptr);
}

void ListPage::SetChanged(int kind) {
  if (!active_ || edits_.loading()) return;
  if (kind == Edited) {
    const bool first = !edits_.changed();
    edits_.change();
    if (first) stateMoved();
    return;
  }
  announceApplied();
}

void ListPage::announceApplied() {
  {
    const Hourglass busy;
    emit OnSave(false);
  }
  edits_.clear();
  stateMoved();
}

void ListPage::fill(const std::function<void()>& select) {
  {
    const Raised filling(filling_);
    list_->rows().setRows(items());
    SortByHeader(*list_);
    select();
  }
  refreshCount();
  makeActive(list_->currentTag());
}

void ListPage::fillList() {
  fill([this] {
    const RowTag remembered = itemNamed(lastName_);
    const int row =
        remembered && nameOf(remembered) == lastName_ ? list_->rows().rowOf(remembered) : -1;
    list_->selectRow(std::max(row, 0));
  });
}

void ListPage::fillList(int row) {
  fill([this, row] { list_->selectRow(row); });
}

void ListPage::refreshCount() {
  count_->setText(qs(countText(list_->rows().rowCount())));
}

void ListPage::refreshActiveRow() {
  if (active_) list_->rows().refresh(active_);
}

void ListPage::choose(RowTag item) {
  const bool moves = item != active_;
  if (moves && hasPendingEdits()) TestAndConfirmChange();
  {
    const Raised filling(filling_);
    list_->selectOnly(item);
  }
  if (list_->currentTag() == item && (moves || !hasPendingEdits())) makeActive(item);
}

RowTag ListPage::itemNamed(const std::string& name) const {
  for (const RowTag item : list_->rows().tags())
    if (nameOf(item) == name) return item;
  return nullptr;
}

bool ListPage::chooseName(const std::string& name) {
  const RowTag item = itemNamed(name);
  if (!item || nameOf(item) != name || list_->rows().rowOf(item) < 0) return false;
  choose(item);
  return true;
}

void ListPage::addRow(RowTag item, std::optional<int> before) {
  {
    const Raised filling(filling_);
    list_->rows().insertTag(item, before);
    list_->selectOnly(item);
  }
  refreshCount();
  makeActive(item);
  list_->editName(item);
}

void ListPage::editActiveName() {
  if (active_) list_->editName(active_);
}

void ListPage::selectWhere(const std::function<bool(RowTag)>& wanted) {
  const RowsModel& rows = list_->rows();
  QItemSelection selection;
  const std::vector<RowTag>& tags = rows.tags();
  const int count = static_cast<int>(tags.size());
  // Neighbours are one range: 20,000 ranges would take the list its time at every repaint.
  for (int row = 0; row < count; ++row) {
    const int first = row;
    while (row < count && wanted(tags[static_cast<std::size_t>(row)]))
      ++row;
    if (row > first)
      selection.append({rows.index(first, 0), rows.index(row - 1, rows.columnCount() - 1)});
  }
  list_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void ListPage::FindItem(const std::string& text) {
  if (list_->rows().rowCount() == 0) return;
  std::string wanted = text;
  if (wanted.empty()) {
    wanted = person_.input(
        {findTexts_.text.key, textOf(findTexts_.title), textOf(findTexts_.text), findText_});
    if (wanted.empty()) return;
  }
  findText_ = wanted;
  const RowsModel& rows = list_->rows();
  const int current = list_->currentIndex().isValid() ? list_->currentIndex().row() : -1;
  const int found = findNextRow(rows.rowCount(), current, findText_,
                                [&](int row) { return nameOf(rows.tagAt(row)); });
  if (found >= 0) choose(rows.tagAt(found));
}

std::vector<Command> ListPage::findCommands() {
  return {{.key = "findNext",
           .run = [this] { FindItem(findText_); },
           .shortcuts = {QKeySequence(Qt::Key_F3)}},
          {.key = "findAnew",
           .run = [this] { FindItem({}); },
           .shortcuts = {QKeySequence(Qt::SHIFT | Qt::Key_F3)}}};
}

void ListPage::useMenu(const QString& name, std::function<std::vector<MenuEntry>()> entries,
                       MenuChoice chosen) {
  list_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list_, &QWidget::customContextMenuRequested, this,
          [this, name, entries = std::move(entries), chosen = std::move(chosen)](QPoint where) {
            // By the menu key the menu belongs to the active row, wherever the pointer is.
            if (const QRect row = list_->visualRect(list_->currentIndex());
                !list_->viewport()->rect().contains(where) && row.isValid())
              where = row.center();
            popUpMenu(*list_, name, list_->viewport()->mapToGlobal(where), entries(), chosen);
          });
}

void ListPage::guarded(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    ShowErrorBox(person_, language::global(), failure);
  }
}

} // namespace kelmar
