// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar::desktop {

/// Brings the texts of the widget library (buttons of boxes, file dialogs, menus of text fields)
/// into the language of a code such as "fr". A language without translation leaves them English.
/// May be called again for another language.
void translatePlatformTexts(const std::string& language);

} // namespace kelmar::desktop
