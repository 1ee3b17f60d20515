// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "uce_datas_fixture.h"
#include "uce_requests_fixture.h"

#include <QApplication>

namespace kelmar {
namespace {

using namespace support;

/// The field in which the name of a new item is being typed over.
QWidget& nameField() {
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (!editor) throw std::runtime_error("no name is being typed");
  return *editor;
}

using NameOfDataBeingTyped = UceDatasPage;

TEST_F(NameOfDataBeingTyped, IsTakenByTheToolsOfThePage) {
  for (const char* tool : {"valid", "save"}) {
    key("add");
    retype(nameField(), QLatin1String(tool));
    key(tool);
    EXPECT_TRUE(has(tool));
    EXPECT_FALSE(has("New"));
    EXPECT_EQ(caption(), tool);
  }
}

TEST_F(NameOfDataBeingTyped, IsTakenByTheToolsOfTheList) {
  key("add");
  retype(nameField(), "First");
  key("add");
  retype(nameField(), "Second");
  desktop::setClipboardText("Pasted\tP\t8\n");
  key("paste");
  EXPECT_TRUE(has("First"));
  EXPECT_TRUE(has("Second"));
  EXPECT_TRUE(has("Pasted"));
  EXPECT_FALSE(has("New"));
}

TEST_F(NameOfDataBeingTyped, IsTakenWhenThePageIsLeft) {
  key("add");
  retype(nameField(), "Engine speed");
  page->TestAndConfirmChange();
  page->hide();
  EXPECT_TRUE(has("Engine speed"));
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(NameOfDataBeingTyped, IsRefusedByABoxBeforeTheCommand) {
  key("add");
  retype(nameField(), "Speed");
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nDuplicate data (Speed)", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  key("save");
  EXPECT_TRUE(has("New"));
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(true)");
  EXPECT_EQ(QApplication::focusWidget(), &list());
}

using NameOfRequestBeingTyped = UceRequestsWindow;

TEST_F(NameOfRequestBeingTyped, IsTakenByTheToolsOfThePage) {
  for (const char* tool : {"valid", "save"}) {
    key("new");
    retype(nameField(), QLatin1String(tool));
    key(tool);
    EXPECT_NE(requestNames().find(tool), std::string::npos) << requestNames();
    EXPECT_EQ(requestNames().find("New"), std::string::npos) << requestNames();
    EXPECT_EQ(caption(), tool);
  }
}

TEST_F(NameOfRequestBeingTyped, IsTakenByTheToolsOfThePositions) {
  tab(1);
  clickRow(placed(), 1);
  retype(numberText("ValStartOctet"), "4");
  press(list(), Qt::Key_F2);
  retype(nameField(), "Renamed");
  key("save", "TBPosData");
  EXPECT_NE(requestNames().find("Renamed"), std::string::npos) << requestNames();
  EXPECT_EQ(position("Renamed", "Speed").StartOctet, 4);
}

TEST_F(NameOfRequestBeingTyped, IsTakenWhenThePageIsLeft) {
  key("new");
  retype(nameField(), "Engine speed");
  page->TestAndConfirmChange();
  page->hide();
  EXPECT_TRUE(target().Requests()->ItemName("Engine speed"));
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
}

} // namespace
} // namespace kelmar
