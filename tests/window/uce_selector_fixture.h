// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/uce_selector.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace kelmar::support {

/// The first page alone in a window, on a small site of its own.
class SelectorPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;

  /// An ECU file with a name, and what stands behind the list of identifications.
  static std::string
  ecu(const std::string& name, const std::string& rest = {},
      const std::string& generator = "Kelmar",
      const std::string& identification =
          R"(<AutoIdent DiagVersion="4" Supplier="SUP" Soft="0100" Version="01"/>)") {
    return "<?xml version='1.0' encoding=\"UTF-8\"?><xml>\n<Generator name=\"" + generator +
           "\"/>\n<zem:Target Name=\"" + name +
           "\" group=\"Family\"><Projects xmlns=\"\"><B2/></Projects>"
           "<Function Name=\"Engine\" Address=\"122\" LogicalAddress=\"7A\"/>"
           "<CAN BaudRate=\"500000\" Multipoint=\"1\"><SendId><CANId Value=\"2016\"/></SendId>"
           "<ReceiveId><CANId Value=\"2024\"/></ReceiveId></CAN><AutoIdents>" +
           identification + "</AutoIdents><Datas/>" + rest + "</zem:Target></xml>";
  }
  /// Requests of which three positions have no data.
  static std::string threeLost() {
    std::string positions;
    for (const char* name : {"X", "Y", "Z"})
      positions += std::string("<DataItem Name=\"") + name + "\" FirstByte=\"1\"/>";
    return "<Requests Endian=\"Big\"><Request Name=\"R\"><Sent><SentBytes>21</SentBytes>" +
           positions + "</Sent></Request></Requests>";
  }

  void SetUp() override {
    site.write("parameters.xml", R"(<site name="Small" key="S">
      <addressingFile>GenericAddressing.xml</addressingFile>
      <projectsFile>projects.xml</projectsFile>
      <dataSets><dataSet label="All" folder="vehicles"/></dataSets></site>)");
    site.write("projects.xml",
               R"(<projects><Manufacturer name="M"><project code="A1"/><project code="B2"/>
               <project code="C3"/></Manufacturer></projects>)");
    site.write("GenericAddressing.xml", R"(<Functions>
      <Function Name="Engine" Address="122"><XId>2016</XId><RId>2024</RId><ProtocolList><Protocol>
        <LogicalAddress>7A</LogicalAddress></Protocol></ProtocolList></Function>
      <Function Name="Brakes" Address="44"><XId>1856</XId><RId>1888</RId><ProtocolList><Protocol>
        <LogicalAddress>2C</LogicalAddress></Protocol></ProtocolList></Function>
      <Function Name="Half" Address="9"><XId>1</XId></Function></Functions>)");
    engine = site.write("vehicles/Tern/Engine.xml", ecu("Engine D12"));
    site.write("vehicles/Tern/Other.xml", ecu("Other"));
    page = std::make_unique<UceSelector>(
        UceSelector::Machine{person, settings, fetch, &clock, nullptr});
    page->setObjectName(QStringLiteral("UceSelector1"));
    signalRecorder = std::make_unique<SignalRecorder>(*page, recorder);
    person.recordInto(recorder);
    page->InitParameters(site.path().string(), "parameters.xml");
    page->resize(1200, 640);
    showToUser(*page);
    recorder.take();
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }

  void open(const std::string& file) {
    page->OpenEcuFile(file);
    recorder.take();
  }
  template <class Widget = QLineEdit>
  Widget& the(const char* name) {
    return control<Widget>(*page, QLatin1String(name));
  }
  std::string textOf(const char* name) { return desktop::u8(the<QLineEdit>(name).text()); }
  std::string labelOf(const char* name) { return desktop::u8(the<QLabel>(name).text()); }
  void pressButton(const char* key) {
    click(usable<QToolButton>(the<QToolBar>("TBtoolbar"), QLatin1String(key)));
  }
  QMenu& menuOf(const char* key) {
    return *control<QToolButton>(the<QToolBar>("TBtoolbar"), QLatin1String(key)).menu();
  }
  void choose(const char* button, const char* entry) {
    for (QAction* action : menuOf(button).actions())
      if (action->objectName() == QLatin1String(entry)) return action->trigger();
    FAIL() << "no entry " << entry;
  }
  ecuSelector& tree() { return the<ecuSelector>("ecuSelector1"); }
  TargetItem* target() { return page->database()->ActiveTarget.get(); }

  void expectOpenDialog(std::optional<std::string> answer) {
    person.expectFile({platform::FileQuestion::Kind::Open, "Open database",
                       "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*", ".xml", ""},
                      std::move(answer));
  }
  void expectSaveDialog(const std::string& proposal, std::optional<std::string> answer) {
    person.expectFile({platform::FileQuestion::Kind::Save, "Save ECU",
                       "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*", ".xml", proposal},
                      std::move(answer));
  }
  void expectBox(const char* key, const char* title, const std::string& text,
                 platform::Icon icon = platform::Icon::Critical) {
    person.expect(key, title, text, platform::Buttons::Ok, icon, platform::Answer::Ok);
  }

  TempFolder site;
  std::string engine;
  Recorder recorder;
  ScriptedPerson person;
  MemorySettings settings;
  FixedClock clock;
  platform::Fetch* fetch = nullptr;
  std::unique_ptr<UceSelector> page;
  std::unique_ptr<SignalRecorder> signalRecorder;
};

} // namespace kelmar::support
