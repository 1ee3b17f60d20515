// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "database/scenario_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class ScreenItem;

/// A button that runs a scenario of requests. Geometry is in twips.
class ButtonItem : public std::enable_shared_from_this<ButtonItem> {
 public:
  bool FontBold = false;
  bool FontItalic = false;
  float FontSize = 12.0f; ///< points
  std::string FontName;
  std::string caption;
  std::int32_t ButtonLeft = 0;
  std::int32_t ButtonTop = 0;
  std::int32_t ButtonHeight = 0;
  std::int32_t ButtonWidth = 0;
  std::string Message;
  std::shared_ptr<kelmar::ScenarioItems> ScenarioItems; ///< may be none
  bool InitButton = false; ///< runs when the screen opens, and is not shown
  ScreenItem* parent = nullptr;

  void clear();
  std::shared_ptr<ButtonItem> clone(ScreenItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  /// A button with `InitButton` becomes the screen's `ButtonInit`; it must be shared by its caller.
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class ButtonItems : public Items<ButtonItem> {
 public:
  ButtonItem* AddData(Pointer item, std::string_view key = {});
  std::shared_ptr<ButtonItems> clone(ScreenItem* newParent) const;
  /// The buttons that are no init buttons, a line feed before each.
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner);
};

} // namespace kelmar
