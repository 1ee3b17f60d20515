// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/request_item.h"

namespace kelmar {

class ScreenItem;
class TargetItem;

/// The ECU that a screen belongs to, none when the chain of parents is broken.
TargetItem* targetOfScreen(const ScreenItem* screen);
/// The requests of that ECU, or none.
const RequestItems* requestsOfScreen(const ScreenItem* screen);

} // namespace kelmar
