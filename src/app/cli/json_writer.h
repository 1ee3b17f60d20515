// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/output.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kelmar::cli {

/// Writes one JSON value after the other. Members of the outer object and the elements of its
/// arrays stand on lines of their own, everything below on one line.
class JsonWriter {
 public:
  explicit JsonWriter(Output& output) : output_(output) {}

  void beginObject() { begin('{'); }
  void endObject() { end('}'); }
  void beginArray() { begin('['); }
  void endArray() { end(']'); }
  JsonWriter& key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(std::int32_t number);
  void value(double number);
  void value(float number);
  void value(bool flag);
  void null();

  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name).value(content);
  }

 private:
  void begin(char bracket);
  void end(char bracket);
  void separate();
  Output& output_;
  std::vector<bool> hasMembers_; // of each open object or array
  bool afterKey_ = false;
};

} // namespace kelmar::cli
