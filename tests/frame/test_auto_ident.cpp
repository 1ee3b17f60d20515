// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/auto_ident_clipboard.h"
#include "frame/rules/auto_ident_entry.h"
#include "frame/rules/auto_ident_menu.h"
#include "frame/rules/uds_identification.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

class AutoIdent : public testing::Test {
 protected:
  void SetUp() override {
    database.NewTarget();
    items().Add(4, "OKN", "0A12", "0100", &target());
  }
  TargetItem& target() { return *database.ActiveTarget; }
  AutoIdentItems& items() { return *target().AutoIdents; }
  AutoIdentSelection all() {
    AutoIdentSelection selected;
    for (AutoIdentItem* item : items())
      selected.push_back(item);
    return selected;
  }
  std::size_t paste(const std::string& text) {
    return pasteAutoIdents(text, database, items(), &target()).size();
  }
  std::string listed() {
    std::string text;
    for (const AutoIdentItem* item : items())
      text += std::to_string(item->DiagNumber) + "," + item->SupplierCode + "," + item->Soft + "," +
              item->Version + ";";
    return text;
  }
  void addRequest(const char* bytes) {
    RequestItem* request = target().Requests()->Add(bytes);
    request->RequestBytes = std::make_shared<FrameBuffer>();
    request->RequestBytes->setHexText(bytes);
  }

  OmnikorLibXml database;
};

TEST_F(AutoIdent, Cell_ShowsTheDiagNumberInBothBases) {
  AutoIdentItem item;
  item.DiagNumber = 10;
  item.SupplierCode = "OKN";
  item.Soft = "1234";
  item.Version = "5678";
  EXPECT_EQ("10 ($0A)", autoIdentCell(item, 0));
  EXPECT_EQ("OKN", autoIdentCell(item, 1));
  EXPECT_EQ("1234", autoIdentCell(item, 2));
  EXPECT_EQ("5678", autoIdentCell(item, 3));
  item.DiagNumber = 255;
  EXPECT_EQ("255 ($FF)", autoIdentCell(item, 0));
  item.DiagNumber = 256;
  EXPECT_EQ("256 ($100)", autoIdentCell(item, 0));
}

TEST_F(AutoIdent, Entry_GoesToTheItemAndBack) {
  const AutoIdentEntry entry{7, "ABC", "0001", "0002"};
  applyEntry(entry, *items().Item(1));
  EXPECT_EQ(entry, entryOf(*items().Item(1)));
}

TEST_F(AutoIdent, Check_WithoutUdsWantsFixedLengths) {
  const auto refused = [](const AutoIdentEntry& entry) {
    const auto bad = CheckUserInput(entry, false);
    return bad ? bad->box.key + " | " + bad->box.title + " | " + bad->box.text : "";
  };
  EXPECT_EQ("", refused({0, "ABC", "0A12", "ffff"}));
  EXPECT_EQ("", refused({0, "ABCDEF", "0A12", "FFFF"}));
  const std::string supplier = "AUTOIDENT/MSG/CheckUserInput/badSupplierCode/text | User error | "
                               "Bad Supplier code : 6 characters required";
  EXPECT_EQ(supplier, refused({0, "AB", "", ""})); // the first error ends the test
  EXPECT_EQ(supplier, refused({0, "ABCDEFG", "0A12", "FFFF"}));
  EXPECT_EQ("AUTOIDENT/MSG/CheckUserInput/badSoftware/text | User error | "
            "Bad software name: 4 hexadecimal characters required",
            refused({0, "ABC", "0A1", ""}));
  EXPECT_NE("", refused({0, "ABC", "0G12", "0000"}));
  EXPECT_EQ("AUTOIDENT/MSG/CheckUserInput/badSoftwareVersion/text | User error | "
            "Bad software version: 4 hexadecimal characters required",
            refused({0, "ABC", "0A12", "00000"}));
  EXPECT_EQ(platform::Buttons::Ok, CheckUserInput({}, false)->box.buttons);
  EXPECT_EQ(platform::Icon::Exclamation, CheckUserInput({}, false)->box.icon);
  EXPECT_EQ(BadEntry::Field::ValVersion, CheckUserInput({0, "ABC", "0A12", ""}, false)->field);
}

