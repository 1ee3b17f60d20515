// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar {

/// How the documentation of a data is shown, by what stands in it.
enum class FicheKind {
  RichText, ///< holds "{\rtf1": formatted, not editable
  Page,     ///< holds "</DIV>" or "</P>": as a page
  Plain,    ///< anything else: editable
};

FicheKind ficheKind(std::string_view fiche);

/// The page that shows a documentation of the kind Page.
std::string fichePage(std::string_view fiche);

/// Rich text as HTML: paragraphs with their alignment, bullets, bold, italic, underlined and struck
/// characters, sizes, colours, tabs, characters by code page and by number. What is not among them
/// falls back to its text; pictures, fields and other hidden groups are left out. Never fails,
/// whatever the text.
std::string richTextToHtml(std::string_view rtf);

} // namespace kelmar
