// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The list of requests: its commands by key, button, menu and mouse.
#include "window/uce_requests_fixture.h"

#include <QMimeData>
#include <QSignalSpy>

namespace kelmar {
namespace {

using namespace support;
using desktop::clipboardText;
using desktop::setClipboardText;
using desktop::u8;

class UceRequestsList : public UceRequestsWindow {
 protected:
  void selectRows(std::initializer_list<int> rows) {
    bool first = true;
    for (const int row : rows) {
      clickRow(list(), row, 0, first ? Qt::NoModifier : Qt::ControlModifier);
      first = false;
    }
    recorder.take();
  }
  void expectNormalising() {
    expectYesNo(
        "REQUESTS/MSG/PopupReqNormalize_Click/confirm/text", "User confirm",
        "Normalize space suppress white spaces at the start and end of the data name and "
        "replace multi-space by a single one.\r\nDo you want to normalize selected data name?",
        Answer::Yes);
  }
  void tellsNormalised(const char* key, const std::string& text) {
    person.expect(key, "Information", text, Buttons::Ok, Icon::Information, Answer::Ok);
  }
  void typeName(const char* name) {
    auto* editor = list().viewport()->findChild<QLineEdit*>();
    if (!editor) throw std::runtime_error("no name is being typed");
    editor->setText(QLatin1String(name));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

TEST_F(UceRequestsList, NewRenameAndDelete) {
  key("new");
  EXPECT_EQ(requestNames(), "Read|Write|Session|New");
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_EQ(shown("lblInfo"), "4 request(s)");
  EXPECT_EQ(u8(field("TextReqBytes").text()), "2180");
  EXPECT_EQ(selectedNames(), "New");
  typeName("  Read ; it ");
  EXPECT_EQ(caption(), "Read _ it");
  EXPECT_EQ(recorder.take(), saved);
  expectDeletion(Answer::Ok);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(caption(), "Read");
  EXPECT_NE(clipboardText().find("<Request Name=\"Read _ it\""), std::string::npos);
}

TEST_F(UceRequestsList, NewInAnEmptyEcuByItsKey) {
  target().setRequests(nullptr);
  enterAgain();
  press(list(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(requestNames(), "New");
  EXPECT_EQ(the("New").RequestBytes->HexText(), "2180");
  EXPECT_EQ(the("New").ReplyBytes->Length(), 0);
}

TEST_F(UceRequestsList, NewAsksAboutBothHalvesFirst) {
  tab(1);
  retype(field("Rtemplate"), "6102");
  retype(numberText("ValStartOctet"), "4");
  expectPositionConfirmation(Answer::Yes);
  expectConfirmation(Answer::Yes);
  key("new");
  EXPECT_EQ(position("Read", "Wide").StartOctet, 4);
  EXPECT_EQ(the("Read").ReplyBytes->HexText(), "6102");
  EXPECT_EQ(requestNames(), "Read|Write|Session|New");
}

TEST_F(UceRequestsList, ANameThatIsTakenIsRefusedWithTheReason) {
  press(list(), Qt::Key_F2);
  person.expect("GENERIC/error/text", "Error", "Error # 1\r\nDuplicate request (Write)",
                Buttons::Ok, Icon::Critical, Answer::Ok);
  typeName("Write");
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(caption(), "Read");
}

TEST_F(UceRequestsList, ARenamedRowLooksLikeAllOthersUntilItIsShownAnew) {
  place("Read", "Level", false, 1, 0);
  enterAgain();
  EXPECT_EQ(list().rows().lookOf(&the("Read")).colour, 255u);
  key("rename");
  typeName("Read all");
  RowLook look = list().rows().lookOf(&the("Read all"));
  EXPECT_FALSE(look.bold);
  EXPECT_EQ(look.colour, std::nullopt);
  EXPECT_EQ(look.toolTip, "");
  EXPECT_NE(warning(), "") << "the line still says what is wrong";
  key("valid");
  look = list().rows().lookOf(&the("Read all"));
  EXPECT_TRUE(look.bold);
  EXPECT_EQ(look.toolTip, "Warning : There is data on service code.");
}

TEST_F(UceRequestsList, ANameCommandTakesBoldAndToolTipAndLeavesTheColour) {
  place("Read", "Level", false, 1, 0);
  the("Write").requestName = "Write  it";
  enterAgain();
  selectRows({0, 1, 2});
  expectNormalising();
  chooseForRequest("PopupReqNormalize");
  expectYesNo("REQUESTS/MSG/PopupRequcase_Click/text", "User confirm", "Convert name to uppercase?",
              Answer::Yes);
  chooseForRequest("PopupReqUcase");
  EXPECT_EQ(rowsAsText(list().rows()), "[none] READ | 2101 |  #0000FF\n"
                                       "[none] WRITE IT | 3B01AABB |  #0000FF\n"
                                       "[none] SESSION | 1003 | \n");
  enterAgain();
  EXPECT_EQ(rowsAsText(list().rows()),
            "[none] READ | 2101 |  ! #0000FF (Warning : There is data on service code.)\n"
            "[none] WRITE IT | 3B01AABB | \n"
            "[none] SESSION | 1003 | \n");
}

TEST_F(UceRequestsList, DeletingAllLeavesAnEmptyPageAndPasteBringsThemBack) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  expectDeletion(Answer::Cancel);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(recorder.take().back().substr(0, 3), "box") << "nothing was deleted";
  expectDeletion(Answer::Ok);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
  EXPECT_EQ(requestNames(), "");
  EXPECT_EQ(shown("lblInfo"), "0 request(s)");
  EXPECT_FALSE(frame().isEnabled());
  press(list(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(recorder.take(), saved);
  EXPECT_TRUE(frame().isEnabled());
}

TEST_F(UceRequestsList, CopyAndPasteOfTheButtonsMakeCopies) {
  selectRows({0, 2});
  key("copy");
  key("paste");
  EXPECT_EQ(requestNames(), "Read|Write|Session|Copy Read|Copy(0)Session");
  EXPECT_EQ(shown("lblInfo"), "5 request(s)");
  EXPECT_EQ(the("Copy Read").DataPositions->Count(), 2);
  EXPECT_EQ(recorder.take(), saved);
}

TEST_F(UceRequestsList, TextOfTheMenuComesBackThroughTheClipboard) {
  selectRows({0});
  chooseForRequest("PopupReqCopyText");
  EXPECT_EQ(warning(), "");
  const std::string text = clipboardText();
  EXPECT_EQ(text.substr(0, 9), "'Name\tDM\t");
  expectDeletion(Answer::Ok);
  chooseForRequest("PopupReqCut");
  EXPECT_EQ(requestNames(), "Write|Session");
  setClipboardText(text);
  chooseForRequest("PopupReqPaste");
  EXPECT_EQ(requestNames(), "Write|Session|Read");
  EXPECT_EQ(caption(), "Read") << "the pasted request is chosen";
  tab(1);
  EXPECT_EQ(placed().rows().rowCount(), 2);
}

TEST_F(UceRequestsList, CopyingACommentWithALineBreakAsTextSaysSo) {
  the("Read").Commentaire = "two\r\nlines";
  enterAgain();
  chooseForRequest("PopupReqCopyText");
  EXPECT_EQ(warning(),
            "A copied cell holds a line break or a tab: pasted back, it will not be the same.");
  clickRow(list(), 1);
  EXPECT_EQ(warning(), "");
}

TEST_F(UceRequestsList, ForeignXmlChangesNothingAndDropsNothing) {
  setClipboardText("<Screens/>");
  key("paste");
  EXPECT_EQ(requestNames(), "Read|Write|Session");
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_EQ(caption(), "Read");
}

TEST_F(UceRequestsList, WhatIsTypedIsAskedAboutBeforeAPaste) {
  retype(field("TextReqBytes"), "2102");
  setClipboardText("Tabbed\t1\n");
  expectConfirmation(Answer::Yes);
  key("paste");
  EXPECT_EQ(the("Read").RequestBytes->HexText(), "2102");
  EXPECT_EQ(caption(), "Tabbed");
}

TEST_F(UceRequestsList, PastedDataCanBeChosenAtOnce) {
  setClipboardText("<Requests Endian='Big'><Datas><Data Name='Brought'/></Datas>"
                   "<Request Name='Other'/></Requests>");
  key("paste");
  EXPECT_GE(names().findText("Brought"), 0);
}

TEST_F(UceRequestsList, DraggedRowsAreTextAndADropIsAPaste) {
  selectRows({0, 1});
  chooseForRequest("PopupReqCopy");
  const QString fragment = QString::fromStdString(clipboardText());
  QMimeData data;
  data.setText("  " + fragment + "\r\n");
  const auto drop = [&](QMimeData& brought) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &brought, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list().viewport(), &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &brought, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list().viewport(), &event);
    QCoreApplication::processEvents();
    return enter.isAccepted() && event.isAccepted();
  };
  EXPECT_TRUE(drop(data));
  EXPECT_EQ(requestNames(), "Read|Write|Session|Copy Read|Copy(0)Write");
  data.setText("<Datas/>");
  EXPECT_FALSE(drop(data));
  data.setText("'Name\tDM\r\nTabbed\t1\r\n");
  EXPECT_FALSE(drop(data)) << "text of a spreadsheet is pasted, not dropped";
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/tmp/Requests>")});
  files.setText(fragment);
  EXPECT_FALSE(drop(files)) << "files bring their names as text";
  EXPECT_EQ(shown("lblInfo"), "5 request(s)");
}

TEST_F(UceRequestsList, SelectionCommandsSelectAndNothingElse) {
  the("Write").ManuelSend = true;
  the("Session").DossierMaintenabilite = true;
  add("Download", "2E0102", "");
  enterAgain();
  const std::pair<const char*, const char*> commands[] = {
      {"mnuRequestSelectAll", "Read|Write|Session|Download"},
      {"mnuRequestSelectMaintenability", "Session"},
      {"mnuRequestSelectManualSend", "Write"},
      {"mnuRequestSelectWithParam", "Write"},
      {"mnuRequestSelectWithoutParam", "Read|Session|Download"},
      {"mnuTradConfigSelectWriteRequests", "Write|Download"}};
  for (const auto& [command, selected] : commands) {
    chooseForRequest(command);
    EXPECT_EQ(selectedNames(), selected) << command;
  }
  EXPECT_EQ(recorder.take(), Events{});
  EXPECT_EQ(caption(), "Read");
}

TEST_F(UceRequestsList, WhatIsSentGoesToTheClipboardLineByLine) {
  selectRows({0});
  setClipboardText("before");
  chooseForRequest("mnuTradConfigCopy");
  EXPECT_EQ(clipboardText(), "before") << "no data is sent";
  selectRows({0, 1});
  chooseForRequest("mnuTradConfigCopy");
  EXPECT_EQ(clipboardText(), "Level\t8 bits\t\t\t\t\t\t\t\r\n");
}

TEST_F(UceRequestsList, FlagsOfTheMenuChangeIconAndBox) {
  selectRows({0, 1});
  const Events oneSave = saved;
  chooseForRequest("PopupReqManuelSet");
  EXPECT_EQ(recorder.take(), oneSave);
  EXPECT_TRUE(the("Read").ManuelSend && the("Write").ManuelSend);
  EXPECT_FALSE(the("Session").ManuelSend);
  EXPECT_EQ(list().rows().lookOf(&the("Read")).icon, "manual");
  EXPECT_TRUE(box("CheckManualSend").isChecked());
  chooseForRequest("PopupReqManuelSet");
  EXPECT_EQ(recorder.take(), Events{}) << "all have the flag already";
  chooseForRequest("PopupReqDMSet");
  EXPECT_EQ(list().rows().lookOf(&the("Write")).icon, "dmmanual");
  chooseForRequest("PopupReqManuelClear");
  EXPECT_EQ(list().rows().lookOf(&the("Write")).icon, "dm");
  chooseForRequest("PopupReqDMClear");
  EXPECT_EQ(list().rows().lookOf(&the("Write")).icon, "none");
  EXPECT_FALSE(box("CheckReport").isChecked());
  EXPECT_EQ(recorder.take().size(), 3u);
}

TEST_F(UceRequestsList, ReferencesBySelectionAndKey) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  const auto press3 = [this](Qt::Key letter) {
    press(list(), letter, Qt::ControlModifier | Qt::AltModifier);
  };
  press3(Qt::Key_P);
  EXPECT_TRUE(position("Read", "Speed").reference && position("Read", "Wide").reference);
  EXPECT_FALSE(position("Write", "Level").reference);
  EXPECT_EQ(recorder.take(), saved);
  press3(Qt::Key_P);
  EXPECT_EQ(recorder.take(), Events{});
  press3(Qt::Key_A);
  EXPECT_TRUE(position("Write", "Level").reference);
  press3(Qt::Key_Q);
  EXPECT_FALSE(position("Write", "Level").reference);
  target().Organes()->Add("Pump")->DeviceDatas->Add("Speed", false)->parent =
      target().Organes()->ItemName("Pump");
  press3(Qt::Key_M);
  EXPECT_TRUE(position("Read", "Speed").reference) << "a device uses it";
  EXPECT_FALSE(position("Read", "Wide").reference);
  chooseForRequest("PopupReqRefDataSet");
  EXPECT_TRUE(position("Read", "Wide").reference);
  for (const char* entry : {"PopupReqRefParamSet", "PopupReqRefParamClear", "PopupReqRefDataClear"})
    chooseForRequest(entry);
  EXPECT_FALSE(position("Read", "Wide").reference);
}

TEST_F(UceRequestsList, ReferencesOfTheShownRequestShowAtOnce) {
  tab(1);
  press(list(), Qt::Key_P, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(placed().rows().textOf(&position("Read", "Speed"), 4), "[Ref]");
}

TEST_F(UceRequestsList, NormalisingSaysTheTextsCrosswiseAndMarksTheRowBlue) {
  target().Parametres()->initMode = 3;
  clickRow(list(), 2);
  recorder.take();
  tellsNormalised("REQUESTS/MSG/PopupReplyTemplateNormalize_Click/noChange/text",
                  "The reply template is OK. No change applied to the database.");
  chooseForRequest("PopupReplyTemplateNormalize");
  EXPECT_EQ(the("Session").ReplyBytes->HexText(), "5003");
  EXPECT_EQ(u8(field("Rtemplate").text()), "5003");
  CellLook look = list().rows().cellLookOf(&the("Session"), 1);
  EXPECT_EQ(look.colour, 0xFF0000u);
  EXPECT_EQ(look.bold, true);
  EXPECT_EQ(recorder.take(),
            (Events{"box Information: The reply template is OK. No change applied to the database.",
                    "UceRequests1.OnChange()", "UceRequests1.OnSave(false)"}));
  tellsNormalised(
      "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/change/text",
      "The reply template has been changed.\r\n\r\nModified requests have sent bytes in "
      "blue bold in the list.\r\n\r\nYou should save the database to keep "
      "modifications.");
  chooseForRequest("PopupReplyTemplateNormalize");
  look = list().rows().cellLookOf(&the("Session"), 1);
  EXPECT_EQ(look.bold, false);
  EXPECT_NE(look.colour, 0xFF0000u);
  EXPECT_EQ(recorder.take().size(), 1u) << "nothing but the box";
}

TEST_F(UceRequestsList, AReplyTemplateThatIsRightShowsTheBytesOfARedRowPlain) {
  place("Read", "Level", false, 1, 0);
  enterAgain();
  const RowsModel& rows = list().rows();
  const QModelIndex name = rows.index(0, 0), bytes = rows.index(0, 1);
  EXPECT_EQ(bytes.data(Qt::ForegroundRole), QColor(255, 0, 0));
  tellsNormalised(
      "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/change/text",
      "The reply template has been changed.\r\n\r\nModified requests have sent bytes in "
      "blue bold in the list.\r\n\r\nYou should save the database to keep "
      "modifications.");
  chooseForRequest("PopupReplyTemplateNormalize");
  EXPECT_EQ(bytes.data(Qt::ForegroundRole), page->palette().color(QPalette::WindowText));
  EXPECT_FALSE(bytes.data(Qt::FontRole).isValid());
  EXPECT_EQ(name.data(Qt::ForegroundRole), QColor(255, 0, 0));
  EXPECT_TRUE(name.data(Qt::FontRole).isValid());
}

TEST_F(UceRequestsList, NormalisingARequestWithoutBytesTurnsItsRowRed) {
  the("Session").RequestBytes.reset();
  enterAgain();
  clickRow(list(), 2);
  tellsNormalised(
      "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/change/text",
      "The reply template has been changed.\r\n\r\nModified requests have sent bytes in "
      "blue bold in the list.\r\n\r\nYou should save the database to keep "
      "modifications.");
  chooseForRequest("PopupReplyTemplateNormalize");
  EXPECT_EQ(list().rows().lookOf(&the("Session")).colour, 255u);
  EXPECT_TRUE(list().rows().lookOf(&the("Session")).bold);
}

TEST_F(UceRequestsList, NormalisingAllCountsAndSaysTheTextsStraight) {
  the("Read").ReplyBytes->setHexText("00");
  clickRow(list(), 1);
  recorder.take();
  tellsNormalised("REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/change/text",
                  "1 reply templates has been changed.\r\n\r\nModified requests have sent bytes in "
                  "blue bold in the list.\r\n\r\nYou should save the database to keep "
                  "modifications.");
  chooseForRequest("PopupReplyTemplateNormalizeAll");
  EXPECT_EQ(the("Read").ReplyBytes->HexText(), "6101");
  EXPECT_EQ(list().rows().cellLookOf(&the("Read"), 1).colour, 0xFF0000u);
  EXPECT_NE(list().rows().cellLookOf(&the("Write"), 1).colour, 0xFF0000u);
  EXPECT_EQ(recorder.take().size(), 3u);
  tellsNormalised("REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/noChange/text",
                  "All reply templates are OK. No change applied to the database.");
  chooseForRequest("PopupReplyTemplateNormalizeAll");
  EXPECT_NE(list().rows().cellLookOf(&the("Read"), 1).colour, 0xFF0000u);
  EXPECT_EQ(recorder.take().size(), 1u);
}

TEST_F(UceRequestsList, NameCommandsOfTheMenuRenameTheSelection) {
  selectRows({0, 1});
  expectYesNo("REQUESTS/MSG/PopupRequcase_Click/text", "User confirm", "Convert name to uppercase?",
              Answer::Yes);
  chooseForRequest("PopupReqUcase");
  EXPECT_EQ(requestNames(), "READ|WRITE|Session");
  EXPECT_EQ(caption(), "WRITE");
  EXPECT_EQ(recorder.take().back(), "UceRequests1.OnSave(false)");
  expectYesNo("REQUESTS/MSG/PopupReqlcase_Click/text", "User confirm", "Convert name to lowercase?",
              Answer::No);
  chooseForRequest("PopupReqlcase");
  EXPECT_EQ(requestNames(), "READ|WRITE|Session");
  EXPECT_EQ(recorder.take().size(), 1u);
  for (const auto& [entry, name] :
       {std::pair("PopupReqlcase", "read"), std::pair("PopupReqCapword", "Read")}) {
    const std::string key = entry;
    expectYesNo(key == "PopupReqlcase" ? "REQUESTS/MSG/PopupReqlcase_Click/text"
                                       : "REQUESTS/MSG/PopupReqCapword_Click/confirm/text",
                "User confirm",
                key == "PopupReqlcase" ? "Convert name to lowercase?"
                                       : "Capitalize word of selected request names?",
                Answer::Yes);
    chooseForRequest(entry);
    EXPECT_EQ(requestNames().substr(0, 4), name);
  }
  person.expectInput(
      {"REQUESTS/MSG/PopupReqReplace_Click/search/text", "Rename data:", "Find what:", ""}, "Re");
  person.expectInput(
      {"REQUESTS/MSG/PopupReqReplace_Click/replace/text", "Rename data:", "Replace with:", ""},
      "Lea");
  expectYesNo("REQUESTS/MSG/PopupReqReplace_Click/confirm/text", "User confirm",
              "Replace 'Re' with 'Lea'\r\nfor selected data?", Answer::Yes);
  chooseForRequest("PopupReqReplace");
  EXPECT_EQ(requestNames(), "Leaad|Write|Session");
  the("Write").requestName = " Write  it ";
  expectNormalising();
  chooseForRequest("PopupReqNormalize");
  EXPECT_EQ(requestNames(), "Leaad|Write it|Session");
}

TEST_F(UceRequestsList, FindGoesOnFromTheSelectedRowAndAroundTheEnd) {
  add("read more", "2102", "");
  enterAgain();
  const auto asks = [this](const char* before, const char* answer) {
    person.expectInput({"REQUESTS/MSG/FindItem/text", "Find request",
                        "Find next request whose name contains the word: ", before},
                       answer);
  };
  asks("", "READ");
  press(list(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(caption(), "read more");
  press(field("TextReqBytes"), Qt::Key_F3);
  EXPECT_EQ(caption(), "Read") << "around the end";
  asks("READ", "sess");
  press(list(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(caption(), "Session");
  EXPECT_EQ(selectedNames(), "Session");
  press(list(), Qt::Key_F3);
  EXPECT_EQ(caption(), "Session") << "the only hit is the selected row itself";
  asks("sess", "nowhere");
  key("find");
  EXPECT_EQ(caption(), "Session");
  asks("nowhere", "");
  key("find");
  EXPECT_EQ(caption(), "Session");
}

TEST_F(UceRequestsList, TheMenuLeadsToNoPageThatIsNotThere) {
  QMenu& menu = openRequestMenu();
  for (const char* entry :
       {"PopupReqGotoScreens", "PopupReqGotoDevice", "PopupReqGotoDID", "PopupReqCreateDevice"})
    EXPECT_FALSE(menu.findChild<QAction*>(entry)) << entry;
  for (const char* entry :
       {"PopupReqCut", "PopupReqCopy", "PopupReqCopyText", "PopupReqPaste", "mnuRequestSelectAll",
        "PopupReqManuelSet", "PopupReqDMClear", "PopupReplyTemplateNormalizeAll",
        "PopupReqCapword1", "mnuGenerateRVTtests", "mnuTradConfigCopy", "PopupReqHelp"})
    EXPECT_TRUE(menu.findChild<QAction*>(entry)) << entry;
  menu.close();
}

TEST_F(UceRequestsList, TwentyThousandRequestsOpenAndAreSelectedInOneStepEach) {
  target().setRequests(std::make_shared<RequestItems>());
  for (int i = 0; i < 20'000; ++i)
    add("Request " + std::to_string(i), "2101", "6101");
  QSignalSpy sets(list().model(), &QAbstractItemModel::modelReset);
  enterAgain();
  EXPECT_EQ(sets.count(), 1);
  QSignalSpy changes(list().selectionModel(), &QItemSelectionModel::selectionChanged);
  press(list(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(shown("lblInfo"), "20000 request(s)");
  EXPECT_EQ(list().selectedTags().size(), 20'000u);
}

} // namespace
} // namespace kelmar
