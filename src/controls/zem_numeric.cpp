// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/zem_numeric.h"

#include "controls/colours.h"
#include "controls/menus.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "language/multi_lang.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

constexpr quint32 textBoxBack = 0x80000005u, textBoxFore = 0x80000008u;
constexpr int unlimited = 32767; // characters; the limit that a text box has by itself

int shiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
         (modifiers & Qt::AltModifier ? 4 : 0);
}

/// The character of a key for the filter; 0 for those that are none: cursor keys, Escape, and
/// shortcuts such as copy and paste.
char32_t characterOf(const QKeyEvent& event) {
  switch (event.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return U'\r';
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
    return U'\t';
  case Qt::Key_Backspace:
    return U'\b';
  default:
    break;
  }
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return 0;
  const QList<uint> characters = event.text().toUcs4();
  if (characters.isEmpty() || characters.front() < 0x20 || characters.front() == 0x7F) return 0;
  return characters.front();
}

} // namespace

ZEMnumeric::ZEMnumeric(QWidget* parent)
    : QWidget(parent), textNum_(new QLineEdit(this)), upDownNum_(new QWidget(this)),
      cbBase_(new QToolButton(this)), popupBase_(new QMenu(this)) {
  textNum_->setObjectName("TextNum");
  textNum_->setText("0");
  textNum_->installEventFilter(this);
  connect(textNum_, &QLineEdit::textChanged, this, &ZEMnumeric::Change);
  setFocusProxy(textNum_);
  setFocusPolicy(Qt::StrongFocus);

  upDownNum_->setObjectName("UpDownNum");
  auto* spinLayout = new QVBoxLayout(upDownNum_);
  spinLayout->setContentsMargins(0, 0, 0, 0);
  spinLayout->setSpacing(0);
  spinLayout->addWidget(spinButton("UpDownNumUp", Qt::UpArrow, 1));
  spinLayout->addWidget(spinButton("UpDownNumDown", Qt::DownArrow, -1));

  cbBase_->setObjectName("CBBase");
  cbBase_->setText("D");
  cbBase_->setProperty(desktop::controlTypeProperty, QString()); // no text of the page's language
  cbBase_->setFocusPolicy(Qt::NoFocus);
  popupBase_->setObjectName("popupBase");
  buildBaseMenu();
  connect(cbBase_, &QToolButton::clicked, this,
          [this] { popupBase_->popup(cbBase_->mapToGlobal(cbBase_->rect().bottomLeft())); });

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(1);
  layout->addWidget(textNum_, 1);
  layout->addWidget(upDownNum_);
  layout->addWidget(cbBase_);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  applyGeometry();
}

QToolButton* ZEMnumeric::spinButton(const char* name, Qt::ArrowType arrow, double sign) {
  auto* button = new QToolButton(upDownNum_);
  button->setObjectName(name);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus); // the cursor stays in the text
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  button->setAccessibleName(arrow == Qt::UpArrow ? QStringLiteral("+") : QStringLiteral("-"));
  connect(button, &QToolButton::clicked, this, [this, sign] { spin(sign); });
  return button;
}

void ZEMnumeric::buildBaseMenu() {
  fillMenu(*popupBase_,
           {{.key = "baseD", .text = "decimal", .kind = MenuEntry::Kind::Check},
            {.key = "baseH", .text = "Hexa", .kind = MenuEntry::Kind::Check}},
           [this](const MenuEntry& entry) { chooseBase(entry.key == "baseH" ? 1 : 0); });
  for (QAction* entry : popupBase_->actions())
    entry->setProperty(desktop::controlTypeProperty, QString()); // they have keys of their own
  connect(popupBase_, &QMenu::aboutToShow, this, &ZEMnumeric::retranslateBaseMenu);
}

void ZEMnumeric::retranslateBaseMenu() {
  const auto& texts = language::global();
  const QList<QAction*> entries = popupBase_->actions();
  entries[0]->setText(qs(
      texts.getMultilangMessageDefault("decimal", "ZEMNUMERIC/CONTROLS/popupBase/baseD/caption")));
  entries[1]->setText(
      qs(texts.getMultilangMessageDefault("Hexa", "ZEMNUMERIC/CONTROLS/popupBase/baseH/caption")));
  entries[0]->setChecked(Base() == 0);
  entries[1]->setChecked(Base() == 1);
}

