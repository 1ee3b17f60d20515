// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/page_table.h"

#include <algorithm>
#include <array>

namespace kelmar::frame {

namespace {

constexpr std::array<PageRow, 10> rows{{
    {0, "database", "ECU", "Select Database & ECU", "UceSelector1", "", PageKind::Selector,
     Entry::Selector},
    {1, "UCEparam", "Parameters", "Edit general ECU parameters", "UceEditParam1",
     "MAIN/CONTROLS/TabStripPrincipal/UCEparam/caption", PageKind::Parameter, Entry::Always},
    {2, "datas", "Data", "Edit datas", "UceDatas1", "MAIN/CONTROLS/TabStripPrincipal/datas/caption",
     PageKind::Counted, Entry::Always},
    {3, "requests", "Requests", "Edit ECU requests", "UceRequests1",
     "MAIN/CONTROLS/TabStripPrincipal/requests/caption", PageKind::Counted, Entry::WithDatas},
    {4, "devices", "Devices", "Edit ECU devices", "UceDevices1",
     "MAIN/CONTROLS/TabStripPrincipal/devices/caption", PageKind::Counted, Entry::Always},
    {5, "screens", "Screens", "Edit ECU screens", "UceScreens1",
     "MAIN/CONTROLS/TabStripPrincipal/screens/caption", PageKind::Counted, Entry::WithFileName},
    {6, "readdtc", "ReadDTC", "Definition of request ReadDTC", "UceReadDtc1",
     "MAIN/CONTROLS/TabStripPrincipal/readdtc/caption", PageKind::Counted, Entry::Always},
    {7, "did", "DID", "Edit ECU Data IDentifier", "UceDID1",
     "MAIN/CONTROLS/TabStripPrincipal/did/caption", PageKind::Counted, Entry::WithDatas},
    {8, "labels", "Labels", "Edit Labels", "UceLabels1",
     "MAIN/CONTROLS/TabStripPrincipal/labels/caption", PageKind::Labels, Entry::Always},
    {9, "check", "Check", "Perform some checks on ECU database", "framCheck", "", PageKind::Check,
     Entry::Check},
}};

constexpr std::array<std::string_view, 8> initialised{
    "UceEditParam1", "UceDatas1", "UceRequests1", "UceDevices1",
    "UceReadDtc1",   "UceDID1",   "UceScreens1",  "UceLabels1"};

// The identifier and label pages are left out on purpose: they read their texts when entered.
constexpr std::array<std::string_view, 7> toldTheLanguage{
    "UceEditParam1", "UceDatas1",    "UceRequests1", "UceDevices1",
    "UceScreens1",   "UceSelector1", "UceReadDtc1"};

template <class Matches>
const PageRow* find(Matches matches) {
  const auto found = std::find_if(rows.begin(), rows.end(), matches);
  return found == rows.end() ? nullptr : &*found;
}

} // namespace

std::span<const PageRow> pageTable() {
  return rows;
}

const PageRow* rowOfTab(std::string_view key) {
  return find([key](const PageRow& row) { return row.key == key; });
}

const PageRow* rowOfPage(std::string_view page) {
  return find([page](const PageRow& row) { return row.page == page; });
}

const PageRow* rowOfIndex(int index) {
  return find([index](const PageRow& row) { return row.index == index; });
}

std::span<const std::string_view> initOrder() {
  return initialised;
}

std::span<const std::string_view> languageOrder() {
  return toldTheLanguage;
}

} // namespace kelmar::frame
