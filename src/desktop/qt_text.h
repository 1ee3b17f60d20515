// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace kelmar::desktop {

// The one place where the text of the model and the text of the window become each other.

inline QString qs(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string u8(const QString& text) {
  return text.toStdString();
}

} // namespace kelmar::desktop
