// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/window_placement.h"

#include <cmath>

namespace kelmar::frame {

namespace {

double checkedRatio(double ratio) {
  return ratio > 0.25 && ratio <= 1.0 ? ratio : 0.5;
}

// The work area is taken to end where the screen ends, so that what lies before it is the bar of
// the desktop.
double centred(double screen, double work, double ratio) {
  return (screen - work) + work * (1 - ratio) / 2;
}

} // namespace

Placement PlaceWindow(Extent screen, std::optional<Extent> workArea, double widthRatio,
                      double heightRatio, std::int32_t left, std::int32_t top) {
  const Extent work = workArea.value_or(screen);
  const double across = checkedRatio(widthRatio), down = checkedRatio(heightRatio);
  Placement place;
  place.width = std::trunc(across * work.width);
  place.height = std::trunc(down * work.height);
  if (left == -1 || top == -1) {
    place.left = centred(screen.width, work.width, across);
    place.top = centred(screen.height, work.height, down);
  } else {
    place.left = left;
    place.top = top;
  }
  return place;
}

} // namespace kelmar::frame
