// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the commands of the list of data do on the page.
#include "uce_datas_fixture.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;

TEST_F(UceDatasPage, NewDataIsNamedInTheList) {
  press(list(), Qt::Key_N, Qt::ControlModifier);
  auto* editor = list().viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->text(), "New");
  QTest::keyClicks(editor, "Flow");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return caption() == "Flow"; }));
  EXPECT_TRUE(has("Flow"));
  EXPECT_EQ(shown("lblInfo"), "4 data");
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
  EXPECT_EQ(caption(), "Copy Level");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
}

TEST_F(UceDatasPage, DeletingTheLastDataEmptiesTheFields) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  expectDeletion("Level", Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "");
  EXPECT_FALSE(control<QGroupBox>(*page, "FrameInfos").isEnabled());
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, ToolTipsOfTheToolBarAreThoseOfItsKeys) {
  std::string tips;
  for (const QAction* action : control<QToolBar>(*page, "TbData").actions())
    if (!action->isSeparator())
      tips += u8(action->objectName()) + ": " + u8(action->toolTip()) + "\n";
  EXPECT_EQ(tips, "cancel: Cancel changes (Ctrl Z)\n"
                  "valid: Valid changes\n"
                  "save: Save changes (Ctrl S)\n"
                  "add: Add data\n"
                  "rename: Rename data (F2)\n"
                  "find: Find data\n"
                  "cut: Cut data (Ctrl X)\n"
                  "copy: Copy data to clipboard (Ctrl C)\n"
                  "paste: Paste data from clipboard (Ctrl V)\n"
                  "help: Help (F1)\n");
}

TEST_F(UceDatasPage, AddAsksForThePendingEditFirst) {
  type(field("TextMnemo"), "L");
  recorder.take();
  expectConfirmation(Answer::Yes);
  key("add");
  EXPECT_EQ(recorder.take(),
            (Events{"box Confirm data validation: Data changed. Do you want to valid change ?",
                    "UceDatas1.OnSave(false)", "UceDatas1.OnSave(false)"}));
  EXPECT_EQ(the("Level").Mnemo, "L");
  EXPECT_EQ(caption(), "New");
  EXPECT_EQ(names(), "Level,New,Speed,State,");
}

TEST_F(UceDatasPage, RenamingCarriesEveryReferenceAndTheCaption) {
  place("Read", "Level");
  press(list(), Qt::Key_F2);
  auto* editor = list().viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  QTest::keyClicks(editor, "Tank");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return caption() == "Tank"; }));
  EXPECT_EQ(target().Requests()->Item(1)->DataPositions->Item(1)->dataName, "Tank");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
}

