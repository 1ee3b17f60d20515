// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/failure.h"

#include <charconv>
#include <cmath>

namespace kelmar {

namespace {

constexpr int mostDigits = 28;

// Drops `count` digits at the end, ties to even.
void roundOff(std::string& digits, int count) {
  if (count > static_cast<int>(digits.size())) {
    digits = "0";
    return;
  }
  const std::string dropped = digits.substr(digits.size() - static_cast<std::size_t>(count));
  digits.resize(digits.size() - static_cast<std::size_t>(count));
  const bool odd = !digits.empty() && (digits.back() - '0') % 2 != 0;
  const bool tie = dropped[0] == '5' && dropped.find_first_not_of('0', 1) == std::string::npos;
  const bool up = tie ? odd : dropped[0] >= '5';
  if (digits.empty()) digits = "0";
  if (!up) return;
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

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
  if (exponent >= mostDigits) throw platformFailure(NumericOverflow);
  scale_ = static_cast<int>(digits_.size()) - 1 - exponent;
  if (scale_ < 0) {
    digits_.append(static_cast<std::size_t>(-scale_), '0');
    scale_ = 0;
  }
  if (scale_ > mostDigits) {
    roundOff(digits_, scale_ - mostDigits);
    scale_ = mostDigits;
  }
  while (scale_ > 0 && digits_.size() > 1 && digits_.back() == '0') {
    digits_.pop_back();
    --scale_;
  }
  if (digits_ == "0")
    scale_ = 0;
  else
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
