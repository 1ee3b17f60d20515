// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_units.h"

#include "base/text.h"
#include "language/multi_lang.h"

#include <algorithm>

namespace kelmar {

namespace {

constexpr int mostCategories = 13;

std::string nameIn(const xml::Node& element, const std::string& language) {
  const auto named =
      xml::selectSingleNode(element, "name[@xml:lang=" + xml::xpathLiteral(language) + "]");
  // A unit without a name in this language is better found by another one than not at all.
  return xml::textOf(named ? named.node() : element.child("name"));
}

/// By which a person looks a name up: neither case nor the accents of French count.
std::string placeOf(const std::string& name) {
  return MakeFileSafeName(lowerCase(name));
}

struct Unit {
  std::string name, place, category;
  MenuEntry entry;
};

} // namespace

std::vector<MenuEntry> unitsMenu(const xml::Document& document, const std::string& language) {
  std::vector<Unit> units;
  for (const xml::Node& element : document.selectNodes("/units/unit")) {
    Unit unit;
    unit.name = nameIn(element, language);
    unit.place = placeOf(unit.name);
    unit.category = element.attribute("categoryId").value();
    const char* mark = element.attribute("SI") ? "• " : "  ";
    unit.entry = {.key = "mnuUnit",
                  .text = mark + unit.name + "\t" + xml::textOf(element.child("symbol")),
                  .literal = true};
    units.push_back(std::move(unit));
  }
  if (units.empty()) return {};
  std::stable_sort(units.begin(), units.end(),
                   [](const Unit& left, const Unit& right) { return left.place < right.place; });

  MenuEntry alpha{.key = "mnuUnitAlpha",
                  .text = language::global().getMultilangMessageDefault(
                      "All units", "DATAS/CONTROLS/mnuUnitAlpha/caption")};
  for (const Unit& unit : units)
    alpha.entries.push_back(unit.entry);
  std::vector<MenuEntry> menu{std::move(alpha)};
  int number = 0;
  for (const xml::Node& element : document.selectNodes("/units/categories/category")) {
    if (number == mostCategories) break;
    MenuEntry category{.key = "mnuUnitsCat" + std::to_string(number++) + "Unit",
                       .text = nameIn(element, language),
                       .literal = true};
    const std::string_view id = element.attribute("id").value();
    for (const Unit& unit : units)
      if (unit.category == id) category.entries.push_back(unit.entry);
    if (!category.entries.empty()) menu.push_back(std::move(category));
  }
  return menu;
}

std::string unitOf(std::string_view caption) {
  const std::size_t tab = caption.find('\t');
  return tab == std::string_view::npos ? std::string() : std::string(caption.substr(tab + 1));
}

bool loadUnits(xml::Document& units, const std::string& site) {
  if (!site.empty() &&
      (units.load(site + "/vehicles/units.xml") || units.load(site + "/units.xml")))
    return true;
  return units.load("units.xml");
}

} // namespace kelmar
