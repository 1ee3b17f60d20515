// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/document.h"

#include <random>
#include <sstream>
#include <string>

namespace kelmar::xml::testing {

/// The tree as text, without the declaration and with nothing added.
inline std::string rawText(Node node) {
  std::ostringstream out;
  for (const Node child : node.children())
    if (child.type() != pugi::node_declaration)
      child.print(out, "", pugi::format_raw | pugi::format_no_declaration);
  std::string text = out.str();
  // The printer shows whether an empty instruction had a blank; no reader can tell.
  for (std::size_t at; (at = text.find("<?target ?>")) != std::string::npos;)
    text.erase(at + 8, 1);
  return text;
}

/// Well-formed text with everything that a parse may get wrong: line ends of all kinds in all
/// places, white space alone and mixed with text, CDATA, comments, instructions, references.
class RandomDocument {
 public:
  explicit RandomDocument(unsigned seed) : random_(seed) {}

  /// What may stand behind the XML declaration or a DTD.
  std::string body() {
    text_.clear();
    misc();
    element(0);
    misc();
    return text_;
  }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  template <std::size_t Count>
  void oneOf(const char* const (&choices)[Count]) {
    text_ += choices[below(Count)];
  }

  void words() {
    for (unsigned i = below(5); i-- > 0;)
      oneOf({"a", "word", " ", "\n", "\r\n", "\r", "\t", "é", "€", "𝄞", "]] ", ">", "\"", "'"});
  }

  void blank() {
    for (unsigned i = below(3); i-- > 0;)
      oneOf({" ", "\n", "\r\n", "\r", "\t", "  "});
  }

  void misc() {
    for (unsigned i = below(3); i-- > 0;) {
      blank();
      if (below(2) == 0)
        comment();
      else
        instruction();
      blank();
    }
  }

  void comment() {
    text_ += "<!-- <a b='";
    words();
    text_ += "-->";
  }

  void instruction() {
    text_ += "<?target";
    if (below(2) == 0) {
      text_ += ' ';
      words();
    }
    text_ += "?>";
  }

  void attributes() {
    static const char* const names[] = {" a", "\nb", "\r\nzem:c", "\td"};
    for (unsigned i = 0, count = below(4); i < count; ++i) {
      text_ += names[i];
      oneOf({"=", " =\n"});
      const bool single = below(2) == 0;
      text_ += single ? '\'' : '"';
      for (unsigned j = below(5); j-- > 0;)
        oneOf(
            {"v", " ", "\n", "\r\n", "\r", "\t", "&#10;", "&#13;&#x9;", "&lt;", ">", "é", "&amp;"});
      text_ += single ? '\'' : '"';
    }
  }

  void element(unsigned depth) {
    const std::string name = below(2) == 0 ? "e" : "zem:T-1.x";
    text_ += "<" + name;
    attributes();
    blank();
    if (below(5) == 0) {
      text_ += "/>";
      return;
    }
    text_ += ">";
    for (unsigned i = below(6); i-- > 0;)
      switch (below(depth < 4 ? 9 : 7)) {
      case 0:
        blank();
        break;
      case 1:
        oneOf({"text", "&#32;", "&#13;", "a&amp;b", "x\r\ny", "\r\n\r\n z", "]]&gt;"});
        break;
      case 2:
        text_ += "<![CDATA[";
        words();
        text_ += "]]>";
        break;
      case 3:
        comment();
        break;
      case 4:
        instruction();
        break;
      case 5:
        text_ += "\n";
        break;
      case 6:
        break;
      default:
        element(depth + 1);
      }
    text_ += "</" + name + (below(3) == 0 ? " \n>" : ">");
  }

  std::mt19937 random_;
  std::string text_;
};

} // namespace kelmar::xml::testing
