// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"

#include <future>

namespace kelmar {

void ProjectNames::Add(const std::string& name) {
  if (!keys_.insert(foldCase(name)).second) throw platformFailure(KeyExists, "TargetItem.Projects");
  names_.push_back(name);
}

void ProjectNames::clear() {
  names_.clear();
  keys_.clear();
}

bool ProjectNames::contains(std::string_view name) const {
  return std::find(names_.begin(), names_.end(), name) != names_.end();
}

TargetItem::TargetItem()
    : Categories(std::make_shared<CategoryItems>()), AutoIdents(std::make_shared<AutoIdentItems>()),
      parametres_(std::make_shared<TargetParamItem>()), datas_(std::make_shared<DataItems>()),
      requests_(std::make_shared<RequestItems>()), organes_(std::make_shared<OrganeItems>()) {
  parametres_->parent = this;
}

TargetItem::~TargetItem() {
  clear();
}

void TargetItem::clear() {
  if (Categories) Categories->clear();
  if (organes_) organes_->clear();
  if (requests_) requests_->clear();
  if (datas_) datas_->clear();
  if (AutoIdents) AutoIdents->clear();
  if (parametres_) parametres_->clear();
  Categories.reset();
  organes_.reset();
  requests_.reset();
  datas_.reset();
  AutoIdents.reset();
  parametres_.reset();
  parent = nullptr;
}

namespace {

/// An element of the target that is written when its collection exists.
template <class Collection>
void writeCollection(xml::Writer& out, xml::Name element, const Collection& collection) {
  if (!collection) return;
  out.lineFeed();
  out.open(element);
  out.lineFeed();
  collection->createXMLnode(out);
  out.close();
}

} // namespace

void TargetItem::createXMLnode(xml::Writer& out) {
  // Requests and screens, more than half of a file, are written beside the rest.
  const auto beside = [&out](const auto& items) {
    return std::async([&items, part = out.beside()]() mutable {
      if (items) items->createXMLnode(part);
      return std::move(part);
    });
  };
  std::future<xml::Writer> requests = beside(requests_), categories = beside(Categories);
  const std::string schema = parent ? parent->xmlEcuSchema : std::string();
  const std::string screenSchema = parent ? parent->xmlScreenSchema : std::string();
  out.item("ECU", name_);
  out.open("zem:Target");
  out.attribute("Name", name_);
  if (!schema.empty()) out.attribute("xmlns", schema);
  if (!screenSchema.empty()) out.attribute("xmlns:ds", screenSchema);
  if (!email_.empty()) out.attribute("email", email_);
  if (!href_.empty()) out.attribute("href", href_);
  if (!upload_.empty()) out.attribute("upload", upload_);
  if (!group_.empty()) out.attribute("group", group_);
  if (Projects.Count() > 0) {
    out.lineFeed();
    out.open("Projects");
    out.attribute("xmlns", "");
    for (const std::string& project : Projects) {
      out.item("Project", project);
      if (!xml::isXmlName(project)) {
        throw Failure(1, "ExportUceToXml",
                      "Project '" + project + "': the name is no XML name and cannot be written");
      }
      out.emptyElement(xml::Name(project));
    }
    out.close();
    out.item("ECU", name_);
  }
  out.lineFeed();
  writeFunction(out);
  out.lineFeed();
  out.open("Language");
  out.attribute("Name", langue_);
  if (reference_) out.attribute("Reference", "1");
  out.close();
  out.lineFeed();
  if (parametres_) parametres_->createXMLnode(out);
  writeCollection(out, "AutoIdents", AutoIdents);
  writeCollection(out, "Datas", datas_);
  out.lineFeed();
  out.open("Requests");
  out.attribute("Endian", parametres_ && parametres_->LittleEndian ? "Little" : "Big");
  out.lineFeed();
  out.append(requests.get());
  out.close();
  writeCollection(out, "Devices", organes_);
  if (Categories) {
    out.lineFeed();
    out.open("ds:Categories");
    if (!screenSchema.empty()) out.attribute("xmlns", screenSchema);
    out.lineFeed();
    out.append(categories.get());
    out.close();
  }
  out.close();
}

void TargetItem::writeFunction(xml::Writer& out) {
  const FunctionItem* function =
      parent && parent->functions ? parent->functions->ItemAddress(address_) : nullptr;
  if (!function) {
    Failure failure = platformFailure(MissingObject, "TargetItem.createXMLnode");
    failure.text += " (no function has the address " + std::to_string(address_) + ")";
    throw failure;
  }
  out.open("Function");
  out.attribute("Name", function->functionName);
  out.attribute("Address", address_);
  if (!logicalAddress_.empty()) out.attribute("LogicalAddress", logicalAddress_);
  if (parametres_) {
    if (!parametres_->isDefaultValue(TargetParamItem::Tool))
      out.attribute("ToolAddress", parametres_->ToolAddress());
    if (!parametres_->Gateway.empty()) out.attribute("Type", parametres_->Gateway);
  }
  out.close();
}

void TargetItem::loadXml(OmnikorLibXml& database, xml::Node root) {
  LoadContext& load = database.loading();
  load.pending.clear();
  const xml::Node target = root.child("zem:Target");
  if (!target) {
    load.pending.set(1, "loadXml", "Bad xml file, Target node not found");
    return;
  }
  if (!readText(load, target, "Name", name_)) {
    load.pending.set(1, "loadXml", "Bad xml file, Target Name not found");
    return;
  }
  const xml::Node function = target.child("Function");
  if (!readText(load, function, "Name", functionName_)) {
    load.pending.set(1, "loadXml", "Bad xml file, Target function name not found");
    return;
  }
  upload_ = target.attribute("upload").value();
  href_ = target.attribute("href").value();
  if (const xml::Attribute email = target.attribute("email")) email_ = email.value();
  if (const xml::Attribute group = target.attribute("group")) group_ = group.value();
  for (xml::Node projects : target.children("Projects")) {
    for (xml::Node project : projects.children()) {
      if (project.type() != pugi::node_element) continue;
      const std::string name(trimBlanks(baseName(project)));
      if (name.empty()) continue;
      try {
        Projects.Add(name);
      } catch (const Failure&) {
        load.notKept("Project", name, project, "the project stands there already");
      }
    }
  }
  if (!database.functions) database.functions = std::make_shared<FunctionItems>();
  if (!loadFunction(database, target)) return;

  if (function.attribute("ToolAddress")) {
    std::int32_t toolAddress = 0;
    if (readNumber(load, function, "ToolAddress", toolAddress))
      parametres_->setToolAddress(toolAddress);
  }
  load.pending.clear();
  const xml::Node language = target.child("Language");
  langue_ = "Français";
  reference_ = true;
  readText(load, language, "Name", langue_);
  if (language.attribute("Reference")) readBoolean(load, language, "Reference", reference_);
  load.pending.clear();
  parametres_->loadXml(database, target);
  loadCollections(database, target);
  ValueChanged = true;
}

bool TargetItem::loadFunction(OmnikorLibXml& database, xml::Node target) {
  LoadContext& load = database.loading();
  const xml::Node function = target.child("Function");
  FunctionItem* known = database.functions->ItemName(functionName_);
  CanSection section;
  // The parameters read the section again and report what they find there.
  LoadContext early;
  if (!known) {
    if (!function.attribute("Address")) {
      load.pending.set(1, "loadXml",
                       "Bad xml file, The function '" + functionName_ +
                           "' doesn't exist in the database structure, Contact Omnikor HotLine");
      return false;
    }
    readNumber(load, function, "Address", address_);
    readText(load, function, "LogicalAddress", logicalAddress_);
    known = database.functions->ItemAddress(address_);
    if (known) {
      functionName_ = known->functionName;
    } else {
      known = database.functions->Add(address_, logicalAddress_, functionName_);
      if (TargetParamItem::isCan(early, target, section)) {
        known->canXid = section.canXid;
        known->canRid = section.canRid;
      }
    }
  } else if (TargetParamItem::isCan(early, target, section)) {
    // A file updates the catalogue.
    if (section.canXid != -1) known->canXid = section.canXid;
    if (section.canRid != -1) known->canRid = section.canRid;
  }
  // In all cases: the catalogue wins over the file.
  address_ = known->Address;
  logicalAddress_ = known->LogicalAddress;
  return true;
}

void TargetItem::loadCollections(OmnikorLibXml& database, xml::Node target) {
  PendingError& pending = database.loading().pending;
  // This order lets every reference find its item.
  if (const xml::Node datas = target.child("Datas")) datas_->loadXml(database, datas, this);
  if (const xml::Node requests = target.child("Requests"))
    requests_->loadXml(database, requests, this);
  try {
    if (const xml::Node devices = target.child("Devices"))
      organes_->loadXml(database, devices, this);
  } catch (const Failure& failure) {
    pending.set(failure);
  }
  if (const xml::Node categories = target.child("ds:Categories"))
    Categories->loadXml(database, categories, this);
  try {
    if (const xml::Node idents = target.child("AutoIdents"))
      AutoIdents->loadXml(database, idents, this);
  } catch (const Failure& failure) {
    pending.set(failure);
  }
}

} // namespace kelmar
