// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/zem_numeric.h"
#include "support/user.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <limits>

using namespace kelmar;
using namespace kelmar::support;

namespace {

class ZEMnumericTest : public testing::Test {
 protected:
  QStringList said; // outlives the window, whose end takes the focus away
  QDialog window;
  QLabel* label = new QLabel("&Start byte");
  ZEMnumeric* field = new ZEMnumeric;
  QLineEdit* next = new QLineEdit;
  QPushButton* ok = new QPushButton("OK");

  void SetUp() override {
    auto* layout = new QVBoxLayout(&window);
    field->setObjectName("ValStartOctet");
    label->setBuddy(field);
    ok->setDefault(true);
    for (QWidget* widget : std::initializer_list<QWidget*>{label, field, next, ok})
      layout->addWidget(widget);
    QObject::connect(field, &ZEMnumeric::valueChanged, [this](double from, double to) {
      said << QString("changed %1 %2").arg(from).arg(to);
    });
    QObject::connect(field, &ZEMnumeric::valueCorrected, [this](double from, double to) {
      said << QString("corrected %1 %2 at %3").arg(from).arg(to).arg(field->value());
    });
    QObject::connect(field, &ZEMnumeric::LostFocus, [this] { said << "lost"; });
    QObject::connect(field, &ZEMnumeric::GotFocus, [this] { said << "got"; });
    showToUser(window);
    field->setFocus();
    said.clear();
  }
  QLineEdit& box() { return usable<QLineEdit>(*field, "TextNum"); }
  std::string heard() { return said.join("; ").toStdString(); }
  std::string text() const { return field->text().toStdString(); }
};

TEST_F(ZEMnumericTest, Typing_ShowsTheCommaAndCommitsNothingYet) {
  retype(box(), "1.5");
  EXPECT_EQ(text(), "1,5");
  EXPECT_EQ(field->value(), 0);
  EXPECT_EQ(field->valueOfText(), 1.5);
  EXPECT_EQ(heard(), "");
}

TEST_F(ZEMnumericTest, Enter_CommitsAndGoesNoFurther) {
  QSignalSpy pressed(ok, &QPushButton::clicked);
  retype(box(), "1.5");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 1.5);
  EXPECT_EQ(text(), "1.5");
  EXPECT_EQ(heard(), "changed 0 1.5");
  EXPECT_TRUE(box().hasFocus());
  retype(box(), "2");
  press(box(), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(field->value(), 2);
  EXPECT_EQ(pressed.count(), 0) << "the dialog's button must not be pressed";
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ZEMnumericTest, Tab_CommitsAndMovesOn) {
  retype(box(), "12");
  press(box(), Qt::Key_Tab);
  EXPECT_EQ(field->value(), 12);
  EXPECT_TRUE(next->hasFocus());
  EXPECT_EQ(heard(), "changed 0 12; lost");
}

TEST_F(ZEMnumericTest, ShiftTab_CommitsToo) {
  next->setFocus();
  press(*next, Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_TRUE(box().hasFocus());
  retype(box(), "7");
  press(box(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_FALSE(box().hasFocus());
  EXPECT_EQ(field->value(), 7);
}

TEST_F(ZEMnumericTest, FocusLoss_CommitsANumberAndTakesBackAnythingElse) {
  retype(box(), "12");
  QTest::mouseClick(next, Qt::LeftButton);
  next->setFocus();
  EXPECT_EQ(field->value(), 12);
  EXPECT_EQ(heard(), "lost; changed 0 12");
  for (const char* text : {"-", "1E", "1,2,3", ""}) {
    said.clear();
    retype(box(), text);
    next->setFocus();
    EXPECT_EQ(this->text(), "12") << text;
    EXPECT_EQ(field->value(), 12);
    EXPECT_EQ(heard(), "got; lost");
  }
}

TEST_F(ZEMnumericTest, FocusLoss_InHexadecimalTakesBackABlankText) {
  field->setBase(1);
  field->setvalue(26);
  box().setText("  ");
  next->setFocus();
  EXPECT_EQ(text(), "1A");
  box().setText("xyz");
  field->setFocus();
  next->setFocus();
  EXPECT_EQ(text(), "1A");
}

TEST_F(ZEMnumericTest, Hexadecimal_TypedLettersBecomeCapitals) {
  field->setBase(1);
  retype(box(), "ff");
  EXPECT_EQ(text(), "FF");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 255);
  EXPECT_EQ(text(), "FF");
  retype(box(), "ffffffff");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 4294967295.0);
  said.clear();
  retype(box(), "100000000");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(text(), "FFFFFFFF");
  EXPECT_EQ(heard(), "corrected 4.29497e+09 4.29497e+09 at 4.29497e+09");
}

TEST_F(ZEMnumericTest, Hexadecimal_MinusOneBecomesZero) {
  field->setBase(1);
  field->setvalue(5);
  said.clear();
  QApplication::clipboard()->setText("-1");
  press(box(), Qt::Key_A, Qt::ControlModifier);
  press(box(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(), "-1");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 0);
  EXPECT_EQ(text(), "0");
  EXPECT_EQ(heard(), "corrected -1 0 at 5; changed 5 0");
}

TEST_F(ZEMnumericTest, Hexadecimal_ANegativeValueThatCodeSetsIsShownInTheDecimalBase) {
  field->setBase(1);
  field->setvalue(5);
  said.clear();
  field->setvalue(-1);
  EXPECT_EQ(field->value(), -1);
  EXPECT_EQ(text(), "-1");
  EXPECT_EQ(field->Base(), 0);
  EXPECT_EQ(control<QToolButton>(*field, "CBBase").text().toStdString(), "D");
  EXPECT_EQ(heard(), "changed 5 -1");
  field->setvalue(26);
  EXPECT_EQ(text(), "1A") << "the base that was chosen";
  field->setvalue(-1);
  field->setBase(0);
  field->setvalue(26);
  EXPECT_EQ(text(), "26") << "the base that was chosen since";
  // One that the limits bring within the base stays in it.
  field->setRangeChecking(true);
  field->SetMinMax(0, 9);
  field->setBase(1);
  field->setvalue(-1);
  EXPECT_EQ(field->value(), 0);
  EXPECT_EQ(field->Base(), 1);
}

TEST_F(ZEMnumericTest, KeyH_OnlyCommitsWhereNoButtonTellsTheBase) {
  field->setBaseButtonVisible(false);
  retype(box(), "16");
  type(box(), "h");
  EXPECT_EQ(field->Base(), 0);
  EXPECT_EQ(text(), "16");
  EXPECT_EQ(field->value(), 16);
}

TEST_F(ZEMnumericTest, KeyH_CommitsTogglesAndIsEaten) {
  retype(box(), "26");
  type(box(), "H");
  EXPECT_EQ(field->Base(), 1);
  EXPECT_EQ(field->value(), 26);
  EXPECT_EQ(text(), "1A");
  EXPECT_EQ(control<QToolButton>(*field, "CBBase").text().toStdString(), "H");
  retype(box(), "1b");
  type(box(), "h");
  EXPECT_EQ(field->Base(), 0);
  EXPECT_EQ(text(), "27");
  EXPECT_EQ(control<QToolButton>(*field, "CBBase").text().toStdString(), "D");
  EXPECT_EQ(heard(), "changed 0 26; changed 26 27");
}

TEST_F(ZEMnumericTest, NumberDigit_ShowsThatManyAndAWalkThroughTheFieldChangesNothing) {
  field->setBase(1);
  field->setNumberDigit(4);
  field->setvalue(26);
  EXPECT_EQ(text(), "001A");
  field->setvalue(0x12345);
  EXPECT_EQ(text(), "2345");
  said.clear();
  press(box(), Qt::Key_Return);
  press(box(), Qt::Key_Tab);
  EXPECT_EQ(field->value(), 0x12345);
  field->setNumberDigit(0);
  field->setBase(0);
  field->setvalue(1.0 / 3);
  field->setBase(1);
  EXPECT_EQ(text(), "0");
  field->setFocus();
  next->setFocus();
  EXPECT_EQ(field->value(), 1.0 / 3);
}

TEST_F(ZEMnumericTest, NumberDigit_ATextThatIsTypedCountsEvenWhenItWasShownBefore) {
  field->setBase(1);
  field->setNumberDigit(4);
  field->setvalue(0x12345);
  retype(box(), "2345");
  EXPECT_EQ(field->valueOfText(), 0x2345);
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 0x2345);
}

TEST_F(ZEMnumericTest, Range_ClampsAndSaysSo) {
  field->setRangeChecking(true);
  field->SetMinMax(0, 7);
  retype(box(), "9");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 7);
  EXPECT_EQ(text(), "7");
  EXPECT_EQ(heard(), "corrected 9 7 at 0; changed 0 7");
  said.clear();
  retype(box(), "8");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(text(), "7");
  EXPECT_EQ(heard(), "corrected 8 7 at 7") << "the value is the same, so it did not change";
  field->setRangeChecking(false);
  retype(box(), "8");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 8);
}

