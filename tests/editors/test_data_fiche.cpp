// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/code_page.h"
#include "editors/rules/datas/fiche.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

/// What a person reads of the HTML.
std::string textOf(const std::string& html) {
  std::string text;
  bool inTag = false;
  for (const char c : html) {
    if (c == '<') inTag = true;
    if (!inTag) text += c;
    if (c == '>') inTag = false;
  }
  return text;
}

TEST(Fiche, IsToldByItsContent) {
  EXPECT_EQ(ficheKind("{\\rtf1 a}"), FicheKind::RichText);
  EXPECT_EQ(ficheKind("<P>text</P>"), FicheKind::Page);
  EXPECT_EQ(ficheKind("<DIV>text</DIV>"), FicheKind::Page);
  EXPECT_EQ(ficheKind("<p>text</p>"), FicheKind::Plain);
  EXPECT_EQ(ficheKind(""), FicheKind::Plain);
  EXPECT_EQ(fichePage("<P>a</P>"), "<html> <P>a</P> </html>");
}

TEST(RichText, KeepsCharactersParagraphsAndLooks) {
  const std::string html = richTextToHtml(
      "{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue16;}\\fs24 plain {\\b bold} {\\i\\ul "
      "both} \\cf1 red\\cf0\\par\\pard second\\line third}");
  EXPECT_EQ(textOf(html), "plain bold both redsecondthird");
  EXPECT_NE(html.find("font-size:12pt;"), html.npos);
  EXPECT_NE(html.find("font-weight:bold;"), html.npos);
  EXPECT_NE(html.find("font-style:italic;text-decoration: underline;"), html.npos);
  EXPECT_NE(html.find("color:#ff0010;"), html.npos);
  EXPECT_NE(html.find("</p><p"), html.npos);
  EXPECT_NE(html.find("<br/>"), html.npos);
}

TEST(RichText, ReadsCodePagesAndNumbers) {
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1\\ansicpg1252 \\'e9t\\'e9 \\'80}")), "été €");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1\\ansicpg1251 \\'cf}")), "П");
  EXPECT_EQ(textOf(richTextToHtml(
                "{\\rtf1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}\\f1\\'cf\\f0\\'e9}")),
            "Пé");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1 \\u937?\\u-10179?\\u-8704?.}")), "Ω😀.");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1\\uc2 \\u937\\'81\\'82x}")), "Ωx");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1 \\u-8704?x}")), "\xEF\xBF\xBDx");
}

TEST(RichText, BulletsBecomeAList) {
  const std::string html = richTextToHtml(
      "{\\rtf1{\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt}first\\par}\\pard after\\par}");
  EXPECT_NE(html.find("<li>"), html.npos);
  EXPECT_EQ(textOf(html), "firstafter");
}

TEST(RichText, WhatIsHiddenStaysHiddenAndTheRestFallsBackToText) {
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1{\\stylesheet{\\s1 Normal;}}{\\info{\\author A}}"
                                  "{\\*\\generator X;}{\\pict\\pngblip 8950}a\\trowd\\unknown7 "
                                  "b\\{c\\}\\\\}")),
            "ab{c}\\");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1 a<script>b&c}")), "a&lt;script&gt;b&amp;c");
  EXPECT_EQ(textOf(richTextToHtml("{\\rtf1 a\\bin3 }}}b}")), "ab");
}

TEST(RichText, BrokenTextNeverFails) {
  for (const char* text :
       {"{\\rtf1", "{\\rtf1\\", "{\\rtf1 \\'", "{\\rtf1 \\'z", "{\\rtf1 }}}} a", "{\\rtf1 \\u",
        "{\\rtf1\\bin99999999999 x", "{\\rtf1\\bin-5 x", "{\\rtf1\\fs-3\\cf999 x", "\\rtf", ""})
    EXPECT_FALSE(richTextToHtml(text).empty());
  EXPECT_FALSE(richTextToHtml("{\\rtf1" + std::string(100000, '{')).empty());
}

TEST(CodePage, UnknownPagesCountAs1252) {
  EXPECT_EQ(fromCodePage(99999, "\xE9"), "é");
  EXPECT_EQ(fromCodePage(1252, "\x81 x"), "\xEF\xBF\xBD x");
  EXPECT_EQ(codePageOfCharset(204, 0), 1251);
  EXPECT_EQ(codePageOfCharset(0, 7), 7);
  EXPECT_EQ(fromCodePage(1252, std::string(1000, '\xE9')).size(), 2000u);
}

} // namespace
} // namespace kelmar
