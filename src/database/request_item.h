// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/data_position_item.h"
#include "database/frame_buffer.h"
#include "database/items.h"
#include "xml/document.h"
#include "xml/writer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

class OmnikorLibXml;
class TargetItem;

/// One exchange with the ECU: the bytes sent, the expected reply, and where the data sit in both.
class RequestItem : public std::enable_shared_from_this<RequestItem> {
 public:
  std::string requestName;                   ///< renamed through RequestItems::rename
  std::shared_ptr<FrameBuffer> RequestBytes; ///< may be none
  std::shared_ptr<FrameBuffer> ReplyBytes;   ///< may be none
  std::int32_t LengthDatas = 1;              ///< least bytes of the reply
  std::int32_t ShiftBytesCount = 0;          ///< bytes
  bool ManuelSend = false;
  bool LgVariable = false;
  bool AccesTous = true;
  bool AccesUsine = true;
  bool AccesApresVente = true;
  bool AccesEtudes = true;
  bool AccesConstructeur = true;
  bool DossierMaintenabilite = false;
  std::string Commentaire;                          ///< lines end with CR LF
  std::shared_ptr<DataPositionItems> DataPositions; ///< may be none
  TargetItem* parent = nullptr;

  void clear();
  std::shared_ptr<RequestItem> clone(TargetItem* newParent) const;
  /// Overwrites this request from the source but for name, `LgVariable` and `ShiftBytesCount`.
  void update(const RequestItem& source);
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node element);
};

/// The requests of an ECU, keyed "k" + name.
class RequestItems : public Items<RequestItem> {
 public:
  /// Raises KeyExists.
  RequestItem* Add(const std::string& name);
  RequestItem* AddData(Pointer item);
  RequestItem* ItemName(std::string_view name) const;
  /// The position of that data in that request, the data's name compared in lower case; none when
  /// either is absent.
  DataPositionItem* ItemDataPositionName(std::string_view requestName,
                                         std::string_view dataName) const;
  /// The renamed request goes to the end. Raises 1 "Duplicate request (...)".
  void rename(RequestItem* item, const std::string& newName);
  void createXMLnode(xml::Writer& out) const;
  void loadXml(OmnikorLibXml& database, xml::Node parent, TargetItem* owner);
};

} // namespace kelmar
