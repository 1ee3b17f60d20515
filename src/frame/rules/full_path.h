// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar::frame {

/// Creates the folder, its parents first, unless it exists. A folder that cannot be created is left
/// to whoever writes into it.
void BuildFullPath(const std::string& path);

} // namespace kelmar::frame
