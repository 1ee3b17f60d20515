// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/position_clipboard.h"

#include "base/text.h"
#include "common/data_import.h"
#include "common/tab_text.h"
#include "language/multi_lang.h"

namespace kelmar {

std::string copyDataPositions(const TargetItem& target, const RequestItem& request, bool sent,
                              const PositionSelection& positions) {
  xml::Writer out;
  out.open("Positions");
  out.attribute("Endian", endianText(target));
  out.open("Datas");
  DataDefinitions definitions(out);
  for (const DataPositionItem* position : positions)
    definitions.add(position->data());
  out.close();
  out.lineFeed();
  out.item("Request", request.requestName);
  out.open("Request");
  out.attribute("Name", request.requestName);
  out.attribute("Sent", sent ? "1" : "0");
  for (const DataPositionItem* position : positions) {
    out.open("DataItem");
    position->createXMLnode(out, true);
    out.close();
    out.lineFeed();
  }
  out.close();
  out.lineFeed();
  out.close();
  return out.take();
}

std::string copyPositionsText(const PositionSelection& positions, bool& broken) {
  TabText text;
  for (const DataPositionItem* position : positions) {
    text.cell(position->dataName).cell(position->StartOctet).cell(position->StartBit);
    text.flag(position->LittleEndian).flag(position->reference);
    text.endLine();
  }
  broken = text.hasBrokenCell();
  return text.text();
}

namespace {

/// One paste into one side of a request.
class PositionPaste {
 public:
  PositionPaste(OmnikorLibXml& database, TargetItem& target, RequestItem& request, bool sent,
                platform::Person& person)
      : database_(database), target_(target), request_(request), sent_(sent), person_(person),
        references_(target), datas_(target), positions_(request) {}

  bool read(const std::string& text, const std::function<void()>& pasted) {
    xml::Document document;
    if (!document.loadXML(text)) {
      readText(text);
    } else if (const std::string_view root = document.root().name(); root == "Positions") {
      readPositions(document.root());
    } else if (root == "Datas") {
      readDatas(document.root());
    } else {
      tell(
          "REQUESTS/MSG/pasteDataPositions/badClipboardData/text",
          texts_.getMultilangMessageDefault(
              "Error", "REQUESTS/MSG/pasteDataPositions/badClipboardData/title"),
          texts_.getMultilangMessageDefault(
              "Bad clipboard data format", "REQUESTS/MSG/pasteDataPositions/badClipboardData/text"),
          platform::Icon::Critical);
    }
    datas_.finish();
    positions_.finish();
    if (pasted) pasted();
    tellMissing();
    tellWarnings();
    return changed_;
  }

 private:
  void tell(const char* key, const std::string& title, const std::string& text,
            platform::Icon icon) {
    person_.message({key, title, text, platform::Buttons::Ok, icon});
  }
  bool isAgreed(const char* key, const std::string& title, const std::string& text) {
    return person_.message({key, title, text, platform::Buttons::YesNo,
                            platform::Icon::Question}) == platform::Answer::Yes;
  }

  // What is missing.
  void note(std::string_view data) { missing_ += "    " + std::string(data) + "\r\n"; }
  void tellMissing() {
    if (missing_.empty()) return;
    tell("REQUESTS/MSG/pasteDataPositions/dataDoesntExist/text",
         texts_.getMultilangMessageDefault("Error",
                                           "REQUESTS/MSG/pasteDataPositions/dataDoesntExist/title"),
         texts_.getMultilangMessageDefault(
             "Data : {crlf}{0}{crlf}doesn't exist. You must create data first.",
             "REQUESTS/MSG/pasteDataPositions/dataDoesntExist/text", missing_),
         platform::Icon::Critical);
  }
  void warn(const std::string& text) { warnings_ += text + "\r\n"; }
  void tellWarnings() {
    if (warnings_.empty()) return;
    tell("REQUESTS/MSG/warning/text",
         texts_.getMultilangMessageDefault("Warning", "REQUESTS/MSG/warning/text"), warnings_,
         platform::Icon::Exclamation);
  }

  /// Adds the position; false when the rest of the paste is to be given up.
  bool add(std::shared_ptr<DataPositionItem> position) {
    try {
      const DataPositionItem* added = positions_.add(std::move(position));
      if (added->reference) references_.add(added->dataName);
      changed_ = true;
      return true;
    } catch (const Failure& failure) {
      return person_.message({"REQUESTS/MSG/pasteDataPositions/addDataError/text",
                              texts_.getMultilangMessageDefault(
                                  "Error", "REQUESTS/MSG/pasteDataPositions/addDataError/title"),
                              texts_.getMultilangMessageDefault(
                                  "Adding data to the request '{0}'{crlf}Error: {1}",
                                  "REQUESTS/MSG/pasteDataPositions/addDataError/text",
                                  request_.requestName, failure.text),
                              platform::Buttons::OkCancel, platform::Icon::Critical}) ==
             platform::Answer::Ok;
    }
  }

  /// The fragment of the data page: each data that the ECU knows goes to byte 1.
  void readDatas(xml::Node root) {
    for (xml::Node element : root.children("Data")) {
      const std::string name = element.attribute("Name").value();
      const DataItem* data = target_.datas()->ItemName(name);
      if (!data) {
        note(name);
        continue;
      }
      auto position = newPosition(*data);
      position->LittleEndian = target_.Parametres()->LittleEndian;
      position->reference =
          isReferenceByDefault(request_, sent_) && !references_.isReferenced(data->dataName());
      if (!add(std::move(position))) break;
    }
  }

