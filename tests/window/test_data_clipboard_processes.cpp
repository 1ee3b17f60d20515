// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Data and values that go from one program to another through the clipboard of the desktop.
#include "app/pages.h"
#include "base/text.h"
#include "controls/list_view.h"
#include "desktop/clipboard.h"
#include "window/program_from_outside.h"

#include <QTabBar>

namespace kelmar {
namespace {

using namespace outside;

/// Where to click in the window of a program that has opened an ECU of one list data.
struct Places {
  QPoint dataTab, firstData, firstValue;
};

Places placesFor(const support::SmallSite& site) {
  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::NotedProcesses processes;
  platform::SiteStart start;
  start.site = site.root();
  start.language = "en";
  platform::SiteSettings siteSettings(start);
  const KelmarForm::Machine machine{person, settings, processes, siteSettings};
  KelmarForm form(machine, {}, pageMakers(machine));
  form.start("");
  support::showToUser(form);
  form.openFile(site.engine());
  auto& tabs = support::control<QTabBar>(form, "TabStripPrincipal");
  int tab = 0;
  while (tabs.tabText(tab) != QLatin1String("Data"))
    if (++tab == tabs.count()) throw std::runtime_error("no tab of data");
  tabs.setCurrentIndex(tab);
  auto& datas = support::control<ListView>(form, "listDatas");
  auto& values = support::control<ListView>(form, "LVmain");
  if (!support::waitUntil([&] { return values.isVisible() && values.rows().rowCount() > 0; }))
    throw std::runtime_error("the values do not show");
  QCoreApplication::processEvents();
  const auto firstRow = [&form](ListView& list) {
    const QRect row = list.visualRect(list.rows().index(0, 0));
    return list.viewport()->mapTo(&form, QPoint(row.left() + 30, row.center().y()));
  };
  return {tabs.mapTo(&form, tabs.tabRect(tab).center()), firstRow(datas), firstRow(values)};
}

void clickAt(const QString& window, QPoint point) {
  xdotool({"mousemove", "--sync", "--window", window, QString::number(point.x()),
           QString::number(point.y())});
  xdotool({"click", "1"});
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
