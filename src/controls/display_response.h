// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/frame_cells.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QPainter;
class QScrollBar;

namespace kelmar {

/// Shows one frame as a row of bytes, each as eight bit cells, and paints on them where data lie.
/// It knows no request and no data item: callers push bytes and placements into it and act on what
/// it tells of the mouse. The keyboard reaches every bit: arrows go from bit to bit and from byte
/// to byte, PgUp and PgDn by as many bytes as are seen, Home and End to the ends of the frame;
/// Space and Enter are a left click, the menu key is a right one.
///
/// However long the frame is, only the bytes that are seen cost anything.
class DisplayResponse : public QWidget {
  Q_OBJECT
  Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
  Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(quint32 DefaultColor READ DefaultColor WRITE setDefaultColor)
  Q_PROPERTY(quint32 DataColor READ DataColor WRITE setDataColor)
  Q_PROPERTY(quint32 DataOverWriteColor READ DataOverWriteColor WRITE setDataOverWriteColor)
  Q_PROPERTY(quint32 DataSelectedColor READ DataSelectedColor WRITE setDataSelectedColor)
  Q_PROPERTY(int NumberBytes READ NumberBytes WRITE setNumberBytes)
  Q_PROPERTY(int FirstVisibleByte READ FirstVisibleByte WRITE setFirstVisibleByte)
  Q_PROPERTY(bool LittleEndian READ LittleEndian WRITE setLittleEndian)
  Q_PROPERTY(QFont Font READ Font WRITE setFont)

 public:
  static constexpr int mostBytes = 4095;

  explicit DisplayResponse(QWidget* parent = nullptr);

  // Colours are 0xBBGGRR or system colours.
  quint32 BackColor() const { return backColor_; } ///< behind the bytes
  void setBackColor(quint32 colour);
  quint32 ForeColor() const {
    return foreColor_;
  } ///< captions; the text of a cell follows the cell
  void setForeColor(quint32 colour);
  quint32 DefaultColor() const { return colours_.DefaultColor; }
  void setDefaultColor(quint32 colour);
  quint32 DataColor() const { return colours_.DataColor; }
  void setDataColor(quint32 colour);
  /// Kept only; bits of several data have no colour of their own.
  quint32 DataOverWriteColor() const { return dataOverWriteColor_; }
  void setDataOverWriteColor(quint32 colour) { dataOverWriteColor_ = colour; }
  quint32 DataSelectedColor() const { return colours_.DataSelectedColor; }
  void setDataSelectedColor(quint32 colour);

  int NumberBytes() const { return numberBytes_; }
  /// Brought within 0..4095. Drops all values and placements, also when it is the present number.
  void setNumberBytes(int count);
  /// Index from 0 of the leftmost byte shown.
  int FirstVisibleByte() const { return firstVisible_; }
  void setFirstVisibleByte(int index);
  /// Numbers the cells of a byte from the left instead of from the right.
  bool LittleEndian() const { return littleEndian_; }
  void setLittleEndian(bool littleEndian);
  QFont Font() const { return font(); }

  /// The placements; none until one is added.
  const std::shared_ptr<DisplayRespDatas>& datas() const { return datas_; }
  void setdatas(std::shared_ptr<DisplayRespDatas> placements);

  /// Raises 1 "OffsetBit Out of range" outside 0..7 and "startByte Out of range" outside the frame.
  /// Of `mark` the first character is kept. `name` is what the data is called to whoever points at
  /// it.
  DisplayRespData* AddData(int NumberBits, int StartByte, int OffsetBit, bool LittleEndian,
                           const std::string& mark = {}, bool selected = false,
                           const std::string& name = {});
  /// `index` from 1; without effect outside 1..4096. -1 means no value.
  void SetByteBinaryValue(int index, std::int16_t value);
  /// -1 for none. Raises SubscriptOutOfRange outside 1..4096.
  std::int16_t ByteBinaryValue(int index) const;

  /// No byte has a value any more.
  void clear();
  /// That, and no placements.
  void clearData();
  void ClearAll();
  /// Shows what was changed in the placements.
  void Refresh();

  /// None, and nothing changes, when there is no such placement.
  DisplayRespData* SelectData(int NumberBits, int StartByte, int OffsetBit);
  void ModifyPositionData(int NumberBits, int StartByte, int OffsetBit, int newStartByte,
                          int newOffsetBit, bool newLittleEndian);
  void UnselectAllData();
  /// Brings a byte, from 1, into sight.
  void SetVisibleByte(int StartByte);

  /// The bytes that are seen, as they are painted.
  const std::vector<FrameByte>& TabByte() const;
  /// Where a cell is painted; empty for one that is not seen. `byte` from 0.
  QRect cellRect(int byte, int cell) const;
  /// What is told of a bit that is pointed at; empty where no data lies.
  QString toolTipAt(int byte, int cell) const;
  /// The bit that the keyboard is on; none in an empty frame.
  std::optional<FrameBit> currentBit() const;
  void setCurrentBit(int byte, int cell);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  // `byte` from 0, `cell` 0..7. `button` is 1 left, 2 right, 4 middle; `shift` is 1 shift, 2
  // control, 4 alt, added up. MouseMove has the sum of the buttons that are down.
  void Click(int byte, int cell);
  void DblClick(int byte, int cell);
  void MouseDown(int byte, int cell, int button, int shift);
  void MouseMove(int byte, int cell, int button, int shift);
  void MouseUp(int byte, int cell, int button, int shift);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  FrameContent content() const;
  int shownBytes() const;
  void layOut();
  void setLayoutFromFont();
  void changed();
  void dropValues();
  std::optional<FrameBit> bitAt(const QPoint& point) const;
  FrameBit bitOfPlace(int place) const;
  void moveTo(int place);
  void pressKey(int button, Qt::KeyboardModifiers modifiers);
  void tellCurrent();
  void paintByte(QPainter& painter, int place, const FrameByte& shown) const;

  QScrollBar* hScroll_;
  FrameLayout layout_;
  FrameColours colours_;
  std::vector<std::int16_t> values_;
  std::shared_ptr<DisplayRespDatas> datas_;
  mutable std::vector<FrameByte> tabByte_;
  mutable bool stale_ = true; // tabByte_ is to be computed anew

  quint32 backColor_ = 0x8000000Fu, foreColor_ = 0x80000012u, dataOverWriteColor_ = 255;
  int numberBytes_ = 1, firstVisible_ = 0;
  bool littleEndian_ = false;
  int currentPlace_ = 0; // over the whole frame, 8 a byte, from the left
  std::optional<FrameBit> hovered_, pressed_;
  bool doubleClick_ = false; // its second release is no click
};

} // namespace kelmar
