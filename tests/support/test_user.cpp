// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/user.h"

#include <QDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace kelmar::support;

namespace {

class UserTest : public testing::Test {
 protected:
  QWidget window;
  QLineEdit* field = new QLineEdit;
  QPushButton* button = new QPushButton("Go");
  QListWidget* list = new QListWidget;
  int clicks = 0;

  void SetUp() override {
    auto* layout = new QVBoxLayout(&window);
    field->setObjectName("TxEcuName");
    button->setObjectName("cmdGo");
    list->setObjectName("lstProjects");
    for (int row = 0; row < 100; ++row)
      list->addItem(QString::number(row));
    for (QWidget* widget :
         {static_cast<QWidget*>(field), static_cast<QWidget*>(button), static_cast<QWidget*>(list)})
      layout->addWidget(widget);
    QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
    showToUser(window);
  }
};

TEST_F(UserTest, RunsOnARealXServer) {
  EXPECT_EQ(QGuiApplication::platformName(), "xcb");
}

TEST_F(UserTest, FindsControlsByNameAndType) {
  EXPECT_EQ(&control<QLineEdit>(window, "TxEcuName"), field);
  EXPECT_EQ(&usable<QPushButton>(window, "cmdGo"), button);
  EXPECT_THROW(control<QLineEdit>(window, "absent"), std::runtime_error);
  EXPECT_THROW(control<QLineEdit>(window, "cmdGo"), std::runtime_error);
  QWidget twin(&window);
  twin.setObjectName("cmdGo");
  EXPECT_THROW(control<QPushButton>(window, "cmdGo"), std::runtime_error);
}

TEST_F(UserTest, UsesNothingThatIsDisabledOrHidden) {
  click(*button);
  EXPECT_EQ(clicks, 1);
  button->setEnabled(false);
  EXPECT_THROW(usable<QPushButton>(window, "cmdGo"), std::runtime_error);
  EXPECT_THROW(click(*button), std::runtime_error);
  field->hide();
  EXPECT_THROW(type(*field, "a"), std::runtime_error);
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserTest, TypesAnyCharacter) {
  type(*field, "Calculateur é € <");
  EXPECT_EQ(field->text(), "Calculateur é € <");
  retype(*field, "New");
  EXPECT_EQ(field->text(), "New");
  retype(*field, "");
  EXPECT_EQ(field->text(), "");
  EXPECT_TRUE(field->isModified());
}

TEST_F(UserTest, ClicksRowsThatAreOutOfSight) {
  clickRow(*list, 90);
  EXPECT_EQ(list->currentRow(), 90);
  EXPECT_THROW(clickRow(*list, 100), std::runtime_error);
}

TEST_F(UserTest, WaitsWithinBounds) {
  EXPECT_FALSE(waitUntil([] { return false; }, 50));
  QTimer::singleShot(30, [this] { ++clicks; });
  EXPECT_TRUE(waitUntil([this] { return clicks == 1; }));
}

TEST_F(UserTest, AnswersADialogAndMissesOneThatDoesNotCome) {
  {
    const WhenDialogOpens user([](QDialog& dialog) { dialog.accept(); });
    QDialog dialog(&window);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
  }
  EXPECT_NONFATAL_FAILURE({ const WhenDialogOpens user([](QDialog&) {}); }, "no dialog opened");
}

TEST_F(UserTest, AFailureInsideADialogEndsIt) {
  QDialog dialog(&window);
  int result = QDialog::Accepted;
  EXPECT_NONFATAL_FAILURE(
      {
        const WhenDialogOpens user([](QDialog& open) { control<QLineEdit>(open, "absent"); });
        result = dialog.exec();
      },
      "there is no control absent");
  EXPECT_EQ(result, QDialog::Rejected);
}

} // namespace
