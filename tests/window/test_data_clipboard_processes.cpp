// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Data and values that go from one program to another through the clipboard of the desktop.
#include "base/text.h"
#include "desktop/clipboard.h"
#include "window/twin_window.h"

namespace kelmar {
namespace {

using namespace outside;

/// Where to click in the window of a program that has opened an ECU of one list data.
struct Places {
  QPoint dataTab, firstData, firstValue;
};

Places placesFor(const support::SmallSite& site) {
  TwinWindow twin(site, site.engine());
  twin.turnTo("Data");
  return {twin.placeOfTab("TabStripPrincipal", "Data"), twin.placeOfRow({"listDatas"}, 0),
          twin.placeOfRow({"LVmain"}, 0)};
}

/// An ECU file whose only data has these values.
std::string ecuOf(const std::string& name, const std::string& data, const std::string& values) {
  const std::string text = replaceAll(support::smallEcu(name), "\"Speed\"", "\"" + data + "\"");
  const std::size_t from = text.find("<Scaled"), to = text.find("</Bits>");
  return text.substr(0, from) + "<List>" + values + "</List>" + text.substr(to);
}

class DataOfTwoPrograms : public testing::Test {
 protected:
  support::SmallSite site;
  std::string other = site.file("vehicles/Tern/Brakes.xml");
  Places places;

  void SetUp() override {
    site.folder().write("vehicles/Tern/Engine.xml",
                        ecuOf("Engine", "State", "<Item Value=\"0\" Text=\"Off\"/>"));
    site.folder().write("vehicles/Tern/Brakes.xml",
                        ecuOf("Brakes", "Débit &amp; état",
                              "<Item Value=\"7\" Text=\"&lt;Ouvert&gt; à 7 \xCE\xA9\">"
                              "<![CDATA[noté]]></Item>"));
    places = placesFor(site);
  }
  /// Goes to the data of a program; the window that it gives has the input.
  QString openData(const char* ecu) {
    const QString window = windowWith(captionOf(QString::fromLatin1(ecu)));
    focus(window);
    clickAt(window, places.dataTab);
    clickAt(window, places.firstData);
    return window;
  }
  static bool clipboardStartsWith(const char* text) {
    return support::waitUntil([&] { return desktop::clipboardText().starts_with(text); }, patience);
  }
  const DataItem* saved(OmnikorLibXml& database, const std::string& name) {
    database.ImportUceFromXml(site.engine());
    return database.ActiveTarget->datas()->ItemName(name);
  }
};

TEST_F(DataOfTwoPrograms, DataGoFromOneToTheOtherWithTheirValues) {
  Program source(onSite(site, {QString::fromStdString(other)}));
  openData("Brakes");
  desktop::setClipboardText("before");
  press("ctrl+c");
  ASSERT_TRUE(clipboardStartsWith("<Datas>")) << desktop::clipboardText();

  Program target(onSite(site, {QString::fromStdString(site.engine())}));
  openData("Engine");
  press("ctrl+v");
  press("ctrl+s");
  const auto pasted = [&] {
    OmnikorLibXml database;
    return saved(database, "Débit & état") != nullptr;
  };
  EXPECT_TRUE(support::waitUntil(pasted, patience));
  OmnikorLibXml database;
  const DataItem* data = saved(database, "Débit & état");
  ASSERT_TRUE(data && data->DataListes && data->DataListes->Count() == 1);
  EXPECT_EQ(data->DataListes->ItemValue(7)->libelle, "<Ouvert> à 7 Ω");
  EXPECT_EQ(data->DataListes->ItemValue(7)->Info, "noté");
  EXPECT_EQ(source.errors() + target.errors(), "");
}

TEST_F(DataOfTwoPrograms, ValuesGoFromOneListToTheOther) {
  Program source(onSite(site, {QString::fromStdString(other)}));
  clickAt(openData("Brakes"), places.firstValue);
  desktop::setClipboardText("before");
  press("ctrl+c");
  ASSERT_TRUE(clipboardStartsWith("<List>")) << desktop::clipboardText();

  Program target(onSite(site, {QString::fromStdString(site.engine())}));
  clickAt(openData("Engine"), places.firstValue);
  press("ctrl+v");
  press("ctrl+s");
  const auto pasted = [&] {
    OmnikorLibXml database;
    const DataItem* data = saved(database, "State");
    return data && data->DataListes && data->DataListes->Count() == 2;
  };
  EXPECT_TRUE(support::waitUntil(pasted, patience));
  OmnikorLibXml database;
  const DataItem* data = saved(database, "State");
  ASSERT_TRUE(data && data->DataListes && data->DataListes->ItemValue(7));
  EXPECT_EQ(data->DataListes->ItemValue(7)->libelle, "<Ouvert> à 7 Ω");
  EXPECT_EQ(data->DataListes->ItemValue(7)->Info, "noté");
  EXPECT_EQ(source.errors() + target.errors(), "");
}

} // namespace
} // namespace kelmar
