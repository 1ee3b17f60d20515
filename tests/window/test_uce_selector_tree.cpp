// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "desktop/clipboard.h"
#include "desktop/http_fetch.h"
#include "frame/rules/addressing_file.h"
#include "frame/uctl_new_ecu_addr.h"
#include "platform/recent_entries.h"
#include "platform/site_settings.h"
#include "support/http_server.h"
#include "window/uce_selector_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTest>

namespace kelmar {
namespace {

using namespace support;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

class UceSelectorTree : public SelectorPage {
 protected:
  void choose(const std::string& address) { emit tree().fileChosen(desktop::qs(address)); }
};

TEST_F(UceSelectorTree, FileChosen_OpensALocalFile) {
  choose(engine);
  EXPECT_EQ((Events{"UceSelector1.CheckIfSaveNeeded(bool&)", "UceSelector1.UceSelected(false)",
                    "UceSelector1.UceSelected(true)"}),
            recorder.take());
  EXPECT_EQ(engine, page->fileName());
  EXPECT_EQ(engine, page->url());
  EXPECT_EQ("File name : " + engine, labelOf("lbFileName"));
  EXPECT_FALSE(the<QToolButton>("cmdLinkNewPDM").isEnabled());
  EXPECT_FALSE(QApplication::overrideCursor());
  EXPECT_EQ(Qt::Checked, the<QListWidget>("lstProjects").item(2)->checkState());
}

TEST_F(UceSelectorTree, FileChosen_ByAFileAddressHasNoLocalFile) {
  const std::string address = "file://" + engine;
  choose(address);
  EXPECT_EQ("", page->fileName());
  EXPECT_EQ(address, page->url());
  EXPECT_EQ("[All] Engine.xml", labelOf("lbFileName"));
  EXPECT_FALSE(the<QToolButton>("cmdLinkNewPDM").isEnabled());
  expectSaveDialog("Engine_D12", std::nullopt);
  EXPECT_FALSE(page->saveFile());
}

TEST_F(UceSelectorTree, FileChosen_ThatFailsIsToldAndEmptiesThePage) {
  open(engine);
  const std::string broken = site.write("broken.xml", "<other/>");
  expectBox("SELECTOR/MSG/OpenEcuFile/text", "Open Ecu file error",
            "File : " + broken + "\r\n\r\nError : Bad xml file, RootNode \"xml\" not found");
  choose(broken);
  EXPECT_EQ("", textOf("TxEcuName"));
  EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(UceSelectorTree, SelectionChanged_ShowsNameAndDescription) {
  emit tree().selectionChanged();
  const QString shown = the<QPlainTextEdit>("TxEcuDesc").toPlainText();
  EXPECT_TRUE(shown.startsWith(QLatin1String("Filename: "))) << shown.toStdString();
  EXPECT_TRUE(shown.contains(QString(20, QLatin1Char('-'))));
  EXPECT_EQ(std::to_string(tree().functionAddress()), textOf("txdFunc"));
}

TEST_F(UceSelectorTree, FunctionAddress_GoesToTheSearch) {
  emit tree().functionAddressChanged(44);
  EXPECT_EQ("44", textOf("txdFunc"));
}

TEST_F(UceSelectorTree, DataSet_IsPassedOn) {
  emit tree().dataSetChanged(QStringLiteral("Another"));
  EXPECT_EQ((Events{"UceSelector1.DatabaseChanged(All, Another)"}), recorder.take());
}

TEST_F(UceSelectorTree, DataSet_IsToldTogetherWithTheOneBefore) {
  site.write("parameters.xml", R"(<site name="Small" key="S">
      <dataSets><dataSet label="All" folder="vehicles"/><dataSet label="Second" folder="vehicles"/>
      <dataSet label="Third" folder="vehicles"/></dataSets></site>)");
  tree().reload();
  recorder.take();
  auto& sets = control<QComboBox>(tree(), "cbDataSet");
  for (const int index : {1, 2}) {
    sets.setCurrentIndex(index);
    emit sets.activated(index);
  }
  EXPECT_EQ((Events{"UceSelector1.DatabaseChanged(All, Second)",
                    "UceSelector1.DatabaseChanged(Second, Third)"}),
            recorder.take());
}

TEST_F(UceSelectorTree, Reload_ReadsTheProjectsAgainAndKeepsTheMarks) {
  open(engine);
  site.write("projects.xml",
             R"(<projects><Manufacturer><project code="B2"/></Manufacturer></projects>)");
  emit tree().treeReloaded();
  auto& list = the<QListWidget>("lstProjects");
  ASSERT_EQ(2, list.count());
  EXPECT_TRUE(list.isEnabled());
  EXPECT_EQ(Qt::Checked, list.item(1)->checkState());
  EXPECT_EQ((Events{}), recorder.take());
}

class UceSelectorHttp : public UceSelectorTree {
 protected:
  void SetUp() override {
    fetch = &http;
    server.serve("/a/Engine.xml", QByteArray::fromStdString(ecu("Remote")));
    server.serve("/gone.xml", "no", HttpServer::Manner::NotFound);
    server.serve("/half.xml", QByteArray::fromStdString(ecu("Half")), HttpServer::Manner::Half);
    UceSelectorTree::SetUp();
  }
  void expectFailure(const std::string& address) {
    std::string reason;
    try {
      OmnikorLibXml other({&http, nullptr, nullptr});
      other.ImportUceFromXml(address);
    } catch (const Failure& failure) {
      reason = failure.text;
    }
    ASSERT_NE("", reason);
    expectBox("SELECTOR/MSG/OpenEcuFile/text", "Open Ecu file error",
              "File : " + address + "\r\n\r\nError : " + reason);
  }

  HttpServer server;
  desktop::HttpFetch http;
};

TEST_F(UceSelectorHttp, FileChosen_IsShownWithoutLocalFileAndOffersItsLink) {
  const std::string address = server.address("/a/Engine.xml");
  choose(address);
  EXPECT_EQ("Remote", textOf("TxEcuName"));
  EXPECT_EQ("", page->fileName());
  EXPECT_EQ("[All] Engine.xml", labelOf("lbFileName"));
  EXPECT_TRUE(the<QToolButton>("cmdLinkNewPDM").isEnabled());
  open(engine);
  EXPECT_FALSE(the<QToolButton>("cmdLinkNewPDM").isEnabled());
}

TEST_F(UceSelectorHttp, OpenEcuFile_OfAnAddressHasNoLocalFileEither) {
  open(engine);
  const std::string address = server.address("/a/Engine.xml");
  open(address);
  EXPECT_EQ("Remote", textOf("TxEcuName"));
  EXPECT_EQ("", page->fileName());
  EXPECT_EQ(address, page->url());
  EXPECT_EQ("[All] Engine.xml", labelOf("lbFileName"));
  EXPECT_TRUE(the<QToolButton>("cmdLinkNewPDM").isEnabled());
  const auto recent = platform::GetRecentEntries(settings, "RecentFile");
  ASSERT_EQ(1u, recent.size());
  EXPECT_EQ(engine, recent.front().value);
}

TEST_F(UceSelectorHttp, Save_ShowsTheFileDialog) {
  choose(server.address("/a/Engine.xml"));
  const std::string file = site.file("local.xml");
  expectSaveDialog("Remote", file);
  pressButton("Save");
  EXPECT_EQ(file, page->fileName());
  EXPECT_NE(std::string::npos, bytesOf(file).find("\"Remote\""));
}

TEST_F(UceSelectorHttp, ServersThatFailGiveAClearBox) {
  for (const std::string& address : {server.address("/gone.xml"), server.address("/half.xml"),
                                     HttpServer::absentAddress() + "/x.xml"}) {
    expectFailure(address);
    choose(address);
    EXPECT_FALSE(target()) << address;
  }
}

TEST_F(UceSelectorHttp, PermanentLink_WithoutDataServerTellsThatThereIsNone) {
  choose(server.address("/a/Engine.xml"));
  expectBox("GENERIC/error/text", "Error",
            "Error # 1\r\ncreatePermanentLinkForECU must be called first");
  click(the<QToolButton>("cmdLinkNewPDM"));
}

class UceSelectorCreation : public SelectorPage {
 protected:
  UctlNewEcuAddr& panel() { return the<UctlNewEcuAddr>("UctlNewEcuAddr1"); }
};

TEST_F(UceSelectorCreation, New_ShowsThePanelAndLocksTheRest) {
  open(engine);
  pressButton("new");
  EXPECT_EQ((Events{"UceSelector1.OnNewECU()"}), recorder.take());
  EXPECT_FALSE(target());
  EXPECT_EQ("New ECU", textOf("TxEcuName"));
  EXPECT_EQ("", textOf("txGenericName"));
  EXPECT_TRUE(the("TxEcuName").isEnabled());
  EXPECT_FALSE(the("txGenericName").isEnabled()) << "a new ECU is of no group";
  EXPECT_EQ("", labelOf("lbFileName"));
  EXPECT_TRUE(panel().isVisible());
  EXPECT_FALSE(the<QToolBar>("TBtoolbar").isEnabled());
  EXPECT_FALSE(tree().isEnabled());
  EXPECT_FALSE(the<QWidget>("FrDetect").isVisible());
  EXPECT_FALSE(the<QWidget>("framProjects").isVisible());
  EXPECT_EQ(3, the<QComboBox>("cbFct").count());
  EXPECT_TRUE(the<QComboBox>("cbFct").hasFocus());
  keepPicture(*page, "selector_new_ecu");
}

TEST_F(UceSelectorCreation, New_SavesFirstWhatIsNotSaved) {
  open(engine);
  page->saveNeed = true;
  retype(the("TxEcuName"), "Typed");
  recorder.take();
  pressButton("new");
  EXPECT_EQ((Events{"UceSelector1.OnNewECU()"}), recorder.take());
  EXPECT_NE(std::string::npos, bytesOf(engine).find("\"Typed\""));
}

TEST_F(UceSelectorCreation, New_StopsWhenTheSaveFails) {
  emit tree().fileChosen(desktop::qs("file://" + engine));
  page->saveNeed = true;
  recorder.take();
  expectSaveDialog("Engine_D12", std::nullopt);
  pressButton("new");
  EXPECT_EQ((Events{"file Save ECU"}), recorder.take());
  EXPECT_TRUE(target());
}

TEST_F(UceSelectorCreation, Cancel_LeavesNoEcu) {
  open(engine);
  pressButton("new");
  recorder.take();
  retype(the("TxEcuName"), "Typed");
  click(the<QPushButton>("cbCancel"));
  EXPECT_EQ((Events{}), recorder.take());
  EXPECT_EQ("", textOf("TxEcuName"));
  EXPECT_TRUE(the<QToolBar>("TBtoolbar").isEnabled());
  EXPECT_TRUE(tree().isEnabled());
  EXPECT_TRUE(the<QWidget>("FrDetect").isVisible());
  EXPECT_TRUE(the<QWidget>("framProjects").isVisible());
  EXPECT_FALSE(panel().isVisible());
  EXPECT_FALSE(target());
  EXPECT_TRUE(tree().isAncestorOf(page->focusWidget())) << "where another one is chosen";
}

TEST_F(UceSelectorCreation, Create_MakesAnEcuThatCanBeSaved) {
  open(engine);
  pressButton("new");
  recorder.take();
  retype(the("TxEcuName"), "Brakes ABS");
  the<QComboBox>("cbFct").setCurrentIndex(1);
  click(the<QPushButton>("cbCreate"));
  EXPECT_EQ((Events{"UceSelector1.UceSelected(true)", "UceSelector1.OnChange()"}), recorder.take());
  EXPECT_EQ("Brakes ABS", textOf("TxEcuName"));
  EXPECT_TRUE(the("TxEcuName").hasFocus());
  EXPECT_FALSE(control<QToolButton>(the<QToolBar>("TBtoolbar"), "cancel").isEnabled());
  EXPECT_EQ("02C", textOf("TextAdresse"));
  EXPECT_EQ("2C", textOf("TextLogicalAdresse"));
  EXPECT_EQ("Brakes", textOf("TextFunction"));
  EXPECT_EQ("", page->fileName());
  EXPECT_EQ(44, page->TargetAddress);
  EXPECT_EQ(1856, target()->Parametres()->canXid);
  page->saveBackupFile();
  EXPECT_FALSE(std::filesystem::exists(engine + ".bak")) << "a new ECU has no file to keep";
  const std::string file = site.file("new.xml");
  expectSaveDialog("Brakes_ABS", file);
  pressButton("Save");
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(UceSelectorCreation, Create_WithoutANameIsNew) {
  pressButton("new");
  retype(the("TxEcuName"), " ");
  the<QComboBox>("cbFct").setCurrentIndex(0);
  click(the<QPushButton>("cbCreate"));
  EXPECT_EQ("New", target()->name());
}

class UceSelectorFunction : public SelectorPage {
 protected:
  void askForFunction() {
    click(the<QLabel>("LabelFunction"));
    auto* menu = page->findChild<QMenu*>("ppChangeFct");
    ASSERT_TRUE(waitUntil([menu] { return menu->isVisible(); }));
    page->findChild<QAction*>("ppChangeFunction")->trigger();
    menu->close();
  }
  void expectQuestion(Answer answer) {
    person.expect("SELECTOR/MSG/cmdChangeFunctionOK_Click/text", "Confirm change function ?",
                  "Validate change ?", Buttons::YesNo, Icon::Question, answer);
  }
  QComboBox& list() { return the<QComboBox>("cbFunctionsName"); }
};

TEST_F(UceSelectorFunction, Menu_OffersTheFunctionsWithThePresentOneSelected) {
  open(engine);
  askForFunction();
  ASSERT_TRUE(list().isVisible());
  EXPECT_EQ(3, list().count());
  EXPECT_EQ("Engine", desktop::u8(list().currentText()));
  click(the<QPushButton>("cmdChangeFunctionCancel"));
  EXPECT_FALSE(list().isVisible());
  EXPECT_EQ(122, target()->Address());
}

TEST_F(UceSelectorFunction, Menu_IsNotOfferedWithoutAnEcu) {
  EXPECT_FALSE(the<QLabel>("LabelFunction").isEnabled());
  QTest::mouseClick(&the<QLabel>("LabelFunction"), Qt::LeftButton);
  EXPECT_FALSE(page->findChild<QMenu*>("ppChangeFct")->isVisible());
}

TEST_F(UceSelectorFunction, Change_RewritesTheFieldsAndTheEcu) {
  open(engine);
  askForFunction();
  list().setCurrentIndex(1);
  expectQuestion(Answer::Yes);
  click(the<QPushButton>("cmdChangeFunctionOK"));
  EXPECT_EQ("02C", textOf("TextAdresse"));
  EXPECT_EQ("2C", textOf("TextLogicalAdresse"));
  EXPECT_EQ("Brakes", textOf("TextFunction"));
  EXPECT_EQ(44, target()->Address());
  EXPECT_EQ(1856, target()->Parametres()->canXid);
  EXPECT_EQ(1888, target()->Parametres()->canRid);
  EXPECT_FALSE(list().isVisible());
  const Events events = recorder.take();
  ASSERT_EQ(2u, events.size());
  EXPECT_EQ("UceSelector1.OnChange()", events.back());
  EXPECT_TRUE(page->saveFile());
}

TEST_F(UceSelectorFunction, Change_RefusedByThePersonChangesNothing) {
  open(engine);
  askForFunction();
  list().setCurrentIndex(1);
  expectQuestion(Answer::No);
  click(the<QPushButton>("cmdChangeFunctionOK"));
  EXPECT_EQ(122, target()->Address());
  EXPECT_FALSE(list().isVisible());
}

TEST_F(UceSelectorFunction, Change_ToAFunctionWithoutIdentifiersIsNotPossible) {
  open(engine);
  askForFunction();
  list().setCurrentIndex(2);
  expectQuestion(Answer::Yes);
  expectBox("SELECTOR/MSG/ChangeFunction/text", "Change Function not possible",
            "CanXid and CanRid not defined in GenericAddressing.xml file", Icon::Exclamation);
  click(the<QPushButton>("cmdChangeFunctionOK"));
  EXPECT_EQ(122, target()->Address());
  EXPECT_FALSE(list().isVisible());
}

TEST_F(UceSelectorFunction, LogicalAddress_IsTakenFromTheAddressingFile) {
  open(site.write("e.xml", [] {
    std::string text = ecu("E");
    text.replace(text.find(" LogicalAddress=\"7A\""), 20, "");
    return text;
  }()));
  EXPECT_EQ("", textOf("TextLogicalAdresse"));
  page->GetLogicalAddressFromAddressingFile();
  EXPECT_EQ("7A", textOf("TextLogicalAdresse"));
  EXPECT_EQ("7A", target()->LogicalAddress());
  EXPECT_EQ((Events{"UceSelector1.OnChange()"}), recorder.take());
}

TEST_F(UceSelectorFunction, ReadCanId_TellsAFileThatCannotBeRead) {
  const std::string absent = site.file("absent.xml");
  AddressingFile same;
  same.load(absent);
  expectBox("SELECTOR/MSG/ReadCanId/text", "Contact hotline",
            "Internal error : impossible to read canId : " + absent +
                "\r\nreason : " + same.reason());
  std::int32_t xid = 5, rid = 6;
  bool found = true;
  page->ReadCanId(absent, 122, xid, rid, found);
  EXPECT_FALSE(found);
  EXPECT_EQ(5, xid);
}

class UceSelectorDetect : public SelectorPage {};

TEST_F(UceSelectorDetect, Fields_TakeDigitsOrCapitals) {
  type(the("txdFunc"), "1a2-2");
  EXPECT_EQ("122", textOf("txdFunc"));
  type(the("txdSup"), "sup");
  EXPECT_EQ("SUP", textOf("txdSup"));
}

TEST_F(UceSelectorDetect, Detect_ShowsTheMatchAndItsAddress) {
  site.write("vehicles/Tern/Other.xml", ecu("Other", "", "Kelmar",
                                            R"(<AutoIdent DiagVersion="5" Supplier="SUP"
                                            Soft="0200" Version="01"/>)"));
  tree().reload();
  page->updateDetect("122", "1", "4", "SUP", "0100", "01");
  click(the<QPushButton>("cbDetect"));
  EXPECT_NE(std::string::npos, textOf("txdHref").find("Engine.xml"));
  EXPECT_EQ("Identification exact match\r\n[" + textOf("txdHref") + "]", labelOf("lbResult"));
  keepPicture(*page, "selector_detected");
}

TEST_F(UceSelectorDetect, Detect_WithoutMatchSaysSo) {
  page->updateDetect("77", "1", "4", "SUP", "0100", "01");
  click(the<QPushButton>("cbDetect"));
  EXPECT_EQ("", textOf("txdHref"));
  EXPECT_EQ("No match", labelOf("lbResult"));
}

TEST_F(UceSelectorDetect, Detect_OfWhatIsNoNumberFindsNothing) {
  const std::string zero = ecu("Zero");
  site.write("vehicles/Tern/Engine.xml", [&] {
    std::string text = zero;
    return text.replace(text.find("Address=\"122\""), 13, "Address=\"0\"");
  }());
  tree().reload();
  page->updateDetect("0", "1", "4", "SUP", "0100", "01");
  click(the<QPushButton>("cbDetect"));
  EXPECT_NE("", textOf("txdHref"));
  for (const auto& [function, diagVersion] :
       {std::pair("99999999999", "4"), std::pair("x", "4"), std::pair("", "4"),
        std::pair("0", "99999999999"), std::pair("0", "")}) {
    page->updateDetect(function, "1", diagVersion, "SUP", "0100", "01");
    click(the<QPushButton>("cbDetect"));
    EXPECT_EQ("", textOf("txdHref")) << function << "/" << diagVersion;
    EXPECT_EQ("No match", labelOf("lbResult")) << function << "/" << diagVersion;
  }
}

TEST_F(UceSelectorDetect, UpdateDetect_FillsThePanelAndForgetsTheResult) {
  the("txdHref").setText("old");
  page->updateDetect("1", "3", "2", "s", "o", "v");
  EXPECT_EQ("1 2 S O V ", textOf("txdFunc") + " " + textOf("txdDiag") + " " + textOf("txdSup") +
                              " " + textOf("txdSoft") + " " + textOf("txdVers") + " " +
                              textOf("txdHref"));
}

TEST_F(UceSelectorDetect, AutoIdent_TakesTheFunctionOfTheOpenEcu) {
  page->AutoIdent("2", "s", "o", "v");
  EXPECT_EQ("", textOf("txdDiag"));
  open(engine);
  page->AutoIdent("2", "s", "o", "v");
  EXPECT_EQ("122", textOf("txdFunc"));
  EXPECT_EQ("V", textOf("txdVers"));
}

} // namespace
} // namespace kelmar
