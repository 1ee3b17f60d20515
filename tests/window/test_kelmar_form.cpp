// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/kelmar_form.h"

#include "base/failure.h"
#include "base/version.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/small_site.h"
#include "support/user.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace kelmar {

namespace {

using Lines = std::vector<std::string>;

/// Takes the addresses that would go to whatever the desktop has for them.
class NotedAddresses : public QObject {
  Q_OBJECT

 public:
  NotedAddresses() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "opened"); }
  ~NotedAddresses() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  Lines addresses;

 public slots:
  void opened(const QUrl& address) { addresses.push_back(address.toString().toStdString()); }
};

class Form : public testing::Test {
 protected:
  Form() {
    start.site = site.root();
    start.language = "en";
    start.systemFile = site.file("site.conf");
    ::setenv("BROWSER", "browse", 1);
  }
  ~Form() override { ::unsetenv("BROWSER"); }

  void configure(const std::string& lines) { site.folder().write("site.conf", lines); }
  void make() {
    siteSettings = std::make_unique<platform::SiteSettings>(start);
    form = std::make_unique<KelmarForm>(
        KelmarForm::Machine{person, settings, processes, *siteSettings, nullptr, &clock},
        KelmarForm::Program{"/opt/kelmar", {"--lang=en"}});
  }
  void run(const std::string& commandString = {}) {
    make();
    form->start(commandString);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
  }
  std::string caption() { return form->windowTitle().toStdString(); }
  QAction& action(const char* name) {
    QAction* found = form->findChild<QAction*>(QLatin1String(name));
    if (!found) throw std::runtime_error(std::string("there is no menu entry ") + name);
    return *found;
  }
  /// Path of the data root as it stands in addresses.
  std::string rootAddress() { return "file://" + site.root(); }

  support::SmallSite site;
  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::NotedProcesses processes;
  support::FixedClock clock;
  platform::SiteStart start;
  std::unique_ptr<platform::SiteSettings> siteSettings;
  std::unique_ptr<KelmarForm> form;
};

/// Light on a dark ground, as a desktop may have it.
QPalette darkPalette() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    dark.setColor(role, Qt::white);
  dark.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  dark.setColor(QPalette::Link, QColor(88, 166, 255));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
  return dark;
}

double brightness(const QColor& colour) {
  return 0.299 * colour.redF() + 0.587 * colour.greenF() + 0.114 * colour.blueF();
}

std::string shape(const QMenu& menu) {
  std::string line = menu.objectName().toStdString() + " '" + menu.title().toStdString() + "':";
  for (const QAction* entry : menu.actions())
    line += " " + entry->objectName().toStdString() +
            (entry->isSeparator() ? "" : " '" + entry->text().toStdString() + "'");
  return line;
}

std::string menusOf(KelmarForm& form) {
  std::string lines;
  for (const QAction* top : form.menuBar()->actions())
    lines += shape(*top->menu<QMenu*>()) + "\n";
  return lines;
}

} // namespace

TEST_F(Form, MenusHoldWhatCanBeDone) {
  run();
  EXPECT_EQ(menusOf(*form),
            "mnuFile '&File': mnuFileStartNewApp 'Start a new Kelmar instance' mnuFileSep "
            "mnuFileQuit '&Quit'\n"
            "mnuTools '&Tools': mnuToolsCalc '&Calculator'\n"
            "mnuHelp '&?': mnuHelpAbout '&About'\n");
}

TEST_F(Form, MenusSpeakTheLanguageOfTheStart) {
  start.language = "fr";
  run();
  EXPECT_EQ(menusOf(*form),
            "mnuFile '&Fichier': mnuFileStartNewApp 'Start a new Kelmar instance' mnuFileSep "
            "mnuFileQuit '&Quitter'\n"
            "mnuTools '&Outils': mnuToolsCalc '&Calculator'\n"
            "mnuHelp '&?': mnuHelpAbout '&About'\n");
  form->editor().setLang("en");
  EXPECT_EQ(form->findChild<QMenu*>("mnuFile")->title().toStdString(), "&Fichier");
}

