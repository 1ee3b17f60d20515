// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/uds_identification.h"

#include "frame/rules/communication_protocol.h"

namespace kelmar {

namespace {

/// Service 22 with an identifier from F180 to F1FF.
bool readsIdentification(const RequestItem& request) {
  if (!request.RequestBytes) return false;
  const std::string bytes = request.RequestBytes->HexText();
  return bytes.size() >= 6 && bytes.starts_with("22F1") && bytes[4] >= '8';
}

} // namespace

bool usesUdsIdentification(std::int32_t protocol, const TargetItem& target) {
  if (protocol == canFdCode || protocol == ipCode) return true;
  if (protocol != canCode && protocol != canMessagingCode) return false;
  if (!target.Requests()) return false;
  for (const RequestItem* request : *target.Requests())
    if (readsIdentification(*request)) return true;
  return false;
}

} // namespace kelmar
