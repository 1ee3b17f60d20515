// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/label_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/screen_shapes.h"

namespace kelmar {

std::shared_ptr<LabelItem> LabelItem::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<LabelItem>(*this);
  copy->parent = newParent;
  return copy;
}

void LabelItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Text", LabelText);
  out.attribute("Color", LabelColor);
  out.attribute("Alignment", Alignment);
  out.lineFeed();
  writeRectangle(out, LabelLeft, LabelTop, LabelHeight, LabelWidth);
  out.open("Font");
  out.attribute("Name", FontName);
  out.attribute("Size", fontSizeText(FontSize));
  out.attribute("Bold", flagText(FontBold));
  out.attribute("Italic", flagText(FontItalic));
  out.attribute("Color", FontColor);
  out.close();
}

void LabelItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  readText(load, element, "Text", LabelText);
  readNumber(load, element, "Color", LabelColor);
  readNumber(load, element, "Alignment", Alignment);
  readRectangle(load, element, LabelLeft, LabelTop, LabelHeight, LabelWidth);
  const xml::Node font = element.child("Font");
  if (!font) return;
  readText(load, font, "Name", FontName);
  if (font.attribute("Size")) FontSize = static_cast<float>(readFontSize(font));
  readBoolean(load, font, "Bold", FontBold);
  readBoolean(load, font, "Italic", FontItalic);
  readNumber(load, font, "Color", FontColor);
}

LabelItem* LabelItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

std::shared_ptr<LabelItems> LabelItems::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<LabelItems>();
  for (const LabelItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void LabelItems::createXMLnode(xml::Writer& out) const {
  for (const LabelItem* member : *this) {
    out.lineFeed();
    out.open("Label");
    member->createXMLnode(out);
    out.close();
  }
}

void LabelItems::loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Label", "Label", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<LabelItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [this](Pointer item) { AddData(std::move(item)); });
}

} // namespace kelmar
