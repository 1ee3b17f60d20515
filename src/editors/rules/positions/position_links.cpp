// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/device_association.h"
#include "editors/rules/positions/position_commands.h"
#include "language/multi_lang.h"

#include <functional>

namespace kelmar {

namespace {

using platform::Buttons;
using platform::Icon;

/// Asks until the name is free; empty when the person gives none.
std::string askFreeName(platform::Person& person, platform::InputQuestion question,
                        const std::function<bool(const std::string&)>& exists,
                        const std::function<platform::InputQuestion(const std::string&)>& again) {
  std::string name = person.input(question);
  while (!name.empty() && exists(name))
    name = person.input(again(name));
  return name;
}

void copyPositionIndependent(const DataItem& model, DataItem& data) {
  data.Ascii = model.Ascii;
  data.numerique = model.numerique;
  data.NumberBits = model.NumberBits;
}

} // namespace

bool replaceData(TargetItem& target, DataPositionItem& position, const DataItem& newData,
                 platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  const std::string& newName = newData.dataName();
  const auto error = [&](const char* key, const std::string& title, const std::string& text) {
    person.message({key, title, text, Buttons::Ok, Icon::Critical});
    return false;
  };
  if (position.parent && position.parent->DataPositions->ItemName(newName))
    return error("REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyExists/text",
                 texts.getMultilangMessageDefault(
                     "Error", "REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyExists/title"),
                 texts.getMultilangMessageDefault(
                     "Data '{0}' already exists in this request",
                     "REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyExists/text", newName));
  const OrganeItem* newDevice = target.GetDeviceUsingData(newName);
  if (position.reference && !newDevice && target.GetDataPositionFromRefData(newName))
    position.reference = false;
  if (newDevice) {
    if (const OrganeItem* oldDevice = target.GetDeviceUsingData(position.dataName))
      return error("REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyAssociated/text",
                   texts.getMultilangMessageDefault(
                       "Error", "REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyAssociated/title"),
                   texts.getMultilangMessageDefault(
                       "Data '{0}' is associated to device '{1}'{crlf}Data '{2}' is associated to "
                       "device '{3}'{crlf}Impossible to replace data '{4}' with data '{5}'",
                       "REQUESTS/MSG/ppDataReplaceData_Click/dataAlreadyAssociated/text",
                       position.dataName, oldDevice->organeName, newName, newDevice->organeName,
                       position.dataName, newName));
  }
  target.ReplaceDataPosition(&position, &newData);
  return true;
}

DataItem* newDataLike(TargetItem& target, const DataItem& model, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  const std::string title = texts.getMultilangMessageDefault(
      "Replace data", "REQUESTS/MSG/ppDataReplaceData_Click/inputName/title");
  const std::string name = askFreeName(
      person,
      {"REQUESTS/MSG/ppDataReplaceData_Click/inputName/text", title,
       texts.getMultilangMessageDefault("Enter new data name",
                                        "REQUESTS/MSG/ppDataReplaceData_Click/inputName/text"),
       "New"},
      [&](const std::string& wanted) { return target.datas()->ItemName(wanted) != nullptr; },
      [&](const std::string& taken) -> platform::InputQuestion {
        return {"REQUESTS/MSG/ppDataReplaceData_Click/inputError/text",
                texts.getMultilangMessageDefault(
                    "Replace data", "REQUESTS/MSG/ppDataReplaceData_Click/inputError/title"),
                texts.getMultilangMessageDefault(
                    "Error: data '{0}' already exists!{crlf}Enter new data name:",
                    "REQUESTS/MSG/ppDataReplaceData_Click/inputError/text", taken),
                taken};
      });
  if (name.empty()) return nullptr;
  auto data = std::make_shared<DataItem>();
  copyPositionIndependent(model, *data);
  data->setDataName(name);
  data->parent = &target;
  return target.datas()->AddDataSorted(std::move(data));
}

bool associateWithDevice(TargetItem& target, const PositionSelection& positions, OrganeItem& device,
                         bool failureFlag) {
  bool changed = false;
  for (DataPositionItem* position : positions)
    changed |= associateWithDevice(target, *position, device, failureFlag);
  return changed;
}

bool removeFromDevices(const TargetItem& target, const PositionSelection& positions) {
  bool changed = false;
  for (const DataPositionItem* position : positions)
    changed |= removeFromDevice(target, *position);
  return changed;
}

OrganeItem* newDevice(TargetItem& target, const std::string& proposal, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  const std::string title = texts.getMultilangMessageDefault(
      "Associate a data to a device", "REQUESTS/MSG/ppDataSetDev_Click/inputName/title");
  if (!target.Organes()) target.setOrganes(std::make_shared<OrganeItems>());
  // One key for both texts, so a translation replaces both, on purpose.
  const std::string name = askFreeName(
      person,
      {"REQUESTS/MSG/ppDataSetDev_Click/inputName/text", title,
       texts.getMultilangMessageDefault("Enter new device name:",
                                        "REQUESTS/MSG/ppDataSetDev_Click/inputName/text"),
       proposal},
      [&](const std::string& wanted) { return target.Organes()->ItemName(wanted) != nullptr; },
      [&](const std::string& taken) -> platform::InputQuestion {
        return {"REQUESTS/MSG/ppDataSetDev_Click/inputName/text", title,
                texts.getMultilangMessageDefault(
                    "Error: device '{0}' already exists!{crlf}Enter new device name:",
                    "REQUESTS/MSG/ppDataSetDev_Click/inputName/text", taken),
                taken};
      });
  if (name.empty()) return nullptr;
  auto device = std::make_shared<OrganeItem>();
  device->parent = &target;
  device->organeName = name;
  return target.Organes()->AddData(std::move(device));
}

} // namespace kelmar
