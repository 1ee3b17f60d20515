// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTextDocument>

namespace kelmar::desktop {

/// The text of a field of several lines as it was typed, lines ended by line feeds. What the fields
/// themselves give as plain text has blanks in place of no-break spaces.
inline QString documentText(const QTextDocument& document) {
  QString text = document.toRawText();
  for (const QChar::SpecialCharacter end : {QChar::ParagraphSeparator, QChar::LineSeparator})
    text.replace(end, QLatin1Char('\n'));
  return text;
}

} // namespace kelmar::desktop
