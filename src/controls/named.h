// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>

#include <limits>

namespace kelmar {

// What every layout is made of. Names and texts are ASCII.

/// A control below `parent` with the object name by which the language file and tests find it.
template <class Widget>
Widget* named(const char* name, QWidget* parent) {
  auto* widget = new Widget(parent);
  widget->setObjectName(QLatin1String(name));
  return widget;
}

/// A field for one line of text of any length, which takes over what an item has as a whole.
inline QLineEdit* textField(const char* name, QWidget* parent) {
  auto* field = named<QLineEdit>(name, parent);
  field->setMaxLength(std::numeric_limits<int>::max());
  return field;
}

/// A push button, a check box or a radio button with its text.
template <class Button>
Button* button(const char* name, const char* text, QWidget* parent) {
  auto* made = named<Button>(name, parent);
  made->setText(QLatin1String(text));
  return made;
}

/// The label in front of a control.
inline QLabel* caption(const char* name, const char* text, QWidget* buddy, QWidget* parent) {
  auto* label = named<QLabel>(name, parent);
  label->setText(QLatin1String(text));
  label->setBuddy(buddy);
  return label;
}

} // namespace kelmar
