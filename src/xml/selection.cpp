// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/document.h"

#include <exception>

namespace kelmar::xml {

pugi::xpath_node selectSingleNode(Node from, const std::string& path) {
  try {
    return from.select_node(path.c_str());
  } catch (const std::exception&) {
    return {};
  }
}

std::vector<Node> selectNodes(Node from, const std::string& path) {
  std::vector<Node> nodes;
  try {
    for (const pugi::xpath_node& found : from.select_nodes(path.c_str()))
      if (found.node()) nodes.push_back(found.node());
  } catch (const std::exception&) {
    nodes.clear();
  }
  return nodes;
}

std::string textOf(Node element) {
  std::string text;
  // Without recursion, in document order.
  for (Node node = element; node;) {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) text += node.value();
    if (const Node child = node.first_child()) {
      node = child;
      continue;
    }
    while (node && node != element && !node.next_sibling())
      node = node.parent();
    if (!node || node == element) break;
    node = node.next_sibling();
  }
  return text;
}

std::string xpathLiteral(std::string_view text) {
  if (text.find('\'') == std::string_view::npos) return "'" + std::string(text) + "'";
  if (text.find('"') == std::string_view::npos) return "\"" + std::string(text) + "\"";
  // A literal has no escapes: pieces between apostrophes are joined by the expression itself.
  std::string literal = "concat('";
  for (const char c : text) {
    if (c == '\'')
      literal += "',\"'\",'";
    else
      literal += c;
  }
  return literal + "')";
}

} // namespace kelmar::xml
