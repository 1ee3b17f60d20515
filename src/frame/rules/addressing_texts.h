// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/person.h"

#include <string>

namespace kelmar {

class CMultiLangEx;

/// The box that tells of an addressing file that cannot be read.
platform::Box unreadableFileBox(const CMultiLangEx& texts, const std::string& file,
                                const std::string& reason);

/// The same, when CAN identifiers were looked for.
platform::Box unreadableCanIdBox(const CMultiLangEx& texts, const std::string& file,
                                 const std::string& reason);

} // namespace kelmar
