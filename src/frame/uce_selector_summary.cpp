// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/rules/ecu_summary.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

namespace kelmar {

using desktop::qs;
using desktop::u8;

void UceSelector::Parts::showSummary() {
  if (!database) return;
  const std::optional<EcuSummary> summary = summaryOf(*database);
  if (!summary) return;
  const EditState::Loading loading = edits.load();
  TxEcuName->setText(qs(summary->TxEcuName));
  txGenericName->setText(qs(summary->txGenericName));
  TextAdresse->setText(qs(summary->TextAdresse));
  TextLogicalAdresse->setText(qs(summary->TextLogicalAdresse));
  TextFunction->setText(qs(summary->TextFunction));
  TextProtocole->setText(qs(summary->TextProtocole));
}

void UceSelector::Parts::clearSummary() {
  const EditState::Loading loading = edits.load();
  for (QLineEdit* field :
       {TextFunction, TxEcuName, txGenericName, TextAdresse, TextLogicalAdresse, TextProtocole})
    field->clear();
  TxEcuDesc->clear();
  lbFileName->clear();
  edits.clear();
}

void UceSelector::Parts::takeOverNames() {
  if (!database || !target() || !edits.changed()) return;
  changes.setName(*database, u8(TxEcuName->text()));
  changes.setGroup(*database, u8(txGenericName->text()));
}

void UceSelector::Parts::readProjects() {
  projects = {};
  if (const auto codes = projectCodes(ecuSelector1->projectsFile(), machine.fetch))
    projects = ProjectList(allProjects, *codes);
  const QScopedValueRollback updating(projectsUpdating, true);
  lstProjects->clear();
  for (const ProjectList::Entry& entry : projects.entries()) {
    auto* item = new QListWidgetItem(qs(entry.text), lstProjects);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
  }
  state.projectsKnown = projects.entries().size() > 1;
}

void UceSelector::Parts::showProjects() {
  projects.show(target() ? target()->Projects : ProjectNames());
  fillProjectMarks();
}

void UceSelector::Parts::fillProjectMarks() {
  const QScopedValueRollback updating(projectsUpdating, true);
  for (int row = 0; row < lstProjects->count(); ++row)
    lstProjects->item(row)->setCheckState(
        projects.entries().at(static_cast<std::size_t>(row)).marked ? Qt::Checked : Qt::Unchecked);
}

void UceSelector::Parts::projectMarked(int row) {
  if (projectsUpdating || !target()) return;
  projects.mark(static_cast<std::size_t>(row), lstProjects->item(row)->checkState() == Qt::Checked);
  fillProjectMarks();
  changes.setProjects(*database, projects);
  emit page.OnChange();
}

} // namespace kelmar
