// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/json_writer.h"

#include <charconv>
#include <cmath>
#include <string>

namespace kelmar::cli {

namespace {

/// So many levels have their members on lines of their own.
constexpr std::size_t linedLevels = 2;

template <class Number>
std::string shortest(Number number) {
  char digits[64];
  return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

std::string quoted(std::string_view text) {
  static constexpr char hex[] = "0123456789abcdef";
  std::string result = "\"";
  for (const char byte : text) {
    switch (byte) {
    case '"':
      result += "\\\"";
      break;
    case '\\':
      result += "\\\\";
      break;
    case '\n':
      result += "\\n";
      break;
    case '\r':
      result += "\\r";
      break;
    case '\t':
      result += "\\t";
      break;
    default:
      if (static_cast<unsigned char>(byte) < 0x20) {
        result += "\\u00";
        result += hex[byte >> 4];
        result += hex[byte & 15];
      } else {
        result += byte;
      }
    }
  }
  return result + "\"";
}

} // namespace

void JsonWriter::separate() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (hasMembers_.empty()) return;
  const bool lined = hasMembers_.size() <= linedLevels;
  if (hasMembers_.back()) output_ << (lined ? "," : ", ");
  if (lined) output_ << "\n" << std::string(hasMembers_.size() * 2, ' ');
  hasMembers_.back() = true;
}

void JsonWriter::begin(char bracket) {
  separate();
  output_ << std::string_view(&bracket, 1);
  hasMembers_.push_back(false);
}

void JsonWriter::end(char bracket) {
  const bool lined = hasMembers_.size() <= linedLevels && hasMembers_.back();
  hasMembers_.pop_back();
  if (lined) output_ << "\n" << std::string(hasMembers_.size() * 2, ' ');
  output_ << std::string_view(&bracket, 1);
  if (hasMembers_.empty()) output_ << "\n";
}

JsonWriter& JsonWriter::key(std::string_view name) {
  separate();
  output_ << quoted(name) << ": ";
  afterKey_ = true;
  return *this;
}

void JsonWriter::value(std::string_view text) {
  separate();
  output_ << quoted(text);
}

void JsonWriter::value(std::int32_t number) {
  separate();
  output_ << shortest(number);
}

void JsonWriter::value(double number) {
  separate();
  output_ << (std::isfinite(number) ? shortest(number) : "null");
}

void JsonWriter::value(float number) {
  separate();
  output_ << (std::isfinite(number) ? shortest(number) : "null");
}

void JsonWriter::value(bool flag) {
  separate();
  output_ << (flag ? "true" : "false");
}

void JsonWriter::null() {
  separate();
  output_ << "null";
}

} // namespace kelmar::cli
