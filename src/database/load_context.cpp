// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/load_context.h"

#include "base/conversions.h"
#include "base/name_index.h"
#include "base/text.h"
#include "database/items.h"
#include "database/load_members.h"
#include "database/target_item.h"

#include <deque>
#include <unordered_map>
#include <unordered_set>

namespace kelmar {

namespace {

/// Requests with fewer positions are searched without an index.
constexpr int positionsWorthAnIndex = 16;

} // namespace

struct LoadContext::WholeFile {
  xml::Document* document = nullptr;
  // The names belong to the model.
  NameIndex<bool> deviceDatas; // exact names
  NameIndex<bool> flagKeys;    // folded names, kept below
  std::deque<std::string> folded;
  std::unordered_set<std::int32_t> obdCodes;
  NameIndex<DataPositionItem*> references;
  std::unordered_map<const RequestItem*, std::unordered_map<std::string, DataPositionItem*>>
      positions; // by data name in lower case
};

LoadContext::LoadContext() = default;
LoadContext::~LoadContext() = default;

void LoadContext::beginWholeFile(xml::Document& document) {
  file_ = std::make_unique<WholeFile>();
  file_->document = &document;
  report_.clear();
}

void LoadContext::endWholeFile() {
  file_.reset();
}

void LoadContext::notKept(const char* kind, std::string_view name, xml::Node element,
                          std::string reason) {
  NotKept note;
  note.kind = kind;
  note.name = name;
  note.path = pathOf(element);
  note.line = file_ ? file_->document->lineOf(element) : 0;
  note.reason = std::move(reason);
  report_.push_back(std::move(note));
}

void LoadContext::release(xml::Node element) {
  if (file_) file_->document->discard(element);
}

DataPositionItem* LoadContext::referencePosition(const TargetItem& target,
                                                 std::string_view dataName) {
  if (!file_) return target.GetDataPositionFromRefData(dataName);
  DataPositionItem* const* found = file_->references.find(dataName);
  return found ? *found : nullptr;
}

DataPositionItem* LoadContext::positionInRequest(const TargetItem& target,
                                                 std::string_view requestName,
                                                 std::string_view dataName) {
  if (!target.Requests()) return nullptr;
  RequestItem* request = target.Requests()->ItemName(requestName);
  if (!request || !request->DataPositions) return nullptr;
  if (!file_ || request->DataPositions->Count() < positionsWorthAnIndex)
    return target.Requests()->ItemDataPositionName(requestName, dataName);
  auto [index, isNew] = file_->positions.try_emplace(request);
  if (isNew) {
    for (DataPositionItem* position : *request->DataPositions)
      index->second.try_emplace(lowerCase(position->dataName), position);
  }
  const auto found = index->second.find(lowerCase(dataName));
  return found == index->second.end() ? nullptr : found->second;
}

bool LoadContext::isTakenByDevice(const OrganeItem& device, std::string_view dataName) {
  if (!file_) {
    return device.parent->GetDeviceUsingData(dataName) || device.GetDeviceDataUsingData(dataName) ||
           device.GetTestUsingData(dataName);
  }
  return file_->deviceDatas.contains(dataName) ||
         file_->flagKeys.contains(FoldedKey(dataName).view());
}

bool LoadContext::isObdTaken(const OrganeItem& device, std::int32_t obd) {
  if (!file_) {
    return (device.parent->Organes() && device.parent->Organes()->GetDevicesTestWithObd(obd)) ||
           (device.Tests && device.Tests->ItemOBD(obd));
  }
  return file_->obdCodes.contains(obd);
}

void LoadContext::noteReferences(const RequestItem& request) {
  if (!file_ || !request.DataPositions) return;
  // Of several references to one data the first stays.
  for (DataPositionItem* position : *request.DataPositions)
    if (position->reference) file_->references.insert(position->dataName, position);
}

void LoadContext::noteDeviceData(std::string_view dataName) {
  if (file_) file_->deviceDatas.insert(dataName, true);
}

void LoadContext::noteFlag(std::string_view dataName) {
  if (!file_) return;
  const FoldedKey key(dataName);
  if (!file_->flagKeys.contains(key.view()))
    file_->flagKeys.insert(file_->folded.emplace_back(key.view()), true);
}

void LoadContext::noteObd(std::int32_t obd) {
  if (file_ && obd != 0) file_->obdCodes.insert(obd);
}

std::string shortened(std::string_view text) {
  std::size_t enough = 60;
  if (text.size() <= enough) return std::string(text);
  while (enough > 0 && (static_cast<unsigned char>(text[enough]) & 0xC0) == 0x80)
    --enough;
  return std::string(text.substr(0, enough)) + "...";
}

namespace {

std::string badValueText(std::string_view text, const Failure& failure) {
  return "'" + shortened(text) + "': " + failure.text;
}

template <class Field, class Convert>
bool convertInto(LoadContext& load, xml::Node where, const char* name, const char* text,
                 Field& field, Convert convert) {
  try {
    field = convert(std::string_view(text));
    return true;
  } catch (const Failure& failure) {
    load.pending.set(failure);
    load.notKept("Value", name, where, badValueText(text, failure));
    return false;
  }
}

} // namespace

bool readText(LoadContext& load, xml::Node element, const char* attribute, std::string& field) {
  const xml::Attribute found = element.attribute(attribute);
  if (!found) {
    load.pending.set(MissingObject);
    return false;
  }
  field = found.value();
  return true;
}

bool readNumber(LoadContext& load, xml::Node element, const char* attribute, std::int32_t& field) {
  const xml::Attribute found = element.attribute(attribute);
  if (!found) {
    load.pending.set(MissingObject);
    return false;
  }
  return convertInto(load, element, attribute, found.value(), field,
                     [](std::string_view text) { return toInt32(text); });
}

bool readBoolean(LoadContext& load, xml::Node element, const char* attribute, bool& field) {
  const xml::Attribute found = element.attribute(attribute);
  if (!found) {
    load.pending.set(MissingObject);
    return false;
  }
  return convertInto(load, element, attribute, found.value(), field,
                     [](std::string_view text) { return toBoolean(text); });
}

bool readReal(LoadContext& load, xml::Node element, const char* attribute, double& field) {
  const xml::Attribute found = element.attribute(attribute);
  if (!found) {
    load.pending.set(MissingObject);
    return false;
  }
  return convertInto(load, element, attribute, found.value(), field,
                     [](std::string_view text) { return toDouble(text); });
}

bool readChildText(LoadContext& load, xml::Node element, const char* child, std::string& field) {
  const xml::Node found = element.child(child);
  if (!found) {
    load.pending.set(MissingObject);
    return false;
  }
  field = xml::textOf(found);
  return true;
}

bool readChildNumber(LoadContext& load, xml::Node element, const char* child, std::int32_t& field) {
  std::string text;
  if (!readChildText(load, element, child, text)) return false;
  return convertInto(load, element.child(child), child, text.c_str(), field,
                     [](std::string_view value) { return toInt32(value); });
}

std::string readComment(xml::Node element, const char* child, bool trimXmlComment) {
  if (const xml::Node found = element.child(child))
    return std::string(trimBlanks(widenLineFeeds(xml::textOf(found))));
  for (xml::Node node : element.children()) {
    if (node.type() != pugi::node_comment) continue;
    std::string text = widenLineFeeds(node.value());
    return trimXmlComment ? std::string(trimBlanks(text)) : text;
  }
  return {};
}

std::string_view baseName(xml::Node node) {
  const std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string reportName(xml::Node element) {
  for (const char* attribute : {"Name", "Text", "DataName", "RequestName", "Type", "Value"}) {
    if (const xml::Attribute found = element.attribute(attribute)) return found.value();
  }
  return {};
}

std::string pathOf(xml::Node element) {
  std::string path;
  for (xml::Node node = element; node && node.type() == pugi::node_element; node = node.parent()) {
    const std::string_view name = node.name();
    // The outer frame is the same in every file and says nothing.
    if (name == "zem:Target" || (name == "xml" && node.parent().type() == pugi::node_document))
      break;
    std::string step(name);
    if (const std::string label = reportName(node); !label.empty()) step += "[" + label + "]";
    path = path.empty() ? step : step + "/" + path;
  }
  return path.empty() ? std::string(element.name()) : path;
}

} // namespace kelmar
