// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "random_document.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace kelmar::xml::testing {
namespace {

constexpr unsigned documents = 3000;

// Every node of the tree in document order, but the document itself.
std::vector<Node> allNodes(Node top) {
  std::vector<Node> nodes;
  for (const Node child : top.children()) {
    nodes.push_back(child);
    const std::vector<Node> below = allNodes(child);
    nodes.insert(nodes.end(), below.begin(), below.end());
  }
  return nodes;
}

std::string firstLine(std::string text) {
  return text.substr(0, text.find('\n'));
}

TEST(RandomDocuments, InPlaceAndEventTreesAreEqual) {
  for (unsigned seed = 1; seed <= documents; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string body = RandomDocument(seed).body();
    Document inPlace, fromEvents;
    ASSERT_TRUE(inPlace.loadBytes("<!-- -->" + body)) << inPlace.parseError().reason << "\n"
                                                      << body;
    // A DTD that declares nothing of use changes the way and not the tree.
    ASSERT_TRUE(fromEvents.loadBytes("<!DOCTYPE any [<!ENTITY unused 'x'>]><!-- -->" + body))
        << fromEvents.parseError().reason << "\n"
        << body;
    ASSERT_EQ(rawText(inPlace.node()), rawText(fromEvents.node())) << body;
  }
}

TEST(RandomDocuments, LinesAreThoseOfTheSlowCountOnBothWays) {
  for (unsigned seed = 1; seed <= documents; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    // Marks tell each element apart; their places in the source give its line.
    std::string body = RandomDocument(seed).body();
    const std::string mark = "<mark n='";
    std::string marked;
    unsigned count = 0;
    for (std::size_t i = 0; i < body.size(); ++i) {
      marked += body[i];
      // Behind an end tag's ">" that is followed by another end tag we are inside an element.
      if (body[i] == '>' && body.compare(i + 1, 2, "</") == 0 && body.compare(i - 2, 2, "]]") != 0)
        marked += mark + std::to_string(count++) + "'/>";
    }
    for (const std::string dtd : {"", "<!DOCTYPE any [<!ENTITY unused 'x'>]>"}) {
      const std::string source = dtd + marked;
      Document document;
      if (!document.loadBytes(source)) continue; // a mark inside a comment or CDATA may break it
      for (const Node element : document.selectNodes("//mark")) {
        const std::size_t place = source.find(mark + element.attribute("n").value() + "'");
        ASSERT_NE(place, std::string::npos);
        std::size_t line = 1;
        for (std::size_t i = 0; i < place; ++i)
          if (source[i] == '\n' || (source[i] == '\r' && source[i + 1] != '\n')) ++line;
        ASSERT_EQ(document.lineOf(element), line) << source;
      }
    }
  }
}

TEST(RandomDocuments, BothWaysNameTheSameLineForEveryNode) {
  for (unsigned seed = 1; seed <= documents; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string body = RandomDocument(seed).body();
    Document inPlace, fromEvents;
    ASSERT_TRUE(inPlace.loadBytes(body));
    ASSERT_TRUE(fromEvents.loadBytes("<!DOCTYPE any [<!ENTITY unused 'x'>]>" + body));
    const auto a = allNodes(inPlace.node()), b = allNodes(fromEvents.node());
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
      // A text that begins with CR LF: one way sees its first byte, the other its first event.
      if (a[i].type() == pugi::node_pcdata) continue;
      ASSERT_EQ(inPlace.lineOf(a[i]), fromEvents.lineOf(b[i]))
          << firstLine(rawText(a[i].parent())) << "\n"
          << body;
    }
  }
}

TEST(RandomDocuments, WithoutWhiteSpaceBetweenElementsNoTextChanges) {
  unsigned smaller = 0;
  for (unsigned seed = 1; seed <= documents; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string body = RandomDocument(seed).body();
    Document all, few;
    ASSERT_TRUE(all.loadBytes(body));
    ASSERT_TRUE(few.loadBytes(body, Whitespace::DropBetweenElements));
    const auto a = all.selectNodes("//*"), b = few.selectNodes("//*");
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
      const auto isText = [](Node node) {
        return node.type() == pugi::node_cdata ||
               (node.type() == pugi::node_pcdata &&
                std::string_view(node.value()).find_first_not_of(" \t\r\n") !=
                    std::string_view::npos);
      };
      bool holdsText = false, holdsElement = false;
      for (const Node child : a[i].children()) {
        holdsText = holdsText || isText(child);
        holdsElement = holdsElement || child.type() == pugi::node_element;
      }
      if (holdsText || !holdsElement) {
        ASSERT_EQ(textOf(a[i]), textOf(b[i])) << body;
      }
    }
    ASSERT_EQ(all.selectNodes("//node()[not(self::text())]").size(),
              few.selectNodes("//node()[not(self::text())]").size());
    if (allNodes(few.node()).size() < allNodes(all.node()).size()) ++smaller;
  }
  EXPECT_GT(smaller, documents / 100) << "nothing was ever left out";
}

TEST(RandomDocuments, CutAnywhereOrWithFlippedBitsNeverCrashes) {
  std::mt19937 random(20261121);
  unsigned refused = 0, taken = 0;
  for (unsigned round = 0; round < 20000; ++round) {
    std::string body = RandomDocument(round % 400 + 1).body();
    if (round % 2 == 0) {
      body.resize(random() % (body.size() + 1));
    } else {
      for (unsigned flips = 1 + random() % 3; flips-- > 0;)
        body[random() % body.size()] ^= static_cast<char>(1u << random() % 8);
    }
    Document document;
    if (document.loadBytes(body,
                           round % 3 == 0 ? Whitespace::Keep : Whitespace::DropBetweenElements)) {
      ++taken;
      for (const Node node : allNodes(document.node()))
        document.lineOf(node);
    } else {
      ++refused;
      ASSERT_NE(document.parseError().errorCode, 0);
      ASSERT_GT(document.parseError().line, 0u) << document.parseError().reason;
      ASSERT_FALSE(document.node().first_child());
    }
  }
  EXPECT_GT(refused, 1000u);
  EXPECT_GT(taken, 100u);
}

} // namespace
} // namespace kelmar::xml::testing
