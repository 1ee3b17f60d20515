// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "platform/machine.h"
#include "random_document.h"

#include <gtest/gtest.h>

namespace kelmar::xml::testing {
namespace {

class FakeFetch : public platform::Fetch {
 public:
  std::string body, failure;
  std::vector<std::string> asked;
  std::string get(const std::string& url) override {
    asked.push_back(url);
    if (!failure.empty()) throw Failure(1, "", failure);
    return body;
  }
};

std::string reasonOf(std::string bytes) {
  Document document;
  EXPECT_FALSE(document.loadBytes(std::move(bytes)));
  EXPECT_FALSE(document.node().first_child());
  return document.parseError().reason;
}

TEST(Document, KeepsEverythingThatAReaderMaySee) {
  const std::string text = "<?xml version='1.0' encoding=\"UTF-8\"?>"
                           "<?xml-stylesheet type=\"text/xsl\" href=\"a.xsl\"?><!--c-->"
                           "<xml xmlns:zem=\"u\">\n<b z=\"1\" a=\"2\"/>\n "
                           "<zem:Target><![CDATA[<x>]]> &amp; t</zem:Target><!-- d --></xml>";
  Document document;
  ASSERT_TRUE(document.loadBytes(text)) << document.parseError().reason;
  EXPECT_EQ(document.parseError().errorCode, 0);
  EXPECT_EQ(rawText(document.node()), text.substr(text.find("?>") + 2));
  EXPECT_STREQ(document.node().first_child().name(), "xml");
  EXPECT_EQ(document.node().first_child().type(), pugi::node_declaration);
  EXPECT_STREQ(document.root().name(), "xml");
}

TEST(Document, LineEndsBecomeLineFeedsAndAttributesAreNormalised) {
  Document document;
  ASSERT_TRUE(document.loadBytes("<a b='1\r\n2\t3&#10;4'>x\r\ny\rz<![CDATA[\r\n&amp;]]></a>"));
  const Node root = document.root();
  EXPECT_STREQ(root.attribute("b").value(), "1 2 3\n4");
  EXPECT_EQ(textOf(root), "x\ny\nz\n&amp;");
}

TEST(Document, NamesTheReasonWithLineAndColumn) {
  EXPECT_EQ(reasonOf("<a>\n<b>\n  < c/></b></a>"),
            "not well-formed (invalid token), line 3, column 4");
  EXPECT_EQ(reasonOf("<a>\n</b>"), "mismatched tag, line 2, column 3");
  EXPECT_EQ(reasonOf("<a b='1' b='2'/>"), "duplicate attribute, line 1, column 10");
  EXPECT_EQ(reasonOf(""), "no element found, line 1, column 1");
  EXPECT_EQ(reasonOf("<a/><b/>"), "junk after document element, line 1, column 5");
  EXPECT_EQ(reasonOf("<a>&e;</a>"), "undefined entity, line 1, column 4");
  // Columns count characters and not bytes.
  EXPECT_EQ(reasonOf("<a>é€𝄞<<</a>"), "not well-formed (invalid token), line 1, column 8");
}

TEST(Document, ErrorHasNumberLineAndColumnApart) {
  Document document;
  EXPECT_FALSE(document.loadXML("<a>\n <"));
  EXPECT_NE(document.parseError().errorCode, 0);
  EXPECT_EQ(document.parseError().line, 2u);
  EXPECT_EQ(document.parseError().column, 2u);
  ASSERT_TRUE(document.loadXML("<a/>"));
  EXPECT_EQ(document.parseError().errorCode, 0);
  EXPECT_EQ(document.parseError().reason, "");
}

TEST(Document, FailedLoadLeavesNothingOfTheLastDocument) {
  Document document;
  ASSERT_TRUE(document.loadXML("<a/>"));
  EXPECT_FALSE(document.loadXML("<b>"));
  EXPECT_FALSE(document.node().first_child());
  EXPECT_FALSE(document.selectSingleNode("//a"));
}

TEST(Document, RefusesNulBytesAndControlCharacters) {
  using namespace std::string_literals;
  EXPECT_EQ(reasonOf("<a>\n\0</a>"s), "not well-formed (invalid token), line 2, column 1");
  EXPECT_EQ(reasonOf("<a>\x01</a>"), "not well-formed (invalid token), line 1, column 4");
  EXPECT_EQ(reasonOf("<a>&#0;</a>"), "reference to invalid character number, line 1, column 4");
  EXPECT_EQ(reasonOf("<a/>\0"s), "not well-formed (invalid token), line 1, column 5");
}

TEST(Document, RefusesDeepNestingAtTheLimitAndNotBefore) {
  const auto nested = [](std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
      text += "<a>";
    for (std::size_t i = 0; i < depth; ++i)
      text += "</a>";
    return text;
  };
  Document document;
  EXPECT_TRUE(document.loadBytes(nested(512)));
  EXPECT_FALSE(document.loadBytes(nested(513)));
  EXPECT_EQ(document.parseError().errorCode, NestedTooDeep);
  EXPECT_EQ(document.parseError().reason,
            "elements are nested deeper than 512, line 1, column 1537");
  EXPECT_FALSE(document.loadBytes(nested(2'000'000)));
  EXPECT_FALSE(document.loadBytes("<!DOCTYPE a [<!ENTITY e 'x'>]>" + nested(513)));
  EXPECT_EQ(document.parseError().errorCode, NestedTooDeep);
  Document shallow(Limits{.depth = 2});
  EXPECT_TRUE(shallow.loadBytes(nested(2)));
  EXPECT_FALSE(shallow.loadBytes(nested(3)));
}

TEST(Document, ExpandsEntitiesOfTheInternalDtd) {
  Document document;
  ASSERT_TRUE(document.loadBytes("<!DOCTYPE a [\n<!ENTITY n 'N&#252;'>\n<!ENTITY m '[&n;]'>"
                                 "<!ENTITY x '<b c=\"&n;\">t</b>'><!ENTITY % p \"<!ENTITY q 'Q'>\">"
                                 "%p;<!ATTLIST a d CDATA 'default' k NMTOKEN #IMPLIED>"
                                 "<!-- gone --><?gone?>]>\n"
                                 "<a k='  v  ' e='&m;'>x&m;y&x;&q;</a>"))
      << document.parseError().reason;
  EXPECT_EQ(rawText(document.node()),
            "<a k=\"v\" e=\"[Nü]\" d=\"default\">x[Nü]y<b c=\"Nü\">t</b>Q</a>");
  EXPECT_EQ(document.lineOf(document.root()), 4u);
}

TEST(Document, RefusesEntityBombs) {
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 '0123456789'>";
  for (int i = 1; i < 12; ++i) {
    bomb += "<!ENTITY e" + std::to_string(i) + " '";
    for (int j = 0; j < 10; ++j)
      bomb += "&e" + std::to_string(i - 1) + ";";
    bomb += "'>\n";
  }
  for (const std::string body : {"<a>&e11;</a>", "<a b='&e11;'/>"}) {
    Document document;
    EXPECT_FALSE(document.loadBytes(bomb + "]>" + body));
    EXPECT_EQ(document.parseError().errorCode, EntitiesTooLarge);
    EXPECT_TRUE(document.parseError().reason.starts_with(
        "entities expand to more than 8388608 bytes, line "))
        << document.parseError().reason;
  }
  // The bound is on what is expanded: a million bytes pass, and do not where less is allowed.
  Document small(Limits{.entityBytes = 1000});
  Document document;
  EXPECT_TRUE(document.loadBytes(bomb + "]><a>&e5;</a>")) << document.parseError().reason;
  EXPECT_EQ(textOf(document.node()).size(), 1'000'000u);
  EXPECT_FALSE(small.loadBytes(bomb + "]><a>&e5;</a>"));
  EXPECT_TRUE(small.loadBytes(bomb + "]><a>&e1;</a>")) << small.parseError().reason;
}

TEST(Document, RefusesLongChainsOfEntities) {
  std::string chain = "<!DOCTYPE a [<!ENTITY e0 'x'>";
  for (int i = 1; i < 4096; ++i)
    chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
  Document document;
  EXPECT_TRUE(document.loadBytes(chain + "]><a b='&e4095;'>&e4095;</a>"))
      << document.parseError().reason;
  EXPECT_FALSE(document.loadBytes(chain + "<!ENTITY more ''>]><a/>"));
  EXPECT_EQ(document.parseError().errorCode, EntitiesTooLarge);
  EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><a>&a;</a>"),
            "recursive entity reference, line 1, column 53");
}

TEST(Document, ReadsNothingExternal) {
  const std::string secret = KELMAR_TEST_DATA "/encodings/utf8.xml";
  Document document;
  // Declared and not used: nothing is missing.
  EXPECT_TRUE(document.loadBytes("<!DOCTYPE a [<!ENTITY e SYSTEM '" + secret + "'>]><a/>"));
  EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>&e;</a>"),
            "external entity 'file:///etc/hostname' is not read, line 1, column 60");
  EXPECT_TRUE(reasonOf("<!DOCTYPE a SYSTEM 'a.dtd'><a/>")
                  .starts_with("external DTD 'a.dtd' is not read, line 1"));
  EXPECT_TRUE(reasonOf("<!DOCTYPE a [<!ENTITY % p SYSTEM 'http://localhost/p'>%p;]><a/>")
                  .starts_with("external DTD 'http://localhost/p' is not read, line 1"));
  // What the unread part might declare is never dropped silently.
  EXPECT_NE(reasonOf("<!DOCTYPE a PUBLIC 'id' 'a.dtd' [<!ENTITY e 'x'>]><a b='&f;'/>"), "");
}

