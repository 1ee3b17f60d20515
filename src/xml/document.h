// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
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
/// are known: "not well-formed (invalid token), line 3, column 7". errorCode 0: it did not fail;
/// else Expat's number or a DocumentError.
struct ParseError {
  int errorCode = 0;
  std::string reason;
  std::size_t line = 0, column = 0; ///< 1-based, column in characters; 0 when unknown
};

/// What a document may demand of us.
struct Limits {
  std::size_t depth = 512;            ///< nested elements
  std::size_t entityBytes = 8u << 20; ///< what entities of the internal DTD add to the file's size
  std::size_t entities = 4096;        ///< declarations of entities
};

/// Text nodes of white space alone. They are most of the nodes of an indented file and cost 64
/// bytes each.
enum class Whitespace {
  Keep,
  /// Leaves them out where they only stand between elements, comments and processing instructions.
  /// An element that holds a CDATA section or other text directly, or nothing but white space,
  /// keeps all it holds: its textOf does not change. A document may keep more than that.
  DropBetweenElements,
};

/// errorCode of failures that Expat does not number.
enum DocumentError {
  NotReadable = 1001,
  UnknownEncoding = 1002,
  NestedTooDeep = 1003,
  EntitiesTooLarge = 1004,
  ExternalEntity = 1005,
  OutOfMemory = 1006,
};

/// A document: names are literal qualified names, attribute order, white-space text, CDATA,
/// comments and processing instructions are kept. Read from UTF-8, UTF-16 with a byte order mark,
/// ISO-8859-1 and windows-1252. A byte order mark wins over the encoding that is declared. Expat
/// judges what is well formed. Entities of an internal DTD are expanded; a document that needs an
/// external DTD or entity is refused: none is ever read, and nothing but the given address is
/// fetched.
///
/// None of the loads raises; each gives false, leaves the document empty and says why in
/// parseError.
class Document {
 public:
  Document() : Document(Limits{}) {}
  explicit Document(const Limits& limits);
  ~Document();
  Document(Document&&) noexcept;
  Document& operator=(Document&&) noexcept;

  /// Looks at the tree while the rest of the load goes on. It may run before a large file is judged
  /// to its end, and again when the file has to be read anew: what it makes counts only when the
  /// load gives true, and from its last run.
  using Reader = std::function<void()>;

  /// A local path, a "file:" address, or an "http:" address when there is a `fetch`. What `reader`
  /// raises leaves the load.
  bool load(const std::string& pathOrUrl, platform::Fetch* fetch = nullptr,
            Whitespace whitespace = Whitespace::Keep, const Reader& reader = {});
  /// Bytes of a file, with whatever encoding they declare.
  bool loadBytes(std::string bytes, Whitespace whitespace = Whitespace::Keep);
  /// UTF-8 text, such as the clipboard's: an encoding named inside is ignored.
  bool loadXML(std::string text);

  const ParseError& parseError() const { return error_; }

  /// Bytes of the source, as UTF-8 and without its mark; 0 when the document is empty.
  std::size_t sourceSize() const;

  /// The document node; its child is the root element.
  Node node() const;
  /// The root element; null when the document is empty.
  Node root() const;
  /// First match of an XPath, or a null node. Never raises.
  pugi::xpath_node selectSingleNode(const std::string& path) const;
  std::vector<Node> selectNodes(const std::string& path) const;

  /// Takes a node, and all below it, out of the tree and gives its memory back, so that a large
  /// document shrinks while it is read from front to back. No handle to any of them may be used
  /// afterwards; lines of other nodes stay known.
  void discard(Node node);

  /// Line of the node in the source, 1-based; 0 when the node does not come from there. For an
  /// element the line of its start tag, for a text that of its first character.
  std::size_t lineOf(Node node) const;

 private:
  struct Source;
  bool fail(int code, const std::string& reason, std::size_t line = 0, std::size_t column = 0);
  bool fail(ParseError error);
  bool loadFile(const std::string& path, Whitespace whitespace, const Reader& reader);
  bool loadText(std::string text, std::size_t markLength, Whitespace whitespace);

  Limits limits_;
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

/// True for a name that an element may bear and that reads back as its base name: XML 1.0, fifth
/// edition, without a colon.
bool isXmlName(std::string_view name);

} // namespace kelmar::xml
