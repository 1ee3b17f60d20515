// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "desktop/qt_text.h"
#include "frame/uctl_new_ecu_addr.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

using namespace support;
using Events = std::vector<std::string>;

class NewEcuPanel : public testing::Test {
 protected:
  void SetUp() override {
    panel.setObjectName(QStringLiteral("UctlNewEcuAddr1"));
    file = folder.write("GenericAddressing.xml", R"(<Functions>
      <Function Name="Both" Address="122"><XId>2016</XId><RId>2024</RId><ProtocolList><Protocol>
        <LogicalAddress>7A</LogicalAddress>
        <Address Extended="0"><Xid>2016</Xid><Rid>2024</Rid></Address>
        <Address Extended="1"><Xid>3016</Xid><Rid>3024</Rid></Address>
      </Protocol></ProtocolList></Function>
      <Function Name="Only extended" Address="45"><ProtocolList><Protocol>
        <Address Extended="1"><Xid>30</Xid><Rid>31</Rid></Address>
      </Protocol></ProtocolList></Function>
      <Function Name="Bare" Address="7"/></Functions>)");
    panel.InitControl();
    panel.ReadAddressingFile(file);
    showToUser(panel);
  }
  template <class Widget = QLineEdit>
  Widget& the(const char* name) {
    return control<Widget>(panel, QLatin1String(name));
  }
  std::string textOf(const char* name) { return desktop::u8(the<QLineEdit>(name).text()); }
  QComboBox& functions() { return the<QComboBox>("cbFct"); }
  QCheckBox& extended() { return the<QCheckBox>("CbExtended"); }
  void choose(const char* function) {
    functions().setCurrentIndex(functions().findText(QLatin1String(function)));
  }

  TempFolder folder;
  std::string file;
  ScriptedPerson person;
  Recorder recorder;
  UctlNewEcuAddr panel{person};
  SignalRecorder events{panel, recorder};
};

TEST_F(NewEcuPanel, OffersTheFunctionsAndChoosesNone) {
  std::string names;
  for (int i = 0; i < functions().count(); ++i)
    names += desktop::u8(functions().itemText(i)) + ";";
  EXPECT_EQ("Both;Only extended;Bare;", names);
  EXPECT_EQ("", desktop::u8(functions().currentText()));
  EXPECT_EQ("", textOf("txAddr"));
  EXPECT_FALSE(extended().isEnabled());
}

TEST_F(NewEcuPanel, ShowsWhatIsKnownOfTheChosenFunction) {
  choose("Both");
  EXPECT_EQ("122", textOf("txAddr"));
  EXPECT_TRUE(the("txAddr").isReadOnly());
  EXPECT_EQ("7A", textOf("txtLogicalAddress"));
  EXPECT_EQ("2016", textOf("lbCanXid"));
  EXPECT_EQ("2024", textOf("lbCanRid"));
  EXPECT_TRUE(extended().isEnabled());
  click(extended());
  EXPECT_EQ("3016", textOf("lbCanXid"));
  EXPECT_EQ("3024", textOf("lbCanRid"));
}

TEST_F(NewEcuPanel, NamesTheIdentifiersByTheirDirection) {
  EXPECT_EQ("Tool -> ECU id", desktop::u8(the<QLabel>("Label2").text()));
  EXPECT_EQ("ECU -> Tool id", desktop::u8(the<QLabel>("Label3").text()));
}

TEST_F(NewEcuPanel, FunctionWithOnlyExtendedIdentifiersLocksTheBoxOn) {
  choose("Only extended");
  EXPECT_TRUE(extended().isChecked());
  EXPECT_FALSE(extended().isEnabled());
  EXPECT_EQ("30", textOf("lbCanXid"));
  choose("Bare");
  EXPECT_FALSE(extended().isChecked());
  EXPECT_EQ("", textOf("lbCanXid"));
}

