// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/document.h"

#include <expat.h>
#include <functional>
#include <string_view>

namespace kelmar::xml {

/// One run of Expat over UTF-8 text, with the limits that hold for every document: depth, size of
/// entities, nothing external. The two kinds of run derive from it.
class ExpatRun {
 public:
  /// `size`: bytes of the whole text, against which the growth by entities is measured.
  ExpatRun(const Limits& limits, std::size_t size);
  virtual ~ExpatRun();
  ExpatRun(const ExpatRun&) = delete;
  ExpatRun& operator=(const ExpatRun&) = delete;

  /// Gives up to `size` bytes into `to`; fewer at the end only.
  using Reader = std::function<std::size_t(char* to, std::size_t size)>;

  /// True when the text is well formed and within the limits.
  bool run(std::string_view text);
  bool run(const Reader& reader);

  const ParseError& error() const { return error_; }

 protected:
  XML_Parser parser() const { return parser_; }
  /// Ends the run with a reason of our own, at the place that is read now.
  void stop(int code, const std::string& reason);
  std::size_t currentLine() const { return XML_GetCurrentLineNumber(parser_); }

  // A derived class calls these from the handlers that it sets.
  bool enterElement() {
    if (++depth_ <= limits_.depth) return true;
    refuseDepth();
    return false;
  }
  void leaveElement() { --depth_; }

  const Limits limits_;
  const std::size_t size_;

 private:
  static int XMLCALL refuseExternal(XML_Parser parser, const XML_Char* context, const XML_Char*,
                                    const XML_Char* systemId, const XML_Char*);
  static void XMLCALL refuseSkipped(void* self, const XML_Char* name, int);
  static void XMLCALL countEntity(void* self, const XML_Char*, int, const XML_Char*, int,
                                  const XML_Char*, const XML_Char*, const XML_Char*,
                                  const XML_Char*);
  void refuseDepth();
  bool conclude(XML_Status status);

  XML_Parser parser_;
  std::size_t depth_ = 0;
  std::size_t entities_ = 0;
  ParseError error_;
};

} // namespace kelmar::xml
