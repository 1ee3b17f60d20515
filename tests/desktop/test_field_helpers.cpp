// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/blank_bitmap.h"
#include "desktop/edit_style.h"
#include "support/temp_folder.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

namespace kelmar::desktop {
namespace {

TEST(EditStyle, Uppercase_RaisesWhatIsTyped) {
  QLineEdit field("old");
  SetEditUppercase(field);
  EXPECT_EQ(field.text(), "old");
  field.clear();
  QTest::keyClicks(&field, "ab-1z");
  EXPECT_EQ(field.text(), "AB-1Z");
  field.setCursorPosition(1);
  QTest::keyClicks(&field, "x");
  EXPECT_EQ(field.text(), "AXB-1Z");
  EXPECT_EQ(field.cursorPosition(), 2);
}

TEST(EditStyle, Numeric_RefusesOtherCharactersFromAPerson) {
  QLineEdit field;
  SetEditNumeric(field);
  QTest::keyClicks(&field, "1a2-.3");
  EXPECT_EQ(field.text(), "123");
  QApplication::clipboard()->setText("x9");
  field.paste();
  EXPECT_EQ(field.text(), "123");
}

TEST(EditStyle, Numeric_LetsAPersonEditWhatCodeHasSet) {
  QLineEdit field;
  SetEditNumeric(field);
  field.setText("12 V");
  EXPECT_EQ(field.text(), "12 V");
  field.setCursorPosition(2);
  QTest::keyClicks(&field, "5A");
  EXPECT_EQ(field.text(), "125 V");
  field.end(false);
  QTest::keyClick(&field, Qt::Key_Backspace);
  EXPECT_EQ(field.text(), "125 ");
  QTest::keyClicks(&field, "V");
  EXPECT_EQ(field.text(), "125 ");
}

TEST(EditStyle, BothStyles_AddUp) {
  QLineEdit field;
  SetEditUppercase(field);
  SetEditNumeric(field);
  QTest::keyClicks(&field, "a1");
  EXPECT_EQ(field.text(), "1");
}

TEST(BlankBitmap, HasItsSizeAndOneColour) {
  const support::TempFolder folder;
  for (const char* name : {"a.bmp", "a.png", "noextension"}) {
    ASSERT_TRUE(SaveBlankBitmap(12, 7, folder.file(name))) << name;
    const QImage image(QString::fromStdString(folder.file(name)));
    EXPECT_EQ(image.size(), QSize(12, 7)) << name;
    EXPECT_EQ(image.pixel(0, 0), image.pixel(11, 6)) << name;
  }
}

TEST(BlankBitmap, IsRefusedWithoutSizeFormatOrPlace) {
  const support::TempFolder folder;
  const std::string file = folder.file("a.bmp");
  EXPECT_FALSE(SaveBlankBitmap(0, 7, file));
  EXPECT_FALSE(SaveBlankBitmap(7, -1, file));
  EXPECT_FALSE(SaveBlankBitmap(2000000000, 2000000000, file));
  EXPECT_FALSE(SaveBlankBitmap(1, 1, folder.file("a.unknown")));
  EXPECT_FALSE(SaveBlankBitmap(1, 1, folder.file("none/a.bmp")));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

} // namespace
} // namespace kelmar::desktop
