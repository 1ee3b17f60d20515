// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/display_item.h"

#include "base/conversions.h"
#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/position_finder.h"
#include "database/screen_item.h"
#include "database/screen_requests.h"
#include "database/screen_shapes.h"

namespace kelmar {

namespace {

const RequestItems* requestsOfDisplay(const DisplayItem* display) {
  return display ? requestsOfScreen(display->parent) : nullptr;
}

/// "request/data", or the request alone: what a display is known by.
std::string displayName(xml::Node element) {
  const std::string request = element.attribute("RequestName").value();
  const xml::Attribute data = element.attribute("DataName");
  return data ? request + "/" + data.value() : request;
}

/// Why a display was not kept, as the log has it.
std::string whyNotKept(xml::Node element) {
  const std::string request = element.attribute("RequestName").value();
  const xml::Attribute data = element.attribute("DataName");
  if (!data) return request.empty() ? "requestName missing" : "request missing (" + request + ")";
  if (request.empty() || *data.value() == '\0') return "dataName or requestName missing";
  return "request/data missing (" + displayName(element) + ")";
}

constexpr std::int32_t requestOnly = 1;
constexpr std::int32_t dataOfRequest = 3;

} // namespace

DataPositionItem* DisplayDataItem::DataPosition() const {
  const RequestItems* requests = requestsOfDisplay(parent);
  const RequestItem* request = requests ? requests->ItemName(requestName) : nullptr;
  if (!request || !request->DataPositions) return nullptr;
  return request->DataPositions->ItemName(dataName);
}

DataPositionItem* DisplayDataItem::DataPosition(PositionFinder& positions) const {
  const RequestItems* requests = requestsOfDisplay(parent);
  const RequestItem* request = requests ? requests->ItemName(requestName) : nullptr;
  return request ? positions.find(*request, dataName) : nullptr;
}

void DisplayDataItem::setDataPosition(const DataPositionItem* position) {
  if (!position) return;
  // In the spelling of the position, by which it is found again; that of the data may differ in
  // case.
  if (position->data()) dataName = position->dataName;
  if (position->parent) requestName = position->parent->requestName;
}

std::shared_ptr<DisplayDataItem> DisplayDataItem::clone(DisplayItem* newParent) const {
  auto copy = std::make_shared<DisplayDataItem>(*this);
  copy->parent = newParent;
  return copy;
}

RequestItem* DisplayExtraItem::request() const {
  const RequestItems* requests = requestsOfDisplay(parent);
  return requests ? requests->ItemName(requestName) : nullptr;
}

void DisplayExtraItem::setRequest(const RequestItem* item) {
  if (item) requestName = item->requestName;
}

std::shared_ptr<DisplayExtraItem> DisplayExtraItem::clone(DisplayItem* newParent) const {
  auto copy = std::make_shared<DisplayExtraItem>(*this);
  copy->parent = newParent;
  return copy;
}

void DisplayItem::clear() {
  if (DisplayExtraItem) DisplayExtraItem->clear();
  if (DisplayDataItem) DisplayDataItem->clear();
  if (RangeItems) RangeItems->clear();
  DisplayExtraItem.reset();
  DisplayDataItem.reset();
  RangeItems.reset();
  parent = nullptr;
}

std::shared_ptr<DisplayItem> DisplayItem::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<DisplayItem>(*this);
  copy->parent = newParent;
  if (RangeItems) copy->RangeItems = RangeItems->clone(copy.get());
  if (DisplayDataItem) copy->DisplayDataItem = DisplayDataItem->clone(copy.get());
  if (DisplayExtraItem) copy->DisplayExtraItem = DisplayExtraItem->clone(copy.get());
  return copy;
}

void DisplayItem::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void DisplayItem::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  bool isInput = false;
  std::string_view data, request;
  if (TypeDisplay == requestOnly) {
    if (!DisplayExtraItem) return;
    isInput = DisplayExtraItem->param;
    request = DisplayExtraItem->requestName;
  } else {
    if (!DisplayDataItem && TypeDisplay == dataOfRequest) return;
    const DataPositionItem* position =
        DisplayDataItem ? DisplayDataItem->DataPosition(positions) : nullptr;
    if (!position) {
      Failure failure = platformFailure(MissingObject, "DisplayItem.createXMLnode");
      if (DisplayDataItem) {
        failure.text += " (display of data '" + DisplayDataItem->dataName + "' in request '" +
                        DisplayDataItem->requestName + "'" +
                        (parent ? ", screen '" + parent->screenName + "'" : std::string()) + ")";
      }
      throw failure;
    }
    data = position->dataName;
    if (TypeDisplay == dataOfRequest) {
      isInput = position->param;
      request = position->parent->requestName;
    }
  }
  out.open(isInput ? xml::Name("Input") : xml::Name("Display"));
  out.attribute("Width", CaptionWidth);
  out.attribute("Color", DisplayColor);
  if (TypeDisplay != requestOnly) out.attribute("DataName", data);
  if (TypeDisplay == requestOnly || TypeDisplay == dataOfRequest)
    out.attribute("RequestName", request);
  out.lineFeed();
  writeRectangle(out, DisplayLeft, DisplayTop, DisplayHeight, DisplayWidth);
  out.open("Font");
  out.attribute("Name", FontName);
  out.attribute("Size", FontSize);
  out.attribute("Bold", flagText(FontBold));
  out.attribute("Italic", flagText(FontItalic));
  out.attribute("Color", FontColor);
  out.close();
  if (RangeItems) RangeItems->createXMLnode(out);
  out.close();
}

void DisplayItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  const bool param = baseName(element) == "Input";
  readNumber(load, element, "Width", CaptionWidth);
  readNumber(load, element, "Color", DisplayColor);
  readRectangle(load, element, DisplayLeft, DisplayTop, DisplayHeight, DisplayWidth);
  if (const xml::Node font = element.child("Font")) {
    readText(load, font, "Name", FontName);
    if (font.attribute("Size")) {
      try {
        FontSize = toInt32(readFontSize(font));
      } catch (const Failure& failure) {
        load.notKept("Value", "Size", font, failure.text);
      }
    }
    readBoolean(load, font, "Bold", FontBold);
    readBoolean(load, font, "Italic", FontItalic);
    readNumber(load, font, "Color", FontColor);
  }
  load.pending.clear();
  const std::string request = element.attribute("RequestName").value();
  if (const xml::Attribute data = element.attribute("DataName")) {
    loadData(database, request, data.value());
  } else {
    loadExtra(database, request, param);
  }
  if (load.pending.isSet()) return;
  if (!RangeItems) RangeItems = std::make_shared<kelmar::RangeItems>();
  RangeItems->loadXml(database, element, this);
}

void DisplayItem::loadExtra(OmnikorLibXml& database, const std::string& request, bool param) {
  PendingError& pending = database.loading().pending;
  TypeDisplay = requestOnly;
  if (request.empty()) {
    pending.set(1, "DisplayItem.loadXml", "requestName missing");
    return;
  }
  if (!DisplayExtraItem) DisplayExtraItem = std::make_shared<kelmar::DisplayExtraItem>();
  DisplayExtraItem->parent = this;
  DisplayExtraItem->param = param;
  DisplayExtraItem->requestName = request;
  const RequestItems* requests = requestsOfDisplay(this);
  const RequestItem* found = requests ? requests->ItemName(request) : nullptr;
  if (found) {
    DisplayExtraItem->setRequest(found);
  } else {
    pending.set(1, "DisplayItem.loadXml", "request missing");
  }
}

void DisplayItem::loadData(OmnikorLibXml& database, const std::string& request,
                           const std::string& data) {
  LoadContext& load = database.loading();
  TypeDisplay = dataOfRequest;
  if (request.empty() || data.empty()) {
    load.pending.set(1, "DisplayItem.loadXml", "requestName/dataName missing");
    return;
  }
  if (!DisplayDataItem) DisplayDataItem = std::make_shared<kelmar::DisplayDataItem>();
  DisplayDataItem->parent = this;
  DisplayDataItem->dataName = data;
  DisplayDataItem->requestName = request;
  const TargetItem* target = targetOfScreen(parent);
  const DataPositionItem* found = target ? load.positionInRequest(*target, request, data) : nullptr;
  if (found) {
    DisplayDataItem->setDataPosition(found);
  } else {
    load.pending.set(1, "DisplayItem.loadXml", "request/data missing");
  }
}

DisplayItem* DisplayItems::AddData(Pointer item, std::string_view key) {
  return key.empty() ? append(std::move(item)) : append(std::move(item), key);
}

std::shared_ptr<DisplayItems> DisplayItems::clone(ScreenItem* newParent) const {
  auto copy = std::make_shared<DisplayItems>();
  for (const DisplayItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void DisplayItems::createXMLnode(xml::Writer& out) const {
  PositionFinder positions;
  createXMLnode(out, positions);
}

void DisplayItems::createXMLnode(xml::Writer& out, PositionFinder& positions) const {
  for (const DisplayItem* member : *this) {
    out.lineFeed();
    member->createXMLnode(out, positions);
  }
}

void DisplayItems::loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  // Displays and inputs in document order: no plain list of one element name.
  for (xml::Node node = parent.first_child(); node;) {
    const xml::Node next = node.next_sibling();
    const std::string_view element = node.name();
    if (element == "Display" || element == "Input") {
      auto item = std::make_shared<DisplayItem>();
      item->parent = owner;
      item->loadXml(database, node);
      if (load.pending.isSet()) {
        load.notKept("Display", displayName(node), node,
                     "DisplayItem.loadXml : " + whyNotKept(node));
      } else {
        AddData(std::move(item));
      }
      load.release(node);
    }
    node = next;
  }
}

} // namespace kelmar
