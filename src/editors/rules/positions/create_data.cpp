// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/create_data.h"

#include "common/position_bits.h"
#include "common/tab_text.h"
#include "language/multi_lang.h"
#include "xml/document.h"

namespace kelmar {

namespace {

using Shape = NewDataKind::Shape;

const CreateDataEntry entries[] = {
    {"ppCDnumericBit", 1, "1 bit", {Shape::Numeric, 1}},
    {"ppCDnumericBit", 2, "2 bits", {Shape::Numeric, 2}},
    {"ppCDnumericBit", 3, "3 bits", {Shape::Numeric, 3}},
    {"ppCDnumericBit", 4, "4 bits", {Shape::Numeric, 4}},
    {"ppCDnumericBit", 5, "5 bits", {Shape::Numeric, 5}},
    {"ppCDnumericBit", 6, "6 bits", {Shape::Numeric, 6}},
    {"ppCDnumericBit", 7, "7 bits", {Shape::Numeric, 7}},
    {"ppCDnumericBit", 8, "8 bits", {Shape::Numeric, 8}},
    {"ppCDnumericBit", 12, "12 bits", {Shape::Numeric, 12}},
    {"ppCDnumericBit", 16, "16 bits", {Shape::Numeric, 16}},
    {"ppCDnumericBit", 24, "24 bits", {Shape::Numeric, 24}},
    {"ppCDnumericList", 1, "1 bit (Yes/No)", {Shape::YesNo, 1}},
    {"ppCDnumericList", 2, "1 bit (On/Off)", {Shape::OnOff, 1}},
    {"ppCDhexaBytes", 1, "1 byte", {Shape::Hexa, 8}},
    {"ppCDhexaBytes", 2, "2 bytes", {Shape::Hexa, 16}},
    {"ppCDhexaBytes", 3, "3 bytes", {Shape::Hexa, 24}},
    {"ppCDhexaBytes", 4, "4 bytes", {Shape::Hexa, 32}},
    {"ppCDhexaBytes", 5, "5 bytes", {Shape::Hexa, 40}},
    {"ppCDhexaBytes", 6, "6 bytes", {Shape::Hexa, 48}},
    {"ppCDhexaBytes", 7, "7 bytes", {Shape::Hexa, 56}},
    {"ppCDhexaBytes", 8, "8 bytes", {Shape::Hexa, 64}},
    {"ppCDasciiBytes", 1, "1 Character", {Shape::Ascii, 8}},
    {"ppCDasciiBytes", 2, "2 Characters", {Shape::Ascii, 16}},
    {"ppCDasciiBytes", 3, "3 Characters", {Shape::Ascii, 24}},
    {"ppCDasciiBytes", 4, "4 Characters", {Shape::Ascii, 32}},
    {"ppCDasciiBytes", 5, "5 Characters", {Shape::Ascii, 40}},
    {"ppCDasciiBytes", 6, "6 Characters", {Shape::Ascii, 48}},
    {"ppCDasciiBytes", 7, "7 Characters", {Shape::Ascii, 56}},
    {"ppCDasciiBytes", 8, "8 Characters", {Shape::Ascii, 64}},
};

platform::InputQuestion questionFor(Shape shape) {
  const CMultiLangEx& texts = language::global();
  const std::string title = texts.getMultilangMessageDefault(
      "Enter data name", "REQUESTS/MSG/graphView/enterDataName/title");
  switch (shape) {
  case Shape::Numeric:
    return {"REQUESTS/MSG/graphView/createdataNumeric/text", title,
            texts.getMultilangMessageDefault("Enter name for numeric data",
                                             "REQUESTS/MSG/graphView/createdataNumeric/text"),
            ""};
  case Shape::Hexa:
    return {"REQUESTS/MSG/graphView/createdataHexa/text", title,
            texts.getMultilangMessageDefault("Enter name for hexa data",
                                             "REQUESTS/MSG/graphView/createdataHexa/text"),
            ""};
  case Shape::Ascii:
    return {"REQUESTS/MSG/graphView/createdataAscii/text", title,
            texts.getMultilangMessageDefault("Enter name for ascii data",
                                             "REQUESTS/MSG/graphView/createdataAscii/text"),
            ""};
  default:
    return {"REQUESTS/MSG/graphView/createdataNumericList/text", title,
            texts.getMultilangMessageDefault("Enter name for numeric list data",
                                             "REQUESTS/MSG/graphView/createdataNumericList/text"),
            ""};
  }
}

void addValues(DataItem& data, const char* zero, const char* one) {
  data.liste = true;
  data.DataListes = std::make_shared<DataListeItems>();
  data.DataListes->Add(0, zero, "")->parent = &data;
  data.DataListes->Add(1, one, "")->parent = &data;
}

std::shared_ptr<DataItem> makeData(const NewDataKind& kind) {
  auto data = std::make_shared<DataItem>();
  data->NumberBits = kind.NumberBits;
  switch (kind.shape) {
  case Shape::Numeric:
    break;
  case Shape::YesNo:
    addValues(*data, "No", "Yes");
    break;
  case Shape::OnOff:
    addValues(*data, "Off", "On");
    break;
  case Shape::Hexa:
    data->numerique = data->Ascii = false;
    break;
  case Shape::Ascii:
    data->numerique = false;
    data->Ascii = true;
    break;
  }
  return data;
}

} // namespace

std::span<const CreateDataEntry> createDataEntries() {
  return entries;
}

DataPositionItem* createDataAt(TargetItem& target, RequestItem& request, bool sent,
                               const NewDataKind& kind, const FrameBit& bit,
                               platform::Person& person, DataItem** newData) {
  const std::string name = person.input(questionFor(kind.shape));
  if (name.empty()) return nullptr;
  const CMultiLangEx& texts = language::global();
  if (!target.datas()) target.setDatas(std::make_shared<DataItems>());
  if (target.datas()->ItemName(name)) {
    person.message({"REQUESTS/MSG/graphView/dataExist/text",
                    texts.getMultilangMessageDefault("Error duplicate name",
                                                     "REQUESTS/MSG/graphView/dataExist/title"),
                    texts.getMultilangMessageDefault("Data already exists",
                                                     "REQUESTS/MSG/graphView/dataExist/text"),
                    platform::Buttons::Ok, platform::Icon::Critical});
    return nullptr;
  }
  auto data = makeData(kind);
  data->setDataName(name);
  data->parent = &target;
  const DataItem* added = target.datas()->AddDataSorted(data);
  if (newData) *newData = data.get();
  const bool littleEndian = target.Parametres()->LittleEndian;
  return AddDataPositionToActiveRequest(target, request, *added, sent,
                                        static_cast<std::int32_t>(bit.byte) + 1,
                                        startBitAt(bit.cell, littleEndian), littleEndian, person);
}

DataPositionItem* pasteDatasAt(const std::string& clipboard, TargetItem& target,
                               RequestItem& request, bool sent, const FrameBit& bit,
                               platform::Person& person) {
  xml::Document document;
  if (!document.loadXML(std::string(upToZero(clipboard))) ||
      std::string_view(document.root().name()) != "Datas" || !target.datas())
    return nullptr;
  std::vector<const DataItem*> datas;
  for (xml::Node element : document.root().children("Data"))
    if (const DataItem* data = target.datas()->ItemName(element.attribute("Name").value()))
      datas.push_back(data);
  return addDataPositions(target, request, datas, sent, static_cast<std::int32_t>(bit.byte) + 1,
                          startBitAt(bit.cell, target.Parametres()->LittleEndian), person);
}

} // namespace kelmar
