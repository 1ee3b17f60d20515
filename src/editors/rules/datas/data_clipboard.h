// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

using SelectedDatas = std::span<DataItem* const>;

/// The XML form: a root `Datas`, one `Data` per data. Raises Failure 1 for a text that XML cannot
/// hold.
std::string copyDatas(SelectedDatas datas);

/// The tab text form.
struct DataText {
  std::string text;
  /// A cell holds a line break or a tab, so that the text does not read back as it is.
  bool hasBrokenCell = false;
};
DataText copyDatasText(SelectedDatas datas);

/// What a paste did.
struct DataPaste {
  bool changed = false;
  /// The data that was added or updated last; empty when none was.
  std::string lastName;
  /// Not empty: replaces the text on the clipboard, so that it can be looked at in a spreadsheet.
  std::string clipboard;
};

/// Pastes either form: XML first, then tab text. What is asked and told goes to the person.
DataPaste pasteDatas(std::string_view clipboard, OmnikorLibXml& database, TargetItem& target,
                     platform::Person& person);
/// Tab text alone, in any line ends.
DataPaste pasteDatasText(std::string_view text, TargetItem& target, platform::Person& person);

/// Cells of the header line.
std::span<const std::string_view> dataTextHeader();

} // namespace kelmar
