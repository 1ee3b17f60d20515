// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/routing_table.h"

#include <algorithm>

namespace kelmar::frame {

namespace {

using Properties = std::vector<std::string_view>;

const std::vector<Route>& routes() {
  static const Properties request{"EditRequestName", "EditDataName"};
  static const Properties screen{"EditCategoryName", "EditScreenName", "EditDataName"};
  static const Properties data{"EditDataName"};
  static const Properties device{"EditDeviceName"};
  static const std::vector<Route> table{
      {"UceDatas1", "OnRequestSelect", "UceRequests1", request, "", "requests"},
      {"UceDatas1",
       "OnDeviceSelect",
       "UceDevices1",
       {"EditDeviceName", "EditDeviceDataName"},
       "",
       "devices"},
      {"UceDatas1", "OnDisplaySelect", "UceScreens1", screen, "", "screens"},
      {"UceDatas1",
       "OnDIDSelect",
       "UceDID1",
       {"DIDToBeSelected", "DataPosToBeSelected"},
       "",
       "did"},
      {"UceRequests1", "OnDataSelect", "UceDatas1", data, "", "datas"},
      {"UceRequests1", "OnDeviceSelect", "UceDevices1", device, "", "devices"},
      {"UceRequests1", "OnDisplaySelect", "UceScreens1", screen, "", "screens"},
      {"UceRequests1", "OnDIDSelect", "UceDID1", {"DIDToBeSelected"}, "", "did"},
      {"UceRequests1", "OnCopyDataToScreen", "UceScreens1", {}, "CopyDataToScreen", ""},
      {"UceDevices1", "OnDataSelect", "UceDatas1", data, "", "datas"},
      {"UceDevices1", "OnRequestSelect", "UceRequests1", request, "", "requests"},
      {"UceReadDtc1", "OnDataSelect", "UceDatas1", data, "", "datas"},
      {"UceReadDtc1", "OnRequestSelect", "UceRequests1", request, "", "requests"},
      {"UceScreens1", "OnDataSelect", "UceDatas1", data, "", "datas"},
      {"UceScreens1", "OnRequestSelect", "UceRequests1", request, "", "requests"},
      {"UceDID1", "OnDataSelect", "UceDatas1", data, "", "datas"},
      {"UceDID1", "OnRequestSelect", "UceRequests1", request, "", "requests"},
      {"UceDID1", "OnDeviceSelect", "UceDevices1", device, "", "devices"},
  };
  return table;
}

} // namespace

std::span<const Route> routingTable() {
  return routes();
}

std::optional<GoTo> routeOf(std::string_view source, std::string_view event,
                            const std::vector<std::string>& arguments) {
  const auto found = std::find_if(routes().begin(), routes().end(), [&](const Route& route) {
    return route.source == source && route.event == event;
  });
  if (found == routes().end()) return std::nullopt;
  GoTo goTo;
  goTo.target = found->target;
  for (std::size_t i = 0; i < found->properties.size(); ++i)
    goTo.writes.emplace_back(found->properties[i],
                             i < arguments.size() ? arguments[i] : std::string());
  goTo.operation = found->operation;
  if (!goTo.operation.empty()) goTo.arguments = arguments;
  goTo.tab = found->tab;
  return goTo;
}

} // namespace kelmar::frame
