// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/button_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/screen_item.h"
#include "database/screen_shapes.h"

namespace kelmar {

void ButtonItem::clear() {
  if (ScenarioItems) ScenarioItems->clear();
  ScenarioItems.reset();
  parent = nullptr;
}

std::shared_ptr<ButtonItem> ButtonItem::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<ButtonItem>();
  copy->FontBold = FontBold;
  copy->FontItalic = FontItalic;
  copy->FontSize = FontSize;
  copy->FontName = FontName;
  copy->caption = caption;
  copy->ButtonLeft = ButtonLeft;
  copy->ButtonTop = ButtonTop;
  copy->ButtonHeight = ButtonHeight;
  copy->ButtonWidth = ButtonWidth;
  copy->Message = Message;
  copy->InitButton = InitButton;
  if (ScenarioItems) copy->ScenarioItems = ScenarioItems->clone(copy.get());
  copy->parent = newParent;
  return copy;
}

void ButtonItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Text", caption);
  if (InitButton) out.attribute("InitButton", "1");
  out.lineFeed();
  writeRectangle(out, ButtonLeft, ButtonTop, ButtonHeight, ButtonWidth);
  out.open("Font");
  out.attribute("Name", FontName);
  out.attribute("Size", fontSizeText(FontSize));
  out.attribute("Bold", flagText(FontBold));
  out.attribute("Italic", flagText(FontItalic));
  out.close();
  out.lineFeed();
  out.open("Message");
  out.attribute("Text", Message);
  out.close();
  out.lineFeed();
  if (ScenarioItems) ScenarioItems->createXMLnode(out);
  out.lineFeed();
}

void ButtonItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  readText(load, element, "Text", caption);
  if (element.attribute("InitButton")) readBoolean(load, element, "InitButton", InitButton);
  if (InitButton && parent) {
    const auto& replaced = parent->ButtonInit;
    if (replaced && replaced.get() != this && replaced->ScenarioItems) {
      for (const ScenarioItem* step : *replaced->ScenarioItems)
        load.notKept("Scenario step", step->requestName, element,
                     "this init button takes the place of the one that holds the step");
    }
    parent->ButtonInit = shared_from_this();
  }
  readRectangle(load, element, ButtonLeft, ButtonTop, ButtonHeight, ButtonWidth);
  if (const xml::Node font = element.child("Font")) {
    readText(load, font, "Name", FontName);
    if (font.attribute("Size")) FontSize = static_cast<float>(readFontSize(font));
    readBoolean(load, font, "Bold", FontBold);
    readBoolean(load, font, "Italic", FontItalic);
  }
  readText(load, element.child("Message"), "Text", Message);
  ScenarioItems = std::make_shared<kelmar::ScenarioItems>();
  ScenarioItems->loadXml(database, element, this);
}

ButtonItem* ButtonItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

std::shared_ptr<ButtonItems> ButtonItems::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<ButtonItems>();
  for (const ButtonItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void ButtonItems::createXMLnode(xml::Writer& out) const {
  for (const ButtonItem* member : *this) {
    if (member->InitButton) continue;
    out.lineFeed();
    out.open("Button");
    member->createXMLnode(out);
    out.close();
  }
}

void ButtonItems::loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Button", "Button", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<ButtonItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [this](Pointer item) { AddData(std::move(item)); });
}

} // namespace kelmar
