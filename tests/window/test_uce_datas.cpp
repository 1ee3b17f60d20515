// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/uce_datas.h"

#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/data_description.h"
#include "editors/uce_data_list.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace kelmar;
using namespace kelmar::support;
using desktop::u8;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

class UceDatasPage : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  OmnikorLibXml database;
  std::unique_ptr<UceDatas> page;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    database.ActiveTarget = std::make_shared<TargetItem>();
    TargetItem& target = *database.ActiveTarget;
    target.setDatas(std::make_shared<DataItems>());
    target.setRequests(std::make_shared<RequestItems>());
    for (const char* name : {"Speed", "Level", "State"}) target.datas()->Add(name)->parent = &target;
    DataItem& state = the("State");
    state.liste = true;
    state.DataListes = std::make_shared<DataListeItems>();
    state.DataListes->Add(0, "Off", "");
    state.DataListes->Add(1, "On", "");
    page = std::make_unique<UceDatas>(person, KELMAR_SITE);
    page->setObjectName("UceDatas1");
    signalRecorder = std::make_unique<SignalRecorder>(*page, recorder);
    person.recordInto(recorder);
    page->InitControl();
    page->resize(1200, 640);
    page->displayDatas(database, "");
    showToUser(*page);
    recorder.take();
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }
  DataItem& the(const std::string& name) { return *database.ActiveTarget->datas()->ItemName(name); }
  ListView& list() { return control<ListView>(*page, "listDatas"); }
  QLineEdit& field(const char* name) { return control<QLineEdit>(*page, name); }
  void key(const char* name) {
    click(usable<QToolButton>(control<QToolBar>(*page, "TbData"), QLatin1String(name)));
  }
  std::string names() {
    std::string all;
    for (const RowTag tag : list().rows().tags()) all += static_cast<DataItem*>(tag)->dataName() + ",";
    return all;
  }
};

TEST_F(UceDatasPage, ShowsTheSortedListAndItsFirstData) {
  EXPECT_EQ(names(), "Level,Speed,State,");
  EXPECT_EQ(control<QGroupBox>(*page, "FrameInfos").title(), "Level");
  EXPECT_EQ(control<QLabel>(*page, "lblInfo").text(), "3 data");
  EXPECT_TRUE(control<QPushButton>(*page, "cmdSelectUnit").isEnabled());
}

TEST_F(UceDatasPage, TypingMarksOnceAndValidWritesTheData) {
  type(field("TextMnemo"), "LVL");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
  EXPECT_EQ(the("Level").Mnemo, "");
  key("valid");
  EXPECT_EQ(the("Level").Mnemo, "LVL");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
  type(field("TextMnemo"), "x");
  press(field("TextMnemo"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnChange()", "UceDatas1.OnSave(true)"}));
}

TEST_F(UceDatasPage, CancelShowsTheDataAgain) {
  retype(field("TextCoeffA"), "2,5");
  press(field("TextCoeffA"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(field("TextCoeffA").text(), "1");
  EXPECT_EQ(recorder.take(), (Events{"UceDatas1.OnChange()", "UceDatas1.OnCancel()"}));
}

TEST_F(UceDatasPage, ADivisorOfZeroStopsTheValidationAndStaysMarked) {
  type(field("TextMnemo"), "M");
  retype(field("TextCoeffC"), "0");
  recorder.take();
  person.expect("DATAS/MSG/CoefficientCcheckZero/text", "Check value",
                "The value of C Coefficient must be different from Zero", Buttons::Ok,
                Icon::Exclamation, Answer::Ok);
  key("valid");
  EXPECT_EQ(the("Level").Mnemo, "M");
  EXPECT_EQ(recorder.take(),
            Events{"box Check value: The value of C Coefficient must be different from Zero"});
  person.expect("DATAS/MSG/TestAndConfirmChange/text", "Confirm data validation",
                "Data changed. Do you want to valid change ?", Buttons::YesNo, Icon::Question,
                Answer::No);
  EXPECT_FALSE(page->TestAndConfirmChange());
}

TEST_F(UceDatasPage, AnotherRowAsksAndYesWritesTheData) {
  type(field("TextDescription"), "Fuel");
  recorder.take();
  person.expect("DATAS/MSG/TestAndConfirmChange/text", "Confirm data validation",
                "Data changed. Do you want to valid change ?", Buttons::YesNo, Icon::Question,
                Answer::Yes);
  clickRow(list(), 1);
  EXPECT_EQ(the("Level").Description, "Fuel");
  EXPECT_EQ(control<QGroupBox>(*page, "FrameInfos").title(), "Speed");
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, TheTypeChoosesTheFormAndCarriesTheSize) {
  auto& bits = control<ZEMnumeric>(*page, "NumericNumberBits");
  bits.setvalue(12);
  click(usable<QRadioButton>(*page, "OPtypeNumericList"));
  EXPECT_EQ(control<ZEMnumeric>(*page, "ListeNumberBits").value(), 12);
  key("valid");
  EXPECT_TRUE(the("Level").liste);
  EXPECT_EQ(the("Level").NumberBits, 12);
}

TEST_F(UceDatasPage, NewDataIsNamedInTheList) {
  press(list(), Qt::Key_N, Qt::ControlModifier);
  auto* editor = list().viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->text(), "New");
  QTest::keyClicks(editor, "Flow");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return control<QGroupBox>(*page, "FrameInfos").title() == "Flow"; }));
  EXPECT_TRUE(database.ActiveTarget->datas()->ItemName("Flow"));
  EXPECT_EQ(control<QLabel>(*page, "lblInfo").text(), "4 data");
}

