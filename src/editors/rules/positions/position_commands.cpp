// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/position_commands.h"

#include "common/data_import.h"
#include "common/position_bits.h"
#include "common/reference_index.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

using platform::Buttons;
using platform::Icon;

std::string userError() {
  return language::global().getMultilangMessageDefault(
      "Error", "REQUESTS/MSG/CBadd_Click/alreadyUsed/title");
}

} // namespace

PositionFields fieldsOf(const DataPositionItem& position) {
  return {position.dataName, position.StartOctet, position.StartBit, position.LittleEndian};
}

void applyFields(const PositionFields& fields, bool sent, DataPositionItem& position,
                 const std::string& selectedRequest, platform::Person& person) {
  if (fields.StartOctet <= 1 && position.StartOctet > 1) {
    const CMultiLangEx& texts = language::global();
    person.message(
        {"REQUESTS/MSG/GetDataPosFromScreen/text",
         texts.getMultilangMessageDefault("Please contact Hotline",
                                          "REQUESTS/MSG/GetDataPosFromScreen/title"),
         texts.getMultilangMessageDefault(
             "Request={0}{crlf}Data={1}{crlf}Start Byte change from {2} to {3}{crlf}Selected "
             "text={4}",
             "REQUESTS/MSG/GetDataPosFromScreen/text",
             position.parent ? position.parent->requestName : std::string(), position.dataName,
             std::to_string(position.StartOctet), std::to_string(fields.StartOctet),
             selectedRequest),
         Buttons::Ok, Icon::Critical});
  }
  position.StartOctet = fields.StartOctet;
  position.StartBit = fields.StartBit;
  position.LittleEndian = fields.LittleEndian;
  position.param = sent;
}

DataPositionItem* addByFields(RequestItem& request, const PositionFields& fields, bool sent,
                              platform::Person& person) {
  auto position = std::make_shared<DataPositionItem>();
  position->parent = &request;
  position->param = sent;
  position->StartOctet = fields.StartOctet;
  position->StartBit = fields.StartBit;
  position->LittleEndian = fields.LittleEndian;
  position->dataName = fields.dataName;
  if (!request.DataPositions) request.DataPositions = std::make_shared<DataPositionItems>();
  try {
    return request.DataPositions->AddData(std::move(position));
  } catch (const Failure&) {
    person.message({"REQUESTS/MSG/CBadd_Click/alreadyUsed/text", userError(),
                    language::global().getMultilangMessageDefault(
                        "Data '{0}' already used in this request.",
                        "REQUESTS/MSG/CBadd_Click/alreadyUsed/text", fields.dataName),
                    Buttons::Ok, Icon::Critical});
    return nullptr;
  }
}

namespace {

std::shared_ptr<DataPositionItem> newPosition(RequestItem& request, const DataItem& data, bool sent,
                                              std::int32_t startByte, std::int32_t startBit,
                                              bool littleEndian) {
  auto position = std::make_shared<DataPositionItem>();
  position->parent = &request;
  position->setData(&data);
  position->param = sent;
  position->LittleEndian = littleEndian;
  position->StartOctet = startByte;
  position->StartBit = startBit;
  return position;
}

void tellNotAdded(const RequestItem& request, const Failure& failure, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  // French in every language but where the language file says otherwise.
  person.message(
      {"REQUESTS/MSG/AddDataPositionToActiveRequest/text",
       texts.getMultilangMessageDefault("Error",
                                        "REQUESTS/MSG/AddDataPositionToActiveRequest/title"),
       texts.getMultilangMessageDefault("Ajout d'une donnée à la requête '{0}'{crlf}. Erreur : {1}",
                                        "REQUESTS/MSG/AddDataPositionToActiveRequest/text",
                                        request.requestName, failure.text),
       Buttons::Ok, Icon::Critical});
}

} // namespace

DataPositionItem* AddDataPositionToActiveRequest(TargetItem& target, RequestItem& request,
                                                 const DataItem& data, bool sent,
                                                 std::int32_t startByte, std::int32_t startBit,
                                                 bool littleEndian, platform::Person& person) {
  auto position = newPosition(request, data, sent, startByte, startBit, littleEndian);
  position->reference =
      isReferenceByDefault(request, sent) && !target.GetDataPositionFromRefData(data.dataName());
  if (!request.DataPositions) request.DataPositions = std::make_shared<DataPositionItems>();
  try {
    return request.DataPositions->AddData(std::move(position));
  } catch (const Failure& failure) {
    tellNotAdded(request, failure, person);
    return nullptr;
  }
}

