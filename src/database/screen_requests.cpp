// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/screen_requests.h"

#include "database/category_item.h"
#include "database/screen_item.h"
#include "database/target_item.h"

namespace kelmar {

TargetItem* targetOfScreen(const ScreenItem* screen) {
  return screen && screen->parent ? screen->parent->parent : nullptr;
}

const RequestItems* requestsOfScreen(const ScreenItem* screen) {
  const TargetItem* target = targetOfScreen(screen);
  return target ? target->Requests().get() : nullptr;
}

} // namespace kelmar
