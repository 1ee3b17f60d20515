// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_bulk_commands paste N        pastes N requests with three placed data each, as text
// bench_bulk_commands capitalise N   capitalises the names of N data, with their positions, device
//                                    data and displays
//
// Prints the seconds that the command took, the least of five.

#include "bench/figures.h"
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/requests/request_tab_clipboard.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace kelmar::bench {
namespace {

constexpr int runs = 5, datasOfPaste = 200;

struct Ecu {
  Ecu() { database.NewTarget(); }
  TargetItem& target() { return *database.ActiveTarget; }
  DataItem* addData(const std::string& name) {
    DataItem* data = target().datas()->Add(name);
    data->parent = &target();
    return data;
  }

  WillingPerson person;
  StandingClock clock;
  OmnikorLibXml database{{nullptr, &person, &clock}, "en"};
};

double paste(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text +=
        "Request " + std::to_string(i) + "\t0\t0\t2101\t0\t8\t0\t6101\t1\t1\t1\t1\t1\tcomment\r\n";
    for (int j = 0; j < 3; ++j)
      text += "\tReceive\tData " + std::to_string((3 * i + j) % datasOfPaste) + "\t" +
              std::to_string(3 + j) + "\t0\t0\t1\r\n";
  }
  Ecu ecu;
  for (int i = 0; i < datasOfPaste; ++i)
    ecu.addData("Data " + std::to_string(i));
  const double seconds =
      secondsOf([&] { pasteRequests(text, ecu.database, ecu.target(), ecu.person); });
  if (ecu.target().Requests()->Count() != count) std::abort();
  return seconds;
}

/// Each data has a place in a request, a device and a display that follow its name.
void addUsers(Ecu& ecu, const std::string& name, ScreenItem& screen) {
  TargetItem& target = ecu.target();
  RequestItem* request = target.Requests()->Add("read " + name);
  request->parent = &target;
  request->DataPositions = std::make_shared<DataPositionItems>();
  DataPositionItem* position = request->DataPositions->Add(name);
  position->parent = request;
  position->reference = true;
  OrganeItem* device = target.Organes()->Add("device of " + name);
  device->parent = &target;
  device->DeviceDatas->Add(name, false)->parent = device;
  auto display = std::make_shared<DisplayItem>();
  display->parent = &screen;
  display->DisplayDataItem = std::make_shared<DisplayDataItem>();
  display->DisplayDataItem->parent = display.get();
  display->DisplayDataItem->requestName = request->requestName;
  display->DisplayDataItem->dataName = name;
  screen.DisplayItems->AddData(display);
}

double capitalise(int count) {
  Ecu ecu;
  TargetItem& target = ecu.target();
  if (!target.Categories) target.Categories = std::make_shared<CategoryItems>();
  CategoryItem* category = target.Categories->Add("main", &target);
  auto screen = std::make_shared<ScreenItem>();
  screen->screenName = "screen";
  screen->parent = category;
  screen->DisplayItems = std::make_shared<DisplayItems>();
  category->Screens->AddData(screen);
  std::vector<DataItem*> datas;
  for (int i = 0; i < count; ++i) {
    const std::string name = "speed of wheel " + std::to_string(i);
    datas.push_back(ecu.addData(name));
    addUsers(ecu, name, *screen);
  }
  const double seconds = secondsOf([&] {
    for (const NameCommand& command : dataNameCommands())
      if (command.change == NameChange::CapitalizeWords)
        changeDataNames(command, target, datas, ecu.person);
  });
  const DataPositionItem* position = target.Requests()->Item(1)->DataPositions->Item(1);
  if (!position->dataName.starts_with("Speed Of Wheel") || !position->data()) std::abort();
  return seconds;
}

} // namespace
} // namespace kelmar::bench

int main(int count, char** words) {
  using namespace kelmar::bench;
  const int size = count == 3 ? std::atoi(words[2]) : 0;
  const std::string_view command = count == 3 ? words[1] : "";
  if (size < 1 || (command != "paste" && command != "capitalise")) {
    std::fputs("bench_bulk_commands paste|capitalise N\n", stderr);
    return 2;
  }
  std::vector<double> seconds;
  for (int run = 0; run < runs; ++run)
    seconds.push_back(command == "paste" ? paste(size) : capitalise(size));
  std::printf("%.9f\n", leastOf(seconds));
}
