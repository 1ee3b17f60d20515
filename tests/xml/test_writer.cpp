// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <utility>

namespace kelmar::xml {
namespace {

using namespace std::string_view_literals;

constexpr const char* encodings[] = {"UTF-8", "UTF-16", "ISO-8859-1", "windows-1252"};

std::string declaration(const std::string& encoding) {
  return "version='1.0' encoding=\"" + encoding + "\"";
}

// The text of the refusal; empty when there was none.
std::string refusal(const std::function<void(Writer&)>& write,
                    std::string_view encoding = "UTF-8") {
  Writer writer(encoding);
  writer.open("a");
  try {
    write(writer);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, 1);
    EXPECT_EQ(failure.source, "ExportUceToXml");
    return failure.text;
  }
  return {};
}

TEST(Writer, WritesByteForByteWhatItIsAskedTo) {
  Writer writer;
  writer.processingInstruction("xml", declaration("UTF-8"));
  writer.processingInstruction("xml-stylesheet", "type=\"text/xsl\" href=\"a.xsl\"");
  writer.open("xml");
  writer.attribute("xmlns:zem", "u");
  writer.lineFeed();
  writer.emptyElement("Generator");
  writer.crLf();
  writer.open("zem:Target");
  writer.attribute("Address", 122);
  writer.textElement("Name", "a<b");
  writer.textElement("Empty", "");
  writer.cdataElement("Comment", "x\r\ny");
  writer.cdataElement("None", "");
  writer.text("t");
  EXPECT_EQ(writer.take(),
            "<?xml version='1.0' encoding=\"UTF-8\"?><?xml-stylesheet type=\"text/xsl\" "
            "href=\"a.xsl\"?><xml xmlns:zem=\"u\">\n<Generator/>\r\n<zem:Target Address=\"122\">"
            "<Name>a&lt;b</Name><Empty/><Comment><![CDATA[x\r\ny]]></Comment>"
            "<None><![CDATA[]]></None>t</zem:Target></xml>");
  EXPECT_EQ(writer.take(), "") << "empty afterwards";
  writer.emptyElement("again");
  EXPECT_EQ(writer.take(), "<again/>");
}

TEST(Writer, PutsInWhatAnotherOneHasWrittenBesideIt) {
  Writer writer("ISO-8859-1");
  writer.open("a");
  Writer part = writer.beside();
  part.open("b");
  part.text("é");
  writer.textElement("first", "1");
  writer.open("inner");
  writer.append(std::move(part));
  writer.open("empty");
  writer.append(writer.beside());
  EXPECT_EQ(writer.take(), "<a><first>1</first><inner><b>\xE9</b><empty/></inner></a>");
}

TEST(Writer, EscapesWhatAReaderWouldNotGetBack) {
  Writer writer;
  writer.open("a");
  writer.attribute("b", "<&\">'\t\n\r");
  writer.text("<&>\"'\t\n\r");
  EXPECT_EQ(writer.take(),
            "<a b=\"&lt;&amp;&quot;>'&#9;&#10;&#13;\">&lt;&amp;&gt;\"'\t\n&#13;</a>");
}

TEST(Writer, WritesTheWholeRangeOfIntegers) {
  Writer writer;
  writer.open("a");
  writer.attribute("b", std::numeric_limits<std::int32_t>::min());
  writer.attribute("c", std::numeric_limits<std::int32_t>::max());
  writer.attribute("d", 0);
  EXPECT_EQ(writer.take(), "<a b=\"-2147483648\" c=\"2147483647\" d=\"0\"/>");
}

TEST(Writer, SplitsTheEndOfACdataSectionOrRefusesIt) {
  for (const std::string text : {"a]]>b", "]]>", "]]>]]>", "]]]]>>", "]]"}) {
    Writer writer;
    writer.cdataElement("a", text);
    Document document;
    ASSERT_TRUE(document.loadXML(writer.take())) << text;
    EXPECT_EQ(textOf(document.node()), text);
  }
  Writer writer;
  writer.cdata("a]]>b");
  EXPECT_EQ(writer.take(), "<![CDATA[a]]]]><![CDATA[>b]]>");
  EXPECT_EQ(refusal([](Writer& w) {
              w.item("Request", "Read");
              w.cdataSingle("a]]>b");
            }),
            "Request 'Read': \"]]>\" cannot be written in one CDATA section");
  EXPECT_EQ(refusal([](Writer& w) { w.cdataSingle("a]]b>"); }), "");
}

TEST(Writer, NamesTheItemAndTheCharacterThatTheEncodingLacks) {
  EXPECT_EQ(refusal(
                [](Writer& w) {
                  w.item("Data", "Speed");
                  w.cdata("5 €");
                },
                "iso-8859-1"),
            "Data 'Speed': the character U+20AC cannot be written in ISO-8859-1");
  EXPECT_EQ(refusal([](Writer& w) { w.cdata("5 €"); }, "WINDOWS-1252"), "");
  EXPECT_EQ(refusal([](Writer& w) { w.cdata("𝄞"); }, "windows-1252"),
            "the character U+1D11E cannot be written in windows-1252");
  EXPECT_EQ(refusal([](Writer& w) { w.cdata("\xC2\x82"); }, "windows-1252"),
            "the character U+0082 cannot be written in windows-1252");
  for (const char* encoding : {"UTF-8", "UTF-16"})
    EXPECT_EQ(refusal([](Writer& w) { w.cdata("€𝄞"); }, encoding), "");
  EXPECT_EQ(refusal([](Writer& w) { w.open(Name("é€"sv)); }, "ISO-8859-1"),
            "the character U+20AC cannot be written in ISO-8859-1")
      << "U+20AC is a name character of the fifth edition's ranges";
  EXPECT_NE(refusal([](Writer& w) { w.processingInstruction("p", "日本"); }, "ISO-8859-1"), "");
}

TEST(Writer, UsesReferencesWhereTheyMayStand) {
  Writer writer("ISO-8859-1");
  writer.open("a");
  writer.attribute("b", "é€");
  writer.text("𝄞ü");
  EXPECT_EQ(writer.take(), "<a b=\"\xE9&#8364;\">&#119070;\xFC</a>");
}

TEST(Writer, RefusesWhatXmlCannotHoldAnywhere) {
  const std::string bad[] = {std::string(1, '\0'), "\x01", "\x1F", "\xEF\xBF\xBE", "\xEF\xBF\xBF"};
  const char* names[] = {"U+0000", "U+0001", "U+001F", "U+FFFE", "U+FFFF"};
  for (const char* encoding : encodings)
    for (std::size_t i = 0; i < std::size(bad); ++i) {
      const std::string expected =
          std::string("Data 'd': the character ") + names[i] + " cannot be written in XML";
      const std::string text = "x" + bad[i];
      const std::function<void(Writer&)> places[] = {
          [&](Writer& w) { w.text(text); }, [&](Writer& w) { w.attribute("b", text); },
          [&](Writer& w) { w.cdata(text); },
          [&](Writer& w) { w.processingInstruction("p", text); }};
      for (const auto& place : places)
        EXPECT_EQ(refusal(
                      [&](Writer& w) {
                        w.item("Data", "d");
                        place(w);
                      },
                      encoding),
                  expected);
    }
  for (const char* malformed : {"\xC3", "\x80", "\xED\xA0\x80", "\xC0\xAF", "\xF5\x80\x80\x80",
                                "\xE2\x82", "\xFF", "a\xC3z"})
    EXPECT_EQ(refusal([&](Writer& w) {
                w.item("Data", std::string_view("n\xFF"));
                w.text(malformed);
              }),
              "Data 'n\uFFFD': the text is not well-formed UTF-8");
}

TEST(Writer, RefusesNamesThatAreNone) {
  EXPECT_EQ(refusal([](Writer& w) {
              w.item("Project", "a b");
              w.open(Name("a b"sv));
            }),
            "Project 'a b': 'a b' is no XML element name");
  EXPECT_EQ(refusal([](Writer& w) { w.attribute(Name("1"sv), "x"); }),
            "'1' is no XML attribute name");
  for (const char* name : {"", ":a", "a:", "a:b:c", "a>", "-"})
    EXPECT_NE(refusal([&](Writer& w) { w.open(Name(name)); }), "") << name;
  EXPECT_EQ(refusal([](Writer& w) { w.open("ds:Categories"); }), "");
  EXPECT_NE(refusal([](Writer& w) { w.processingInstruction("p", "a?>b"); }), "");
}

TEST(Writer, RefusesMisuse) {
  EXPECT_NE(refusal([](Writer& w) {
              w.text("t");
              w.attribute("b", "c");
            }),
            "");
  EXPECT_NE(refusal([](Writer& w) {
              w.close();
              w.close();
            }),
            "");
}

TEST(Writer, KnowsFourEncodingsInAnyCase) {
  for (const char* name : {"utf-8", "Utf-16", "iso-8859-1", "WINDOWS-1252"})
    EXPECT_NO_THROW(Writer{name}) << name;
  for (const char* name : {"", "utf8", "latin1", "KOI8-R", "UTF-16LE", "US-ASCII", "UTF-8 "})
    EXPECT_THROW(Writer{name}, Failure) << name;
  try {
    Writer writer("KOI8-R");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.text, "the encoding 'KOI8-R' cannot be written");
  }
}

