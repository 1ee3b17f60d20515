// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "frame/rules/permanent_link.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

CECUpermalink linkOn(std::optional<std::string> server) {
  return CECUpermalink([server] { return server; });
}

TEST(UrlEncode, KeepsWhatNeedsNoCode) {
  EXPECT_EQ("azAZ09-_.!~*'()", UrlEncode("azAZ09-_.!~*'()"));
  EXPECT_EQ("", UrlEncode(""));
}

TEST(UrlEncode, TurnsABlankIntoPlus) {
  EXPECT_EQ("a+b", UrlEncode("a b"));
}

TEST(UrlEncode, WritesOtherCharactersByTheirCode) {
  EXPECT_EQ("%E9", UrlEncode("é"));
  EXPECT_EQ("%2B%25%26%2F", UrlEncode("+%&/"));
  EXPECT_EQ("%0A", UrlEncode("\n"));
  EXPECT_EQ("%20AC", UrlEncode("€"));
}

TEST(PermanentLink, BeforeAnyIsMadeRaises) {
  try {
    linkOn("http://server").permaLink();
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ("createPermanentLinkForECU must be called first", failure.text);
  }
}

TEST(PermanentLink, ToAnEcuAndToAFile) {
  CECUpermalink link = linkOn("http://server");
  link.createPermanentLinkForECU("Engine é");
  EXPECT_EQ("http://server/getECUfile.asp?ecu=Engine+%E9", link.permaLink());
  link.createPermanentLinkForECUFile("a/b.xml");
  EXPECT_EQ("http://server/getECUfile.asp?file=a%2Fb.xml", link.permaLink());
}

TEST(PermanentLink, WithoutServerStaysAsItWas) {
  std::optional<std::string> server = "http://server";
  CECUpermalink link([&server] { return server; });
  link.createPermanentLinkForECU("a");
  server.reset();
  link.createPermanentLinkForECU("b");
  EXPECT_EQ("http://server/getECUfile.asp?ecu=a", link.permaLink());
  CECUpermalink none = linkOn(std::nullopt);
  none.createPermanentLinkForECUFile("a");
  EXPECT_THROW(none.permaLink(), Failure);
}

} // namespace
} // namespace kelmar
