// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_person.h"
#include "desktop/platform_texts.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace kelmar;
using namespace kelmar::support;
using platform::Answer;
using platform::Box;
using platform::Buttons;
using platform::FileQuestion;
using platform::Icon;

namespace {

class DesktopPerson : public testing::Test {
 protected:
  desktop::DesktopPerson person{desktop::DesktopPerson::FileDialogs::Own};
  TempFolder folder;

  static QMessageBox& asBox(QDialog& dialog) { return dynamic_cast<QMessageBox&>(dialog); }

  Answer answered(Buttons buttons, const std::function<void(QMessageBox&)>& act) {
    const WhenDialogOpens user([&](QDialog& dialog) { act(asBox(dialog)); });
    return person.message({"A/key", "Title", "Text", buttons, Icon::Question});
  }

  /// Types a name into the file dialog and presses its first button.
  static void nameFile(QDialog& dialog, const std::string& name) {
    retype(control<QLineEdit>(dialog, "fileNameEdit"), QString::fromStdString(name));
    if (QWidget* completions = QApplication::activePopupWidget()) completions->close();
    accept(dialog);
  }
  static void accept(QDialog& dialog) { click(acceptButton(dialog)); }
  static QAbstractButton& acceptButton(QDialog& dialog) {
    auto& buttons = control<QDialogButtonBox>(dialog, "buttonBox");
    for (QAbstractButton* button : buttons.buttons())
      if (buttons.buttonRole(button) == QDialogButtonBox::AcceptRole) return *button;
    throw std::runtime_error("no button to accept the file");
  }

  /// The dialog that has the input now.
  static QWidget* activeDialog() {
    QWidget* top = QApplication::activeModalWidget();
    return top && top->isActiveWindow() ? top : nullptr;
  }

  FileQuestion question(FileQuestion::Kind kind, std::string proposal = {}) {
    return {kind, "Save ECU", "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*", ".xml",
            std::move(proposal)};
  }
};

TEST_F(DesktopPerson, ABoxShowsTitleTextAndIconAsTheyStand) {
  const WhenDialogOpens user([](QDialog& dialog) {
    QMessageBox& box = asBox(dialog);
    EXPECT_EQ(box.objectName(), "messageBox");
    EXPECT_EQ(box.property("key").toString(), "SELECTOR/MSG/fileIsProtected/text");
    EXPECT_EQ(box.windowTitle(), "Save error");
    EXPECT_EQ(box.text(), "File : <b>é & è\n\nError : line 2\nline 3");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_EQ(box.buttons().size(), 1);
    keepPicture(box, "message_box");
    click(control<QPushButton>(box, "buttonOk"));
  });
  EXPECT_EQ(person.message({"SELECTOR/MSG/fileIsProtected/text", "Save error",
                            "File : <b>é & è\r\n\r\nError : line 2\rline 3", Buttons::Ok,
                            Icon::Exclamation}),
            Answer::Ok);
}

TEST_F(DesktopPerson, NoHourglassStandsOverAQuestion) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  QGuiApplication::setOverrideCursor(Qt::BusyCursor);
  const WhenDialogOpens user([](QDialog& dialog) {
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    click(control<QPushButton>(dialog, "buttonOk"));
  });
  person.message({"key", "Title", "Text", Buttons::Ok, Icon::Information});
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
  QGuiApplication::restoreOverrideCursor();
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QGuiApplication::restoreOverrideCursor();
}

TEST_F(DesktopPerson, EachIconIsShown) {
  for (const auto& [icon, shown] : {std::pair(Icon::None, QMessageBox::NoIcon),
                                    std::pair(Icon::Critical, QMessageBox::Critical),
                                    std::pair(Icon::Question, QMessageBox::Question),
                                    std::pair(Icon::Information, QMessageBox::Information)}) {
    const WhenDialogOpens user([shown = shown](QDialog& dialog) {
      EXPECT_EQ(asBox(dialog).icon(), shown);
      dialog.reject();
    });
    person.message({"", "T", "t", Buttons::Ok, icon});
  }
}

