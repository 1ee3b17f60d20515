// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "frame/rules/addressing_choice.h"

#include <string>

namespace kelmar {

/// Makes a new ECU the open one and gives the catalogue its function when it has none of this
/// address. `name` may be empty: then it is "New".
void createEcu(OmnikorLibXml& database, const NewEcu& ecu, const std::string& name);

/// Gives the open ECU another function, and the catalogue the function when it has none of this
/// address. Without effect when there is no open ECU.
void changeFunction(OmnikorLibXml& database, const NewEcu& ecu);

} // namespace kelmar
