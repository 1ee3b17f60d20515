// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/edit_style.h"

#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace kelmar::desktop {

namespace {

// One for both styles, since a field has one validator: each call adds to what it demands.
class StyleValidator : public QValidator {
 public:
  explicit StyleValidator(QLineEdit* field) : QValidator(field), others_(othersIn(field->text())) {
    connect(field, &QLineEdit::textChanged, this,
            [this](const QString& text) { others_ = othersIn(text); });
  }
  bool uppercase = false, numeric = false;

  // Where code has set something else, a person may still edit: only more of it is refused.
  State validate(QString& input, int&) const override {
    if (uppercase)
      for (QChar& c : input)
        c = c.toUpper(); // one character stays one: the cursor keeps its place
    return numeric && othersIn(input) > others_ ? Invalid : Acceptable;
  }

 private:
  static qsizetype othersIn(const QString& text) {
    return std::count_if(text.begin(), text.end(),
                         [](QChar c) { return c < QLatin1Char('0') || c > QLatin1Char('9'); });
  }

  qsizetype others_; // characters that are no digits
};

StyleValidator& styleOf(QLineEdit& field) {
  if (const auto* present = dynamic_cast<const StyleValidator*>(field.validator()))
    return const_cast<StyleValidator&>(*present);
  auto* added = new StyleValidator(&field);
  field.setValidator(added);
  return *added;
}

} // namespace

void SetEditUppercase(QLineEdit& field) {
  styleOf(field).uppercase = true;
}

void SetEditNumeric(QLineEdit& field) {
  styleOf(field).numeric = true;
}

} // namespace kelmar::desktop
