// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar {

class CMultiLangEx;

/// What a match code of the search by identification means; an empty `address` is no match. Codes
/// without a meaning give an empty text.
std::string matchText(const CMultiLangEx& texts, int code, const std::string& address);

} // namespace kelmar
