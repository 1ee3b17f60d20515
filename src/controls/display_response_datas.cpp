// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/display_response_datas.h"

namespace kelmar {

DisplayRespData* DisplayRespDatas::Add(std::int32_t NumberBits, std::int32_t StartByte,
                                       std::int32_t OffsetBit, bool LittleEndian, bool selected,
                                       const std::string& mark, const std::string& key) {
  auto data = std::make_shared<DisplayRespData>(
      DisplayRespData{NumberBits, StartByte, OffsetBit, LittleEndian, mark, selected});
  return key.empty() ? append(std::move(data)) : append(std::move(data), key);
}

DisplayRespData* DisplayRespDatas::FindItem(std::int32_t NumberBits, std::int32_t StartByte,
                                            std::int32_t OffsetBit) const {
  for (DisplayRespData* data : *this)
    if (data->NumberBits == NumberBits && data->StartByte == StartByte &&
        data->OffsetBit == OffsetBit)
      return data;
  return nullptr;
}

void DisplayRespDatas::RemoveItem(std::int32_t NumberBits, std::int32_t StartByte,
                                  std::int32_t OffsetBit) {
  deleteItem(FindItem(NumberBits, StartByte, OffsetBit));
}

void DisplayRespDatas::UnselectAll() {
  for (DisplayRespData* data : *this)
    data->Selected = false;
}

} // namespace kelmar
