// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/category_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/position_finder.h"

#include <unordered_set>

namespace kelmar {

namespace {
Failure duplicateCategory() {
  return Failure(1, "CategoryItems.AddData", "Duplicate category");
}
} // namespace

void CategoryItem::clear() {
  if (Screens) Screens->clear();
  Screens.reset();
  parent = nullptr;
}

std::shared_ptr<CategoryItem> CategoryItem::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<CategoryItem>();
  copy->categoryName = categoryName;
  if (Screens) copy->Screens = Screens->clone(copy.get());
  copy->parent = newParent;
  return copy;
}

void CategoryItem::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void CategoryItem::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  out.attribute("Name", categoryName);
  out.lineFeed();
  if (Screens) Screens->createXMLnode(out, positions);
  out.lineFeed();
}

void CategoryItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Name", categoryName)) {
    load.pending.set(1, "CategoryItem.loadXml", "Name undefined, bad category");
    return;
  }
  Screens = std::make_shared<ScreenItems>();
  Screens->loadXml(database, element, this);
}

CategoryItem* CategoryItems::Add(const std::string& name, TargetItem* parent,
                                 std::string_view key) {
  auto item = std::make_shared<CategoryItem>();
  item->categoryName = name;
  item->parent = parent;
  return AddData(std::move(item), key);
}

CategoryItem* CategoryItems::AddData(Pointer item, std::string_view key) {
  if (ItemName(item->categoryName)) throw duplicateCategory();
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

CategoryItem* CategoryItems::ItemName(std::string_view name) const {
  for (CategoryItem* member : *this)
    if (member->categoryName == name) return member;
  return nullptr;
}

void CategoryItems::deleteItem(std::string_view name) {
  Items::deleteItem(ItemName(name));
}

void CategoryItems::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void CategoryItems::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  for (const CategoryItem* member : *this) {
    out.item("Category", member->categoryName);
    out.open("Category");
    member->createXMLnode(out, positions);
    out.close();
  }
}

void CategoryItems::loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  std::unordered_set<std::string> names;
  for (const CategoryItem* member : *this)
    names.insert(member->categoryName);
  loadMembers(
      load, parent, "Category", "Category", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<CategoryItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) {
        if (!names.insert(item->categoryName).second) throw duplicateCategory();
        append(std::move(item));
      });
}

} // namespace kelmar
