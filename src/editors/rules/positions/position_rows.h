// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// Columns of the list of placed data.
enum PositionColumn {
  PositionDataColumn,
  PositionByteColumn,
  PositionBitColumn,
  PositionSizeColumn,
  PositionRefColumn,
  PositionDeviceColumn,
  PositionColumns
};

/// What the list shows of one placed data.
struct PositionRow {
  DataPositionItem* position = nullptr;
  std::array<std::string, PositionColumns> cells = {};
  bool unknown = false;     ///< the data does not exist: red
  bool outside = false;     ///< behind the end of the frame: red and bold, and not drawn
  std::string toolTip = {}; ///< of the row
  std::string refToolTip = {};
  std::optional<std::uint32_t> deviceColour = {};
  bool deviceBold = false;
  std::string deviceToolTip = {};
};

/// Bytes of the frame of one side, within 0..2147483647.
std::int32_t frameLength(const RequestItem& request, bool sent);

/// The positions of one side, by byte and, within a byte, by bit.
std::vector<PositionRow> positionRows(const TargetItem& target, const RequestItem& request,
                                      bool sent);

/// Of the byte view and the warning line while data lie outside of the frame.
inline constexpr std::uint32_t warningOrange = 0x0080FF; // 0xBBGGRR

/// The warning line.
std::string outsideWarning(bool sent);

} // namespace kelmar
