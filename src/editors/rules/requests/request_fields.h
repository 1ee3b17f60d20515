// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/failure.h"
#include "database/request_item.h"

#include <optional>
#include <string>

namespace kelmar {

/// What the fields of the request page hold: one member for each control. The frames are text as
/// typed, which need not be hexadecimal.
struct RequestFields {
  std::string Commentaire = {};
  bool AccesApresVente = false;
  bool AccesConstructeur = false;
  bool AccesEtudes = false;
  bool AccesTous = false;
  bool AccesUsine = false;
  bool DossierMaintenabilite = false;
  bool LgVariable = false;
  bool ManuelSend = false;
  std::int32_t LengthDatas = 1;
  std::int32_t ShiftBytesCount = 0;
  std::string RequestBytes = {};
  std::string ReplyBytes = {};

  friend bool operator==(const RequestFields&, const RequestFields&) = default;
};

/// The default value of RequestFields is that of an empty page.
RequestFields fieldsOf(const RequestItem& request);

/// A frame that could not be taken over: where the focus goes, and what is told.
struct BadFrame {
  enum class Field { RequestBytes, ReplyBytes };
  Field field;
  Failure failure; ///< number 1, in the language of the moment
};

/// Copies the fields into the item, the frames last. What was copied before a bad frame stays.
std::optional<BadFrame> applyFields(const RequestFields& fields, RequestItem& request);

/// True for pairs of hexadecimal digits, and for an empty text.
bool isFrameText(const std::string& text);

/// "(1 byte)", "(4 bytes)": the length of what is typed, two characters a byte.
std::string requestLengthText(const std::string& text);

} // namespace kelmar
