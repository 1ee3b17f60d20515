// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Requests that go from one program to another through the clipboard of the desktop, and that are
// dragged within one.
#include "base/text.h"
#include "desktop/clipboard.h"
#include "window/twin_window.h"

namespace kelmar {
namespace {

using namespace outside;

/// Where to click in the window of a program that has opened the file.
struct Places {
  QPoint requestsTab, firstRow, belowRows;
};

Places placesFor(const support::SmallSite& site) {
  TwinWindow twin(site, site.engine());
  twin.turnTo("Requests");
  const QPoint below(100, twin.as<ListView>({"LVrequests"}).viewport()->height() / 2);
  return {twin.placeOfTab("TabStripPrincipal", "Requests"), twin.placeOfRow({"LVrequests"}, 0),
          twin.place(*twin.as<ListView>({"LVrequests"}).viewport(), below)};
}

/// An ECU file that knows other data and requests than that of the engine.
std::string brakes() {
  return replaceAll(
      replaceAll(support::smallEcu("Brakes"), "\"Speed\"", "\"Débit &amp; pression\""), "\"Read\"",
      "\"Read brakes\"");
}

bool fileHolds(const std::string& file, const std::string& request) {
  OmnikorLibXml database;
  database.ImportUceFromXml(file);
  return database.ActiveTarget->Requests()->ItemName(request) != nullptr;
}

TEST(ClipboardOfTwoPrograms, RequestsGoFromOneToTheOtherWithTheirData) {
  const support::SmallSite site;
  const Places places = placesFor(site);
  const std::string other = site.file("vehicles/Tern/Brakes.xml");
  site.folder().write("vehicles/Tern/Brakes.xml", brakes());

  Program source(onSite(site, {QString::fromStdString(other)}));
  const QString first = windowWith(captionOf("Brakes"));
  focus(first);
  clickAt(first, places.requestsTab);
  desktop::setClipboardText("before");
  clickAt(first, places.firstRow);
  press("ctrl+c");
  ASSERT_TRUE(support::waitUntil(
      [] { return desktop::clipboardText().starts_with("<Requests Endian=\"Big\">"); }, patience))
      << desktop::clipboardText();

  Program target(onSite(site, {QString::fromStdString(site.engine())}));
  const QString second = windowWith(captionOf("Engine"));
  focus(second);
  clickAt(second, places.requestsTab);
  clickAt(second, places.firstRow);
  press("ctrl+v");
  press("ctrl+s");
  EXPECT_TRUE(
      support::waitUntil([&] { return fileHolds(site.engine(), "Read brakes"); }, patience));
  OmnikorLibXml saved;
  saved.ImportUceFromXml(site.engine());
  const RequestItem* pasted = saved.ActiveTarget->Requests()->ItemName("Read brakes");
  ASSERT_TRUE(pasted && pasted->DataPositions && pasted->DataPositions->Count() == 1);
  EXPECT_EQ(pasted->DataPositions->Item(1)->dataName, "Débit & pression");
  EXPECT_EQ(pasted->DataPositions->Item(1)->StartOctet, 3);
  EXPECT_TRUE(saved.ActiveTarget->datas()->ItemName("Débit & pression"));
  EXPECT_TRUE(source.running() && target.running());
  EXPECT_EQ(source.errors() + target.errors(), "");
}

TEST(DragWithinAProgram, ARowThatIsDroppedOnTheListIsPasted) {
  const support::SmallSite site;
  const Places places = placesFor(site);
  Program program(onSite(site, {QString::fromStdString(site.engine())}));
  const QString window = windowWith(captionOf("Engine"));
  focus(window);
  clickAt(window, places.requestsTab);
  moveTo(window, places.firstRow); // the press chooses the row; one more would be a double click
  xdotool({"mousedown", "1"});
  // A hand moves step by step, and the desktop answers each of them.
  for (int step = 1; step <= 8; ++step) {
    moveTo(window, places.firstRow + (places.belowRows - places.firstRow) * step / 8);
    xdotool({"sleep", "0.05"});
  }
  xdotool({"mouseup", "1"});
  // The drop comes some time after the button is up.
  const auto isSaved = [&] {
    press("ctrl+s");
    return support::waitUntil([&] { return fileHolds(site.engine(), "Copy Read"); }, 500);
  };
  EXPECT_TRUE(support::waitUntil(isSaved, patience));
  EXPECT_EQ(program.errors(), "");
}

} // namespace
} // namespace kelmar
