// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_xml_clipboard.h"

#include "common/data_import.h"
#include "common/item_names.h"
#include "common/reference_index.h"
#include "common/tab_text.h"
#include "editors/rules/requests/request_tab_clipboard.h"
#include "language/multi_lang.h"

#include <unordered_map>

namespace kelmar {

std::string copyRequests(const TargetItem& target, const RequestSelection& requests) {
  xml::Writer out;
  out.open("Requests");
  out.attribute("Endian", endianText(target));
  out.open("Datas");
  DataDefinitions definitions(out);
  for (RequestItem* request : requests) {
    if (!request->DataPositions) request->DataPositions = std::make_shared<DataPositionItems>();
    for (const DataPositionItem* position : *request->DataPositions)
      definitions.add(position->data());
  }
  out.close();
  out.lineFeed();
  for (const RequestItem* request : requests) {
    out.item("Request", request->requestName);
    out.open("Request");
    request->createXMLnode(out);
    out.close();
    out.lineFeed();
  }
  out.close();
  return out.take();
}

namespace {

/// The elements of the requests by their names. Of two of one name the first is read.
std::unordered_map<std::string, xml::Node> requestElements(xml::Node root) {
  std::unordered_map<std::string, xml::Node> elements;
  for (xml::Node element : root.children("Request"))
    elements.emplace(element.attribute("Name").value(), element);
  return elements;
}

/// The positions whose data neither the ECU nor the document knows, a line for each. The reader
/// leaves such positions out.
std::string missingDatas(const TargetItem& target, xml::Node request) {
  std::string missing;
  for (const char* side : {"Sent", "Received"})
    for (xml::Node position : request.child(side).children("DataItem")) {
      const std::string name = position.attribute("Name").value();
      if (!target.datas()->ItemName(name)) missing += "    " + name + "\r\n";
    }
  return missing;
}

void tellMissing(const std::string& request, const std::string& missing, platform::Person& person) {
  const CMultiLangEx& texts = language::global();
  person.message({"REQUESTS/MSG/pasteData/text",
                  texts.getMultilangMessageDefault("Error", "REQUESTS/MSG/pasteData/title"),
                  texts.getMultilangMessageDefault(
                      "Request : {0}{crlf}The Data : {crlf}{1}{crlf} doesn't exist. You must "
                      "create data before pasting request.",
                      "REQUESTS/MSG/pasteData/text", request, missing),
                  platform::Buttons::Ok, platform::Icon::Critical});
}

} // namespace

RequestPaste pasteRequestsXml(const xml::Document& document, OmnikorLibXml& database,
                              TargetItem& target, platform::Person& person) {
  RequestPaste result;
  const xml::Node root = document.root();
  if (std::string_view(root.name()) != "Requests") return result;
  if (!target.datas()) target.setDatas(std::make_shared<DataItems>());
  result.changed = addMissingDatas(database, target, root.child("Datas")) > 0;

  RequestItems pasted;
  {
    const SourceEndianness source(target, root);
    pasted.loadXml(database, root, &target);
  }
  database.loading().pending.clear();
  database.loading().takeReport(); // that of a file alone is shown

  const std::unordered_map<std::string, xml::Node> elements = requestElements(root);
  RequestItems& requests = requestsOf(target);
  ReferenceIndex references(target);
  CopyNames names;
  for (auto& request : pasted.members()) {
    const std::string loadedName = request->requestName;
    request->requestName = names.freeName(
        loadedName, [&](const std::string& name) { return requests.ItemName(name) != nullptr; });
    if (request->DataPositions) {
      for (DataPositionItem* position : *request->DataPositions)
        if (position->reference && references.isInDatasRef(position->dataName))
          position->reference = false;
    }
    references.add(*requests.AddData(request));
    result.changed = true;
    const auto element = elements.find(loadedName);
    if (element == elements.end()) continue;
    if (const std::string missing = missingDatas(target, element->second); !missing.empty())
      tellMissing(request->requestName, missing, person);
  }
  return result;
}

RequestPaste pasteRequests(const std::string& clipboard, OmnikorLibXml& database,
                           TargetItem& target, platform::Person& person) {
  const std::string text(upToZero(clipboard));
  xml::Document document;
  if (document.loadXML(text)) return pasteRequestsXml(document, database, target, person);
  return pasteDataFromExcel(text, target, person);
}

} // namespace kelmar
