// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/json_reader.h"

#include <stdexcept>

namespace kelmar::support {

namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  Json whole() {
    Json value = read();
    blanks();
    if (at_ != text_.size()) fail("something behind the value");
    return value;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw std::runtime_error(what + " at byte " + std::to_string(at_) + ": " +
                             std::string(text_.substr(at_, 40)));
  }
  bool isAt(std::string_view token) const { return text_.substr(at_).starts_with(token); }
  char next() {
    if (at_ == text_.size()) fail("the end");
    return text_[at_++];
  }
  void blanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\n'))
      ++at_;
  }
  void demand(char token) {
    blanks();
    if (next() != token) fail(std::string("no ") + token);
  }

  Json read() {
    blanks();
    if (isAt("{")) return object();
    if (isAt("[")) return array();
    if (isAt("\"")) return {Json::Text, string(), {}, {}};
    for (const char* word : {"true", "false", "null"}) {
      if (!isAt(word)) continue;
      at_ += std::string_view(word).size();
      if (*word == 'n') return {};
      return {Json::Flag, word, {}, {}};
    }
    return {Json::Number, number(), {}, {}};
  }

  Json object() {
    Json value{Json::Object, {}, {}, {}};
    demand('{');
    blanks();
    if (isAt("}")) return ++at_, value;
    do {
      blanks();
      std::string name = string();
      for (const auto& [other, unused] : value.members)
        if (other == name) fail("a second member " + name);
      demand(':');
      value.members.emplace_back(std::move(name), read());
      blanks();
    } while (next() == ',');
    if (text_[at_ - 1] != '}') fail("no }");
    return value;
  }

  Json array() {
    Json value{Json::Array, {}, {}, {}};
    demand('[');
    blanks();
    if (isAt("]")) return ++at_, value;
    do {
      value.items.push_back(read());
      blanks();
    } while (next() == ',');
    if (text_[at_ - 1] != ']') fail("no ]");
    return value;
  }

  bool digits() {
    const std::size_t start = at_;
    while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9')
      ++at_;
    return at_ != start;
  }

  std::string number() {
    const std::size_t start = at_;
    if (isAt("-")) ++at_;
    const bool leadingZero = isAt("0");
    const std::size_t integer = at_;
    if (!digits() || (leadingZero && at_ - integer > 1)) fail("no value");
    if (isAt(".")) {
      ++at_;
      if (!digits()) fail("no digits");
    }
    if (isAt("e") || isAt("E")) {
      ++at_;
      if (isAt("+") || isAt("-")) ++at_;
      if (!digits()) fail("no exponent");
    }
    return std::string(text_.substr(start, at_ - start));
  }

  std::string string() {
    demand('"');
    std::string value;
    for (char byte = next(); byte != '"'; byte = next()) {
      if (static_cast<unsigned char>(byte) < 0x20) fail("a control character");
      if (byte == '\\') {
        escape(value);
      } else {
        value += byte;
        if (static_cast<unsigned char>(byte) >= 0x80) restOfCharacter(byte, value);
      }
    }
    return value;
  }

  void escape(std::string& value) {
    constexpr std::string_view letters = "\"\\/bfnrt", meant = "\"\\/\b\f\n\r\t";
    const char letter = next();
    if (letter == 'u') {
      // Only the control characters are written so.
      const int code = std::stoi(std::string(text_.substr(at_, 4)), nullptr, 16);
      at_ += 4;
      if (code >= 0x80) fail("a needless escape");
      value += static_cast<char>(code);
      return;
    }
    const auto found = letters.find(letter);
    if (found == letters.npos) fail("no escape");
    value += meant[found];
  }

  void restOfCharacter(char first, std::string& value) {
    const auto lead = static_cast<unsigned char>(first);
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4) fail("no UTF-8");
    for (int i = 0; i < more; ++i) {
      const char byte = next();
      if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) fail("no UTF-8");
      value += byte;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

} // namespace

const Json& Json::operator[](std::string_view member) const {
  for (const auto& [name, value] : members)
    if (name == member) return value;
  throw std::runtime_error("no member " + std::string(member));
}

const Json& Json::operator[](std::size_t index) const {
  if (index >= items.size()) throw std::runtime_error("no item " + std::to_string(index));
  return items[index];
}

Json readJson(std::string_view text) {
  return Reader(text).whole();
}

} // namespace kelmar::support
