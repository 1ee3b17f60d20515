// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/uce_selector.h"

#include "base/failure.h"
#include "controls/command_table.h"
#include "controls/silence_children.h"
#include "desktop/dropped_file.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/rules/selector_recent_menu.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "frame/uctl_new_ecu_addr.h"
#include "language/error_box.h"
#include "language/multi_lang.h"
#include "platform/site_settings.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QSplitter>
#include <QTimer>

#include <algorithm>

namespace kelmar {

using desktop::qs;
using desktop::u8;

UceSelector::UceSelector(Machine machine, QWidget* parent)
    : QWidget(parent), parts_(std::make_unique<Parts>(*this, machine)) {
  parts_->database = std::make_shared<OmnikorLibXml>(
      OmnikorLibXml::Machine{machine.fetch, &machine.person, machine.clock},
      machine.site ? machine.site->CurrentLanguage() : "en");
  setAcceptDrops(true);
  parts_->makeControls();
  parts_->makeCommands();
  parts_->layOut();
  parts_->fillProtocols();
  parts_->connectControls();
  parts_->applyState();
}

UceSelector::~UceSelector() {
  silenceChildren(*this);
  if (parts_->database) parts_->database->ClearTarget();
}

const CMultiLangEx& UceSelector::Parts::texts() const {
  return language::global();
}

void UceSelector::Parts::guarded(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    ShowErrorBox(machine.person, texts(), failure);
  }
}

const std::shared_ptr<OmnikorLibXml>& UceSelector::database() const {
  return parts_->database;
}

void UceSelector::setDatabase(std::shared_ptr<OmnikorLibXml> database) {
  parts_->database = std::move(database);
  parts_->useSite();
}

const std::string& UceSelector::fileName() const {
  return parts_->fileName;
}
const std::string& UceSelector::url() const {
  return parts_->url;
}
std::string UceSelector::selectionLabel() const {
  return parts_->ecuSelector1->selectionLabel();
}
const std::string& UceSelector::lang() const {
  return parts_->lang;
}

void UceSelector::setLang(const std::string& lang) {
  parts_->lang = lang;
  parts_->ecuSelector1->setLang(lang);
  if (!parts_->initialised) return;
  parts_->translate();
  parts_->UctlNewEcuAddr1->InitControl();
  parts_->applyState();
}

void UceSelector::InitParameters(const std::string& basePath, const std::string& parametersFile) {
  Parts& parts = *parts_;
  parts.initialised = true;
  parts.translate();
  parts.lbFileName->clear();
  if (!basePath.empty()) parts.basePath = basePath;
  if (!parametersFile.empty()) parts.parametersFile = parametersFile;
  parts.ecuSelector1->setLang(parts.lang);
  parts.ecuSelector1->setRemoteDataServer(RemoteDataServer);
  parts.ecuSelector1->initialise(parts.basePath, parts.parametersFile, SiteKey);
  parts.dataSetLabel = selectionLabel();
  parts.useSite();
  parts.UctlNewEcuAddr1->InitControl();
  InitMenu();
  parts.readProjects();
  parts.showProjects();
  parts.applyState();
}

void UceSelector::displayDatas() {
  parts_->showSummary();
  parts_->showProjects();
  parts_->applyState();
}

void UceSelector::InitMenu() {
  // What follows the first two entries is made anew.
  std::vector<MenuEntry> entries = {
      {"Open", u8(parts_->commands->dropDown("Open").actions().constFirst()->text())},
      {.key = {}, .text = {}, .kind = MenuEntry::Kind::Separator}};
  for (const RecentFileEntry& recent : recentFileEntries(parts_->machine.settings))
    entries.push_back({.key = recent.key, .text = recent.text, .literal = true});
  parts_->commands->setDropDown("Open", entries);
}

void UceSelector::SizeControls() {
  const int all = parts_->splitter->width();
  parts_->splitter->setSizes({all * 2 / 5, all - all * 2 / 5});
}

void UceSelector::showUpdateCheckBase(bool visible) {
  parts_->pbUpdateCheckBase->setValue(0);
  parts_->tbUpdateCheckBase->setVisible(visible);
  parts_->pbUpdateCheckBase->setVisible(visible);
}

void UceSelector::setUpdateCheckBaseProgress(int percent) {
  QProgressBar& bar = *parts_->pbUpdateCheckBase;
  if (percent >= 100)
    bar.setValue(bar.maximum());
  else if (percent >= 1)
    bar.setValue(percent);
  else
    bar.setValue(std::min(bar.value() + 1, 100));
}

void UceSelector::dragEnterEvent(QDragEnterEvent* event) {
  if (!parts_->state.creating && desktop::firstDroppedFile(event->mimeData()))
    event->acceptProposedAction();
}

void UceSelector::dropEvent(QDropEvent* event) {
  const std::optional<std::string> file = desktop::firstDroppedFile(event->mimeData());
  if (!file || parts_->state.creating) return;
  event->acceptProposedAction();
  // The program that the file came from waits for the end of the drop: no question before that.
  QTimer::singleShot(0, this, [this, path = *file] { parts_->openDropped(path); });
}

} // namespace kelmar
