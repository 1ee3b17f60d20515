// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/display_response.h"

#include "base/failure.h"
#include "base/text.h"
#include "desktop/qt_text.h"
#include "language/multi_lang.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace kelmar {

using desktop::qs;

namespace {

constexpr int valueCount = 4096; // one more than a frame has bytes
constexpr int bitsOfByte = DisplayByteBinary::cells;

int shiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
         (modifiers & Qt::AltModifier ? 4 : 0);
}

int buttonsOf(Qt::MouseButtons buttons) {
  return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) |
         (buttons & Qt::MiddleButton ? 4 : 0);
}

} // namespace

DisplayResponse::DisplayResponse(QWidget* parent)
    : QWidget(parent), hScroll_(new QScrollBar(Qt::Horizontal, this)),
      values_(valueCount, noByteValue) {
  hScroll_->setObjectName("HScroll");
  hScroll_->setSingleStep(1);
  hScroll_->setPageStep(2);
  connect(hScroll_, &QScrollBar::valueChanged, this, [this](int value) {
    firstVisible_ = value;
    changed();
  });
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setLayoutFromFont();
}

FrameContent DisplayResponse::content() const {
  return {values_, numberBytes_, datas_.get(), littleEndian_, colours_};
}

void DisplayResponse::changed() {
  stale_ = true;
  update();
}

const std::vector<FrameByte>& DisplayResponse::TabByte() const {
  if (stale_) tabByte_ = frameBytes(content(), firstVisible_, shownBytes());
  stale_ = false;
  return tabByte_;
}

int DisplayResponse::shownBytes() const {
  return std::min(layout_.bytesThatFit(width()), numberBytes_);
}

void DisplayResponse::layOut() {
  const int barHeight = hScroll_->sizeHint().height();
  hScroll_->setGeometry(0, std::max(height() - barHeight, layout_.height()), width(), barHeight);
  const int most = std::max(numberBytes_ - shownBytes(), 0);
  hScroll_->setRange(0, most); // brings its value, and so the first byte, within
  firstVisible_ = hScroll_->value();
  changed();
}

void DisplayResponse::setLayoutFromFont() {
  const QFontMetrics metrics = fontMetrics();
  const int digit = metrics.horizontalAdvance(QLatin1Char('0'));
  const int caption = metrics.horizontalAdvance(QStringLiteral("4095 ($00)"));
  layout_.cellWidth = std::max(digit + 6, (caption + bitsOfByte - 1) / bitsOfByte);
  layout_.byteGap = digit + 4;
  layout_.captionHeight = metrics.height() + 2;
  layout_.numberHeight = metrics.height() * 3 / 4 + 2;
  layout_.cellHeight = metrics.height() + 12;
  setMinimumHeight(minimumSizeHint().height());
  layOut();
  updateGeometry();
}

QSize DisplayResponse::minimumSizeHint() const {
  return {layout_.byteWidth(), layout_.height() + 3 + hScroll_->sizeHint().height()};
}

QSize DisplayResponse::sizeHint() const {
  return {layout_.byteWidth() * 8, minimumSizeHint().height()};
}

void DisplayResponse::setBackColor(quint32 colour) {
  backColor_ = colour;
  update();
}

void DisplayResponse::setForeColor(quint32 colour) {
  foreColor_ = colour;
  update();
}

void DisplayResponse::setDefaultColor(quint32 colour) {
  colours_.DefaultColor = colour;
  changed();
}

void DisplayResponse::setDataColor(quint32 colour) {
  colours_.DataColor = colour;
  changed();
}

void DisplayResponse::setDataSelectedColor(quint32 colour) {
  colours_.DataSelectedColor = colour;
  changed();
}

void DisplayResponse::setNumberBytes(int count) {
  numberBytes_ = std::clamp(count, 0, mostBytes);
  ClearAll();
  currentPlace_ = std::clamp(currentPlace_, 0, std::max(numberBytes_ * bitsOfByte - 1, 0));
  hovered_.reset();
  pressed_.reset();
  layOut();
}

void DisplayResponse::setFirstVisibleByte(int index) {
  hScroll_->setValue(index);
}

void DisplayResponse::setLittleEndian(bool littleEndian) {
  littleEndian_ = littleEndian;
  changed();
}

void DisplayResponse::setdatas(std::shared_ptr<DisplayRespDatas> placements) {
  datas_ = std::move(placements);
  changed();
}

DisplayRespData* DisplayResponse::AddData(int NumberBits, int StartByte, int OffsetBit,
                                          bool LittleEndian, const std::string& mark, bool selected,
                                          const std::string& name) {
  constexpr const char* routine = "DisplayResponse.AddData";
  if (OffsetBit < 0 || OffsetBit > 7) throw Failure(1, routine, "OffsetBit Out of range");
  if (StartByte < 1 || StartByte > numberBytes_)
    throw Failure(1, routine, "startByte Out of range");
  if (!datas_) datas_ = std::make_shared<DisplayRespDatas>();
  const std::u32string characters = toCodePoints(trimBlanks(mark));
  DisplayRespData* placed = datas_->Add(NumberBits, StartByte, OffsetBit, LittleEndian, selected,
                                        fromCodePoints(characters.substr(0, 1)));
  placed->Name = name;
  changed();
  return placed;
}

