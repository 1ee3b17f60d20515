// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/writer.h"

#include "base/failure.h"
#include "xml/characters.h"
#include "xml/document.h"

#include <array>
#include <charconv>

namespace kelmar::xml {

namespace {

constexpr int refusalNumber = 1;
constexpr const char* refusalSource = "ExportUceToXml";

// Names of the encodings as they stand in failures.
constexpr const char* shownName(Encoding encoding) {
  switch (encoding) {
  case Encoding::Latin1:
    return "ISO-8859-1";
  case Encoding::Windows1252:
    return "windows-1252";
  case Encoding::Utf16LittleEndian:
  case Encoding::Utf16BigEndian:
    return "UTF-16";
  case Encoding::Ascii:
    return "US-ASCII";
  case Encoding::Utf8:
    break;
  }
  return "UTF-8";
}

struct ByteSet {
  bool has[256] = {};
};

// Bytes that need a look: what must be escaped, control characters, and all beyond ASCII. DEL is a
// character like any other.
constexpr ByteSet specialBytes(std::string_view escaped, std::string_view plainControls) {
  ByteSet set;
  for (int i = 0; i < 256; ++i)
    set.has[i] = i < 0x20 || i >= 0x80;
  for (const char c : plainControls)
    set.has[static_cast<unsigned char>(c)] = false;
  for (const char c : escaped)
    set.has[static_cast<unsigned char>(c)] = true;
  return set;
}

constexpr ByteSet attributeSpecials = specialBytes("<&\"\t\n\r", "");
constexpr ByteSet textSpecials = specialBytes("<&>\r", "\t\n");
constexpr ByteSet rawSpecials = specialBytes("", "\t\n\r");

constexpr const char* escapeInAttribute(char c) {
  switch (c) {
  case '<':
    return "&lt;";
  case '&':
    return "&amp;";
  case '"':
    return "&quot;";
  case '\t':
    return "&#9;";
  case '\n':
    return "&#10;";
  case '\r':
    return "&#13;";
  default:
    return nullptr;
  }
}

constexpr const char* escapeInText(char c) {
  switch (c) {
  case '<':
    return "&lt;";
  case '&':
    return "&amp;";
  case '>':
    return "&gt;";
  case '\r':
    return "&#13;";
  default:
    return nullptr;
  }
}

constexpr const char* escapeNothing(char) {
  return nullptr;
}

std::string toUtf16(std::string_view text) {
  std::string bytes;
  bytes.reserve(2 * text.size() + 2);
  const auto unit = [&](char32_t value) {
    bytes += static_cast<char>(value & 0xFF);
    bytes += static_cast<char>(value >> 8);
  };
  unit(0xFEFF);
  while (!text.empty()) {
    const DecodedCharacter next = decodeUtf8(text);
    if (next.character < 0x10000) {
      unit(next.character);
    } else {
      unit(0xD800 + ((next.character - 0x10000) >> 10));
      unit(0xDC00 + ((next.character - 0x10000) & 0x3FF));
    }
    text.remove_prefix(next.length);
  }
  return bytes;
}

} // namespace

Writer::Writer(std::string_view encoding) {
  const auto found = encodingOfName(encoding);
  // Short names that we read are not written: the declaration carries the name as it was given, and
  // other readers may not know it.
  std::string upper(encoding);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  if (!found ||
      (upper != "UTF-8" && upper != "UTF-16" && upper != "ISO-8859-1" && upper != "WINDOWS-1252"))
    throw Failure(refusalNumber, refusalSource,
                  "the encoding '" + replaceMalformed(encoding) + "' cannot be written");
  encoding_ = *found;
}

void Writer::refuse(const std::string& why) const {
  std::string text;
  if (*kind_ != '\0') text = std::string(kind_) + " '" + replaceMalformed(name_) + "': ";
  throw Failure(refusalNumber, refusalSource, text + why);
}

void Writer::appendCharacter(char32_t character, std::string_view bytes, bool referencesAllowed) {
  if (!isXmlCharacter(character))
    refuse("the character " + characterName(character) + " cannot be written in XML");
  if (encoding_ == Encoding::Utf8 || encoding_ == Encoding::Utf16LittleEndian) {
    out_ += bytes;
    return;
  }
  if (const auto byte = byteOf(character, encoding_)) {
    out_ += static_cast<char>(*byte);
    return;
  }
  if (!referencesAllowed)
    refuse("the character " + characterName(character) + " cannot be written in " +
           shownName(encoding_));
  out_ += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
}

// Runs of plain bytes go over at once.
template <class Escape>
void Writer::append(std::string_view value, const bool (&special)[256], Escape escape,
                    bool referencesAllowed) {
  std::size_t start = 0, i = 0;
  while (i < value.size()) {
    if (!special[static_cast<unsigned char>(value[i])]) {
      ++i;
      continue;
    }
    out_.append(value, start, i - start);
    if (const char* reference = escape(value[i])) {
      out_ += reference;
      ++i;
    } else {
      const DecodedCharacter next = decodeUtf8(value.substr(i));
      if (next.length == 0) refuse("the text is not well-formed UTF-8");
      appendCharacter(next.character, value.substr(i, next.length), referencesAllowed);
      i += next.length;
    }
    start = i;
  }
  out_.append(value, start, value.size() - start);
}

void Writer::appendRaw(std::string_view value) {
  append(value, rawSpecials.has, escapeNothing, false);
}

void Writer::appendName(Name name, const char* what) {
  const std::string_view text = name.text();
  if (name.isOfTheCode()) {
    out_ += text;
    return;
  }
  const auto colon = text.find(':');
  const bool good = colon == std::string_view::npos
                        ? isXmlName(text)
                        : isXmlName(text.substr(0, colon)) && isXmlName(text.substr(colon + 1));
  if (!good) refuse("'" + replaceMalformed(text) + "' is no XML " + what + " name");
  appendRaw(text);
}

void Writer::processingInstruction(Name target, std::string_view data) {
  closeStartTag();
  if (data.find("?>") != std::string_view::npos)
    refuse("a processing instruction cannot hold \"?>\"");
  out_ += "<?";
  appendName(target, "instruction");
  if (!data.empty()) {
    out_ += ' ';
    appendRaw(data);
  }
  out_ += "?>";
}

void Writer::open(Name element) {
  closeStartTag();
  out_ += '<';
  const std::size_t position = out_.size();
  appendName(element, "element");
  open_.push_back({position, out_.size() - position});
  inStartTag_ = true;
}

void Writer::startAttribute(Name name) {
  if (!inStartTag_) refuse("an attribute stands before the content of its element");
  out_ += ' ';
  appendName(name, "attribute");
  out_ += "=\"";
}

void Writer::attribute(Name name, std::string_view value) {
  startAttribute(name);
  append(value, attributeSpecials.has, escapeInAttribute, true);
  out_ += '"';
}

void Writer::attribute(Name name, std::int32_t value) {
  startAttribute(name);
  std::array<char, 12> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  out_.append(digits.data(), end);
  out_ += '"';
}

void Writer::text(std::string_view value) {
  if (value.empty()) return;
  closeStartTag();
  append(value, textSpecials.has, escapeInText, true);
}

void Writer::lineFeed() {
  closeStartTag();
  out_ += '\n';
}

void Writer::crLf() {
  closeStartTag();
  out_ += "\r\n";
}

void Writer::cdata(std::string_view value) {
  closeStartTag();
  out_ += "<![CDATA[";
  for (auto end = value.find("]]>"); end != std::string_view::npos; end = value.find("]]>")) {
    appendRaw(value.substr(0, end + 2));
    out_ += "]]><![CDATA[";
    value.remove_prefix(end + 2);
  }
  appendRaw(value);
  out_ += "]]>";
}

void Writer::cdataSingle(std::string_view value) {
  if (value.find("]]>") != std::string_view::npos)
    refuse("\"]]>\" cannot be written in one CDATA section");
  cdata(value);
}

void Writer::close() {
  if (open_.empty()) refuse("no element is open");
  const OpenName name = open_.back();
  open_.pop_back();
  if (inStartTag_) {
    out_ += "/>";
    inStartTag_ = false;
    return;
  }
  out_ += "</";
  out_.append(out_, name.position, name.length);
  out_ += '>';
}

void Writer::textElement(Name element, std::string_view value) {
  open(element);
  text(value);
  close();
}

void Writer::emptyElement(Name element) {
  open(element);
  close();
}

void Writer::cdataElement(Name element, std::string_view value) {
  open(element);
  cdata(value);
  close();
}

void Writer::append(Writer part) {
  while (!part.open_.empty())
    part.close();
  if (part.out_.empty()) return;
  closeStartTag();
  out_ += part.out_;
}

std::string Writer::take() {
  while (!open_.empty())
    close();
  std::string bytes;
  bytes.swap(out_);
  if (encoding_ == Encoding::Utf16LittleEndian) bytes = toUtf16(bytes);
  return bytes;
}

} // namespace kelmar::xml
