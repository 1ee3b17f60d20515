// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelmar::frame {

/// One way from page to page. Pages are named by their control.
struct Route {
  std::string_view source;
  std::string_view event;
  std::string_view target;
  /// Property of the target for each argument of the event, in order.
  std::vector<std::string_view> properties;
  /// Operation of the target that takes the arguments at once, in place of properties.
  std::string_view operation;
  /// Key of the tab to select afterwards; empty for none.
  std::string_view tab;
};

std::span<const Route> routingTable();

/// What the frame does for one go-to event.
struct GoTo {
  std::string target;
  std::vector<std::pair<std::string, std::string>> writes; ///< property and value, in order
  std::string operation;                                   ///< called with `arguments`
  std::vector<std::string> arguments;
  std::string tab;
  friend bool operator==(const GoTo&, const GoTo&) = default;
};

/// None when the table has no such row. A missing argument counts as empty text.
std::optional<GoTo> routeOf(std::string_view source, std::string_view event,
                            const std::vector<std::string>& arguments);

} // namespace kelmar::frame
