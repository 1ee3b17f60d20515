// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/pasted_data.h"

#include "base/conversions.h"
#include "base/text.h"
#include "editors/rules/datas/data_type.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace kelmar {

namespace {

// Columns of a data line.
enum Cell { Mnemo = 1, Bits, Signed, Unit, CoefA, CoefB, CoefC, Comment, Type, Format };

constexpr int leastBits = 1, mostBits = 2040;
constexpr std::size_t longestMnemo = 50, longestUnit = 16, longestDescription = 100;

std::optional<double> numberIn(std::string_view cell) {
  try {
    return toDouble(cell);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

void readBits(std::string_view cell, DataItem& data) {
  const std::optional<double> number = numberIn(cell);
  if (!number) return;
  data.NumberBits = toInt32(std::clamp(*number, double(leastBits), double(mostBits)));
  if (data.NumberBits <= mostNumericBits) return;
  data.NumberBits = toInt32(data.NumberBits / 8.0) * 8;
  data.numerique = false;
  data.Ascii = false;
}

/// `otherwise` stands for 0, where 0 makes no sense.
void readCoefficient(std::string_view cell, Coefficient& coefficient, double otherwise) {
  const double number = TextToNumber(replaceAll(cell, ",", "."));
  try {
    coefficient = number == 0.0 ? otherwise : number;
  } catch (const Failure&) {
    // Too small for the file: as if it were not there.
  }
}

void readType(const TabLine& line, DataItem& data) {
  const std::string type = lowerCase(line.trimmed(Type));
  // More bits than a number may have stay bytes, whatever the cell says.
  const bool mayBeNumeric = data.NumberBits <= mostNumericBits;
  if (type == "numeric" && mayBeNumeric) {
    data.numerique = true;
    data.DataFormat = line.trimmed(Format);
  } else if (type == "list" && mayBeNumeric) {
    data.numerique = true;
    data.liste = true;
  } else if (type == "ascii") {
    data.numerique = false;
    data.Ascii = true;
  } else if (type == "hexa") {
    data.numerique = false;
    data.Ascii = false;
  }
}

} // namespace

std::shared_ptr<DataItem> readDataLine(const TabLine& line) {
  auto data = std::make_shared<DataItem>();
  data->Mnemo = leftCharacters(line.trimmed(Mnemo), longestMnemo);
  if (line.has(Bits)) readBits(line.trimmed(Bits), *data);
  data->Signe = line.flag(Signed);
  data->Unite = leftCharacters(line.trimmed(Unit), longestUnit);
  if (line.has(CoefA)) readCoefficient(line.trimmed(CoefA), data->CoeffA, 1);
  if (line.has(CoefB)) readCoefficient(line.trimmed(CoefB), data->CoeffB, 0);
  if (line.has(CoefC)) readCoefficient(line.trimmed(CoefC), data->CoeffC, 1);
  data->Description = leftCharacters(line.trimmed(Comment), longestDescription);
  readType(line, *data);
  if (data->liste) data->DataListes = std::make_shared<DataListeItems>();
  return data;
}

bool hasValueLines(const TabLine& line) {
  return lowerCase(line.trimmed(Type)) == "list";
}

bool readValueLines(TabReader& reader, TabLine& line, DataItem& data, std::string& log) {
  std::unordered_map<std::int32_t, std::string> labelOf;
  std::unordered_map<std::string, std::int32_t> valueOf;
  std::vector<DataListeItems::Pointer> items;
  bool more = true;
  for (; more && line.cells.size() >= 3; more = reader.next(line)) {
    if (line.isRemark()) continue;
    if (line.startsItem()) break; // the next data
    const std::optional<double> number = numberIn(line.trimmed(1));
    if (!number || *number < -2147483648.5 || *number >= 2147483647.5) continue;
    const std::int32_t value = toInt32(*number);
    const std::string label(line.trimmed(2));
    std::string trouble;
    if (const auto found = labelOf.find(value); found != labelOf.end()) {
      trouble = "Duplicate value (already exist with label : " + found->second + ")";
    } else if (const auto same = valueOf.find(label); same != valueOf.end()) {
      trouble = "Duplicate label (already exist with value : " + std::to_string(same->second) + ")";
    }
    if (!trouble.empty()) {
      log += "'Error\t" + line.whole + "\t" + trouble + "\r\n";
      continue;
    }
    // A good value has its line too, on purpose: the log stands beside the lines it tells of.
    log += "'\r\n";
    labelOf.emplace(value, label);
    valueOf.emplace(label, value);
    auto item = std::make_shared<DataListeItem>();
    item->parent = &data;
    item->libelle = label;
    item->Valeur = value;
    items.push_back(std::move(item));
  }
  if (data.DataListes) data.DataListes->AddAll(std::move(items));
  return more;
}

} // namespace kelmar
