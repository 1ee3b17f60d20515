// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "language/control.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace kelmar::language {

namespace {

using enum ControlProperty;

const char* leafOf(ControlProperty property) {
  switch (property) {
  case Caption:
    return "caption";
  case ToolTip:
    return "toolTip";
  case Text:
    return "text";
  case FontName:
    return "FontName";
  case FontSize:
    return "FontSize";
  }
  return "";
}

// How the place of the texts follows from the control's name.
enum class Place {
  Named,         // N
  MenuArray,     // N, in a control array N/item<index>
  OptionArray,   // N, in a control array N<index>
  Parts,         // N/<key of each part>
  PartsAndMenus, // N/<key of each part>, and its menu entries below
};

struct TypeTexts {
  std::string_view typeName;
  Place place;
  std::vector<ControlProperty> properties;
};

const std::vector<TypeTexts>& table() {
  static const std::vector<TypeTexts> rows = {
      {"Menu", Place::MenuArray, {Caption}},
      {"ComboBox", Place::Named, {ToolTip}},
      {"Image", Place::Named, {ToolTip}},
      {"PictureBox", Place::Named, {ToolTip}},
      {"TextBox", Place::Named, {ToolTip}},
      {"Label", Place::Named, {Caption, ToolTip}},
      {"Frame", Place::Named, {Caption, ToolTip}},
      {"CommandButton", Place::Named, {Caption, ToolTip, FontName, FontSize}},
      {"CheckBox", Place::Named, {Caption, ToolTip}},
      {"OptionButton", Place::OptionArray, {Caption, ToolTip}},
      {"TabStrip", Place::Parts, {Caption, ToolTip}},
      {"ListView", Place::Parts, {Text}},
      {"Toolbar", Place::PartsAndMenus, {ToolTip}},
  };
  return rows;
}

std::string placeOf(const Control& control, Place place) {
  const std::string name = control.name();
  const auto index = control.index();
  if (place == Place::MenuArray && index) return name + "/item" + std::to_string(*index);
  if (place == Place::OptionArray && index && *index >= 0) return name + std::to_string(*index);
  return name;
}

} // namespace

std::vector<ControlText> controlTexts(const Control& control) {
  const std::string typeName = control.typeName();
  const auto row = std::find_if(table().begin(), table().end(),
                                [&](const TypeTexts& texts) { return texts.typeName == typeName; });
  std::vector<ControlText> texts;
  if (row == table().end()) return texts;
  const std::string place = placeOf(control, row->place);
  const auto add = [&](const std::string& path, ControlProperty property, PartPosition where) {
    texts.push_back({path + "/" + leafOf(property), property, where});
  };
  if (row->place != Place::Parts && row->place != Place::PartsAndMenus) {
    for (const ControlProperty property : row->properties)
      add(place, property, {});
    return texts;
  }
  int partIndex = -1;
  for (const ControlPart& part : control.parts()) {
    ++partIndex;
    if (part.key.empty()) continue;
    const std::string path = place + "/" + part.key;
    for (const ControlProperty property : row->properties)
      add(path, property, {partIndex, -1});
    int menuIndex = -1;
    for (const std::string& menuKey : part.menuKeys) {
      ++menuIndex;
      if (row->place == Place::PartsAndMenus && !menuKey.empty())
        add(path + "/" + menuKey, Text, {partIndex, menuIndex});
    }
  }
  return texts;
}

} // namespace kelmar::language
