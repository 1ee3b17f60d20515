// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/session.h"
#include "database/target_walk.h"

namespace kelmar::cli {

namespace {

/// Writes the uses of one name, a line each: kind, where, detail.
class Uses {
 public:
  Uses(const TargetItem& target, const std::string& name, Output& output)
      : target_(target), name_(name), output_(output) {}

  int count() const { return count_; }

  void list() {
    inRequests();
    inDevices();
    onScreens();
  }

 private:
  void line(const char* kind, const std::string& where, const std::string& detail) {
    output_ << kind << "\t" << where << "\t" << detail << "\n";
    ++count_;
  }

  void inRequests() {
    for (const DataPositionItem* position : target_.GetRequestsUsingData(name_)) {
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
      if (const DeviceDataItem* datum = device->GetDeviceDataUsingData(name_))
        line("device data", device->organeName, datum->FlagPanne ? "failure flag" : "information");
      if (device->Tests) {
        for (const TestItem* test : *device->Tests) {
          inFlags(*device, *test, test->StoredFlag, "stored flag");
          inFlags(*device, *test, test->PresentFlag, "present flag");
        }
      }
      if (device->requestName == name_) line("freeze frame", device->organeName, "request");
    }
  }

  void inFlags(const OrganeItem& device, const TestItem& test, const FlagPositions& flags,
               const char* kind) {
    for (const DataPositionItem* position : flags) {
      if (position->dataName == name_)
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
          if (step->requestName != name_) continue;
          const std::string owner =
              button->InitButton ? std::string("init scenario") : "button " + button->caption;
          line("scenario step", where, owner + ", step " + std::to_string(step->Index));
        }
      }
    });
  }

  void onDisplay(const DisplayItem& display, const std::string& where) {
    if (const auto& data = display.DisplayDataItem) {
      if (data->dataName == name_) line("display", where, "request " + data->requestName);
      if (data->requestName == name_) line("display", where, "data " + data->dataName);
    }
    if (const auto& extra = display.DisplayExtraItem; extra && extra->requestName == name_)
      line("display", where, extra->param ? "input" : "output");
  }

  const TargetItem& target_;
  const std::string& name_;
  Output& output_;
  int count_ = 0;
};

} // namespace

int runUses(const Arguments& arguments, Output& output) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  Uses uses(session.target(), arguments.words()[1], output);
  uses.list();
  return uses.count() > 0 ? done : failed;
}

} // namespace kelmar::cli
