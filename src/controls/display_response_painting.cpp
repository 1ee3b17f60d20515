// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/colours.h"
#include "controls/display_response.h"
#include "desktop/qt_text.h"

#include <QPainter>

namespace kelmar {

using desktop::qs;

namespace {

constexpr int stripHeight = 6; // pixels; the pattern below the bit that tells its state

/// Tells states apart without colour: hatched for a data, filled for a selected one, hatched both
/// ways or broken where several data lie.
void paintPattern(QPainter& painter, const QRect& cell, const FrameCellLook& look,
                  const QColor& ink) {
  if (look.state == FrameCellState::Empty) return;
  const QRect strip(cell.left() + 2, cell.bottom() - stripHeight, cell.width() - 3,
                    stripHeight - 1);
  if (look.state == FrameCellState::Selected) {
    painter.setPen(QPen(ink, 1));
    painter.drawRect(cell.adjusted(1, 1, -2, -2));
    painter.fillRect(strip, ink);
    if (look.shared) {
      const int third = strip.width() / 3;
      painter.fillRect(strip.adjusted(third, 0, -third, 0), painter.background());
    }
    return;
  }
  painter.fillRect(strip, QBrush(ink, look.shared ? Qt::DiagCrossPattern : Qt::BDiagPattern));
}

} // namespace

void DisplayResponse::paintByte(QPainter& painter, int place, const FrameByte& shown) const {
  const QColor captions = shownColour(foreColor_, palette());
  const QRect row(layout_.cellLeft(place, 0), 0, layout_.byteWidth() - layout_.byteGap,
                  layout_.captionHeight);
  painter.setPen(captions);
  painter.setFont(font());
  painter.drawText(row.adjusted(-layout_.byteGap / 2, 0, layout_.byteGap / 2, 0), Qt::AlignCenter,
                   qs(shown.byte.LBbyteCaption()));

  QFont small = font();
  small.setPointSizeF(std::max(font().pointSizeF() * 0.7, 5.0));
  for (int slot = 0; slot < DisplayByteBinary::cells; ++slot) {
    const int cell = shown.byte.cellAt(slot);
    const QRect box(layout_.cellLeft(place, slot), layout_.cellTop(), layout_.cellWidth,
                    layout_.cellHeight);
    painter.setPen(captions);
    painter.setFont(small);
    painter.drawText(box.adjusted(0, -layout_.numberHeight, 0, -layout_.cellHeight),
                     Qt::AlignCenter, QString::number(cell));

    const quint32 colour = storedColour(shownColour(shown.byte.BitColor(cell), palette()));
    const QColor fill = shownColour(colour, palette());
    const QColor ink = shownColour(textColourOn(colour), palette());
    painter.fillRect(box, fill);
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setBackground(fill);
    const FrameCellLook& look = shown.looks[static_cast<std::size_t>(cell)];
    paintPattern(painter, box, look, ink);
    painter.setPen(ink);
    if (!look.mark.empty())
      painter.drawText(box.adjusted(2, 1, 0, 0), Qt::AlignLeft | Qt::AlignTop, qs(look.mark));
    painter.setFont(font());
    painter.drawText(box.adjusted(0, 1, 0, -stripHeight), Qt::AlignCenter,
                     qs(shown.byte.BitText(cell)));
  }
}

void DisplayResponse::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), shownColour(backColor_, palette()));
  if (!isEnabled()) painter.setOpacity(0.5);
  int place = 0;
  for (const FrameByte& shown : TabByte())
    paintByte(painter, place++, shown);

  painter.setOpacity(1);
  if (hovered_ && isEnabled()) {
    const QRect under = cellRect(static_cast<int>(hovered_->byte), hovered_->cell);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    if (!under.isEmpty()) painter.drawRect(under.adjusted(1, 1, -1, -1));
  }
  const auto current = currentBit();
  if (!hasFocus() || !current) return;
  const QRect focus = cellRect(static_cast<int>(current->byte), current->cell);
  if (focus.isEmpty()) return;
  // Light and dark in turn, so that it shows on every cell and every palette.
  painter.setPen(QPen(Qt::white, 2));
  painter.drawRect(focus);
  painter.setPen(QPen(Qt::black, 2, Qt::DotLine));
  painter.drawRect(focus);
}

} // namespace kelmar
