// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ecu_selector.h"

#include "desktop/qt_text.h"
#include "frame/ecu_file_text.h"
#include "support/recorder.h"
#include "support/signal_recorder.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QProcess>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>

namespace kelmar {
namespace {

using desktop::u8;
using support::EcuFileText;
using support::TempFolder;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A site of two vehicles in a folder of its own, and the control that shows it.
class EcuSelectorWindow : public testing::Test {
 protected:
  EcuSelectorWindow() {
    selector.setObjectName("ecuSelector1");
    site("<dataSet label=\"All\" folder=\"vehicles\"/>");
    ecu("vehicles/Kobalt/Engine/Diesel 10.xml", "Diesel ten", 122);
    ecu("vehicles/Kobalt/Engine/Diesel 9.xml", "Diesel nine", 122);
    ecu("vehicles/Kobalt/Body/Doors.xml", "Doors", 38);
    ecu("vehicles/Célestine/Airbag.xml", "Airbag", 44);
  }

  void site(const std::string& dataSets) {
    root.write("parameters.xml",
               "<site><projectsFile>projects.xml</projectsFile><dataSets>" + dataSets +
                   "</dataSets><xmlEncoding>UTF-16</xmlEncoding><xmlStyleSheet/></site>");
  }
  std::string ecu(const std::string& path, const std::string& name, int function) {
    EcuFileText file;
    file.name = name;
    file.function = "<Function Name=\"F\" Address=\"" + std::to_string(function) + "\"/>";
    return root.write(path, file.text());
  }
  void open() {
    selector.resize(320, 480);
    selector.initialise(root.path().string(), "parameters.xml", "DEMO");
    support::showToUser(selector);
  }

  QTreeView& tree() { return support::control<QTreeView>(selector, "tvEcus"); }
  QLineEdit& filter() { return support::control<QLineEdit>(selector, "txFilter"); }
  std::string empty() {
    const QLabel& label = support::control<QLabel>(selector, "lbEmpty");
    return label.isVisible() ? u8(label.text()) : "";
  }

  /// The rows on the screen: names, two blanks a level.
  std::string rows() {
    std::string lines;
    for (QModelIndex index = tree().model()->index(0, 0); index.isValid();
         index = tree().indexBelow(index)) {
      for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        lines += "  ";
      lines += u8(index.data().toString()) + "\n";
    }
    return lines;
  }
  QModelIndex row(const QString& name) {
    const QModelIndexList found =
        tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, name, 1,
                              Qt::MatchRecursive | Qt::MatchExactly);
    return found.isEmpty() ? QModelIndex() : found.first();
  }
  void choose(const QString& name) {
    ASSERT_TRUE(row(name).isValid()) << u8(name);
    tree().setCurrentIndex(row(name));
  }
  bool announced(const std::string& signal) {
    return support::waitUntil([&] {
      const auto& all = recorder.events();
      return std::find(all.begin(), all.end(), "ecuSelector1." + signal) != all.end();
    });
  }

