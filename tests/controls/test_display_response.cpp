// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "controls/display_response.h"
#include "support/user.h"

#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <gtest/gtest.h>

using namespace kelmar;
using namespace kelmar::support;

namespace {

class DisplayResponseTest : public testing::Test {
 protected:
  QStringList said;
  DisplayResponse view;

  void SetUp() override {
    view.setObjectName("DisplayRep");
    view.setNumberBytes(4);
    view.resize(view.minimumSizeHint().width() * 4, view.minimumSizeHint().height());
    const auto note = [this](const char* what) {
      return [this, what](int byte, int cell, int button, int shift) {
        said << QString("%1 %2 %3 %4 %5").arg(what).arg(byte).arg(cell).arg(button).arg(shift);
      };
    };
    QObject::connect(&view, &DisplayResponse::MouseDown, note("down"));
    QObject::connect(&view, &DisplayResponse::MouseUp, note("up"));
    QObject::connect(&view, &DisplayResponse::Click, [this](int byte, int cell) {
      said << QString("click %1 %2").arg(byte).arg(cell);
    });
    QObject::connect(&view, &DisplayResponse::DblClick, [this](int byte, int cell) {
      said << QString("double %1 %2").arg(byte).arg(cell);
    });
    showToUser(view);
  }
  std::string heard() {
    const std::string text = said.join("; ").toStdString();
    said.clear();
    return text;
  }
  QScrollBar& bar() { return control<QScrollBar>(view, "HScroll"); }
  void mouse(int byte, int cell, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    const QRect cellBox = view.cellRect(byte, cell);
    ASSERT_FALSE(cellBox.isEmpty()) << byte << "/" << cell << " is not seen";
    QTest::mouseClick(&view, button, modifiers, cellBox.center());
  }
  std::string current() const {
    const auto bit = view.currentBit();
    return bit ? std::to_string(bit->byte) + "/" + std::to_string(bit->cell) : "none";
  }
  std::string captions() const {
    std::string all;
    for (const FrameByte& shown : view.TabByte())
      all += shown.byte.LBbyteCaption() + "|";
    return all;
  }
  /// Pixels of a colour in a cell of the painted picture.
  int painted(int byte, int cell, const QColor& colour) {
    const QImage picture = view.grab(view.cellRect(byte, cell)).toImage();
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        found += picture.pixelColor(x, y) == colour;
    return found;
  }
};

TEST_F(DisplayResponseTest, StartsWithTheValuesOfItsProperties) {
  const DisplayResponse fresh;
  EXPECT_EQ(fresh.BackColor(), 0x8000000Fu);
  EXPECT_EQ(fresh.ForeColor(), 0x80000012u);
  EXPECT_EQ(fresh.DefaultColor(), 0xFFFFFFu);
  EXPECT_EQ(fresh.DataColor(), 0xFF0000u);
  EXPECT_EQ(fresh.DataOverWriteColor(), 255u);
  EXPECT_EQ(fresh.DataSelectedColor(), 65280u);
  EXPECT_EQ(fresh.NumberBytes(), 1);
  EXPECT_EQ(fresh.FirstVisibleByte(), 0);
  EXPECT_FALSE(fresh.LittleEndian());
  EXPECT_FALSE(fresh.datas());
}

TEST_F(DisplayResponseTest, Properties_HaveTheirPersistedNames) {
  const std::pair<const char*, QVariant> table[] = {
      {"BackColor", 1u},
      {"ForeColor", 2u},
      {"Enabled", false},
      {"DefaultColor", 3u},
      {"DataColor", 4u},
      {"DataOverWriteColor", 5u},
      {"DataSelectedColor", 6u},
      {"NumberBytes", 100},
      {"FirstVisibleByte", 7},
      {"LittleEndian", true},
      {"Font", QFont("DejaVu Serif", 13)},
  };
  for (const auto& [name, value] : table) {
    EXPECT_TRUE(view.setProperty(name, value)) << name << " is a dynamic property";
    EXPECT_EQ(view.property(name), value) << name;
  }
}

TEST_F(DisplayResponseTest, NumberBytes_IsBroughtWithinAndDropsEverything) {
  view.SetByteBinaryValue(1, 5);
  view.AddData(8, 1, 0, false);
  view.setNumberBytes(5000);
  EXPECT_EQ(view.NumberBytes(), 4095);
  EXPECT_EQ(view.ByteBinaryValue(1), -1);
  EXPECT_FALSE(view.datas());
  view.setNumberBytes(-1);
  EXPECT_EQ(view.NumberBytes(), 0);
  EXPECT_TRUE(view.TabByte().empty());
  EXPECT_EQ(current(), "none");
  press(view, Qt::Key_Right);
  press(view, Qt::Key_Space);
  EXPECT_EQ(heard(), "");
  view.setNumberBytes(2);
  view.SetByteBinaryValue(1, 5);
  view.setNumberBytes(2);
  EXPECT_EQ(view.ByteBinaryValue(1), -1);
}

TEST_F(DisplayResponseTest, Values_ShowInBitsAndCaption) {
  view.SetByteBinaryValue(3, 0);
  view.SetByteBinaryValue(4, 0xAB);
  view.SetByteBinaryValue(0, 1);
  view.SetByteBinaryValue(4097, 1);
  view.SetByteBinaryValue(4096, 9);
  EXPECT_EQ(view.ByteBinaryValue(4096), 9);
  EXPECT_THROW(view.ByteBinaryValue(4097), Failure);
  EXPECT_EQ(captions(), "1|2|3 ($00)|4 ($AB)|");
  EXPECT_EQ(view.TabByte()[2].byte.value(), "00000000");
  view.clear();
  EXPECT_EQ(captions(), "1|2|3|4|");
}

TEST_F(DisplayResponseTest, AddData_RefusesWhatStartsOutside) {
  const auto refusal = [&](int start, int offset) {
    try {
      view.AddData(8, start, offset, false);
      return std::string("taken");
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, 1);
      EXPECT_EQ(failure.source, "DisplayResponse.AddData");
      return failure.text;
    }
  };
  EXPECT_EQ(refusal(1, 8), "OffsetBit Out of range");
  EXPECT_EQ(refusal(1, -1), "OffsetBit Out of range");
  EXPECT_EQ(refusal(0, 0), "startByte Out of range");
  EXPECT_EQ(refusal(5, 0), "startByte Out of range");
  EXPECT_FALSE(view.datas());
  EXPECT_EQ(refusal(4, 7), "taken"); // it is cut at the end of the frame
  EXPECT_EQ(view.datas()->Count(), 1);
  EXPECT_EQ(view.AddData(1, 1, 0, false, "  xyz ")->Mark, "x");
}

