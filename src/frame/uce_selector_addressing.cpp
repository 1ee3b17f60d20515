// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/failure.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector.h"
#include "frame/rules/addressing_ecu.h"
#include "frame/rules/addressing_texts.h"
#include "frame/rules/ecu_summary.h"
#include "frame/rules/selector_match_text.h"
#include "frame/uce_selector_fields.h"
#include "frame/uce_selector_parts.h"
#include "language/multi_lang.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

/// What stands in a field of the search panel as a number; none for an empty or impossible one.
std::optional<std::int32_t> numberIn(const QLineEdit& field) {
  try {
    return toInt32(u8(field.text()));
  } catch (const Failure&) {
    return std::nullopt;
  }
}

} // namespace

void UceSelector::Parts::newEcuCancelled() {
  state.creating = false;
  clearSummary();
  applyState();
  ecuSelector1->setFocus();
}

void UceSelector::Parts::newEcuCreated(const NewEcu& ecu) {
  const std::string name = u8(TxEcuName->text());
  state.creating = false;
  createEcu(*database, ecu, name);
  fileName.clear();
  lbFileName->clear();
  backupTaken = false;
  changes.forget();
  page.TargetAddress = ecu.address;
  state.ecuOpen = true;
  showSummary();
  showProjects();
  applyState();
  TxEcuName->setFocus();
  emit page.UceSelected(true);
  emit page.OnChange();
}

void UceSelector::ReadAddressingFile(const std::string& file) {
  Parts& parts = *parts_;
  AddressingFile addressing;
  if (!addressing.load(file, parts.machine.fetch)) {
    parts.machine.person.message(unreadableFileBox(parts.texts(), file, addressing.reason()));
    return;
  }
  parts.cbFunctionsName->clear();
  for (const AddressingFile::Entry& function : addressing.functions())
    parts.cbFunctionsName->addItem(qs(function.name), function.address);
  if (parts.target())
    parts.cbFunctionsName->setCurrentIndex(
        parts.cbFunctionsName->findData(parts.target()->Address()));
}

void UceSelector::GetLogicalAddressFromAddressingFile() {
  Parts& parts = *parts_;
  AddressingFile addressing;
  if (!addressing.load(parts.ecuSelector1->addressingFile(), parts.machine.fetch)) {
    parts.machine.person.message(unreadableFileBox(parts.texts(), parts.url, addressing.reason()));
    return;
  }
  const std::optional<std::string> found =
      addressing.logicalAddressOf(addressOfText(u8(parts.TextAdresse->text())));
  if (!found) return;
  parts.TextLogicalAdresse->setText(qs(*found));
  if (parts.target()) parts.changes.setLogicalAddress(*parts.database, *found);
  emit OnChange();
}

void UceSelector::ReadCanId(const std::string& file, std::int32_t address, std::int32_t& canXid,
                            std::int32_t& canRid, bool& found) {
  found = false;
  AddressingFile addressing;
  if (!addressing.load(file, parts_->machine.fetch)) {
    parts_->machine.person.message(unreadableCanIdBox(parts_->texts(), file, addressing.reason()));
    return;
  }
  if (const auto ids = addressing.canIdsOf(address)) {
    canXid = ids->canXid;
    canRid = ids->canRid;
    found = true;
  }
}

void UceSelector::Parts::askFunction() {
  if (!target()) return;
  page.ReadAddressingFile(ecuSelector1->addressingFile());
  state.changingFunction = true;
  applyState();
  cbFunctionsName->setFocus();
}

void UceSelector::Parts::cancelChangeFunction() {
  state.changingFunction = false;
  applyState();
}

