// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <string>

namespace kelmar {

class DisplayItem;
class OmnikorLibXml;

/// From a threshold on, a display has this colour and sound.
class RangeItem {
 public:
  double Seuil = 0.0;
  std::int32_t Couleur = 0; ///< 0xBBGGRR
  bool SonFlag = false;
  DisplayItem* parent = nullptr;

  std::int32_t Son() const { return son_; }
  /// Stores the number and its text as `SoundName`.
  void setSon(std::int32_t number);
  const std::string& SoundName() const { return soundName_; }
  /// Stores the text, and its integer value as `Son`, 0 when it is no number. Raises
  /// NumericOverflow for a number beyond 32 bits; the text is stored then, too.
  void setSoundName(const std::string& name);

  void clear() { parent = nullptr; }
  std::shared_ptr<RangeItem> clone(DisplayItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);

 private:
  std::int32_t son_ = 0;
  std::string soundName_;
};

class RangeItems : public Items<RangeItem> {
 public:
  RangeItem* Add(double threshold, std::int32_t colour, std::string_view key = {});
  RangeItem* AddData(Pointer item, std::string_view key = {});
  std::shared_ptr<RangeItems> clone(DisplayItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, DisplayItem* owner);
};

} // namespace kelmar
