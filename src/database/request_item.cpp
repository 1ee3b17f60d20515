// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/request_item.h"

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/target_item.h"

namespace kelmar {

namespace {

/// The places that a request can be denied at, in the order of the file.
struct Access {
  const char* element;
  bool RequestItem::*flag;
};
constexpr Access accesses[] = {
    {"NoSDS", &RequestItem::AccesTous},
    {"Plant", &RequestItem::AccesUsine},
    {"AfterSales", &RequestItem::AccesApresVente},
    {"Engineering", &RequestItem::AccesEtudes},
    {"Supplier", &RequestItem::AccesConstructeur},
};

std::shared_ptr<FrameBuffer> copyOf(const FrameBuffer& buffer) {
  auto copy = std::make_shared<FrameBuffer>();
  copy->setHexText(buffer.HexText());
  return copy;
}

/// Copies the bytes and keeps the buffer that views may look at.
void updateBuffer(std::shared_ptr<FrameBuffer>& buffer, const FrameBuffer* source) {
  if (!source) {
    buffer.reset();
    return;
  }
  if (!buffer) buffer = std::make_shared<FrameBuffer>();
  buffer->setHexText(source->HexText());
}

void loadFrame(LoadContext& load, xml::Node frame, const char* element, FrameBuffer& buffer) {
  const xml::Node bytes = frame.child(element);
  if (!bytes) return;
  const std::string text = xml::textOf(bytes);
  try {
    buffer.setHexText(text);
  } catch (const Failure&) {
    load.notKept(element, shortened(text), bytes, "not pairs of hexadecimal digits");
  }
}

} // namespace

void RequestItem::clear() {
  if (DataPositions) DataPositions->clear();
  DataPositions.reset();
  RequestBytes.reset();
  ReplyBytes.reset();
  parent = nullptr;
}

std::shared_ptr<RequestItem> RequestItem::clone(TargetItem* newParent) const {
  auto copy = std::make_shared<RequestItem>();
  copy->parent = newParent;
  copy->RequestBytes = RequestBytes ? copyOf(*RequestBytes) : std::make_shared<FrameBuffer>();
  if (ReplyBytes) copy->ReplyBytes = copyOf(*ReplyBytes);
  copy->requestName = requestName;
  copy->LengthDatas = LengthDatas;
  copy->ShiftBytesCount = ShiftBytesCount;
  copy->LgVariable = LgVariable;
  for (const Access& access : accesses)
    (*copy).*access.flag = this->*access.flag;
  copy->ManuelSend = ManuelSend;
  copy->DossierMaintenabilite = DossierMaintenabilite;
  copy->Commentaire = Commentaire;
  if (DataPositions) copy->DataPositions = DataPositions->clone(copy.get());
  return copy;
}

void RequestItem::update(const RequestItem& source) {
  updateBuffer(RequestBytes, source.RequestBytes.get());
  updateBuffer(ReplyBytes, source.ReplyBytes.get());
  AccesApresVente = source.AccesApresVente;
  AccesConstructeur = source.AccesConstructeur;
  AccesEtudes = source.AccesConstructeur; // on purpose: engineering follows the supplier here
  AccesTous = source.AccesTous;
  AccesUsine = source.AccesUsine;
  Commentaire = source.Commentaire;
  DossierMaintenabilite = source.DossierMaintenabilite;
  LengthDatas = source.LengthDatas;
  ManuelSend = source.ManuelSend;
  if (!source.DataPositions && !DataPositions) return;
  updateDataPositions(*this, source.DataPositions.get());
}

void RequestItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Name", requestName);
  out.lineFeed();
  if (DossierMaintenabilite) {
    out.emptyElement("DossierMaintenabilite");
    out.lineFeed();
  }
  if (ManuelSend) {
    out.emptyElement("ManuelSend");
    out.lineFeed();
  }
  const bool denied = std::any_of(std::begin(accesses), std::end(accesses),
                                  [this](const Access& access) { return !(this->*access.flag); });
  if (denied) {
    out.open("DenyAccess");
    for (const Access& access : accesses)
      if (!(this->*access.flag)) out.emptyElement(xml::Name(access.element));
    out.close();
    out.lineFeed();
  }
  if (const std::string_view comment = trimBlanks(Commentaire); !comment.empty()) {
    out.cdataElement("Comment", comment);
    out.lineFeed();
  }
  out.open("Sent");
  out.lineFeed();
  if (LgVariable) {
    out.emptyElement("VariableLength");
    out.lineFeed();
  }
  out.textElement("SentBytes", RequestBytes ? RequestBytes->HexText() : std::string());
  out.lineFeed();
  if (DataPositions) DataPositions->createXMLnodeType(out, true);
  out.close();
  out.lineFeed();
  out.open("Received");
  out.attribute("MinBytes", LengthDatas);
  out.lineFeed();
  if (ShiftBytesCount != 0) {
    out.textElement("ShiftBytesCount", std::to_string(ShiftBytesCount));
    out.lineFeed();
  }
  if (ReplyBytes && ReplyBytes->Length() != 0) {
    out.textElement("ReplyBytes", ReplyBytes->HexText());
    out.lineFeed();
  }
  if (DataPositions) DataPositions->createXMLnodeType(out, false);
  out.close();
  out.lineFeed();
}

void RequestItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!readText(load, element, "Name", requestName)) {
    load.pending.set(1, "RequestItem.loadXml", "RequestItem.loadXml error : Name not defined");
    return;
  }
  Commentaire = readComment(element, "Comment");
  DossierMaintenabilite = bool(element.child("DossierMaintenabilite"));
  ManuelSend = bool(element.child("ManuelSend"));
  const xml::Node deny = element.child("DenyAccess");
  for (const Access& access : accesses)
    this->*access.flag = !deny.child(access.element);
  load.pending.clear();

  if (!RequestBytes) RequestBytes = std::make_shared<FrameBuffer>();
  LgVariable = false;
  if (const xml::Node sent = element.child("Sent")) {
    LgVariable = bool(sent.child("VariableLength"));
    loadFrame(load, sent, "SentBytes", *RequestBytes);
    if (!DataPositions) DataPositions = std::make_shared<DataPositionItems>();
    DataPositions->loadXmlType(database, sent, this, true);
    load.pending.clear();
  }
  if (!ReplyBytes) ReplyBytes = std::make_shared<FrameBuffer>();
  ShiftBytesCount = 0;
  if (const xml::Node received = element.child("Received")) {
    readNumber(load, received, "MinBytes", LengthDatas);
    if (received.child("ShiftBytesCount"))
      readChildNumber(load, received, "ShiftBytesCount", ShiftBytesCount);
    loadFrame(load, received, "ReplyBytes", *ReplyBytes);
    if (DataPositions) {
      DataPositions->loadXmlType(database, received, this, false);
    } else {
      // Only the sent side makes the collection: without it the received positions have no place.
      for (xml::Node node : received.children("DataItem"))
        load.notKept("Position", reportName(node), node, "the request has no element Sent");
    }
    load.pending.clear();
  }
}

RequestItem* RequestItems::Add(const std::string& name) {
  auto item = std::make_shared<RequestItem>();
  item->requestName = name;
  return AddData(std::move(item));
}

RequestItem* RequestItems::AddData(Pointer item) {
  const NameKey key(item->requestName);
  return append(std::move(item), key);
}

RequestItem* RequestItems::ItemName(std::string_view name) const {
  return findKey(keyOfName(name));
}

DataPositionItem* RequestItems::ItemDataPositionName(std::string_view requestName,
                                                     std::string_view dataName) const {
  const RequestItem* request = ItemName(requestName);
  if (!request || !request->DataPositions) return nullptr;
  const std::string wanted = lowerCase(dataName);
  for (DataPositionItem* position : *request->DataPositions) {
    if (position->dataName == dataName || lowerCase(position->dataName) == wanted) return position;
  }
  return nullptr;
}

void RequestItems::rename(RequestItem* item, const std::string& newName) {
  if (RequestItem* found = ItemName(newName)) {
    if (found != item)
      throw Failure(1, "RequestItems.rename", "Duplicate request (" + newName + ")");
    if (item->requestName == newName) return;
  }
  int index = 0;
  for (const RequestItem* member : *this) {
    ++index;
    if (member->requestName != item->requestName) continue;
    Pointer moved = take(index);
    moved->requestName = newName;
    AddData(std::move(moved));
    return;
  }
}

void RequestItems::createXMLnode(xml::Writer& out) const {
  for (const RequestItem* item : *this) {
    out.item("Request", item->requestName);
    out.open("Request");
    item->createXMLnode(out);
    out.close();
  }
}

void RequestItems::loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Request", "Request", MemberTest::Strict,
      [&](xml::Node node) {
        auto item = std::make_shared<RequestItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) { load.noteReferences(*AddData(std::move(item))); });
}

} // namespace kelmar
