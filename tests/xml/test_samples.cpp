// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "random_document.h"
#include "xml/writer.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace kelmar::xml::testing {
namespace {

namespace fs = std::filesystem;

TEST(Encodings, EverySampleSaysTheSame) {
  std::size_t samples = 0;
  for (const auto& entry : fs::directory_iterator(KELMAR_TEST_DATA "/encodings")) {
    SCOPED_TRACE(entry.path().filename().string());
    Document document;
    ASSERT_TRUE(document.load(entry.path().string())) << document.parseError().reason;
    const Node name = document.selectSingleNode("xml/Name").node();
    EXPECT_STREQ(name.attribute("a").value(), "Température €");
    EXPECT_EQ(textOf(name), "Entrée – “Œuvre”");
    EXPECT_GE(document.lineOf(name), 2u);
    EXPECT_LE(document.lineOf(name), 3u);
    ++samples;
  }
  EXPECT_GE(samples, 13u);
}

TEST(Encodings, BytesWithoutACharacterInWindows1252AreReadAsTheirNumber) {
  Document document;
  ASSERT_TRUE(document.loadBytes("<?xml version='1.0' encoding='windows-1252'?><a>\x81\x8D</a>"));
  EXPECT_EQ(textOf(document.node()), "\xC2\x81\xC2\x8D");
  Writer out("windows-1252");
  out.cdataElement("a", textOf(document.node()));
  EXPECT_EQ(out.take(), "<a><![CDATA[\x81\x8D]]></a>");
}

// Why each file is refused. A new sample without a row fails the test.
const std::map<std::string, std::string> reasons = {
    {"xml-ascii-with-accent.xml", "not well-formed (invalid token), line 2, column 6"},
    {"xml-bad-character-reference.xml", "reference to invalid character number, line 2, column 1"},
    {"xml-cdata-end-in-text.xml", "not well-formed (invalid token), line 2, column 4"},
    {"xml-cdata-not-closed.xml", "unclosed CDATA section, line 2, column 19"},
    {"xml-control-character.xml", "not well-formed (invalid token), line 2, column 7"},
    {"xml-cut-in-a-name.xml", "unclosed token, line 2, column 1"},
    {"xml-dashes-in-comment.xml", "not well-formed (invalid token), line 2, column 10"},
    {"xml-declaration-not-first.xml",
     "XML or text declaration not at start of entity, line 2, column 1"},
    {"xml-empty.xml", "no element found, line 1, column 1"},
    {"xml-entity-bomb.xml", "entities expand to more than 8388608 bytes, line 13, column 6"},
    {"xml-entity-bomb-in-attribute.xml",
     "entities expand to more than 8388608 bytes, line 13, column 1"},
    {"xml-entity-without-end.xml", "recursive entity reference, line 2, column 6"},
    {"xml-external-dtd.xml", "external DTD 'xml.dtd' is not read, line 1, column 31"},
    {"xml-external-entity.xml",
     "external entity '../encodings/utf8.xml' is not read, line 2, column 6"},
    {"xml-external-parameter-entity.xml",
     "external DTD 'http://localhost:9/e' is not read, line 1, column 59"},
    {"xml-latin1-without-declaration.xml", "not well-formed (invalid token), line 2, column 11"},
    {"xml-less-than-in-attribute.xml", "not well-formed (invalid token), line 2, column 7"},
    {"xml-mismatched-tags.xml", "mismatched tag, line 3, column 3"},
    {"xml-nested-too-deep.xml", "elements are nested deeper than 512, line 1, column 1539"},
    {"xml-no-xml-at-all.xml", "syntax error, line 1, column 1"},
    {"xml-nul-byte.xml", "not well-formed (invalid token), line 2, column 5"},
    {"xml-only-a-mark.xml", "no element found, line 1, column 1"},
    {"xml-only-blanks.xml", "no element found, line 3, column 2"},
    {"xml-overlong-utf8.xml", "not well-formed (invalid token), line 1, column 6"},
    {"xml-same-attribute-twice.xml", "duplicate attribute, line 2, column 10"},
    {"xml-two-roots.xml", "junk after document element, line 2, column 1"},
    {"xml-undeclared-entity.xml", "undefined entity, line 2, column 1"},
    {"xml-unknown-encoding.xml", "unknown encoding 'KOI8-R', line 2, column 12"},
    {"xml-unquoted-attribute.xml", "not well-formed (invalid token), line 2, column 6"},
    {"xml-utf16-declared-not-meant.xml",
     "the encoding UTF-16 is declared, but the file is not in it, line 1, column 31"},
    {"xml-utf16-half-character.xml", "not well-formed (invalid token), line 2, column 8"},
    {"xml-utf16-lone-surrogate.xml", "not well-formed (invalid token), line 1, column 6"},
    {"xml-utf16-without-mark.xml", "UTF-16 without a byte order mark, line 1, column 1"},
};

TEST(BrokenFiles, EachIsRefusedWithItsReason) {
  std::size_t samples = 0;
  for (const auto& entry : fs::directory_iterator(KELMAR_TEST_DATA "/broken")) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with("xml-")) continue; // broken for other readers than this one
    SCOPED_TRACE(name);
    Document document;
    EXPECT_FALSE(document.load(entry.path().string()));
    EXPECT_FALSE(document.node().first_child());
    const auto reason = reasons.find(name);
    ASSERT_NE(reason, reasons.end()) << document.parseError().reason;
    EXPECT_EQ(document.parseError().reason, reason->second);
    ++samples;
  }
  EXPECT_EQ(samples, reasons.size());
}

TEST(BrokenFiles, AFileCutAtAnyByteIsRefusedWithAPlace) {
  for (const char* sample : {"utf8.xml", "utf16-little-endian.xml", "windows1252.xml",
                             "utf8-with-mark.xml", "us-ascii.xml"}) {
    std::string whole = platform::readFile(KELMAR_TEST_DATA "/encodings/" + std::string(sample));
    // The text behind the root may be missing without harm.
    const std::size_t closed = whole.rfind('>');
    for (std::size_t length = 0; length < closed; ++length) {
      Document document;
      ASSERT_FALSE(document.loadBytes(whole.substr(0, length))) << sample << " " << length;
      ASSERT_GT(document.parseError().line, 0u) << sample << " " << length;
      ASSERT_GT(document.parseError().column, 0u) << sample << " " << length;
    }
  }
}

} // namespace
} // namespace kelmar::xml::testing
