// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A day's work with the program itself, by mouse and keyboard and by the keyboard alone: from the
// opening of a file to its comparison after it was saved and opened again.
#include "base/text.h"
#include "desktop/clipboard.h"
#include "editors/rules/datas/data_clipboard.h"
#include "editors/rules/requests/request_tab_clipboard.h"
#include "window/twin_window.h"

#include <functional>

namespace kelmar {
namespace {

using namespace outside;

/// An ECU whose only data is the reference of a request, belongs to a device and stands on a
/// screen.
constexpr char gearbox[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<xml xmlns:zem="http://www.omnikor.example/2002/ECU">
<zem:Target Name="Engine" xmlns="http://www.omnikor.example/2002/ECU" xmlns:ds="http://www.omnikor.example/2002/screens">
<Function Name="Engine" Address="122"/>
<CAN BaudRate="500000" Multipoint="1"><SendId>
<CANId Value="2016"/>
</SendId><ReceiveId>
<CANId Value="2024"/>
</ReceiveId></CAN>
<Datas>
<Data Name="Speed"><Bits><Scaled Unit="km/h"/></Bits></Data>
</Datas>
<Requests Endian="Big">
<Request Name="Read"><Sent><SentBytes>2101</SentBytes></Sent>
<Received MinBytes="3"><ReplyBytes>6101</ReplyBytes>
<DataItem Name="Speed" FirstByte="3" Ref="1"/></Received></Request>
</Requests>
<Devices>
<Device Name="Speed sensor" FreezeFrame="Read"><DeviceData Name="Speed" FailureFlag="0"/></Device>
</Devices>
<ds:Categories>
<Category Name="Drive"><Screen Name="Dials" Width="600" Height="400" Color="16777215" WindowState="0">
<Send Delay="100" RequestName="Read"/>
<Display Width="2000" Color="16777215" DataName="Speed" RequestName="Read">
<Rectangle Left="0" Top="0" Height="300" Width="4000"/>
<Font Name="Arial" Size="10" Bold="0" Italic="0" Color="0"/></Display>
</Screen></Category>
</ds:Categories>
</zem:Target>
</xml>
)";

constexpr char dataHeader[] =
    "'Name\tMnemo\tNumber bits\tsigne\tunit\tcoef A\tcoef B\tcoef C\tDescription\t"
    "Numeric|List|Ascii|Hexa\tFormat\r\n";
constexpr char requestHeader[] =
    "'Name\tDM\tManual\tSend Bytes\tvariable\tLength\tShift\ttemplate\twithout\tplant\t"
    "after sales\tengineering\tsupplier\tcomment\r\n";
constexpr char positionHeader[] =
    "'\tSend or Receive\tData Name\tStart byte\tOffset bit\tLittle Endian\tref\r\n";

/// What pasted values leave on the clipboard: a mark for each that was taken.
constexpr char logOfValues[] = "'\r\n'\r\n'\r\n'\r\n";

/// What the list data is as text, by its name.
std::string leverText(const std::string& name) {
  return name + "\t\t2\t0\t\t1\t0\t1\t\tList\t\r\n'\tvalue\tlabel\r\n\t0\tPark\r\n\t1\tReverse\r\n"
                "\t2\tNeutral\r\n\t3\tDrive\r\n";
}

/// What the request of that data is as text.
std::string selectorText(const std::string& name, bool reference) {
  return name + "\t0\t0\t22F190\t0\t6\t0\t62F190\t1\t1\t1\t1\t1\t\r\n" + positionHeader +
         "\tReceive\tSelector lever\t4\t2\t0\t" + (reference ? "1" : "0") +
         "\r\n\tReceive\tOil level\t5\t0\t0\t0\r\n";
}

using Keys = QStringList;

/// An ECU file as it is now, or none while it cannot be read.
std::unique_ptr<OmnikorLibXml> read(const std::string& file) {
  auto database = std::make_unique<OmnikorLibXml>();
  try {
    database->ImportUceFromXml(file);
  } catch (const Failure&) {
    return nullptr;
  }
  return database;
}

std::string datasText(const TargetItem& target) {
  std::vector<DataItem*> all;
  for (DataItem* data : *target.datas())
    all.push_back(data);
  return copyDatasText(all).text;
}

std::string requestsText(const TargetItem& target) {
  RequestSelection all;
  for (RequestItem* request : *target.Requests())
    all.push_back(request);
  bool broken = false;
  return copyRequestsText(all, broken);
}

/// Where the old names stood: reference, device, display and scenario of the screen. The freeze
/// frame of a device does not follow.
std::string usesText(const TargetItem& target, const std::string& data) {
  std::string text;
  if (const DataPositionItem* reference = target.GetDataPositionFromRefData(data))
    text += reference->parent->requestName;
  for (const OrganeItem* device : *target.Organes()) {
    text += "|" + device->organeName + ":" + device->requestName;
    for (const DeviceDataItem* datum : *device->DeviceDatas)
      text += "," + datum->dataName;
  }
  const ScreenItem& screen = *target.Categories->Item(1)->Screens->Item(1);
  for (const DisplayItem* display : *screen.DisplayItems)
    text += "|" + display->DisplayDataItem->dataName + "," + display->DisplayDataItem->requestName;
  for (const ScenarioItem* step : *screen.ButtonInit->ScenarioItems)
    text += "|" + step->requestName;
  return text;
}

const RequestItem* requestIn(const TargetItem& target, const char* name) {
  return target.Requests()->ItemName(name);
}
const DataPositionItem* positionIn(const TargetItem& target, const char* request,
                                   const char* data) {
  const RequestItem* found = requestIn(target, request);
  return found && found->DataPositions ? found->DataPositions->ItemName(data) : nullptr;
}

/// As a spreadsheet gives a text back: LF ends its lines.
std::string fromSpreadsheet(const std::string& text) {
  return replaceAll(text, "\r\n", "\n");
}

class DailyWork : public testing::Test {
 protected:
  support::SmallSite site;
  std::string file = site.folder().write("vehicles/Tern/Engine.xml", gearbox);
  std::unique_ptr<Program> program;
  QString window;

