// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/rules/positions/position_commands.h"

#include <span>
#include <string_view>

namespace kelmar {

// Making a data where a person points at on the byte view.

/// A data that a menu entry makes.
struct NewDataKind {
  enum class Shape { Numeric, YesNo, OnOff, Hexa, Ascii };
  Shape shape;
  int NumberBits;
};

/// One entry of the menu of the byte view. `array` is the name of its menu, `index` its place
/// there.
struct CreateDataEntry {
  const char* array; ///< ppCDnumericBit, ppCDnumericList, ppCDhexaBytes, ppCDasciiBytes
  int index;
  const char* text;
  NewDataKind kind;
};
std::span<const CreateDataEntry> createDataEntries();

/// Asks for the name and places the new data on the bit. None when the person gives no name, or one
/// that is taken, which is told. `newData` receives the data, also when it could not be placed.
DataPositionItem* createDataAt(TargetItem& target, RequestItem& request, bool sent,
                               const NewDataKind& kind, const FrameBit& bit,
                               platform::Person& person, DataItem** newData = nullptr);

/// Places the data of a `Datas` document that the ECU knows on the byte, numeric ones on the bit.
/// The last one placed, none when there was none.
DataPositionItem* pasteDatasAt(const std::string& clipboard, TargetItem& target,
                               RequestItem& request, bool sent, const FrameBit& bit,
                               platform::Person& person);

} // namespace kelmar
