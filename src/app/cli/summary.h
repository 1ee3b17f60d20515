// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/output.h"

#include <string>

namespace kelmar {
class OmnikorLibXml;
}

namespace kelmar::cli {

/// A summary of the open ECU for people, one line a field; fields without a value are left out.
void printSummary(Output& out, const OmnikorLibXml& database, const std::string& file);

} // namespace kelmar::cli
