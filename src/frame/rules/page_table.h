// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace kelmar::frame {

/// How the frame counts the modifications that a page reports.
enum class PageKind {
  Selector,  ///< has no mark of its own; always saves
  Parameter, ///< marked, not counted; always saves
  Counted,   ///< marked and counted
  Labels,    ///< marked only: labels have a file of their own
  Check,     ///< no page, only a tab
};

/// How a page receives the database when it is entered.
enum class Entry {
  Selector,     ///< menu, database, display
  Always,       ///< the database
  WithDatas,    ///< the database, when its ECU has a collection of data
  WithFileName, ///< the database and the file or address it came from
  Check,
};

/// One tab of `TabStripPrincipal`.
struct PageRow {
  int index; ///< value of `currentPage`; the tab of the checks is 9, which shows no page
  std::string_view key;
  std::string_view caption;
  std::string_view toolTip;
  std::string_view page;       ///< name of the control
  std::string_view captionKey; ///< empty: the program sets the caption
  PageKind kind;
  Entry entry;
};

/// All tabs in their order, whether their page is built or not.
std::span<const PageRow> pageTable();

/// None for a key, a page or an index that the table lacks.
const PageRow* rowOfTab(std::string_view key);
const PageRow* rowOfPage(std::string_view page);
const PageRow* rowOfIndex(int index);

/// Names of the pages in the order of their `InitControl`; the selector is not among them.
std::span<const std::string_view> initOrder();

/// Names of the pages that are told a new language, in this order.
std::span<const std::string_view> languageOrder();

} // namespace kelmar::frame
