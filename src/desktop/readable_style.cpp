// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/readable_style.h"

#include <QPalette>
#include <QStyleOptionButton>

#include <cstdlib>

namespace kelmar::desktop {

namespace {

constexpr int readable = 70;     // least difference of lightness, of 255
constexpr int hintOpacity = 140; // of 255

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

} // namespace

void ReadableStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const QColor hint = palette.color(group, QPalette::PlaceholderText);
    const QColor base = palette.color(group, QPalette::Base);
    if (std::abs(hint.lightness() - base.lightness()) >= readable) continue;
    QColor text = palette.color(group, QPalette::Text);
    text.setAlpha(hintOpacity);
    palette.setColor(group, QPalette::PlaceholderText, text);
  }
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (!isBox || !button || !isDark(option->palette)) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    return;
  }
  // The frame is drawn in a darker shade of the window.
  QStyleOptionButton lighter(*button);
  lighter.palette.setColor(QPalette::Window,
                           option->palette.color(QPalette::WindowText).darker(150));
  QProxyStyle::drawPrimitive(element, &lighter, painter, widget);
}

} // namespace kelmar::desktop