  void TearDown() override {
    // What the program complained of says more than the step that waited in vain.
    if (program && HasFailure())
      ADD_FAILURE() << "kelmar said: " << program->errors() << "\nin sight: "
                    << xdotool({"search", "--onlyvisible", "--name", ".", "getwindowname", "%@"})
                           .toStdString()
                    << "\non the clipboard: " << desktop::clipboardText();
  }
  void start(const QStringList& arguments, const QString& caption,
             const QString& clock = "2026-01-02T03:04") {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KELMAR_CLOCK", clock);
    environment.insert("KELMAR_OWN_DIALOGS", "1");
    program = std::make_unique<Program>(onSite(site, arguments), environment);
    window = windowWith(caption);
    focus(window);
  }
  void end() {
    press("ctrl+q");
    ASSERT_TRUE(program->ended());
    EXPECT_EQ(program->exitCode(), 0);
    EXPECT_EQ(program->errors(), "");
  }

  // What a hand does. Within one window the program takes keys and clicks in their order, however
  // late it comes to them, so most steps need not wait for one another.

  void click(QPoint at, const char* button = "1") {
    xdotool({"mousemove", "--window", window, QString::number(at.x()), QString::number(at.y()),
             "click", button});
  }
  void type(const QString& text) { xdotool({"type", "--delay", "5", text}); }
  void retype(const QString& text) {
    press("ctrl+a");
    type(text);
  }
  /// Types over the name that is being edited in a list, and waits until the list has it: the field
  /// goes some time after Enter and takes the keys until then. Copying does nothing in the field,
  /// and copies the row in the list.
  void name(const QString& text) {
    type(text);
    press("Return"); // typed, it would be a letter
    const std::string wanted = "Name=\"" + text.toStdString() + "\"";
    const auto isCopied = [&] {
      return desktop::clipboardText().find(wanted) != std::string::npos;
    };
    const auto copies = [&] {
      press("ctrl+c");
      return support::waitUntil(isCopied, 300);
    };
    if (!support::waitUntil(copies, patience))
      throw std::runtime_error("no row has the name " + text.toStdString());
  }
  void keys(const Keys& several) { xdotool(QStringList{"key", "--delay", "5"} + several); }
  void times(int count, const QString& key) { keys(Keys(count, key)); }

