// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::frame {

/// Turns a local path with "\" as separator into the path part of an address: each "/" becomes
/// "%2E" (on purpose as it stands), each "\" becomes "/", each blank "%20".
std::string PathToUrl(std::string_view text);

/// True for a text of at most 5 characters, and for one that begins with neither "http:" nor
/// "file:".
bool isLocalPath(std::string_view text);

/// A path of this machine in the form that PathToUrl takes: "\" as separator, none at the start.
/// What would end or part an address ("%", "#", "?", a "\" within a name) is escaped.
std::string pathForUrl(std::string_view localPath);

// Local paths below are in the form that PathToUrl takes.

/// Address of the report on an ECU. "file:///" stands before an http address too, on purpose.
std::string checkReportAddress(const std::string& dataRoot, const std::string& uceXml);

/// Address of a help page; empty without a module. `function` may be empty.
std::string helpAddress(const std::string& dataRoot, const std::string& language,
                        const std::string& helpModule, const std::string& helpFunction);

} // namespace kelmar::frame
