// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/conversions.h"
#include "database/omnikor_lib_xml.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// A number with a default value: "InterByte" stands for the controls `TextInterByte` and
/// `CheckInterByte`.
struct ParameterNumber {
  const char* name;
  TargetParamItem::Field index;
  std::int32_t TargetParamItem::*value;
};
inline constexpr std::size_t parameterNumberCount = 9;
/// In the order in which they are taken over; the baud rate is the first one.
const std::array<ParameterNumber, parameterNumberCount>& parameterNumbers();
/// Text of the default value.
std::string defaultNumberText(const ParameterNumber& number);
/// None for a text that does not convert.
std::optional<std::int32_t> readParameterNumber(const std::string& text);

/// What the fields of the parameter page hold, one member for each control. Numbers are text as
/// typed. The default value is that of an empty page.
struct EditParamFields {
  struct Number {
    std::string text = {};
    bool changed = false; ///< the box: not the default value

    friend bool operator==(const Number&, const Number&) = default;
  };

  std::string txtEmail = {};
  std::string Comment = {};       ///< lines end with CR LF
  std::string KW1 = {}, KW2 = {}; ///< hexadecimal
  int ComboTypeCom = 0;           ///< position in the catalogue, from 1; 0: no protocol
  std::string ComboBaudRate = "500000";
  std::array<Number, parameterNumberCount> numbers = {};
  bool littleEndian = false;
  std::string TextReprog = {};
  bool CheckCGW = false, CheckCGWIP = false;
  std::string ComboMaxDataLangthCANFD = "64"; ///< bytes
  std::string DateOfficia = {};               ///< as stored; empty: unchecked
  std::string txIPAddress = {}, txMACAddress = {};
  std::string ComboTypePanne = {};
  std::int32_t canXid = -1, canRid = -1; ///< as stored

  friend bool operator==(const EditParamFields&, const EditParamFields&) = default;
};

/// Entries of the lists with fixed entries.
const std::vector<std::string>& canBaudRates();     ///< bit/s
const std::vector<std::string>& canFdDataLengths(); ///< bytes

/// The fields of the open ECU; none without one.
std::optional<EditParamFields> fieldsOf(const OmnikorLibXml& database);

/// Copies the fields into the open ECU, in the fixed order. A number or key byte that does not
/// convert leaves what was there. Placeholders in the fields of IP give way to addresses.
void applyFields(const EditParamFields& fields, OmnikorLibXml& database);

/// The moment that a stored date means; "." may stand for "/". None for a text that is no date.
std::optional<DateTime> readOfficialDate(const std::string& stored);
/// "21/11/2026 08:30:00".
std::string officialDateText(const DateTime& moment);

} // namespace kelmar