DataPositionItem* addDataPositions(TargetItem& target, RequestItem& request,
                                   std::span<const DataItem* const> datas, bool sent,
                                   std::int32_t startByte, std::int32_t numericStartBit,
                                   platform::Person& person) {
  DataPositionItem* last = nullptr;
  ReferenceIndex references(target);
  ComingPositions positions(request);
  const bool byDefault = isReferenceByDefault(request, sent);
  for (const DataItem* data : datas) {
    auto position =
        newPosition(request, *data, sent, startByte, data->numerique ? numericStartBit : 0,
                    target.Parametres()->LittleEndian);
    position->reference = byDefault && !references.isReferenced(data->dataName());
    try {
      last = positions.add(std::move(position));
      if (last->reference) references.add(last->dataName);
    } catch (const Failure& failure) {
      tellNotAdded(request, failure, person);
    }
  }
  positions.finish();
  return last;
}

bool CutData(TargetItem& target, const PositionSelection& positions, platform::Person& person,
             const std::function<void()>& confirmed) {
  const CMultiLangEx& texts = language::global();
  const platform::Answer answer = person.message(
      {"REQUESTS/MSG/CutData/text",
       texts.getMultilangMessageDefault("Confirmer delete", "REQUESTS/MSG/CutData/title"),
       texts.getMultilangMessageDefault(
           "Do you really want to delete the selected data ?{crlf}{crlf}****** D A N G E R "
           "******{crlf}Deleting data also delete reference in devices and/or screens{crlf}without "
           "means to recover them.",
           "REQUESTS/MSG/CutData/text"),
       Buttons::OkCancel, Icon::Critical});
  if (answer != platform::Answer::Ok) return false;
  confirmed();
  target.DeleteDataPositions(positions);
  return true;
}

bool RefDataPos(TargetItem& target, const PositionSelection& positions, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  bool changed = false;
  for (DataPositionItem* position : positions) {
    if (position->reference) continue;
    const DataPositionItem* holder = target.GetDataPositionFromRefData(position->dataName);
    if (!holder) {
      position->reference = changed = true;
      continue;
    }
    person.message(
        {"REQUESTS/MSG/RefDataPos/text",
         texts.getMultilangMessageDefault("Unable to change", "REQUESTS/MSG/RefDataPos/title"),
         texts.getMultilangMessageDefault(
             "Data '{0}' is already defined as reference in request '{1}'",
             "REQUESTS/MSG/RefDataPos/text", position->dataName, holder->parent->requestName),
         Buttons::Ok, Icon::Critical});
  }
  return changed;
}

bool UnRefDataPos(TargetItem& target, const PositionSelection& positions,
                  platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  bool changed = false;
  for (DataPositionItem* position : positions) {
    if (!position->reference) continue;
    const DeviceDataItem* datum = target.GetDeviceDataUsingData(position->dataName);
    if (!datum) {
      position->reference = false;
      changed = true;
      continue;
    }
    person.message(
        {"REQUESTS/MSG/UnRefDataPos/text",
         texts.getMultilangMessageDefault("Unable to change", "REQUESTS/MSG/UnRefDataPos/title"),
         texts.getMultilangMessageDefault("Data '{0}' is used by device '{1}'",
                                          "REQUESTS/MSG/UnRefDataPos/text", position->dataName,
                                          datum->parent ? datum->parent->organeName : ""),
         Buttons::Ok, Icon::Critical});
  }
  return changed;
}

namespace {

bool toggle(DataPositionItem& position) {
  const DataItem* data = position.data();
  if (!data) return false;
  const auto toggled = toggledEndian(placementOf(position, data->NumberBits));
  if (!toggled) return false;
  position.LittleEndian = toggled->LittleEndian;
  position.StartBit = toggled->OffsetBit;
  return true;
}

} // namespace

bool toggleEndian(const PositionSelection& positions) {
  bool changed = false;
  for (DataPositionItem* position : positions)
    changed |= toggle(*position);
  return changed;
}

bool setEndianDefault(const TargetItem& target, const PositionSelection& positions) {
  bool changed = false;
  for (DataPositionItem* position : positions)
    if (position->LittleEndian != target.Parametres()->LittleEndian) changed |= toggle(*position);
  return changed;
}

PositionSelection positionsAt(const std::vector<DataPositionItem*>& positions,
                              const FrameBit& click) {
  PositionSelection found;
  for (DataPositionItem* position : positions) {
    const DataItem* data = position->data();
    if (data && isClicked(placementOf(*position, data->NumberBits), click))
      found.push_back(position);
  }
  return found;
}

} // namespace kelmar
