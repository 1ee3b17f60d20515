// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/target_param_item.h"

#include "database/omnikor_lib_xml.h"

namespace kelmar {

namespace {

const PanneItems* failureTypesOf(const TargetParamItem& parameters) {
  if (!parameters.parent || !parameters.parent->parent) return nullptr;
  return parameters.parent->parent->Pannes.get();
}

constexpr char anyIpAddress[] = "??.??.??.??";
constexpr char anyMacAddress[] = "??:??:??:??";

/// The fields with a number and their defaults.
struct NumberField {
  int index;
  std::int32_t TargetParamItem::*field;
  std::int32_t defaultValue;
};
constexpr NumberField numberFields[] = {
    {TargetParamItem::InitMode, &TargetParamItem::initMode, 2},
    {TargetParamItem::Key1, &TargetParamItem::key1, 208},
    {TargetParamItem::Key2, &TargetParamItem::key2, 143},
    {TargetParamItem::Baud, &TargetParamItem::BaudRate, 10400},
    {TargetParamItem::CanFdLength, &TargetParamItem::CANFDTxMaxDataLength, 64},
    {TargetParamItem::InterByte, &TargetParamItem::InterByteDelay, 0},
    {TargetParamItem::Kw2Delay, &TargetParamItem::KW2Delay, 25},
    {TargetParamItem::FirstRequest, &TargetParamItem::FirstRequestDelay, 20},
    {TargetParamItem::ReplyToRequest, &TargetParamItem::ReplyToRequestDelay, 5},
    {TargetParamItem::TesterPresent, &TargetParamItem::TesterPresentDelay, 3000},
    {TargetParamItem::Kw2Timeout, &TargetParamItem::KW2Timeout, 300},
    {TargetParamItem::RequestToReply, &TargetParamItem::RequestToReplyTimeout, 300},
    {TargetParamItem::OnError, &TargetParamItem::ErrorDelay, 300},
};
constexpr std::int32_t defaultToolAddress = 241;

const NumberField* numberField(int index) {
  for (const NumberField& field : numberFields)
    if (field.index == index) return &field;
  return nullptr;
}

} // namespace

void TargetParamItem::setTypePanneId(std::int32_t id) {
  typePanneId_ = id;
  const PanneItems* types = failureTypesOf(*this);
  const PanneItem* type = types ? types->ItemId(id) : nullptr;
  if (!type) throw platformFailure(MissingObject, "TargetParamItem.TypePanneId");
  typePanne_ = type->libelle;
}

void TargetParamItem::setTypePanne(const std::string& text) {
  if (text == typePanne_) return;
  typePanne_ = text;
  const PanneItems* types = failureTypesOf(*this);
  if (const PanneItem* type = types ? types->ItemName(text) : nullptr) typePanneId_ = type->id;
}

std::int32_t TargetParamItem::ToolAddress() {
  canXid = toolAddress_;
  return 0;
}

bool TargetParamItem::isDefaultValue(int index, Value& defaultValue) const {
  if (const NumberField* number = numberField(index)) {
    defaultValue = number->defaultValue;
    return this->*number->field == number->defaultValue;
  }
  switch (index) {
  case MultiPoint:
    defaultValue = false;
    return !multiPoint;
  case Endian:
    defaultValue = false;
    return !LittleEndian;
  case Boot:
    defaultValue = std::string();
    return Reprogrammable.empty();
  case Tool:
    defaultValue = defaultToolAddress;
    return toolAddress_ == defaultToolAddress;
  default:
    return false;
  }
}

bool TargetParamItem::isDefaultValue(int index) const {
  Value unused;
  return isDefaultValue(index, unused);
}

void TargetParamItem::SetDefaultValue(int index) {
  if (const NumberField* number = numberField(index)) {
    this->*number->field = number->defaultValue;
    return;
  }
  switch (index) {
  case MultiPoint:
    multiPoint = false;
    break;
  case Endian:
    LittleEndian = false;
    break;
  case Ip:
    IPAddress = anyIpAddress;
    break;
  case Mac:
    MACAddress = anyMacAddress;
    break;
  case Boot:
    Reprogrammable.clear();
    break;
  case Officialisation:
    DateOfficialisation.clear();
    break;
  case GatewayField:
    Gateway.clear();
    break;
  case Tool:
    setToolAddress(defaultToolAddress);
    break;
  default:
    break;
  }
}

} // namespace kelmar