TEST_F(Form, MenusAreEnabledAtTheEndOfTheStart) {
  make();
  EXPECT_EQ(caption(), "Kelmar Xml");
  for (const char* name : {"mnuFile", "mnuTools", "mnuHelp"})
    EXPECT_FALSE(form->findChild<QMenu*>(name)->isEnabled()) << name;
  form->start("");
  for (const char* name : {"mnuFile", "mnuTools", "mnuHelp"})
    EXPECT_TRUE(form->findChild<QMenu*>(name)->isEnabled()) << name;
}

TEST_F(Form, CaptionHoldsTheVersionAndThenTheEcu) {
  run();
  EXPECT_EQ(caption(), std::string("Kelmar Xml - v") + applicationVersion);
  form->openFile(site.engine());
  EXPECT_EQ(caption(), std::string("Kelmar Xml v") + applicationVersion + ": Engine");
}

TEST_F(Form, EditorIsGivenItsSettings) {
  configure("intranetServer = http://intra.example\nsiteKey = K1\n");
  start.language = "fr";
  run();
  EXPECT_EQ(form->editor().BaseUrl(), "http://intra.example/Omnikor");
  EXPECT_EQ(form->editor().XmlSchemaTarget(), ecuSchemaUri);
  EXPECT_EQ(form->editor().XmlSchemaScreen(), screenSchemaUri);
  EXPECT_EQ(form->editor().SiteKey(), "K1");
  EXPECT_EQ(form->editor().lang(), "fr");
}

TEST_F(Form, RemoteServerNeedsAnAddressOfAFile) {
  configure("remoteServer = http://remote.example\n");
  run();
  EXPECT_EQ(form->editor().RemoteDataServer(), "");
  form.reset();
  start.site = "FILE://" + site.root();
  run();
  EXPECT_EQ(form->editor().RemoteDataServer(), "http://remote.example");
}

TEST_F(Form, RemoteServerIsUsedWhenItIsToBeUsedAndNotOverridden) {
  configure("remoteServer = http://remote.example\nuseRemote = true\n");
  run();
  EXPECT_EQ(form->editor().RemoteDataServer(), "http://remote.example");
  form.reset();
  configure("remoteServer = http://remote.example\nuseRemote = true\nremoteOverride = x\n");
  run();
  EXPECT_EQ(form->editor().RemoteDataServer(), "");
}

TEST_F(Form, StartStopsWithoutTheLanguageFileOfTheWindow) {
  start.site = site.file("vehicles");
  make();
  try {
    form->start("");
    FAIL() << "nothing was raised";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, 1);
    EXPECT_EQ(failure.text,
              "Unable to read language file : " + site.file("vehicles") + "/lang/KelmarX.xml");
  }
  EXPECT_FALSE(form->isVisible());
}

TEST_F(Form, FillsNineTenthsOfTheWorkArea) {
  run();
  const QSize work = QGuiApplication::primaryScreen()->availableSize();
  EXPECT_EQ(form->width(), std::max(800, static_cast<int>(work.width() * 15 * 0.9) / 15));
  EXPECT_EQ(form->height(), std::max(600, static_cast<int>(work.height() * 15 * 0.9) / 15));
  EXPECT_EQ(form->editor().size(), form->centralWidget()->size());
}

TEST_F(Form, GoesWhereTheCommandStringSays) {
  run("1500,900");
  ASSERT_TRUE(support::waitUntil([this] { return form->pos() == QPoint(100, 60); }))
      << form->pos().x() << "," << form->pos().y();
}

TEST_F(Form, IsCentredForAnythingElseThanAPair) {
  const QSize work = QGuiApplication::primaryScreen()->availableSize();
  const int left = qRound(work.width() * 0.05);
  for (const char* text : {"", "100", "1,2,3", "abc,200", "-5,200", "99999,200"}) {
    run(text);
    EXPECT_TRUE(support::waitUntil([&] { return std::abs(form->pos().x() - left) <= 1; }))
        << text << ": " << form->pos().x();
    form.reset();
  }
}

TEST_F(Form, IsNeverSmallerThanItsSmallestSize) {
  run();
  form->resize(100, 100);
  EXPECT_TRUE(support::waitUntil([this] { return form->size() == QSize(800, 600); }));
}

TEST_F(Form, StartsAFurtherInstanceSixteenPixelsAway) {
  run("1500,900");
  ASSERT_TRUE(support::waitUntil([this] { return form->pos() == QPoint(100, 60); }));
  action("mnuFileStartNewApp").trigger();
  EXPECT_EQ(processes.started, (Lines{"/opt/kelmar --lang=en 1740,1140"}));
}