  TempFolder root;
  ecuSelector selector;
  support::Recorder recorder;
  support::SignalRecorder signals_{selector, recorder};
};

TEST_F(EcuSelectorWindow, TheTree_ShowsTheFoldersOfTheDataSet) {
  open();
  EXPECT_EQ(rows(), "Célestine\nKobalt\n");
  tree().expandAll();
  EXPECT_EQ(rows(), "Célestine\n  Airbag\nKobalt\n  Body\n    Doors\n  Engine\n    Diesel 9\n"
                    "    Diesel 10\n");
  EXPECT_EQ(empty(), "");
  EXPECT_EQ(selector.selectionLabel(), "All");
  EXPECT_EQ(selector.currentAddress(), "");
  EXPECT_EQ(selector.description(), "");
  EXPECT_FALSE(support::control<QComboBox>(selector, "cbDataSet").isVisible());
}

TEST_F(EcuSelectorWindow, WhatTheSiteSays_IsGiven) {
  open();
  EXPECT_EQ(selector.addressingFile(), root.file("GenericAddressing.xml"));
  EXPECT_EQ(selector.projectsFile(), root.file("projects.xml"));
  EXPECT_EQ(selector.xmlEncoding(), "UTF-16");
  EXPECT_TRUE(selector.hasXmlStyleSheet());
  EXPECT_EQ(selector.xmlStyleSheet(), "");
}

TEST_F(EcuSelectorWindow, Properties_AreStored) {
  selector.setLang("fr");
  selector.setRemoteDataServer("http://server.example");
  EXPECT_EQ(selector.lang(), "fr");
  EXPECT_EQ(selector.RemoteDataServer(), "http://server.example");
}

TEST_F(EcuSelectorWindow, ASelection_IsDescribedFromItsHead) {
  open();
  choose("Doors");
  EXPECT_EQ(selector.currentAddress(), root.file("vehicles/Kobalt/Body/Doors.xml"));
  ASSERT_TRUE(announced("selectionChanged()"));
  EXPECT_THAT(recorder.events(), ElementsAre("ecuSelector1.functionAddressChanged(38)",
                                             "ecuSelector1.selectionChanged()"));
  EXPECT_EQ(selector.functionAddress(), 38);
  EXPECT_EQ(selector.description(),
            "Name: Doors\nFunction: F, address 38 ($26)\nProtocol: Diag On CAN\n"
            "Identifications (diag, supplier, soft, version): 1\n  4, SUP, 0100, 0001");
}

TEST_F(EcuSelectorWindow, TheSameFunctionAgain_IsNotAnnouncedTwice) {
  open();
  choose("Diesel 9");
  ASSERT_TRUE(announced("functionAddressChanged(122)"));
  recorder.take();
  choose("Diesel 10");
  ASSERT_TRUE(announced("selectionChanged()"));
  EXPECT_THAT(recorder.events(), ElementsAre("ecuSelector1.selectionChanged()"));
}

TEST_F(EcuSelectorWindow, SelectionsInQuickSuccession_AreAnnouncedOnce) {
  open();
  for (const char* name : {"Doors", "Diesel 9", "Airbag"})
    choose(name);
  ASSERT_TRUE(announced("selectionChanged()"));
  EXPECT_THAT(recorder.events(), ElementsAre("ecuSelector1.functionAddressChanged(44)",
                                             "ecuSelector1.selectionChanged()"));
}

TEST_F(EcuSelectorWindow, AFolder_IsDescribedByItsFiles) {
  open();
  choose("Kobalt");
  ASSERT_TRUE(announced("selectionChanged()"));
  EXPECT_EQ(selector.currentAddress(), "");
  EXPECT_EQ(selector.functionAddress(), 0);
  EXPECT_EQ(selector.description(), "Kobalt: 3 ECU files");
}

TEST_F(EcuSelectorWindow, ABrokenFile_IsMarkedAndSaysWhy) {
  root.write("vehicles/Broken.xml", "<xml>\n<zem:Target");
  open();
  choose("Broken");
  EXPECT_EQ(selector.description(), "This file cannot be read: unclosed token, line 2, column 1");
  EXPECT_TRUE(support::waitUntil(
      [&] { return row("Broken").data(Qt::ToolTipRole).toString().contains("cannot be read"); }));
}

TEST_F(EcuSelectorWindow, ReturnOnAFile_OpensIt) {
  open();
  choose("Doors");
  support::press(tree(), Qt::Key_Return);
  EXPECT_THAT(recorder.events(), Contains("ecuSelector1.fileChosen(" +
                                          root.file("vehicles/Kobalt/Body/Doors.xml") + ")"));
}

TEST_F(EcuSelectorWindow, ReturnOnAFolder_OpensAndClosesTheFolder) {
  open();
  choose("Célestine");
  support::press(tree(), Qt::Key_Return);
  EXPECT_EQ(rows(), "Célestine\n  Airbag\nKobalt\n");
  support::press(tree(), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(rows(), "Célestine\nKobalt\n");
}

TEST_F(EcuSelectorWindow, ADoubleClickOnAFile_OpensIt) {
  open();
  tree().expandAll();
  const QRect place = tree().visualRect(row("Airbag"));
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place.center());
  QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, place.center());
  EXPECT_THAT(recorder.events(), Contains("ecuSelector1.fileChosen(" +
                                          root.file("vehicles/Célestine/Airbag.xml") + ")"));
}

