// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_goto.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

using Names = std::vector<std::string>;

class DataGoto : public testing::Test {
 protected:
  TargetItem target;
  DataItem* speed = nullptr;

  void SetUp() override {
    target.setDatas(std::make_shared<DataItems>());
    target.setRequests(std::make_shared<RequestItems>());
    target.setOrganes(std::make_shared<OrganeItems>());
    target.Categories = std::make_shared<CategoryItems>();
    speed = target.datas()->Add("Speed & rate");
  }
  DataPositionItem* place(const std::string& request, const char* bytes) {
    auto item = std::make_shared<RequestItem>();
    item->requestName = request;
    item->parent = &target;
    item->RequestBytes = std::make_shared<FrameBuffer>();
    item->RequestBytes->setHexText(bytes);
    item->DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = item->DataPositions->Add(speed->dataName());
    position->parent = target.Requests()->AddData(item);
    return position;
  }
  static std::string shown(const MenuEntry& menu) {
    std::string text = menu.key + " " + menu.text + ":";
    for (const MenuEntry& entry : menu.entries) {
      text += "\n" + entry.key + (entry.enabled ? " " : " (off) ") + entry.text;
      for (const std::string& name : entry.names)
        text += " | " + name;
    }
    return text;
  }
};

TEST_F(DataGoto, ADataThatNothingUsesSaysSoInEveryMenu) {
  EXPECT_EQ(shown(requestsMenu(target, *speed)),
            "menuRequests Requests:\nmenuReq (off) No request");
  EXPECT_EQ(shown(devicesMenu(target, *speed)), "menuDevices Devices:\nmenuDev (off) No device");
  EXPECT_EQ(shown(displaysMenu(target, *speed)), "menuDisplay Display:\nmenuDis (off) No display");
  EXPECT_EQ(shown(identifiersMenu(target, *speed)), "menuDIDs DID:\nmenuDID (off) No DID");
  const TargetItem empty;
  EXPECT_FALSE(devicesMenu(empty, *speed).entries.at(0).enabled);
}

TEST_F(DataGoto, RequestsShowTheReferenceInBrackets) {
  place("R1", "2101");
  place("R2", "2102")->reference = true;
  EXPECT_EQ(shown(requestsMenu(target, *speed)), "menuRequests Requests:\n"
                                                 "menuReq R1 | R1 | Speed & rate\n"
                                                 "menuReq [ R2 ] | R2 | Speed & rate");
  EXPECT_TRUE(requestsMenu(target, *speed).entries.at(0).literal);
}

TEST_F(DataGoto, DevicesAreThoseThatHoldTheDataOrTestIt) {
  const auto device = [&](const char* name) {
    OrganeItem* item = target.Organes()->Add(name);
    item->parent = &target;
    return item;
  };
  device("Lamp");
  device("Sensor")->DeviceDatas->Add(speed->dataName(), false);
  EXPECT_EQ(shown(devicesMenu(target, *speed)),
            "menuDevices Devices:\nmenuDev Sensor | Sensor | Speed & rate");
}

TEST_F(DataGoto, AScreenThatShowsTheDataTwiceHasOneEntry) {
  CategoryItem* category = target.Categories->Add("Tests", &target);
  for (const char* name : {"Motor", "Wheels"}) {
    auto screen = std::make_shared<ScreenItem>();
    screen->screenName = name;
    screen->parent = category;
    screen->DisplayItems = std::make_shared<DisplayItems>();
    for (int i = 0; i < 2; ++i) {
      auto display = std::make_shared<DisplayItem>();
      display->parent = screen.get();
      display->DisplayDataItem = std::make_shared<DisplayDataItem>();
      display->DisplayDataItem->dataName = speed->dataName();
      screen->DisplayItems->AddData(display);
    }
    category->Screens->AddData(screen);
  }
  EXPECT_EQ(shown(displaysMenu(target, *speed)), "menuDisplay Display:\n"
                                                 "menuDis Motor | Tests | Motor | Speed & rate\n"
                                                 "menuDis Wheels | Tests | Wheels | Speed & rate");
}

TEST_F(DataGoto, IdentifiersShowTheBytesOfTheirRequest) {
  place("Read it", "22F190");
  place("Write it", "2EF19000");
  place("Too long", "22F190F191");
  place("Local", "2101");
  EXPECT_EQ(shown(identifiersMenu(target, *speed)),
            "menuDIDs DID:\n"
            "menuDID [22F190] Read it | Read it | Speed & rate\n"
            "menuDID [2EF19000] Write it | Write it | Speed & rate");
}

} // namespace
} // namespace kelmar
