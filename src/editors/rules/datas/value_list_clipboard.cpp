// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/conversions.h"
#include "base/text.h"
#include "common/tab_text.h"
#include "editors/rules/datas/value_list.h"
#include "language/multi_lang.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>

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

std::string copyValuesText(const std::vector<ValueRow*>& rows, bool& broken) {
  TabText text;
  for (const ValueRow* row : rows)
    text.cell(row->value).cell(row->label).endLine();
  broken = text.hasBrokenCell();
  return text.text();
}

/// The rows by value and by label, so that a long list is pasted in a time that grows with it. What
/// a file brought may hold a value or a label twice: the first row counts.
class ValueList::Index {
 public:
  explicit Index(const std::vector<std::unique_ptr<ValueRow>>& rows) : rows_(rows) {
    for (std::size_t place = 0; place < rows_.size(); ++place)
      add(place);
  }
  /// Of the row at that place, the last one.
  void add(std::size_t place) {
    byValue_[rows_[place]->value].insert(place);
    byLabel_[rows_[place]->label].insert(place);
  }
  void setLabel(std::size_t place, std::string_view label) {
    byLabel_[rows_[place]->label].erase(place);
    rows_[place]->label = label;
    byLabel_[rows_[place]->label].insert(place);
  }
  void setValue(std::size_t place, std::int32_t value) {
    byValue_[rows_[place]->value].erase(place);
    rows_[place]->value = value;
    byValue_[value].insert(place);
  }
  std::optional<std::size_t> ofValue(std::int32_t value) const { return first(byValue_, value); }
  std::optional<std::size_t> ofLabel(const std::string& label) const {
    return first(byLabel_, label);
  }
  bool has(std::int32_t value, const std::string& label) const {
    const auto values = byValue_.find(value);
    const auto labels = byLabel_.find(label);
    if (values == byValue_.end() || labels == byLabel_.end()) return false;
    const bool fewerValues = values->second.size() < labels->second.size();
    const Places& fewer = fewerValues ? values->second : labels->second;
    const Places& more = fewerValues ? labels->second : values->second;
    return std::any_of(fewer.begin(), fewer.end(),
                       [&](std::size_t place) { return more.contains(place); });
  }

 private:
  using Places = std::set<std::size_t>;

  template <class Map, class Key>
  static std::optional<std::size_t> first(const Map& map, const Key& key) {
    const auto found = map.find(key);
    if (found == map.end() || found->second.empty()) return std::nullopt;
    return *found->second.begin();
  }

  const std::vector<std::unique_ptr<ValueRow>>& rows_;
  std::unordered_map<std::int32_t, Places> byValue_;
  std::unordered_map<std::string, Places> byLabel_;
};

bool ValueList::paste(std::string_view clipboard, platform::Person& person) {
  if (!bound_) return false;
  const std::string_view text = upToZero(clipboard);
  Index index(rows_);
  xml::Document document;
  if (document.loadXML(std::string(text))) return pasteXml(document.root(), index, person);
  return pasteText(text, index, person);
}

bool ValueList::pasteXml(const xml::Node& root, Index& index, platform::Person& person) {
  bool changed = false;
  const std::string_view name = root.name();
  if (name == "Devices") {
    for (const xml::Node device : root.children("Device"))
      if (const auto code = pastedValue(device.attribute("DTC").value()))
        changed |= updateOrAdd(*code, device.attribute("Name").value(), "", index, person);
  } else if (name == "List") {
    for (const xml::Node item : root.children("Item"))
      if (const auto value = pastedValue(item.attribute("Value").value()))
        changed |= updateOrAdd(*value, item.attribute("Text").value(),
                               xml::textOf(item.child("Info")), index, person);
  }
  return changed;
}

bool ValueList::pasteText(std::string_view text, Index& index, platform::Person& person) {
  bool changed = false;
  TabReader reader(text);
  for (TabLine line; reader.next(line);) {
    const std::string_view label = line.trimmed(1);
    const auto value = pastedValue(line.trimmed(0));
    if (!label.empty() && value) changed |= updateOrAdd(*value, label, "", index, person);
  }
  return changed;
}

bool ValueList::UpdateOrAddItem(std::int32_t value, std::string_view label, std::string_view info,
                                platform::Person& person) {
  Index index(rows_);
  return updateOrAdd(value, label, info, index, person);
}

bool ValueList::updateOrAdd(std::int32_t value, std::string_view labelText, std::string_view info,
                            Index& index, platform::Person& person) {
  const std::string label(labelText);
  if (index.has(value, label)) return false;
  const auto sameValue = index.ofValue(value), sameLabel = index.ofLabel(label);
  if (sameValue && sameLabel) {
    constexpr char twoItemsKey[] = "DATALIST/MSG/UpdateOrAddItem/text";
    const CMultiLangEx& texts = language::global();
    person.message(
        {twoItemsKey,
         texts.getMultilangMessageDefault("Paste warning", "DATALIST/MSG/UpdateOrAddItem/title"),
         texts.getMultilangMessageDefault(
             "Unable to insert or modify item: {0}={1}{crlf}The value and label already "
             "exist in two different items",
             twoItemsKey, std::to_string(value), label),
         platform::Buttons::Ok, platform::Icon::Exclamation});
    return false;
  }
  if (sameValue) {
    index.setLabel(*sameValue, label);
    return true;
  }
  if (sameLabel) {
    index.setValue(*sameLabel, value);
    return true;
  }
  // As by hand, without the blanks around it; nothing but blanks, or a label that is there without
  // them, is refused in the same words.
  const std::string trimmed(trimBlanks(label));
  if (trimmed.empty() || (trimmed != label && index.ofLabel(trimmed)))
    return add(value, label, info, person) != nullptr;
  rows_.push_back(std::make_unique<ValueRow>(ValueRow{value, trimmed, std::string(info)}));
  index.add(rows_.size() - 1);
  return true;
}

} // namespace kelmar
