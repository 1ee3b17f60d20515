// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_report.h"

#include <cstddef>
#include <string>

namespace kelmar {

class CMultiLangEx;

/// "3 items could not be kept"; empty for none.
std::string loadReportHeadline(const CMultiLangEx& texts, std::size_t count);

/// "Position Speed at Requests/Request[Read], line 12: reason". Name, path and line are left out
/// where they are unknown.
std::string loadReportLine(const CMultiLangEx& texts, const NotKept& item);

/// Headline and lines for a box, CR LF between them; of more than `most` lines the first ones and
/// how many there are besides. Empty for an empty report.
std::string loadReportText(const CMultiLangEx& texts, const LoadReport& report,
                           std::size_t most = 10);

} // namespace kelmar
