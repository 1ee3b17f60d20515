// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar::desktop {

/// The plain text on the clipboard, UTF-8; empty when there is none. Line ends are as they came.
std::string clipboardText();
void setClipboardText(const std::string& text);

} // namespace kelmar::desktop
