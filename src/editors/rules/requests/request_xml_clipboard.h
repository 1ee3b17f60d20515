// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "editors/rules/requests/request_commands.h"
#include "platform/person.h"
#include "xml/document.h"

#include <string>

namespace kelmar {

/// What a paste did.
struct RequestPaste {
  bool changed = false;             ///< something of the model is another
  std::string lastRequestName = {}; ///< to be chosen in the list; empty: as before
};

/// The requests with the definitions of their data, as a document with the root `Requests`. A
/// request without list of positions gets an empty one. Raises Failure 1 for a text that no
/// document can hold.
std::string copyRequests(const TargetItem& target, const RequestSelection& requests);

/// Adds the requests of such a document, under "Copy " names where their own are taken, and the
/// data that the ECU does not know. Tells, request by request, which data are missing. A document
/// with another root changes nothing.
RequestPaste pasteRequestsXml(const xml::Document& document, OmnikorLibXml& database,
                              TargetItem& target, platform::Person& person);

/// Whatever is on the clipboard: a document, else tab text.
RequestPaste pasteRequests(const std::string& clipboard, OmnikorLibXml& database,
                           TargetItem& target, platform::Person& person);

} // namespace kelmar
