// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/edit_state.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

TEST(EditState, FirstChange_IsAnnouncedOnceUntilCleared) {
  int announced = 0;
  EditState state([&] { ++announced; });
  EXPECT_FALSE(state.changed());
  state.change();
  state.change();
  EXPECT_TRUE(state.changed());
  EXPECT_EQ(announced, 1);
  state.clear();
  EXPECT_FALSE(state.changed());
  state.change();
  EXPECT_EQ(announced, 2);
}

TEST(EditState, ChangesWhileLoading_DoNotCount) {
  int announced = 0;
  EditState state([&] { ++announced; });
  {
    const auto outer = state.load();
    {
      const EditState::Loading inner(state);
      state.change();
    }
    EXPECT_TRUE(state.loading());
    state.change();
  }
  EXPECT_FALSE(state.loading());
  EXPECT_FALSE(state.changed());
  EXPECT_EQ(announced, 0);
}

TEST(EditState, KindsOfChange_AreKeptApart) {
  constexpr EditState::Kinds name = 1, frame = 2, comment = 4;
  int announced = 0;
  EditState state([&] { ++announced; });
  state.change(frame);
  state.change(comment);
  EXPECT_EQ(announced, 1);
  EXPECT_FALSE(state.changed(name));
  EXPECT_TRUE(state.changed(frame));
  EXPECT_TRUE(state.changed(name | comment));
  state.clear();
  EXPECT_FALSE(state.changed(frame | comment));
}

TEST(EditState, TheAnnouncementAlreadySeesTheChange) {
  bool seen = false;
  EditState* self = nullptr;
  EditState state([&] { seen = self->changed(); });
  self = &state;
  state.change(0);
  EXPECT_TRUE(seen);
}

TEST(EditState, WorksWithoutAnyoneToTell) {
  EditState state;
  state.change();
  EXPECT_TRUE(state.changed());
}

} // namespace
} // namespace kelmar
