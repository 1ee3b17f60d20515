// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/command_line.h"
#include "app/cli/messages.h"
#include "database/omnikor_lib_xml.h"

namespace kelmar::cli {

/// Loads the file of the command line and tells what of it was not kept. Raises what the load
/// raises; the report is told before.
///
/// The model lives until the process ends and is not taken apart then: giving back the memory of a
/// large ECU item by item takes longer than anything else that is left to do. Called once.
OmnikorLibXml& openEcu(const CommandLine& line, const Messages& messages);

/// Raises 2 for a file of the sibling tool, which is opened but never written.
void demandSavable(const OmnikorLibXml& database);

/// Writes the ECU to "-o", or in place, and then the file as it was stays beside it as "FILE.bak".
/// Encoding and style sheet are those of the site, as in the window.
///
/// Raises when the ECU cannot be written, when the target is read-only by its mode, when the backup
/// cannot be made (all this before anything is written), and when the target does not hold
/// afterwards what it was meant to hold.
void saveEcu(OmnikorLibXml& database, const CommandLine& line, const Messages& messages);

} // namespace kelmar::cli
