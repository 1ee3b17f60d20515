// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"
#include "literal_cascades.h"

#include <random>

namespace kelmar::testing {
namespace {

std::string screenOf(const std::string& content) {
  return "<Category Name='K'><Screen Name='S' Width='1' Height='1' Color='1' WindowState='0'>" +
         content + "</Screen></Category>";
}

/// A is in two requests, with the reference in the second; B is beside it.
struct WithTwoUses : Ecu {
  explicit WithTwoUses(const std::string& ref1 = "", const std::string& ref2 = "Ref='1'") {
    FileText file;
    file.datas = "<Data Name='A'/><Data Name='B'/><Data Name='Z'/>";
    file.requests = "<Request Name='R'><Sent/><Received><DataItem Name='A' " + ref1 +
                    "/><DataItem Name='B' Ref='1'/></Received></Request>"
                    "<Request Name='Q'><Sent><DataItem Name='A' " +
                    ref2 + "/></Sent></Request>";
    file.devices = "<Device Name='V' FreezeFrame='R'><DeviceData Name='A' FailureFlag='0'/>"
                   "<DeviceData Name='B' FailureFlag='0'/></Device>"
                   "<Device Name='W'><DeviceData Name='A' FailureFlag='0'/></Device>";
    file.categories =
        screenOf("<Send RequestName='R'/><Send RequestName='Q'/><Send RequestName='R'/>"
                 "<Display DataName='A' RequestName='R'/>"
                 "<Display DataName='A' RequestName='Q'/>"
                 "<Display DataName='B' RequestName='R'/><Display RequestName='R'/>"
                 "<Display RequestName='Q'/>");
    load(file);
    EXPECT_EQ(report(), "");
  }
  ScreenItem& screen() { return *target().Categories->Item(1)->Screens->Item(1); }
  std::string displays() {
    return namesOf(*screen().DisplayItems, [](const DisplayItem& item) {
      return item.DisplayDataItem
                 ? item.DisplayDataItem->dataName + item.DisplayDataItem->requestName
                 : item.DisplayExtraItem->requestName;
    });
  }
  std::string positions() {
    std::string text;
    for (const RequestItem* request : *target().Requests()) {
      text += request->requestName + "(";
      for (const DataPositionItem* position : *request->DataPositions)
        text += position->dataName;
      text += ")";
    }
    return text;
  }
  std::string deviceDatas() {
    std::string text;
    for (const OrganeItem* device : *target().Organes()) {
      text += device->organeName + "(";
      for (const DeviceDataItem* datum : *device->DeviceDatas)
        text += datum->dataName;
      text += ")";
    }
    return text;
  }
  std::string steps() {
    return namesOf(*screen().ButtonInit->ScenarioItems, [](const ScenarioItem& item) {
      return std::to_string(item.Index) + item.requestName;
    });
  }
  DataItem* data(const char* name) { return target().datas()->ItemName(name); }
  RequestItem* request(const char* name) { return target().Requests()->ItemName(name); }
};

TEST(DeleteData, UsedInTwoRequestsTakesPositionsDisplaysAndTheDatumOfTheReference) {
  WithTwoUses ecu;
  ecu.target().DeleteData(ecu.data("A"));
  EXPECT_EQ(ecu.positions(), "R(B)Q()");
  EXPECT_EQ(ecu.displays(), "BR R Q");
  EXPECT_EQ(ecu.deviceDatas(), "V(B)W()");
  EXPECT_EQ(ecu.data("A"), nullptr);
  EXPECT_EQ(ecu.data("B"), ecu.target().datas()->Item(1));
}

TEST(DeleteData, WithoutAReferenceLeavesTheDevicesAlone) {
  WithTwoUses ecu("", "");
  ecu.target().DeleteData(ecu.data("A"));
  EXPECT_EQ(ecu.positions(), "R(B)Q()");
  EXPECT_EQ(ecu.displays(), "BR R Q");
  EXPECT_EQ(ecu.deviceDatas(), "V(AB)W(A)");
}

TEST(DeleteData, TakesTheFlagWhenThereIsNoDatum) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='A'/>";
  file.requests = "<Request Name='R'><Sent><DataItem Name='A' Ref='1'/></Sent></Request>";
  file.devices =
      "<Device Name='V'><Test Type='1'><StoredFlag>A</StoredFlag><PresentFlag>A</PresentFlag>"
      "</Test></Device>";
  ecu.load(file);
  const TestItem* test = ecu.target().Organes()->Item(1)->Tests->Item(1);
  ecu.target().DeleteData(ecu.target().datas()->Item(1));
  EXPECT_EQ(test->StoredFlag.Count(), 0);
  EXPECT_EQ(test->PresentFlag.Count(), 1) << "one reference takes one flag";
}

TEST(DeleteDataByName, OfAnUnknownNameDoesNothing) {
  WithTwoUses ecu;
  const std::string before = ecu.saved();
  ecu.target().DeleteDataByName("none");
  EXPECT_EQ(ecu.saved(), before);
  ecu.target().DeleteDataByName("b");
  EXPECT_EQ(ecu.data("B"), nullptr);
}

TEST(DeleteDataPosition, OfNoReferenceLeavesDevicesAndOtherRequestsAlone) {
  WithTwoUses ecu;
  ecu.target().DeleteDataPosition(ecu.request("R")->DataPositions->ItemName("A"));
  EXPECT_EQ(ecu.positions(), "R(B)Q(A)");
  EXPECT_EQ(ecu.displays(), "AQ BR R Q");
  EXPECT_EQ(ecu.deviceDatas(), "V(AB)W(A)");
  ecu.target().DeleteDataPosition(ecu.request("Q")->DataPositions->ItemName("A"));
  EXPECT_EQ(ecu.deviceDatas(), "V(B)W()");
  EXPECT_EQ(ecu.displays(), "BR R Q");
}

TEST(DeleteRequest, TakesPositionsFreezeFramesDisplaysAndSteps) {
  WithTwoUses ecu;
  ecu.target().DeleteRequest(ecu.request("R"));
  EXPECT_EQ(ecu.positions(), "Q(A)");
  EXPECT_EQ(ecu.displays(), "AQ Q");
  EXPECT_EQ(ecu.deviceDatas(), "V(A)W(A)") << "the reference of B was in it, that of A was not";
  EXPECT_EQ(ecu.steps(), "1Q");
  EXPECT_EQ(ecu.target().Organes()->Item(1)->requestName, "");
}

TEST(DeleteDevice, LeavesTheDatas) {
  WithTwoUses ecu;
  ecu.target().DeleteDevice(ecu.target().Organes()->Item(1));
  EXPECT_EQ(ecu.deviceDatas(), "W(A)");
  EXPECT_NE(ecu.data("A"), nullptr);
  EXPECT_EQ(ecu.positions(), "R(AB)Q(A)");
}

TEST(RenameData, FollowsPositionsTheFirstDeviceAndDisplays) {
  WithTwoUses ecu;
  ecu.target().RenameData(ecu.data("A"), "N");
  EXPECT_EQ(ecu.positions(), "R(NB)Q(N)");
  EXPECT_EQ(ecu.displays(), "NR NQ BR R Q");
  EXPECT_EQ(ecu.deviceDatas(), "V(NB)W(A)") << "a second device is not renamed";
  EXPECT_EQ(ecu.data("N")->dataName(), "N");
}

TEST(RenameData, ToATakenNameRaisesAndChangesNothing) {
  WithTwoUses ecu;
  const std::string before = ecu.saved();
  EXPECT_EQ(Ecu::failureOf([&] { ecu.target().RenameData(ecu.data("A"), "b"); }),
            "1 DataItems.rename: Duplicate data (b)");
  ecu.target().RenameData(ecu.data("A"), "A");
  EXPECT_EQ(ecu.saved(), before);
}

TEST(RenameData, OfCaseAloneGoesOn) {
  WithTwoUses ecu;
  ecu.target().RenameData(ecu.data("A"), "a");
  EXPECT_EQ(ecu.positions(), "R(aB)Q(a)");
  EXPECT_EQ(ecu.displays(), "aR aQ BR R Q");
}

TEST(RenameRequest, FollowsDisplaysAndStepsAndNotTheFreezeFrame) {
  WithTwoUses ecu;
  ecu.target().RenameRequest(ecu.request("R"), "N");
  EXPECT_EQ(ecu.displays(), "AN AQ BN N Q");
  EXPECT_EQ(ecu.steps(), "1N 2Q 3N");
  EXPECT_EQ(ecu.positions(), "Q(A)N(AB)") << "at the end now";
  EXPECT_EQ(ecu.target().Organes()->Item(1)->requestName, "R") << "FreezeFrame keeps the old name";
  EXPECT_NE(ecu.saved(), "") << "the displays still resolve";
}

TEST(RenameRequest, ToATakenNameRaisesAndChangesNothing) {
  WithTwoUses ecu;
  const std::string before = ecu.saved();
  EXPECT_EQ(Ecu::failureOf([&] { ecu.target().RenameRequest(ecu.request("R"), "q"); }),
            "1 RequestItems.rename: Duplicate request (q)");
  ecu.target().RenameRequest(ecu.request("R"), "R");
  EXPECT_EQ(ecu.saved(), before);
}

TEST(RenameDevice, GoesToTheEndOrRaises) {
  WithTwoUses ecu;
  ecu.target().RenameDevice(ecu.target().Organes()->Item(1), "V");
  EXPECT_EQ(ecu.deviceDatas(), "V(AB)W(A)");
  EXPECT_TRUE(Ecu::failureOf([&] {
                ecu.target().RenameDevice(ecu.target().Organes()->Item(1), "w");
              }).ends_with("Duplicate device (w)"));
  ecu.target().RenameDevice(ecu.target().Organes()->Item(1), "X");
  EXPECT_EQ(ecu.deviceDatas(), "W(A)X(AB)");
}

TEST(ReplaceDataPosition, PointsTheDisplaysOfTheRequestAndTheDeviceOfAReference) {
  WithTwoUses ecu;
  ecu.target().ReplaceDataPosition(ecu.request("R")->DataPositions->ItemName("A"), ecu.data("Z"));
  EXPECT_EQ(ecu.positions(), "R(ZB)Q(A)");
  EXPECT_EQ(ecu.displays(), "ZR AQ BR R Q") << "displays of other requests are left alone";
  EXPECT_EQ(ecu.deviceDatas(), "V(AB)W(A)") << "no reference";
  ecu.target().ReplaceDataPosition(ecu.request("Q")->DataPositions->ItemName("A"), ecu.data("Z"));
  EXPECT_EQ(ecu.positions(), "R(ZB)Q(Z)");
  EXPECT_EQ(ecu.deviceDatas(), "V(ZB)W(A)") << "the first device";
  const std::string before = ecu.saved();
  ecu.target().ReplaceDataPosition(ecu.request("Q")->DataPositions->ItemName("Z"), ecu.data("Z"));
  EXPECT_EQ(ecu.saved(), before);
}

TEST(ReplaceDataPosition, RekeysTheFlagWhenThereIsNoDatum) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='A'/><Data Name='B'/><Data Name='Z'/>";
  file.requests =
      "<Request Name='R'><Sent><DataItem Name='A' Ref='1'/><DataItem Name='B' Ref='1'/></Sent>"
      "</Request>";
  file.devices =
      "<Device Name='V'><Test Type='1'><StoredFlag>A</StoredFlag><StoredFlag>B</StoredFlag>"
      "</Test></Device>";
  ecu.load(file);
  RequestItem* request = ecu.target().Requests()->Item(1);
  ecu.target().ReplaceDataPosition(request->DataPositions->Item(1),
                                   ecu.target().datas()->ItemName("Z"));
  EXPECT_EQ(ecu.savedBetween("<Test Type=\"1\">\r\n", "</Test>"),
            "<StoredFlag>B</StoredFlag>\r\n<StoredFlag>Z</StoredFlag>\r\n");
}

