// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "language/error_box.h"
#include "language/multi_lang.h"
#include "platform/site_settings.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

constexpr char languageFile[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<software>
 <T>
  <both xml:lang="en">hello</both><both xml:lang="fr">bonjour</both><both>neutral</both>
  <english xml:lang="en">only English</english>
  <plain>plain {0}{crlf}</plain>
  <number>42</number><word>abc</word><faux>Faux </faux><no>no</no><zero> 0 </zero>
  <real>1.5</real><big>40000</big><empty/>
  <placed xml:lang="fr">{0}-{1}-{0}-{5}{6}</placed>
  <codes>{cr}|{lf}|{crlf}|{tab}|{\n}|{\t}|{br}|{other}</codes>
 </T>
 <availableLanguages>
  <item><caption>English</caption><key>en</key></item>
  <item><caption>Français</caption><key>fr</key></item>
  <item><caption>Nothing</caption></item>
 </availableLanguages>
 <Parameters><sorvaneAddressingFile>A.xml</sorvaneAddressingFile><n xml:lang="fr">7{tab}</n>
  <size>9</size></Parameters>
</software>)";

class MultiLang : public testing::Test {
 protected:
  MultiLang() {
    path = folder.write("texts.xml", languageFile);
    EXPECT_TRUE(texts.loadXmlLanguageFile(path));
    texts.language = "fr";
  }
  support::TempFolder folder;
  std::string path;
  CMultiLangEx texts;
};

TEST_F(MultiLang, Message_PrefersTheLanguageThenAnyElement) {
  EXPECT_EQ(texts.getMultilangMessage("T/both"), "bonjour");
  EXPECT_EQ(texts.getMultilangMessage("T/plain", "x"), "plain x\r\n");
  texts.language = "de";
  EXPECT_EQ(texts.getMultilangMessage("T/both"), "hello"); // the first, whatever its language
}

TEST_F(MultiLang, Message_GivesKeyAndParametersWhenThereIsNoText) {
  EXPECT_EQ(texts.getMultilangMessage("T/none", "a", "b{tab}"), "T/none a b{tab}    ");
  CMultiLangEx without;
  EXPECT_EQ(without.getMultilangMessage("T/both", "1", "2", "3", "4", "5", "6"),
            "T/both 1 2 3 4 5 6");
}

TEST_F(MultiLang, OnlyEnglish_IsTheMessageButNotTheMessageWithDefault) {
  EXPECT_EQ(texts.getMultilangMessage("T/english"), "only English");
  EXPECT_EQ(texts.getMultilangMessageDefault("in the code", "T/english"), "in the code");
}

TEST_F(MultiLang, MessageDefault_PrefersTheLanguageThenTheNeutralText) {
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/both"), "bonjour");
  texts.language = "de";
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/both"), "neutral");
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/none"), "d");
  EXPECT_EQ(texts.getMultilangMessageDefault(std::string("d"), "T/empty"), "");
  EXPECT_EQ(CMultiLangEx().getMultilangMessageDefault("d {0}", "T/both", "x"), "d x");
}

TEST_F(MultiLang, Parameters_AreReplacedOneAfterTheOther) {
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/placed", "a", "b", "", "", "", "f"),
            "a-b-a-f{6}");
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/placed", "{1}", "b"), "b-b-b-{6}");
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/placed", "a", "{0}"), "a-{0}-a-{6}");
  EXPECT_EQ(texts.getMultilangMessageDefault("{0}", "T/none", "{tab}"), "\t");
}

TEST_F(MultiLang, Codes_AreExpandedInFileAndDefaultAlike) {
  const std::string expanded = "\r|\n|\r\n|\t|\r\n|\t|<br/>|{other}";
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/codes"), expanded);
  EXPECT_EQ(
      texts.getMultilangMessageDefault("{cr}|{lf}|{crlf}|{tab}|{\\n}|{\\t}|{br}|{other}", "T/none"),
      expanded);
  EXPECT_EQ(texts.getMultilangMessage("T/codes"), expanded);
}

TEST_F(MultiLang, Numbers_HaveTheTypeOfTheDefault) {
  EXPECT_EQ(texts.getMultilangMessageDefault(12, "T/number"), 42);
  EXPECT_EQ(texts.getMultilangMessageDefault(12, "T/word"), 12);
  EXPECT_EQ(texts.getMultilangMessageDefault(12, "T/empty"), 12);
  EXPECT_EQ(texts.getMultilangMessageDefault(12, "T/none"), 12);
  EXPECT_EQ(texts.getMultilangMessageDefault(12, "T/big"), 40000);
  EXPECT_EQ(texts.getMultilangMessageDefault(std::int16_t{12}, "T/number"), 42);
  EXPECT_EQ(texts.getMultilangMessageDefault(std::int16_t{12}, "T/big"), 12);
  EXPECT_EQ(texts.getMultilangMessageDefault(0.25, "T/real"), 1.5);
  EXPECT_EQ(texts.getMultilangMessageDefault(0.25, "T/word"), 0.25);
  EXPECT_EQ(texts.getMultilangMessageDefault(1e-5, "T/none"), 1e-5);
}

