// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "editors/request_ecu.h"
#include "editors/rules/positions/device_association.h"
#include "editors/rules/requests/request_commands.h"
#include "editors/rules/requests/request_names.h"

namespace kelmar {
namespace {

using testing::positionsText;
using testing::RequestEcu;

TEST(NewRequest, IsNewWithBytes2180AndAnEmptyReply) {
  RequestEcu ecu;
  RequestItem* request = newRequest(ecu.target());
  EXPECT_EQ(request->requestName, "New");
  EXPECT_EQ(request->RequestBytes->HexText(), "2180");
  EXPECT_EQ(request->ReplyBytes->Length(), 0);
  EXPECT_EQ(request->parent, &ecu.target());
  newRequest(ecu.target());
  newRequest(ecu.target());
  EXPECT_EQ(ecu.requestNames(), "New|New1|New2");
}

TEST(NewRequest, AnEcuWithoutListGetsOne) {
  RequestEcu ecu;
  ecu.target().setRequests(nullptr);
  newRequest(ecu.target());
  EXPECT_EQ(ecu.requestNames(), "New");
}

TEST(RenameTyped, NormalisesBlanksAndSemicolons) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("A");
  ecu.addRequest("B");
  renameTyped(ecu.target(), request, "  Read ;  all ");
  EXPECT_EQ(ecu.requestNames(), "B|Read _ all");
  EXPECT_EQ(ecu.failureOf([&] { renameTyped(ecu.target(), request, "b"); }),
            "1 RequestItems.rename: Duplicate request (b)");
}

TEST(RenameRequests, ANameThatIsTakenLeavesItsRequestAlone) {
  RequestEcu ecu;
  for (const char* name : {"read a", "Read A2", "read b"})
    ecu.addRequest(name);
  const auto renamed = renameRequests(ecu.target(), ecu.allRequests(), [](const std::string& name) {
    return name == "read a" ? std::string("READ A2") : CapitalizeWords(name, false);
  });
  EXPECT_EQ(renamed.size(), 1u);
  EXPECT_EQ(ecu.requestNames(), "read a|Read A2|Read B");
}

TEST(RenameRequests, ScreensFollow) {
  RequestEcu ecu;
  ecu.place(ecu.addRequest("read a"), "D");
  ScreenItem& screen = ecu.addScreen("C", "S");
  DisplayItem& display = ecu.addDisplay(screen, "read a", "D");
  ButtonItem& button = ecu.addButton(screen, "Go", {"read a"});
  renameRequests(ecu.target(), ecu.allRequests(), upperCase);
  EXPECT_EQ(display.DisplayDataItem->requestName, "READ A");
  EXPECT_EQ(button.ScenarioItems->Item(1)->requestName, "READ A");
}

TEST(NameCommands, AskWithTheirOwnTextsAndMakeTheName) {
  RequestEcu ecu;
  using platform::Answer, platform::Buttons, platform::Icon;
  ecu.person.expect("REQUESTS/MSG/PopupReqNormalize_Click/confirm/text", "User confirm",
                    "Normalize space suppress white spaces at the start and end of the data name "
                    "and replace multi-space by a single one.\r\nDo you want to normalize selected "
                    "data name?",
                    Buttons::YesNo, Icon::Question, Answer::Yes);
  const auto normalize = askNameChange(*requestNameCommand("PopupReqNormalize"), ecu.person);
  EXPECT_EQ(normalize("  a  b "), "a b");
  ecu.person.expect("REQUESTS/MSG/PopupRequcase_Click/text", "User confirm",
                    "Convert name to uppercase?", Buttons::YesNo, Icon::Question, Answer::Yes);
  EXPECT_EQ(askNameChange(*requestNameCommand("PopupReqUcase"), ecu.person)("aé"), "AÉ");
  ecu.person.expect("REQUESTS/MSG/PopupReqlcase_Click/text", "User confirm",
                    "Convert name to lowercase?", Buttons::YesNo, Icon::Question, Answer::Yes);
  EXPECT_EQ(askNameChange(*requestNameCommand("PopupReqlcase"), ecu.person)("AB"), "ab");
  for (const char* entry : {"PopupReqCapword", "PopupReqCapword1"}) {
    ecu.person.expect("REQUESTS/MSG/" + std::string(entry) + "_Click/confirm/text", "User confirm",
                      "Capitalize word of selected request names?", Buttons::YesNo, Icon::Question,
                      Answer::Yes);
    EXPECT_EQ(askNameChange(*requestNameCommand(entry), ecu.person)("read aLL"), "Read ALL");
  }
  ecu.person.expect("REQUESTS/MSG/PopupReqlcase_Click/text", "User confirm",
                    "Convert name to lowercase?", Buttons::YesNo, Icon::Question, Answer::No);
  EXPECT_FALSE(askNameChange(*requestNameCommand("PopupReqlcase"), ecu.person));
  EXPECT_FALSE(requestNameCommand("PopupReqCut"));
  EXPECT_EQ(requestNameCommands().size(), 6u);
}

TEST(NameCommands, ReplaceAsksForBothTextsAndMindsTheCase) {
  RequestEcu ecu;
  const auto input = [&](const char* text, const char* answer, const char* key) {
    ecu.person.expectInput({key, "Rename data:", text, ""}, answer);
  };
  input("Find what:", "a", "REQUESTS/MSG/PopupReqReplace_Click/search/text");
  input("Replace with:", "", "REQUESTS/MSG/PopupReqReplace_Click/replace/text");
  ecu.person.expect("REQUESTS/MSG/PopupReqReplace_Click/confirm/text", "User confirm",
                    "Replace 'a' with ''\r\nfor selected data?", platform::Buttons::YesNo,
                    platform::Icon::Question, platform::Answer::Yes);
  EXPECT_EQ(askNameChange(*requestNameCommand("PopupReqReplace"), ecu.person)("aAa b"), "A b");
  input("Find what:", "", "REQUESTS/MSG/PopupReqReplace_Click/search/text");
  EXPECT_FALSE(askNameChange(*requestNameCommand("PopupReqReplace"), ecu.person));
}

TEST(RequestFlags, ThoseThatHaveTheValueAreSkipped) {
  RequestEcu ecu;
  ecu.addRequest("A").ManuelSend = true;
  ecu.addRequest("B");
  const RequestSelection changed = setManuelSend(ecu.allRequests(), true);
  EXPECT_EQ(changed, ecu.requests({"B"}));
  EXPECT_TRUE(setManuelSend(ecu.allRequests(), true).empty());
  EXPECT_EQ(setManuelSend(ecu.allRequests(), false).size(), 2u);
  EXPECT_EQ(setDossierMaintenabilite(ecu.allRequests(), true).size(), 2u);
  EXPECT_TRUE(ecu.request("A").DossierMaintenabilite);
}

TEST(SetReferenceAll, ADataBecomesTheReferenceOnlyOnce) {
  RequestEcu ecu;
  RequestItem& first = ecu.addRequest("A");
  ecu.place(first, "D", false);
  ecu.place(first, "P", true);
  RequestItem& second = ecu.addRequest("B");
  ecu.place(second, "D", false);
  ecu.place(second, "E", false);
  ecu.addRequest("without positions");
  const RequestSelection changed = SetReferenceAll(ecu.target(), ecu.allRequests(), false, true);
  EXPECT_EQ(changed, ecu.requests({"A", "B"}));
  EXPECT_EQ(positionsText(first), "D 2.0 B r ref, P 2.0 B s");
  EXPECT_EQ(positionsText(second), "D 2.0 B r, E 2.0 B r ref");
  EXPECT_EQ(SetReferenceAll(ecu.target(), ecu.allRequests(), true, true), ecu.requests({"A"}));
}

TEST(SetReferenceAll, AReferenceStaysWhileADeviceUsesIt) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("A");
  ecu.place(request, "D", false, 2, 0, true);
  ecu.place(request, "E", false, 3, 0, true);
  ecu.place(request, "P", true, 4, 0, true);
  ecu.addDevice("Sensor", {"D"});
  SetReferenceAll(ecu.target(), ecu.allRequests(), false, false);
  EXPECT_EQ(positionsText(request), "D 2.0 B r ref, E 3.0 B r, P 4.0 B s ref");
  EXPECT_TRUE(SetReferenceAll(ecu.target(), ecu.allRequests(), false, false).empty());
}