TEST_F(DesktopPerson, EveryButtonGivesItsAnswer) {
  const auto pressing = [](const char* name) {
    return [name](QMessageBox& box) { click(usable<QPushButton>(box, name)); };
  };
  EXPECT_EQ(answered(Buttons::OkCancel, pressing("buttonOk")), Answer::Ok);
  EXPECT_EQ(answered(Buttons::OkCancel, pressing("buttonCancel")), Answer::Cancel);
  EXPECT_EQ(answered(Buttons::YesNo, pressing("buttonYes")), Answer::Yes);
  EXPECT_EQ(answered(Buttons::YesNo, pressing("buttonNo")), Answer::No);
  EXPECT_EQ(answered(Buttons::YesNoCancel, pressing("buttonYes")), Answer::Yes);
  EXPECT_EQ(answered(Buttons::YesNoCancel, pressing("buttonNo")), Answer::No);
  EXPECT_EQ(answered(Buttons::YesNoCancel, pressing("buttonCancel")), Answer::Cancel);
}

TEST_F(DesktopPerson, EnterPressesTheFirstButton) {
  const auto enter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
  EXPECT_EQ(answered(Buttons::Ok, enter), Answer::Ok);
  EXPECT_EQ(answered(Buttons::OkCancel, enter), Answer::Ok);
  EXPECT_EQ(answered(Buttons::YesNo, enter), Answer::Yes);
  EXPECT_EQ(answered(Buttons::YesNoCancel, enter), Answer::Yes);
}

TEST_F(DesktopPerson, EscapeAndClosingDropTheQuestion) {
  const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
  const auto close = [](QMessageBox& box) { box.close(); };
  for (const std::function<void(QMessageBox&)>& leave :
       {std::function<void(QMessageBox&)>(escape), std::function<void(QMessageBox&)>(close)}) {
    EXPECT_EQ(answered(Buttons::Ok, leave), Answer::Ok);
    EXPECT_EQ(answered(Buttons::OkCancel, leave), Answer::Cancel);
    EXPECT_EQ(answered(Buttons::YesNo, leave), Answer::No);
    EXPECT_EQ(answered(Buttons::YesNoCancel, leave), Answer::Cancel);
  }
}

TEST_F(DesktopPerson, AVeryLongTextStaysOnTheScreen) {
  std::string text;
  for (int line = 1; line <= 300; ++line)
    text += "line " + std::to_string(line) + "\r\n";
  const WhenDialogOpens user([](QDialog& dialog) {
    QMessageBox& box = asBox(dialog);
    EXPECT_LT(box.height(), 700);
    EXPECT_TRUE(box.text().startsWith("line 1\n"));
    EXPECT_TRUE(box.detailedText().contains("line 300"));
    dialog.reject();
  });
  person.message({"", "Report", text, Buttons::Ok, Icon::Information});
}