TEST_F(EcuSelectorWindow, TypedLetters_FindARowInAClosedFolder) {
  open();
  tree().setFocus();
  QTest::keyClicks(&tree(), "DIES");
  EXPECT_EQ(u8(tree().currentIndex().data().toString()), "Diesel 9");
  EXPECT_THAT(rows(), HasSubstr("Diesel 9"));
}

TEST_F(EcuSelectorWindow, TheSameLetterAgain_GoesToTheNextRow) {
  open();
  tree().setFocus();
  std::vector<std::string> found;
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(&tree(), Qt::Key_D);
    found.push_back(u8(tree().currentIndex().data().toString()));
  }
  EXPECT_THAT(found, ElementsAre("Doors", "Diesel 9", "Diesel 10", "Doors"));
}

TEST_F(EcuSelectorWindow, TheFilter_ShowsWhatItsWordsFindInThePath) {
  open();
  support::type(filter(), "koba 9");
  EXPECT_EQ(rows(), "Kobalt\n  Engine\n    Diesel 9\n");
  support::retype(filter(), "CELESTINE");
  EXPECT_EQ(rows(), "Célestine\n  Airbag\n");
  support::press(filter(), Qt::Key_Escape);
  EXPECT_EQ(rows(), "Célestine\nKobalt\n");
}

TEST_F(EcuSelectorWindow, TheFilter_GivesBackSelectionAndOpenFolders) {
  open();
  tree().expand(row("Kobalt"));
  choose("Body");
  support::type(filter(), "airbag");
  EXPECT_FALSE(tree().currentIndex().isValid());
  filter().clear();
  EXPECT_EQ(u8(tree().currentIndex().data().toString()), "Body");
  EXPECT_EQ(rows(), "Célestine\nKobalt\n  Body\n  Engine\n");
}

TEST_F(EcuSelectorWindow, ReturnInTheFilter_OpensTheOnlyFileThatIsLeft) {
  open();
  support::type(filter(), "doors");
  support::press(filter(), Qt::Key_Return);
  EXPECT_THAT(recorder.events(), Contains("ecuSelector1.fileChosen(" +
                                          root.file("vehicles/Kobalt/Body/Doors.xml") + ")"));
}

TEST_F(EcuSelectorWindow, ReturnOrDownInTheFilter_GoesToTheFirstOfSeveralFiles) {
  open();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) {
    support::retype(filter(), "diesel");
    support::press(filter(), key);
    EXPECT_TRUE(tree().hasFocus());
    EXPECT_EQ(u8(tree().currentIndex().data().toString()), "Diesel 9");
  }
  EXPECT_THAT(recorder.events(), Not(Contains(HasSubstr("fileChosen"))));
}

TEST_F(EcuSelectorWindow, Reload_KeepsSelectionAndOpenFolders) {
  open();
  tree().expand(row("Kobalt"));
  choose("Diesel 9");
  ASSERT_TRUE(announced("selectionChanged()"));
  ecu("vehicles/Kobalt/Body/Aerial.xml", "Aerial", 9);
  ecu("vehicles/Kobalt/Engine/Diesel 9.xml", "Changed", 122);
  recorder.take();
  support::press(tree(), Qt::Key_F5);
  EXPECT_THAT(recorder.events(), ElementsAre("ecuSelector1.treeReloaded()"));
  EXPECT_EQ(u8(tree().currentIndex().data().toString()), "Diesel 9");
  EXPECT_TRUE(row("Aerial").isValid());
  EXPECT_EQ(rows(), "Célestine\nKobalt\n  Body\n  Engine\n    Diesel 9\n    Diesel 10\n");
  EXPECT_THAT(selector.description(), HasSubstr("Name: Changed"));
  EXPECT_TRUE(announced("selectionChanged()"));
}

