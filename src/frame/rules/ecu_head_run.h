// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/ecu_head.h"
#include "xml/expat_run.h"

#include <string_view>

namespace kelmar {

/// Collects a head from the text of an ECU file that comes in pieces, and ends by itself where the
/// head ends.
class EcuHeadRun : public xml::ExpatRun {
 public:
  EcuHeadRun(EcuHead& head, std::optional<std::int32_t> onlyFunction);

  /// A piece of UTF-8 text; it may end within a character. `last`: there is no more. False: it is
  /// over, and `head` is complete or says its trouble.
  bool feed(std::string_view piece, bool last);

 private:
  // What the file says of one of the four protocol sections; the editor looks at them in this
  // order.
  struct Section {
    bool found = false;
    std::int32_t initMode = 2; // what a new ECU has
    bool multiPoint = false;
    bool iso8 = false, kwp = false; // K only
  };

  // The elements in which something is read. Everything else is passed over with all it holds.
  enum class Place {
    Document,
    Root,
    Target,
    Projects,
    K,
    Kwp,
    Can,
    Ip,
    IpText,
    Comment,
    AutoIdents,
    Elsewhere
  };
  using Attributes = const XML_Char**;

  static void XMLCALL startElement(void* self, const XML_Char* name, Attributes attributes);
  static void XMLCALL endElement(void* self, const XML_Char* name);
  static void XMLCALL characters(void* self, const XML_Char* text, int length);

  Place enter(std::string_view name, Attributes attributes);
  Place enterInTarget(std::string_view name, Attributes attributes);
  Place enterInK(std::string_view name, Attributes attributes);
  void readFunction(Attributes attributes);
  void readAutoIdent(Attributes attributes);
  void leave(Place left);
  void end();
  void endWith(const std::string& trouble);
  EcuProtocol protocol() const;

  EcuHead& head_;
  const std::optional<std::int32_t> onlyFunction_;
  std::vector<Place> places_;
  Section k_, ip_, can_, other_;
  std::string text_;            // of the element that is read
  std::string* into_ = nullptr; // where it goes
  bool targetSeen_ = false, functionSeen_ = false, commentSeen_ = false, projectsSeen_ = false;
  bool autoIdentsSeen_ = false, autoIdentsBroken_ = false;
  bool ended_ = false;
};

} // namespace kelmar
