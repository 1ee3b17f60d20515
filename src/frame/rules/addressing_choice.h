// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/document.h"

#include <cstdint>
#include <string>

namespace kelmar {

/// What the panel of a new ECU shows of the chosen function; named like its controls.
struct AddressingFields {
  std::string txAddr;
  std::string txtLogicalAddress;
  std::string lbCanXid;
  std::string lbCanRid;
  bool CbExtended = false;
  bool CbExtendedEnabled = false;
  bool txAddrFree = true; ///< without a function the address is typed
  friend bool operator==(const AddressingFields&, const AddressingFields&) = default;
};

/// The fields of a function, or, for a null node, those of none. `extended` is the box as it stands
/// before: it stays where the function leaves the choice.
AddressingFields addressingFieldsOf(xml::Node function, bool extended);

/// What a new ECU is made from.
struct NewEcu {
  std::int32_t address = 0;
  std::string logicalAddress;
  std::string functionName;
  std::int32_t canXid = -1; ///< -1 when unset; bit 31 marks a 29-bit identifier
  std::int32_t canRid = -1;
};

/// From the chosen function, or, for a null node, from the typed address. Raises TypeMismatch or
/// NumericOverflow for an address or identifier that is no number.
NewEcu newEcuOf(xml::Node function, const std::string& functionName,
                const std::string& typedAddress);

} // namespace kelmar