TEST_F(Form, QuitClosesWithoutAQuestion) {
  run();
  form->openFile(site.engine());
  emit form->editor().selector().OnChange();
  action("mnuFileQuit").trigger();
  EXPECT_FALSE(form->isVisible());
}

TEST_F(Form, CalculatorIsStartedAndItsFailureIsIgnored) {
  run();
  action("mnuToolsCalc").trigger();
  ASSERT_EQ(processes.started.size(), 1u);
  processes.succeeds = false;
  action("mnuToolsCalc").trigger();
  EXPECT_GT(processes.started.size(), 2u);
}

TEST_F(Form, AboutTellsVersionAndCopyright) {
  run();
  person.expect("GENERIC/about/text", "Omnikor Kelmar",
                std::string("Version: ") + applicationVersion +
                    "\r\n\r\nCopyright: " + applicationCopyright,
                platform::Buttons::Ok, platform::Icon::None, platform::Answer::Ok);
  action("mnuHelpAbout").trigger();
}

TEST_F(Form, AboutSpeaksTheLanguageOfTheWindow) {
  start.language = "fr";
  run();
  person.expect("GENERIC/about/text", "À propos de Kelmar",
                std::string("Version : ") + applicationVersion +
                    "\r\n\r\nDroits : " + applicationCopyright,
                platform::Buttons::Ok, platform::Icon::None, platform::Answer::Ok);
  action("mnuHelpAbout").trigger();
}

TEST_F(Form, EventsCountWithoutRegardToCase) {
  run();
  form->ObjectEvent("DATABASECHANGED", {{"anything", "Pump"}});
  EXPECT_EQ(caption(), std::string("Kelmar Xml v") + applicationVersion + ": Pump");
  form->ObjectEvent("DatabaseChanged", {});
  EXPECT_EQ(caption(), std::string("Kelmar Xml v") + applicationVersion + ": Pump");
}

TEST_F(Form, UnknownEventIsShown) {
  run();
  person.expect("", "Kelmar Xml", "Something", platform::Buttons::Ok, platform::Icon::None,
                platform::Answer::Ok);
  form->ObjectEvent("Something", {{"a", "b"}});
}

TEST_F(Form, HelpOfAFunctionGoesToTheBrowser) {
  run();
  form->ObjectEvent("help", {{"helpModule", "selector"}, {"helpFunction", "open"}});
  EXPECT_EQ(processes.started,
            (Lines{"browse " + rootAddress() + "/doc/kelmar/en/selector.htm#open"}));
}

TEST_F(Form, HelpOfAModuleGoesToTheDesktop) {
  const NotedAddresses noted;
  run();
  form->ObjectEvent("help", {{"helpModule", "selector"}, {"helpFunction", ""}});
  EXPECT_EQ(processes.started, Lines{});
  EXPECT_EQ(noted.addresses, (Lines{rootAddress() + "/doc/kelmar/en/selector.htm"}));
}

TEST_F(Form, HelpWithoutModuleDoesNothing) {
  run();
  form->ObjectEvent("help", {{"helpFunction", "open"}});
  EXPECT_EQ(processes.started, Lines{});
}

TEST_F(Form, HelpThatIsMissingInTheLanguageIsShownInFrench) {
  run();
  form->ObjectEvent("help", {{"helpModule", "saving"}, {"helpFunction", "backup"}});
  EXPECT_EQ(processes.started,
            (Lines{"browse " + rootAddress() + "/doc/kelmar/fr/saving.htm#backup"}));
}

TEST_F(Form, HelpThatIsNotThereInFrenchEitherIsShownInEnglish) {
  site.folder().write("doc/kelmar/en/data.htm", "<html><body id=\"list\">Help</body></html>");
  for (const char* language : {"fr", "de"}) {
    start.language = language;
    processes.started.clear();
    run();
    form->ObjectEvent("help", {{"helpModule", "data"}, {"helpFunction", "list"}});
    EXPECT_EQ(processes.started,
              (Lines{"browse " + rootAddress() + "/doc/kelmar/en/data.htm#list"}))
        << language;
  }
}

TEST_F(Form, HelpThatIsMissingEverywhereIsSilent) {
  run();
  form->ObjectEvent("help", {{"helpModule", "nothing"}, {"helpFunction", "x"}});
  EXPECT_EQ(processes.started, Lines{});
}

