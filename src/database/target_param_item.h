// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>
#include <variant>

namespace kelmar {

class LoadContext;
class OmnikorLibXml;
class TargetItem;

/// What the section `CAN` of a file says.
struct CanSection {
  bool multiPoint = false;
  std::int32_t initMode = 3;
  std::int32_t baudRate = 10400;
  std::int32_t canXid = -1; ///< bit 31 marks a 29-bit identifier
  std::int32_t canRid = -1;
  std::int32_t canFdMaxLength = 0;
};

/// How the ECU is reached. Delays and timeouts are in the unit of the diagnostic tool.
class TargetParamItem {
 public:
  /// Indexes of isDefaultValue and SetDefaultValue.
  enum Field {
    InitMode,
    MultiPoint,
    Key1,
    Key2,
    Baud,
    CanFdLength,
    Ip,
    Mac,
    InterByte,
    Kw2Delay,
    FirstRequest,
    ReplyToRequest,
    TesterPresent,
    Kw2Timeout,
    RequestToReply,
    OnError,
    Endian,
    Boot,
    Officialisation,
    GatewayField,
    Tool,
  };
  using Value = std::variant<std::monostate, std::int32_t, bool, std::string>;

  std::int32_t initMode = 2;
  bool multiPoint = false;
  std::int32_t key1 = 208;
  std::int32_t key2 = 143;
  std::int32_t BaudRate = 10400;
  /// Starts at 0 although its default is 64: a new ECU is not at its default here, on purpose.
  std::int32_t CANFDTxMaxDataLength = 0;
  std::string IPAddress = "??.??.??.??";
  std::string MACAddress = "??:??:??:??";
  std::int32_t InterByteDelay = 0;
  std::int32_t KW2Delay = 25;
  std::int32_t FirstRequestDelay = 20;
  std::int32_t ReplyToRequestDelay = 5;
  std::int32_t TesterPresentDelay = 3000;
  std::int32_t KW2Timeout = 300;
  std::int32_t RequestToReplyTimeout = 300;
  std::int32_t ErrorDelay = 300;
  bool LittleEndian = false;
  std::string Reprogrammable;
  std::string DateOfficialisation;
  std::string Gateway;
  std::string Comment; ///< lines end with CR LF
  std::int32_t canXid = -1;
  std::int32_t canRid = -1;
  TargetItem* parent = nullptr;

  std::int32_t TypePanneId() const { return typePanneId_; }
  /// Sets `TypePanne` from the catalogue. Raises MissingObject for an id that it lacks, with the id
  /// stored.
  void setTypePanneId(std::int32_t id);
  const std::string& TypePanne() const { return typePanne_; }
  /// Sets the id too when the catalogue knows a text that differs from the present one.
  void setTypePanne(const std::string& text);

  /// Its reader is asymmetrical on purpose: it gives 0 and copies the stored value into `canXid`.
  std::int32_t ToolAddress();
  void setToolAddress(std::int32_t value) { toolAddress_ = value; }
  /// The value as stored, without the effect of the reader.
  std::int32_t storedToolAddress() const { return toolAddress_; }

  /// True when the field of this index is at its default, which goes to `defaultValue`. The indexes
  /// 6, 7, 18, 19 and those above 20 answer false with no default.
  bool isDefaultValue(int index, Value& defaultValue) const;
  bool isDefaultValue(int index) const;
  void SetDefaultValue(int index);

  /// Reads the section `CAN` of a target. False, with `section` as it was, when there is none.
  static bool isCan(LoadContext& load, xml::Node target, CanSection& section);

  void clear() { parent = nullptr; }
  /// Appends to the open `zem:Target`; `Function/@Type` is written by the target.
  void createXMLnode(xml::Writer& out);
  void loadXml(OmnikorLibXml& database, xml::Node target);

 private:
  void writeK(xml::Writer& out) const;
  void writeCan(xml::Writer& out) const;
  void writeProtocol(xml::Writer& out) const;
  void writeIp(xml::Writer& out) const;
  void writeIso8(xml::Writer& out) const;
  void writeKeys(xml::Writer& out) const;
  void writeDelays(xml::Writer& out) const;
  void loadSection(OmnikorLibXml& database, xml::Node target);
  void loadK(OmnikorLibXml& database, xml::Node k);
  void loadProtocol(OmnikorLibXml& database, xml::Node protocol);
  void loadKeys(OmnikorLibXml& database, xml::Node section);
  void loadDelays(OmnikorLibXml& database, xml::Node section);

  std::int32_t typePanneId_ = 0;
  std::string typePanne_ = "Ne contient pas de pannes";
  std::int32_t toolAddress_ = 241;
};

} // namespace kelmar
