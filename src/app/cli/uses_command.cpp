// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/one_line.h"
#include "app/cli/session.h"
#include "database/target_walk.h"

namespace kelmar::cli {

namespace {

/// Writes the uses of a data and of a request, a line each: kind, where, detail. Names are compared
/// exactly: these are the uses that a renaming or a deletion would find.
class Uses {
 public:
  Uses(const TargetItem& target, const std::string& data, const std::string& request,
       Output& output)
      : target_(target), data_(data), request_(request), output_(output) {}

  int count() const { return count_; }

  void list() {
    inRequests();
    inDevices();
    onScreens();
  }

 private:
  void line(const char* kind, const std::string& where, const std::string& detail) {
    output_ << kind << "\t" << oneLine(where) << "\t" << oneLine(detail) << "\n";
    ++count_;
  }

  void inRequests() {
    for (const DataPositionItem* position : target_.GetRequestsUsingData(data_)) {
      std::string detail = std::string(position->param ? "sent" : "received") + " byte " +
                           std::to_string(position->StartOctet) + " bit " +
                           std::to_string(position->StartBit);
      if (position->reference) detail += " reference";
      line("position", position->parent->requestName, detail);
    }
  }

  void inDevices() {
    if (!target_.Organes()) return;
    for (const OrganeItem* device : *target_.Organes()) {
      if (const DeviceDataItem* datum = device->GetDeviceDataUsingData(data_))
        line("device data", device->organeName, datum->FlagPanne ? "failure flag" : "information");
      if (device->Tests) {
        for (const TestItem* test : *device->Tests) {
          inFlags(*device, *test, test->StoredFlag, "stored flag");
          inFlags(*device, *test, test->PresentFlag, "present flag");
        }
      }
      if (device->requestName == request_)
        line("freeze frame", device->organeName, "DTC " + std::to_string(device->OrganeDTC));
    }
  }

  void inFlags(const OrganeItem& device, const TestItem& test, const FlagPositions& flags,
               const char* kind) {
    for (const DataPositionItem* position : flags) {
      if (position->dataName == data_)
        line(kind, device.organeName, "test " + std::to_string(test.testType));
    }
  }

  void onScreens() {
    forEachScreen(target_, [this](const ScreenItem& screen) {
      const std::string where = screen.parent->categoryName + "/" + screen.screenName;
      if (screen.DisplayItems) {
        for (const DisplayItem* display : *screen.DisplayItems)
          onDisplay(*display, where);
      }
      if (!screen.ButtonItems) return;
      for (const ButtonItem* button : *screen.ButtonItems) {
        if (!button->ScenarioItems) continue;
        for (const ScenarioItem* step : *button->ScenarioItems) {
          if (step->requestName != request_) continue;
          const std::string owner =
              button->InitButton ? std::string("init scenario") : "button " + button->caption;
          line("scenario step", where, owner + ", step " + std::to_string(step->Index));
        }
      }
    });
  }

  void onDisplay(const DisplayItem& display, const std::string& where) {
    if (const auto& data = display.DisplayDataItem) {
      if (data->dataName == data_) line("display", where, "request " + data->requestName);
      if (data->requestName == request_) line("display", where, "data " + data->dataName);
    }
    if (const auto& extra = display.DisplayExtraItem; extra && extra->requestName == request_)
      line("display", where, extra->param ? "input" : "output");
  }

  const TargetItem& target_;
  const std::string data_, request_;
  Output& output_;
  int count_ = 0;
};

} // namespace

int runUses(const Arguments& arguments, Output& output) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  const TargetItem& target = session.target();
  const std::string& name = arguments.words()[1];
  // Names are looked up without regard to case; what is not there may be used all the same.
  const DataItem* data = target.datas() ? target.datas()->ItemName(name) : nullptr;
  const RequestItem* request = target.Requests() ? target.Requests()->ItemName(name) : nullptr;
  Uses uses(target, data ? data->dataName() : name, request ? request->requestName : name, output);
  uses.list();
  if (uses.count() > 0) return done;
  if (!data && !request) session.tell(Failure(1, "", "Data or request '" + name + "' not found"));
  return failed;
}

} // namespace kelmar::cli
