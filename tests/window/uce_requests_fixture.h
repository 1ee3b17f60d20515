// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/display_response.h"
#include "controls/list_view.h"
#include "controls/zem_numeric.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/uce_requests.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kelmar {

/// The page of requests alone in a window, on a small ECU at address 7A.
class UceRequestsWindow : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  using Answer = platform::Answer;
  using Buttons = platform::Buttons;
  using Icon = platform::Icon;

  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceRequests> page;
  std::unique_ptr<support::SignalRecorder> signalRecorder;

  void SetUp() override {
    makeEcu();
    openPage();
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }

  void makeEcu() {
    database.ActiveTarget = std::make_shared<TargetItem>();
    target().setParametres(std::make_shared<TargetParamItem>());
    target().setAddress(122);
    target().setDatas(std::make_shared<DataItems>());
    target().setRequests(std::make_shared<RequestItems>());
    target().setOrganes(std::make_shared<OrganeItems>());
    for (const char* name : {"Speed", "Level", "Wide"})
      target().datas()->Add(name)->parent = &target();
    target().datas()->ItemName("Wide")->NumberBits = 16;
    add("Read", "2101", "6101").LengthDatas = 4;
    add("Write", "3B01AABB", "7B01");
    add("Session", "1003", "50");
    place("Read", "Speed", false, 3, 0);
    place("Read", "Wide", false, 2, 4);
    place("Write", "Level", true, 3, 0);
  }
  void openPage() {
    page = std::make_unique<UceRequests>(person, &settings);
    page->setObjectName("UceRequests1");
    signalRecorder = std::make_unique<support::SignalRecorder>(*page, recorder);
    person.recordInto(recorder);
    page->InitControl();
    page->resize(1300, 680);
    page->displayDatas(database, "");
    support::showToUser(*page);
    recorder.take();
  }

  /// As the page shows it when it is entered again.
  void enterAgain() { page->displayDatas(database, ""); }

  TargetItem& target() { return *database.ActiveTarget; }
  RequestItem& add(const std::string& name, const char* sent, const char* reply) {
    RequestItem* item = target().Requests()->Add(name);
    item->parent = &target();
    item->RequestBytes = std::make_shared<FrameBuffer>();
    item->RequestBytes->setHexText(sent);
    item->ReplyBytes = std::make_shared<FrameBuffer>();
    item->ReplyBytes->setHexText(reply);
    return *item;
  }
  DataPositionItem& place(const char* name, const char* item, bool param, int byte, int bit) {
    RequestItem& owner = the(name);
    if (!owner.DataPositions) owner.DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = owner.DataPositions->Add(item);
    position->parent = &owner;
    position->param = param;
    position->StartOctet = byte;
    position->StartBit = bit;
    return *position;
  }
  RequestItem& the(const char* name) { return *target().Requests()->ItemName(name); }
  DataPositionItem& position(const char* request, const char* data) {
    return *the(request).DataPositions->ItemName(data);
  }
  DataItem* data(const char* name) { return target().datas()->ItemName(name); }

  ListView& list() { return support::control<ListView>(*page, "LVrequests"); }
  ListView& placed() { return support::control<ListView>(*page, "LVposdata"); }
  DisplayResponse& view() { return support::control<DisplayResponse>(*page, "DisplayRep"); }
  QComboBox& names() { return support::control<QComboBox>(*page, "ComboData"); }
  QPushButton& adding() { return support::control<QPushButton>(*page, "CBadd"); }
  QLineEdit& field(const char* name) { return support::control<QLineEdit>(*page, name); }
  QCheckBox& box(const char* name) { return support::control<QCheckBox>(*page, name); }
  ZEMnumeric& number(const char* name) { return support::control<ZEMnumeric>(*page, name); }
  QLineEdit& numberText(const char* name) {
    return support::control<QLineEdit>(number(name), "TextNum");
  }
  QGroupBox& frame() { return support::control<QGroupBox>(*page, "FrameInfos"); }
  std::string shown(const char* name) {
    return desktop::u8(support::control<QLabel>(*page, name).text());
  }
  std::string caption() { return desktop::u8(frame().title()); }
  std::string warning() {
    return support::control<QLabel>(*page, "errorMsg").isVisible() ? shown("errorMsg") : "";
  }

  void key(const char* name, const char* bar = "tbToolBar") {
    support::click(support::usable<QToolButton>(
        support::control<QToolBar>(*page, QLatin1String(bar)), QLatin1String(name)));
  }
  bool isUsable(const char* name, const char* bar = "tbToolBar") {
    return support::control<QToolButton>(support::control<QToolBar>(*page, QLatin1String(bar)),
                                         QLatin1String(name))
        .isEnabled();
  }
  void tab(int index) { support::control<QTabBar>(*page, "TSsendReceipt").setCurrentIndex(index); }
  void chooseName(const char* name) {
    names().setCurrentText(QLatin1String(name));
    emit names().textActivated(QLatin1String(name));
  }
  std::string requestNames() {
    std::string all;
    for (const RowTag tag : list().rows().tags())
      all += (all.empty() ? "" : "|") + static_cast<RequestItem*>(tag)->requestName;
    return all;
  }
  std::string selectedNames() {
    std::string all;
    for (const RowTag tag : list().selectedTags())
      all += (all.empty() ? "" : "|") + static_cast<RequestItem*>(tag)->requestName;
    return all;
  }
  std::string selectedDatas() {
    std::string all;
    for (const RowTag tag : placed().selectedTags())
      all += (all.empty() ? "" : "|") + static_cast<DataPositionItem*>(tag)->dataName;
    return all;
  }

  /// The menu that a right click, or the menu key, has popped up over a control.
  QMenu& menuOf(QWidget& owner, const char* name) {
    auto* menu = owner.findChild<QMenu*>(QLatin1String(name));
    if (!menu) throw std::runtime_error(std::string("no menu ") + name);
    return *menu;
  }
  QMenu& openRequestMenu() {
    emit list().customContextMenuRequested(list().visualRect(list().currentIndex()).center());
    return menuOf(list(), "PopupReq");
  }
  QMenu& openDataMenu() {
    emit placed().customContextMenuRequested(placed().visualRect(placed().currentIndex()).center());
    return menuOf(placed(), "PopupmenuData");
  }
  /// Chooses an entry, the nth of those of its name, and closes the menu.
  void choose(QMenu& menu, const char* entry, int nth = 0) {
    QAction* action = menu.findChildren<QAction*>(QLatin1String(entry)).value(nth);
    if (!action) throw std::runtime_error(std::string("no entry ") + entry);
    if (!action->isEnabled()) throw std::runtime_error(std::string(entry) + " is not enabled");
    const QPointer<QMenu> alive(&menu);
    action->trigger();
    if (alive) alive->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void chooseForRequest(const char* entry) { choose(openRequestMenu(), entry); }
  void chooseForData(const char* entry, int nth = 0) { choose(openDataMenu(), entry, nth); }

  void clickBit(int byte, int cell, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&view(), button, {}, view().cellRect(byte, cell).center());
  }

  // Boxes of the page.
  void expectYesNo(const char* key, const char* title, const std::string& text, Answer answer,
                   Icon icon = Icon::Question) {
    person.expect(key, title, text, Buttons::YesNo, icon, answer);
  }
  void expectConfirmation(Answer answer) {
    expectYesNo("REQUESTS/MSG/TestAndConfirmChange/text", "Confirm data validation?",
                "Requests has been modified. Validate change?", answer);
  }
  void expectPositionConfirmation(Answer answer) {
    expectYesNo("REQUESTS/MSG/TestAndConfirmChangeDataPos/text", "Confirm change",
                "Data has been modified. Save change?", answer, Icon::None);
  }
  void expectDeletion(Answer answer) {
    person.expect("REQUESTS/MSG/CutRequest/text", "Confirmer delete",
                  "Do you really want to delete the selected request ?\r\n\r\n****** D A N G E R "
                  "******\r\nDeleting request also delete reference in devices and/or "
                  "screens\r\nwithout means to recover them.",
                  Buttons::OkCancel, Icon::Critical, answer);
  }
  void expectPositionDeletion(Answer answer) {
    person.expect("REQUESTS/MSG/CutData/text", "Confirmer delete",
                  "Do you really want to delete the selected data ?\r\n\r\n****** D A N G E R "
                  "******\r\nDeleting data also delete reference in devices and/or screens\r\n"
                  "without means to recover them.",
                  Buttons::OkCancel, Icon::Critical, answer);
  }

  const Events saved = {"UceRequests1.OnSave(false)"};
  const Events changed = {"UceRequests1.OnChange()"};
};

} // namespace kelmar