  /// Waits for a box or an input line, answers and comes back to the window.
  void answer(const QString& caption, const std::function<void()>& fill = {}) {
    const QString box = windowWith(caption);
    focus(box);
    if (fill) fill();
    press("Return");
    // Looked for beside the window, as a search also fails when some window goes meanwhile.
    const QString both = "(Kelmar Xml .*|" + caption + ")";
    const auto gone = [&] {
      const QStringList seen = windowsWith(both);
      return seen.contains(window) && !seen.contains(box);
    };
    if (!support::waitUntil(gone, patience))
      throw std::runtime_error("the box stays: " + caption.toStdString());
  }
  void back() { focus(window); }

  /// Waits until the file says so.
  void saved(const char* what, const std::function<bool(TargetItem&)>& holds) {
    const bool came = support::waitUntil(
        [&] {
          const auto database = read(file);
          return database && holds(*database->ActiveTarget);
        },
        patience);
    if (!came) throw std::runtime_error(std::string("not in the file: ") + what);
  }
  void saveNow(const char* what, const std::function<bool(TargetItem&)>& holds) {
    press("ctrl+s");
    saved(what, holds);
  }
  struct CopyAndPaste {
    std::function<void()> showDatas, copyLever, pasteDatas;
    std::function<void()> showRequests, copySelectorText, copySelector, pasteRequests;
  };
  /// Data and request go to a spreadsheet and back, over themselves and under another name; the XML
  /// form of the request gives a copy of it.
  void carryThroughText(const CopyAndPaste& steps) {
    steps.showDatas();
    const std::string lever = copied("'Name", steps.copyLever);
    EXPECT_EQ(lever, dataHeader + leverText("Selector lever"));
    desktop::setClipboardText(fromSpreadsheet(lever));
    steps.pasteDatas();
    answer("Confirm update");
    back();
    waitForClipboard(logOfValues);
    desktop::setClipboardText(fromSpreadsheet(replaceAll(lever, "Selector", "Pasted")));
    steps.pasteDatas();
    waitForClipboard(logOfValues);
    saveNow("the pasted data",
            [](TargetItem& target) { return target.datas()->ItemName("Pasted lever"); });

    steps.showRequests(); // in the order of the file, in which renamed requests are the last ones
    const std::string selector = copied("'Name", steps.copySelectorText);
    EXPECT_EQ(selector, requestHeader + selectorText("Read selector", true));
    desktop::setClipboardText(fromSpreadsheet(selector));
    steps.pasteRequests();
    for (const char* box : {"Confirm update", "Confirm data update", "Confirm data update"})
      answer(box);
    back();
    desktop::setClipboardText(
        fromSpreadsheet(replaceAll(selector, "Read selector", "Pasted selector")));
    steps.pasteRequests();
    saveNow("the pasted request",
            [](TargetItem& target) { return requestIn(target, "Pasted selector"); });
    copied("<Requests", steps.copySelector);
    steps.pasteRequests();
    saveNow("the copied request",
            [](TargetItem& target) { return requestIn(target, "Copy Read selector"); });
  }
  /// What the file holds in the end, of which a copy is never the reference.
  void expectWholeDay() {
    const auto now = read(file);
    ASSERT_TRUE(now);
    const TargetItem& target = *now->ActiveTarget;
    EXPECT_EQ(datasText(target), dataHeader +
                                     std::string("Oil level\t\t4\t0\t\t1\t0\t1\t\tNumeric\t\r\n") +
                                     leverText("Selector lever") + leverText("Pasted lever") +
                                     "Vehicle speed\t\t8\t0\tkm/h\t1\t0\t1\t\tNumeric\t\r\n");
    EXPECT_EQ(requestsText(target),
              requestHeader + selectorText("Read selector", true) +
                  "Read speed\t0\t0\t2101\t0\t3\t0\t6101\t1\t1\t1\t1\t1\t\r\n" + positionHeader +
                  "\tReceive\tVehicle speed\t3\t0\t0\t1\r\n" +
                  selectorText("Pasted selector", false) +
                  selectorText("Copy Read selector", false));
    EXPECT_EQ(usesText(target, "Vehicle speed"),
              "Read speed|Speed sensor:Read,Vehicle speed|Vehicle speed,Read speed|"
              "Read speed");
  }
  /// Opened again it is what was saved, and saving it again changes nothing but the date.
  /// `copyRequests` shows the requests and copies the text of all of them.
  void expectSameReopened(const std::function<void()>& copyRequests) {
    const std::string before = support::bytesOf(file);
    start({QString::fromStdString(file)}, captionOf("Engine"), "2026-01-03T05:06");
    EXPECT_EQ(copied("'Name", copyRequests), requestsText(*read(file)->ActiveTarget));
    press("ctrl+s");
    saved("the new date", [this](TargetItem&) {
      return support::bytesOf(file).find("2026-01-03T05:06") != std::string::npos;
    });
    end();
    EXPECT_EQ(replaceAll(support::bytesOf(file), "2026-01-03T05:06", "2026-01-02T03:04"), before);
  }
  /// The text that comes to the clipboard by `copying`.
  std::string copied(const std::string& start, const std::function<void()>& copying) {
    desktop::setClipboardText("before");
    copying();
    waitForClipboard(start);
    return desktop::clipboardText();
  }
  void waitForClipboard(const std::string& start) {
    if (!support::waitUntil([&] { return desktop::clipboardText().starts_with(start); }, patience))
      throw std::runtime_error("on the clipboard is " + desktop::clipboardText());
  }
};

TEST_F(DailyWork, ByMouseAndKeyboardFromAnOpenedFileToTheSameFileReopened) {
  // Where to point.
  QPoint folder, ecu, datasTab, requestsTab, addData, listType, bits, value, label, addValue,
      copyData, renameData, pasteData, newRequest, renameRequest, pasteRequest, sentBytes,
      receivedTab, reply, length, bit, freeBit, outside, reference, dataRow, leverRow, selectorRow,
      copyRequest;
  Keys placeData, newNibble, copyDataText, copyRequestText;
  {
    TwinWindow twin(site, {});
    auto& tree = twin.as<QTreeView>({"tvEcus"});
    tree.setExpanded(tree.model()->index(0, 0), true);
    QModelIndex at = tree.model()->index(0, 0);
    folder = twin.place(*tree.viewport(), tree.visualRect(at).center());
    ecu = twin.place(*tree.viewport(), tree.visualRect(tree.model()->index(1, 0, at)).center());
  }
  {
    TwinWindow twin(site, file);
    datasTab = twin.placeOfTab("TabStripPrincipal", "Data");
    requestsTab = twin.placeOfTab("TabStripPrincipal", "Requests");
    twin.turnTo("Data");
    addData = twin.placeOf({"TbData", "add"});
    copyData = twin.placeOf({"TbData", "copy"});
    renameData = twin.placeOf({"TbData", "rename"});
    pasteData = twin.placeOf({"TbData", "paste"});
    listType = twin.placeOf({"OPtypeNumericList"});
    dataRow = twin.placeOfRow({"listDatas"}, 0);
    leverRow = twin.placeOfRow({"listDatas"}, 1);
    copyDataText = twin.keysInListMenu({"listDatas"}, "popupData", "popupRefCopyText");
    twin.click({"OPtypeNumericList"});
    bits = twin.placeOf({"ListeNumberBits", "TextNum"});
    value = twin.placeOf({"UceDataList1", "ValRange", "TextNum"});
    label = twin.placeOf({"UceDataList1", "ValText"});
    addValue = twin.placeOf({"UceDataList1", "CBaddNew"});
  }
  {
    TwinWindow twin(site, file);
    twin.turnTo("Requests");
    newRequest = twin.placeOf({"tbToolBar", "new"});
    renameRequest = twin.placeOf({"tbToolBar", "rename"});
    pasteRequest = twin.placeOf({"tbToolBar", "paste"});
    sentBytes = twin.placeOf({"TextReqBytes"});
    receivedTab = twin.placeOfTab("TSsendReceipt", "Received");
    copyRequest = twin.placeOf({"tbToolBar", "copy"});
    selectorRow = twin.placeOfRow({"LVrequests"}, 0);
    copyRequestText = twin.keysInListMenu({"LVrequests"}, "PopupReq", "PopupReqCopyText");
    twin.as<QTabBar>({"TSsendReceipt"}).setCurrentIndex(1);
    reply = twin.placeOf({"Rtemplate"});
    length = twin.placeOf({"ValLenData", "TextNum"});
    reference = twin.placeOf({"TBPosData", "ref"});
    auto& view = twin.as<DisplayResponse>({"DisplayRep"});
    view.setNumberBytes(6);
    bit = twin.placeOfBit(3, 5);
    freeBit = twin.placeOfBit(4, 7);
    outside = twin.placeOfBit(5, 0);
    desktop::setClipboardText("<Datas/>");
    placeData = twin.keysInBitMenu(3, 5, "PopupCreateDataC");
    newNibble = twin.keysInBitMenu(3, 5, "ppCDnumericBit", 3);
  }

  // Open.
  start({}, captionOfNothing);
  click(folder);
  keys({"Right"});
  click(ecu);
  keys({"Return"});
  windowWith(captionOf("Engine"));

  // A new data with a list of values.
  click(datasTab);
  click(addData);
  name("Lever");
  click(listType);
  click(bits);
  retype("2");
  for (const auto& [number, text] :
       {std::pair{"0", "Park"}, {"1", "Reverse"}, {"2", "Neutral"}, {"3", "Drive"}}) {
    click(value);
    retype(number);
    click(label);
    type(text);
    click(addValue);
  }
  saveNow("the new data", [](TargetItem& target) {
    const DataItem* data = target.datas()->ItemName("Lever");
    return data && data->liste && data->NumberBits == 2 && data->DataListes &&
           data->DataListes->Count() == 4;
  });
  EXPECT_EQ(datasText(*read(file)->ActiveTarget),
            dataHeader + leverText("Lever") + "Speed\t\t8\t0\tkm/h\t1\t0\t1\t\tNumeric\t\r\n");
  const std::string copiedLever = copied("<Datas>", [&] { click(copyData); });

  // A new request.
  click(requestsTab);
  click(newRequest);
  name("Read lever");
  click(sentBytes);
  retype("22F190");
  click(receivedTab);
  click(reply);
  retype("62F190");
  click(length);
  retype("6");
  saveNow("the new request", [](TargetItem& target) {
    const RequestItem* request = requestIn(target, "Read lever");
    return request && request->RequestBytes->HexText() == "22F190" &&
           request->ReplyBytes->HexText() == "62F190" && request->LengthDatas == 6;
  });

  // The data that was copied goes to the bit that is clicked, another one is made on the next byte.
  desktop::setClipboardText(copiedLever);
  click(bit, "3");
  keys(placeData);
  saveNow("the placed data",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Lever"); });
  click(freeBit, "3");
  keys(newNibble);
  answer("Enter data name", [this] { retype("Oil level"); });
  back();
  saveNow("the data that was made on a bit",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Oil level"); });
  {
    const auto now = read(file);
    const DataPositionItem* lever = positionIn(*now->ActiveTarget, "Read lever", "Lever");
    EXPECT_EQ(lever->StartOctet, 4);
    EXPECT_EQ(lever->StartBit, 2);
    EXPECT_FALSE(lever->param || lever->reference || lever->LittleEndian);
    const DataPositionItem* level = positionIn(*now->ActiveTarget, "Read lever", "Oil level");
    EXPECT_EQ(level->StartOctet, 5);
    EXPECT_EQ(level->StartBit, 0);
    EXPECT_EQ(now->ActiveTarget->datas()->ItemName("Oil level")->NumberBits, 4);
  }

  // The bits choose the data that becomes the reference.
  click(outside);
  click(bit);
  click(reference);
  saveNow("the reference",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Lever")->reference; });
  EXPECT_FALSE(positionIn(*read(file)->ActiveTarget, "Read lever", "Oil level")->reference);

  // New names; whatever bore the old ones follows.
  click(datasTab);
  click(dataRow); // the first by name is the new one
  click(renameData);
  name("Selector lever");
  press("shift+F3");
  answer("Find data", [this] { retype("speed"); });
  back();
  click(renameData);
  name("Vehicle speed");
  // Unsaved work is told on a tab, which moves those behind it: saved first.
  saveNow("the new names of data",
          [](TargetItem& target) { return target.datas()->ItemName("Vehicle speed"); });
  click(requestsTab);
  click(renameRequest);
  name("Read selector");
  press("shift+F3");
  answer("Find request", [this] { retype("read"); });
  back();
  click(renameRequest);
  name("Read speed");
  saveNow("the new names", [](TargetItem& target) {
    return requestIn(target, "Read speed") && requestIn(target, "Read selector");
  });
  {
    const auto now = read(file);
    const TargetItem& target = *now->ActiveTarget;
    EXPECT_EQ(usesText(target, "Vehicle speed"),
              "Read speed|Speed sensor:Read,Vehicle speed|Vehicle speed,Read speed|"
              "Read speed");
    EXPECT_EQ(target.GetDataPositionFromRefData("Selector lever")->parent->requestName,
              "Read selector");
    EXPECT_FALSE(target.datas()->ItemName("Lever") || target.datas()->ItemName("Speed") ||
                 requestIn(target, "Read") || requestIn(target, "Read lever"));
  }

  carryThroughText({.showDatas = [&] { click(datasTab); },
                    .copyLever =
                        [&] {
                          click(leverRow, "3");
                          keys(copyDataText);
                        },
                    .pasteDatas = [&] { click(pasteData); },
                    .showRequests = [&] { click(requestsTab); },
                    .copySelectorText =
                        [&] {
                          click(selectorRow, "3");
                          keys(copyRequestText);
                        },
                    .copySelector =
                        [&] {
                          click(selectorRow);
                          click(copyRequest);
                        },
                    .pasteRequests = [&] { click(pasteRequest); }});
  end();
  expectWholeDay();

  expectSameReopened([&] {
    click(requestsTab);
    press("ctrl+a");
    click(selectorRow, "3");
    keys(copyRequestText);
  });
}

TEST_F(DailyWork, ByTheKeyboardAloneGivesTheSame) {
  int toDatas = 0, toRequests = 0;
  // How often Tab leads on from one control to the next.
  int toType = 0, toBits = 0, toValue = 0, toLabel = 0, toAdd = 0;
  int toSide = 0, toSent = 0, toReply = 0, toLength = 0, toView = 0, toPlaced = 0;
  Keys placeData, newNibble, copyDataText, copyRequestText;
  {
    TwinWindow twin(site, file);
    toDatas = twin.pagesTo("Data");
    toRequests = twin.pagesTo("Requests") - toDatas;
    twin.turnTo("Data");
    copyDataText = twin.keysInListMenu({"listDatas"}, "popupData", "popupRefCopyText");
    toType = twin.tabsBetween({"listDatas"}, {"OPtypeNumeric"});
    twin.click({"OPtypeNumericList"});
    toBits = twin.tabsBetween({"OPtypeNumericList"}, {"ListeNumberBits"});
    toValue = twin.tabsBetween({"ListeNumberBits"}, {"UceDataList1", "ValRange"});
    toLabel = twin.tabsBetween({"UceDataList1", "ValRange"}, {"UceDataList1", "ValText"});
    toAdd = twin.tabsBetween({"UceDataList1", "ValText"}, {"UceDataList1", "CBaddNew"});
  }
  {
    TwinWindow twin(site, file);
    twin.turnTo("Requests");
    copyRequestText = twin.keysInListMenu({"LVrequests"}, "PopupReq", "PopupReqCopyText");
    toSide = twin.tabsBetween({"LVrequests"}, {"TSsendReceipt"});
    toSent = twin.tabsBetween({"TSsendReceipt"}, {"TextReqBytes"});
    twin.as<QTabBar>({"TSsendReceipt"}).setCurrentIndex(1);
    toReply = twin.tabsBetween({"TSsendReceipt"}, {"Rtemplate"});
    toLength = twin.tabsBetween({"Rtemplate"}, {"ValLenData"});
    toView = twin.tabsBetween({"ValLenData"}, {"DisplayRep"});
    toPlaced = twin.tabsBetween({"DisplayRep"}, {"LVposdata"});
    desktop::setClipboardText("<Datas/>");
    placeData = twin.keysInBitMenu(0, 7, "PopupCreateDataC");
    newNibble = twin.keysInBitMenu(0, 7, "ppCDnumericBit", 3);
  }
  const auto toBit = [this](int byte, int cell) {
    keys({"Home"});
    times(byte * 8 + 7 - cell, "Right");
  };

  // Open.
  start({}, captionOfNothing);
  desktop::setClipboardText(file);
  press("ctrl+o");
  // Pasted, as the list of matches would open and close with each letter that is typed.
  answer("Open database", [] { press("ctrl+v"); });
  windowWith(captionOf("Engine"));
  back();

  // A new data with a list of values.
  times(toDatas, "ctrl+Next");
  press("ctrl+n");
  name("Lever");
  times(toType, "Tab");
  keys({"Right"});
  times(toBits, "Tab");
  retype("2");
  times(toValue, "Tab");
  for (const auto& [number, text] :
       {std::pair{"0", "Park"}, {"1", "Reverse"}, {"2", "Neutral"}, {"3", "Drive"}}) {
    retype(number);
    times(toLabel, "Tab");
    type(text);
    times(toAdd, "Tab");
    keys({"space"}); // and back to the value
  }
  saveNow("the new data", [](TargetItem& target) {
    const DataItem* data = target.datas()->ItemName("Lever");
    return data && data->liste && data->DataListes && data->DataListes->Count() == 4;
  });
  // The page is entered anew, on its list.
  keys({"ctrl+Prior", "ctrl+Next"});
  const std::string copiedLever = copied("<Datas>", [] { press("ctrl+c"); });

  // A new request.
  times(toRequests, "ctrl+Next");
  press("ctrl+n");
  name("Read lever");
  times(toSide + toSent, "Tab");
  retype("22F190");
  times(toSent, "shift+Tab");
  keys({"Right"});
  times(toReply, "Tab");
  retype("62F190");
  times(toLength, "Tab");
  retype("6");
  saveNow("the new request", [](TargetItem& target) {
    const RequestItem* request = requestIn(target, "Read lever");
    return request && request->RequestBytes->HexText() == "22F190" &&
           request->ReplyBytes->HexText() == "62F190" && request->LengthDatas == 6;
  });

  // Data on bits that the arrows lead to.
  times(toView, "Tab");
  desktop::setClipboardText(copiedLever);
  toBit(3, 5);
  keys(Keys{"Menu"} + placeData);
  saveNow("the placed data",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Lever"); });
  toBit(4, 7);
  keys(Keys{"Menu"} + newNibble);
  answer("Enter data name", [this] { retype("Oil level"); });
  back();
  saveNow("the data that was made on a bit",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Oil level"); });
  toBit(3, 5);
  keys({"space"});
  times(toPlaced, "Tab");
  keys({"F9"});
  saveNow("the reference",
          [](TargetItem& target) { return positionIn(target, "Read lever", "Lever")->reference; });

  // New names.
  times(toRequests, "ctrl+Prior");
  keys({"Home", "F2"});
  name("Selector lever");
  keys({"End", "F2"});
  name("Vehicle speed");
  times(toRequests, "ctrl+Next");
  keys({"End", "F2"});
  name("Read selector");
  keys({"Home", "F2"});
  type("Read speed"); // that the file has it without Enter, too
  saveNow("the new names", [](TargetItem& target) {
    return requestIn(target, "Read speed") && requestIn(target, "Read selector");
  });

  carryThroughText({.showDatas = [&] { times(toRequests, "ctrl+Prior"); },
                    .copyLever =
                        [&] {
                          keys({"Home", "Down", "Menu"});
                          keys(copyDataText);
                        },
                    .pasteDatas = [&] { press("ctrl+v"); },
                    .showRequests = [&] { times(toRequests, "ctrl+Next"); },
                    .copySelectorText =
                        [&] {
                          keys({"Home", "Menu"});
                          keys(copyRequestText);
                        },
                    .copySelector =
                        [&] {
                          keys({"Home"});
                          press("ctrl+c");
                        },
                    .pasteRequests = [&] { press("ctrl+v"); }});
  end();
  expectWholeDay();

  expectSameReopened([&] {
    times(toDatas + toRequests, "ctrl+Next");
    press("ctrl+a");
    keys(Keys{"Menu"} + copyRequestText);
  });
}

} // namespace
} // namespace kelmar
