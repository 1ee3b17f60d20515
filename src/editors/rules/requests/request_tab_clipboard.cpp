// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_tab_clipboard.h"

#include "base/text.h"
#include "common/data_import.h"
#include "common/reference_index.h"
#include "common/tab_text.h"
#include "editors/rules/requests/request_fields.h"
#include "language/multi_lang.h"

#include <optional>

namespace kelmar {

namespace {

std::string hexOf(const std::shared_ptr<FrameBuffer>& buffer) {
  return buffer ? buffer->HexText() : std::string();
}

void addPositions(TabText& text, const DataPositionItems& positions, bool param) {
  for (const DataPositionItem* position : positions) {
    if (position->param != param) continue;
    text.cell("").cell(param ? "Send" : "Receive").cell(position->dataName);
    text.cell(position->StartOctet).cell(position->StartBit);
    text.flag(position->LittleEndian).flag(position->reference);
    text.endLine();
  }
}

} // namespace

std::string copyRequestsText(const RequestSelection& requests, bool& broken) {
  TabText text;
  text.line({"'Name", "DM", "Manual", "Send Bytes", "variable", "Length", "Shift", "template",
             "without", "plant", "after sales", "engineering", "supplier", "comment"});
  for (const RequestItem* request : requests) {
    text.cell(request->requestName);
    text.flag(request->DossierMaintenabilite).flag(request->ManuelSend);
    text.cell(hexOf(request->RequestBytes)).flag(request->LgVariable);
    text.cell(request->LengthDatas).cell(request->ShiftBytesCount);
    text.cell(hexOf(request->ReplyBytes));
    text.flag(request->AccesTous).flag(request->AccesUsine).flag(request->AccesApresVente);
    text.flag(request->AccesEtudes).flag(request->AccesConstructeur);
    text.cell(request->Commentaire);
    text.endLine();
    if (!request->DataPositions || request->DataPositions->Count() == 0) continue;
    text.line(
        {"'", "Send or Receive", "Data Name", "Start byte", "Offset bit", "Little Endian", "ref"});
    addPositions(text, *request->DataPositions, true);
    addPositions(text, *request->DataPositions, false);
  }
  broken = text.hasBrokenCell();
  return text.text();
}

namespace {

/// Reads one block of text into the ECU.
class RequestTextPaste {
 public:
  RequestTextPaste(TargetItem& target, platform::Person& person)
      : target_(target), person_(person), references_(target), datas_(target) {}

  RequestPaste read(const std::string& text) {
    TabReader reader(text);
    TabLine line;
    for (bool more = reader.next(line); more;) {
      if (!line.startsItem() || !beginRequest(line)) {
        more = reader.next(line);
        continue;
      }
      readFields(line);
      while ((more = reader.next(line)) && !line.startsItem()) {
        if (line.cells.size() >= 4 && !line.isRemark()) readPosition(line);
      }
      endRequest();
    }
    datas_.finish();
    if (!warnings_.empty()) showWarnings();
    return result_;
  }

 private:
  bool isAgreed(const char* key, const std::string& text, const std::string& title) {
    return person_.message({key, title, text, platform::Buttons::YesNo,
                            platform::Icon::Question}) == platform::Answer::Yes;
  }

  /// Finds or makes the request that the line names; false for a name that is refused.
  bool beginRequest(const TabLine& line) {
    const CMultiLangEx& texts = language::global();
    const std::string name(line.trimmed(0));
    if (characterCount(name) > longestPastedName) {
      warnings_ +=
          texts.getMultilangMessageDefault("Request name '{0}' is too long. Up to {1} characters.",
                                           "REQUESTS/MSG/pasteDataFromExcel/nameTooLong/text", name,
                                           std::to_string(longestPastedName)) +
          "\r\n";
      return false;
    }
    RequestItem* existing = requestsOf(target_).ItemName(name);
    if (existing && isAgreed("REQUESTS/MSG/pasteDataFromExcel/requestAlreadyExists/text",
                             texts.getMultilangMessageDefault(
                                 "Request '{0}' already exists. Do you want to update parameters ?",
                                 "REQUESTS/MSG/pasteDataFromExcel/requestAlreadyExists/text", name),
                             texts.getMultilangMessageDefault(
                                 "Confirm update",
                                 "REQUESTS/MSG/pasteDataFromExcel/requestAlreadyExists/title"))) {
      request_ = existing;
      fresh_ = nullptr;
      result_.changed = true;
    } else {
      // A declined update is read all the same, into a request that then finds its name taken: the
      // rest of the block is used up, and data that it creates stay. That is on purpose.
      fresh_ = std::make_shared<RequestItem>();
      fresh_->requestName = name;
      fresh_->parent = &target_;
      fresh_->RequestBytes = std::make_shared<FrameBuffer>();
      fresh_->ReplyBytes = std::make_shared<FrameBuffer>();
      request_ = fresh_.get();
    }
    positions_.emplace(*request_);
    result_.lastRequestName = name;
    return true;
  }

  static std::shared_ptr<FrameBuffer> frameOf(std::string_view cell, const char* otherwise) {
    std::string hex(cell);
    if (hex.size() % 2 != 0) hex.insert(0, "0");
    auto buffer = std::make_shared<FrameBuffer>();
    buffer->setHexText(isFrameText(hex) ? hex : otherwise);
    return buffer;
  }

