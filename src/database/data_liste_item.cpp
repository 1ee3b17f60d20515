// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/data_liste_item.h"

#include "base/conversions.h"
#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"

#include <algorithm>

namespace kelmar {

namespace {

/// `member` has the value or the label of `item`.
Failure duplicateOf(const DataListeItem& item, const DataListeItem& member) {
  const std::string value = std::to_string(member.Valeur);
  return Failure(1, "DataListeItems",
                 member.Valeur == item.Valeur
                     ? "Duplicate value '" + value + "' with label '" + member.libelle + "'"
                     : "Duplicate label '" + member.libelle + "' with value '" + value + "'");
}

} // namespace

std::shared_ptr<DataListeItem> DataListeItem::clone(DataItem* newParent) const {
  auto copy = std::make_shared<DataListeItem>(*this);
  copy->parent = newParent;
  return copy;
}

void DataListeItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Value", Valeur);
  out.attribute("Text", libelle);
  if (!Info.empty()) out.cdataSingle(Info);
}

void DataListeItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Text", libelle) || !readNumber(load, element, "Value", Valeur)) {
    load.pending.set(1, "DataListeItem.loadXml", load.pending.error().text);
    return;
  }
  for (xml::Node child : element.children()) {
    if (child.type() != pugi::node_cdata) continue;
    Info = trimBlanks(child.value());
    return;
  }
}

DataListeItem* DataListeItems::Add(std::int32_t value, const std::string& label,
                                   const std::string& info) {
  auto item = std::make_shared<DataListeItem>();
  item->Valeur = value;
  item->libelle = label;
  item->Info = info;
  return AddData(std::move(item));
}

void DataListeItems::refuseDuplicate(const DataListeItem& item) const {
  for (const DataListeItem* member : *this)
    if (member->Valeur == item.Valeur || member->libelle == item.libelle)
      throw duplicateOf(item, *member);
}

DataListeItem* DataListeItems::AddData(Pointer item) {
  refuseDuplicate(*item);
  const std::int32_t value = item->Valeur;
  const int position =
      roughPosition(*this, [&](const DataListeItem& member) { return member.Valeur > value; });
  return position == 0 ? append(std::move(item)) : insertBefore(position, std::move(item));
}

DataListeItem* DataListeItems::AddDataUnSorted(Pointer item) {
  refuseDuplicate(*item);
  return append(std::move(item));
}

void DataListeItems::AddAll(std::vector<Pointer> items) {
  for (Pointer& item : items)
    append(std::move(item));
}

DataListeItem* DataListeItems::ItemValue(std::int32_t value) const {
  for (DataListeItem* member : *this)
    if (member->Valeur == value) return member;
  return nullptr;
}

DataListeItem* DataListeItems::ItemLabel(std::string_view label) const {
  const std::string wanted = upperCase(label);
  for (DataListeItem* member : *this)
    if (upperCase(member->libelle) == wanted) return member;
  return nullptr;
}

std::int32_t DataListeItems::ValueMax() const {
  if (Count() == 0) return 0;
  std::int32_t greatest = Item(1)->Valeur;
  for (const DataListeItem* member : *this)
    greatest = std::max(greatest, member->Valeur);
  return greatest;
}

std::shared_ptr<DataListeItems> DataListeItems::clone(DataItem* newParent) const {
  auto copy = std::make_shared<DataListeItems>();
  for (const DataListeItem* member : *this) {
    auto item = member->clone(newParent);
    const std::int32_t value = item->Valeur;
    // A list from a file may hold duplicates; a copy keeps them as the list does.
    const int position =
        roughPosition(*copy, [&](const DataListeItem& other) { return other.Valeur > value; });
    if (position == 0) {
      copy->append(std::move(item));
    } else {
      copy->insertBefore(position, std::move(item));
    }
  }
  return copy;
}

void DataListeItems::createXMLnode(xml::Writer& out) const {
  for (const DataListeItem* member : *this) {
    out.lineFeed();
    out.open("Item");
    member->createXMLnode(out);
    out.close();
  }
}

void DataListeItems::loadXml(OmnikorLibXml& database, xml::Node parent, DataItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Item", "List item", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<DataListeItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      // A value or label that stands twice in a file stays in the list twice.
      [this](Pointer item) { append(std::move(item)); });
}

} // namespace kelmar
