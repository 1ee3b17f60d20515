// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_rows.h"

#include "common/item_names.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

std::string text(const char* defaultText, const char* key) {
  return language::global().getMultilangMessageDefault(defaultText, key);
}

std::string spacesText() {
  return text("Request name has leading or trailing space, or has multiple spaces",
              "REQUESTS/MSG/ShowErrorMsg/hasSpaces/text");
}

} // namespace

RequestFinding findingOf(const RequestItem& request, const TargetItem& target) {
  if (hasStraySpaces(request.requestName)) return RequestFinding::StraySpaces;
  // These addresses belong to no single ECU, where frames have no service byte of one protocol.
  if (!request.DataPositions || target.Address() == 255 || target.Address() == 0)
    return RequestFinding::None;
  for (const DataPositionItem* position : *request.DataPositions) {
    if (position->StartOctet != 1) continue;
    return position->param ? RequestFinding::ParameterOnServiceByte
                           : RequestFinding::DataOnServiceByte;
  }
  return RequestFinding::None;
}

std::string findingToolTip(RequestFinding finding) {
  switch (finding) {
  case RequestFinding::StraySpaces:
    return spacesText();
  case RequestFinding::ParameterOnServiceByte:
    return text("Warning : There is parameter on service code.",
                "REQUESTS/MSG/setRequestListView/parameterOnServiceByte/text");
  case RequestFinding::DataOnServiceByte:
    return text("Warning : There is data on service code.",
                "REQUESTS/MSG/setRequestListView/dataOnFirstByte/text");
  case RequestFinding::None:
    break;
  }
  return {};
}

std::string findingText(RequestFinding finding) {
  switch (finding) {
  case RequestFinding::StraySpaces:
    return spacesText();
  case RequestFinding::ParameterOnServiceByte:
    return text("Request with parameter on service byte. It's dangerous to put parameter on "
                "service code. Use parameter on field that can be changed by users.",
                "REQUESTS/MSG/ShowErrorMsg/parameterOnServiceByte/text");
  case RequestFinding::DataOnServiceByte:
    return text("Request with data on 1st byte. It's useless to inform this byte which is "
                "automatically controlled by Omnikor to verify the conformity with the protocol.",
                "REQUESTS/MSG/ShowErrorMsg/dataOnFirstByte/text");
  case RequestFinding::None:
    break;
  }
  return {};
}

std::string requestCell(const RequestItem& request, int column) {
  switch (column) {
  case RequestNameColumn:
    return request.requestName;
  case SendBytesColumn:
    return request.RequestBytes ? request.RequestBytes->HexText() : "";
  case RequestCommentColumn:
    return request.Commentaire;
  default:
    return {};
  }
}

std::string requestIcon(const RequestItem& request) {
  if (request.DossierMaintenabilite) return request.ManuelSend ? "dmmanual" : "dm";
  return request.ManuelSend ? "manual" : "none";
}

std::string requestCountText(int count) {
  return language::global().getMultilangMessageDefault(
      "{0} request(s)", "REQUESTS/MSG/RefreshListCount/request/text", std::to_string(count));
}

} // namespace kelmar
