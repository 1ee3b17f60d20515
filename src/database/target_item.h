// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/auto_ident_item.h"
#include "database/category_item.h"
#include "database/data_item.h"
#include "database/organe_item.h"
#include "database/request_item.h"
#include "database/target_param_item.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace kelmar {

class OmnikorLibXml;

/// The names of the projects of an ECU: ordered, keyed by the name itself.
class ProjectNames {
 public:
  /// Raises KeyExists for a name that is there, without regard to case.
  void Add(const std::string& name);
  int Count() const { return static_cast<int>(names_.size()); }
  bool contains(std::string_view name) const;
  void clear();
  auto begin() const { return names_.begin(); }
  auto end() const { return names_.end(); }

 private:
  std::vector<std::string> names_;
  std::unordered_set<std::string> keys_; // folded
};

/// The record of one ECU: who it is, where it belongs, and everything that it holds.
class TargetItem {
 public:
  TargetItem();
  TargetItem(const TargetItem&) = delete;
  TargetItem& operator=(const TargetItem&) = delete;
  ~TargetItem();

  // Every one of these writers marks the record as changed.
  const std::string& name() const { return name_; }
  void setName(const std::string& value) { change(name_, value); }
  std::int32_t Address() const { return address_; }
  void setAddress(std::int32_t value) { change(address_, value); }
  const std::string& LogicalAddress() const { return logicalAddress_; }
  void setLogicalAddress(const std::string& value) { change(logicalAddress_, value); }
  const std::string& Langue() const { return langue_; }
  void setLangue(const std::string& value) { change(langue_, value); }
  bool reference() const { return reference_; }
  void setReference(bool value) { change(reference_, value); }
  const std::string& Email() const { return email_; }
  void setEmail(const std::string& value) { change(email_, value); }
  const std::string& Href() const { return href_; }
  void setHref(const std::string& value) { change(href_, value); }
  const std::string& Upload() const { return upload_; }
  void setUpload(const std::string& value) { change(upload_, value); }
  const std::string& Group() const { return group_; }
  void setGroup(const std::string& value) { change(group_, value); }

  const std::shared_ptr<TargetParamItem>& Parametres() const { return parametres_; }
  void setParametres(std::shared_ptr<TargetParamItem> value) {
    change(parametres_, std::move(value));
  }
  /// May be none, like the next two.
  const std::shared_ptr<DataItems>& datas() const { return datas_; }
  void setDatas(std::shared_ptr<DataItems> value) { change(datas_, std::move(value)); }
  const std::shared_ptr<RequestItems>& Requests() const { return requests_; }
  void setRequests(std::shared_ptr<RequestItems> value) { change(requests_, std::move(value)); }
  const std::shared_ptr<OrganeItems>& Organes() const { return organes_; }
  void setOrganes(std::shared_ptr<OrganeItems> value) { change(organes_, std::move(value)); }

  // Replacing these does not mark the record, nor do changes inside any collection.
  std::shared_ptr<CategoryItems> Categories;  ///< may be none
  std::shared_ptr<AutoIdentItems> AutoIdents; ///< may be none
  ProjectNames Projects;
  OmnikorLibXml* parent = nullptr;
  bool ValueChanged = true; ///< reset by the frame after a load or a save

  void clear();
  /// Writes the whole element `zem:Target`. Raises MissingObject when the catalogue of functions
  /// lacks `Address` or a display lost its data, 1 for a text that cannot be written.
  void createXMLnode(xml::Writer& out);
  /// `root` is the root element of the file. Tolerant: failures are in the pending error.
  void loadXml(OmnikorLibXml& database, xml::Node root);

  // Queries. Each walks the live model in order; none changes it.

