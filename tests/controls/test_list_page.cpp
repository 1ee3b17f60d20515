// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_page.h"

#include "controls/text_drag.h"
#include "desktop/qt_text.h"
#include "support/scripted_person.h"
#include "support/signal_recorder.h"
#include "support/user.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <memory>

using namespace kelmar;
using namespace kelmar::support;
using desktop::qs;
using desktop::u8;

namespace {

struct Thing {
  std::string name, note;
};

/// The smallest page with a list: names on the left, one field on the right.
class ThingPage : public ListPage {
 public:
  std::vector<std::unique_ptr<Thing>> things;
  ListView* view;
  QLabel* info = new QLabel;
  QLineEdit* field = new QLineEdit;
  CommandTable* table = nullptr;
  bool takesOver = false, mayCancel = true;
  int shown = 0;

  ThingPage(platform::Person& person, Recorder& recorder)
      : ListPage(person, {{"T/find", "Find what:"}, {"T/title", "Find"}}, nullptr),
        recorder_(recorder) {
    view = new ListView({{.key = "name", .caption = "Name"}},
                        {.text = [](RowTag tag, int) { return static_cast<Thing*>(tag)->name; },
                         .rename =
                             [](RowTag tag, const std::string& text) {
                               static_cast<Thing*>(tag)->name = text;
                               return true;
                             }});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view);
    layout->addWidget(info);
    layout->addWidget(field);
    setObjectName("Things");
    useList(*view, *info);
    table = new CommandTable(this, [this] {
      std::vector<Command> commands = findCommands();
      commands.push_back({.key = "cancel",
                          .run = [this] { recorder_.note("cancel"); },
                          .enabled = [this] { return mayCancel; },
                          .shortcuts = {QKeySequence("Ctrl+Z")}});
      commands.push_back({.key = "save",
                          .run = [this] { recorder_.note("save"); },
                          .shortcuts = {QKeySequence("Ctrl+S")}});
      return commands;
    }());
    bindPageKeys();
    connect(field, &QLineEdit::textChanged, this, [this] { SetChanged(Edited); });
    useMenu(
        "popup",
        [this] {
          return std::vector<MenuEntry>{{"goto", activeName()}};
        },
        [this](const MenuEntry& entry) { recorder_.note("chosen " + entry.text); });
  }
  Thing& add(const std::string& name) {
    things.push_back(std::make_unique<Thing>(Thing{name, name + "!"}));
    return *things.back();
  }
  std::string activeName() const { return active() ? nameOf(active()) : "-"; }

  using ListPage::addRow;
  using ListPage::announceApplied;
  using ListPage::choose;
  using ListPage::chooseName;
  using ListPage::dropActive;
  using ListPage::edits;
  using ListPage::fillList;
  using ListPage::FindItem;
  using ListPage::selectWhere;
  using ListPage::SetChanged;

  void InitControl() override {}
  void setLang(const std::string&) override {}
  void displayDatas(OmnikorLibXml&, const std::string&) override {}
  bool TestAndConfirmChange() override {
    if (!edits().changed()) return false;
    recorder_.note("asked for " + activeName());
    edits().clear();
    if (takesOver) activeItem<Thing>()->note = u8(field->text());
    return takesOver;
  }

 protected:
  std::vector<RowTag> items() const override {
    std::vector<RowTag> tags;
    for (const auto& thing : things)
      tags.push_back(thing.get());
    return tags;
  }
  std::string nameOf(RowTag item) const override { return static_cast<Thing*>(item)->name; }
  std::string countText(int rows) const override { return std::to_string(rows) + " thing(s)"; }
  void showItem(RowTag item) override {
    ++shown;
    EXPECT_TRUE(edits().loading());
    field->setText(item ? qs(static_cast<Thing*>(item)->note) : QString());
  }

 private:
  Recorder& recorder_;
};

class ListPageTest : public testing::Test {
 protected:
  using Events = std::vector<std::string>;
  ScriptedPerson person;
  Recorder recorder;
  std::unique_ptr<ThingPage> page;
  std::unique_ptr<SignalRecorder> signalRecorder;

