// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelmar {

/// The fields that sum up the open ECU on the first page, each named like its control.
struct EcuSummary {
  std::string TxEcuName;
  std::string txGenericName;
  std::string TextAdresse;
  std::string TextLogicalAdresse;
  std::string TextFunction;
  std::string TextProtocole;
  friend bool operator==(const EcuSummary&, const EcuSummary&) = default;
};

/// None without an open ECU.
std::optional<EcuSummary> summaryOf(const OmnikorLibXml& database);

/// "0" and the hexadecimal address, of which the last four characters: 122 gives "07A".
std::string addressText(std::int32_t address);
/// The address that such a text stands for. Raises TypeMismatch.
std::int32_t addressOfText(const std::string& text);

/// Name of the protocol by which the ECU is reached; empty when the catalogue lacks it.
std::string protocolText(const OmnikorLibXml& database, const TargetParamItem& parameters);

/// Name of the ECU's function; empty when the catalogue lacks its address.
std::string functionText(const OmnikorLibXml& database, std::int32_t address);

} // namespace kelmar