TEST(Writer, Utf16HasAMarkAndTheLowByteFirst) {
  Writer writer("UTF-16");
  writer.textElement("a", "é𝄞");
  using namespace std::string_literals;
  EXPECT_EQ(writer.take(), "\xFF\xFE<\0a\0>\0\xE9\0\x34\xD8\x1E\xDD<\0/\0a\0>\0"s);
}

TEST(Writer, EverythingReadsBackTheSameInEveryEncoding) {
  std::mt19937 random(20261121);
  const char32_t interesting[] = {'\t',   '\n',   '\r',    ' ',      '"',    '\'',   '<',
                                  '>',    '&',    ']',     '?',      0x7F,   0x80,   0x85,
                                  0xA0,   0xE9,   0xFF,    0x152,    0x20AC, 0x2019, 0xD7FF,
                                  0xE000, 0xFFFD, 0x10000, 0x10FFFF, 'x'};
  const auto append = [](std::string& text, char32_t c) {
    if (c < 0x80) {
      text += static_cast<char>(c);
    } else if (c < 0x800) {
      text += static_cast<char>(0xC0 | c >> 6);
      text += static_cast<char>(0x80 | (c & 63));
    } else if (c < 0x10000) {
      text += static_cast<char>(0xE0 | c >> 12);
      text += static_cast<char>(0x80 | (c >> 6 & 63));
      text += static_cast<char>(0x80 | (c & 63));
    } else {
      text += static_cast<char>(0xF0 | c >> 18);
      text += static_cast<char>(0x80 | (c >> 12 & 63));
      text += static_cast<char>(0x80 | (c >> 6 & 63));
      text += static_cast<char>(0x80 | (c & 63));
    }
  };
  for (const char* encoding : encodings)
    for (int round = 0; round < 500; ++round) {
      SCOPED_TRACE(std::string(encoding) + " round " + std::to_string(round));
      std::string text;
      for (unsigned i = random() % 12; i-- > 0;)
        append(text, interesting[random() % std::size(interesting)]);
      Writer writer(encoding);
      writer.processingInstruction("xml", declaration(encoding));
      writer.open("a");
      writer.attribute("b", text);
      writer.textElement("c", text);
      writer.close();
      Document document;
      ASSERT_TRUE(document.loadBytes(writer.take())) << document.parseError().reason;
      ASSERT_EQ(document.root().attribute("b").value(), text);
      ASSERT_EQ(textOf(document.root()), text);
    }
}

TEST(Writer, CdataReadsBackInEveryEncodingThatHoldsIt) {
  for (const char* encoding : encodings) {
    Writer writer(encoding);
    writer.processingInstruction("xml", declaration(encoding));
    writer.cdataElement("a", "<é & ü>\r\n]]>");
    Document document;
    ASSERT_TRUE(document.loadBytes(writer.take())) << document.parseError().reason;
    EXPECT_EQ(textOf(document.root()), "<é & ü>\n]]>") << "a reader gets line feeds";
  }
}

} // namespace
} // namespace kelmar::xml