  void readFields(const TabLine& line) {
    RequestItem& request = *request_;
    if (line.has(1)) request.DossierMaintenabilite = line.flag(1);
    if (line.has(2)) request.ManuelSend = line.flag(2);
    if (line.has(3)) request.RequestBytes = frameOf(line.trimmed(3), "2180");
    if (line.has(4)) request.LgVariable = line.flag(4);
    if (line.has(5)) request.LengthDatas = cellNumber(line.trimmed(5), 0, longestPastedFrame, 1);
    if (line.has(6))
      request.ShiftBytesCount = cellNumber(line.trimmed(6), 0, longestPastedFrame, 0);
    if (line.has(7)) request.ReplyBytes = frameOf(line.trimmed(7), "");
    if (line.has(8)) request.AccesTous = line.flag(8);
    if (line.has(9)) request.AccesUsine = line.flag(9);
    if (line.has(10)) request.AccesApresVente = line.flag(10);
    if (line.has(11)) request.AccesEtudes = line.flag(11);
    if (line.has(12)) request.AccesConstructeur = line.flag(12);
    if (line.has(13)) request.Commentaire = line.trimmed(13);
  }

  /// The data of that name; an unknown one is created if the person agrees.
  const DataItem* dataOf(const std::string& name) {
    if (const DataItem* data = datas_.find(name)) return data;
    const CMultiLangEx& texts = language::global();
    if (!isAgreed(
            "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text",
            texts.getMultilangMessageDefault(
                "Data '{0}' doesn't exist. Do you want to create this data with default "
                "parameters (numeric, 8 bits)?",
                "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/text", name),
            texts.getMultilangMessageDefault(
                "Confirm data creation", "REQUESTS/MSG/pasteDataFromExcel/dataDoesntExist/title")))
      return nullptr;
    result_.changed = true;
    return datas_.addDefault(name);
  }

  void readPosition(const TabLine& line) {
    const std::string name(line.trimmed(2));
    // Spreadsheets fill lines up with empty cells: such a line names no data.
    if (name.empty()) return;
    const DataItem* data = dataOf(name);
    if (!data) return;
    auto position = std::make_shared<DataPositionItem>();
    position->parent = request_;
    position->param = line.trimmed(1) == "Send";
    position->StartOctet = cellNumber(line.trimmed(3), 1, longestPastedFrame, 1);
    position->StartBit = line.has(4) ? cellNumber(line.trimmed(4), 0, 7, 0) : 0;
    position->LittleEndian =
        line.has(5) ? line.flag(5) : target_.Parametres() && target_.Parametres()->LittleEndian;
    position->setData(data);
    position->reference = line.flag(6) && !references_.isInDatasRef(position->dataName);
    if (DataPositionItem* present = positions_->find(position->dataName)) {
      updatePosition(*present, *position);
      return;
    }
    if (!fresh_) {
      if (position->reference) references_.add(position->dataName);
      result_.changed = true;
    }
    positions_->add(std::move(position));
  }

  void updatePosition(DataPositionItem& present, const DataPositionItem& pasted) {
    const CMultiLangEx& texts = language::global();
    if (!isAgreed(
            "REQUESTS/MSG/pasteDataFromExcel/dataAlreadyExists/text",
            texts.getMultilangMessageDefault(
                "Data '{0}' already used in this request. Update data position parameters?",
                "REQUESTS/MSG/pasteDataFromExcel/dataAlreadyExists/text", present.dataName),
            texts.getMultilangMessageDefault(
                "Confirm data update", "REQUESTS/MSG/pasteDataFromExcel/dataAlreadyExists/title")))
      return;
    present.LittleEndian = pasted.LittleEndian;
    present.StartBit = pasted.StartBit;
    present.StartOctet = pasted.StartOctet;
    if (!fresh_) result_.changed = true;
  }

  void endRequest() {
    positions_->finish();
    positions_.reset();
    if (!fresh_) return;
    try {
      references_.add(*requestsOf(target_).AddData(std::move(fresh_)));
      result_.changed = true;
    } catch (const Failure&) {
      // The name is taken: an update that was declined.
    }
    fresh_ = nullptr;
    request_ = nullptr;
  }

  void showWarnings() {
    person_.message(
        {"REQUESTS/MSG/warning/text",
         language::global().getMultilangMessageDefault("Warning", "REQUESTS/MSG/warning/text"),
         warnings_, platform::Buttons::Ok, platform::Icon::Exclamation});
  }

  TargetItem& target_;
  platform::Person& person_;
  ReferenceIndex references_;
  ComingDatas datas_;
  std::optional<ComingPositions> positions_; // those of the request
  RequestPaste result_;
  std::string warnings_;
  RequestItem* request_ = nullptr;     // the one that the lines belong to
  std::shared_ptr<RequestItem> fresh_; // none while an existing request is updated
};

} // namespace

RequestPaste pasteDataFromExcel(const std::string& text, TargetItem& target,
                                platform::Person& person) {
  return RequestTextPaste(target, person).read(text);
}

} // namespace kelmar
