// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "controls/command_table.h"
#include "desktop/edit_style.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/rules/selector_load_report.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "frame/uctl_new_ecu_addr.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace kelmar {

using desktop::qs;
using desktop::u8;

void UceSelector::Parts::makeCommands() {
  const auto usable = [this] { return controlsFor(state).TBtoolbar; };
  const auto withEcu = [this] { return controlsFor(state).save; };
  const auto withEdits = [this] { return controlsFor(state).cancel; };
  std::vector<Command> table(5);

  table[0] = {.key = "Open",
              .toolTip = "Open an ECU file",
              .icon = "open",
              .run = [this] { guarded([this] { openAsked(); }); },
              .enabled = usable,
              .shortcuts = {QKeySequence::Open},
              .caption = "Open",
              .dropDown = {{"Open", "Open..."}},
              .chosen =
                  [this](const MenuEntry& entry) {
                    if (entry.key == "Open")
                      guarded([this] { openAsked(); });
                    else
                      guarded([this, file = entry.text] { openRecent(file); });
                  }};
  table[1] = {.key = "Save",
              .toolTip = "Save the ECU file",
              .icon = "save",
              .run = [this] { guarded([this] { saveEcu(false); }); },
              .enabled = withEcu,
              .shortcuts = {QKeySequence::Save},
              .caption = "Save",
              .dropDown = {{"save", "Save"}, {"saveas", "Save as..."}},
              .chosen =
                  [this](const MenuEntry& entry) {
                    guarded([this, saveAs = entry.key == "saveas"] { saveEcu(saveAs); });
                  }};
  table[2] = {.key = "cancel",
              .toolTip = "Drop the changes of the summary",
              .icon = "cancel",
              .run = [this] { guarded([this] { cancelEdits(); }); },
              .enabled = withEdits,
              .shortcuts = {},
              .caption = "Cancel"};
  table[3] = {.key = "new",
              .toolTip = "Create a new ECU",
              .icon = "new",
              .run = [this] { guarded([this] { newEcu(); }); },
              .enabled = usable,
              .shortcuts = {QKeySequence::New},
              .caption = "New"};
  // Has no button: it is the shortcut of the entry below `Save`.
  table[4] = {.key = "saveasShortcut",
              .toolTip = "Save under a new name",
              .icon = "saveas",
              .run = [this] { guarded([this] { saveEcu(true); }); },
              .enabled = withEcu,
              .shortcuts = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}};
  commands = new CommandTable(&page, std::move(table));
  commands->fillToolBar(*TBtoolbar, {"Open", "Save", "cancel", "new"});

  ppChangeFct = new QMenu(&page);
  ppChangeFct->setObjectName(QStringLiteral("ppChangeFct"));
  auto* change = ppChangeFct->addAction(QStringLiteral("Change function"));
  change->setObjectName(QStringLiteral("ppChangeFunction"));
  connect(change, &QAction::triggered, &page, [this] { guarded([this] { askFunction(); }); });
}

