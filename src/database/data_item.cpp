// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/data_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/target_item.h"

namespace kelmar {

void DataItem::setDataName(const std::string& name) {
  if (parent && parent->datas() && parent->datas()->ItemName(name))
    throw Failure(1, "DataItem.dataName", "Duplicate name (" + name + ")");
  dataName_ = name;
}

void DataItem::clear() {
  if (DataListes) DataListes->clear();
  DataListes.reset();
  parent = nullptr;
}

std::shared_ptr<DataItem> DataItem::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<DataItem>();
  copy->Ascii = Ascii;
  copy->CoeffA = CoeffA;
  copy->CoeffB = CoeffB;
  copy->CoeffC = CoeffC;
  copy->DataFormat = DataFormat;
  copy->setDataName(dataName_);
  copy->Description = Description;
  copy->Fiche = Fiche;
  copy->liste = liste;
  copy->Mnemo = Mnemo;
  copy->NumberBits = NumberBits;
  copy->numerique = numerique;
  copy->Signe = Signe;
  copy->Unite = Unite;
  if (liste && DataListes) copy->DataListes = DataListes->clone(copy.get());
  // Last: with a parent the copy's name would fail the duplicate test.
  copy->parent = newParent;
  return copy;
}

void DataItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", dataName_);
  out.lineFeed();
  if (const std::string_view comment = trimBlanks(Description); !comment.empty()) {
    out.cdataElement("Comment", comment);
    out.lineFeed();
  }
  if (!Mnemo.empty()) {
    out.textElement("Mnemonic", Mnemo);
    out.lineFeed();
  }
  if (!Fiche.empty()) {
    out.cdataElement("Description", Fiche);
    out.lineFeed();
  }
  if (!numerique) {
    out.open("Bytes");
    out.attribute("count", doubleToPlainText(NumberBits / 8.0));
    if (Ascii) out.attribute("ascii", "1");
    out.close();
    out.lineFeed();
    return;
  }
  out.open("Bits");
  if (NumberBits != 8) out.attribute("count", NumberBits);
  if (Signe) out.attribute("signed", "1");
  out.lineFeed();
  if (liste) {
    out.open("List");
    out.lineFeed();
    if (DataListes) DataListes->createXMLnode(out);
    out.close();
  } else {
    out.open("Scaled");
    if (!Unite.empty()) out.attribute("Unit", Unite);
    if (!(CoeffA == 1.0)) out.attribute("Step", CoeffA.toNumberText());
    if (!(CoeffB == 0.0)) out.attribute("Offset", CoeffB.toNumberText());
    if (!(CoeffC == 1.0)) out.attribute("DivideBy", CoeffC.toNumberText());
    if (!DataFormat.empty()) out.attribute("Format", DataFormat);
    out.close();
    out.lineFeed();
  }
  out.close();
  out.lineFeed();
}

void DataItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Name", dataName_)) {
    load.pending.set(1, "DataItem.loadXml", "DataItem.loadXml error : Name not defined");
    return;
  }
  Description = readComment(element, "Comment");
  Mnemo = xml::textOf(element.child("Mnemonic"));
  Fiche = xml::textOf(element.child("Description"));
  NumberBits = 8;
  numerique = true;
  liste = false;
  Unite.clear();
  Signe = false;
  CoeffA = 1.0;
  CoeffB = 0.0;
  CoeffC = 1.0;
  DataFormat.clear();
  Ascii = false;
  if (const xml::Node bits = element.child("Bits")) {
    loadBits(database, bits);
  } else if (const xml::Node bytes = element.child("Bytes")) {
    numerique = false;
    double count = 0.0;
    if (readReal(load, bytes, "count", count)) {
      try {
        NumberBits = toInt32(count * 8);
      } catch (const Failure& failure) {
        load.pending.set(failure);
        load.notKept("Value", "count", bytes, failure.text);
      }
    }
    readBoolean(load, bytes, "ascii", Ascii);
  }
  load.pending.clear();
}

namespace {

/// Runs one statement of a coefficient; a number that the decimal form cannot hold leaves the
/// field.
template <class Statement>
void tolerate(LoadContext& load, xml::Node element, const char* attribute, Statement statement) {
  const xml::Attribute found = element.attribute(attribute);
  if (!found) return;
  try {
    statement(TextToNumber(found.value()));
  } catch (const Failure& failure) {
    load.pending.set(failure);
    load.notKept("Value", attribute, element, failure.text);
  }
}

} // namespace

void DataItem::loadBits(OmnikorLibXml& database, xml::Node bits) {
  LoadContext& load = database.loading();
  readNumber(load, bits, "count", NumberBits);
  readBoolean(load, bits, "signed", Signe);
  if (const xml::Node scaled = bits.child("Scaled")) {
    tolerate(load, scaled, "Step", [this](double step) { CoeffA = step; });
    tolerate(load, scaled, "Offset", [this](double offset) { CoeffB = offset; });
    tolerate(load, scaled, "DivideBy", [this](double divisor) {
      // A small divisor lands in the offset and overwrites it. Files rely on it, and it is to stay.
      if (Coefficient::needsDecimal(divisor)) {
        CoeffB = Coefficient::asDecimal(divisor);
      } else {
        CoeffC = Coefficient::asDecimal(divisor);
      }
    });
    Unite = scaled.attribute("Unit").value();
    DataFormat = scaled.attribute("Format").value();
  }
  if (const xml::Node list = bits.child("List")) {
    liste = true;
    DataListes = std::make_shared<DataListeItems>();
    DataListes->loadXml(database, list, this);
  }
}

DataItem* DataItems::Add(const std::string& name) {
  auto item = std::make_shared<DataItem>();
  item->dataName_ = name;
  return AddData(std::move(item));
}

DataItem* DataItems::AddData(Pointer item) {
  const NameKey key(item->dataName_);
  return append(std::move(item), key);
}

DataItem* DataItems::AddDataSorted(Pointer item) {
  const std::string name = item->dataName_;
  for (const DataItem* member : *this) {
    if (member->dataName_ == name)
      throw Failure(1, "DataItems.AddDataSorted", "Duplicate data name '" + name + "'");
  }
  const int position =
      roughPosition(*this, [&](const DataItem& member) { return name < member.dataName_; });
  return position == 0 ? append(std::move(item), keyOfName(name))
                       : insertBefore(position, std::move(item), keyOfName(name));
}

DataItem* DataItems::ItemName(std::string_view name) const {
  return findKey(keyOfName(name));
}

void DataItems::rename(DataItem* item, const std::string& newName) {
  if (DataItem* found = ItemName(newName)) {
    if (found != item) throw Failure(1, "DataItems.rename", "Duplicate data (" + newName + ")");
    if (item->dataName_ == newName) return;
  }
  int position = 0, index = 0;
  for (const DataItem* member : *this) {
    ++index;
    if (member->dataName_ == item->dataName_) {
      position = index;
      break;
    }
  }
  if (position == 0) return;
  Pointer moved = take(position);
  moved->dataName_ = newName;
  AddDataSorted(std::move(moved));
}

void DataItems::createXMLnode(xml::Writer& out) const {
  for (const DataItem* item : *this) {
    out.lineFeed();
    out.item("Data", item->dataName_);
    out.open("Data");
    item->createXMLnode(out);
    out.close();
  }
}

void DataItems::loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Data", "Data", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<DataItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [this](Pointer item) { AddData(std::move(item)); });
}

} // namespace kelmar
