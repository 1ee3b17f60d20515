// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/value_list.h"

#include "base/conversions.h"
#include "base/text.h"
#include "language/multi_lang.h"

#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kelmar {

namespace {

const CMultiLangEx& texts() {
  return language::global();
}

bool refuse(platform::Person& person, const char* key, std::string title, std::string text) {
  person.message(
      {key, std::move(title), std::move(text), platform::Buttons::Ok, platform::Icon::Exclamation});
  return false;
}

// Both refusals go by the key of the value, on purpose.
bool refuseAddition(platform::Person& person, bool sameValue, std::int32_t value,
                    std::string_view label) {
  constexpr char existsKey[] = "DATALIST/MSG/CBaddNew_Click/valueAlreadyExistsError/text";
  const std::string text =
      sameValue ? texts().getMultilangMessageDefault("Value {0} already exists.", existsKey,
                                                     std::to_string(value))
                : texts().getMultilangMessageDefault("Label {0} already exists.", existsKey, label);
  return refuse(
      person, existsKey,
      texts().getMultilangMessageDefault("Input error", "DATALIST/MSG/CBaddNew_Click/title"), text);
}

bool refuseChange(platform::Person& person, bool sameValue, std::int32_t value,
                  std::string_view label, const ValueRow& row) {
  const std::string title =
      texts().getMultilangMessageDefault("Input error", "DATALIST/MSG/changeItem/title");
  const std::string old = std::to_string(row.value);
  constexpr char sameValueKey[] = "DATALIST/MSG/changeItem/valueAlreadyExistsError/text";
  if (sameValue)
    return refuse(person, sameValueKey, title,
                  texts().getMultilangMessageDefault("Value {0} already exists.{crlf}Old : {1}={2}",
                                                     sameValueKey, std::to_string(value), old,
                                                     row.label));
  constexpr char sameLabelKey[] = "DATALIST/MSG/changeItem/labelAlreadyExistsError/text";
  return refuse(person, sameLabelKey, title,
                texts().getMultilangMessageDefault("Label {0} already exists.{crlf}Old : {1}={2}",
                                                   sameLabelKey, label, old, row.label));
}

} // namespace

void ValueList::bind(const DataItem* data) {
  rows_.clear();
  bound_ = data != nullptr;
  if (!data || !data->DataListes) return;
  rows_.reserve(static_cast<std::size_t>(data->DataListes->Count()));
  for (const DataListeItem* item : *data->DataListes)
    rows_.push_back(std::make_unique<ValueRow>(ValueRow{item->Valeur, item->libelle, item->Info}));
}

void ValueList::SaveDataItems(DataItem& data) const {
  std::vector<DataListeItems::Pointer> items;
  items.reserve(rows_.size());
  for (const auto& row : rows_) {
    auto item = std::make_shared<DataListeItem>();
    item->Valeur = row->value;
    item->libelle = row->label;
    item->Info = row->info;
    item->parent = &data;
    items.push_back(std::move(item));
    // A row goes before the last one of a greater value. In a list that began empty the greatest
    // value is always the last one.
    if (const auto last = items.rbegin(); items.size() > 1 && last[0]->Valeur < last[1]->Valeur)
      std::swap(last[0], last[1]);
  }
  data.DataListes = std::make_shared<DataListeItems>();
  data.DataListes->AddAll(std::move(items));
}

ValueRow* ValueList::add(std::int32_t value, std::string_view label, std::string_view info,
                         platform::Person& person) {
  if (!bound_) return nullptr;
  const std::string_view trimmed = trimBlanks(label);
  constexpr char emptyKey[] = "DATALIST/MSG/CBaddNew_Click/emptyStringError/text";
  if (trimmed.empty()) {
    refuse(person, emptyKey,
           texts().getMultilangMessageDefault("Input error", "DATALIST/MSG/CBaddNew_Click/title"),
           texts().getMultilangMessageDefault("Empty label not allowed. Enter a string", emptyKey));
    return nullptr;
  }
  for (const auto& row : rows_) {
    if (row->value != value && row->label != trimmed) continue;
    refuseAddition(person, row->value == value, value, trimmed);
    return nullptr;
  }
  rows_.push_back(
      std::make_unique<ValueRow>(ValueRow{value, std::string(trimmed), std::string(info)}));
  return rows_.back().get();
}

