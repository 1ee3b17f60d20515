// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ecu_selector_view.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace kelmar {

using desktop::qs;
using desktop::u8;

EcuTreeView::EcuTreeView(EcuTreeModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
  setModel(&model);
  setHeaderHidden(true);
  setUniformRowHeights(true); // thousands of rows are laid out without a look at each
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(this, &QTreeView::doubleClicked, this, &EcuTreeView::open);
  for (const auto signal : {&QTreeView::expanded, &QTreeView::collapsed})
    connect(this, signal, this, &EcuTreeView::sightChanged);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &EcuTreeView::sightChanged);
  connect(&model, &QAbstractItemModel::modelReset, this, &EcuTreeView::sightChanged);
}

void EcuTreeView::open(const QModelIndex& index) {
  if (const EcuTreeNode* node = model_.nodeOf(index); node && node->isFile)
    emit opened(qs(node->address));
}

void EcuTreeView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    QTreeView::keyPressEvent(event);
    return;
  }
  const EcuTreeNode* node = model_.nodeOf(currentIndex());
  if (!node) return;
  if (node->isFile)
    open(currentIndex());
  else
    setExpanded(currentIndex(), !isExpanded(currentIndex()));
}

void EcuTreeView::keyboardSearch(const QString& letters) {
  const bool goesOn =
      sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
  sinceTyped_.start();
  // The same letter again means the next name that begins with it.
  const bool again = goesOn && typed_ == letters;
  if (!again) typed_ = goesOn ? typed_ + letters : letters;
  const bool here = goesOn && !again;
  const QModelIndex found = model_.findByPrefix(u8(typed_), currentIndex(), here);
  if (!found.isValid()) return;
  setCurrentIndex(found);
  scrollTo(found); // opens the folders above it
}

std::set<std::string> EcuTreeView::openFolders() const {
  std::set<std::string> folders;
  const auto collect = [&](const auto& self, const QModelIndex& above) -> void {
    for (int row = 0; row < model_.rowCount(above); ++row) {
      const QModelIndex index = model_.index(row, 0, above);
      if (model_.nodeOf(index)->isFile) continue;
      if (isExpanded(index)) folders.insert(model_.nodeOf(index)->address);
      self(self, index);
    }
  };
  collect(collect, {});
  return folders;
}

void EcuTreeView::setOpenFolders(const std::set<std::string>& folders) {
  for (const std::string& folder : folders)
    if (const QModelIndex index = model_.indexOf(folder); index.isValid()) setExpanded(index, true);
}

void EcuTreeView::resizeEvent(QResizeEvent* event) {
  // Rows are as wide as the view at least, so that a selection is seen as a whole row.
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
  emit sightChanged();
}

void EcuTreeView::showEvent(QShowEvent* event) {
  QTreeView::showEvent(event);
  emit sightChanged();
}

} // namespace kelmar