TEST(SelectionPredicates, LookAtServiceLengthAndSide) {
  RequestEcu ecu;
  const auto with = [&](const char* name, const char* bytes) -> RequestItem& {
    return ecu.addRequest(name, bytes);
  };
  EXPECT_TRUE(isWriteRequest(with("a", "2E0102")));
  EXPECT_TRUE(isWriteRequest(with("b", "3B01")));
  EXPECT_FALSE(isWriteRequest(with("c", "2101")));
  EXPECT_FALSE(isWriteRequest(with("d", "")));
  EXPECT_TRUE(isDidRequest(with("e", "22F190")));
  EXPECT_FALSE(isDidRequest(with("f", "22F19001")));
  EXPECT_FALSE(isDidRequest(with("g", "22F1")));
  EXPECT_TRUE(isDidRequest(with("h", "2EF190AA")));
  EXPECT_TRUE(isDidRequest(with("i", "2EF190")));
  EXPECT_FALSE(isDidRequest(with("j", "2EF1")));
  EXPECT_FALSE(isDidRequest(with("k", "")));
  RequestItem& request = with("l", "2E0102");
  EXPECT_FALSE(hasParameter(request));
  ecu.place(request, "D", false);
  EXPECT_FALSE(hasParameter(request));
  ecu.place(request, "P", true);
  EXPECT_TRUE(hasParameter(request));
  request.RequestBytes.reset();
  EXPECT_FALSE(isWriteRequest(request));
  EXPECT_FALSE(isDidRequest(request));
}

