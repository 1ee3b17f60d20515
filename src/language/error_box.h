// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/failure.h"
#include "platform/person.h"

namespace kelmar {

class CMultiLangEx;

/// Shows number and text of a failure in a box with the stop icon, for those who have no words of
/// their own for it.
void ShowErrorBox(platform::Person& person, const CMultiLangEx& texts, const Failure& failure);

} // namespace kelmar