TEST(Document, AHugeAttributeLoadsOrIsRefused) {
  std::string text = "<a b='";
  text.append(100'000'000, 'x');
  text += "'/>";
  Document document;
  if (document.loadBytes(std::move(text)))
    EXPECT_EQ(std::string_view(document.node().first_child().attribute("b").value()).size(),
              100'000'000u);
  else
    EXPECT_NE(document.parseError().reason, "");
}

TEST(Document, UndeclaredPrefixesAreJustNames) {
  Document document;
  ASSERT_TRUE(document.loadXML("<xml><zem:Target zem:a='1'/></xml>"));
  EXPECT_TRUE(document.selectSingleNode("xml/zem:Target[@zem:a='1']"));
}

TEST(Document, LoadXmlIgnoresTheEncodingNamedInside) {
  Document document;
  ASSERT_TRUE(document.loadXML("<?xml version='1.0' encoding='windows-1252'?><a>é€</a>"));
  EXPECT_EQ(textOf(document.node()), "é€");
  ASSERT_TRUE(document.loadXML("<?xml version='1.0' encoding='no-such-thing'?><a>é</a>"));
  ASSERT_TRUE(document.loadXML("<?xml version='1.0' encoding='UTF-16'?><a>é</a>"));
  ASSERT_TRUE(document.loadXML("\xEF\xBB\xBF<a>é</a>"));
}