  /// One position per request that uses the data in either frame.
  std::vector<DataPositionItem*> GetRequestsUsingData(std::string_view name) const;
  /// Devices and screens do not count.
  bool IsDataUsed(std::string_view name) const;
  DeviceDataItem* GetDeviceDataUsingData(std::string_view name) const;
  /// The first device that holds it as device datum or flag.
  OrganeItem* GetDeviceUsingData(std::string_view name) const;
  std::vector<OrganeItem*> GetDeviceUsingRequest(std::string_view name) const;
  std::vector<DisplayItem*> GetScreensUsingData(std::string_view name) const;
  std::vector<DisplayItem*> GetScreensDataUsingRequest(std::string_view name) const;
  std::vector<DisplayItem*> GetScreensExtraDataUsingRequest(std::string_view name) const;
  /// Steps of all buttons, the init button included.
  std::vector<ScenarioItem*> GetScreensScenarioUsingRequest(std::string_view name) const;
  /// First position of that name with `reference`, walking requests, then positions.
  DataPositionItem* GetDataPositionFromRefData(std::string_view name) const;
  /// All positions with `reference`, in the order of requests.
  std::vector<DataPositionItem*> datasRefAll() const;
  /// The reference positions, the first of each data; of the received and of the sent frames.
  std::vector<DataPositionItem*> datasRef() const;
  std::vector<DataPositionItem*> datasRefRead() const;
  std::vector<DataPositionItem*> datasRefWrite() const;

  // Cascades. References follow as documented with each; in one pass over the model.

  /// Nothing when the data does not exist.
  void DeleteDataByName(std::string_view name);
  /// Deletes its positions with what hangs on them, then the data.
  void DeleteData(DataItem* item);
  /// A reference position takes device datum or flag along; the displays of this data in this
  /// request go.
  void DeleteDataPosition(DataPositionItem* position);
  /// Its positions as above, the freeze-frame names, displays and scenario steps that use it.
  void DeleteRequest(RequestItem* item);
  /// Many at once, each there once, with the result of one after the other: one walk over the model
  /// and not one for each.
  void DeleteDataPositions(const std::vector<DataPositionItem*>& positions);
  void DeleteRequests(const std::vector<RequestItem*>& items);
  /// The data of the device stay.
  void DeleteDevice(OrganeItem* item);
  /// Positions, the first device and displays follow. Raises 1 "Duplicate data (...)", and then
  /// nothing has changed.
  void RenameData(DataItem* item, const std::string& newName);
  /// The result of RenameData one by one, in a time that grows with their number; one answer each,
  /// false where it would have raised. Each item may be there once.
  std::vector<bool> RenameDatas(const std::vector<DataItems::NewName>& names);
  /// Displays and scenario steps follow; freeze-frame names keep the old name. Raises 1 "Duplicate
  /// request (...)".
  void RenameRequest(RequestItem* item, const std::string& newName);
  /// Many renames at once, with the result of RenameRequest for one after the other: one walk over
  /// the model and not one for each. For each whether it succeeded, which a name without change
  /// does, too.
  struct RequestRename {
    RequestItem* item;
    std::string newName;
  };
  std::vector<bool> RenameRequests(const std::vector<RequestRename>& renames);
  void RenameDevice(OrganeItem* item, const std::string& newName);
  /// Points an existing position at another data; devices (for a reference) and the displays of
  /// this request follow.
  void ReplaceDataPosition(DataPositionItem* position, const DataItem* newData);

 private:
  template <class Field, class Value>
  void change(Field& field, Value&& value) {
    field = std::forward<Value>(value);
    ValueChanged = true;
  }
  void writeFunction(xml::Writer& out);
  bool loadFunction(OmnikorLibXml& database, xml::Node target);
  void loadCollections(OmnikorLibXml& database, xml::Node target);

  std::string name_;
  std::int32_t address_ = 0;
  std::string logicalAddress_;
  std::string functionName_;
  std::string langue_ = "Français";
  bool reference_ = true;
  std::string email_, href_, upload_, group_;
  std::shared_ptr<TargetParamItem> parametres_;
  std::shared_ptr<DataItems> datas_;
  std::shared_ptr<RequestItems> requests_;
  std::shared_ptr<OrganeItems> organes_;
};

} // namespace kelmar