bool ValueList::changeItem(ValueRow& row, std::int32_t value, std::string_view label,
                           std::string_view info, platform::Person& person) {
  constexpr char emptyChangeKey[] = "DATALIST/MSG/changeItem/emptyStringError/text";
  if (label.empty())
    return refuse(
        person, emptyChangeKey,
        texts().getMultilangMessageDefault("Input error", "DATALIST/MSG/changeItem/title"),
        texts().getMultilangMessageDefault("Empty label not allowed. Enter a string",
                                           emptyChangeKey));
  for (const auto& other : rows_) {
    if (other.get() == &row || (other->value != value && other->label != label)) continue;
    return refuseChange(person, other->value == value, value, label, *other);
  }
  row.value = value;
  row.label = label;
  row.info = info;
  return true;
}

bool ValueList::cut(const std::vector<ValueRow*>& rows, platform::Person& person) {
  if (rows.empty()) return false;
  constexpr char cutKey[] = "DATALIST/MSG/CutRange/text";
  const platform::Box question{
      cutKey, texts().getMultilangMessageDefault("Confirm delete", "DATALIST/MSG/CutRange/title"),
      texts().getMultilangMessageDefault("Do you really want to delete this selected items ?",
                                         cutKey),
      platform::Buttons::YesNo, platform::Icon::Question};
  if (person.message(question) != platform::Answer::Yes) return false;
  const std::unordered_set<const ValueRow*> gone(rows.begin(), rows.end());
  std::erase_if(rows_, [&](const auto& row) { return gone.contains(row.get()); });
  return true;
}

bool ValueList::normalize(const std::vector<ValueRow*>& rows, platform::Person& person) {
  constexpr char normalizeKey[] = "DATALIST/MSG/PopupRNormalize/confirm/text";
  const platform::Box question{
      normalizeKey,
      texts().getMultilangMessageDefault("User confirm",
                                         "DATALIST/MSG/PopupRNormalize/confirm/title"),
      texts().getMultilangMessageDefault(
          "Normalize space suppress white spaces at the start and end of the data name and replace "
          "multi-space by a single one.{crlf}Do you want to normalize selected data name ?",
          normalizeKey),
      platform::Buttons::YesNo, platform::Icon::Question};
  if (rows.empty() || person.message(question) != platform::Answer::Yes) return false;
  constexpr char warningKey[] = "DATALIST/MSG/PopupRNormalize/warning/text";
  bool changed = false;
  // A file may have brought a label twice: the first row is told of.
  std::unordered_map<std::string, std::set<std::size_t>> places;
  std::unordered_map<const ValueRow*, std::size_t> placeOf;
  for (std::size_t place = 0; place < rows_.size(); ++place) {
    places[rows_[place]->label].insert(place);
    placeOf.emplace(rows_[place].get(), place);
  }
  for (ValueRow* row : rows) {
    const std::string label = CleanSpaces(row->label);
    if (label == row->label) continue;
    if (const auto same = places.find(label); same != places.end() && !same->second.empty()) {
      const ValueRow& other = *rows_[*same->second.begin()];
      refuse(person, warningKey,
             texts().getMultilangMessageDefault("Warning",
                                                "DATALIST/MSG/PopupRNormalize/warning/title"),
             texts().getMultilangMessageDefault(
                 "Label '{0}'={1} already exists with normalized name '{2}'={3}.{crlf}Check label "
                 "to avoid error trap for user",
                 warningKey, row->label, std::to_string(row->value), other.label,
                 std::to_string(other.value)));
      continue;
    }
    const std::size_t place = placeOf.at(row);
    places[row->label].erase(place);
    places[label].insert(place);
    row->label = label;
    changed = true;
  }
  return changed;
}

std::string hexTip(std::int32_t value, std::int32_t numberBits) {
  const std::size_t digits = numberBits <= 8 ? 2 : numberBits <= 16 ? 4 : 8;
  return "$" + rightmost("00000000" + hexText(value), digits);
}

ValueListControls valueListControls(const ValueListState& state) {
  ValueListControls controls;
  controls.CBaddNew = state.bound && (state.selected == 0 || state.itemChanged);
  controls.cancel = state.bound && state.itemChanged;
  controls.save = state.bound && state.itemChanged && state.selected > 0;
  controls.cut = controls.copy = state.bound && state.selected > 0;
  controls.paste = state.bound;
  return controls;
}

} // namespace kelmar
