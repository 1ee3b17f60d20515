// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/requests/request_goto.h"
#include "editors/rules/requests/request_menu.h"

namespace kelmar {
namespace {

using testing::RequestEcu;

/// One line an entry: key, and "-" where it cannot be chosen; entries below are indented.
std::string menuText(const std::vector<MenuEntry>& entries, const std::string& indent = "") {
  std::string text;
  for (const MenuEntry& entry : entries) {
    if (entry.kind == MenuEntry::Kind::Separator) continue;
    text += indent + entry.key + (entry.enabled ? "" : " -") + "\n";
    text += menuText(entry.entries, indent + "  ");
  }
  return text;
}

TEST(RequestMenu, HoldsAllEntriesInTheirOrder) {
  RequestPageState state{.open = true, .active = true, .selected = 2, .canRvt = true};
  EXPECT_EQ(menuText(requestMenu(state, nullptr, nullptr)), R"(PopupReqCut
PopupReqCopy
PopupReqCopyText
PopupReqPaste
mnuRequestSelectAll
mnuRequestSelect
  mnuRequestSelectMaintenability
  mnuRequestSelectManualSend
  mnuRequestSelectWithParam
  mnuRequestSelectWithoutParam
PopupReqManuel
  PopupReqManuelSet
  PopupReqManuelClear
PopupReqDM
  PopupReqDMSet
  PopupReqDMClear
PopupReqRef
  PopupReqRefParamSet
  PopupReqRefParamClear
  PopupReqRefDataSet
  PopupReqRefDataClear
PopupReplyTemplate
  PopupReplyTemplateNormalize
  PopupReplyTemplateNormalizeAll
PopupReqNormalize
PopupReqChCase
  PopupReqUcase
  PopupReqlcase
  PopupReqCapword
  PopupReqCapword1
PopupReqReplace
mnuGenerateRVTtests
mnuTradConfig
  mnuTradConfigSelectWriteRequests
  mnuTradConfigCopy
PopupReqHelp
)");
}

TEST(RequestMenu, WaysToOtherPagesStandInFrontOnceThosePagesAreThere) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read", "22F190");
  RequestPageState state{.open = true, .active = true, .selected = 1};
  state.hasScreensPage = state.hasDevicesPage = state.hasDidPage = true;
  const std::string text = menuText(requestMenu(state, &ecu.target(), &request));
  EXPECT_EQ(text.substr(0, text.find("PopupReqCut")), "PopupReqGotoScreens\n"
                                                      "  PopupReqGotoScreensName -\n"
                                                      "PopupReqGotoDevice -\n"
                                                      "PopupReqGotoDID\n");
  EXPECT_NE(text.find("\nPopupReqCreateDevice\n"), std::string::npos);
  EXPECT_EQ(requestMenu(state, &ecu.target(), &request)[0].entries[0].text, "No screens");
  request.RequestBytes->setHexText("22F1");
  EXPECT_NE(menuText(requestMenu(state, &ecu.target(), &request)).find("PopupReqGotoDID -"),
            std::string::npos);
}

TEST(RequestMenu, StateMatrix) {
  struct Row {
    const char* key;
    const char* allowed; // c closed, o open, s selected, a selected and active
  };
  const Row rows[] = {{"cancel", ""},
                      {"valid", "a"},
                      {"save", "a"},
                      {"new", "osa"},
                      {"rename", "a"},
                      {"find", "osa"},
                      {"cut", "sa"},
                      {"copy", "sa"},
                      {"paste", "osa"},
                      {"help", "cosa"},
                      {"PopupReqCut", "sa"},
                      {"PopupReqCopyText", "sa"},
                      {"PopupReqPaste", "osa"},
                      {"mnuRequestSelectAll", "osa"},
                      {"mnuRequestSelectWithParam", "osa"},
                      {"PopupReqManuelSet", "sa"},
                      {"PopupReqRefParamSet", "sa"},
                      {"PopupReplyTemplateNormalize", "a"},
                      {"PopupReplyTemplateNormalizeAll", "osa"},
                      {"PopupReqReplace", "sa"},
                      {"mnuGenerateRVTtests", "sa"},
                      {"mnuTradConfigCopy", "sa"},
                      {"mnuTradConfigSelectWriteRequests", "osa"},
                      {"PopupReqHelp", "cosa"}};
  const std::pair<char, RequestPageState> states[] = {
      {'c', {}},
      {'o', {.open = true}},
      {'s', {.open = true, .selected = 1}},
      {'a', {.open = true, .active = true, .selected = 3}}};
  for (const Row& row : rows)
    for (const auto& [name, state] : states)
      EXPECT_EQ(isRequestCommandEnabled(row.key, state),
                std::string(row.allowed).find(name) != std::string::npos)
          << row.key << " in " << name;
  EXPECT_TRUE(isRequestCommandEnabled("cancel", {.open = true, .active = true, .pending = true}));
}

TEST(RequestGoto, NamesDisplaysAndButtonsOfScreens) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read");
  ecu.place(request, "Speed");
  ScreenItem& screen = ecu.addScreen("Cat", "Main");
  ecu.addDisplay(screen, "Read", "Speed");
  ecu.addDisplay(screen, "Other", "Speed");
  ButtonItem& init = ecu.addButton(screen, "", {"Read"});
  init.InitButton = true;
  for (const auto& button : screen.ButtonItems->members())
    if (button.get() == &init) screen.ButtonInit = button;
  ecu.addButton(screen, "Go & on", {"Other", "Read", "Read"});
  const std::vector<MenuEntry> entries = screensOfRequest(ecu.target(), request);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].text, "Main (Speed)");
  EXPECT_EQ(entries[0].names, (std::vector<std::string>{"Cat", "Main", "Speed"}));
  EXPECT_EQ(entries[1].text, "Main [init scenario]");
  EXPECT_EQ(entries[2].text, "Main [button : Go & on]");
  EXPECT_TRUE(entries[2].literal);
  EXPECT_EQ(entries[2].names, (std::vector<std::string>{"Cat", "Main", "Go & on"}));
}

TEST(RequestGoto, NamesDevicesWithTheRequestAsFreezeFrame) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read");
  ecu.addDevice("Pump").requestName = "Read";
  ecu.addDevice("Valve");
  const std::vector<MenuEntry> entries = devicesOfRequest(ecu.target(), request);
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].text, "Pump");
  EXPECT_EQ(entries[0].names, std::vector<std::string>{"Pump"});
}

} // namespace
} // namespace kelmar
