// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/number_entry.h"

#include <QWidget>

class QKeyEvent;
class QLineEdit;
class QMenu;
class QToolButton;

namespace kelmar {

/// The number field of all pages: a text box `TextNum`, a spin button `UpDownNum`, a base button
/// `CBBase` with its menu `popupBase`.
///
/// What is typed becomes the value when it is committed: by Enter, by the tabulator, when the field
/// loses the focus, and before the base changes. A text that is no number then gives way to the
/// value. A text that was not touched never changes the value by being committed, even where it
/// shows only a part of it. Commands that can be reached without leaving the field call commitText
/// before they read the value.
class ZEMnumeric : public QWidget {
  Q_OBJECT
  Q_PROPERTY(double Value READ value WRITE setvalue)
  Q_PROPERTY(double Maximum READ Maximum WRITE setMaximum)
  Q_PROPERTY(double Minimum READ Minimum WRITE setMinimum)
  Q_PROPERTY(bool RangeChecking READ RangeChecking WRITE setRangeChecking)
  Q_PROPERTY(int Base READ Base WRITE setBase)
  Q_PROPERTY(int NumberDigit READ NumberDigit WRITE setNumberDigit)
  Q_PROPERTY(double Increment READ Increment WRITE setIncrement)
  Q_PROPERTY(bool IncDecButtonVisible READ IncDecButtonVisible WRITE setIncDecButtonVisible)
  Q_PROPERTY(bool BaseButtonVisible READ BaseButtonVisible WRITE setBaseButtonVisible)
  Q_PROPERTY(bool Discrete READ Discrete WRITE setDiscrete)
  Q_PROPERTY(double DiscreteBase READ DiscreteBase WRITE setDiscreteBase)
  Q_PROPERTY(double DiscreteInterval READ DiscreteInterval WRITE setDiscreteInterval)
  Q_PROPERTY(int MaxLength READ MaxLength WRITE setMaxLength)
  Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)
  Q_PROPERTY(QFont Font READ Font WRITE setFont)
  Q_PROPERTY(double FontSize READ FontSize WRITE setFontSize)
  Q_PROPERTY(QString FontName READ FontName WRITE setFontName)
  Q_PROPERTY(bool FontItalic READ FontItalic WRITE setFontItalic)
  Q_PROPERTY(bool FontBold READ FontBold WRITE setFontBold)
  Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
  Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(QString text READ text WRITE settext)

 public:
  explicit ZEMnumeric(QWidget* parent = nullptr);

  /// The committed value.
  double value() const { return value_; }
  /// Corrects it by limits and grid as a typed one, and raises the same signals. One that the
  /// hexadecimal base cannot hold, such as a negative one, is shown in the decimal base, and the
  /// next one in the hexadecimal base again. A value that is not finite is not taken.
  void setvalue(double requested);

  // Limits and grid hold for the values that come after them; the present one stays.
  double Maximum() const { return rules_.Maximum; }
  void setMaximum(double maximum) { rules_.Maximum = maximum; }
  double Minimum() const { return rules_.Minimum; }
  void setMinimum(double minimum) { rules_.Minimum = minimum; }
  void SetMinMax(double minimum, double maximum);
  bool RangeChecking() const { return rules_.RangeChecking; }
  void setRangeChecking(bool checks) { rules_.RangeChecking = checks; }
  bool Discrete() const { return rules_.Discrete; }
  void setDiscrete(bool discrete) { rules_.Discrete = discrete; }
  double DiscreteBase() const { return rules_.DiscreteBase; }
  void setDiscreteBase(double origin) { rules_.DiscreteBase = origin; }
  double DiscreteInterval() const { return rules_.DiscreteInterval; }
  void setDiscreteInterval(double step) { rules_.DiscreteInterval = step; }

  /// 0 decimal, 1 hexadecimal. Shows the committed value in that base; what is being typed is
  /// dropped. Other numbers count as 1.
  int Base() const { return static_cast<int>(rules_.Base); }
  void setBase(int base);
  /// Digits shown in hexadecimal; 0 means as many as needed.
  int NumberDigit() const { return numberDigit_; }
  void setNumberDigit(int digits);
  /// Step of the spin button, 1 at first.
  double Increment() const { return increment_; }
  void setIncrement(double step) { increment_ = step; }

  bool IncDecButtonVisible() const;
  void setIncDecButtonVisible(bool visible);
  /// Where it is not, the key H leaves the base alone and only commits.
  bool BaseButtonVisible() const;
  void setBaseButtonVisible(bool visible);

  /// Characters that can be typed; 0 means no limit.
  int MaxLength() const { return maxLength_; }
  void setMaxLength(int characters);
  /// 0 left, 1 right, 2 centre.
  int Alignment() const { return alignment_; }
  void setAlignment(int alignment);
  QFont Font() const { return font(); }
  double FontSize() const { return font().pointSizeF(); } ///< points
  void setFontSize(double points);
  QString FontName() const { return font().family(); }
  void setFontName(const QString& family);
  bool FontItalic() const { return font().italic(); }
  void setFontItalic(bool italic);
  bool FontBold() const { return font().bold(); }
  void setFontBold(bool bold);
  /// Colours of the text box, 0xBBGGRR or a system colour; at first those of any text box.
  quint32 BackColor() const { return backColor_; }
  void setBackColor(quint32 colour);
  quint32 ForeColor() const { return foreColor_; }
  void setForeColor(quint32 colour);

  /// What stands in the text box, committed or not.
  QString text() const;
  void settext(const QString& text);
  /// The value that the text would give if it were committed now; the committed one for a text
  /// that is no number.
  double valueOfText() const;

  /// Shows the committed value; what is being typed is dropped.
  void Refresh();

 public slots:
  void commitText();
  void selectAll();

 signals:
  // Passed on from the text box, before the field acts on them. `key` is a Qt::Key, `character` the
  // typed one, `shift` 1 for the shift key, 2 for control, 4 for alt, added up.
  void KeyDown(int key, int shift);
  void KeyPress(int character);
  void KeyUp(int key, int shift);
  void GotFocus();
  void LostFocus();
  /// The text is another, by typing or by code.
  void Change();

  /// The committed value is another.
  void valueChanged(double oldValue, double newValue);
  /// Limits or grid gave another value than the requested one. Comes before valueChanged, while the
  /// value is still the old one.
  void valueCorrected(double requested, double corrected);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* spinButton(const char* name, Qt::ArrowType arrow, double sign);
  void buildBaseMenu();
  void retranslateBaseMenu();
  void applyColours();
  void applyGeometry();
  void takeFocus();
  bool takeKey(const QKeyEvent& event);
  bool showsValue() const;
  void take(double requested);
  void spin(double sign);
  void chooseBase(int base);

  QLineEdit* textNum_;
  QWidget* upDownNum_;
  QToolButton* cbBase_;
  QMenu* popupBase_;
  const QEvent* passedOn_ = nullptr; // the key event that the text box had already

  NumberRules rules_;
  bool leftHexadecimal_ = false; // for a value that it cannot hold, until the next one
  double value_ = 0;
  double increment_ = 1;
  int numberDigit_ = 0, maxLength_ = 0, alignment_ = 0;
  quint32 backColor_ = 0x80000005u, foreColor_ = 0x80000008u;
};

} // namespace kelmar
