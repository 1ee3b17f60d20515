// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace kelmar {

/// A colour of the model, 0xBBGGRR or a marked system colour, as the screen shows it. System
/// colours follow the palette; an unknown one is that of window text.
QColor shownColour(std::uint32_t colour, const QPalette& palette);

/// 0xBBGGRR of a colour.
std::uint32_t storedColour(const QColor& colour);

/// The model's red, which marks faults: 0x0000FF.
inline constexpr std::uint32_t faultRed = 255;

/// A text colour that can be read on the palette's base: the colour itself on a light one, a
/// lighter or darker shade of it where the contrast is too low.
QColor readableOn(const QPalette& palette, const QColor& wanted);

} // namespace kelmar