TEST(TradConfig, GivesEachSentDataOnceWithItsValues) {
  RequestEcu ecu;
  DataItem& list = ecu.addData("Mode", 2);
  list.Description = "the mode";
  list.DataListes = std::make_shared<DataListeItems>();
  list.DataListes->Add(0, "Off", "");
  list.DataListes->Add(1, "On", "");
  ecu.addData("Vin", 136, false);
  ecu.addData("Plain", 12).DataListes = std::make_shared<DataListeItems>();
  RequestItem& first = ecu.addRequest("A");
  ecu.place(first, "Mode", true);
  ecu.place(first, "Read only", false);
  ecu.place(first, "Vin", true);
  RequestItem& second = ecu.addRequest("B");
  ecu.place(second, "Mode", true);
  ecu.place(second, "Plain", true);
  bool broken = true;
  EXPECT_EQ(tradConfigText(ecu.allRequests(), broken), "Mode\t2 bits\tthe mode\t\t0\tOff\t\t\t\r\n"
                                                       "\t\t\t\t1\tOn\t\t\t\r\n"
                                                       "Vin\t17 bytes\t\t\t\t\t\t\t\r\n"
                                                       "Plain\t12 bits\t\t\t\t\t\t\t\r\n");
  EXPECT_FALSE(broken);
  EXPECT_EQ(tradConfigText({}, broken), "");
  list.Description = "the\nmode";
  tradConfigText(ecu.allRequests(), broken);
  EXPECT_TRUE(broken);
}

TEST(CreateDevices, OnlyWhereAReceivedDataIsFree) {
  RequestEcu ecu;
  RequestItem& free = ecu.addRequest("Free", "2101");
  ecu.place(free, "D", false);
  ecu.place(free, "P", true);
  RequestItem& used = ecu.addRequest("Used", "2102");
  ecu.place(used, "E", false, 2, 0, true);
  ecu.place(ecu.addRequest("Named", "2103"), "F", false);
  ecu.place(ecu.addRequest("Only sent", "2104"), "Q", true);
  ecu.addDevice("Sensor", {"E"});
  ecu.addDevice("Named");
  const auto made = createDevicesFromRequests(ecu.target(), ecu.allRequests());
  ASSERT_EQ(made.size(), 1u);
  EXPECT_EQ(made[0]->organeName, "Free");
  EXPECT_EQ(made[0]->OrganeTypeId(), 4);
  EXPECT_EQ(made[0]->Mnemonique, "Request 2101");
  ASSERT_EQ(made[0]->DeviceDatas->Count(), 1);
  EXPECT_EQ(made[0]->DeviceDatas->Item(1)->dataName, "D");
  EXPECT_FALSE(made[0]->DeviceDatas->Item(1)->FlagPanne);
  EXPECT_EQ(positionsText(free), "D 2.0 B r ref, P 2.0 B s");
}

} // namespace
} // namespace kelmar
