// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_menu.h"

namespace kelmar {
namespace {

using testing::RequestEcu;

/// One line an entry: key, text, and "-" where it cannot be chosen; entries below are indented.
std::string menuText(const std::vector<MenuEntry>& entries, const std::string& indent = "") {
  std::string text;
  for (const MenuEntry& entry : entries) {
    if (entry.kind == MenuEntry::Kind::Separator) continue;
    text += indent + entry.key + ": " + entry.text + (entry.enabled ? "" : " -") +
            (entry.checked ? " x" : "") + "\n";
    text += menuText(entry.entries, indent + "  ");
  }
  return text;
}

const MenuEntry& entryOf(const std::vector<MenuEntry>& entries, const std::string& key) {
  for (const MenuEntry& entry : entries)
    if (entry.key == key) return entry;
  throw std::runtime_error("no entry " + key);
}

const PositionPaneState chosen{.request = true, .active = true, .selected = 1};

PositionPaneState withAllPages() {
  PositionPaneState state = chosen;
  state.hasScreensPage = state.hasDevicesPage = true;
  return state;
}

TEST(PositionMenu, WithoutOtherPagesItLeadsToTheDataAlone) {
  RequestEcu ecu;
  DataPositionItem& position = ecu.place(ecu.addRequest("R"), "Speed", false, 2, 0, true);
  ecu.addDevice("Pump", {"Speed"});
  ecu.addDisplay(ecu.addScreen("Cat", "Main"), "R", "Speed");
  EXPECT_EQ(menuText(positionMenu(chosen, ecu.target(), &position)),
            "ppDataGoto: Goto data : Speed\n"
            "ppDataCut: Cut\tCtrl+X\n"
            "ppDataCopy: Copy\tCtrl+C\n"
            "ppDataCopyText: Copy as text (for a spreadsheet)\n"
            "ppDataPaste: Paste\tCtrl+V\n"
            "ppDataReplace: Replace data with\n"
            "  ppDataReplaceData: [New data] ...\n"
            "  ppDataReplaceData: Speed\n"
            "ppDataToggleEndian: Change the order of bits\n"
            "ppDataSetEndianDefault: Set the order of bits of the ECU\n"
            "ppDataHelp: Help\tF1\n");
}

TEST(PositionMenu, WithAllPagesItHasEveryWayAndEveryUse) {
  RequestEcu ecu;
  DataPositionItem& position = ecu.place(ecu.addRequest("R"), "Speed", false, 2, 0, true);
  ecu.addDevice("Pump", {"Speed"});
  ecu.addDevice("Lamp & fuse");
  ScreenItem& screen = ecu.addScreen("Cat", "Main");
  ecu.addDisplay(screen, "R", "Speed");
  ecu.addScreen("Cat", "Second");
  PositionPaneState state = withAllPages();
  state.associateAsFailure = true;
  const auto menu = positionMenu(state, ecu.target(), &position);
  EXPECT_EQ(menuText(menu), "ppDataGoto: Goto data : Speed\n"
                            "ppDataGotoDev: Goto device : Pump\n"
                            "ppDataGotoScr: Goto screens\n"
                            "  ppDataGotoScreen: Main (Speed)\n"
                            "ppDataCut: Cut\tCtrl+X\n"
                            "ppDataCopy: Copy\tCtrl+C\n"
                            "ppDataCopyText: Copy as text (for a spreadsheet)\n"
                            "ppDataPaste: Paste\tCtrl+V\n"
                            "ppDataReplace: Replace data with\n"
                            "  ppDataReplaceData: [New data] ...\n"
                            "  ppDataReplaceData: Speed\n"
                            "ppDataAssociateDevice: Associate selected data to device\n"
                            "  ppDataSetDevFlag: [Associate as Failure Flag] x\n"
                            "  ppDataSetDevNone: [None]\n"
                            "  ppDataSetDevNew: [New device] ...\n"
                            "  ppDataSetDev: Pump\n"
                            "  ppDataSetDev: Lamp & fuse\n"
                            "ppDataToggleEndian: Change the order of bits\n"
                            "ppDataSetEndianDefault: Set the order of bits of the ECU\n"
                            "ppCDcopyDataToScreens: Copy data in screen\n"
                            "  ppCDcopyDataToScreen: Cat -> Main\n"
                            "  ppCDcopyDataToScreen: Cat -> Second\n"
                            "ppDataHelp: Help\tF1\n");
  EXPECT_EQ(entryOf(menu, "ppDataGotoScr").entries[0].names,
            (std::vector<std::string>{"Cat", "Main", "Speed"}));
  EXPECT_EQ(entryOf(menu, "ppCDcopyDataToScreens").entries[1].names,
            (std::vector<std::string>{"Cat", "Second"}));
  EXPECT_TRUE(entryOf(menu, "ppDataAssociateDevice").entries[4].literal)
      << "a name, not a mnemonic";
  EXPECT_EQ(entryOf(menu, "ppDataAssociateDevice").entries[0].kind, MenuEntry::Kind::Check);
}

TEST(PositionMenu, BesideTheRowsAllWaysAreClosed) {
  RequestEcu ecu;
  ecu.place(ecu.addRequest("R"), "Speed");
  const auto menu = positionMenu(withAllPages(), ecu.target(), nullptr);
  for (const char* key : {"ppDataGoto", "ppDataGotoDev", "ppDataGotoScr"})
    EXPECT_FALSE(entryOf(menu, key).enabled) << key;
  EXPECT_EQ(entryOf(menu, "ppDataGoto").text, "Goto data ");
}

TEST(PositionMenu, ADeviceIsAWayOnlyForAReference) {
  RequestEcu ecu;
  DataPositionItem& position = ecu.place(ecu.addRequest("R"), "Speed", false, 2, 0, false);
  ecu.addDevice("Pump", {"Speed"});
  EXPECT_FALSE(
      entryOf(positionMenu(withAllPages(), ecu.target(), &position), "ppDataGotoDev").enabled);
  position.reference = true;
  EXPECT_TRUE(
      entryOf(positionMenu(withAllPages(), ecu.target(), &position), "ppDataGotoDev").enabled);
  EXPECT_FALSE(
      entryOf(positionMenu(withAllPages(), ecu.target(), &position), "ppDataGotoScr").enabled)
      << "no screen shows it";
}

TEST(PositionMenu, AnEcuWithoutListsHasTheFixedEntriesAlone) {
  RequestEcu ecu;
  ecu.target().setDatas(nullptr);
  ecu.target().setOrganes(nullptr);
  ecu.target().Categories = nullptr;
  const auto menu = positionMenu(withAllPages(), ecu.target(), nullptr);
  EXPECT_EQ(entryOf(menu, "ppDataReplace").entries.size(), 1u);
  EXPECT_EQ(entryOf(menu, "ppDataAssociateDevice").entries.size(), 3u);
  EXPECT_FALSE(entryOf(menu, "ppCDcopyDataToScreens").enabled);
}

TEST(PositionMenu, StateMatrix) {
  struct Row {
    const char* key;
    const char* allowed; // n no request, r request, p position in the fields, s selected, too
  };
  const Row rows[] = {{"cancel", ""},
                      {"save", "ps"},
                      {"cut", "s"},
                      {"copy", "s"},
                      {"paste", "rps"},
                      {"ref", "s"},
                      {"unref", "s"},
                      {"ppDataCut", "s"},
                      {"ppDataCopyText", "s"},
                      {"ppDataPaste", "rps"},
                      {"ppDataReplace", "s"},
                      {"ppDataAssociateDevice", "s"},
                      {"ppDataToggleEndian", "s"},
                      {"ppDataSetEndianDefault", "s"},
                      {"ppCDcopyDataToScreens", "s"},
                      {"ppCDnumeric", "rps"},
                      {"ppCDnumericL", "rps"},
                      {"ppCDhexa", "rps"},
                      {"ppCDascii", "rps"},
                      {"PopupCreateDataC", ""},
                      {"ppDataHelp", "nrps"}};
  const std::pair<char, PositionPaneState> states[] = {
      {'n', {}}, {'r', {.request = true}}, {'p', {.request = true, .active = true}}, {'s', chosen}};
  for (const Row& row : rows)
    for (const auto& [name, state] : states)
      EXPECT_EQ(isPositionCommandEnabled(row.key, state),
                std::string(row.allowed).find(name) != std::string::npos)
          << row.key << " in " << name;
  EXPECT_TRUE(
      isPositionCommandEnabled("PopupCreateDataC", {.request = true, .clipboardHasText = true}));
  EXPECT_TRUE(
      isPositionCommandEnabled("cancel", {.request = true, .active = true, .pending = true}));
}

TEST(CreateDataMenu, HoldsAllSizesWithTheirPlacesInTheMenus) {
  const auto menu = createDataMenu({.request = true, .clipboardHasText = true});
  EXPECT_EQ(menuText(menu), "PopupCreateDataC: Paste data at this position\n"
                            "ppCDnumeric: Create numeric data\n"
                            "  ppCDnumericBit: 1 bit\n"
                            "  ppCDnumericBit: 2 bits\n"
                            "  ppCDnumericBit: 3 bits\n"
                            "  ppCDnumericBit: 4 bits\n"
                            "  ppCDnumericBit: 5 bits\n"
                            "  ppCDnumericBit: 6 bits\n"
                            "  ppCDnumericBit: 7 bits\n"
                            "  ppCDnumericBit: 8 bits\n"
                            "  ppCDnumericBit: 12 bits\n"
                            "  ppCDnumericBit: 16 bits\n"
                            "  ppCDnumericBit: 24 bits\n"
                            "ppCDnumericL: Create numeric list data\n"
                            "  ppCDnumericList: 1 bit (Yes/No)\n"
                            "  ppCDnumericList: 1 bit (On/Off)\n"
                            "ppCDhexa: Create hexadecimal data\n"
                            "  ppCDhexaBytes: 1 byte\n"
                            "  ppCDhexaBytes: 2 bytes\n"
                            "  ppCDhexaBytes: 3 bytes\n"
                            "  ppCDhexaBytes: 4 bytes\n"
                            "  ppCDhexaBytes: 5 bytes\n"
                            "  ppCDhexaBytes: 6 bytes\n"
                            "  ppCDhexaBytes: 7 bytes\n"
                            "  ppCDhexaBytes: 8 bytes\n"
                            "ppCDascii: Create ascii data\n"
                            "  ppCDasciiBytes: 1 Character\n"
                            "  ppCDasciiBytes: 2 Characters\n"
                            "  ppCDasciiBytes: 3 Characters\n"
                            "  ppCDasciiBytes: 4 Characters\n"
                            "  ppCDasciiBytes: 5 Characters\n"
                            "  ppCDasciiBytes: 6 Characters\n"
                            "  ppCDasciiBytes: 7 Characters\n"
                            "  ppCDasciiBytes: 8 Characters\n");
  EXPECT_FALSE(createDataMenu({.request = true})[0].enabled) << "the clipboard holds no text";
}

TEST(CreateDataMenu, TheIndexIsTheCountOfBitsOrBytes) {
  for (const CreateDataEntry& row : createDataEntries()) {
    const std::string array = row.array;
    const int expected = array == "ppCDnumericList"  ? 1
                         : array == "ppCDnumericBit" ? row.index
                                                     : row.index * 8;
    EXPECT_EQ(row.kind.NumberBits, expected) << array << row.index;
  }
}

} // namespace
} // namespace kelmar