// Random models: the cascades against the literal ones.

class RandomModel {
 public:
  explicit RandomModel(unsigned seed) : random_(seed) {}

  int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  std::string dataName() { return name("D", pick(7)); }
  std::string requestName() { return name("R", pick(5)); }

  std::string text() {
    FileText file;
    for (int i = 0; i < 7; ++i)
      file.datas += "<Data Name='" + name("D", i) + "'/>";
    for (int i = 0; i < 5; ++i) {
      file.requests += "<Request Name='" + name("R", i) + "'><Sent>" + positions() +
                       "</Sent><Received>" + positions() + "</Received></Request>";
    }
    for (int i = 0; i < 4; ++i) {
      file.devices += "<Device Name='V" + std::to_string(i) + "'" +
                      (pick(2) ? " FreezeFrame='" + requestName() + "'" : "") + ">";
      for (int n = pick(4); n > 0; --n)
        file.devices += "<DeviceData Name='" + dataName() + "' FailureFlag='0'/>";
      for (int n = pick(3); n > 0; --n) {
        file.devices += "<Test Type='" + std::to_string(n) + "'>";
        for (int k = pick(4); k > 0; --k)
          file.devices += "<StoredFlag>" + dataName() + "</StoredFlag>";
        for (int k = pick(3); k > 0; --k)
          file.devices += "<PresentFlag>" + dataName() + "</PresentFlag>";
        file.devices += "</Test>";
      }
      file.devices += "</Device>";
    }
    for (int c = 0; c < 2; ++c) {
      file.categories += "<Category Name='C" + std::to_string(c) + "'>";
      for (int s = 0; s < 2; ++s) {
        file.categories += "<Screen Name='S" + std::to_string(s) + "'>" + steps() +
                           "<Button Text='B'>" + steps() + "</Button>";
        for (int n = pick(8); n > 0; --n) {
          file.categories += "<Display RequestName='" + requestName() + "'" +
                             (pick(4) ? " DataName='" + dataName() + "'" : "") + "/>";
        }
        // So that a screen is not dropped for its last display.
        file.categories += "<Display RequestName='R0'/></Screen>";
      }
      file.categories += "</Category>";
    }
    return file.text();
  }

