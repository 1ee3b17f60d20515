// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "database/screen_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <memory>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class PositionFinder;
class TargetItem;

/// A group of screens.
class CategoryItem {
 public:
  std::string categoryName;
  std::shared_ptr<ScreenItems> Screens = std::make_shared<ScreenItems>(); ///< may be none
  TargetItem* parent = nullptr;

  void clear();
  std::shared_ptr<CategoryItem> clone(TargetItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class CategoryItems : public Items<CategoryItem> {
 public:
  CategoryItem* Add(const std::string& name, TargetItem* parent, std::string_view key = {});
  /// Raises 1 "Duplicate category".
  CategoryItem* AddData(Pointer item, std::string_view key = {});
  /// By exact name.
  CategoryItem* ItemName(std::string_view name) const;
  /// Deletes the first member of that exact name: names are compared here, on purpose, so that of
  /// two members of one name the first goes.
  void deleteItem(const CategoryItem* item) { deleteItem(item->categoryName); }
  void deleteItem(std::string_view name);
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner);
};

} // namespace kelmar
