// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/window_placement.h"

#include <gtest/gtest.h>

namespace kelmar::frame {

namespace {

constexpr Extent screen{20000, 12000};
constexpr Extent workArea{20000, 11000};

} // namespace

TEST(PlaceWindow, CentresInAWorkAreaThatEndsAtTheScreensEnd) {
  EXPECT_EQ(PlaceWindow(screen, workArea, 0.9, 0.9, -1, -1),
            (Placement{20000 * (1 - 0.9) / 2, 1000 + 11000 * (1 - 0.9) / 2, 18000, 9900}));
}

TEST(PlaceWindow, OneMissingPositionCentresBoth) {
  const Placement centred = PlaceWindow(screen, workArea, 0.5, 0.5, -1, -1);
  EXPECT_EQ(PlaceWindow(screen, workArea, 0.5, 0.5, 300, -1), centred);
  EXPECT_EQ(PlaceWindow(screen, workArea, 0.5, 0.5, -1, 300), centred);
}

TEST(PlaceWindow, GoesWhereItIsWanted) {
  EXPECT_EQ(PlaceWindow(screen, workArea, 0.5, 0.5, 300, 0), (Placement{300, 0, 10000, 5500}));
}

TEST(PlaceWindow, RatioMustLieAboveAQuarterAndAtMostAtOne) {
  struct {
    double ratio, used;
  } const rows[] = {{0.25, 0.5}, {0.2500001, 0.2500001}, {1.0, 1.0}, {1.01, 0.5}, {0, 0.5},
                    {-1, 0.5}};
  for (const auto& row : rows) {
    const Placement place = PlaceWindow(screen, workArea, row.ratio, row.ratio, 0, 0);
    EXPECT_EQ(place.width, static_cast<int>(row.used * 20000)) << row.ratio;
    EXPECT_EQ(place.height, static_cast<int>(row.used * 11000)) << row.ratio;
  }
}

TEST(PlaceWindow, RatiosAreCheckedOneByOne) {
  const Placement place = PlaceWindow(screen, workArea, 0.1, 1.0, -1, -1);
  EXPECT_EQ(place.width, 10000);
  EXPECT_EQ(place.left, 5000);
  EXPECT_EQ(place.height, 11000);
  EXPECT_EQ(place.top, 1000);
}

TEST(PlaceWindow, SizeIsTheIntegerPart) {
  const Placement place = PlaceWindow(screen, Extent{10001, 10003}, 0.9, 0.9, 0, 0);
  EXPECT_EQ(place.width, 9000);
  EXPECT_EQ(place.height, 9002);
}

TEST(PlaceWindow, TakesTheScreenWhereThereIsNoWorkArea) {
  EXPECT_EQ(PlaceWindow(screen, std::nullopt, 0.5, 0.5, -1, -1),
            (Placement{5000, 3000, 10000, 6000}));
}

} // namespace kelmar::frame
