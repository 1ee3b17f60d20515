// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/text.h"
#include "common/tab_text.h"
#include "editors/rules/datas/value_list.h"
#include "language/multi_lang.h"

#include <optional>

namespace kelmar {

namespace {

/// "$1A" and "&h1A" are hexadecimal.
std::optional<std::int32_t> pastedValue(std::string_view cell) {
  try {
    return toInt32(replaceAll(cell, "$", "&h"));
  } catch (const Failure&) {
    return std::nullopt;
  }
}

} // namespace

std::string copyValues(const std::vector<ValueRow*>& rows) {
  xml::Writer out;
  out.open("List");
  for (const ValueRow* row : rows) {
    out.item("Item", row->label);
    out.open("Item");
    out.attribute("Value", row->value);
    out.attribute("Text", row->label);
    if (!row->info.empty()) out.cdataElement("Info", row->info);
    out.close();
    out.lineFeed();
  }
  out.close();
  return out.take();
}

std::string copyValuesText(const std::vector<ValueRow*>& rows) {
  TabText text;
  for (const ValueRow* row : rows) text.cell(row->value).cell(row->label).endLine();
  return text.text();
}

bool ValueList::paste(std::string_view text, platform::Person& person) {
  if (!bound_) return false;
  xml::Document document;
  if (document.loadXML(std::string(text))) return pasteXml(document.root(), person);
  return pasteText(text, person);
}

bool ValueList::pasteXml(const xml::Node& root, platform::Person& person) {
  bool changed = false;
  const std::string_view name = root.name();
  if (name == "Devices") {
    for (const xml::Node device : root.children("Device"))
      if (const auto code = pastedValue(device.attribute("DTC").value()))
        changed |= UpdateOrAddItem(*code, device.attribute("Name").value(), "", person);
  } else if (name == "List") {
    for (const xml::Node item : root.children("Item"))
      if (const auto value = pastedValue(item.attribute("Value").value()))
        changed |= UpdateOrAddItem(*value, item.attribute("Text").value(),
                                   xml::textOf(item.child("Info")), person);
  }
  return changed;
}

bool ValueList::pasteText(std::string_view text, platform::Person& person) {
  bool changed = false;
  TabReader reader(text);
  for (TabLine line; reader.next(line);) {
    const std::string_view label = line.trimmed(1);
    const auto value = pastedValue(line.trimmed(0));
    if (!label.empty() && value) changed |= UpdateOrAddItem(*value, label, "", person);
  }
  return changed;
}

bool ValueList::UpdateOrAddItem(std::int32_t value, std::string_view label,
                                std::string_view info, platform::Person& person) {
  ValueRow *sameValue = nullptr, *sameLabel = nullptr;
  for (const auto& row : rows_) {
    const bool hasValue = row->value == value, hasLabel = row->label == label;
    if (hasValue && hasLabel) return false;
    if (hasValue && !sameValue) sameValue = row.get();
    if (hasLabel && !sameLabel) sameLabel = row.get();
  }
  if (sameValue && sameLabel) {
    constexpr char twoItemsKey[] = "DATALIST/MSG/UpdateOrAddItem/text";
    const CMultiLangEx& texts = language::global();
    person.message({twoItemsKey,
                    texts.getMultilangMessageDefault("Paste warning",
                                                     "DATALIST/MSG/UpdateOrAddItem/title"),
                    texts.getMultilangMessageDefault(
                        "Unable to insert or modify item: {0}={1}{crlf}The value and label already "
                        "exist in two different items",
                        twoItemsKey, std::to_string(value), label),
                    platform::Buttons::Ok, platform::Icon::Exclamation});
    return false;
  }
  if (sameValue) {
    sameValue->label = label;
    return true;
  }
  if (sameLabel) {
    sameLabel->value = value;
    return true;
  }
  // As by hand: a label of blanks alone is refused.
  return add(value, label, info, person) != nullptr;
}

} // namespace kelmar
