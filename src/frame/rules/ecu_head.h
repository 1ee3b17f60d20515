// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// How an ECU is reached, as its file says.
enum class EcuProtocol {
  Unknown,
  Iso8,
  Kwp5BaudType1,
  Kwp5BaudType2,
  KwpFastInitMono,
  KwpFastInitMulti,
  Can,
  CanFd,
  CanMessaging,
  Ip,
};

/// One of the software versions by which an ECU is recognised.
struct EcuIdentification {
  std::int32_t DiagNumber = 0;
  std::string SupplierCode, Soft, Version;
};

/// What stands in an ECU file before its data: who the ECU is and how it is reached and recognised.
struct EcuHead {
  /// Why there is no head, in plain English; empty when there is one. All else is empty with it.
  std::string trouble;

  std::string name, group;
  std::string functionName;
  std::optional<std::int32_t> functionAddress; ///< as the file says it; none: missing or no number
  std::string logicalAddress;
  std::string comment; ///< at most 2,000 characters of it
  std::vector<std::string> projects;
  EcuProtocol protocol = EcuProtocol::Unknown;
  std::int32_t canFdMaxLength = 0; ///< bytes; 0: no CAN-FD
  std::string ipAddress, macAddress;
  /// Those before the first incomplete one, which the loading of the file does not get past either.
  std::vector<EcuIdentification> autoIdents;

  std::size_t bytesRead = 0; ///< of the file, to get all this

  bool ok() const { return trouble.empty(); }
};

/// Reads an ECU file up to the end of its `AutoIdents`, and never beyond the start of its data,
/// requests, devices or screens. The rest of the file may be anything. Takes the encodings of
/// xml::Document, refuses what it refuses, and a head of more than 16 MB. Never raises.
///
/// `onlyFunction`: the head of an ECU of another function is not wanted. Reading ends where that is
/// known, and the head holds what was read until then.
EcuHead readEcuHead(const std::string& path, std::optional<std::int32_t> onlyFunction = {});

} // namespace kelmar