 private:
  static std::string name(const char* letter, int number) {
    return letter + std::to_string(number);
  }
  std::string positions() {
    std::string text;
    for (int n = pick(5); n > 0; --n)
      text += "<DataItem Name='" + dataName() + "'" + (pick(2) ? " Ref='1'" : "") + "/>";
    return text;
  }
  std::string steps() {
    std::string text;
    for (int n = pick(4); n > 0; --n)
      text += "<Send RequestName='" + requestName() + "'/>";
    return text;
  }
  std::mt19937 random_;
};

/// The model as text, also where it cannot be saved any more; the indexes of the steps included.
std::string stateOf(Ecu& ecu) {
  std::string text;
  text += Ecu::failureOf([&] { text = ecu.saved(); });
  const TargetItem& target = ecu.target();
  for (const DataItem* data : *target.datas())
    text += data->dataName() + " ";
  text += fragmentOf(*target.Requests(), "r") + fragmentOf(*target.Organes(), "d");
  for (const OrganeItem* device : *target.Organes()) {
    for (const TestItem* test : *device->Tests)
      for (int i = 0; i < 12; ++i)
        text += test->holdsFlag((i < 7 ? "D" : "N") + std::to_string(i % 7)) ? '1' : '0';
  }
  for (CategoryItem* category : *target.Categories) {
    for (ScreenItem* screen : *category->Screens) {
      text += "\nscreen";
      for (const DisplayItem* display : *screen->DisplayItems) {
        text += " ";
        if (display->DisplayDataItem)
          text += display->DisplayDataItem->dataName + "/" + display->DisplayDataItem->requestName;
        if (display->DisplayExtraItem) text += "/" + display->DisplayExtraItem->requestName;
      }
      for (const ButtonItem* button : *screen->ButtonItems)
        for (const ScenarioItem* step : *button->ScenarioItems)
          text += " " + std::to_string(step->Index) + step->requestName;
    }
  }
  return text;
}

