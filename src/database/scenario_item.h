// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class ButtonItem;
class OmnikorLibXml;
class RequestItem;

/// One step of a button: send this request, then wait.
class ScenarioItem {
 public:
  std::int32_t Index = 0; ///< 1-based place in the scenario
  std::int32_t delay = 0; ///< in the unit of the diagnostic tool
  std::string requestName;
  ButtonItem* parent = nullptr;

  RequestItem* request() const;
  /// Copies the name; none changes nothing.
  void setRequest(const RequestItem* item);
  void clear() { parent = nullptr; }
  std::shared_ptr<ScenarioItem> clone(ButtonItem* newParent) const;
  /// Nothing when the request is unknown: the element stays empty.
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

class ScenarioItems : public Items<ScenarioItem> {
 public:
  ScenarioItem* Add(const std::string& requestName, std::int32_t delay);
  /// Sets `Index` to one more than the greatest, and appends.
  ScenarioItem* AddData(Pointer item);
  /// Renumbers from 1.
  void deleteItem(const ScenarioItem* item);
  template <class Predicate>
  void deleteSteps(Predicate predicate) {
    const int before = Count();
    deleteIf(predicate);
    if (Count() != before) renumber();
  }
  /// Brings the list into ascending `Index`.
  void sort();
  /// Moves a step one place and renumbers; nothing for the first (last) one.
  void up(const ScenarioItem* item);
  void down(const ScenarioItem* item);
  std::shared_ptr<ScenarioItems> clone(ButtonItem* newParent) const;
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, ButtonItem* owner);

 private:
  std::int32_t greatestIndex() const;
  void renumber();
};

} // namespace kelmar
