// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "language/multi_lang.h"

#include <string>

#include <qnamespace.h>

class QObject;
class QWidget;

namespace kelmar::desktop {

// How the widgets of a page tell what they are to the language file. The name of a control is its
// objectName; its type follows from its class (see typeNameOf) unless a property names it.

/// Property: type name of the control, such as "PictureBox".
inline constexpr char controlTypeProperty[] = "controlType";
/// Property: position in a control array, an integer.
inline constexpr char controlIndexProperty[] = "index";
/// Property of a QAction in a tool bar or in a button's menu: its key; else its objectName is.
inline constexpr char keyProperty[] = "key";
/// Property: true on a widget that translates its children itself, such as a page in a tab.
inline constexpr char ownTextsProperty[] = "ownTexts";
/// Role of a model's horizontal header that holds the key of a column. The key of a tab is its
/// tabData.
inline constexpr int columnKeyRole = Qt::UserRole + 100;

/// Gives all controls below `page` their texts below `key`: widgets, menus and actions. A button
/// that shows no text takes its tool tip as accessible name.
void TranslateControl(QWidget& page, const CMultiLangEx& texts, const std::string& key);

/// The same from another language file. Without effect when it cannot be loaded.
void TranslateControlEx(QWidget& page, CMultiLangEx& texts, const std::string& fileName,
                        const std::string& key);

/// The type name of a widget or an action; empty for what has no texts in a language file.
std::string typeNameOf(const QObject& control);

} // namespace kelmar::desktop
