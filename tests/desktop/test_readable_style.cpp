// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/readable_style.h"

#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <gtest/gtest.h>

#include <algorithm>

namespace kelmar::desktop {
namespace {

QPalette darkPalette() {
  QPalette palette(QColor(49, 54, 59), QColor(42, 46, 50));
  palette.setColor(QPalette::Base, QColor(27, 30, 32));
  palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  return palette;
}

/// The lightest spot of the empty box.
template <class Box>
int lightestOf(QStyle& style, const QPalette& palette) {
  Box box;
  box.setStyle(&style);
  box.setPalette(palette);
  box.resize(20, 20);
  const QImage picture = box.grab().toImage();
  int lightest = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      lightest = std::max(lightest, picture.pixelColor(x, y).lightness());
  return lightest;
}

TEST(ReadableStyle, HintsInEmptyFieldsCanBeReadOnADarkBase) {
  ReadableStyle style;
  QPalette palette = darkPalette();
  style.polish(palette);
  EXPECT_GT(palette.color(QPalette::PlaceholderText).lightness(), 150);
}

TEST(ReadableStyle, HintsThatCanBeReadStayAsTheDesktopHasThem) {
  ReadableStyle style;
  QPalette palette(Qt::lightGray, QColor(239, 239, 239));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  const QPalette before = palette;
  style.polish(palette);
  EXPECT_EQ(palette, before);
}

TEST(ReadableStyle, EmptyBoxesHaveAFrameThatIsSeenOnADarkWindow) {
  ReadableStyle style;
  EXPECT_GT(lightestOf<QCheckBox>(style, darkPalette()), 90);
  EXPECT_GT(lightestOf<QRadioButton>(style, darkPalette()), 90);
}

} // namespace
} // namespace kelmar::desktop
