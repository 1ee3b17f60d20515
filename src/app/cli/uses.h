// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelmar {
class TargetItem;
}

namespace kelmar::cli {

/// One use of a data or a request.
struct Use {
  const char* kind;
  std::string where; ///< request, device, or category and screen: "Main / State"
  std::string detail;
};

// What a renaming or a deletion would find: names are compared exactly, as the cascades do. In the
// order of the file: requests, devices, screens.

void forEachUseOfData(const TargetItem& target, std::string_view name,
                      const std::function<void(const Use&)>& visit);
void forEachUseOfRequest(const TargetItem& target, std::string_view name,
                         const std::function<void(const Use&)>& visit);

} // namespace kelmar::cli