  void SetUp() override {
    page = std::make_unique<ThingPage>(person, recorder);
    for (const char* name : {"Speed", "Rate", "Top speed", "Level"})
      page->add(name);
    page->fillList();
    signalRecorder = std::make_unique<SignalRecorder>(*page, recorder);
    page->resize(300, 300);
    showToUser(*page);
  }
  void TearDown() override {
    signalRecorder.reset();
    page.reset();
  }
};

TEST_F(ListPageTest, FillListChoosesTheFirstItemAndCounts) {
  EXPECT_EQ(page->activeName(), "Speed");
  EXPECT_EQ(page->field->text(), "Speed!");
  EXPECT_EQ(page->info->text(), "4 thing(s)");
  EXPECT_FALSE(page->edits().changed());
}

TEST_F(ListPageTest, FillListComesBackToTheItemThatWasShownLast) {
  clickRow(*page->view, 2);
  page->things.erase(page->things.begin());
  page->fillList();
  EXPECT_EQ(page->activeName(), "Top speed");
  page->fillList(0);
  EXPECT_EQ(page->activeName(), "Rate");
  page->things.clear();
  page->fillList();
  EXPECT_EQ(page->activeName(), "-");
  EXPECT_EQ(page->field->text(), "");
}

TEST_F(ListPageTest, AListThatIsFilledAnewHasTheOrderThatItsHeaderShows) {
  page->view->setHeaderSorts(true);
  page->view->header()->setSortIndicator(0, Qt::AscendingOrder);
  page->fillList();
  EXPECT_EQ(rowsAsText(page->view->rows()), "Level\nRate\nSpeed\nTop speed\n");
}

TEST_F(ListPageTest, TypingMarksOnce) {
  type(*page->field, "ab");
  EXPECT_EQ(recorder.take(), Events{"Things.OnChange()"});
  page->announceApplied();
  type(*page->field, "c");
  EXPECT_EQ(recorder.take(), (Events{"Things.OnSave(false)", "Things.OnChange()"}));
}

TEST_F(ListPageTest, NothingIsMarkedWithoutAnItem) {
  page->dropActive();
  type(*page->field, "ab");
  page->SetChanged(ListPage::Deleted);
  EXPECT_TRUE(recorder.take().empty());
}

TEST_F(ListPageTest, AnotherRowIsShownAfterTheQuestion) {
  type(*page->field, "x");
  clickRow(*page->view, 1);
  EXPECT_EQ(recorder.take(), (Events{"Things.OnChange()", "asked for Speed"}));
  EXPECT_EQ(page->field->text(), "Rate!");
  EXPECT_EQ(page->things[0]->note, "Speed!");
}

TEST_F(ListPageTest, AClickOnTheSameRowAsksAndShowsTheItemAgain) {
  type(*page->field, "x");
  page->takesOver = false;
  clickRow(*page->view, 0);
  EXPECT_EQ(recorder.take(), (Events{"Things.OnChange()", "asked for Speed"}));
  EXPECT_EQ(page->field->text(), "Speed!");
}

TEST_F(ListPageTest, ByKeyboardTheQuestionComesToo) {
  page->takesOver = true;
  retype(*page->field, "new");
  press(*page->view, Qt::Key_Down);
  EXPECT_EQ(recorder.take(), (Events{"Things.OnChange()", "asked for Speed"}));
  EXPECT_EQ(page->activeName(), "Rate");
  EXPECT_EQ(page->things[0]->note, "new");
}