void ZEMnumeric::setvalue(double requested) {
  // A number that nobody types is not lost to the base that it would be shown in.
  NumberRules anyBase = rules_;
  anyBase.Base = NumberBase::Decimal;
  NumberRules hexadecimal = rules_;
  hexadecimal.Base = NumberBase::Hexadecimal;
  const bool fitsHexadecimal =
      !std::isfinite(requested) ||
      correctedNumber(requested, hexadecimal) == correctedNumber(requested, anyBase);
  if (!fitsHexadecimal && Base() != 0) {
    setBase(0);
    leftHexadecimal_ = true;
  } else if (fitsHexadecimal && leftHexadecimal_) {
    setBase(1);
  }
  take(requested);
}

void ZEMnumeric::take(double requested) {
  if (!std::isfinite(requested)) return;
  const double corrected = correctedNumber(requested, rules_);
  if (corrected != requested) emit valueCorrected(requested, corrected);
  const double old = value_;
  value_ = corrected;
  Refresh();
  if (corrected != old) emit valueChanged(old, corrected);
}

void ZEMnumeric::SetMinMax(double minimum, double maximum) {
  rules_.Minimum = minimum;
  rules_.Maximum = maximum;
}

void ZEMnumeric::setBase(int base) {
  leftHexadecimal_ = false;
  rules_.Base = base == 0 ? NumberBase::Decimal : NumberBase::Hexadecimal;
  cbBase_->setText(base == 0 ? QStringLiteral("D") : QStringLiteral("H"));
  Refresh();
}

void ZEMnumeric::setNumberDigit(int digits) {
  numberDigit_ = std::max(digits, 0);
  Refresh();
}

bool ZEMnumeric::IncDecButtonVisible() const {
  return !upDownNum_->isHidden();
}
void ZEMnumeric::setIncDecButtonVisible(bool visible) {
  upDownNum_->setVisible(visible);
}
bool ZEMnumeric::BaseButtonVisible() const {
  return !cbBase_->isHidden();
}
void ZEMnumeric::setBaseButtonVisible(bool visible) {
  cbBase_->setVisible(visible);
}

void ZEMnumeric::setMaxLength(int characters) {
  maxLength_ = std::max(characters, 0);
  textNum_->setMaxLength(maxLength_ == 0 ? unlimited : maxLength_);
}

void ZEMnumeric::setAlignment(int alignment) {
  alignment_ = std::clamp(alignment, 0, 2);
  constexpr Qt::AlignmentFlag sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  textNum_->setAlignment(sides[alignment_] | Qt::AlignVCenter);
}

void ZEMnumeric::setFontSize(double points) {
  if (points <= 0) return;
  QFont changed = font();
  changed.setPointSizeF(points);
  setFont(changed);
}

void ZEMnumeric::setFontName(const QString& family) {
  QFont changed = font();
  changed.setFamily(family);
  setFont(changed);
}

void ZEMnumeric::setFontItalic(bool italic) {
  QFont changed = font();
  changed.setItalic(italic);
  setFont(changed);
}

void ZEMnumeric::setFontBold(bool bold) {
  QFont changed = font();
  changed.setBold(bold);
  setFont(changed);
}

void ZEMnumeric::setBackColor(quint32 colour) {
  backColor_ = colour;
  applyColours();
}

void ZEMnumeric::setForeColor(quint32 colour) {
  foreColor_ = colour;
  applyColours();
}

QString ZEMnumeric::text() const {
  return textNum_->text();
}
void ZEMnumeric::settext(const QString& text) {
  textNum_->setText(text);
}

double ZEMnumeric::valueOfText() const {
  const auto typed = readNumber(u8(text()), rules_.Base);
  return !typed || showsValue() ? value_ : correctedNumber(*typed, rules_);
}

// The shown text may say less than the value: digits that were cut off, a fraction in the
// hexadecimal base. Walking through the field must not cut the value to it; typing it does.
bool ZEMnumeric::showsValue() const {
  return !textNum_->isModified() && u8(text()) == numberText(value_, rules_.Base, numberDigit_);
}

void ZEMnumeric::Refresh() {
  const QString shown = qs(numberText(value_, rules_.Base, numberDigit_));
  // A longer text than can be typed is shown whole all the same.
  if (maxLength_ > 0) textNum_->setMaxLength(std::max(maxLength_, static_cast<int>(shown.size())));
  if (shown != textNum_->text()) textNum_->setText(shown);
}

