// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/identification_search.h"

#include "base/text.h"

#include <algorithm>

namespace kelmar {

namespace {

bool sameText(const std::string& a, const std::string& b) {
  return a == b || foldCase(a) == foldCase(b);
}

std::optional<int> codeOf(const EcuIdentification& has, const Identification& wanted) {
  if (!sameText(has.SupplierCode, wanted.supplier)) return std::nullopt;
  const bool diag = has.DiagNumber == wanted.diagVersion;
  if (!sameText(has.Soft, wanted.soft)) return diag ? 3 : 6;
  if (!sameText(has.Version, wanted.version)) return diag ? 2 : 5;
  return diag ? 0 : 4;
}

int protocolPart(const EcuHead& head, const Identification& wanted) {
  return protocolFits(head.protocol, wanted.protocol) ? 0 : otherProtocol;
}

} // namespace

bool protocolFits(EcuProtocol protocol, std::int32_t number) {
  switch (number) {
  case 0:
    return true;
  case 1:
    return protocol == EcuProtocol::Can || protocol == EcuProtocol::CanFd;
  case 2:
    return protocol == EcuProtocol::KwpFastInitMono || protocol == EcuProtocol::Iso8;
  case 3:
    return protocol == EcuProtocol::KwpFastInitMulti;
  case 4:
    return protocol == EcuProtocol::Kwp5BaudType1;
  case 5:
    return protocol == EcuProtocol::Kwp5BaudType2;
  case 6:
    return protocol == EcuProtocol::Iso8;
  case 7:
    return protocol == EcuProtocol::CanMessaging;
  case 8: // CAN-FD in the search panel, IP on the parameter page
    return protocol == EcuProtocol::CanFd || protocol == EcuProtocol::Ip;
  case 9:
    return protocol == EcuProtocol::Ip;
  default:
    return false;
  }
}

std::optional<int> identificationCode(const EcuHead& head, const Identification& wanted) {
  std::optional<int> best;
  for (const EcuIdentification& has : head.autoIdents)
    if (const auto code = codeOf(has, wanted); code && (!best || *code < *best)) best = code;
  if (best) *best += protocolPart(head, wanted);
  return best;
}

IdentificationMatch findByIdentification(std::vector<std::string> files,
                                         const Identification& wanted,
                                         const SearchProgress& progress) {
  std::sort(files.begin(), files.end());
  files.erase(std::unique(files.begin(), files.end()), files.end());
  IdentificationMatch best, unique;
  std::size_t ofFunction = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const EcuHead head = readEcuHead(files[i], wanted.function);
    if (head.ok() && head.functionAddress == wanted.function) {
      if (++ofFunction == 1) unique = {uniqueCode + protocolPart(head, wanted), files[i], false};
      const auto code = identificationCode(head, wanted);
      // The files come by path, so of equal ones the first stays.
      if (code && (!best.found() || *code < best.code)) best = {*code, files[i], false};
    }
    if (progress && !progress(i + 1, files.size())) return {-1, {}, true};
    if (best.code == 0) return best; // nothing that follows can be better
  }
  if (ofFunction == 1 && (!best.found() || unique.code < best.code)) return unique;
  return best;
}

} // namespace kelmar
