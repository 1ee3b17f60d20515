// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/addressing_choice.h"

#include "base/conversions.h"
#include "base/failure.h"

namespace kelmar {

namespace {

std::string textAt(xml::Node function, const std::string& path) {
  return xml::textOf(xml::selectSingleNode(function, path).node());
}

std::string addressesPath(bool extended) {
  return std::string("ProtocolList/Protocol/Address[@Extended='") + (extended ? '1' : '0') + "']";
}

std::string decimalText(const char* text) {
  try {
    return std::to_string(toInt32(text));
  } catch (const Failure&) {
    return text; // shown as it stands; creating the ECU tells that it is no number
  }
}

std::int32_t identifierOf(xml::Node function, const char* element) {
  const xml::Node identifier = function.child(element);
  return identifier ? toInt32(xml::textOf(identifier)) : -1;
}

} // namespace

AddressingFields addressingFieldsOf(xml::Node function, bool extended) {
  AddressingFields fields;
  if (!function) return fields;
  fields.txAddrFree = false;
  fields.txAddr = decimalText(function.attribute("Address").value());
  fields.txtLogicalAddress = textAt(function, "ProtocolList/Protocol/LogicalAddress");

  const bool hasExtended = !xml::selectNodes(function, addressesPath(true)).empty();
  const bool hasNormal = !xml::selectNodes(function, addressesPath(false)).empty();
  fields.CbExtendedEnabled = hasExtended && hasNormal;
  fields.CbExtended = hasExtended && (extended || !hasNormal);

  fields.lbCanXid = textAt(function, addressesPath(fields.CbExtended) + "/Xid");
  fields.lbCanRid = textAt(function, addressesPath(fields.CbExtended) + "/Rid");
  return fields;
}

NewEcu newEcuOf(xml::Node function, const std::string& functionName,
                const std::string& typedAddress) {
  NewEcu ecu;
  ecu.functionName = functionName;
  if (!function) {
    ecu.address = toInt32(typedAddress);
    return ecu;
  }
  ecu.address = toInt32(function.attribute("Address").value());
  ecu.logicalAddress = textAt(function, "ProtocolList/Protocol/LogicalAddress");
  ecu.canXid = identifierOf(function, "XId");
  ecu.canRid = identifierOf(function, "RId");
  return ecu;
}

} // namespace kelmar
