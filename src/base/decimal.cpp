// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/failure.h"

#include <charconv>
#include <cmath>

namespace kelmar {

namespace {

constexpr int mostDigitsBeforeThePoint = 28;

} // namespace

Decimal::Decimal(double value) {
  if (!std::isfinite(value)) throw platformFailure(NumericOverflow);
  if (value == 0) return;
  // The shortest text that reads back as this double, as "d.ddde[+-]dd".
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                 std::chars_format::scientific);
  const std::string_view text(buffer, static_cast<std::size_t>(end.ptr - buffer));
  const std::size_t mark = text.find('e');
  int exponent = 0;
  const std::string_view exponentText = text.substr(mark + (text[mark + 1] == '+' ? 2 : 1));
  std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
  digits_ = text.substr(0, 1);
  if (mark > 2) digits_ += text.substr(2, mark - 2);
  if (exponent >= mostDigitsBeforeThePoint) throw platformFailure(NumericOverflow);
  scale_ = static_cast<int>(digits_.size()) - 1 - exponent;
  if (scale_ < 0) {
    digits_.append(static_cast<std::size_t>(-scale_), '0');
    scale_ = 0;
  }
  negative_ = value < 0;
}

double Decimal::toDouble() const {
  const std::string text = toText();
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string Decimal::toText() const {
  std::string text = digits_;
  if (scale_ > 0) {
    const std::size_t scale = static_cast<std::size_t>(scale_);
    if (text.size() <= scale) text.insert(0, scale + 1 - text.size(), '0');
    text.insert(text.size() - scale, 1, '.');
  }
  if (negative_) text.insert(text.begin(), '-');
  return text;
}

} // namespace kelmar
