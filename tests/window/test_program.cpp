// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/twin_window.h"

#include <QLineEdit>
#include <QTest>

namespace kelmar {

using namespace outside;

TEST(Program, HelpAndVersionNeedNoDisplay) {
  const QProcessEnvironment bare = environmentWithout({"DISPLAY", "QT_QPA_PLATFORM"});
  Program help({"--help"}, bare);
  ASSERT_TRUE(help.ended());
  EXPECT_EQ(help.exitCode(), 0);
  EXPECT_NE(help.output().find("Usage: kelmar"), std::string::npos);
  EXPECT_EQ(help.errors(), "");
  Program version({"--version"}, bare);
  ASSERT_TRUE(version.ended());
  EXPECT_EQ(version.exitCode(), 0);
  EXPECT_EQ(version.output(),
            std::string("kelmar ") + applicationVersion + "\n" + applicationCopyright + "\n");
}

TEST(Program, WrongOptionEndsWithTwo) {
  Program program({"--nothing"});
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 2);
  EXPECT_EQ(program.errors(), "kelmar: unknown option --nothing\nTry 'kelmar --help'.\n");
}

TEST(Program, SaysThatThereIsNoDisplay) {
  Program program({}, environmentWithout({"DISPLAY", "QT_QPA_PLATFORM"}));
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_EQ(program.errors(),
            "kelmar: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set\n");
}

TEST(Program, SaysThatTheDisplayCannotBeReached) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", ":9999");
  Program program({}, environment);
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_NE(program.errors().find("kelmar: the display cannot be used"), std::string::npos);
}

TEST(Program, MissingLanguageFileIsToldAndEndsWithOne) {
  const support::TempFolder empty;
  Program program({"--site", QString::fromStdString(empty.path().string())});
  const QString box = windowWith("Kelmar");
  focus(box);
  press("Return");
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_EQ(program.errors(), "kelmar: Unable to read language file : " + empty.path().string() +
                                  "/lang/KelmarX.xml\n");
}

TEST(Program, EndsAfterItsFirstPaintWhenItIsMeasured) {
  const support::SmallSite site;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("KELMAR_EXIT_AFTER_PAINT", "1");
  Program program(onSite(site), environment);
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.errors(), "");
}

TEST(Program, OpensEditsSavesAndTheFileReadsBack) {
  const support::SmallSite site;
  const QPoint nameField = TwinWindow(site, site.engine()).placeOf({"TxEcuName"});
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("KELMAR_CLOCK", "2026-01-02T03:04");
  Program program(onSite(site, {QString::fromStdString(site.engine())}), environment);
  const QString window = windowWith(captionOf("Engine"));
  focus(window);
  clickAt(window, nameField);
  press("ctrl+a");
  xdotool({"type", "--delay", "20", "Engine two"});
  press("ctrl+s");
  EXPECT_TRUE(support::waitUntil([&] { return nameIn(site.engine()) == "Engine two"; }, patience));
  EXPECT_NE(support::bytesOf(site.engine()).find("date=\"2026-01-02T03:04\""), std::string::npos);
  press("ctrl+q");
  ASSERT_TRUE(program.ended());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.errors(), "");
}

TEST(Program, OpensAFileThatIsMissingWithABox) {
  const support::SmallSite site;
  Program program(onSite(site, {QString::fromStdString(site.file("missing.xml"))}));
  windowWith(captionOfNothing);
  const QString box = windowWith("Open Ecu file error");
  focus(box);
  press("Return");
  EXPECT_TRUE(support::waitUntil([&] { return windowsWith("Open Ecu file error").isEmpty(); }));
  EXPECT_TRUE(program.running());
}

TEST(Program, FurtherInstanceStandsSixteenPixelsAway) {
  const support::SmallSite site;
  Program program(onSite(site, {"600,450"}));
  const QString first = windowWith(captionOfNothing);
  focus(first);
  press("alt+f"); // opens the menu on its first entry
  press("Return");
  ASSERT_TRUE(
      support::waitUntil([&] { return windowsWith(captionOfNothing).size() == 2; }, patience));
  QStringList both = windowsWith(captionOfNothing);
  both.removeAll(first);
  ASSERT_EQ(both.size(), 1);
  const QString second = both.front();
  EXPECT_TRUE(support::waitUntil([&] {
    return placeOf(second) - placeOf(first) == QPoint(16, 16);
  })) << placeOf(first).x()
      << "," << placeOf(first).y() << " and " << placeOf(second).x() << "," << placeOf(second).y();
  focus(second);
  press("ctrl+q");
  EXPECT_TRUE(
      support::waitUntil([&] { return windowsWith(captionOfNothing).size() == 1; }, patience));
  EXPECT_TRUE(program.running());
}

} // namespace kelmar
