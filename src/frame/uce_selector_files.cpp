// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/rules/selector_load_report.h"
#include "frame/rules/selector_texts.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "language/multi_lang.h"
#include "platform/recent_entries.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace kelmar {

using desktop::qs;

namespace {

constexpr int notWanted = 2; // the person did not want to open a file of the sibling tool

class Hourglass {
 public:
  Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Hourglass() { QApplication::restoreOverrideCursor(); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace

void UceSelector::Parts::useSite() {
  if (!database) return;
  if (const std::string encoding = ecuSelector1->xmlEncoding(); !encoding.empty())
    database->xmlEncoding = encoding;
  if (ecuSelector1->hasXmlStyleSheet()) database->xmlStyleSheet = ecuSelector1->xmlStyleSheet();
}

void UceSelector::OpenEcuFile(const std::string& file) {
  Parts& parts = *parts_;
  if (!parts.load(file)) return;
  parts.readProjects();
  parts.showProjects();
  if (isRemoteAddress(file))
    parts.url = file;
  else
    platform::AddRecentEntry(parts.machine.settings, "RecentFile", file);
  parts.opened(file);
}

void UceSelector::openTold(const std::string& file) {
  try {
    OpenEcuFile(file);
  } catch (const Failure& failure) {
    parts_->tellOpenError(file, failure);
  }
}

bool UceSelector::Parts::mayReplaceEcu() {
  bool mayGoOn = true;
  emit page.CheckIfSaveNeeded(mayGoOn);
  return mayGoOn;
}

bool UceSelector::Parts::load(const std::string& file) {
  if (!database)
    throw Failure(1, "UceSelector",
                  "Internal error : object OmnikorLibXml not created, Omnikor please contact "
                  "hotline");
  // Whatever the load gives, the ECU that was shown is gone.
  state = {.projectsKnown = state.projectsKnown};
  edits.clear();
  changes.forget();
  applyState();
  emit page.UceSelected(false);
  database->functions = std::make_shared<FunctionItems>();
  database->forgetReport();
  try {
    database->ImportUceFromXml(file);
    return true;
  } catch (const Failure& failure) {
    // What a failed load left is no ECU to work on, and never one to be saved.
    database->ClearTarget();
    fileName.clear();
    clearSummary();
    showProjects();
    applyState();
    if (failure.number != notWanted) throw;
    return false;
  }
}

void UceSelector::Parts::opened(const std::string& address) {
  // Only what came from a local path can be saved without asking where to.
  if (isRemoteAddress(address)) {
    fileName.clear();
    lbFileName->setText(qs(remoteFileLabel(ecuSelector1->selectionLabel(), address)));
  } else {
    fileName = address;
    lbFileName->setText(qs(fileLabel(texts(), address)));
  }
  state.httpAddress = isHttpAddress(address);
  backupTaken = false;
  state.ecuOpen = true;
  state.itemsNotKept = !database->report().empty();
  if (target()) target()->ValueChanged = false;
  emit page.UceSelected(true);
  showSummary();
  cbFunctionsName->clear();
  applyState();
  // The name could not keep the focus while there was no ECU.
  if (framSummary->isAncestorOf(page.focusWidget())) TxEcuName->setFocus();
}

void UceSelector::Parts::openAsked() {
  if (!database) {
    machine.person.message(
        {"SELECTOR/MSG/NoDatabase/text",
         texts().getMultilangMessageDefault("Contact hotline", "SELECTOR/MSG/NoDatabase/title"),
         texts().getMultilangMessageDefault(
             "Internal error : object OmnikorLibXml not created, Omnikor please contact hotline",
             "SELECTOR/MSG/NoDatabase/text"),
         platform::Buttons::Ok, platform::Icon::Critical});
    return;
  }
  if (!mayReplaceEcu()) return;
  const std::optional<std::string> file = machine.person.file(
      {platform::FileQuestion::Kind::Open,
       texts().getMultilangMessageDefault("Open database", "SELECTOR/MSG/OpenEcuFile/dialog"),
       texts().getMultilangMessageDefault("Ecu Files (*.xml)|*.xml|All files (*.*)|*.*",
                                          "SELECTOR/MSG/OpenEcuFile/filter"),
       ".xml",
       {}});
  if (file) page.openTold(*file);
}

void UceSelector::Parts::openDropped(const std::string& file) {
  // A drop replaces the open ECU like any other opening, so unsaved work is asked about here too.
  if (mayReplaceEcu()) page.openTold(file);
}

void UceSelector::Parts::openRecent(const std::string& file) {
  if (!mayReplaceEcu()) return;
  try {
    page.OpenEcuFile(file);
  } catch (const Failure& failure) {
    std::string text = texts().getMultilangMessageDefault(
        "Error : {0}", "SELECTOR/MSG/OpenRecentFile/text", failure.text);
    if (database && !database->report().empty())
      text += "\r\n\r\n" + loadReportText(texts(), database->report());
    machine.person.message({"SELECTOR/MSG/OpenRecentFile/text",
                            texts().getMultilangMessageDefault("Open Ecu file error",
                                                               "SELECTOR/MSG/OpenRecentFile/title"),
                            text, platform::Buttons::Ok, platform::Icon::Critical});
  }
}

void UceSelector::Parts::openFromTree(const std::string& address) {
  if (!mayReplaceEcu()) return;
  try {
    const Hourglass waiting;
    url = address;
    if (!load(address)) return;
    opened(address);
    showProjects();
  } catch (const Failure& failure) {
    tellOpenError(address, failure);
  }
}

void UceSelector::Parts::tellOpenError(const std::string& file, const Failure& failure) {
  std::string text = texts().getMultilangMessageDefault(
      "File : {0}{crlf}{crlf}Error : {1}", "SELECTOR/MSG/OpenEcuFile/text", file, failure.text);
  // What a failed load had to leave out tells the person why it failed.
  if (database && !database->report().empty())
    text += "\r\n\r\n" + loadReportText(texts(), database->report());
  machine.person.message(
      {"SELECTOR/MSG/OpenEcuFile/text",
       texts().getMultilangMessageDefault("Open Ecu file error", "SELECTOR/MSG/OpenEcuFile/title"),
       text, platform::Buttons::Ok, platform::Icon::Critical});
}

void UceSelector::Parts::showSelection() {
  TxEcuDesc->setPlainText(
      qs(selectionText(texts(), ecuSelector1->currentAddress(), ecuSelector1->description())));
  txdFunc->setText(QString::number(ecuSelector1->functionAddress()));
}

} // namespace kelmar