TEST_F(ZEMnumericTest, Range_NewLimitsHoldForTheNextValue) {
  field->setvalue(100);
  field->setRangeChecking(true);
  field->setMinimum(1);
  field->setMaximum(50);
  EXPECT_EQ(field->value(), 100);
  field->setvalue(field->value());
  EXPECT_EQ(field->value(), 50);
}

TEST_F(ZEMnumericTest, Range_AValueThatNobodyTypedStaysOutsideOfIt) {
  field->setvalue(0);
  field->setRangeChecking(true);
  field->SetMinMax(1, 7);
  box().setFocus();
  press(box(), Qt::Key_Return);
  field->commitText();
  EXPECT_EQ(field->value(), 0);
  EXPECT_EQ(field->valueOfText(), 0);
  retype(box(), "0");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(field->value(), 1) << "typed, it is judged";
}

TEST_F(ZEMnumericTest, Discrete_GoesToTheGrid) {
  field->setDiscrete(true);
  field->setDiscreteBase(0);
  field->setDiscreteInterval(8);
  retype(box(), "13");
  press(box(), Qt::Key_Tab);
  EXPECT_EQ(field->value(), 16);
  EXPECT_EQ(text(), "16");
  EXPECT_EQ(heard(), "corrected 13 16 at 0; changed 0 16; lost");
}

