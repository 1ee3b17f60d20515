// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar {

/// Bytes of a Windows code page as UTF-8. Bytes that mean nothing there become U+FFFD; a page that
/// is not known counts as 1252.
std::string fromCodePage(int page, std::string_view bytes);

/// The code page of a font by its character set; `otherwise` for those that name none.
int codePageOfCharset(int charset, int otherwise);

} // namespace kelmar