TEST_F(ListPageTest, TheKeysOfThePageWorkInItsFields) {
  page->field->setFocus();
  press(*page->field, Qt::Key_Z, Qt::ControlModifier);
  press(*page->field, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(recorder.take(), (Events{"cancel", "save"}));
}

TEST_F(ListPageTest, AFieldUndoesNothingByItselfWhileThePageHasNothingToUndo) {
  type(*page->field, "x");
  const QString typed = page->field->text();
  page->mayCancel = false;
  page->table->refresh();
  press(*page->field, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(page->field->text(), typed);
}

TEST_F(ListPageTest, FindAsksOnceAndIsRepeatedByItsKey) {
  person.expectInput({"T/find", "Find", "Find what:", ""}, "SPEED");
  press(*page->view, Qt::Key_F3);
  EXPECT_EQ(page->activeName(), "Top speed");
  press(*page->view, Qt::Key_F3);
  EXPECT_EQ(page->activeName(), "Speed");
  person.expectInput({"T/find", "Find", "Find what:", "SPEED"}, "level");
  press(*page->field, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(page->activeName(), "Level");
  person.expectInput({"T/find", "Find", "Find what:", "level"}, "");
  page->FindItem("");
  EXPECT_EQ(page->activeName(), "Level");
  EXPECT_TRUE(person.allAsked());
}

TEST_F(ListPageTest, SelectWhereTakesJustTheseRows) {
  page->selectWhere([&](RowTag tag) { return static_cast<Thing*>(tag)->name.size() == 5; });
  std::vector<std::string> names;
  for (const RowTag tag : page->view->selectedTags())
    names.push_back(static_cast<Thing*>(tag)->name);
  EXPECT_EQ(names, (std::vector<std::string>{"Speed", "Level"}));
}

TEST_F(ListPageTest, ANewRowIsShownAndItsNameIsBeingTyped) {
  Thing& added = page->add("New");
  page->addRow(&added);
  EXPECT_EQ(page->activeName(), "New");
  EXPECT_EQ(page->info->text(), "5 thing(s)");
  auto* editor = page->view->viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_TRUE(editor->hasFocus());
  QTest::keyClicks(editor, "Flow");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return added.name == "Flow"; }));
}

TEST_F(ListPageTest, TheMenuBelongsToTheRowUnderThePointer) {
  clickRow(*page->view, 2, 0, Qt::NoModifier, Qt::RightButton);
  const QPoint where = page->view->visualRect(page->view->model()->index(2, 0)).center();
  QContextMenuEvent ask(QContextMenuEvent::Mouse, where,
                        page->view->viewport()->mapToGlobal(where));
  QApplication::sendEvent(page->view->viewport(), &ask);
  auto* menu = page->view->findChild<QMenu*>("popup");
  ASSERT_TRUE(menu);
  menu->actions().constFirst()->trigger();
  menu->close();
  EXPECT_EQ(recorder.take(), Events{"chosen Top speed"});
}

TEST_F(ListPageTest, TextThatMayNotBeDroppedIsRefused) {
  std::vector<std::string> dropped;
  new TextDrag(
      *page->view, [] { return std::string(); },
      [](std::string_view text) { return looksLikeFragment(text, "Things"); },
      [&](const std::string& text) { dropped.push_back(text); });
  const auto drop = [&](const QMimeData& data) {
    QWidget* target = page->view->viewport();
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
    QTest::qWait(1);
    return event.isAccepted();
  };
  QMimeData foreign, ours, file;
  foreign.setText("<Others/>");
  ours.setText("\r\n <Things><a/></Things>\n");
  file.setUrls({QUrl::fromLocalFile("/tmp/<Things>Things>")});
  EXPECT_FALSE(drop(foreign));
  EXPECT_FALSE(drop(file));
  EXPECT_TRUE(drop(ours));
  EXPECT_EQ(dropped, Events{"\r\n <Things><a/></Things>\n"});
}

TEST(LooksLikeFragment, TellsByBothEnds) {
  EXPECT_TRUE(looksLikeFragment(" <Requests Endian=\"Big\"></Requests>\n", "Requests"));
  EXPECT_TRUE(looksLikeFragment("<Requests></x:Requests>", "Requests"));
  EXPECT_FALSE(looksLikeFragment("<Requests/>", "Requests"));
  EXPECT_FALSE(looksLikeFragment("", "Requests"));
  EXPECT_FALSE(looksLikeFragment(" \n", "Requests"));
}

} // namespace
