// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::fuzz {

/// Where a clipboard text is pasted.
enum class Paste { Datas, Values, Requests, Positions, DatasAtBit, Identifications };

/// Pastes the text behind the first byte of the input into a small ECU. The first byte says who
/// answers and where:
/// - bits 0 and 1: Yes to all, No to all, Cancel to all, or one and the other;
/// - bit 2: the sent side of a request, else the received one;
/// - bit 3: in French, else in English;
/// - bit 4: a request of the maintainability report, whose data become references, else another
/// one.
///
/// Empty, or what did not hold:
/// - the model has no item twice, and every position has its data;
/// - nothing is another where nothing was pasted, nor what the paste has no business with, nor what
///   was there, unless the answer was to update it;
/// - the model saves, and that file loads to the same text;
/// - lines that were pasted read back as the same model after they were copied.
std::string brokenByPaste(Paste where, std::string_view input);

} // namespace kelmar::fuzz
