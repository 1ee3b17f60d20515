// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The values of texts: what stands in the language file, as the type that the caller's default has.
#include "language/multi_lang.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

#include <limits>

namespace kelmar {

namespace {

std::string textOf(std::int32_t value) {
  return std::to_string(value);
}
std::string textOf(std::int16_t value) {
  return std::to_string(value);
}
std::string textOf(double value) {
  return doubleToPlainText(value);
}
std::string textOf(bool value) {
  return value ? "True" : "False";
}

std::int32_t converted(const std::string& text, std::int32_t) {
  return toInt32(text);
}

std::int16_t converted(const std::string& text, std::int16_t) {
  const std::int32_t value = toInt32(text);
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max())
    throw platformFailure(NumericOverflow);
  return static_cast<std::int16_t>(value);
}

double converted(const std::string& text, double) {
  return toDouble(text);
}

bool converted(const std::string& text, bool) {
  const std::string word = lowerCase(trimBlanks(text));
  return word != "false" && word != "faux" && word != "0";
}

template <typename Value>
Value valueOr(const std::string& text, Value defaultValue) {
  try {
    return converted(text, defaultValue);
  } catch (const Failure&) {
    return defaultValue;
  }
}

} // namespace

std::string CMultiLangEx::getMultilangMessageDefault(const std::string& defaultText,
                                                     const std::string& key, std::string_view p0,
                                                     std::string_view p1, std::string_view p2,
                                                     std::string_view p3, std::string_view p4,
                                                     std::string_view p5) const {
  return message(defaultText, key, {p0, p1, p2, p3, p4, p5});
}

std::string CMultiLangEx::getMultilangMessageDefault(const char* defaultText,
                                                     const std::string& key, std::string_view p0,
                                                     std::string_view p1, std::string_view p2,
                                                     std::string_view p3, std::string_view p4,
                                                     std::string_view p5) const {
  return message(defaultText, key, {p0, p1, p2, p3, p4, p5});
}

std::int32_t CMultiLangEx::getMultilangMessageDefault(std::int32_t defaultValue,
                                                      const std::string& key, std::string_view p0,
                                                      std::string_view p1, std::string_view p2,
                                                      std::string_view p3, std::string_view p4,
                                                      std::string_view p5) const {
  return valueOr(message(textOf(defaultValue), key, {p0, p1, p2, p3, p4, p5}), defaultValue);
}

std::int16_t CMultiLangEx::getMultilangMessageDefault(std::int16_t defaultValue,
                                                      const std::string& key, std::string_view p0,
                                                      std::string_view p1, std::string_view p2,
                                                      std::string_view p3, std::string_view p4,
                                                      std::string_view p5) const {
  return valueOr(message(textOf(defaultValue), key, {p0, p1, p2, p3, p4, p5}), defaultValue);
}

double CMultiLangEx::getMultilangMessageDefault(double defaultValue, const std::string& key,
                                                std::string_view p0, std::string_view p1,
                                                std::string_view p2, std::string_view p3,
                                                std::string_view p4, std::string_view p5) const {
  return valueOr(message(textOf(defaultValue), key, {p0, p1, p2, p3, p4, p5}), defaultValue);
}

bool CMultiLangEx::getMultilangMessageDefault(bool defaultValue, const std::string& key,
                                              std::string_view p0, std::string_view p1,
                                              std::string_view p2, std::string_view p3,
                                              std::string_view p4, std::string_view p5) const {
  return valueOr(message(textOf(defaultValue), key, {p0, p1, p2, p3, p4, p5}), defaultValue);
}

std::string CMultiLangEx::getParameterDefault(const std::string& defaultText,
                                              const std::string& key) const {
  return parameter(defaultText, key);
}

std::string CMultiLangEx::getParameterDefault(const char* defaultText,
                                              const std::string& key) const {
  return parameter(defaultText, key);
}

std::int32_t CMultiLangEx::getParameterDefault(std::int32_t defaultValue,
                                               const std::string& key) const {
  return valueOr(parameter(textOf(defaultValue), key), defaultValue);
}

std::int16_t CMultiLangEx::getParameterDefault(std::int16_t defaultValue,
                                               const std::string& key) const {
  return valueOr(parameter(textOf(defaultValue), key), defaultValue);
}

double CMultiLangEx::getParameterDefault(double defaultValue, const std::string& key) const {
  return valueOr(parameter(textOf(defaultValue), key), defaultValue);
}

bool CMultiLangEx::getParameterDefault(bool defaultValue, const std::string& key) const {
  return valueOr(parameter(textOf(defaultValue), key), defaultValue);
}

} // namespace kelmar
