// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::xml {

/// Writes a document or a fragment as text, byte for byte as it is asked to: nothing is indented,
/// an element without content is written "<a/>".
///
/// What a reader would not get back is refused: a character that XML or the encoding cannot hold
/// where no reference may stand (CDATA, names, processing instructions), an element name that is
/// none. The Failure (number 1, source "ExportUceToXml") names the item set with `item`.
class Writer {
 public:
  /// `encoding` is a name such as "UTF-8", "UTF-16", "ISO-8859-1", "windows-1252", in any case.
  /// Raises Failure for one that is not among them.
  explicit Writer(std::string_view encoding = "UTF-8");

  /// Names what is being written now, for failures: item("Data", name). Both texts must outlive
  /// the next call of item.
  void item(const char* kind, std::string_view name) {
    kind_ = kind;
    name_ = name;
  }

  void processingInstruction(std::string_view target, std::string_view data);

  void open(std::string_view element);
  /// Before any content of the open element. Line ends and tabs are written as references.
  void attribute(std::string_view name, std::string_view value);
  void attribute(std::string_view name, std::int32_t value);
  void text(std::string_view value);
  /// A text node of one line feed; crLf() of carriage return and line feed. These separators are
  /// written raw.
  void lineFeed();
  void crLf();
  /// "]]>" is split over two sections.
  void cdata(std::string_view value);
  /// For text of which only the first section is read back: "]]>" is refused.
  void cdataSingle(std::string_view value);
  void close();

  /// <element>value</element>
  void textElement(std::string_view element, std::string_view value);
  /// <element/>
  void emptyElement(std::string_view element);
  void cdataElement(std::string_view element, std::string_view value);

  /// The bytes in the encoding asked for (UTF-16 with a byte order mark), all elements closed. The
  /// writer is empty afterwards.
  std::string take();

 private:
  enum class Encoding { Utf8, Utf16, Latin1, Windows1252 };
  void closeStartTag();
  [[noreturn]] void refuse(const std::string& why) const;

  Encoding encoding_;
  std::string out_;
  std::vector<std::string> open_;
  bool inStartTag_ = false;
  const char* kind_ = "";
  std::string_view name_;
};

} // namespace kelmar::xml