TEST_F(MultiLang, Booleans_AreFalseForThreeWordsOnly) {
  EXPECT_FALSE(texts.getMultilangMessageDefault(true, "T/faux"));
  EXPECT_FALSE(texts.getMultilangMessageDefault(true, "T/zero"));
  EXPECT_TRUE(texts.getMultilangMessageDefault(true, "T/no"));
  EXPECT_TRUE(texts.getMultilangMessageDefault(false, "T/no"));
  EXPECT_TRUE(texts.getMultilangMessageDefault(true, "T/none"));
  EXPECT_FALSE(texts.getMultilangMessageDefault(false, "T/none"));
}

TEST_F(MultiLang, ParameterDefault_LooksAtNoLanguageAndExpandsNothing) {
  EXPECT_EQ(texts.getParameterDefault("d", "Parameters/n"), "7{tab}");
  EXPECT_EQ(texts.getParameterDefault("{tab}", "Parameters/none"), "{tab}");
  EXPECT_EQ(texts.getParameterDefault(std::string("d"), "Parameters/size"), "9");
  EXPECT_EQ(texts.getParameterDefault(3, "Parameters/size"), 9);
  EXPECT_EQ(texts.getParameterDefault(3, "Parameters/n"), 3);
  EXPECT_EQ(texts.getParameterDefault(std::int16_t{3}, "Parameters/size"), 9);
  EXPECT_EQ(texts.getParameterDefault(0.5, "Parameters/size"), 9.0);
  EXPECT_TRUE(texts.getParameterDefault(false, "Parameters/size"));
  EXPECT_EQ(CMultiLangEx().getParameterDefault("d", "Parameters/size"), "d");
}

TEST_F(MultiLang, ElementText_LooksForTheLanguageInLowerCase) {
  texts.language = "FR";
  const auto node = texts.xmlDoc()->selectSingleNode("/software/T").node();
  EXPECT_EQ(texts.getMultilangElementText(node, "both"), "bonjour");
  EXPECT_EQ(texts.getMultilangElementText(node, "english"), "only English");
  EXPECT_EQ(texts.getMultilangElementText(node, "none"), "");
  EXPECT_EQ(texts.getMultilangElementText({}, "both"), "");
}

