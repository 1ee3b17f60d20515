// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace kelmar::frame {

/// Twips to a device-independent pixel, across and down.
inline constexpr int twipsPerPixel = 15;

/// Smallest size of the main window, in twips.
inline constexpr std::int32_t smallestWidth = 12000;
inline constexpr std::int32_t smallestHeight = 9000;

struct Extent {
  double width = 0;  ///< twips
  double height = 0; ///< twips
};

/// Where the window goes, in twips.
struct Placement {
  double left = 0, top = 0;
  double width = 0, height = 0;
  friend bool operator==(const Placement&, const Placement&) = default;
};

/// A size of `widthRatio` by `heightRatio` of the work area (the screen where there is none), at
/// left and top, or centred when either is -1. A ratio counts when it lies above 0.25 and at most
/// 1.0, else it is 0.5.
Placement PlaceWindow(Extent screen, std::optional<Extent> workArea, double widthRatio,
                      double heightRatio, std::int32_t left, std::int32_t top);

} // namespace kelmar::frame
