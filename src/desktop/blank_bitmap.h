// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace kelmar::desktop {

/// Writes a picture of one colour, the background of an empty screen, in pixels. The format follows
/// the extension, BMP without one. False, and no file, for a size that is no picture or a file that
/// cannot be written.
bool SaveBlankBitmap(std::int32_t width, std::int32_t height, const std::string& file);

} // namespace kelmar::desktop
