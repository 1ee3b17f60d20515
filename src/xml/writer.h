// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/encoding.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::xml {

/// The name of an element, an attribute or an instruction, with at most one colon: "zem:Target".
class Name {
 public:
  /// A name that stands in the code, in plain letters; one that XML does not allow does not
  /// compile.
  template <std::size_t size>
  consteval Name(const char (&text)[size]) : text_(text, size - 1), isOfTheCode_(true) {
    if (!isPlain(text_)) throw "this is no XML name";
  }
  /// A name of the data, which the Writer checks. `text` must outlive it.
  explicit Name(std::string_view text) : text_(text) {}

  std::string_view text() const { return text_; }
  bool isOfTheCode() const { return isOfTheCode_; }

 private:
  static constexpr bool isPlain(std::string_view text) {
    bool begins = true, hasColon = false;
    for (const char c : text) {
      const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
      const bool isOther = (c >= '0' && c <= '9') || c == '-' || c == '.';
      if (c == ':' && !begins && !hasColon)
        hasColon = true;
      else if (!isLetter && (begins || !isOther))
        return false;
      begins = c == ':';
    }
    return !begins;
  }

  std::string_view text_;
  bool isOfTheCode_ = false;
};

/// Writes a document or a fragment as text, byte for byte as it is asked to: nothing is indented,
/// an element without content is written "<a/>". An empty text is no content, an empty CDATA
/// section is.
///
/// What a reader would not get back is refused: a character that XML cannot hold and bytes that are
/// no UTF-8 everywhere, a character that the encoding lacks where no reference may stand (CDATA,
/// names, processing instructions), an element name that is none. The Failure (number 1, source
/// "ExportUceToXml") names the item set with `item`:
/// "Data 'Speed': the character U+20AC cannot be written in ISO-8859-1".
class Writer {
 public:
  /// `encoding` is "UTF-8", "UTF-16", "ISO-8859-1" or "windows-1252", in any case. Raises Failure
  /// for one that is not among them.
  explicit Writer(std::string_view encoding = "UTF-8");

  /// Names what is being written now, for failures: item("Data", name). Both texts must outlive
  /// the next call of item.
  void item(const char* kind, std::string_view name) {
    kind_ = kind;
    name_ = name;
  }

  /// Makes room for a text of about so many bytes, which spares a large one the copies of growing.
  void reserve(std::size_t bytes) { out_.reserve(bytes); }

  void processingInstruction(Name target, std::string_view data);

  void open(Name element);
  /// Before any content of the open element. Line ends and tabs are written as references.
  void attribute(Name name, std::string_view value);
  void attribute(Name name, std::int32_t value);
  /// Carriage returns are written as references; line feeds and tabs stand raw.
  void text(std::string_view value);
  /// A text node of one line feed; crLf() of carriage return and line feed. These separators are
  /// written raw.
  void lineFeed();
  void crLf();
  /// "]]>" is split over two sections. Line ends stand raw: a reader gets each as one line feed.
  void cdata(std::string_view value);
  /// For text of which only the first section is read back: "]]>" is refused.
  void cdataSingle(std::string_view value);
  void close();

  /// <element>value</element>
  void textElement(Name element, std::string_view value);
  /// <element/>
  void emptyElement(Name element);
  void cdataElement(Name element, std::string_view value);

  /// A writer of the same encoding for whole elements that are put in later.
  Writer beside() const {
    Writer part;
    part.encoding_ = encoding_;
    return part;
  }
  /// Puts in what such a writer has written; all of its elements are closed.
  void append(Writer part);

  /// The bytes in the encoding asked for (UTF-16 with a byte order mark, low byte first), all
  /// elements closed. The writer is empty afterwards.
  std::string take();

 private:
  struct OpenName {
    std::size_t position, length; // in out_
  };
  void closeStartTag() {
    if (inStartTag_) {
      out_ += '>';
      inStartTag_ = false;
    }
  }
  template <class Escape>
  void append(std::string_view value, const bool (&special)[256], Escape escape,
              bool referencesAllowed);
  void appendRaw(std::string_view value);
  void appendCharacter(char32_t character, std::string_view bytes, bool referencesAllowed);
  void appendName(Name name, const char* what);
  void startAttribute(Name name);
  [[noreturn]] void refuse(const std::string& why) const;

  Encoding encoding_;
  std::string out_; // in the encoding, or UTF-8 for UTF-16
  std::vector<OpenName> open_;
  bool inStartTag_ = false;
  const char* kind_ = "";
  std::string_view name_;
};

} // namespace kelmar::xml
