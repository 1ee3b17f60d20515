// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/button_item.h"
#include "database/display_item.h"
#include "database/items.h"
#include "database/label_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class CategoryItem;
class OmnikorLibXml;
class PositionFinder;

/// A screen of the diagnostic tool. Geometry is in twips.
class ScreenItem {
 public:
  std::string screenName;
  std::int32_t InitId = 0; ///< not in the file
  std::int32_t WindowState = 0;
  std::int32_t ScreenWidth = 600;
  std::int32_t ScreenHeight = 400;
  std::int32_t ScreenColor = 0xFFFFFF;
  std::shared_ptr<ButtonItem> ButtonInit;             ///< a member of ButtonItems too
  std::shared_ptr<kelmar::ButtonItems> ButtonItems;   ///< may be none
  std::shared_ptr<kelmar::DisplayItems> DisplayItems; ///< may be none
  std::shared_ptr<kelmar::LabelItems> LabelItems;     ///< may be none
  CategoryItem* parent = nullptr;

  void clear();
  std::shared_ptr<ScreenItem> clone(CategoryItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

/// The screens of a category, keyed "k" + name with a number behind on a clash: two screens of one
/// name can stand side by side.
class ScreenItems : public Items<ScreenItem> {
 public:
  ScreenItem* AddData(Pointer item);
  /// The first of that exact name.
  ScreenItem* ItemName(std::string_view name) const;
  /// Deletes the first member of that exact name: names are compared here, on purpose, so that of
  /// two members of one name the first goes.
  void deleteItem(const ScreenItem* item) { deleteItem(item->screenName); }
  void deleteItem(std::string_view name);
  std::shared_ptr<ScreenItems> clone(CategoryItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, CategoryItem* owner);

 private:
  /// Tries the keys from `suffix` on and answers with the one that served.
  int addFrom(Pointer item, int suffix);
};

} // namespace kelmar
