// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/kelmar_form.h"

#include "base/text.h"
#include "base/version.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/rules/page_address.h"
#include "platform/files.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include <vector>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

constexpr double windowRatio = 0.9; // of the work area
constexpr char parametersFile[] = "parameters.xml";

frame::Extent inTwips(const QRect& pixels) {
  return {static_cast<double>(pixels.width()) * frame::twipsPerPixel,
          static_cast<double>(pixels.height()) * frame::twipsPerPixel};
}

int inPixels(double twips) {
  return qRound(twips / frame::twipsPerPixel);
}

QAction* entry(QMenu& menu, const char* name, const char* caption) {
  QAction* action = menu.addAction(QString::fromLatin1(caption));
  action->setObjectName(QString::fromLatin1(name));
  return action;
}

QMenu* menuNamed(QMenuBar& bar, const char* name, const char* caption) {
  QMenu* menu = bar.addMenu(QString::fromLatin1(caption));
  menu->setObjectName(QString::fromLatin1(name));
  return menu;
}

/// The value by name; empty without one.
std::string valueOf(const KelmarForm::Parameters& parameters, std::string_view name) {
  for (const auto& [key, value] : parameters)
    if (key == name) return value;
  return {};
}

} // namespace

KelmarForm::KelmarForm(Machine machine, Program program, const omnikorEditor::PageMakers& pages)
    : machine_(machine), program_(std::move(program)), texts_(&machine.site, machine.fetch),
      programs_(machine.processes) {
  setObjectName(QStringLiteral("KelmarForm"));
  setWindowTitle(QStringLiteral("Kelmar Xml"));
  makeMenus();
  ctlOmnikor = new omnikorEditor(
      {machine_.person, machine_.settings, &machine_.site, machine_.fetch, machine_.clock}, pages,
      this);
  setCentralWidget(ctlOmnikor);
  connect(ctlOmnikor, &omnikorEditor::DatabaseChanged, this, [this](const std::string& name) {
    ObjectEvent("DatabaseChanged", {{"ecuName", name}});
  });
  connect(ctlOmnikor, &omnikorEditor::checkdatabase, this, [this](const std::string& uceXml) {
    ObjectEvent("checkdatabase", {{"uceXml", uceXml}});
  });
  connect(ctlOmnikor, &omnikorEditor::help, this,
          [this](const std::string& module, const std::string& function) {
            ObjectEvent("help", {{"helpModule", module}, {"helpFunction", function}});
          });
}

void KelmarForm::start(const std::string& commandString) {
  const frame::RequestedPosition wanted = frame::requestedPosition(
      commandString, inTwips(QGuiApplication::primaryScreen()->geometry()));
  dataRoot_ = machine_.site.DataRoot();
  currentLanguage_ = machine_.site.CurrentLanguage();
  texts_.initLanguage(dataRoot_, currentLanguage_, "lang", "KelmarX.xml");
  browserCommand_ = programs_.browserCommand();
  desktop::TranslateControl(*this, texts_, "MAIN/CONTROLS");

  const std::string server = machine_.site.IntranetServerRoot();
  ctlOmnikor->setBaseUrl((server.empty() ? defaultIntranetServer : server) + "/Omnikor");
  ctlOmnikor->setXmlSchemaTarget(ecuSchemaUri);
  ctlOmnikor->setXmlSchemaScreen(screenSchemaUri);
  ctlOmnikor->setLang(currentLanguage_);
  ctlOmnikor->setSiteKey(machine_.site.SiteKey());
  std::string remote = machine_.site.RemoteServerName();
  if (machine_.site.UseRemoteFlag() ? !machine_.site.RemoteOverride().empty()
                                    : !startsWithFolded(dataRoot_, "file:"))
    remote.clear();
  if (!remote.empty()) ctlOmnikor->setRemoteDataServer(remote);
  SetMenusEnabled(true);

  ctlOmnikor->InitParameters(dataRoot_, parametersFile);
  place(wanted);
  setWindowTitle(qs("Kelmar Xml - v" + omnikorEditor::GetVersion()));
  show();
}

void KelmarForm::openFile(const std::string& file) {
  ctlOmnikor->selector().openTold(file);
}

