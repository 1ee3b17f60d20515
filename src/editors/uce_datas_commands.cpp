// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/trad_config.h"
#include "controls/text_drag.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/data_description.h"
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/datas/data_menu.h"
#include "editors/rules/datas/data_units.h"
#include "editors/uce_datas_parts.h"
#include "language/multi_lang.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>

#include <algorithm>

namespace kelmar {

using desktop::qs;
using desktop::u8;

void UceDatas::Parts::makeCommands() {
  const auto open = [this] { return target() && target()->datas(); };
  const auto one = [this] { return data() != nullptr; };
  const auto some = [this] { return listDatas->selectionModel()->hasSelection(); };
  std::vector<Command> all = page.findCommands();
  all.push_back({.key = "cancel",
                 .toolTip = "Cancel changes (Ctrl Z)",
                 .icon = "cancel",
                 .run = [this] { cancel(); },
                 .enabled = [this] { return page.hasPendingEdits(); },
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Z)}});
  all.push_back({.key = "valid",
                 .toolTip = "Valid changes",
                 .icon = "valid",
                 .run = [this] { validate(false); },
                 .enabled = one});
  all.push_back({.key = "save",
                 .toolTip = "Save changes (Ctrl S)",
                 .icon = "save",
                 .run = [this] { validate(true); },
                 .enabled = one,
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_S)}});
  all.push_back({.key = "help",
                 .toolTip = "Help (F1)",
                 .icon = "help",
                 .run = [this] { showHelp(); },
                 .shortcuts = {QKeySequence(Qt::Key_F1)}});
  commands = new CommandTable(&page, std::move(all));

  // In the fields these keys are those of any text.
  listCommands = new CommandTable(
      listDatas, {{.key = "add",
                   .toolTip = "Add data",
                   .icon = "add",
                   .run = [this] { newOne(); },
                   .enabled = open,
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_N)}},
                  {.key = "rename",
                   .toolTip = "Rename data (F2)",
                   .icon = "rename",
                   .run = [this] { page.editActiveName(); },
                   .enabled = one,
                   .shortcuts = {QKeySequence(Qt::Key_F2)}},
                  {.key = "find",
                   .toolTip = "Find data",
                   .icon = "find",
                   .run = [this] { page.FindItem({}); },
                   .enabled = one,
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_F)}},
                  {.key = "cut",
                   .toolTip = "Cut data (Ctrl X)",
                   .icon = "cut",
                   .run = [this] { cut(); },
                   .enabled = some,
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_X), QKeySequence(Qt::Key_Delete)}},
                  {.key = "copy",
                   .toolTip = "Copy data to clipboard (Ctrl C)",
                   .icon = "copy",
                   .run = [this] { copy(); },
                   .enabled = some,
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_C)}},
                  {.key = "paste",
                   .toolTip = "Paste data from clipboard (Ctrl V)",
                   .icon = "paste",
                   .run = [this] { paste(desktop::clipboardText()); },
                   .enabled = open,
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_V)}},
                  {.key = "selectAll",
                   .run = [this] { ListViewSelectAll(*listDatas); },
                   .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_A)}}});
  commands->fillToolBar(*TbData, {"cancel", "valid", "save", ""});
  listCommands->fillToolBar(*TbData, {"add", "rename", "find", "", "cut", "copy", "paste", ""});
  commands->fillToolBar(*TbData, {"help"});

  page.useMenu(
      QStringLiteral("popupData"),
      [this] {
        return dataMenu({target(), data(), static_cast<int>(listDatas->selectedTags().size())});
      },
      [this](const MenuEntry& entry) { page.guarded([&] { chosen(entry); }); });
  new TextDrag(
      *listDatas,
      [this] {
        std::string text;
        page.guarded([&] { text = copyDatas(selected()); });
        return text;
      },
      [this](std::string_view text) { return target() && looksLikeFragment(text, "Datas"); },
      [this](const std::string& text) { paste(text); });
}

std::vector<DataItem*> UceDatas::Parts::selected() const {
  std::vector<DataItem*> items;
  for (const RowTag tag : listDatas->selectedTags())
    items.push_back(static_cast<DataItem*>(tag));
  return items;
}

void UceDatas::Parts::chosen(const MenuEntry& entry) {
  if (entry.key == "menuReq") {
    emit page.OnRequestSelect(entry.names.at(0), entry.names.at(1));
  } else if (entry.key == "popupRefCut") {
    cut();
  } else if (entry.key == "popupRefCopy") {
    copy();
  } else if (entry.key == "popupRefCopyText") {
    copyText();
  } else if (entry.key == "popupRefPaste") {
    paste(desktop::clipboardText());
  } else if (entry.key == "popupRefCopyTradConfig") {
    copyTradConfig();
  } else if (entry.key == "popupSortDataAscending" || entry.key == "popupSortDataDescending") {
    sort(entry.key == "popupSortDataDescending" ? 1 : 0);
  } else if (entry.key == "PopupRefHelp") {
    emit page.help("data", "");
  } else if (!chooseRows(entry.key)) {
    changeNames(entry.key);
  }
}