TEST_F(ZEMnumericTest, Spin_AddsAndSubtractsThroughTheSameCorrection) {
  field->setIncrement(2);
  field->setRangeChecking(true);
  field->SetMinMax(-1, 5);
  click(usable<QToolButton>(*field, "UpDownNumUp"));
  click(usable<QToolButton>(*field, "UpDownNumUp"));
  EXPECT_EQ(field->value(), 4);
  click(usable<QToolButton>(*field, "UpDownNumUp"));
  EXPECT_EQ(field->value(), 5);
  for (int i = 0; i < 4; ++i)
    click(usable<QToolButton>(*field, "UpDownNumDown"));
  EXPECT_EQ(text(), "-1");
  EXPECT_TRUE(box().hasFocus()) << "the cursor stays in the text";
}

TEST_F(ZEMnumericTest, Spin_TakesWhatIsTypedFirstAndHasKeys) {
  retype(box(), "10");
  click(usable<QToolButton>(*field, "UpDownNumUp"));
  EXPECT_EQ(field->value(), 11);
  press(box(), Qt::Key_Up);
  press(box(), Qt::Key_Up);
  press(box(), Qt::Key_Down);
  EXPECT_EQ(field->value(), 12);
  field->setIncDecButtonVisible(false);
  press(box(), Qt::Key_Up);
  EXPECT_EQ(field->value(), 12);
}

