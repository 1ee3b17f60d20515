// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"

#include "base/conversions.h"

#include <cmath>

namespace kelmar {

namespace {

QPalette::ColorRole roleOf(std::uint32_t index) {
  switch (index) {
  case 5: // window
    return QPalette::Base;
  case 4:  // menu bar
  case 15: // face of a button
    return QPalette::Button;
  case 1:  // desktop
  case 12: // work area
    return QPalette::Window;
  case 0: // scroll bar
  case 22:
    return QPalette::Midlight;
  case 2: // active caption
  case 13:
    return QPalette::Highlight;
  case 9:
  case 14:
    return QPalette::HighlightedText;
  case 6: // frames
  case 16:
    return QPalette::Dark;
  case 3:
  case 10:
  case 11:
    return QPalette::Mid;
  case 17: // disabled text
    return QPalette::PlaceholderText;
  case 18:
    return QPalette::ButtonText;
  case 20:
    return QPalette::Light;
  case 21:
    return QPalette::Shadow;
  case 23:
    return QPalette::ToolTipText;
  case 24:
    return QPalette::ToolTipBase;
  default:
    return QPalette::WindowText;
  }
}

double linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a), second = luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

QColor shownColour(std::uint32_t colour, const QPalette& palette) {
  if (colour & systemColourMark) return palette.color(roleOf(colour & 0xFFu));
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}

std::uint32_t storedColour(const QColor& colour) {
  return static_cast<std::uint32_t>(colour.blue()) << 16 |
         static_cast<std::uint32_t>(colour.green()) << 8 | static_cast<std::uint32_t>(colour.red());
}

QColor readableOn(const QPalette& palette, const QColor& wanted) {
  const QColor base = palette.color(QPalette::Base);
  const bool dark = luminance(base) < 0.18;
  const double enough = dark ? 4.5 : 3.9; // pure red stays what it is on white
  const double step = dark ? 0.08 : -0.08;
  QColor result = wanted.toHsl();
  while (contrast(result, base) < enough) {
    const double lightness = result.lightnessF() + step;
    if (lightness <= 0 || lightness >= 1) return palette.color(QPalette::Text);
    result.setHslF(result.hslHueF(), result.hslSaturationF(), static_cast<float>(lightness));
  }
  return result.toRgb();
}

} // namespace kelmar