TEST_F(Form, HelpThatCannotBeStartedIsTriedInFrench) {
  processes.succeeds = false;
  NotedAddresses noted;
  run();
  form->ObjectEvent("help", {{"helpModule", "selector"}, {"helpFunction", "open"}});
  ASSERT_FALSE(processes.started.empty());
  EXPECT_EQ(processes.started.front(),
            "browse " + rootAddress() + "/doc/kelmar/en/selector.htm#open");
}

TEST_F(Form, F1OnTheFirstPageOpensItsHelp) {
  NotedAddresses noted;
  run();
  form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  support::press(support::control<QWidget>(*form, "UceSelector1"), Qt::Key_F1);
  const Lines all = [&] {
    Lines lines = noted.addresses;
    lines.insert(lines.end(), processes.started.begin(), processes.started.end());
    return lines;
  }();
  ASSERT_EQ(all.size(), 1u);
  EXPECT_NE(all.front().find(rootAddress() + "/doc/kelmar/en/selector.htm"), std::string::npos)
      << all.front();
}

TEST_F(Form, CheckReportOpensAtTheEcu) {
  run();
  form->ObjectEvent("checkdatabase", {{"uceXml", "/ecus/a b.xml"}});
  EXPECT_EQ(processes.started,
            (Lines{"browse " + rootAddress() + "/report/showEcus.htm#ecus/a%20b.xml"}));
}

TEST_F(Form, FileThatCannotBeOpenedIsTold) {
  run();
  const std::string missing = site.file("missing.xml");
  std::string reason;
  try {
    form->editor().selector().OpenEcuFile(missing);
  } catch (const Failure& failure) {
    reason = failure.text;
  }
  ASSERT_NE(reason, "");
  person.expect("SELECTOR/MSG/OpenEcuFile/text", "Open Ecu file error",
                "File : " + missing + "\r\n\r\nError : " + reason, platform::Buttons::Ok,
                platform::Icon::Critical, platform::Answer::Ok);
  form->openFile(missing);
}

TEST_F(Form, CanBeUsedAtTheSmallestSize) {
  run();
  form->openFile(site.engine());
  form->resize(800, 600);
  ASSERT_TRUE(support::waitUntil([this] { return form->size() == QSize(800, 600); }));
  for (QWidget* control : form->findChildren<QWidget*>()) {
    if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus ||
        control->objectName().startsWith(QLatin1String("qt_")))
      continue;
    const QRect place(control->mapTo(form.get(), QPoint()), control->size());
    EXPECT_TRUE(form->rect().contains(place)) << control->objectName().toStdString();
  }
  support::keepPicture(*form, QStringLiteral("smallest"));
}

TEST_F(Form, TextsCanBeReadOnADarkGround) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(darkPalette());
  run();
  form->openFile(site.engine());
  QCoreApplication::processEvents();
  int seen = 0;
  for (const QWidget* control : form->findChildren<QWidget*>()) {
    if (!control->isVisible() || !control->isEnabled()) continue;
    const QPalette& palette = control->palette();
    EXPECT_GT(std::abs(brightness(palette.color(control->foregroundRole())) -
                       brightness(palette.color(control->backgroundRole()))),
              0.3)
        << control->objectName().toStdString();
    ++seen;
  }
  EXPECT_GT(seen, 20);
  support::keepPicture(*form, QStringLiteral("dark"));
  QApplication::setPalette(before);
}

// The site of this source tree, in both languages.
TEST_F(Form, DemonstrationSiteOpensInEnglishAndFrench) {
  for (const char* language : {"en", "fr"}) {
    start.site = KELMAR_SITE;
    start.language = language;
    run();
    const std::string ecu = std::string(KELMAR_SITE) + "/vehicles/Bellorme Célestine/Moteur/"
                                                       "Moteur_essence_1l2.xml";
    form->openFile(ecu);
    EXPECT_TRUE(form->editor().databaseLoaded()) << language;
    EXPECT_TRUE(support::control<QTabBar>(*form, "TabStripPrincipal").isEnabled()) << language;
    QTest::qWait(50);
    support::keepPicture(*form, QStringLiteral("site-") + QLatin1String(language));
    form.reset();
  }
}

} // namespace kelmar

#include "test_kelmar_form.moc"
