// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/report_list.h"
#include "frame/rules/permanent_link.h"
#include "frame/rules/selector_texts.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "frame/uctl_new_ecu_addr.h"
#include "language/multi_lang.h"
#include "platform/recent_entries.h"
#include "platform/site_settings.h"

#include <QLineEdit>

namespace kelmar {

using desktop::qs;
using desktop::u8;

void UceSelector::Parts::saveEcu(bool saveAs) {
  if (!target()) return;
  const std::string name = CleanSpaces(u8(TxEcuName->text()));
  if (name.empty()) {
    machine.person.message(
        {"SELECTOR/MSG/SaveEcu/text",
         texts().getMultilangMessageDefault("User Error", "SELECTOR/MSG/SaveEcu/title"),
         texts().getMultilangMessageDefault("Error : Enter a valid ECU name",
                                            "SELECTOR/MSG/SaveEcu/text"),
         platform::Buttons::Ok, platform::Icon::Exclamation});
    TxEcuName->setFocus();
    return;
  }
  {
    const EditState::Loading loading = edits.load();
    TxEcuName->setText(qs(name));
    txGenericName->setText(qs(CleanSpaces(u8(txGenericName->text()))));
  }
  changes.setName(*database, name);
  changes.setGroup(*database, u8(txGenericName->text()));
  if (page.saveFile(saveAs)) emit page.OnSave();
}

bool UceSelector::saveFile(bool saveAs) {
  Parts& parts = *parts_;
  if (!parts.target()) return false;
  const EcuSaving saving(parts.machine.person, parts.texts());
  if (!saving.mayBeSaved(*parts.database)) return false;
  // Whoever asks for the save, also another page: what is typed here belongs to the ECU.
  parts.takeOverNames();
  if (parts.fileName.empty() || saveAs) {
    const std::optional<std::string> file = saving.askForFile(parts.fileName, *parts.target());
    if (!file) return false;
    parts.fileName = *file;
    parts.lbFileName->setText(qs(fileLabel(parts.texts(), *file)));
  }
  parts.useSite();
  if (!saving.write(*parts.database, parts.fileName)) return false;
  platform::AddRecentEntry(parts.machine.settings, "RecentFile", parts.fileName);
  parts.edits.clear();
  parts.changes.forget();
  // An empty name was not taken over.
  if (CleanSpaces(u8(parts.TxEcuName->text())).empty()) parts.showSummary();
  parts.state.itemsNotKept = false;
  parts.applyState();
  return true;
}

void UceSelector::saveBackupFile() {
  Parts& parts = *parts_;
  if (parts.backupTaken || parts.fileName.empty()) return;
  // One backup an opening: it holds the file as it was before the first change. What fails is not
  // tried again, as the file may have been saved by then.
  copyToBackup(parts.fileName);
  parts.backupTaken = true;
}

void UceSelector::Parts::cancelEdits() {
  if (!target() || !state.edited) return;
  changes.takeBack(*database);
  edits.clear();
  showSummary();
  showProjects();
  state.changingFunction = false;
  applyState();
  emit page.OnCancel();
}

void UceSelector::Parts::newEcu() {
  if (!database) return;
  if (page.saveNeed && target() && !page.saveFile(false)) return;
  emit page.OnNewECU();
  database->ClearTarget();
  database->forgetReport();
  changes.forget();
  clearSummary();
  {
    const EditState::Loading loading = edits.load();
    // Not translated: the first tab knows a new ECU by this name.
    TxEcuName->setText(QStringLiteral("New ECU"));
    txGenericName->clear();
  }
  state = {.creating = true, .projectsKnown = state.projectsKnown};
  showProjects();
  applyState();
  UctlNewEcuAddr1->setFocus();
  UctlNewEcuAddr1->ReadAddressingFile(ecuSelector1->addressingFile());
}

void UceSelector::Parts::copyPermanentLink() {
  if (!target()) return;
  CECUpermalink link([this]() -> std::optional<std::string> {
    return machine.site ? machine.site->ZEM_RemoteDataServer() : std::nullopt;
  });
  link.createPermanentLinkForECUFile(target()->Href());
  desktop::setClipboardText(link.permaLink());
  machine.person.message(
      {"SELECTOR/MSG/PERMANENT_LINK/text",
       texts().getMultilangMessageDefault("Information", "SELECTOR/MSG/PERMANENT_LINK/title"),
       texts().getMultilangMessageDefault(
           "Intranet permanent link has been copied into the clipboard",
           "SELECTOR/MSG/PERMANENT_LINK/text"),
       platform::Buttons::Ok, platform::Icon::Information});
}

void UceSelector::Parts::showReport() {
  if (!database) return;
  auto* list = new ReportList(database->report(), &page);
  list->setAttribute(Qt::WA_DeleteOnClose);
  list->open();
}

void UceSelector::Parts::showHiddenFunction() {
  machine.person.message(
      {"SELECTOR/MSG/hiddenFunction/text",
       texts().getMultilangMessageDefault("Kelmar hidden function",
                                          "SELECTOR/MSG/hiddenFunction/title"),
       hiddenFunctionText(texts(), {OmnikorLibXml::Version(), page.BaseUrl, page.xmlStyleSheet,
                                    page.XmlSchemaTarget, page.XmlSchemaScreen}),
       platform::Buttons::Ok, platform::Icon::Information});
}

} // namespace kelmar
