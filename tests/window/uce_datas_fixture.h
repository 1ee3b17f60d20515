// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_view.h"
#include "controls/zem_numeric.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/uce_data_list.h"
#include "editors/uce_datas.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kelmar {

/// The page of data alone in a window, on an ECU with the numeric data "Level" and "Speed" and the
/// list data "State" of 0 Off and 1 On. "Level" is the active one.
class UceDatasPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  using Answer = platform::Answer;
  using Buttons = platform::Buttons;
  using Icon = platform::Icon;

  support::ScriptedPerson person;
  support::Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceDatas> page;
  std::unique_ptr<support::SignalRecorder> signalRecorder;

  void SetUp() override {
    database.ActiveTarget = newEcu({"Speed", "Level", "State"});
    DataItem& state = the("State");
    state.liste = true;
    state.DataListes = std::make_shared<DataListeItems>();
    state.DataListes->Add(0, "Off", "");
    state.DataListes->Add(1, "On", "");
    page = std::make_unique<UceDatas>(person, KELMAR_SITE);
    page->setObjectName("UceDatas1");
    signalRecorder = std::make_unique<support::SignalRecorder>(*page, recorder);
    person.recordInto(recorder);
    page->InitControl();
    page->resize(1200, 640);
    page->displayDatas(database, "");
    support::showToUser(*page);
    recorder.take();
  }
  void TearDown() override {
    page.reset();
    signalRecorder.reset();
  }

  static std::shared_ptr<TargetItem> newEcu(std::initializer_list<const char*> names) {
    auto target = std::make_shared<TargetItem>();
    target->setDatas(std::make_shared<DataItems>());
    target->setRequests(std::make_shared<RequestItems>());
    for (const char* name : names)
      target->datas()->Add(name)->parent = target.get();
    return target;
  }
  TargetItem& target() { return *database.ActiveTarget; }
  DataItem& the(const std::string& name) { return *target().datas()->ItemName(name); }
  bool has(const std::string& name) { return target().datas()->ItemName(name) != nullptr; }
  DataItem& add(const std::string& name) {
    DataItem* data = target().datas()->Add(name);
    data->parent = &target();
    return *data;
  }
  DataPositionItem& place(const std::string& request, const std::string& data) {
    auto item = std::make_shared<RequestItem>();
    item->requestName = request;
    item->parent = &target();
    item->DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = item->DataPositions->Add(data);
    position->parent = target().Requests()->AddData(item);
    return *position;
  }
  void showAgain() {
    page->displayDatas(database, "");
    recorder.take();
  }

  ListView& list() { return support::control<ListView>(*page, "listDatas"); }
  QLineEdit& field(const char* name) { return support::control<QLineEdit>(*page, name); }
  ZEMnumeric& number(const char* name) { return support::control<ZEMnumeric>(*page, name); }
  QLineEdit& numberText(const char* name) {
    return support::control<QLineEdit>(number(name), "TextNum");
  }
  UceDataList& values() { return support::control<UceDataList>(*page, "UceDataList1"); }
  std::string caption() {
    return desktop::u8(support::control<QGroupBox>(*page, "FrameInfos").title());
  }
  std::string shown(const char* label) {
    return desktop::u8(support::control<QLabel>(*page, QLatin1String(label)).text());
  }
  void key(const char* name) {
    support::click(support::usable<QToolButton>(support::control<QToolBar>(*page, "TbData"),
                                                QLatin1String(name)));
  }
  bool isUsable(const char* name) {
    return support::control<QToolButton>(support::control<QToolBar>(*page, "TbData"),
                                         QLatin1String(name))
        .isEnabled();
  }
  static std::string namesOf(const std::vector<RowTag>& tags) {
    std::string all;
    for (const RowTag tag : tags)
      all += static_cast<DataItem*>(tag)->dataName() + ",";
    return all;
  }
  std::string names() { return namesOf(list().rows().tags()); }
  std::string selectedNames() { return namesOf(list().selectedTags()); }

  /// The menu that a right click or the menu key pops up over the list.
  QMenu& openMenu() {
    emit list().customContextMenuRequested(list().visualRect(list().currentIndex()).center());
    auto* menu = list().findChild<QMenu*>("popupData");
    if (!menu) throw std::runtime_error("no menu popped up");
    return *menu;
  }
  /// Chooses an entry, the nth of those of its name, and closes the menu.
  static void choose(QMenu& menu, const char* entry, int nth = 0) {
    QAction* action = menu.findChildren<QAction*>(QLatin1String(entry)).value(nth);
    if (!action) throw std::runtime_error(std::string("no entry ") + entry);
    if (!action->isEnabled()) throw std::runtime_error(std::string(entry) + " is not enabled");
    const QPointer<QMenu> alive(&menu);
    action->trigger();
    if (alive) alive->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void choose(const char* entry, int nth = 0) { choose(openMenu(), entry, nth); }

  // Boxes of the page.
  void expectConfirmation(Answer answer) {
    person.expect("DATAS/MSG/TestAndConfirmChange/text", "Confirm data validation",
                  "Data changed. Do you want to valid change ?", Buttons::YesNo, Icon::Question,
                  answer);
  }
  void expectValueQuestion(Answer answer) {
    person.expect("DATALIST/MSG/TestAndConfirmChange/text", "Confirm",
                  "Item has been modified. Save change ?", Buttons::YesNo, Icon::Question, answer);
  }
  void expectZeroDivisor() {
    person.expect("DATAS/MSG/CoefficientCcheckZero/text", "Check value",
                  "The value of C Coefficient must be different from Zero", Buttons::Ok,
                  Icon::Exclamation, Answer::Ok);
  }
  void expectDeletion(const std::string& name, Answer answer) {
    person.expect("DATAS/MSG/CutData/confirm/text", "Confirm delete",
                  "Delete data ?\r\n\r\nYes = delete all unused data\r\nNo = delete data '" + name +
                      "'\r\nCancel = cancel delete",
                  Buttons::YesNoCancel, Icon::Question, answer);
  }
  void expectDeletionOfUsed(const std::string& name, const std::string& requests, Answer answer) {
    person.expect("DATAS/MSG/CutData/deleteUsedData/text", "Confirm delete",
                  "Do you really want to delete the selected data ?\r\n\r\n****** W A R N I N G "
                  "******\r\nThe data '" +
                      name + "' is used by requests: " + requests,
                  Buttons::YesNo, Icon::Question, answer);
  }
};

} // namespace kelmar
