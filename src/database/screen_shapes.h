// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_context.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>

namespace kelmar {

// The elements that labels, buttons and displays share.

/// `Rectangle` with its line feed behind. Twips.
void writeRectangle(xml::Writer& out, std::int32_t left, std::int32_t top, std::int32_t height,
                    std::int32_t width);
/// Tolerant; nothing when the element is missing.
void readRectangle(LoadContext& load, xml::Node element, std::int32_t& left, std::int32_t& top,
                   std::int32_t& height, std::int32_t& width);

/// The number text of a font size, with its leading blank: 8.1F gives " 8.1".
std::string fontSizeText(float points);
/// "8,25" and "8.25" alike.
double readFontSize(xml::Node font);

inline const char* flagText(bool flag) {
  return flag ? "1" : "0";
}

} // namespace kelmar