TEST_F(DesktopPerson, AVeryLongLineStaysOnTheScreen) {
  const WhenDialogOpens user([](QDialog& dialog) {
    QMessageBox& box = asBox(dialog);
    EXPECT_LT(box.height(), 700);
    EXPECT_TRUE(box.text().startsWith("Data name 'nnn"));
    EXPECT_TRUE(box.text().endsWith(QChar(0x2026) + QStringLiteral("\nend")));
    EXPECT_TRUE(box.detailedText().startsWith("Data name 'nnn"));
    EXPECT_GT(box.detailedText().size(), 50'000);
    EXPECT_LE(box.detailedText().size(), 100'000);
    dialog.reject();
  });
  person.message({"", "Warning", "Data name '" + std::string(5'000'000, 'n') + "' too long.\r\nend",
                  Buttons::Ok, Icon::Exclamation});
}

TEST_F(DesktopPerson, ABoxIsModalToTheActiveWindow) {
  QMainWindow window;
  showToUser(window);
  answered(Buttons::Ok, [&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &window);
    box.reject();
  });
}

TEST_F(DesktopPerson, ButtonsSpeakTheLanguageOfTheProgram) {
  desktop::translatePlatformTexts("fr");
  answered(Buttons::YesNoCancel, [](QMessageBox& box) {
    EXPECT_EQ(control<QPushButton>(box, "buttonYes").text(), "&Oui");
    EXPECT_EQ(control<QPushButton>(box, "buttonCancel").text(), "Annuler");
    box.reject();
  });
  desktop::translatePlatformTexts("en");
  answered(Buttons::YesNo, [](QMessageBox& box) {
    EXPECT_EQ(control<QPushButton>(box, "buttonYes").text(), "&Yes");
    box.reject();
  });
  desktop::translatePlatformTexts("xx");
}

TEST(NameFilters, TakeTheFormOfTheFileDialog) {
  EXPECT_EQ(desktop::nameFilters("Ecu Files (*.xml)|*.xml|All files (*.*)|*.*"),
            QStringList({"Ecu Files (*.xml)", "All files (*)"}));
  EXPECT_EQ(desktop::nameFilters("Pictures|*.png; *.jpg"), QStringList({"Pictures (*.png *.jpg)"}));
  EXPECT_EQ(desktop::nameFilters("Files (old)(*.a)|*.a"), QStringList({"Files (old) (*.a)"}));
  EXPECT_TRUE(desktop::nameFilters("").isEmpty());
  EXPECT_TRUE(desktop::nameFilters("half").isEmpty());
}

TEST_F(DesktopPerson, OpeningGivesTheAbsolutePathOfAFileThatIsThere) {
  const std::string file = folder.write("engine é.xml", "<a/>");
  const WhenDialogOpens user([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "fileDialog");
    EXPECT_EQ(dialog.windowTitle(), "Open database");
    const auto& files = dynamic_cast<QFileDialog&>(dialog);
    EXPECT_EQ(files.nameFilters(), QStringList({"Ecu Files (*.xml)", "All files (*)"}));
    EXPECT_EQ(files.selectedNameFilter(), "Ecu Files (*.xml)");
    keepPicture(dialog, "file_dialog");
    nameFile(dialog, file);
  });
  FileQuestion open = question(FileQuestion::Kind::Open);
  open.title = "Open database";
  EXPECT_EQ(person.file(open), file);
}

TEST_F(DesktopPerson, OpeningAMissingFileIsRefusedByTheDialog) {
  const WhenDialogOpens user([&](QDialog& dialog) {
    retype(control<QLineEdit>(dialog, "fileNameEdit"),
           QString::fromStdString(folder.file("absent.xml")));
    EXPECT_FALSE(acceptButton(dialog).isEnabled());
    dialog.reject();
  });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Open)), std::nullopt);
}

TEST_F(DesktopPerson, SavingAddsTheExtensionThatIsMissing) {
  const WhenDialogOpens user([&](QDialog& dialog) { nameFile(dialog, folder.file("engine")); });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), folder.file("engine.xml"));
}

TEST_F(DesktopPerson, SavingAddsTheExtensionBehindANameWithAPoint) {
  folder.write("ABS_V1.2.xml", "<a/>");
  const WhenDialogOpens user([&](QDialog& dialog) { nameFile(dialog, folder.file("ABS_V1.2")); });
  QTimer asked;
  std::string text;
  QObject::connect(&asked, &QTimer::timeout, [&] {
    if (auto* box = qobject_cast<QMessageBox*>(activeDialog())) {
      text = box->text().toStdString();
      click(control<QPushButton>(*box, "buttonYes"));
    }
  });
  asked.start(30);
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), folder.file("ABS_V1.2.xml"));
  EXPECT_EQ(text, "ABS_V1.2.xml already exists.\nDo you want to replace it?");
}

TEST_F(DesktopPerson, SavingKeepsAnExtensionThatFitsTheFilter) {
  {
    const WhenDialogOpens user(
        [&](QDialog& dialog) { nameFile(dialog, folder.file("engine.XML")); });
    EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), folder.file("engine.XML"));
  }
  const WhenDialogOpens user([&](QDialog& dialog) {
    dynamic_cast<QFileDialog&>(dialog).selectNameFilter("All files (*)");
    nameFile(dialog, folder.file("engine.txt"));
  });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), folder.file("engine.txt"));
}