bool UceDatas::Parts::chooseRows(const std::string& key) {
  std::function<bool(const DataItem&)> wanted;
  if (key == "popupSelectDataNumeric") {
    wanted = [](const DataItem& item) { return typeOf(item) == DataType::Numeric; };
  } else if (key == "popupSelectDataNumericList") {
    wanted = [](const DataItem& item) { return typeOf(item) == DataType::NumericList; };
  } else if (key == "popupSelectDataASCII" || key == "popupSelectDataHEXA") {
    wanted = [isAscii = key == "popupSelectDataASCII"](const DataItem& item) {
      return typeOf(item) == DataType::NotNumeric && item.Ascii == isAscii;
    };
  } else if (key == "popupRefSelectUnused") {
    wanted = unusedDatas(*target());
  } else {
    return false;
  }
  page.selectWhere([&](RowTag tag) { return wanted(*static_cast<DataItem*>(tag)); });
  return true;
}

void UceDatas::Parts::sort(int order) {
  sortOrder = order;
  SortListViewColumn(*listDatas, 1, 0, order);
}

void UceDatas::Parts::newOne() {
  page.guarded([this] {
    page.TestAndConfirmChange();
    DataItem* added = newData(*target());
    // The list is sorted whatever the order of the data behind it.
    const std::vector<RowTag> order = page.items();
    const auto place = std::find(order.begin(), order.end(), added) - order.begin();
    page.addRow(added, static_cast<int>(place));
    page.announceApplied();
  });
}

void UceDatas::Parts::cut() {
  page.guarded([this] {
    const std::vector<DataItem*> items = selected();
    if (items.empty()) return;
    const int row = listDatas->rows().rowOf(items.front());
    // What cannot be copied is told, and can be deleted all the same.
    std::string text;
    page.guarded([&] { text = copyDatas(items); });
    // Between two answers the list and the fields still show data that are deleted.
    const std::vector<DataItems::Pointer> alive = target()->datas()->members();
    if (!CutData(*target(), items, page.person())) return;
    if (!text.empty()) desktop::setClipboardText(text);
    // What was typed for a data that is gone goes with it.
    if (page.hasPendingEdits() && target()->datas()->indexOf(data()) > 0)
      page.TestAndConfirmChange();
    page.dropActive();
    page.fillList(row);
    page.announceApplied();
  });
}

void UceDatas::Parts::copy() {
  page.guarded([this] {
    const auto items = selected();
    if (items.empty()) return;
    desktop::setClipboardText(copyDatas(items));
    textCopied(false);
  });
}

void UceDatas::Parts::copyText() {
  const DataText copied = copyDatasText(selected());
  desktop::setClipboardText(copied.text);
  textCopied(copied.hasBrokenCell);
}

void UceDatas::Parts::copyTradConfig() {
  TabText text;
  for (const DataItem* item : selected())
    addTradConfig(text, *item);
  if (!text.text().empty()) desktop::setClipboardText(text.text());
}

void UceDatas::Parts::paste(const std::string& text) {
  page.guarded([&] {
    page.TestAndConfirmChange();
    const DataPaste pasted =
        pasteDatas(text, *database, *target(), page.person(), desktop::setClipboardText);
    if (!pasted.changed) return; // the list is as it was
    page.rememberName(pasted.lastName);
    page.fillList();
    page.announceApplied();
  });
}

void UceDatas::Parts::changeNames(const std::string& key) {
  static constexpr std::pair<const char*, NameChange> changes[] = {
      {"popupRefNormalize", NameChange::Normalize},
      {"popupRefUcase", NameChange::UpperCase},
      {"popupReflcase", NameChange::LowerCase},
      {"popupRefCapword", NameChange::CapitalizeWords},
      {"popupRefCapword1", NameChange::CapitalizeWords1},
      {"popupRefReplace", NameChange::Replace}};
  for (const auto& [name, change] : changes) {
    if (key != name) continue;
    for (const NameCommand& command : dataNameCommands()) {
      if (command.change != change) continue;
      page.TestAndConfirmChange();
      if (!changeDataNames(command, *target(), selected(), page.person())) return;
      if (data()) page.rememberName(data()->dataName());
      page.fillList();
      page.announceApplied();
    }
  }
}

void UceDatas::Parts::showHelp() {
  emit page.help("data", UceDataList1->isAncestorOf(QApplication::focusWidget()) ? "list" : "");
}

void UceDatas::Parts::showUnits() {
  popUpMenu(*cmdSelectUnit, QStringLiteral("mnuUnits"),
            cmdSelectUnit->mapToGlobal(QPoint(0, cmdSelectUnit->height())), units,
            [this](const MenuEntry& entry) { TextUnite->setText(qs(unitOf(entry.text))); });
}

void UceDatas::Parts::showFiche() {
  DataItem* item = data();
  if (!item) return;
  const QString title =
      qs(language::global().getMultilangMessageDefault("Data", "DATAS/MSG/DataDiagFiche/title")) +
      QLatin1Char(' ') + qs(item->dataName());
  frmDataDescription dialog(title, item->Fiche, &page);
  if (dialog.exec() != QDialog::Accepted || dialog.text() == item->Fiche) return;
  // Saved by its own dialog: the key Cancel of the page brings back the fields, not this.
  item->Fiche = dialog.text();
  stillEdited();
}

} // namespace kelmar
