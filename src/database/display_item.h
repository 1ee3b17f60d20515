// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "database/range_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class DataPositionItem;
class DisplayItem;
class OmnikorLibXml;
class PositionFinder;
class RequestItem;
class ScreenItem;

/// The data that a display shows.
class DisplayDataItem {
 public:
  std::string dataName;
  std::string requestName;
  DisplayItem* parent = nullptr;

  /// The position of that data in that request, none on any failure.
  DataPositionItem* DataPosition() const;
  /// The same, found faster where many are asked for.
  DataPositionItem* DataPosition(PositionFinder& positions) const;
  /// Takes both names; none changes nothing.
  void setDataPosition(const DataPositionItem* position);
  void clear() { parent = nullptr; }
  std::shared_ptr<DisplayDataItem> clone(DisplayItem* newParent) const;
};

/// The request that a display without data shows.
class DisplayExtraItem {
 public:
  std::string requestName;
  bool param = false; ///< an input
  DisplayItem* parent = nullptr;

  RequestItem* request() const;
  /// Copies the name; none changes nothing.
  void setRequest(const RequestItem* item);
  void clear() { parent = nullptr; }
  std::shared_ptr<DisplayExtraItem> clone(DisplayItem* newParent) const;
};

/// A display or an input of a screen. Geometry is in twips.
class DisplayItem {
 public:
  bool FontBold = false;
  bool FontItalic = false;
  std::int32_t FontColor = 0;
  std::string FontName = "Arial";
  std::int32_t FontSize = 10; ///< points
  std::int32_t DisplayColor = 0xFFFFFF;
  std::int32_t CaptionWidth = 2000; ///< twips
  std::int32_t DisplayWidth = 4000;
  std::int32_t DisplayHeight = 300;
  std::int32_t DisplayTop = 0;
  std::int32_t DisplayLeft = 0;
  std::int32_t TypeDisplay =
      3; ///< 1 request only, 3 data of a request, other: data without request
  std::shared_ptr<kelmar::RangeItems> RangeItems;             ///< may be none
  std::shared_ptr<kelmar::DisplayDataItem> DisplayDataItem;   ///< may be none
  std::shared_ptr<kelmar::DisplayExtraItem> DisplayExtraItem; ///< may be none
  ScreenItem* parent = nullptr;

  void clear();
  std::shared_ptr<DisplayItem> clone(ScreenItem* newParent) const;
  /// Writes its own element, `Display` or `Input`. Raises MissingObject when the data position
  /// cannot be resolved.
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);

 private:
  void loadExtra(OmnikorLibXml& database, const std::string& request, bool param);
  void loadData(OmnikorLibXml& database, const std::string& request, const std::string& data);
};

class DisplayItems : public Items<DisplayItem> {
 public:
  DisplayItem* AddData(Pointer item, std::string_view key = {});
  std::shared_ptr<DisplayItems> clone(ScreenItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void createXMLnode(xml::Writer& out, PositionFinder& positions) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, ScreenItem* owner);
};

} // namespace kelmar