TEST_F(UceDatasPage, FindGoesRoundFromTheSelectedRow) {
  const platform::InputQuestion question{"DATAS/MSG/FindItem/text", "Find data",
                                         "Find data name which contains:", ""};
  person.expectInput(question, "s");
  press(list(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(caption(), "Speed");
  press(field("TextMnemo"), Qt::Key_F3);
  EXPECT_EQ(caption(), "State");
  press(list(), Qt::Key_F3);
  EXPECT_EQ(caption(), "Speed");
  platform::InputQuestion again = question;
  again.proposal = "s";
  person.expectInput(again, "EVE");
  press(list(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(caption(), "Level");
  again.proposal = "EVE";
  person.expectInput(again, "");
  key("find");
  EXPECT_EQ(caption(), "Level");
}

TEST_F(UceDatasPage, InTheModeAllUnusedAUsedDataStillAsks) {
  place("Read one", "Speed");
  place("Read two", "Speed");
  press(list(), Qt::Key_A, Qt::ControlModifier);
  expectDeletion("Level", Answer::Yes);
  expectDeletionOfUsed("Speed", "\r\n  - Read one\r\n  - Read two", Answer::No);
  key("cut");
  EXPECT_EQ(names(), "Speed,");
  EXPECT_EQ(caption(), "Speed");
  EXPECT_TRUE(desktop::clipboardText().starts_with("<Datas>"));
}

TEST_F(UceDatasPage, WhatCannotBeCopiedIsToldAndCanBeDeleted) {
  desktop::setClipboardText("mine");
  the("Level").Mnemo = "a\x01";
  const auto expectNotWritten = [this] {
    person.expect("GENERIC/error/text", "Error",
                  "Error # 1\r\nData 'Level': the character U+0001 cannot be written in XML",
                  Buttons::Ok, Icon::Critical, Answer::Ok);
  };
  expectNotWritten();
  expectDeletion("Level", Answer::Cancel);
  key("cut");
  EXPECT_TRUE(has("Level"));
  expectNotWritten();
  expectDeletion("Level", Answer::Yes);
  key("cut");
  EXPECT_FALSE(has("Level"));
  EXPECT_EQ(desktop::clipboardText(), "mine");
}

TEST_F(UceDatasPage, ACancelledDeletionLeavesListAndClipboardAlone) {
  desktop::setClipboardText("mine");
  expectDeletion("Level", Answer::Cancel);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(names(), "Level,Speed,State,");
  EXPECT_EQ(desktop::clipboardText(), "mine");
  EXPECT_EQ(recorder.take().size(), 1u) << "nothing but the box";
}

TEST_F(UceDatasPage, ACancelledDeletionKeepsWhatIsBeingTyped) {
  type(field("TextMnemo"), "L");
  recorder.take();
  expectDeletion("Level", Answer::Cancel);
  press(list(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(field("TextMnemo").text(), "L");
  EXPECT_EQ(recorder.take().size(), 1u) << "nothing but the box";
  expectConfirmation(Answer::Yes);
  EXPECT_TRUE(page->TestAndConfirmChange()) << "it is still to be asked for";
  EXPECT_EQ(the("Level").Mnemo, "L");
}

TEST_F(UceDatasPage, WhatIsTypedForADataThatStaysIsAskedForAndForOneThatGoesIsNot) {
  place("Read", "Speed");
  clickRow(list(), 0);
  clickRow(list(), 1, 0, Qt::ControlModifier);
  ASSERT_EQ(caption(), "Speed");
  type(field("TextMnemo"), "SPD");
  expectDeletion("Level", Answer::No);
  expectDeletionOfUsed("Speed", "\r\n  - Read", Answer::No);
  expectConfirmation(Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "Speed,State,");
  EXPECT_EQ(the("Speed").Mnemo, "SPD");
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");

  type(field("TextMnemo"), "!");
  expectDeletionOfUsed("Speed", "\r\n  - Read", Answer::Yes);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "State,");
}

TEST_F(UceDatasPage, BetweenTwoAnswersTheWindowStillShowsTheDeletedData) {
  for (const char* name : {"Level", "Speed"})
    place("Read " + std::string(name), name);
  press(list(), Qt::Key_A, Qt::ControlModifier);
  const auto ask = [&](const std::string& name) {
    person.expect({"DATAS/MSG/CutData/deleteUsedData/text", "Confirm delete",
                   "Do you really want to delete the selected data ?\r\n\r\n****** W A R N I N G "
                   "******\r\nThe data '" +
                       name + "' is used by requests: \r\n  - Read " + name,
                   Buttons::YesNo, Icon::Question},
                  Answer::Yes, [&] {
                    list().viewport()->repaint();
                    EXPECT_EQ(names(), "Level,Speed,State,");
                  });
  };
  ask("Level");
  ask("Speed");
  expectDeletion("State", Answer::Cancel);
  press(list(), Qt::Key_Delete);
  EXPECT_EQ(names(), "State,");
}

TEST_F(UceDatasPage, AfterADeletionTheRowAtTheSamePlaceIsChosen) {
  clickRow(list(), 1);
  expectDeletion("Speed", Answer::No);
  choose("popupRefCut");
  EXPECT_EQ(names(), "Level,State,");
  EXPECT_EQ(caption(), "State");
}

TEST_F(UceDatasPage, APastedLineOf40BitsBecomesBytesInHexadecimal) {
  desktop::setClipboardText("Wide\t\t40\t0\t\t0,5\t0\t1\t\tNumeric\nHalf\t\t8\t1\t\t0,5\t0\t0");
  key("paste");
  EXPECT_EQ(the("Wide").NumberBits, 40);
  EXPECT_FALSE(the("Wide").numerique || the("Wide").Ascii);
  EXPECT_EQ(the("Half").CoeffA.value(), 0.5);
  EXPECT_EQ(the("Half").CoeffC.value(), 1);
  EXPECT_EQ(caption(), "Half") << "the last one pasted is shown";
  EXPECT_EQ(shown("lblInfo"), "5 data");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnSave(false)"});
}

TEST_F(UceDatasPage, APasteWithDuplicateValuesPutsItsErrorsOnTheClipboard) {
  desktop::setClipboardText("Kind\t\t8\t0\t\t1\t0\t1\t\tList\n\t1\tOne\n\t1\tAgain\n");
  choose("popupRefPaste");
  ASSERT_EQ(the("Kind").DataListes->Count(), 1);
  EXPECT_EQ(the("Kind").DataListes->Item(1)->libelle, "One");
  EXPECT_EQ(desktop::clipboardText(),
            "'\r\n'Error\t\t1\tAgain\tDuplicate value (already exist with label : One)\r\n");
}

TEST_F(UceDatasPage, TheErrorsAreOnTheClipboardWhenTheWarningLeadsThere) {
  const std::string tooLong(71, 'a');
  desktop::setClipboardText(tooLong + "\t\t8\n");
  person.expect({"DATAS/MSG/pasteData/importError/text", "Warning",
                 "Error when importing data, paste the clipboard to Excel\r\nData name '" +
                     tooLong + "' too long, up to 70 characters.\r\n",
                 Buttons::Ok, Icon::Exclamation},
                Answer::Ok, [] { EXPECT_TRUE(desktop::clipboardText().starts_with("'aaa")); });
  key("paste");
}

TEST_F(UceDatasPage, AForeignFragmentIsRefusedAndChangesNothing) {
  clickRow(list(), 1);
  clickRow(list(), 2, 0, Qt::ControlModifier);
  desktop::setClipboardText("<Requests/>");
  person.expect("DATAS/MSG/pasteData/badClipboardData/text", "Clipboard error",
                "Bad clipboard content. You can paste only Data", Buttons::Ok, Icon::Exclamation,
                Answer::Ok);
  key("paste");
  EXPECT_EQ(names(), "Level,Speed,State,");
  EXPECT_EQ(selectedNames(), "Speed,State,");
  EXPECT_EQ(recorder.take().size(), 1u) << "nothing but the box";
}

TEST_F(UceDatasPage, CopiedTextComesBackAsTheSameData) {
  the("Speed").CoeffA = 0.25;
  the("Speed").Unite = "km/h";
  showAgain();
  press(list(), Qt::Key_A, Qt::ControlModifier);
  choose("popupRefCopyText");
  const std::string text = desktop::clipboardText();
  EXPECT_TRUE(text.starts_with("'Name\tMnemo\tNumber bits\t")) << text;
  database.ActiveTarget = newEcu({});
  showAgain();
  desktop::setClipboardText(text);
  key("paste");
  press(list(), Qt::Key_A, Qt::ControlModifier);
  choose("popupRefCopyText");
  EXPECT_EQ(desktop::clipboardText(), text);
}

TEST_F(UceDatasPage, ACellThatDoesNotReadBackIsToldInTheLineOfWarnings) {
  choose("popupRefCopyText");
  EXPECT_FALSE(control<QLabel>(*page, "lblWarning").isVisible());
  the("Level").Description = "one\r\ntwo";
  choose("popupRefCopyText");
  EXPECT_TRUE(control<QLabel>(*page, "lblWarning").isVisible());
  EXPECT_EQ(shown("lblWarning"),
            "A copied cell holds a line break or a tab: pasted back, it will not be the same.");
  choose("popupRefCopy");
  EXPECT_FALSE(control<QLabel>(*page, "lblWarning").isVisible()) << "this copy is good";
  choose("popupRefCopyText");
  clickRow(list(), 1);
  EXPECT_FALSE(control<QLabel>(*page, "lblWarning").isVisible());
}

TEST_F(UceDatasPage, AValueThatDoesNotReadBackIsToldThere) {
  the("State").DataListes->Item(1)->libelle = "Off\nline";
  page->setEditDataName("State");
  auto& rows = control<ListView>(values(), "LVmain");
  const auto copyText = [&](int row) {
    clickRow(rows, row);
    emit rows.customContextMenuRequested(QPoint(5, 5));
    choose(*rows.findChild<QMenu*>("PopupRange"), "PopupRCopyText");
    return control<QLabel>(*page, "lblWarning").isVisible();
  };
  EXPECT_TRUE(copyText(0));
  EXPECT_EQ(shown("lblWarning"),
            "A copied cell holds a line break or a tab: pasted back, it will not be the same.");
  EXPECT_FALSE(copyText(1));
}

TEST_F(UceDatasPage, TheConfigurationTableHasALineForEachValue) {
  press(list(), Qt::Key_A, Qt::ControlModifier);
  the("Level").Description = "Tank";
  choose("popupRefCopyTradConfig");
  EXPECT_EQ(desktop::clipboardText(), "Level\t8 bits\tTank\t\t\t\t\t\t\r\n"
                                      "Speed\t8 bits\t\t\t\t\t\t\t\r\n"
                                      "State\t8 bits\t\t\t0\tOff\t\t\t\r\n"
                                      "\t\t\t\t1\tOn\t\t\t\r\n");
}

TEST_F(UceDatasPage, SelectionCommandsSelectByTypeAndUse) {
  add("Text").numerique = false;
  the("Text").Ascii = true;
  add("Bytes").numerique = false;
  place("Read", "Bytes");
  place("Again", "Level");
  showAgain();
  const std::pair<const char*, const char*> rows[] = {
      {"popupSelectDataNumeric", "Level,Speed,"},
      {"popupSelectDataNumericList", "State,"},
      {"popupSelectDataASCII", "Text,"},
      {"popupSelectDataHEXA", "Bytes,"},
      {"popupRefSelectUnused", "Speed,State,Text,"}};
  for (const auto& [command, selected] : rows) {
    choose(command);
    EXPECT_EQ(selectedNames(), selected) << command;
  }
  EXPECT_EQ(recorder.take(), Events{}) << "selecting changes nothing";
}

TEST_F(UceDatasPage, SortingLastsWhenTheListIsBuiltAnew) {
  choose("popupSortDataDescending");
  EXPECT_EQ(names(), "State,Speed,Level,");
  desktop::setClipboardText("Map\t\t8\n");
  key("paste");
  EXPECT_EQ(names(), "State,Speed,Map,Level,");
  choose("popupSortDataAscending");
  EXPECT_EQ(names(), "Level,Map,Speed,State,");
}

TEST_F(UceDatasPage, NameCommandsRenameTheSelectedDataWithTheirReferences) {
  place("Read", "Speed");
  press(list(), Qt::Key_A, Qt::ControlModifier);
  person.expect("DATAS/MSG/popupRefUcase_Click/confirm/text", "User confirm",
                "Convert name to uppercase ?", Buttons::YesNo, Icon::Question, Answer::Yes);
  choose("popupRefUcase");
  EXPECT_EQ(names(), "LEVEL,SPEED,STATE,");
  EXPECT_EQ(caption(), "LEVEL") << "the data stays the active one under its new name";
  EXPECT_TRUE(target().IsDataUsed("SPEED"));
  EXPECT_EQ(recorder.take().back(), "UceDatas1.OnSave(false)");
}

TEST_F(UceDatasPage, ADeclinedNameCommandChangesNothing) {
  person.expect("DATALIST/MSG/PopupRNormalize/confirm/text", "User confirm",
                "Normalize space suppress white spaces at the start and end of the data name and "
                "replace multi-space by a single one.\r\nDo you want to normalize selected data "
                "name ?",
                Buttons::YesNo, Icon::Question, Answer::No);
  choose("popupRefNormalize");
  person.expectInput(
      {"DATAS/MSG/popupRefReplace_Click/inputSearch/text", "Rename data:", "Find what:", ""}, "");
  choose("popupRefReplace");
  EXPECT_EQ(names(), "Level,Speed,State,");
}

TEST_F(UceDatasPage, WhatWasDeclinedBeforeANameCommandIsNoLongerInTheFields) {
  type(field("TextMnemo"), "L");
  expectConfirmation(Answer::No);
  person.expect("DATAS/MSG/popupRefUcase_Click/confirm/text", "User confirm",
                "Convert name to uppercase ?", Buttons::YesNo, Icon::Question, Answer::No);
  choose("popupRefUcase");
  EXPECT_EQ(field("TextMnemo").text(), "");
  EXPECT_EQ(recorder.take().back(), "box User confirm: Convert name to uppercase ?");
  type(field("TextMnemo"), "L");
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnChange()"}) << "typing marks it again";
}

TEST_F(UceDatasPage, RequestsOfTheMenuLeadToTheirPage) {
  place("Read", "Level");
  place("Reference", "Level").reference = true;
  QMenu& menu = openMenu();
  const auto* requests = menu.findChild<QMenu*>("menuRequests");
  ASSERT_TRUE(requests);
  EXPECT_EQ(requests->title(), "Requests");
  EXPECT_EQ(requests->actions().at(1)->text(), "[ Reference ]");
  choose(menu, "menuReq", 1);
  EXPECT_EQ(recorder.take(), Events{"UceDatas1.OnRequestSelect(Reference, Level)"});
}

TEST_F(UceDatasPage, ADropOfDataIsPastedAndAnyOtherTextIsNot) {
  const auto dropData = [&](QMimeData& data) {
    // A drop goes to where the drag was before.
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &event);
    QCoreApplication::processEvents();
    return event.isAccepted();
  };
  const auto drop = [&](const QString& text) {
    QMimeData data;
    data.setText(text);
    return dropData(data);
  };
  EXPECT_FALSE(drop("Wide\t\t8"));
  EXPECT_FALSE(drop("<Requests></Requests>"));
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/tmp/<Datas>Datas>")});
  files.setText("<Datas></Datas>");
  EXPECT_FALSE(dropData(files)) << "files bring their names as text";
  EXPECT_TRUE(drop(" <Datas><Data Name=\"Dropped\"/></Datas>\n"));
  EXPECT_TRUE(waitUntil([&] { return has("Dropped"); }));
  EXPECT_EQ(caption(), "Dropped");
}

TEST_F(UceDatasPage, TwentyThousandDataOpenSortAndAreSelectedInOneStepEach) {
  database.ActiveTarget = newEcu({});
  std::vector<DataItems::Pointer> many;
  for (int i = 0; i < 20000; ++i) {
    auto data = std::make_shared<DataItem>();
    data->setDataName("Data " + std::to_string(i));
    data->numerique = i % 2 == 0; // every other row is selected below
    data->parent = &target();
    many.push_back(std::move(data));
  }
  target().datas()->AddDatasSorted(many);
  QSignalSpy sets(list().model(), &QAbstractItemModel::modelReset);
  page->displayDatas(database, "");
  EXPECT_EQ(sets.count(), 1);
  choose("popupSortDataDescending");
  QSignalSpy changes(list().selectionModel(), &QItemSelectionModel::selectionChanged);
  choose("popupSelectDataNumeric");
  EXPECT_EQ(list().selectedTags().size(), 10000u);
  press(list(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(list().selectedTags().size(), 20000u);
  EXPECT_LE(changes.count(), 3);
  EXPECT_EQ(shown("lblInfo"), "20000 data");
}

} // namespace
} // namespace kelmar
