// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/translate_control.h"

#include "desktop/control_adapter.h"
#include "desktop/qt_text.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

namespace kelmar::desktop {

namespace {

// Children first to last, as they were made; the toolkit's own parts have names in "qt_".
void collect(QObject& parent, std::vector<std::unique_ptr<ControlAdapter>>& found) {
  for (QObject* child : parent.children()) {
    if (!child->isWidgetType() && !qobject_cast<QAction*>(child)) continue;
    const QString name = child->objectName();
    if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")) && !typeNameOf(*child).empty())
      found.push_back(std::make_unique<ControlAdapter>(*child));
    if (!child->property(ownTextsProperty).toBool()) collect(*child, found);
  }
}

CMultiLangEx::Controls pointersTo(const std::vector<std::unique_ptr<ControlAdapter>>& adapters) {
  CMultiLangEx::Controls controls;
  for (const auto& adapter : adapters)
    controls.push_back(adapter.get());
  return controls;
}

} // namespace

void TranslateControl(QWidget& page, const CMultiLangEx& texts, const std::string& key) {
  std::vector<std::unique_ptr<ControlAdapter>> adapters;
  collect(page, adapters);
  texts.TranslateControl(pointersTo(adapters), key);
}

void TranslateControlEx(QWidget& page, CMultiLangEx& texts, const std::string& fileName,
                        const std::string& key) {
  std::vector<std::unique_ptr<ControlAdapter>> adapters;
  collect(page, adapters);
  texts.TranslateControlEx(fileName, pointersTo(adapters), key);
}

} // namespace kelmar::desktop
