// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/page_address.h"

#include <gtest/gtest.h>

namespace kelmar::frame {

TEST(PathToUrl, ReplacesSlashBackslashAndBlankInThisOrder) {
  EXPECT_EQ(PathToUrl("C:\\My data\\a b.xml"), "C:/My%20data/a%20b.xml");
  EXPECT_EQ(PathToUrl("a/b\\c"), "a%2Eb/c");
  EXPECT_EQ(PathToUrl(""), "");
}

TEST(IsLocalPath, FiveCharactersOrNoPrefixMakeAPath) {
  EXPECT_TRUE(isLocalPath("a.xml"));
  EXPECT_TRUE(isLocalPath("http:"));
  EXPECT_TRUE(isLocalPath("éàéàé"));
  EXPECT_TRUE(isLocalPath("C:\\data"));
  EXPECT_FALSE(isLocalPath("HTTP://x"));
  EXPECT_FALSE(isLocalPath("File:///x"));
  EXPECT_TRUE(isLocalPath("https://x"));
}

TEST(PathForUrl, BringsAPathOfThisMachineIntoTheFormOfAddresses) {
  EXPECT_EQ(PathToUrl(pathForUrl("/home/me/my site")), "home/me/my%20site");
  EXPECT_EQ(PathToUrl(pathForUrl("relative/x")), "relative/x");
  EXPECT_EQ(PathToUrl(pathForUrl("/50%/#1/a?b/c\\d")), "50%25/%231/a%3Fb/c%5Cd");
}

TEST(CheckReportAddress, JoinsRootAndEcu) {
  EXPECT_EQ(checkReportAddress("C:\\Site one", "D:\\ecu a.xml"),
            "file:///C:/Site%20one/report/showEcus.htm#D:/ecu%20a.xml");
}

TEST(CheckReportAddress, EcuOfFiveCharactersIsAPath) {
  EXPECT_EQ(checkReportAddress("C:\\Site", "file:"), "file:///C:/Site/report/showEcus.htm#file:");
  EXPECT_EQ(checkReportAddress("C:\\Site", "a\\b c"),
            "file:///C:/Site/report/showEcus.htm#a/b%20c");
  EXPECT_EQ(checkReportAddress("C:\\Site", "http://host/a b.xml"),
            "file:///C:/Site/report/showEcus.htm#http://host/a b.xml");
}

TEST(CheckReportAddress, PutsTheFilePrefixBeforeAnHttpRootToo) {
  EXPECT_EQ(checkReportAddress("http://host/site", "e.xml"),
            "file:///http://host/site/report/showEcus.htm#e.xml");
  EXPECT_EQ(checkReportAddress("file:///site", "e.xml"),
            "file:///file:///site/report/showEcus.htm#e.xml");
}

TEST(HelpAddress, NamesModuleAndFunction) {
  EXPECT_EQ(helpAddress("C:\\My site", "en", "selector", "open"),
            "file:///C:/My%20site/doc/kelmar/en/selector.htm#open");
  EXPECT_EQ(helpAddress("http://host/site", "fr", "selector", "open"),
            "http://host/site/doc/kelmar/fr/selector.htm#open");
  EXPECT_EQ(helpAddress("FILE:///site", "fr", "selector", "open"),
            "FILE:///site/doc/kelmar/fr/selector.htm#open");
}

TEST(HelpAddress, WithoutFunctionEndsAtThePage) {
  EXPECT_EQ(helpAddress("C:\\Site", "en", "selector", ""),
            "file:///C:/Site/doc/kelmar/en/selector.htm");
}

TEST(HelpAddress, WithoutModuleIsNone) {
  EXPECT_EQ(helpAddress("C:\\Site", "en", "", "open"), "");
}

} // namespace kelmar::frame