TEST_F(MultiLang, QuotesInLanguageOrKey_FindNothingElse) {
  texts.language = "x' or '1'='1";
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/english"), "d");
  texts.language = "a'b\"c";
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/english"), "d");
  texts.language = "fr";
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/both['"), "d");
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T//"), "d");
  EXPECT_EQ(texts.getMultilangMessageDefault("d", ""), "d");
}

TEST_F(MultiLang, SubDir_HasSeparatorsAtBothEnds) {
  const struct {
    const char* set;
    const char* get;
  } rows[] = {{"lang", "/lang/"}, {"", "/lang/"},    {"  ", "/lang/"},
              {" /a ", "/a/"},    {"a/b/", "/a/b/"}, {"/", "/"}};
  for (const auto& row : rows) {
    texts.setLangFileSubDir(row.set);
    EXPECT_EQ(texts.langFileSubDir(), row.get) << row.set;
  }
}

TEST_F(MultiLang, Languages_AreListed) {
  std::string caption = "old", key = "old";
  EXPECT_EQ(texts.getLanguagesSupported(1, caption, key), 3);
  EXPECT_EQ(caption, "Français");
  EXPECT_EQ(key, "fr");
  EXPECT_EQ(texts.getLanguagesSupported(2, caption, key), 3);
  EXPECT_EQ(caption, "Nothing");
  EXPECT_EQ(key, "");
  for (const int index : {-1, 3}) {
    EXPECT_EQ(texts.getLanguagesSupported(index, caption, key), 3);
    EXPECT_EQ(caption + key, "");
  }
  EXPECT_EQ(CMultiLangEx().getLanguagesSupported(0, caption, key), 0);
  EXPECT_EQ(texts.languagesSupported().size(), 3u);
  CMultiLangEx other;
  EXPECT_TRUE(other.languagesSupported().empty());
  EXPECT_EQ(other.languagesSupported(path).size(), 3u);
  EXPECT_TRUE(other.languagesSupported(folder.file("none.xml")).empty());
}

TEST_F(MultiLang, LoadingAFileThatIsNone_DropsTheDocument) {
  EXPECT_NE(texts.xmlDoc(), nullptr);
  EXPECT_FALSE(texts.loadXmlLanguageFile(folder.write("broken.xml", "<software><a>")));
  EXPECT_EQ(texts.xmlDoc(), nullptr);
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/both"), "d");
  EXPECT_EQ(texts.langFileNameFull(), "");
}

TEST_F(MultiLang, InitLanguage_PrefersTheDataRootFolder) {
  folder.write("base/lang/K.xml", "<software><a>base</a></software>");
  folder.write("base/SORVANEAddressing.xml", "<Functions/>");
  platform::SiteStart start;
  start.site = folder.file("root");
  start.systemFile = "";
  platform::SiteSettings site(start);
  CMultiLangEx service(&site);
  service.initLanguage(folder.file("base"), "", "lang", "K.xml");
  EXPECT_EQ(service.language, "en");
  EXPECT_EQ(service.getMultilangMessage("a"), "base");
  EXPECT_EQ(service.langFileNameFull(), folder.file("base/lang/K.xml"));
  ASSERT_NE(service.addressingDocument(), nullptr);
  EXPECT_TRUE(service.addressingDocument()->selectSingleNode("/Functions"));

  folder.write("root/Omnikor/lang/K.xml", "<software><a>root</a></software>");
  service.initLanguage(folder.file("base"), "fr", "", "K.xml");
  EXPECT_EQ(service.language, "fr");
  EXPECT_EQ(service.getMultilangMessage("a"), "root");
  EXPECT_EQ(service.langFileNameFull(), folder.file("root/Omnikor/lang/K.xml"));
}

TEST_F(MultiLang, InitLanguage_TakesTheNameOfTheAddressingFileFromTheLanguageFile) {
  folder.write("base/lang/K.xml", languageFile);
  folder.write("base/A.xml", "<Functions/>");
  CMultiLangEx service;
  service.initLanguage(folder.file("base"), "en", "lang", "K.xml");
  EXPECT_TRUE(service.addressingDocument()->selectSingleNode("/Functions"));
  folder.write("base/A.xml", "broken");
  service.initLanguage(folder.file("base"), "en", "lang", "K.xml");
  EXPECT_FALSE(service.addressingDocument()->selectSingleNode("/Functions"));
}

TEST_F(MultiLang, InitLanguage_RaisesWhenThereIsNoFile) {
  try {
    texts.initLanguage("/nowhere", "fr", "lang", "K.xml");
    FAIL() << "should have raised";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, 1);
    EXPECT_EQ(failure.text, "Unable to read language file : /nowhere/lang/K.xml");
  }
  EXPECT_EQ(texts.xmlDoc(), nullptr);
  EXPECT_EQ(texts.getMultilangMessageDefault("d", "T/both"), "d");
}

TEST_F(MultiLang, StoredLanguage_IsTheOneOfTheNextStart) {
  ::setenv("XDG_CONFIG_HOME", folder.file("config").c_str(), 1);
  platform::SiteStart start;
  start.systemFile = "";
  platform::SiteSettings site(start);
  CMultiLangEx service(&site);
  service.language = "fr";
  service.storeLanguageToRegistry();
  EXPECT_EQ(platform::SiteSettings(start).CurrentLanguage(), "fr");
  service.storeLanguageToRegistry("de");
  EXPECT_EQ(platform::SiteSettings(start).CurrentLanguage(), "de");
  service.storeLanguageToRegistry("not a code");
  EXPECT_EQ(platform::SiteSettings(start).CurrentLanguage(), "de");
  EXPECT_NO_THROW(texts.storeLanguageToRegistry("fr")); // without site there is no place
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(MultiLang, TheGlobalService_GivesDefaultsUntilOneIsSet) {
  EXPECT_EQ(language::global().getMultilangMessageDefault("d", "T/both"), "d");
  language::setGlobal(&texts);
  EXPECT_EQ(language::global().getMultilangMessageDefault("d", "T/both"), "bonjour");
  language::setGlobal(nullptr);
  EXPECT_EQ(language::global().getMultilangMessageDefault("d", "T/both"), "d");
}

TEST_F(MultiLang, ErrorBox_ShowsNumberAndTextWithTheStopIcon) {
  support::ScriptedPerson person;
  person.expect("GENERIC/error/text", "Error", "Error # 91\r\nObject not set",
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  ShowErrorBox(person, texts, platformFailure(MissingObject));
}

} // namespace
} // namespace kelmar