void DisplayResponse::SetByteBinaryValue(int index, std::int16_t value) {
  if (index < 1 || index > valueCount) return;
  values_[static_cast<std::size_t>(index - 1)] = value;
  if (index > firstVisible_ && index <= firstVisible_ + shownBytes()) changed();
}

std::int16_t DisplayResponse::ByteBinaryValue(int index) const {
  if (index < 1 || index > valueCount) throw platformFailure(SubscriptOutOfRange);
  return values_[static_cast<std::size_t>(index - 1)];
}

void DisplayResponse::dropValues() {
  std::fill(values_.begin(), values_.end(), noByteValue);
}

void DisplayResponse::clear() {
  dropValues();
  changed();
}

void DisplayResponse::clearData() {
  datas_.reset();
  clear();
}

// The bytes shown are computed from values and placements, so nothing else is left to reset.
void DisplayResponse::ClearAll() {
  clearData();
}

void DisplayResponse::Refresh() {
  changed();
  if (hasFocus()) tellCurrent();
}

DisplayRespData* DisplayResponse::SelectData(int NumberBits, int StartByte, int OffsetBit) {
  DisplayRespData* placed = datas_ ? datas_->FindItem(NumberBits, StartByte, OffsetBit) : nullptr;
  if (!placed) return nullptr;
  placed->Selected = true;
  changed();
  return placed;
}

void DisplayResponse::ModifyPositionData(int NumberBits, int StartByte, int OffsetBit,
                                         int newStartByte, int newOffsetBit, bool newLittleEndian) {
  DisplayRespData* placed = datas_ ? datas_->FindItem(NumberBits, StartByte, OffsetBit) : nullptr;
  if (!placed) return;
  placed->StartByte = newStartByte;
  placed->OffsetBit = newOffsetBit;
  placed->LittleEndian = newLittleEndian;
  changed();
}

void DisplayResponse::UnselectAllData() {
  if (datas_) datas_->UnselectAll();
  changed();
}

void DisplayResponse::SetVisibleByte(int StartByte) {
  hScroll_->setValue(firstVisibleFor(StartByte - 1, firstVisible_, shownBytes(), numberBytes_));
}

FrameBit DisplayResponse::bitOfPlace(int place) const {
  const int slot = place % bitsOfByte;
  return {place / bitsOfByte, littleEndian_ ? slot : bitsOfByte - 1 - slot};
}

std::optional<FrameBit> DisplayResponse::currentBit() const {
  if (numberBytes_ == 0) return std::nullopt;
  return bitOfPlace(currentPlace_);
}

void DisplayResponse::setCurrentBit(int byte, int cell) {
  if (byte < 0 || byte >= numberBytes_ || cell < 0 || cell >= bitsOfByte) return;
  currentPlace_ = byte * bitsOfByte + (littleEndian_ ? cell : bitsOfByte - 1 - cell);
  tellCurrent();
  update();
}

void DisplayResponse::moveTo(int place) {
  if (numberBytes_ == 0) return;
  const FrameBit bit = bitOfPlace(place);
  setCurrentBit(static_cast<int>(bit.byte), bit.cell);
  // One byte on at the right edge scrolls by one; a jump shows its goal.
  const int index = static_cast<int>(bit.byte);
  const int shown = shownBytes();
  setFirstVisibleByte(index == firstVisible_ + shown
                          ? firstVisible_ + 1
                          : firstVisibleFor(index, firstVisible_, shown, numberBytes_));
}

QRect DisplayResponse::cellRect(int byte, int cell) const {
  const int place = byte - firstVisible_;
  if (place < 0 || place >= shownBytes() || cell < 0 || cell >= bitsOfByte) return {};
  const int slot = littleEndian_ ? cell : bitsOfByte - 1 - cell;
  return {layout_.cellLeft(place, slot), layout_.cellTop(), layout_.cellWidth, layout_.cellHeight};
}

std::optional<FrameBit> DisplayResponse::bitAt(const QPoint& point) const {
  const FramePlace at = placeAt(layout_, point.x(), point.y(), shownBytes());
  if (!at.found()) return std::nullopt;
  return bitOfPlace((firstVisible_ + at.place) * bitsOfByte + at.slot);
}

QString DisplayResponse::toolTipAt(int byte, int cell) const {
  return qs(toolTipOfBit(content(), {byte, cell}, language::global()));
}

void DisplayResponse::tellCurrent() {
  const auto bit = currentBit();
  setAccessibleDescription(bit ? qs(nameOfBit(content(), *bit, language::global())) : QString());
}