TEST_F(ZEMnumericTest, PopupBase_SetsTheBaseAndMarksThePresentOne) {
  retype(box(), "255");
  auto* menu = field->findChild<QMenu*>("popupBase");
  ASSERT_TRUE(menu);
  QTimer::singleShot(100, menu, [menu] {
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(menu->actions()[0]->text().toStdString(), "decimal");
    EXPECT_EQ(menu->actions()[1]->text().toStdString(), "Hexa");
    EXPECT_TRUE(menu->actions()[0]->isChecked());
    EXPECT_FALSE(menu->actions()[1]->isChecked());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[1]).center());
  });
  click(usable<QToolButton>(*field, "CBBase"));
  ASSERT_TRUE(waitUntil([&] { return field->Base() == 1; }));
  EXPECT_EQ(text(), "FF");
  EXPECT_EQ(field->value(), 255);
  EXPECT_EQ(control<QToolButton>(*field, "CBBase").text().toStdString(), "H");
}

TEST_F(ZEMnumericTest, Keys_BackspaceDeleteAndCursorKeysWorkAndOthersAreEaten) {
  retype(box(), "12xyz %34");
  EXPECT_EQ(text(), "1234");
  press(box(), Qt::Key_Backspace);
  EXPECT_EQ(text(), "123");
  press(box(), Qt::Key_Home);
  press(box(), Qt::Key_Delete);
  EXPECT_EQ(text(), "23");
  press(box(), Qt::Key_Escape); // closes the dialog, as everywhere
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ZEMnumericTest, Keys_AndFocusArePassedOnBeforeTheFieldActs) {
  QStringList order;
  QObject::connect(field, &ZEMnumeric::KeyDown, [&](int key, int shift) {
    order << QString("down %1 %2").arg(QChar(key < 0x100 ? key : '#')).arg(shift);
  });
  QObject::connect(field, &ZEMnumeric::KeyPress,
                   [&](int character) { order << QString("press %1").arg(character); });
  QObject::connect(field, &ZEMnumeric::KeyUp, [&](int key, int) {
    order << QString("up %1").arg(QChar(key < 0x100 ? key : '#'));
  });
  QObject::connect(field, &ZEMnumeric::Change, [&] { order << "change " + field->text(); });
  QObject::connect(field, &ZEMnumeric::valueChanged, [&] { order << "value"; });
  press(box(), Qt::Key_End);
  QTest::keyClick(&box(), '5');
  press(box(), Qt::Key_Return);
  EXPECT_EQ(order.join("; ").toStdString(),
            "down # 0; up #; down 5 0; press 53; change 05; up 5; down # 0; press 13; change 5; "
            "value; up #");
}

TEST_F(ZEMnumericTest, Keys_SentToTheControlReachItsTextOnce) {
  int downs = 0;
  QObject::connect(field, &ZEMnumeric::KeyDown, [&] { ++downs; });
  press(box(), Qt::Key_A, Qt::ControlModifier);
  downs = 0;
  QTest::keyClick(field, '4');
  QTest::keyClick(field, '2');
  EXPECT_EQ(text(), "42");
  EXPECT_EQ(downs, 2);
  QTest::keyClick(field, Qt::Key_F9); // nobody takes it
  EXPECT_EQ(downs, 3);
  press(box(), Qt::Key_F9);
  EXPECT_EQ(downs, 4);
}