TEST(Document, HttpAddressesGoThroughTheFetch) {
  FakeFetch fetch;
  fetch.body = "<a>1</a>";
  Document document;
  ASSERT_TRUE(document.load("HTTP://host/a.xml", &fetch));
  EXPECT_EQ(fetch.asked, std::vector<std::string>{"HTTP://host/a.xml"});
  EXPECT_EQ(textOf(document.node()), "1");
  fetch.failure = "The server answered 404";
  EXPECT_FALSE(document.load("https://host/a.xml", &fetch));
  EXPECT_EQ(document.parseError().reason, "The server answered 404");
  EXPECT_EQ(document.parseError().errorCode, NotReadable);
  EXPECT_FALSE(document.load("http://host/a.xml"));
  EXPECT_EQ(document.parseError().reason, "http://host/a.xml: no network access here");
  // Half a file is no file.
  fetch.failure.clear();
  fetch.body = "<a>1</";
  EXPECT_FALSE(document.load("http://host/a.xml", &fetch));
  EXPECT_EQ(document.parseError().reason, "unclosed token, line 1, column 5");
}

TEST(Document, LineOfKnowsEveryKindOfNode) {
  const std::string text = "<?xml version='1.0'?>\n<!--a-->\r\n<r\n x='&#10;'>\r<b/>\n\n<?p d?>text"
                           "<![CDATA[\n]]></r>";
  for (const std::string dtd : {"", "<!DOCTYPE r [<!ENTITY e ''>]>"}) {
    Document document;
    std::string source = text;
    source.insert(source.find("<!--"), dtd);
    ASSERT_TRUE(document.loadBytes(source));
    const Node root = document.root();
    EXPECT_EQ(document.lineOf(document.node().first_child()), 1u);
    EXPECT_EQ(document.lineOf(document.node().child("r").previous_sibling()), 2u);
    EXPECT_EQ(document.lineOf(root), 3u);
    EXPECT_EQ(document.lineOf(root.child("b")), 5u);
    EXPECT_EQ(document.lineOf(root.child("p")), 7u);
    EXPECT_EQ(document.lineOf(root.last_child()), 7u);
    EXPECT_EQ(document.lineOf(root.last_child().previous_sibling()), 7u);
    EXPECT_EQ(document.lineOf(document.node()), 0u);
    EXPECT_EQ(document.lineOf(Node()), 0u);
    Document other;
    ASSERT_TRUE(other.loadXML("\n<a/>"));
    EXPECT_EQ(document.lineOf(other.node().first_child()), 0u);
  }
}

TEST(Document, DiscardTakesNodesOutAndKeepsTheLinesOfOthers) {
  for (const std::string dtd : {"", "<!DOCTYPE r [<!ENTITY e ''>]>"}) {
    Document document;
    ASSERT_TRUE(document.loadBytes(dtd + "<r>\n<a><b/></a>\n<c>t</c>\n<d/></r>",
                                   Whitespace::DropBetweenElements));
    Node root = document.root();
    document.discard(root.child("a"));
    EXPECT_FALSE(root.child("a"));
    EXPECT_EQ(textOf(root.child("c")), "t");
    EXPECT_EQ(document.lineOf(root.child("c")), 3u);
    EXPECT_EQ(document.lineOf(root.child("d")), 4u);
    document.discard(root.child("d"));
    document.discard(Node());
    document.discard(document.node());
    EXPECT_TRUE(root.child("c"));
  }
}

TEST(Document, MovesWithItsTree) {
  Document first;
  ASSERT_TRUE(first.loadXML("<a>t</a>"));
  Document second(std::move(first));
  EXPECT_EQ(textOf(second.node()), "t");
  EXPECT_FALSE(first.node()); // NOLINT: what is left behind may be asked
  EXPECT_EQ(first.lineOf(second.node().first_child()), 0u);
  first = std::move(second);
  EXPECT_EQ(textOf(first.node()), "t");
}

} // namespace
} // namespace kelmar::xml::testing
