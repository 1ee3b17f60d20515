// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// Saves over an old file; it must stay as it is. Gives the failure.
std::string refusalOf(const std::string& encoding, const std::function<void(TargetItem&)>& change) {
  Ecu ecu;
  change(ecu.makeNew());
  ecu.db.xmlEncoding = encoding;
  const std::string path = ecu.folder.write("out.xml", "old");
  const std::string failure = Ecu::failureOf([&] { ecu.db.ExportUceToXml(path); });
  EXPECT_EQ(support::bytesOf(path) == "old", !failure.empty());
  EXPECT_TRUE(ecu.messages.empty());
  return failure;
}

TEST(EncodingOfTheSave, EachGivesTheSameModelBack) {
  for (const char* encoding :
       {"UTF-8", "utf-8", "UTF-16", "ISO-8859-1", "iso-8859-1", "windows-1252"}) {
    SCOPED_TRACE(encoding);
    Ecu ecu("fr");
    TargetItem& target = ecu.makeNew();
    target.setName("Été €");
    target.datas()->Add("Œuvre")->Description = "àé";
    ecu.db.xmlEncoding = encoding;
    const std::string bytes = ecu.saved();
    ecu.load(bytes);
    EXPECT_EQ(ecu.target().name(), "Été €");
    EXPECT_EQ(ecu.target().datas()->Item(1)->dataName(), "Œuvre");
    EXPECT_EQ(ecu.target().datas()->Item(1)->Description, "àé");
    EXPECT_EQ(ecu.saved(), bytes);
  }
}

TEST(EncodingOfTheSave, DeclaresItsNameAndHoldsItsBytes) {
  Ecu ecu;
  ecu.makeNew().setName("É€");
  ecu.db.xmlEncoding = "ISO-8859-1";
  std::string bytes = ecu.saved();
  EXPECT_TRUE(bytes.starts_with("<?xml version='1.0' encoding=\"ISO-8859-1\"?>"));
  EXPECT_NE(bytes.find("<zem:Target Name=\"\xC9&#8364;\""), std::string::npos);
  ecu.db.xmlEncoding = "windows-1252";
  EXPECT_NE(ecu.saved().find("<zem:Target Name=\"\xC9\x80\""), std::string::npos);
  ecu.db.xmlEncoding = "UTF-16";
  EXPECT_TRUE(ecu.saved().starts_with(std::string("\xFF\xFE<\0?\0", 6)));
}

TEST(EncodingOfTheSave, ThatNobodyKnowsIsRefused) {
  EXPECT_EQ(refusalOf("KOI8-R", [](TargetItem&) {}),
            "1 ExportUceToXml: the encoding 'KOI8-R' cannot be written");
}

TEST(SectionText, WithACharacterThatTheEncodingLacksFailsTheSaveAndNamesTheItem) {
  EXPECT_EQ(
      refusalOf("ISO-8859-1", [](TargetItem& t) { t.datas()->Add("Speed")->Description = "5 €"; }),
      "1 ExportUceToXml: Data 'Speed': the character U+20AC cannot be written in ISO-8859-1");
  EXPECT_EQ(refusalOf("ISO-8859-1", [](TargetItem& t) { t.datas()->Add("Speed")->Fiche = "€"; }),
            "1 ExportUceToXml: Data 'Speed': the character U+20AC cannot be written in ISO-8859-1");
  EXPECT_EQ(
      refusalOf("windows-1252",
                [](TargetItem& t) { t.Requests()->Add("Read")->Commentaire = "Ω"; }),
      "1 ExportUceToXml: Request 'Read': the character U+03A9 cannot be written in windows-1252");
  EXPECT_EQ(refusalOf("ISO-8859-1", [](TargetItem& t) { t.Parametres()->Comment = "€"; }),
            "1 ExportUceToXml: ECU 'E': the character U+20AC cannot be written in ISO-8859-1");
  EXPECT_EQ(refusalOf("ISO-8859-1",
                      [](TargetItem& t) {
                        DataItem* data = t.datas()->Add("Key");
                        data->liste = true;
                        data->DataListes = std::make_shared<DataListeItems>();
                        data->DataListes->Add(1, "On €", "€");
                      }),
            "1 ExportUceToXml: Data 'Key': the character U+20AC cannot be written in ISO-8859-1");
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.datas()->Add("Speed")->Description = "5 €"; }),
            "");
}

TEST(SectionText, WithItsEndMarkSurvivesInACommentAndIsRefusedInAnInfo) {
  EXPECT_EQ(
      refusalOf("UTF-8", [](TargetItem& t) { t.datas()->Add("Speed")->Description = "a]]>b"; }),
      "");
  EXPECT_EQ(refusalOf("UTF-8",
                      [](TargetItem& t) {
                        DataItem* data = t.datas()->Add("Key");
                        data->liste = true;
                        data->DataListes = std::make_shared<DataListeItems>();
                        data->DataListes->Add(1, "On", "a]]>b");
                      }),
            "1 ExportUceToXml: Data 'Key': \"]]>\" cannot be written in one CDATA section");
}

TEST(ControlCharacters, FailTheSaveAndNameTheItem) {
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.datas()->Add("D")->Unite = "a\x01"; }),
            "1 ExportUceToXml: Data 'D': the character U+0001 cannot be written in XML");
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.Requests()->Add("R")->Commentaire = "\x1F"; }),
            "1 ExportUceToXml: Request 'R': the character U+001F cannot be written in XML");
  EXPECT_EQ(
      refusalOf("UTF-8",
                [](TargetItem& t) { t.Organes()->Add("V")->Mnemonique = std::string(1, '\0'); }),
      "1 ExportUceToXml: Device 'V': the character U+0000 cannot be written in XML");
  EXPECT_EQ(refusalOf("UTF-8",
                      [](TargetItem& t) {
                        auto screen = std::make_shared<ScreenItem>();
                        screen->screenName = "S";
                        screen->LabelItems = std::make_shared<LabelItems>();
                        screen->LabelItems->AddData(std::make_shared<LabelItem>())->LabelText =
                            "\x02";
                        t.Categories->Add("C", &t)->Screens->AddData(screen);
                      }),
            "1 ExportUceToXml: Screen 'S': the character U+0002 cannot be written in XML");
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.Categories->Add("C\x03", &t); }),
            "1 ExportUceToXml: Category 'C\x03': the character U+0003 cannot be written in XML");
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.AutoIdents->Add(1, "\x04", "0100", "", &t); }),
            "1 ExportUceToXml: AutoIdent '0100': the character U+0004 cannot be written in XML");
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.setEmail("\x05"); }),
            "1 ExportUceToXml: ECU 'E': the character U+0005 cannot be written in XML");
}

TEST(BytesThatAreNoText, FailTheSave) {
  EXPECT_EQ(refusalOf("UTF-8", [](TargetItem& t) { t.datas()->Add("D")->Unite = "\xE9"; }),
            "1 ExportUceToXml: Data 'D': the text is not well-formed UTF-8");
}

TEST(ProjectName, ThatNoElementCanBearInTheEncodingFailsTheSave) {
  EXPECT_EQ(
      refusalOf("ISO-8859-1", [](TargetItem& t) { t.Projects.Add("Ωmega"); }),
      "1 ExportUceToXml: Project 'Ωmega': the character U+03A9 cannot be written in ISO-8859-1");
}

} // namespace
} // namespace kelmar::testing
