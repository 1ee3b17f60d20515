// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/auto_ident_clipboard.h"

#include "base/text.h"
#include "common/tab_text.h"
#include "frame/rules/auto_ident_entry.h"

#include <unordered_set>

namespace kelmar {

namespace {

constexpr std::size_t pastedSupplierLength = 3, cellsNeeded = 4;

/// Adds items, each only once, with the answers of AutoIdentItems::FindItem.
class UniqueAdder {
 public:
  UniqueAdder(AutoIdentItems& items, TargetItem* owner) : items_(items), owner_(owner) {
    for (const AutoIdentItem* item : items)
      known_.insert(keyOf(*item));
  }

  void add(const AutoIdentItem& item) {
    if (!known_.insert(keyOf(item)).second) return;
    added_.push_back(items_.AddData(item.clone(owner_)));
  }
  AutoIdentSelection& added() { return added_; }

 private:
  // No text holds a zero: neither a document nor pasted text can.
  static std::string keyOf(const AutoIdentItem& item) {
    std::string key = std::to_string(item.DiagNumber);
    for (const std::string* text : {&item.SupplierCode, &item.Soft, &item.Version})
      (key += '\0') += *text;
    return key;
  }

  AutoIdentItems& items_;
  TargetItem* owner_;
  std::unordered_set<std::string> known_;
  AutoIdentSelection added_;
};

void addElements(xml::Node root, OmnikorLibXml& database, UniqueAdder& adder) {
  for (xml::Node element : root.children("AutoIdent")) {
    AutoIdentItem item;
    try {
      item.loadXml(database, element);
    } catch (const Failure&) {
      continue;
    }
    adder.add(item);
  }
}

void addLines(std::string_view text, UniqueAdder& adder) {
  TabReader reader(text);
  TabLine line;
  while (reader.next(line)) {
    if (line.cells.size() < cellsNeeded) continue;
    AutoIdentItem item;
    item.DiagNumber = cellNumber(line.trimmed(0), 0, largestDiagNumber, -1);
    item.SupplierCode = line.trimmed(1);
    item.Soft = line.trimmed(2);
    item.Version = line.trimmed(3);
    if (item.DiagNumber >= 0 && characterCount(item.SupplierCode) == pastedSupplierLength &&
        isFourHexadecimalDigits(item.Soft) && isFourHexadecimalDigits(item.Version))
      adder.add(item);
  }
}

} // namespace

std::string copyAutoIdents(const AutoIdentSelection& items) {
  xml::Writer out;
  out.open("AutoIdents");
  for (const AutoIdentItem* item : items) {
    out.item("AutoIdent", item->Soft);
    out.open("AutoIdent");
    item->createXMLnode(out);
    out.close();
  }
  out.close();
  return out.take();
}

std::string copyAutoIdentsText(const AutoIdentSelection& items, bool& broken) {
  TabText text;
  text.line({"'Diag version", "Supplier", "Soft", "Version"});
  for (const AutoIdentItem* item : items) {
    text.cell(item->DiagNumber).cell(item->SupplierCode).cell(item->Soft).cell(item->Version);
    text.endLine();
  }
  broken = text.hasBrokenCell();
  return text.text();
}

AutoIdentSelection pasteAutoIdents(const std::string& clipboard, OmnikorLibXml& database,
                                   AutoIdentItems& items, TargetItem* owner) {
  // A zero ends a text everywhere else on the desktop.
  const std::string text = clipboard.substr(0, clipboard.find('\0'));
  UniqueAdder adder(items, owner);
  xml::Document document;
  if (document.loadXML(text)) {
    if (std::string_view(document.root().name()) == "AutoIdents")
      addElements(document.root(), database, adder);
  } else {
    addLines(text, adder);
  }
  return std::move(adder.added());
}

} // namespace kelmar
