// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/screen_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/position_finder.h"

#include <unordered_map>

namespace kelmar {

void ScreenItem::clear() {
  if (ButtonItems) ButtonItems->clear();
  if (DisplayItems) DisplayItems->clear();
  if (LabelItems) LabelItems->clear();
  if (ButtonInit) ButtonInit->clear();
  ButtonItems.reset();
  DisplayItems.reset();
  LabelItems.reset();
  ButtonInit.reset();
  parent = nullptr;
}

std::shared_ptr<ScreenItem> ScreenItem::clone(CategoryItem* newParent) const {
  auto copy = std::make_shared<ScreenItem>();
  copy->screenName = screenName;
  copy->InitId = InitId;
  copy->WindowState = WindowState;
  copy->ScreenWidth = ScreenWidth;
  copy->ScreenHeight = ScreenHeight;
  copy->ScreenColor = ScreenColor;
  if (LabelItems) copy->LabelItems = LabelItems->clone(copy.get());
  if (DisplayItems) copy->DisplayItems = DisplayItems->clone(copy.get());
  if (ButtonItems) copy->ButtonItems = ButtonItems->clone(copy.get());
  if (ButtonInit) {
    const int position = ButtonItems ? ButtonItems->indexOf(ButtonInit.get()) : 0;
    copy->ButtonInit = position != 0 ? copy->ButtonItems->Item(position)->shared_from_this()
                                     : ButtonInit->clone(copy.get());
  }
  copy->parent = newParent;
  return copy;
}

void ScreenItem::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void ScreenItem::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  out.attribute("Name", screenName);
  out.attribute("Color", ScreenColor);
  out.attribute("WindowState", WindowState);
  out.attribute("Width", ScreenWidth);
  out.attribute("Height", ScreenHeight);
  out.lineFeed();
  if (LabelItems) LabelItems->createXMLnode(out);
  out.lineFeed();
  if (ButtonInit) {
    if (!ButtonInit->Message.empty()) out.textElement("Message", ButtonInit->Message);
    if (ButtonInit->ScenarioItems) ButtonInit->ScenarioItems->createXMLnode(out);
  }
  if (ButtonItems) ButtonItems->createXMLnode(out);
  out.lineFeed();
  if (DisplayItems) DisplayItems->createXMLnode(out, positions);
  out.lineFeed();
}

void ScreenItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Name", screenName)) {
    load.pending.set(1, "ScreenItem.loadXml", "Name undefined, bad screen");
    return;
  }
  readNumber(load, element, "WindowState", WindowState);
  readNumber(load, element, "Width", ScreenWidth);
  readNumber(load, element, "Height", ScreenHeight);
  readNumber(load, element, "Color", ScreenColor);

  ButtonInit = std::make_shared<ButtonItem>();
  ButtonInit->InitButton = true;
  ButtonInit->parent = this;
  ButtonItems = std::make_shared<kelmar::ButtonItems>();
  ButtonItems->AddData(ButtonInit);
  // The message of the init button does not come back, on purpose: the element's own value is asked
  // for, and an element has none.
  if (const xml::Node message = element.child("Message")) {
    load.pending.set(MissingObject);
    if (const std::string text = xml::textOf(message); !text.empty())
      load.notKept("Message", text, message, "the message of a screen is written but not read");
  }
  ButtonInit->ScenarioItems = std::make_shared<ScenarioItems>();
  ButtonInit->ScenarioItems->loadXml(database, element, ButtonInit.get());
  LabelItems = std::make_shared<kelmar::LabelItems>();
  LabelItems->loadXml(database, element, this);
  ButtonItems->loadXml(database, element, this);
  DisplayItems = std::make_shared<kelmar::DisplayItems>();
  // Nothing is cleared behind it: a failure of the last display drops the screen.
  DisplayItems->loadXml(database, element, this);
}

namespace {

/// The keys tried on a clash: the name, then the name with 1, 2, ... behind.
std::string screenKey(const ScreenItem& item, int suffix) {
  std::string key(keyOfName(item.screenName));
  if (suffix > 0) key += std::to_string(suffix);
  return key;
}

} // namespace

int ScreenItems::addFrom(Pointer item, int suffix) {
  while (findKey(screenKey(*item, suffix)))
    ++suffix;
  const std::string key = screenKey(*item, suffix);
  append(std::move(item), key);
  return suffix;
}

ScreenItem* ScreenItems::AddData(Pointer item) {
  addFrom(std::move(item), 0);
  return Item(Count());
}

ScreenItem* ScreenItems::ItemName(std::string_view name) const {
  for (ScreenItem* member : *this)
    if (member->screenName == name) return member;
  return nullptr;
}

void ScreenItems::deleteItem(std::string_view name) {
  Items::deleteItem(ItemName(name));
}

std::shared_ptr<ScreenItems> ScreenItems::clone(CategoryItem* newParent) const {
  auto copy = std::make_shared<ScreenItems>();
  for (const ScreenItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void ScreenItems::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void ScreenItems::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  for (const ScreenItem* member : *this) {
    out.item("Screen", member->screenName);
    out.open("Screen");
    member->createXMLnode(out, positions);
    out.close();
  }
}

void ScreenItems::loadXml(OmnikorLibXml& database, xml::Node parent, CategoryItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  // Where the search for a free key stopped last time for a name.
  std::unordered_map<std::string, int> suffixes;
  loadMembers(
      load, parent, "Screen", "Screen", MemberTest::Strict,
      [&](xml::Node node) {
        auto item = std::make_shared<ScreenItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) {
        int& suffix = suffixes[std::string(FoldedKey(item->screenName).view())];
        suffix = addFrom(std::move(item), suffix);
      });
}

} // namespace kelmar