TEST_F(AutoIdent, Check_WithUdsAllowsLongerTexts) {
  const auto refused = [](const AutoIdentEntry& entry) {
    const auto bad = CheckUserInput(entry, true);
    return bad ? bad->box.key + " | " + bad->box.title + " | " + bad->box.text : "";
  };
  std::string accented;
  for (int i = 0; i < 64; ++i)
    accented += "é"; // characters, not bytes
  EXPECT_EQ("", refused({0, "A", "", ""}));
  EXPECT_EQ("", refused({0, std::string(120, 'a'), accented, accented}));
  const std::string supplier = "AUTOIDENT/MSG/CheckUserInput/UDS/badSupplierCode/text | "
                               "User error | Bad supplier name : 1 up to 120 characters.";
  EXPECT_EQ(supplier, refused({0, "", "", ""}));
  EXPECT_EQ(supplier, refused({0, std::string(121, 'a'), "", ""}));
  EXPECT_EQ("AUTOIDENT/MSG/CheckUserInput/UDS/badSoftware/text | User error | "
            "Bad software name: 64 ASCII characters required",
            refused({0, "A", std::string(65, 'a'), std::string(65, 'a')}));
  EXPECT_EQ("AUTOIDENT/MSG/CheckUserInput/UDS/badSoftwareVersion/text | User error | "
            "Bad software version: 64 ASCII characters required",
            refused({0, "A", "", std::string(65, 'a')}));
}

TEST_F(AutoIdent, Uds_IsTheOnlyOneOnCanFdAndIp) {
  EXPECT_TRUE(usesUdsIdentification(5, target()));
  EXPECT_TRUE(usesUdsIdentification(9, target()));
}

TEST_F(AutoIdent, Uds_IsToldByTheRequestsOnCanAndNeverOnAKLine) {
  addRequest("2180");
  addRequest("1A80");
  addRequest("22F17F");
  addRequest("22F2");
  EXPECT_FALSE(usesUdsIdentification(7, target()));
  addRequest("22F18A");
  EXPECT_TRUE(usesUdsIdentification(7, target()));
  EXPECT_TRUE(usesUdsIdentification(8, target()));
  for (const std::int32_t code : {0, 1, 2, 3, 4, 6})
    EXPECT_FALSE(usesUdsIdentification(code, target())) << code;
  target().setRequests(nullptr);
  EXPECT_FALSE(usesUdsIdentification(7, target()));
}

TEST_F(AutoIdent, Copy_IsAFragmentThatComesBack) {
  items().Add(5, "A<B", "x\"y", "é", &target());
  const std::string copied = copyAutoIdents(all());
  EXPECT_EQ("<AutoIdents><AutoIdent DiagVersion=\"4\" Supplier=\"OKN\" Soft=\"0A12\" "
            "Version=\"0100\"/><AutoIdent DiagVersion=\"5\" Supplier=\"A&lt;B\" "
            "Soft=\"x&quot;y\" Version=\"é\"/></AutoIdents>",
            copied);
  EXPECT_EQ(0u, paste(copied)); // all there already
  items().clear();
  EXPECT_EQ(2u, paste(copied));
  EXPECT_EQ("4,OKN,0A12,0100;5,A<B,x\"y,é;", listed());
  EXPECT_EQ(&target(), items().Item(1)->parent);
}

TEST_F(AutoIdent, Copy_RefusesATextThatNoDocumentHolds) {
  items().Item(1)->Soft = "\x01";
  EXPECT_THROW(copyAutoIdents(all()), Failure);
}

TEST_F(AutoIdent, CopyText_IsATableThatComesBack) {
  items().Add(255, "ABC", "FFFF", "1E02", &target());
  bool broken = true;
  const std::string copied = copyAutoIdentsText(all(), broken);
  EXPECT_EQ("'Diag version\tSupplier\tSoft\tVersion\r\n4\tOKN\t0A12\t0100\r\n"
            "255\tABC\tFFFF\t1E02\r\n",
            copied);
  EXPECT_FALSE(broken);
  items().clear();
  EXPECT_EQ(2u, paste(copied));
  EXPECT_EQ("4,OKN,0A12,0100;255,ABC,FFFF,1E02;", listed());
  items().Item(1)->Soft = "a\tb";
  copyAutoIdentsText(all(), broken);
  EXPECT_TRUE(broken);
}

TEST_F(AutoIdent, PasteText_TakesAnyLineEndAndBlanksAroundCells) {
  EXPECT_EQ(3u, paste("1\tAAA\t0001\t0001\n 2 \t BBB \t0002\t0002\tmore\r3\tCCC\t000a\t000B\r\n"));
  EXPECT_EQ("4,OKN,0A12,0100;1,AAA,0001,0001;2,BBB,0002,0002;3,CCC,000a,000B;", listed());
}