TEST_F(EcuSelectorWindow, Reload_ForgetsASelectionThatHasGone) {
  open();
  choose("Doors");
  ASSERT_TRUE(announced("selectionChanged()"));
  std::filesystem::remove(root.file("vehicles/Kobalt/Body/Doors.xml"));
  recorder.take();
  support::click(support::usable<QToolButton>(selector, "btReload"));
  EXPECT_EQ(selector.currentAddress(), "");
  EXPECT_EQ(selector.description(), "");
  EXPECT_THAT(recorder.events(),
              ElementsAre("ecuSelector1.selectionChanged()", "ecuSelector1.treeReloaded()"));
}

TEST_F(EcuSelectorWindow, Reload_ReadsASiteThatWasPutRight) {
  root.write("parameters.xml", "<site>");
  open();
  EXPECT_THAT(empty(), testing::AllOf(HasSubstr("There is no tree"), HasSubstr("parameters.xml"),
                                      HasSubstr("line 1"), HasSubstr("press F5")));
  EXPECT_EQ(selector.addressingFile(), "");
  EXPECT_EQ(selector.selectionLabel(), "");
  site("<dataSet label=\"All\" folder=\"vehicles\"/>");
  support::click(support::usable<QToolButton>(selector, "btReload"));
  EXPECT_EQ(empty(), "");
  EXPECT_EQ(rows(), "Célestine\nKobalt\n");
}

TEST_F(EcuSelectorWindow, SeveralDataSets_CanBeChosen) {
  site("<dataSet label=\"All\" folder=\"vehicles\"/>"
       "<dataSet label=\"Kobalt\" folder=\"vehicles/Kobalt\"/>");
  open();
  choose("Airbag");
  ASSERT_TRUE(announced("selectionChanged()"));
  recorder.take();
  QComboBox& sets = support::usable<QComboBox>(selector, "cbDataSet");
  support::press(sets, Qt::Key_Down);
  EXPECT_EQ(rows(), "Body\nEngine\n");
  EXPECT_EQ(selector.selectionLabel(), "Kobalt");
  EXPECT_EQ(selector.currentAddress(), "");
  EXPECT_THAT(recorder.events(), ElementsAre("ecuSelector1.selectionChanged()",
                                             "ecuSelector1.dataSetChanged(Kobalt)"));
  selector.reload();
  EXPECT_EQ(selector.selectionLabel(), "Kobalt");
  EXPECT_EQ(sets.currentText(), "Kobalt");
}

TEST_F(EcuSelectorWindow, AnEmptyTree_SaysWhatToDo) {
  site("<dataSet label=\"New\" folder=\"nothing here\"/>");
  open();
  EXPECT_THAT(empty(), testing::AllOf(HasSubstr("no ECU files in the data set \"New\""),
                                      HasSubstr("No such file"), HasSubstr("press F5")));
  EXPECT_FALSE(filter().isEnabled());
  std::filesystem::create_directory(root.path() / "nothing here");
  selector.reload();
  EXPECT_THAT(empty(), HasSubstr(root.file("nothing here")));
}

TEST_F(EcuSelectorWindow, AFilterWithoutMatch_SaysWhatToDo) {
  open();
  support::type(filter(), "zebra");
  EXPECT_THAT(empty(), testing::AllOf(HasSubstr("\"zebra\""), HasSubstr("Escape"),
                                      HasSubstr("all 4 files")));
  support::press(filter(), Qt::Key_Return);
  support::press(filter(), Qt::Key_Escape);
  EXPECT_EQ(empty(), "");
}

