// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/edit_param_fields.h"

#include "base/failure.h"
#include "base/text.h"
#include "frame/rules/communication_protocol.h"
#include "frame/rules/key_bytes.h"

#include <algorithm>
#include <cstdio>

namespace kelmar {

namespace {

constexpr char gatewayMark[] = "CGW";
constexpr std::int32_t canFdBaudRate = 2000000;
// On purpose: the diagnostic tool takes the rate of CAN from elsewhere, and this one is stored
// whatever the fields say.
constexpr std::int32_t canBaudRate = 10400;

std::string firstAmong(const std::vector<std::string>& entries, std::int32_t wanted,
                       const char* otherwise) {
  const std::string text = std::to_string(wanted);
  return std::find(entries.begin(), entries.end(), text) != entries.end() ? text : otherwise;
}

FunctionItem* functionOf(const OmnikorLibXml& database) {
  return database.functions ? database.functions->ItemAddress(database.ActiveTarget->Address())
                            : nullptr;
}

/// The parameters hold the tool address in place of the identifier once it was read, as by a save.
std::int32_t sendIdentifierOf(const TargetParamItem& parameters) {
  const bool isToolAddress = !parameters.isDefaultValue(TargetParamItem::Tool) &&
                             parameters.canXid == parameters.storedToolAddress();
  return isToolAddress ? -1 : parameters.canXid;
}

/// The identifiers in the function are those of the file. The ones in the parameters serve where
/// the function has none.
std::int32_t identifierOf(const FunctionItem* function, std::int32_t FunctionItem::*identifier,
                          std::int32_t otherwise) {
  return function && function->*identifier != -1 ? function->*identifier : otherwise;
}

void applyKey(const std::string& text, std::int32_t& key) {
  if (const auto read = readKeyByte(text)) key = *read;
}

void applyNumber(const std::string& text, std::int32_t& value) {
  if (const auto read = readParameterNumber(text)) value = *read;
}

void applyBaudRate(const EditParamFields& fields, std::int32_t code, TargetParamItem& parameters) {
  switch (code) {
  case canFdCode:
    parameters.BaudRate = canFdBaudRate;
    break;
  case canCode:
    parameters.BaudRate = canBaudRate;
    break;
  case canMessagingCode:
    applyNumber(fields.ComboBaudRate, parameters.BaudRate);
    break;
  default:
    applyNumber(fields.numbers[0].text, parameters.BaudRate);
    break;
  }
}

void applyAddresses(const EditParamFields& fields, const ProtocolItem* protocol,
                    TargetParamItem& parameters) {
  if (panelsOf(protocol ? protocol->code : noProtocolCode).FrIP) {
    const bool placeholders =
        fields.txIPAddress == "??.??.??.??" && fields.txMACAddress == "??:??:??:??";
    parameters.IPAddress = placeholders ? "00.11.22.33" : fields.txIPAddress;
    parameters.MACAddress = placeholders ? "AA:BB:CC:DD" : fields.txMACAddress;
  } else if (protocol && protocol->initMode >= 0 && parameters.initMode < 0) {
    // An ECU leaves IP: with its addresses it would be taken for one on IP again.
    parameters.SetDefaultValue(TargetParamItem::Ip);
    parameters.SetDefaultValue(TargetParamItem::Mac);
  }
}

std::string gatewayOf(const EditParamFields& fields, std::int32_t code) {
  const ProtocolPanels panels = panelsOf(code);
  return (panels.CheckCGW && fields.CheckCGW) || (panels.CheckCGWIP && fields.CheckCGWIP)
             ? gatewayMark
             : "";
}

} // namespace

const std::array<ParameterNumber, parameterNumberCount>& parameterNumbers() {
  static constexpr std::array<ParameterNumber, parameterNumberCount> numbers{{
      {"BaudRate", TargetParamItem::Baud, &TargetParamItem::BaudRate},
      {"InterByte", TargetParamItem::InterByte, &TargetParamItem::InterByteDelay},
      {"KW2", TargetParamItem::Kw2Delay, &TargetParamItem::KW2Delay},
      {"FirstRequest", TargetParamItem::FirstRequest, &TargetParamItem::FirstRequestDelay},
      {"ReplyToRequest", TargetParamItem::ReplyToRequest, &TargetParamItem::ReplyToRequestDelay},
      {"TesterPresent", TargetParamItem::TesterPresent, &TargetParamItem::TesterPresentDelay},
      {"KW2Timeout", TargetParamItem::Kw2Timeout, &TargetParamItem::KW2Timeout},
      {"RequestToReplyTimeout", TargetParamItem::RequestToReply,
       &TargetParamItem::RequestToReplyTimeout},
      {"ErrorDelay", TargetParamItem::OnError, &TargetParamItem::ErrorDelay},
  }};
  return numbers;
}

std::string defaultNumberText(const ParameterNumber& number) {
  TargetParamItem::Value value;
  TargetParamItem().isDefaultValue(number.index, value);
  return std::to_string(std::get<std::int32_t>(value));
}

std::optional<std::int32_t> readParameterNumber(const std::string& text) {
  try {
    return toInt32(text);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

const std::vector<std::string>& canBaudRates() {
  static const std::vector<std::string> rates{"125000", "250000", "500000", "1000000"};
  return rates;
}

const std::vector<std::string>& canFdDataLengths() {
  static const std::vector<std::string> lengths{"8", "12", "16", "20", "24", "32", "48", "64"};
  return lengths;
}

std::optional<EditParamFields> fieldsOf(const OmnikorLibXml& database) {
  const TargetItem* target = database.ActiveTarget.get();
  if (!target || !target->Parametres() || !database.protocols) return std::nullopt;
  const TargetParamItem& parameters = *target->Parametres();
  EditParamFields fields;
  fields.txtEmail = target->Email();
  fields.Comment = parameters.Comment;
  fields.KW1 = keyByteText(parameters.key1);
  fields.KW2 = keyByteText(parameters.key2);
  fields.ComboTypeCom = protocolPosition(*database.protocols, parameters);
  fields.ComboBaudRate = firstAmong(canBaudRates(), parameters.BaudRate, "500000");
  for (std::size_t i = 0; i < parameterNumberCount; ++i) {
    const ParameterNumber& number = parameterNumbers()[i];
    fields.numbers[i] = {std::to_string(parameters.*number.value),
                         !parameters.isDefaultValue(number.index)};
  }
  fields.littleEndian = parameters.LittleEndian;
  fields.TextReprog = parameters.Reprogrammable;
  fields.CheckCGW = fields.CheckCGWIP = parameters.Gateway == gatewayMark;
  if (parameters.CANFDTxMaxDataLength > 0)
    fields.ComboMaxDataLangthCANFD = std::to_string(parameters.CANFDTxMaxDataLength);
  fields.DateOfficia = parameters.DateOfficialisation;
  fields.txIPAddress = parameters.IPAddress;
  fields.txMACAddress = parameters.MACAddress;
  fields.ComboTypePanne = parameters.TypePanne();
  const FunctionItem* function = functionOf(database);
  fields.canXid = identifierOf(function, &FunctionItem::canXid, sendIdentifierOf(parameters));
  fields.canRid = identifierOf(function, &FunctionItem::canRid, parameters.canRid);
  return fields;
}

void applyFields(const EditParamFields& fields, OmnikorLibXml& database) {
  TargetItem* target = database.ActiveTarget.get();
  if (!target || !target->Parametres() || !database.protocols) return;
  TargetParamItem& parameters = *target->Parametres();
  const ProtocolItems& protocols = *database.protocols;
  const std::int32_t code = protocolCode(protocols, fields.ComboTypeCom);
  const bool chosen = fields.ComboTypeCom >= 1 && fields.ComboTypeCom <= protocols.Count();
  const ProtocolItem* protocol = chosen ? protocols.Item(fields.ComboTypeCom) : nullptr;

  target->setEmail(fields.txtEmail);
  parameters.Comment = fields.Comment;
  applyKey(fields.KW1, parameters.key1);
  applyKey(fields.KW2, parameters.key2);
  applyBaudRate(fields, code, parameters);
  for (std::size_t i = 1; i < parameterNumberCount; ++i)
    applyNumber(fields.numbers[i].text, parameters.*parameterNumbers()[i].value);
  parameters.LittleEndian = fields.littleEndian;
  parameters.Reprogrammable = fields.TextReprog;
  parameters.Gateway = gatewayOf(fields, code);
  parameters.CANFDTxMaxDataLength = 0;
  if (code == canFdCode)
    applyNumber(fields.ComboMaxDataLangthCANFD, parameters.CANFDTxMaxDataLength);
  parameters.DateOfficialisation = fields.DateOfficia;
  applyAddresses(fields, protocol, parameters);
  parameters.setTypePanne(fields.ComboTypePanne);
  parameters.canXid = fields.canXid;
  parameters.canRid = fields.canRid;
  if (FunctionItem* function = functionOf(database)) {
    function->canXid = fields.canXid;
    function->canRid = fields.canRid;
  }
  if (protocol) {
    parameters.initMode = protocol->initMode;
    parameters.multiPoint = protocol->multiPoint;
  }
}

std::optional<DateTime> readOfficialDate(const std::string& stored) {
  return toDateTime(replaceAll(stored, ".", "/"));
}

std::string officialDateText(const DateTime& moment) {
  char text[64];
  std::snprintf(text, sizeof text, "%02d/%02d/%04d %02d:%02d:%02d", moment.day, moment.month,
                moment.year, moment.hour, moment.minute, moment.second);
  return text;
}

} // namespace kelmar
