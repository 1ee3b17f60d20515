// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

class QMimeData;

namespace kelmar::desktop {

/// Path of the first local file of a drop; none when the drop holds no local file.
std::optional<std::string> firstDroppedFile(const QMimeData* drop);

} // namespace kelmar::desktop
