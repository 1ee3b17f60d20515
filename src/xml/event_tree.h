// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/expat_run.h"

#include <unordered_map>

namespace kelmar::xml {

/// Lines of nodes that do not lie in a buffer.
using NodeLines = std::unordered_map<const void*, std::size_t>;

/// Builds the tree from Expat's events: the slow way, for the few documents with a DTD. For a
/// document without one the tree is the same as that of the parse in place.
class EventTree : public ExpatRun {
 public:
  EventTree(const Limits& limits, std::size_t size, pugi::xml_document& document, NodeLines& lines);

 private:
  void startElement(const XML_Char* name, const XML_Char** attributes);
  void endElement();
  void append(pugi::xml_node_type type, const XML_Char* name, const XML_Char* value);
  void addText(const XML_Char* text, int length);
  void flushText();
  void count(std::size_t bytes);
  void note(Node node, std::size_t line) { lines_[node.internal_object()] = line; }

  NodeLines& lines_;
  Node parent_;
  std::string text_;
  std::size_t textLine_ = 0;
  std::size_t built_ = 0;
  bool inCdata_ = false;
  bool inDoctype_ = false;
};

} // namespace kelmar::xml
