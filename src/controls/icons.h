// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// An icon of the program's own set, drawn at whatever size is asked for in the colours of the
/// palette of the moment, so that it shows on light and dark windows. "none" is an icon with
/// nothing on it, which keeps the place of one. An empty icon for a key that the set lacks.
QIcon icon(std::string_view key);

/// All keys: "open", "save", "saveas", "cancel", "valid", "new", "folder", "vehicle", "search",
/// "clear", "reload", "warning", "help", "project", "add", "rename", "find", "cut", "copy",
/// "paste"; for data by their type "numeric", "list", "ascii", "hexa"; and, for ECUs by their
/// protocol, "ecu-iso", "ecu-kwp", "ecu-can", "ecu-canfd", "ecu-ip", "ecu-unknown".
std::vector<std::string> iconKeys();

} // namespace kelmar
