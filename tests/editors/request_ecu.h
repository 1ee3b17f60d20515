// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/ecu.h"

#include <initializer_list>

namespace kelmar::testing {

/// A small ECU at address 7A with requests that can be asked for by name.
class RequestEcu : public Ecu {
 public:
  RequestEcu() { makeNew(); }

  DataItem& addData(const std::string& name, int bits = 8, bool numeric = true) {
    DataItem* data = target().datas()->Add(name);
    data->parent = &target();
    data->NumberBits = bits;
    data->numerique = numeric;
    return *data;
  }
  RequestItem& addRequest(const std::string& name, const std::string& sent = "2180",
                          const std::string& reply = "") {
    RequestItem* request = target().Requests()->Add(name);
    request->parent = &target();
    request->RequestBytes = std::make_shared<FrameBuffer>();
    request->RequestBytes->setHexText(sent);
    request->ReplyBytes = std::make_shared<FrameBuffer>();
    request->ReplyBytes->setHexText(reply);
    return *request;
  }
  /// The data is made when the ECU lacks it.
  DataPositionItem& place(RequestItem& request, const std::string& data, bool param = false,
                          int byte = 2, int bit = 0, bool reference = false) {
    if (!target().datas()->ItemName(data)) addData(data);
    if (!request.DataPositions) request.DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = request.DataPositions->Add(data);
    position->parent = &request;
    position->param = param;
    position->StartOctet = byte;
    position->StartBit = bit;
    position->reference = reference;
    return *position;
  }
  RequestItem& request(const std::string& name) {
    RequestItem* found = target().Requests()->ItemName(name);
    if (!found) throw std::runtime_error("no request " + name);
    return *found;
  }
  std::vector<RequestItem*> requests(std::initializer_list<const char*> names) {
    std::vector<RequestItem*> found;
    for (const char* name : names)
      found.push_back(&request(name));
    return found;
  }
  std::vector<RequestItem*> allRequests() {
    std::vector<RequestItem*> found;
    for (RequestItem* member : *target().Requests())
      found.push_back(member);
    return found;
  }
  /// Joined by "|".
  std::string requestNames() const {
    std::string names;
    for (const RequestItem* request : *target().Requests())
      names += (names.empty() ? "" : "|") + request->requestName;
    return names;
  }
  OrganeItem& addDevice(const std::string& name, std::initializer_list<const char*> datas = {}) {
    OrganeItem* device = target().Organes()->Add(name);
    device->parent = &target();
    for (const char* data : datas)
      device->DeviceDatas->Add(data, false)->parent = device;
    return *device;
  }
  ScreenItem& addScreen(const std::string& category, const std::string& name) {
    if (!target().Categories) target().Categories = std::make_shared<CategoryItems>();
    CategoryItem* owner = target().Categories->ItemName(category);
    if (!owner) owner = target().Categories->Add(category, &target());
    auto screen = std::make_shared<ScreenItem>();
    screen->screenName = name;
    screen->parent = owner;
    return *owner->Screens->AddData(screen);
  }
  DisplayItem& addDisplay(ScreenItem& screen, const std::string& request, const std::string& data) {
    if (!screen.DisplayItems) screen.DisplayItems = std::make_shared<DisplayItems>();
    auto display = std::make_shared<DisplayItem>();
    display->parent = &screen;
    display->DisplayDataItem = std::make_shared<DisplayDataItem>();
    display->DisplayDataItem->parent = display.get();
    display->DisplayDataItem->requestName = request;
    display->DisplayDataItem->dataName = data;
    return *screen.DisplayItems->AddData(display);
  }
  ButtonItem& addButton(ScreenItem& screen, const std::string& caption,
                        std::initializer_list<const char*> requests) {
    if (!screen.ButtonItems) screen.ButtonItems = std::make_shared<ButtonItems>();
    auto button = std::make_shared<ButtonItem>();
    button->parent = &screen;
    button->caption = caption;
    button->ScenarioItems = std::make_shared<ScenarioItems>();
    for (const char* request : requests)
      button->ScenarioItems->Add(request, 0)->parent = button.get();
    return *screen.ButtonItems->AddData(button);
  }
};

/// Position by position: "name byte.bit L|B s|r [ref]", joined by ", ".
inline std::string positionsText(const RequestItem& request) {
  std::string text;
  if (!request.DataPositions) return "none";
  for (const DataPositionItem* position : *request.DataPositions)
    text += (text.empty() ? "" : ", ") + position->dataName + " " +
            std::to_string(position->StartOctet) + "." + std::to_string(position->StartBit) +
            (position->LittleEndian ? " L" : " B") + (position->param ? " s" : " r") +
            (position->reference ? " ref" : "");
  return text;
}

} // namespace kelmar::testing
