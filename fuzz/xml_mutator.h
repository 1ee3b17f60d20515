// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>
#include <string>
#include <string_view>

namespace kelmar::fuzz {

/// Changes one thing of a document and leaves it mostly well formed where it was: the value of an
/// attribute or a text becomes another one, an element goes, comes twice, changes place or comes
/// from elsewhere. Bytes changed at random mostly give a file that is no XML, which says little
/// about the model. A text without markup stays as it is.
std::string mutateXml(std::string_view text, std::mt19937& random);

} // namespace kelmar::fuzz
