// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/range_item.h"

#include "base/conversions.h"
#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"

namespace kelmar {

namespace {
constexpr std::int32_t colourWithoutValue = 255;
constexpr std::int32_t soundOutOfRange = 440;
} // namespace

void RangeItem::setSon(std::int32_t number) {
  son_ = number;
  soundName_ = std::to_string(number);
}

void RangeItem::setSoundName(const std::string& name) {
  soundName_ = name;
  son_ = isNumeric(name) ? toInt32(name) : 0;
}

std::shared_ptr<RangeItem> RangeItem::clone(DisplayItem* newParent) const {
  auto copy = std::make_shared<RangeItem>(*this);
  copy->parent = newParent;
  return copy;
}

void RangeItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Value", NumberToText(Seuil));
  out.attribute("Color", Couleur);
  if (!SonFlag) return;
  out.lineFeed();
  out.open("Sound");
  out.attribute("Name", soundName_);
  out.close();
}

void RangeItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (const xml::Attribute value = element.attribute("Value")) Seuil = TextToNumber(value.value());
  if (!readNumber(load, element, "Color", Couleur)) Couleur = colourWithoutValue;
  load.pending.clear();
  SonFlag = false;
  son_ = 0;
  soundName_.clear();
  if (const xml::Attribute sound = element.child("Sound").attribute("Name")) {
    SonFlag = true;
    try {
      setSoundName(sound.value());
    } catch (const Failure&) {
      son_ = soundOutOfRange;
    }
  }
}

RangeItem* RangeItems::Add(double threshold, std::int32_t colour, std::string_view key) {
  auto item = std::make_shared<RangeItem>();
  item->Seuil = threshold;
  item->Couleur = colour;
  return AddData(std::move(item), key);
}

RangeItem* RangeItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

std::shared_ptr<RangeItems> RangeItems::clone(DisplayItem* newParent) const {
  auto copy = std::make_shared<RangeItems>();
  for (const RangeItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void RangeItems::createXMLnode(xml::Writer& out) const {
  for (const RangeItem* member : *this) {
    out.open("Threshold");
    member->createXMLnode(out);
    out.close();
  }
}

void RangeItems::loadXml(OmnikorLibXml& database, xml::Node parent, DisplayItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Threshold", "Range", MemberTest::Strict,
      [&](xml::Node node) {
        auto item = std::make_shared<RangeItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [this](Pointer item) { AddData(std::move(item)); });
}

} // namespace kelmar