void UceSelector::Parts::connectControls() {
  connect(&page, &UceSelector::OnChange, &page, [this] { applyState(); });
  for (QLineEdit* field : {TxEcuName, txGenericName}) {
    connect(field, &QLineEdit::textEdited, &page, [this] {
      // While a new ECU is made there is nothing yet that could have changed.
      if (target()) edits.change();
    });
    connect(field, &QLineEdit::editingFinished, &page, [this, field] {
      const EditState::Loading loading = edits.load();
      field->setText(qs(CleanSpaces(u8(field->text()))));
      takeOverNames();
    });
  }
  desktop::SetEditNumeric(*txdFunc);
  desktop::SetEditNumeric(*txdDiag);
  for (QLineEdit* field : {txdSup, txdSoft, txdVers})
    desktop::SetEditUppercase(*field);
  for (QLineEdit* field : {txdFunc, txdDiag, txdSup, txdSoft, txdVers})
    connect(field, &QLineEdit::returnPressed, cbDetect, &QPushButton::click);
  connect(cbDetect, &QPushButton::clicked, &page, [this] { guarded([this] { detect(); }); });

  connect(LabelFunction, &MenuLabel::menuAsked, &page, [this](const QPoint& where) {
    if (target()) ppChangeFct->popup(where);
  });
  connect(cbFunctionsName, &QComboBox::currentIndexChanged, &page, [this] { applyState(); });
  connect(cmdChangeFunctionOK, &QPushButton::clicked, &page,
          [this] { guarded([this] { changeFunction(); }); });
  connect(cmdChangeFunctionCancel, &QPushButton::clicked, &page,
          [this] { cancelChangeFunction(); });
  connect(cmdLinkNewPDM, &QToolButton::clicked, &page,
          [this] { guarded([this] { copyPermanentLink(); }); });
  connect(cmdLoadReport, &QToolButton::clicked, &page, [this] { showReport(); });
  connect(lstProjects, &QListWidget::itemChanged, &page,
          [this](QListWidgetItem* item) { projectMarked(lstProjects->row(item)); });

  connect(ecuSelector1, &ecuSelector::fileChosen, &page, [this](const QString& address) {
    guarded([this, &address] { openFromTree(u8(address)); });
  });
  connect(ecuSelector1, &ecuSelector::selectionChanged, &page, [this] { showSelection(); });
  connect(ecuSelector1, &ecuSelector::functionAddressChanged, &page,
          [this](qint32 value) { txdFunc->setText(QString::number(value)); });
  connect(ecuSelector1, &ecuSelector::dataSetChanged, &page, [this](const QString& newText) {
    const std::string before = std::exchange(dataSetLabel, u8(newText));
    emit page.DatabaseChanged(qs(before), newText);
  });
  connect(ecuSelector1, &ecuSelector::treeReloaded, &page, [this] {
    readProjects();
    showProjects();
    lstProjects->setEnabled(false);
    lstProjects->setEnabled(true);
    applyState();
  });

  connect(UctlNewEcuAddr1, &UctlNewEcuAddr::cancel, &page, [this] { newEcuCancelled(); });
  connect(UctlNewEcuAddr1, &UctlNewEcuAddr::create, &page,
          [this](qint32 address, const QString& logicalAddress, const QString& functionName,
                 qint32 canXid, qint32 canRid) {
            guarded([&] {
              newEcuCreated({address, u8(logicalAddress), u8(functionName), canXid, canRid});
            });
          });

  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_H), &page, nullptr, nullptr,
                        Qt::WidgetWithChildrenShortcut),
          &QShortcut::activated, &page, [this] { showHiddenFunction(); });
}

void UceSelector::Parts::applyState() {
  state.edited = edits.changed() || changes.any();
  state.functionChosen = cbFunctionsName->currentIndex() >= 0;
  const SelectorControls shown = controlsFor(state);
  TBtoolbar->setEnabled(shown.TBtoolbar);
  commands->refresh();
  ecuSelector1->setEnabled(shown.ecuSelector1);
  TxEcuName->setEnabled(shown.TxEcuName);
  txGenericName->setEnabled(shown.txGenericName);
  lstProjects->setEnabled(shown.lstProjects);
  LabelFunction->setEnabled(shown.LabelFunction);
  cmdLinkNewPDM->setEnabled(shown.cmdLinkNewPDM);
  changeFunctionRow->setVisible(shown.changeFunctionShown);
  cmdChangeFunctionOK->setEnabled(shown.cmdChangeFunctionOK);
  UctlNewEcuAddr1->setVisible(shown.newEcuShown);
  lowerRow->setVisible(shown.detectShown);
  FrDetect->setVisible(shown.detectShown);
  framProjects->setVisible(shown.detectShown);
  cmdLoadReport->setVisible(shown.reportShown);
  if (shown.reportShown && database)
    cmdLoadReport->setText(qs(loadReportHeadline(texts(), database->report().size())));
}

} // namespace kelmar
