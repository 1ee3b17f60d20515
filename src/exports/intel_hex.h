// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/frame_buffer.h"
#include "platform/person.h"

#include <string>
#include <string_view>

namespace kelmar {

/// The number of every failure of an import.
inline constexpr int hexImportFailed = 1000;

/// The text of an Intel-hex file with the bytes of the frame from address 0 on: records of at most
/// 16 bytes, lines that end with CR LF but for the last one.
std::string intelHexOf(const FrameBuffer& buffer);

/// Writes the frame as an Intel-hex file, in place of a file that is there: all of it or nothing.
/// Raises FileAccessFailed; the old file is then whole.
void exportToH86File(const FrameBuffer& buffer, const std::string& fileName);

/// The bytes of an Intel-hex file's text as hexadecimal text, from address 0 to the highest one
/// that is written to. Bytes that no record writes are 0; where records overlap, the later one
/// counts.
///
/// Lines that end with LF alone are read after a box that says so. Raises Failure hexImportFailed
/// with a text for the user, for more than `maxLength` bytes as well. Memory is taken for
/// `maxLength` bytes at most, whatever addresses the text names.
std::string bytesOfIntelHex(std::string_view text, int maxLength, platform::Person& person);

/// The same for a file; one that cannot be read raises Failure hexImportFailed too.
std::string importFromH86File(const std::string& fileName, int maxLength, platform::Person& person);

} // namespace kelmar
