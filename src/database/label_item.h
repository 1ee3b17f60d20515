// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class ScreenItem;

/// A text or picture of a screen. Geometry is in twips.
class LabelItem {
 public:
  std::int32_t LabelId = 0; ///< not in the file
  std::string LabelText;
  std::int32_t LabelLeft = 0;
  std::int32_t LabelTop = 0;
  std::int32_t LabelHeight = 0;
  std::int32_t LabelWidth = 0;
  std::string FontName;
  float FontSize = 0.0f; ///< points
  bool FontBold = false;
  bool FontItalic = false;
  std::int32_t FontColor = 0;
  std::int32_t LabelColor = 0;
  std::int32_t Alignment = 0;
  ScreenItem* parent = nullptr;

  void clear() { parent = nullptr; }
  std::shared_ptr<LabelItem> clone(ScreenItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class LabelItems : public Items<LabelItem> {
 public:
  LabelItem* AddData(Pointer item, std::string_view key = {});
  std::shared_ptr<LabelItems> clone(ScreenItem* newParent) const;
  /// A line feed before each.
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner);
};

} // namespace kelmar
