// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/routing_table.h"

#include "frame/rules/page_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelmar::frame {

namespace {

std::string joined(const std::vector<std::string>& texts) {
  std::string line;
  for (const std::string& text : texts)
    line += (line.empty() ? "" : ",") + text;
  return line;
}

/// One line for what the frame does: writes, operation, tab.
std::string lineOf(const GoTo& goTo) {
  std::string line;
  for (const auto& [property, value] : goTo.writes)
    line += goTo.target + "." + property + "=" + value + " ";
  if (!goTo.operation.empty())
    line += goTo.target + "." + goTo.operation + "(" + joined(goTo.arguments) + ") ";
  return line + "-> " + (goTo.tab.empty() ? "no tab" : goTo.tab);
}

struct Row {
  const char* source;
  const char* event;
  const char* expected;
};

const Row everyRow[] = {
    {"UceDatas1", "OnRequestSelect",
     "UceRequests1.EditRequestName=a UceRequests1.EditDataName=b -> requests"},
    {"UceDatas1", "OnDeviceSelect",
     "UceDevices1.EditDeviceName=a UceDevices1.EditDeviceDataName=b -> devices"},
    {"UceDatas1", "OnDisplaySelect",
     "UceScreens1.EditCategoryName=a UceScreens1.EditScreenName=b UceScreens1.EditDataName=c "
     "-> screens"},
    {"UceDatas1", "OnDIDSelect", "UceDID1.DIDToBeSelected=a UceDID1.DataPosToBeSelected=b -> did"},
    {"UceRequests1", "OnDataSelect", "UceDatas1.EditDataName=a -> datas"},
    {"UceRequests1", "OnDeviceSelect", "UceDevices1.EditDeviceName=a -> devices"},
    {"UceRequests1", "OnDisplaySelect",
     "UceScreens1.EditCategoryName=a UceScreens1.EditScreenName=b UceScreens1.EditDataName=c "
     "-> screens"},
    {"UceRequests1", "OnDIDSelect", "UceDID1.DIDToBeSelected=a -> did"},
    {"UceRequests1", "OnCopyDataToScreen", "UceScreens1.CopyDataToScreen(a,b,c) -> no tab"},
    {"UceDevices1", "OnDataSelect", "UceDatas1.EditDataName=a -> datas"},
    {"UceDevices1", "OnRequestSelect",
     "UceRequests1.EditRequestName=a UceRequests1.EditDataName=b -> requests"},
    {"UceReadDtc1", "OnDataSelect", "UceDatas1.EditDataName=a -> datas"},
    {"UceReadDtc1", "OnRequestSelect",
     "UceRequests1.EditRequestName=a UceRequests1.EditDataName=b -> requests"},
    {"UceScreens1", "OnDataSelect", "UceDatas1.EditDataName=a -> datas"},
    {"UceScreens1", "OnRequestSelect",
     "UceRequests1.EditRequestName=a UceRequests1.EditDataName=b -> requests"},
    {"UceDID1", "OnDataSelect", "UceDatas1.EditDataName=a -> datas"},
    {"UceDID1", "OnRequestSelect",
     "UceRequests1.EditRequestName=a UceRequests1.EditDataName=b -> requests"},
    {"UceDID1", "OnDeviceSelect", "UceDevices1.EditDeviceName=a -> devices"},
};

} // namespace

TEST(RoutingTable, EveryRowWritesItsPropertiesAndSelectsItsTab) {
  for (const Row& row : everyRow) {
    const auto goTo = routeOf(row.source, row.event, {"a", "b", "c"});
    ASSERT_TRUE(goTo) << row.source << " " << row.event;
    EXPECT_EQ(lineOf(*goTo), row.expected) << row.source << " " << row.event;
  }
}