  std::shared_ptr<DataPositionItem> newPosition(const DataItem& data) const {
    auto position = std::make_shared<DataPositionItem>();
    position->parent = &request_;
    position->param = sent_;
    position->setData(&data);
    return position;
  }

  void readPositions(xml::Node root) {
    if (addMissingDatas(database_, target_, root.child("Datas")) > 0) changed_ = true;
    const xml::Node request = root.child("Request");
    DataPositionItems pasted;
    {
      const SourceEndianness source(target_, root);
      pasted.loadXml(database_, request, &request_);
    }
    database_.loading().pending.clear();
    database_.loading().takeReport();
    for (auto& position : pasted.members()) {
      position->param = sent_;
      if (!target_.datas()->ItemName(position->dataName)) {
        note(position->dataName);
        continue;
      }
      if (DataPositionItem* present = positions_.find(position->dataName)) {
        if (isAgreed("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", confirmTitle(),
                     updateQuestion(position->dataName)))
          update(*present, *position);
        continue;
      }
      if (references_.isReferenced(position->dataName)) position->reference = false;
      if (!add(position)) break;
    }
  }

  std::string confirmTitle() const {
    return texts_.getMultilangMessageDefault(
        "Confirm data update", "REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/title");
  }
  std::string updateQuestion(const std::string& data) const {
    return texts_.getMultilangMessageDefault(
        "Data '{0}' already used in this request. Update data position parameters?",
        "REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", data);
  }
  void update(DataPositionItem& present, const DataPositionItem& pasted) {
    present.LittleEndian = pasted.LittleEndian;
    present.StartBit = pasted.StartBit;
    present.StartOctet = pasted.StartOctet;
    changed_ = true;
  }

  void readText(const std::string& text) {
    TabReader reader(text);
    for (TabLine line; reader.next(line);) {
      const std::string name(line.trimmed(0));
      if (!name.empty() && !readLine(line, name)) break;
    }
  }

  const DataItem* dataOf(const std::string& name) {
    if (const DataItem* data = datas_.find(name)) return data;
    if (!isAgreed(
            "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text",
            texts_.getMultilangMessageDefault(
                "Confirm data creation", "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/title"),
            texts_.getMultilangMessageDefault(
                "Data '{0}' doesn't exist. Do you want to create this data with default "
                "parameters (numeric, 8 bits)?",
                "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text", name))) {
      warn(texts_.getMultilangMessageDefault(
          "Data '{0}' doesn't exist. You must create the data before using it.",
          "REQUESTS/MSG/pasteDataPositions/dataDoesntExistStr/text", name));
      return nullptr;
    }
    changed_ = true;
    return datas_.addDefault(name);
  }

  /// The question before an update of the tab form is built in, in two languages, and asked again
  /// through the language service: only a second Yes updates. Both are on purpose.
  bool isUpdateAgreedTwice(const std::string& name) {
    const bool french = language::global().language == "fr";
    const std::string text =
        french
            ? "La donnée '" + name +
                  "' Existe déjà dans cette requête, Voulez vous mettre à jour la donnée ?"
            : "Data '" + name + "' already used in this request, update data position parameters ?";
    return isAgreed("", french ? "Confirmer la mise à jour des données" : "Confirm data update",
                    text) &&
           isAgreed("REQUESTS/MSG/pasteDataPositions/dataAlreadyExists/text", confirmTitle(),
                    updateQuestion(name));
  }

  /// False when the rest of the paste is to be given up.
  bool readLine(const TabLine& line, const std::string& name) {
    if (characterCount(name) > longestPastedName) {
      warn(texts_.getMultilangMessageDefault(
          "Data name '{0}' is too long (up to {1} characters). Data not added.",
          "REQUESTS/MSG/pasteDataPositions/dataNameTooLong/text", name,
          std::to_string(longestPastedName)));
      return true;
    }
    const DataItem* data = dataOf(name);
    if (!data) return true;
    auto position = newPosition(*data);
    position->StartOctet = cellNumber(line.trimmed(1), 1, longestPastedFrame, 1);
    position->StartBit = cellNumber(line.trimmed(2), 0, 7, 0);
    position->LittleEndian = line.has(3) ? line.flag(3) : target_.Parametres()->LittleEndian;
    position->reference = line.flag(4) && !references_.isReferenced(position->dataName);
    if (DataPositionItem* present = positions_.find(position->dataName)) {
      if (isUpdateAgreedTwice(position->dataName)) update(*present, *position);
      return true;
    }
    return add(std::move(position));
  }

  OmnikorLibXml& database_;
  TargetItem& target_;
  RequestItem& request_;
  const bool sent_;
  platform::Person& person_;
  const CMultiLangEx& texts_ = language::global();
  ReferenceIndex references_;
  ComingDatas datas_;
  ComingPositions positions_;
  std::string missing_, warnings_;
  bool changed_ = false;
};

} // namespace

bool pasteDataPositions(const std::string& clipboard, OmnikorLibXml& database, TargetItem& target,
                        RequestItem& request, bool sent, platform::Person& person,
                        const std::function<void()>& pasted) {
  const std::string text(upToZero(clipboard));
  return PositionPaste(database, target, request, sent, person).read(text, pasted);
}

} // namespace kelmar
