// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelmar::xml {

/// What one quick look at the markup tells.
struct MarkupScan {
  /// The text of some element might change if text nodes of white space alone were left out (an
  /// element that holds nothing else keeps its own). Errs towards true; a text that is not well
  /// formed may give either.
  bool whiteSpaceMatters = false;
  /// How deep elements are nested, for as much as is well formed; without a value when the look
  /// ended before the text did.
  std::optional<std::size_t> depth;
};

MarkupScan scanMarkup(std::string_view text);

} // namespace kelmar::xml