void ZEMnumeric::commitText() {
  if (showsValue()) {
    // A value that was set while it was free may lie outside the limits that hold for typing;
    // nobody has typed it.
  } else if (const auto number = readNumber(u8(text()), rules_.Base)) {
    take(*number);
  } else {
    Refresh();
  }
  textNum_->setModified(false);
}

void ZEMnumeric::selectAll() {
  textNum_->selectAll();
}

void ZEMnumeric::spin(double sign) {
  commitText();
  take(value_ + sign * increment_);
}

void ZEMnumeric::chooseBase(int base) {
  commitText();
  setBase(base);
}

bool ZEMnumeric::takeKey(const QKeyEvent& event) {
  if (IncDecButtonVisible() && event.modifiers() == (event.modifiers() & Qt::KeypadModifier)) {
    // The spin button takes no focus; these are its keys.
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) {
      spin(event.key() == Qt::Key_Up ? 1 : -1);
      return true;
    }
  }
  const char32_t character = characterOf(event);
  if (character == 0) return false;
  emit KeyPress(static_cast<int>(character));
  const NumberKeyAnswer answer = filterNumberKey(character, rules_.Base);
  switch (answer.what) {
  case NumberKey::Insert:
    textNum_->insert(QString(QChar(static_cast<char16_t>(answer.character))));
    return true;
  case NumberKey::Pass:
    return false;
  case NumberKey::Eat:
    return true;
  case NumberKey::Commit:
    commitText();
    return true;
  case NumberKey::CommitPass:
    commitText();
    return false;
  case NumberKey::ToggleBase:
    // Without the button nothing would tell in which base the number is read.
    if (BaseButtonVisible())
      chooseBase(Base() == 0 ? 1 : 0);
    else
      commitText();
    return true;
  }
  return true;
}

bool ZEMnumeric::eventFilter(QObject* watched, QEvent* event) {
  if (watched != textNum_) return QWidget::eventFilter(watched, event);
  switch (event->type()) {
  case QEvent::KeyPress: {
    auto& key = static_cast<QKeyEvent&>(*event);
    passedOn_ = event;
    emit KeyDown(key.key(), shiftOf(key.modifiers()));
    return takeKey(key);
  }
  case QEvent::KeyRelease: {
    const auto& key = static_cast<QKeyEvent&>(*event);
    emit KeyUp(key.key(), shiftOf(key.modifiers()));
    return false;
  }
  case QEvent::FocusIn:
    takeFocus();
    emit GotFocus();
    return false;
  case QEvent::FocusOut:
    // The field's own menus do not take the cursor away for good.
    if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason) return false;
    emit LostFocus();
    commitText();
    return false;
  default:
    return false;
  }
}

void ZEMnumeric::takeFocus() {
  // What is said about this control is said about the box that has the cursor.
  QString name = accessibleName();
  if (name.isEmpty() && parentWidget())
    for (const QLabel* label : parentWidget()->findChildren<QLabel*>())
      if (label->buddy() == this) name = label->text().remove('&');
  textNum_->setAccessibleName(name);
  textNum_->setAccessibleDescription(accessibleDescription());
}

void ZEMnumeric::keyPressEvent(QKeyEvent* event) {
  // Keys that are sent to the control go to its text box; those that come back from there go on.
  const bool fromTextBox = event == passedOn_;
  passedOn_ = nullptr;
  if (fromTextBox) return event->ignore();
  QCoreApplication::sendEvent(textNum_, event);
  passedOn_ = nullptr;
}

void ZEMnumeric::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyColours();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) applyGeometry();
}

void ZEMnumeric::applyColours() {
  QPalette colours = palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    if (backColor_ != textBoxBack)
      colours.setColor(group, QPalette::Base, shownColour(backColor_, palette()));
    if (foreColor_ != textBoxFore)
      colours.setColor(group, QPalette::Text, shownColour(foreColor_, palette()));
  }
  textNum_->setPalette(colours);
}

void ZEMnumeric::applyGeometry() {
  const int height = textNum_->sizeHint().height();
  upDownNum_->setFixedSize(std::max(16, height * 2 / 3), height);
  for (auto* button : upDownNum_->findChildren<QToolButton*>())
    button->setFixedSize(upDownNum_->width(), height / 2);
  cbBase_->setFixedSize(std::max(height, fontMetrics().horizontalAdvance("MM")), height);
}

} // namespace kelmar
