// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_commands.h"

#include "common/item_names.h"
#include "common/reference_index.h"

namespace kelmar {

namespace {

/// Service of the request, 0 without bytes; no service has that number.
std::uint8_t serviceOf(const RequestItem& request) {
  return request.RequestBytes && request.RequestBytes->Length() > 0
             ? request.RequestBytes->bytes().front()
             : 0;
}

RequestSelection setFlag(const RequestSelection& requests, bool RequestItem::*flag, bool value) {
  RequestSelection changed;
  for (RequestItem* request : requests) {
    if (request->*flag == value) continue;
    request->*flag = value;
    changed.push_back(request);
  }
  return changed;
}

} // namespace

RequestItems& requestsOf(TargetItem& target) {
  if (!target.Requests()) target.setRequests(std::make_shared<RequestItems>());
  return *target.Requests();
}

RequestItem* newRequest(TargetItem& target) {
  RequestItems& requests = requestsOf(target);
  RequestItem* request = requests.Add(
      freeNewName([&](const std::string& name) { return requests.ItemName(name) != nullptr; }));
  request->parent = &target;
  request->RequestBytes = std::make_shared<FrameBuffer>();
  request->RequestBytes->setHexText("2180");
  request->ReplyBytes = std::make_shared<FrameBuffer>();
  return request;
}

void renameTyped(TargetItem& target, RequestItem& request, const std::string& typed) {
  target.RenameRequest(&request, typedName(typed));
}

RequestSelection renameRequests(TargetItem& target, const RequestSelection& requests,
                                const std::function<std::string(const std::string&)>& newName) {
  std::vector<TargetItem::RequestRename> renames;
  for (RequestItem* request : requests) {
    std::string name = newName(request->requestName);
    if (name != request->requestName) renames.push_back({request, std::move(name)});
  }
  const std::vector<bool> done = target.RenameRequests(renames);
  RequestSelection renamed;
  for (std::size_t i = 0; i < renames.size(); ++i)
    if (done[i]) renamed.push_back(renames[i].item);
  return renamed;
}

RequestSelection setManuelSend(const RequestSelection& requests, bool value) {
  return setFlag(requests, &RequestItem::ManuelSend, value);
}

RequestSelection setDossierMaintenabilite(const RequestSelection& requests, bool value) {
  return setFlag(requests, &RequestItem::DossierMaintenabilite, value);
}

RequestSelection SetReferenceAll(const TargetItem& target, const RequestSelection& requests,
                                 bool parameters, bool setFlag) {
  ReferenceIndex references(target);
  const std::unordered_set<std::string> inDevices =
      setFlag ? std::unordered_set<std::string>() : deviceDataNames(target);
  RequestSelection changed;
  for (RequestItem* request : requests) {
    if (!request->DataPositions) continue;
    bool change = false;
    for (DataPositionItem* position : *request->DataPositions) {
      if (position->param != parameters || position->reference == setFlag) continue;
      if (setFlag ? references.isReferenced(position->dataName)
                  : inDevices.contains(position->dataName))
        continue;
      position->reference = setFlag;
      if (setFlag) references.add(position->dataName);
      change = true;
    }
    if (change) changed.push_back(request);
  }
  return changed;
}

bool hasParameter(const RequestItem& request) {
  if (!request.DataPositions) return false;
  for (const DataPositionItem* position : *request.DataPositions)
    if (position->param) return true;
  return false;
}

bool isWriteRequest(const RequestItem& request) {
  const std::uint8_t service = serviceOf(request);
  return service == 0x2E || service == 0x3B;
}

bool isDidRequest(const RequestItem& request) {
  const std::uint8_t service = serviceOf(request);
  if (service == 0x22) return request.RequestBytes->Length() == 3;
  return service == 0x2E && request.RequestBytes->Length() >= 3;
}

} // namespace kelmar
