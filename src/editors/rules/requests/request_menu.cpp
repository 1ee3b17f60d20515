// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_menu.h"

#include "editors/rules/requests/request_commands.h"
#include "editors/rules/requests/request_goto.h"
#include "language/multi_lang.h"

#include <algorithm>
#include <string_view>

namespace kelmar {

namespace {

using Entries = std::vector<MenuEntry>;

/// Keys that need nothing but an open ECU.
constexpr std::string_view withoutSelection[] = {"new",
                                                 "paste",
                                                 "find",
                                                 "PopupReqPaste",
                                                 "mnuRequestSelectAll",
                                                 "mnuRequestSelect",
                                                 "mnuRequestSelectMaintenability",
                                                 "mnuRequestSelectManualSend",
                                                 "mnuRequestSelectWithParam",
                                                 "mnuRequestSelectWithoutParam",
                                                 "PopupReplyTemplate",
                                                 "PopupReplyTemplateNormalizeAll",
                                                 "mnuTradConfig",
                                                 "mnuTradConfigSelectWriteRequests"};

/// Keys that act on the request in the fields.
constexpr std::string_view onActive[] = {"valid", "save", "rename", "PopupReplyTemplateNormalize"};

template <std::size_t n>
bool holds(const std::string_view (&keys)[n], std::string_view key) {
  return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

/// Makes entries with their state.
class Menu {
 public:
  explicit Menu(const RequestPageState& state) : state_(state) {}

  /// `shortcut` is shown behind the text.
  MenuEntry command(const char* key, const std::string& text, const char* shortcut = "") const {
    return {.key = key,
            .text = *shortcut ? text + "\t" + shortcut : text,
            .enabled = isRequestCommandEnabled(key, state_)};
  }
  MenuEntry below(const char* key, const std::string& text, Entries entries) const {
    MenuEntry entry = command(key, text);
    entry.entries = std::move(entries);
    return entry;
  }
  static MenuEntry separator(const char* key) {
    return {.key = key, .kind = MenuEntry::Kind::Separator};
  }

 private:
  const RequestPageState& state_;
};

std::string text(const char* defaultText, const char* key) {
  return language::global().getMultilangMessageDefault(defaultText, key);
}

Entries gotoEntries(const RequestPageState& state, const TargetItem* target,
                    const RequestItem* request) {
  Entries entries;
  if (state.hasScreensPage) {
    MenuEntry screens{.key = "PopupReqGotoScreens",
                      .text = text("Goto screens", "REQUESTS/CONTROLS/PopupReqGotoScreens/caption"),
                      .enabled = request != nullptr};
    if (target && request) screens.entries = screensOfRequest(*target, *request);
    if (screens.entries.empty())
      screens.entries.push_back(
          {.key = "PopupReqGotoScreensName",
           .text = text("No screens", "REQUESTS/CONTROLS/PopupReqGotoScreensName/item0/caption"),
           .enabled = false});
    entries.push_back(std::move(screens));
  }
  if (state.hasDevicesPage) {
    MenuEntry devices{.key = "PopupReqGotoDevice",
                      .text = text("Goto device", "REQUESTS/CONTROLS/PopupReqGotoDevice/caption")};
    if (target && request) devices.entries = devicesOfRequest(*target, *request);
    devices.enabled = !devices.entries.empty();
    entries.push_back(std::move(devices));
  }
  if (state.hasDidPage) {
    MenuEntry did{.key = "PopupReqGotoDID",
                  .text = text("Goto DID", "REQUESTS/CONTROLS/PopupReqGotoDID/caption"),
                  .enabled = request && isDidRequest(*request)};
    if (request) did.names = {request->requestName};
    entries.push_back(std::move(did));
  }
  if (!entries.empty()) entries.push_back(Menu::separator("sepPopupReqGoto"));
  return entries;
}

Entries clipboardEntries(const Menu& menu) {
  return {
      menu.command("PopupReqCut", text("Cut", "REQUESTS/CONTROLS/PopupReqCut/caption"), "Ctrl+X"),
      menu.command("PopupReqCopy", text("Copy", "REQUESTS/CONTROLS/PopupReqCopy/caption"),
                   "Ctrl+C"),
      menu.command("PopupReqCopyText", text("Copy as text (for a spreadsheet)",
                                            "REQUESTS/CONTROLS/PopupReqCopyText/caption")),
      menu.command("PopupReqPaste", text("Paste", "REQUESTS/CONTROLS/PopupReqPaste/caption"),
                   "Ctrl+V"),
      Menu::separator("sepPopupReqClipboard")};
}

Entries selectionEntries(const Menu& menu) {
  return {
      menu.command("mnuRequestSelectAll",
                   text("Select all", "REQUESTS/CONTROLS/mnuRequestSelectAll/caption"), "Ctrl+A"),
      menu.below("mnuRequestSelect", text("Select", "REQUESTS/CONTROLS/mnuRequestSelect/caption"),
                 {menu.command("mnuRequestSelectMaintenability",
                               text("Requests of the maintainability report",
                                    "REQUESTS/CONTROLS/mnuRequestSelectMaintenability/caption")),
                  menu.command("mnuRequestSelectManualSend",
                               text("Requests sent manually",
                                    "REQUESTS/CONTROLS/mnuRequestSelectManualSend/caption")),
                  menu.command("mnuRequestSelectWithParam",
                               text("Requests with parameters",
                                    "REQUESTS/CONTROLS/mnuRequestSelectWithParam/caption")),
                  menu.command("mnuRequestSelectWithoutParam",
                               text("Requests without parameters",
                                    "REQUESTS/CONTROLS/mnuRequestSelectWithoutParam/caption"))}),
      Menu::separator("sepPopupReqSelect")};
}

Entries flagEntries(const Menu& menu) {
  const std::string set = text("Set", "REQUESTS/CONTROLS/PopupReqManuelSet/caption");
  const std::string clear = text("Clear", "REQUESTS/CONTROLS/PopupReqManuelClear/caption");
  const std::string setReport = text("Set", "REQUESTS/CONTROLS/PopupReqDMSet/caption");
  const std::string clearReport = text("Clear", "REQUESTS/CONTROLS/PopupReqDMClear/caption");
  return {menu.below(
              "PopupReqManuel", text("Manual send", "REQUESTS/CONTROLS/PopupReqManuel/caption"),
              {menu.command("PopupReqManuelSet", set), menu.command("PopupReqManuelClear", clear)}),
          menu.below("PopupReqDM",
                     text("Maintainability report", "REQUESTS/CONTROLS/PopupReqDM/caption"),
                     {menu.command("PopupReqDMSet", setReport),
                      menu.command("PopupReqDMClear", clearReport)}),
          menu.below("PopupReqRef", text("References", "REQUESTS/CONTROLS/PopupReqRef/caption"),
                     {menu.command("PopupReqRefParamSet",
                                   text("Set for all parameters",
                                        "REQUESTS/CONTROLS/PopupReqRefParamSet/caption"),
                                   "Ctrl+Alt+A"),
                      menu.command("PopupReqRefParamClear",
                                   text("Clear for all parameters",
                                        "REQUESTS/CONTROLS/PopupReqRefParamClear/caption"),
                                   "Ctrl+Alt+Q"),
                      menu.command("PopupReqRefDataSet",
                                   text("Set for all received data",
                                        "REQUESTS/CONTROLS/PopupReqRefDataSet/caption"),
                                   "Ctrl+Alt+P"),
                      menu.command("PopupReqRefDataClear",
                                   text("Clear for all received data",
                                        "REQUESTS/CONTROLS/PopupReqRefDataClear/caption"),
                                   "Ctrl+Alt+M")})};
}

Entries replyEntries(const Menu& menu) {
  return {menu.below(
      "PopupReplyTemplate", text("Reply template", "REQUESTS/CONTROLS/PopupReplyTemplate/caption"),
      {menu.command("PopupReplyTemplateNormalize",
                    text("Normalize", "REQUESTS/CONTROLS/PopupReplyTemplateNormalize/caption")),
       menu.command("PopupReplyTemplateNormalizeAll",
                    text("Normalize all requests",
                         "REQUESTS/CONTROLS/PopupReplyTemplateNormalizeAll/caption"))})};
}

Entries nameEntries(const Menu& menu) {
  return {
      menu.command("PopupReqNormalize",
                   text("Normalize names", "REQUESTS/CONTROLS/PopupReqNormalize/caption")),
      menu.below(
          "PopupReqChCase",
          text("Change case of names", "REQUESTS/CONTROLS/PopupReqChCase/caption"),
          {menu.command("PopupReqUcase",
                        text("UPPERCASE", "REQUESTS/CONTROLS/PopupReqUcase/caption")),
           menu.command("PopupReqlcase",
                        text("lowercase", "REQUESTS/CONTROLS/PopupReqlcase/caption")),
           menu.command("PopupReqCapword",
                        text("Capitalize words", "REQUESTS/CONTROLS/PopupReqCapword/caption")),
           menu.command("PopupReqCapword1", text("Capitalize first letters",
                                                 "REQUESTS/CONTROLS/PopupReqCapword1/caption"))}),
      menu.command("PopupReqReplace",
                   text("Replace in names...", "REQUESTS/CONTROLS/PopupReqReplace/caption")),
      Menu::separator("sepPopupReqNames")};
}

Entries outputEntries(const Menu& menu, bool canRvt) {
  Entries entries;
  if (canRvt)
    entries.push_back(
        menu.command("mnuGenerateRVTtests", text("Generate RVT2000 tests for selected requests",
                                                 "REQUESTS/CONTROLS/mnuGenerateRVTtests/caption")));
  entries.push_back(menu.below(
      "mnuTradConfig", text("Configuration by writing", "REQUESTS/CONTROLS/mnuTradConfig/caption"),
      {menu.command("mnuTradConfigSelectWriteRequests",
                    text("Select requests that write",
                         "REQUESTS/CONTROLS/mnuTradConfigSelectWriteRequests/caption")),
       menu.command("mnuTradConfigCopy", text("Copy data of selected requests",
                                              "REQUESTS/CONTROLS/mnuTradConfigCopy/caption"))}));
  entries.push_back(Menu::separator("sepPopupReqOutput"));
  entries.push_back(
      menu.command("PopupReqHelp", text("Help", "REQUESTS/CONTROLS/PopupReqHelp/caption"), "F1"));
  return entries;
}

void append(Entries& entries, Entries more) {
  std::move(more.begin(), more.end(), std::back_inserter(entries));
}

} // namespace

bool isRequestCommandEnabled(const std::string& key, const RequestPageState& state) {
  if (key == "help" || key == "PopupReqHelp") return true;
  if (!state.open) return false;
  if (holds(withoutSelection, key)) return true;
  // Told to the frame with nothing to drop, it would take back what a command has done.
  if (key == "cancel") return state.active && state.pending;
  if (holds(onActive, key)) return state.active;
  return state.selected > 0;
}

std::vector<MenuEntry> requestMenu(const RequestPageState& state, const TargetItem* target,
                                   const RequestItem* request) {
  const Menu menu(state);
  Entries entries = gotoEntries(state, target, request);
  append(entries, clipboardEntries(menu));
  append(entries, selectionEntries(menu));
  append(entries, flagEntries(menu));
  append(entries, replyEntries(menu));
  if (state.hasDevicesPage)
    entries.push_back(menu.command(
        "PopupReqCreateDevice",
        text("Create devices from requests", "REQUESTS/CONTROLS/PopupReqCreateDevice/caption")));
  entries.push_back(Menu::separator("sepPopupReqFlags"));
  append(entries, nameEntries(menu));
  append(entries, outputEntries(menu, state.canRvt));
  return entries;
}

} // namespace kelmar