TEST_F(DisplayResponseTest, Placements_AreFoundChangedSelectedAndCleared) {
  view.AddData(8, 1, 0, false);
  EXPECT_EQ(view.SelectData(8, 1, 1), nullptr);
  DisplayRespData* data = view.SelectData(8, 1, 0);
  ASSERT_TRUE(data);
  EXPECT_TRUE(data->Selected);
  EXPECT_EQ(view.TabByte()[0].looks[0].state, FrameCellState::Selected);
  view.UnselectAllData();
  EXPECT_EQ(view.TabByte()[0].looks[0].state, FrameCellState::Data);
  view.ModifyPositionData(8, 1, 0, 2, 3, true);
  EXPECT_EQ(view.TabByte()[0].looks[0].state, FrameCellState::Empty);
  EXPECT_EQ(view.TabByte()[1].looks[3].state, FrameCellState::Data);
  view.ModifyPositionData(8, 1, 0, 4, 4, true);
  EXPECT_EQ(data->StartByte, 2);
  data->StartByte = 3; // a page moves its preview, then refreshes
  view.Refresh();
  EXPECT_EQ(view.TabByte()[2].looks[3].state, FrameCellState::Data);
  view.SetByteBinaryValue(1, 7);
  view.clear();
  EXPECT_TRUE(view.datas());
  view.clearData();
  EXPECT_FALSE(view.datas());
  view.UnselectAllData();
  EXPECT_EQ(view.SelectData(8, 3, 3), nullptr);
  auto shared = std::make_shared<DisplayRespDatas>();
  shared->Add(1, 1, 0, false, false);
  view.setdatas(shared);
  EXPECT_EQ(view.TabByte()[0].looks[7].state, FrameCellState::Data);
  view.ClearAll();
  EXPECT_FALSE(view.datas());
}