// The entries of the checks come with the checks.
void KelmarForm::makeMenus() {
  mnuFile = menuNamed(*menuBar(), "mnuFile", "&File");
  connect(entry(*mnuFile, "mnuFileStartNewApp", "Start a new Kelmar instance"), &QAction::triggered,
          this, [this] { startNewApp(); });
  mnuFile->addSeparator()->setObjectName(QStringLiteral("mnuFileSep"));
  QAction* quit = entry(*mnuFile, "mnuFileQuit", "&Quit");
  quit->setShortcut(QKeySequence::Quit);
  quit->setMenuRole(QAction::QuitRole);
  connect(quit, &QAction::triggered, this, &QWidget::close);

  mnuTools = menuNamed(*menuBar(), "mnuTools", "&Tools");
  connect(entry(*mnuTools, "mnuToolsCalc", "&Calculator"), &QAction::triggered, this,
          [this] { programs_.startCalculator(); });

  mnuHelp = menuNamed(*menuBar(), "mnuHelp", "&?");
  connect(entry(*mnuHelp, "mnuHelpAbout", "&About"), &QAction::triggered, this,
          [this] { showAbout(); });
  SetMenusEnabled(false);
}

void KelmarForm::SetMenusEnabled(bool enabled) {
  for (QMenu* menu : {mnuFile, mnuTools, mnuHelp})
    menu->setEnabled(enabled);
}

void KelmarForm::place(frame::RequestedPosition wanted) {
  setMinimumSize(inPixels(frame::smallestWidth), inPixels(frame::smallestHeight));
  const QScreen& screen = *QGuiApplication::primaryScreen();
  const QRect work = screen.availableGeometry();
  const frame::Placement at = frame::PlaceWindow(
      inTwips(screen.geometry()), work.isEmpty() ? std::nullopt : std::optional(inTwips(work)),
      windowRatio, windowRatio, wanted.left, wanted.top);
  resize(inPixels(at.width), inPixels(at.height));
  move(inPixels(at.left), inPixels(at.top));
}

void KelmarForm::startNewApp() {
  std::vector<std::string> arguments = program_.arguments;
  arguments.push_back(frame::positionOfNextWindow(pos().x() * frame::twipsPerPixel,
                                                  pos().y() * frame::twipsPerPixel));
  machine_.processes.start(program_.path, arguments);
}

void KelmarForm::showAbout() {
  machine_.person.message(
      {"GENERIC/about/text",
       texts_.getMultilangMessageDefault("Omnikor Kelmar", "GENERIC/about/title"),
       texts_.getMultilangMessageDefault("Version: {0}{\\n}{\\n}Copyright: {1}",
                                         "GENERIC/about/text", omnikorEditor::GetVersion(),
                                         applicationCopyright),
       platform::Buttons::Ok, platform::Icon::None});
}

void KelmarForm::ObjectEvent(const std::string& name, const Parameters& parameters) {
  const std::string folded = lowerCase(name);
  if (folded == "databasechanged") {
    if (!parameters.empty())
      setWindowTitle(
          qs("Kelmar Xml v" + omnikorEditor::GetVersion() + ": " + parameters.front().second));
  } else if (folded == "checkdatabase") {
    showCheckReport(valueOf(parameters, "uceXml"));
  } else if (folded == "help") {
    showHelp(valueOf(parameters, "helpModule"), valueOf(parameters, "helpFunction"));
  } else {
    machine_.person.message({"", "Kelmar Xml", name});
  }
}

std::string KelmarForm::rootForAddresses() const {
  return frame::isLocalPath(dataRoot_) ? frame::pathForUrl(dataRoot_) : dataRoot_;
}

void KelmarForm::showCheckReport(const std::string& uceXml) {
  const std::string ecu = frame::isLocalPath(uceXml) ? frame::pathForUrl(uceXml) : uceXml;
  programs_.openPage(frame::checkReportAddress(rootForAddresses(), ecu), browserCommand_);
}

bool KelmarForm::helpPageIsMissing(const std::string& language,
                                   const std::string& helpModule) const {
  const std::string root = platform::localPathOf(dataRoot_);
  return !root.empty() && frame::isLocalPath(root) &&
         !platform::fileExists(root + "/doc/kelmar/" + language + "/" + helpModule + ".htm");
}

// A browser starts just as well for a page that is not there, so what the disk tells is asked
// first.
void KelmarForm::showHelp(const std::string& helpModule, const std::string& helpFunction) {
  if (helpModule.empty()) return;
  const std::string command = helpFunction.empty() ? std::string() : browserCommand_;
  // The French page stands in for one that is not there, and the English one for both: those who
  // write the pages begin with English.
  std::vector<std::string> languages{currentLanguage_};
  for (const char* other : {"fr", "en"})
    if (currentLanguage_ != other) languages.emplace_back(other);
  for (const std::string& language : languages)
    if (!helpPageIsMissing(language, helpModule) &&
        programs_.openPage(
            frame::helpAddress(rootForAddresses(), language, helpModule, helpFunction), command))
      return;
}

} // namespace kelmar