void UceSelector::Parts::changeFunction() {
  if (!target() || cbFunctionsName->currentIndex() < 0) return;
  const platform::Answer answer = machine.person.message(
      {"SELECTOR/MSG/cmdChangeFunctionOK_Click/text",
       texts().getMultilangMessageDefault("Confirm change function ?",
                                          "SELECTOR/MSG/cmdChangeFunctionOK_Click/title"),
       texts().getMultilangMessageDefault("Validate change ?",
                                          "SELECTOR/MSG/cmdChangeFunctionOK_Click/text"),
       platform::Buttons::YesNo, platform::Icon::Question});
  if (answer != platform::Answer::Yes) return cancelChangeFunction();

  NewEcu function;
  function.functionName = u8(cbFunctionsName->currentText());
  function.address = cbFunctionsName->currentData().toInt();
  const std::string file = ecuSelector1->addressingFile();
  AddressingFile addressing;
  if (!addressing.load(file, machine.fetch)) {
    machine.person.message(unreadableCanIdBox(texts(), file, addressing.reason()));
    return cancelChangeFunction();
  }
  const std::optional<AddressingFile::CanIds> ids = addressing.canIdsOf(function.address);
  if (!ids) {
    machine.person.message({"SELECTOR/MSG/ChangeFunction/text",
                            texts().getMultilangMessageDefault("Change Function not possible",
                                                               "SELECTOR/MSG/ChangeFunction/title"),
                            texts().getMultilangMessageDefault(
                                "CanXid and CanRid not defined in GenericAddressing.xml file",
                                "SELECTOR/MSG/ChangeFunction/text"),
                            platform::Buttons::Ok, platform::Icon::Exclamation});
    return cancelChangeFunction();
  }
  function.canXid = ids->canXid;
  function.canRid = ids->canRid;
  function.logicalAddress = addressing.logicalAddressOf(function.address).value_or("");
  TextAdresse->setText(qs(addressText(function.address)));
  TextLogicalAdresse->setText(qs(function.logicalAddress));
  TextFunction->setText(qs(function.functionName));
  changes.setFunction(*database, function);
  cancelChangeFunction();
  emit page.OnChange();
}

int UceSelector::FindHrefTargetByIdentificationAndProtocol(
    std::int32_t function, std::int32_t protocol, std::int32_t diagVersion,
    const std::string& supplier, const std::string& soft, const std::string& version,
    std::string& href, std::string& text) {
  int code = 0;
  href.clear();
  try {
    code = parts_->ecuSelector1->findByIdentification(function, protocol, diagVersion, supplier,
                                                      soft, version, href);
  } catch (const Failure&) {
    href.clear(); // a search that fails has found nothing
  }
  text = matchText(parts_->texts(), code, href);
  return code;
}

void UceSelector::Parts::detect() {
  const std::optional<std::int32_t> function = numberIn(*txdFunc), diagVersion = numberIn(*txdDiag);
  std::string href, text = matchText(texts(), 0, {});
  if (function && diagVersion)
    page.FindHrefTargetByIdentificationAndProtocol(
        *function, comboProto->currentData().toInt(), *diagVersion, u8(txdSup->text()),
        u8(txdSoft->text()), u8(txdVers->text()), href, text);
  txdHref->setText(qs(href));
  lbResult->setText(qs(href.empty() ? text : text + "\r\n[" + href + "]"));
}

void UceSelector::updateDetect(const std::string& function, const std::string&,
                               const std::string& diagVersion, const std::string& supplier,
                               const std::string& soft, const std::string& version) {
  Parts& parts = *parts_;
  parts.txdHref->clear();
  parts.txdFunc->setText(qs(function));
  parts.txdDiag->setText(qs(diagVersion));
  parts.txdSup->setText(qs(supplier));
  parts.txdSoft->setText(qs(soft));
  parts.txdVers->setText(qs(version));
}

void UceSelector::AutoIdent(const std::string& diagVersion, const std::string& supplier,
                            const std::string& soft, const std::string& version) {
  Parts& parts = *parts_;
  if (!parts.target()) return;
  parts.txdFunc->setText(QString::number(parts.target()->Address()));
  parts.txdDiag->setText(qs(diagVersion));
  parts.txdSup->setText(qs(supplier));
  parts.txdSoft->setText(qs(soft));
  parts.txdVers->setText(qs(version));
}

} // namespace kelmar
