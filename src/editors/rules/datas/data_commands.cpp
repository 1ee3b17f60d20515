// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_commands.h"

#include "common/item_names.h"
#include "database/target_walk.h"
#include "language/multi_lang.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_set>

namespace kelmar {

namespace {

constexpr KeyedText userConfirm(const char* key) {
  return {key, "User confirm"};
}

constexpr std::array<NameCommand, 6> nameCommands{{
    // The question is the one of the value list, on purpose.
    {NameChange::Normalize,
     {"DATALIST/MSG/PopupRNormalize/confirm/text",
      "Normalize space suppress white spaces at the start and end of the data name and replace "
      "multi-space by a single one.{crlf}Do you want to normalize selected data name ?"},
     userConfirm("DATALIST/MSG/PopupRNormalize/confirm/title")},
    {NameChange::UpperCase,
     {"DATAS/MSG/popupRefUcase_Click/confirm/text", "Convert name to uppercase ?"},
     userConfirm("DATAS/MSG/popupRefUcase_Click/confirm/title")},
    {NameChange::LowerCase,
     {"DATAS/MSG/popupReflcase_Click/confirm/text", "Convert name to lowercase ?"},
     userConfirm("DATAS/MSG/popupReflcase_Click/confirm/title")},
    {NameChange::CapitalizeWords,
     {"DATAS/MSG/popupRefCapword_Click/confirm/text", "Do word capitalization ?"},
     userConfirm("DATAS/MSG/popupRefCapword_Click/confirm/title")},
    {NameChange::CapitalizeWords1,
     {"DATAS/MSG/popupRefCapword1_Click/confirm/text", "Do word capitalization ?"},
     userConfirm("DATAS/MSG/popupRefCapword1_Click/confirm/title")},
    {NameChange::Replace,
     {"DATAS/MSG/popupRefReplace_Click/confirm/text",
      "Replace '{0}' with '{1}'{crlf}in selected data ?"},
     userConfirm("DATAS/MSG/popupRefReplace_Click/confirm/title"),
     {"DATAS/MSG/popupRefReplace_Click/inputSearch/text", "Find what:"},
     {"DATAS/MSG/popupRefReplace_Click/inputSearch/title", "Rename data:"},
     {"DATAS/MSG/popupRefReplace_Click/inputReplace/text", "Replace with:"},
     {"DATAS/MSG/popupRefReplace_Click/inputReplace/title", "Rename data:"}},
}};

platform::Answer askDeleteUsed(const std::string& name, const std::string& requests,
                               platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  constexpr char deleteUsedKey[] = "DATAS/MSG/CutData/deleteUsedData/text";
  return person.message(
      {deleteUsedKey,
       texts.getMultilangMessageDefault("Confirm delete", "DATAS/MSG/CutData/deleteUsedData/title"),
       texts.getMultilangMessageDefault(
           "Do you really want to delete the selected data ?{crlf}{crlf}****** W A R N I N G "
           "******{crlf}The data '{0}' is used by requests: {1}",
           deleteUsedKey, name, requests),
       platform::Buttons::YesNo, platform::Icon::Question});
}

platform::Answer askDelete(const std::string& name, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  constexpr char deleteKey[] = "DATAS/MSG/CutData/confirm/text";
  return person.message(
      {deleteKey,
       texts.getMultilangMessageDefault("Confirm delete", "DATAS/MSG/CutData/confirm/title"),
       texts.getMultilangMessageDefault(
           "Delete data ?{crlf}{crlf}Yes = delete all unused data{crlf}No = delete data "
           "'{0}'{crlf}Cancel = cancel delete",
           deleteKey, name),
       platform::Buttons::YesNoCancel, platform::Icon::Question});
}

/// One per line, behind a line break of its own.
std::string requestLines(const TargetItem& target, const std::string& data) {
  std::string lines;
  for (const DataPositionItem* position : target.GetRequestsUsingData(data))
    lines += "\r\n  - " + (position->parent ? position->parent->requestName : std::string());
  return lines;
}

void tell(const std::string& trouble, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  constexpr char errorKey[] = "DATAS/MSG/CutData/error/text";
  person.message({errorKey, texts.getMultilangMessageDefault("Error", "GENERIC/error/title"),
                  texts.getMultilangMessageDefault("Error : {0}", errorKey, trouble),
                  platform::Buttons::Ok, platform::Icon::Critical});
}

} // namespace

std::vector<DataItem*> listedDatas(const TargetItem& target, bool descending) {
  std::vector<DataItem*> datas;
  if (!target.datas()) return datas;
  for (DataItem* data : *target.datas())
    datas.push_back(data);
  std::stable_sort(datas.begin(), datas.end(),
                   [descending](const DataItem* left, const DataItem* right) {
                     const std::string &a = left->dataName(), &b = right->dataName();
                     return descending ? b < a : a < b;
                   });
  return datas;
}

DataItem* newData(TargetItem& target) {
  auto data = std::make_shared<DataItem>();
  data->setDataName(freeNewName(
      [&](const std::string& name) { return target.datas()->ItemName(name) != nullptr; }));
  data->parent = &target;
  return target.datas()->AddDataSorted(std::move(data));
}

bool CutData(TargetItem& target, SelectedDatas datas, platform::Person& person,
             const std::function<void(DataItem*)>& deletes) {
  const auto isUnused = unusedDatas(target);
  // Data that nothing hangs on go together at the end: one pass over the list and not one each.
  std::unordered_set<const DataItem*> unused;
  bool allUnused = false, deleted = false;
  for (DataItem* data : datas) {
    if (isUnused(*data)) {
      if (!allUnused) {
        const platform::Answer answer = askDelete(data->dataName(), person);
        if (answer == platform::Answer::Cancel) break;
        allUnused = answer == platform::Answer::Yes;
      }
      unused.insert(data);
      continue;
    }
    const std::string name = data->dataName();
    if (askDeleteUsed(name, requestLines(target, name), person) != platform::Answer::Yes) continue;
    try {
      if (deletes)
        deletes(data);
      else
        target.DeleteData(data);
      deleted = true;
    } catch (const Failure& failure) {
      tell(failure.text, person);
    }
  }
  target.datas()->deleteIf([&](const DataItem& data) { return unused.contains(&data); });
  return deleted || !unused.empty();
}

std::span<const NameCommand> dataNameCommands() {
  return nameCommands;
}

bool changeDataNames(const NameCommand& command, TargetItem& target, SelectedDatas datas,
                     platform::Person& person) {
  if (datas.empty()) return false;
  const auto newName = askNameChange(command, person);
  if (!newName) return false;
  std::vector<DataItems::NewName> names;
  for (DataItem* data : datas)
    if (std::string name = newName(data->dataName()); name != data->dataName())
      names.emplace_back(data, std::move(name));
  if (names.empty()) return false;
  const std::vector<bool> renamed = target.RenameDatas(names);
  return std::find(renamed.begin(), renamed.end(), true) != renamed.end();
}

std::function<bool(const DataItem&)> unusedDatas(const TargetItem& target) {
  auto used = std::make_shared<std::unordered_set<std::string>>();
  forEachRequest(target, [&](const RequestItem& request) {
    if (!request.DataPositions) return;
    for (const DataPositionItem* position : *request.DataPositions)
      used->insert(position->dataName);
  });
  return [used](const DataItem& data) { return !used->contains(data.dataName()); };
}

} // namespace kelmar
