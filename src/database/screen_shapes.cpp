// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/screen_shapes.h"

#include "base/conversions.h"
#include "base/text.h"

#include <charconv>

namespace kelmar {

void writeRectangle(xml::Writer& out, std::int32_t left, std::int32_t top, std::int32_t height,
                    std::int32_t width) {
  out.open("Rectangle");
  out.attribute("Left", left);
  out.attribute("Top", top);
  out.attribute("Height", height);
  out.attribute("Width", width);
  out.close();
  out.lineFeed();
}

void readRectangle(LoadContext& load, xml::Node element, std::int32_t& left, std::int32_t& top,
                   std::int32_t& height, std::int32_t& width) {
  const xml::Node rectangle = element.child("Rectangle");
  if (!rectangle) return;
  readNumber(load, rectangle, "Left", left);
  readNumber(load, rectangle, "Top", top);
  readNumber(load, rectangle, "Height", height);
  readNumber(load, rectangle, "Width", width);
}

std::string fontSizeText(float points) {
  // A single float holds seven digits; as a double it would show the rest of its binary form.
  char digits[64];
  const auto end = std::to_chars(digits, digits + sizeof digits, points).ptr;
  double value = 0.0;
  std::from_chars(digits, end, value);
  return NumberToText(value);
}

double readFontSize(xml::Node font) {
  return TextToNumber(replaceAll(font.attribute("Size").value(), ",", "."));
}

} // namespace kelmar
