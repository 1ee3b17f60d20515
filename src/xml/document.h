// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::platform {
class Fetch;
}

namespace kelmar::xml {

using Node = pugi::xml_node;
using Attribute = pugi::xml_attribute;

/// Why the last load failed. `reason` is plain English and ends with line and column where they
/// are known. errorCode 0: it did not.
struct ParseError {
  int errorCode = 0;
  std::string reason;
  std::size_t line = 0, column = 0; ///< 1-based; 0 when unknown
};

/// What a document may demand of us.
struct Limits {
  std::size_t depth = 512;                  ///< nested elements
  std::size_t entityBytes = 8u << 20;       ///< text that entities of the internal DTD expand to
};

/// A document: names are literal qualified names, attribute order, white-space text, CDATA,
/// comments and processing instructions are kept. Read from UTF-8, UTF-16 with a byte order mark,
/// ISO-8859-1 and windows-1252. Expat judges what is well formed; no external entity is ever read
/// and nothing but the given address is fetched.
class Document {
 public:
  Document();
  ~Document();
  Document(Document&&) noexcept;
  Document& operator=(Document&&) noexcept;

  /// A local path, a "file:" address, or an "http:" address when there is a `fetch`. On failure
  /// the document is empty and parseError says why.
  bool load(const std::string& pathOrUrl, platform::Fetch* fetch = nullptr);
  /// Bytes of a file, with whatever encoding they declare.
  bool loadBytes(std::string bytes);
  /// UTF-8 text, such as the clipboard's: an encoding named inside is ignored.
  bool loadXML(std::string text);

  const ParseError& parseError() const { return error_; }

  /// The document node; its child is the root element.
  Node node() const;
  /// First match of an XPath, or a null node. Never raises.
  pugi::xpath_node selectSingleNode(const std::string& path) const;
  std::vector<Node> selectNodes(const std::string& path) const;

  /// Line of the node in the source, 1-based; 0 when unknown. Costs a pass over the source.
  std::size_t lineOf(Node node) const;

 private:
  struct Source;
  std::unique_ptr<Source> source_;
  ParseError error_;
};

/// XPath from a node; a null result when there is no match or the path is no XPath.
pugi::xpath_node selectSingleNode(Node from, const std::string& path);
std::vector<Node> selectNodes(Node from, const std::string& path);

/// Text of an element as a reader sees it: all text and CDATA below it, joined.
std::string textOf(Node element);

/// A text as an XPath string literal, whatever quotes it holds.
std::string xpathLiteral(std::string_view text);

/// True for a name that an element may bear.
bool isXmlName(std::string_view name);

} // namespace kelmar::xml
