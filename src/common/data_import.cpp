// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/data_import.h"

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

SourceEndianness::~SourceEndianness() { parameters_.LittleEndian = before_; }

const char* endianText(const TargetItem& target) {
  return target.Parametres()->LittleEndian ? "Little" : "Big";
}

DataItem* addDefaultData(TargetItem& target, const std::string& name) {
  auto item = std::make_shared<DataItem>();
  item->setDataName(name);
  item->parent = &target;
  return target.datas()->AddDataSorted(std::move(item));
}

void dropSecondReference(const TargetItem& target, DataPositionItem& position) {
  if (position.reference && target.GetDataPositionFromRefData(position.dataName))
    position.reference = false;
}

bool isReferenceByDefault(const TargetItem& target, const RequestItem& request, bool param,
                          std::string_view dataName) {
  if (param || request.ManuelSend || !request.DossierMaintenabilite) return false;
  if (!request.RequestBytes || request.RequestBytes->Length() == 0) return false;
  const std::uint8_t service = request.RequestBytes->bytes().front();
  if (service != 0x21 && service != 0x22) return false;
  return target.GetDataPositionFromRefData(dataName) == nullptr;
}

} // namespace kelmar