TEST_F(EcuSelectorWindow, BeforeASiteIsOpened_TheControlSaysSo) {
  support::showToUser(selector);
  EXPECT_EQ(empty(), "No site has been opened yet.");
  selector.reload();
  EXPECT_THAT(recorder.events(), IsEmpty());
  std::string address = "x";
  EXPECT_EQ(selector.findByIdentification(1, 0, 0, "", "", "", address), -1);
  EXPECT_EQ(address, "");
}

TEST_F(EcuSelectorWindow, EntriesThatAreNotShown_AreTold) {
  std::filesystem::create_directory_symlink("..", root.path() / "vehicles/loop");
  open();
  const QLabel& told = support::control<QLabel>(selector, "lbNotShown");
  EXPECT_TRUE(told.isVisible());
  EXPECT_EQ(u8(told.text()), "1 entries are not shown");
  EXPECT_THAT(u8(told.toolTip()), HasSubstr("leads back"));
}

TEST_F(EcuSelectorWindow, TheSearch_LooksAtTheWholeTreeWhateverTheFilter) {
  open();
  support::type(filter(), "airbag");
  std::string address;
  EXPECT_EQ(selector.findByIdentification(122, 1, 4, "SUP", "0100", "0009", address), 2);
  EXPECT_EQ(address, root.file("vehicles/Kobalt/Engine/Diesel 10.xml"));
  EXPECT_EQ(selector.findByIdentification(38, 0, 9, "X", "", "", address), 1);
  EXPECT_EQ(address, root.file("vehicles/Kobalt/Body/Doors.xml"));
  EXPECT_EQ(selector.findByIdentification(999, 0, 9, "X", "", "", address), -1);
  EXPECT_EQ(address, "");
}

/// Calls when the widget is shown.
class WhenShown : public QObject {
 public:
  WhenShown(QWidget& widget, std::function<void()> then) : then_(std::move(then)) {
    widget.installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show) then_();
    return false;
  }

 private:
  std::function<void()> then_;
};

TEST_F(EcuSelectorWindow, ALongSearch_ShowsItsProgressAndTakesNoInput) {
  // Some 60 MB, so that it is long on any machine.
  EcuFileText file;
  for (int i = 0; i < 4000; ++i)
    file.autoIdents += EcuFileText().autoIdents;
  for (int i = 0; i < 200; ++i)
    root.write("vehicles/Many/" + std::to_string(i) + ".xml", file.text());
  open();
  filter().setFocus();
  QProgressBar& bar = support::control<QProgressBar>(selector, "pbSearch");
  int shown = 0;
  const WhenShown watch(bar, [&] {
    ++shown;
    QProcess::execute("xdotool", {"key", "k"});
  });
  std::string address;
  EXPECT_EQ(selector.findByIdentification(122, 0, 4, "SUP", "0100", "0002", address), 2);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(u8(filter().text()), "");
  EXPECT_FALSE(bar.isVisible());
  EXPECT_TRUE(support::waitUntil([&] { return filter().text() == "k"; }));
}

TEST_F(EcuSelectorWindow, Disabled_NothingCanBeUsed) {
  open();
  selector.setEnabled(false);
  for (const char* name : {"tvEcus", "txFilter", "btReload"})
    EXPECT_THROW(support::mustBeUsable(support::controlNamed(selector, name)), std::runtime_error)
        << name;
  selector.setEnabled(true);
  support::mustBeUsable(tree());
}

TEST_F(EcuSelectorWindow, Icons_AreReadForTheRowsInSightOnly) {
  for (int i = 0; i < 500; ++i)
    ecu("vehicles/Many/" + std::to_string(i) + ".xml", "E", 200);
  open();
  tree().expand(row("Many"));
  const auto described = [&](const char* name) {
    return !row(name).data(Qt::AccessibleDescriptionRole).toString().isEmpty();
  };
  ASSERT_TRUE(support::waitUntil([&] { return described("0"); }));
  QTest::qWait(100);
  EXPECT_FALSE(described("499"));
  tree().scrollTo(row("499"));
  EXPECT_TRUE(support::waitUntil([&] { return described("499"); }));
  EXPECT_FALSE(described("250"));
}

