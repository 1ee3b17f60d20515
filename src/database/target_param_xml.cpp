// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "database/omnikor_lib_xml.h"
#include "database/target_param_item.h"

namespace kelmar {

namespace {

// What `initMode` says about the section.
constexpr std::int32_t iso8Mode = 0;
constexpr std::int32_t slowInitMode = 1;
constexpr std::int32_t fastInitMode = 2;
constexpr std::int32_t canMode = 3;
constexpr std::int32_t canMessagingMode = 255;

constexpr std::int32_t defaultBaudRate = 10400;
constexpr std::int32_t canFdBaudRate = 2000000;

const char* flag(bool value) {
  return value ? "1" : "0";
}

void element(xml::Writer& out, xml::Name name, xml::Name attribute, std::int32_t value) {
  out.open(name);
  out.attribute(attribute, value);
  out.close();
}

/// Stores the default, then what the file says.
void readOrDefault(OmnikorLibXml& database, xml::Node node, const char* attribute,
                   std::int32_t& field, std::int32_t defaultValue) {
  field = defaultValue;
  readNumber(database.loading(), node, attribute, field);
}

} // namespace

void TargetParamItem::createXMLnode(xml::Writer& out) {
  if (const std::string_view comment = trimBlanks(Comment); !comment.empty()) {
    out.cdataElement("Description", comment);
    out.lineFeed();
  }
  out.textElement("DateOfficialisation", DateOfficialisation);
  out.lineFeed();
  out.open("Failures");
  out.attribute("Name", typePanne_);
  out.attribute("Id", typePanneId_);
  out.close();
  out.lineFeed();
  if (!Reprogrammable.empty()) {
    out.open("Boot");
    out.attribute("Name", Reprogrammable);
    out.close();
    out.lineFeed();
  }
  // Fixed: nothing in the model feeds them.
  out.open("PowerSupply");
  for (const xml::Name supply :
       {xml::Name("Ground"), xml::Name("Vbat"), xml::Name("AfterContact")}) {
    out.lineFeed();
    out.emptyElement(supply);
  }
  out.lineFeed();
  out.close();
  out.lineFeed();
  if (initMode < 0) {
    writeIp(out);
  } else if (initMode == canMode || initMode == canMessagingMode) {
    writeCan(out);
  } else if (initMode <= fastInitMode) {
    writeK(out);
  } else {
    writeProtocol(out);
  }
  out.lineFeed();
}

void TargetParamItem::writeIso8(xml::Writer& out) const {
  out.open("ISO8");
  out.lineFeed();
  out.emptyElement("L");
  out.lineFeed();
  writeKeys(out);
  element(out, "FirstRequest", "Delay", FirstRequestDelay);
  out.lineFeed();
  out.close();
  out.lineFeed();
}

void TargetParamItem::writeKeys(xml::Writer& out) const {
  element(out, "KW1", "Value", key1);
  out.lineFeed();
  out.open("KW2");
  out.attribute("Value", key2);
  out.attribute("Timeout", KW2Timeout);
  out.close();
  out.lineFeed();
}

void TargetParamItem::writeK(xml::Writer& out) const {
  out.open("K");
  out.attribute("BaudRate", BaudRate);
  if (initMode == iso8Mode) {
    writeIso8(out);
  } else {
    out.open("KWP");
    out.attribute("Multipoint", flag(multiPoint));
    if (initMode == slowInitMode) {
      writeIso8(out);
      element(out, "KW2_", "Delay", KW2Delay);
    } else {
      out.open("FastInit");
      element(out, "KW1", "Value", key1);
      out.lineFeed();
      element(out, "KW2", "Value", key2);
      out.lineFeed();
      out.close();
    }
    out.lineFeed();
    out.close();
    out.lineFeed();
  }
  writeDelays(out);
  out.lineFeed();
  out.close();
}

void TargetParamItem::writeDelays(xml::Writer& out) const {
  element(out, "InterByte", "Delay", InterByteDelay);
  out.lineFeed();
  element(out, "ReplyToRequest", "Delay", ReplyToRequestDelay);
  out.lineFeed();
  element(out, "RequestToReply", "Timeout", RequestToReplyTimeout);
  out.lineFeed();
  element(out, "TesterPresent", "Delay", TesterPresentDelay);
  out.lineFeed();
  element(out, "OnError", "Delay", ErrorDelay);
}

void TargetParamItem::writeCan(xml::Writer& out) const {
  out.open("CAN");
  out.attribute("BaudRate", BaudRate);
  out.attribute("Multipoint", flag(multiPoint));
  if (initMode == canMode) {
    if (CANFDTxMaxDataLength >= 1) out.attribute("CANFDTxMaxDataLength", CANFDTxMaxDataLength);
    const FunctionItems* functions =
        parent && parent->parent ? parent->parent->functions.get() : nullptr;
    const FunctionItem* function = functions ? functions->ItemAddress(parent->Address()) : nullptr;
    if (!function) throw platformFailure(MissingObject, "TargetParamItem.createXMLnode");
    // Both tests look at the sending identifier, on purpose: a function with a receiving one alone
    // loses it, and one with a sending one alone gets the mark of an unset one.
    if (function->canXid != -1) writeCanIdentifier(out, "SendId", function->canXid);
    if (function->canXid != -1) writeCanIdentifier(out, "ReceiveId", function->canRid);
  }
  out.close();
}

void TargetParamItem::writeProtocol(xml::Writer& out) const {
  out.open("Protocol");
  if (parent && parent->parent) {
    const ProtocolItem* protocol = parent->parent->protocols->ItemId(initMode, multiPoint);
    if (!protocol) {
      Failure failure = platformFailure(MissingObject, "TargetParamItem.createXMLnode");
      failure.text += " (no protocol with InitMode " + std::to_string(initMode) +
                      " and Multipoint " + flag(multiPoint) + ")";
      throw failure;
    }
    out.attribute("Name", protocol->protocolName);
  }
  out.attribute("InitMode", initMode);
  out.attribute("Multipoint", flag(multiPoint));
  out.attribute("BaudRate", BaudRate);
  out.lineFeed();
  writeDelays(out);
  out.lineFeed();
  writeKeys(out);
  element(out, "KW2_", "Delay", KW2Delay);
  out.lineFeed();
  element(out, "FirstRequest", "Delay", FirstRequestDelay);
  out.lineFeed();
  out.close();
}

void TargetParamItem::writeIp(xml::Writer& out) const {
  out.open("IP");
  out.lineFeed();
  out.textElement("IPAddress", IPAddress);
  out.lineFeed();
  out.textElement("MACAddress", MACAddress);
  out.close();
}

bool TargetParamItem::isCan(LoadContext& load, xml::Node target, CanSection& section) {
  const xml::Node can = target.child("CAN");
  if (!can) return false;
  section.canFdMaxLength = 0;
  readNumber(load, can, "CANFDTxMaxDataLength", section.canFdMaxLength);
  section.baudRate = section.canFdMaxLength < 1 ? defaultBaudRate : canFdBaudRate;
  readNumber(load, can, "BaudRate", section.baudRate);
  section.multiPoint = false;
  readBoolean(load, can, "Multipoint", section.multiPoint);
  load.pending.clear();
  section.canXid = readCanIdentifier(load, can, "SendId");
  load.pending.clear();
  section.canRid = readCanIdentifier(load, can, "ReceiveId");
  load.pending.clear();
  section.initMode = can.child("SendId") ? canMode : canMessagingMode;
  return true;
}

void TargetParamItem::loadXml(OmnikorLibXml& database, xml::Node target) {
  LoadContext& load = database.loading();
  load.pending.clear();
  Gateway = target.child("Function").attribute("Type").value();
  // Older files keep the text in an XML comment; that one is not trimmed.
  Comment = readComment(target, "Description", false);
  LittleEndian = std::string_view(target.child("Requests").attribute("Endian").value()) == "Little";
  DateOfficialisation = xml::textOf(target.child("DateOfficialisation"));
  Reprogrammable = target.child("Boot").attribute("Name").value();
  load.pending.clear();

  std::int32_t failureType = 0;
  const xml::Node failures = target.child("Failures");
  readNumber(load, failures, "Id", failureType);
  const PanneItem* type = database.Pannes ? database.Pannes->ItemId(failureType) : nullptr;
  if (type) {
    typePanneId_ = failureType;
    typePanne_ = type->libelle;
  } else {
    load.notKept("Value", "Id", failures,
                 "'" + std::to_string(failureType) + "': no such type of failure");
    typePanneId_ = 0;
    typePanne_ = "Ne contient pas de pannes";
  }
  load.pending.clear();
  loadSection(database, target);
}

void TargetParamItem::loadSection(OmnikorLibXml& database, xml::Node target) {
  LoadContext& load = database.loading();
  if (const xml::Node k = target.child("K")) {
    loadK(database, k);
    return;
  }
  if (const xml::Node ip = target.child("IP")) {
    SetDefaultValue(Ip);
    SetDefaultValue(Mac);
    readChildText(load, ip, "IPAddress", IPAddress);
    readChildText(load, ip, "MACAddress", MACAddress);
    initMode = -1;
    return;
  }
  CanSection section;
  if (isCan(load, target, section)) {
    multiPoint = section.multiPoint;
    initMode = section.initMode;
    BaudRate = section.baudRate;
    canXid = section.canXid;
    canRid = section.canRid;
    CANFDTxMaxDataLength = section.canFdMaxLength;
  } else if (const xml::Node protocol = target.child("Protocol")) {
    loadProtocol(database, protocol);
  }
}

void TargetParamItem::loadKeys(OmnikorLibXml& database, xml::Node section) {
  readOrDefault(database, section.child("FirstRequest"), "Delay", FirstRequestDelay, 20);
  readOrDefault(database, section.child("KW1"), "Value", key1, 208);
  readOrDefault(database, section.child("KW2"), "Value", key2, 143);
  readOrDefault(database, section.child("KW2"), "Timeout", KW2Timeout, 300);
}

void TargetParamItem::loadDelays(OmnikorLibXml& database, xml::Node section) {
  readOrDefault(database, section.child("InterByte"), "Delay", InterByteDelay, 0);
  readOrDefault(database, section.child("ReplyToRequest"), "Delay", ReplyToRequestDelay, 5);
  readOrDefault(database, section.child("RequestToReply"), "Timeout", RequestToReplyTimeout, 300);
  readOrDefault(database, section.child("TesterPresent"), "Delay", TesterPresentDelay, 3000);
  readOrDefault(database, section.child("OnError"), "Delay", ErrorDelay, 300);
}

void TargetParamItem::loadK(OmnikorLibXml& database, xml::Node k) {
  readOrDefault(database, k, "BaudRate", BaudRate, defaultBaudRate);
  if (const xml::Node iso8 = k.child("ISO8")) {
    // `initMode` keeps the value of a new ECU, on purpose: such an ECU comes back as FastInit.
    loadKeys(database, iso8);
  } else if (const xml::Node kwp = k.child("KWP")) {
    multiPoint = false;
    readBoolean(database.loading(), kwp, "Multipoint", multiPoint);
    database.loading().pending.clear();
    if (const xml::Node slow = kwp.child("ISO8")) {
      initMode = slowInitMode;
      loadKeys(database, slow);
      readOrDefault(database, kwp.child("KW2_"), "Delay", KW2Delay, 25);
    } else {
      const xml::Node fast = kwp.child("FastInit");
      readOrDefault(database, fast.child("KW1"), "Value", key1, 208);
      readOrDefault(database, fast.child("KW2"), "Value", key2, 143);
      initMode = fastInitMode;
    }
  }
  loadDelays(database, k);
}

void TargetParamItem::loadProtocol(OmnikorLibXml& database, xml::Node protocol) {
  readOrDefault(database, protocol, "InitMode", initMode, fastInitMode);
  multiPoint = false;
  readBoolean(database.loading(), protocol, "Multipoint", multiPoint);
  readOrDefault(database, protocol, "BaudRate", BaudRate, defaultBaudRate);
  loadDelays(database, protocol);
  loadKeys(database, protocol);
  readOrDefault(database, protocol.child("KW2_"), "Delay", KW2Delay, 25);
}

} // namespace kelmar
