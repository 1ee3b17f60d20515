// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/data_item.h"
#include "platform/person.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// One value of the list under edit.
struct ValueRow {
  std::int32_t value = 0;
  std::string label;
  std::string info;
};

/// The value list of one data while it is edited: a copy, which reaches the data only by
/// SaveDataItems. Rows keep their addresses as long as they are in the list.
class ValueList {
 public:
  /// Takes the values of the data, in their order; none empties the list.
  void bind(const DataItem* data);
  bool bound() const { return bound_; }
  const std::vector<std::unique_ptr<ValueRow>>& rows() const { return rows_; }

  /// Rebuilds the value list of the data from the rows, each at its roughly ordered place by value.
  /// What stands twice, which only a file can bring, stays twice.
  void SaveDataItems(DataItem& data) const;

  // What a person does. Those that give true have changed the list.

  /// The new row, null when it was refused.
  ValueRow* add(std::int32_t value, std::string_view label, std::string_view info,
                platform::Person& person);
  bool changeItem(ValueRow& row, std::int32_t value, std::string_view label, std::string_view info,
                  platform::Person& person);
  bool cut(const std::vector<ValueRow*>& rows, platform::Person& person);
  /// Asks, then cleans the labels.
  bool normalize(const std::vector<ValueRow*>& rows, platform::Person& person);
  /// Either form of the clipboard: a list or devices as XML, or lines of value and label.
  bool paste(std::string_view clipboard, platform::Person& person);
  /// True when the list changed.
  bool UpdateOrAddItem(std::int32_t value, std::string_view label, std::string_view info,
                       platform::Person& person);

 private:
  class Index;
  bool pasteXml(const xml::Node& root, Index& index, platform::Person& person);
  bool pasteText(std::string_view text, Index& index, platform::Person& person);
  bool updateOrAdd(std::int32_t value, std::string_view label, std::string_view info, Index& index,
                   platform::Person& person);

  std::vector<std::unique_ptr<ValueRow>> rows_;
  bool bound_ = false;
};

/// The XML form: a root `List` with the `Item` of each row.
std::string copyValues(const std::vector<ValueRow*>& rows);
/// Value, tab, label, CR LF for each row. `broken` when a label holds a line break or a tab, so
/// that the text does not read back as it is.
std::string copyValuesText(const std::vector<ValueRow*>& rows, bool& broken);

/// "$" and the value in hexadecimal: 2 digits for data of at most 8 bits, 4 up to 16, else 8.
std::string hexTip(std::int32_t value, std::int32_t numberBits);

/// What of a value list may be done.
struct ValueListState {
  bool bound = false;
  int selected = 0; ///< rows
  bool itemChanged = false;
};
struct ValueListControls {
  bool CBaddNew = false, cancel = false, save = false, cut = false, copy = false, paste = false;
  friend bool operator==(const ValueListControls&, const ValueListControls&) = default;
};
/// A selected row that is unchanged cannot be added a second time.
ValueListControls valueListControls(const ValueListState& state);

} // namespace kelmar