TEST_F(UceDatasPage, ATakenNameIsRefusedByABox) {
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nDuplicate data (Speed)", Buttons::Ok,
                Icon::Critical, Answer::Ok);
  EXPECT_FALSE(list().rows().setData(list().rows().index(0, 0), "Speed"));
  EXPECT_EQ(names(), "Level,Speed,State,");
}

TEST_F(UceDatasPage, CopyAndPasteGoThroughTheRealClipboard) {
  press(list(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(desktop::clipboardText().starts_with("<Datas>"));
  press(list(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(control<QGroupBox>(*page, "FrameInfos").title(), "Copy Level");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
}

TEST_F(UceDatasPage, DeletingTheLastDataEmptiesTheFields) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  person.expect("DATAS/MSG/CutData/confirm/text", "Confirm delete",
                "Delete data ?\r\n\r\nYes = delete all unused data\r\nNo = delete data "
                "'Level'\r\nCancel = cancel delete",
                Buttons::YesNoCancel, Icon::Question, Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "");
  EXPECT_FALSE(control<QGroupBox>(*page, "FrameInfos").isEnabled());
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, TheValueListReachesTheDataOnlyWithIt) {
  page->setEditDataName("State");
  auto& values = control<UceDataList>(*page, "UceDataList1");
  auto& rows = control<ListView>(values, "LVmain");
  EXPECT_EQ(rowsAsText(rows.rows()), "0 | Off ($00)\n1 | On ($01)\n");
  control<ZEMnumeric>(values, "ValRange").setvalue(5);
  retype(control<QLineEdit>(values, "ValText"), "Five");
  click(usable<QPushButton>(values, "CBaddNew"));
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
  EXPECT_EQ(the("State").DataListes->Count(), 2);
  key("valid");
  EXPECT_EQ(the("State").DataListes->Count(), 3);
}

TEST_F(UceDatasPage, HelpOpensItsModule) {
  press(list(), Qt::Key_F1);
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.help(data, )"});
}

TEST_F(UceDatasPage, TheDescriptionIsShownByItsKind) {
  the("Level").Fiche = "<P>text</P><script>document.write('no')</script><img src=\"http://x.example/a\">";
  {
    WhenDialogOpens open([&](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Data Level");
      EXPECT_EQ(control<QuietBrowser>(dialog, "WebBrowser1").toPlainText().trimmed().left(4), "text");
      EXPECT_FALSE(control<QuietBrowser>(dialog, "WebBrowser1").toPlainText().contains("no"));
      click(usable<QPushButton>(dialog, "CancelButton"));
    });
    click(usable<QPushButton>(*page, "DataDiagFiche"));
  }
  the("Level").Fiche = "plain";
  {
    WhenDialogOpens open([&](QDialog& dialog) {
      auto& text = usable<QuietBrowser>(dialog, "rtbDescription");
      text.selectAll();
      type(text, "new");
      click(usable<QPushButton>(dialog, "OKButton"));
    });
    click(usable<QPushButton>(*page, "DataDiagFiche"));
  }
  EXPECT_EQ(the("Level").Fiche, "new");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"});
}

} // namespace
