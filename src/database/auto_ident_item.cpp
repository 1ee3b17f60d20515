// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/auto_ident_item.h"

#include "base/conversions.h"
#include "database/omnikor_lib_xml.h"

namespace kelmar {

namespace {

/// Not tolerant: a missing attribute is raised.
std::string requiredAttribute(xml::Node element, const char* name) {
  const xml::Attribute found = element.attribute(name);
  if (!found) {
    Failure failure = platformFailure(MissingObject, "AutoIdentItem.loadXml");
    failure.text += std::string(" (AutoIdent/@") + name + ")";
    throw failure;
  }
  return found.value();
}

bool matches(const AutoIdentItem& item, std::int32_t diag, std::string_view supplier,
             std::string_view soft, std::string_view version) {
  return item.DiagNumber == diag && item.SupplierCode == supplier && item.Soft == soft &&
         item.Version == version;
}

} // namespace

std::shared_ptr<AutoIdentItem> AutoIdentItem::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<AutoIdentItem>(*this);
  copy->parent = newParent;
  return copy;
}

void AutoIdentItem::createXMLnode(xml::Writer& out) const {
  out.attribute("DiagVersion", DiagNumber);
  out.attribute("Supplier", SupplierCode);
  out.attribute("Soft", Soft);
  out.attribute("Version", Version);
}

void AutoIdentItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  database.loading().pending.clear();
  DiagNumber = toInt32(requiredAttribute(element, "DiagVersion"));
  SupplierCode = requiredAttribute(element, "Supplier");
  Soft = requiredAttribute(element, "Soft");
  Version = requiredAttribute(element, "Version");
}

AutoIdentItem* AutoIdentItems::Add(std::int32_t diag, const std::string& supplier,
                                   const std::string& soft, const std::string& version,
                                   TargetItem* parent, std::string_view key) {
  auto item = std::make_shared<AutoIdentItem>();
  item->DiagNumber = diag;
  item->SupplierCode = supplier;
  item->Soft = soft;
  item->Version = version;
  item->parent = parent;
  return AddData(std::move(item), key);
}

AutoIdentItem* AutoIdentItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

int AutoIdentItems::FindItem(std::int32_t diag, std::string_view supplier, std::string_view soft,
                             std::string_view version) const {
  int position = 0;
  for (const AutoIdentItem* item : *this) {
    ++position;
    if (matches(*item, diag, supplier, soft, version)) return position;
  }
  return 0;
}

AutoIdentItem* AutoIdentItems::FindItemObject(std::int32_t diag, std::string_view supplier,
                                              std::string_view soft,
                                              std::string_view version) const {
  const int position = FindItem(diag, supplier, soft, version);
  return position == 0 ? nullptr : Item(position);
}

void AutoIdentItems::deleteItem(std::int32_t diag, std::string_view supplier, std::string_view soft,
                                std::string_view version) {
  if (const int position = FindItem(diag, supplier, soft, version); position != 0)
    take(position)->clear();
}

std::shared_ptr<AutoIdentItems> AutoIdentItems::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<AutoIdentItems>();
  for (const AutoIdentItem* item : *this)
    copy->AddData(item->clone(newParent));
  return copy;
}

void AutoIdentItems::createXMLnode(xml::Writer& out) const {
  for (const AutoIdentItem* item : *this) {
    out.open("AutoIdent");
    out.item("AutoIdent", item->Soft);
    item->createXMLnode(out);
    out.close();
  }
}

void AutoIdentItems::loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  for (xml::Node node : parent.children("AutoIdent")) {
    auto item = std::make_shared<AutoIdentItem>();
    item->parent = owner;
    try {
      item->loadXml(database, node);
    } catch (const Failure& failure) {
      load.notKept("AutoIdent", node.attribute("Soft").value(), node, failure.text);
      for (xml::Node rest = node.next_sibling("AutoIdent"); rest;
           rest = rest.next_sibling("AutoIdent"))
        load.notKept("AutoIdent", rest.attribute("Soft").value(), rest,
                     "a record before it could not be read");
      throw;
    }
    AddData(std::move(item));
  }
}

} // namespace kelmar
