// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/event_tree.h"

#include <cstring>

namespace kelmar::xml {

EventTree::EventTree(const Limits& limits, std::size_t size, pugi::xml_document& document,
                     NodeLines& lines)
    : ExpatRun(limits, size), lines_(lines), parent_(document) {
  XML_SetElementHandler(
      parser(),
      [](void* self, const XML_Char* name, const XML_Char** attributes) {
        static_cast<EventTree*>(self)->startElement(name, attributes);
      },
      [](void* self, const XML_Char*) { static_cast<EventTree*>(self)->endElement(); });
  XML_SetCharacterDataHandler(parser(), [](void* self, const XML_Char* text, int length) {
    static_cast<EventTree*>(self)->addText(text, length);
  });
  XML_SetCdataSectionHandler(
      parser(),
      [](void* self) {
        auto* tree = static_cast<EventTree*>(self);
        tree->flushText();
        tree->inCdata_ = true;
        tree->textLine_ = tree->currentLine();
      },
      [](void* self) {
        auto* tree = static_cast<EventTree*>(self);
        tree->flushText();
        tree->inCdata_ = false;
      });
  XML_SetCommentHandler(parser(), [](void* self, const XML_Char* data) {
    static_cast<EventTree*>(self)->append(pugi::node_comment, nullptr, data);
  });
  XML_SetProcessingInstructionHandler(
      parser(), [](void* self, const XML_Char* target, const XML_Char* data) {
        static_cast<EventTree*>(self)->append(pugi::node_pi, target, data);
      });
  XML_SetDoctypeDeclHandler(
      parser(),
      [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
        static_cast<EventTree*>(self)->inDoctype_ = true;
      },
      [](void* self) { static_cast<EventTree*>(self)->inDoctype_ = false; });
  XML_SetXmlDeclHandler(
      parser(), [](void* self, const XML_Char* version, const XML_Char* encoding, int standalone) {
        if (!version) return; // the declaration of an entity's text
        auto* tree = static_cast<EventTree*>(self);
        Node declaration = tree->parent_.append_child(pugi::node_declaration);
        declaration.set_name("xml");
        declaration.append_attribute("version").set_value(version);
        if (encoding) declaration.append_attribute("encoding").set_value(encoding);
        if (standalone >= 0)
          declaration.append_attribute("standalone").set_value(standalone ? "yes" : "no");
        tree->note(declaration, tree->currentLine());
      });
}

// Beside Expat's own count: what the tree holds cannot exceed the file but by entities.
void EventTree::count(std::size_t bytes) {
  built_ += bytes;
  if (built_ > size_ + limits_.entityBytes)
    stop(EntitiesTooLarge,
         "entities expand to more than " + std::to_string(limits_.entityBytes) + " bytes");
}

void EventTree::startElement(const XML_Char* name, const XML_Char** attributes) {
  if (!enterElement()) return;
  flushText();
  parent_ = parent_.append_child(name);
  count(std::strlen(name));
  for (; *attributes; attributes += 2) {
    parent_.append_attribute(attributes[0]).set_value(attributes[1]);
    count(std::strlen(attributes[0]) + std::strlen(attributes[1]));
  }
  note(parent_, currentLine());
}

void EventTree::endElement() {
  leaveElement();
  flushText();
  parent_ = parent_.parent();
}

void EventTree::append(pugi::xml_node_type type, const XML_Char* name, const XML_Char* value) {
  // Inside the DTD they belong to it and not to the tree.
  if (inDoctype_) return;
  flushText();
  Node node = parent_.append_child(type);
  if (name) node.set_name(name);
  node.set_value(value);
  count(std::strlen(value));
  note(node, currentLine());
}

void EventTree::addText(const XML_Char* text, int length) {
  if (text_.empty() && !inCdata_) textLine_ = currentLine();
  text_.append(text, static_cast<std::size_t>(length));
  count(static_cast<std::size_t>(length));
}

void EventTree::flushText() {
  if (text_.empty() && !inCdata_) return;
  Node node = parent_.append_child(inCdata_ ? pugi::node_cdata : pugi::node_pcdata);
  node.set_value(text_.c_str());
  note(node, textLine_);
  text_.clear();
}

} // namespace kelmar::xml
