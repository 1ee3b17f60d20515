// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/data_import.h"

#include <utility>

namespace kelmar {

xml::Node dataDefinition(xml::Node datas, std::string_view name) {
  for (xml::Node data : datas.children("Data"))
    if (name == data.attribute("Name").value()) return data;
  return {};
}

DataItem* AddDataFromXml(OmnikorLibXml& database, TargetItem& target, xml::Node data) {
  if (!data || !target.datas()) return nullptr;
  auto item = std::make_shared<DataItem>();
  item->parent = &target;
  item->loadXml(database, data);
  try {
    return target.datas()->AddData(std::move(item));
  } catch (const Failure&) {
    return nullptr;
  }
}

int addMissingDatas(OmnikorLibXml& database, TargetItem& target, xml::Node datas) {
  int added = 0;
  for (xml::Node data : datas.children("Data")) {
    if (target.datas()->ItemName(data.attribute("Name").value())) continue;
    if (AddDataFromXml(database, target, data)) ++added;
  }
  return added;
}

SourceEndianness::SourceEndianness(TargetItem& target, xml::Node root)
    : parameters_(*target.Parametres()), before_(parameters_.LittleEndian) {
  if (const xml::Attribute endian = root.attribute("Endian"))
    parameters_.LittleEndian = std::string_view(endian.value()) == "Little";
}

SourceEndianness::~SourceEndianness() {
  parameters_.LittleEndian = before_;
}

const char* endianText(const TargetItem& target) {
  return target.Parametres()->LittleEndian ? "Little" : "Big";
}

ComingDatas::ComingDatas(TargetItem& target) : target_(target) {
  if (!target.datas()) target.setDatas(std::make_shared<DataItems>());
}

std::string ComingDatas::key(const std::string& name) {
  return std::string(FoldedKey(name).view());
}

DataItem* ComingDatas::find(const std::string& name) const {
  if (DataItem* data = target_.datas()->ItemName(name)) return data;
  const auto found = coming_.find(key(name));
  return found == coming_.end() ? nullptr : found->second;
}

DataItem* ComingDatas::add(DataItems::Pointer data) {
  data->parent = &target_;
  coming_.emplace(key(data->dataName()), data.get());
  added_.push_back(std::move(data));
  return added_.back().get();
}

DataItem* ComingDatas::addDefault(const std::string& name) {
  auto data = std::make_shared<DataItem>();
  data->setDataName(name);
  return add(std::move(data));
}

void ComingDatas::finish() {
  target_.datas()->AddDatasSorted(std::exchange(added_, {}));
  coming_.clear();
}

ComingPositions::ComingPositions(RequestItem& request) : request_(request) {
  if (!request.DataPositions) request.DataPositions = std::make_shared<DataPositionItems>();
  for (DataPositionItem* position : *request.DataPositions)
    all_.emplace(position->dataName, position);
}

DataPositionItem* ComingPositions::find(const std::string& dataName) const {
  const auto found = all_.find(dataName);
  return found == all_.end() ? nullptr : found->second;
}

DataPositionItem* ComingPositions::add(DataPositionItems::Pointer position) {
  if (!all_.emplace(position->dataName, position.get()).second) {
    finish();
    return request_.DataPositions->AddData(std::move(position)); // it has the words
  }
  added_.push_back(std::move(position));
  return added_.back().get();
}

void ComingPositions::finish() {
  request_.DataPositions->AddAll(std::exchange(added_, {}));
}

bool isReferenceByDefault(const RequestItem& request, bool param) {
  if (param || request.ManuelSend || !request.DossierMaintenabilite) return false;
  if (!request.RequestBytes || request.RequestBytes->Length() == 0) return false;
  const std::uint8_t service = request.RequestBytes->bytes().front();
  return service == 0x21 || service == 0x22;
}

void DataDefinitions::add(const DataItem* data) {
  if (!data || !written_.insert(data).second) return;
  out_.item("Data", data->dataName());
  out_.open("Data");
  data->createXMLnode(out_);
  out_.close();
  out_.lineFeed();
}

} // namespace kelmar
