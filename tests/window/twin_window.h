// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/pages.h"
#include "controls/display_response.h"
#include "controls/list_view.h"
#include "window/program_from_outside.h"

#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTreeView>

namespace kelmar::outside {

/// The window of the program once more, in this process, from the same code and at the same size.
/// It tells where a person would point in the window of the program, and how often he would press a
/// key there. It must be gone before the program starts, so that it never takes its input away.
class TwinWindow {
 public:
  TwinWindow(const support::SmallSite& site, const std::string& file) {
    platform::SiteStart start;
    start.site = site.root();
    start.language = "en";
    siteSettings_ = std::make_unique<platform::SiteSettings>(start);
    const KelmarForm::Machine machine{person_, settings_, processes_, *siteSettings_};
    form_ = std::make_unique<KelmarForm>(machine, KelmarForm::Program{}, pageMakers(machine));
    form_->start("");
    support::showToUser(*form_);
    if (!file.empty()) form_->openFile(file);
    QCoreApplication::processEvents();
  }

  /// The control at the end of a way of names, each to be found below the one before it.
  QWidget& at(const QStringList& way) {
    QWidget* found = form_.get();
    for (const QString& name : way)
      found = &support::controlNamed(*found, name);
    support::mustBeUsable(*found);
    return *found;
  }
  template <class Control>
  Control& as(const QStringList& way) {
    return dynamic_cast<Control&>(at(way));
  }

  /// Pixels in the window.
  QPoint place(const QWidget& control, QPoint inControl) const {
    return control.mapTo(form_.get(), inControl);
  }
  QPoint placeOf(const QStringList& way) {
    const QWidget& control = at(way);
    return place(control, control.rect().center());
  }
  QPoint placeOfTab(const QString& bar, const QString& caption) {
    const auto& tabs = as<QTabBar>({bar});
    return place(tabs, tabs.tabRect(tabNamed(tabs, caption)).center());
  }
  QPoint placeOfBit(int byte, int cell) {
    const auto& view = as<DisplayResponse>({"DisplayRep"});
    const QRect rect = view.cellRect(byte, cell);
    if (rect.isEmpty()) throw std::runtime_error("the bit is not in sight");
    return place(view, rect.center());
  }
  /// Near the start of a row, which may not be filled yet.
  QPoint placeOfRow(const QStringList& way, int row) {
    const auto& list = as<ListView>(way);
    const QRect first = list.visualRect(list.rows().index(0, 0));
    if (first.isEmpty()) throw std::runtime_error("the list shows no row");
    return place(*list.viewport(), first.center() + QPoint(0, row * first.height()));
  }

  void turnTo(const QString& caption) {
    auto& tabs = as<QTabBar>({"TabStripPrincipal"});
    tabs.setCurrentIndex(tabNamed(tabs, caption));
    QCoreApplication::processEvents();
  }
  /// Pages to turn from the page of the ECU.
  int pagesTo(const QString& caption) {
    return tabNamed(as<QTabBar>({"TabStripPrincipal"}), caption);
  }
  void click(const QStringList& way) {
    support::click(at(way));
    QCoreApplication::processEvents();
  }

  /// How often Tab (or Shift and Tab) leads from one control to another.
  int tabsBetween(const QStringList& from, const QStringList& to, bool back = false) {
    QWidget& start = at(from);
    const QWidget& end = at(to);
    start.setFocus(Qt::TabFocusReason);
    constexpr int most = 60;
    for (int count = 1; count <= most; ++count) {
      QTest::keyClick(QApplication::focusWidget(), back ? Qt::Key_Backtab : Qt::Key_Tab,
                      back ? Qt::ShiftModifier : Qt::NoModifier);
      const QWidget* reached = QApplication::focusWidget();
      if (reached == &end || end.isAncestorOf(reached)) return count;
    }
    throw std::runtime_error("Tab does not lead to " + to.join('/').toStdString());
  }

  /// Keys that choose an entry in the menu of a list. `nth` from 0 of those of the name.
  QStringList keysInListMenu(const QStringList& list, const QString& menu, const QString& entry,
                             int nth = 0) {
    auto& view = as<ListView>(list);
    emit view.customContextMenuRequested(view.visualRect(view.currentIndex()).center());
    return keysInMenu(view, menu, entry, nth);
  }
  /// The same for the menu of a bit.
  QStringList keysInBitMenu(int byte, int cell, const QString& entry, int nth = 0) {
    auto& view = as<DisplayResponse>({"DisplayRep"});
    QTest::mouseClick(&view, Qt::RightButton, {}, view.cellRect(byte, cell).center());
    return keysInMenu(view, QStringLiteral("PopupCreateData"), entry, nth);
  }

 private:
  static int tabNamed(const QTabBar& tabs, const QString& caption) {
    for (int index = 0; index < tabs.count(); ++index)
      if (tabs.tabText(index) == caption) return index;
    throw std::runtime_error("there is no tab " + caption.toStdString());
  }

  static QStringList keysInMenu(QWidget& owner, const QString& name, const QString& entry,
                                int nth) {
    auto* menu = owner.findChild<QMenu*>(name);
    if (!menu) throw std::runtime_error("there is no menu " + name.toStdString());
    QStringList keys{QStringLiteral("Down")}; // to the first entry
    const bool found = appendKeys(*menu, entry, nth, keys);
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!found) throw std::runtime_error("there is no entry " + entry.toStdString());
    return keys;
  }
  /// From the first entry of the menu on.
  static bool appendKeys(const QMenu& menu, const QString& entry, int& nth, QStringList& keys) {
    const qsizetype before = keys.size();
    for (const QAction* action : menu.actions()) {
      if (action->isSeparator() || !action->isEnabled()) continue;
      if (action->menu()) {
        const qsizetype above = keys.size();
        keys << QStringLiteral("Right");
        if (appendKeys(*action->menu(), entry, nth, keys)) return true;
        keys.resize(above);
      } else if (action->objectName() == entry && nth-- == 0) {
        keys << QStringLiteral("Return");
        return true;
      }
      keys << QStringLiteral("Down");
    }
    keys.resize(before);
    return false;
  }

  support::ScriptedPerson person_;
  support::MemorySettings settings_;
  support::NotedProcesses processes_;
  std::unique_ptr<platform::SiteSettings> siteSettings_;
  std::unique_ptr<KelmarForm> form_;
};

} // namespace kelmar::outside
