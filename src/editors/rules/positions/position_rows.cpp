// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/positions/position_rows.h"

#include "common/position_bits.h"
#include "language/multi_lang.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace kelmar {

namespace {

constexpr std::uint32_t failureColour = 50897;
constexpr std::uint32_t infoColour = 1744390;

/// The number right-aligned in 9 characters, so that text sorting gives numeric order.
std::string aligned(std::int32_t number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 9 ? 9 - digits.size() : 0, ' ') + digits;
}

void showFlag(PositionRow& row, const std::string& toolTip) {
  row.deviceBold = true;
  row.deviceColour = failureColour;
  row.deviceToolTip = toolTip;
}

void showDevice(PositionRow& row, const TargetItem& target) {
  const std::string& data = row.position->dataName;
  const OrganeItem* device = target.GetDeviceUsingData(data);
  if (!device) return;
  const CMultiLangEx& texts = language::global();
  if (const DeviceDataItem* datum = device->GetDeviceDataUsingData(data)) {
    row.cells[PositionDeviceColumn] = device->organeName;
    if (datum->FlagPanne) {
      showFlag(row, texts.getMultilangMessageDefault(
                        "Failure flag in device '{0}'",
                        "REQUESTS/MSG/setScreen_DataPos/failureFlag/text", device->organeName));
    } else {
      row.deviceColour = infoColour;
      row.deviceToolTip = texts.getMultilangMessageDefault(
          "Info data in device '{0}'", "REQUESTS/MSG/setScreen_DataPos/infoData/text",
          device->organeName);
    }
    return;
  }
  const TestItem* test = device->GetTestUsingData(data);
  if (!test) return;
  row.cells[PositionDeviceColumn] = device->organeName;
  if (test->StoredFlag.findKey(keyOfName(data))) {
    showFlag(row, texts.getMultilangMessageDefault(
                      "Stored failure flag in device '{0}'",
                      "REQUESTS/MSG/setScreen_DataPos/storedFailureFlag/text", device->organeName));
  } else if (test->PresentFlag.findKey(keyOfName(data))) {
    showFlag(row,
             texts.getMultilangMessageDefault(
                 "Present failure flag in device '{0}'",
                 "REQUESTS/MSG/setScreen_DataPos/presentFailureFlag/text", device->organeName));
  }
}

/// The first reference of each data.
std::unordered_map<std::string_view, const DataPositionItem*> holdersOf(const TargetItem& target) {
  std::unordered_map<std::string_view, const DataPositionItem*> holders;
  for (const DataPositionItem* position : target.datasRefAll())
    holders.emplace(position->dataName, position);
  return holders;
}

void showData(PositionRow& row, const DataItem* data, std::int32_t bytes, bool sent) {
  const CMultiLangEx& texts = language::global();
  const DataPositionItem& position = *row.position;
  if (!data) {
    row.unknown = true;
    row.cells[PositionDataColumn] = texts.getMultilangMessageDefault(
        "ERROR DATA UNKNOWN : {0}", "REQUESTS/MSG/setScreen_DataPos/unknown/text",
        position.dataName);
    // One key serves both cells, each with a default of its own.
    row.cells[PositionSizeColumn] = texts.getMultilangMessageDefault(
        "UNKNOWN", "REQUESTS/MSG/setScreen_DataPos/unknown/text", position.dataName);
    return;
  }
  row.cells[PositionDataColumn] = data->dataName();
  row.cells[PositionSizeColumn] = std::to_string(data->NumberBits);
  row.outside = isOutside(placementOf(position, data->NumberBits), bytes);
  if (!row.outside) return;
  row.toolTip = sent ? texts.getMultilangMessageDefault(
                           "Data is outside of the request",
                           "REQUESTS/MSG/setScreen_DataPos/dataOutsideOfRequest/text")
                     : texts.getMultilangMessageDefault(
                           "Data is outside of the answer",
                           "REQUESTS/MSG/setScreen_DataPos/dataOutsideOfReply/text");
}

} // namespace

std::int32_t frameLength(const RequestItem& request, bool sent) {
  if (sent) return request.RequestBytes ? request.RequestBytes->Length() : 0;
  const std::int64_t length = std::int64_t{request.LengthDatas} + request.ShiftBytesCount;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(length, 0, std::numeric_limits<std::int32_t>::max()));
}

std::vector<PositionRow> positionRows(const TargetItem& target, const RequestItem& request,
                                      bool sent) {
  std::vector<PositionRow> rows;
  if (!request.DataPositions) return rows;
  const std::int32_t bytes = frameLength(request, sent);
  const auto holders = holdersOf(target);
  for (DataPositionItem* position : *request.DataPositions) {
    if (position->param != sent) continue;
    PositionRow row;
    row.position = position;
    showData(row, position->data(), bytes, sent);
    row.cells[PositionByteColumn] = aligned(position->StartOctet);
    row.cells[PositionBitColumn] = std::to_string(position->StartBit);
    if (position->reference) {
      row.cells[PositionRefColumn] = "[Ref]";
      showDevice(row, target);
    } else if (const auto holder = holders.find(position->dataName); holder != holders.end()) {
      const std::string& name = holder->second->parent->requestName;
      row.cells[PositionRefColumn] = name;
      row.refToolTip = language::global().getMultilangMessageDefault(
          "Referenced in request '{0}'", "REQUESTS/MSG/setScreen_DataPos/referenced/text", name);
    }
    rows.push_back(std::move(row));
  }
  // By bit, then by byte, as one click on each header would sort.
  for (const PositionColumn column : {PositionBitColumn, PositionByteColumn})
    std::stable_sort(rows.begin(), rows.end(), [column](const auto& left, const auto& right) {
      return left.cells[column] < right.cells[column];
    });
  return rows;
}

std::string outsideWarning(bool sent) {
  const CMultiLangEx& texts = language::global();
  return sent ? texts.getMultilangMessageDefault(
                    "Warning!{crlf}Some data are outside of the request (notified in red in the "
                    "data list). This may be necessary for some request (such as ReadDTC, etc...).",
                    "REQUESTS/MSG/setScreen_DataPos/dataOutsideOfRequest/warning")
              : texts.getMultilangMessageDefault(
                    "Warning!{crlf}Some data are outside of the answer (notified in red in the "
                    "data list). This may be necessary for some request (such as ReadDTC, etc...).",
                    "REQUESTS/MSG/setScreen_DataPos/dataOutsideOfReply/warning");
}

} // namespace kelmar
