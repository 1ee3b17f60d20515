// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/menu_entry.h"
#include "xml/document.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// The pop-up of all units in the language: `mnuUnitAlpha` with all of them by name, then
/// `mnuUnitsCat0Unit` to `mnuUnitsCat12Unit`, each under the name of its category. Empty when the
/// document holds no unit. The caption of a unit is its mark, its name, a tab and its symbol.
std::vector<MenuEntry> unitsMenu(const xml::Document& units, const std::string& language);

/// The symbol in the caption of an entry: what stands behind the tab.
std::string unitOf(std::string_view caption);

/// Loads units.xml: first below the site (`vehicles/units.xml`, then `units.xml`), then from the
/// folder that the program works in. False when there is none that can be read.
bool loadUnits(xml::Document& units, const std::string& site);

} // namespace kelmar