TEST_F(EcuSelectorWindow, FiveThousandFiles_AreShownAndFiltered) {
  for (int vehicle = 0; vehicle < 50; ++vehicle)
    for (int file = 0; file < 100; ++file)
      root.write("vehicles/Vehicle " + std::to_string(vehicle) + "/Family/ECU " +
                     std::to_string(file) + ".xml",
                 "<xml/>");
  open();
  for (const char* text : {"e", "ec", "ecu", "ecu 7", "ecu 77"}) {
    filter().setText(text);
    QApplication::processEvents();
  }
  EXPECT_THAT(rows(), HasSubstr("Vehicle 49\n  Family\n    ECU 77\n"));
}

TEST_F(EcuSelectorWindow, EveryControl_IsReachedByTabAndHasAName) {
  site("<dataSet label=\"All\" folder=\"vehicles\"/><dataSet label=\"B\" folder=\"vehicles\"/>");
  // As on a page, between other controls and with an order that names the selector alone.
  QWidget page;
  QVBoxLayout lines(&page);
  QLineEdit before, after;
  before.setObjectName("before");
  after.setObjectName("after");
  for (QWidget* widget : {static_cast<QWidget*>(&after), static_cast<QWidget*>(&selector),
                          static_cast<QWidget*>(&before)})
    lines.addWidget(widget);
  QWidget::setTabOrder(&before, &selector);
  QWidget::setTabOrder(&selector, &after);
  selector.initialise(root.path().string(), "parameters.xml", "DEMO");
  support::showToUser(page);
  before.setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QWidget* focused = QApplication::focusWidget();
    ASSERT_TRUE(focused);
    order.push_back(u8(focused->objectName()));
    EXPECT_TRUE(focused == &after || !focused->accessibleName().isEmpty()) << order.back();
  }
  EXPECT_THAT(order, ElementsAre("txFilter", "btReload", "cbDataSet", "tvEcus", "after"));
  for (const char* name : {"tvEcus", "cbDataSet", "btReload", "txFilter", "before"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(u8(QApplication::focusWidget()->objectName()), name);
  }
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(filter().hasFocus());
  before.setFocus();
  selector.setFocus();
  EXPECT_TRUE(filter().hasFocus());
  for (const char* name : {"cbDataSet", "txFilter", "btReload"})
    EXPECT_FALSE(support::controlNamed(selector, name).toolTip().isEmpty()) << name;
  selector.setParent(nullptr);
  for (QLineEdit* field : {&before, &after})
    field->setParent(nullptr);
}

TEST_F(EcuSelectorWindow, Pictures_OfAllStates) {
  site("<dataSet label=\"All\" folder=\"vehicles\"/><dataSet label=\"B\" folder=\"vehicles\"/>");
  root.write("vehicles/Kobalt/Broken.xml", "<xml>");
  open();
  tree().expandAll();
  choose("Doors");
  ASSERT_TRUE(announced("selectionChanged()"));
  support::keepPicture(selector, "ecu_selector");
  const QPalette light = QApplication::palette();
  QPalette dark(QColor(45, 45, 48), QColor(30, 30, 32));
  dark.setColor(QPalette::Highlight, QColor(40, 110, 180));
  QApplication::setPalette(dark);
  QApplication::processEvents();
  EXPECT_GT(tree().palette().color(QPalette::Text).lightness(),
            tree().palette().color(QPalette::Base).lightness());
  support::keepPicture(selector, "ecu_selector_dark");
  filter().setText("zebra");
  support::keepPicture(selector, "ecu_selector_no_match_dark");
  QApplication::setPalette(light);
  QApplication::processEvents();
  support::keepPicture(selector, "ecu_selector_no_match");
  root.write("parameters.xml", "<site>");
  selector.reload();
  support::keepPicture(selector, "ecu_selector_no_site");
  EXPECT_THAT(empty(), HasSubstr("There is no tree"));
}

} // namespace
} // namespace kelmar