TEST_F(DisplayResponseTest, Mouse_TellsTheCellFromByteZero) {
  mouse(2, 7);
  EXPECT_EQ(heard(), "down 2 7 1 0; up 2 7 1 0; click 2 7");
  mouse(0, 0, Qt::RightButton, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(heard(), "down 0 0 2 3; up 0 0 2 3");
  mouse(3, 4, Qt::MiddleButton, Qt::AltModifier);
  EXPECT_EQ(heard(), "down 3 4 4 4; up 3 4 4 4");
  const QPoint at = view.cellRect(1, 5).center();
  const auto press = [&](QEvent::Type type, Qt::MouseButton button) {
    QMouseEvent event(type, at, view.mapToGlobal(at), button, button, {});
    QApplication::sendEvent(&view, &event);
  };
  press(QEvent::MouseButtonPress, Qt::LeftButton);
  press(QEvent::MouseButtonRelease, Qt::LeftButton);
  press(QEvent::MouseButtonDblClick, Qt::LeftButton);
  press(QEvent::MouseButtonRelease, Qt::LeftButton);
  EXPECT_EQ(heard(), "down 1 5 1 0; up 1 5 1 0; click 1 5; double 1 5; up 1 5 1 0");
  press(QEvent::MouseButtonDblClick, Qt::RightButton); // as good as another press
  press(QEvent::MouseButtonRelease, Qt::RightButton);
  EXPECT_EQ(heard(), "down 1 5 2 0; up 1 5 2 0");
  QTest::mouseClick(&view, Qt::LeftButton, {}, {view.cellRect(0, 7).left(), 2}); // the caption
  EXPECT_EQ(heard(), "");
}

TEST_F(DisplayResponseTest, Mouse_ReleasedOnAnotherCellIsNoClick) {
  QTest::mousePress(&view, Qt::LeftButton, {}, view.cellRect(0, 7).center());
  QTest::mouseRelease(&view, Qt::LeftButton, {}, view.cellRect(0, 5).center());
  EXPECT_EQ(heard(), "down 0 7 1 0; up 0 7 1 0");
}

TEST_F(DisplayResponseTest, Mouse_MovesAreToldWithTheButtonsThatAreDown) {
  QStringList moves;
  QObject::connect(&view, &DisplayResponse::MouseMove, [&](int byte, int cell, int button, int) {
    moves << QString("%1/%2 %3").arg(byte).arg(cell).arg(button);
  });
  const auto move = [&](const QPoint& point, Qt::MouseButtons buttons) {
    QMouseEvent event(QEvent::MouseMove, point, view.mapToGlobal(point), Qt::NoButton, buttons, {});
    QApplication::sendEvent(&view, &event);
  };
  move(view.cellRect(1, 3).center(), {});
  move(view.cellRect(2, 0).center(), Qt::LeftButton | Qt::RightButton);
  move({view.cellRect(2, 0).left(), 2}, {});
  EXPECT_EQ(moves.join("; ").toStdString(), "1/3 0; 2/0 3");
}

TEST_F(DisplayResponseTest, Mouse_CountsTheBytesThatAreScrolledAway) {
  view.setNumberBytes(4095);
  view.setFirstVisibleByte(4000);
  mouse(4002, 3);
  EXPECT_EQ(heard(), "down 4002 3 1 0; up 4002 3 1 0; click 4002 3");
  EXPECT_TRUE(view.cellRect(3999, 0).isEmpty());
  EXPECT_TRUE(view.cellRect(4000, 8).isEmpty());
}

TEST_F(DisplayResponseTest, AListenerMayChangeTheFrameUnderTheMouse) {
  QObject::connect(&view, &DisplayResponse::MouseDown, [&] { view.setNumberBytes(1); });
  mouse(3, 3);
  EXPECT_EQ(view.NumberBytes(), 1);
  EXPECT_EQ(heard(), "down 3 3 1 0"); // its cell is gone
}

TEST_F(DisplayResponseTest, ScrollBar_HasAsManyStepsAsBytesAreHidden) {
  EXPECT_EQ(bar().maximum(), 0);
  view.setNumberBytes(10);
  EXPECT_EQ(view.TabByte().size(), 4u);
  EXPECT_EQ(bar().maximum(), 6);
  EXPECT_EQ(bar().singleStep(), 1);
  EXPECT_EQ(bar().pageStep(), 2);
  bar().setValue(3);
  EXPECT_EQ(view.FirstVisibleByte(), 3);
  EXPECT_EQ(captions(), "4|5|6|7|");
  view.setFirstVisibleByte(100);
  EXPECT_EQ(view.FirstVisibleByte(), 6);
  view.resize(view.minimumSizeHint().width() * 20, view.height());
  EXPECT_EQ(bar().maximum(), 0);
  EXPECT_EQ(view.FirstVisibleByte(), 0);
  EXPECT_EQ(view.TabByte().size(), 10u);
  view.resize(1, view.height());
  EXPECT_EQ(view.TabByte().size(), 1u) << "at least one byte";
}

TEST_F(DisplayResponseTest, SetVisibleByte_MovesOnlyWhenItMust) {
  view.SetVisibleByte(4);
  EXPECT_EQ(view.FirstVisibleByte(), 0);
  view.setNumberBytes(10);
  view.SetVisibleByte(4);
  EXPECT_EQ(view.FirstVisibleByte(), 0);
  view.SetVisibleByte(5);
  EXPECT_EQ(view.FirstVisibleByte(), 4);
  EXPECT_EQ(bar().value(), 4);
  view.SetVisibleByte(10);
  EXPECT_EQ(view.FirstVisibleByte(), 6);
  view.SetVisibleByte(1000);
  EXPECT_EQ(view.FirstVisibleByte(), 6);
  view.SetVisibleByte(0);
  EXPECT_EQ(view.FirstVisibleByte(), 0);
}

TEST_F(DisplayResponseTest, Wheel_Scrolls) {
  view.setNumberBytes(100);
  const QPoint at = view.cellRect(0, 3).center();
  QWheelEvent event(at, view.mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&view, &event);
  EXPECT_GT(view.FirstVisibleByte(), 0);
}

TEST_F(DisplayResponseTest, Keyboard_ReachesEveryBit) {
  view.setNumberBytes(10);
  EXPECT_EQ(current(), "0/7");
  const struct {
    Qt::Key key;
    const char* bit;
    int firstVisible;
  } walk[] = {
      {Qt::Key_Left, "0/7", 0},     {Qt::Key_Right, "0/6", 0},    {Qt::Key_Down, "1/6", 0},
      {Qt::Key_Up, "0/6", 0},       {Qt::Key_End, "9/0", 6},      {Qt::Key_Right, "9/0", 6},
      {Qt::Key_PageUp, "5/0", 5},   {Qt::Key_PageDown, "9/0", 6}, {Qt::Key_Home, "0/7", 0},
      {Qt::Key_PageDown, "4/7", 1}, {Qt::Key_Left, "3/0", 1},     {Qt::Key_Right, "4/7", 1},
  };
  for (const auto& step : walk) {
    press(view, step.key);
    EXPECT_EQ(current(), step.bit);
    EXPECT_EQ(view.FirstVisibleByte(), step.firstVisible) << step.bit;
  }
  press(view, Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(current(), "5/7");
  press(view, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(current(), "4/7");
  EXPECT_EQ(heard(), "");
  press(view, Qt::Key_Space);
  EXPECT_EQ(heard(), "down 4 7 1 0; up 4 7 1 0; click 4 7");
  press(view, Qt::Key_Return);
  EXPECT_EQ(heard(), "down 4 7 1 0; up 4 7 1 0; click 4 7");
  press(view, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(heard(), "down 4 7 1 0; up 4 7 1 0; click 4 7");
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(&view, &menu);
  EXPECT_EQ(heard(), "down 4 7 2 0; up 4 7 2 0");
  view.setFirstVisibleByte(0);
  press(view, Qt::Key_Space);
  EXPECT_FALSE(view.cellRect(4, 7).isEmpty()) << "the bit comes into sight";
}

TEST_F(DisplayResponseTest, Keyboard_GoesOnFromTheCellThatWasClicked) {
  mouse(2, 3);
  EXPECT_EQ(current(), "2/3");
  press(view, Qt::Key_Right);
  EXPECT_EQ(current(), "2/2");
  view.setNumberBytes(2);
  EXPECT_EQ(current(), "1/0");
}

TEST_F(DisplayResponseTest, LittleEndianNumbersTheCellsFromTheLeft) {
  const QRect leftmost = view.cellRect(0, 7);
  view.setLittleEndian(true);
  EXPECT_EQ(view.cellRect(0, 0), leftmost);
  EXPECT_EQ(current(), "0/0");
  mouse(1, 2);
  EXPECT_EQ(heard(), "down 1 2 1 0; up 1 2 1 0; click 1 2");
  view.SetByteBinaryValue(1, 0x80);
  EXPECT_EQ(view.TabByte()[0].byte.BitText(0), "1");
}

TEST_F(DisplayResponseTest, Hover_NamesTheDataWithItsRange) {
  view.AddData(12, 3, 0, false, {}, false, "Speed <km/h>");
  EXPECT_EQ(view.toolTipAt(2, 7).toStdString(), "Speed <km/h>: byte 3 bit 7 to byte 4 bit 4");
  EXPECT_EQ(view.toolTipAt(0, 7).toStdString(), "");
  const auto hover = [&](const QPoint& point) {
    QHelpEvent event(QEvent::ToolTip, point, view.mapToGlobal(point));
    QApplication::sendEvent(&view, &event);
  };
  hover(view.cellRect(3, 5).center());
  ASSERT_TRUE(waitUntil([] { return QToolTip::isVisible(); }));
  EXPECT_TRUE(QToolTip::text().contains("Speed &lt;km/h&gt;")) << QToolTip::text().toStdString();
  hover(view.cellRect(0, 5).center());
  EXPECT_TRUE(waitUntil([] { return !QToolTip::isVisible(); }));
}

TEST_F(DisplayResponseTest, ReadersHearTheBitThatTheKeyboardIsOn) {
  view.SetByteBinaryValue(1, 0x40);
  view.AddData(2, 1, 0, false, {}, true, "Flag");
  view.setFocus();
  press(view, Qt::Key_Right);
  EXPECT_EQ(view.accessibleName().toStdString(), "Bits of the frame");
  EXPECT_EQ(view.accessibleDescription().toStdString(),
            "byte 1 bit 6 = 1, Flag: byte 1 bit 7 to byte 1 bit 6 (selected)");
  view.UnselectAllData();
  view.Refresh();
  EXPECT_EQ(view.accessibleDescription().toStdString(),
            "byte 1 bit 6 = 1, Flag: byte 1 bit 7 to byte 1 bit 6");
}

TEST_F(DisplayResponseTest, Painting_FillsCellsInTheirColoursOnAnyPalette) {
  QPalette dark = view.palette();
  dark.setColor(QPalette::Button, QColor(30, 30, 30));
  dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  const QPalette light = view.palette();
  view.AddData(8, 2, 0, false);
  view.AddData(8, 3, 0, false, {}, true);
  for (int byte = 1; byte <= 4; ++byte)
    view.SetByteBinaryValue(byte, 0x55);
  view.clearFocus();
  for (const QPalette& palette : {light, dark}) {
    view.setPalette(palette);
    EXPECT_GT(painted(0, 4, Qt::white), 100);
    EXPECT_GT(painted(1, 4, QColor(0, 0, 255)), 80);
    EXPECT_GT(painted(2, 4, QColor(0, 255, 0)), 60);
    // Text and pattern stand out from each of them.
    EXPECT_GT(painted(0, 4, Qt::black), 3);
    EXPECT_GT(painted(1, 4, Qt::white), 10);
    EXPECT_GT(painted(2, 4, Qt::black), 30);
    EXPECT_EQ(view.grab({0, 0, 2, 2}).toImage().pixelColor(0, 0), palette.color(QPalette::Button));
  }
  view.setBackColor(0x0080FF); // the page's warning
  view.setForeColor(0xFFFFFF);
  EXPECT_EQ(view.grab({0, 0, 2, 2}).toImage().pixelColor(0, 0), QColor(255, 128, 0));
}

TEST_F(DisplayResponseTest, Painting_TellsStatesApartWithoutColour) {
  // All cells in one colour: only the pattern differs.
  view.setDataColor(0xFFFFFF);
  view.setDataSelectedColor(0xFFFFFF);
  view.AddData(8, 2, 0, false);
  view.AddData(8, 3, 0, false, {}, true);
  view.AddData(8, 4, 0, false);
  view.AddData(8, 4, 0, true);
  view.clearFocus();
  std::vector<QImage> pictures;
  for (int byte = 0; byte < 4; ++byte)
    pictures.push_back(view.grab(view.cellRect(byte, 4)).toImage());
  for (std::size_t one = 0; one < pictures.size(); ++one)
    for (std::size_t other = one + 1; other < pictures.size(); ++other)
      EXPECT_NE(pictures[one], pictures[other]) << one << " looks like " << other;
}

TEST_F(DisplayResponseTest, Painting_ShowsTheFocus) {
  view.setFocus();
  ASSERT_TRUE(waitUntil([&] { return view.hasFocus(); }));
  const QImage with = view.grab(view.cellRect(0, 7)).toImage();
  press(view, Qt::Key_Right);
  EXPECT_NE(view.grab(view.cellRect(0, 7)).toImage(), with);
}

TEST_F(DisplayResponseTest, ALongFrameCostsAsManyCellsAsFit) {
  view.setNumberBytes(4095);
  for (int index = 1; index <= 4095; ++index)
    view.SetByteBinaryValue(index, static_cast<std::int16_t>(index & 0xFF));
  view.AddData(24, 2001, 3, false);
  for (const int first : {0, 1, 1999, 2000, 4091}) {
    view.setFirstVisibleByte(first);
    EXPECT_EQ(view.FirstVisibleByte(), first);
    EXPECT_EQ(view.TabByte().size(), 4u) << first;
  }
}

TEST_F(DisplayResponseTest, Pictures) {
  DisplayResponse big;
  big.setNumberBytes(4095);
  big.resize(1300, big.sizeHint().height());
  for (int index = 1; index <= 4095; ++index)
    big.SetByteBinaryValue(index, static_cast<std::int16_t>(index * 37 & 0xFF));
  big.AddData(12, 2001, 0, false, {}, false, "Speed");
  big.AddData(8, 2002, 2, false, {}, false, "Torque");
  big.AddData(16, 2004, 3, true, {}, true, "Counter");
  big.AddData(5, 2005, 0, false, "*", false, "Flag");
  big.setFirstVisibleByte(2000);
  showToUser(big);
  big.setFocus();
  keepPicture(big, "byte-view-light");
  QPalette dark;
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
    dark.setColor(role, QColor(35, 35, 38));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(role, QColor(230, 230, 230));
  big.setPalette(dark);
  big.setCurrentBit(2003, 3);
  keepPicture(big, "byte-view-dark");
  big.setBackColor(0x0080FF);
  big.setForeColor(0xFFFFFF);
  big.setEnabled(false);
  keepPicture(big, "byte-view-warning-disabled");
  EXPECT_EQ(big.TabByte().front().index, 2000);
}

} // namespace