bool DisplayResponse::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  auto* help = static_cast<QHelpEvent*>(event);
  const auto bit = bitAt(help->pos());
  const QString tip = bit ? toolTipAt(static_cast<int>(bit->byte), bit->cell) : QString();
  if (tip.isEmpty()) {
    QToolTip::hideText();
    event->ignore();
  } else {
    // Of a name, "<" is a letter.
    QToolTip::showText(help->globalPos(), Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal), this,
                       cellRect(static_cast<int>(bit->byte), bit->cell));
  }
  return true;
}

void DisplayResponse::mousePressEvent(QMouseEvent* event) {
  pressed_ = bitAt(event->position().toPoint());
  doubleClick_ = false;
  if (!pressed_) return;
  const FrameBit bit = *pressed_; // listeners may change the frame
  setCurrentBit(static_cast<int>(bit.byte), bit.cell);
  emit MouseDown(static_cast<int>(bit.byte), bit.cell, buttonsOf(event->button()),
                 shiftOf(event->modifiers()));
}

void DisplayResponse::mouseMoveEvent(QMouseEvent* event) {
  const auto bit = bitAt(event->position().toPoint());
  if (bit != hovered_) {
    hovered_ = bit;
    update();
  }
  if (bit)
    emit MouseMove(static_cast<int>(bit->byte), bit->cell, buttonsOf(event->buttons()),
                   shiftOf(event->modifiers()));
}

void DisplayResponse::mouseReleaseEvent(QMouseEvent* event) {
  if (!pressed_) return;
  const FrameBit bit = *pressed_; // the cell that was pressed has the mouse until then
  const bool clicked = event->button() == Qt::LeftButton && !doubleClick_ &&
                       bitAt(event->position().toPoint()) == pressed_;
  pressed_.reset();
  doubleClick_ = false;
  emit MouseUp(static_cast<int>(bit.byte), bit.cell, buttonsOf(event->button()),
               shiftOf(event->modifiers()));
  if (clicked) emit Click(static_cast<int>(bit.byte), bit.cell);
}

void DisplayResponse::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  pressed_ = bitAt(event->position().toPoint());
  if (!pressed_) return;
  doubleClick_ = true;
  emit DblClick(static_cast<int>(pressed_->byte), pressed_->cell);
}

void DisplayResponse::leaveEvent(QEvent* event) {
  hovered_.reset();
  update();
  QWidget::leaveEvent(event);
}

void DisplayResponse::wheelEvent(QWheelEvent* event) {
  if (hScroll_->maximum() == 0) return event->ignore();
  QCoreApplication::sendEvent(hScroll_, event);
}

void DisplayResponse::pressKey(int button, Qt::KeyboardModifiers modifiers) {
  const auto bit = currentBit();
  if (!bit) return;
  const int byte = static_cast<int>(bit->byte), shift = shiftOf(modifiers);
  moveTo(currentPlace_); // into sight, where a menu can open beside it
  emit MouseDown(byte, bit->cell, button, shift);
  emit MouseUp(byte, bit->cell, button, shift);
  if (button == 1) emit Click(byte, bit->cell);
}

void DisplayResponse::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  const auto go = [this](BitMove move) {
    moveTo(movedPlace(currentPlace_, move, shownBytes(), numberBytes_));
  };
  switch (event->key()) {
  case Qt::Key_Left:
    return go(control ? BitMove::ByteBack : BitMove::Left);
  case Qt::Key_Right:
    return go(control ? BitMove::ByteOn : BitMove::Right);
  case Qt::Key_Up:
    return go(BitMove::ByteBack);
  case Qt::Key_Down:
    return go(BitMove::ByteOn);
  case Qt::Key_PageUp:
    return go(BitMove::PageBack);
  case Qt::Key_PageDown:
    return go(BitMove::PageOn);
  case Qt::Key_Home:
    return go(BitMove::First);
  case Qt::Key_End:
    return go(BitMove::Last);
  case Qt::Key_Space:
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return pressKey(1, event->modifiers());
  default:
    QWidget::keyPressEvent(event);
  }
}

void DisplayResponse::contextMenuEvent(QContextMenuEvent* event) {
  event->accept(); // of the mouse, the pressed button has told it already
  if (event->reason() == QContextMenuEvent::Keyboard) pressKey(2, Qt::NoModifier);
}

void DisplayResponse::focusInEvent(QFocusEvent* event) {
  if (accessibleName().isEmpty())
    setAccessibleName(qs(language::global().getMultilangMessageDefault(
        "Bits of the frame", "DISPLAYRESPONSE/MSG/name/text")));
  tellCurrent();
  update();
  QWidget::focusInEvent(event);
}

void DisplayResponse::focusOutEvent(QFocusEvent* event) {
  update();
  QWidget::focusOutEvent(event);
}

void DisplayResponse::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void DisplayResponse::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  switch (event->type()) {
  case QEvent::FontChange:
  case QEvent::StyleChange:
    setLayoutFromFont();
    break;
  case QEvent::PaletteChange:
  case QEvent::EnabledChange:
    update();
    break;
  default:
    break;
  }
}

} // namespace kelmar