TEST_F(DesktopPerson, AProposedPathIsThereToBeAccepted) {
  const WhenDialogOpens user([&](QDialog& dialog) {
    EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit").text(), "engine.xml");
    accept(dialog);
  });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save, folder.file("engine.xml"))),
            folder.file("engine.xml"));
}

TEST_F(DesktopPerson, AProposedNameOpensInTheFolderOfTheLastAnswer) {
  {
    const WhenDialogOpens user([&](QDialog& dialog) { nameFile(dialog, folder.file("one.xml")); });
    person.file(question(FileQuestion::Kind::Save));
  }
  const WhenDialogOpens user([&](QDialog& dialog) { accept(dialog); });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save, "New_ECU")), folder.file("New_ECU.xml"));
}

TEST_F(DesktopPerson, OverwritingIsAskedForTheNameWithItsExtension) {
  folder.write("engine.xml", "<a/>");
  const WhenDialogOpens user([&](QDialog& dialog) { nameFile(dialog, folder.file("engine")); });
  // The dialog has closed for the moment when the question stands.
  QTimer asked;
  std::vector<std::string> texts;
  QObject::connect(&asked, &QTimer::timeout, [&] {
    if (auto* box = qobject_cast<QMessageBox*>(activeDialog())) {
      texts.push_back(box->objectName().toStdString() + ": " + box->text().toStdString());
      click(control<QPushButton>(*box, "buttonYes"));
    }
  });
  asked.start(30);
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), folder.file("engine.xml"));
  EXPECT_EQ(texts, std::vector<std::string>{
                       "overwriteBox: engine.xml already exists.\nDo you want to replace it?"});
}

TEST_F(DesktopPerson, NoToOverwritingLeadsBackToTheDialog) {
  folder.write("engine.xml", "<a/>");
  int dialogs = 0, boxes = 0;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    QWidget* top = activeDialog();
    if (auto* box = qobject_cast<QMessageBox*>(top)) {
      ++boxes;
      QTest::keyClick(box, Qt::Key_Return); // the careful button is the default one
    } else if (auto* dialog = qobject_cast<QFileDialog*>(top)) {
      if (++dialogs == 1)
        nameFile(*dialog, folder.file("engine.xml"));
      else
        dialog->reject();
    }
  });
  user.start(50);
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), std::nullopt);
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(dialogs, 2);
}

TEST_F(DesktopPerson, SavingIntoAMissingFolderIsRefused) {
  std::string text;
  QTimer user;
  int dialogs = 0;
  QObject::connect(&user, &QTimer::timeout, [&] {
    QWidget* top = activeDialog();
    if (auto* box = qobject_cast<QMessageBox*>(top)) {
      text = box->text().toStdString();
      click(control<QPushButton>(*box, "buttonOk"));
    } else if (auto* dialog = qobject_cast<QFileDialog*>(top)) {
      if (++dialogs == 1)
        nameFile(*dialog, folder.file("absent/engine.xml"));
      else
        dialog->reject();
    }
  });
  user.start(50);
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save)), std::nullopt);
  EXPECT_NE(text.find("Directory not found"), std::string::npos) << text;
}

TEST_F(DesktopPerson, AFolderIsChosen) {
  std::filesystem::create_directory(folder.path() / "site");
  const WhenDialogOpens user([&](QDialog& dialog) { accept(dialog); });
  FileQuestion wanted;
  wanted.kind = FileQuestion::Kind::Folder;
  wanted.title = "Choose a folder";
  wanted.proposal = folder.file("site");
  EXPECT_EQ(person.file(wanted), folder.file("site"));
}

TEST_F(DesktopPerson, CancellingAFileQuestionGivesNone) {
  const WhenDialogOpens user([&](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_EQ(person.file(question(FileQuestion::Kind::Save, "x")), std::nullopt);
}

} // namespace
