// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/edit_state.h"

namespace kelmar {

void EditState::change(Kinds kinds) {
  if (loading()) return;
  const bool first = changed_ == 0;
  changed_ |= kinds != 0 ? kinds : 1;
  if (first && firstChange_) firstChange_();
}

} // namespace kelmar
