// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/scenario_item.h"

#include "database/button_item.h"
#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/screen_requests.h"

namespace kelmar {

RequestItem* ScenarioItem::request() const {
  const RequestItems* requests = parent ? requestsOfScreen(parent->parent) : nullptr;
  return requests ? requests->ItemName(requestName) : nullptr;
}

void ScenarioItem::setRequest(const RequestItem* item) {
  if (item) requestName = item->requestName;
}

std::shared_ptr<ScenarioItem> ScenarioItem::clone(ButtonItem* newParent) const {
  auto copy = std::make_shared<ScenarioItem>(*this);
  copy->parent = newParent;
  return copy;
}

void ScenarioItem::createXMLnode(xml::Writer& out) const {
  if (!request()) return;
  out.attribute("Delay", delay);
  out.attribute("RequestName", requestName);
}

void ScenarioItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  requestName = element.attribute("RequestName").value();
  if (element.attribute("Delay")) readNumber(load, element, "Delay", delay);
  load.pending.clear();
  if (requestName.empty()) {
    load.pending.set(1, "ScenarioItem.loadXml", "requestName missing");
  } else if (!request()) {
    load.pending.set(1, "ScenarioItem.loadXml", "request missing");
  }
}

ScenarioItem* ScenarioItems::Add(const std::string& requestName, std::int32_t delay) {
  auto item = std::make_shared<ScenarioItem>();
  item->requestName = requestName;
  item->delay = delay;
  return AddData(std::move(item));
}

std::int32_t ScenarioItems::greatestIndex() const {
  std::int32_t greatest = 0;
  for (const ScenarioItem* step : *this)
    greatest = std::max(greatest, step->Index);
  return greatest;
}

ScenarioItem* ScenarioItems::AddData(Pointer item) {
  item->Index = greatestIndex() + 1;
  return append(std::move(item));
}

void ScenarioItems::deleteItem(const ScenarioItem* item) {
  Items::deleteItem(item);
  renumber();
}

void ScenarioItems::renumber() {
  std::int32_t index = 0;
  for (ScenarioItem* step : *this)
    step->Index = ++index;
}

void ScenarioItems::sort() {
  stableSort(
      [](const ScenarioItem& left, const ScenarioItem& right) { return left.Index < right.Index; });
}

void ScenarioItems::up(const ScenarioItem* item) {
  const int position = indexOf(item);
  if (position < 2) return;
  swapPositions(position - 1, position);
  renumber();
}

void ScenarioItems::down(const ScenarioItem* item) {
  const int position = indexOf(item);
  if (position == 0 || position == Count()) return;
  swapPositions(position, position + 1);
  renumber();
}

std::shared_ptr<ScenarioItems> ScenarioItems::clone(ButtonItem* newParent) const {
  auto copy = std::make_shared<ScenarioItems>();
  for (const ScenarioItem* step : *this)
    copy->append(step->clone(newParent));
  return copy;
}

void ScenarioItems::createXMLnode(xml::Writer& out) const {
  for (const ScenarioItem* step : *this) {
    out.open("Send");
    step->createXMLnode(out);
    out.close();
  }
}

void ScenarioItems::loadXml(OmnikorLibXml& database, xml::Node parent, ButtonItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  std::int32_t index = greatestIndex();
  xml::Node next;
  for (xml::Node node = parent.child("Send"); node; node = next) {
    next = node.next_sibling("Send");
    auto item = std::make_shared<ScenarioItem>();
    item->parent = owner;
    item->loadXml(database, node);
    if (!load.pending.isSet()) {
      item->Index = ++index;
      append(std::move(item));
    } else {
      const std::string& name = item->requestName;
      load.notKept("Scenario step", name, node,
                   name.empty() ? "ScenarioItem.loadXml : requestName missing "
                                : "ScenarioItem.loadXml : request (" + name + ") missing ");
    }
    load.release(node);
  }
}

} // namespace kelmar
