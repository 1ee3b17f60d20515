// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

TEST(Text, TrimBlanks_LeavesOtherWhiteSpace) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("\ta\n"), "\ta\n");
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(trimBlanks(""), "");
}

TEST(Text, LineEnds_AreWidenedAndNormalised) {
  EXPECT_EQ(widenLineFeeds("a\nb\r\nc"), "a\r\nb\r\r\nc"); // every line feed, on purpose
  EXPECT_EQ(normaliseLineEnds("a\nb\r\nc\rd\r\r\n"), "a\r\nb\r\nc\r\nd\r\n\r\n");
  EXPECT_EQ(normaliseLineEnds(""), "");
}

TEST(Text, ReplaceAllAndSplit_WalkFromTheLeft) {
  EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(replaceAll("a.b.", ".", ""), "ab");
  EXPECT_EQ(split("a,b,,c", ","), (std::vector<std::string>{"a", "b", "", "c"}));
  EXPECT_EQ(split("", ","), std::vector<std::string>{""});
  EXPECT_EQ(split("a\r\nb", "\r\n"), (std::vector<std::string>{"a", "b"}));
}

TEST(Text, Cases_WorkCharacterByCharacter) {
  EXPECT_EQ(foldCase("ABC-xyz-09"), "abc-xyz-09");
  EXPECT_EQ(foldCase("ÉÀÜ"), foldCase("éàü"));
  EXPECT_EQ(foldCase("ΣΑΣ"), foldCase("σας"));
  EXPECT_EQ(upperCase("éa ß"), "ÉA ß"); // one character stays one character
  EXPECT_EQ(lowerCase("ÉA"), "éa");
  EXPECT_EQ(foldCase(""), "");
}

TEST(Text, CodePoints_ReplaceWhatIsMalformed) {
  EXPECT_EQ(toCodePoints("aé€😀"), U"aé€😀");
  EXPECT_EQ(fromCodePoints(U"aé€😀"), "aé€😀");
  EXPECT_EQ(toCodePoints("a\xFFz"), U"a\uFFFDz");
  EXPECT_EQ(toCodePoints("\xC3"), U"\uFFFD");
  EXPECT_EQ(toCodePoints("\xE2\x82"), U"\uFFFD\uFFFD");
  EXPECT_EQ(toCodePoints("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD"); // half of a surrogate pair
  std::string text;
  appendCodePoint(text, 0xD800);
  appendCodePoint(text, 0x110000);
  EXPECT_EQ(text, "\uFFFD\uFFFD");
}

TEST(Text, CountsAndCutsAreOfCharacters) {
  EXPECT_EQ(characterCount("é€a"), 3u);
  EXPECT_EQ(rightmost("aé€", 2), "é€");
  EXPECT_EQ(rightmost("é", 5), "é");
  EXPECT_EQ(rightmost("é", 0), "");
}

TEST(Text, HexText_HasNoLeadingZerosAndWrapsNegatives) {
  EXPECT_EQ(hexText(0), "0");
  EXPECT_EQ(hexText(255), "FF");
  EXPECT_EQ(hexText(2016), "7E0");
  EXPECT_EQ(hexText(-1), "FFFFFFFF");
}

TEST(Text, StartsWithFolded_IgnoresCaseOfAscii) {
  EXPECT_TRUE(startsWithFolded("HTTP://x", "http:"));
  EXPECT_FALSE(startsWithFolded("htt", "http:"));
  EXPECT_TRUE(startsWithFolded("x", ""));
}

TEST(Names, CleanSpaces_LeavesSingleBlanks) {
  EXPECT_EQ(CleanSpaces("  a    b  "), "a b");
  EXPECT_EQ(CleanSpaces("a b"), "a b");
  EXPECT_EQ(CleanSpaces("   "), "");
}

TEST(Names, SemicolonsToUnderscores_TurnsEach) {
  EXPECT_EQ(SemicolonsToUnderscores(";a;;b"), "_a__b");
}

TEST(Names, MakeFileSafeName_LeavesPointsAndTurnsBlanks) {
  EXPECT_EQ(MakeFileSafeName("a b.c"), "a_b.c");
}

TEST(Names, MakeFileSafeName_WalksTheWholeTableByCharacters) {
  EXPECT_EQ(MakeFileSafeName(" ,/\\&+-%#=|*!:;?§$£€²éèêëàâäçùûüîï"),
            "____________________2eeeeaaacuuuii");
  EXPECT_EQ(MakeFileSafeName("Żółw ÉÀ"), "Żółw_ÉÀ"); // nothing else changes, no byte is torn
}

TEST(Names, CapitalizeWords_RaisesBehindBlankPointUnderscoreAndMinus) {
  EXPECT_EQ(CapitalizeWords("injector_left.value-x", false), "Injector_Left.Value-X");
  EXPECT_EQ(CapitalizeWords("", true), "");
  EXPECT_EQ(CapitalizeWords("ABC def", false), "ABC Def");
  EXPECT_EQ(CapitalizeWords("ABC DEF", true), "Abc Def");
  EXPECT_EQ(CapitalizeWords("élan été", false), "Élan Été");
  EXPECT_EQ(CapitalizeWords("ÉLAN", true), "Élan");
  EXPECT_EQ(CapitalizeWords("a__b", false), "A__B");
}

TEST(Names, ComplementDigits_TurnsDigitsAndMinus) {
  EXPECT_EQ(ComplementDigits("-0012.50"), " 9987.49");
  EXPECT_EQ(ComplementDigits("aé9"), "aé0");
}

TEST(Names, SanitizeRelativePath_CannotClimb) {
  const struct {
    const char* text;
    const char* path;
  } rows[] = {
      {"a\\b.xml", "a\\b.xml"},
      {"..\\..\\secret", "secret"},
      {"\\\\server\\share", "server\\share"},
      {"a\\\\\\b", "a\\b"},
      {"C:\\x", "C\\x"},
      {"\\", ""},
      {"", ""},
      {"....", "."},
      {"a/b c*d", "abcd"},
      {"é.xml", ".xml"},
      {"a\\.*.", "a\\."},
      {".*.", "."},
      {"../..", "."},
      {"name.\\x", "name\\x"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(SanitizeRelativePath(row.text), row.path) << row.text;
}

TEST(Names, SanitizeRelativePath_NeverKeepsTwoPointsInARow) {
  // All texts of six characters over the few that matter.
  const std::string alphabet = ".\\*a";
  for (int number = 0; number < 4096; ++number) {
    std::string text;
    for (int i = 0, rest = number; i < 6; ++i, rest /= 4)
      text += alphabet[static_cast<std::size_t>(rest % 4)];
    const std::string path = SanitizeRelativePath(text);
    EXPECT_EQ(path.find(".."), std::string::npos) << text;
    EXPECT_TRUE(path.empty() || path.front() != '\\') << text << " gives " << path;
  }
}

} // namespace
} // namespace kelmar
