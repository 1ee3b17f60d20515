// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/addressing_ecu.h"

namespace kelmar {

namespace {

/// The function that the catalogue has, or receives, for this address.
FunctionItem& functionFor(OmnikorLibXml& database, const NewEcu& ecu) {
  if (!database.functions) database.functions = std::make_shared<FunctionItems>();
  if (FunctionItem* known = database.functions->ItemAddress(ecu.address)) return *known;
  FunctionItem* added = database.functions->Add(ecu.address, ecu.logicalAddress, ecu.functionName);
  added->canRid = ecu.canRid;
  added->canXid = ecu.canXid;
  return *added;
}

} // namespace

void createEcu(OmnikorLibXml& database, const NewEcu& ecu, const std::string& name) {
  const FunctionItem& function = functionFor(database, ecu);
  TargetItem& target = *database.NewTarget();
  target.setAddress(ecu.address);
  target.setLogicalAddress(ecu.logicalAddress);
  target.setName(name.empty() ? "New" : name);
  target.setGroup({});
  target.Parametres()->canRid = function.canRid;
  target.Parametres()->canXid = function.canXid;
}

void changeFunction(OmnikorLibXml& database, const NewEcu& ecu) {
  if (!database.ActiveTarget) return;
  functionFor(database, ecu);
  TargetItem& target = *database.ActiveTarget;
  target.setAddress(ecu.address);
  target.setLogicalAddress(ecu.logicalAddress);
  target.Parametres()->canRid = ecu.canRid;
  target.Parametres()->canXid = ecu.canXid;
}

} // namespace kelmar