TEST_F(AutoIdent, PasteText_DropsLinesThatAreNoIdentification) {
  for (const char* line :
       {"256\tAAA\t0001\t0001", "-1\tAAA\t0001\t0001", "x\tAAA\t0001\t0001", "\tAAA\t0001\t0001",
        "1\tAA\t0001\t0001", "1\tAAAA\t0001\t0001", "1\tAAA\t001\t0001", "1\tAAA\t0001\t000G",
        "1\tAAA\t0001", "", "4\tOKN\t0A12\t0100", "'Diag version\tSupplier\tSoft\tVersion"})
    EXPECT_EQ(0u, paste(line)) << line;
  EXPECT_EQ(1u, paste("1\tAAA\t0001\t0001\r\n1\tAAA\t0001\t0001\r\n"));
  EXPECT_EQ("4,OKN,0A12,0100;1,AAA,0001,0001;", listed());
}

TEST_F(AutoIdent, PasteXml_SkipsWhatCannotBeRead) {
  EXPECT_EQ(1u, paste("<AutoIdents><AutoIdent DiagVersion='x' Supplier='A' Soft='1' Version='1'/>"
                      "<AutoIdent DiagVersion='1' Supplier='A' Soft='1'/>"
                      "<Other/><AutoIdent DiagVersion='9' Supplier='A' Soft='' Version=''/>"
                      "</AutoIdents>"));
  EXPECT_EQ("4,OKN,0A12,0100;9,A,,;", listed());
}

TEST_F(AutoIdent, Paste_OfOtherThingsChangesNothing) {
  for (const std::string& text :
       {std::string("<AutoIdents><AutoIdent"), std::string("<Requests/>"), std::string("\0\0", 2),
        std::string(100000, '\t'), std::string("5\tAAA\t0001\t0001").insert(3, 1, '\0'),
        "1\t" + std::string(10000, 'A') + "\t0001\t0001"})
    EXPECT_EQ(0u, paste(text));
  EXPECT_EQ("4,OKN,0A12,0100;", listed());
}

TEST_F(AutoIdent, Paste_TakesAnyEncodingNamedInsideTheText) {
  EXPECT_EQ(1u, paste("<?xml version=\"1.0\" encoding=\"UTF-16\"?><AutoIdents><AutoIdent "
                      "DiagVersion='1' Supplier='é' Soft='1' Version='1'/></AutoIdents>"));
  EXPECT_EQ("é", items().Item(2)->SupplierCode);
}

TEST_F(AutoIdent, Paste_OfManyLinesGrowsWithTheirNumber) {
  std::string text;
  for (int i = 0; i < 20000; ++i) {
    char line[40];
    std::snprintf(line, sizeof line, "%d\tAAA\t%04X\t0000\r\n", i % 256, i);
    text += line;
  }
  EXPECT_EQ(20000u, paste(text));
  EXPECT_EQ(0u, paste(text));
}

TEST_F(AutoIdent, Commands_AreEnabledByTheStateOfThePage) {
  std::string matrix;
  for (const char* key :
       {"save", "cancel", "cut", "copy", "paste", "check", "buttonAddNewAi", "help"}) {
    matrix += std::string(key) + ":";
    for (const AutoIdentPageState& state : {AutoIdentPageState{},
                                            {.open = true},
                                            {.open = true, .active = true, .selected = 1},
                                            {.open = true, .active = false, .selected = 3}})
      matrix += isAutoIdentCommandEnabled(key, state) ? " +" : " -";
    matrix += "\n";
  }
  EXPECT_EQ("save: - + + +\ncancel: - + + +\ncut: - - + +\ncopy: - - + +\npaste: - + + +\n"
            "check: - - + -\nbuttonAddNewAi: - + + +\nhelp: + + + +\n",
            matrix);
}

TEST_F(AutoIdent, Menu_HoldsItsEntriesInOrder) {
  const auto shown = [](const AutoIdentPageState& state) {
    std::string text;
    for (const MenuEntry& entry : autoIdentMenu(state))
      text += entry.kind == MenuEntry::Kind::Separator
                  ? "--\n"
                  : entry.key + " " + entry.text + (entry.enabled ? "" : " (off)") + "\n";
    return text;
  };
  EXPECT_EQ("PopupAiCut Cut\tCtrl+X\nPopupAiCopy Copy\tCtrl+C\nPopupAiCopyText Copy text\n"
            "PopupAiPaste Paste\tCtrl+V\n--\nPopupAiHelp Help\tF1\n"
            "PopupHelpGoto Help on the search by identification\n",
            shown({.open = true, .active = true, .selected = 1}));
  EXPECT_EQ("PopupAiCut Cut\tCtrl+X (off)\nPopupAiCopy Copy\tCtrl+C (off)\n"
            "PopupAiCopyText Copy text (off)\nPopupAiPaste Paste\tCtrl+V (off)\n--\n"
            "PopupAiHelp Help\tF1\nPopupHelpGoto Help on the search by identification\n",
            shown({}));
}

} // namespace
} // namespace kelmar
