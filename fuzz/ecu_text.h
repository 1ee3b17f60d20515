// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/person.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar::fuzz {

// ECU files in memory: what loads and saves them for the fuzzers.

/// A database with one file in it, or none when the load was refused.
std::unique_ptr<OmnikorLibXml> loaded(platform::Fetch* fetch, const std::string& url);
std::unique_ptr<OmnikorLibXml> loaded(std::string_view file);

/// The bytes of a save, or none when it was refused.
std::optional<std::string> saved(OmnikorLibXml& database, const char* encoding = "UTF-8");

/// What the format writes and does not read back, on purpose: only then may the second save differ
/// from the first. The list is in docs/file-format.md.
bool losesByWriting(const TargetItem& target);

/// The place where two texts differ, for people.
std::string differenceOf(const char* what, const std::string& left, const std::string& right);

} // namespace kelmar::fuzz
