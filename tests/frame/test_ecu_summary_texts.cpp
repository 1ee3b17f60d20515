// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/version.h"
#include "frame/rules/selector_match_text.h"
#include "frame/rules/selector_recent_menu.h"
#include "frame/rules/selector_state.h"
#include "frame/rules/selector_texts.h"
#include "language/multi_lang.h"
#include "platform/recent_entries.h"
#include "support/machine_doubles.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace kelmar {
namespace {

const CMultiLangEx noFile;

TEST(SelectorTexts, FileLabel_ShowsThePathAsItIs) {
  EXPECT_EQ("File name : /a/{0}{crlf}.xml", fileLabel(noFile, "/a/{0}{crlf}.xml"));
}

TEST(SelectorTexts, RemoteFileLabel_IsDataSetAndLastSegment) {
  EXPECT_EQ("[Demonstration] b c.xml", remoteFileLabel("Demonstration", "http://host/a/b c.xml"));
  EXPECT_EQ("plain", lastSegment("plain"));
  EXPECT_EQ("", lastSegment("a/"));
}

TEST(SelectorTexts, RemoteAddress_IsHttpOrFileInAnyCase) {
  for (const char* address : {"http://x", "HTTP://x", "https://x", "file:///x", "File:/x"})
    EXPECT_TRUE(isRemoteAddress(address)) << address;
  for (const char* address : {"/http:/x", "x.xml", "https", ""})
    EXPECT_FALSE(isRemoteAddress(address)) << address;
  EXPECT_TRUE(isHttpAddress("hTTp://x"));
  EXPECT_FALSE(isHttpAddress("file:///x"));
  EXPECT_TRUE(isWebAddress("Https://x"));
  EXPECT_FALSE(isWebAddress("file:///x"));
}

TEST(SelectorTexts, Selection_HasALineAndWidensLineFeeds) {
  EXPECT_EQ("Filename: e.xml\r\n--------------------\r\nName\r\nMode",
            selectionText(noFile, "a/b/e.xml", "Name\nMode"));
}

TEST(SelectorTexts, HiddenFunction_TellsVersionAndAddresses) {
  EXPECT_EQ(std::string("Kelmar Version : 1.0.0.0\r\nCopyright : ") + applicationCopyright +
                "\r\nBaseUrl = b\r\nXmlStyleSheet = s\r\nXmlSchemaTarget = t\r\n"
                "XmlSchemaScreen = c",
            hiddenFunctionText(noFile, {"1.0.0.0", "b", "s", "t", "c"}));
}

TEST(MatchText, OfEachCode) {
  struct Row {
    int code;
    const char* text;
  };
  const Row rows[] = {
      {0, "Identification exact match"},
      {1, "Only one ECU for this function"},
      {2, "ECU detected with a different software version"},
      {3, "ECU detected with a different software version"},
      {4, "ECU detected with a different diagnostic version"},
      {5, "ECU detected with a different diagnostic and software version"},
      {6, "ECU detected with a different diagnostic and software version"},
      {7, ""},
      {8, ""},
      {9, ""},
      {10, "Different protocol. Identification exact match"},
      {11, "Different protocol. Only one ECU for this function"},
      {12, "Different protocol. ECU detected with a different software version"},
      {13, "Different protocol. ECU detected with a different software version"},
      {14, "Different protocol. ECU detected with a different diagnostic version"},
      {15, "Different protocol. ECU detected with a different diagnostic and software version"},
      {16, "Different protocol. ECU detected with a different diagnostic and software version"},
      {17, ""},
  };
  for (const Row& row : rows)
    EXPECT_EQ(row.text, matchText(noFile, row.code, "a.xml")) << row.code;
}

TEST(MatchText, WithoutAddressIsNoMatchWhateverTheCode) {
  EXPECT_EQ("No match", matchText(noFile, 0, ""));
  EXPECT_EQ("No match", matchText(noFile, 16, ""));
}

TEST(RecentFileEntries, KeepTheirNumberWhenAFileIsGone) {
  support::TempFolder folder;
  support::MemorySettings settings;
  const std::string first = folder.write("one.xml", "1");
  const std::string third = folder.write("three.xml", "3");
  settings.write(std::string(platform::kelmarSettings) + "RecentFile1", first);
  settings.write(std::string(platform::kelmarSettings) + "RecentFile2", folder.file("gone.xml"));
  settings.write(std::string(platform::kelmarSettings) + "RecentFile3", third);
  settings.write(std::string(platform::kelmarSettings) + "RecentFile4", folder.path().string());
  EXPECT_EQ((std::vector<RecentFileEntry>{{"k1", first}, {"k3", third}}),
            recentFileEntries(settings));
}

TEST(RecentFileEntries, WhoseExistenceCannotBeFoundOutStay) {
  support::MemorySettings settings;
  const std::string endless(5000, 'n'); // a name too long for the system: the question itself fails
  settings.write(std::string(platform::kelmarSettings) + "RecentFile1", "/" + endless);
  EXPECT_EQ((std::vector<RecentFileEntry>{{"k1", "/" + endless}}), recentFileEntries(settings));
}

std::string namesOf(const SelectorControls& controls) {
  std::string names;
  const auto add = [&names](bool on, const char* name) {
    if (on) names += (names.empty() ? "" : " ") + std::string(name);
  };
  add(controls.TBtoolbar, "toolbar");
  add(controls.ecuSelector1, "tree");
  add(controls.save, "save");
  add(controls.cancel, "cancel");
  add(controls.TxEcuName, "name");
  add(controls.txGenericName, "group");
  add(controls.lstProjects, "projects");
  add(controls.LabelFunction, "function");
  add(controls.cmdLinkNewPDM, "link");
  add(controls.changeFunctionShown, "change");
  add(controls.cmdChangeFunctionOK, "ok");
  add(controls.newEcuShown, "panel");
  add(controls.detectShown, "detect");
  add(controls.reportShown, "report");
  return names;
}

TEST(SelectorState, DecidesWhichControlsMayBeUsed) {
  struct Row {
    SelectorState state;
    const char* controls;
  };
  const Row rows[] = {
      {{}, "toolbar tree detect"},
      {{.projectsKnown = true}, "toolbar tree detect"},
      {{.httpAddress = true}, "toolbar tree detect"},
      {{.itemsNotKept = true}, "toolbar tree detect"},
      {{.edited = true}, "toolbar tree detect"},
      {{.creating = true}, "name panel"},
      {{.ecuOpen = true,
        .creating = true,
        .edited = true,
        .changingFunction = true,
        .httpAddress = true,
        .projectsKnown = true,
        .itemsNotKept = true},
       "name panel"},
      {{.ecuOpen = true}, "toolbar tree save name group function detect"},
      {{.ecuOpen = true, .edited = true}, "toolbar tree save cancel name group function detect"},
      {{.ecuOpen = true, .projectsKnown = true},
       "toolbar tree save name group projects function detect"},
      {{.ecuOpen = true, .httpAddress = true}, "toolbar tree save name group function link detect"},
      {{.ecuOpen = true, .functionChosen = true}, "toolbar tree save name group function detect"},
      {{.ecuOpen = true, .changingFunction = true},
       "toolbar tree save name group function change detect"},
      {{.ecuOpen = true, .changingFunction = true, .functionChosen = true},
       "toolbar tree save name group function change ok detect"},
      {{.ecuOpen = true, .itemsNotKept = true},
       "toolbar tree save name group function detect report"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(row.controls, namesOf(controlsFor(row.state))) << &row - rows;
}

} // namespace
} // namespace kelmar