TEST(RoutingTable, HasNoOtherRows) {
  EXPECT_EQ(routingTable().size(), std::size(everyRow));
  EXPECT_FALSE(routeOf("UceDatas1", "OnDataSelect", {"a"}));
  EXPECT_FALSE(routeOf("UceSelector1", "OnDataSelect", {"a"}));
  EXPECT_FALSE(routeOf("UceEditParam1", "OnRequestSelect", {"a", "b"}));
  EXPECT_FALSE(routeOf("UceReadDtc1", "OnDeviceSelect", {"a", "b"}));
}

TEST(RoutingTable, MissingArgumentIsWrittenAsEmptyText) {
  const auto goTo = routeOf("UceDatas1", "OnRequestSelect", {"Read"});
  ASSERT_TRUE(goTo);
  EXPECT_EQ(lineOf(*goTo),
            "UceRequests1.EditRequestName=Read UceRequests1.EditDataName= -> requests");
}

TEST(RoutingTable, EverySourceTargetAndTabIsInThePageTable) {
  for (const Route& route : routingTable()) {
    EXPECT_NE(rowOfPage(route.source), nullptr) << route.source;
    const PageRow* target = rowOfPage(route.target);
    ASSERT_NE(target, nullptr) << route.target;
    EXPECT_TRUE(route.tab.empty() || target->key == route.tab) << route.tab;
  }
}

TEST(PageTable, TabsStandInTheirOrderWithTheirPages) {
  std::string table;
  for (const PageRow& row : pageTable())
    table += std::to_string(row.index) + " " + std::string(row.key) + " | " +
             std::string(row.caption) + " | " + std::string(row.toolTip) + " | " +
             std::string(row.page) + "\n";
  EXPECT_EQ(table, "0 database | ECU | Select Database & ECU | UceSelector1\n"
                   "1 UCEparam | Parameters | Edit general ECU parameters | UceEditParam1\n"
                   "2 datas | Data | Edit datas | UceDatas1\n"
                   "3 requests | Requests | Edit ECU requests | UceRequests1\n"
                   "4 devices | Devices | Edit ECU devices | UceDevices1\n"
                   "5 screens | Screens | Edit ECU screens | UceScreens1\n"
                   "6 readdtc | ReadDTC | Definition of request ReadDTC | UceReadDtc1\n"
                   "7 did | DID | Edit ECU Data IDentifier | UceDID1\n"
                   "8 labels | Labels | Edit Labels | UceLabels1\n"
                   "9 check | Check | Perform some checks on ECU database | framCheck\n");
}

TEST(PageTable, CaptionKeysFollowTheTabKeys) {
  for (const PageRow& row : pageTable()) {
    const bool translated = row.index >= 1 && row.index <= 8;
    EXPECT_EQ(row.captionKey,
              translated ? "MAIN/CONTROLS/TabStripPrincipal/" + std::string(row.key) + "/caption"
                         : "");
  }
}

TEST(PageTable, FindsRowsByTabPageAndIndex) {
  EXPECT_EQ(rowOfTab("did"), rowOfPage("UceDID1"));
  EXPECT_EQ(rowOfTab("did"), rowOfIndex(7));
  EXPECT_EQ(rowOfTab("nothing"), nullptr);
  EXPECT_EQ(rowOfPage("UceNothing1"), nullptr);
  EXPECT_EQ(rowOfIndex(10), nullptr);
  EXPECT_EQ(rowOfIndex(-1), nullptr);
}

TEST(PageTable, PagesAreInitialisedAndToldTheLanguageInTheirOwnOrders) {
  std::string order;
  for (const std::string_view page : initOrder())
    order += std::string(page) + " ";
  EXPECT_EQ(order, "UceEditParam1 UceDatas1 UceRequests1 UceDevices1 UceReadDtc1 UceDID1 "
                   "UceScreens1 UceLabels1 ");
  order.clear();
  for (const std::string_view page : languageOrder())
    order += std::string(page) + " ";
  EXPECT_EQ(order, "UceEditParam1 UceDatas1 UceRequests1 UceDevices1 UceScreens1 UceSelector1 "
                   "UceReadDtc1 ");
}

} // namespace kelmar::frame