TEST_F(NewEcuPanel, CreatesFromTheChosenFunction) {
  choose("Both");
  click(the<QPushButton>("cbCreate"));
  EXPECT_EQ((Events{"UctlNewEcuAddr1.create(122, 7A, Both, 2016, 2024)"}), recorder.take());
  choose("Bare");
  click(the<QPushButton>("cbCreate"));
  EXPECT_EQ((Events{"UctlNewEcuAddr1.create(7, , Bare, -1, -1)"}), recorder.take());
}

TEST_F(NewEcuPanel, CreatesFromATypedAddressAndName) {
  choose("Both");
  retype(*functions().lineEdit(), "Own");
  EXPECT_EQ("", textOf("txAddr")) << "the address belonged to the function";
  EXPECT_FALSE(the("txAddr").isReadOnly());
  type(the("txAddr"), "300");
  type(*functions().lineEdit(), "er");
  EXPECT_EQ("300", textOf("txAddr"));
  press(the("txAddr"), Qt::Key_Return);
  EXPECT_EQ((Events{"UctlNewEcuAddr1.create(300, , Owner, -1, -1)"}), recorder.take());
}

TEST_F(NewEcuPanel, WithoutFunctionAndAddressTellsTheConversionErrorAndStaysOpen) {
  person.expect("GENERIC/error/text", "Error",
                std::string("Error # 13\r\n") + platformErrorText(TypeMismatch),
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  click(the<QPushButton>("cbCreate"));
  EXPECT_EQ((Events{}), recorder.take());
  EXPECT_TRUE(panel.isVisible());
}

TEST_F(NewEcuPanel, CancelsByButtonAndEscape) {
  click(the<QPushButton>("cbCancel"));
  EXPECT_EQ((Events{"UctlNewEcuAddr1.cancel()"}), recorder.take());
  the("txAddr").setFocus();
  press(the("txAddr"), Qt::Key_Escape);
  EXPECT_EQ((Events{"UctlNewEcuAddr1.cancel()"}), recorder.take());
}

TEST_F(NewEcuPanel, EscapeInTheOpenListClosesTheListAlone) {
  functions().setFocus();
  functions().showPopup();
  const auto listShown = [this] { return functions().view()->isVisible(); };
  ASSERT_TRUE(waitUntil(listShown));
  QProcess::execute("xdotool", {"key", "Escape"});
  ASSERT_TRUE(waitUntil([&] { return !listShown(); }));
  EXPECT_EQ((Events{}), recorder.take());
  QProcess::execute("xdotool", {"key", "Escape"});
  Events seen;
  EXPECT_TRUE(waitUntil([&] { return !(seen = recorder.take()).empty(); }));
  EXPECT_EQ((Events{"UctlNewEcuAddr1.cancel()"}), seen);
}

TEST_F(NewEcuPanel, FileThatCannotBeReadIsToldWithItsReason) {
  const std::string broken = folder.write("broken.xml", "<Functions>");
  AddressingFile same;
  ASSERT_FALSE(same.load(broken));
  person.expect("SELECTOR/MSG/ReadAddressingFile/text", "Contact hotline",
                "Internal error : impossible to read file : " + broken +
                    "\r\nreason : " + same.reason(),
                platform::Buttons::Ok, platform::Icon::Critical, platform::Answer::Ok);
  panel.ReadAddressingFile(broken);
  EXPECT_EQ(0, functions().count());
}

TEST_F(NewEcuPanel, EveryControlIsReachedByTheKeyboardInOrder) {
  choose("Both");
  std::vector<std::string> seen;
  functions().setFocus();
  for (int i = 0; i < 6; ++i) {
    QWidget* focus = panel.focusWidget();
    seen.push_back(desktop::u8(focus->objectName()));
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  EXPECT_EQ((std::vector<std::string>{"cbFct", "txAddr", "txtLogicalAddress", "CbExtended",
                                      "lbCanXid", "lbCanRid"}),
            seen);
}

} // namespace
} // namespace kelmar
