// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/control_adapter.h"

#include "desktop/qt_text.h"
#include "desktop/translate_control.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>

namespace kelmar::desktop {

using language::ControlPart;
using language::ControlProperty;
using language::PartPosition;

namespace {

// Most special first: a class stands before those that it derives from.
struct ClassType {
  bool (*fits)(const QObject&);
  const char* typeName;
};

template <typename Class>
bool isA(const QObject& object) {
  return qobject_cast<const Class*>(&object) != nullptr;
}

bool isPicture(const QObject& object) {
  const auto* label = qobject_cast<const QLabel*>(&object);
  return label && label->text().isEmpty() && !label->pixmap(Qt::ReturnByValue).isNull();
}

// Everything that has a border derives from it.
bool isBareFrame(const QObject& object) {
  return object.metaObject() == &QFrame::staticMetaObject;
}

constexpr ClassType classTypes[] = {
    {isA<QAction>, "Menu"},
    {isA<QMenu>, "Menu"},
    {isA<QCheckBox>, "CheckBox"},
    {isA<QRadioButton>, "OptionButton"},
    {isA<QPushButton>, "CommandButton"},
    {isA<QToolButton>, "CommandButton"},
    {isA<QComboBox>, "ComboBox"},
    {isA<QLineEdit>, "TextBox"},
    {isA<QPlainTextEdit>, "TextBox"},
    {isA<QTextEdit>, "TextBox"},
    {isA<QTabWidget>, "TabStrip"},
    {isA<QTabBar>, "TabStrip"},
    {isA<QToolBar>, "Toolbar"},
    {isA<QAbstractItemView>, "ListView"},
    {isA<QGroupBox>, "Frame"},
    {isPicture, "Image"},
    {isA<QLabel>, "Label"},
    {isBareFrame, "PictureBox"},
};

std::string keyOf(const QAction& action) {
  const QVariant key = action.property(keyProperty);
  return u8(key.isValid() ? key.toString() : action.objectName());
}

QTabBar* tabsOf(QObject* control) {
  if (auto* pages = qobject_cast<QTabWidget*>(control)) return pages->tabBar();
  return qobject_cast<QTabBar*>(control);
}

// The menu of a button, whether the action or the widget that stands for it has it.
QMenu* menuOf(const QToolBar& bar, QAction& action) {
  if (QMenu* menu = action.menu<QMenu*>()) return menu;
  const auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
  return button ? button->menu() : nullptr;
}

std::vector<ControlPart> buttonsOf(const QToolBar& bar) {
  std::vector<ControlPart> parts;
  for (QAction* action : bar.actions()) {
    ControlPart part{keyOf(*action), {}};
    if (const QMenu* menu = menuOf(bar, *action))
      for (const QAction* entry : menu->actions())
        part.menuKeys.push_back(keyOf(*entry));
    parts.push_back(std::move(part));
  }
  return parts;
}

std::vector<ControlPart> tabParts(const QTabBar& tabs) {
  std::vector<ControlPart> parts;
  for (int tab = 0; tab < tabs.count(); ++tab)
    parts.push_back({u8(tabs.tabData(tab).toString()), {}});
  return parts;
}

std::vector<ControlPart> columnsOf(const QAbstractItemView& view) {
  std::vector<ControlPart> parts;
  if (const QAbstractItemModel* model = view.model())
    for (int column = 0; column < model->columnCount(); ++column)
      parts.push_back(
          {u8(model->headerData(column, Qt::Horizontal, columnKeyRole).toString()), {}});
  return parts;
}

} // namespace

std::string typeNameOf(const QObject& control) {
  const QVariant named = control.property(controlTypeProperty);
  if (named.isValid()) return u8(named.toString());
  for (const ClassType& row : classTypes)
    if (row.fits(control)) return row.typeName;
  return {};
}

std::string ControlAdapter::typeName() const {
  return control_ ? typeNameOf(*control_) : "";
}

std::string ControlAdapter::name() const {
  return control_ ? u8(control_->objectName()) : "";
}

std::optional<int> ControlAdapter::index() const {
  const QVariant index = control_ ? control_->property(controlIndexProperty) : QVariant();
  return index.isValid() ? std::optional(index.toInt()) : std::nullopt;
}

std::vector<ControlPart> ControlAdapter::parts() const {
  if (const QTabBar* tabs = tabsOf(control_)) return tabParts(*tabs);
  if (const auto* bar = qobject_cast<QToolBar*>(control_)) return buttonsOf(*bar);
  if (const auto* view = qobject_cast<QAbstractItemView*>(control_)) return columnsOf(*view);
  return {};
}

void ControlAdapter::apply(ControlProperty property, const std::string& text, PartPosition where) {
  if (!control_) return;
  if (where.part >= 0) {
    if (tabsOf(control_))
      applyToTab(property, qs(text), where.part);
    else if (auto* bar = qobject_cast<QToolBar*>(control_))
      applyToButton(*bar, qs(text), where);
    else if (auto* view = qobject_cast<QAbstractItemView*>(control_); view && view->model())
      view->model()->setHeaderData(where.part, Qt::Horizontal, qs(text));
    return;
  }
  switch (property) {
  case ControlProperty::Caption:
  case ControlProperty::Text:
    setCaption(qs(text));
    break;
  case ControlProperty::ToolTip:
    setToolTip(qs(text));
    break;
  case ControlProperty::FontName:
    if (auto* widget = qobject_cast<QWidget*>(control_)) {
      QFont font = widget->font();
      font.setFamily(qs(text));
      widget->setFont(font);
    }
    break;
  case ControlProperty::FontSize: // comes through applyFontSize
    break;
  }
}

void ControlAdapter::applyFontSize(float points) {
  auto* widget = qobject_cast<QWidget*>(control_);
  if (!widget || !(points > 0)) return;
  QFont font = widget->font();
  font.setPointSizeF(static_cast<double>(points));
  widget->setFont(font);
}

void ControlAdapter::setCaption(const QString& text) {
  if (auto* action = qobject_cast<QAction*>(control_))
    action->setText(text);
  else if (auto* menu = qobject_cast<QMenu*>(control_))
    menu->setTitle(text);
  else if (auto* button = qobject_cast<QAbstractButton*>(control_))
    button->setText(text);
  else if (auto* box = qobject_cast<QGroupBox*>(control_))
    box->setTitle(text);
  else if (auto* label = qobject_cast<QLabel*>(control_))
    label->setText(text);
}

void ControlAdapter::setToolTip(const QString& text) {
  auto* widget = qobject_cast<QWidget*>(control_);
  if (!widget) return;
  widget->setToolTip(text);
  const auto* button = qobject_cast<QAbstractButton*>(widget);
  const auto* toolButton = qobject_cast<QToolButton*>(widget);
  const bool showsIcon = toolButton && toolButton->toolButtonStyle() == Qt::ToolButtonIconOnly &&
                         !toolButton->icon().isNull();
  if (button && (button->text().isEmpty() || showsIcon)) widget->setAccessibleName(text);
}

void ControlAdapter::applyToTab(ControlProperty property, const QString& text, int tab) {
  QTabBar* tabs = tabsOf(control_);
  if (property == ControlProperty::ToolTip)
    tabs->setTabToolTip(tab, text);
  else if (auto* pages = qobject_cast<QTabWidget*>(control_))
    pages->setTabText(tab, text); // which also lays the tabs out anew
  else
    tabs->setTabText(tab, text);
}

void ControlAdapter::applyToButton(QToolBar& bar, const QString& text, PartPosition where) {
  QAction* action = bar.actions().value(where.part);
  if (!action) return;
  if (where.menu >= 0) {
    const QMenu* menu = menuOf(bar, *action);
    if (QAction* entry = menu ? menu->actions().value(where.menu) : nullptr) entry->setText(text);
    return;
  }
  action->setToolTip(text);
  QWidget* widget = bar.widgetForAction(action);
  if (!widget) return;
  const auto* button = qobject_cast<QToolButton*>(widget);
  if (!button || button->defaultAction() != action)
    widget->setToolTip(text); // it was put into the bar as it is and does not follow the action
  if (button && (button->text().isEmpty() || button->toolButtonStyle() == Qt::ToolButtonIconOnly))
    widget->setAccessibleName(text);
}

} // namespace kelmar::desktop
