// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_clipboard.h"

#include "common/data_import.h"
#include "common/tab_text.h"
#include "editors/rules/datas/data_fields.h"
#include "editors/rules/datas/pasted_data.h"
#include "language/multi_lang.h"

#include <array>

namespace kelmar {

namespace {

constexpr std::array<std::string_view, 11> header{
    "'Name",  "Mnemo",  "Number bits", "signe",       "unit",
    "coef A", "coef B", "coef C",      "Description", "Numeric|List|Ascii|Hexa",
    "Format"};

const char* typeCell(const DataItem& data) {
  switch (typeOf(data)) {
  case DataType::Numeric:
    return "Numeric";
  case DataType::NumericList:
    return "List";
  default:
    return data.Ascii ? "Ascii" : "Hexa";
  }
}

/// What is in the pasted data becomes that of the other, all but the name.
void update(DataItem& data, const DataItem& pasted) {
  data.DataListes = pasted.DataListes;
  if (data.DataListes)
    for (DataListeItem* item : *data.DataListes)
      item->parent = &data;
  data.Ascii = pasted.Ascii;
  data.numerique = pasted.numerique;
  data.liste = pasted.liste;
  data.CoeffA = pasted.CoeffA;
  data.CoeffB = pasted.CoeffB;
  data.CoeffC = pasted.CoeffC;
  data.DataFormat = pasted.DataFormat;
  data.Description = pasted.Description;
  // The sheet goes with the rest, on purpose: a line of text has none.
  data.Fiche = pasted.Fiche;
  data.Mnemo = pasted.Mnemo;
  data.NumberBits = pasted.NumberBits;
  data.Signe = pasted.Signe;
  data.Unite = pasted.Unite;
}

platform::Answer askUpdate(const std::string& name, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  constexpr char updateKey[] = "DATAS/MSG/pasteData/update/text";
  return person.message(
      {updateKey,
       texts.getMultilangMessageDefault("Confirm update", "DATAS/MSG/pasteData/update/title"),
       texts.getMultilangMessageDefault(
           "Data '{0}' already exist{crlf}{crlf}Yes = Update this data only{crlf}No = Update all "
           "data without confirmation",
           updateKey, name),
       platform::Buttons::YesNoCancel, platform::Icon::Question});
}

void refuseLongName(const TabLine& line, std::string& log, std::string& warnings) {
  const CMultiLangEx& texts = language::global();
  const std::string most = std::to_string(longestPastedName);
  log += "'" + line.whole + "\t" +
         texts.getMultilangMessageDefault("Error: Data name too long, up to {0} characters.",
                                          "DATAS/MSG/pasteData/stErrLog/text", most) +
         "\r\n";
  warnings +=
      texts.getMultilangMessageDefault("Data name '{0}' too long, up to {1} characters.",
                                       "DATAS/MSG/pasteData/stErrMsg/text", line.trimmed(0), most) +
      "\r\n";
}

void showWarnings(const std::string& warnings, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  constexpr char importErrorKey[] = "DATAS/MSG/pasteData/importError/text";
  person.message(
      {importErrorKey,
       texts.getMultilangMessageDefault("Warning", "DATAS/MSG/pasteData/importError/title"),
       texts.getMultilangMessageDefault(
           "Error when importing data, paste the clipboard to Excel{crlf}{0}", importErrorKey,
           warnings),
       platform::Buttons::Ok, platform::Icon::Exclamation});
}

} // namespace

std::span<const std::string_view> dataTextHeader() {
  return header;
}

DataText copyDatasText(SelectedDatas datas) {
  TabText text;
  for (const std::string_view cell : header)
    text.cell(cell);
  text.endLine();
  for (const DataItem* data : datas) {
    text.cell(data->dataName()).cell(data->Mnemo).cell(data->NumberBits).flag(data->Signe);
    text.cell(data->Unite).cell(coefficientText(data->CoeffA));
    text.cell(coefficientText(data->CoeffB)).cell(coefficientText(data->CoeffC));
    text.cell(data->Description).cell(typeCell(*data)).cell(data->DataFormat).endLine();
    if (typeOf(*data) != DataType::NumericList) continue;
    text.line({"'", "value", "label"});
    if (!data->DataListes) continue;
    for (const DataListeItem* item : *data->DataListes)
      text.line({"", std::to_string(item->Valeur), item->libelle});
  }
  return {text.text(), text.hasBrokenCell()};
}

DataPaste pasteDatasText(std::string_view text, TargetItem& target, platform::Person& person,
                         const TakesLog& takesLog) {
  DataPaste result;
  if (!target.datas()) return result;
  ComingDatas datas(target);
  std::string warnings;
  bool updateAll = false;
  TabReader reader(text);
  TabLine line;
  for (bool more = reader.next(line); more;) {
    if (line.cells.size() < 3 || !line.startsItem()) {
      more = reader.next(line);
      continue;
    }
    const std::string name(line.trimmed(0));
    if (characterCount(name) > longestPastedName) {
      refuseLongName(line, result.clipboard, warnings);
      more = reader.next(line);
      continue;
    }
    const DataItems::Pointer pasted = readDataLine(line);
    const bool listed = hasValueLines(line);
    more = reader.next(line);
    if (more && listed) more = readValueLines(reader, line, *pasted, result.clipboard);
    if (DataItem* existing = datas.find(name)) {
      if (!updateAll) {
        const platform::Answer answer = askUpdate(name, person);
        if (answer == platform::Answer::Cancel) break;
        updateAll = answer == platform::Answer::No;
      }
      update(*existing, *pasted);
      result.lastName = existing->dataName();
    } else {
      pasted->setDataName(name);
      datas.add(pasted);
      result.lastName = name;
    }
    result.changed = true;
  }
  datas.finish();
  if (takesLog && !result.clipboard.empty()) takesLog(result.clipboard);
  if (!warnings.empty()) showWarnings(warnings, person);
  return result;
}

} // namespace kelmar
