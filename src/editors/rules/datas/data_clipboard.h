// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <functional>
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
  /// The log of what was wrong, for a spreadsheet; empty when there is none.
  std::string clipboard;
};
/// Takes a log that is not empty and is to replace the text on the clipboard, before the person is
/// told to look at it there.
using TakesLog = std::function<void(const std::string& log)>;

/// Pastes either form: XML first, then tab text. What is asked and told goes to the person.
DataPaste pasteDatas(std::string_view clipboard, OmnikorLibXml& database, TargetItem& target,
                     platform::Person& person, const TakesLog& takesLog = {});
/// Tab text alone, in any line ends.
DataPaste pasteDatasText(std::string_view text, TargetItem& target, platform::Person& person,
                         const TakesLog& takesLog = {});

/// Cells of the header line.
std::span<const std::string_view> dataTextHeader();

} // namespace kelmar