void deleteBoth(TargetItem& target, RequestItem* one, RequestItem* other, bool literal) {
  std::vector<RequestItem*> both{one};
  if (other != one) both.push_back(other);
  if (!literal) return target.DeleteRequests(both);
  for (RequestItem* item : both)
    literalDeleteRequest(target, item);
}

/// All positions but the second one.
void deletePositions(TargetItem& target, const DataPositionItems& positions, bool literal) {
  std::vector<DataPositionItem*> gone;
  for (int i = 1; i <= positions.Count(); ++i)
    if (i != 2) gone.push_back(positions.Item(i));
  if (!literal) return target.DeleteDataPositions(gone);
  for (DataPositionItem* position : gone)
    literalDeleteDataPosition(target, position);
}

TEST(CascadesOnRandomModels, AreThoseOfGoingUseByUse) {
  constexpr unsigned firstSeed = 4711;
  int changed = 0;
  for (unsigned seed = firstSeed; seed < firstSeed + 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomModel model(seed);
    const std::string text = model.text();
    Ecu quick, slow;
    quick.load(text);
    slow.load(text);
    const std::string before = stateOf(quick);
    ASSERT_EQ(stateOf(slow), before);
    for (int step = 0; step < 6; ++step) {
      const int what = model.pick(8);
      const std::string data = model.dataName(), other = model.dataName(),
                        request = model.requestName(), otherRequest = model.requestName();
      const std::string newName =
          model.pick(3) ? "N" + std::to_string(model.pick(5)) : model.dataName();
      SCOPED_TRACE("step " + std::to_string(step) + ": command " + std::to_string(what) + " " +
                   data + " " + request + " " + newName);
      const auto run = [&](TargetItem& target, bool literal) {
        return Ecu::failureOf([&] {
          DataItem* item = target.datas()->ItemName(data);
          RequestItem* found = target.Requests()->ItemName(request);
          DataPositionItem* position =
              found && found->DataPositions && found->DataPositions->Count() > 0
                  ? found->DataPositions->Item(1 + found->DataPositions->Count() / 2)
                  : nullptr;
          if (what == 0 && item)
            literal ? literalDeleteData(target, item) : target.DeleteData(item);
          else if (what == 1 && found)
            literal ? literalDeleteRequest(target, found) : target.DeleteRequest(found);
          else if (what == 2 && item)
            literal ? literalRenameData(target, item, newName) : target.RenameData(item, newName);
          else if (what == 3 && found)
            literal ? literalRenameRequest(target, found, newName)
                    : target.RenameRequest(found, newName);
          else if (what == 4 && position)
            literal ? literalDeleteDataPosition(target, position)
                    : target.DeleteDataPosition(position);
          else if (what == 6 && found && target.Requests()->ItemName(otherRequest))
            deleteBoth(target, found, target.Requests()->ItemName(otherRequest), literal);
          else if (what == 7 && position)
            deletePositions(target, *found->DataPositions, literal);
          else if (what == 5 && position && target.datas()->ItemName(other))
            literal ? literalReplaceDataPosition(target, position, target.datas()->ItemName(other))
                    : target.ReplaceDataPosition(position, target.datas()->ItemName(other));
        });
      };
      ASSERT_EQ(run(quick.target(), false), run(slow.target(), true));
      ASSERT_EQ(stateOf(quick), stateOf(slow));
    }
    changed += stateOf(quick) != before;
  }
  EXPECT_GT(changed, 270) << "nearly every sequence must do something";
}

} // namespace
} // namespace kelmar::testing
