// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/icons.h"
#include "support/user.h"

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>

#include <set>

using namespace kelmar;
using namespace kelmar::support;

namespace {

QPalette darkPalette() {
  QPalette dark(QColor(53, 53, 56), QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(32, 32, 35));
  return dark;
}

/// The palette of the program for the length of a test.
class Palette {
 public:
  explicit Palette(const QPalette& palette) { QApplication::setPalette(palette); }
  ~Palette() { QApplication::setPalette(before_); }
  Palette(const Palette&) = delete;
  Palette& operator=(const Palette&) = delete;

 private:
  QPalette before_ = QApplication::palette();
};

QImage drawn(const std::string& key, QIcon::Mode mode = QIcon::Normal) {
  return icon(key).pixmap(QSize(16, 16), 1.0, mode).toImage();
}

/// How far the icon stands out from a background: the greatest difference of lightness.
int standsOut(const QImage& image, const QColor& background) {
  int most = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      const int shown =
          (pixel.lightness() * pixel.alpha() + background.lightness() * (255 - pixel.alpha())) /
          255;
      most = std::max(most, std::abs(shown - background.lightness()));
    }
  return most;
}

TEST(Icons, StandOutOnLightAndOnDark) {
  for (const std::string& key : iconKeys())
    EXPECT_GT(standsOut(drawn(key), QApplication::palette().color(QPalette::Window)), 90) << key;
  const Palette dark(darkPalette());
  for (const std::string& key : iconKeys())
    EXPECT_GT(standsOut(drawn(key), QApplication::palette().color(QPalette::Window)), 90) << key;
}

TEST(Icons, AllDifferAtTheSizeOfARow) {
  std::set<QByteArray> pictures;
  std::size_t signs = 0;
  for (const std::string& key : iconKeys()) {
    if (key == "find") continue; // the sign of "search", on purpose
    const QImage image = drawn(key);
    pictures.insert(
        QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    ++signs;
  }
  EXPECT_EQ(pictures.size(), signs);
}

TEST(Icons, ADisabledOneIsFainterButThere) {
  const QColor background = QApplication::palette().color(QPalette::Window);
  for (const std::string& key : iconKeys()) {
    const int faint = standsOut(drawn(key, QIcon::Disabled), background);
    EXPECT_LT(faint, standsOut(drawn(key), background)) << key;
    EXPECT_GT(faint, 30) << key;
  }
}

TEST(Icons, AnUnknownKeyGivesNone) {
  EXPECT_TRUE(icon("no such icon").isNull());
  EXPECT_TRUE(icon("").isNull());
}

void keepSheet(const QString& name) {
  QWidget sheet;
  auto* grid = new QGridLayout(&sheet);
  int row = 0;
  for (const std::string& key : iconKeys()) {
    int column = 0;
    for (const int size : {16, 24, 48}) {
      auto* label = new QLabel;
      label->setPixmap(icon(key).pixmap(size, size));
      grid->addWidget(label, row % 7, (row / 7) * 5 + column++);
    }
    auto* disabled = new QLabel;
    disabled->setPixmap(icon(key).pixmap(QSize(24, 24), 1.0, QIcon::Disabled));
    grid->addWidget(disabled, row % 7, (row / 7) * 5 + column++);
    grid->addWidget(new QLabel(QString::fromStdString(key)), row % 7, (row / 7) * 5 + column);
    ++row;
  }
  keepPicture(sheet, name);
}

TEST(Icons, FillASheetForTheEye) {
  keepSheet("icons_light");
  const Palette dark(darkPalette());
  keepSheet("icons_dark");
  EXPECT_GE(iconKeys().size(), 19u);
}

TEST(Icons, NoneKeepsThePlaceOfOne) {
  EXPECT_FALSE(icon("none").isNull());
  EXPECT_EQ(standsOut(drawn("none"), Qt::white), 0);
  EXPECT_TRUE(icon("of no set").isNull());
}

} // namespace
