// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace kelmar::desktop {

/// The style of the desktop, readable with dark palettes too: some of them leave the hints in empty
/// fields black, and the frames of boxes are darker than the window they stand on.
class ReadableStyle : public QProxyStyle {
 public:
  void polish(QPalette& palette) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  using QProxyStyle::polish;
};

} // namespace kelmar::desktop
