// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_tree.h"

#include "base/text.h"

#include <algorithm>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace kelmar {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view takeNumber(std::string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && isDigit(text[length]))
    ++length;
  std::string_view number = text.substr(0, length);
  text.remove_prefix(length);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

} // namespace

std::string searchForm(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  std::string form(text);
  if (std::all_of(form.begin(), form.end(), isAscii)) {
    for (char& c : form)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return form;
  }
  form = foldCase(text);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) return form;
  const icu::UnicodeString apart =
      decomposer->normalize(icu::UnicodeString::fromUTF8(form), status);
  if (U_FAILURE(status)) return form;
  icu::UnicodeString bare;
  for (std::int32_t i = 0; i < apart.length(); i = apart.moveIndex32(i, 1))
    if (const UChar32 c = apart.char32At(i); u_charType(c) != U_NON_SPACING_MARK) bare.append(c);
  std::string result;
  return bare.toUTF8String(result);
}

int compareNaturally(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (isDigit(a.front()) && isDigit(b.front())) {
      const std::string_view left = takeNumber(a), right = takeNumber(b);
      if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
      if (const int order = left.compare(right); order != 0) return order;
      continue;
    }
    if (a.front() != b.front())
      return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front()) ? -1 : 1;
    a.remove_prefix(1);
    b.remove_prefix(1);
  }
  return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

} // namespace kelmar