TEST_F(ZEMnumericTest, PastedText_IsJudgedWhenItIsCommitted) {
  field->setvalue(3);
  QApplication::clipboard()->setText("hello");
  press(box(), Qt::Key_A, Qt::ControlModifier);
  press(box(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(), "hello");
  press(box(), Qt::Key_Return);
  EXPECT_EQ(text(), "3");
}

TEST_F(ZEMnumericTest, CommitText_ServesCommandsThatLeaveTheCursorWhereItIs) {
  retype(box(), "44");
  field->commitText();
  EXPECT_EQ(field->value(), 44);
  EXPECT_EQ(heard(), "changed 0 44");
  field->commitText();
  EXPECT_EQ(heard(), "changed 0 44");
}

TEST_F(ZEMnumericTest, Refresh_TakesBackWhatIsTyped) {
  field->setvalue(5);
  retype(box(), "77");
  field->Refresh();
  EXPECT_EQ(text(), "5");
}

TEST_F(ZEMnumericTest, AValueThatIsNoNumberIsNotTaken) {
  field->setvalue(5);
  field->setvalue(std::numeric_limits<double>::quiet_NaN());
  field->setvalue(std::numeric_limits<double>::infinity());
  EXPECT_EQ(field->value(), 5);
}

TEST_F(ZEMnumericTest, MaxLength_LimitsTypingAndCutsNoValue) {
  field->setMaxLength(3);
  retype(box(), "12345");
  EXPECT_EQ(text(), "123");
  field->setvalue(123456);
  EXPECT_EQ(text(), "123456");
  field->setvalue(1);
  retype(box(), "12345");
  EXPECT_EQ(text(), "123");
}

TEST_F(ZEMnumericTest, Properties_HaveTheirPersistedNames) {
  const std::pair<const char*, QVariant> table[] = {
      {"Value", 12.0},
      {"Maximum", 99.0},
      {"Minimum", -3.0},
      {"RangeChecking", true},
      {"Base", 1},
      {"NumberDigit", 3},
      {"Increment", 0.5},
      {"IncDecButtonVisible", false},
      {"BaseButtonVisible", false},
      {"Discrete", true},
      {"DiscreteBase", 2.0},
      {"DiscreteInterval", 10.0},
      {"MaxLength", 6},
      {"Alignment", 2},
      {"FontSize", 14.0},
      {"FontName", "DejaVu Serif"},
      {"FontItalic", true},
      {"FontBold", true},
      {"BackColor", 0x00FFFFu},
      {"ForeColor", 255u},
      {"Enabled", false},
  };
  for (const auto& [name, value] : table) {
    EXPECT_TRUE(field->setProperty(name, value)) << name << " is a dynamic property";
    EXPECT_EQ(field->property(name), value) << name;
  }
  QLineEdit& text = control<QLineEdit>(*field, "TextNum");
  EXPECT_EQ(text.text().toStdString(), "00C");
  EXPECT_EQ(text.alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
  EXPECT_TRUE(text.font().italic() && text.font().bold());
  EXPECT_EQ(text.palette().color(QPalette::Active, QPalette::Base), QColor(255, 255, 0));
  EXPECT_EQ(text.palette().color(QPalette::Active, QPalette::Text), QColor(255, 0, 0));
  EXPECT_FALSE(text.isEnabled());
  EXPECT_FALSE(control<QWidget>(*field, "UpDownNum").isVisible());
  EXPECT_FALSE(control<QWidget>(*field, "CBBase").isVisible());
}

TEST_F(ZEMnumericTest, ReadersHearTheLabelOfTheField) {
  next->setFocus();
  field->setFocus();
  EXPECT_EQ(box().accessibleName().toStdString(), "Start byte");
  field->setAccessibleName("First byte");
  next->setFocus();
  field->setFocus();
  EXPECT_EQ(box().accessibleName().toStdString(), "First byte");
}

TEST_F(ZEMnumericTest, Pictures) {
  field->setBase(1);
  field->setvalue(0xBEEF);
  field->setIncDecButtonVisible(true);
  keepPicture(window, "number-field-light");
  QPalette dark;
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
    dark.setColor(role, QColor(35, 35, 38));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(role, QColor(230, 230, 230));
  window.setPalette(dark);
  keepPicture(window, "number-field-dark");
  EXPECT_EQ(box().palette().color(QPalette::Base), QColor(35, 35, 38));
  QWidget& up = usable<QToolButton>(*field, "UpDownNumUp");
  QWidget& down = usable<QToolButton>(*field, "UpDownNumDown");
  EXPECT_GT(up.height(), 6);
  EXPECT_LE(up.height() + down.height(), box().height());
}

} // namespace
